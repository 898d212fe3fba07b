// Hulls on water.
#include "flight/ground/water.h"

#include <math.h>

#include "aircraft/design/exists.h"
#include "core/math/axes.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/records.h"
#include "flight/force/forces.h"
#include "flight/ground/contact_state.h"
#include "sound/sound.h"
#include "weather/puffs.h"

float wave_h(float x, float y, float z) {
    constexpr float least_height = 0.03048f;  // m, a tenth of a foot
    if (!(atm.wave_height > least_height && atm.wave_length > 0.0f)) return y;
    const int dir = intwrap(atm.wave_dir, 0, 359);
    const double dis = static_cast<double>(atm.wave_speed) * mnw.totl_time;
    const double wave_x = -dis * lookup_sin[dir], wave_z = dis * lookup_cos[dir];
    const double cycles_off =
        ((z - wave_z) * lookup_cos[dir] - (x - wave_x) * lookup_sin[dir]) / atm.wave_length;
    const double phase = cycles_off - floor(cycles_off);
    return y + 0.5f * atm.wave_height * sinf(con.pim2 * static_cast<float>(phase));
}

namespace {
// A panel of the keel: half across to each neighbour, and on to the next station. Across is positive, so that
// the bow's panels, which fall aft, have a face to the water.
struct panel_struct {
    float dX_acf, dY_acf, dZ_acf;  // m
};

panel_struct panel_of(const veh_part_struct& body, int s, int r) {
    const float* here = body.geo_xyz[s][r];
    const float* next = body.geo_xyz[s + 1][r];
    const float across = body.geo_xyz[s][r + 1][0] - body.geo_xyz[s][r - 1][0];
    return {fabsf(0.5f * across), next[1] - here[1], next[2] - here[2]};
}

struct motion_struct {
    float vx, vy, vz;         // of the point, world frame, m/s
    float v;                  // its length
    float hpath, beta_water;  // track, and heading off it, degrees
};

motion_struct motion_of(float x, float y, float z) {
    const flt_struct& f = flt[0];
    motion_struct m;
    veh_to_wrl(f.Prad * y - f.Rrad * z, -f.Prad * x - f.Qrad * z, f.Rrad * x + f.Qrad * y, &m.vx, &m.vy,
               &m.vz, 0);
    m.vx += f.vx, m.vy += f.vy, m.vz += f.vz;
    m.v = pythag(m.vx, m.vy, m.vz);
    m.hpath = fltwrap(atan2_deg(m.vx, -m.vz), 0.0f, 360.0f);
    m.beta_water = fltwrap(f.psi - m.hpath, -180.0f, 180.0f);
    return m;
}

struct water_force {
    float vertical, axial, side;  // N; along the path aft, and right of it
};

// As given: coefficients of wetted, frontal and side area; damping and planing with the square of the speed.
water_force force_on(const panel_struct& p, const motion_struct& m, float depth) {
    const flt_struct& f = flt[0];
    const float dY_glo = f.cos_the * p.dY_acf - f.sin_the * p.dZ_acf;
    const float dZ_glo = f.sin_the * p.dY_acf + f.cos_the * p.dZ_acf;
    const float slope = fltlim(dY_glo / fallout(dZ_glo, -0.01f, 0.01f), -2.0f, 0.0f);
    const float wet_area = fabsf(p.dZ_acf * p.dX_acf);
    const float cap_area = fltmax2(-p.dX_acf * dY_glo, 0.0f);
    const float sid_area = fabsf(dZ_glo * dY_glo);
    const float rho = con.planet_rho_water, Q = 0.5f * sqr(m.v) * rho;
    const float sin_beta = sin_deg(m.beta_water), cos_beta = cos_deg(m.beta_water);
    const float buoyancy = rho * depth * wet_area * con.g;
    const float damping = -signsqr(m.vy) * wet_area * rho;
    const float planing = -signsqr(m.v) * slope * cap_area * rho;
    return {buoyancy + damping + planing,
            (0.0016f * wet_area + 0.025f * cap_area + 0.25f * sid_area * fabsf(sin_beta)) * Q,
            0.1f * sid_area * Q * sin_beta * fabsf(cos_beta)};
}

// Along the local vertical, which leans from the world's y away from the region's centre: a kilogram that
// floats there must not slide down towards it.
void add_force(const water_force& force, const motion_struct& m, float x, float y, float z) {
    const flt_struct& f = flt[0];
    const float most = f.m_total * con.g, vertical = fltlim(force.vertical, -most, most);
    const float sin_path = sin_deg(m.hpath), cos_path = cos_deg(m.hpath);
    const float axil = fltlim(force.side * sin_path + force.axial * cos_path, -most, most);
    const float side = fltlim(force.side * cos_path - force.axial * sin_path, -most, most);
    const double up[3] = {f.dob_x, f.dob_y + con.planet_rad, f.dob_z};
    const double height = sqrt(up[0] * up[0] + up[1] * up[1] + up[2] * up[2]);
    float fx, fy, fz;
    wrl_to_veh(side + vertical * static_cast<float>(up[0] / height),
               vertical * static_cast<float>(up[1] / height),
               axil + vertical * static_cast<float>(up[2] / height), &fx, &fy, &fz, 0);
    addFsgear(0, fx, y, z);
    addFngear(0, fy, x, z);
    addFagear(0, fz, x, y);
}

// One panel in five, ten times a second.
void spray(const panel_struct& p, const motion_struct& m, const float (&at)[3]) {
    if (!mnw.puff10 || !(m.v > 1.0f) || int_rand(1, 5) != 1) return;
    const float size = sqrtf(fabsf(p.dX_acf * p.dZ_acf)) * sqrtf(0.004f * m.v);
    if (size > 0.05f * veh[0].size_tot)
        puff.spawn_puff(at[0], at[1], at[2], m.vx, m.vy, m.vz, size, puff_wet, 1.0f);
}

// -- rudder, splash, anchor

void steer_by_water_rudder() {
    const flt_struct& f = flt[0];
    const veh_struct& v = veh[0];
    const bool pedals = mnw.eq_ped_nobrk || mnw.eq_ped_wibrk;
    const float beta_water = fltwrap(f.psi - f.h_path, -180.0f, 180.0f);
    const float def = v.water_rud_maxdef * (pedals ? mnw.YK_hdng : mnw.YK_roll) - beta_water;
    const float cl = fltlim(0.05f * def, -1.0f, 1.0f);
    const float Q = 0.5f * sqr(f.V_msc) * con.planet_rho_water;
    // as given: no more newtons than the empty aircraft has kilograms
    const float force = fltlim(v.water_rud_area * cl * Q, -v.m_empty, v.m_empty);
    addFsgear(0, -force, 0.0f, v.water_rud_Z);
}

void splash() {
    constexpr float every = 1.5f;  // s
    if (mnw.totl_time - contact_state.time_last_play < every) return;
    contact_state.time_last_play = mnw.totl_time;
    const float V = flt[0].V_msc;
    soun.SOUND_set(sound_water, fltlim(0.02f * V, 0.0f, 1.0f), fltlim(0.05f * V, 0.0f, 1.0f));
}

// Holds at most two metres a second squared. The way back to the anchor is turned into the aircraft's axes,
// or it would lead away from it on southerly headings. An anchor beyond any chain belongs to a frame of the
// world that has moved since.
void hold_anchor() {
    const flt_struct& f = flt[0];
    constexpr float longest_chain = 1000.0f;  // m
    const auto off_x = static_cast<float>(f.dob_x - contact_state.anchor_x);
    const auto off_z = static_cast<float>(f.dob_z - contact_state.anchor_z);
    if (!(stg.parkbrake > 0.5f) || pythag(off_x, off_z) > longest_chain) return weigh_anchor();
    float dx, dy, dz;
    wrl_to_veh(off_x, 0.0f, off_z, &dx, &dy, &dz, 0);
    const float side = f.m_total * fltlim(-f.vx_acf_axis - 0.1f * dx, -2.0f, 2.0f);
    const float axial = f.m_total * fltlim(-f.vz_acf_axis - 0.1f * dz, -2.0f, 2.0f);
    const float* at = veh[0].anchor_xyz;
    addFsgear(0, side, at[1], at[2]);
    addFagear(0, axial, at[0], at[1]);
}

// The six rings about the keel; a body of fewer rings has none.
bool float_body(int en) {
    constexpr int below = 3, above = 2, least_rings = 8;
    const veh_part_struct& body = veh[0].part[en];
    if (body.r_dim < least_rings) return false;
    bool in_water = false;
    for (int s = 0; s <= body.s_dim - 2; ++s)
        for (int r = body.r_dim / 2 - below; r <= body.r_dim / 2 + above; ++r) {
            const float *a = body.geo_xyz[s][r], *b = body.geo_xyz[s + 1][r];
            if (handle_float_point(en, s, r, body.part_x + 0.5f * (a[0] + b[0]),
                                   body.part_y + 0.5f * (a[1] + b[1]), body.part_z + 0.5f * (a[2] + b[2])))
                in_water = true;
        }
    return in_water;
}
}  // namespace

void weigh_anchor() {
    contact_state.anchor_x = flt[0].dob_x;
    contact_state.anchor_z = flt[0].dob_z;
}

int handle_float_point(int en, int s, int r, float x_acf, float y_acf, float z_acf) {
    const flt_struct& f = flt[0];
    float dx, dy, dz;
    veh_to_wrl(x_acf, y_acf, z_acf, &dx, &dy, &dz, 0);
    const float at[3] = {static_cast<float>(f.dob_x + dx), static_cast<float>(f.dob_y + dy),
                         static_cast<float>(f.dob_z + dz)};
    const float depth = wave_h(at[0], f.terrain_y_cg, at[2]) - at[1];
    if (!(depth > 0.0f)) return 0;
    const panel_struct panel = panel_of(veh[0].part[en], s, r);
    const motion_struct motion = motion_of(x_acf, y_acf, z_acf);
    add_force(force_on(panel, motion, depth), motion, x_acf, y_acf, z_acf);
    spray(panel, motion, at);
    return 1;
}

void float_on_water() {
    bool in_water = false;
    for (int en = part_fuse_first; en <= part_fair_last; ++en)
        if (has_this_body(0, en) && float_body(en)) in_water = true;
    if (!in_water) return weigh_anchor();  // in the air it hangs on board
    flt[0].onground_any = flt[0].onground_all = 1;
    steer_by_water_rudder();
    splash();
    hold_anchor();
}
