// What counts as a crash, and what happens then.
#include "app/slots/crash.h"

#include "core/program/alert.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "scenery/ground/terrain_query.h"
#include "sound/sound.h"

namespace {
bool has_crashed() {
    constexpr float vy_crash = -20.0f;  // m/s
    constexpr float quiet_time = 5.0f;  // s after a flight start
    const flt_struct& f = flt[0];
    if (!(mnw.miss_time > quiet_time) || f.update_type != pln_update_primary || !f.onground_any) return false;
    return f.vy < vy_crash || (!wheels_are_wet() && f.dob_y < f.terrain_y_cg);
}

// The aircraft stays where it is, and for one second everything is damped.
void damp_the_crash() {
    if (mnw.totl_time > msc.crash_damp_timeout) msc.crash_damp_timeout = mnw.totl_time + 1.0f;
}

bool any_carb_ice() {
    for (const flt_engn_struct& e : flt[0].engn)
        if (e.carb_ice > 0.01f) return true;
    return false;
}

void tell(const char* s1, const char* s2, const char* s3, const char* s4) {
    MACIBM_alert(win_fly, s1, s2, s3, s4, alert_message);
}

void explain_the_crash() {
    static const char* const fly_carefully =
        "(To avoid this occurrence again, you can fly more carefully or select the 'Warnings' item in the "
        "'Settings' menu).";
    const flt_struct& f = flt[0];
    if (f.frame_ice > 0.0f || f.prop_ice > 0.0f || f.window_ice > 0.0f || f.inlet_ice > 0.0f)
        tell("The aircraft was carrying ice at time of impact.",
             "You have to keep out of the clouds between 0 and 32 deg F.",
             "There is a thermometer in the upper-right hand corner of the screen.", "");
    if (any_carb_ice())
        tell("The aircraft was carrying carb ice at time of impact.",
             "You have to use carb heat when at low power in these weather conditions.",
             "Use carb heat on carbureted engines when operating with engine RPM below the green arc.", "");
    if (f.fail_stat[fail_vacuum] == fail_active)
        tell("Your vacuum system had failed before impact.", "You have to keep a cross-check going.",
             "The rest of the airplane was in one piece until you buried it.",
             "Tarvane features realistic gyro spin-down effects, including gyro sluggishness and tumble.");
    if (stg.over_g) tell("You busted the airframe G-limit.", fly_carefully, "", "");
    if (stg.over_vne) tell("You busted the redline speed.", fly_carefully, "", "");
    if (stg.over_vfe) tell("You extended the flaps above Vfe_kts.", fly_carefully, "", "");
}

void restart_after_crash() {
    constexpr float stand_still = 4.0f;  // s; the picture stands, no frames
    soun.SOUND_stop();
    soun.SOUND_set(sound_boom_4, 1.0f, 1.0f);
    seam.wait(stand_still);
    explain_the_crash();
    init_flt_0(start_airport, place_runway);
    begin_user_flight_steady(start_airport);
}
}  // namespace

void crash_test() {
    if (!has_crashed()) return;
    TVPEventHook(2, mnw.real_time, 0.0f, 0, 0);
    if (stg.reset_on_crash)
        restart_after_crash();
    else
        damp_the_crash();
}
