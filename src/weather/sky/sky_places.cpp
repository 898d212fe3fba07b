// Where sun and moon stand, and which of them lights the scene.
#include "weather/sky/sky_places.h"

#include <math.h>

#include "core/math/num.h"
#include "core/records/records.h"
#include "weather/sky/skyc.h"

namespace {
constexpr int day_center_spring = 80, day_center_fall = 262;  // days since January 1st
constexpr float degrees_per_hour = 15.0f;

// Positive south of the equator.
float declination() {
    constexpr float tilt = 23.5f;
    const int day = intwrap(mnw.locl_date_jan1 - day_center_fall, 0, 359);
    return tilt * sinf(con.pim2 * static_cast<float>(day) / 360.0f);
}

float hours_of_place() {
    return fltwrap(mnw.zulu_time / 3600.0f + static_cast<float>(flt[0].dob_lon) / degrees_per_hour, 0.0f,
                   24.0f);
}

float sidereal_time(float hours) {
    constexpr float hours_per_day = 0.06575342f;
    return hours +
           hours_per_day * static_cast<float>(intwrap(mnw.locl_date_jan1 - day_center_spring, 0, 359));
}

// 0 and 1 are new, 0.5 is full.
float moon_fraction() {
    constexpr float moons_per_day = 0.03386318f;
    const float phase = static_cast<float>(mnw.locl_date_jan1) * moons_per_day;
    return phase - floorf(phase);
}

// hour_angle: west of the meridian, degrees.
void place_body(int body, float hour_angle, float dec) {
    const float a = fltwrap(hour_angle, -180.0f, 180.0f), lat = static_cast<float>(flt[0].dob_lat);
    const float up = cos_deg(dec) * cos_deg(a) * cos_deg(lat) - sin_deg(dec) * sin_deg(lat);
    const float east = -cos_deg(dec) * sin_deg(a);
    const float south = sin_deg(dec) * cos_deg(lat) + cos_deg(dec) * cos_deg(a) * sin_deg(lat);
    skyc.lgt_lat_sun_mon_any[body] = lat;
    skyc.lgt_azi_sun_mon_any[body] = a;
    skyc.lgt_dec_sun_mon_any[body] = dec;
    skyc.lgt_psi_sun_mon_any[body] = fltwrap(atan2_deg(east, -south), 0.0f, 360.0f);
    skyc.lgt_the_sun_mon_any[body] = atan2_deg(up, pythag(east, south));
}

void mix_bodies(float sun) {
    for (auto* place : {&skyc.lgt_lat_sun_mon_any, &skyc.lgt_azi_sun_mon_any, &skyc.lgt_dec_sun_mon_any,
                        &skyc.lgt_psi_sun_mon_any, &skyc.lgt_the_sun_mon_any})
        (*place)[body_any] = (*place)[body_sun] * sun + (*place)[body_moon] * (1.0f - sun);
    const float azi = skyc.lgt_azi_sun_mon_any[body_any], dec = skyc.lgt_dec_sun_mon_any[body_any];
    ren.sin_azi_any = sin_deg(azi), ren.cos_azi_any = cos_deg(azi);
    ren.sin_dec_any = sin_deg(dec), ren.cos_dec_any = cos_deg(dec);
}

void lay_shadows() {
    const float psi = skyc.lgt_psi_sun_mon_any[body_sun], the = skyc.lgt_the_sun_mon_any[body_sun];
    ren.shadow_dx_by_dy = sin_deg(psi) * cos_deg(the);
    ren.shadow_dz_by_dy = -cos_deg(psi) * cos_deg(the);
}
}  // namespace

light_shares place_bodies() {
    const float hours = hours_of_place(), dec = declination(), fraction = moon_fraction();
    const float hours_from_full = (fraction - 0.5f) * 24.0f;
    skyc.side_time_hrs = sidereal_time(hours);
    skyc.moon_tex = intround(interp(0.0f, 264.0f, 1.0f, 242.0f, fraction));
    place_body(body_sun, degrees_per_hour * (hours - 12.0f), dec);
    place_body(body_moon, degrees_per_hour * (hours + hours_from_full), dec);
    // in space the sun shines whatever the hour
    const float by_height = interp(-10.0f, 1.0f, -15.0f, 0.0f, skyc.lgt_the_sun_mon_any[body_sun]);
    const float sun = interp(1.0f, by_height, 0.0f, 1.0f, skyc.view_sig_earth_rat);
    mix_bodies(sun);
    lay_shadows();
    skyc.del_psi_from_sun = fltwrap(ren.final_psi - skyc.lgt_psi_sun_mon_any[body_sun], -180.0f, 180.0f);
    return {sun, 1.0f - sun, 1.0f - fabsf(fraction - 0.5f)};
}
