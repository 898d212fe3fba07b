// Sizes that every subsystem agrees on, and small enumerations.
// Role: included by all records; knows nothing of them.
#pragma once

constexpr int vehDIM = 10;        // aircraft slots; slot 0 is always the user's aircraft
constexpr int strDIM = 500;       // path-like strings, terminator included
constexpr int nameDIM = 40;       // names, terminator included
constexpr int idDIM = 5;          // airport identifiers, terminator included
constexpr int fuelDIM = 3;        // fuel tanks
constexpr int flapDIM = 10;       // flap detent entries
constexpr int part_sDIM = 20;     // stations of a body
constexpr int part_rDIM = 18;     // points round one station of a body
constexpr int pathDIM = 6000;     // recorded snapshots
constexpr int logDIM = 5000;      // logbook lines
constexpr int datDIM = 200;       // rows of the data table
constexpr int textDIM = 1400;     // interface strings
constexpr int ip_addDIM = 40;     // network address slots
constexpr int fixDIM = 6;         // radio slots
constexpr int XRES = 1024;        // virtual screen of the interface
constexpr int YRES = 768;
constexpr int Xtrue = 1;
constexpr int Xfals = 0;

constexpr int engnDIM = 8;        // thrust points, and engines among them
constexpr int wingDIM = 56;       // wing-like parts: blades, surfaces, pylons
constexpr int partDIM = 95;       // all parts
constexpr int gearDIM = 10;       // gear legs
constexpr int wattDIM = 24;       // weapon attachments
constexpr int doorDIM = 20;       // gear doors
constexpr int sbrkDIM = 4;        // speed-brake doors
constexpr int wpnDIM = 25;        // weapons; the last is never flown
constexpr int elDIM = 10;         // elements of one wing-like part
constexpr int bladDIM = 4;        // blades kept apart in the element tables
constexpr int failDIM = 172;      // failure slots
constexpr int insDIM = 300;       // instruments of a panel
constexpr int aflDIM = 721;       // entries of a polar table
constexpr int boatDIM = 5;        // ships
constexpr int apt_lclDIM = 300;    // airports of the region

// How a slot moves (flt[p].update_type).
enum update_kind : int {
    pln_update_primary = 0,    // full flight model, slot 0 only, or replay
    pln_update_local_AI = 1,   // AI pilot with simple kinematics
    pln_update_net = 2,        // dead reckoning between network messages
    pln_update_plugin = 3,     // moved by a plugin; the system leaves it alone
};

// Failure slots (flt[p].fail_stat[]), as far as other code tests them by name. A per-engine slot
// is the base plus the engine; a per-surface slot the base plus the part index.
enum fail_slot : int {
    fail_vacuum = 0,
    fail_ss_asi = 1, fail_ss_ahz = 2, fail_ss_alt = 3, fail_ss_tsi = 4, fail_ss_dgy = 5, fail_ss_vvi = 6,
    fail_L_flp = 26, fail_R_flp = 27, fail_L_flp_off = 28, fail_R_flp_off = 29,
    fail_slat = 30, fail_throttle = 31, fail_gear = 32,  // by leg, and its tyres
    fail_tire = 37,
    fail_clights = 43, fail_esys = 44, fail_otto = 47, fail_tail_drive = 48, fail_feather = 49, fail_inverter = 50,
    fail_pitot = 52, fail_static = 53,
    // per engine
    fail_engine = 54, fail_eng_sep = 62, fail_clutch = 70, fail_reverse = 78, fail_oil = 102,
    fail_fuel_pump = 110, fail_fadec = 126,
    fail_wing_sep = 126,       // base for parts 8 to 39
    fail_pylo_sep = 116,       // base for parts 40 to 55; the two ranges share slots 156 to 165
    fail_wing1_left = 134, fail_wing2_left = 136, fail_wing3_left = 138, fail_wing4_left = 140,
};
constexpr char fail_active = 6;   // the one state in which a failure acts
