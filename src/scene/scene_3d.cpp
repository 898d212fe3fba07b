// Effects, clouds, aids of the flight path, rain and the inside of the aircraft, in their order.
#include "scene/scene_3d.h"

#include "aircraft/systems/electrics.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "draw/gl/frame_counts.h"
#include "scene/airports_in_view.h"
#include "scene/cockpit/cockpit_draw.h"
#include "scene/cockpit/panel_calls.h"
#include "scene/effects/balloons.h"
#include "scene/effects/fires.h"
#include "scene/effects/ils_picture.h"
#include "scene/effects/lines.h"
#include "scene/effects/rain.h"
#include "scene/effects/refuelling.h"
#include "scene/effects/wind_vectors.h"
#include "scene/marks.h"
#include "weather/draw/sky_draw.h"

namespace {
void draw_effects() {
    if (TVPDoDrawingHook(hook_effects)) {
        plot_explosions();
        plot_fires();
        plot_cars();
        draw_balloons();
    }
    TVPDoDrawingHook(hook_effects_done);
}

// show_path: the way from 1 on, the beam of the approach above 3.
void draw_paths() {
    constexpr int last_without_beam = 3;
    if (ren.show_path > 0) plot_flight_path_3d();
    if (ren.show_path > last_without_beam) draw_ils_picture();
}

void draw_hoops() {
    if (!veh[0].has_HOOPS_HUD) return;
    const bool on_panel = ren.view_type_act == view_fwd_panel && avio_working() && stg.HUD_on;
    if (on_panel || ren.view_type_act == view_fwd_hud) HUD_HOOPS_plot();
}
}  // namespace

void APP_3D_scenery() {
    airports_in_view_step();
    car_reset();
    draw_effects();
    cloud_plot();
    draw_paths();
    draw_wind_vectors();
    draw_lines();
    draw_refuelling();
    draw_hoops();
    if (atm.rain_rat_acf > 0.0f || atm.snow_rat_acf > 0.0f) OGL_rain();
    end_section(section_effects);
    draw_cockpit_3d();
}
