// Aircraft of the exercises.
#include "app/start/start_aircraft.h"

#include <math.h>
#include <stdio.h>

#include <filesystem>
#include <string>

#include "app/start/level_flight.h"
#include "app/start/load_plane.h"
#include "app/start/start_texts.h"
#include "app/start/traffic.h"
#include "core/disk/paths.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/alert.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "net/multiplayer.h"
#include "scenery/ground/region_shift.h"
#include "scenery/ground/terrain_query.h"
#include "weather/atmosphere.h"

namespace {
constexpr int leader_slot = 1;

bool file_is_there(const std::string& path) {
    std::error_code unreadable;
    return std::filesystem::is_regular_file(set_dir_chars(path), unreadable);
}

void load_into(int p, const std::string& path) {
    std::string flown = path;
    if (!file_is_there(path)) {
        MACIBM_data_fault("The aircraft of this exercise is not there:", below_install_folder(path),
                          "The default aircraft flies in its place.", "");
        flown = app_path + stg.def_pln_path;
    }
    snprintf(veh[p].path, sizeof veh[p].path, "%s", flown.c_str());
    load_plane(p);
}

// Of the aircraft that comes in slot 1; empty for a start without one.
std::string leader_path(int code) {
    switch (code) {
        case start_tow:
            return app_path + stg.acf_path_tow;
        case start_formation:
            return veh[0].path;
        case start_refuel_af:
            return app_path + stg.acf_path_ref_airforce;
        case start_refuel_navy:
            return app_path + stg.acf_path_ref_navy;
        case start_carried:
            return app_path + stg.acf_path_carry;
        default:
            return "";
    }
}

bool is_shuttle_return(int code) { return intrange(code, start_shuttle_first, start_shuttle_last); }
}  // namespace

void load_aircraft_of(int code) {
    if (is_shuttle_return(code)) load_into(0, app_path + stg.acf_path_shuttle);
    const std::string leader = leader_path(code);
    if (!leader.empty() && !has_multiplayer()) load_into(leader_slot, leader);
    if (!leader.empty() || is_shuttle_return(code) || code == start_winch) explain_exercise(code);
}

// -- their places

namespace {
struct level_flight_struct {
    float y, psi, v;  // m, degrees, m/s
};

level_flight_struct formation_flight(float x, float z) {
    constexpr float lo[] = {2000.0f, 4000.0f, 8000.0f},
                    hi[] = {4000.0f, 8000.0f, 12000.0f};  // m above the ground
    const int kind = cruise_class(leader_slot);
    const float y = return_terrain_y(x, z, checker_slot_first + leader_slot) + flt_rand(lo[kind], hi[kind]);
    const float psi = flt_rand(0.0f, 360.0f);
    const float sigma = find_standard_rho(0, y) * inv_rho_sl;
    return {y, psi, 2.0f * veh[leader_slot].V_ref_ms / sqrtf(sigma)};
}

level_flight_struct flight_set(float x, float z, float alt_ft, float psi_true, float v_ktas) {
    return {y_with_xhz(x, alt_ft * con.fttomtrs, z), psi_true, v_ktas * con.ktstomsc};
}

// One waits far out of sight until it is placed.
float in_region(double at) { return isfinite(at) && !is_nowhere(at) ? static_cast<float>(at) : 0.0f; }
}  // namespace

void place_leader(int code) {
    if (!intrange(code, start_formation, start_carried) || has_multiplayer() || !veh[leader_slot].name[0])
        return;
    const float x = in_region(flt[0].dob_x), z = in_region(flt[0].dob_z);
    level_flight_struct to;
    if (code == start_formation)
        to = formation_flight(x, z);
    else if (code == start_carried)
        to = flight_set(x, z, stg.car_alt_ft, stg.car_psi_true, stg.car_v_ktas);
    else
        to = flight_set(x, z, stg.ref_alt_ft, stg.ref_psi_true, stg.ref_v_ktas);
    init_flt_p(leader_slot, 0.0f, to.psi, 0.0f, x, to.y, z, to.v, 0);
}

void place_towplane(float psi) {
    constexpr float ahead = 55.0f;  // m
    constexpr int tow_mode = 3;
    if (has_multiplayer() || !veh[leader_slot].name[0]) return;
    const float x = static_cast<float>(flt[0].dob_x) + ahead * sin_deg(psi);
    const float z = static_cast<float>(flt[0].dob_z) - ahead * cos_deg(psi);
    const float y = return_terrain_y(x, z, checker_slot_first + leader_slot) + veh[leader_slot].h_eqlbm;
    init_flt_p(leader_slot, veh[leader_slot].the_eqlbm, psi, 0.0f, x, y, z, 0.0f, tow_mode);
}
