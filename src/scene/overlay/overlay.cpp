// The overlay in its order.
#include "scene/overlay/overlay.h"

#include "core/program/upward.h"
#include "core/records/records.h"
#include "draw/gl/ogl.h"
#include "net/data_table.h"
#include "scene/cockpit/cockpit_kind.h"
#include "scene/cockpit/cockpit_light.h"
#include "scene/cockpit/panel_calls.h"
#include "scene/overlay/blackouts.h"
#include "scene/overlay/boards.h"
#include "scene/overlay/replay_bar.h"
#include "scene/overlay/sight_marks.h"
#include "scene/overlay/warnings_text.h"

namespace {
void draw_hud() {
    if (!draw_HUD()) return;
    set_lit_ins(lit_hud);
    draw_HUD_instruments();
}

// The rows that the user asked for, one below the other, then the reports of parts.
void draw_data() {
    constexpr int reports = 3;
    constexpr float below_top = 40.0f;
    if (TVPDoDrawingHook(hook_data)) {
        float y = mnw.y2_pix - below_top;
        data_rows_to_screen(&y);
        for (int report = 0; report < reports; ++report)
            if (mnw.Psumm[report]) part_rep(report, &y);
    }
    TVPDoDrawingHook(hook_data_done);
}
}  // namespace

void WORLD_scene_2d_overlay() {
    OGL_view_2d();
    draw_hud();
    draw_sunglasses();
    draw_sights();
    draw_replay_bar();
    draw_warnings();
    if (!draw_boards()) draw_data();
    draw_night_vision();
    draw_blackouts();
}
