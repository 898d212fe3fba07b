// Shafts and discs one at a time: held at a speed in a given air, or driven by a given torque.
#include "flight/power/disc.h"

#include <math.h>

#include <utility>

#include "aircraft/deflect.h"
#include "aircraft/design/location.h"
#include "app/lab/lab_steady.h"
#include "core/craft/engn_kinds.h"
#include "core/math/axes.h"
#include "core/math/num.h"
#include "flight/air/elements.h"
#include "flight/power/engine_control.h"
#include "flight/power/shafts.h"
#include "flying.h"

namespace {
struct sums {
    float L, M, N, side, nrml, axil;
};

class disc : public ::testing::Test {
protected:
    static constexpr float step = 1.0f / 80.0f;  // s
    test::fp_traps traps;
    flt_struct& f = flt[0];
    veh_struct& v = veh[0];
    flt_engn_struct& e = flt[0].engn[0];

    void fly(const char* name) {
        test::fly_aircraft(name);
        move(0.0f);
        mnw.prd_FM = step;
    }
    // Level attitude, moving north and up.
    void move(float ahead, float up = 0.0f, float altitude = 1000.0f) {
        lab_place_moving({.speed = pythag(ahead, up), .altitude = altitude, .gamma = atan2_deg(up, ahead)},
                         0.0f, 0.0f);
        update_def_angles(0);
    }
    // With what a half step does before and after.
    template <class call>
    sums pass(call&& run) {
        f.L = f.M = f.N = f.fside_prop_acf = f.fnrml_prop_acf = f.faxil_prop_acf = 0.0f;
        aero_ground_effect();
        run();
        aero_spanwise_load();
        return {f.L, f.M, f.N, f.fside_prop_acf, f.fnrml_prop_acf, f.faxil_prop_acf};
    }
    sums turn(int en) {
        return pass([en] { do_a_prop(en); });
    }
    // One disc at a held speed until its inflow has settled.
    sums settle(int en, float omega, float seconds = 12.0f) {
        sums s{};
        for (float t = 0.0f; t < seconds; t += step) {
            flt[0].engn[en].tacrad_PROP = omega;
            s = turn(en);
        }
        return s;
    }
    void no_air() { con.lcl_r_met = 0.0f; }
    void tilt(float vert, float side) {
        e.vert_disc_cyclic = vert;
        e.side_disc_cyclic = side;
    }
};

// -- momentum
TEST_F(disc, inflow_comes_to_rest_where_momentum_says) {
    fly("Wren 160");
    const float rho = con.lcl_r_met, area = 3.0f;
    for (const float V : {0.0f, 5.0f, 30.0f, 90.0f})
        for (const float thrust : {3000.0f, -300.0f}) {
            // the whole added speed counts: T = rho S (V + dv) dv
            const float under_root = 0.25f * V * V + thrust / (rho * area);
            if (under_root < 1.0f) continue;
            float dv = 0.0f;
            for (int i = 0; i < 2000; ++i) dv = get_dv_total(dv, thrust, area, V);
            EXPECT_NEAR(dv, -0.5f * V + sqrtf(under_root), 0.01f) << thrust << " N, " << V;
        }
    // without thrust it dies away within a second's lag
    float dv = 10.0f;
    for (int i = 0; i < 80; ++i) dv = get_dv_total(dv, 0.0f, area, 40.0f);
    EXPECT_NEAR(dv, 10.0f / expf(1.0f), 0.05f);
}

TEST_F(disc, the_downgoing_blade_pulls_harder_and_gyroscopes_answer_in_their_senses) {
    fly("Wren 160");
    for (const float dir : {1.0f, -1.0f}) {
        v.engn[0].prop_dir = dir;
        lab_place({.speed = 45.0f, .alpha = 8.0f});
        const sums s = settle(0, 240.0f);
        EXPECT_LT(s.N * dir, -0.01f * e.thrust) << "clockwise pulls the nose left";
        EXPECT_LT(fabsf(s.L), 1e-3f * e.thrust);
    }
    no_air();
    e.tacrad_PROP = 200.0f;
    const float h = v.engn[0].mi_prop_rpm * 200.0f;
    for (const float dir : {1.0f, -1.0f}) {
        v.engn[0].prop_dir = dir;
        struct {
            const char* turn;
            float P, Q, R, M, N;  // rad/s; moments over those of the disc, about its own axis none
        } turns[] = {{"yaw right", 0.0f, 0.0f, 0.3f, dir * 0.3f, -0.3f},
                     {"pitch up", 0.0f, 0.3f, 0.0f, -0.3f, -dir * 0.3f},
                     {"roll", 1.0f, 0.0f, 0.0f, 0.0f, 0.0f}};
        for (const auto& t : turns) {
            f.Prad = t.P, f.Qrad = t.Q, f.Rrad = t.R;
            const sums s = turn(0);
            EXPECT_NEAR(s.M, t.M * h, 1e-3f * h) << t.turn;
            EXPECT_NEAR(s.N, t.N * h, 1e-3f * h) << t.turn;
            EXPECT_NEAR(s.L, 0.0f, 1e-3f * h) << t.turn;
        }
    }
}

// -- shafts
TEST_F(disc, torque_reacts_on_the_airframe_about_the_axis_of_the_disc) {
    fly("Wren 160");
    struct {
        float vert, side;
        float sums::*moment;
        float sense;  // of a disc that turns clockwise seen from behind
    } cases[] = {{0.0f, 0.0f, &sums::L, -1.0f}, {90.0f, 0.0f, &sums::N, 1.0f}, {0.0f, 90.0f, &sums::M, 1.0f}};
    for (const auto& c : cases)
        for (const float dir : {1.0f, -1.0f}) {
            v.engn[0].prop_dir = dir;
            no_air();
            tilt(c.vert, c.side);
            e.tacrad_ENGN = e.tacrad_PROP = 150.0f;
            e.TRQ_nm = 300.0f;
            e.drag_TRQ = 0.0f;
            const sums s = pass(do_all_props);
            // what the disc gains in angular momentum the airframe loses
            const float gain = v.engn[0].mi_prop_rpm * (e.tacrad_PROP - 150.0f) / step;
            EXPECT_GT(gain, 250.0f);
            EXPECT_NEAR(s.*c.moment, c.sense * dir * gain, 0.5f) << c.vert << ' ' << c.side << ' ' << dir;
            EXPECT_NEAR(fabsf(s.L) + fabsf(s.M) + fabsf(s.N), gain, 1.0f) << "about this axis alone";
        }
}

TEST_F(disc, linked_shafts_keep_their_gears_and_their_energy) {
    fly("Plover 420");
    v.trans_loss = 0.0f;
    const float gear0 = v.engn[0].prop_gear_rat, gear1 = v.engn[1].prop_gear_rat;
    const auto run = [&](float TRQ) {
        e.tacrad_ENGN = e.tacrad_PROP * gear0;
        e.TRQ_nm = TRQ;
        pass(do_all_props);
    };
    e.tacrad_PROP = 30.0f;
    f.engn[1].tacrad_PROP = 10.0f;  // it is brought into step at once
    run(700.0f);
    EXPECT_NEAR(e.tacrad_PROP * gear0, f.engn[1].tacrad_PROP * gear1, 0.01f);
    no_air();
    run(0.0f);
    const auto energy = [&] {
        float sum = 0.0f;
        for (int en : {0, 1}) sum += 0.5f * v.engn[en].mi_prop_rpm * sqr(f.engn[en].tacrad_PROP);
        return sum;
    };
    const float before = energy(), omega = e.tacrad_PROP;
    run(600.0f);
    const float work = 600.0f * 0.5f * (omega + e.tacrad_PROP) * gear0 * step;
    EXPECT_NEAR(energy() - before, work, 0.01f * work);
}

TEST_F(disc, pre_rotation_takes_from_the_shaft_what_it_gives_to_the_rotor) {
    fly("Plover 420");
    v.has_pre_rotate = 1;
    v.trans_loss = 0.0f;
    // the first disc tells the speed of the shaft: make that the driven one
    std::swap(v.engn[0].prop_type, v.engn[1].prop_type);
    const float gear0 = v.engn[0].prop_gear_rat, gear1 = v.engn[1].prop_gear_rat;
    stg.pre_rotating = 1;
    no_air();
    e.TRQ_nm = e.drag_TRQ = f.engn[1].drag_TRQ = 0.0f;
    for (const int level : {0, 1}) {
        stg.pre_rotate_level = level;
        e.tacrad_PROP = 30.0f;
        e.tacrad_ENGN = 30.0f * gear0;
        f.engn[1].tacrad_PROP = 1.0f;
        pass(do_all_props);
        // angular momentum as seen at the engine
        const float gained = v.engn[1].mi_prop_rpm * (f.engn[1].tacrad_PROP - 1.0f) / gear1;
        const float lost = v.engn[0].mi_prop_rpm * (30.0f - e.tacrad_PROP) / gear0;
        EXPECT_NEAR(gained, (level ? 1.5f : 0.5f) * v.trq_max_eng * step, 0.01f * gained);
        EXPECT_NEAR(gained, lost, 0.02f * gained);
    }
}

// -- what befalls a disc
TEST_F(disc, a_disc_hidden_at_ninety_degrees_is_not_there) {
    fly("Wren 160");
    v.hide_prop_at_90_vect = 1;
    e.vert_disc_vector = e.vert_disc_cyclic = 90.0f;
    e.tacrad_PROP = 200.0f;
    const sums hidden = pass(do_all_props);
    EXPECT_EQ(fabsf(hidden.L) + fabsf(hidden.M) + fabsf(hidden.N) + fabsf(hidden.nrml), 0.0f);
    EXPECT_EQ(e.tacrad_PROP, 200.0f) << "and keeps its state";
    e.vert_disc_vector = 89.0f;
    EXPECT_GT(pass(do_all_props).nrml, 100.0f);
}
}  // namespace
