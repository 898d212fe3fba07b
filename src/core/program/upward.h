// What any subsystem may call although it is built above it: the command gate, plugin events, the
// start of a flight. Bodies stand with their owners.
#pragma once
#include <string>

// Tells the plugins: 0 start of a flying frame, 2 crash, 3 aircraft loaded, 4 flight started, 6 region loaded.
void TVPEventHook(int event, float time, float data, long long_1, long long_2);

// Slots that loops may use; a plugin may narrow them.
int TVPGetNumberPlanesToHandle(int num_acf, int inLoading);

// The camera's fixed spot moves into a new local frame: turned about the planet's centre by this rotation
// (shift_xyz_quat).
void shift_camera_spot(const double q_shift[4]);

// The about window, until it is closed.
void MACIBM_about();

// Asks whether the flight is to be ended, and ends the program if so.
void MACIBM_ask_quit();

// Every command and key ends here.
void APP_handlemenu(int item);
void APP_handlekey(int use_code, int key);

// A click, or with enter_close the Return key asking to close the open window.
void MACIBM_handleclick(int enter_close);

// Switches what occupies the screen. from_str is a short note of the caller.
void MACIBM_startwind(int new_top_win, const std::string& from_str);

// One step of the start-up screen, shown at once.
void MACIBM_showinit(const char* init_string);

// Asks the plugins first: 1 when one of them takes a menu's code; what they say of its look.
int TVPHandleMenu(int item);
int TVPCheckMenu(int item);
int TVPMenuIsDisabled(int item);

// Drawing of the world by plugins, before and after a part of it: 0 when the part is not to be drawn.
enum drawing_hook : int {
    hook_scene = 1,
    hook_terrain = 2,
    hook_terrain_done = 3,
    hook_airports = 4,
    hook_airports_done = 5,
    hook_effects = 8,
    hook_effects_done = 9,
    hook_airplanes = 10,
    hook_airplanes_done = 11,
    hook_scene_done = 12,
    hook_panel_background = 13,
    hook_panel_background_done = 14,
    hook_panel = 15,
    hook_panel_done = 16,
    hook_data = 17,
    hook_data_done = 18,
};
int TVPDoDrawingHook(int kind);
// From high up the picture of the planet over the land's rim, so that the land does not end in an edge.
void cover_region_rim();
// Aircraft, and objects of the network, in the ground scene.
void plot_airplanes(int is_map);
void plot_objects();

// Whether the eye is outside of the user's aircraft.
int view_is_external();

// The map's pan and zoom, by the codes of the arrow keys; and a pan in virtual units of the map.
void poke_zoom(int int_key);
void poke_pan(float dx, float dy);

// A flight plan that was edited goes to the controllers.
void hand_over_plan();

// A key or button was let go: what fires or turns a starter only while held.
void stop_fire();
void stop_starter();

// Loads the aircraft that veh[p].path names: 1 done, 0 faulty.
int load_plane(int p);
// Starts the user's flight anew.
void init_flt_0(int type_start1, int type_start2);
// Trims the flight that has just started in the air, where there is a pilot to take it over.
void begin_user_flight_steady(int type_start1);

enum start_code : int {
    start_airport = 608, start_custom = 1200, start_grass = 4200, start_dirt = 4201, start_gravel = 4202,
    start_helipad = 4203, start_catapult = 4204, start_water = 4205, start_tow = 4206, start_winch = 4207,
    start_formation = 4500, start_refuel_af = 4501, start_refuel_navy = 4502, start_carried = 4503,
    start_carrier = 4800, start_frigate = 4801, start_platform_1 = 4802, start_platform_2 = 4803,
    start_fire = 4804, start_shuttle_first = 4806, start_shuttle_last = 4809,
};
enum start_place : int { place_ramp = 600, place_runway = 601, place_final_3 = 602, place_final_10 = 603 };
