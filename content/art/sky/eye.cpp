// Adaptation after G. Krawczyk, K. Myszkowski and H.-P. Seidel, "Perceptual Effects in Real-time Tone
// Mapping" (SCCG 2005): a scene's key, the grey that its mean is shown as, follows its luminance.
#include "eye.h"

#include <math.h>

#include <algorithm>

namespace {
constexpr double ground_albedo = 0.2;
constexpr double sky_exposure = 1.8, light_exposure = 3.0;
// The sun is so far above what the eye is used to that its receptors are bleached: it looks paler than it is.
constexpr double disc_exposure = 4.0, disc_bleach = 0.1;
// Where Krawczyk's is 0.03 for all: night is to look like night.
// Stars and northern lights fade where the land is light: it is kept just seen.
constexpr double key_of_night_sky = 0.006, key_of_night_land = 0.0026;
constexpr double discount = 0.2;        // power of the loss against full day, and against a clear sky
constexpr double rod_luminance = 0.03;  // cd/m2, where rods and cones tell the same
constexpr double rod_part = 0.7;
// Chromaticity of night sight: H. W. Jensen et al., "Night Rendering" (University of Utah, 2000).
constexpr double night_x = 0.25, night_y = 0.25;

double key_of(double luminance) { return 1.0 - 2.0 / (2.0 + log10(1.0 + luminance)); }

double ground_luminance(double level) { return ground_albedo * level / M_PI; }

// Colours that the screen does not have are taken to the nearest paler one.
colour within_gamut(const colour& c) {
    const double grey = luminance(c), least = std::min({c.r, c.g, c.b});
    return least >= 0.0 || grey <= 0.0 ? c : mix(c, {grey, grey, grey}, least / (least - grey));
}

// With white balance, and the share of the rods, whose luminance is that of G. W. Larson, H. Rushmeier and
// C. Piatko, IEEE TVCG 3 (1997).
colour perceived(const eye& e, const spectrum& s, double vividness) {
    const tristimulus t = xyz_of(s);
    colour c = linear_colour(t);
    c = {c.r / e.white.r, c.g / e.white.g, c.b / e.white.b};
    const double grey = luminance(c), vivid = 1.0 + vividness * exp(-grey * e.exposure);
    c = within_gamut(mix({grey, grey, grey}, c, vivid));
    if (t.x <= 0.0) return c;
    const double scotopic = std::max(t.y * (1.33 * (1.0 + (t.y + t.z) / t.x) - 1.68), 0.0) / 2.2;
    const colour night = within_gamut(linear_colour(
        {scotopic * night_x / night_y, scotopic, scotopic * (1.0 - night_x - night_y) / night_y}));
    return mix(c, night, rod_part * e.rods);
}

double encode(double linear) {
    const double v = std::clamp(linear, 0.0, 1.0);
    return v <= 0.0031308 ? 12.92 * v : 1.055 * pow(v, 1.0 / 2.4) - 0.055;
}
// The curve of E. Reinhard et al., "Photographic Tone Reproduction for Digital Images" (SIGGRAPH 2002):
// `white` is the least that is shown as white.
double tone(double v, double white) { return v * (1.0 + v / (white * white)) / (1.0 + v); }

// Each channel by itself turns red glare yellow, all together keep it red: between is what photographs show.
shade expose(const colour& c) {
    constexpr double white = 30.0, by_itself = 0.4;
    const double most = std::max({c.r, c.g, c.b, 1e-12}), together = std::min(tone(most, white), 1.0) / most;
    const auto channel = [&](double v) {
        return encode(by_itself * std::min(tone(v, white), 1.0) + (1.0 - by_itself) * v * together);
    };
    return {channel(c.r), channel(c.g), channel(c.b)};
}
}  // namespace

eye adapt(const colour& white, double level, double sky, double full_day, double compared) {
    const double ground = ground_luminance(level), mean = hypot(ground, sky);
    const double of_day = ground_luminance(full_day), day = key_of(of_day);
    const double loss = std::min(pow(level / compared, discount), 1.0);
    const double key = key_of(mean) * loss * std::min(pow(level / full_day, discount), 1.0);
    return {white, sky_exposure * (key + key_of_night_sky) / (day * mean),
            1.0 / (1.0 + ground / rod_luminance), (key_of(ground) * loss + key_of_night_land) / day};
}

shade show(const eye& e, const spectrum& radiance, double vividness) {
    return expose(perceived(e, radiance, vividness) * e.exposure);
}

shade show_light(const eye& e, const spectrum& irradiance, double part) {
    const colour c = perceived(e, irradiance, 0.0);
    return expose(c * (light_exposure * e.liveliness * std::min(part, 1.0) / std::max(luminance(c), 1e-12)));
}

shade show_disc(const eye& e, const spectrum& light) {
    const colour c = perceived(e, light, 0.0);
    const double most = std::max({c.r, c.g, c.b, 1e-30});
    const auto channel = [&](double v) {
        const double paler = v / most + (1.0 - v / most) * disc_bleach;
        return encode((1.0 - exp(-disc_exposure * paler)) / (1.0 - exp(-disc_exposure)));
    };
    return {channel(c.r), channel(c.g), channel(c.b)};
}
