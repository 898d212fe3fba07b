// Routines of this folder that do not exist yet: each call stands in its place in the frame and gets its neutral
// answer here. The file shrinks as they are built.
#include "cockpit/panel.h"
#include "cockpit/radios.h"
#include "core/math/num.h"
#include "core/records/mnw.h"

// No radios, no panel.
mors_class mors;
void mors_class::manage() {}
void check_markers() {}
void handle_nav(int) {}
void handle_adf(int) {}
void update_FMS(int) {}
void update_gps_and_bearings() {}
void load_panel() {}
void panel_view_changed() {}
float VIEW_cntr_y_now() { return 0.5f * static_cast<float>(mnw.y_res_now) / fltmax2(mnw.xy_scale, 0.01f); }
