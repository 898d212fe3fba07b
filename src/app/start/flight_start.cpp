// The start of a flight, step by step.
#include "app/start/flight_start.h"

#include <string.h>

#include "aircraft/deflect.h"
#include "app/start/level_flight.h"
#include "app/start/start_aircraft.h"
#include "app/start/start_exercises.h"
#include "app/start/start_places.h"
#include "app/start/start_settings.h"
#include "app/start/start_state.h"
#include "atc/controllers.h"
#include "core/math/axes.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/program/clocks.h"
#include "core/records/records.h"
#include "flight/ground/contact.h"
#include "flight/instruments.h"
#include "flight/mass_motion.h"
#include "flight/pilots/pilot_input.h"
#include "flight/recording.h"
#include "flight/weapons/weapons.h"
#include "net/data_table.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/nav/magnetic.h"
#include "ui/settings/logbook.h"
#include "weather/weather_step.h"
#include "weather/wind.h"

namespace {
// -- what is asked for

bool is_known(int code, int place) {
    if (code == start_airport) return intrange(place, place_ramp, place_final_10);
    constexpr int ranges[][2] = {{start_custom, start_custom},
                                 {start_grass, start_winch},
                                 {start_formation, start_carried},
                                 {start_carrier, start_fire},
                                 {start_shuttle_first, start_shuttle_last}};
    for (const auto& range : ranges)
        if (intrange(code, range[0], range[1])) return true;
    return false;
}

// Codes come from menus, the network and plugins.
start_state asked_for(int code, int place) {
    start_state s;
    if (!is_known(code, place)) return s;
    s.code = code;
    if (code == start_airport) s.place = place;
    return s;
}

void show_what_it_needs(int code) {
    if (code == start_catapult || intrange(code, start_carrier, start_platform_2)) stg.draw_boats = 1;
    if (code == start_fire) stg.draw_fires = 1;
}

// -- from the last flight to the place of this one

// What the aircraft stood on, or a search of this start has met. The network's ground stays.
void forget_ground_below() {
    env.over_obs_this = env.over_rwy_this = 0;
    env.roughness = 0.0f;
    if (!net.getting_terrain) env.surf_tex = 0;
}

void clear_special_states() {
    env.obj_y_top = -9999.0f;
    env.over_obs_last = env.over_rwy_last = 0;
    forget_ground_below();
    stg.cat_waiting = stg.cat_inprog = stg.tow_waiting = stg.tow_inprog = 0;
    stg.win_waiting = stg.win_inprog = stg.car_inprog = 0;
    env.over_carr = env.over_frig = 0;
}

void set_special_states(int code) {
    stg.tow_waiting = code == start_tow;
    stg.win_waiting = code == start_winch;
    stg.car_inprog = code == start_carried;
}

// What becomes one on the runway without being refused.
void go_on_as_runway(start_state& s) {
    const bool strip = intrange(s.code, start_grass, start_helipad);
    if (strip) select_nearest_strip(s.code);
    if (strip || s.code == start_tow || s.code == start_winch) s = start_state{};
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

void clear_catapult() {
    stg.cat_waiting = stg.cat_inprog = 0;
    stg.wired = 0;
}

// False where it cannot be carried out.
bool put_in_place(start_state& s) {
    if (s.code == start_custom) return place_at_custom(s);
    if (s.code == start_catapult) return place_on_catapult(s);
    if (s.code == start_water) return place_on_water(s);
    if (s.code == start_fire) return place_near_fire(s);
    if (intrange(s.code, start_formation, start_carried)) return place_at_leader(s);
    if (intrange(s.code, start_carrier, start_platform_2)) return place_behind_ship(s);
    if (intrange(s.code, start_shuttle_first, start_shuttle_last)) return place_on_shuttle_return(s);
    return place_at_airport(s);
}

bool place_user(start_state& s) {
    clear_special_states();
    set_special_states(s.code);
    go_on_as_runway(s);
    place_leader(s.code);
    clear_but_keep_load();
    clear_catapult();
    if (!put_in_place(s)) return false;
    if (stg.tow_waiting) place_towplane(s.psi);
    return true;
}

// Never below the ground; the place in all its forms; the velocity along the heading.
float settle_on_terrain(const start_state& s) {
    flt_struct& f = flt[0];
    forget_ground_below();
    const float gnd_y = return_terrain_y(static_cast<float>(f.dob_x), static_cast<float>(f.dob_z), 0);
    const double lowest = veh[0].h_eqlbm + gnd_y;
    if (f.dob_y < lowest) f.dob_y = lowest;
    f.terrain_y_cg = gnd_y;
    f.y_agl_mtr = static_cast<float>(f.dob_y) - veh[0].h_eqlbm - gnd_y;
    xdob_latlonel_with_xyz(&f.dob_lat, &f.dob_lon, &f.dob_ele, f.dob_x, f.dob_y, f.dob_z);
    f.h_ind_ft = static_cast<float>(f.dob_ele) * con.mtrstoft;
    env.mag_var = env.planet ? 0.0f : magnetic_variation(f.dob_lat, f.dob_lon);
    f.vx = sin_deg(s.psi) * s.V_msc;
    f.vy = s.vy;
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

bool is_on_ground(const start_state& s, float gnd_y) {
    constexpr float near_ground = 10.0f;  // m
    const flt_struct& f = flt[0];
    if (s.code == start_catapult || (s.code == start_airport && !is_final(s))) return true;
    const bool wet = terrain_is_wet(static_cast<float>(f.dob_x), static_cast<float>(f.dob_z), 0);
    return !wet && f.dob_y < veh[0].h_eqlbm + gnd_y + near_ground;
}

// -- what belongs to one flight

void reset_clocks_and_yoke() {
    mnw.YK_ptch = mnw.YK_roll = mnw.YK_hdng = 0.0f;
    clocks.miss.set(mnw.miss_time, 0.0);
    mnw.locl_time = locl_from_zulu();
    mnw.first_miss_cycle = 1;
}

// What the parts of the flight model keep beside the records: a start is the same whatever flew before.
void forget_last_flight() {
    reset_motion();
    contact_start();
    reset_instruments();
    reset_pilot_input();
    wind_reset();
    for (float& until : stg.start_time) until = 0.0f;
    for (float& until : stg.amvo_timeout) until = 0.0f;
    stg.chute_deploy_rat = stg.trap_accel = stg.l_brake_add = stg.r_brake_add = 0.0f;
    stg.RAT_on = stg.apu_on = stg.water_scoop = stg.tran_ID = 0;
    stg.over_g = stg.over_vne = stg.over_vfe = stg.over_vle = 0;
    for (float& v : env.jet_vel) v = 0.0f;
    msc.crash_damp_timeout = 0.0f;
    msc.stab_ptch_test = msc.stab_hdng_test = 0;
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

// Steps of the surfaces are as long as the frame's; while it lives they are of one length.
class start_period {
public:
    start_period() : prd_FM_(mnw.prd_FM) {
        constexpr float period = 0.02f;  // s
        mnw.prd_FM = period;
    }
    ~start_period() { mnw.prd_FM = prd_FM_; }
    start_period(const start_period&) = delete;
    start_period& operator=(const start_period&) = delete;

private:
    const float prd_FM_;
};

void start_at_place(start_state s) {
    const start_period same_at_any_frame_rate;
    while (!place_user(s)) s = start_state{};
    const float gnd_y = settle_on_terrain(s);
    local_air_step();
    lay_out_lines(s);
    s.on_ground = is_on_ground(s, gnd_y);
    s.running = stg.start_running || !s.on_ground;
    set_for_flight(s);
    memset(flt[0].fail_stat, 0, sizeof flt[0].fail_stat);
    clear_atc_and_plan();
    reset_clocks_and_yoke();
    forget_last_flight();
    clear_histories();
    set_attitude_and_view(s);
    fill_caches(0);
}
}  // namespace

void init_flt_0(int type_start1, int type_start2) {
    const start_state s = asked_for(type_start1, type_start2);
    hold_selection(s);
    show_what_it_needs(s.code);
    load_aircraft_of(s.code);
    start_at_place(s);
    TVPEventHook(4, mnw.real_time, 0.0f, 0, 0);
}
