// The flying view.
#include "scene/flying_view.h"

#include <initializer_list>

#include "core/math/num.h"
#include "core/records/ren.h"
#include "draw/gl/frame_counts.h"
#include "scene/dome.h"
#include "scene/flight_strip.h"
#include "scene/frame_report.h"
#include "scene/overlay/overlay.h"

// What stands outside the scene, menus and windows, is lit well.
static void raise_manual_lighting() {
    constexpr float least = 0.75f;
    for (float* light : {&r_manual_lighting, &g_manual_lighting, &b_manual_lighting})
        *light = fltmax2(*light, least);
}

void flying_view_draw() {
    end_section(section_elsewhere);
    ren.plot_init_lights = 0;
    for (int dome = 0; dome < intmax2(1, ren.elum_renders); ++dome) WORLD_scene_per_dome();
    WORLD_scene_2d_overlay();
    raise_manual_lighting();
    flight_strip_draw();
    end_section(section_marks);
    frame_report_draw();
}
