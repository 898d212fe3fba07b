// The region: when it moves, what moves with it, and what it holds. Positions are held against the planet's
// own axes, of which the frames know nothing.
#include "scenery/ground/region.h"

#include <malloc.h>
#include <math.h>
#include <stdlib.h>

#include <algorithm>
#include <array>
#include <limits>
#include <random>

#include "core/math/axes.h"
#include "core/math/globe.h"
#include "scenery/nav/nav_tables.h"
#include "tile_folder.h"
#include "weather/atmosphere.h"
#include "weather/clouds.h"

namespace {
constexpr double nan_place = std::numeric_limits<double>::quiet_NaN(), infinite = HUGE_VAL;

std::vector<int> shifts;  // that regions were placed after

class region_test : public test::system_test {
protected:
    void SetUp() override {
        test::system_test::SetUp();
        stg.num_acf = 1;
        shifts.clear();
        region_steps.place = [](int typeshift) { shifts.push_back(typeshift); };
    }
    void TearDown() override {
        forget_nav_tables();
        test::fresh();
    }
    // What one call does.
    static int shift_for(double lat, double lon) {
        shifts.clear();
        check_for_shift(lat, lon);
        return shifts.empty() ? 0 : shifts.back();
    }
    static void expect_corner(float lat, float lon) {
        EXPECT_EQ(env.lat_sou, lat);
        EXPECT_EQ(env.lon_wes, lon);
    }
};

bool is_in_band(double lat, double lon) {
    const double dlat = lat - env.lat_sou, dlon = dobwrap(lon - env.lon_wes, -180.0, 180.0);
    const int p = env.planet;
    const bool below = env.lat_sou == -90.0f && dlat < lat_buff[p];  // the corner cannot follow
    return (below || (dlat >= lat_buff[p] && dlat <= lat_secs[p] - lat_buff[p])) && dlon >= lon_buff[p] &&
           dlon <= lon_secs[p] - lon_buff[p];
}
bool is_whole(float degrees) { return degrees == roundf(degrees); }
}  // namespace

// -- when

TEST_F(region_test, moves_by_one_side_a_call_south_north_west_east) {
    const struct {
        double dlat, dlon;
        int shift;
    } cases[] = {{0.474, 1.5, shift_south},
                 {0.476, 1.5, 0},
                 {1.524, 1.5, 0},
                 {1.526, 1.5, shift_north},
                 {1.0, 0.949, shift_west},
                 {1.0, 2.051, shift_east},
                 {0.4, 2.1, shift_south},
                 {-0.524, 1.5, shift_south},
                 {2.526, 1.5, shift_full_reload},
                 {1.0, 3.06, shift_full_reload}};
    for (const auto& c : cases) {
        test::set_region(33.0f, -119.0f);
        EXPECT_EQ(shift_for(33.0 + c.dlat, -119.0 + c.dlon), c.shift) << c.dlat << ' ' << c.dlon;
        EXPECT_EQ(flt[0].dob_lat, 33.0 + c.dlat);
        EXPECT_TRUE(c.shift != shift_full_reload || is_in_band(33.0 + c.dlat, -119.0 + c.dlon));
    }
    test::set_region(33.0f, -119.0f);
    EXPECT_EQ(shift_for(33.4, -116.9), shift_south);
    EXPECT_EQ(shift_for(33.4, -116.9), shift_east) << "a diagonal takes two calls";
    expect_corner(32.0f, -118.0f);
    EXPECT_EQ(shift_for(-33.6, 151.2), shift_full_reload);
    expect_corner(-35.0f, 150.0f);
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(region_test, goes_over_the_date_line_and_stays_at_the_poles) {
    test::set_region(10.0f, 178.0f);
    EXPECT_EQ(shift_for(11.0, -179.9), shift_east);
    EXPECT_EQ(shift_for(11.0, -178.9), shift_east);
    expect_corner(10.0f, 180.0f);
    EXPECT_EQ(shift_for(11.0, -178.5), 0);
    EXPECT_EQ(shift_for(11.0, -177.9), shift_east);
    expect_corner(10.0f, -179.0f);
    EXPECT_EQ(shift_for(11.0, -178.1), shift_west);
    EXPECT_EQ(shift_for(11.0, -179.1), shift_west);
    expect_corner(10.0f, 179.0f);

    check_for_shift(89.9, 20.0);
    expect_corner(89.0f, 19.0f);
    EXPECT_EQ(shift_for(90.0, 20.0), 0);
    EXPECT_EQ(shift_for(-90.0, 20.0), shift_full_reload) << "a wrapped difference is none";
    expect_corner(-90.0f, 19.0f);
    EXPECT_EQ(shift_for(-89.9, 20.0), 0) << "south of the band, where the corner cannot follow";
    float x, y, z;
    find_region_extents();
    xyz_with_latlonel(&x, &y, &z, -89.999, 20.0, 0.0);
    EXPECT_EQ(ret_xz_inreg_tight(x, z), 1) << "ground there would lie 970 m too high";
    EXPECT_EQ(shift_for(-89.9, 21.2), shift_east) << "the side that does not count lets the next one count";

    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(region_test, refuses_what_is_no_place_and_holds_what_is_off_the_globe_once_told) {
    check_for_shift(34.0, -117.5);
    for (int i = 0; i < 3; ++i)
        for (const auto& [lat, lon] :
             {std::pair(nan_place, 0.0), {0.0, nan_place}, {infinite, 0.0}, {0.0, -infinite}})
            EXPECT_EQ(shift_for(lat, lon), 0);
    expect_corner(33.0f, -119.0f);
    EXPECT_EQ(flt[0].dob_lat, 34.0);
    ASSERT_EQ(test::alerts.size(), 1u);
    EXPECT_EQ(test::alerts[0].text.line[0], "Out of range lat/lon call to check_for_shift!");
    EXPECT_EQ(test::alerts[0].type, alert_message);
    for (const auto& [lat, lon] : {std::pair(90.1, 10.0), {-1e300, 1e300}, {0.0, 540.0}, {1e9, -7.0}}) {
        check_for_shift(lat, lon);
        check_for_shift(lat, lon);
        EXPECT_TRUE(fabs(flt[0].dob_lat) <= 90.0 && fabs(flt[0].dob_lon) <= 180.0);
        EXPECT_TRUE(is_in_band(flt[0].dob_lat, flt[0].dob_lon)) << lat << ' ' << lon;
    }
    EXPECT_EQ(test::alerts.size(), 2u);
}

// TARVANE_WALK_STEPS: how far it goes.
TEST_F(region_test, a_random_walk_over_the_globe_stays_in_the_band) {
    const char* const wanted = getenv("TARVANE_WALK_STEPS");
    const long steps = wanted ? atol(wanted) : 50000;
    std::mt19937 random(7);
    const auto draw = [&random](double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(random);
    };
    double lat = 34.0, lon = -117.0;
    size_t memory = 0;
    long outside = 0, broken = 0, moves = 0;
    for (long i = 0; i < steps; ++i) {
        if (i % 1000 == 0) {
            lat = draw(-90.0, 90.0);
            lon = draw(-180.0, 180.0);
            if (i % 5000 == 0) lat = i % 10000 ? 90.0 : -90.0;
            if (i % 7000 == 0) set_planet_specs(env.planet = (i / 7000) % 2);
        }
        lat = fmin(fmax(lat + draw(-0.2, 0.2), -90.0), 90.0);
        lon = dobwrap(lon + draw(-0.2, 0.2), -180.0, 180.0);
        const float old_lat = env.lat_sou, old_lon = env.lon_wes;
        check_for_shift(lat, lon);
        check_for_shift(lat, lon);
        moves += env.lat_sou != old_lat || env.lon_wes != old_lon;
        outside += !is_in_band(lat, lon);
        broken += !is_whole(env.lat_sou) || !is_whole(env.lon_wes) || fabsf(env.lat_sou) > 90.0f ||
                  fabsf(env.lon_wes) > 180.0f;
        shifts.clear();
        if (i == steps / 10) memory = mallinfo2().uordblks;
    }
    EXPECT_EQ(outside, 0);
    EXPECT_EQ(broken, 0);
    EXPECT_GT(moves, steps / 20);
    EXPECT_TRUE(test::alerts.empty());
    EXPECT_LT(mallinfo2().uordblks, memory + 4096);
}

// -- what moves

namespace {
struct vector {
    double x, y, z;
};
// Along the planet's own axes: through 0 N 0 E, 0 N 90 E and the north pole.
vector planetary(double x, double y, double z, bool is_point) {
    const double a = ref_lat() * dob_degtorad, o = ref_lon() * dob_degtorad;
    if (is_point) y += con.planet_rad;
    return {-x * sin(o) + y * cos(a) * cos(o) + z * sin(a) * cos(o),
            x * cos(o) + y * cos(a) * sin(o) + z * sin(a) * sin(o), y * sin(a) - z * cos(a)};
}
// In float, in the frame.
struct thing {
    const char* name;
    float *x, *y, *z;
    bool is_point = true;
    vector place() const { return planetary(*x, *y, *z, is_point); }
};
std::vector<thing> all_things() {
    vec_bro.resize(1);
    vec_bro[0].type = 3;
    vec_bro_struct& bro = vec_bro[0];
    wpn_struct& wpn = veh[1].wpn[5];
    wpn.type = 22, wpn.free_flyer = 1, wpn.action_mode = 1;
    const auto array = [](const char* name, float* xyz) { return thing{name, xyz, xyz + 1, xyz + 2}; };
    return {{"velocity", &flt[0].vx, &flt[0].vy, &flt[0].vz, false},
            {"other's velocity", &flt[3].vx, &flt[3].vy, &flt[3].vz, false},
            array("fire", scn.firexyz[9]),
            array("eye", ren.view_xyz),
            array("winch", stg.winxyz),
            {"ship", &env.boat_x[1], &env.boat_y[1], &env.boat_z[1]},
            {"own wake", &env.boat_x[4], &env.boat_y[4], &env.boat_z[4]},
            {"bullet", &bro.x, &bro.y, &bro.z},
            {"bullet's velocity", &bro.vx, &bro.vy, &bro.vz, false},
            {"weapon", &wpn.x, &wpn.y, &wpn.z},
            {"weapon's velocity", &wpn.vx, &wpn.vy, &wpn.vz, false}};
}
void expect_same(const vector& a, const vector& b, double tolerance, const char* name) {
    EXPECT_LT(hypot(a.x - b.x, a.y - b.y, a.z - b.z), tolerance) << name << " in the region of " << ref_lat();
}
// Place, nose and wing.
std::array<vector, 3> aircraft(int p) {
    float x[2], y[2], z[2];
    veh_to_wrl(0, 0, -1, &x[0], &y[0], &z[0], p);
    veh_to_wrl(1, 0, 0, &x[1], &y[1], &z[1], p);
    return {planetary(flt[p].dob_x, flt[p].dob_y, flt[p].dob_z, true), planetary(x[0], y[0], z[0], false),
            planetary(x[1], y[1], z[1], false)};
}
}  // namespace

TEST_F(region_test, all_that_has_a_place_keeps_it_through_a_shift) {
    const struct {
        float lat, lon;
        double dlat, dlon;
    } cases[] = {{33, -119, 0.47, 1.5}, {33, -119, 1.53, 1.5}, {60, 20, 1.0, 0.94},
                 {-70, 178, 1.0, 2.06}, {0, -180, 1.0, 0.94},  {88, 10, 1.53, 1.5}};
    std::mt19937 random(3);
    std::uniform_real_distribution<float> share(-1.0f, 1.0f);
    stg.num_acf = 4;
    for (const auto& c : cases) {
        test::set_region(c.lat, c.lon);
        const std::vector<thing> things = all_things();
        for (const thing& t : things)
            for (float* v : {t.x, t.y, t.z}) *v = share(random) * (t.is_point ? 1.5e5f : 200.0f);
        for (int p : {0, 3}) {
            flt[p].dob_x = 1e5 * share(random), flt[p].dob_y = 1e4, flt[p].dob_z = 1e5 * share(random);
            flt[p].psi = 180.0f * share(random), flt[p].the = 80.0f * share(random);
            init_quaternion(flt[p].psi, flt[p].the, 30.0f, flt[p].q);
            quat_to_euler(flt[p].q, &flt[p].psi, &flt[p].the, &flt[p].phi);
            cache_attitude(p);
            flt[p].terrain_y_cg = 9990.0f;
        }
        veh[1].wpn[6] = veh[1].wpn[5];
        veh[1].wpn[6].action_mode = 0;
        const float on_board = veh[1].wpn[6].x;
        env.boat_x[2] = -9.9e9f;
        flt[2].dob_x = 9.9e9;
        clou.set_region_x1(-2000.0f), clou.set_region_z1(3000.0f);
        scn.cp[1][7][2][0] = env.boat_x[1] + 100.0f, scn.cp[1][7][2][1] = env.boat_z[1];
        std::vector<vector> before;
        for (const thing& t : things) before.push_back(t.place());
        const std::array<vector, 3> aircraft_before[] = {aircraft(0), aircraft(3)};
        const vector wake = planetary(scn.cp[1][7][2][0], env.boat_y[1], env.boat_z[1], true),
                     cloud = planetary(-2000.0, 0.0, 3000.0, true);

        shifts.clear();
        check_for_shift(c.lat + c.dlat, c.lon + c.dlon);
        ASSERT_EQ(shifts.size(), 1u);
        ASSERT_NE(shifts[0], shift_full_reload);
        // half a step of a float at 150 km; of one at 200 m/s
        for (size_t i = 0; i < things.size(); ++i)
            expect_same(things[i].place(), before[i], things[i].is_point ? 0.02 : 1e-4, things[i].name);
        for (int i = 0; i < 2; ++i)
            for (int axis = 0; axis < 3; ++axis)
                expect_same(aircraft(3 * i)[axis], aircraft_before[i][axis], 2e-6, "aircraft");
        for (int p : {0, 3})
            EXPECT_NEAR(flt[p].dob_y - flt[p].terrain_y_cg, 10.0, 0.01) << "ground effect jumped";
        EXPECT_EQ(veh[1].wpn[6].x, on_board) << "it goes with its aircraft";
        EXPECT_TRUE(env.boat_x[2] == -9.9e9f && flt[2].dob_x == 9.9e9) << "nowhere stays nowhere";
        // a wake lies flat in the frame: its drop over the distance is left out
        expect_same(planetary(scn.cp[1][7][2][0], env.boat_y[1], scn.cp[1][7][2][1], true), wake, 5.0,
                    "wake");
        const double o = ref_lon() * dob_degtorad;
        EXPECT_NEAR(clou.region_x1(), cloud.y * cos(o) - cloud.x * sin(o), 0.02);
        EXPECT_NE(clou.region_z1(), 3000.0f);
    }
}

TEST_F(region_test, a_parked_aircraft_does_not_jump) {
    set_planet_specs(0);
    test::set_region(33.0f, -119.0f);
    const double lat = 34.5251, lon = -117.301, ele = 911.0;
    flt_struct& f = flt[0];
    xdob_xyz_with_latlonel(&f.dob_x, &f.dob_y, &f.dob_z, lat, lon, ele);
    constexpr double degree = 111319.6;  // m
    const double route[][2] = {{34.53, -117.3}, {34.46, -117.3}, {34.0, -118.06},
                               {34.0, -117.94}, {33.47, -117.5}, {33.53, -117.5}};
    for (int round = 0; round < 20; ++round)
        for (const auto& at : route) check_for_shift(at[0], at[1]);
    EXPECT_EQ(shifts.size(), 120u);
    EXPECT_EQ(std::count(shifts.begin(), shifts.end(), shift_full_reload), 0);
    double now[3];
    xdob_latlonel_with_xyz(&now[0], &now[1], &now[2], f.dob_x, f.dob_y, f.dob_z);
    EXPECT_NEAR((now[0] - lat) * degree, 0.0, 1e-3);
    EXPECT_NEAR((now[1] - lon) * degree, 0.0, 1e-3);
    EXPECT_NEAR(now[2], ele, 1e-3) << "after " << shifts.size() << " shifts";
}

TEST_F(region_test, a_flight_by_a_pole_goes_along_with_a_wholly_new_region) {
    test::set_region(89.0f, 0.0f);
    xdob_xyz_with_latlonel(&flt[0].dob_x, &flt[0].dob_y, &flt[0].dob_z, 89.999, 20.0, 3000.0);
    init_quaternion(10.0f, 5.0f, -3.0f, flt[0].q);
    flt[0].dob_lat = 89.999, flt[0].dob_lon = 20.0;
    const vector before = aircraft(0)[0];
    follow_flight();
    ASSERT_EQ(shifts, std::vector<int>{shift_full_reload});
    expect_same(aircraft(0)[0], before, 1e-5, "aircraft");
    follow_flight();
    EXPECT_EQ(shifts.size(), 1u);
}
