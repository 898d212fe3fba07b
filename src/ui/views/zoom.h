// What the eye sees: the kind of view, its place and angles, the zoom, the scroll of the panel, pan and zoom
// of the maps. Role: update_per_frame once a drawn frame, before the sky asks where the eye is; keys and
// menus come through poke_view and poke_zoom. Writes ren.view_xyz, the final angles with their sines and
// cosines, and the picture's edges in mnw. Knows no OpenGL.
//
// Lengths in metres of the world frame, angles in degrees unless a name ends in _rad; headings clockwise.
#pragma once
#include "core/records/ren.h"

constexpr int cockpit_pictures = 9;  // kinds of cockpit picture, for each of which the panel has scrolls

// Arrow and zoom keys as poke_zoom knows them, beside special_key of the input gate.
enum zoom_key : int {
    zoom_key_in = 31745,
    zoom_key_out = 31746,
    zoom_key_in_fast = 50004,  // with shift
    zoom_key_out_fast = 50005,
};

enum scroll_mode : int { scroll_up = 0, scroll_centre, scroll_down };

class zoom_class {
public:
    void update_per_frame();
    // A command from view_fwd_panel to view_weapon; other numbers do nothing.
    void poke_view(int poker);
    // A key: arrows and zoom keys, with and without shift; at a view station any character.
    void poke_zoom(int poker);
    // The flat map by 0.004 of the region for each unit to the right and up at zoom 1.
    void poke_pan(float right, float up);
    // What is fixed in the world moves into another local frame.
    void shift(const double q[4]);

    float scroll_pix() const { return Pscroll_pix; }
    float act_zoom() const { return Pact_zoom; }
    float circ_dist() const { return Pcirc_dist; }
    float map_zoom() const { return Pmap_zoom; }
    float map_osx_mtr() const { return Pmap_osx_mtr; }
    float map_osz_mtr() const { return Pmap_osz_mtr; }
    float map3_zoom() const { return Pmap3_zoom; }
    float map3_psi_rad() const { return Pmap3_psi_rad; }
    float map3_the_rad() const { return Pmap3_the_rad; }
    float spot_x() const { return Pspot_x; }
    float spot_y() const { return Pspot_y; }
    float spot_z() const { return Pspot_z; }
    void poke_map_zoom(float ratio);
    void poke_psi_the_rad(float psi_rad, float the_rad) { Pcirc_psi_rad = psi_rad, Pcirc_the_rad = the_rad; }
    void poke_spot(float x, float y, float z) { Pspot_x = x, Pspot_y = y, Pspot_z = z; }

    int Pscroll_mode = scroll_centre;
    float Pscroll_UP[cockpit_pictures] = {}, Pscroll_CTR[cockpit_pictures] = {},
          Pscroll_DN[cockpit_pictures] = {};                              // pixels
    float Pscroll_pix = 0.0f;                                             // present scroll, pixels
    float Preq_zoom = 1.0f, Pact_zoom = 1.0f;                             // asked and reached, 1 to 50000
    float Preq_lookdown = 0.0f, Pact_lookdown = 0.0f;                     // asked and reached, 0 to -15
    float Pcirc_dist = 0.0f, Pcirc_psi_rad = 0.0f, Pcirc_the_rad = 0.0f;  // orbit of the chase views
    float Pmap3_zoom = 1.0f, Pmap3_psi_rad = 0.0f, Pmap3_the_rad = 0.8f;  // the map as relief, 1 to 20
    float Pmap_zoom = 1.0f, Pmap_osx_mtr = 0.0f,
          Pmap_osz_mtr = 0.0f;  // the flat map, 1 to 50000; from the centre
    float Pmap_x1_pix = 0, Pmap_y1_pix = 0, Pmap_x2_pix = 0,
          Pmap_y2_pix = 0;  // its box on the screen, virtual units
    float Pmap_xc_pix = 0, Pmap_yc_pix = 0, Pmap_dx_pix = 0, Pmap_dy_pix = 0;
    float Pspot_x = 0, Pspot_y = 0, Pspot_z = 0, Pspot_vx = 0, Pspot_vy = 0,
          Pspot_vz = 0;  // a spot and its speed, m/s

private:
    void ease_settings();
    void poke_station(int poker);
    void poke_flat_map(int poker);
    void poke_relief(int poker);
    void poke_runway_spot(int poker);
    void poke_spot_view(int poker);
    void poke_chase(int poker);
    void poke_picture(int poker);
    void place_view();
    void move_with_spot();
    void follow_target();
};
extern zoom_class zoom;

int view_is_internal();
// Whether the 2D panel lies under the view.
int draw_back_buff();
// Number of the cockpit picture that belongs to the present view, 0 to 7.
int view_type();

void reset_views();
