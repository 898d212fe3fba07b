// Loading of an aircraft with all it brings, and the choice of background aircraft.
#include "app/start/load_plane.h"

#include <stdio.h>
#include <string.h>

#include <vector>

#include "aircraft/derive/derive.h"
#include "aircraft/draw/geometry.h"
#include "aircraft/file/acf_fault.h"
#include "aircraft/io_acf.h"
#include "app/start/flight_start.h"
#include "app/start/plane_sounds.h"
#include "cockpit/panel.h"
#include "core/disk/dirlist.h"
#include "core/disk/files.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/alert.h"
#include "core/program/clocks.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "plugins/host.h"
#include "scenery/ground/terrain_query.h"
#include "sound/sound.h"
#include "ui/screens/start_screen.h"
#include "weather/atmosphere.h"

namespace {
// Bounded copy, always terminated.
template <int size>
void copy_text(char (&to)[size], const std::string& from) {
    snprintf(to, size, "%s", from.c_str());
}

std::string file_part(const std::string& path) {
    size_t at = path.size();
    while (at > 0 && !is_a_dir_char(path[at - 1])) --at;
    return path.substr(at);
}

void name_from_path(int p) {
    copy_text(veh[p].name, file_part(veh[p].path));
    TVPUpdatePlaneNameAndPath(p, veh[p].name, veh[p].path);
}

// A stranger's faulty file takes no place in the sky, not even that of the default aircraft.
bool given_up(int p) { return p != 0 && acf_was_faulty(veh[p].path); }

// The aircraft asked for, else the default one; without either there is no flight.
int read_or_default(int p) {
    if (IO_acf(0, p, 0)) return 1;
    if (given_up(p)) {
        clear_acf(p);
        return 0;
    }
    copy_text(veh[p].path, app_path + stg.def_pln_path);
    copy_text(veh[p].name, stg.def_pln_file);
    if (IO_acf(0, p, 0)) return 1;
    MACIBM_alert(
        mnw.top_win,
        "I could not find the plane requested, and I could also not find the following:", veh[p].path,
        "Be sure that default plane is in the 'Heavy Metal' folder in the 'Airplanes' folder.",
        "This aircraft is required to start up: install the aircraft folder again if it is missing.",
        alert_fatal);
    return 0;
}

// What the last aircraft of the slot did (vectors, sweep, failures) must not decide which parts of the next
// one exist while it is derived: nothing is vectored, so every disc is there. Only the place and the motion
// stay, since a peer or a plugin may exchange an aircraft in flight.
void clear_flight_state(int p) {
    flt_struct& f = flt[p];
    const int update_type = f.update_type, ip_from_int = f.ip_from_int;
    const float last_time_rcvd = f.last_time_rcvd;
    const double place[] = {f.dob_x, f.dob_y, f.dob_z, f.dob_lat, f.dob_lon, f.dob_ele};
    const float velocity[] = {f.vx, f.vy, f.vz}, angles[] = {f.psi, f.the, f.phi};
    float q[4];
    memcpy(q, f.q, sizeof q);
    clear_flt(p);
    f.update_type = update_type;
    f.ip_from_int = ip_from_int;
    f.last_time_rcvd = last_time_rcvd;
    f.dob_x = place[0], f.dob_y = place[1], f.dob_z = place[2];
    f.dob_lat = place[3], f.dob_lon = place[4], f.dob_ele = place[5];
    f.vx = velocity[0], f.vy = velocity[1], f.vz = velocity[2];
    f.psi = angles[0], f.the = angles[1], f.phi = angles[2];
    memcpy(f.q, q, sizeof q);
}

void clear_limits() { stg.over_g = stg.over_vne = stg.over_vfe = stg.over_vle = 0; }
}  // namespace

int load_plane(int p) {
    stg.num_acf = intmax2(stg.num_acf, p + 1);
    clear_flight_state(p);
    name_from_path(p);
    const int result = read_or_default(p);
    if (!result) return 0;
    if (p == 0) clear_limits();
    if (!derive_model(p)) return 0;
    load_plane_geo(1, 0, 0, p);
    if (p == 0) {
        load_panel();
        load_plane_sounds();
    }
    TVPEventHook(3, mnw.real_time, 0.0f, p, 0);
    return result;
}

// -- background traffic

namespace {
// Height band of a cruise by the kind of engine, m.
void cruise_band(int p, float* lo, float* hi) {
    const int type = veh[p].engn[0].engn_type;
    *lo = 1000.0f;
    *hi = 3000.0f;
    if (veh[p].num_engines == 0) return;
    if (type == engn_turb_free || type == engn_turb_fixed) {
        *lo = 3000.0f;
        *hi = 6000.0f;
    } else if (type == engn_jet_lo || type == engn_jet_hi || type == engn_rocket || type == engn_electric) {
        *lo = 9000.0f;
        *hi = 12000.0f;
    }
}

// Not at the user's own height.
float clear_of_user(float y) {
    const float user = static_cast<float>(flt[0].dob_y);
    if (fabsf(y - user) > 2000.0f) return y;
    return user + (int_rand(0, 1) ? 500.0f : -500.0f);
}
}  // namespace

void init_flt_p_other_ai(int p) {
    constexpr int checker_ai = 25;
    const float max_dis_traff = max_vis_ter_mtrs[0];
    const float bearing = static_cast<float>(int_rand(0, 359));
    const float distance = flt_rand(0.5f, 1.0f) * max_dis_traff;
    const float half_way = 0.5f * distance;
    float x = static_cast<float>(flt[0].dob_x) + half_way * sin_deg(flt[0].psi) + distance * sin_deg(bearing);
    float z = static_cast<float>(flt[0].dob_z) - half_way * cos_deg(flt[0].psi) - distance * cos_deg(bearing);
    x = fltlim(x, 0.9f * env.reg_x1_mtr, 0.9f * env.reg_x2_mtr);
    z = fltlim(z, 0.9f * env.reg_z1_mtr, 0.9f * env.reg_z2_mtr);
    float y = return_terrain_y(x, z, checker_ai);
    const int on_approach = p % 3 != 2;
    float lo = 400.0f, hi = 1200.0f;
    if (!on_approach) cruise_band(p, &lo, &hi);
    y = clear_of_user(y + flt_rand(lo, hi));
    const float sigma = find_standard_rho(0, y) * inv_rho_sl;
    const float speed = 1.5f * veh[p].V_ref_ms / sqrtf(fltmax2(sigma, 0.1f));
    const float heading = fltwrap(bearing + 180.0f + flt_rand(-10.0f, 10.0f), 0.0f, 360.0f);
    init_flt_p(p, 0.0f, heading, 0.0f, x, y, z, speed, on_approach);
}

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
    copy_text(veh[p].path, path);
    copy_text(veh[p].name, name);
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
    int tries = 0;
    bool met_faulty = false;
    wrk_path = acf_path;
    for (;;) {
        const int items = opensave_getitems(ftype_acf);
        const int found = first_sound_aircraft(items, &met_faulty);
        if (found >= 0) return load_as_traffic(p, g_path[found], g_file[found]);
        const int folder = pick_folder(p, items);
        if (folder >= 0) {
            wrk_path = g_path[folder];
        } else {
            wrk_path = acf_path;
            if (++tries <= max_tries) continue;
            // where only faulty files were met the default aircraft flies in their place
            if (met_faulty) return load_as_traffic(p, app_path + stg.def_pln_path, stg.def_pln_file);
            no_aircraft_found();
            return 0;
        }
    }
}
