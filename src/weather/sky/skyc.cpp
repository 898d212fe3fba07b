// What the eye sees of the air.
#include "weather/sky/skyc.h"

#include <memory>

#include "core/math/random.h"
#include "core/records/env.h"
#include "weather/sky/lightning.h"
#include "weather/sky/sky_air.h"
#include "weather/sky/sky_blend.h"
#include "weather/sky/sky_lights.h"
#include "weather/sky/sky_places.h"
#include "weather/sky/sky_tables.h"

skyc_class skyc;

void skyc_class::conditions_init() {
    constexpr int noon_row = light_rowDIM / 2 - 1;
    read_sky_tables(this, env.planet);
    for (int c = 0; c < 3; ++c) raw_wat[c] = raw_wat_col[set_clean][noon_row][c];
}

void skyc_class::conditions_update(const sky_surroundings& around) {
    ligt.build(around.ground_y);
    find_view_density();
    find_visibility();
    find_fog();
    find_clips(around);
    const light_shares shares = place_bodies();
    const set_weights weights = weigh_sets();
    blend_colours(weights, shares);
    blend_dome(weights);
    add_flashes();
    find_manual_lighting();
    split_light();
    switch_lights(around);
}

int skyc_class::any_lites_on(int code) const { return lite_rat_on_priv > flt_seedrand(0.0f, 1.0f, code); }

// Without pictures the sky is grey.
void reset_skyc() {
    std::destroy_at(&skyc);
    std::construct_at(&skyc);
    grey_sky_tables(&skyc);
}
