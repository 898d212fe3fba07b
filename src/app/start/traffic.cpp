// Background traffic.
#include "app/start/traffic.h"

#include <stdio.h>

#include <string>
#include <vector>

#include "aircraft/file/acf_fault.h"
#include "app/start/level_flight.h"
#include "app/start/load_plane.h"
#include "core/disk/dirlist.h"
#include "core/disk/files.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/alert.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "scenery/ground/terrain_query.h"
#include "weather/atmosphere.h"

// -- where it flies

int cruise_class(int p) {
    if (veh[p].num_engines == 0) return 0;
    switch (veh[p].engn[0].engn_type) {
        case engn_turb_free:
        case engn_turb_fixed:
            return 1;
        case engn_jet_lo:
        case engn_jet_hi:
        case engn_rocket:
        case engn_electric:
            return 2;
        default:
            return 0;
    }
}

namespace {
struct band {
    float lo, hi;  // m
};
constexpr band approach_agl = {400.0f, 1200.0f};
constexpr band cruise_agl[] = {{1000.0f, 3000.0f}, {3000.0f, 6000.0f}, {9000.0f, 12000.0f}};

// Not at the user's own height, nor, where the user is low, in the ground.
float clear_of_user(float y, float ground) {
    constexpr float near = 2000.0f, apart = 500.0f;  // m
    const float user = static_cast<float>(flt[0].dob_y);
    if (fabsf(y - user) > near) return y;
    const bool above = int_rand(0, 1) || user - apart < ground + approach_agl.lo;
    return user + (above ? apart : -apart);
}
}  // namespace

void init_flt_p_other_ai(int p) {
    const float max_dis_traff = max_vis_ter_mtrs[0];
    const float bearing = static_cast<float>(int_rand(0, 359));
    const float distance = flt_rand(0.5f, 1.0f) * max_dis_traff;
    const float half_way = 0.5f * distance;
    float x = static_cast<float>(flt[0].dob_x) + half_way * sin_deg(flt[0].psi) + distance * sin_deg(bearing);
    float z = static_cast<float>(flt[0].dob_z) - half_way * cos_deg(flt[0].psi) - distance * cos_deg(bearing);
    x = fltlim(x, 0.9f * env.reg_x1_mtr, 0.9f * env.reg_x2_mtr);
    z = fltlim(z, 0.9f * env.reg_z1_mtr, 0.9f * env.reg_z2_mtr);
    const float ground = return_terrain_y(x, z, checker_ai);
    const int on_approach = p % 3 != 2;
    const band height = on_approach ? approach_agl : cruise_agl[cruise_class(p)];
    const float y = clear_of_user(ground + flt_rand(height.lo, height.hi), ground);
    const float sigma = find_standard_rho(0, y) * inv_rho_sl;
    const float speed = 1.5f * veh[p].V_ref_ms / sqrtf(fltmax2(sigma, 0.1f));
    const float heading = fltwrap(bearing + 180.0f + flt_rand(-10.0f, 10.0f), 0.0f, 360.0f);
    init_flt_p(p, 0.0f, heading, 0.0f, x, y, z, speed, on_approach);
}

// -- which one it is

namespace {
// The folder to go into from the present listing, or -1 when it has none.
int pick_folder(int p, int items) {
    const char* wanted = intrange(p, 2, 4) ? "General Aviation" : intrange(p, 5, 7) ? "Heavy Metal" : "";
    std::vector<int> folders;
    for (int i = 0; i < items; ++i) {
        if (g_file_type[i] != ftype_folder) continue;
        if (g_file[i] == wanted) return i;
        folders.push_back(i);
    }
    return folders.empty() ? -1 : folders[int_rand(0, static_cast<int>(folders.size()) - 1)];
}

// The first aircraft of the present listing that has shown no fault, or -1.
int first_sound_aircraft(int items, bool* met_faulty) {
    for (int i = 0; i < items; ++i) {
        if (g_file_type[i] != ftype_acf) continue;
        if (!acf_was_faulty(g_path[i])) return i;
        *met_faulty = true;
    }
    return -1;
}

int load_as_traffic(int p, const std::string& path, const std::string& name) {
    snprintf(veh[p].path, sizeof veh[p].path, "%s", path.c_str());
    snprintf(veh[p].name, sizeof veh[p].name, "%s", name.c_str());
    MACIBM_showinit(("Loading " + name + " as other air traffic.").c_str());
    const int loaded = load_plane(p);
    flt[p].dob_x = flt[p].dob_z = 9.9e+09;  // far out of sight until a placing follows
    return loaded;
}

void no_aircraft_found() {
    MACIBM_alert(
        mnw.top_win, "I Could not find planes to put in the sky with you!",
        "I suspect that maybe you have moved Tarvane out of the 'Orvelle' folder?",
        "Or maybe you have moved the 'Aircraft' folder out of the 'Orvelle' folder?",
        "You may need to delete your copy of Tarvane and re-install since I cannot seem to find the planes "
        "in their correct places.",
        alert_fatal);
}
}  // namespace

int get_random_plane(int p) {
    constexpr int max_tries = 10;
    constexpr int steps_of_a_try = 100;  // down a tree of folders that a link closes to a circle
    int tries = 0, steps = 0;
    bool met_faulty = false;
    wrk_path = acf_path;
    for (;;) {
        const int items = opensave_getitems(ftype_acf);
        const int found = first_sound_aircraft(items, &met_faulty);
        if (found >= 0) return load_as_traffic(p, g_path[found], g_file[found]);
        const int folder = pick_folder(p, items);
        if (folder >= 0 && ++steps < steps_of_a_try) {
            wrk_path = g_path[folder];
            continue;
        }
        wrk_path = acf_path;
        steps = 0;
        if (++tries <= max_tries) continue;
        // where only faulty files were met the default aircraft flies in their place
        if (met_faulty) return load_as_traffic(p, app_path + stg.def_pln_path, stg.def_pln_file);
        no_aircraft_found();
        return 0;
    }
}
