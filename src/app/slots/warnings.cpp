// Warnings of the user's aircraft: calls, horns, marker lamps, chatter.
#include "app/slots/warnings.h"

#include "atc/controllers.h"
#include "cockpit/radios.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/records.h"
#include "flight/autopilot/autopilot.h"
#include "sound/sound.h"

namespace {
// What was heard and seen last; outlives a flight.
struct warning_state {
    float next_chatter = -1.0f;  // real_time; below 0 before the first
    bool was_below[11] = {};     // heights of the calls
    int old_OM_lit = 0, old_MM_lit = 0, old_MM_dash = 0, old_IM_lit = 0;
    int prev_otto_running = 0;
    bool o_stal_warn = false, o_gear_warn = false;
};
warning_state state;

void play(int slot) { soun.SOUND_set(slot, 1.0f, 1.0f); }

// Every minute or so when the radio is quiet, every two seconds when it is busy.
void radio_chatter() {
    float& next_time = state.next_chatter;
    const bool selects_com = nav.audio_sel == 10 || nav.audio_sel == 11;
    if (!mnw.radio_chatter_on || !selects_com || env.planet || mnw.real_time < stl.verbal_timeout || atc_is_talking())
        return;
    if (next_time < 0.0f) next_time = mnw.real_time + flt_rand(5.0f, 30.0f);
    if (!(mnw.real_time > next_time)) return;
    play(int_rand(sound_chatter_first, sound_chatter_last));
    next_time = mnw.real_time + extrap(0.0f, 60.0f, 1.0f, 2.0f, msc.radio_busy_fac) * flt_rand(0.5f, 2.0f);
}

// Each height is called once on the way down.
void height_calls() {
    static const float heights_ft[11] = {1000, 500, 400, 300, 200, 100, 50, 40, 30, 20, 10};
    bool(&was_below)[11] = state.was_below;
    const float h = (flt[0].y_agl_mtr - veh[0].h_eqlbm) * con.mtrstoft;
    for (int i = 0; i < 11; ++i) {
        const bool below = h < heights_ft[i];
        if (below && !was_below[i] && !flt[0].onground_all) play(sound_height_1000 + i);
        was_below[i] = below;
    }
}

void ground_proximity_calls() {
    if (!mnw.puff05 || !(veh[0].warn1_EQ || veh[0].warn2_EQ) || !stg.warn_bb) return;
    if (stg.BB_pullup)
        play(sound_pullup);
    else if (stg.BB_sinkrate)
        play(sound_sink);
    else if (stg.BB_gear)
        play(sound_gear_up);
    height_calls();
}

// A lamp blinks; its tone sounds on the rising edge.
void marker(int over, bool lit_now, int* lit, int* old_lit, int sound) {
    *lit = over && lit_now;
    if (*lit && !*old_lit && nav.marker_aud && nav.marker_audio_working) play(sound);
    *old_lit = *lit;
}

void marker_lamps() {
    const int cntr9ps = intround(10.0f * mnw.totl_time) % 9;
    if (!nav.ovr_OM && !nav.ovr_MM && !nav.ovr_IM) nav.marker_audio_working = 1;
    const bool dot = cntr9ps <= 1, dash = intrange(cntr9ps, 3, 7);
    const bool inner = cntr9ps <= 1 || intrange(cntr9ps, 3, 4) || intrange(cntr9ps, 6, 7);
    int dash_lit = 0;
    marker(nav.ovr_OM, cntr9ps <= 4, &nav.OM_lit, &state.old_OM_lit, sound_outer);
    marker(nav.ovr_MM, dot, &nav.MM_lit, &state.old_MM_lit, sound_middle_dot);
    marker(nav.ovr_MM, dash, &dash_lit, &state.old_MM_dash, sound_middle_dash);
    nav.MM_lit = nav.MM_lit || dash_lit;
    marker(nav.ovr_IM, inner, &nav.IM_lit, &state.old_IM_lit, sound_inner);
}

void autopilot_disconnect() {
    int& prev_otto_running = state.prev_otto_running;
    const int running = otto_running();
    if (prev_otto_running && !running) {
        nav.auto_disc_timeout = mnw.totl_time;
        if (!mnw.eq_pfc_centercon && !mnw.eq_pfc_switches) play(sound_caution);
    }
    prev_otto_running = running;
}

// Sounds while it holds: started on the rising edge, silenced on the falling one.
void horn(bool on, bool* was_on, int sound) {
    if (on != *was_on) soun.SOUND_set(sound, 1.0f, on ? 1.0f : 0.0f);
    *was_on = on;
}

bool gear_horn_on() {
    if (!veh[0].warn_gear_EQ || !veh[0].gear_retract || flt[0].gear_handle || !nav.gear_audio_working)
        return false;
    if (flt[0].handle_rat_req > 0.67f) return true;
    for (int en = 0; en < veh[0].num_engines; ++en)
        if (flt[0].engn[en].thro_use < 0.01f) return true;
    return false;
}

void horns() {
    horn(veh[0].has_stallwarn && flt[0].stall_warning, &state.o_stal_warn, sound_stall);
    horn(gear_horn_on(), &state.o_gear_warn, sound_gear_warning);
}

void low_rotor() {
    if (!mnw.puff02 || !veh[0].warn_lorot_EQ) return;
    flt[0].lo_rotor_warning = flt[0].engn[0].tacrad_PROP < veh[0].RSC_mingreen_PROP;
    if (flt[0].lo_rotor_warning) play(sound_caution);
}
}  // namespace

void reset_warnings() { state = warning_state{}; }

void warn_the_pilot() {
    mors.manage();
    radio_chatter();
    if (mnw.puff1) {
        handle_plan();
        handle_vectors();
    }
    if (mnw.puff02) LSO_respond();
    ground_proximity_calls();
    marker_lamps();
    autopilot_disconnect();
    horns();
    low_rotor();
}
