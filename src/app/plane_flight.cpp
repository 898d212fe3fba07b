// One aircraft's frame.
#include "app/plane_flight.h"

#include "aircraft/deflect.h"
#include "aircraft/design/exists.h"
#include "aircraft/systems/electrics.h"
#include "app/slots/plane_puffs.h"
#include "app/slots/warnings.h"
#include "core/craft/engn_kinds.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "flight/ai_pilot.h"
#include "flight/fullsim.h"
#include "flight/pilots/pilot_input.h"
#include "flight/slots.h"
#include "flight/weapons/weapons.h"
#include "net/messages.h"

namespace {
void move_slot(int p) {
    const bool replaying = mnw.replay_mode != 0;
    switch (flt[p].update_type) {
        case pln_update_net:
            return update_with_net(p);
        case pln_update_primary:
            return replaying ? update_with_replay() : update_with_fullsim1(p);
        case pln_update_local_AI:
            if (!replaying) update_with_AI(p);
            return;
        default:
            return;  // a plugin moves it
    }
}

void check_state(const flt_struct& f) {
    for (const float v : {f.vx, f.vy, f.vz, f.P, f.Q, f.R, f.Prad, f.Qrad, f.Rrad, f.psi, f.the, f.phi,
                          f.sin_psi, f.cos_psi, f.sin_the, f.cos_the, f.sin_phi, f.cos_phi})
        check_val(v);
    for (const double v : {f.dob_x, f.dob_y, f.dob_z}) check_val(static_cast<float>(v));
}

void publish_position(int p) {
    flt_struct& f = flt[p];
    xdob_latlonel_with_xyz(&f.dob_lat, &f.dob_lon, &f.dob_ele, f.dob_x, f.dob_y, f.dob_z);
    f.dat_x = static_cast<float>(f.dob_x);
    f.dat_y = static_cast<float>(f.dob_y);
    f.dat_z = static_cast<float>(f.dob_z);
    f.dat_lat = static_cast<float>(f.dob_lat);
    f.dat_lon = static_cast<float>(f.dob_lon);
    f.dat_ele = static_cast<float>(f.dob_ele);
}

// Peers get the user's aircraft, monitors and instructor stations all.
void send_snapshots(int p) {
    if (!(p == 0 ? mnw.puff20 : mnw.puff1)) return;
    for (int slot = ip_mp_first; slot <= ip_ios_served; ++slot) {
        if (!net.use_ip[slot] || !net.got_ip[slot]) continue;
        const bool monitor = intrange(slot, ip_mon_first, ip_mon_last) || slot == ip_ios_served;
        if (monitor || (slot <= ip_mp_last && p == 0)) NET_send_snap(p, slot);
    }
}

// A strobe flash a second, staggered by slot; the beacon pulses.
void work_lights(int p) {
    flt_struct& f = flt[p];
    const bool powered = esys_working();
    f.str_inflash = f.str_lite && powered && intround(p + 15.0f * mnw.totl_time) % 15 == 0;
    f.bea_alpha = f.bea_lite && powered ? pulse(1.5f * p) : 0.0f;
}

// Above a blur the picture turns at a fixed rate.
void turn_propellers(int p) {
    constexpr float blur_rsc = 15.0f, blur_deg_per_sec = 180.0f;
    for (int en = 0; en < engnDIM; ++en) {
        if (!en_is_prop(p, en) && !en_is_tip(p, en)) continue;
        flt_engn_struct& e = flt[p].engn[en];
        const float rate = e.tacrad_PROP < blur_rsc ? e.tacrad_PROP * con.radtodeg : blur_deg_per_sec;
        e.prop_ang_deg = fltwrap(e.prop_ang_deg - rate * mnw.prd_FM * veh[p].engn[en].prop_dir, 0.0f, 360.0f);
    }
}
}  // namespace

void PLANE_math_in_flight(int p) {
    if (ren.is_viewer) return;
    move_slot(p);
    update_def_angles(p);
    if (flt[p].update_type == pln_update_primary && !mnw.replay_mode) update_with_fullsim2(p);
    if (p > 0)
        for (int en = 0; en < wattDIM; ++en)
            if (wpn_is_on_board(p, en)) attach_weapon(p, en);
    check_state(flt[p]);
    publish_position(p);
    send_snapshots(p);
    if (mnw.puff40) emit_puffs(p);
    work_lights(p);
    turn_propellers(p);
    if (p == 0 && avio_working()) warn_the_pilot();
}
