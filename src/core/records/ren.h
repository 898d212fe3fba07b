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

struct ren_struct {
    float view_xyz[3];          // eye, world frame, m
    float view_ele_msl, view_ele_agl;
    float final_the, final_psi, final_phi;
    float sin_final_the, cos_final_the, sin_final_psi, cos_final_psi, sin_final_phi, cos_final_phi;
    float cockpit_the, cockpit_psi, cockpit_phi;
    float FOV;                  // horizontal field of view, degrees
    int vert1, vert2;
    int view_type_act;          // view_code
    int is_viewer;              // this machine only shows another's flight
    int trans_panel, mouse_look, sunglasses_on, night_vision_on, show_path;
    float current_alpha;
    int wpn_to_track, elum_renders, draw_shadows, stars_are_vis;
    float glare_rat;
    float apt_lite_rat, hud_brt, pan_brt, ins_brt;
    float deg_per_mtr_x, deg_per_mtr_z;  // at the region's centre
    int num_fas_finds, num_slo_finds;   // terrain queries of this frame
    // what each asker of the terrain found last: tile, patch, list and triangle; a runway's piece
    int is_set[checkDIM], is_wet[checkDIM], i_lat[checkDIM], i_lon[checkDIM];
    ytest_patch_struct* i_patch[checkDIM];
    ytest_pol_struct* i_pol[checkDIM];
    d3_struct *i_geo0[checkDIM], *i_geo1[checkDIM], *i_geo2[checkDIM];
    int apt_wrl[checkDIM], rwy_wrl[checkDIM], rwy_geo[checkDIM], rwy_pol[checkDIM];
    int num_tex_units, max_iso;
};
extern ren_struct ren;
