// What any subsystem may call although it is built above it: the command gate, plugin events, the
// start of a flight. Bodies stand with their owners.
#pragma once

// Tells the plugins: 0 start of a flying frame, 2 crash, 3 aircraft loaded, 4 flight started.
void TVPEventHook(int event, float time, float data, long long_1, long long_2);

// Every command and key ends here.
void APP_handlemenu(int item);
void APP_handlekey(int use_code, int key);

// One step of the start-up screen, shown at once.
void MACIBM_showinit(const char* init_string);

// A key or button was let go: what fires or turns a starter only while held.
void stop_fire();
void stop_starter();

// Loads the aircraft that veh[p].path names: 1 done, 0 faulty.
int load_plane(int p);
// Starts the user's flight anew.
void init_flt_0(int type_start1, int type_start2);

enum start_code : int {
    start_airport = 608, start_custom = 1200, start_grass = 4200, start_dirt = 4201, start_gravel = 4202,
    start_helipad = 4203, start_catapult = 4204, start_water = 4205, start_tow = 4206, start_winch = 4207,
    start_formation = 4500, start_refuel_af = 4501, start_refuel_navy = 4502, start_carried = 4503,
    start_carrier = 4800, start_frigate = 4801, start_platform_1 = 4802, start_platform_2 = 4803,
    start_fire = 4804, start_shuttle_first = 4806, start_shuttle_last = 4809,
};
enum start_place : int { place_ramp = 600, place_runway = 601, place_final_3 = 602, place_final_10 = 603 };
