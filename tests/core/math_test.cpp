// Units, axes, random draws and the globe against figures known elsewhere or worked out by hand.
#include <limits.h>
#include <math.h>

#include "core/math/axes.h"
#include "core/records/env.h"
#include "core/records/flt.h"
#include "core/math/geo3.h"
#include "core/math/globe.h"
#include "core/records/mnw.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "support.h"

namespace {
class by_hand : public test::system_test {};

void expect_vector(const float (&v)[3], float x, float y, float z) {
    EXPECT_NEAR(v[0], x, 1e-6f);
    EXPECT_NEAR(v[1], y, 1e-6f);
    EXPECT_NEAR(v[2], z, 1e-6f);
}

TEST_F(by_hand, conversions_agree_with_the_si) {
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
    EXPECT_NEAR(con.pi, M_PI, 1e-6);
    EXPECT_NEAR(con.pim2, 2.0 * M_PI, 1e-6);
    EXPECT_NEAR(con.pid2, M_PI_2, 1e-6);
    EXPECT_NEAR(con.R, 287.05f, 0.1f);
    EXPECT_NEAR(con.c, 299792458.0f, 100.0f);
    EXPECT_NEAR(con.lb_per_gallon_gas, 6.25f, 0.0f);
    for (int deg = 0; deg <= 360; ++deg) {
        EXPECT_NEAR(lookup_sin[deg], sin_deg(static_cast<float>(deg)), 1e-6f);
        EXPECT_NEAR(lookup_cos[deg], cos_deg(static_cast<float>(deg)), 1e-6f);
    }
}

TEST_F(by_hand, small_arithmetic) {
    for (const int in : {-7, -2, 1, 3, 9}) {
        const int held = in < -2 ? -2 : in > 3 ? 3 : in;
        EXPECT_EQ(fltlim(static_cast<float>(in), -2, 3), static_cast<float>(held));
        EXPECT_EQ(intlim(in, -2, 3), held);
        EXPECT_EQ(fltrange(static_cast<float>(in), -2, 3), in == held);
        EXPECT_EQ(intrange(in, -2, 3), in == held);
        EXPECT_EQ(flt_box(static_cast<float>(in), 1, -2, 0, 3, 2), in == held);
        EXPECT_EQ(flt_box(1, static_cast<float>(in), 0, -2, 2, 3), in == held);
        EXPECT_EQ(intmax2(in, 2) + intmin2(in, 2), in + 2);
        EXPECT_GE(intmax2(in, 2), intmin2(2, in));
        EXPECT_EQ(fltmax2(static_cast<float>(in), 2), static_cast<float>(intmax2(in, 2)));
        EXPECT_EQ(fltmin2(static_cast<float>(in), 2), static_cast<float>(intmin2(in, 2)));
    }
    EXPECT_EQ(fallout(-3, -1, 1), -3);
    EXPECT_EQ(fallout(4.4f, 4, 6), 4);
    EXPECT_EQ(fallout(5.6f, 4, 6), 6);
    EXPECT_EQ(flt_abs(-2), 2);
    EXPECT_EQ(sign(-0.5f), -1);
    EXPECT_EQ(sqr(-3), 9);
    EXPECT_EQ(signsqr(-3), -9);
    EXPECT_EQ(signsqr(0.5f), 0.25f);
    EXPECT_EQ(intround(0.6f), 1);
    EXPECT_EQ(pythag(3, 4), 5);
    EXPECT_EQ(pythag(2, 3, 6), 7);
    EXPECT_EQ(closer_assymp(2, 10, 0.25f), 4);
    EXPECT_EQ(extrap(3, 1, 3, 5, 7), 3);
    EXPECT_EQ(xdob_extrap(1, 10, 3, 14, 4), 16);
    EXPECT_EQ(xdob_extrap(3, 1, 3, 5, 7), 3);
    EXPECT_EQ(intcut(-3.9f), -3);
    EXPECT_EQ(intcut(2147483648.0f), INT_MAX);
    EXPECT_EQ(intcut(-1e20f), INT_MIN);
    EXPECT_EQ(dobwrap(-541, -180, 180), 179);
    EXPECT_EQ(fltwrap(359 + 20 * 360, 0, 360), 359);
    EXPECT_EQ(fltwrap(1 - 20 * 360, 0, 360), 1);
    EXPECT_EQ(intwrap(-12, -3, 6), -2);
    EXPECT_EQ(intwrap(5, 9, 3), 5);
    mnw.totl_time = 0.125f * con.pi;
    EXPECT_NEAR(pulse(0), 1.0f, 1e-6f);
    EXPECT_NEAR(pulse(0.25f * con.pi), 0.0f, 1e-6f);
    EXPECT_NEAR(tan_deg(45) + asin_deg(2) + acos_deg(-2), 1.0f + 90 + 180, 1e-4f);
    EXPECT_NEAR(asin_deg(-0.5f), -30, 1e-5f);
    EXPECT_NEAR(acos_deg(0.5f), 60, 1e-5f);
    EXPECT_NEAR(atan_deg(1), 45, 1e-5f);
    EXPECT_NEAR(atan2_deg(1, -1), 135, 1e-4f);
}

TEST_F(by_hand, attitudes_of_aircraft_and_ships) {
    flt[2].psi = 90;
    flt[2].the = 30;
    flt[2].phi = 90;
    cache_attitude(2);
    float v[3];
    veh_to_wrl(0, 0, -1, &v[0], &v[1], &v[2], 2);  // the nose points east and up
    expect_vector(v, sqrtf(0.75f), 0.5f, 0);
    veh_to_wrl(1, 0, 0, &v[0], &v[1], &v[2], 2);  // the right wing down and ahead
    expect_vector(v, 0.5f, -sqrtf(0.75f), 0);
    wrl_to_veh(v[0], v[1], v[2], &v[0], &v[1], &v[2], 2);
    expect_vector(v, 1, 0, 0);
    flt[2].the = 0;
    flt[2].phi = 60;
    cache_attitude(2);
    veh_to_wrl(1, 0, 0, &v[0], &v[1], &v[2], 2);
    expect_vector(v, 0, -sqrtf(0.75f), 0.5f);
    env.boat_psi[1] = 90;
    env.boat_the[1] = 30;
    boat_to_wrl(0, 0, -1, &v[0], &v[1], &v[2], 1);
    expect_vector(v, sqrtf(0.75f), 0.5f, 0);
    env.boat_phi[1] = 90;
    boat_to_wrl(1, 0, 0, &v[0], &v[1], &v[2], 1);
    expect_vector(v, 0.5f, -sqrtf(0.75f), 0);
}

TEST_F(by_hand, a_disc_tilts_to_the_side_and_then_up) {
    flt[1].engn[2].side_disc_cyclic = 90;
    float v[3];
    disc_to_veh(0, 0, -1, &v[0], &v[1], &v[2], 1, 2);  // the shaft points right
    expect_vector(v, 1, 0, 0);
    flt[1].engn[2].vert_disc_cyclic = 90;
    disc_to_veh(1, 0, 0, &v[0], &v[1], &v[2], 1, 2);  // its right side aft, then down
    expect_vector(v, 0, -1, 0);
    flt[1].engn[2].side_disc_cyclic = 0;
    disc_to_veh(0, 1, -1, &v[0], &v[1], &v[2], 1, 2);
    expect_vector(v, 0, 1, 1);
}

TEST_F(by_hand, small_turns_add_up_about_the_axis_they_are_told) {
    for (int axis = 0; axis < 3; ++axis) {
        float q[4] = {1, 0, 0, 0}, angle[3], turn[3] = {0, 0, 0};
        turn[axis] = 0.0005f;
        for (int i = 0; i < 1000; ++i) update_quaternion(turn[0], turn[1], turn[2], &angle[2], &angle[1], &angle[0], q);
        for (int i = 0; i < 3; ++i) EXPECT_NEAR(angle[i], i == axis ? 0.5f * con.radtodeg : 0.0f, 1e-2f);
        update_quaternion(-2 * turn[0] * 1000, -2 * turn[1] * 1000, -2 * turn[2] * 1000, &angle[2], &angle[1],
                          &angle[0], q);
        EXPECT_NEAR(angle[axis], (axis == 2 ? 360 : 0) - 0.5f * con.radtodeg, 1e-2f);
        EXPECT_NEAR(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3], 1.0f, 1e-6f);
    }
}

TEST_F(by_hand, draws_are_those_of_the_published_generator) {
    rand_seed(0);  // the state of Marsaglia's paper
    for (const unsigned next : {723471715u, 2497366906u, 2064144800u, 2008045182u}) EXPECT_EQ(rand31(), next / 2);
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
    EXPECT_EQ(test::expect_fatal([] { int_seedrand(0, 1, -1); }).line[0], "Cannot pass in negative int rand seed!");
}

TEST_F(by_hand, places_courses_and_times) {
    float x, y, z, lat, lon, ele;
    xyz_with_latlonel(&x, &y, &z, 33.5f, -117.0f, 800);
    latlonel_with_xyz(&lat, &lon, &ele, x, y, z);
    EXPECT_NEAR(lat, 33.5f, 1e-5f);
    EXPECT_NEAR(lon, -117.0f, 1e-4f);
    EXPECT_NEAR(ele, 800, 0.1f);
    env.lon_wes = -180.5f;  // the centre lies one degree east of the date line
    xyz_with_latlonel(&x, &y, &z, 33.5f, 179.5f, 0);
    latlonel_with_xyz(&lat, &lon, &ele, x, y, z);
    EXPECT_NEAR(lon, 179.5f, 1e-4f);
    env.lon_wes = -119.0f;
    EXPECT_NEAR(z_north_os(30, -116.5f), -0.5f, 1e-6f);  // one degree east of the centre
    // a velocity is turned, a point is turned about the centre of the planet
    const double q[4] = {sqrt(0.5), sqrt(0.5), 0, 0};
    double v[3] = {0, 3, 0}, p[3] = {0, 3, 0};
    shift_xyz_quat(q, &v[0], &v[1], &v[2], 1);
    shift_xyz_quat(q, &p[0], &p[1], &p[2], 0);
    EXPECT_NEAR(fabs(v[0]), 3, 1e-9);
    EXPECT_NEAR(v[1], 0, 1e-9);
    EXPECT_NEAR(fabs(p[0]), con.planet_rad + 3.0, 1e-6);
    EXPECT_NEAR(p[1], -con.planet_rad, 1e-6);
    EXPECT_GT(p[0] * v[0], 0);
    // between 10 and 20 miles half of each: 12 on the plane, 18 on the sphere
    float psi, miles;
    find_dis_crs_mag(33, -117, 33, -117 + 0.3f / cos_deg(33), 0, 0, 0, 12 * 1852.0f, &psi, &miles);
    EXPECT_NEAR(miles, 15, 0.01f);
    EXPECT_NEAR(psi, 180, 1e-3f);
    find_dis_crs_mag(34, -117, 33, -117, 1000, -2000, -1000, 0, &psi, &miles);
    EXPECT_NEAR(psi, 225, 1e-3f);

    flt[0].dob_lon = -119.9;  // eight hours behind
    mnw.locl_time = 3600 * 12;
    EXPECT_EQ(zulu_from_locl(), 3600 * 20);
    mnw.sys_offset_hours = 1;
    EXPECT_EQ(zulu_from_locl(), 3600 * 21);
    mnw.locl_time = 3600 * 23;
    EXPECT_EQ(zulu_from_locl(), 3600 * 8) << "a day further";
    mnw.zulu_time = 3600 * 3;
    EXPECT_EQ(locl_from_zulu(), 3600 * 18);
    mnw.zulu_time = 3600 * 9;
    EXPECT_EQ(locl_from_zulu(), 0);
}

TEST_F(by_hand, vectors_and_planes) {
    Vector3 v{2, 3, 6};
    EXPECT_EQ(v.squared_length(), 49);
    EXPECT_EQ(v.dot({1, 10, 100}), 632);
    const Vector3 c = Vector3{1, 2, 3}.cross({4, 6, 9});
    EXPECT_EQ(c.dx, 0);
    EXPECT_EQ(c.dy, 3);
    EXPECT_EQ(c.dz, -2);
    EXPECT_EQ(v.normalize(), 7);
    EXPECT_NEAR(v.dx * 2 + v.dy * 3 + v.dz * 6, 7, 1e-12);
    Vector3 null;
    EXPECT_EQ(null.normalize(), 0);
    EXPECT_EQ(null.squared_length(), 0);
    const Plane3 plane({0, 0, 5}, {1, 2, 4});  // x + 2y + 4z = 20
    Point3 at;
    ASSERT_TRUE(plane.intersect({{1, 1, 1}, {1, 2, 2}}, at));
    EXPECT_NEAR(at.x, 2, 1e-12);
    EXPECT_NEAR(at.y, 3, 1e-12);
    EXPECT_NEAR(at.z, 3, 1e-12);
    EXPECT_FALSE(plane.intersect({{1, 1, 1}, {2, -1, 0}}, at));
    EXPECT_TRUE(plane.on_normal_side({0, 0, 5.1}));
    EXPECT_FALSE(plane.on_normal_side({0, 0, 5}));
    EXPECT_EQ((Segment3{{1, 2, 3}, {3, 5, 9}}.squared_length()), 49);
    EXPECT_EQ((Vector3{1, 2, 3} * 2.0).dot({1, 10, 100}), 642);
    EXPECT_EQ((Point3{} - Point3{1, 2, 3}).dot({1, 10, 100}), -321);
    EXPECT_EQ(Point2{}.x + 10 * Point2{}.y + 100 * Plane3{}.ndotp + 1000 * Sphere3{}.radius, 0);
}

// Frames at the equator, the second a way to the east of the first: what was east there points up here by the sine.
TEST_F(by_hand, frames_apart_along_the_equator_lean_away_from_each_other) {
    double q[4], x = 1.0, y = 0.0, z = 0.0;
    frame_shift_quat(0.0, 0.0, 0.0, 90.0, q);
    shift_xyz_quat(q, &x, &y, &z, 1);
    EXPECT_NEAR(x, 0.0, 1e-12);
    EXPECT_NEAR(y, 1.0, 1e-12);
    EXPECT_NEAR(z, 0.0, 1e-12);
    // level to the north in the region's frame it has its right wing up 30 degrees to the east
    env.lat_sou = -1.0f;
    env.lon_wes = -1.5f;
    const float level[4] = {1.0f, 0.0f, 0.0f, 0.0f};
    float psi, the, phi;
    quat_to_local_euler(level, 0.0, 30.0, &psi, &the, &phi);
    EXPECT_NEAR(fltwrap(psi, -180.0f, 180.0f), 0.0f, 1e-4f);
    EXPECT_NEAR(the, 0.0f, 1e-4f);
    EXPECT_NEAR(phi, -30.0f, 1e-4f);
}
}  // namespace
