// One contact point, and the wheel behind it.
#include "flight/ground/contact_point.h"

#include <math.h>

#include "aircraft/design/exists.h"
#include "core/craft/veh.h"
#include "core/math/axes.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/records.h"
#include "flight/force/forces.h"
#include "flight/ground/contact_state.h"
#include "flight/ground/wheels.h"
#include "scenery/ground/terrain_query.h"
#include "sound/sound.h"
#include "weather/puffs.h"

namespace {
struct vector {
    float x, y, z;
};
vector to_veh(vector v) {
    wrl_to_veh(v.x, v.y, v.z, &v.x, &v.y, &v.z, 0);
    return v;
}
vector to_wrl(vector v) {
    veh_to_wrl(v.x, v.y, v.z, &v.x, &v.y, &v.z, 0);
    return v;
}

// How the point meets the surface.
struct touch_struct {
    vector at, speed;        // world frame, m and m/s; the speed over the surface
    vector nrm_veh;          // normal in aircraft axes
    float deflection, rate;  // m, m/s into the surface
    float force;             // N along the normal
    bool bears;
};

touch_struct meet_surface(const contact_point_struct& p) {
    const flt_struct& f = flt[0];
    touch_struct t = {};
    const vector arm = to_wrl({p.x_veh, p.y_veh, p.z_veh});
    t.at = {static_cast<float>(f.dob_x + arm.x), static_cast<float>(f.dob_y + arm.y),
            static_cast<float>(f.dob_z + arm.z)};
    const int checker = p.en + (p.is_tire ? checker_tire_first : checker_part_first);
    const float ground = return_terrain_y(t.at.x, t.at.z, checker);
    // in double: far from the region's centre a float's last place would be a force
    t.deflection = fltmax2(static_cast<float>(ground - (f.dob_y + arm.y)), 0.0f);
    t.bears = t.deflection > 0.0f;
    if (!t.bears && !p.is_tire) return t;  // most points of the airframe, at all times
    const vector turning = to_wrl({f.Prad * p.y_veh - f.Rrad * p.z_veh, -f.Prad * p.x_veh - f.Qrad * p.z_veh,
                                   f.Rrad * p.x_veh + f.Qrad * p.y_veh});
    t.speed = {f.vx + turning.x - env.terrain_vel[0], f.vy + turning.y - env.terrain_vel[1],
               f.vz + turning.z - env.terrain_vel[2]};
    const vector n = {env.terrain_nrm[0], env.terrain_nrm[1], env.terrain_nrm[2]};
    t.rate = t.bears ? -(t.speed.x * n.x + t.speed.y * n.y + t.speed.z * n.z) : 0.0f;
    // never pulls, and the structure gives way at four times the full weight
    t.force = fltlim(t.rate * p.spr_dmp + t.deflection * p.spr_con, 0.0f, 4.0f * veh[0].m_max * con.g);
    t.nrm_veh = to_veh(n);
    return t;
}

// -- friction

// A wet runway is wet in bands of two metres.
bool is_slick_at(const vector& at) {
    if (!atm.rway_patchy) return true;
    const int loc_code = intcut(0.5f * pythag(at.x, at.z));
    return flt_seedrand(0.0f, 1.0f, loc_code) >= 0.5f;
}

// Of water, snow and ice on it, by how wet the runway is. As given.
float weather_friction(const vector& at) {
    constexpr float above_freezing[3] = {1.0f, 0.75f, 0.5f}, freezing[3] = {0.8f, 0.45f, 0.1f};
    const int code = intlim(atm.rway_fric_code, 0, 2);
    if (code > 0 && !is_slick_at(at)) return 1.0f;
    return con.lcl_T_cel > 0.0f ? above_freezing[code] : freezing[code];
}

// How the road passes under the wheel, in its axes, m/s.
struct road_struct {
    float total_z = 0.0f, slide_x = 0.0f;
    float beta_road = 0.0f;  // degrees
    float gain = 0.0f;       // of slide speed to friction
    float weather = 0.0f;    // share of the dry friction
};

// What friction does about it, N in the wheel's axes.
struct slide_struct {
    float total_skid = 0.0f, total_fric_rat = 0.0f;
    float frc_max = 0.0f;  // what friction can bear
    float fx_tir = 0.0f, fz_tir = 0.0f;
};

bool changed_sign(float was, float is) { return was * is < 0.0f; }

// Friction grows with the slide, up to its limit; a tyre that flutters about zero has the slope taken back.
float anti_flutter_gain(const contact_point_struct& p, float slide_x, float slide_z) {
    constexpr float usual = 2.0f;
    if (!p.is_tire) return usual;
    contact_state_struct& c = contact_state;
    float& gain = c.gain[p.en];
    const bool flutters =
        changed_sign(c.o_slide_x_vel_tir[p.en], slide_x) || changed_sign(c.o_slide_z_vel_tir[p.en], slide_z);
    gain = fltlim(gain * (flutters ? 0.9f : 1.1f), 0.2f, 20.0f);
    return gain;
}

// The wheel trails the motion, and turns to it only when there is one.
float castor(const vector& v, float beta_road, float* tire_steer) {
    *tire_steer = -beta_road * fltlim(10.0f * pythag(v.x, v.z), 0.0f, 1.0f);
    return 0.0f;
}

float radius_of(const contact_point_struct& p) { return p.is_tire ? veh[0].gear[p.en].tire_radius : 0.2f; }
float rim_speed(const contact_point_struct& p) {
    return p.is_tire ? flt[0].gear[p.en].tire_omega * radius_of(p) : 0.0f;
}

road_struct meet_road(const contact_point_struct& p, const touch_struct& t) {
    const vector v = to_veh(t.speed);
    const float v_road = pythag(v.x, v.y, v.z);
    road_struct road;
    road.beta_road = atan2_deg(-v.x, -v.z);
    if (p.castors)
        road.beta_road = castor(v, road.beta_road, p.tire_steer);
    else
        road.beta_road += *p.tire_steer;
    road.total_z = cos_deg(road.beta_road) * v_road;
    road.slide_x = sin_deg(road.beta_road) * v_road;
    road.gain = anti_flutter_gain(p, road.slide_x, road.total_z - rim_speed(p));
    road.weather = weather_friction(t.at);
    return road;
}

constexpr float slides = 0.999f;  // total_fric_rat above which static friction is lost

// At the wheel's present speed and torque.
slide_struct find_friction(const contact_point_struct& p, const touch_struct& t, const road_struct& road) {
    const float slide_z = road.total_z - rim_speed(p);
    const float total_z_rat = fltlim(road.total_z * road.gain, -1.0f, 1.0f);
    const float slide_z_rat = fltlim(slide_z * road.gain, -1.0f, 1.0f);
    const float slide_x_rat = fltlim(road.slide_x * road.gain, -1.0f, 1.0f);
    slide_struct s;
    s.total_skid = pythag(road.slide_x, slide_z);
    s.total_fric_rat = fltlim(pythag(slide_x_rat, slide_z_rat), 0.0f, 1.0f);
    s.frc_max = t.force * (s.total_fric_rat > slides ? p.fco_kine : p.fco_stat) * road.weather;
    s.fx_tir = fltlim(s.frc_max * slide_x_rat, -s.frc_max, s.frc_max);
    const float trq = p.is_tire ? flt[0].gear[p.en].tire_TRQ : 0.0f;
    s.fz_tir = fltlim(t.force * p.fco_roll * total_z_rat - trq / fltmax2(radius_of(p), 0.01f), -s.frc_max,
                      s.frc_max);
    return s;
}

// -- the wheel

// From one side of a mark to the other, by more than rounding; both counted from it, in rad/s.
bool jumped_across(float before, float after) {
    constexpr float least = 0.01f;
    return (before > least && after < -least) || (before < -least && after > least);
}

float slip_clutch(float driv_TRQ, float driv_mi, float* omega, float omega_receiver, float max_TRQ,
                  float dt) {
    const float trq_to_sync = (*omega - omega_receiver) * driv_mi / dt;
    const float transmitted_TRQ = fltlim(driv_TRQ + trq_to_sync, -max_TRQ, max_TRQ);
    *omega += (driv_TRQ - transmitted_TRQ) / fltmax2(driv_mi, 0.01f) * dt;
    return transmitted_TRQ;
}

// A road that slows down is not jumped across: before counts from the road as it was.
void turn_wheel(int en, float term_omega, float max_TRQ, float dt) {
    flt_gear_struct& wheel = flt[0].gear[en];
    const float before = wheel.tire_omega, slip_before = before - wheel.term_omega;
    wheel.term_omega = term_omega;
    slip_clutch(wheel.tire_TRQ, veh[0].gear[en].tire_mi, &wheel.tire_omega, term_omega, max_TRQ, dt);
    if (jumped_across(slip_before, wheel.tire_omega - term_omega)) wheel.tire_omega = term_omega;
    if (jumped_across(before, wheel.tire_omega)) wheel.tire_omega = 0.0f;
    wheel.tire_rot_deg =
        fltwrap(wheel.tire_rot_deg + fmodf(wheel.tire_omega * con.radtodeg * dt, 360.0f), 0.0f, 360.0f);
}

// A wheel that rolls follows the road. One that slides answers its brakes within a millisecond or two, faster
// than half steps can follow: it takes steps of its own, and the road feels their mean.
slide_struct roll_wheel(const contact_point_struct& p, const touch_struct& t, const road_struct& road) {
    constexpr float longest = 0.001f;  // s
    flt_gear_struct& wheel = flt[0].gear[p.en];
    const float radius = radius_of(p);
    slide_struct now = find_friction(p, t, road), mean;
    const float term_omega = road.total_z / fltmax2(radius, 0.01f);
    const bool rolls = now.total_fric_rat <= slides && fabsf(wheel.tire_TRQ) <= radius * now.frc_max;
    const int steps = rolls ? 1 : intmax2(intcut(ceilf(mnw.prd_FM / longest)), 1);
    const float dt = mnw.prd_FM / static_cast<float>(steps), share = 1.0f / static_cast<float>(steps);
    for (int i = 0; i < steps; ++i) {
        if (i > 0) {
            wheel.tire_TRQ = brake_torque(p.en);
            now = find_friction(p, t, road);
        }
        turn_wheel(p.en, term_omega, radius * now.frc_max, dt);
        mean.total_skid += share * now.total_skid;
        mean.total_fric_rat += share * now.total_fric_rat;
        mean.fx_tir += share * now.fx_tir;
        mean.fz_tir += share * now.fz_tir;
    }
    return mean;
}

// -- the aircraft

// Of a nosewheel, across the aircraft.
float limit_side_force(const contact_point_struct& p, float fx, float beta_road) {
    const float side_k = veh[0].nw_side_k;
    if (!p.is_tire || !veh[0].gear[p.en].steers || !(side_k > 0.01f)) return fx;
    const float most = fabsf(beta_road) * side_k;
    return fltlim(fx, -most, most);
}

// At the bottom of the compressed leg. Gives back the axial force of friction.
float add_forces(const contact_point_struct& p, const touch_struct& t, const road_struct& road,
                 const slide_struct& s) {
    const float sin_steer = sin_deg(*p.tire_steer), cos_steer = cos_deg(*p.tire_steer);
    const float fx_veh = limit_side_force(p, cos_steer * s.fx_tir - sin_steer * s.fz_tir, road.beta_road);
    const float fz_veh = sin_steer * s.fx_tir + cos_steer * s.fz_tir;
    const float bottom = p.y_veh + t.deflection;
    addFsgear(0, t.nrm_veh.x * t.force + fx_veh, bottom, p.z_veh);
    addFngear(0, t.nrm_veh.y * t.force, p.x_veh, p.z_veh);
    addFagear(0, t.nrm_veh.z * t.force + fz_veh, p.x_veh, bottom);
    return fz_veh;
}

// -- the tyre

// A locked wheel grinds a flat spot into a dry runway, until the tyre bursts.
void wear_tyre(int en, const touch_struct& t, const slide_struct& s) {
    constexpr float still = 0.5f, bursts = 100.0f, mends = 0.05f;  // m/s, m, per s
    if (veh[0].gear[en].gear_type == gear_skid) return;            // of steel
    flt_gear_struct& wheel = flt[0].gear[en];
    const bool locked = fabsf(wheel.tire_omega * veh[0].gear[en].tire_radius) < still && s.total_skid > still;
    if (t.bears && atm.rway_fric_code == 0 && locked) wheel.tire_drag_dis += s.total_skid * mnw.prd_FM;
    if (wheel.tire_drag_dis > bursts) fail_it(fail_tire + en);
    wheel.tire_drag_dis *= 1.0f - mends * mnw.prd_FM;
}

void keep_tyre(const contact_point_struct& p, const touch_struct& t, const road_struct& road,
               const slide_struct& s, float fz_veh) {
    flt_gear_struct& wheel = flt[0].gear[p.en];
    const float skid =
        fltlim(sqr(0.5f * s.total_skid), 0.0f, 1.0f) * interp(0.8f, 0.0f, 1.0f, 1.0f, s.total_fric_rat);
    wheel.tire_skid_rat = skid < 0.1f ? 0.0f : skid;
    wheel.tire_vrt_frc_veh = t.force * t.nrm_veh.y;
    wheel.tire_vrt_def_veh = t.deflection * t.nrm_veh.y;
    wheel.tire_net_thrust = -fz_veh;
    wheel.tire_net_power = road.total_z * fz_veh;
    wear_tyre(p.en, t, s);
}

// For the next half step's flutter.
void remember_slide(const contact_point_struct& p, const road_struct& road) {
    contact_state.o_slide_x_vel_tir[p.en] = road.slide_x;
    contact_state.o_slide_z_vel_tir[p.en] = road.gain > 0.0f ? road.total_z - rim_speed(p) : 0.0f;
}

// -- what is seen and heard

void raise_dust(const contact_point_struct& p, const touch_struct& t, const road_struct& road,
                const slide_struct& s) {
    constexpr float least = 0.01f, strength = 0.3f, still = 0.8f;
    const bool wet = atm.rway_fric_code > 0, plain = env.surf_tex == 0;
    const float by = wet || plain ? road.total_z : s.total_skid - still;
    const float puff_rat = strength * signsqrt(by);
    if (!(puff_rat > least)) return;
    const vector spin = to_wrl({0.0f, 0.0f, rim_speed(p)});
    puff.spawn_puff(t.at.x, t.at.y, t.at.z, t.speed.x + spin.x, t.speed.y + spin.y, t.speed.z + spin.z,
                    radius_of(p) * puff_rat, wet ? puff_wet : puff_dust, puff_rat);
}

void sound_bump(float rate) {
    constexpr int booms[] = {sound_boom_1, sound_boom_2, sound_boom_3, sound_boom_4};  // above 1, 2, 3, 4 m/s
    const int which = intcut(fltlim(ceilf(rate) - 1.0f, 0.0f, 4.0f));
    if (which > 0) soun.SOUND_set(booms[which - 1], 1.0f, 1.0f);
}

bool held_by_catapult(const contact_point_struct& p) {
    return p.is_tire && p.z_veh < 0.0f && (stg.cat_waiting || stg.cat_inprog);
}
}  // namespace

float drag_sys(float driv_TRQ, float driv_mi, float* omega_powerplant, float omega_receiver, float max_TRQ) {
    return slip_clutch(driv_TRQ, driv_mi, omega_powerplant, omega_receiver, max_TRQ, mnw.prd_FM);
}

int handle_contact_point(const contact_point_struct& p) {
    const touch_struct t = meet_surface(p);
    if (!t.bears && !p.is_tire) return 0;
    const bool is_cat = held_by_catapult(p);
    const bool is_wheel = p.is_tire && veh[0].gear[p.en].gear_type != gear_skid;
    road_struct road;
    if (t.bears || is_cat) road = meet_road(p, t);
    if (p.is_tire) remember_slide(p, road);
    if (p.is_tire && !is_wheel) flt[0].gear[p.en].term_omega = flt[0].gear[p.en].tire_omega = 0.0f;
    const slide_struct s = is_wheel ? roll_wheel(p, t, road) : find_friction(p, t, road);
    const float fz_veh = t.bears || is_cat ? add_forces(p, t, road, s) : 0.0f;
    if (p.is_tire) keep_tyre(p, t, road, s, fz_veh);
    if (t.bears) {
        if (mnw.puff20) raise_dust(p, t, road, s);
        sound_bump(t.rate);
    }
    return t.bears || is_cat;
}
