// Sky: places of sun, moon and stars against an almanac's formulas, sight through the air, colours out of
// pictures.
#include <cmath>
#include <filesystem>

#include "../draw/pictures.h"
#include "core/disk/paths.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/program/seams.h"
#include "core/records/records.h"
#include "support.h"
#include "weather/atmosphere.h"
#include "weather/sky/lightning.h"
#include "weather/sky/sky_air.h"
#include "weather/sky/sky_tables.h"
#include "weather/sky/skyc.h"
#include "weather/sky/stars.h"
#include "weather/weather_step.h"

namespace {
constexpr double rad = M_PI / 180.0;

class sky_test : public test::system_test {
protected:
    void SetUp() override {
        test::system_test::SetUp();
        init_paths(folder.path());
        set_planet_specs(0);
        init_weather_defaults();
        reset_skyc();
        reset_lightning();
        stg.draw_planet = 1;
        go_to(34.0, -117.5, 500.0);
        set_time(172, 12.0);
        atm.cld_type[0] = atm.cld_type[1] = cld_none;
        atm.vis_rep = 20.0f * con.nmtomtrs;
    }
    static void go_to(double lat, double lon, double ele) {
        stand_at(lat, lon, ele, static_cast<float>(floor(lat)) - 1.0f, static_cast<float>(floor(lon)) - 1.0f);
    }
    // In the region with that south-west corner.
    static void stand_at(double lat, double lon, double ele, float lat_sou, float lon_wes) {
        flt[0].dob_lat = lat, flt[0].dob_lon = lon;
        env.lat_sou = lat_sou, env.lon_wes = lon_wes;
        double x, y, z;
        xdob_xyz_with_latlonel(&x, &y, &z, lat, lon, ele);
        ren.view_xyz[0] = static_cast<float>(x), ren.view_xyz[1] = static_cast<float>(y),
        ren.view_xyz[2] = static_cast<float>(z);
        ren.view_ele_msl = ren.view_ele_agl = static_cast<float>(ele);
    }
    // Hours of the sun at the place.
    static void set_time(int day, double hour) {
        mnw.locl_date_jan1 = day;
        mnw.zulu_time = static_cast<float>(dobwrap((hour - flt[0].dob_lon / 15.0) * 3600.0, 0.0, 86400.0));
        mnw.locl_time = locl_from_zulu();
    }
    static void update() {
        skyc.conditions_update({0.0f, 1, 0, -1.0f, [](float, float) { return 0.0f; }});
    }
    static double sun_height(int day, double hour) {
        set_time(day, hour);
        update();
        return skyc.lgt_the_sun_mon_any[body_sun];
    }
    void write(const std::string& name, const std::string& bytes) const {
        std::filesystem::create_directories(std::filesystem::path(folder.path() + name).parent_path());
        folder.write(name, bytes);
    }
    test::temp_folder folder;
};

// Declination by the mean longitude and the equation of the centre (Meeus, Astronomical Algorithms, low
// accuracy), days of a year of 360 stretched to 365.
double almanac_declination(int day) {
    const double n = day * 365.0 / 360.0;  // from the first noon of 2000
    const double anomaly = (357.53 + 0.98560 * n) * rad;
    const double longitude = 280.46 + 0.98565 * n + 1.915 * sin(anomaly) + 0.020 * sin(2.0 * anomaly);
    return asin(sin(23.44 * rad) * sin(longitude * rad)) / rad;
}

TEST_F(sky_test, sun_rises_culminates_and_sets_as_an_almanac_says) {
    for (const double lat : {-49.0, -20.0, 0.0, 34.0, 49.0})
        for (int day = 0; day < 360; day += 24) {
            go_to(lat, 10.0, 500.0);
            const double dec = almanac_declination(day);
            EXPECT_NEAR(sun_height(day, 12.0), 90.0 - std::fabs(lat - dec), 2.0) << lat << ' ' << day;
            const double half_day = acos(-tan(lat * rad) * tan(dec * rad)) / rad / 15.0,
                         ten_minutes = 10.0 / 60.0;
            for (const double side : {-1.0, 1.0}) {
                const double at = 12.0 + side * half_day;
                EXPECT_GT(sun_height(day, at - side * ten_minutes), 0.0) << lat << ' ' << day;
                EXPECT_LT(sun_height(day, at + side * ten_minutes), 0.0) << lat << ' ' << day;
            }
        }
    sun_height(172, 9.0);
    EXPECT_NEAR(skyc.lgt_psi_sun_mon_any[body_sun], 90.0f, 40.0f) << "in the east before noon";
    go_to(-30.0, 10.0, 500.0);
    sun_height(352, 12.2);
    EXPECT_TRUE(std::fabs(fltwrap(skyc.lgt_psi_sun_mon_any[body_sun], -180.0f, 180.0f)) < 40.0f)
        << "north of the south";
}

// East, up, south of a star at the aircraft's place, by the turns with which stars are drawn.
void turn_star(const star_place& star, double* east, double* up, double* south) {
    const double turn = 15.0 * skyc.side_time_hrs * rad, lat = flt[0].dob_lat * rad;
    const double x = star.x * cos(turn) - star.y * sin(turn), y = star.x * sin(turn) + star.y * cos(turn),
                 z = star.z;
    *east = x, *up = y * cos(lat) - z * sin(lat), *south = y * sin(lat) + z * cos(lat);
}

TEST_F(sky_test, stars_turn_about_the_pole_and_the_sun_stands_among_them) {
    double east, up, south;
    set_time(200, 21.0);
    update();
    turn_star(star_vertex(1.0f, static_cast<float>(90.0 * rad)), &east, &up, &south);
    EXPECT_NEAR(std::atan2(up, -south) / rad, 34.0, 0.01) << "the pole's height is the latitude";
    // at the equinox of spring the sun is at right ascension 0, at the solstices at 6 and 18 hours
    for (const auto& [day, hours] : {std::pair{82, 0.0}, {172, 6.0}, {262, 12.0}, {352, 18.0}}) {
        set_time(day, 15.0);
        update();
        const double dec = -skyc.lgt_dec_sun_mon_any[body_sun];  // that of the sky is positive south
        turn_star(star_vertex(static_cast<float>(hours * 15.0 * rad), static_cast<float>(dec * rad)), &east,
                  &up, &south);
        const double height = std::atan2(up, std::hypot(east, south)) / rad;
        EXPECT_NEAR(height, skyc.lgt_the_sun_mon_any[body_sun], 2.5) << day;
        EXPECT_NEAR(
            fltwrap(static_cast<float>(std::atan2(east, -south) / rad) - skyc.lgt_psi_sun_mon_any[body_sun],
                    -180.0f, 180.0f),
            0.0f, 3.0f)
            << day;
    }
}

TEST_F(sky_test, moon_is_full_at_midnight_and_lights_the_night_alone) {
    go_to(34.0, -117.5, 0.0);
    int full = 0;
    for (int day = 0; day < 360; ++day) {  // a moon lasts 29.5 days of the calendar
        set_time(day, 0.0);
        update();
        EXPECT_TRUE(intrange(skyc.moon_tex, 242, 264));
        full += skyc.moon_tex == 253;
        if (skyc.moon_tex == 253) {
            EXPECT_NEAR(std::fabs(skyc.lgt_azi_sun_mon_any[body_moon]), 0.0f, 12.0f) << day;
        }
        if (skyc.moon_tex == 242 || skyc.moon_tex == 264) {
            EXPECT_GT(std::fabs(skyc.lgt_azi_sun_mon_any[body_moon]), 165.0f) << day;
        }
    }
    EXPECT_NEAR(full, 14, 6);
    for (auto& table : skyc.raw_mon_amb) table[0][0] = 0.5f;
    for (auto& table : skyc.raw_sun_amb)
        for (auto& row : table) row[0] = 0.0f;
    for (double hour = 12.0; hour < 24.0; hour += 0.05) {
        const double the = sun_height(80, hour);
        if (the > -9.9) {
            EXPECT_EQ(skyc.lgt_amb[0], 0.0f) << hour;
        }
        if (the < -10.5) {
            EXPECT_GT(skyc.lgt_amb[0], 0.0f) << hour;
        }
        if (the < -15.0) {
            EXPECT_NEAR(skyc.lgt_the_sun_mon_any[body_any], skyc.lgt_the_sun_mon_any[body_moon], 0.05f)
                << hour;
        }
    }
}

TEST_F(sky_test, inside_an_overcast_all_is_grey_and_above_it_clear) {
    atm.cld_type[0] = cld_overcast, atm.prim_layer = 0;
    atm.base_h_MSL[0] = 1000.0f, atm.tops_h_MSL[0] = 2000.0f;
    float before = 1e9f;
    for (float h = 500.0f; h <= 1000.0f; h += 25.0f) {
        go_to(34.0, -117.5, h);
        update();
        EXPECT_LE(atm.vis_ground, before) << "it closes in from below";
        EXPECT_FALSE(ren.stars_are_vis);
        before = atm.vis_ground;
    }
    for (const float h : {1000.0f, 1500.0f, 2000.0f}) {
        go_to(34.0, -117.5, h);
        update();
        EXPECT_NEAR(atm.vis_ground, 100.0f, 0.01f);
        EXPECT_NEAR(atm.vis_sky, 100.0f, 0.01f);
        for (int i = 0; i < sky_headingDIM; ++i)
            EXPECT_NEAR(skyc.sky_256[15][i][1], 255.0f * skyc.fog_col[1], 1.5f) << "one colour";
    }
    go_to(34.0, -117.5, 2200.0);
    update();
    EXPECT_NEAR(atm.vis_ground, 20.0f * con.nmtomtrs, 1.0f);
    EXPECT_TRUE(ren.stars_are_vis);
}

TEST_F(sky_test, in_space_the_sky_is_black_and_the_sun_shines_at_midnight) {
    constexpr double ele = 4e5, R = 6378145.0;
    go_to(34.0, -117.5, ele);
    set_time(80, 0.0);
    update();
    for (const auto& row : skyc.sky_256)
        for (const auto& entry : row) EXPECT_EQ(entry[0] + entry[1] + entry[2], 0);
    EXPECT_NEAR(skyc.far_fog, std::sqrt((R + ele) * (R + ele) - R * R), 5e3);
    EXPECT_FLOAT_EQ(skyc.lgt_the_sun_mon_any[body_any], skyc.lgt_the_sun_mon_any[body_sun]);
    EXPECT_EQ(skyc.lgt_amb[0], 0.0f) << "nothing scatters";
    EXPECT_GT(skyc.lgt_dir[0], 0.05f);
    EXPECT_LE(skyc.near_dis, 1389.0f);
}

// The same as pictures would be: no alert, all finite, near before far.
TEST_F(sky_test, a_day_in_any_air_at_any_height_raises_no_alert) {
    for (const int planet : {0, 1}) {
        set_planet_specs(planet);
        for (const double vis : {0.3, 3.0, 7.0, 15.0, 25.0})
            for (const double ele : {300.0, 14000.0, 4e5})
                for (double hour = 0.0; hour < 24.0; hour += 0.1) {
                    atm.vis_rep = static_cast<float>(vis) * con.nmtomtrs;
                    go_to(planet ? -10.0 : 34.0, -73.5, ele);
                    set_time(80, hour);
                    ren.final_psi = static_cast<float>(15.0 * hour);
                    update();
                    for (const float* colour : {skyc.lgt_amb, skyc.lgt_dir, skyc.sun_col, skyc.mon_col,
                                                skyc.wat_col, skyc.cld_drk, skyc.cld_lgt, skyc.fog_col})
                        for (int c = 0; c < 3; ++c) ASSERT_TRUE(colour[c] >= 0.0f && colour[c] <= 1.0f);
                    ASSERT_TRUE(skyc.near_fog < skyc.far_fog || ele > 1e5)
                        << skyc.near_fog << ' ' << skyc.far_fog;
                    ASSERT_TRUE(skyc.near_dis >= 1.0f && skyc.near_dis < 0.1f * skyc.far_dis);
                    ASSERT_TRUE(skyc.del_psi_from_sun >= -180.0f && skyc.del_psi_from_sun <= 180.0f);
                }
    }
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(sky_test, fog_hides_the_rim_of_the_land_up_to_high_latitudes) {
    constexpr double per_degree = 6378145.0 * rad;
    for (const double lat : {0.5, 34.5, 60.5, 79.5})
        for (const double off : {0.1, 0.5}) {
            stand_at(lat, 10.0 + off, 500.0, static_cast<float>(floor(lat)), 10.0f);
            atm.vis_rep = 25.0f * con.nmtomtrs;
            update();
            const double west = off * per_degree * cos(lat * rad), north = 1.5 * per_degree,
                         south = 0.5 * per_degree;
            EXPECT_NEAR(distance_to_rim(), std::min({west, north, south}), 60.0);
            EXPECT_LE(skyc.far_fog, distance_to_rim());
            EXPECT_LE(skyc.far_land, distance_to_rim());
        }
    go_to(34.5, 10.1, 20000.0);  // the planet is drawn beyond the tiles
    update();
    EXPECT_GT(skyc.far_land, distance_to_rim());
}

TEST_F(sky_test, lamps_come_on_at_dusk_each_at_its_own_moment) {
    int before = 0;
    for (double hour = 15.0; hour < 22.0; hour += 0.05) {
        set_time(80, hour);
        update();
        int burning = 0;
        for (int code = 0; code < 200; ++code) burning += skyc.any_lites_on(code);
        EXPECT_GE(burning, before) << hour;
        EXPECT_EQ(skyc.runway_lites_on() != 0, skyc.lite_rat_on_priv > 0.0f);
        before = burning;
    }
    EXPECT_EQ(before, 200);
    EXPECT_TRUE(skyc.cockpit_lites_on());
    flt[0].fail_stat[fail_clights] = fail_active;
    update();
    EXPECT_FALSE(skyc.cockpit_lites_on());
    set_time(80, 12.0);
    atm.vis_rep = 4.0f * con.nmtomtrs;
    for (auto& table : skyc.raw_sun_amb) table[255][0] = table[256][0] = 1.0f;
    update();
    EXPECT_TRUE(skyc.runway_lites_on()) << "low visibility";
}

TEST_F(sky_test, flashes_and_goggles_light_what_is_dark) {
    set_time(80, 0.0);
    update();
    const float dark = skyc.lgt_amb[1];
    flt[0].str_inflash = 1;
    atm.vis_rep = atm.vis_frmult = 0.5f;
    update();
    EXPECT_GT(skyc.lgt_amb[1], dark + 0.1f) << "a strobe in fog";
    EXPECT_GT(skyc.sky_256[3][5][0], 150);
    flt[0].str_inflash = 0;
    ren.night_vision_on = 1;
    update();
    EXPECT_EQ(skyc.sun_col[0], 0.0f);
    EXPECT_EQ(skyc.sun_col[1], 1.0f);
    ligt.strike_alpha = 0.8f, ligt.strike_distance_mtr = 0.0f;
    EXPECT_FLOAT_EQ(ligt.brt_rat_view(), 0.8f);
    ligt.strike_distance_mtr = 60000.0f;
    EXPECT_EQ(ligt.brt_rat_view(), 0.0f);
}

// -- files

TEST_F(sky_test, pictures_give_their_columns_and_a_bad_one_is_told_once) {
    const std::string to = "Resources/bitmaps/skycolors/Earth/";
    test::bytes light, dome;
    for (int y = 511; y >= 0; --y)
        for (int x = 0; x < 64; ++x)
            light.insert(light.end(), {static_cast<unsigned char>(y / 2), static_cast<unsigned char>(x), 7});
    for (int y = 255; y >= 0; --y)
        for (int x = 0; x < 64; ++x)
            dome.insert(dome.end(), {static_cast<unsigned char>(y), static_cast<unsigned char>(x), 9});
    write(to + "light_colors_earth_clean.png", test::png_bytes({64, 512, PNG_COLOR_TYPE_RGB, light}));
    write(to + "sky_colors_earth_clean.png", test::png_bytes({64, 256, PNG_COLOR_TYPE_RGB, dome}));
    write(to + "sky_colors_earth_misty.png",
          test::png_bytes({32, 256, PNG_COLOR_TYPE_RGB, test::bytes(32 * 256 * 3, 200)}));
    std::string cut = test::png_bytes({64, 256, PNG_COLOR_TYPE_RGB, dome});
    cut.resize(cut.size() / 2);
    write(to + "sky_colors_earth_foggy.png", cut);
    skyc.conditions_init();
    EXPECT_FLOAT_EQ(skyc.raw_sun_dir[set_clean][100][0], 50.0f / 255.0f) << "rows from below";
    EXPECT_FLOAT_EQ(skyc.raw_cld_drk[set_clean][100][1], 28.0f / 255.0f);
    EXPECT_FLOAT_EQ(skyc.raw_mon_amb[set_clean][511][1], 38.0f / 255.0f);
    EXPECT_EQ(skyc.raw_sky_256[set_clean][3][40][5][0], 3 * 16 + 5);
    EXPECT_EQ(skyc.raw_sky_256[set_clean][3][40][5][1], 40);
    const auto& grey = skyc.raw_sky_256[set_misty][7][0][0];
    EXPECT_TRUE(grey[0] == grey[1] && grey[1] == grey[2] && grey[0] > 100);
    EXPECT_EQ(test::alerts.size(), 3u) << "one kind is missing, one too small, one cut short";
    for (const auto& alert : test::alerts) EXPECT_EQ(alert.type, alert_message);
}

TEST_F(sky_test, catalogue_ends_at_its_mark_or_at_the_end_of_the_file) {
    const std::string path = "Resources/Earth nav data/astro.dat";
    const auto count = [] {
        size_t n = 0;
        for (const auto& list : star.places) n += list.size();
        return n;
    };
    write(path,
          "I\n740 Version\n6.75 -16.7 -1.4 Sirius\n18.6 38.8 0.03 Vega\n1.0 2.0 5.2 x\n99.0 0 0 "
          "end\n1 1 1 no\n");
    star.star_build();
    EXPECT_EQ(count(), 3u);
    EXPECT_EQ(star.places[0].size(), 2u);
    EXPECT_EQ(star.places[3].size(), 1u);
    write(path, "I\n740 Version\n6.75 -16.7 7.9");
    star.star_build();
    EXPECT_EQ(star.places[5].size(), 1u) << "no line end";
    std::string endless = "I\n740 Version\n";
    for (int i = 0; i < star_max + 1000; ++i) endless += "1 1 1 x\n";
    write(path, endless);
    star.star_build();
    EXPECT_EQ(count(), static_cast<size_t>(star_max));
    write(path, "I\n730 Version\n6.75 -16.7 -1.4 Sirius\n");
    star.star_build();
    EXPECT_EQ(count(), 0u);
    std::filesystem::remove(folder.path() + path);
    star.star_build();
    EXPECT_EQ(count(), 0u);
    EXPECT_TRUE(test::alerts.empty());
}
}  // namespace
