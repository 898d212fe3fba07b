// Airs, clouds and hours of the seven sets.
#include "sets.h"

#include <math.h>

#include <algorithm>

namespace {
constexpr double degree = M_PI / 180.0;
constexpr double first_nominal = -10.0, first_sun = -30.0, sun_step = 0.25;
constexpr double day_sun = 40.0;                         // degrees, of the hours that share one light
constexpr double day_suns[] = {12.0, 25.0, 40.0, 85.0};  // and whose mean is their sky

enum cover { clear, mist, overcast };
struct recipe {
    const char *planet, *name;
    bool foggy;
    double eye_height;  // metres
    cover covered;
};
enum { earth_clean, earth_misty, earth_foggy, earth_hialt, earth_ocast, mars_clean, mars_hialt };
constexpr recipe recipes[] = {
    {"Earth", "earth_clean", false, 0.0, clear},    {"Earth", "earth_misty", false, 0.0, mist},
    {"Earth", "earth_foggy", true, 0.0, clear},     {"Earth", "earth_hialt", false, 20000.0, clear},
    {"Earth", "earth_ocast", false, 0.0, overcast}, {"Mars", "mars_clean", false, 0.0, clear},
    {"Mars", "mars_hialt", false, 30000.0, clear},
};
// Optical depths of haze and dust at 550 nm. Visibilities after H. Koschmieder (1924), 3.912 by the
// extinction at the ground: 35 km clean, 10 km foggy.
constexpr double clean_depth = 0.12, foggy_depth = 0.45, dust_depth = 0.5;

// Droplets: optical depth and asymmetry.
constexpr double droplet_asymmetry = 0.85;
constexpr double mist_depth = 1.5, overcast_depth = 25.0;
constexpr double gaps = 0.004;  // of an overcast
constexpr double cloud_height = 5000.0;
constexpr double orbit_height = 150000.0;
constexpr double moonlight = 1e-6;                                       // of sunlight: a half moon
constexpr double night_luminance = 3e-4;                                 // cd/m2 of starlight and airglow
constexpr double full_moon_luminance = 2500.0, sun_illuminance = 1.3e5;  // before the air: cd/m2, lux
constexpr double mirrored_part = 0.25;  // of the sky, by waves seen from above

// From 0 to 4 degrees the picture runs from that of the hour to full day, and below -6 it runs ahead to the
// end of twilight, since what is last stands for all the night.
double true_sun(double nominal, double night_sun) {
    if (nominal > 0.0) return std::min(nominal + (day_sun - 4.0) * pow(nominal / 4.0, 4), day_sun);
    if (nominal < -6.0) return nominal + (night_sun - first_nominal) * pow((nominal + 6.0) / 4.0, 2);
    return nominal;
}

// Degrees above the visible horizon. The dome shows row 0.5 on the horizon and row 14.5 from 30 degrees to
// the zenith; so rows stand for ever larger steps, and the last two for 60 and more.
double elevation_of_height(int height) {
    constexpr double of_fog = 1.0;  // where the lowest row is, below the horizon, the fog's
    const double shown = std::max((height - 0.5) * 30.0 / 14.0, 0.0);
    return std::max(shown + 32.0 * pow(shown / 30.0, 3), of_fog);
}
// Of the middle of a texel: the sun stands between the two middle columns.
double azimuth_of_column(int column) { return (column + 0.5 - sky_columns / 2) * 360.0 / sky_columns; }
// The fog has one colour in all of a view, that of the lowest row. So that no edge shows at the horizon, the
// lowest row is the mean of what a view sees, and the next ones are means of ever less: degrees to each side.
constexpr double spread_of_height[] = {30.0, 24.0, 15.0, 6.0};

// Of diffuse light through a layer that absorbs nothing (C. F. Bohren, Am. J. Phys. 55 (1987)), over a
// reflecting ground.
double cloud_transmittance(double depth, double albedo) {
    const double through = 2.0 / (2.0 + depth * (1.0 - droplet_asymmetry));
    return through / (1.0 - albedo * (1.0 - through));
}
double soft_depth(double depth) { return depth * (1.0 - droplet_asymmetry * droplet_asymmetry); }

spectrum night_glow() { return sunlight * (night_luminance / luminance(sunlight)); }

spectrum level_part(const spectrum& s, double elevation) {
    return s * std::max(sin(elevation * degree), 0.0);
}

// What all sets of a planet are measured by.
struct clear_air {
    colour white;
    double full_day;             // lux that the eye knows as full day, the Earth's
    double day_part;             // of full day's light that comes from the sun's side
    std::vector<double> levels;  // lux, every quarter of a degree from first_sun to day_sun
};

// What does not change with the hour.
struct setting {
    const recipe* of;
    const lit_air* lit;
    spectrum moon_beam, moon_level;
    double night_sun;                         // degrees, where twilight ends
    std::array<spectrum, sky_heights> night;  // moonlit air, starlight and airglow
    clear_air clear;
};

// Light on level ground, or on top of the set's cloud.
struct open_light {
    spectrum beam, level, from_sun;
};
open_light open_light_at(const lit_air& lit, double height, double sun) {
    const irradiances sky = sky_irradiance(lit, height, sun);
    return {beam(lit, height, sun), sky.level, sky.from_sun};
}

// On level ground below the set's cover; `directed` is what of the sky's light comes from one side.
struct ground_light {
    spectrum beam, sky, directed;
};
ground_light under_cover(const setting& s, double sun) {
    const open_light open = open_light_at(*s.lit, s.of->eye_height, sun);
    const spectrum level_beam = level_part(open.beam, sun), all = level_beam + open.level;
    ground_light g = {open.beam, open.level, open.from_sun};
    if (s.of->covered == overcast) {
        g.sky = all * cloud_transmittance(overcast_depth, 0.2) + open.level * gaps;
        g.beam = open.beam * gaps;
        g.directed = g.sky * 0.6;  // a wall has 0.4 of level ground, by the law of Moon and Spencer
    } else if (s.of->covered == mist) {
        const double slant = std::max(sin(sun * degree), 0.05);
        const double through = exp(-soft_depth(mist_depth) / slant);
        const double diffuse = cloud_transmittance(mist_depth, 0.2);
        g.beam = open.beam * through;
        g.sky = open.level * diffuse + level_beam * std::max(diffuse - through, 0.0);
        g.directed = mix(open.from_sun, g.sky * 0.5, 0.5);
    }
    g.sky = g.sky + level_part(s.moon_beam, day_sun) + s.moon_level + night_glow() * M_PI;
    return g;
}

// Lux of what stands on the ground: upright things have a part of the beam when level ground has none.
double level_of(const ground_light& g, double sun) {
    const double upright = 0.15 * luminance(g.beam) * cos(sun * degree);
    return luminance(level_part(g.beam, sun)) + upright + luminance(g.sky);
}

struct hour {
    const setting* at;
    double sun;
    ground_light ground;
    eye seen_by;
};

spectrum sky_radiance(const hour& h, int row, double azimuth) {
    const recipe& of = *h.at->of;
    const lit_air& lit = *h.at->lit;
    const double elevation = elevation_of_height(row), up = sin(elevation * degree);
    const double dip = horizon_dip(lit.air, of.eye_height);
    const spectrum open = radiance(lit, of.eye_height, elevation - dip, azimuth, h.sun) + h.at->night[row];
    if (of.covered == overcast)  // P. Moon and D. E. Spencer, Illum. Eng. 37 (1942)
        return h.ground.sky * ((1.0 + 2.0 * up) * 3.0 / (7.0 * M_PI)) + open * gaps;
    if (of.covered == mist) {
        // half of the layer above the eye; its droplets send on the beam, the sky and the ground
        const double through = exp(-0.5 * soft_depth(mist_depth) / std::max(up, 0.02));
        const double turn =
            sin(h.sun * degree) * up + cos(h.sun * degree) * cos(elevation * degree) * cos(azimuth * degree);
        constexpr double g = droplet_asymmetry / (1.0 + droplet_asymmetry);
        const double phase = (1.0 - g * g) / (4.0 * M_PI * pow(1.0 + g * g - 2.0 * g * turn, 1.5));
        const spectrum lit_mist = h.ground.beam * phase + h.ground.sky * (0.6 / M_PI);
        return mix(lit_mist, open, through);
    }
    return open;
}

// Luminance that the eye adapts to in the sky: the mean of logarithms, as E. Reinhard et al., "Photographic
// Tone Reproduction for Digital Images" (SIGGRAPH 2002), take it, of all round and of the bright sky beside
// the sun, which draws the look.
double sky_mean(const hour& h) {
    constexpr double beside_sun = 25.0;  // degrees
    constexpr double part_of_bright = 0.5;
    double sum = 0.0;
    int count = 0, row_of_sun = 2;
    for (int row = 1; row < sky_heights; row += 3)
        for (double azimuth = 20.0; azimuth < 180.0; azimuth += 40.0, ++count)
            sum += log(luminance(sky_radiance(h, row, azimuth)));
    while (row_of_sun + 1 < sky_heights && elevation_of_height(row_of_sun) < h.sun) ++row_of_sun;
    const double all_round = sum / count, bright = log(luminance(sky_radiance(h, row_of_sun, beside_sun)));
    return exp(all_round + std::max(bright - all_round, 0.0) * part_of_bright);
}

hour hour_at(const setting& s, double sun) {
    hour h = {&s, sun, under_cover(s, sun), {}};
    const std::vector<double>& levels = s.clear.levels;
    const double u = std::clamp((sun - first_sun) / sun_step, 0.0, levels.size() - 1.001);
    const size_t k = static_cast<size_t>(u);
    const double compared = levels[k] * pow(levels[k + 1] / levels[k], u - static_cast<double>(k));
    h.seen_by = adapt(s.clear.white, level_of(h.ground, sun), sky_mean(h), s.clear.full_day, compared);
    return h;
}

// From the back to the sun; the other half of the sky mirrors it.
using half_row = std::array<shade, sky_columns / 2>;

// Means over `spread` degrees to each side.
half_row spread_out(const half_row& row, double spread) {
    constexpr int half = sky_columns / 2;
    const int reach = static_cast<int>(lround(spread * sky_columns / 360.0));
    const double part = 1.0 / (2 * reach + 1);
    half_row out = {};
    for (int column = 0; column < half; ++column)
        for (int at = column - reach; at <= column + reach; ++at)
            add(out[column], row[at < 0 ? -1 - at : at < half ? at : sky_columns - 1 - at], part);
    return out;
}

half_row row_of_sky(const std::vector<hour>& hours, int height) {
    half_row row = {};
    for (const hour& h : hours)
        for (int column = 0; column < sky_columns / 2; ++column)
            add(row[column], show(h.seen_by, sky_radiance(h, height, azimuth_of_column(column))),
                1.0 / static_cast<double>(hours.size()));
    return height < static_cast<int>(std::size(spread_of_height)) ? spread_out(row, spread_of_height[height])
                                                                  : row;
}

void fill_frame(sky_set& set, int frame, const std::vector<hour>& hours) {
    in_parallel(sky_heights, [&](int height) {
        const half_row row = row_of_sky(hours, height);
        for (const int f : {frame, sky_frames - 1 - frame})
            for (int i = 0; i < sky_columns / 2; ++i)
                for (const int c : {i, sky_columns - 1 - i})
                    set.sky[(f * sky_heights + height) * sky_columns + c] = row[i];
    });
}

void fill_sky(sky_set& set, const setting& s) {
    set.sky.resize(sky_frames * sky_heights * sky_columns);
    for (int frame = 0; frame < sky_frames / 2; ++frame) {
        std::vector<hour> hours;
        if (frame < sky_frames / 2 - 1)
            hours.push_back(hour_at(s, true_sun(sun_of_frame(frame), s.night_sun)));
        else
            for (const double sun : day_suns) hours.push_back(hour_at(s, sun));
        fill_frame(set, frame, hours);
    }
}

// Reflectance of the sea from below, after A. Morel and L. Prieur, Limnol. Oceanogr. 22 (1977), blue water,
// rounded.
constexpr spectrum sea_reflectance = {0.045f, 0.045f, 0.042f, 0.038f, 0.034f, 0.026f, 0.016f, 0.010f,
                                      0.007f, 0.005f, 0.003f, 0.002f, 0.001f, 0.001f, 0.001f, 0.0f};

enum { row_of_25_degrees = 11, row_of_40_degrees = 12 };

// Below the horizontal, where it is seen from a height, the disc keeps its last colour.
shade sun_disc_of(const hour& h, const spectrum& direct) {
    const recipe& of = *h.at->of;
    if (of.covered == overcast || (of.eye_height <= 0.0 && h.sun <= 0.0))
        return show_disc(h.seen_by, beam(*h.at->lit, 0.0, std::max(h.sun, 0.0)));
    return show_disc(h.seen_by, direct);
}

std::array<shade, light_columns> light_at(const hour& h) {
    std::array<shade, light_columns> out = {};
    const auto paint = [&](light_column middle, const shade& c) {
        for (int i = middle - 2; i <= middle + 2; ++i) out[i] = c;
    };
    const setting& s = *h.at;
    const double height = s.of->eye_height;
    spectrum direct = h.ground.beam;
    if (height > 0.0) direct = mix(direct, beam(*s.lit, orbit_height, std::max(h.sun, first_nominal)), 0.5);
    const double level = level_of(h.ground, h.sun);
    const spectrum directed = direct + h.ground.directed;
    const double part = luminance(directed) / level / s.clear.day_part;
    paint(sun_ambient, show_light(h.seen_by, h.ground.sky, 1.0));
    paint(sun_direct, show_light(h.seen_by, directed, part));
    paint(sun_disc, sun_disc_of(h, direct));

    // the air before the moon, and its disc
    const spectrum disc = s.moon_beam * (full_moon_luminance / (moonlight * sun_illuminance));
    paint(moon_disc, show(h.seen_by, disc + sky_radiance(h, row_of_40_degrees, 90.0)));

    const spectrum all = level_part(h.ground.beam, h.sun) + h.ground.sky;
    const spectrum mirrored = sky_radiance(h, row_of_25_degrees, 90.0);
    paint(water, show(h.seen_by, all * sea_reflectance * (1.0 / M_PI) + mirrored * mirrored_part, 0.0));

    const spectrum high =
        s.of->covered == overcast ? h.ground.beam : beam(*s.lit, std::max(height, cloud_height), h.sun);
    paint(cloud_light, show(h.seen_by, (high * 0.8 + h.ground.sky * 0.5) * (1.0 / M_PI)));
    paint(cloud_dark, show(h.seen_by, (high * 0.07 + h.ground.sky * 0.4) * (1.0 / M_PI)));

    const double of_moon = luminance(level_part(s.moon_beam, day_sun)), of_air = luminance(s.moon_level);
    const eye by_moon =
        adapt(s.clear.white, of_moon + of_air, of_air / M_PI, s.clear.full_day, of_moon + of_air);
    paint(moon_light, show_light(by_moon, s.moon_beam + s.moon_level, 1.0));
    return out;
}

// Computed every quarter of a degree.
void fill_light(sky_set& set, const setting& s) {
    constexpr int step = 4, half = light_rows / 2;
    std::vector<std::array<shade, light_columns>> steps(half / step + 1);
    in_parallel(static_cast<int>(steps.size()), [&](int k) {
        steps[k] = light_at(hour_at(s, true_sun(first_nominal + k * sun_step, s.night_sun)));
    });
    set.light.resize(light_rows * light_columns);
    for (int row = 0; row < half; ++row)
        for (int i = 0; i < light_columns; ++i) {
            const shade c =
                blend(steps[row / step][i], steps[row / step + 1][i], row % step / static_cast<double>(step));
            set.light[row * light_columns + i] = set.light[(light_rows - 1 - row) * light_columns + i] = c;
        }
}

setting setting_of(const recipe& of, const lit_air& lit) {
    setting s = {};
    s.of = &of, s.lit = &lit;
    s.night_sun =
        std::max((lit.air.has_ozone ? -13.0 : -22.0) - horizon_dip(lit.air, of.eye_height), first_sun);
    const open_light full = open_light_at(lit, of.eye_height, day_sun);
    s.moon_beam = full.beam * moonlight, s.moon_level = full.level * moonlight;
    for (int row = 0; row < sky_heights; ++row) {
        s.night[row] = night_glow();
        for (const double side : {30.0, 90.0, 150.0})
            s.night[row] =
                s.night[row] + radiance(lit, of.eye_height,
                                        elevation_of_height(row) - horizon_dip(lit.air, of.eye_height), side,
                                        day_sun) *
                                   (moonlight / 3.0);
    }
    return s;
}

colour light_of_noon(const ground_light& noon) {
    const colour c = linear_colour(xyz_of(level_part(noon.beam, day_sun) + noon.sky));
    return c * (1.0 / luminance(c));
}

clear_air measure_clear_air(const setting& s) {
    const ground_light day = under_cover(s, day_sun);
    clear_air clear;
    clear.full_day = level_of(day, day_sun);
    clear.day_part = luminance(day.beam + day.directed) / clear.full_day;
    clear.white = light_of_noon(day);
    clear.levels.resize(static_cast<size_t>((day_suns[std::size(day_suns) - 1] - first_sun) / sun_step) + 2);
    in_parallel(static_cast<int>(clear.levels.size()), [&](int k) {
        const double sun = first_sun + sun_step * k;
        clear.levels[k] = level_of(under_cover(s, sun), sun);
    });
    return clear;
}

}  // namespace

double sun_of_frame(int frame) {
    return frame < 8 ? -10.0 + 16.0 / 7.99 * frame : 6.0 - 16.0 / 7.99 * (frame - 7);
}
double sun_of_row(int row) { return row < 256 ? -10.0 + row / 16.0 : 6.0 - (row - 255) / 16.0; }

std::vector<sky_set> make_sets() {
    const lit_air clean = light_up(earth_air(clean_depth)), foggy = light_up(earth_air(foggy_depth));
    const lit_air mars = light_up(mars_air(dust_depth));
    // How far an eye that knows the Earth's daylight takes another planet's for white: nearly, after the
    // degree of adaptation of CIECAM02 (CIE 159:2004).
    constexpr double used_to_planet = 0.8;
    const clear_air earth_clear = measure_clear_air(setting_of(recipes[earth_clean], clean));
    clear_air mars_clear = measure_clear_air(setting_of(recipes[mars_clean], mars));
    mars_clear.white = mix(earth_clear.white, mars_clear.white, used_to_planet);
    mars_clear.full_day = earth_clear.full_day;
    std::vector<sky_set> sets;
    for (const recipe& of : recipes) {
        const bool on_mars = std::string(of.planet) == "Mars";
        setting s = setting_of(of, on_mars ? mars : of.foggy ? foggy : clean);
        s.clear = on_mars ? mars_clear : earth_clear;
        sky_set set;
        set.planet = of.planet, set.name = of.name;
        fill_sky(set, s);
        fill_light(set, s);
        sets.push_back(set);
    }
    return sets;
}
