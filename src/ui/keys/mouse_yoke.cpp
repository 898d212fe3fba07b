// A click in the middle of the picture takes the yoke and gives it back.
#include "ui/keys/mouse_yoke.h"

#include <math.h>

#include "core/math/num.h"
#include "core/program/seams.h"
#include "core/records/mnw.h"
#include "core/records/net.h"

namespace {
constexpr float reach = 100.0f;     // virtual units from the centre to full deflection; a click within takes the yoke
constexpr float lost = 250.0f;      // the pointer is on its way elsewhere
constexpr float blend_time = 0.5f;  // s from the present stick to the mouse's, or back to neutral

struct yoke_state {
    bool held = false;                       // in the last frame
    float ptch_from = 0.0f, roll_from = 0.0f;  // yoke as it was taken or given back, -1 to 1
    float changed_at = -9999.0f;             // real_time of that
    bool blending = false;                   // the stick is still on its way
    bool has_centre = false;
    float centre_x = 0.0f, centre_y = 0.0f;  // of the picture in the last flying frame
};
yoke_state state;

// Whatever else moves the controls has them for itself.
bool others_fly() {
    for (int slot = ip_master_view; slot <= ip_master_ios; ++slot)
        if (net.use_ip[slot]) return true;
    return mnw.has_joy || mnw.eq_pfc_yoke || net.getting_rawjoy || net.getting_astab || net.getting_flightcons;
}

bool may_fly() { return seam.has_display && mnw.top_win == win_fly && mnw.menu_up < 0 && !mnw.replay_mode && !others_fly(); }

void follow_centre() {
    const float x = 0.5f * (mnw.x1_pix + mnw.x2_pix), y = 0.5f * (mnw.y1_pix + mnw.y2_pix);
    if (state.has_centre && (fabsf(x - state.centre_x) > 1.0f || fabsf(y - state.centre_y) > 1.0f))
        mnw.mouse_is_joy = 0;
    state.has_centre = true;
    state.centre_x = x;
    state.centre_y = y;
}

// 0 to 1 since the yoke was taken or given back.
float blended() { return fltlim((mnw.real_time - state.changed_at) / blend_time, 0.0f, 1.0f); }

void note_change() {
    const bool held = mnw.mouse_is_joy;
    if (held == state.held) return;
    state.held = held;
    state.ptch_from = mnw.YK_ptch;
    state.roll_from = mnw.YK_roll;
    state.changed_at = mnw.real_time;
    state.blending = true;
}

void assign(float ptch, float roll) {
    const float share = blended();
    state.blending = share < 1.0f;
    mnw.assigned[axis_ptch] = mnw.assigned[axis_roll] = 1;
    mnw.axis[axis_ptch] = state.ptch_from + share * (ptch - state.ptch_from);
    mnw.axis[axis_roll] = state.roll_from + share * (roll - state.roll_from);
}
}  // namespace

void reset_mouse_yoke() { state = {}; }

bool mouse_yoke_is_free() { return may_fly() && !mnw.mouse_is_joy; }

void mouse_yoke_step() {
    if (!seam.has_display) return;
    mnw.assigned[axis_ptch] = mnw.assigned[axis_roll] = 0;
    if (mnw.top_win == win_fly) follow_centre();
    const float x = mnw.mx - state.centre_x, y = mnw.my - state.centre_y;
    const float from_centre = pythag(x, y);
    if (!may_fly() || from_centre > lost)
        mnw.mouse_is_joy = 0;
    else if (mnw.mouse_clicked && from_centre < reach)
        mnw.mouse_is_joy = !mnw.mouse_is_joy;
    note_change();
    if (mnw.mouse_is_joy)
        assign(fltlim(-y / reach, -1.0f, 1.0f), fltlim(x / reach, -1.0f, 1.0f));
    else if (state.blending && !others_fly())
        assign(0.0f, 0.0f);
}
