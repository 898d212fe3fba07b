// Flashes in the sky, the light on what is not lit by OpenGL, and who has lamps on.
#include "weather/sky/sky_lights.h"

#include "core/math/num.h"
#include "core/records/records.h"
#include "weather/sky/lightning.h"

namespace {
void add_to(float* colour, const float (&by)[3], float share) {
    for (int c = 0; c < 3; ++c) colour[c] = fltlim(colour[c] + by[c] * share, 0.0f, 1.0f);
}
}  // namespace

void skyc_class::colors_inc(float r, float g, float b, int is_nite_vis) {
    const float by[3] = {r, g, b};
    const float atmo_opacity = interp(0.0f, 1.0f, 7.0f * con.nmtomtrs, 0.0f, atm.vis_sky);
    for (float* colour : {lgt_amb, lgt_dir, wat_col}) add_to(colour, by, 1.0f);
    if (is_nite_vis)
        for (float* colour : {sun_col, mon_col, cld_drk, cld_lgt}) add_to(colour, by, 1.0f);
    if (atmo_opacity <= 0.0f) return;
    add_to(fog_col, by, atmo_opacity);
    for (auto& row : sky_256)
        for (auto& entry : row)
            for (int c = 0; c < 3; ++c)
                entry[c] = static_cast<unsigned char>(
                    fltlim(entry[c] + 255.0f * by[c] * atmo_opacity, 0.0f, 255.0f));
}

// The darker it is, the more a flash gives.
void add_flashes() {
    float amb = 0.0f;
    for (int c = 0; c < 3; ++c) amb += (skyc.lgt_amb[c] + skyc.lgt_dir[c]) / 6.0f;
    float flash = ligt.brt_rat_view() * skyc.view_sig_relat_rat;
    if (flt[0].str_inflash) flash += interp(0.0f, skyc.view_sig_relat_rat, con.nmtomtrs, 0.0f, atm.vis_sky);
    flash = fltlim(flash, 0.0f, 1.0f) * interp(0.0f, 1.0f, 0.5f, 0.0f, amb);
    skyc.colors_inc(flash, flash, flash, 0);
    if (ren.night_vision_on) skyc.colors_inc(-10.0f, 10.0f, -10.0f, 1);
}

void find_manual_lighting() {
    r_manual_lighting = 0.5f * (skyc.lgt_amb[0] + skyc.lgt_dir[0]);
    g_manual_lighting = 0.5f * (skyc.lgt_amb[1] + skyc.lgt_dir[1]);
    b_manual_lighting = 0.5f * (skyc.lgt_amb[2] + skyc.lgt_dir[2]);
}

// In space nothing scatters: all light comes from the sun. Who is blinded sees the rest darker.
void split_light() {
    const float seen = 1.0f - fltlim(ren.glare_rat, 0.0f, 1.0f);
    const float ambient = interp(1.0f, 0.4f, 0.0f, 0.0f, skyc.view_sig_earth_rat) * seen;
    const float direct = interp(1.0f, 0.6f, 0.0f, 1.0f, skyc.view_sig_earth_rat) * seen;
    for (int c = 0; c < 3; ++c) skyc.lgt_amb[c] *= ambient, skyc.lgt_dir[c] *= direct;
}

void switch_lights(const sky_surroundings& around) {
    constexpr float third = 0.33f, low_vis_nm = 5.0f, low_base_ft = 2000.0f;
    const float mean = (r_manual_lighting + g_manual_lighting + b_manual_lighting) * third;
    const float night = skyc.lite_rat_on_priv = interp(0.65f, 0.0f, 0.4f, 1.0f, mean);
    const bool low_overcast = atm.cld_type[0] == cld_overcast &&
                              atm.base_h_MSL[0] < around.airport_ele + low_base_ft * con.fttomtrs;
    skyc.car_lites_on_priv = night > 0.3f;
    skyc.plane_lites_on_priv = night > 0.25f;
    skyc.runway_lites_on_priv = night > 0.0f || atm.vis_rep < low_vis_nm * con.nmtomtrs || low_overcast;
    skyc.cockpit_lites_on_priv = night > 0.25f && flt[0].fail_stat[fail_clights] != fail_active &&
                                 flt[0].fail_stat[fail_esys] != fail_active && around.bus_works;
}
