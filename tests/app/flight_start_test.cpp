// Where each start puts the aircraft, by references on the globe, and how it finds its switches.
#include <math.h>

#include <filesystem>

#include "app/lab/headless.h"
#include "app/start/traffic.h"
#include "core/disk/paths.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/clocks.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/ships.h"
#include "flying.h"
#include "scenery/ground/region.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/ground/tile.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/nav/planet_nav.h"
#include "scenery/region/region_lists.h"
#include "scenery/region/region_menus.h"
#include "scenery/region/survey_land.h"
#include "ui/keys/commands.h"

namespace {
constexpr double deg = M_PI / 180.0;
constexpr double nm = 1852.0;

struct leg {
    double distance, bearing;  // m, true degrees
};

// Great circle.
leg between(double lat1, double lon1, double lat2, double lon2) {
    const double f1 = lat1 * deg, f2 = lat2 * deg, dl = (lon2 - lon1) * deg;
    const double a = pow(sin((f2 - f1) / 2.0), 2) + cos(f1) * cos(f2) * pow(sin(dl / 2.0), 2);
    const double bearing = atan2(sin(dl) * cos(f2), cos(f1) * sin(f2) - sin(f1) * cos(f2) * cos(dl)) / deg;
    return {2.0 * con.planet_rad * asin(sqrt(a)), bearing < 0.0 ? bearing + 360.0 : bearing};
}

// Where the nose of the user's aircraft points, seen on the globe.
double true_heading() {
    const flt_struct& f = flt[0];
    double lat, lon, ele;
    xdob_latlonel_with_xyz(&lat, &lon, &ele, f.dob_x + 100.0 * sin(f.psi * deg), f.dob_y,
                           f.dob_z - 100.0 * cos(f.psi * deg));
    return between(f.dob_lat, f.dob_lon, lat, lon).bearing;
}

void expect_angle(double is, double should, double within) {
    EXPECT_NEAR(remainder(is - should, 360.0), 0.0, within) << is << " for " << should;
}

void add_runway(vec_apt_struct& apt, double lat, double lon, float psi, float len, const char* name = "14x",
                unsigned char surface = 113) {
    vec_rwy_struct& rwy = apt.rwy.emplace_back();
    rwy.lat = static_cast<float>(lat), rwy.lon = static_cast<float>(lon);
    rwy.psi_true = psi, rwy.len = len, rwy.width = 30.0f, rwy.surf_tex = surface;
    snprintf(rwy.num_str, sizeof rwy.num_str, "%s", name);
}

vec_apt_struct& add_airport(const char* id, unsigned char type = apt_land) {
    vec_apt_struct& apt = vec_apt.emplace_back();
    apt.apt_type = type;
    snprintf(apt.apt_id, sizeof apt.apt_id, "%s", id);
    apt_hash[apt_id_key(id)] = static_cast<int>(vec_apt.size()) - 1;
    return apt;
}

constexpr float runway_psi = 137.25f, runway_len = 2412.0f;

class flight_start : public ::testing::Test {
protected:
    void SetUp() override { test::fly_aircraft("Wren 160"); }
    void TearDown() override {
        stand_on_survey_land();
        vec_apt.clear();
        apt_hash.clear();
    }
    // Off the middle of its region, where north leans away from the frame's.
    static const vec_rwy_struct& add_default_airport() {
        vec_apt_struct& apt = add_airport("TEST");
        add_runway(apt, 34.61, -118.72, 20.0f, 900.0f);
        add_runway(apt, 34.64, -118.70, runway_psi, runway_len);
        apt.sta.push_back({34.655f, -118.71f, 301.5f, "ramp"});
        msc.loc_apt_wrl = 0;
        msc.lcl_rwy_ram = 1;
        return apt.rwy[1];
    }
    void expect_parked() {
        EXPECT_EQ(stg.parkbrake, 1.0f);
        EXPECT_EQ(f.gear_handle, 1);
        EXPECT_EQ(f.V_msc, 0.0f);
        EXPECT_NEAR(f.dob_y - f.terrain_y_cg, veh[0].h_eqlbm, 0.01);
        EXPECT_FLOAT_EQ(f.the, veh[0].the_eqlbm);
        EXPECT_NEAR(f.dob_ele, veh[0].h_eqlbm, 0.3) << "on survey land";
    }
    // On a runway's centreline, so far before its middle.
    void expect_before(const vec_rwy_struct& rwy, double distance, float psi, double within = 1.0) {
        const leg back = between(rwy.lat, rwy.lon, f.dob_lat, f.dob_lon);
        EXPECT_NEAR(back.distance, distance, within);
        if (distance > 0.0)
            expect_angle(back.bearing, psi + 180.0, 0.02 + 40.0 / fmax(distance, 100.0) + 3e-6 * distance);
        // degrees; far out the meridians lean against each other
        expect_angle(true_heading(), psi, 0.05 + 6e-6 * distance);
    }
    static void expect_told(const char* first, const char* second = nullptr) {
        ASSERT_FALSE(test::alerts.empty()) << first;
        EXPECT_EQ(test::alerts.back().text.line[0], first);
        if (second) {
            EXPECT_EQ(test::alerts.back().text.line[1], second);
        }
        EXPECT_EQ(test::alerts.back().type, alert_message);
    }
    static void expect_refused(int code, const char* first, const char* second = nullptr) {
        test::alerts.clear();
        init_flt_0(code, 0);
        expect_told(first, second);
        EXPECT_EQ(stg.parkbrake, 1.0f) << code;
        EXPECT_EQ(flt[0].V_msc, 0.0f) << code;
        EXPECT_FALSE(stg.cat_waiting || stg.car_inprog || stg.tow_waiting || stg.win_waiting) << code;
    }
    flt_struct& f = flt[0];
};

TEST_F(flight_start, stands_ten_metres_from_the_end_of_the_runway_and_looks_along_it) {
    const vec_rwy_struct& rwy = add_default_airport();
    init_flt_0(start_airport, place_runway);
    expect_before(rwy, 0.5 * runway_len - 10.0, runway_psi);
    expect_parked();
    EXPECT_EQ(f.engn[0].burning_fuel, 1);
    msc.backwards = 1;
    init_flt_0(start_airport, place_runway);
    expect_before(rwy, 0.5 * runway_len - 10.0, runway_psi + 180.0f);
    expect_parked();
    // a helipad begins in its middle
    msc.backwards = 0;
    vec_apt[0].apt_type = apt_helipad;
    init_flt_0(start_airport, place_runway);
    expect_before(rwy, 0.0, runway_psi);
    init_flt_0(start_airport, place_ramp);
    EXPECT_LT(between(f.dob_lat, f.dob_lon, 34.655f, -118.71f).distance, 1.0);
    expect_angle(true_heading(), 301.5, 0.05);
    expect_parked();
}

TEST_F(flight_start, stands_so_at_airports_all_over_the_world) {
    read_nav_tables();
    ASSERT_TRUE(apt_hash.count(apt_id_key("KSBD")) && apt_hash.count(apt_id_key("KEDW")));
    const size_t sample = vec_apt.size() / 50 + 1;
    for (size_t a = 0; a < vec_apt.size(); a += sample) {
        msc.loc_apt_wrl = static_cast<int>(a);
        msc.lcl_rwy_ram = 0;
        vec_apt[a].ele = 0.0f;  // of survey land
        const vec_rwy_struct& rwy = vec_apt[a].rwy[0];
        const bool pad = vec_apt[a].apt_type == apt_helipad || vec_apt[a].apt_type == apt_carrier;
        init_flt_0(start_airport, place_runway);
        expect_before(rwy, pad ? 0.0 : fmax(0.5 * rwy.len - 10.0, 0.0), rwy.psi_true);
        expect_parked();
        if (HasFailure()) FAIL() << vec_apt[a].apt_id;
    }
}

TEST_F(flight_start, a_final_approach_lies_on_its_slope_before_the_threshold) {
    const vec_rwy_struct& rwy = add_default_airport();
    const double half = 0.5 * runway_len - 10.0;
    for (const bool engines : {true, false}) {
        if (!engines) veh[0].num_engines = 0;
        for (const auto& [place, miles] : {std::pair{place_final_3, 3.0}, {place_final_10, 10.0}}) {
            init_flt_0(start_airport, place);
            expect_before(rwy, half + miles * nm, runway_psi);
            EXPECT_NEAR(f.dob_ele, miles * nm * tan((engines ? 3.0 : 6.0) * deg), 1.0);
            EXPECT_NEAR(f.V_msc, veh[0].V_ref_ms, 0.5) << "near standard air and gravity";
            EXPECT_EQ(f.the, 0.0f);
            EXPECT_EQ(stg.parkbrake, 0.0f);
        }
    }
}

TEST_F(flight_start, holds_a_selection_beyond_the_lists_and_codes_that_are_none) {
    const vec_rwy_struct& rwy = add_default_airport();
    const auto on_the_runway = [&](int code, int place) {
        init_flt_0(code, place);
        expect_before(rwy, 0.5 * runway_len - 10.0, runway_psi);
    };
    for (const auto& [apt, number] : {std::pair{99, 99}, {-1, 99}, {0, 1}}) {
        msc.loc_apt_wrl = apt, msc.lcl_rwy_ram = number;
        on_the_runway(start_airport, place_runway);
        EXPECT_TRUE(msc.loc_apt_wrl == 0 && msc.lcl_rwy_ram == 1);
    }
    for (const auto& [code, place] :
         {std::pair{0, 0}, {608, 604}, {608, -1}, {4805, 0}, {4208, 0}, {-7, 601}})
        on_the_runway(code, place);
    // lists without entries
    vec_apt[0].sta.clear();
    msc.lcl_rwy_ram = 5;
    init_flt_0(start_airport, place_ramp);
    expect_parked();
    vec_apt[0].rwy.clear();
    for (int airports = 1; airports >= 0; --airports) {
        vec_apt.resize(static_cast<size_t>(airports));
        for (const int place : {place_ramp, place_runway}) {
            init_flt_0(start_airport, place);
            EXPECT_LT(hypot(f.dob_x, f.dob_z), 1.0) << "in the middle of the region";
            EXPECT_NEAR(f.psi, 0.0f, 1e-4f);
            expect_parked();
        }
    }
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(flight_start, a_custom_place_is_met_on_either_side_of_the_globe) {
    stg.cus_lat = -41.25f, stg.cus_lon = 179.75f, stg.cus_alt = 1234.0f, stg.cus_psi = 213.0f,
    stg.cus_v = 71.0f;
    init_flt_0(start_custom, 0);
    EXPECT_NEAR(f.dob_lat, -41.25, 1e-7);
    EXPECT_NEAR(f.dob_lon, 179.75, 1e-7);
    EXPECT_NEAR(f.dob_ele, 1234.0, 0.01);
    EXPECT_EQ(f.psi, 213.0f);
    EXPECT_NEAR(f.vx, 71.0 * sin(213.0 * deg), 1e-4);
    EXPECT_NEAR(f.vz, -71.0 * cos(213.0 * deg), 1e-4);
    EXPECT_EQ(stg.parkbrake, 0.0f);
    stg.cus_alt = -50.0f;  // lifted to the ground, where it rolls
    init_flt_0(start_custom, 0);
    EXPECT_NEAR(f.y_agl_mtr, 0.0f, 1e-3f);
    EXPECT_EQ(stg.parkbrake, 1.0f);
    stg.cus_psi = NAN;
    expect_refused(start_custom, "This is not a place to start from!");
}

TEST_F(flight_start, the_nearest_strip_of_a_surface_is_selected_and_its_region_comes) {
    add_default_airport();
    vec_apt_struct& apt = add_airport("FAR");
    add_runway(apt, 40.4, -111.3, 90.0f, 500.0f, "xxx", 115);
    add_runway(apt, 40.5, -111.2, 45.0f, 400.0f, "05x", 115);
    add_runway(apt, 40.6, -111.2, 45.0f, 400.0f, "05x", 116);
    add_runway(add_airport("FURTHER"), 20.0, -110.0, 45.0f, 400.0f, "05x", 115);
    add_runway(add_airport("PAD"), 41.0, -112.0, 0.0f, 20.0f, "H1x", 122);
    const auto nearest = [&](int code, int apt_wrl, int number) {
        flt[0].dob_lat = 40.4, flt[0].dob_lon = -111.3;
        init_flt_0(code, 0);
        EXPECT_EQ(msc.loc_apt_wrl, apt_wrl) << code;
        EXPECT_EQ(msc.lcl_rwy_ram, number) << code;
        const vec_rwy_struct& rwy = vec_apt[msc.loc_apt_wrl].rwy[msc.lcl_rwy_ram];
        expect_before(rwy, fmax(0.5 * rwy.len - 10.0, 0.0), rwy.psi_true);
        expect_parked();
    };
    nearest(start_grass, 1, 1);
    EXPECT_NEAR(ref_lat(), 40.5, 0.6) << "its own region";
    nearest(start_dirt, 1, 2);
    nearest(start_helipad, 3, 0);
    expect_refused(start_gravel, "I can't find any landing place of this kind!");
}

TEST_F(flight_start, ships_are_approached_and_left_where_they_lie) {
    add_default_airport();
    for (const int code :
         {start_catapult, start_carrier, start_frigate, start_platform_1, start_platform_2}) {
        for (float& x : env.boat_x) x = 1e9f;
        stg.draw_boats = 0;
        expect_refused(code, "I can't find one in the area!", "Try going to a coastal area!");
        EXPECT_EQ(stg.draw_boats, 1);
    }
    // near the frame's origin, where its plane is level
    const float heading[] = {90.0f, 180.0f, 33.0f, 44.0f};
    for (int s = 0; s < ships_placed; ++s) {
        env.boat_x[s] = 100.0f, env.boat_y[s] = 2.0f, env.boat_z[s] = -200.0f;
        env.boat_psi[s] = heading[s];
        env.boat_the[s] = env.boat_phi[s] = 0.0f;
    }
    const double out = 90.0 * veh[0].V_ref_ms, above = out * sin(3.5 * deg);
    const struct {
        int code;
        double psi, deck;
    } decks[] = {{start_carrier, 82.0, 21.0},
                 {start_frigate, 180.0, 7.0},
                 {start_platform_1, 0.0, 60.0},
                 {start_platform_2, 0.0, 97.0}};
    for (const auto& to : decks) {
        test::alerts.clear();
        init_flt_0(to.code, 0);
        EXPECT_EQ(test::alerts.size(), 1u) << "explained";
        EXPECT_NEAR(f.dob_x, 100.0 - out * sin(to.psi * deg), 0.1) << to.code;
        EXPECT_NEAR(f.dob_z, -200.0 + out * cos(to.psi * deg), 0.1) << to.code;
        EXPECT_NEAR(f.dob_ele, 2.0 + to.deck + above, 0.5) << to.code;
        expect_angle(f.psi, to.psi, 1e-3);
        EXPECT_EQ(f.V_msc, veh[0].V_ref_ms);
        EXPECT_GE(f.handle_rat_act, 0.5f);
    }
    // eastbound: the catapult's end 12.5 m to the left lies north, 60 m ahead east
    init_flt_0(start_catapult, 0);
    EXPECT_NEAR(f.dob_x, 100.0 + 60.0, 0.01);
    EXPECT_NEAR(f.dob_z, -200.0 - 12.5, 0.01);
    EXPECT_NEAR(f.dob_y, 2.0 + 21.0 + veh[0].h_eqlbm, 0.01) << "its wheels on the deck";
    EXPECT_FLOAT_EQ(f.psi, 92.0f);
    EXPECT_EQ(f.V_msc, 15.0f);
    EXPECT_EQ(stg.parkbrake, 1.0f);
    EXPECT_TRUE(stg.cat_waiting && env.over_carr && !env.over_frig);
}

// Tiles without ground: sea.
void fill_nothing(int, int, int, int, int) {}

TEST_F(flight_start, floats_with_engines_running_where_there_is_water) {
    add_default_airport();
    const char* const no_coast = "I can't find any signifigant amount of coastline in this area!";
    expect_refused(start_water, no_coast);
    region_steps.fill_tile = fill_nothing;
    load_region(shift_full_reload);
    stg.start_running = 0;
    test::alerts.clear();
    init_flt_0(start_water, 0);
    expect_told("You are floating on the water near a coast, with the engines running.");
    EXPECT_FLOAT_EQ(f.V_msc, 0.1f);
    EXPECT_EQ(f.psi, 0.0f);
    EXPECT_LT(fabs(f.dob_x), 0.75 * env.reg_x2_mtr);
    EXPECT_LT(fabs(f.dob_z), 0.75 * env.reg_z2_mtr);
    EXPECT_EQ(stg.parkbrake, 0.0f);
    EXPECT_EQ(f.engn[0].burning_fuel, 1) << "it is not on the ground";
    init_flt_0(start_airport, place_runway);
    EXPECT_EQ(f.engn[0].burning_fuel, 0) << "a runway in the sea is ground";
    EXPECT_EQ(stg.parkbrake, 1.0f);
}

TEST_F(flight_start, another_aircraft_leads_where_the_default_one_stands_in_once_told) {
    add_default_airport();
    veh[0].m_fuel_tot = 100.0f;
    for (const int code : {start_refuel_af, start_refuel_af, start_formation, start_carried}) {
        init_flt_0(start_custom, 0);
        const double x = f.dob_x, z = f.dob_z, out = code == start_carried ? 0.0 : 0.2 * nm;
        test::alerts.clear();
        init_flt_0(code, 0);
        EXPECT_NEAR(x - f.dob_x, out * sin((flt[1].psi - 10.0) * deg), 0.1) << code;
        EXPECT_NEAR(z - f.dob_z, -out * cos((flt[1].psi - 10.0) * deg), 0.1) << code;
        EXPECT_EQ(f.V_msc, flt[1].V_msc);
        EXPECT_EQ(f.dob_y, flt[1].dob_y);
        EXPECT_EQ(f.psi, flt[1].psi);
        EXPECT_EQ(stg.car_inprog, code == start_carried);
        const float fuel = f.m_fuel[0] + f.m_fuel[1] + f.m_fuel[2];
        if (code == start_refuel_af) {
            EXPECT_NEAR(flt[1].V_msc, 400.0f * 0.514444f, 0.1f);
            EXPECT_NEAR(f.dob_ele, 25000.0 * 0.3048, 10.0);
            EXPECT_NEAR(fuel, 15.0f, 0.01f);
        }
        if (code == start_carried) {
            EXPECT_NEAR(f.dob_ele, 45000.0 * 0.3048, 10.0);
            EXPECT_NEAR(fuel, 100.0f, 0.1f);
        }
        if (code == start_formation) {
            EXPECT_STREQ(veh[1].name, veh[0].name);
            EXPECT_GE(f.y_agl_mtr, 1990.0f);
            EXPECT_LE(f.y_agl_mtr, 4010.0f);
        }
    }
    EXPECT_EQ(test::alerts.size(), 2u) << "the carrier aircraft is not there, and the exercise is explained";
    init_flt_0(start_carried, 0);
    EXPECT_EQ(test::alerts.size(), 3u);
}

TEST_F(flight_start, with_other_users_about_slot_one_is_theirs) {
    init_flt_0(start_formation, 0);
    net.use_ip[3] = 1;
    flt[4].last_time_rcvd = mnw.real_time;
    const double x = flt[1].dob_x, y = flt[1].dob_y;
    for (const int code : {start_tow, start_formation, start_refuel_navy, start_carried}) {
        init_flt_0(code, 0);
        EXPECT_STREQ(veh[1].name, "Wren 160.acf");
        EXPECT_TRUE(flt[1].dob_x == x && flt[1].dob_y == y) << code;
    }
    clear_acf(1);
    expect_refused(start_formation, "I can't find the other aircraft of this flight!");
    flt[4].last_time_rcvd = mnw.real_time - 31.0f;
    init_flt_0(start_formation, 0);
    EXPECT_STREQ(veh[1].name, "Wren 160.acf") << "they have fallen silent";
    net.use_ip[3] = 0;
}

TEST_F(flight_start, the_towplane_stands_ahead_and_the_winch_at_the_end_of_its_line) {
    const vec_rwy_struct& rwy = add_default_airport();
    init_flt_0(start_tow, 0);
    expect_before(rwy, 0.5 * runway_len - 10.0, runway_psi);
    expect_parked();
    EXPECT_TRUE(stg.tow_waiting && !stg.win_waiting);
    EXPECT_NEAR(flt[1].dob_x - f.dob_x, 55.0 * sin(f.psi * deg), 0.02);
    EXPECT_NEAR(flt[1].dob_z - f.dob_z, -55.0 * cos(f.psi * deg), 0.02);
    EXPECT_EQ(flt[1].ai_app_mode, 3);
    init_flt_0(start_winch, 0);
    expect_parked();
    EXPECT_TRUE(stg.win_waiting && !stg.tow_waiting);
    EXPECT_NEAR(stg.winxyz[0] - f.dob_x, 2000.0 * sin(f.psi * deg), 0.02);
    EXPECT_NEAR(stg.winxyz[2] - f.dob_z, -2000.0 * cos(f.psi * deg), 0.02);
    EXPECT_EQ(stg.win_len, 2000.0f);
    for (int end = 0; end < 2; ++end) EXPECT_FLOAT_EQ(env.tow_line[end][1], static_cast<float>(f.dob_y));
}

TEST_F(flight_start, a_fire_is_met_in_the_wind_with_a_word_on_water) {
    add_default_airport();
    const char* const none = "I can't find any forest fires in the area!";
    scn.fire_avail = 0;
    expect_refused(start_fire, none);
    scn.fire_avail = 1;
    for (int i = 0; i < fireDIM; ++i) scn.fire_on[i] = i == 2;
    scn.firexyz[2][0] = 300.0f, scn.firexyz[2][1] = 5.0f, scn.firexyz[2][2] = 400.0f;
    atm.rain_set = 0.1f;
    expect_refused(start_fire, none);
    atm.rain_set = 0.0f;
    con.sl_T_cel = -1.0f;
    expect_refused(start_fire, none);
    con.sl_T_cel = 15.0f;
    atm.set_wind_dir_mag[0] = 100.0f;
    test::alerts.clear();
    init_flt_0(start_fire, 0);
    EXPECT_EQ(test::alerts.size(), 2u) << "explained; no water aboard";
    const double out = 120.0 * veh[0].V_ref_ms, wind = fltwrap(f.psi - 270.0f, 0.0f, 360.0f);
    expect_angle(wind, 100.0 + 12.0, 4.0);  // variation of southern California in these years
    EXPECT_NEAR(f.dob_x, 300.0 + out * sin((wind + 120.0) * deg), 1.0);
    EXPECT_NEAR(f.dob_z, 400.0 - out * cos((wind + 120.0) * deg), 1.0);
    EXPECT_NEAR(f.dob_ele, 5.0 + out * sin(10.0 * deg), 1.0);
    EXPECT_FLOAT_EQ(f.V_msc, 1.5f * veh[0].V_ref_ms);
    for (const float knots : atm.set_wind_spd_kts) EXPECT_TRUE(fltrange(knots, 15.0f, 20.0f));
}

TEST_F(flight_start, the_way_back_from_space_leads_to_the_airport_of_the_shuttle) {
    add_default_airport();
    expect_refused(start_shuttle_first, "I can't find the airport KEDW, where the shuttle lands!");
    vec_apt_struct& apt = add_airport("KEDW");
    for (int i = 0; i < 7; ++i) add_runway(apt, 34.905, -117.884, 10.0f * i, 4579.0f);
    const struct {
        int code;
        double miles, speed_fps, height_ft, psi;
    } stages[] = {{4806, 5340.0, 25750.0, 450000.0, 52.0},
                  {4807, 591.0, 14000.0, 167270.0, 86.0},
                  {4808, 40.0, 2500.0, 83000.0, 89.0},
                  {4809, 8.0, 600.0, 18000.0, 60.0}};
    for (const auto& stage : stages) {
        init_flt_0(stage.code, 0);
        EXPECT_NEAR(f.dob_ele, stage.height_ft * 0.3048, 1.0) << stage.code;
        EXPECT_NEAR(f.V_msc, stage.speed_fps * 0.3048, 0.01) << stage.code;
        EXPECT_NEAR(f.vy, stage.code == 4806 ? -561.7 * 0.3048 : 0.0, 0.01);
        if (stage.code == 4809) {
            expect_before(apt.rwy[6], 8.0 * nm + 0.5 * 4579.0, 60.0f, 40.0);  // as given: 1/60 degree a mile
        } else {
            EXPECT_NEAR(f.dob_lat, 34.905, 1e-4) << stage.code;
            EXPECT_NEAR(remainder(-117.884 - f.dob_lon, 360.0), stage.miles / 60.0 / cos(34.905 * deg), 2e-3);
            EXPECT_FLOAT_EQ(f.psi, static_cast<float>(stage.psi));
        }
        EXPECT_EQ(f.m_fixed, 1000.0f);
        EXPECT_TRUE(nav.gps_use_index == 1 && nav.HSIsel == 2);
    }
}

// -- switches and engines

struct switch_row {
    int veh_struct::*is_there;
    int* is_on;
};
const switch_row switches[] = {
    {&veh_struct::battery_EQ, &stg.battery},        {&veh_struct::avionics_EQ, &stg.avionics},
    {&veh_struct::inverter_EQ, &stg.inverter[1]},   {&veh_struct::has_igniter, &stg.igniter[7]},
    {&veh_struct::generator_EQ, &stg.generator[7]}, {&veh_struct::fuelpump_EQ, &stg.fuel_pump[7]},
};

TEST_F(flight_start, is_cold_on_the_ground_where_wished_but_for_what_has_no_switch) {
    add_default_airport();
    veh[0].gear_retract = 1;
    for (int there = 0; there <= 1; ++there) {
        for (const switch_row& s : switches) veh[0].*s.is_there = there;
        veh[0].has_mixture = there;
        veh[0].has_clutch_switch = veh[0].engn[0].prop_clutch_EQ = there;
        for (const int code : {start_airport, start_custom})
            for (int running = 0; running <= 1; ++running) {
                stg.start_running = running;
                init_flt_0(code, place_runway);
                const bool runs = running || code == start_custom;  // in the air it must
                for (const switch_row& s : switches) EXPECT_EQ(*s.is_on, runs || !there);
                EXPECT_EQ(stg.clutch_trq_engag, runs || !there);
                for (const flt_engn_struct& e : f.engn) {
                    EXPECT_EQ(e.mixt, runs || !there ? 1.0f : 0.0f);
                    EXPECT_EQ(e.ignition, runs ? 3 : 0);
                    EXPECT_EQ(e.burning_rat, runs ? 1.0f : 0.0f);
                    EXPECT_EQ(e.tacrad_ENGN > 0.0f, runs);
                    EXPECT_EQ(e.N1, runs ? 50.0f + 50.0f * (code == start_custom ? 0.75f : 0.0f) : 0.0f);
                    EXPECT_EQ(e.OILP, runs ? 0.5f * veh[0].max_OILP : 0.0f);
                }
                EXPECT_EQ(f.gyro_spin[1], runs ? 1.0f : 0.0f);
                EXPECT_EQ(stg.tran_mode, runs ? 3 : 0);
                EXPECT_EQ(f.gear_handle, code == start_airport);
                EXPECT_EQ(veh[0].gear[0].dep_rat, code == start_airport ? 1.0f : 0.0f);
                EXPECT_FLOAT_EQ(veh[0].gear[0].lonN,
                                code == start_airport ? veh[0].gear[0].lonE : veh[0].gear[0].lonR);
            }
    }
}

TEST_F(flight_start, keeps_fuel_and_payload_and_drops_what_hangs) {
    f.m_fuel[0] = 12.0f, f.m_fixed = 34.0f, f.m_jettison = 56.0f, f.fail_stat[44] = 6;
    init_flt_0(start_airport, place_runway);
    EXPECT_TRUE(f.m_fuel[0] == 12.0f && f.m_fixed == 34.0f && f.m_jettison == 56.0f && f.fail_stat[44] == 0);
    veh[0].jett_is_slung = 1;
    init_flt_0(start_airport, place_runway);
    EXPECT_EQ(f.m_jettison, 0.0f);
}

// -- background traffic

TEST_F(flight_start, background_aircraft_keep_to_their_bands_clear_of_the_user_and_the_ground) {
    for (int p = 1; p < 7; ++p) {
        veh[p].V_ref_ms = 40.0f;
        veh[p].num_engines = 1;
        veh[p].engn[0].engn_type = p == 2 ? engn_turb_free : engn_jet_hi;
        const double lo = p % 3 != 2 ? 400.0 : p == 2 ? 3000.0 : 9000.0;
        const double hi = p % 3 != 2 ? 1200.0 : p == 2 ? 6000.0 : 12000.0;
        const auto above_ground = [p] {
            const auto x = static_cast<float>(flt[p].dob_x), z = static_cast<float>(flt[p].dob_z);
            return flt[p].dob_y - return_terrain_y(x, z, checker_ai);
        };
        for (int i = 0; i < 20; ++i) {
            f.dob_y = 20000.0;
            init_flt_p_other_ai(p);
            EXPECT_LT(hypot(flt[p].dob_x - f.dob_x, flt[p].dob_z - f.dob_z), 1.5 * 46300.0 + 1.0);
            EXPECT_EQ(flt[p].ai_app_mode, p % 3 != 2);
            EXPECT_TRUE(fltrange(static_cast<float>(above_ground()), static_cast<float>(lo) - 0.1f,
                                 static_cast<float>(hi) + 0.1f));
            f.dob_y = i % 2 ? 5.0 : flt[p].dob_y;
            init_flt_p_other_ai(p);
            EXPECT_GE(fabs(flt[p].dob_y - f.dob_y), 399.0);
            EXPECT_GE(above_ground(), 399.0);
        }
    }
}

TEST_F(flight_start, a_folder_that_leads_back_into_itself_holds_no_aircraft) {
    namespace fs = std::filesystem;
    const test::temp_folder folder;
    fs::create_directories(folder.path() + "Aircraft/deep");
    fs::create_directory_symlink(folder.path() + "Aircraft", folder.path() + "Aircraft/deep/again");
    init_paths(folder.path());
    const alert_lines lines = test::expect_fatal([] { get_random_plane(1); });
    EXPECT_EQ(lines.line[0], "I Could not find planes to put in the sky with you!");
    init_paths(INSTALL_FOLDER);
}

// -- the same start is the same flight

constexpr std::pair<int, int> codes[] = {
    {608, 600}, {608, 601}, {608, 602}, {608, 603}, {1200, 0}, {4200, 0}, {4201, 0}, {4202, 0}, {4203, 0},
    {4204, 0},  {4205, 0},  {4206, 0},  {4207, 0},  {4500, 0}, {4501, 0}, {4502, 0}, {4503, 0}, {4800, 0},
    {4801, 0},  {4802, 0},  {4803, 0},  {4804, 0},  {4806, 0}, {4807, 0}, {4808, 0}, {4809, 0}};

// A wild flight into the ground, broken, with everything switched, at its own frame rate.
void leave_a_mess(float dt) {
    stg.cus_lat = 34.9f, stg.cus_lon = -117.9f, stg.cus_alt = 60.0f, stg.cus_psi = 200.0f, stg.cus_v = 60.0f;
    init_flt_0(start_custom, 0);
    stg.reset_on_crash = 0;
    stg.jato_on = stg.chute_on = stg.arrest_gear = stg.ice_all = stg.wired = stg.dumping_fuel = 1;
    stg.over_g = stg.over_vne = stg.battery = stg.avionics = 0;
    flt[0].handle_rat_req = 1.0f, flt[0].elev_trim = 0.5f;
    for (int i = 0; i < static_cast<int>(4.0f / dt); ++i) {
        mnw.YK_ptch = -0.3f, mnw.YK_roll = 0.7f;
        lab_frame(dt);
    }
    env.surf_tex = 117, env.roughness = 1.0f, env.over_obs_this = 1, stg.over_vne = 1;
}

struct record_bytes {
    const char* name;
    std::string bytes;
};

template <class T>
record_bytes of_record(const char* name, const T& record) {
    return {name, std::string(reinterpret_cast<const char*>(&record), sizeof record)};
}

using state_bytes = std::vector<record_bytes>;

state_bytes state_now(int code) {
    const bool led = code == start_tow || intrange(code, start_formation, start_carried);
    return {of_record("flt[0]", flt[0]),    of_record("flt[1]", flt[led]), of_record("stg", stg),
            of_record("gear", veh[0].gear), of_record("nav", nav),         of_record("env", env),
            of_record("con", con),          of_record("atm", atm)};
}

void expect_same(const state_bytes& a, const state_bytes& b, const std::string& where) {
    for (size_t r = 0; r < a.size(); ++r)
        for (size_t i = 0; i + 4 <= a[r].bytes.size(); i += 4)
            if (memcmp(&a[r].bytes[i], &b[r].bytes[i], 4) != 0) {
                float x, y;
                memcpy(&x, &a[r].bytes[i], 4), memcpy(&y, &b[r].bytes[i], 4);
                ADD_FAILURE() << where << ": " << a[r].name << " + " << i << ": " << x << " for " << y;
            }
}

// Where the user is and how much fuel there is decide some starts; the rest of what flew before must not
// show.
state_bytes begun(int code, int place) {
    stg.cus_lat = 34.6f, stg.cus_lon = -118.7f, stg.cus_alt = 1500.0f, stg.cus_psi = 30.0f, stg.cus_v = 50.0f;
    rand_seed(5);
    init_flt_0(start_custom, 0);
    for (int ship = 0; ship < boatDIM; ++ship)
        env.boat_x[ship] = 100.0f, env.boat_y[ship] = 0.0f, env.boat_z[ship] = 30.0f * ship;
    scn.fire_avail = scn.fire_on[0] = 1;
    flt[0].m_fuel[0] = flt[0].m_fuel[1] = 20.0f;
    flt[0].m_fixed = 80.0f;
    clocks.totl.set(mnw.totl_time, 100.0);
    clocks.real.set(mnw.real_time, 100.0);
    init_flt_0(code, place);
    if (code == start_custom || place == place_final_3) {
        seam.has_user = 1;
        begin_user_flight_steady(code);
        seam.has_user = 0;
    }
    return state_now(code);
}

state_bytes flown(int code) {
    mnw.puff1 = mnw.puff10 = mnw.puff20 = 0;  // the frame's own rhythm goes on through a start
    mnw.first_miss_cycle = 0;
    mnw.prd_FM = 0.01f;
    const lab_in_place by_steps;
    for (int i = 0; i < 50; ++i) lab_frame(0.01f);
    return state_now(code);
}

TEST_F(flight_start, is_the_same_bit_for_bit_whatever_flew_before_at_any_frame_rate) {
    add_default_airport();
    vec_apt_struct& apt = add_airport("KEDW");
    for (int surface : {113, 115, 116, 117, 119})
        add_runway(apt, 34.905, -117.884, 60.0f, 1200.0f, "05x", surface);
    atm.set_wind_spd_kts[0] = 12.0f;
    atm.set_turb_inc[0] = 0.4f;
    for (const auto& [code, place] : codes) {
        state_bytes first, first_flown;
        for (const float dt : {1.0f / 64.0f, 0.05f, 0.01f}) {
            leave_a_mess(dt);
            const std::string where = std::to_string(code) + ' ' + std::to_string(place);
            const state_bytes now = begun(code, place);
            const state_bytes later = flown(code);
            if (first.empty()) first = now, first_flown = later;
            expect_same(now, first, where);
            expect_same(later, first_flown, where + " flown");
        }
    }
}
TEST_F(flight_start, begins_by_the_menus_of_the_region) {
    const vec_rwy_struct& rwy = add_default_airport();
    msc.loc_apt_wrl = msc.lcl_rwy_ram = 0;
    apt_lcl_to_wrl[2] = 0, apt_lcl_max = 2;
    APP_handlemenu(tak1 + 2 * 300 + 2 * 1 + 1);
    expect_before(rwy, 0.5 * runway_len - 10.0, runway_psi + 180.0f);
    APP_handlemenu(ram1 + 2 * 300);
    EXPECT_LT(between(f.dob_lat, f.dob_lon, 34.655f, -118.71f).distance, 1.0);
    APP_handlemenu(vfr1 + 2 * 300 + 2 * 1);
    expect_before(rwy, 0.5 * runway_len - 10.0 + 3.0 * nm, runway_psi);
    APP_handlemenu(ifr1 + 2 * 300 + 2 * 1);
    expect_before(rwy, 0.5 * runway_len - 10.0 + 10.0 * nm, runway_psi);
    EXPECT_EQ(test::expect_fatal([] { APP_handlemenu(tak1 + 2 * 300 + 299); }).line[0],
              "lcl_rwy_ram out of range!");
    EXPECT_EQ(test::expect_fatal([] { APP_handlemenu(ram1 + 3 * 300); }).line[0],
              "apt sel out of local range!");
    EXPECT_TRUE(command_exists(ifr1 + 2 * 300) && !command_exists(ifr1 + 3 * 300));

    vec_nav.emplace_back();
    vec_nav[0].lat = 34.2f, vec_nav[0].lon = -118.1f, vec_nav[0].ele = 700.0f;
    vor_lcl_to_wrl[1] = 0, vor_lcl_max = 1;
    APP_handlemenu(vor1 + 1);
    EXPECT_LT(between(f.dob_lat, f.dob_lon, 34.2f, -118.1f).distance, 1.0);
    EXPECT_NEAR(f.dob_ele, 1700.0, 0.5);
    EXPECT_FLOAT_EQ(f.V_msc, 1.5f * veh[0].V_ref_ms);
    APP_handlemenu(614);
    EXPECT_TRUE(f.dob_ele > 1999.0 && f.dob_ele < 4001.0);
    EXPECT_TRUE(f.dob_lat > env.lat_sou && f.dob_lat < env.lat_sou + 2.0);
    reset_region_lists();
    vec_nav.clear();
}
}  // namespace
