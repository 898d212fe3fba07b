// A seaplane on the water: two flat-bottomed floats under the trainer, whose draught, balance and motion
// follow from their sizes.
#include <math.h>

#include "core/craft/part_ranges.h"
#include "core/math/axes.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "flight/ground/water.h"
#include "flying.h"
#include "scenery/ground/region.h"
#include "scenery/ground/terrain_query.h"
#include "sound/sound.h"

namespace {
constexpr float keel_y = -1.4f, beam = 1.0f, flat_length = 3.2f, bow_length = 1.2f, bow_rise = 0.35f,
                stern_length = 0.6f, stern_rise = 0.32f;
constexpr float apart = 1.3f;  // m of each float's middle from the aircraft's
constexpr int rings = 12;

int splashes;
float splash_pitch, splash_volume;

void fill_with_sea(int, int, int, int, int) {}

class seaplane : public ::testing::Test {
protected:
    flt_struct& f = flt[0];

    void SetUp() override {
        test::fly_aircraft("Wren 160");
        region_steps.fill_tile = fill_with_sea;
        load_region(shift_full_reload);
        for (veh_gear_struct& leg : veh[0].gear) leg.gear_type = gear_none;
        for (const int side : {-1, 1})
            add_float(part_misc_first + (side > 0), static_cast<float>(side) * apart);
        atm.wave_height = 0.0f;
        stg.start_running = 0;
        float_at(0.0f);
    }
    // Six keel points across, and the next ones beside them, a sixth of the beam from each other.
    static void add_float(int en, float x) {
        veh_part_struct& body = veh[0].part[en];
        body = {};
        body.part_eq = 1;
        body.part_x = x, body.part_y = keel_y;
        body.s_dim = 12, body.r_dim = rings;
        for (int s = 0; s < body.s_dim; ++s) {
            const int flat_panels = body.s_dim - 3;
            const float share =
                static_cast<float>(intlim(s - 1, 0, flat_panels)) / static_cast<float>(flat_panels);
            const bool is_bow = s == 0, is_stern = s == body.s_dim - 1;
            const float aft = (share - 0.5f) * flat_length + (is_stern ? stern_length
                                                              : is_bow ? -bow_length
                                                                       : 0.0f);
            for (int r = 0; r < rings; ++r) {
                const float from_keel = static_cast<float>(r) - 0.5f * (rings - 1);
                const bool below = fabsf(from_keel) < 4.0f;
                body.geo_xyz[s][r][0] = below ? from_keel * beam / 6.0f : 0.0f;
                body.geo_xyz[s][r][1] = (below ? 0.0f : 0.6f) + (is_stern ? stern_rise
                                                                 : is_bow ? bow_rise
                                                                          : 0.0f);
                body.geo_xyz[s][r][2] = aft;
            }
        }
    }
    // At rest on the heading, about the draught that is right.
    void float_at(float psi) {
        init_flt_0(start_water, 0);
        f.psi = psi;
        init_quaternion(f.psi, f.the, f.phi, f.q);
        f.vx = f.vy = f.vz = f.V_msc = 0.0f;
        for (flt_engn_struct& e : f.engn) e.burning_fuel = e.ignition = 0;
        f.dob_y = f.terrain_y_cg - keel_y - draught();
    }
    float draught() const { return veh[0].m_empty / (con.planet_rho_water * 2.0f * beam * flat_length); }
    // Of the keel's middle below the level of still water.
    float immersion() const { return f.terrain_y_cg - static_cast<float>(f.dob_y) - keel_y; }
    // Pulled along its heading.
    void tow(float speed, float seconds) {
        for (int i = 0; i < static_cast<int>(64.0f * seconds); ++i) {
            f.vx = speed * sin_deg(f.psi), f.vz = -speed * cos_deg(f.psi);
            lab_frame(1.0f / 64.0f);
        }
    }
};

TEST_F(seaplane, floats_at_the_draught_of_archimedes_and_comes_to_rest) {
    for (const float dt : {1.0f / 20.0f, 1.0f / 64.0f, 1.0f / 100.0f}) {
        float_at(0.0f);
        stg.parkbrake = 1.0f;
        test::run_frames(120.0f, dt);
        const double x = f.dob_x, z = f.dob_z;
        float fastest = 0.0f;
        for (int second = 0; second < 480; ++second) {
            test::run_frames(1.0f, dt);
            fastest = fltmax2(fastest, pythag(f.vx, f.vy, f.vz) + 3.0f * f.Qrad);
        }
        const float should = f.m_total / (con.planet_rho_water * 2.0f * beam * flat_length);
        EXPECT_NEAR(immersion(), should, 0.03f * should) << dt;
        EXPECT_LT(fabsf(f.the), 1.0f);
        EXPECT_LT(fabsf(f.phi), 0.5f);
        EXPECT_LT(fastest, 0.005f) << dt;
        EXPECT_LT(hypot(f.dob_x - x, f.dob_z - z), 0.3);
        EXPECT_EQ(f.onground_all, 1);
    }
}

// Water of the draught T under a flat bottom: a spring of g / T, and the square of the speed damps by v v /
// T. A swing of amplitude a then loses 4 a a / 3 T each half.
TEST_F(seaplane, bobs_in_the_time_of_its_draught_and_ever_less) {
    test::run_frames(120.0f);
    constexpr float displaced = 0.06f;
    constexpr int swings = 6;  // half ones
    const float rest = immersion();
    f.dob_y += displaced;
    float last = -displaced, before = last, turned[swings], time = 0.0f;
    for (int found = 0; found < swings && time < 10.0f;) {
        lab_frame(1.0f / 64.0f);
        time += 1.0f / 64.0f;
        const float now = immersion() - rest;
        if ((last - before) * (now - last) < 0.0f) turned[found++] = last;
        before = last, last = now;
    }
    const float half = static_cast<float>(M_PI) * sqrtf(rest / con.g);
    EXPECT_NEAR(time / swings, half, 0.05f * half);
    for (int i = 0; i < swings; ++i) EXPECT_GT(turned[i] * (i % 2 ? -1.0f : 1.0f), 0.0f) << i;
    const float expected = 1.0f / displaced + swings * 4.0f / (3.0f * rest);
    EXPECT_NEAR(1.0f / fabsf(turned[swings - 1]), expected, 0.1f * expected);
}

TEST_F(seaplane, rides_waves_in_their_own_time) {
    atm.wave_height = 0.6f;
    atm.wave_length_to_height = 60.0f;
    test::run_frames(20.0f);
    const float period = atm.wave_length / atm.wave_speed, before = mnw.totl_time;
    float high = -1e9f, low = 1e9f, last = immersion(), first_rise = 0.0f, last_rise = 0.0f;
    int rises = 0;
    while (mnw.totl_time - before < 12.0f * period) {
        lab_frame(1.0f / 64.0f);
        const float now = immersion();
        high = fltmax2(high, now), low = fltmin2(low, now);
        const float middle = f.m_total / (con.planet_rho_water * 2.0f * beam * flat_length);
        if (last < middle && now >= middle) {
            if (rises++ == 0) first_rise = mnw.totl_time;
            last_rise = mnw.totl_time;
        }
        last = now;
    }
    EXPECT_NEAR((last_rise - first_rise) / static_cast<float>(rises - 1), period, 0.05f * period);
    EXPECT_NEAR(high - low, atm.wave_height, 0.3f * atm.wave_height) << "long waves carry it";

    // the crests run from where the waves come, with their speed, one wave length apart
    for (const int dir : {0, 90, 215}) {
        atm.wave_dir = dir;
        const float s = sin_deg(static_cast<float>(dir)), c = cos_deg(static_cast<float>(dir));
        float x = 120.0f, z = -310.0f;
        mnw.totl_time = 1000.0f;
        const float y = wave_h(x, 5.0f, z);
        EXPECT_NEAR(wave_h(x - atm.wave_length * s, 5.0f, z + atm.wave_length * c), y, 2e-3f);
        EXPECT_NEAR(wave_h(x + 50.0f * c, 5.0f, z + 50.0f * s), y, 2e-3f) << "along the crest";
        mnw.totl_time += 1.25f;
        EXPECT_NEAR(wave_h(x - 1.25f * atm.wave_speed * s, 5.0f, z + 1.25f * atm.wave_speed * c), y, 2e-3f);
    }
}

// The steep four feet of the weather as it is set out of the box; broadside is worst.
TEST_F(seaplane, stays_upright_in_a_usual_sea) {
    atm.wave_height = 1.2f;
    atm.wave_length_to_height = 15.0f;
    for (const float psi : {0.0f, 90.0f, 180.0f}) {
        float_at(psi);
        float most = 0.0f;
        for (int i = 0; i < 64 * 120; ++i) {
            lab_frame(1.0f / 64.0f);
            most = fltmax2(most, fltmax2(fabsf(f.phi), fabsf(f.the)));
        }
        EXPECT_GT(most, 5.0f) << psi;
        EXPECT_LT(most, 25.0f) << psi;
    }
}

// Towed with the nose held up.
TEST_F(seaplane, rises_with_its_speed) {
    float above = 1.0f;
    for (const float speed : {0.0f, 3.0f, 6.0f, 9.0f}) {
        float_at(0.0f);
        for (int i = 0; i < 64 * 10; ++i) {
            f.vx = 0.0f, f.vz = -speed;
            f.psi = f.phi = f.P = f.Q = f.R = f.Prad = f.Qrad = f.Rrad = 0.0f, f.the = 5.0f;
            init_quaternion(f.psi, f.the, f.phi, f.q);
            lab_frame(1.0f / 64.0f);
        }
        EXPECT_LT(immersion(), above - (speed > 0.0f ? 0.003f : 0.0f)) << speed;
        above = immersion();
    }
}

TEST_F(seaplane, lands_on_the_water_and_slows_down) {
    float_at(0.0f);
    f.the = 4.0f;
    init_quaternion(f.psi, f.the, f.phi, f.q);
    f.dob_y += 2.0;
    f.vy = -1.0f, f.vz = -26.0f, f.V_msc = 26.0f;
    for (int i = 0; i < 64 * 30; ++i) {
        mnw.YK_ptch = fltlim((5.0f - f.the) * 0.1f - 0.05f * f.Q, -1.0f, 1.0f);
        lab_frame(1.0f / 64.0f);
    }
    EXPECT_EQ(f.onground_all, 1);
    EXPECT_LT(f.V_msc, 6.0f);
    EXPECT_LT(fabsf(f.phi), 1.0f);
}

// On land there is none; and when the frame of the world moves, the anchor goes along.
TEST_F(seaplane, drops_its_anchor_where_it_is) {
    const auto carry = [&](double aside) {
        f.dob_x += aside;
        f.terrain_y_cg = y_with_xhz(static_cast<float>(f.dob_x), 0.0f, static_cast<float>(f.dob_z));
        f.dob_y = f.terrain_y_cg - keel_y - draught();
        f.vy = 0.0f;
    };
    float_at(0.0f);
    stg.parkbrake = 1.0f;
    test::run_frames(5.0f);
    env.over_rwy_last = 1;
    carry(40.0);
    lab_frame(1.0f / 64.0f);
    env.over_rwy_last = 0;
    test::run_frames(5.0f);
    EXPECT_LT(fabsf(f.vx), 0.1f);
    carry(4000.0);
    test::run_frames(5.0f);
    EXPECT_LT(fabsf(f.vx), 0.1f);
}

// With the nose held high the floats come out of the water long before the wings carry.
TEST_F(seaplane, planes_and_takes_off) {
    veh[0].water_rud_area = 0.05f, veh[0].water_rud_maxdef = 30.0f, veh[0].water_rud_Z = 2.5f;
    mnw.eq_ped_nobrk = 1;
    init_flt_0(start_water, 0);
    for (flt_engn_struct& e : f.engn) e.thro_ref = e.thro_use = 1.0f;
    float time = 0.0f, rises_at = 0.0f;
    for (; time < 90.0f && (f.onground_any || time < 5.0f); time += 1.0f / 64.0f) {
        mnw.YK_ptch = fltlim((10.0f - f.the) * 0.15f - 0.05f * f.Q + 0.5f, -1.0f, 1.0f);
        mnw.YK_hdng = fltlim(-0.1f * fltwrap(f.psi, -180.0f, 180.0f) - 0.1f * f.R, -1.0f, 1.0f);
        lab_frame(1.0f / 64.0f);
        if (!(rises_at > 0.0f) && time > 5.0f && immersion() < 0.0f) rises_at = f.V_msc;
    }
    EXPECT_GT(rises_at, 8.0f) << "the middle of the keels is out";
    EXPECT_LT(rises_at, 14.0f);
    EXPECT_LT(time, 40.0f);
    EXPECT_GT(f.V_msc, 17.0f);
    EXPECT_LT(f.V_msc, 26.0f);
}

TEST_F(seaplane, turns_by_its_water_rudder) {
    veh[0].water_rud_area = 0.05f;
    veh[0].water_rud_maxdef = 30.0f;
    veh[0].water_rud_Z = 2.5f;
    for (const bool pedals : {true, false})
        for (const float command : {-1.0f, 1.0f}) {
            float_at(90.0f);
            mnw.eq_ped_nobrk = pedals;
            (pedals ? mnw.YK_hdng : mnw.YK_roll) = command;
            tow(4.0f, 1.0f);
            EXPECT_GT(command * f.R, 0.5f) << pedals;
            mnw.YK_hdng = mnw.YK_roll = 0.0f;
        }
}

TEST_F(seaplane, lies_at_anchor_while_the_brake_is_set) {
    for (const float psi : {0.0f, 90.0f, 180.0f, 250.0f}) {
        float_at(psi);
        stg.parkbrake = 0.0f;
        test::run_frames(2.0f);
        const double x = f.dob_x, z = f.dob_z;
        stg.parkbrake = 1.0f;
        f.vx = 3.0f, f.vz = -2.0f;
        test::run_frames(60.0f);
        EXPECT_LT(hypot(f.dob_x - x, f.dob_z - z), 1.0) << psi;
        stg.parkbrake = 0.0f;
        f.vx = 3.0f, f.vz = -2.0f;
        test::run_frames(10.0f);
        EXPECT_GT(hypot(f.dob_x - x, f.dob_z - z), 3.0) << psi;
    }
    // in the air it hangs on board; in the water it gives by the push of the wind, here from ahead
    for (float& dir : atm.set_wind_dir_mag) dir = 90.0f;
    float_at(90.0f - env.mag_var);
    stg.parkbrake = 1.0f;
    f.dob_y += 30.0;
    test::run_frames(0.1f);
    f.dob_x += 200.0, f.dob_y -= 29.0;
    test::run_frames(40.0f);
    EXPECT_LT(f.V_msc, 0.01f) << "at the old place it would be drawn back";
    const double x = f.dob_x, z = f.dob_z;
    for (float& speed : atm.set_wind_spd_kts) speed = 20.0f;
    test::run_frames(60.0f);
    const float push = (f.faxil_aero_acf + f.faxil_prop_acf) / f.m_total;
    EXPECT_GT(push, 0.02f);
    EXPECT_NEAR(hypot(f.dob_x - x, f.dob_z - z), 10.0f * push, 0.5f * push);
}

TEST_F(seaplane, splashes_by_its_speed_and_swims_only_on_bodies_with_keels) {
    splashes = 0;
    seam.play_sound = [](int slot, float pitch, float volume) {
        if (slot != sound_water) return;
        ++splashes;
        splash_pitch = pitch, splash_volume = volume;
    };
    tow(8.0f, 9.2f);
    EXPECT_TRUE(splashes == 6 || splashes == 7) << splashes;
    EXPECT_NEAR(splash_volume, 0.05f * 8.0f, 0.03f);
    EXPECT_NEAR(splash_pitch, 0.02f * 8.0f, 0.02f);
    float_at(0.0f);
    for (int en = part_fuse_first; en <= part_fair_last; ++en) veh[0].part[en].r_dim = 6;
    test::run_frames(2.0f);
    EXPECT_EQ(f.onground_any, 0);
}
}  // namespace
