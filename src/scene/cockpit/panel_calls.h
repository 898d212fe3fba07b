// What the frame asks of the panel and the head-up display. Bodies come with them.
#pragma once

// Picture of the panel: with a blend while it can be seen through.
void plot_panel_background();
// The panel's instruments and switches, in a 2D viewport.
void APP_update_panel();
// Elements of the head-up display that lie over the picture, and its hoops in the world.
void draw_HUD_instruments();
void HUD_HOOPS_plot();
