// Standard air against the hydrostatic model of the US Standard Atmosphere 1976, local air.
#include "weather/atmosphere.h"

#include <cmath>

#include "support.h"
#include "weather/weather_step.h"

using atmosphere_test = test::system_test;

// US Standard Atmosphere 1976 up to 47 km: layers of constant lapse rate over geopotential height.
struct standard_air {
    double rho, T_cel;
};
static standard_air us_1976(double h_mtr) {
    constexpr double g0 = 9.80665, R = 287.0531, earth = 6356766.0;
    constexpr double base[] = {0.0, 11000.0, 20000.0, 32000.0}, lapse[] = {-0.0065, 0.0, 0.001, 0.0028};
    const double H = earth * h_mtr / (earth + h_mtr);
    double T = 288.15, P = 101325.0;
    for (int i = 0; i < 4; ++i) {
        const double dH = std::fmin(H, i < 3 ? base[i + 1] : 47000.0) - base[i];
        if (dH <= 0.0) break;
        const double next = T + lapse[i] * dH;
        P *= lapse[i] == 0.0 ? std::exp(-g0 * dH / (R * T)) : std::pow(next / T, -g0 / (R * lapse[i]));
        T = next;
    }
    return {P / (R * T), T - 273.15};
}

TEST_F(atmosphere_test, earth_density_follows_the_published_standard) {
    set_planet_specs(0);
    for (float ft = 0.0f; ft <= 60000.0f; ft += 10000.0f) {  // points of the table
        const float h = ft * con.fttomtrs;
        EXPECT_NEAR(find_standard_rho(0, h) / us_1976(h).rho, 1.0, 0.01) << ft;
    }
    for (float h = 0.0f; h <= 46000.0f; h += 137.0f)  // chords of a convex curve stand a little high
        EXPECT_NEAR(find_standard_rho(0, h) / us_1976(h).rho, 1.0, h < 20000.0f ? 0.04 : 0.07) << h;
    EXPECT_NEAR(find_standard_rho(0, 0.0f), 1.2240, 0.0005);
}

TEST_F(atmosphere_test, density_is_continuous_falls_and_is_held_beyond_its_table) {
    for (const int planet : {0, 1}) {
        set_planet_specs(planet);
        float above = find_standard_rho(planet, -30000.0f);
        for (float h = -30000.0f; h < 125000.0f; h += 31.0f) {
            const float r = find_standard_rho(planet, h);
            EXPECT_LE(r, above) << planet << ' ' << h;
            EXPECT_LT(above - r, 0.012f * above + 1e-6f) << planet << ' ' << h;  // no jump
            above = r;
        }
        EXPECT_EQ(above, 0.0f);
    }
    EXPECT_EQ(find_standard_rho(0, -500.0f), find_standard_rho(0, 0.0f));
    EXPECT_EQ(find_standard_rho(0, 395001.0f * con.fttomtrs), 0.0f);
    EXPECT_EQ(find_standard_rho(1, -30000.0f), 0.074f);
    // scale height of Mars, some 11 km
    EXPECT_NEAR(20000.0 / std::log(find_standard_rho(1, 0.0f) / find_standard_rho(1, 20000.0f)), 11100.0,
                600.0);
}

TEST_F(atmosphere_test, temperature_follows_the_standard_and_shifts_with_the_day) {
    set_planet_specs(0);
    for (float h = -1000.0f; h <= 20000.0f; h += 250.0f)  // below the datum the first segment goes on
        EXPECT_NEAR(find_temp_cel(h), h < 0.0f ? 15.0 - 0.0065 * h : us_1976(h).T_cel, 0.3) << h;
    EXPECT_NEAR(find_temp_cel(47350.0f), -2.5f, 1e-4f);
    EXPECT_FLOAT_EQ(find_temp_cel(2e5f), -92.5f);
    const float cold_at_9km = find_temp_cel(9000.0f);
    con.sl_T_cel = 25.0f;
    EXPECT_FLOAT_EQ(find_temp_cel(0.0f), 25.0f);
    EXPECT_NEAR(find_temp_cel(9000.0f), cold_at_9km + 10.0f, 1e-4f);
    EXPECT_NEAR(find_current_rho_rat(), 288.15 / 298.15, 1e-5);  // ideal gas at equal pressure
    con.sl_P_pas *= 0.97f;
    EXPECT_NEAR(find_current_rho_rat(), 0.97 * 288.15 / 298.15, 1e-5);

    set_planet_specs(1);
    EXPECT_NEAR(find_temp_cel(0.0f), -60.0f, 1e-4f);
    EXPECT_NEAR(find_temp_cel(60000.0f), -131.0f, 1e-4f);
    EXPECT_NEAR(find_current_rho_rat(), 1.0f, 1e-4f);
}

TEST_F(atmosphere_test, local_air_at_the_aircraft) {
    set_planet_specs(0);
    local_air_step();
    EXPECT_NEAR(con.lcl_g, 9.79828f, 1e-4f);
    EXPECT_NEAR(con.lcl_a, 340.29f, 0.1f);
    EXPECT_NEAR(con.lcl_P_pas, 101325.0f, 200.0f);
    EXPECT_NEAR(con.lcl_sig, 1.0f, 0.001f);
    EXPECT_FLOAT_EQ(con.lcl_T_cel_total, con.lcl_T_cel);

    flt[0].dob_ele = flt[0].dob_y = 11000.0;
    flt[0].AV_msc = 295.0f;  // the published speed of sound there: Mach 1 heats by a fifth
    local_air_step();
    EXPECT_NEAR(con.lcl_g, 9.7646f, 1e-3f);
    EXPECT_NEAR(con.lcl_P_pas, 22700.0f, 500.0f);
    EXPECT_NEAR(con.lcl_T_cel_total + 273.15f, 1.2f * 216.8f, 0.5f);
}
