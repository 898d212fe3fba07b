// The start of a flight: the user's aircraft placed, every switch and engine set to fit the place.
#include "app/start/flight_start.h"

#include <string.h>

#include "aircraft/deflect.h"
#include "aircraft/design/check.h"
#include "app/start/load_plane.h"
#include "atc/controllers.h"
#include "core/craft/engn_kinds.h"
#include "core/math/axes.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/program/clocks.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "flight/fullsim.h"
#include "flight/power/levers.h"
#include "flight/recording.h"
#include "flight/weapons/weapons.h"
#include "net/data_table.h"
#include "scenery/ground/region.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/region/region_tiles.h"
#include "ui/settings/logbook.h"
#include "weather/atmosphere.h"

namespace {
// Where the aircraft stands and how it moves, before the frame's own fields are set.
struct start_state {
    float psi = 0.0f, the = 0.0f, phi = 0.0f;  // degrees
    float V_msc = 0.0f;
    bool on_ground = false;
    bool running = false;  // engines and electrics
};

// Until flights can start on the ground they begin over the selected airport, at a height for a free flight above it
// and above its land; where no airports were read, over the default one's place.
constexpr float air_start_lat = 34.0954f, air_start_lon = -117.2349f, air_start_height = 3000.0f;

int last_index(size_t size) { return intmax2(static_cast<int>(size) - 1, 0); }

// The selection names an airport, and a ramp or runway of it, that exist.
void hold_selection(int type_start2) {
    msc.loc_apt_wrl = intlim(msc.loc_apt_wrl, 0, last_index(vec_apt.size()));
    if (vec_apt.empty()) return;
    const vec_apt_struct& apt = vec_apt[static_cast<size_t>(msc.loc_apt_wrl)];
    const size_t places = type_start2 == place_ramp ? apt.sta.size() : apt.rwy.size();
    msc.lcl_rwy_ram = intlim(msc.lcl_rwy_ram, 0, last_index(places));
}

void clear_special_states() {
    env.obj_y_top = -9999.0f;
    env.over_obs_last = env.over_rwy_last = 0;
    stg.cat_waiting = stg.cat_inprog = stg.tow_waiting = stg.tow_inprog = 0;
    stg.win_waiting = stg.win_inprog = stg.car_inprog = 0;
}

// The flight starts anew, but fuel and payload stay; a slung load is dropped.
void clear_but_keep_load() {
    const flt_struct& f = flt[0];
    float m_fuel[fuelDIM];
    for (int i = 0; i < fuelDIM; ++i) m_fuel[i] = f.m_fuel[i];
    const float m_fixed = f.m_fixed;
    const float m_jettison = veh[0].jett_is_slung ? 0.0f : f.m_jettison;
    clear_flt(0);
    for (int i = 0; i < fuelDIM; ++i) flt[0].m_fuel[i] = m_fuel[i];
    flt[0].m_fixed = m_fixed;
    flt[0].m_jettison = m_jettison;
}

// The region of the place where a flight begins; over its corner in two steps. The last flight may have left
// it without its land.
void bring_region_to(float lat, float lon) {
    check_for_shift(lat, lon);
    check_for_shift(lat, lon);
    if (region_left_out_files()) load_region(shift_full_reload);
}

// m above the sphere.
float land_elevation(float lat, float lon) {
    float x, y, z, ele;
    xyz_with_latlonel(&x, &y, &z, lat, lon, 0.0);
    latlonel_with_xyz(&lat, &lon, &ele, x, return_terrain_y(x, z, 0), z);
    return ele;
}

// The custom position; any other start becomes one over the selected airport at a comfortable speed.
start_state place_in_the_air(int type_start1) {
    start_state s;
    float lat = air_start_lat, lon = air_start_lon, alt = stg.cus_alt, airport_ele = 0.0f;
    if (!vec_apt.empty()) {
        const vec_apt_struct& apt = vec_apt[static_cast<size_t>(msc.loc_apt_wrl)];
        lat = apt.rwy[0].lat;
        lon = apt.rwy[0].lon;
        airport_ele = apt.ele;
    }
    if (type_start1 == start_custom) {
        lat = stg.cus_lat;
        lon = stg.cus_lon;
    }
    bring_region_to(lat, lon);
    if (type_start1 == start_custom) {
        s.psi = stg.cus_psi;
        s.V_msc = stg.cus_v;
    } else {
        alt = air_start_height + fltmax2(airport_ele, land_elevation(lat, lon));
        const float sigma = find_standard_rho(env.planet, alt) * inv_rho_sl;
        s.V_msc = 1.1f * veh[0].V_ref_ms / sqrtf(fltmax2(sigma, 0.1f));
    }
    xdob_xyz_with_latlonel(&flt[0].dob_x, &flt[0].dob_y, &flt[0].dob_z, lat, lon, alt);
    return s;
}

void clear_catapult() {
    stg.cat_waiting = stg.cat_inprog = 0;
    stg.wired = 0;
}

// Never below the ground; the place in all its forms; the velocity along the heading.
float settle_on_terrain(const start_state& s) {
    flt_struct& f = flt[0];
    const float gnd_y = return_terrain_y(static_cast<float>(f.dob_x), static_cast<float>(f.dob_z), 0);
    const double lowest = veh[0].h_eqlbm + gnd_y;
    if (f.dob_y < lowest) f.dob_y = lowest;
    f.terrain_y_cg = gnd_y;
    f.y_agl_mtr = static_cast<float>(f.dob_y) - veh[0].h_eqlbm - gnd_y;
    xdob_latlonel_with_xyz(&f.dob_lat, &f.dob_lon, &f.dob_ele, f.dob_x, f.dob_y, f.dob_z);
    f.h_ind_ft = static_cast<float>(f.dob_ele) * con.mtrstoft;
    f.vx = sin_deg(s.psi) * s.V_msc;
    f.vz = -cos_deg(s.psi) * s.V_msc;
    f.V_msc = s.V_msc;
    return gnd_y;
}

void lay_out_lines(const start_state& s) {
    const flt_struct& f = flt[0];
    constexpr float winch_ahead = 2000.0f;
    const float here[3] = {static_cast<float>(f.dob_x), static_cast<float>(f.dob_y),
                           static_cast<float>(f.dob_z)};
    for (int end = 0; end < 2; ++end)
        for (int axis = 0; axis < 3; ++axis) env.tow_line[end][axis] = env.jet_line[end][axis] = here[axis];
    stg.win_len = winch_ahead;
    stg.winxyz[0] = here[0] + winch_ahead * sin_deg(s.psi);
    stg.winxyz[1] = here[1];
    stg.winxyz[2] = here[2] - winch_ahead * cos_deg(s.psi);
}

bool is_on_ground(int type_start1, int type_start2, float gnd_y) {
    if (type_start1 == start_catapult) return true;
    if (type_start1 == start_airport && type_start2 != place_final_3 && type_start2 != place_final_10 &&
        flt[0].V_msc < 1.0f)
        return true;
    const flt_struct& f = flt[0];
    const bool wet = terrain_is_wet(static_cast<float>(f.dob_x), static_cast<float>(f.dob_z), 0);
    return !wet && f.dob_y < veh[0].h_eqlbm + gnd_y + 10.0;
}

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

void set_flaps_for_approach(int type_start1, int type_start2) {
    const bool final_approach =
        type_start1 == start_airport && (type_start2 == place_final_3 || type_start2 == place_final_10);
    if (intrange(type_start1, start_carrier, start_platform_2) || final_approach)
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

void reset_clocks_and_yoke() {
    mnw.YK_ptch = mnw.YK_roll = mnw.YK_hdng = 0.0f;
    clocks.miss.set(mnw.miss_time, 0.0);
    mnw.locl_time = locl_from_zulu();
    mnw.first_miss_cycle = 1;
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

void clear_histories() {
    clear_flying_objects();
    zero_path();
    logbook_entry();
    set_dataoutput_params();
}

void set_attitude_and_view(const start_state& s) {
    constexpr float model_mass_lb = 100.0f;
    flt_struct& f = flt[0];
    f.psi = s.psi;
    f.the = s.the;
    f.phi = s.phi;
    init_quaternion(f.psi, f.the, f.phi, f.q);
    update_def_angles(0);
    ren.view_xyz[0] = static_cast<float>(f.dob_x);
    ren.view_xyz[1] = static_cast<float>(f.dob_y);
    ren.view_xyz[2] = static_cast<float>(f.dob_z);
    if (veh[0].m_max * con.kgstolbs < model_mass_lb) APP_handlemenu(view_runway);
    APP_handlemenu(view_fwd_panel);
}

// A trimmed start must be trimmed in its first half step, which reads what a step leaves behind.
void fill_caches(int p) {
    cache_attitude(p);
    cache_air(p);
    for (flt_wing_struct& w : flt[p].wing)
        for (int bld = 0; bld < bladDIM; ++bld) w.Q_centroid_loc[bld] = w.Q_centroid_MULT[bld] = 1.0f;
}
}  // namespace

void init_flt_0(int type_start1, int type_start2) {
    hold_selection(type_start2);
    clear_special_states();
    clear_but_keep_load();
    start_state s = place_in_the_air(type_start1);
    clear_catapult();
    const float gnd_y = settle_on_terrain(s);
    lay_out_lines(s);
    s.on_ground = is_on_ground(type_start1, type_start2, gnd_y);
    set_brake_and_gear(s.on_ground);
    s.running = stg.start_running || !s.on_ground;
    set_switches(s.running);
    set_engines(s);
    set_flaps_for_approach(type_start1, type_start2);
    set_lights_and_loads(s);
    set_cockpit_defaults(s.running);
    set_radio_defaults();
    memset(flt[0].fail_stat, 0, sizeof flt[0].fail_stat);
    clear_atc_and_plan();
    reset_clocks_and_yoke();
    set_cabin();
    set_gear_legs();
    clear_slot_and_ice();
    clear_histories();
    set_attitude_and_view(s);
    fill_caches(0);
    TVPEventHook(4, mnw.real_time, 0.0f, 0, 0);
}

void init_flt_p(int p, float the, float psi, float phi, float x, float y, float z, float v_msc, int mode) {
    clear_flt(p);
    flt_struct& f = flt[p];
    f.update_type = pln_update_local_AI;
    f.last_time_rcvd = -9999.0f;
    f.the = the;
    f.psi = psi;
    f.phi = phi;
    f.dob_x = x;
    f.dob_y = y;
    f.dob_z = z;
    f.V_msc = v_msc;
    f.vx = sin_deg(psi) * v_msc;
    f.vy = 0.0f;
    f.vz = -cos_deg(psi) * v_msc;
    f.ai_app_mode = mode;
    constexpr int legs_set = 6;
    for (int g = 0; g < legs_set; ++g) {
        veh[p].gear[g].dep_rat = veh[p].gear_retract ? 0.0f : 1.0f;
        f.gear[g].tire_vrt_def_veh = 0.0f;
    }
    // running flat out
    for (int en = 0; en < engnDIM; ++en) {
        flt_engn_struct& e = f.engn[en];
        e.burning_fuel = 1;
        e.thro_ref = e.thro_use = 1.0f;
        e.tacrad_ENGN = e.tacrad_PROP = 99.9f;
        e.DVinc = (en_is_prop(p, en) ? 0.1f : 0.75f) * con.lcl_a;
    }
    init_quaternion(psi, the, phi, f.q);
    update_def_angles(p);
    fill_caches(p);
}
