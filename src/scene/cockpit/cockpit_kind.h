// How the inside of the user's aircraft is shown: as a flat panel over the view, as that panel on a plane
// that turns with the head, or as a model.
// Role: tests on records alone; knows no OpenGL.
#pragma once

// Whether the screen fits into the texture of the panel.
int can_do_3d_read();
// Whether a cockpit model is drawn, the panel on a plane, the flat panel, the outside of the aircraft.
int plot_OBJ7_cock();
int plot_TV3D_cock();
int plot_TV2D_cock();
int plot_outer_acf();
// The model of the cockpit, index in vec_mod, -1 for none.
int cockpit_M();
// Whether the head-up display lies over the view.
int draw_HUD();
// Whether the aircraft's panel is there. The pictures and instruments of panels do not exist yet.
int panel_is_loaded();
// Whether the panel shows the picture that is made for the night.
int panel_is_lit();
