// Airs, clouds and hours of the seven sets.
#include "sets.h"

#include <math.h>

#include <algorithm>

namespace {
constexpr double degree = M_PI / 180.0;
constexpr double day_sun = 40.0;  // degrees, of the hours that share one picture

enum cover { clear, mist, overcast };
struct recipe {
    const char *planet, *name;
    double aerosol_depth;  // at 550 nm
    double eye_height;     // metres
    cover covered;
};
// Visibilities after H. Koschmieder (1924), 3.912 by the extinction at the ground: 43 km clean, 10 km foggy.
constexpr recipe recipes[] = {
    {"Earth", "earth_clean", 0.095, 0.0, clear},   {"Earth", "earth_misty", 0.16, 0.0, mist},
    {"Earth", "earth_foggy", 0.45, 0.0, clear},    {"Earth", "earth_hialt", 0.095, 20000.0, clear},
    {"Earth", "earth_ocast", 0.16, 0.0, overcast}, {"Mars", "mars_clean", 0.5, 0.0, clear},
    {"Mars", "mars_hialt", 0.5, 30000.0, clear},
};

// Droplets: optical depth and asymmetry.
constexpr double droplet_asymmetry = 0.85;
constexpr double mist_depth = 1.5, overcast_depth = 25.0;
constexpr double gaps = 0.012;  // of an overcast
constexpr double cloud_height = 3000.0;
constexpr double orbit_height = 150000.0;
constexpr double moonlight = 1e-6;        // of sunlight: a half moon
constexpr double night_luminance = 3e-4;  // cd/m2 of starlight and airglow

// What a set's sky is made from, at one hour.
struct scene {
    const recipe* of;
    const lit_air* lit;
    double sun;
    // On top of a cloud, or at the eye under a clear sky.
    spectrum beam, level, from_sun;
    spectrum moon_beam, moon_level;
};

// The suns below 4 degrees are those of the hour; above, the picture runs to that of full day. From -6 on it
// runs ahead to -12, since the last frame stands for all the night.
double true_sun(double nominal) {
    if (nominal > 0.0) return std::min(nominal + (day_sun - 4.0) * pow(nominal / 4.0, 4), day_sun);
    if (nominal < -6.0) return nominal - 2.0 * pow((nominal + 6.0) / 4.0, 2);
    return nominal;
}

// Degrees above the visible horizon. The dome shows row 0.5 on the horizon and row 14.5 from 30 degrees to
// the zenith; so rows stand for ever larger steps, and the last two for 60 and more.
double elevation_of_height(int height) {
    const double shown = std::max((height - 0.5) * 30.0 / 14.0, 0.0);
    return std::max(shown + 32.0 * pow(shown / 30.0, 3), 0.25);
}
double azimuth_of_column(int column) { return (column - sky_columns / 2) * 360.0 / sky_columns; }

// Of diffuse light through a layer that absorbs nothing (C. F. Bohren, Am. J. Phys. 55 (1987)), over a
// reflecting ground.
double cloud_transmittance(double depth, double albedo) {
    const double through = 2.0 / (2.0 + depth * (1.0 - droplet_asymmetry));
    return through / (1.0 - albedo * (1.0 - through));
}
double soft_depth(double depth) { return depth * (1.0 - droplet_asymmetry * droplet_asymmetry); }

spectrum lift_sine(const spectrum& s, double elevation) { return s * std::max(sin(elevation * degree), 0.0); }

scene scene_at(const recipe& of, const lit_air& lit, double sun) {
    const irradiances sky = sky_irradiance(lit, of.eye_height, sun);
    const irradiances day = sky_irradiance(lit, of.eye_height, day_sun);
    return {&of,
            &lit,
            sun,
            beam(lit, of.eye_height, sun),
            sky.level,
            sky.from_sun,
            beam(lit, of.eye_height, day_sun) * moonlight,
            day.level * moonlight};
}

// On level ground below the set's cover.
struct ground_light {
    spectrum beam, sky, directed;  // directed: the part of it that comes from one side
};
ground_light under_cover(const scene& s) {
    const spectrum level_beam = lift_sine(s.beam, s.sun), all = level_beam + s.level;
    ground_light g = {s.beam, s.level, s.from_sun};
    if (s.of->covered == overcast) {
        g.sky = all * cloud_transmittance(overcast_depth, 0.2) + s.level * gaps;
        g.beam = s.beam * gaps;
        g.directed = g.sky * 0.6;  // a wall has 0.4 of level ground, by the law of Moon and Spencer
    } else if (s.of->covered == mist) {
        const double slant = std::max(sin(s.sun * degree), 0.05);
        const double through = exp(-soft_depth(mist_depth) / slant);
        const double diffuse = cloud_transmittance(mist_depth, 0.2);
        g.beam = s.beam * through;
        g.sky = s.level * diffuse + level_beam * std::max(diffuse - through, 0.0);
        g.directed = mix(s.from_sun, g.sky * 0.5, 0.5);
    }
    g.sky = g.sky + s.moon_beam * sin(day_sun * degree) + s.moon_level;
    return g;
}

spectrum night_glow() { return sunlight * (night_luminance / luminance(sunlight)); }

spectrum clear_radiance(const scene& s, double elevation, double azimuth) {
    const double height = s.of->eye_height, dip = horizon_dip(s.lit->air, height);
    spectrum moonlit = constant(0.0f);
    for (const double side : {30.0, 90.0, 150.0})
        moonlit = moonlit + radiance(*s.lit, height, elevation - dip, side, day_sun) * (moonlight / 3.0);
    return radiance(*s.lit, height, elevation - dip, azimuth, s.sun) + moonlit + night_glow();
}

spectrum sky_radiance(const scene& s, const ground_light& ground, double elevation, double azimuth) {
    const spectrum open = clear_radiance(s, elevation, azimuth);
    const double up = sin(elevation * degree);
    if (s.of->covered == overcast)  // P. Moon and D. E. Spencer, Illum. Eng. 37 (1942)
        return ground.sky * ((1.0 + 2.0 * up) * 3.0 / (7.0 * M_PI)) + open * gaps;
    if (s.of->covered == mist) {
        // half of the layer above the eye; its droplets send on the beam, the sky and the ground
        const double through = exp(-0.5 * soft_depth(mist_depth) / std::max(up, 0.02));
        const double turn =
            sin(s.sun * degree) * up + cos(s.sun * degree) * cos(elevation * degree) * cos(azimuth * degree);
        constexpr double g = droplet_asymmetry / (1.0 + droplet_asymmetry);
        const double phase = (1.0 - g * g) / (4.0 * M_PI * pow(1.0 + g * g - 2.0 * g * turn, 1.5));
        const spectrum lit_mist = ground.beam * phase + ground.sky * (0.6 / M_PI);
        return mix(lit_mist, open, through);
    }
    return open;
}

struct hour {
    scene at;
    ground_light ground;
    eye seen_by;
};
struct adaptation {
    colour white;
    seen_light day;
    const lit_air* clean;
};
seen_light seen(const ground_light& g, double sun) {
    const double sky = luminance(g.sky) + night_luminance * M_PI;
    return {luminance(lift_sine(g.beam, sun)) + sky, sky};
}
hour hour_at(const recipe& of, const lit_air& lit, const adaptation& a, double sun) {
    hour h;
    h.at = scene_at(of, lit, sun);
    h.ground = under_cover(h.at);
    const recipe& clean = of.planet == recipes[0].planet ? recipes[0] : recipes[5];
    const seen_light compared = seen(under_cover(scene_at(clean, *a.clean, sun)), sun);
    h.seen_by = adapt(a.white, seen(h.ground, sun), a.day, compared.level);
    return h;
}

void fill_sky(sky_set& set, const recipe& of, const lit_air& lit, const adaptation& a) {
    set.sky.resize(sky_frames * sky_heights * sky_columns);
    std::vector<hour> hours;
    for (int frame = 0; frame < sky_frames / 2; ++frame)
        hours.push_back(hour_at(of, lit, a, true_sun(sun_of_frame(frame))));
    in_parallel(sky_frames / 2 * sky_heights, [&](int row) {
        const int frame = row / sky_heights, height = row % sky_heights;
        const hour& h = hours[frame];
        for (int column = 0; column <= sky_columns / 2; ++column) {
            const spectrum light =
                sky_radiance(h.at, h.ground, elevation_of_height(height), azimuth_of_column(column));
            const shade s = show(h.seen_by, light);
            for (const int f : {frame, sky_frames - 1 - frame})
                for (const int c : {column, (sky_columns - column) % sky_columns})
                    set.sky[(f * sky_heights + height) * sky_columns + c] = s;
        }
    });
}

// Reflectance of the sea from below, after A. Morel and L. Prieur, Limnol. Oceanogr. 22 (1977), blue water,
// rounded.
constexpr spectrum sea_reflectance = {0.045f, 0.045f, 0.042f, 0.038f, 0.034f, 0.026f, 0.016f, 0.010f,
                                      0.007f, 0.005f, 0.003f, 0.002f, 0.001f, 0.001f, 0.001f, 0.0f};

void fill_light_row(sky_set& set, int row, const hour& h, const adaptation& a, const hour& day) {
    const scene& s = h.at;
    shade* out = &set.light[row * light_columns];
    const auto paint = [&](light_column middle, const shade& c) {
        for (int i = middle - 2; i <= middle + 2; ++i) out[i] = c;
    };
    const double height = s.of->eye_height;
    spectrum direct = h.ground.beam;
    if (height > 0.0) direct = mix(direct, beam(*s.lit, orbit_height, s.sun), 0.5);
    const double level = seen(h.ground, s.sun).level;
    const double day_ratio = luminance(day.ground.beam) / a.day.level;
    const spectrum directed = direct + h.ground.directed;
    paint(sun_ambient, show_light(h.seen_by, h.ground.sky + night_glow(), 1.0));
    paint(sun_direct, show_light(h.seen_by, directed, luminance(directed) / (level * day_ratio)));

    const double strength = 1.0 - exp(-luminance(direct) / 3.0);
    paint(sun_disc, show_disc(h.seen_by, direct, strength));
    constexpr double moon_luminance = 2500.0 / 1.3e5;  // of its disc, per lux of the sun
    const spectrum before = clear_radiance(s, 40.0, 90.0);
    paint(moon_disc, show(h.seen_by, day.at.beam * (moon_luminance / M_PI) + before));

    const spectrum all = lift_sine(h.ground.beam, s.sun) + h.ground.sky;
    const spectrum mirrored = sky_radiance(s, h.ground, 25.0, 90.0);
    paint(water, show(h.seen_by, all * sea_reflectance * (1.0 / M_PI) + mirrored * 0.15));

    const spectrum high_beam =
        s.of->covered == overcast ? h.ground.beam : beam(*s.lit, std::max(height, cloud_height), s.sun);
    const spectrum lit_side = high_beam * (0.8 / M_PI) + h.ground.sky * (0.5 / M_PI);
    const spectrum dark_side = high_beam * (0.2 / M_PI) + h.ground.sky * (0.6 / M_PI);
    paint(cloud_light, show(h.seen_by, lit_side));
    paint(cloud_dark, show(h.seen_by, dark_side));

    eye by_moon = adapt(a.white, {luminance(day.at.moon_beam), luminance(day.at.moon_level)}, a.day, 1e-9);
    paint(moon_light, show_light(by_moon, day.at.moon_beam + day.at.moon_level, 1.0));
}

void fill_light(sky_set& set, const recipe& of, const lit_air& lit, const adaptation& a) {
    set.light.assign(light_rows * light_columns, {0.0, 0.0, 0.0});
    const hour day = hour_at(recipes[of.planet == recipes[0].planet ? 0 : 5], *a.clean, a, day_sun);
    in_parallel(light_rows / 2, [&](int row) {
        fill_light_row(set, row, hour_at(of, lit, a, true_sun(sun_of_row(row))), a, day);
        for (int i = 0; i < light_columns; ++i)
            set.light[(light_rows - 1 - row) * light_columns + i] = set.light[row * light_columns + i];
    });
}
}  // namespace

double sun_of_frame(int frame) {
    return frame < 8 ? -10.0 + 16.0 / 7.99 * frame : 6.0 - 16.0 / 7.99 * (frame - 7);
}
double sun_of_row(int row) { return row < 256 ? -10.0 + row / 16.0 : 6.0 - (row - 255) / 16.0; }

std::vector<sky_set> make_sets() {
    std::vector<sky_set> sets;
    std::vector<lit_air> lit;
    for (const recipe& of : recipes)
        lit.push_back(light_up(std::string(of.planet) == "Mars" ? mars_air(of.aerosol_depth)
                                                                : earth_air(of.aerosol_depth)));
    const ground_light noon = under_cover(scene_at(recipes[0], lit[0], day_sun));
    const colour noon_colour = linear_colour(xyz_of(lift_sine(noon.beam, day_sun) + noon.sky));
    const colour white = noon_colour * (1.0 / luminance(noon_colour));
    for (size_t i = 0; i < std::size(recipes); ++i) {
        const recipe& of = recipes[i];
        const size_t clean = i < 5 ? 0 : 5;
        adaptation a = {white, seen(under_cover(scene_at(recipes[clean], lit[clean], day_sun)), day_sun),
                        &lit[clean]};
        sky_set set;
        set.planet = of.planet, set.name = of.name;
        fill_sky(set, of, lit[i], a);
        fill_light(set, of, lit[i], a);
        sets.push_back(set);
    }
    return sets;
}
