// The flying view's order, with a window and without.
#include "scene/world.h"

#include "aircraft/systems/electrics.h"
#include "cockpit/panel.h"
#include "core/craft/veh.h"
#include "core/math/num.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/atm.h"
#include "core/records/env.h"
#include "core/records/flt.h"
#include "core/records/mnw.h"
#include "core/records/msc.h"
#include "core/records/net.h"
#include "core/records/ren.h"
#include "scene/airport_search.h"
#include "scene/aurora.h"
#include "scene/cockpit/cockpit_kind.h"
#include "scene/effects/balloons.h"
#include "scene/effects/fires.h"
#include "scene/effects/rain.h"
#include "scene/effects/refuelling.h"
#include "scene/effects/windshield.h"
#include "scene/fixed/fixed_objects.h"
#include "scene/fixed/fixed_textures.h"
#include "scene/ground_effects.h"
#include "scene/overlay/blackouts.h"
#include "scene/sky_bodies.h"
#include "scenery/ground/roofs.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/packages/library.h"
#include "ui/views/zoom.h"
#include "weather/clouds.h"
#include "weather/sky/skyc.h"

void init_world_rendering() {
    DSF_ScanSceneryFolder();
    load_fixed_textures();
    load_fixed_objects();
}

// What is under the aircraft is found anew by drawing and by the next flight step; flight reads what the last
// frame found.
static void roll_found_ground() {
    env.roughness = 0.0f;
    if (!net.getting_terrain) env.surf_tex = 0;
    env.over_carr = env.over_frig = 0;
    env.over_obs_last = env.over_obs_this;
    env.over_rwy_last = env.over_rwy_this;
    env.over_obs_this = env.over_rwy_this = 0;
}

// The kind of ground that the next flight step begins with: its wheels ask for it before they ask for their
// heights.
static void look_below() {
    return_terrain_y(static_cast<float>(flt[0].dob_x), static_cast<float>(flt[0].dob_z), checker_user);
}

// From the eye to the weapon that the view follows, below 0 for none.
static float weapon_distance() {
    if (!intrange(ren.wpn_to_track, 0, wattDIM - 1)) return -1.0f;
    const wpn_struct& w = veh[0].wpn[ren.wpn_to_track];
    return pythag(w.x - ren.view_xyz[0], w.y - ren.view_xyz[1], w.z - ren.view_xyz[2]);
}

static void conditions_step() {
    const int apt = msc.loc_apt_wrl;
    const float airport_ele =
        intrange(apt, 0, static_cast<int>(vec_apt.size()) - 1) ? vec_apt[static_cast<size_t>(apt)].ele : 0.0f;
    skyc.conditions_update({airport_ele, esys_working(), view_is_external(), weapon_distance(),
                            [](float x, float z) { return return_terrain_y(x, z, checker_scenery); }});
}

// The panel has another picture when its lamps go on or off.
static int panel_was_lit = 0;
static void panel_lamps_step() {
    if (panel_is_lit() == panel_was_lit) return;
    panel_was_lit = panel_is_lit();
    panel_view_changed();
}

static void effects_step() {
    balloons_step();
    fires_step();
    refuelling_step();
    rain_step();
    windshield_step(view_is_internal() ? atm.hail_rat_acf : 0.0f);
    blackouts_step();
}

void scene_state_step() {
    zoom.update_per_frame();
    conditions_step();
    panel_lamps_step();
    ground_effects_step();
    glare_step();
    clou.cloud_update();
    if (aurora_shows()) aurora_step();
    roll_found_ground();
    find_roof_below();
    look_below();
    nearest_airport_step();
    effects_step();
}

void reset_world_scene() { panel_was_lit = 0; }

void WORLD_scene_all_cases() {
    scene_state_step();
    seam.draw_world();
}
