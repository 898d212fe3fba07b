// Switches, levers, engines, lights and radios at the start of a flight.
#include "app/start/start_settings.h"

#include <string.h>

#include "aircraft/design/check.h"
#include "core/craft/engn_kinds.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "flight/power/levers.h"

namespace {
void set_brake_and_gear(bool on_ground) {
    stg.parkbrake = on_ground ? 1.0f : 0.0f;
    flt[0].gear_handle = veh[0].gear_retract ? on_ground : 1;
}

// On when running, or when the aircraft has no such switch.
void set_switches(bool running) {
    const veh_struct& v = veh[0];
    stg.inverter[0] = stg.inverter[1] = running || !v.inverter_EQ;
    stg.battery = running || !v.battery_EQ;
    stg.avionics = running || !v.avionics_EQ;
    for (int en = 0; en < engnDIM; ++en) {
        stg.igniter[en] = running || !v.has_igniter;
        stg.generator[en] = running || !v.generator_EQ;
        stg.fuel_pump[en] = running || !v.fuelpump_EQ;
    }
    const bool has_clutch = v.engn[0].prop_clutch_EQ && v.has_clutch_switch;
    stg.clutch_trq_engag = running || !has_clutch;
    for (float& rat : stg.clutch_rat) rat = static_cast<float>(stg.clutch_trq_engag);
}

// One engine's levers, gauges and speeds.
void set_engine(int en, const start_state& s) {
    const veh_struct& v = veh[0];
    flt_engn_struct& e = flt[0].engn[en];
    stg.idle_speed[en] = 1;
    stg.fadec_on[en] = eng_has_fadec(0, en);
    e.thro_ref = e.thro_use = s.V_msc > 1.0f ? 0.75f : 0.0f;
    e.prop_rsc = v.RSC_redline_PROP;
    e.mixt = s.running || !v.has_mixture ? 1.0f : 0.0f;
    e.ignition = s.running ? 3 : 0;
    e.prop_mode = 1;
    e.cowl = 0.5f;
    e.burning_fuel = s.running;
    e.burning_rat = s.running ? 1.0f : 0.0f;
    e.OILQ = 1.0f;
    e.OILT = s.running ? 0.5f * v.max_OILT : 0.0f;
    e.OILP = s.running ? 0.5f * v.max_OILP : 0.0f;
    e.CHT = s.running ? 0.5f * v.max_CHT : 0.0f;
    e.bat_volt = e.sigma = e.oil_lube_rat = 1.0f;
    e.N1 = e.N2 = s.running ? 50.0f + 50.0f * e.thro_ref : 0.0f;
    const float power = sqrtf(e.thro_ref);
    e.tacrad_ENGN = s.running ? interp(0.0f, v.RSC_idlespeed_ENGN, 1.0f, v.RSC_redline_ENGN, power) : 0.0f;
    e.tacrad_PROP = s.running ? interp(0.0f, v.RSC_idlespeed_PROP, 1.0f, v.RSC_redline_PROP, power) : 0.0f;
    const float fine = v.engn[en].min_pitch, coarse = v.engn[en].max_pitch;
    e.pitch_deg_ref = s.on_ground ? fine : 0.5f * (fine + coarse);
    if (s.running && v.linked_prop_EQ) {
        e.tacrad_ENGN = v.RSC_redline_ENGN;
        e.tacrad_PROP = v.RSC_redline_PROP * prop_gear_of(v.engn[0]) / prop_gear_of(v.engn[en]);
    }
    if (is_gyr_rotor(0, en) || veh[0].engn[en].prop_type == prop_lift_fan) e.tacrad_PROP = 0.0f;
}

void set_engines(const start_state& s) {
    for (int en = 0; en < engnDIM; ++en) set_engine(en, s);
}

void set_flaps_for_approach(const start_state& s) {
    if (intrange(s.code, start_carrier, start_platform_2) || is_final(s))
        flt[0].handle_rat_req = flt[0].handle_rat_act = 0.5f;
}

void set_lights_and_loads(const start_state& s) {
    flt_struct& f = flt[0];
    const veh_struct& v = veh[0];
    constexpr float sling_ft = 40.0f;
    f.jett_len = sling_ft * con.fttomtrs;
    f.jato_left = v.jato_dur;
    f.disp_rat = 0.5f;
    if (s.running) {
        f.nav_lite = v.has_navlites;
        f.bea_lite = v.has_fuserb1 || v.has_fuserb2;
        f.str_lite = v.has_navlites;
        f.tax_lite = v.has_taxilite;
        f.lan_lite = v.has_lanlite1 || v.has_lanlite2;
        f.gyro_spin[0] = f.gyro_spin[1] = 1.0f;
    }
    if (v.vect_EQ) f.vect_rqst = f.vect_rat = s.on_ground ? 0.75f : 0.0f;
}

void set_cockpit_defaults(bool running) {
    stg.ecam_warning = 0;
    stg.auto_brake_lvl = 1;
    stg.feather_mode = 1;
    stg.yaw_damper_on = stg.HUD_on = running;
    stg.art_stab_on = 1;
    stg.puffers_on = 1;
    stg.fuel_tank_sel = 4;
    stg.cabin_vvi_set_fpm = 500.0f;
    stg.HSI_is_arc = 1;
    stg.master_caution_working = stg.master_warning_working = stg.master_accept__working = 1;
    stg.tran_mode = running ? 3 : 0;
    stg.ice_all = stg.ice_pitot_heat = stg.ice_auto_ignite = stg.ice_inert_sep = stg.ice_inlet_heat = 0;
    stg.ice_prop_heat = stg.ice_surf_heat = stg.ice_surf_boot = stg.ice_window_heat = 0;
    stg.jato_on = stg.arrest_gear = stg.chute_on = stg.prop_sync_on = 0;
    stg.pre_rotating = stg.pre_rotate_level = stg.fuel_tank_xfr = stg.dumping_fuel = 0;
    stg.ah_bar = 0.0f;
    stg.gun_armed = stg.roc_armed = stg.mis_armed = stg.bom_armed = 0;
}

void set_radio_defaults() {
    nav.mode_fdir = mnw.eq_pfc_switches ? 0 : 2;
    nav.mode_thro = nav.mode_hdng = nav.mode_alt_ = nav.mode_hnav = nav.mode_vnav = otto_off;
    nav.asi_hold_kts_mac = nav.hdg_hold_mag = nav.vvi_hold_fpm = nav.syn_hold_deg = 0.0f;
    nav.alt_hold_ft_dial = nav.alt_hold_ft_use = 0.0f;
    nav.hdg_roll_mode = 6;
    nav.DME_mode = 2;
    nav.EFIS_1_sel = nav.EFIS_2_sel = 2;
    nav.RMI_L_adf = 1;
    nav.RMI_R_adf = 0;
    for (int& p : nav.power) p = 1;
    nav.auto_test_timeout = nav.auto_disc_timeout = -999.0f;
    nav.arg_mode = 8;
    nav.map_mode = 2;
    nav.map_range_sel = 2;
    nav.EFIS_wxr = nav.EFIS_tcas = nav.EFIS_apt = nav.EFIS_fix = nav.EFIS_vor = nav.EFIS_ndb = 1;
    nav.marker_audio_working = nav.gear_audio_working = 1;
    nav.audio_sel = 10;
    nav.avi_src[0] = 1;
    nav.avi_src[1] = nav.avi_src[2] = 0;
    nav.avi_hsi_mode = 0;
}

void set_cabin() {
    stg.cabin_vvi_act_fpm = 0.0f;
    stg.cabin_alt_set_ft = stg.cabin_alt_act_ft = 2000.0f;
    stg.bleed_air_on = stg.nw_steering = 1;
    con.lcl_sig = 1.0f;
}

void set_gear_legs() {
    for (veh_gear_struct& g : veh[0].gear) {
        const bool down = flt[0].gear_handle;
        g.dep_rat = down ? 1.0f : 0.0f;
        g.latN = down ? g.latE : g.latR;
        g.lonN = down ? g.lonE : g.lonR;
        g.axiN = down ? g.axiE : g.axiR;
    }
}

void clear_slot_and_ice() {
    flt_struct& f = flt[0];
    f.update_type = pln_update_primary;
    f.last_time_rcvd = -9999.0f;
    f.pitot_ice = f.prop_ice = f.inlet_ice = f.window_ice = f.frame_ice = 0.0f;
}

}  // namespace

void set_for_flight(const start_state& s) {
    set_brake_and_gear(s.on_ground);
    set_switches(s.running);
    set_engines(s);
    set_flaps_for_approach(s);
    set_lights_and_loads(s);
    set_cockpit_defaults(s.running);
    set_radio_defaults();
    set_cabin();
    set_gear_legs();
    clear_slot_and_ice();
}
