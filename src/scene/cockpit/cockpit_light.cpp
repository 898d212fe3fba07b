// Manual light of the cockpit.
#include "scene/cockpit/cockpit_light.h"

#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/ren.h"
#include "draw/gl/colours.h"
#include "weather/sky/skyc.h"

static void raise(float* light, float least) { *light = fltlim(fltmax2(*light, least), 0.0f, 1.0f); }

void set_lites_for_cockpit() {
    if (!skyc.cockpit_lites_on()) return;
    const bool has_night_picture = ren.view_bmp_avail[panel_viewDIM - 1] != 0;
    const float red = has_night_picture ? 1.0f : 0.8f, others = has_night_picture ? 1.0f : 0.2f;
    raise(&r_manual_lighting, ren.pan_brt * red);
    raise(&g_manual_lighting, ren.pan_brt * others);
    raise(&b_manual_lighting, ren.pan_brt * others);
}

void set_lit_ins(int col_type) {
    const auto all = [](float v) { OGL_assigncolor(col_lit_ins, v, v, v); };
    switch (col_type) {
        case lit_by_panel:
            return OGL_assigncolor(col_lit_ins, fltmax2(r_manual_lighting, ren.ins_brt),
                                   fltmax2(g_manual_lighting, ren.ins_brt),
                                   fltmax2(b_manual_lighting, ren.ins_brt));
        case lit_instruments:
            return all(ren.ins_brt);
        case lit_hud:
            return all(ren.hud_brt);
        default:
            MACIBM_fatal("bad col_type!");
    }
}
