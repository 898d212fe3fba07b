// The aircraft of the content on dry land, against what a page of mechanics says of springs, brakes and tyres.
#include "flight/ground/contact.h"

#include <math.h>

#include "aircraft/design/exists.h"
#include "aircraft/design/location.h"
#include "core/math/axes.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/upward.h"
#include "flight/ground/contact_point.h"
#include "flying.h"
#include "random_aircraft.h"
#include "scenery/ground/surfaces.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/ground/tile.h"

namespace {
constexpr float frame = 1.0f / 64.0f;
int surf_tex = surface_asphalt;

// The surface is known anew in each frame.
void run(float seconds, float dt = frame) {
    const int frames = static_cast<int>(lroundf(seconds / dt));
    for (int i = 0; i < frames; ++i) {
        env.surf_tex = surf_tex;
        lab_frame(dt);
    }
}

// -- standing and rolling

// On level dry ground, with the brake set. Plain ground has bumps.
void stand(const std::string& name, int running = 0, int on = surface_asphalt) {
    surf_tex = on;
    test::fly_aircraft(name);
    stg.start_running = running;
    init_flt_0(start_airport, place_runway);
    if (surf_tex != surface_plain) run(5.0f);
}

void move_at(float speed, float drift = 0.0f) {
    flt_struct& f = flt[0];
    f.vx = speed * sin_deg(f.psi + drift);
    f.vz = -speed * cos_deg(f.psi + drift);
    f.V_msc = fabsf(speed);
    for (int en = 0; en < gearDIM; ++en)
        if (has_this_gear(0, en) && veh[0].gear[en].gear_type != gear_skid)
            f.gear[en].tire_omega = speed * cos_deg(drift) / veh[0].gear[en].tire_radius;
}

// Ahead, brakes off.
void roll(const std::string& name, float speed) {
    stand(name);
    stg.parkbrake = 0.0f;
    move_at(speed);
}

struct place {
    double x, y, z;
};
place here() { return {flt[0].dob_x, flt[0].dob_y, flt[0].dob_z}; }
float way(const place& from) {
    const place to = here();
    return static_cast<float>(hypot(to.x - from.x, to.z - from.z));
}

// Way to a stop, m.
float stop() {
    constexpr float stopped = 0.1f;  // m/s
    const place from = here();
    for (int i = 0; i < 64 * 120 && flt[0].V_msc > stopped; ++i) run(frame);
    EXPECT_LT(flt[0].V_msc, stopped);
    return way(from);
}

// Of the point of the aircraft that moves fastest, m/s: its reach is half its size.
float fastest_point() {
    const flt_struct& f = flt[0];
    return pythag(f.vx, f.vy, f.vz) + 0.5f * veh[0].size_tot * pythag(f.Prad, f.Qrad, f.Rrad);
}

bool is_wheel(int en) { return has_this_gear(0, en) && veh[0].gear[en].gear_type != gear_skid; }
int last_leg(bool steers) {
    int found = -1;
    for (int en = 0; en < gearDIM; ++en)
        if (has_this_gear(0, en) && !veh[0].gear[en].steers == !steers) found = en;
    return found;
}
const veh_gear_struct& main_leg() { return veh[0].gear[last_leg(false)]; }
const veh_gear_struct& nose_leg() { return veh[0].gear[last_leg(true)]; }

class every_aircraft : public ::testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(content, every_aircraft, ::testing::ValuesIn(test::aircraft_names()),
                         [](const auto& info) { return info.param.substr(0, 4); });

// Those that steer and brake.
class every_tricycle : public every_aircraft {
protected:
    void SetUp() override {
        stand(GetParam());
        if (last_leg(true) < 0) GTEST_SKIP() << "does not steer";
    }
};
INSTANTIATE_TEST_SUITE_P(content, every_tricycle, ::testing::ValuesIn(test::aircraft_names()),
                         [](const auto& info) { return info.param.substr(0, 4); });

// Pushed on a wing to begin with: a glider would balance on its wheel for ten seconds.
TEST_P(every_aircraft, stands_still_for_ten_minutes) {
    for (const float dt : {1.0f / 20.0f, 1.0f / 64.0f, 1.0f / 100.0f}) {
        stand(GetParam(), 0, surface_plain);
        const place at = here();
        flt[0].P = 5.0f;
        run(10.0f, dt);
        float fastest = 0.0f;
        for (int quarter = 0; quarter < 590 * 4; ++quarter) {
            run(0.25f, dt);
            fastest = fltmax2(fastest, fastest_point());
        }
        EXPECT_LT(way(at), 0.3f) << dt;
        EXPECT_LT(fabs(here().y - at.y), 0.3) << dt;
        EXPECT_LT(fastest, 0.005f) << dt;
    }
}

// -- brakes

// The torque fades below four radians a second, so that some creep is left.
TEST_P(every_tricycle, creeps_against_its_brakes_no_faster_than_they_fade) {
    stand(GetParam(), 1);
    run(20.0f);
    const float thrust = -flt[0].faxil_prop_acf;
    const float most = 4.0f * main_leg().tire_radius * thrust / (veh[0].m_max * con.g);
    printf("%s thrust %.0f creep %.4f most %.4f\n", GetParam().c_str(), thrust, flt[0].V_msc, most);
    EXPECT_GT(thrust, 10.0f);
    EXPECT_LT(flt[0].V_msc, most);
}

TEST_P(every_tricycle, stops_at_a_quarter_brake) {
    constexpr float speed = 12.0f;
    move_at(speed);
    stg.parkbrake = 0.25f;
    const float a = con.g * (0.25f * veh[0].m_max / flt[0].m_total + veh[0].roll_co);
    const float expected = speed * speed / (2.0f * a);
    float skid = 0.0f;
    const place from = here();
    while (flt[0].V_msc > 0.1f) {
        run(frame);
        for (const flt_gear_struct& g : flt[0].gear) skid = fltmax2(skid, g.tire_skid_rat);
    }
    printf("%s way %.2f expected %.2f skid %.2f\n", GetParam().c_str(), way(from), expected, skid);
    EXPECT_NEAR(way(from), expected, 0.15f * expected);
    EXPECT_EQ(skid, 0.0f);
}

// A cart of one axis: the braked wheels turn for themselves, and the road gives them no more than their load grips.
float full_stop_of_a_cart(float speed) {
    const veh_gear_struct &wheel = main_leg(), &nose = nose_leg();
    const float r = wheel.tire_radius, m = flt[0].m_total;
    const float height = static_cast<float>(flt[0].dob_y) - flt[0].terrain_y_cg;
    const float base = wheel.z_nodef - nose.z_nodef;
    int wheels = 0;
    for (int en = 0; en < gearDIM; ++en) wheels += has_this_gear(0, en) && !veh[0].gear[en].steers;
    const float I = wheel.tire_mi * wheels, torque_max = veh[0].m_max * con.g * r;
    constexpr double dt = 1e-4;
    double v = speed, omega = speed / r, way = 0.0, a = 0.0;
    while (v > 0.1) {
        const double load = m * (con.g * -nose.z_nodef - a * height) / base;
        const double slide = v - omega * r;
        const double grip = load * veh[0].brake_co * (slide > 0.05 ? 0.7 : 1.0);
        const double eased = omega > 8.0 ? fmin(fmax(1.0 - 2.0 * slide, 0.25), 1.0) : 1.0;
        const double torque = torque_max * eased * fmin(omega / 4.0, 1.0);
        a = (fmin(torque / r, grip) + veh[0].roll_co * m * con.g) / m;
        const double road = fmin(fmax(torque + (v / r - omega) * I / dt, -grip * r), grip * r);
        omega = fmin(fmax(omega + (road - torque) / I * dt, 0.0), v / r);
        v -= a * dt;
        way += v * dt;
    }
    return static_cast<float>(way);
}

TEST_P(every_tricycle, stops_at_full_brake_as_a_cart_does) {
    constexpr float speed = 20.0f;
    const float expected = full_stop_of_a_cart(speed);
    move_at(speed);
    stg.parkbrake = 1.0f;
    const float is = stop();
    printf("%s way %.2f expected %.2f mean %.2f g\n", GetParam().c_str(), is, expected, speed * speed / 2 / is / con.g);
    EXPECT_NEAR(is, expected, 0.15f * expected);
}

// Backwards too.
TEST_P(every_tricycle, is_braked_backwards) {
    move_at(-3.0f);
    stg.parkbrake = 0.25f;
    EXPECT_LT(stop(), 5.0f);
}

// The hand brake lets the wheels turn above lock; pedals do not, and grind a hole into the tyre that bursts it.
TEST_P(every_tricycle, keeps_its_wheels_from_locking_until_the_pedals_are_stamped_on) {
    const int en = last_leg(false);
    veh[0].brake_co = 0.15f;
    for (const bool pedals : {false, true}) {
        stand(GetParam());
        veh[0].brake_co = 0.15f;
        move_at(25.0f);
        stg.parkbrake = pedals ? 0.0f : 1.0f;
        float slowest = 1.0f;
        for (int i = 0; i < 64 * 30 && flt[0].V_msc > 5.0f; ++i) {
            stg.l_brake_add = stg.r_brake_add = pedals;
            run(frame);
            slowest = fltmin2(slowest, flt[0].gear[en].tire_omega * main_leg().tire_radius / flt[0].V_msc);
        }
        printf("%s pedals %d slowest %.3f drag_dis %.1f\n", GetParam().c_str(), pedals, slowest, flt[0].gear[en].tire_drag_dis);
        EXPECT_EQ(slowest < 0.1f, pedals);
        EXPECT_EQ(part_failed(0, fail_tire + en) != 0, pedals);
    }
}

// The excess over the level's deceleration, twentyfold, is taken off full brakes.
TEST_P(every_tricycle, holds_the_deceleration_of_its_automatic_brakes) {
    constexpr float max_g[] = {0.125f, 0.155f, 0.225f, 0.4f};
    for (int level = 2; level <= 5; ++level) {
        stand(GetParam());
        veh[0].fbrk_on_td_EQ = 1;
        stg.auto_brake_lvl = level;
        move_at(30.0f);
        stg.parkbrake = 1.0f;
        run(1.0f);
        const float speed = flt[0].V_msc;
        run(1.0f);
        const float mean = (speed - flt[0].V_msc) / con.g;
        const float full = veh[0].m_max / flt[0].m_total;
        const float drag = flt[0].faxil_aero_acf / (flt[0].m_total * con.g) + veh[0].roll_co;
        const float expected = (full * (1.0f + 20.0f * max_g[level - 2]) + drag) / (1.0f + 20.0f * full);
        printf("%s level %d g %.4f mean %.4f expected %.4f V %.1f\n", GetParam().c_str(), level, flt[0].g_axil, mean, expected, flt[0].V_msc);
        EXPECT_NEAR(mean, expected, 0.1f * expected);
    }
}

// -- steering

TEST_P(every_tricycle, turns_about_the_radius_of_its_wheelbase) {
    mnw.eq_ped_nobrk = 1;
    constexpr float steer = 8.0f, speed = 7.0f;
    mnw.YK_hdng = steer / veh[0].nw_steerdeg1;
    const float expected = (main_leg().z_nodef - nose_leg().z_nodef) / tan_deg(steer);
    move_at(speed);
    stg.parkbrake = 0.0f;
    run(1.0f);
    const place from = here();
    const float psi = flt[0].psi;
    run(1.0f);
    const float turned = fltwrap(flt[0].psi - psi, -180.0f, 180.0f);
    const float radius = way(from) / (2.0f * sin_deg(0.5f * turned));
    printf("%s radius %.2f expected %.2f V %.2f turned %.1f\n", GetParam().c_str(), radius, expected, flt[0].V_msc, turned);
    mnw.YK_hdng = 0.0f;
    EXPECT_NEAR(radius, expected, 0.15f * expected);
}

// Largest change of heading in some seconds after a little drift, degrees.
float swing_of(float speed) {
    stg.parkbrake = 0.0f;
    move_at(speed, 3.0f);
    const float psi = flt[0].psi;
    float most = 0.0f;
    for (int i = 0; i < 64 * 5; ++i) {
        run(frame);
        most = fltmax2(most, fabsf(fltwrap(flt[0].psi - psi, -180.0f, 180.0f)));
    }
    return most;
}

// Main wheels ahead of the centre of gravity with a free tail wheel swing round; behind it they trail.
TEST(layout, ground_loops_on_main_wheels_ahead_of_the_centre_alone) {
    const auto swing = [](bool tail_wheel, int steered) {
        test::fly_aircraft("Wren 160");
        if (tail_wheel)
            for (veh_gear_struct& g : veh[0].gear)
                if (g.gear_type) g.gear_z = g.steers ? 4.5f : -0.4f;
        stg.nw_steering = steered;
        stg.start_running = 0;
        init_flt_0(start_airport, place_runway);
        surf_tex = surface_asphalt;
        run(8.0f);
        printf("the %.1f phi %.1f y %.2f", flt[0].the, flt[0].phi, flt[0].y_agl_mtr);
        for (int en = 0; en < 3; ++en) printf(" leg %d z %.2f def %.3f ", en, veh[0].gear[en].z_nodef, flt[0].gear[en].tire_vrt_def_veh);
        printf("\n");
        return swing_of(12.0f);
    };
    const float a = swing(false, 1), b = swing(false, 0), c = swing(true, 0), d = swing(true, 1);
    stg.nw_steering = 1;
    printf("tricycle %.1f castoring %.1f tail free %.1f tail locked %.1f\n", a, b, c, d);
    EXPECT_LT(a, 10.0f);
    EXPECT_LT(b, 10.0f);
    EXPECT_GT(c, 45.0f);
}

TEST(debug, trace) {
    stand("Wren 160");
    printf("m %.1f mmax %.1f r %.3f mi %.3f zn %.2f zm %.2f h %.2f bco %.2f\n", flt[0].m_total, veh[0].m_max, main_leg().tire_radius, main_leg().tire_mi, nose_leg().z_nodef, main_leg().z_nodef, flt[0].dob_y - flt[0].terrain_y_cg, veh[0].brake_co);
    move_at(20.0f);
    stg.parkbrake = 1.0f;
    for (int i = 0; i < 160; ++i) {
        run(frame);
        const flt_struct& f = flt[0];
        if (i > 40 && i % 10 > 2) continue;
        printf("%3d V %.2f rim %.2f %.2f %.2f N %.0f %.0f %.0f fz %.0f aero n %.0f a %.0f the %.2f g %.3f trq %.0f tex %d fric %d T %.1f\n", i, f.V_msc, f.gear[0].tire_omega*veh[0].gear[0].tire_radius, f.gear[1].tire_omega * main_leg().tire_radius, f.gear[2].tire_omega * main_leg().tire_radius, f.gear[0].tire_vrt_frc_veh, f.gear[1].tire_vrt_frc_veh, f.gear[2].tire_vrt_frc_veh, f.faxil_gear_acf, f.fnrml_aero_acf, f.faxil_aero_acf, f.the, f.g_axil, f.gear[1].tire_TRQ, env.surf_tex, atm.rway_fric_code, con.lcl_T_cel);
    }
}
}  // namespace
