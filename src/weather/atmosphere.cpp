// Standard air, planet constants and cloud rules.
#include "weather/atmosphere.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>

#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/atm.h"
#include "core/records/con.h"
#include "core/records/env.h"
#include "core/records/nav.h"

struct planet_struct {
    float mu;   // m3/s2
    float rad;  // m
    float sl_T_cel, sl_P_pas, sl_r_met;
    float baro_HG;  // altimeter setting that belongs to sl_P_pas, inches of mercury
};

static constexpr planet_struct planet_table[2] = {
    {3.986012e14f, 6378145.0f, 15.0f, 101325.0f, 1.225f, 29.92f},
    {4.2845e13f, 3396200.0f, -60.0f, 920.0f, 0.01505f, 0.3676f},
};

void set_planet_constants() {
    const planet_struct& planet = planet_table[env.planet == 1];
    con.planet_mu = planet.mu;
    con.planet_rad = planet.rad;
    con.planet_mu_air = 1.7894e-05f;
    con.planet_rho_water = 1000.0f;
    con.sl_r_met = planet.sl_r_met;
    // 60 nautical miles to a degree on Earth's radius, scaled by radius
    con.planet_deg_mtrs = con.nmtomtrs * con.planet_rad * 9.407124e-06f;
}

void set_planet_specs(int planet) {
    env.planet = planet == 1;
    set_planet_constants();
    con.sl_T_cel = planet_table[env.planet].sl_T_cel;
    con.sl_P_pas = planet_table[env.planet].sl_P_pas;
    nav.baro_setting_HG = planet_table[env.planet].baro_HG;
}

void set_planet_weather(int planet) {
    if (planet != 1) {
        atm.vis_rep = 0.5f * max_vis_ter_mtrs[0];
        return;
    }
    atm.cld_type[0] = atm.cld_type[1] = cld_none;
    atm.vis_rep = max_vis_ter_mtrs[1];
    atm.rain_set = atm.tstm_set = 0.0f;
    atm.use_rwx = 0;
}

// -- density

struct rho_point {
    float h;  // m
    float r;  // kg/m3
};

// Feet and slugs per cubic foot: the U.S. standard atmosphere, rounded; as given above 200,000 ft.
static constexpr rho_point earth_rho_ft_slug[] = {
    {0, 0.0023769f},      {10000, 0.001756f},   {20000, 0.001267f},   {30000, 0.0008907f},
    {40000, 0.0005873f},  {50000, 0.0003639f},  {60000, 0.0002256f},  {70000, 0.0001399f},
    {80000, 8.594e-05f},  {90000, 5.253e-05f},  {100000, 3.211e-05f}, {110000, 2.001e-05f},
    {120000, 1.27e-05f},  {130000, 8.19e-06f},  {140000, 5.364e-06f}, {150000, 3.564e-06f},
    {160000, 2.433e-06f}, {170000, 1.693e-06f}, {180000, 1.2e-06f},   {190000, 8.589e-07f},
    {200000, 6.061e-07f}, {206000, 5e-07f},     {212000, 4e-07f},     {221000, 3e-07f},
    {232500, 2e-07f},     {253000, 1e-07f},     {259000, 8e-08f},     {268000, 6e-08f},
    {280000, 4e-08f},     {300000, 2e-08f},     {395000, 0},
};
static_assert(std::size(earth_rho_ft_slug) == 31);

// As given: a mean atmosphere of Mars.
static constexpr rho_point mars_rho[] = {
    {-25000, 0.074f},    {0, 0.01505f},      {5000, 0.009861f},   {10000, 0.006319f},  {15000, 0.004034f},
    {20000, 0.002588f},  {25000, 0.001603f}, {30000, 0.0009217f}, {35000, 0.0005215f}, {40000, 0.0002699f},
    {45000, 0.0001001f}, {50000, 4.02e-05f}, {55000, 0},
};
static_assert(std::size(mars_rho) == 13);

struct earth_rho_struct {
    rho_point point[std::size(earth_rho_ft_slug)];
    earth_rho_struct() {
        for (size_t i = 0; i < std::size(point); ++i)
            point[i] = {earth_rho_ft_slug[i].h * con.fttomtrs, earth_rho_ft_slug[i].r * con.endtomed};
    }
};

// The first interval that holds h, both ends inclusive.
static float rho_at(const rho_point* first, const rho_point* end, float h) {
    if (h < first->h) return first->r;
    const rho_point* upper =
        std::lower_bound(first + 1, end, h, [](const rho_point& p, float at) { return p.h < at; });
    if (upper == end) return end[-1].r;
    return extrap(upper[-1].h, upper[-1].r, upper->h, upper->r, h);
}

float find_standard_rho(int planet, float h) {
    if (planet == 1) return rho_at(std::begin(mars_rho), std::end(mars_rho), h);
    static const earth_rho_struct earth;  // on first use: the constants of con must stand
    return rho_at(std::begin(earth.point), std::end(earth.point), h);
}

float find_current_rho_rat() {
    const float T_kel = con.sl_T_cel + 273.15f;
    if (env.planet == 1) return con.sl_P_pas * 0.001086957f / (T_kel * 0.004691532f);
    return con.sl_P_pas * 9.869233e-06f / (T_kel * inv_T_sl_kel);
}

// -- temperature

struct temp_point {
    float h;  // m
    float t;  // Celsius
};

// Earth's is the standard atmosphere's, Mars' as given.
static constexpr temp_point earth_temp[] = {
    {0, 15}, {11019, -56.5f}, {25100, -56.5f}, {47350, -2.5f}, {53445, -2.5f}, {80772, -92.5f},
};
static constexpr temp_point mars_temp[] = {{0, -60.15f}, {5000, -60.15f}, {40000, -131.15f}};

// The profile, shifted by today's departure at sea level. The first segment reaches down without end.
static float temp_at(const temp_point* first, const temp_point* last, float h) {
    const float departure = con.sl_T_cel - first->t;
    if (h >= last->h) return last->t + departure;
    const temp_point* upper = first + 1;
    while (upper < last && h >= upper->h) ++upper;
    return extrap(upper[-1].h, upper[-1].t, upper->h, upper->t, h) + departure;
}

float find_temp_cel(float h) {
    if (env.planet == 1) return temp_at(std::begin(mars_temp), std::end(mars_temp) - 1, h);
    return temp_at(std::begin(earth_temp), std::end(earth_temp) - 1, h);
}

// -- clouds

float ret_min_layer_thick_mtrs(int layer) {
    return atm.cld_type[intlim(layer, 0, 1)] >= cld_scattered ? 914.4f : 0.0f;
}

void limit_cloud_typ_rat(int hard_clouds) {
    const float max_precip = intmax2(atm.cld_type[0], atm.cld_type[1]) >= cld_scattered ? 1.0f : 0.0f;
    for (float* set : {&atm.rain_set, &atm.tstm_set}) {
        if (hard_clouds)
            *set = fltmin2(*set, max_precip);
        else if (*set > max_precip)
            atm.cld_type[0] = intlim(atm.cld_type[0] + 1, cld_none, cld_overcast);
    }
}

// -- defaults

void init_weather_defaults() {
    constexpr float wind_alt_ft[3] = {5000.0f, 7500.0f, 25000.0f};
    atm.vis_frmult = 1.0f;  // the governor only multiplies, so 0 would stay
    atm.vis_rep = 10.0f * con.nmtomtrs;
    atm.cld_type[0] = cld_thin;
    atm.cld_type[1] = cld_none;
    atm.base_h_MSL[0] = atm.tops_h_MSL[0] = 8500.0f * con.fttomtrs;
    atm.base_h_MSL[1] = atm.tops_h_MSL[1] = 12000.0f * con.fttomtrs;
    for (int c = 0; c < 3; ++c) {
        atm.set_wind_alt_mtrs[c] = wind_alt_ft[c] * con.fttomtrs;
        atm.set_wind_dir_mag[c] = flt_rand(-1.0f, 1.0f) * 30.0f + 30.0f;
        atm.set_shear_dir[c] = flt_rand(0.0f, 1.0f) * 10.0f + 10.0f;
        const float strength = flt_rand(0.0f, 1.0f);
        atm.set_wind_spd_kts[c] = 10.0f * strength;
        atm.set_shear_spd_kts[c] = 5.0f * strength;
        atm.set_turb_inc[c] = flt_rand(0.0f, 1.0f);
    }
    atm.wave_height = 4.0f * con.fttomtrs;
    atm.wave_length_to_height = 15.0f;
    atm.wave_dir = 0;
    atm.meteorite_code = 2;
    atm.rway_fric_code = 0;
    atm.therm_vvi_fpm = 500.0f;
    atm.therm_alt_ft = 10000.0f;
    atm.weather_seed = static_cast<char>(int_rand(0, 127));
    atm.plot_aurora = 1;
    atm.rwx_check_minutes = 30.0f;
    atm.rwx_max_vis_nm = 15.0f;
}
