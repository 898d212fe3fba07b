// Tunnel, trim and performance.
#include "app/lab/lab.h"

#include "aircraft/deflect.h"
#include "aircraft/derive/derive.h"
#include "aircraft/design/exists.h"
#include "app/frame.h"
#include "core/math/axes.h"
#include "core/math/globe.h"
#include "core/program/seams.h"
#include "core/records/records.h"
#include "flight/fullsim.h"
#include "flight/half_step.h"
#include "flight/pilots/pilot_input.h"
#include "scenery/ground/terrain_query.h"
#include "weather/weather_step.h"
#include "weather/wind.h"

void lab_still_air() {
    for (int layer = 0; layer < 3; ++layer) {
        atm.set_wind_spd_kts[layer] = atm.set_shear_spd_kts[layer] = 0.0f;
        atm.set_shear_dir[layer] = atm.set_turb_inc[layer] = 0.0f;
    }
    atm.wind_tbl = atm.burst_prob = atm.rate_change = atm.therm_prt = 0.0f;
    atm.level_rat_acf = 0.0f;
    // the smoothed wind dies out over some seconds of its own steps
    for (int i = 0; i < 4000; ++i) weather_step();
}

static bool in_place = false;

lab_in_place::lab_in_place() : prd_FM_(mnw.prd_FM) { in_place = true; }
lab_in_place::~lab_in_place() {
    in_place = false;
    mnw.prd_FM = prd_FM_;
}

// Over the region's centre unless it stays in its place, with the air of that height.
static void place_at_height(float altitude) {
    flt_struct& f = flt[0];
    if (!in_place) xdob_xyz_with_latlonel(&f.dob_x, &f.dob_y, &f.dob_z, ref_lat(), ref_lon(), altitude);
    xdob_latlonel_with_xyz(&f.dob_lat, &f.dob_lon, &f.dob_ele, f.dob_x, f.dob_y, f.dob_z);
    local_air_step();
    f.terrain_y_cg = return_terrain_y(static_cast<float>(f.dob_x), static_cast<float>(f.dob_z), 0);
    f.y_agl_mtr = static_cast<float>(f.dob_y) - veh[0].h_eqlbm - f.terrain_y_cg;
}

static void set_attitude(float psi, float the, float phi) {
    flt_struct& f = flt[0];
    f.psi = psi;
    f.the = the;
    f.phi = phi;
    init_quaternion(psi, the, phi, f.q);
    cache_attitude(0);
}

// Through the air at this velocity, world axes, m/s.
static void set_velocity(float vx, float vy, float vz) {
    flt_struct& f = flt[0];
    f.vx = vx + wind.ret_wind_x();
    f.vy = vy + wind.ret_wind_y();
    f.vz = vz + wind.ret_wind_z();
    f.V_msc = pythag(f.vx, f.vy, f.vz);
    cache_air(0);
    cache_speeds(0);
    f.v_ind_kts = f.AV_sig_kts;
    for (flt_wing_struct& w : f.wing)
        for (int bld = 0; bld < bladDIM; ++bld) w.Q_centroid_loc[bld] = w.Q_centroid_MULT[bld] = 1.0f;
}

void lab_place(const lab_flight& at) {
    flt_struct& f = flt[0];
    place_at_height(at.altitude);
    // with the wings level the path lies alpha below the nose
    set_attitude(at.psi, at.gamma + at.alpha, at.phi);
    f.P = f.Q = f.R = f.Prad = f.Qrad = f.Rrad = 0.0f;
    const float x = tan_deg(at.beta), y = tan_deg(at.alpha);
    const float length = pythag(x, y, 1.0f);
    float vx, vy, vz;
    veh_to_wrl(-x * at.speed / length, -y * at.speed / length, -at.speed / length, &vx, &vy, &vz, 0);
    set_velocity(vx, vy, vz);
}

void lab_place_moving(const lab_flight& at, float the, float turn_rate) {
    flt_struct& f = flt[0];
    place_at_height(at.altitude);
    set_attitude(fltwrap(at.track + at.psi, 0.0f, 360.0f), the, at.phi);
    f.P = -turn_rate * f.sin_the;
    f.Q = turn_rate * f.sin_phi * f.cos_the;
    f.R = turn_rate * f.cos_phi * f.cos_the;
    f.Prad = f.P * con.degtorad;
    f.Qrad = f.Q * con.degtorad;
    f.Rrad = f.R * con.degtorad;
    const float level_speed = at.speed * cos_deg(at.gamma);
    set_velocity(level_speed * sin_deg(at.track), at.speed * sin_deg(at.gamma),
                 -level_speed * cos_deg(at.track));
}

// Engines that ran before leave their slipstream in the state; in the tunnel nothing would let it die out.
static void clear_wash() {
    for (flt_engn_struct& e : flt[0].engn) {
        e.thrust = e.DVinc = e.side_wash = 0.0f;
        for (float& ring : e.RING_DVinc) ring = 0.0f;
    }
}

lab_coeffs lab_tunnel(const lab_flight& at) {
    constexpr int settle = 4;  // downwash and spanwise load lag by one step each
    lab_place(at);
    clear_wash();
    for (int i = 0; i < settle; ++i) tunnel_step();
    const flt_struct& f = flt[0];
    const aircraft_summary_struct size = aircraft_summary(0);
    const float force = f.Qstatic * size.S_ref;
    lab_coeffs c{};
    c.lift = f.lift_path_axis;
    c.drag = f.drag_path_axis;
    if (!(force > 0.0f)) return c;
    c.CL = f.lift_path_axis / force;
    c.CD = f.drag_path_axis / force;
    c.CY = f.side_path_axis / force;
    c.Cl = f.L / (force * size.span);
    // about the present centre of gravity, which the user may have shifted
    c.Cm = (f.M + f.fnrml_aero_acf * f.cgz_ref_to_default) / (force * size.mean_chord);
    c.Cn = (f.N + f.fside_aero_acf * f.cgz_ref_to_default) / (force * size.span);
    return c;
}

int lab_span_load(lab_span_point* points, int max_points) {
    const aircraft_summary_struct size = aircraft_summary(0);
    const float scale = flt[0].Qstatic * size.mean_chord;
    int count = 0;
    for (int en = part_wing_first; en <= part_main_last; ++en) {
        if (!has_this_wing(0, en)) continue;
        const veh_wing_struct& w = veh[0].wing[en];
        const flt_wing_struct& now = flt[0].wing[en];
        for (int el = 0; el < w.els && count < max_points; ++el) {
            const float width = w.element_len * now.cos_act_sweep;
            const float y = veh[0].part[en].part_x +
                            w.lat_sign * w.element_len * (el + 0.5f) * now.cos_act_sweep * now.cos_act_dihed;
            points[count++] = {en, el, y, now.force_XYZ[el][1] / (width * scale)};
        }
    }
    return count;
}

float lab_mass() {
    const flt_struct& f = flt[0];
    float mass = veh[0].m_empty + f.m_fixed + (veh[0].jett_is_slung ? 0.0f : f.m_jettison);
    for (const float m : f.m_fuel) mass += m;
    return mass;
}

// Moves the surfaces to where the controls ask, travel times left out.
static void set_elevator(float ratio) {
    flt[0].FC_ptch = ratio;
    update_def_angles(0);
}

lab_trim lab_trim_glide(float speed, float altitude) {
    constexpr int max_steps = 30;
    constexpr float da = 0.1f, de = 0.02f;
    lab_trim t{};
    t.speed = speed;
    lab_flight at;
    at.speed = speed;
    at.altitude = altitude;
    at.alpha = 2.0f;
    const float weight = lab_mass() * con.g;
    for (int i = 0; i < max_steps; ++i) {
        // residuals: lift against the weight's share across the path, and the pitching moment
        const auto measure = [&](float alpha, float elevator, float* res_lift, float* res_M) {
            lab_flight a = at;
            a.alpha = alpha;
            set_elevator(elevator);
            const lab_coeffs c = lab_tunnel(a);
            *res_lift = c.lift - weight * cos_deg(at.gamma);
            *res_M = c.Cm;
            return c;
        };
        float r1, m1, r2, m2, r3, m3;
        const lab_coeffs c = measure(at.alpha, t.elevator, &r1, &m1);
        t.CL = c.CL;
        t.CD = c.CD;
        at.gamma = -atan2_deg(c.drag, fltmax2(c.lift, 1.0f));
        if (fabsf(r1) < 1e-4f * weight && fabsf(m1) < 1e-5f) {
            t.found = true;
            break;
        }
        measure(at.alpha + da, t.elevator, &r2, &m2);
        measure(at.alpha, t.elevator + de, &r3, &m3);
        const float ra = (r2 - r1) / da, re = (r3 - r1) / de, ma = (m2 - m1) / da, me = (m3 - m1) / de;
        const float det = ra * me - re * ma;
        if (fabsf(det) < 1e-12f) break;
        at.alpha -= fltlim((r1 * me - re * m1) / det, -3.0f, 3.0f);
        t.elevator = fltlim(t.elevator - fltlim((ra * m1 - r1 * ma) / det, -0.3f, 0.3f), -1.0f, 1.0f);
        at.alpha = fltlim(at.alpha, -20.0f, 20.0f);
    }
    t.alpha = at.alpha;
    t.gamma = at.gamma;
    t.sink = -speed * sin_deg(t.gamma);
    return t;
}

void lab_fly_trim(const lab_trim& trim, float altitude) {
    lab_flight at;
    at.speed = trim.speed;
    at.altitude = altitude;
    at.alpha = trim.alpha;
    at.gamma = trim.gamma;
    mnw.YK_ptch = trim.elevator - veh[0].elev_tab - (veh[0].flying_stab_EQ ? 0.0f : flt[0].elev_trim);
    set_elevator(trim.elevator);
    lab_tunnel(at);  // leaves downwash and load as they are in that flight
}

lab_stability lab_slopes(const lab_flight& at) {
    constexpr float half = 0.5f;
    const auto at_angles = [&](float alpha, float beta) {
        lab_flight a = at;
        a.alpha = alpha;
        a.beta = beta;
        return lab_tunnel(a);
    };
    const lab_coeffs up = at_angles(at.alpha + half, at.beta), down = at_angles(at.alpha - half, at.beta);
    const lab_coeffs right = at_angles(at.alpha, at.beta + half), left = at_angles(at.alpha, at.beta - half);
    lab_stability s;
    s.CL_alpha = up.CL - down.CL;
    s.Cm_alpha = up.Cm - down.Cm;
    s.Cn_beta = right.Cn - left.Cn;
    s.Cl_beta = right.Cl - left.Cl;
    s.static_margin = s.CL_alpha != 0.0f ? -s.Cm_alpha / s.CL_alpha : 0.0f;
    s.z_neutral = s.static_margin * aircraft_summary(0).mean_chord + flt[0].cgz_ref_to_default;
    return s;
}

lab_polar lab_performance(float altitude) {
    lab_polar p{};
    lab_flight at;
    at.altitude = altitude;
    set_elevator(0.0f);
    for (at.alpha = 0.0f; at.alpha < 24.0f; at.alpha += 0.25f) {
        const float CL = lab_tunnel(at).CL;
        if (CL > p.CL_max) {
            p.CL_max = CL;
            p.alpha_max = at.alpha;
        }
    }
    const float area = aircraft_summary(0).S_ref;
    if (!(p.CL_max > 0.0f && area > 0.0f)) return p;
    p.stall_speed = sqrtf(2.0f * lab_mass() * con.g / (con.lcl_r_met * area * p.CL_max));
    for (int percent = 102; percent < 300; percent += 2) {
        const lab_trim t = lab_trim_glide(0.01f * static_cast<float>(percent) * p.stall_speed, altitude);
        if (!t.found) continue;
        if (!p.best_glide.found || t.CL / t.CD > p.best_glide.CL / p.best_glide.CD) p.best_glide = t;
        if (!p.min_sink.found || t.sink < p.min_sink.sink) p.min_sink = t;
    }
    return p;
}

static void flight_step() {
    update_with_fullsim1(0);
    update_def_angles(0);
    update_with_fullsim2(0);
}

void lab_frame(float dt) {
    mnw.prd_FM = dt;
    if (in_place) return flight_step();
    step_virtual_clock(dt);
    MACIBM_event_proc();
}
