// The numeric kit, random numbers, axes and the globe.
#include "core/math/num.h"

#include <float.h>
#include <math.h>

#include <limits>

#include "aircraft/electrics.h"
#include "core/math/axes.h"
#include "core/math/geo3.h"
#include "core/math/globe.h"
#include "core/math/random.h"
#include "support.h"

namespace {
class kit : public test::system_test {};

TEST_F(kit, limits_lines_and_ties) {
    EXPECT_EQ(interp(20, 560, 179, 719, 200), 719);
    EXPECT_EQ(extrap(20, 560, 179, 719, 200), 740);
    EXPECT_EQ(interp(0, 1, 10, 2, 20), 2);
    EXPECT_EQ(interp(10, 2, 0, 1, -5), 1);  // the points may stand in either order
    EXPECT_EQ(interp(5, 1, 5, 3, 9), 2);
    EXPECT_EQ(fallout(0.2f, -1, 1), 1);
    EXPECT_EQ(fallout(-0.2f, -1, 1), -1);
    EXPECT_EQ(fallout(0, -1, 1), 1);
    EXPECT_EQ(fallout(2, -1, 1), 2);
    EXPECT_EQ(intround(2.5f), 3);
    EXPECT_EQ(intround(-2.5f), -3);
    EXPECT_EQ(sign(0.0f), 1);
    EXPECT_EQ(signsqrt(-9.0f), -3);
    EXPECT_EQ(signpow(-2.0f, 3.0f), -8);
}

TEST_F(kit, wraps_end_for_any_number_and_keep_their_ends) {
    EXPECT_EQ(fltwrap(360, 0, 360), 360);
    EXPECT_EQ(fltwrap(-10, 0, 360), 350);
    EXPECT_EQ(fltwrap(7, 3, 3), 7);
    EXPECT_EQ(fltwrap(720, 0, 360), 360);
    EXPECT_EQ(fltwrap(3600000, 0, 360), 360);  // where subtraction would stop
    EXPECT_EQ(fltwrap(-3600000, 0, 360), 0);
    EXPECT_EQ(intwrap(10, 0, 9), 0);
    EXPECT_EQ(intwrap(-1, 0, 9), 9);
    EXPECT_EQ(intwrap(std::numeric_limits<int>::max(), 0, 359), std::numeric_limits<int>::max() % 360);
    for (const float bad : {1e20f, -1e20f, FLT_MAX, FLT_MIN, 1e-42f}) {
        const float w = fltwrap(bad, -180, 180);
        EXPECT_TRUE(w >= -180 && w <= 180) << bad;
    }
    EXPECT_TRUE(isnan(fltwrap(NAN, 0, 360)));
    EXPECT_TRUE(isinf(fltwrap(INFINITY, 0, 360)));
    EXPECT_EQ(intround(NAN), 0);
    EXPECT_EQ(intround(1e20f), std::numeric_limits<int>::max());
}

TEST_F(kit, the_guard_stops_what_is_not_a_number_of_this_world) {
    EXPECT_EQ(test::expect_fatal([] { check_val(NAN); }).line[0], "duh-oh!");
    EXPECT_EQ(test::expect_fatal([] { check_val(1e10f); }).line[1], "nan! nan! nan!");
    check_val(9.9e9f);
    check_val(-9.9e9f);
}

TEST_F(kit, random_numbers_repeat_and_stay_in_range) {
    rand_seed(5);
    double sum = 0.0;
    bool low = false, high = false;
    for (int i = 0; i < 20000; ++i) {
        const float f = flt_rand(-2.0f, 2.0f);
        ASSERT_TRUE(f >= -2.0f && f <= 2.0f);
        sum += f;
        const int n = int_rand(1, 3);
        ASSERT_TRUE(n >= 1 && n <= 3);
        low = low || n == 1;
        high = high || n == 3;
    }
    EXPECT_NEAR(sum / 20000.0, 0.0, 0.05);
    EXPECT_TRUE(low && high);
    EXPECT_EQ(flt_seedrand(0, 1, 7), flt_seedrand(0, 1, 10007));
    EXPECT_EQ(test::expect_fatal([] { flt_seedrand(0, 1, -1); }).line[0],
              "Cannot pass in negative float rand seed!");
}

TEST_F(kit, quaternion_and_euler_angles_say_the_same) {
    for (const float psi : {0.0f, 47.0f, 181.0f, 359.0f})
        for (const float the : {-80.0f, 0.0f, 33.0f})
            for (const float phi : {-170.0f, -20.0f, 0.0f, 90.0f}) {
                float q[4], a, b, c;
                init_quaternion(psi, the, phi, q);
                for (float& v : q) v *= 1.1f;  // the angles of a drifted one are those of unit length
                quat_to_euler(q, &a, &b, &c);
                EXPECT_NEAR(fltwrap(a - psi, -180, 180), 0.0f, 2e-3f);
                EXPECT_NEAR(b, the, 2e-3f);
                EXPECT_NEAR(fltwrap(c - phi, -180, 180), 0.0f, 2e-3f);
                // the rotation by q is the rotation by the angles
                float x1, y1, z1, x2, y2, z2;
                rot_quat(q, 1.0f, 2.0f, 3.0f, &x1, &y1, &z1);
                any_to_wrl(1.0f, 2.0f, 3.0f, &x2, &y2, &z2, sin_deg(psi), cos_deg(psi), sin_deg(the),
                           cos_deg(the), sin_deg(phi), cos_deg(phi));
                EXPECT_NEAR(x1, x2, 1e-4f);
                EXPECT_NEAR(y1, y2, 1e-4f);
                EXPECT_NEAR(z1, z2, 1e-4f);
                float x, y, z;
                wrl_to_any(x2, y2, z2, &x, &y, &z, sin_deg(psi), cos_deg(psi), sin_deg(the), cos_deg(the),
                           sin_deg(phi), cos_deg(phi));
                EXPECT_NEAR(x, 1.0f, 1e-5f);
                EXPECT_NEAR(y, 2.0f, 1e-5f);
                EXPECT_NEAR(z, 3.0f, 1e-5f);
            }
    // right wing down in a roll: the right wing's tip points below the horizon
    float x, y, z;
    any_to_wrl(1, 0, 0, &x, &y, &z, 0, 1, 0, 1, sin_deg(30), cos_deg(30));
    EXPECT_NEAR(y, -0.5f, 1e-6f);
    float q[4] = {1, 0, 0, 0};
    mul_quat(q, q, q);  // the output may be an input
    EXPECT_EQ(q[0], 1.0f);
}

TEST_F(kit, places_on_the_globe_and_back) {
    for (const double lat : {33.0, 34.9, 30.0, 60.0})
        for (const double lon : {-119.9, -117.5, -116.0, -60.0})
            for (const double ele : {-100.0, 0.0, 12000.0}) {
                double x, y, z, a, b, c;
                xdob_xyz_with_latlonel(&x, &y, &z, lat, lon, ele);
                xdob_latlonel_with_xyz(&a, &b, &c, x, y, z);
                EXPECT_NEAR(a, lat, 1e-10);
                EXPECT_NEAR(b, lon, 1e-10);
                EXPECT_NEAR(c, ele, 1e-6);
            }
    double x, y, z;
    xdob_xyz_with_latlonel(&x, &y, &z, 34.0, -117.5, 250.0);  // the region's centre
    EXPECT_NEAR(x, 0.0, 1e-9);
    EXPECT_NEAR(y, 250.0, 1e-6);
    EXPECT_NEAR(z, 0.0, 1e-6);
    xdob_xyz_with_latlonel(&x, &y, &z, 34.01, -117.5, 0.0);
    EXPECT_LT(z, -1000.0) << "north is negative z";
    env.lon_wes = -180.5f;  // centre at -179: the short way over the date line
    xdob_xyz_with_latlonel(&x, &y, &z, 34.0, 179.9, 0.0);
    EXPECT_NEAR(x, -1.1 * 111319.63 * cos(34.0 * dob_degtorad), 50.0);
    env.planet = 2;
    EXPECT_EQ(test::expect_fatal([&] { xdob_xyz_with_latlonel(&x, &y, &z, 0, 0, 0); }).line[0],
              "Bad planet type!");
}

TEST_F(kit, a_frame_shift_leaves_every_place_where_it_is) {
    double x, y, z, x2, y2, z2, q[4];
    xdob_xyz_with_latlonel(&x, &y, &z, 33.4, -116.8, 1234.0);
    env.lat_sou += 1.0f;
    env.lon_wes -= 1.0f;
    axis_shift_to_quat(1.0, -1.0, q);
    shift_xyz_quat(q, &x, &y, &z, 0);
    xdob_xyz_with_latlonel(&x2, &y2, &z2, 33.4, -116.8, 1234.0);
    EXPECT_NEAR(x, x2, 1e-6);
    EXPECT_NEAR(y, y2, 1e-6);
    EXPECT_NEAR(z, z2, 1e-6);
    // an aircraft level and north in its own place reads so in any region
    float attitude[4], psi, the, phi;
    double back[4];
    frame_shift_quat(33.4, -116.8, ref_lat(), ref_lon(), back);
    for (int i = 0; i < 4; ++i) attitude[i] = static_cast<float>(back[i]);
    quat_to_local_euler(attitude, 33.4, -116.8, &psi, &the, &phi);
    EXPECT_NEAR(fltwrap(psi, -180, 180), 0.0f, 1e-3f);
    EXPECT_NEAR(the, 0.0f, 1e-3f);
    EXPECT_NEAR(phi, 0.0f, 1e-3f);
}

TEST_F(kit, courses_and_distances) {
    float psi, dis;
    // one degree of latitude north: 60 nautical miles by the great circle
    find_dis_crs_mag(33, -117, 34, -117, 0, 0, 0, -111319.6f, &psi, &dis);
    EXPECT_NEAR(dis, 60.0f, 0.01f);
    EXPECT_NEAR(psi, 0.0f, 1e-3f);
    env.mag_var = -12.0f;
    find_dis_crs_mag(33, -117, 33, -117, 0, 0, 1852.0f, 0, &psi, &dis);
    EXPECT_NEAR(psi, 78.0f, 1e-3f);
    EXPECT_NEAR(dis, 1.0f, 1e-3f);
    find_dis_crs_mag(33, -117, 33, -117, 5, 5, 5, 5, &psi, &dis);
    EXPECT_EQ(dis, 0.0f);
}

TEST_F(kit, power_on_the_buses) {
    stg.battery = 1;
    flt[0].engn[0].bat_volt = 0.8f;
    EXPECT_NEAR(tot_volt_avail(), 0.8f, 1e-6f);
    EXPECT_FALSE(ac_working());
    stg.inverter[1] = 1;
    EXPECT_TRUE(ac_working());
    flt[0].fail_stat[fail_inverter + 1] = fail_active;
    EXPECT_FALSE(ac_working());
    flt[0].fail_stat[fail_esys] = fail_active;
    EXPECT_EQ(tot_volt_avail(), 0.0f);
    flt[0].fail_stat[fail_esys] = 0;
    stg.battery = 0;
    stg.generator[0] = 1;
    flt[0].engn[0].N1 = 90.0f;
    EXPECT_FALSE(esys_working()) << "a piston engine's generator is no spool's";
    veh[0].engn[0].engn_type = engn_jet_hi;
    EXPECT_EQ(tot_volt_avail(), 1.0f);
}

TEST_F(kit, records_have_the_sizes_that_leave_the_process) {
    EXPECT_EQ(sizeof(snap_struct), 260u);
    flt[3].wing[55].v_el[9][3] = 1.0f;
    flt[3].engn[7].RING_DVinc[9] = 1.0f;
    clear_flt(3);
    EXPECT_EQ(flt[3].wing[55].v_el[9][3], 0.0f);
    EXPECT_EQ(flt[3].engn[7].RING_DVinc[9], 0.0f);
    EXPECT_NEAR(con.g, 9.79828f, 1e-5f);
    EXPECT_NEAR(con.endtomed, 515.379f, 0.5f);  // slug/ft3, by the system's own gravity
}
}  // namespace
