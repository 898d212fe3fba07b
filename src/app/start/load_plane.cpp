// Loading of an aircraft with all it brings, and the choice of background aircraft.
#include "app/start/load_plane.h"

#include <stdio.h>
#include <string.h>

#include "aircraft/derive/derive.h"
#include "aircraft/draw/geometry.h"
#include "aircraft/file/acf_fault.h"
#include "aircraft/io_acf.h"
#include "app/start/plane_sounds.h"
#include "cockpit/panel.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/clocks.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "plugins/host.h"
#include "sound/sound.h"

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
