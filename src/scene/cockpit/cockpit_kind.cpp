// Tests on view and aircraft.
#include "scene/cockpit/cockpit_kind.h"

#include "core/craft/veh.h"
#include "core/math/num.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "draw/images/image_place.h"
#include "ui/views/zoom.h"
#include "weather/sky/skyc.h"

namespace {
bool is_bare_forward() { return ren.view_type_act == view_fwd_hud || ren.view_type_act == view_fwd_bare; }

bool is_exactly_forward() {
    constexpr float off = 0.05f;  // degrees: less than a pixel
    return flt_abs(ren.cockpit_psi) < off && flt_abs(ren.cockpit_the) < off;
}

// Classes that an aircraft tells its kinds of cockpit by: ahead, other views with a panel, the rest.
int view_class() {
    if (ren.view_type_act == view_fwd_panel) return 0;
    return ren.view_type_act <= view_back ? 1 : 2;
}

bool has_cockpit_object() {
    return !is_bare_forward() && can_do_3d_read() && veh[0].plot_OBJ7_cock[view_class()] && cockpit_M() != -1;
}
}  // namespace

int can_do_3d_read() { return mnw.x_res_now <= image_max && mnw.y_res_now <= image_max; }

// The model seen from inside, where the aircraft brings two.
int cockpit_M() { return veh[0].cockpit_M_inn; }

int plot_OBJ7_cock() { return has_cockpit_object() && (veh[0].plot_OBJ7_cock_exact_fwd || !is_exactly_forward()); }

// The plane would be empty without a panel.
int plot_TV3D_cock() {
    return ren.view_type_act == view_fwd_panel && can_do_3d_read() && panel_is_loaded() && !has_cockpit_object() &&
           !is_exactly_forward();
}

int plot_TV2D_cock() {
    return ren.view_type_act == view_fwd_panel && !plot_OBJ7_cock() && !plot_TV3D_cock();
}

int plot_outer_acf() { return !is_bare_forward() && veh[0].plot_outer_acf[view_class()]; }

int draw_HUD() { return ren.view_type_act == view_fwd_panel || ren.view_type_act == view_fwd_hud; }

int panel_is_lit() { return skyc.cockpit_lites_on() && ren.view_bmp_avail[panel_viewDIM - 1]; }
