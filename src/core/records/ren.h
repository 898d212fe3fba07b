// Rendering options and the view.
#pragma once

// Views by their command codes.
#define VIEW_CODES(X)                                                                            \
    X(fwd_panel, 1500)                                                                           \
    X(look_down, 1501)                                                                           \
    X(left_45, 1505)                                                                             \
    X(right_45, 1506)                                                                            \
    X(left_90, 1507)                                                                             \
    X(right_90, 1508)                                                                            \
    X(left_135, 1509)                                                                            \
    X(right_135, 1510)                                                                           \
    X(back, 1511)                                                                                \
    X(up_left, 1512)                                                                             \
    X(up_right, 1513)                                                                            \
    X(down, 1514)                                                                                \
    X(tower, 1516)                                                                               \
    X(runway, 1517)                                                                              \
    X(chase, 1519)                                                                               \
    X(circle, 1520)                                                                              \
    X(still_spot, 1521)                                                                          \
    X(moving_spot, 1522)                                                                         \
    X(fwd_hud, 1524)                                                                             \
    X(fwd_bare, 1525)                                                                            \
    X(weapon, 1540)
#define VIEW_NUMBER(name, number) view_##name = number,
enum view_code : int {
    VIEW_CODES(VIEW_NUMBER) view_inside_last = 1515,  // the end of those from inside with the panel
    view_marked_last = 1529,                          // the end of the codes that a menu marks as views
};
#undef VIEW_NUMBER

struct ytest_patch_struct;
struct ytest_pol_struct;
struct d3_struct;

// Places that each asker of the terrain remembers.
constexpr int checkDIM = 176;

// Signs of runways: numbers, 0 for 36, and kinds of each.
constexpr int sign_numberDIM = 36, sign_kindDIM = 8;
constexpr int panel_viewDIM = 9;  // pictures of the panel, the lit one last

struct ren_struct {
    // the eye and its view; views
    float view_xyz[3];            // eye, world frame, m
    float view_ele_msl, view_ele_agl;  // its height above the sphere and above ground, m
    float final_the, final_psi, final_phi;  // pitch, true heading, roll of the view, degrees
    float sin_final_the, cos_final_the, sin_final_psi, cos_final_psi, sin_final_phi, cos_final_phi;  // of these
    float cockpit_the, cockpit_psi, cockpit_phi;  // view from the aircraft's axes, degrees
    float FOV;                  // horizontal field of view, degrees
    float off_lat_rat, off_vrt_rat;  // picture moved aside and up, halves of its width and height; preferences
    float off_lat_deg, off_vrt_deg, off_phi_deg;  // view turned aside, up, about its line of sight; preferences
    int vert1, vert2;           // 0 or 1: turned by -90, by 90 degrees about the line of sight; preferences
    int view_type_act;          // view_code
    int is_viewer;              // this machine only shows another's flight
    int trans_panel;            // 0 or 1: the panel can be seen through; commands
    int mouse_look, joy_look;   // 0 or 1: the mouse, a button of the joystick turns the view; commands, joystick
    float mouse_look_os_psi, mouse_look_os_the;  // by so much, degrees
    float joy_look_os_psi, joy_look_os_the;      // where the button asks it to go, degrees; joystick
    float viewer_x, viewer_y, viewer_z;          // eye of a view station, world frame, m
    float viewer_psi, viewer_the;                // its heading and pitch, degrees; mouse
    int tex_lites;              // 0 or 1: the lamps of this run are pictures; point_lights
    int sunglasses_on, night_vision_on;  // 0 or 1; commands
    int show_path;              // drawing of flown paths, 0 none; commands
    float current_alpha;        // of all that is drawn in one colour now, 0 to 1; frame
    int wpn_to_track;           // weapon that the view follows, -1 none; weapons
    int elum_renders;           // pictures of one frame for several screens, 0 to 4; preferences
    int elum_dx, elum_dy;       // their size, pixels; preferences
    float elum_ref_psi, elum_ref_the, elum_ref_phi;  // further turn of the view for them, degrees; preferences
    int draw_shadows;           // 0 or 1; rendering screen
    int plot_lan_litemap;       // 0 or 1: the landing light shows on the ground; frame
    int shadow_final_tex;       // reference of the clouds' shadow, 0 for none; clouds
    float shadow_dx_by_dy, shadow_dz_by_dy;  // way of a shadow east and south for each metre down; sky
    int stars_are_vis;          // 0 or 1; sky
    float sin_azi_any, cos_azi_any, sin_dec_any, cos_dec_any;  // of what lights the scene: hour angle, declination; sky
    float glare_rat;            // blinding by the sun, 0 to 1; frame
    float shadow_alpha;         // how dark the clouds' shadow is, 0 to 1; clouds
    int sha_or_lit_or_sun;      // 0 or 1: shadow or landing light show on the ground; frame
    int plot_init_lights;       // 0 or 1: the lamps of this frame have begun to be drawn; frame
    int view_bmp_avail[panel_viewDIM];  // 0 or 1: the aircraft brings a picture of its panel for this view; panel
    // fixed objects, indexes in vec_mod, -1 for none; start
    int M_beacon1, M_beacon2, M_beacon3;  // towers of two kinds, turning head
    int M_bouy, M_powerline, M_windsock_pole, M_windsock_sock;  // as named
    int M_dis_remaining[3];     // signs of 1000, 2000, 3000 feet remaining
    int M_taxi_sign[sign_numberDIM][sign_kindDIM];  // alone, L, C, R, and the same with the other end
    float apt_lite_rat, hud_brt, pan_brt, ins_brt;  // brightness: airports, HUD, panel, instruments, 0 to 1; panel
    float deg_per_mtr_x, deg_per_mtr_z;  // at the region's centre
    int num_fas_finds, num_slo_finds;   // terrain queries of this frame
    // drawn of the ground in this frame; terrain drawing
    int num_terrain_buckets, num_object_buckets;  // that hold something
    int num_patches, num_objects;  // the same: patches, objects
    // what each asker of the terrain found last; terrain queries
    int is_set[checkDIM], is_wet[checkDIM];   // 0 or 1: the triangle below holds; it is water
    int i_lat[checkDIM], i_lon[checkDIM];     // its tile in the region, from the south-west
    ytest_patch_struct* i_patch[checkDIM];    // its patch
    ytest_pol_struct* i_pol[checkDIM];        // its list
    d3_struct *i_geo0[checkDIM], *i_geo1[checkDIM], *i_geo2[checkDIM];  // its corners
    int apt_wrl[checkDIM], rwy_wrl[checkDIM], rwy_geo[checkDIM], rwy_pol[checkDIM];  // piece of a runway: airport to polygon
    int num_tex_units, max_iso;  // what OpenGL has: texture units, anisotropy; start
};
extern ren_struct ren;

// Light on what OpenGL does not light: the cockpit, rain, 2D colours of rows below 39. Sky; raised for windows.
extern float r_manual_lighting, g_manual_lighting, b_manual_lighting;
