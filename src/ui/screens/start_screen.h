// The interface's images, the background of windows, and the screen that shows the start.
#pragma once

// "interface.png" and "blank.png", with the colours that stand in the first.
void load_interface_images();

// Background of the window that opens: its colour, before the first frame a picture.
void fill_background(int top_win);
// Brings it into its texture.
void MACIBM_update_back_texes();
// Fills the screen's side bars and draws the background; in coordinates of the screen.
void OGL_plot_background();

// MACIBM_showinit shows nothing while they are not.
void start_lights_allowed(int allowed);
