// Landing light and shadows of the frame.
#include "scene/ground_effects.h"

#include "aircraft/systems/electrics.h"
#include "core/records/records.h"
#include "weather/clouds.h"
#include "weather/sky/skyc.h"

static bool clouds_throw_shadows(float sun_elevation) {
    constexpr float high_enough = 5.0f;  // degrees
    const int(&kind)[2] = atm.cld_type;
    return sun_elevation > high_enough && ren.draw_shadows && (kind[0] != cld_none || kind[1] != cld_none) &&
           kind[0] != cld_overcast && kind[1] != cld_overcast;
}

void ground_effects_step() {
    constexpr float dark_enough = -2.0f;  // sun's elevation, degrees
    constexpr float dim = 0.5f;           // manual light of all colours together
    const float sun_elevation = skyc.lgt_the_sun_mon_any[body_sun];
    flt[0].lite_map = (flt[0].lan_lite || flt[0].tax_lite) && esys_working();
    ren.plot_lan_litemap = sun_elevation < dark_enough && flt[0].lite_map &&
                           r_manual_lighting + g_manual_lighting + b_manual_lighting < dim;
    ren.shadow_final_tex = clouds_throw_shadows(sun_elevation) ? clou.shadow_picture() : 0;
    ren.sha_or_lit_or_sun = ren.shadow_final_tex || ren.plot_lan_litemap;
}
