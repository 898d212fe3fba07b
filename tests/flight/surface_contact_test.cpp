// What the kind of ground, water on it, decks, roofs and the network's terrain do to wheels and skids.
#include <math.h>

#include <array>
#include <functional>
#include <set>

#include "core/math/axes.h"
#include "core/math/num.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/ships.h"
#include "flight/ground/contact_point.h"
#include "flying.h"
#include "scenery/ground/surfaces.h"
#include "scenery/ground/terrain_query.h"

namespace {
constexpr float frame = 1.0f / 64.0f;

// What the scene would find before each frame.
std::function<void()> find_surface;

void run(float seconds) {
    for (int i = 0; i < static_cast<int>(lroundf(seconds / frame)); ++i) {
        find_surface();
        lab_frame(frame);
    }
}

void lie_on(int surf_tex) {
    find_surface = [=] { env.surf_tex = surf_tex; };
}

enum cart { rolling, locked, on_skids };

class surface_contact : public ::testing::Test {
protected:
    flt_struct& f = flt[0];

    void SetUp() override {
        lie_on(surface_asphalt);
        test::fly_aircraft("Wren 160");
        stg.start_running = 0;
        init_flt_0(start_airport, place_runway);
        run(frame);  // into the air of this height
    }
    void TearDown() override {
        atm.rway_fric_code = atm.rway_patchy = 0;
        net.getting_terrain = 0;
        con.sl_T_cel = 15.0f;
    }
    // All wheels locked by the pedals, or none, or skids in their place: how they share the load does not
    // matter.
    void stand(cart kind, int surf_tex) {
        lie_on(surf_tex);
        init_flt_0(start_airport, place_runway);
        for (veh_gear_struct& g : veh[0].gear) {
            g.steers = 0;
            if (fabsf(g.gear_x) < 0.1f) g.gear_x = 0.1f;
            if (g.gear_type) g.gear_type = kind == on_skids ? gear_skid : gear_one;
        }
        run(4.0f);
        stg.parkbrake = 0.0f;
        stg.l_brake_add = stg.r_brake_add = kind == locked ? 3.0f : 0.0f;
    }
    // The grip that the motion shows, air taken out: a share of the weight.
    float grip_at(float speed, float seconds = 0.5f) {
        f.vx = speed * sin_deg(f.psi), f.vz = -speed * cos_deg(f.psi);
        f.V_msc = speed;
        for (int en = 0; en < gearDIM; ++en)
            if (veh[0].gear[en].gear_type > gear_skid && !(stg.l_brake_add > 0.0f))
                f.gear[en].tire_omega = speed / veh[0].gear[en].tire_radius;
        float air = 0.0f;
        const float before = pythag(f.vx, f.vz);
        for (float t = 0.0f; t < seconds - 0.5f * frame; t += frame) {
            run(frame);
            air += (f.faxil_aero_acf + f.faxil_prop_acf) / f.m_total * frame;
        }
        return (before - pythag(f.vx, f.vz) - air) / (seconds * con.g);
    }
};

// Of metal 0.4, of tyres by the aircraft; what slides has 0.7 of it.
TEST_F(surface_contact, grip_by_the_kind_of_ground) {
    const struct {
        float rco, bco, mco;
        std::set<int> kinds;
    } rows[] = {{4.0f, 0.75f, 2.0f, {surface_plain, surface_dirt, surface_gravel, surface_pad_dirt}},
                {2.0f, 0.75f, 0.5f, {surface_grass, surface_pad_grass}},
                {1.0f, 0.75f, 1.0f, {surface_lakebed}},
                {1.0f, 1.0f, 1.0f, {105, 106, 107, 113, 114, 119, 120}}};
    const auto expect_grip = [this](cart cart_kind, int kind, float expected) {
        stand(cart_kind, kind);
        EXPECT_NEAR(grip_at(10.0f, 1.0f), expected, 0.05f * expected) << cart_kind << ' ' << kind;
    };
    const float bearings = 0.001f * veh[0].m_max / f.m_total;
    for (const auto& row : rows)
        for (const int kind : row.kinds) {
            expect_grip(rolling, kind, row.rco * veh[0].roll_co + bearings);
            expect_grip(locked, kind, 0.7f * row.bco * veh[0].brake_co);
            expect_grip(on_skids, kind, 0.7f * row.mco * 0.4f);
        }
}

TEST_F(surface_contact, grip_of_wet_and_icy_runways) {
    const float dry = 0.7f * veh[0].brake_co;
    for (const bool freezing : {false, true})
        for (const int code : {0, 1, 2}) {
            constexpr float share[2][3] = {{1.0f, 0.75f, 0.5f}, {0.8f, 0.45f, 0.1f}};
            con.sl_T_cel = freezing ? -5.0f : 5.0f;
            atm.rway_fric_code = code;
            stand(locked, surface_asphalt);
            EXPECT_NEAR(grip_at(10.0f) / dry, share[freezing][code], 0.03f) << freezing << code;
            stand(rolling, surface_asphalt);
            EXPECT_NEAR(grip_at(10.0f, 1.0f), veh[0].roll_co + 0.001f * veh[0].m_max / f.m_total, 0.002f);
        }
}

TEST_F(surface_contact, hydroplanes_above_a_speed_of_its_tyres) {
    atm.rway_fric_code = 2;
    constexpr float limit = 11.6f;  // m/s, by a million Pa
    for (const int kind : {surface_concrete, surface_lakebed})
        for (const float speed : {limit - 0.3f, limit + 0.6f}) {
            stand(locked, kind);
            veh[0].tire_s_contact = f.m_total * con.g / 1e6f;
            const float grip = 0.5f * 0.7f * veh[0].brake_co * (kind == surface_lakebed ? 0.75f : 1.0f);
            const bool swims = speed > limit && kind != surface_lakebed;
            EXPECT_NEAR(grip_at(speed), swims ? 0.0035f : grip, 0.05f * grip) << kind << ' ' << speed;
        }
}

// -- one point

class one_place : public surface_contact {
protected:
    // Pressed into the ground with a kilonewton, at a rate of m/s and a slide of m/s.
    int touch(float rate, float slide) {
        f.fside_gear_acf = f.fnrml_gear_acf = f.faxil_gear_acf = 0.0f;
        f.vx = slide, f.vy = -rate, f.vz = 0.0f;
        f.Prad = f.Qrad = f.Rrad = 0.0f;
        const auto x = static_cast<float>(f.dob_x), z = static_cast<float>(f.dob_z);
        const auto depth =
            static_cast<float>(f.dob_y) - return_terrain_y(x, z, checker_part_first + 60) + 0.01f;
        float straight = 0.0f;
        return handle_contact_point({.en = 60,
                                     .is_tire = 0,
                                     .x_veh = 0.0f,
                                     .y_veh = -depth,
                                     .z_veh = 0.0f,
                                     .fco_roll = 0.5f,
                                     .fco_stat = 0.5f,
                                     .fco_kine = 0.5f,
                                     .spr_con = 1e5f,
                                     .spr_dmp = 0.0f,
                                     .tire_steer = &straight,
                                     .castors = 0});
    }
};

// Bands of two metres about the origin, about half of them dry, the same whenever they are asked.
TEST_F(one_place, finds_a_patchy_runway_wet_in_bands) {
    atm.rway_patchy = 1;
    for (const int code : {0, 1, 2}) {
        atm.rway_fric_code = code;
        int wet = 0;
        for (int band = 20; band < 420; ++band) {
            float grip[4];
            for (int i = 0; i < 4; ++i) {
                const double radius = 2.0 * band + 0.1 + 0.6 * i;
                f.dob_x = 0.6 * radius, f.dob_z = -0.8 * radius;
                touch(0.0f, 3.0f);
                grip[i] = -f.fside_gear_acf / f.fnrml_gear_acf / 0.5f;
            }
            for (const float g : grip) EXPECT_NEAR(g, grip[0], 1e-3f) << band;
            const bool is_wet = grip[0] < 0.9f;
            EXPECT_NEAR(grip[0], is_wet ? 1.0f - 0.25f * static_cast<float>(code) : 1.0f, 2e-3f);
            wet += is_wet;
        }
        EXPECT_NEAR(wet, code ? 200 : 0, code ? 40 : 0);
    }
}

TEST_F(one_place, sounds_its_bump_by_the_rate) {
    static int heard;
    seam.play_sound = [](int slot, float, float) { heard = slot; };
    const struct {
        float rate;
        int sound;
    } rows[] = {{-3.0f, 0}, {0.9f, 0},  {1.1f, 41}, {1.9f, 41},
                {2.1f, 42}, {3.1f, 43}, {3.9f, 43}, {40.0f, 44}};
    for (const auto& row : rows) {
        heard = 0;
        touch(row.rate, 0.0f);
        EXPECT_EQ(heard, row.sound) << row.rate;
    }
}

// -- what bears above the terrain

TEST_F(surface_contact, stands_on_roofs_and_on_the_terrain_of_the_network) {
    const auto x = static_cast<float>(f.dob_x), z = static_cast<float>(f.dob_z);
    for (const bool of_network : {false, true}) {
        init_flt_0(start_airport, place_runway);
        const float top = f.terrain_y_cg + 30.0f;
        f.dob_y += 30.0;
        find_surface = [=] {
            env.surf_tex = surface_hard_object;
            if (of_network) {
                net.getting_terrain = 1;
                const float to[2][3] = {{x + 100.0f, top - 2.0f, z}, {0.02f, sqrtf(1.0f - 0.0004f), 0.0f}};
                std::copy(to[0], to[0] + 3, env.terrain_ctr), std::copy(to[1], to[1] + 3, env.terrain_nrm);
            } else {
                env.over_obs_last = 1;
                env.obj_y_top = top;
            }
        };
        run(20.0f);
        EXPECT_NEAR(f.dob_y, top + veh[0].h_eqlbm, 0.03) << of_network;
        EXPECT_LT(f.V_msc, 0.02f) << of_network;
        EXPECT_EQ(f.onground_all, 1);
        net.getting_terrain = 0;
    }
}

// A ship in a swell of half a metre, that turns to the right as it does before a coast.
struct ship_struct {
    int s;
    double x, z;
    float turn = 0.0f, time = 0.0f;

    void step() {
        const bool big = s == ship_carrier;
        const float v = big ? carr_v : frig_v, rate = big ? 0.7f : 1.5f;  // rad/s
        const float roll = big ? 0.75f : 1.5f, pitch = big ? 0.25f : 0.75f;
        time += frame;
        env.over_carr = big, env.over_frig = !big;
        env.surf_tex = surface_hard_object;
        env.boat_vpsi[s] = turn;
        env.boat_psi[s] += turn * frame;
        env.boat_phi[s] = roll * sinf(rate * time), env.boat_vphi[s] = roll * rate * cosf(rate * time);
        env.boat_the[s] = pitch * sinf(rate * time), env.boat_vthe[s] = pitch * rate * cosf(rate * time);
        x += static_cast<double>(v * sin_deg(env.boat_psi[s]) * frame);
        z -= static_cast<double>(v * cos_deg(env.boat_psi[s]) * frame);
        env.boat_x[s] = static_cast<float>(x), env.boat_z[s] = static_cast<float>(z);
        env.boat_y[s] = 100.0f;
    }
    // The aircraft in the ship's axes, m, and its heading against the ship's.
    std::array<float, 4> aircraft() const {
        const float s_psi = sin_deg(env.boat_psi[s]), c_psi = cos_deg(env.boat_psi[s]);
        const auto dx = static_cast<float>(flt[0].dob_x - x), dz = static_cast<float>(flt[0].dob_z - z);
        return {dx * c_psi + dz * s_psi, dz * c_psi - dx * s_psi,
                static_cast<float>(flt[0].dob_y) - env.boat_y[s],
                fltwrap(flt[0].psi - env.boat_psi[s], -180.0f, 180.0f)};
    }
};

TEST_F(surface_contact, rides_the_deck_of_a_ship) {
    for (const int s : {ship_carrier, ship_frigate}) {
        init_flt_0(start_airport, place_runway);
        const bool big = s == ship_carrier;
        const float right = 8.0f, aft = 30.0f, v = big ? carr_v : frig_v;
        ship_struct ship = {s, f.dob_x, f.dob_z};
        env.boat_psi[s] = 30.0f;
        f.psi = 30.0f;
        init_quaternion(f.psi, f.the, f.phi, f.q);
        const float s_psi = sin_deg(f.psi), c_psi = cos_deg(f.psi);
        f.dob_x += static_cast<double>(right * c_psi - aft * s_psi);
        f.dob_z += static_cast<double>(right * s_psi + aft * c_psi);
        const float height = (big ? carr_height : frig_height) + veh[0].h_eqlbm;
        f.dob_y = 100.0f + height;
        f.vx = v * s_psi, f.vz = -v * c_psi;
        find_surface = [&] { ship.step(); };
        for (const float turn : {0.0f, 3.0f}) {
            ship.turn = turn;
            run(5.0f);
            const std::array<float, 4> before = ship.aircraft();
            run(turn > 0.0f ? 10.0f : 30.0f);
            const std::array<float, 4> after = ship.aircraft();
            const float lean = after[0] * sin_deg(env.boat_phi[s]) + after[1] * sin_deg(env.boat_the[s]);
            // tyres grip by sliding a little, more so where the deck sways under them
            EXPECT_NEAR(after[0], before[0], turn > 0.0f ? 5.0f : 2.0f) << s;
            EXPECT_NEAR(after[1], before[1], 0.5f) << s;
            EXPECT_NEAR(after[2], height - lean, 0.1f) << s;
            EXPECT_NEAR(after[3], before[3], turn > 0.0f ? 5.0f : 1.0f) << s;
        }
    }
}
}  // namespace
