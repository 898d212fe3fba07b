// One disc: blade elements at four positions, momentum inflow by rings, cyclic pitch, a tilting disc,
// vortex ring, the hub's moments.
// Disc axes: x right, y up, z aft of the disc at rest, turned with it. A position stands for a quarter of the
// blades.
#include "flight/power/disc.h"

#include "aircraft/design/check.h"
#include "aircraft/design/location.h"
#include "core/craft/engn_kinds.h"
#include "core/math/axes.h"
#include "core/math/geo3.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/alert.h"
#include "core/records/records.h"
#include "flight/air/coeffs.h"
#include "flight/air/elements.h"
#include "flight/force/forces.h"
#include "flight/force/trace.h"
#include "flight/power/thrust.h"
#include "scenery/ground/terrain_query.h"
#include "weather/wind.h"

namespace {
// The moments of a force at a place, in the sense of the force sums.
struct moments {
    float L = 0.0f, M = 0.0f, N = 0.0f;
    void add(const d3_struct& force, const d3_struct& place) {
        L += force.x * place.y - force.y * place.x;
        M += force.z * place.y - force.y * place.z;
        N += force.z * place.x - force.x * place.z;
    }
};

// The disc's unit vectors in aircraft axes.
struct disc_axes {
    d3_struct rgt, up, aft;
    d3_struct to_disc(const d3_struct& v) const { return {v.dot(rgt), v.dot(up), v.dot(aft)}; }
    d3_struct to_veh(const d3_struct& v) const { return rgt * v.x + up * v.y + aft * v.z; }
};

d3_struct unit_vector(int en, float x, float y, float z) {
    d3_struct v;
    disc_to_veh(x, y, z, &v.x, &v.y, &v.z, 0, en);
    if (!fltrange(pythag(v.x, v.y, v.z), 0.99f, 1.01f)) MACIBM_fatal("Thrust vector orientation error!");
    return v;
}

disc_axes axes_of(int en) {
    return {unit_vector(en, 1.0f, 0.0f, 0.0f), unit_vector(en, 0.0f, 1.0f, 0.0f),
            unit_vector(en, 0.0f, 0.0f, 1.0f)};
}

// What the elements of a disc share in one pass.
struct disc_run {
    int en;
    const veh_engn_struct& kind;
    const veh_wing_struct& blade;
    flt_engn_struct& now;
    disc_axes axes;
    bool apply_cyclic_def = false, apply_disc_tilt = false, steer_disc = false;
    bool cw = true;
    bool no_axial_air = false;  // a lift fan behind closed doors
    d3_struct hub_rotation{};   // air speed at the hub from the aircraft's rotation, aircraft axes
    d3_struct v_prop{};         // relative wind at the hub, disc axes
    float dirty_fac = 1.0f;     // inflow of disturbed air over that of clean air
    float air_rand = 0.0f;      // random part of it in vortex ring
    float control_rat = 1.0f;   // share of cyclic that acts
    float tip_thrust = 0.0f;    // of a tip rocket for a quarter of the blades, N
    moments on_hub{}, hub_on_cog{}, shaft_on_cog{};
};

// -- air at the disc
void air_at_hub(disc_run& r) {
    const flt_struct& f = flt[0];
    inc_v(&r.hub_rotation.x, &r.hub_rotation.y, &r.hub_rotation.z, r.now.XYZ[0], r.now.XYZ[1], r.now.XYZ[2]);
    const d3_struct air = d3_struct{f.vx_air_on_acf, f.vy_air_on_acf, f.vz_air_on_acf} + r.hub_rotation;
    r.v_prop = r.axes.to_disc(air);
    if (!is_lift_fan(0, r.en)) return;
    r.v_prop.x = r.v_prop.y = 0.0f;
    r.no_axial_air = f.vect_rat < 0.01f;
    if (r.no_axial_air) r.v_prop.z = 0.0f;
}

// A rotor hovering in its own turbulence has half as much inflow again as in clean air; near the ground less,
// and side flow clears the disc. As given, in knots; so is the vortex ring's range of descent, in sixths of
// the wash.
void dirty_air(disc_run& r) {
    const float v_prop_coord_aft_aero = r.v_prop.z + 0.5f * r.now.DVinc;
    const float clear_v_kts = pythag(r.v_prop.x, r.v_prop.y, v_prop_coord_aft_aero) * con.msctokts;
    const float side_v_kts = pythag(r.v_prop.x, r.v_prop.y) * con.msctokts;
    const float hgt_rat = ret_ge_hgt_mtrs(r.en) / fltmax2(2.0f * r.blade.semilen_JND, divisor_min);
    const float hgt_fac = hgt_rat > 0.0f ? fltlim(hgt_rat, 0.0f, 1.0f) : 1.0f;
    r.dirty_fac = clear_v_kts <= 20.0f ? interp(15.0f, 0.75f + 0.75f * hgt_fac, 20.0f, 1.25f, clear_v_kts)
                                       : interp(20.0f, 1.25f, 55.0f, 1.0f, clear_v_kts);
    r.dirty_fac *= interp(20.0f, 1.0f, 55.0f, 0.3f, side_v_kts);

    // vortex ring: the rotor sinks into its own wash
    const float dv_below_rotor = 0.6f * r.now.DVinc, descent_rate = -r.v_prop.z;
    if (!r.steer_disc || !(side_v_kts < 10.0f) || !(descent_rate > 0.0f) || !(dv_below_rotor > 0.0f)) return;
    const float rat = descent_rate / dv_below_rotor;
    if (!fltrange(rat, 0.9f, 2.1f)) return;
    const float settle_rat =
        rat < 1.5f ? interp(0.9f, 0.0f, 1.1f, 1.0f, rat) : interp(1.9f, 1.0f, 2.1f, 0.0f, rat);
    r.dirty_fac *= 2.0f * settle_rat + 1.0f;
    r.air_rand = 2.0f * settle_rat;
}

// -- cyclic: what the pilot asks, less what the disc has already tilted, crossed by the hinge's angle
void cyclic(disc_run& r) {
    flt_engn_struct& e = r.now;
    const veh_struct& v = veh[0];
    const flt_struct& f = flt[0];
    if (!r.steer_disc) {
        e.cyclic_elev_blad_alph = e.cyclic_ailn_blad_alph = 0.0f;
        return;
    }
    // a tilt rotor's cyclic fades out as it goes forward
    if (v.vect_EQ) r.control_rat = signsqrt(sin_deg(e.vert_disc_vector));
    const veh_part_struct& part = v.part[r.en];
    e.cyclic_ailn_command = v.cyclic_def_ailn * f.FC_roll * r.control_rat -
                            sign(part.part_z) * v.diff_cycl_with_hdng_lat * f.FC_hdng * r.control_rat;
    e.cyclic_elev_command =
        v.cyclic_def_elev * f.FC_ptch * r.control_rat +
        sign(part.part_x) * v.diff_cycl_with_hdng_lon * f.FC_hdng * r.control_rat +
        f.rotr_trim * extrap(0.0f, v.rotor_trim_max_fwd, 1.0f, v.rotor_trim_max_aft, f.FC_ptch);
    const float elev = e.cyclic_elev_command - e.cyclic_elev_disc_tilt;
    const float ailn = e.cyclic_ailn_command - e.cyclic_ailn_disc_tilt;
    const float cross = sin_deg(v.delta3);
    e.cyclic_elev_blad_alph = elev - atan_deg(tan_deg(ailn) * cross);
    e.cyclic_ailn_blad_alph = ailn + atan_deg(tan_deg(elev) * cross);
}

// -- the elements
// Where a position lies, in disc axes. On a steered disc the position follows the rotation, so that the force
// comes out a quarter turn behind the air that makes it: the rotor's 90 degrees of lag.
d3_struct point_on_disc(const disc_run& r, int bld, float arm) {
    enum side { top, right, bottom, left };
    static constexpr side plain[bladDIM] = {top, right, bottom, left};
    static constexpr side steered_cw[bladDIM] = {right, bottom, left, top};
    static constexpr side steered_ccw[bladDIM] = {left, top, right, bottom};
    switch ((!r.steer_disc ? plain : r.cw ? steered_cw : steered_ccw)[bld]) {
        case top:
            return {0.0f, arm, 0.0f};
        case right:
            return {arm, 0.0f, 0.0f};
        case bottom:
            return {0.0f, -arm, 0.0f};
        default:
            return {-arm, 0.0f, 0.0f};
    }
}

// One radial station of the blades.
struct station {
    int el;
    float X_arm_mtr, arm;  // along the blade's length and in all, m
    float dv_disc;         // inflow at the disc, m/s
    float turn_speed;      // of the blade there, m/s
    float flap_ptch_msc, flap_roll_msc;
};

station station_of(const disc_run& r, int el) {
    station s;
    s.el = el;
    s.X_arm_mtr = get_el_base_loc(0, r.en, el + 0.5f, 'X');
    const float Z_arm_mtr = get_el_base_loc(0, r.en, el + 0.5f, 'Z');
    s.arm = pythag(s.X_arm_mtr, Z_arm_mtr);
    s.dv_disc = r.now.RING_DVinc[el] * r.dirty_fac / 2.0f;  // half of the far field's
    const float sweep = r.kind.bladesweep[el];
    s.turn_speed = r.now.tacrad_PROP * pythag(Z_arm_mtr * sin_deg(sweep), s.X_arm_mtr * cos_deg(sweep));
    // a quarter turn takes 90 degrees over this; none at rest
    const float quarters_per_sec = r.now.tacrad_PROP * con.radtodeg / 90.0f;
    s.flap_ptch_msc = s.flap_roll_msc = 0.0f;
    // Decided: no flapping term for pure disc tilt; without cyclic pitch the blades turn in the plane of
    // their tilted hub and do not flap.
    if (!r.apply_cyclic_def) return s;
    s.flap_ptch_msc = sin_deg(r.now.cyclic_elev_blad_alph) * s.X_arm_mtr * quarters_per_sec;
    s.flap_roll_msc = sin_deg(r.now.cyclic_ailn_blad_alph) * s.X_arm_mtr * quarters_per_sec;
    return s;
}

// Air and blade at one position, and the sense of its drag in the disc's plane.
struct position_terms {
    float rotationspeed, cyclic, DVnormal;
    d3_struct drag_direction;
};

position_terms terms_at(const disc_run& r, const station& s, int bld) {
    const float turn = r.cw ? 1.0f : -1.0f, dir = r.kind.prop_dir;
    const float elev = r.now.cyclic_elev_blad_alph * dir, ailn = r.now.cyclic_ailn_blad_alph * dir;
    const float ptch = dir * s.flap_ptch_msc, roll = dir * s.flap_roll_msc;
    switch (bld) {
        case 0:
            return {-turn * r.v_prop.x, -ailn, roll, {-turn, 0.0f, 0.0f}};
        case 1:
            return {turn * r.v_prop.y, elev, -ptch, {0.0f, turn, 0.0f}};
        case 2:
            return {turn * r.v_prop.x, ailn, -roll, {turn, 0.0f, 0.0f}};
        default:
            return {-turn * r.v_prop.y, -elev, ptch, {0.0f, -turn, 0.0f}};
    }
}

// Wind through the disc at a place. As given: the hub's rotation speed counts along the aircraft's axis, also
// for a disc that does not point along it.
float air_through(const disc_run& r, const d3_struct& place) {
    if (r.no_axial_air) return 0.0f;
    d3_struct air;
    wind.ret_wind_acf(place.x, place.y, place.z, &air.x, &air.y, &air.z);
    return air.dot(r.axes.aft) + r.hub_rotation.z;
}

float vortex_gust(const disc_run& r, const station& s, int bld) {
    if (r.air_rand == 0.0f) return 0.0f;
    return flt_seedrand(0.0f, s.dv_disc * r.air_rand, intmax2(intround(2.0f * mnw.totl_time), 0) + bld);
}

// A blade that meets the ground stops its disc for good.
void strike(disc_run& r, const d3_struct& place) {
    const flt_struct& f = flt[0];
    d3_struct wrl;
    veh_to_wrl(place.x, place.y, place.z, &wrl.x, &wrl.y, &wrl.z, 0);
    if (!(wrl.y + f.dob_y < f.terrain_y_cg)) return;
    if (terrain_is_wet(static_cast<float>(f.dob_x), static_cast<float>(f.dob_z), 0)) return;
    r.now.tacrad_ENGN = r.now.tacrad_PROP = 0.0f;
    const bool tail = r.kind.prop_type == prop_tail_rotor;
    flt[0].fail_stat[tail ? static_cast<int>(fail_tail_drive) : fail_engine + r.en] = fail_active;
}

// Gives the thrust of the element at this position.
float one_position(disc_run& r, const station& s, int bld) {
    flt_struct& f = flt[0];
    flt_wing_struct& flow = f.wing[r.en];
    const d3_struct point = point_on_disc(r, bld, s.arm);
    const d3_struct hub{r.now.XYZ[0], r.now.XYZ[1], r.now.XYZ[2]};
    const d3_struct place = hub + r.axes.to_veh(point);

    const position_terms t = terms_at(r, s, bld);
    const float rotationspeed = s.turn_speed + t.rotationspeed;
    const float DVnormal = air_through(r, place) + s.dv_disc + vortex_gust(r, s, bld) + t.DVnormal;
    check_val(rotationspeed);
    check_val(DVnormal);
    const float pitch =
        r.now.pitch_deg_use + r.blade.incidence[s.el] + (r.apply_cyclic_def ? t.cyclic : 0.0f);
    flow.del_dir[s.el][bld] = atan2_deg(-DVnormal, rotationspeed);
    flow.v_el[s.el][bld] = pythag(DVnormal, rotationspeed);
    flow.alpha_el[s.el][bld] = flow.del_dir[s.el][bld] + pitch;
    check_val(flow.del_dir[s.el][bld]);
    check_val(flow.v_el[s.el][bld]);

    float lift, drag, momt;
    F_el_force(0.0f, 0.0f, 0.0f, &lift, &drag, &momt, r.en, s.el, bld);
    const float quarter = r.kind.num_blades / 4.0f;
    float disc_anti_rot = quarter * drag;
    float faxil_disc = -quarter * lift;
    const bool last = s.el == r.blade.els - 1;
    if (last) {
        faxil_disc -= sin_deg(r.now.pitch_deg_use) * r.tip_thrust;
        disc_anti_rot -= cos_deg(r.now.pitch_deg_use) * r.tip_thrust;
    }
    r.now.thrust -= faxil_disc;
    r.now.drag_TRQ += s.arm * disc_anti_rot;

    const d3_struct thrust_disc{0.0f, 0.0f, faxil_disc};
    const d3_struct force_disc = thrust_disc + t.drag_direction * disc_anti_rot;
    const d3_struct force = r.axes.to_veh(force_disc);
    f.fside_prop_acf += force.x;
    f.fnrml_prop_acf += force.y;
    f.faxil_prop_acf += force.z;
    flow.force_XYZ[0][0] += force.x;
    flow.force_XYZ[0][1] += force.y;
    flow.force_XYZ[0][2] += force.z;
    r.on_hub.add(force_disc, point);
    r.hub_on_cog.add(force, hub);
    r.shaft_on_cog.add(r.axes.to_veh(thrust_disc), place);
    if (last) strike(r, place);
    return -faxil_disc;
}

void all_elements(disc_run& r) {
    for (int el = 0; el < r.blade.els; ++el) {
        const station s = station_of(r, el);
        float ringthrust = 0.0f;
        for (int bld = 0; bld < bladDIM; ++bld) ringthrust += one_position(r, s, bld);
        r.now.RING_DVinc[el] =
            get_dv_total(r.now.RING_DVinc[el], ringthrust, r.kind.ringarea[el], r.v_prop.z);
    }
    r.now.DVinc = get_dv_total(r.now.DVinc, r.now.thrust, r.kind.discarea, r.v_prop.z);
}

// -- moments of a disc that tilts
// The rate at which the hub's moment precesses the disc, rad/s: chased, but never past. As given: it takes
// half of the step.
float precession(float rate_now, float hub_moment, float rate_from_acf, float mi, float tacrad) {
    const float term = hub_moment / (fltmax2(fabsf(tacrad), 1.0f) * mi) - rate_from_acf;
    const float next = rate_now + hub_moment / mi * mnw.prd_FM;
    return 0.5f * (rate_now + (term >= 0.0f ? fltmin2(next, term) : fltmax2(next, term)));
}

// Has the disc hit its stop, with the moment pushing further?
bool mast_bumps(float tilt, float travel, float hub_moment) {
    const float stop = 2.0f * travel;
    return (tilt > stop && hub_moment > 0.0f) || (tilt < -stop && hub_moment < 0.0f);
}

void steered_moments(disc_run& r) {
    const veh_struct& v = veh[0];
    flt_struct& f = flt[0];
    flt_engn_struct& e = r.now;
    const disc_axes& a = r.axes;
    const float Q_rotor_from_acf = f.Qrad * pythag(a.aft.y, a.aft.z);
    const float R_rotor_from_acf = f.Rrad * pythag(a.aft.x, a.aft.z) + f.Prad * pythag(a.aft.x, a.aft.y);
    const float mi = fltmax2(r.kind.mi_prop_rpm, disc_divisor_min);
    const float tip_radius = get_el_base_loc(0, r.en, r.blade.els, 'X');
    const float sin_vert = sin_deg(e.vert_disc_cyclic), cos_vert = cos_deg(e.vert_disc_cyclic);

    // gyroscopic moment, then the hinge's stiffness
    const float stiffness = tip_radius * r.kind.prop_mass * 0.01f;
    float M_hub = r.on_hub.M, N_hub = r.on_hub.N;
    M_hub -= (e.Q_rotor_rad + Q_rotor_from_acf) * mi * e.tacrad_PROP + e.cyclic_elev_disc_tilt * stiffness;
    N_hub -= (e.R_rotor_rad + R_rotor_from_acf) * mi * e.tacrad_PROP + e.cyclic_ailn_disc_tilt * stiffness;

    if (r.apply_cyclic_def) {
        e.Q_rotor_rad = precession(e.Q_rotor_rad, M_hub, Q_rotor_from_acf, mi, e.tacrad_PROP);
        e.R_rotor_rad = precession(e.R_rotor_rad, N_hub, R_rotor_from_acf, mi, e.tacrad_PROP);
    }
    if (r.apply_disc_tilt) {
        const float elev = v.disc_tilt_elev * f.FC_ptch * r.control_rat - e.cyclic_elev_disc_tilt;
        const float ailn = v.disc_tilt_ailn * f.FC_roll * r.control_rat - e.cyclic_ailn_disc_tilt;
        e.Q_rotor_rad = elev * con.degtorad / mnw.prd_FM;
        e.R_rotor_rad = ailn * con.degtorad / mnw.prd_FM;
    }
    e.cyclic_elev_disc_tilt += e.Q_rotor_rad * con.radtodeg * mnw.prd_FM;
    e.cyclic_ailn_disc_tilt += e.R_rotor_rad * con.radtodeg * mnw.prd_FM;

    if (r.apply_disc_tilt || mast_bumps(e.cyclic_elev_disc_tilt, v.cyclic_def_elev, M_hub)) f.M += M_hub;
    if (r.apply_disc_tilt || mast_bumps(e.cyclic_ailn_disc_tilt, v.cyclic_def_ailn, N_hub)) {
        f.N += N_hub * cos_vert;
        f.L += N_hub * sin_vert;
    }
    if (r.apply_cyclic_def) {
        const float elev_stop = fabsf(2.0f * v.cyclic_def_elev * r.control_rat);
        const float ailn_stop = fabsf(2.0f * v.cyclic_def_ailn * r.control_rat);
        e.cyclic_elev_disc_tilt = fltlim(e.cyclic_elev_disc_tilt, -elev_stop, elev_stop);
        e.cyclic_ailn_disc_tilt = fltlim(e.cyclic_ailn_disc_tilt, -ailn_stop, ailn_stop);
        // blades that pull at hinges away from the hub's centre
        const float f_centrifugal = 0.7071f * r.kind.prop_mass * sqr(e.tacrad_PROP) * tip_radius;
        const float pull = f_centrifugal * v.flap_arm * 0.7071f;
        f.M += pull * sin_deg(e.cyclic_elev_disc_tilt);
        f.N += pull * sin_deg(e.cyclic_ailn_disc_tilt) * cos_vert;
        f.L += pull * sin_deg(e.cyclic_ailn_disc_tilt) * sin_vert;
    }
    f.L += r.hub_on_cog.L;
    f.M += r.hub_on_cog.M;
    f.N += r.hub_on_cog.N;
}

// Gyroscopic moments of a plain disc. As given: their senses are fixed so that a propeller turning clockwise
// seen from behind answers a yaw to the right with the nose up and a pitch up with a yaw to the left, and
// each rate is damped.
moments gyroscopic(const disc_run& r) {
    const flt_struct& f = flt[0];
    const disc_axes& a = r.axes;
    const float spin = r.kind.mi_prop_rpm * fabsf(r.now.tacrad_PROP);
    const float L_prop_gyro = -f.Prad * spin * pythag(a.aft.x, a.aft.y);
    const float M_prop_gyro = -f.Qrad * spin * pythag(a.aft.y, a.aft.z);
    const float N_prop_gyro = -f.Rrad * spin * pythag(a.aft.x, a.aft.z);
    const float d = r.kind.prop_dir, vert = r.now.vert_disc_cyclic, side = r.now.side_disc_cyclic;
    moments m;
    m.L = L_prop_gyro - d * N_prop_gyro * sin_deg(side) + d * M_prop_gyro * sin_deg(vert);
    m.M = M_prop_gyro - d * N_prop_gyro * cos_deg(side);
    m.N = N_prop_gyro + d * M_prop_gyro * cos_deg(vert);
    return m;
}

void plain_moments(disc_run& r) {
    const moments gyro = gyroscopic(r);
    flt[0].L += r.shaft_on_cog.L + gyro.L;
    flt[0].M += r.shaft_on_cog.M + gyro.M;
    flt[0].N += r.shaft_on_cog.N + gyro.N;
}

// -- what the disc shows
// As given: the thrust of the coning blades, N, is lessened by their mass in kilograms.
float cone_target(const disc_run& r) {
    constexpr float most = 8.0f * 0.01745329f;  // rad
    const float force_up = fallout(r.now.thrust - r.kind.prop_mass, -0.01f, 0.01f);
    const float middle = get_el_base_loc(0, r.en, 0.5f * r.blade.els, 'X');
    const float force_out = fallout(sqr(r.now.tacrad_PROP) * middle * r.kind.prop_mass, -0.01f, 0.01f);
    return fltlim(atanf(force_up / force_out), -most, most);
}

// As given: swirl, m/s, is a quarter of the wash for what the propeller wastes.
void coning_and_wash(disc_run& r) {
    flt_engn_struct& e = r.now;
    e.cone_rad = is_rotor(0, r.en) ? closer_assymp(e.cone_rad, cone_target(r), mnw.prd_FM) : 0.0f;
    e.prop_eff = e.thrust * flt[0].AV_msc / fallout(e.power, -0.1f, 0.1f);
    e.side_wash =
        fltlim((1.0f - fltlim(e.prop_eff, 0.5f, 1.0f)) * e.DVinc / 4.0f, 0.0f, fltmax2(e.DVinc / 2.0f, 0.0f));
}
}  // namespace

// Momentum theory, m/s. As given: the mass flow is counted with the whole increment at the disc, not half of
// it, and settles in a second.
float get_dv_total(float dv_total_now, float t, float s, float vgeo) {
    const float v_thru_disc = fallout(vgeo + dv_total_now, -1.0f, 1.0f);
    const float mass_flow = fltmax2(con.lcl_r_met, 0.001f) * fltmax2(s, 1e-4f) * fabsf(v_thru_disc);
    return closer_assymp(dv_total_now, t / mass_flow, mnw.prd_FM);
}

void do_a_prop(int en) {
    const veh_struct& v = veh[0];
    disc_run r{en, v.engn[en], v.wing[en], flt[0].engn[en], axes_of(en)};
    r.apply_cyclic_def = is_rotor(0, en) && (v.cyclic_def_elev > 0.0f || v.cyclic_def_ailn > 0.0f);
    r.apply_disc_tilt = is_rotor(0, en) && (v.disc_tilt_elev > 0.0f || v.disc_tilt_ailn > 0.0f);
    r.steer_disc = r.apply_cyclic_def || r.apply_disc_tilt;
    r.cw = r.kind.prop_dir > 0.0f;
    for (float& force : flt[0].wing[en].force_XYZ[0]) force = 0.0f;
    air_at_hub(r);
    dirty_air(r);
    r.now.drag_TRQ = r.now.thrust = 0.0f;
    cyclic(r);
    if (en < v.num_engines && en_is_tip(0, en))
        r.tip_thrust = get_rocket_thrust(en) * r.kind.num_blades / 4.0f;
    all_elements(r);
    if (r.steer_disc)
        steered_moments(r);
    else
        plain_moments(r);
    coning_and_wash(r);
    check_val(r.now.thrust);
    check_val(r.now.drag_TRQ);
    if (mnw.cyc_out) [[unlikely]]
        trace_values("DISC", {{"number", static_cast<float>(en)},
                              {"thrust N", r.now.thrust},
                              {"drag N m", r.now.drag_TRQ},
                              {"wash m/s", r.now.DVinc},
                              {"pitch deg", r.now.pitch_deg_use},
                              {"dirty air", r.dirty_fac}});
}
