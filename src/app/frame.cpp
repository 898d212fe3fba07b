// One pass of the main loop.
#include "app/frame.h"

#include "app/app_update.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/clocks.h"
#include "core/program/input_gate.h"
#include "core/program/logs.h"
#include "core/program/seams.h"
#include "core/records/records.h"
#include "draw/gl/colours.h"
#include "draw/images/interface_layout.h"
#include "draw/images/screenshot.h"
#include "net/messages.h"
#include "platform/window.h"
#include "plugins/host.h"
#include "sound/sound.h"
#include "ui/screens/clicks.h"
#include "ui/screens/start_screen.h"
#include "weather/clouds.h"

namespace {
// -- periodic flags

struct puff_timer {
    int mnw_struct::*flag;
    float period;       // s
    double last_fired;  // real_time
};

struct frame_state {
    puff_timer puff_timers[9] = {
        {&mnw_struct::puff01, 10.0f, 0.0}, {&mnw_struct::puff02, 5.0f, 0.0},  {&mnw_struct::puff05, 2.0f, 0.0},
        {&mnw_struct::puff1, 1.0f, 0.0},   {&mnw_struct::puff2, 0.5f, 0.0},   {&mnw_struct::puff5, 0.2f, 0.0},
        {&mnw_struct::puff10, 0.1f, 0.0},  {&mnw_struct::puff20, 0.05f, 0.0}, {&mnw_struct::puff40, 0.025f, 0.0},
    };
    bool clock_started = false;
    float last_time_sec = 0.0f;                        // time_sec of the last pass
    int cntr_FM = 0, cntr_UI = 0;                      // passes in flight and in windows without a break
    int passes_FM = 0;                                 // all passes in flight
    double last_time_FM = 0.0, last_time_UI = 0.0;     // clocks.real at the last adaption
    double proof_time = 0.0;                           // clocks.real at the fifth pass
    float old_mx = 0.0f, old_my = 0.0f;                // mouse of the last pass
    float last_click_time = -9999.0f;                  // real_time
    double last_mark = 0.0, frame_start = 0.0;         // profile, s
};
frame_state state;

// Each flag is set for one pass when more than its period has gone by, by the clock of the last pass.
void set_periodic_flags() {
    for (puff_timer& t : state.puff_timers) {
        const bool fires = t.last_fired + t.period < clocks.real.now;
        mnw.*t.flag = fires;
        if (fires) t.last_fired = clocks.real.now;
    }
}

void clear_input_flags() {
    return_hit = 0;
    mnw.mouse_clicked = mnw.mouse_lifted = mnw.mouse_wheel = mnw.key_hit = 0;
    stl.help_message.clear();
    if (mnw.top_win == -1) mnw.top_win = win_fly;
}

// -- wall clock

// time_sec starts over every 5000 s; the difference to the last reading carries over the jump.
void advance_real_time() {
    constexpr double window = 5000.0;
    const float now = time_sec();
    if (!state.clock_started) {
        state.clock_started = true;
        state.last_time_sec = now;
    }
    double dt = static_cast<double>(now) - state.last_time_sec;
    if (dt < 0.0) dt += window;
    state.last_time_sec = now;
    clocks.real.step(mnw.real_time, dt, 0.0);
}

// -- time steps

// Every tenth pass the period chases the measured one, a quarter of the way in the logarithm.
void adapt_period(int* counter, double* last_time, float* ratio, float* period, float lo, float hi) {
    if ((*counter)++ % 10 != 0) return;
    *ratio = fltlim(0.1f * static_cast<float>(clocks.real.now - *last_time) / *period, 0.5f, 1.5f);
    *period = fltlim(*period * powf(*ratio, 0.25f), lo, hi);
    *last_time = clocks.real.now;
}

// After a break the count begins anew, so that a measure is always of ten passes and never of the break.
void restart_count(int* counter, double* last_time) {
    *counter = 1;
    *last_time = clocks.real.now;
}

void adapt_time_steps() {
    constexpr float FM_min = 0.001f, FM_max = 0.08f, UI_min = 0.0001f, UI_max = 9999.9f;
    const bool flies = mnw.top_win == win_fly, asks = intrange(mnw.top_win, win_alrt, win_save);
    if (flies) {
        ++state.passes_FM;
        adapt_period(&state.cntr_FM, &state.last_time_FM, &mnw.rt_rat_FM, &mnw.prd_FM, FM_min, FM_max);
    } else {
        restart_count(&state.cntr_FM, &state.last_time_FM);
    }
    if (flies || asks)
        restart_count(&state.cntr_UI, &state.last_time_UI);
    else
        adapt_period(&state.cntr_UI, &state.last_time_UI, &mnw.rt_rat_UI, &mnw.prd_UI, UI_min, UI_max);
}

void frame_rate_proof() {
    if (state.passes_FM == 5) state.proof_time = clocks.real.now;
    if (state.passes_FM == 6 && clocks.real.now - state.proof_time < 0.4) mnw.framerateOK = 1;
}

// -- mouse

void mouse_timing() {
    constexpr float hold = 0.25f;  // s; a drag, and the gap of a double click
    constexpr float moved = 0.5f;  // virtual units
    mnw.delay_dragging = mnw.now_dragging && mnw.real_time - mnw.m_down_time > hold;
    mnw.mouse_double_clicked = mnw.mouse_clicked && mnw.real_time - state.last_click_time < hold;
    if (mnw.mouse_clicked) {
        state.last_click_time = mnw.real_time;
        mnw.now_dragging = 1;
        mnw.m_move_time = mnw.m_down_time = mnw.real_time;
        mnw.entry_field = -1;
    }
    if (mnw.mouse_lifted) mnw.now_dragging = mnw.delay_dragging = 0;
    if (fabsf(mnw.mx - state.old_mx) > moved || fabsf(mnw.my - state.old_my) > moved) mnw.m_move_time = mnw.real_time;
    state.old_mx = mnw.mx;
    state.old_my = mnw.my;
}

void pulse_colours() {
    const float rat = 0.7f + 0.3f * sinf(15.0f * mnw.real_time);
    set_pulse_colours(rat);
    mnw.pulse_alpha = rat;
}

void choose_cursor() {
    constexpr float idle = 10.0f;  // s without movement
    if (mnw.real_time - mnw.m_move_time > idle) mnw.cursor_type = cursor_hidden;
}

bool window_is_modal() { return mnw.top_win == win_about || intrange(mnw.top_win, win_alrt, win_save); }
}  // namespace

void reset_frame() { state = {}; }

void MACIBM_event_proc() {
    set_periodic_flags();
    profile_chart("init", 0);
    clear_input_flags();
    seam.drain_events();
    // messages may restart the flight; an alert can stand in the middle of a frame, so they wait for it
    if (mnw.top_win != win_alrt) NET_listen();
    if (take_click_sound()) soun.SOUND_set(sound_click, 1.0f, 1.0f);
    if (!have_done_first_update) return;
    profile_chart("event", 0);

    advance_real_time();
    adapt_time_steps();
    mouse_timing();
    pulse_colours();
    frame_rate_proof();
    mnw.cursor_type = cursor_of_system;
    ren.num_fas_finds = ren.num_slo_finds = 0;
    menus_follow_mouse();
    profile_chart("menu", 0);

    if (mnw.top_win == win_fly) start_lights_allowed(0);
    if (!window_is_modal()) {
        APP_update();
        mnw.first_miss_cycle = 0;
    }
    profile_chart("fill", 0);
    choose_cursor();
    seam.draw_overlay();
    profile_chart("help", 0);
    if (seam.has_display) take_asked_screenshot();
    seam.swap_buffers();
    if (mnw.top_win == win_wxr && !mnw.now_dragging) clou.cloud_update();
    profile_chart("end", 1);
}

void profile_chart(const char* loc, int is_last) {
    if (!mnw.track_cpu || mnw.top_win != win_fly) return;
    const double now = 1e-6 * static_cast<double>(seam.epoch_microsec());
    if (state.frame_start == 0.0) state.frame_start = state.last_mark = now;
    xer << loc << ": " << now - state.last_mark << '\n';
    state.last_mark = now;
    if (is_last) {
        xer << "TOT: " << now - state.frame_start << " sec\n";
        state.frame_start = state.last_mark = now;
    }
}
