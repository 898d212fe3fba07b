// Routines of this folder that do not exist yet: each call stands in its place in the frame and gets its
// neutral answer here. The file shrinks as they are built.
#include "scene/cockpit/cockpit_kind.h"
#include "scene/cockpit/panel_calls.h"

// No panel, no head-up display.
int panel_is_loaded() { return 0; }
void plot_panel_background() {}
void APP_update_panel() {}
void draw_HUD_instruments() {}
void HUD_HOOPS_plot() {}
