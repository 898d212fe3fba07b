// The aircraft of the content on dry land, against what a page of mechanics says of springs, brakes and
// tyres.
#include <math.h>

#include <algorithm>
#include <array>
#include <vector>

#include "aircraft/design/exists.h"
#include "aircraft/design/location.h"
#include "core/math/axes.h"
#include "core/math/num.h"
#include "core/program/upward.h"
#include "flight/ground/contact.h"
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
    return pythag(f.vx, f.vy, f.vz) + veh[0].size_x * pythag(f.Prad, f.Rrad) + veh[0].size_z * fabsf(f.Qrad);
}

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

// Pushed on a wing to begin with, and given two seconds for it: a glider would balance on its wheel for ten.
// At 20 frames a second what a tyre holds sideways lets go now and then, by half a millimetre.
TEST_P(every_aircraft, stands_still_for_ten_minutes) {
    for (const float dt : {1.0f / 20.0f, 1.0f / 64.0f, 1.0f / 100.0f}) {
        stand(GetParam(), 0, surface_plain);
        const place at = here();
        flt[0].P = 5.0f;
        run(12.0f, dt);
        float fastest = 0.0f;
        for (int quarter = 0; quarter < 590 * 4; ++quarter) {
            run(0.25f, dt);
            fastest = fltmax2(fastest, fastest_point());
        }
        EXPECT_LT(way(at), 0.3f) << dt;
        EXPECT_LT(fabs(here().y - at.y), 0.3) << dt;
        EXPECT_LT(fastest, dt > 0.04f ? 0.010f : 0.005f) << dt;
    }
}

// -- brakes

// The torque fades below four radians a second, so that some creep is left.
TEST_P(every_tricycle, creeps_against_its_brakes_no_faster_than_they_fade) {
    stand(GetParam(), 1);
    run(20.0f);
    const float thrust = -flt[0].faxil_prop_acf;
    const float most = 4.0f * main_leg().tire_radius * thrust / (veh[0].m_max * con.g);
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
    EXPECT_NEAR(way(from), expected, 0.15f * expected);
    EXPECT_EQ(skid, 0.0f);
}

// A cart of one axis: the braked wheels turn for themselves, and the road gives them no more than their load
// grips, less above a slide of a twentieth of a metre a second.
float full_stop_of_a_cart(float speed) {
    const veh_gear_struct& wheel = main_leg();
    const float ahead = -nose_leg().z_nodef, base = wheel.z_nodef + ahead;
    const float height = static_cast<float>(flt[0].dob_y) - flt[0].terrain_y_cg;
    const double r = wheel.tire_radius, weight = veh[0].m_max * con.g, m = flt[0].m_total;
    double wheels = 0.0;
    for (const veh_gear_struct& g : veh[0].gear) wheels += g.gear_type && !g.steers;
    constexpr double dt = 1e-3;
    double v = speed, omega = v / r, was = v / r, way = 0.0, a = 0.0;
    while (v > 0.1) {
        const double load = m * (con.g * ahead - a * height) / base / wheels;
        const double eased = omega > 8.0 ? std::clamp(1.0 - 2.0 * (was - omega) * r, 0.25, 1.0) : 1.0;
        const double torque = weight / wheels * r * eased * std::clamp(omega / 4.0, -1.0, 1.0);
        const double grip = load * veh[0].brake_co * (fabs(v - omega * r) > 0.05 ? 0.7 : 1.0);
        const double road = std::clamp((v / r - omega) * wheel.tire_mi / dt + torque, -grip * r, grip * r);
        const double braked = wheels * std::min(load * veh[0].roll_co + torque / r, grip);
        a = (braked + (m * con.g - wheels * load) * veh[0].roll_co) / m;
        omega = std::clamp(omega + (road - torque) / wheel.tire_mi * dt, 0.0, std::max(omega, v / r));
        was = v / r;
        v -= a * dt;
        way += v * dt;
    }
    return static_cast<float>(way);
}

TEST_P(every_tricycle, stops_at_full_brake_as_a_cart_does) {
    constexpr float speed = 15.0f;
    const float expected = full_stop_of_a_cart(speed);
    move_at(speed);
    stg.parkbrake = 1.0f;
    EXPECT_NEAR(stop(), expected, 0.15f * expected);
}

// Backwards too.
TEST_P(every_tricycle, is_braked_backwards) {
    move_at(-3.0f);
    stg.parkbrake = 0.25f;
    EXPECT_LT(stop(), 5.0f);
}

// The hand brake lets the wheels turn where pedals lock them, to grind a hole into the tyre that bursts it.
TEST_P(every_tricycle, keeps_its_wheels_from_locking_until_the_pedals_are_stamped_on) {
    const int en = last_leg(false);
    for (const bool pedals : {false, true}) {
        stand(GetParam());
        veh[0].brake_co = 0.3f;
        move_at(25.0f);
        stg.parkbrake = pedals ? 0.0f : 0.4f;
        stg.l_brake_add = stg.r_brake_add = pedals;
        float slowest = 1.0f;
        for (int i = 0; i < 64 * 30 && flt[0].V_msc > 10.0f; ++i) {
            run(frame);
            slowest = fltmin2(slowest, flt[0].gear[en].tire_omega * main_leg().tire_radius / flt[0].V_msc);
        }
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
        veh[0].brake_co = 1.2f;
        stg.auto_brake_lvl = level;
        move_at(25.0f);
        stg.parkbrake = 1.0f;
        run(2.0f);
        const float full = veh[0].m_max / flt[0].m_total;
        const float drag = flt[0].faxil_aero_acf / (flt[0].m_total * con.g) + veh[0].roll_co;
        const float expected = (full * (1.0f + 20.0f * max_g[level - 2]) + drag) / (1.0f + 20.0f * full);
        EXPECT_NEAR(flt[0].g_axil, expected, 0.03f * expected);
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
    mnw.YK_hdng = 0.0f;
    EXPECT_NEAR(radius, expected, 0.15f * expected);
}

// Main wheels ahead of the centre of gravity with a free tail wheel swing round; behind it they trail.
TEST(layout, ground_loops_on_main_wheels_ahead_of_the_centre_alone) {
    for (const auto& [tail_wheel, steered] :
         std::vector<std::array<bool, 2>>{{0, 1}, {0, 0}, {1, 1}, {1, 0}}) {
        test::fly_aircraft("Wren 160");
        for (veh_gear_struct& g : veh[0].gear)
            if (tail_wheel && g.gear_type) g.gear_z = g.steers ? 4.5f : -0.4f;
        stg.start_running = 0;
        init_flt_0(start_airport, place_runway);
        stg.nw_steering = steered;
        surf_tex = surface_asphalt;
        run(8.0f);
        stg.parkbrake = 0.0f;
        const float psi = flt[0].psi;
        move_at(12.0f, 3.0f);
        float swing = 0.0f;
        for (int i = 0; i < 64 * 5; ++i) {
            run(frame);
            swing = fltmax2(swing, fabsf(fltwrap(flt[0].psi - psi, -180.0f, 180.0f)));
        }
        if (tail_wheel && !steered)
            EXPECT_GT(swing, 40.0f);
        else
            EXPECT_LT(swing, 10.0f) << tail_wheel << steered;
    }
}

// -- slopes, metal, burst tyres

// The triangle under the aircraft rises to the east while this lives.
class slope {
public:
    explicit slope(float rise) : corners{ren.i_geo0[0], ren.i_geo1[0], ren.i_geo2[0]} {
        for (int i = 0; i < 3; ++i) {
            before[i] = *corners[i];
            corners[i]->y = flt[0].terrain_y_cg + rise * (corners[i]->x - static_cast<float>(flt[0].dob_x));
        }
    }
    ~slope() {
        for (int i = 0; i < 3; ++i) *corners[i] = before[i];
    }

private:
    d3_struct *corners[3], before[3];
};

TEST_P(every_tricycle, holds_across_a_slope_by_grip_and_slips_beyond) {
    constexpr float grip = 0.1f;
    for (const float rise : {0.4f * grip, 2.0f * grip}) {
        stand(GetParam());
        veh[0].brake_co = grip;
        flt[0].dob_x += 300.0, flt[0].dob_z += 200.0;  // away from the edges of triangles
        run(5.0f);
        const slope hill(rise);
        const float time = rise < grip ? 8.0f : 3.0f;
        run(time);
        if (rise < grip)
            EXPECT_LT(flt[0].V_msc, 0.05f);
        else
            EXPECT_NEAR(-flt[0].vx, time * con.g * (rise - 0.7f * grip), 0.1f * time * con.g * rise);
    }
}

TEST_P(every_aircraft, scrapes_to_a_stop_by_the_grip_of_metal) {
    constexpr float speed = 8.0f, metal = 0.4f, of_skids = 0.7f;  // skids slide like tyres
    stand(GetParam());
    const bool is_skids = has_this_gear(0, 0) && veh[0].gear[0].gear_type == gear_skid;
    if (!is_skids && !veh[0].gear_retract) GTEST_SKIP() << "the gear stays down";
    flt[0].gear_handle = is_skids;
    for (veh_gear_struct& g : veh[0].gear) g.dep_rat = is_skids;
    run(20.0f);
    move_at(speed);
    stg.parkbrake = 0.0f;
    const float expected = speed * speed / (2.0f * metal * (is_skids ? of_skids : 1.0f) * con.g);
    EXPECT_NEAR(stop(), expected, 0.15f * expected);
}

// The tip's spring holds what the wheel, not under the weight any more, leaves over.
TEST(layout, glider_leans_on_a_wing_tip) {
    stand("Lark 15");
    flt[0].P = 5.0f;
    run(15.0f);
    const flt_struct& f = flt[0];
    const int en = f.phi > 0.0f ? part_wing_first + 3 : part_wing_first + 2;
    const auto els = static_cast<float>(veh[0].wing[en].els);
    float x = get_el_base_loc(0, en, els, 'X'), y = get_el_base_loc(0, en, els, 'Y');
    float z = get_el_base_loc(0, en, els, 'Z');
    const veh_gear_struct& wheel = veh[0].gear[0];
    float wx = wheel.x_nodef, wy = wheel.y_nodef - wheel.tire_radius, wz = wheel.z_nodef;
    veh_to_wrl(x, y, z, &x, &y, &z, 0);
    veh_to_wrl(wx, wy, wz, &wx, &wy, &wz, 0);
    const float depth = f.terrain_y_cg - static_cast<float>(f.dob_y) - y;
    const float expected = f.m_total * con.g * wx / (wx - x);
    EXPECT_GT(fabsf(f.phi), 5.0f);
    EXPECT_NEAR(depth * veh[0].part[en].scon, expected, 0.1f * expected);
}

TEST_P(every_tricycle, limps_and_pulls_on_a_burst_tyre) {
    float shake[2], turned[2];
    for (const int burst : {0, 1}) {
        stand(GetParam());
        if (burst) flt[0].fail_stat[fail_tire + last_leg(false)] = fail_active;
        stg.parkbrake = 0.0f;
        move_at(12.0f);
        const float psi = flt[0].psi;
        run(1.0f);
        shake[burst] = 0.0f;
        for (int i = 0; i < 128; ++i) {
            run(frame);
            shake[burst] = fltmax2(shake[burst], fabsf(flt[0].g_nrml - 1.0f));
        }
        turned[burst] = fltwrap(flt[0].psi - psi, -180.0f, 180.0f);
    }
    EXPECT_GT(shake[1], 3.0f * shake[0]);
    EXPECT_GT(turned[1], turned[0] + 0.05f);
}

// -- one point

class one_point : public ::testing::Test {
protected:
    void SetUp() override {
        stand("Wren 160");
        env.surf_tex = surface_asphalt;
        flt[0].vx = flt[0].vy = flt[0].vz = flt[0].Prad = flt[0].Qrad = flt[0].Rrad = 0.0f;
    }
    // depth below the ground, where 0.1 m bears 10 kN; rolls with 0.02, grips with 0.5, slides with 0.3
    int touch(float depth, int is_tire = 0, int castors = 0) {
        flt_struct& f = flt[0];
        f.fside_gear_acf = f.fnrml_gear_acf = f.faxil_gear_acf = 0.0f;
        const auto height = static_cast<float>(f.dob_y) -
                            return_terrain_y(static_cast<float>(f.dob_x), static_cast<float>(f.dob_z), 69);
        return handle_contact_point({is_tire ? 0 : 56, is_tire, 0.0f, -height - depth, -0.01f, 0.02f, 0.5f,
                                     0.3f, 1e5f, 1e4f, &steer, castors});
    }
    float steer = 0.0f;
};

TEST_F(one_point, springs_damps_never_pulls_and_gives_way_at_four_times_the_weight) {
    const float most = 4.0f * veh[0].m_max * con.g;
    for (const auto& [depth, vy, force] : std::vector<std::array<float, 3>>{{0.1f, 0.0f, 1e4f},
                                                                            {0.1f, -1.0f, 2e4f},
                                                                            {0.1f, 3.0f, 0.0f},
                                                                            {2.0f, 0.0f, most},
                                                                            {-0.1f, -3.0f, 0.0f}}) {
        flt[0].vy = vy;
        EXPECT_EQ(touch(depth), depth > 0.0f);
        EXPECT_NEAR(flt[0].fnrml_gear_acf, force, 0.01f * force + 1.0f) << depth << ' ' << vy;
    }
}

// At two parts a metre a second, full at half a metre a second.
TEST_F(one_point, grips_until_it_slides) {
    for (const auto& [vx, force] : std::vector<std::array<float, 2>>{
             {0.2f, -2000.0f}, {-0.4f, 4000.0f}, {1.0f, -3000.0f}, {9.0f, -3000.0f}}) {
        flt[0].vx = vx;
        touch(0.1f);
        EXPECT_NEAR(flt[0].fside_gear_acf, force, 50.0f) << vx;
    }
}

TEST_F(one_point, trails_the_motion_and_bears_in_the_air_on_a_catapult) {
    flt[0].vx = 3.0f, flt[0].vz = -4.0f;
    touch(0.1f, 1, 1);
    EXPECT_NEAR(steer, 36.87f, 0.3f);
    EXPECT_NEAR(flt[0].fside_gear_acf, 0.0f, 20.0f);
    EXPECT_NEAR(flt[0].faxil_gear_acf, 0.8f * 200.0f, 20.0f);
    flt[0].vx = 0.03f, flt[0].vz = -0.04f;
    touch(0.1f, 1, 1);
    EXPECT_NEAR(steer, 0.5f * 36.87f, 0.3f);
    EXPECT_EQ(touch(-0.5f, 1, 1), 0);
    stg.cat_waiting = 1;
    EXPECT_EQ(touch(-0.5f, 1, 1), 1);
    EXPECT_EQ(flt[0].fnrml_gear_acf, 0.0f);
    stg.cat_waiting = 0;
}

// -- nonsense

// A sum passes on what is not.
bool is_finite() {
    const flt_struct& f = flt[0];
    double sum = f.dob_x + f.dob_y + f.dob_z;
    for (const float v : {f.vx, f.vy, f.vz, f.P, f.Q, f.R, f.q[0], f.q[1], f.q[2], f.q[3]}) sum += v;
    for (const flt_gear_struct& g : f.gear) sum += g.tire_omega + g.tire_steer + g.tire_rot_deg;
    return std::isfinite(sum);
}

TEST_P(every_aircraft, stays_finite_on_legs_that_are_none) {
    using test::any, test::whole;
    test::dice.seed(7);
    for (int round = 0; round < 40; ++round) {
        stand(GetParam(), 0, surface_gravel);
        const auto some = [&](float most) {
            return round % 4 == 0 || test::chance(0.3) ? 0.0f : any(0.0, most);
        };
        for (veh_gear_struct& g : veh[0].gear) {
            g.gear_type = whole(0, gear_kinds - 1), g.steers = whole(0, 1);
            g.scon = some(1e7f), g.damp = some(1e6f), g.tire_radius = some(2.0f), g.tire_mi = some(50.0f);
            g.leg_len = some(3.0f), g.strut_comp = some(1.0f);
            g.gear_x = any(-5.0, 5.0), g.gear_y = any(-3.0, 1.0), g.gear_z = any(-8.0, 8.0);
        }
        veh[0].nw_side_k = some(1e5f), veh[0].gear_steer_EN = whole(-3, 12), veh[0].fbrk_on_td_EQ = 1;
        stg.parkbrake = whole(0, 1), stg.l_brake_add = some(1.0f), stg.nw_steering = whole(0, 1);
        stg.auto_brake_lvl = whole(-1, 7);
        flt_struct& f = flt[0];
        f.vx = any(-60.0, 60.0), f.vy = any(-20.0, 5.0), f.vz = any(-60.0, 60.0);
        f.P = any(-90.0, 90.0), f.Q = any(-90.0, 90.0);
        run(2.0f, 1.0f / 40.0f);
        ASSERT_TRUE(is_finite()) << round;
    }
}
}  // namespace
