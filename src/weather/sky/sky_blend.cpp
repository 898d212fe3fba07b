// Colours out of the pictures: by set, by the sun's height, by the way from the sun.
#include "weather/sky/sky_blend.h"

#include <math.h>

#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/records.h"
#include "weather/sky/sky_air.h"

// -- weights of the sets

namespace {
void check_sum(const set_weights& weights) {
    float sum = 0.0f;
    for (const float weight : weights.of) sum += weight;
    if (!(sum > 0.99f && sum < 1.01f)) MACIBM_fatal("The colorsets dont add up!");
}
}  // namespace

set_weights weigh_sets() {
    const float nm = con.nmtomtrs, margin = 100.0f, height = ren.view_ele_msl;
    const float hialt = interp(0.25f, 1.0f, 0.5f, 0.0f, skyc.view_sig_relat_rat);
    const float foggy = interp(5.0f * nm, 1.0f, 10.0f * nm, 0.0f, atm.vis_sky);
    float misty = 0.0f, ocast = 0.0f;
    for (int i = 0; i < layerDIM; ++i) {
        const layer_limits layer = limits_of_layer(i);
        if (atm.cld_type[i] == cld_thin_dense)
            misty = fltmax2(
                misty, interp(layer.zerovis_bot - margin, 1.0f, layer.zerovis_top + margin, 0.0f, height));
        if (atm.cld_type[i] == cld_overcast)
            ocast = fltmax2(ocast, interp(layer.zerovis_top, 1.0f, layer.fullvis_top, 0.0f, height));
    }
    set_weights w{};
    w.of[set_clean] = (1.0f - ocast) * (1.0f - foggy) * (1.0f - misty) * (1.0f - hialt);
    w.of[set_hialt] = hialt * (1.0f - ocast) * (1.0f - foggy) * (1.0f - misty);
    w.of[set_misty] = misty * (1.0f - ocast) * (1.0f - foggy);
    w.of[set_foggy] = foggy * (1.0f - ocast);
    w.of[set_ocast] = ocast;
    check_sum(w);
    return w;
}

// -- rows by the sun's height

namespace {
// Two neighbours of a table, and how much of the second.
struct row_pair {
    int low, high;
    float part;
};

row_pair pair_at(float index, int rows) {
    const int low = intlim(intcut(index), 0, rows - 1);
    return {low, intmin2(low + 1, rows - 1), fltlim(index - static_cast<float>(low), 0.0f, 1.0f)};
}

bool is_morning() { return mnw.locl_time < 12.0f * 3600.0f; }

constexpr float lowest_sun = -10.0f, full_day_sun = 6.0f;  // degrees, the ends of the tables

row_pair light_rows() {
    constexpr float noon = 255.5f;
    const float sun = skyc.lgt_the_sun_mon_any[body_sun];
    return pair_at(is_morning() ? fltmin2(interp(lowest_sun, 0.0f, full_day_sun, 255.99f, sun), noon)
                                : fltmax2(interp(full_day_sun, 255.0f, lowest_sun, 510.99f, sun), noon),
                   light_rowDIM);
}

row_pair sky_frames() {
    constexpr float noon = 7.5f;
    const float sun = skyc.lgt_the_sun_mon_any[body_sun];
    return pair_at(is_morning() ? fltmin2(interp(lowest_sun, 0.0f, full_day_sun, 7.99f, sun), noon)
                                : fltmax2(interp(full_day_sun, 7.0f, lowest_sun, 14.99f, sun), noon),
                   sky_frameDIM);
}

// -- light

void add_rows(float (&to)[3], const light_table& table, const set_weights& weights, const row_pair& rows,
              float share) {
    for (int set = 0; set < sky_setDIM; ++set) {
        const float weight = weights.of[set] * share;
        if (weight == 0.0f) continue;
        const float *low = table[set][rows.low], *high = table[set][rows.high];
        for (int c = 0; c < 3; ++c) to[c] += weight * (low[c] * (1.0f - rows.part) + high[c] * rows.part);
    }
}

void scale(float* colour, float by) {
    for (int c = 0; c < 3; ++c) colour[c] *= by;
}

// Of the sky at the horizon where the view looks.
void find_fog_colour(const set_weights& weights) {
    const float turned = (skyc.del_psi_from_sun / 360.0f + 0.5f) * sky_headingDIM;
    const float whole = floorf(turned), part = turned - whole;
    const int column = intwrap(intcut(whole), 0, sky_headingDIM - 1),
              next = intwrap(column + 1, 0, sky_headingDIM - 1);
    const row_pair frames = sky_frames();
    for (int c = 0; c < 3; ++c) {
        float sum = 0.0f;
        for (int set = 0; set < sky_setDIM; ++set) {
            const auto& low = skyc.raw_sky_256[set][frames.low];
            const auto& high = skyc.raw_sky_256[set][frames.high];
            const float at_low = low[column][0][c] * (1.0f - part) + low[next][0][c] * part;
            const float at_high = high[column][0][c] * (1.0f - part) + high[next][0][c] * part;
            sum += weights.of[set] * (at_low * (1.0f - frames.part) + at_high * frames.part);
        }
        skyc.fog_col[c] = sum / 255.0f;
    }
    skyc.fog_col[3] = 1.0f;
}
}  // namespace

void blend_colours(const set_weights& weights, const light_shares& shares) {
    const row_pair rows = light_rows();
    const float moon = shares.moon * shares.moon_brt;
    const struct {
        float (&to)[3];
        const light_table &sun, &moon;
    } lights[] = {{skyc.lgt_amb, skyc.raw_sun_amb, skyc.raw_mon_amb},
                  {skyc.lgt_dir, skyc.raw_sun_dir, skyc.raw_mon_amb}};
    for (const auto& light : lights) {
        scale(light.to, 0.0f);
        add_rows(light.to, light.sun, weights, rows, shares.sun);
        add_rows(light.to, light.moon, weights, rows, moon);
    }
    const struct {
        float (&to)[3];
        const light_table& from;
    } plain[] = {{skyc.sun_col, skyc.raw_sun_col},
                 {skyc.mon_col, skyc.raw_mon_col},
                 {skyc.wat_col, skyc.raw_wat_col},
                 {skyc.cld_drk, skyc.raw_cld_drk},
                 {skyc.cld_lgt, skyc.raw_cld_lgt}};
    for (const auto& colour : plain) {
        scale(colour.to, 0.0f);
        add_rows(colour.to, colour.from, weights, rows, 1.0f);
    }
    find_fog_colour(weights);
    const float by_moon = interp(0.0f, 1.0f, 1.0f, shares.moon_brt, shares.moon);
    for (float* colour : {skyc.wat_col, skyc.cld_drk, skyc.cld_lgt, skyc.fog_col}) scale(colour, by_moon);
}

// -- dome

namespace {
unsigned char byte_of(float channel) { return static_cast<unsigned char>(fltlim(channel, 0.0f, 255.0f)); }
}  // namespace

// In thick air the dome takes the fog's colour; in thin air it darkens, from the top first.
void blend_dome(const set_weights& weights) {
    const float nm = con.nmtomtrs;
    const float socked = interp(1.0f * nm, 1.0f, 5.0f * nm, 0.0f, atm.vis_sky);
    skyc.sig_rat_top = interp(0.25f, 1.0f, 0.0f, 0.0f, skyc.view_sig_relat_rat);
    skyc.sig_rat_bot = interp(0.05f, 1.0f, 0.0f, 0.0f, skyc.view_sig_relat_rat);
    const row_pair frames = sky_frames();
    float mix[sky_headingDIM][sky_heightDIM][3] = {};
    for (int set = 0; set < sky_setDIM; ++set) {
        const float weight = weights.of[set] * (1.0f - socked);
        if (weight == 0.0f) continue;
        const float at_low = weight * (1.0f - frames.part), at_high = weight * frames.part;
        const unsigned char *low = skyc.raw_sky_256[set][frames.low][0][0],
                            *high = skyc.raw_sky_256[set][frames.high][0][0];
        float* to = mix[0][0];
        for (int n = 0; n < sky_headingDIM * sky_heightDIM * 3; ++n)
            to[n] += at_low * static_cast<float>(low[n]) + at_high * static_cast<float>(high[n]);
    }
    for (int j = 0; j < sky_heightDIM; ++j) {
        const float brightness =
            interp(0.0f, skyc.sig_rat_bot, sky_heightDIM - 1.0f, skyc.sig_rat_top, static_cast<float>(j));
        for (int i = 0; i < sky_headingDIM; ++i)
            for (int c = 0; c < 3; ++c)
                skyc.sky_256[j][i][c] =
                    byte_of((mix[i][j][c] + 255.0f * skyc.fog_col[c] * socked) * brightness);
    }
}
