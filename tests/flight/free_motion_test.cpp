// Motion without air: closed forms of mechanics.
#include <math.h>

#include "core/math/axes.h"
#include "core/math/globe.h"
#include "flight/instruments.h"
#include "flight/mass_motion.h"
#include "flying.h"

namespace {
class free_motion : public ::testing::Test {
protected:
    void SetUp() override { test::fly_bare_mass(); }
};

TEST_F(free_motion, a_centre_of_gravity_moved_aft_turns_the_nose_up_under_lift) {
    flt[0].m_total = 1000.0f;
    flt[0].cgz_ref_to_default = 0.25f;  // m aft of where the forces are counted from
    flt[0].g_nrml = 2.0f;
    flt[0].g_side = 0.4f;
    add_weight_shift();
    EXPECT_NEAR(flt[0].M, 2.0f * 9.79828f * 1000.0f * 0.25f, 0.1f);  // the lift stands ahead of the mass
    EXPECT_NEAR(flt[0].N, 0.4f * 9.79828f * 1000.0f * 0.25f, 0.1f);  // so does the side force
    EXPECT_EQ(flt[0].L, 0.0f);
}

// The turning error of a needle that leans with the bank.
TEST_F(free_motion, the_compass_shows_west_of_north_in_a_right_turn_from_north) {
    flt[0].dob_lat = 40.0;
    flt[0].psi_mag_act = 0.0f;
    flt[0].sin_phi = 0.5f;  // 30 degrees to the right
    flt[0].cos_phi = 0.8660254f;
    flt[0].com_ind_mag = 0.0f;
    mnw.prd_FM = 1.0f;  // s: the whole way to where it settles
    instrument_step();
    // the bank's sine by tan 25 degrees, half the colatitude, to the west
    EXPECT_NEAR(fltwrap(flt[0].com_ind_mag, -180.0f, 180.0f), -atanf(0.5f * 0.4663077f) * 57.29578f, 0.01f);
}

TEST_F(free_motion, keeps_a_circular_orbit_through_frame_shifts) {
    const double r0 = con.planet_rad + flt[0].dob_y;
    const double v = sqrt(con.planet_mu / r0);
    flt[0].vx = static_cast<float>(v);  // due east
    const double energy0 = test::specific_energy();
    const float dt = 1.0f / 16.0f;
    const double seconds = 1200.0;
    int shifts = 0;
    for (double t = 0.0; t < seconds; t += dt) {
        const float lat_sou = env.lat_sou, lon_wes = env.lon_wes;
        lab_frame(dt);
        shifts += env.lat_sou != lat_sou || env.lon_wes != lon_wes;
    }
    EXPECT_GT(shifts, 20);
    // a circle: the height stays, but for the local gravity's being that of the frame's y, and the angle
    // covered is that of Kepler's third law and the velocity's being a float, which at 7.8 km/s resolves half
    // a millimetre a second
    EXPECT_NEAR(flt[0].dob_ele, 200000.0, 500.0);
    EXPECT_NEAR(test::specific_energy(), energy0, 1e-4 * fabs(energy0));
    const double lat0 = 34.0 * dob_degtorad, lon0 = -117.5 * dob_degtorad;
    const double lat1 = flt[0].dob_lat * dob_degtorad, lon1 = flt[0].dob_lon * dob_degtorad;
    const double arc = acos(sin(lat0) * sin(lat1) + cos(lat0) * cos(lat1) * cos(lon1 - lon0));
    EXPECT_NEAR(arc, v / r0 * seconds, 2e-3);
}

TEST_F(free_motion, rolls_under_a_constant_moment) {
    // 900 N m about the roll axis of 9000 kg m2: 0.1 rad/s2
    veh[0].puff_LMN[0] = 900.0f;
    stg.puffers_on = 1;
    mnw.YK_roll = 1.0f;
    const float seconds = 4.0f, dt = 1.0f / 64.0f;
    test::run_frames(seconds, dt);
    const float rad = 180.0f / static_cast<float>(M_PI);
    EXPECT_NEAR(flt[0].P, 0.1f * seconds * rad, 0.02f);
    // semi-implicit steps of dt / 2 lead by half a step's rate
    const float lead = 0.1f * seconds * 0.25f * dt;
    EXPECT_NEAR(flt[0].phi, (0.05f * seconds * seconds + lead) * rad, 0.1f);
    EXPECT_NEAR(flt[0].the, 0.0f, 1e-3f);
}

TEST_F(free_motion, turns_about_one_axis_by_the_rate_times_the_time) {
    flt[0].R = 10.0f;  // degrees per second, nose right
    flt[0].Rrad = flt[0].R * con.degtorad;
    test::run_frames(9.0f);
    EXPECT_NEAR(flt[0].psi, 90.0f, 0.05f);
    flt[0].R = flt[0].Rrad = 0.0f;
    flt[0].Q = 10.0f;
    flt[0].Qrad = flt[0].Q * con.degtorad;
    test::run_frames(3.0f);
    EXPECT_NEAR(flt[0].the, 30.0f, 0.05f);
}

TEST_F(free_motion, fuel_off_the_centre_tips_the_aircraft) {
    // 100 kg two metres to the right, lifted at 1 g by a buoyant hull: the right wing drops
    veh[0].tank_xyz[0][0] = 2.0f;
    flt[0].m_fuel[0] = 100.0f;
    flt[0].g_nrml = 1.0f;
    lab_frame(1.0f / 64.0f);
    EXPECT_GT(flt[0].P, 0.0f);
    EXPECT_NEAR(flt[0].m_total, 1100.0f, 0.01f);
    EXPECT_NEAR(flt[0].Jzz_total, 9000.0f + 400.0f, 0.1f);
}

TEST_F(free_motion, climb_in_the_true_vertical_far_from_the_regions_centre) {
    // level flight on the sphere 45 km east of the centre, where the region just stays: the frame's y falls, the
    // climb is none
    const double east = 45000.0;
    double lat, lon, ele;
    flt[0].dob_x = east;
    flt[0].dob_y =
        sqrt((con.planet_rad + 200000.0) * (con.planet_rad + 200000.0) - east * east) - con.planet_rad;
    flt[0].dob_z = 0.0;
    xdob_latlonel_with_xyz(&lat, &lon, &ele, flt[0].dob_x, flt[0].dob_y, flt[0].dob_z);
    flt[0].dob_lat = lat;
    flt[0].dob_lon = lon;
    const double lean = asin(east / (con.planet_rad + 200000.0));
    flt[0].vx = static_cast<float>(100.0 * cos(lean));
    flt[0].vy = static_cast<float>(-100.0 * sin(lean));
    lab_frame(0.001f);
    EXPECT_NEAR(flt[0].Vh_fpm * con.fpmtomsc, 0.0f, 0.03f);  // only gravity of one frame
    EXPECT_LT(flt[0].vy, -0.5f);
}
}  // namespace
