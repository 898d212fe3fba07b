// The camera of each drawn frame.
#include "ui/views/zoom.h"

#include <math.h>

#include <initializer_list>

#include "cockpit/panel.h"
#include "core/math/axes.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "flight/weapons/weapons.h"
#include "plugins/host.h"
#include "ui/views/view_angles.h"
#include "ui/views/view_places.h"

zoom_class zoom;

namespace {
constexpr float above_ground = 1.7f, seat_above_ground = 1.5f;  // that no view goes below, m
constexpr float pi = 3.14159265f;

// What the view follows and how it stands now.
struct target_struct {
    place_struct at;
    float the, psi, phi;
    float h_path, v_path;  // of the way flown, degrees
    float speed;           // m/s
};

struct view_state {
    float circle_dist = 0.0f, freeview_psi_rad = 0.0f,
          freeview_the_rad = 0.0f;  // of the outside view as it eases
    target_struct target = {};
    attitude_struct des_view = {};  // of the view before the cockpit's turn, degrees
    float last_xyz[3] = {}, last_psi = 0.0f, last_the = 0.0f,
          last_phi = 0.0f;  // of the last view that was sound
    float size = 0.0f;      // of the aircraft for which the orbit was chosen, m
};
view_state state;

bool stands_outside(int code) {
    switch (code) {
        case view_tower:
        case view_runway:
        case view_chase:
        case view_circle:
        case view_still_spot:
        case view_moving_spot:
        case view_weapon:
            return true;
        default:
            return false;
    }
}

bool is_chase(int code) { return code == view_chase || code == view_circle || code == view_weapon; }

place_struct eye() { return {ren.view_xyz[0], ren.view_xyz[1], ren.view_xyz[2]}; }

void put_eye(const place_struct& at) {
    ren.view_xyz[0] = at.x, ren.view_xyz[1] = at.y, ren.view_xyz[2] = at.z;
}

// The whole way, or so much of it.
void ease_eye(const place_struct& to, float speedrat) {
    speedrat = fltlim(speedrat, 0.0f, 1.0f);
    put_eye({closer_assymp(ren.view_xyz[0], to.x, speedrat), closer_assymp(ren.view_xyz[1], to.y, speedrat),
             closer_assymp(ren.view_xyz[2], to.z, speedrat)});
}

float ease_angle_rad(float now, float to, float speedrat) {
    return fltwrap(now + fltwrap(to - now, -pi, pi) * fltlim(speedrat, 0.0f, 1.0f), -pi, pi);
}

void keep_above_ground(float least) {
    const float lowest = ground_of_view(ren.view_xyz[0], ren.view_xyz[2]) + least;
    ren.view_xyz[1] = fltmax2(ren.view_xyz[1], lowest);
}
}  // namespace

void reset_views() {
    zoom = {};
    state = {};
}

int view_is_external() {
    return stands_outside(ren.view_type_act) || ren.wpn_to_track >= 0 || mnw.top_win != win_fly;
}

int view_is_internal() { return !view_is_external(); }

int draw_back_buff() {
    return ren.view_type_act == view_fwd_panel || intrange(ren.view_type_act, view_left_45, view_back);
}

// Clockwise from ahead.
int view_type() {
    switch (ren.view_type_act) {
        case view_right_45:
        case view_up_right:
            return 1;
        case view_right_90:
            return 2;
        case view_right_135:
            return 3;
        case view_back:
            return 4;
        case view_left_135:
            return 5;
        case view_left_90:
            return 6;
        case view_left_45:
        case view_up_left:
            return 7;
        default:
            return 0;
    }
}

// -- who is followed

namespace {
void follow_aircraft() {
    const flt_struct& f = flt[0];
    state.target = {{static_cast<float>(f.dob_x), static_cast<float>(f.dob_y), static_cast<float>(f.dob_z)},
                    f.the,
                    f.psi,
                    f.phi,
                    f.h_path,
                    atan2_deg(f.vy, pythag(f.vx, f.vz)),
                    f.V_msc};
}

// The last store that is under way, -1 for none.
int weapon_in_flight() {
    int found = -1;
    for (int w = 0; w < wattDIM; ++w)
        if (wpn_can_exist(0, w) && veh[0].wpn[w].free_flyer && veh[0].wpn[w].action_mode == 1) found = w;
    return found;
}

void follow_weapon(const wpn_struct& w) {
    const float over_ground = pythag(w.vx, w.vz);
    state.target = {{w.x, w.y, w.z},
                    w.the_wrl,
                    w.psi_wrl,
                    w.phi_wrl,
                    fltwrap(atan2_deg(w.vx, -w.vz), 0.0f, 360.0f),
                    atan2_deg(w.vy, over_ground),
                    pythag(over_ground, w.vy)};
}

void find_target() {
    ren.wpn_to_track = ren.view_type_act == view_weapon ? weapon_in_flight() : -1;
    if (ren.wpn_to_track >= 0)
        follow_weapon(veh[0].wpn[ren.wpn_to_track]);
    else
        follow_aircraft();
}

// 1 when somebody else has placed the camera.
int is_placed_elsewhere() {
    if (net.getting_camera) return 1;
    float map_zoom = zoom.map_zoom();
    if (!TVPCameraHook(&ren.view_xyz[0], &ren.view_xyz[1], &ren.view_xyz[2], &ren.final_the, &ren.final_psi,
                       &ren.final_phi, &map_zoom)) {
        ren.cockpit_the = ren.cockpit_psi = 0.0f;
        return 1;
    }
    zoom.poke_map_zoom(map_zoom);
    return 0;
}

// -- places

void stand_on_tower() {
    const tower_struct tower = tower_place(state.target.at);
    ease_eye(tower.at, tower.is_on_ship ? 1.0f : mnw.prd_FM);
}

// Of the chase the way flown, once there is one; of the others the world.
attitude_struct chase_reference() {
    const target_struct& t = state.target;
    if (ren.view_type_act != view_chase) return {};
    const float share = interp(10.0f, 0.0f, 20.0f, 1.0f, t.speed);
    return {t.psi + fltwrap(t.h_path - t.psi, -180.0f, 180.0f) * share, t.the + (t.v_path - t.the) * share,
            0.0f};
}

void stand_behind() {
    const attitude_struct reference = chase_reference();
    const float psi = reference.psi + state.freeview_psi_rad * con.radtodeg;
    const float the = fltlim(reference.the + state.freeview_the_rad * con.radtodeg, -89.0f, 89.0f);
    const float out = state.circle_dist * cos_deg(the);
    const place_struct& at = state.target.at;
    put_eye({at.x - out * sin_deg(psi), at.y - state.circle_dist * sin_deg(the), at.z + out * cos_deg(psi)});
}

void look_at_target() {
    const place_struct from = eye(), &at = state.target.at;
    state.des_view = direction_to(at.x - from.x, at.y - from.y, at.z - from.z);
}

void sit_inside() {
    const target_struct& t = state.target;
    state.des_view = {t.psi, t.the, t.phi};
    put_eye(t.at);
    if (ren.wpn_to_track >= 0) return;
    constexpr float farthest = 1000.0f;  // m; an eye beyond is none
    const float* pe = veh[0].pe_xyz;
    if (!(pythag(pe[0], pe[1], pe[2]) < farthest)) return;
    float x, y, z;
    veh_to_wrl(pe[0], pe[1], pe[2], &x, &y, &z, 0);
    put_eye({t.at.x + x, t.at.y + y, t.at.z + z});
}

bool is_use_viewer() { return ren.is_viewer && mnw.miss_time > mnw.prd_FM; }

void force_roles() {
    if (is_use_viewer()) ren.view_type_act = view_fwd_bare;
    if (net.use_ip[ip_master_view]) ren.view_type_act = view_fwd_bare;
    if (net.use_ip[ip_master_cockpit]) ren.view_type_act = view_fwd_panel;
}

// -- angles

void turn_in_cockpit() {
    const attitude_struct turn = turn_of_view(ren.view_type_act);
    ren.cockpit_psi = ren.off_lat_deg + ren.mouse_look_os_psi + turn.psi;
    ren.cockpit_the = ren.off_vrt_deg + ren.mouse_look_os_the + turn.the;
    if (view_is_internal()) ren.cockpit_the += zoom.Pact_lookdown;
    ren.cockpit_phi = ren.off_phi_deg;
}

// What is no number turns nothing: settings and places come from files, plugins and the network.
float number_or_0(float angle) { return check_nan(angle) ? 0.0f : angle; }

void compose_final_angles() {
    const float half = tan_deg(0.5f * ren.FOV);
    const float off_lat = atan_deg(half * ren.off_lat_rat), off_vrt = atan_deg(half * ren.off_vrt_rat);
    const attitude_struct& view = state.des_view;
    get_euler_from_eulers(number_or_0(ren.cockpit_psi + off_lat), number_or_0(view.psi),
                          number_or_0(ren.elum_ref_psi), &ren.final_psi,
                          number_or_0(ren.cockpit_the + off_vrt), number_or_0(view.the),
                          number_or_0(ren.elum_ref_the), &ren.final_the, number_or_0(ren.cockpit_phi),
                          number_or_0(view.phi), number_or_0(ren.elum_ref_phi), &ren.final_phi);
}

// The station's own angles, or where it will start from.
void exchange_with_station() {
    if (is_use_viewer()) {
        ren.final_psi = ren.viewer_psi, ren.final_the = ren.viewer_the, ren.final_phi = 0.0f;
        return;
    }
    ren.viewer_x = ren.view_xyz[0], ren.viewer_y = ren.view_xyz[1], ren.viewer_z = ren.view_xyz[2];
    ren.viewer_psi = ren.final_psi, ren.viewer_the = ren.final_the;
}

// -- results

bool is_sound() {
    constexpr float farthest = 1e9f;  // m; from beyond it nothing is seen
    for (const float v : ren.view_xyz)
        if (!(flt_abs(v) < farthest)) return false;
    return flt_abs(ren.final_psi) < 1e6f && flt_abs(ren.final_the) < 1e6f && flt_abs(ren.final_phi) < 1e6f;
}

// Whatever an aircraft's file, a plugin or the network say, the camera stays where it can see.
void keep_last_sound_view() {
    if (is_sound()) {
        for (int i = 0; i < 3; ++i) state.last_xyz[i] = ren.view_xyz[i];
        state.last_psi = ren.final_psi, state.last_the = ren.final_the, state.last_phi = ren.final_phi;
        return;
    }
    for (int i = 0; i < 3; ++i) ren.view_xyz[i] = state.last_xyz[i];
    ren.final_psi = state.last_psi, ren.final_the = state.last_the, ren.final_phi = state.last_phi;
}

void find_heights() {
    double lat, lon, ele, ground_ele;
    xdob_latlonel_with_xyz(&lat, &lon, &ele, ren.view_xyz[0], ren.view_xyz[1], ren.view_xyz[2]);
    const float ground = ground_of_view(ren.view_xyz[0], ren.view_xyz[2]);
    xdob_latlonel_with_xyz(&lat, &lon, &ground_ele, ren.view_xyz[0], ground, ren.view_xyz[2]);
    ren.view_ele_msl = static_cast<float>(ele);
    ren.view_ele_agl = static_cast<float>(ele - ground_ele);
}

void cache_angles() {
    const attitude_struct a = folded({ren.final_psi, ren.final_the, ren.final_phi});
    ren.final_psi = a.psi, ren.final_the = a.the, ren.final_phi = a.phi;
    ren.sin_final_psi = sin_deg(a.psi), ren.cos_final_psi = cos_deg(a.psi);
    ren.sin_final_the = sin_deg(a.the), ren.cos_final_the = cos_deg(a.the);
    ren.sin_final_phi = sin_deg(a.phi), ren.cos_final_phi = cos_deg(a.phi);
}

// A picture that can be seen.
void limit_picture() {
    constexpr float farthest_aside = 100.0f;  // halves of the picture
    if (!(ren.FOV >= 1.0f && ren.FOV <= 170.0f)) ren.FOV = 45.0f;
    for (float* aside : {&ren.off_lat_rat, &ren.off_vrt_rat})
        if (!(flt_abs(*aside) <= farthest_aside)) *aside = 0.0f;
}

// Tangents of the picture's edges; y for a picture as high as wide.
void open_picture() {
    const float half = ren.FOV / 90.0f, height = mnw.y_res_now / fltmax2(mnw.xy_scale, 0.01f);
    const float centre = VIEW_cntr_y_now() / fltmax2(height, 1.0f);
    float shift = 0.0f;
    if (ren.elum_renders && mnw.x_res_now > 0)
        shift = 0.5f * static_cast<float>(ren.elum_dx - mnw.x_res_now) / static_cast<float>(mnw.x_res_now);
    mnw.x1_rat = (ren.off_lat_rat - 1.0f + shift) * half;
    mnw.x2_rat = (ren.off_lat_rat + 1.0f + shift) * half;
    mnw.y1_rat = (-2.0f * centre + ren.off_vrt_rat) * half;
    mnw.y2_rat = (2.0f * (1.0f - centre) + ren.off_vrt_rat) * half;
}
}  // namespace

void zoom_class::ease_settings() {
    constexpr float closest = 1.5f, zoom_max = 50000.0f;
    const float least = closest * veh[0].size_tot;
    if (state.size != veh[0].size_tot) state.size = veh[0].size_tot, Pcirc_dist = state.circle_dist = least;
    Pcirc_dist = fltmax2(Pcirc_dist, least);
    Preq_zoom = fltlim(Preq_zoom, 1.0f, zoom_max);
    const float most = 6.0f * Pact_zoom * mnw.prd_FM;
    Pact_zoom = fltlim(Pact_zoom + fltlim(Preq_zoom - Pact_zoom, -most, most), 1.0f, zoom_max);
    const float* const scrolls[] = {Pscroll_UP, Pscroll_CTR, Pscroll_DN};
    const float ease = fltlim(4.0f * mnw.prd_FM, 0.0f, 1.0f);
    Pscroll_pix =
        closer_assymp(Pscroll_pix, scrolls[intlim(Pscroll_mode, scroll_up, scroll_down)][view_type()], ease);
    Pact_lookdown = closer_assymp(Pact_lookdown, Preq_lookdown, ease);
}

// -- the spot's views

void zoom_class::move_with_spot() {
    if (ren.view_type_act == view_moving_spot && !mnw.paused) {
        ren.view_xyz[0] += Pspot_vx * mnw.prd_FM;
        ren.view_xyz[1] += Pspot_vy * mnw.prd_FM;
        ren.view_xyz[2] += Pspot_vz * mnw.prd_FM;
    }
    if (ren.view_type_act == view_still_spot || ren.view_type_act == view_runway)
        ease_eye({Pspot_x, Pspot_y, Pspot_z}, fltmin2(4.0f * mnw.prd_FM * Pact_zoom, 1.0f - mnw.prd_FM));
}

void zoom_class::follow_target() {
    const int code = ren.view_type_act;
    state.circle_dist = closer_assymp(state.circle_dist, Pcirc_dist, fltlim(mnw.prd_FM, 0.0f, 1.0f));
    state.freeview_psi_rad = ease_angle_rad(state.freeview_psi_rad, Pcirc_psi_rad, 4.0f * mnw.prd_FM);
    state.freeview_the_rad = ease_angle_rad(state.freeview_the_rad, Pcirc_the_rad, 4.0f * mnw.prd_FM);
    if (is_chase(code)) stand_behind();
    keep_above_ground(above_ground);
    look_at_target();
}

void zoom_class::place_view() {
    if (ren.view_type_act == view_tower) stand_on_tower();
    move_with_spot();
    if (is_use_viewer()) return ease_eye({ren.viewer_x, ren.viewer_y, ren.viewer_z}, 4.0f * mnw.prd_FM);
    if (stands_outside(ren.view_type_act)) return follow_target();
    sit_inside();
    keep_above_ground(seat_above_ground);
}

void zoom_class::update_per_frame() {
    limit_picture();
    force_roles();
    find_target();
    if (is_placed_elsewhere()) {
        keep_last_sound_view();
        cache_angles();
    } else {
        place_view();
        state.des_view = folded(state.des_view);
        turn_in_cockpit();
        compose_final_angles();
        exchange_with_station();
        keep_last_sound_view();
        cache_angles();
    }
    find_heights();
    open_picture();
    ease_settings();
}

// -- another local frame; the eye itself moves with the region

void zoom_class::shift(const double q[4]) {
    const auto turn = [q](float* x, float* y, float* z, int is_v) {
        double dx = *x, dy = *y, dz = *z;
        shift_xyz_quat(q, &dx, &dy, &dz, is_v);
        *x = static_cast<float>(dx), *y = static_cast<float>(dy), *z = static_cast<float>(dz);
    };
    turn(&Pspot_x, &Pspot_y, &Pspot_z, 0);
    turn(&Pspot_vx, &Pspot_vy, &Pspot_vz, 1);
    turn(&ren.viewer_x, &ren.viewer_y, &ren.viewer_z, 0);
    turn(&state.last_xyz[0], &state.last_xyz[1], &state.last_xyz[2], 0);
}

void shift_camera_spot(const double q_shift[4]) { zoom.shift(q_shift); }
void poke_zoom(int int_key) { zoom.poke_zoom(int_key); }
void poke_pan(float dx, float dy) { zoom.poke_pan(dx, dy); }
