// A stroke of lightning.
#include "weather/sky/lightning.h"

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/records.h"
#include "sound/sound.h"
#include "weather/clouds.h"

ligt_class ligt;

int ligt_class::in_prog() const { return mnw.real_time < strike_stop_time; }

// From one joint to the next it goes down by a two-hundredth of the way to the ground, and aside by half of
// that.
void ligt_class::grow(int branch, float x, float y, float z, float bottom) {
    const float step = (y - bottom) * 0.005f;
    for (auto& joint : strike_xyz[branch]) {
        joint[0] = x, joint[1] = y, joint[2] = z;
        y -= view_rand(0.5f, 1.5f) * step;
        x += view_rand(-0.5f, 0.5f) * step;
        z += view_rand(-0.5f, 0.5f) * step;
    }
}

// As given: only a strike within ten metres is heard.
void ligt_class::thunder() const {
    const float rat = 3.0f / strike_distance_mtr;
    if (rat > 0.3f) soun.SOUND_set(sound_thunder, fltlim(rat, 0.3f, 1.0f), fltlim(rat, 0.0f, 1.0f));
}

void ligt_class::try_strike(float (*ground_y)(float x, float z)) {
    constexpr float farthest = 50000.0f, nearest = 0.01f, inside_cloud = 200.0f, rain_column = 0.5f;
    constexpr int fork = 133;
    const float distance = view_rand(nearest, farthest);
    const float heading = view_rand(0.0f, 360.0f);
    const float x = ren.view_xyz[0] + distance * sin_deg(heading),
                z = ren.view_xyz[2] - distance * cos_deg(heading);
    const float base = atm.base_h_MSL[atm.prim_layer];
    if (!(clou.ret_wxr_above(x, base, z) > rain_column)) return;
    strike_distance_mtr = distance;
    const float bottom = ground_y(x, z);
    grow(0, x, y_with_xhz(x, base + inside_cloud, z), z, bottom);
    for (int branch = 1; branch < strike_branchDIM; ++branch) {
        const float* from = strike_xyz[branch - 1][fork];
        grow(branch, from[0], from[1], from[2], bottom);
    }
    strike_stop_time = mnw.real_time + view_rand(0.4f, 0.8f);
    thunder();
}

void ligt_class::build(float (*ground_y)(float x, float z)) {
    constexpr float fading = 0.2f;  // s before the end
    if (mnw.puff05 && atm.tstm_set > 0.0f && con.sl_T_cel > 0.0f && !in_prog()) try_strike(ground_y);
    strike_alpha = 0.0f;
    if (in_prog())
        strike_alpha = view_rand(0.0f, 1.0f) *
                       interp(strike_stop_time - fading, 1.0f, strike_stop_time, 0.0f, mnw.real_time);
}

float ligt_class::brt_rat_view() const {
    const float reach = fltmin2(atm.vis_sky + 5.0f * con.nmtomtrs, max_vis_ter_mtrs[env.planet == 1]);
    return interp(0.0f, strike_alpha, reach, 0.0f, strike_distance_mtr);
}

void reset_lightning() { ligt = {}; }
