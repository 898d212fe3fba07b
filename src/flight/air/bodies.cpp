// Drag and lift of everything without an airfoil: bodies, gear, speed-brake doors, chute.
#include "flight/air/bodies.h"

#include "aircraft/design/exists.h"
#include "core/craft/engn_kinds.h"
#include "core/math/axes.h"
#include "core/records/records.h"
#include "flight/air/wash.h"
#include "flight/force/forces.h"
#include "flight/force/trace.h"

namespace {
// Forces of one body in path axes, N.
struct body_force {
    float drag = 0.0f, side = 0.0f, lift = 0.0f;
};

// The flow that a body meets; angles in radians.
struct body_flow {
    float v_msc, alph_rad, beta_rad, angl_rad;
};

body_flow flow_at_body(const wash_list& washes, int en) {
    const flt_struct& f = flt[0];
    float vel[3] = {f.vx_air_on_acf, f.vy_air_on_acf, f.vz_air_on_acf};
    add_wash_to_body(washes, en, vel);
    const veh_part_struct& body = veh[0].part[en];
    body_flow flow;
    flow.v_msc = pythag(vel[0], vel[1], vel[2]);
    flow.alph_rad = atan2f(vel[1], vel[2]) + body.part_the * con.degtorad;
    flow.beta_rad = atan2f(vel[0], vel[2]) + body.part_psi * con.degtorad;
    flow.angl_rad = atan2f(pythag(vel[0], vel[1]), fabsf(vel[2]));
    return flow;
}

// Mean edges of the panel between stations s, s+1 and points r, r+1.
struct panel_edges {
    float dx_dr, dy_dr, dx_ds, dy_ds, dz_ds;
};

panel_edges panel(const veh_part_struct& body, int s, int r) {
    const float* a = body.geo_xyz[s][r];
    const float* b = body.geo_xyz[s][r + 1];
    const float* c = body.geo_xyz[s + 1][r];
    const float* d = body.geo_xyz[s + 1][r + 1];
    return {0.5f * (b[0] - a[0] + d[0] - c[0]), 0.5f * (b[1] - a[1] + d[1] - c[1]),
            0.5f * (c[0] - a[0] + d[0] - b[0]), 0.5f * (c[1] - a[1] + d[1] - b[1]),
            0.5f * (c[2] - a[2] + d[2] - b[2])};
}

// Above the speed of sound wave drag comes from how much the surface turns from one station to the next, by
// Ackeret's linear theory. As given: the flow's own angles count half, a blunt nose can come out with a pull,
// and skin friction is the same at any speed.
body_force supersonic_panels(const veh_part_struct& body, const body_flow& flow) {
    constexpr float skin_friction = 0.0023f;
    const float machno_use = fltlim(flow.v_msc / con.lcl_a, 1.5f, 3.0f);
    const float rad_to_cp = 2.0f / sqrtf(machno_use * machno_use - 1.0f);
    const float Q = 0.5f * sqr(flow.v_msc) * con.lcl_r_met;
    body_force force;
    for (int r = 0; r <= body.r_dim - 2; ++r) {
        float angoff_old = 0.0f;
        for (int s = 0; s <= body.s_dim - 2; ++s) {
            const panel_edges e = panel(body, s, r);
            const float top_S = e.dx_dr * e.dz_ds;
            const float sid_S = e.dy_dr * e.dz_ds;
            const float wet_S = pythag(e.dx_dr, e.dy_dr) * e.dz_ds;
            if (!(e.dz_ds > 0.0f && wet_S > 0.0f)) continue;
            const float alpha = 0.5f * flow.alph_rad - atanf(e.dy_ds / e.dz_ds);
            const float beta = 0.5f * flow.beta_rad - atanf(e.dx_ds / e.dz_ds);
            const float angoff = pythag(alpha, beta);
            const float angoff_del = angoff - angoff_old;
            angoff_old = angoff;
            const float cp = fltmin2(angoff_del * rad_to_cp, 1.0f);
            force.lift += -cp * cosf(alpha) * top_S * Q;
            force.side += cp * cosf(beta) * sid_S * Q;
            force.drag += (cp * sinf(angoff) + skin_friction) * wet_S * Q;
        }
    }
    return force;
}

// Air on the aircraft at a point with the aircraft's rotation, m/s.
void air_at_point(const float place[3], float vel[3]) {
    vel[0] = flt[0].vx_air_on_acf;
    vel[1] = flt[0].vy_air_on_acf;
    vel[2] = flt[0].vz_air_on_acf;
    inc_v(&vel[0], &vel[1], &vel[2], place[0], place[1], place[2]);
}
}  // namespace

// As given: a body across the flow is a cylinder of .27, its compressibility Prandtl and Glauert's held at
// Mach .8 with a rise behind.
void get_body_coeffs(float s_frn, float s_sid, float s_top, float cd_0, float v_msc, float alph_rad,
                     float* sublift, float beta_rad, float* subside, float angl_rad, float* subdrag) {
    const float mach = v_msc / con.lcl_a;
    float machfac = 1.0f / sqrtf(1.0f - sqr(fltlim(mach, 0.0f, 0.8f)));
    if (mach > 0.8f) machfac += 2.5f * sqr(mach - 0.8f);
    const float cd_cylinder = 0.27f * machfac;  // the body as seen from the side
    const float Q = 0.5f * v_msc * v_msc * con.lcl_r_met;
    const float across = fabsf(sinf(angl_rad));
    *sublift = sinf(alph_rad) * cd_cylinder * s_top * Q;
    *subside = sinf(beta_rad) * cd_cylinder * s_sid * Q;
    *subdrag = (cd_0 + across * cd_cylinder) * interp(0.0f, s_frn, 1.0f, 0.5f * (s_sid + s_top), across) * Q;
}

void aero_bodies() {
    const wash_list washes = find_washes();
    for (int en = part_body_first; en <= part_fair_last; ++en) {
        if (!has_this_body(0, en)) continue;
        const veh_part_struct& body = veh[0].part[en];
        const body_flow flow = flow_at_body(washes, en);
        body_force force;
        if (flow.v_msc < con.lcl_a)
            get_body_coeffs(body.area_frnt, body.area_side, body.area_nrml, body.cd, flow.v_msc,
                            flow.alph_rad, &force.lift, flow.beta_rad, &force.side, flow.angl_rad,
                            &force.drag);
        else
            force = supersonic_panels(body, flow);

        const int engine = en - part_nace_first;
        const bool is_nacelle = intrange(en, part_nace_first, part_nace_last);
        if (is_nacelle && has_this_engn(0, engine, 0) && (en_is_jet(0, engine) || en_is_roc(0, engine)))
            force.drag = 0.0f;  // the engine's thrust already counts it
        addFaero(force.drag, force.side, force.lift, body.aero_x_os, body.aero_y_os, body.aero_z_os, en, -1);
        if (mnw.cyc_out) [[unlikely]]
            trace_values("BODY", {{"part", static_cast<float>(en)},
                                  {"drag N", force.drag},
                                  {"side N", force.side},
                                  {"lift N", force.lift}});
    }
    aero_forcerep("bodies");
}

// How much more the tyres of a wheel arrangement drag than one.
static float tyre_multiplier(int gear_type) {
    switch (gear_type) {
        case gear_two_lat:
            return 2.0f;
        case gear_two_long:
            return 1.2f;
        case gear_four_2x2:
            return 2.4f;
        case gear_six_2x3:
            return 2.8f;
        case gear_four_lat:
            return 4.0f;
        default:
            return 1.0f;
    }
}

// As given: bluff coefficients of strut, tyre and doors over frontal areas of the leg's sizes; a fairing
// leaves a tenth of the tyres.
void aero_gear_drag() {
    const bool retracts = veh[0].gear_retract;
    for (int en = 0; en < gearDIM; ++en) {
        const veh_gear_struct& g = veh[0].gear[en];
        if (!has_this_gear(0, en) || !(g.dep_rat > 0.01f)) continue;
        const float plain_strut = 0.5f * g.leg_len * g.tire_radius;
        const float strut = (retracts ? 0.3f : 0.05f) * plain_strut * (retracts ? 1.5f : 1.0f);
        float tyres = 0.25f * 1.4f * sqr(g.tire_radius) * tyre_multiplier(g.gear_type);
        if (!retracts && has_this_body(0, part_fair_first + en)) tyres *= 0.1f;
        const float doors = retracts ? 0.5f * 0.25f * plain_strut : 0.0f;
        const float pressure = flt[0].Qstatic * g.dep_rat;
        for (const float area : {strut, tyres, doors})
            addFaero(area * pressure, 0.0f, 0.0f, g.x_nodef, g.y_nodef, g.z_nodef, -1, -1);
        if (mnw.cyc_out) [[unlikely]]
            trace_values("GEAR", {{"leg", static_cast<float>(en)},
                                  {"strut N", strut * pressure},
                                  {"tyres N", tyres * pressure},
                                  {"doors N", doors * pressure}});
    }
    aero_forcerep("gear drag");
}

// A flat plate: .615 is half of 1.23.
void aero_speedbrake_doors() {
    if (!(flt[0].sbrk_rat > 0.0f)) return;
    for (const veh_door_struct& door : veh[0].sbrk) {
        if (door.type == door_none) continue;
        float vel[3];
        air_at_point(door.xyz, vel);
        const float V2 = vel[0] * vel[0] + vel[1] * vel[1] + vel[2] * vel[2];
        const float S = door.area * sin_deg(fltlim(door.ang_now, 0.0f, 180.0f));
        addFaero(0.615f * V2 * S * con.lcl_r_met, 0.0f, 0.0f, door.xyz[0], door.xyz[1], door.xyz[2], -1, -1);
    }
    aero_forcerep("speed brakes");
}

// For the picture only: the chute trails with the flow, pulled down a little by its weight.
static void swing_chute(const float vel[3], float Q) {
    float vx_wrl, vy_wrl, vz_wrl;
    veh_to_wrl(vel[0], vel[1], vel[2], &vx_wrl, &vy_wrl, &vz_wrl, 0);
    const float chute_speed = fltmax2(pythag(vx_wrl, vy_wrl, vz_wrl), 1.0f);
    const float target[3] = {vx_wrl / chute_speed, (vy_wrl - 1.0f) / chute_speed, vz_wrl / chute_speed};
    const float rat_new = fltlim((Q + 1.0f) * 0.05f * mnw.prd_FM, 0.0f, 1.0f);
    for (int axis = 0; axis < 3; ++axis)
        stg.chute_vector_wrl[axis] = closer_assymp(stg.chute_vector_wrl[axis], target[axis], rat_new);
}

// As given: the dynamic pressure lacks its half, and the drag acts along the path, whatever the chute's own
// direction.
void aero_chute() {
    if (!(veh[0].chute_area > 0.0f) || !stg.chute_on) {
        stg.chute_deploy_rat = 0.0f;
        return;
    }
    const float place[3] = {0.0f, veh[0].chute_Y, veh[0].chute_Z};
    float vel[3];
    air_at_point(place, vel);
    const float Q =
        (vel[0] * vel[0] + vel[1] * vel[1] + vel[2] * vel[2]) * con.lcl_r_met;  // without the half
    const float drag = 0.6f * veh[0].chute_area * stg.chute_deploy_rat * Q;
    addFaero(drag, 0.0f, 0.0f, place[0], place[1], place[2], -1, -1);
    swing_chute(vel, Q);
    stg.chute_deploy_rat = fltmin2(stg.chute_deploy_rat + 0.5f * mnw.prd_FM, 1.0f);
    aero_forcerep("drag chute");
}
