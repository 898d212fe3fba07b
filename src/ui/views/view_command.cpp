// What a view command does.
#include "ui/views/view_command.h"

#include "cockpit/panel.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "ui/views/view_places.h"
#include "ui/views/zoom.h"

int view_command_exists(int item) {
#define VIEW_CASE(name, number) case number:
    switch (item) {
        VIEW_CODES(VIEW_CASE)
        return 1;
        default:
            return 0;
    }
#undef VIEW_CASE
}

namespace {
place_struct aircraft_in(float seconds) {
    const flt_struct& f = flt[0];
    return {static_cast<float>(f.dob_x) + seconds * f.vx, static_cast<float>(f.dob_y) + seconds * f.vy,
            static_cast<float>(f.dob_z) + seconds * f.vz};
}

void put_view(const place_struct& at, float offset) {
    ren.view_xyz[0] = at.x + offset, ren.view_xyz[1] = at.y + offset, ren.view_xyz[2] = at.z + offset;
}

// Each press looks down a little more, and then ahead again.
void look_down_a_step() {
    constexpr float step = 5.0f, lowest = -15.0f;
    zoom.Preq_lookdown = zoom.Preq_lookdown > lowest ? zoom.Preq_lookdown - step : 0.0f;
}

void look_afresh() {
    ren.joy_look = ren.mouse_look = 0;
    zoom.Preq_zoom = zoom.Pact_zoom = 1.0f;
    zoom.Preq_lookdown = 0.0f;
}

void start_view(int code) {
    const float offset = fltmax2(0.05f * flt[0].V_msc, 1.5f * veh[0].size_x);
    constexpr float ahead_of_spot = 4.0f, ahead_of_moving = 0.5f;  // s
    if (code == view_runway) {
        const place_struct end = nearest_runway_end(aircraft_in(0.0f));
        zoom.poke_spot(end.x, end.y, end.z);
    }
    if (code == view_chase) zoom.poke_psi_the_rad(0.0f, 0.0f);
    if (code == view_still_spot) {
        put_view(aircraft_in(ahead_of_spot), offset);
        zoom.poke_spot(ren.view_xyz[0], ren.view_xyz[1], ren.view_xyz[2]);
    }
    if (code == view_moving_spot) {
        put_view(aircraft_in(ahead_of_moving), offset);
        zoom.Pspot_vx = flt[0].vx, zoom.Pspot_vy = flt[0].vy, zoom.Pspot_vz = flt[0].vz;
    }
}
}  // namespace

void zoom_class::poke_view(int poker) {
    if (!view_command_exists(poker)) return;
    if (poker == view_look_down) {
        if (view_is_internal()) look_down_a_step();
        return;
    }
    look_afresh();
    ren.view_type_act = poker;
    Pscroll_mode = scroll_centre;
    Pscroll_pix = Pscroll_CTR[view_type()];
    start_view(poker);
    panel_view_changed();
}
