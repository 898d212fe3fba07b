// Red-out, black-out, want of oxygen, glare.
#include "scene/overlay/blackouts.h"

#include "core/math/num.h"
#include "core/records/records.h"
#include "scene/overlay/overlay_paint.h"

static blackout_struct state = {};

const blackout_struct& blackouts() { return state; }
void reset_blackouts() { state = {}; }

// A value that is no number changes nothing.
static void follow(float* value, float target, float rate) {
    if (!check_nan(target)) *value = fltlim(closer_assymp(*value, target, fltlim(rate, 0.0f, 1.0f)), 0.0f, 1.0f);
}

void blackouts_step() {
    constexpr float of_oxygen = 0.1f;  // as fast as load takes the sight
    if (!stg.draw_gload || mnw.first_miss_cycle) return reset_blackouts();
    follow(&state.g_redout, interp(-2.5f, 0.0f, -3.5f, 1.0f, flt[0].g_nrml), mnw.prd_FM);
    follow(&state.g_blackout, interp(7.0f, 0.0f, 10.0f, 1.0f, flt[0].g_nrml), mnw.prd_FM);
    if (veh[0].has_press_controls)
        follow(&state.o2_blackout, interp(12500.0f, 0.0f, 15000.0f, 1.0f, stg.cabin_alt_act_ft),
               mnw.prd_FM * of_oxygen);
}

cover_struct cover_of(const blackout_struct& blackout, float glare_rat) {
    constexpr float of_glare = 0.75f, least = 0.01f;
    const float sunglare = fltlim(glare_rat, 0.0f, 1.0f) * of_glare;
    const float alpha = fltlim(blackout.g_redout + blackout.g_blackout + blackout.o2_blackout + sunglare, 0.0f, 1.0f);
    if (!(alpha > least)) return {0.0f, 0.0f, 0.0f};
    return {fltlim((sunglare + blackout.g_redout) / alpha, 0.0f, 1.0f), fltlim(sunglare / alpha, 0.0f, 1.0f), alpha};
}

void draw_blackouts() {
    const cover_struct cover = cover_of(state, ren.glare_rat);
    if (cover.alpha > 0.0f) cover_screen_with(cover.red, cover.others, cover.others, cover.alpha);
}
