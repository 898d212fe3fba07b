// What the arrow and zoom keys do in each view.
#include "ui/views/view_keys.h"

#include "core/math/axes.h"
#include "core/math/num.h"
#include "core/program/input_gate.h"
#include "core/records/records.h"
#include "ui/views/view_places.h"
#include "ui/views/zoom.h"

view_key view_key_of(int poker) {
    constexpr float fast = 10.0f;
    switch (poker) {
        case special_shift_up:
            return {special_up, fast};
        case special_shift_right:
            return {special_right, fast};
        case special_shift_down:
            return {special_down, fast};
        case special_shift_left:
            return {special_left, fast};
        case zoom_key_in_fast:
            return {zoom_key_in, fast};
        case zoom_key_out_fast:
            return {zoom_key_out, fast};
        default:
            return {poker, 1.0f};
    }
}

namespace {
// Right and up of an arrow, each -1 to 1.
struct arrow_struct {
    float right, up;
};
arrow_struct arrow_of(int key) {
    return {key == special_right  ? 1.0f
            : key == special_left ? -1.0f
                                  : 0.0f,
            key == special_up     ? 1.0f
            : key == special_down ? -1.0f
                                  : 0.0f};
}

constexpr float steepest = 0.45f * 3.14159265f;  // of an orbit, radians

float wrapped_rad(float angle) { return fltwrap(angle, -3.14159265f, 3.14159265f); }
}  // namespace

// -- a station that looks at another's flight

// Characters move it in its own axes, capitals ten times as far; it stays in the region and off the ground.
void zoom_class::poke_station(int poker) {
    constexpr float step = 100.0f, fast = 10.0f, eye_height = 1.75f;
    const float way = step * (poker >= 'A' && poker <= 'Z' ? fast : 1.0f);
    float x = 0.0f, y = 0.0f, z = 0.0f;
    switch (unshifted_key(poker)) {
        case 'a':
            x = -way;
            break;
        case 'd':
            x = way;
            break;
        case 'w':
            z = -way;
            break;
        case 's':
            z = way;
            break;
        case 'r':
            y = way;
            break;
        case 'f':
            y = -way;
            break;
        default:
            return;
    }
    float east, up, south;
    any_to_wrl(x, y, z, &east, &up, &south, ren.sin_final_psi, ren.cos_final_psi, ren.sin_final_the,
               ren.cos_final_the, ren.sin_final_phi, ren.cos_final_phi);
    ren.viewer_x = fltlim(ren.viewer_x + east, env.reg_x1_mtr, env.reg_x2_mtr);
    ren.viewer_z = fltlim(ren.viewer_z + south, fltmin2(env.reg_z1_mtr, env.reg_z2_mtr),
                          fltmax2(env.reg_z1_mtr, env.reg_z2_mtr));
    ren.viewer_y = fltmax2(ren.viewer_y + up, ground_of_view(ren.viewer_x, ren.viewer_z) + eye_height);
}

// -- maps

namespace {
float region_width() { return flt_abs(env.reg_x2_mtr - env.reg_x1_mtr); }
float region_depth() { return flt_abs(env.reg_z2_mtr - env.reg_z1_mtr); }
}  // namespace

// At zoom 1 the whole region shows and there is nowhere to pan to.
void zoom_class::poke_map_zoom(float ratio) {
    constexpr float most = 50000.0f;
    if (check_nan(ratio)) return;
    Pmap_zoom = fltmin2(ratio, most);
    if (Pmap_zoom < 1.0f) {
        Pmap_zoom = 1.0f;
        Pmap_osx_mtr = Pmap_osz_mtr = 0.0f;
    }
    Pmap_osx_mtr = fltlim(Pmap_osx_mtr, -0.5f * region_width(), 0.5f * region_width());
    Pmap_osz_mtr = fltlim(Pmap_osz_mtr, -0.5f * region_depth(), 0.5f * region_depth());
}

void zoom_class::poke_pan(float right, float up) {
    constexpr float per_unit = 0.004f;
    Pmap_osx_mtr += per_unit * region_width() * right / Pmap_zoom;
    Pmap_osz_mtr -= per_unit * region_depth() * up / Pmap_zoom;
    poke_map_zoom(Pmap_zoom);
}

void zoom_class::poke_flat_map(int poker) {
    constexpr float step = 1.1f, part = 0.1f;
    const view_key k = view_key_of(poker);
    const arrow_struct arrow = arrow_of(k.key);
    const float way = part * region_depth() / (Pmap_zoom * k.turbo);
    Pmap_osx_mtr += way * arrow.right;
    Pmap_osz_mtr -= way * arrow.up;
    poke_map_zoom(k.key == zoom_key_in    ? Pmap_zoom * step * k.turbo
                  : k.key == zoom_key_out ? Pmap_zoom / (step * k.turbo)
                                          : Pmap_zoom);
}

void zoom_class::poke_relief(int poker) {
    constexpr float closer = 1.05f, farther = 0.952381f, most = 20.0f, lowest = 0.0174532925f;
    const view_key k = view_key_of(poker);
    const arrow_struct arrow = arrow_of(k.key);
    const float way = k.turbo / Pmap3_zoom * mnw.prd_UI;
    Pmap3_the_rad =
        fltlim(Pmap3_the_rad + way * arrow.up, mnw.top_win == win_wrl ? -steepest : lowest, steepest);
    Pmap3_psi_rad = wrapped_rad(Pmap3_psi_rad + way * arrow.right);
    if (k.key == zoom_key_in) Pmap3_zoom *= closer;
    if (k.key == zoom_key_out) Pmap3_zoom *= farther;
    Pmap3_zoom = fltlim(Pmap3_zoom, 1.0f, most);
}

// -- views

// Over the ground, to the right and away as the view looks.
void zoom_class::poke_runway_spot(int poker) {
    constexpr float speed = 4.0f;  // m/s
    const view_key k = view_key_of(poker);
    const arrow_struct arrow = arrow_of(k.key);
    const float way = speed * k.turbo * mnw.prd_FM;
    Pspot_x += way * (arrow.right * ren.cos_final_psi + arrow.up * ren.sin_final_psi);
    Pspot_z += way * (arrow.right * ren.sin_final_psi - arrow.up * ren.cos_final_psi);
}

void zoom_class::poke_spot_view(int poker) {
    constexpr float speed = 20.0f;  // m/s
    const view_key k = view_key_of(poker);
    const arrow_struct arrow = arrow_of(k.key);
    const float way = speed * k.turbo * mnw.prd_FM;
    const bool is_moving = ren.view_type_act == view_moving_spot;  // its eye follows no spot
    (is_moving ? ren.view_xyz[0] : Pspot_x) += way * arrow.right * ren.cos_final_psi;
    (is_moving ? ren.view_xyz[1] : Pspot_y) += way * arrow.up;
    (is_moving ? ren.view_xyz[2] : Pspot_z) += way * arrow.right * ren.sin_final_psi;
}

// The eye goes where the arrow points.
void zoom_class::poke_chase(int poker) {
    constexpr float farthest = 1e8f;  // m; the planet is 7 degrees wide from there
    const view_key k = view_key_of(poker);
    const arrow_struct arrow = arrow_of(k.key);
    const float way = k.turbo * interp(0.0f, 4.0f, 1.0f, 0.4f, sqrtf(500.0f * Pcirc_dist)) * mnw.prd_FM;
    Pcirc_the_rad = fltlim(Pcirc_the_rad - way * arrow.up, -steepest, steepest);
    Pcirc_psi_rad = wrapped_rad(Pcirc_psi_rad - way * arrow.right);
    if (k.key == zoom_key_in) Pcirc_dist *= 1.0f - 4.0f * mnw.prd_FM;
    if (k.key == zoom_key_out) Pcirc_dist *= 1.0f + 4.0f * mnw.prd_FM;
    Pcirc_dist = fltlim(Pcirc_dist, 0.0f, farthest);
}

// Zoom of whatever is no orbit; the panel under a view from inside scrolls.
void zoom_class::poke_picture(int poker) {
    constexpr float closer = 1.5f, farther = 0.75f, most = 50000.0f;
    const int code = ren.view_type_act;
    if (poker == zoom_key_in || poker == zoom_key_in_fast) Preq_zoom *= closer;
    if (poker == zoom_key_out || poker == zoom_key_out_fast) Preq_zoom *= farther;
    Preq_zoom = fltlim(Preq_zoom, 1.0f, most);
    if (code == view_runway) return poke_runway_spot(poker);
    if (code == view_still_spot || code == view_moving_spot) return poke_spot_view(poker);
    if (!draw_back_buff()) return;
    if (poker == special_up) Pscroll_mode = intmax2(Pscroll_mode - 1, scroll_up);
    if (poker == special_down) Pscroll_mode = intmin2(Pscroll_mode + 1, scroll_down);
}

void zoom_class::poke_zoom(int poker) {
    const bool is_map = mnw.top_win == win_map || mnw.top_win == win_map_ios || mnw.top_win == win_map_2;
    const int code = ren.view_type_act;
    if (ren.is_viewer && !is_map && mnw.top_win != win_wrl) return poke_station(poker);
    if (is_map && !mnw.map_is_3d) return poke_flat_map(poker);
    if (is_map || mnw.top_win == win_wrl) return poke_relief(poker);
    if (code == view_chase || code == view_circle || code == view_weapon) return poke_chase(poker);
    poke_picture(poker);
}
