// The numeric kit, units, axes, random draws and the globe against figures known elsewhere or worked out by
// hand.
#include <float.h>
#include <limits.h>
#include <math.h>

#include "aircraft/systems/electrics.h"
#include "core/math/axes.h"
#include "core/math/geo3.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "support.h"

namespace {
class math : public test::system_test {};

// Pairs of what came and what should; the number of a pair tells which.
void expect_each(const std::vector<std::pair<double, double>>& pairs, double tolerance = 0.0) {
    for (size_t i = 0; i < pairs.size(); ++i)
        EXPECT_NEAR(pairs[i].first, pairs[i].second, tolerance) << "pair " << i;
}

void expect_vector(const float (&v)[3], float x, float y, float z) {
    expect_each({{v[0], x}, {v[1], y}, {v[2], z}}, 1e-6);
}

TEST_F(math, conversions_agree_with_the_si) {
    // the system's gravity and its rounded foot leave a thousandth
    const struct {
        float factor, inverse;
        double si;
    } units[] = {{con.lbstokgs, con.kgstolbs, 0.45359237}, {con.fttomtrs, con.mtrstoft, 0.3048},
                 {con.hptowatt, con.watttohp, 745.69987},  {con.radtodeg, con.degtorad, 57.295780},
                 {con.ktstofps, con.fpstokts, 1.6878099},  {con.ktstomsc, con.msctokts, 0.51444444},
                 {con.rpmtorsc, con.rsctorpm, 0.10471976}, {con.fpmtomsc, con.msctofpm, 0.00508},
                 {con.nmtomtrs, con.mtrstonm, 1852.0},     {con.sftosmtr, con.smtrtosf, 0.09290304},
                 {con.lbstontn, con.ntntolbs, 4.4482216},  {con.ftlbtonm, con.nmtoftlb, 1.3558179},
                 {con.endtomed, con.medtoend, 515.37882},  {con.enptomep, con.meptoenp, 47.880259},
                 {con.enItomtI, con.mtltoenl, 0.04214011}, {con.nm_to_sm, con.sm_to_nm, 1.1507794},
                 {con.pasto_hg, con.hg_topas, 2.95299e-4}, {con.milto_hg, con.hg_tomil, 0.0295299},
                 {con.lbhtokgs, con.kgstolbh, 1.259979e-4}};
    for (const auto& unit : units) {
        EXPECT_NEAR(unit.factor / unit.si, 1.0, 1.2e-3) << unit.si;
        EXPECT_NEAR(unit.factor * unit.inverse, 1.0f, 1e-6f) << unit.si;
    }
    expect_each({{con.pi, M_PI}, {con.pim2, 2.0 * M_PI}, {con.pid2, M_PI_2}}, 1e-6);
    expect_each({{con.R / 287.05, 1},
                 {con.c / 299792458.0, 1},
                 {con.lb_per_gallon_gas / 6.25, 1},
                 {con.g / 9.79828, 1}},
                5e-4);
    for (int deg = 0; deg <= 360; ++deg)
        expect_each({{lookup_sin[deg], sin(deg / dob_radtodeg)}, {lookup_cos[deg], cos(deg / dob_radtodeg)}},
                    1e-6);
}

TEST_F(math, limits_lines_ties_and_angles) {
    for (const int in : {-7, -2, 1, 3, 9}) {
        const int held = in < -2 ? -2 : in > 3 ? 3 : in;
        const float f = static_cast<float>(in);
        expect_each({{fltlim(f, -2, 3), held},
                     {intlim(in, -2, 3), held},
                     {fltrange(f, -2, 3), in == held},
                     {intrange(in, -2, 3), in == held},
                     {flt_box(f, 1, -2, 0, 3, 2), in == held},
                     {flt_box(1, f, 0, -2, 2, 3), in == held},
                     {intmax2(in, 2), std::max(in, 2)},
                     {intmin2(2, in), std::min(in, 2)},
                     {fltmax2(f, 2), std::max(in, 2)},
                     {fltmin2(f, 2), std::min(in, 2)}});
    }
    expect_each({{fallout(-3, -1, 1), -3},
                 {fallout(4.4f, 4, 6), 4},
                 {fallout(5.6f, 4, 6), 6},
                 {fallout(0.2f, -1, 1), 1},
                 {fallout(-0.2f, -1, 1), -1},
                 {fallout(0, -1, 1), 1},
                 {fallout(2, -1, 1), 2},
                 {flt_abs(-2), 2},
                 {sign(-0.5f), -1},
                 {sign(0.0f), 1},
                 {sqr(-3), 9},
                 {signsqr(-3), -9},
                 {signsqr(0.5f), 0.25},
                 {signsqrt(-9.0f), -3},
                 {signpow(-2.0f, 3.0f), -8},
                 {pythag(3, 4), 5},
                 {pythag(2, 3, 6), 7},
                 {closer_assymp(2, 10, 0.25f), 4}});
    // the points of a line may stand in either order; behind its ends it stays there or goes on
    const float lines[][7] = {{20, 560, 179, 719, 200, 719, 740},
                              {10, 2, 0, 1, -5, 1, 0.5f},
                              {1, 10, 3, 14, 4, 14, 16},
                              {5, 1, 5, 3, 9, 2, 2},
                              {3, 1, 3, 5, 7, 3, 3}};
    for (const auto& [x1, y1, x2, y2, x, held, on] : lines)
        expect_each({{interp(x1, y1, x2, y2, x), held},
                     {extrap(x1, y1, x2, y2, x), on},
                     {xdob_extrap(x1, y1, x2, y2, x), on}});
    expect_each({{intround(0.6f), 1},
                 {intround(2.5f), 3},
                 {intround(-2.5f), -3},
                 {intround(NAN), 0},
                 {intround(1e20f), INT_MAX},
                 {intcut(-3.9f), -3},
                 {intcut(2147483648.0f), INT_MAX},
                 {intcut(-1e20f), INT_MIN}});
    expect_each({{tan_deg(45), 1},
                 {asin_deg(2), 90},
                 {acos_deg(-2), 180},
                 {asin_deg(-0.5f), -30},
                 {acos_deg(0.5f), 60},
                 {atan_deg(1), 45},
                 {atan2_deg(1, -1), 135}},
                1e-4);
    mnw.totl_time = 0.125f * con.pi;
    expect_each({{pulse(0), 1}, {pulse(0.25f * con.pi), 0}}, 1e-6);
}

TEST_F(math, wraps_end_for_any_number_and_keep_their_ends) {
    // the last two: where subtraction would stop
    const int rows[][4] = {{360, 0, 360, 360},     {-10, 0, 360, 350},     {7, 3, 3, 7},
                           {720, 0, 360, 360},     {7559, 0, 360, 359},    {-7199, 0, 360, 1},
                           {-541, -180, 180, 179}, {3600000, 0, 360, 360}, {-3600000, 0, 360, 0}};
    for (const auto& [value, min, max, wrapped] : rows)
        expect_each({{fltwrap(value, min, max), wrapped}, {dobwrap(value, min, max), wrapped}});
    const int whole[][4] = {
        {10, 0, 9, 0}, {-1, 0, 9, 9}, {-12, -3, 6, -2}, {5, 9, 3, 5}, {INT_MAX, 0, 359, INT_MAX % 360}};
    for (const auto& [value, min, max, wrapped] : whole) EXPECT_EQ(intwrap(value, min, max), wrapped);
    for (const float bad : {1e20f, -1e20f, FLT_MAX, FLT_MIN, 1e-42f})
        EXPECT_TRUE(fltrange(fltwrap(bad, -180, 180), -180, 180)) << bad;
    EXPECT_TRUE(isnan(fltwrap(NAN, 0, 360)));
    EXPECT_TRUE(isinf(fltwrap(INFINITY, 0, 360)));
}

TEST_F(math, the_guard_stops_what_is_not_a_number_of_this_world) {
    EXPECT_EQ(test::expect_fatal([] { check_val(NAN); }).line[0], "duh-oh!");
    EXPECT_EQ(test::expect_fatal([] { check_val(1e10f); }).line[1], "nan! nan! nan!");
    check_val(9.9e9f);
    check_val(-9.9e9f);
}

TEST_F(math, attitudes_of_aircraft_ships_and_discs) {
    flt[2].psi = env.boat_psi[1] = 90;
    flt[2].the = env.boat_the[1] = 30;
    flt[2].phi = env.boat_phi[1] = 90;
    cache_attitude(2);
    float v[3];
    veh_to_wrl(0, 0, -1, &v[0], &v[1], &v[2], 2);  // the nose points east and up
    expect_vector(v, sqrtf(0.75f), 0.5f, 0);
    veh_to_wrl(1, 0, 0, &v[0], &v[1], &v[2], 2);  // the right wing down and ahead
    expect_vector(v, 0.5f, -sqrtf(0.75f), 0);
    wrl_to_veh(v[0], v[1], v[2], &v[0], &v[1], &v[2], 2);
    expect_vector(v, 1, 0, 0);
    boat_to_wrl(0, 0, -1, &v[0], &v[1], &v[2], 1);
    expect_vector(v, sqrtf(0.75f), 0.5f, 0);
    boat_to_wrl(1, 0, 0, &v[0], &v[1], &v[2], 1);
    expect_vector(v, 0.5f, -sqrtf(0.75f), 0);
    flt[2].the = 0;
    flt[2].phi = 60;
    cache_attitude(2);
    veh_to_wrl(1, 0, 0, &v[0], &v[1], &v[2], 2);
    expect_vector(v, 0, -sqrtf(0.75f), 0.5f);
    // a disc tilts to the side and then up
    flt[1].engn[2].side_disc_cyclic = 90;
    disc_to_veh(0, 0, -1, &v[0], &v[1], &v[2], 1, 2);  // the shaft points right
    expect_vector(v, 1, 0, 0);
    flt[1].engn[2].vert_disc_cyclic = 90;
    disc_to_veh(1, 0, 0, &v[0], &v[1], &v[2], 1, 2);  // its right side aft, then down
    expect_vector(v, 0, -1, 0);
    flt[1].engn[2].side_disc_cyclic = 0;
    disc_to_veh(0, 1, -1, &v[0], &v[1], &v[2], 1, 2);
    expect_vector(v, 0, 1, 1);
}

TEST_F(math, small_turns_add_up_about_the_axis_they_are_told) {
    for (int axis = 0; axis < 3; ++axis) {
        float q[4] = {1, 0, 0, 0}, angle[3], turn[3] = {0, 0, 0};
        turn[axis] = 0.0005f;
        for (int i = 0; i < 1000; ++i)
            update_quaternion(turn[0], turn[1], turn[2], &angle[2], &angle[1], &angle[0], q);
        for (int i = 0; i < 3; ++i) EXPECT_NEAR(angle[i], i == axis ? 0.5f * con.radtodeg : 0.0f, 1e-2f);
        for (float& t : turn) t *= -2000;
        update_quaternion(turn[0], turn[1], turn[2], &angle[2], &angle[1], &angle[0], q);
        EXPECT_NEAR(angle[axis], (axis == 2 ? 360 : 0) - 0.5f * con.radtodeg, 1e-2f);
        EXPECT_NEAR(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3], 1.0f, 1e-6f);
    }
}

TEST_F(math, quaternion_and_euler_angles_say_the_same) {
    for (const float psi : {0.0f, 47.0f, 181.0f, 359.0f})
        for (const float the : {-80.0f, 0.0f, 33.0f})
            for (const float phi : {-170.0f, -20.0f, 0.0f, 90.0f}) {
                float q[4], a, b, c;
                init_quaternion(psi, the, phi, q);
                for (float& v : q) v *= 1.1f;  // the angles of a drifted one are those of unit length
                quat_to_euler(q, &a, &b, &c);
                expect_each({{fltwrap(a - psi, -180, 180), 0}, {b, the}, {fltwrap(c - phi, -180, 180), 0}},
                            2e-3);
                // the rotation by q is the rotation by the angles
                float x1, y1, z1, x2, y2, z2, x, y, z;
                rot_quat(q, 1.0f, 2.0f, 3.0f, &x1, &y1, &z1);
                any_to_wrl(1.0f, 2.0f, 3.0f, &x2, &y2, &z2, sin_deg(psi), cos_deg(psi), sin_deg(the),
                           cos_deg(the), sin_deg(phi), cos_deg(phi));
                wrl_to_any(x2, y2, z2, &x, &y, &z, sin_deg(psi), cos_deg(psi), sin_deg(the), cos_deg(the),
                           sin_deg(phi), cos_deg(phi));
                expect_each({{x1, x2}, {y1, y2}, {z1, z2}, {x, 1}, {y, 2}, {z, 3}}, 1e-4);
            }
    float q[4] = {1, 0, 0, 0};
    mul_quat(q, q, q);  // the output may be an input
    EXPECT_EQ(q[0], 1.0f);
}

TEST_F(math, draws_are_those_of_the_published_generator) {
    rand_seed(0);  // the state of Marsaglia's paper
    for (const unsigned next : {723471715u, 2497366906u, 2064144800u, 2008045182u})
        EXPECT_EQ(rand31(), next / 2);
    rand_seed(0);
    EXPECT_NEAR(flt_rand(10, 14), 10 + 4 * (723471715.0 / 4294967296.0), 1e-5);
    EXPECT_EQ(int_rand(3, 3), 3);
    EXPECT_EQ(int_rand(-5, 4), -5 + 5);  // .581 of ten values
    init_rand_rat();
    double sum = 0;
    for (const float r : randrat) sum += r;
    EXPECT_NEAR(sum / randratDIM, 0.5, 0.02);
    randrat[7] = 0.74f;
    EXPECT_EQ(flt_seedrand(2, 6, 10007), 2 + 4 * 0.74f);
    EXPECT_EQ(flt_seedrand(2, 6, 0), 2 + 4 * randrat[0]);
    EXPECT_EQ(int_seedrand(2, 5, 10007), 4);
    EXPECT_EQ(test::expect_fatal([] { int_seedrand(0, 1, -1); }).line[0],
              "Cannot pass in negative int rand seed!");
    EXPECT_EQ(test::expect_fatal([] { flt_seedrand(0, 1, -1); }).line[0],
              "Cannot pass in negative float rand seed!");
}

TEST_F(math, places_on_the_globe_and_back) {
    double x, y, z, a, b, c;
    for (const double lat : {33.0, 34.9, 30.0, 60.0})
        for (const double lon : {-119.9, -117.5, -116.0, -60.0})
            for (const double ele : {-100.0, 0.0, 12000.0}) {
                xdob_xyz_with_latlonel(&x, &y, &z, lat, lon, ele);
                xdob_latlonel_with_xyz(&a, &b, &c, x, y, z);
                expect_each({{a, lat}, {b, lon}, {1e-4 * c, 1e-4 * ele}}, 1e-10);
            }
    xdob_xyz_with_latlonel(&x, &y, &z, 34.0, -117.5, 250.0);  // the region's centre
    expect_each({{x, 0}, {y, 250}, {z, 0}}, 1e-6);
    xdob_xyz_with_latlonel(&x, &y, &z, 34.01, -117.5, 0.0);
    EXPECT_LT(z, -1000.0) << "north is negative z";
    float xf, yf, zf, lat, lon, ele;
    xyz_with_latlonel(&xf, &yf, &zf, 33.5f, -117.0f, 800);
    latlonel_with_xyz(&lat, &lon, &ele, xf, yf, zf);
    expect_each({{lat, 33.5}, {lon, -117}, {1e-3 * ele, 0.8}}, 1e-4);
    EXPECT_NEAR(z_north_os(30, -116.5f), -0.5f, 1e-6f);  // one degree east of the centre
    env.lon_wes = -180.5f;                               // centre at -179: the short way over the date line
    xdob_xyz_with_latlonel(&x, &y, &z, 34.0, 179.9, 0.0);
    EXPECT_NEAR(x, -1.1 * 111319.63 * cos(34.0 * dob_degtorad), 50.0);
    xyz_with_latlonel(&xf, &yf, &zf, 33.5f, 179.5f, 0);
    latlonel_with_xyz(&lat, &lon, &ele, xf, yf, zf);
    EXPECT_NEAR(lon, 179.5f, 1e-4f);
    env.planet = 2;
    EXPECT_EQ(test::expect_fatal([&] { xdob_xyz_with_latlonel(&x, &y, &z, 0, 0, 0); }).line[0],
              "Bad planet type!");
}

TEST_F(math, a_frame_shift_leaves_every_place_where_it_is) {
    double x, y, z, x2, y2, z2, q[4];
    xdob_xyz_with_latlonel(&x, &y, &z, 33.4, -116.8, 1234.0);
    env.lat_sou += 1.0f;
    env.lon_wes -= 1.0f;
    axis_shift_to_quat(1.0, -1.0, q);
    shift_xyz_quat(q, &x, &y, &z, 0);
    xdob_xyz_with_latlonel(&x2, &y2, &z2, 33.4, -116.8, 1234.0);
    expect_each({{x, x2}, {y, y2}, {z, z2}}, 1e-6);
    // an aircraft level and north in its own place reads so in any region
    float attitude[4], psi, the, phi;
    double back[4];
    frame_shift_quat(33.4, -116.8, ref_lat(), ref_lon(), back);
    std::copy(back, back + 4, attitude);
    quat_to_local_euler(attitude, 33.4, -116.8, &psi, &the, &phi);
    expect_each({{fltwrap(psi, -180, 180), 0}, {the, 0}, {phi, 0}}, 1e-3);
    // a velocity is turned, a point is turned about the centre of the planet
    const double quarter[4] = {sqrt(0.5), sqrt(0.5), 0, 0};
    double v[3] = {0, 3, 0}, p[3] = {0, 3, 0};
    shift_xyz_quat(quarter, &v[0], &v[1], &v[2], 1);
    shift_xyz_quat(quarter, &p[0], &p[1], &p[2], 0);
    expect_each({{fabs(v[0]), 3}, {v[1], 0}, {fabs(p[0]), con.planet_rad + 3.0}, {p[1], -con.planet_rad}},
                1e-6);
    EXPECT_GT(p[0] * v[0], 0);
}

// Frames at the equator, the second a way to the east of the first: what was east there points up here by the
// sine.
TEST_F(math, frames_apart_along_the_equator_lean_away_from_each_other) {
    double q[4], x = 1.0, y = 0.0, z = 0.0;
    frame_shift_quat(0.0, 0.0, 0.0, 90.0, q);
    shift_xyz_quat(q, &x, &y, &z, 1);
    expect_each({{x, 0}, {y, 1}, {z, 0}}, 1e-12);
    // level to the north in the region's frame it has its right wing up 30 degrees to the east
    env.lat_sou = -1.0f;
    env.lon_wes = -1.5f;
    const float level[4] = {1.0f, 0.0f, 0.0f, 0.0f};
    float psi, the, phi;
    quat_to_local_euler(level, 0.0, 30.0, &psi, &the, &phi);
    expect_each({{fltwrap(psi, -180.0f, 180.0f), 0}, {the, 0}, {phi, -30}}, 1e-4);
}

TEST_F(math, courses_and_distances) {
    const struct {
        float lat, lon, from_lat, from_lon, x, z, to_x, to_z, mag_var, psi, miles;
    } rows[] = {
        // one degree of latitude north: 60 nautical miles by the great circle
        {33, -117, 34, -117, 0, 0, 0, -111319.6f, 0, 0, 60},
        {33, -117, 33, -117, 0, 0, 1852, 0, -12, 78, 1},
        // between 10 and 20 miles half of each: 12 on the plane, 18 on the sphere
        {33, -117, 33, -117 + 0.3f / cos_deg(33), 0, 0, 0, 12 * 1852.0f, 0, 180, 15},
    };
    float psi, miles;
    for (const auto& r : rows) {
        env.mag_var = r.mag_var;
        find_dis_crs_mag(r.lat, r.lon, r.from_lat, r.from_lon, r.x, r.z, r.to_x, r.to_z, &psi, &miles);
        expect_each({{psi, r.psi}, {0.1f * miles, 0.1f * r.miles}}, 1e-3);
    }
    find_dis_crs_mag(33, -117, 33, -117, 5, 5, 5, 5, &psi, &miles);
    EXPECT_EQ(miles, 0.0f);
    find_dis_crs_mag(34, -117, 33, -117, 1000, -2000, -1000, 0, &psi, &miles);
    EXPECT_NEAR(psi, 225, 1e-3f);
}

TEST_F(math, local_and_universal_time) {
    flt[0].dob_lon = -119.9;  // eight hours behind
    const struct {
        int locl, offset, zulu;
    } rows[] = {{12, 0, 20}, {12, 1, 21}, {23, 1, 8}, {18, 1, 3}, {0, 1, 9}};
    for (const auto& r : rows) {
        mnw.sys_offset_hours = r.offset;
        mnw.locl_time = 3600 * r.locl;
        EXPECT_EQ(zulu_from_locl(), 3600 * r.zulu);
        mnw.zulu_time = 3600 * r.zulu;
        EXPECT_EQ(locl_from_zulu(), 3600 * r.locl);
    }
}

TEST_F(math, vectors_and_planes) {
    Vector3 v{2, 3, 6}, null;
    const Vector3 c = Vector3{1, 2, 3}.cross({4, 6, 9});
    EXPECT_EQ(v.dot({1, 10, 100}), 632);
    EXPECT_EQ(c.dot({1, 10, 100}), -170);
    EXPECT_EQ(v.normalize(), 7);
    EXPECT_NEAR(v.dx * 2 + v.dy * 3 + v.dz * 6, 7, 1e-12);
    EXPECT_EQ(null.normalize() + null.squared_length(), 0);
    EXPECT_EQ((Point3{} - Point3{1, 2, 3}).dot({1, 10, 100}), -321);
    const Plane3 plane({0, 0, 5}, {1, 2, 4});  // x + 2y + 4z = 20
    Point3 at;
    ASSERT_TRUE(plane.intersect({{1, 1, 1}, {1, 2, 2}}, at));
    expect_each({{at.x, 2}, {at.y, 3}, {at.z, 3}}, 1e-12);
    EXPECT_FALSE(plane.intersect({{1, 1, 1}, {2, -1, 0}}, at));
    EXPECT_TRUE(plane.on_normal_side({0, 0, 5.1}));
    EXPECT_FALSE(plane.on_normal_side({0, 0, 5}));
}

TEST_F(math, floats_in_threes_and_their_box) {
    const Point3 moved = Point3{1, 2, 3} + Vector3{10, 20, 40};
    expect_each({{moved.x, 11}, {moved.y, 22}, {moved.z, 43}}, 0);
    const d3_struct a{1, 2, 3}, b{4, -5, 6}, sum = a + b * 2.0f;
    expect_each({{sum.at(0), 9}, {sum.at(1), -8}, {sum.at(2), 15}, {a.dot(b), 12}}, 0);
    box_struct box;
    EXPECT_TRUE(box.empty());
    for (const d3_struct& at : {a, b, d3_struct{2, 0, 4}}) box.grow(at);
    EXPECT_FALSE(box.empty());
    const d3_struct size = box.size(), centre = box.centre();
    expect_each({{size.x, 3}, {size.y, 7}, {size.z, 3}}, 0);
    expect_each({{centre.x, 2.5}, {centre.y, -1.5}, {centre.z, 4.5}}, 0);
}

TEST_F(math, rates_turn_about_the_aircrafts_own_axes) {
    float q[4], psi, the, phi;
    init_quaternion(0, 0, 90, q);
    update_quaternion(0, 0.5f, 0, &psi, &the, &phi, q);
    expect_each({{psi, 28.64789}, {the, 0}, {phi, 90}}, 1e-3);  // banked steeply, the nose up is a turn
}

TEST_F(math, power_on_the_buses) {
    stg.battery = stg.inverter[1] = 1;
    flt[0].engn[0].bat_volt = 0.8f;
    EXPECT_NEAR(tot_volt_avail(), 0.8f, 1e-6f);
    EXPECT_TRUE(ac_working());
    for (const int failed : {fail_inverter + 1, fail_esys + 0}) {
        flt[0].fail_stat[failed] = fail_active;
        EXPECT_FALSE(ac_working());
    }
    EXPECT_EQ(tot_volt_avail(), 0.0f);
    flt[0].fail_stat[fail_esys] = stg.battery = 0;
    stg.generator[0] = 1;
    flt[0].engn[0].N1 = 90.0f;
    EXPECT_FALSE(esys_working()) << "a piston engine's generator is no spool's";
    veh[0].engn[0].engn_type = engn_jet_hi;
    EXPECT_EQ(tot_volt_avail(), 1.0f);
}

static_assert(sizeof(snap_struct) == 260, "it leaves the process");
}  // namespace
