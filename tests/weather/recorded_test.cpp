// The air in many weathers, against tests/data/recorded: profiles, the steps of wind and weather, random
// weather. A change detector beside the standard atmosphere and the figures worked out by hand.
#include "recorded.h"

#include <math.h>

#include <algorithm>
#include <functional>

#include "core/math/random.h"
#include "core/program/clocks.h"
#include "support.h"
#include "weather/atmosphere.h"
#include "weather/weather_step.h"
#include "weather/wind.h"

namespace {
const struct {
    std::string name;
    const char* unit;
    float* layers;
    double size;
} of_layers[] = {{"set_wind_alt_mtrs_", "m", atm.set_wind_alt_mtrs, 1.0},
                 {"set_wind_spd_kts_", "kt", atm.set_wind_spd_kts, 0.1},
                 {"set_wind_dir_mag_", "deg", atm.set_wind_dir_mag, 0.1},
                 {"set_shear_spd_kts_", "kt", atm.set_shear_spd_kts, 0.1},
                 {"set_shear_dir_", "deg", atm.set_shear_dir, 0.1},
                 {"set_turb_inc_", "-", atm.set_turb_inc, 0.01}};

using fields = std::vector<std::reference_wrapper<float>>;
const fields rest = {atm.dewp_sea_C,        atm.wave_height,         atm.wave_length_to_height,
                     atm.therm_prt,         atm.therm_vvi_fpm,       atm.therm_alt_ft,
                     atm.rwx_check_minutes, atm.rwx_next_check_time, atm.rwx_percent_downloaded,
                     atm.rwx_max_vis_nm,    atm.vis_frmult,          atm.vis_sky};

class recorded_weather : public test::system_test {
protected:
    void SetUp() override {
        system_test::SetUp();
        wind_reset();
        start(0);
    }
    static void start(int planet) {
        set_planet_specs(planet);
        init_weather_defaults();
        mnw.prd_FM = 0.02f;
        flt[0].sin_psi = flt[0].sin_the = 0.6f;
        flt[0].cos_psi = flt[0].cos_the = 0.8f;
        flt[0].sin_phi = 0.8f;
        flt[0].cos_phi = 0.6f;
    }
    static void place(double x, double ele, double z) {
        flt[0].dob_x = x;
        flt[0].dob_y = flt[0].dob_ele = ele;
        flt[0].dob_z = z;
        flt[0].y_agl_mtr = static_cast<float>(ele);
        ren.view_ele_msl = static_cast<float>(ele);
    }
    // Everything that a frame of weather leaves behind.
    static void sample(test::recorded& r) {
        for (int i = 0; i < 2; ++i) {
            const std::string n = std::to_string(i);
            r.value("cld_type_" + n, "kind", atm.cld_type[i], 1.0);
            r.value("base_h_MSL_" + n, "m", atm.base_h_MSL[i], 1.0);
            r.value("tops_h_MSL_" + n, "m", atm.tops_h_MSL[i], 1.0);
        }
        for (const auto& [name, unit, layers, size] : of_layers)
            for (int c = 0; c < 3; ++c) r.value(name + std::to_string(c), unit, layers[c], size);
        // clang-format off
        const struct { const char* name; const char* unit; double v, size; } rows[] = {
            {"vis_rep", "m", atm.vis_rep, 1}, {"rain_set", "-", atm.rain_set, 0.001},
            {"tstm_set", "-", atm.tstm_set, 0.001}, {"wind_tbl", "-", atm.wind_tbl, 0.001},
            {"burst_prob", "-", atm.burst_prob, 0.001}, {"rate_change", "-", atm.rate_change, 0.001},
            {"prim_layer", "-", 1.0 * atm.prim_layer, 1}, {"wave_length", "m", atm.wave_length, 0.1},
            {"wave_speed", "m/s", atm.wave_speed, 0.1}, {"level_rat_acf", "-", atm.level_rat_acf, 0.001},
            {"rain_rat_acf", "-", atm.rain_rat_acf, 0.001}, {"hail_rat_acf", "-", atm.hail_rat_acf, 0.001},
            {"snow_rat_acf", "-", atm.snow_rat_acf, 0.001},
            {"rway_fric_code", "kind", 1.0 * atm.rway_fric_code, 1},
            {"use_rwx", "flag", 1.0 * atm.use_rwx, 1}, {"download_rwx", "flag", 1.0 * atm.download_rwx, 1},
            {"weather_seed", "-", 1.0 * atm.weather_seed, 1}, {"sl_T_cel", "C", con.sl_T_cel, 0.1},
            {"sl_P_pas", "Pa", con.sl_P_pas, 1}, {"lcl_g", "m/s2", con.lcl_g, 0.01},
            {"lcl_T_cel", "C", con.lcl_T_cel, 0.1}, {"lcl_r_met", "kg/m3", con.lcl_r_met, 0.001},
            {"lcl_P_pas", "Pa", con.lcl_P_pas, 1}, {"lcl_a", "m/s", con.lcl_a, 0.1},
            {"lcl_T_cel_total", "C", con.lcl_T_cel_total, 0.1},
            {"base_wndspd_kts", "kt", wind.base_wndspd_kts, 0.1},
            {"base_wnddir_mag", "deg", wind.base_wnddir_mag, 0.1},
            {"base_shrspd_kts", "kt", wind.base_shrspd_kts, 0.1},
            {"base_shrdir_deg", "deg", wind.base_shrdir_deg, 0.1},
            {"base_trblnc_lev", "-", wind.base_trblnc_lev, 0.01},
            {"final_X_msc", "m/s", wind.final_X_msc, 0.01}, {"final_Y_msc", "m/s", wind.final_Y_msc, 0.01},
            {"final_Z_msc", "m/s", wind.final_Z_msc, 0.01},
            {"final_dir_true", "deg", wind.final_dir_true, 0.1},
            {"final_spd_msc", "m/s", wind.final_spd_msc, 0.01},
            {"final_trb_rat", "-", wind.final_trb_rat, 0.001}, {"totl_os_x", "m", wind.totl_os_x, 0.01},
            {"totl_os_y", "m", wind.totl_os_y, 0.01}, {"totl_os_z", "m", wind.totl_os_z, 0.01},
            {"totl_os_t", "s", wind.totl_os_t, 0.01},
        };
        // clang-format on
        for (const auto& row : rows) r.value(row.name, row.unit, row.v, row.size);
        for (int i = 0; i < 12; ++i) r.value("rest_" + std::to_string(i), "-", rest[i].get(), 0.01);
        float v[3];
        wind.ret_wind_wrl(100.0f, 200.0f, -300.0f, &v[0], &v[1], &v[2]);
        for (int i = 0; i < 3; ++i) r.value(std::string("wind_wrl_") + "xyz"[i], "m/s", v[i], 0.01);
        wind.ret_wind_acf(5.0f, 2.0f, -3.0f, &v[0], &v[1], &v[2]);
        for (int i = 0; i < 3; ++i) r.value(std::string("wind_acf_") + "xyz"[i], "m/s", v[i], 0.01);
    }
    static void run(int frames) {
        for (int i = 0; i < frames; ++i) {
            mnw.puff1 = i % 50 == 0;
            mnw.totl_time += mnw.prd_FM;
            weather_step();
            local_air_step();
        }
    }
};

TEST_F(recorded_weather, profiles_are_as_they_were) {
    test::recorded r("weather_profile");
    for (const int planet : {0, 1}) {
        start(planet);
        con.sl_T_cel += 7.0f;
        con.sl_P_pas *= 0.98f;
        for (const double ele :
             {-50.0, 5.0, 700.0, 1900.0, 4000.0, 9000.0, 14000.0, 30000.0, 60000.0, 130000.0}) {
            r.column((planet ? "mars_" : "earth_") + std::to_string(static_cast<int>(ele)));
            place(300.0, ele, -400.0);
            flt[0].AV_msc = 80.0f;
            local_air_step();
            sample(r);
            const float far = static_cast<float>(ele);
            r.value("noise", "-", interp_noise(0.013f * far, 7.3f - 0.004f * far, 9), 0.01);
            r.value("standard_rho", "kg/m3", find_standard_rho(planet, static_cast<float>(ele)), 1e-4);
        }
    }
}

// The weather of a second, a minute of storms, bursts near the ground, thermals and slopes.
TEST_F(recorded_weather, steps_are_as_they_were) {
    test::recorded r("weather_steps");
    const auto after = [&](const char* label, double ele, int frames, const std::function<void()>& change) {
        start(0);
        wind_reset();
        rand_seed(3);
        mnw.totl_time = 0.0f;
        constexpr float lowest[] = {800, 12, 200, 4, 10, 2}, more[] = {1200, 9, 50, 3, 5, 1};
        for (int i = 0; i < 6; ++i)
            for (int c = 0; c < 3; ++c) of_layers[i].layers[c] = lowest[i] + more[i] * c;
        env.mag_var = 7.0f;
        env.terrain_nrm[0] = 0.3f, env.terrain_nrm[1] = 0.9f, env.terrain_nrm[2] = -0.2f;
        place(1234.0, ele, -777.0);
        change();
        run(frames);
        r.column(label);
        sample(r);
    };
    for (const double ele : {300.0, 1400.0, 2600.0, 5000.0, 7700.0})
        after(("at_" + std::to_string(static_cast<int>(ele))).c_str(), ele, 120, [] {});
    after("worsens", 1500.0, 400, [] {
        atm.rate_change = -0.9f;
        atm.rain_set = 0.3f;
        atm.wind_tbl = 0.6f;
        atm.cld_type[0] = 5, atm.cld_type[1] = 4;
        atm.tops_h_MSL[0] = 4000.0f;
    });
    after("at_its_worst", 1500.0, 400, [] {
        atm.rate_change = -0.9f;
        atm.rain_set = atm.tstm_set = atm.wind_tbl = atm.burst_prob = 0.9f;
    });
    after("improves", 1500.0, 400, [] {
        atm.rate_change = 0.8f;
        atm.rain_set = atm.tstm_set = atm.wind_tbl = atm.burst_prob = 0.7f;
    });
    after("hardly_worsens", 1500.0, 100, [] { atm.rate_change = -0.015f; });
    after("carried_far", 1500.0, 400, [] {
        mnw.prd_FM = 0.05f;
        for (float& spd : atm.set_wind_spd_kts) spd = 150.0f;
    });
    after("rare_burst", 100.0, 4000, [] {
        atm.burst_prob = 0.5f;
        mnw.prd_FM = 0.05f;
    });
    for (int seed = 1; seed <= 8; ++seed)
        after(("burst_" + std::to_string(seed)).c_str(), 100.0, 1100, [&] {
            rand_seed(seed);
            atm.burst_prob = 1.0f;
            mnw.prd_FM = 0.05f;
        });
    for (const bool top : {false, true})
        after(top ? "top_of_thermals" : "thermals", top ? 1530.0 : 400.0, 100, [&] {
            atm.therm_prt = top ? 1.0f : 0.9f;
            atm.therm_vvi_fpm = 700.0f;
            atm.therm_alt_ft = 5000.0f;
        });
    after("in_overcast", 1800.0, 100, [] {
        atm.level_rat_acf = 0.9f;
        atm.cld_type[0] = 5;
        atm.base_h_MSL[0] = 1000.0f, atm.tops_h_MSL[0] = 3000.0f;
    });
    for (const float T : {-12.0f, -0.3f, 0.4f, 18.0f})
        after(("precipitation_" + std::to_string(static_cast<int>(10 * T))).c_str(), 700.0, 3, [&] {
            con.lcl_T_cel = T;
            atm.rain_set = 0.8f;
            atm.cld_type[0] = 4, atm.cld_type[1] = 3;
            atm.base_h_MSL[0] = 2000.0f;
            for (int i = 0; i < 200; ++i) ease_precipitation(0.7f, 0.9f);
        });
}

TEST_F(recorded_weather, random_weather_is_as_it_was) {
    test::recorded r("weather_random");
    weather_screen_struct last{};
    for (int seed = 1; seed <= 12; ++seed) {
        start(seed % 4 == 0);
        rand_seed(seed);
        flt[0].terrain_y_cg = 200.0f;
        place(100.0 * seed, 150.0 * seed * seed, -70.0 * seed);
        randomise_weather();
        new_weather_seed();
        atm.download_rwx = seed % 3 == 0;
        weather_screen_rules(last);
        r.column("seed_" + std::to_string(seed));
        sample(r);
        run(30);
        r.column("and_on_" + std::to_string(seed));
        sample(r);
    }
}

// What comes over a border is pulled into its range, each value from both sides and from no number.
TEST_F(recorded_weather, borders_are_as_they_were) {
    test::recorded r("weather_border", 1e-7);
    const float bad[] = {-1e7f, 1e7f, NAN, 0.5f};
    for (int k = 0; k < 4; ++k) {
        start(k % 2);
        for (int i = 0; i < 2; ++i) atm.base_h_MSL[i] = atm.tops_h_MSL[i] = bad[k];
        atm.vis_rep = atm.rain_set = atm.tstm_set = atm.wind_tbl = atm.burst_prob = atm.rate_change = bad[k];
        for (const auto& of : of_layers) std::fill_n(of.layers, 3, bad[k]);
        for (float& v : rest) v = bad[k];
        const fields others = {atm.wave_length,  atm.wave_speed,   atm.level_rat_acf,
                               atm.rain_rat_acf, atm.hail_rat_acf, atm.snow_rat_acf,
                               con.sl_T_cel,     con.sl_P_pas,     atm.vis_ground};
        for (float& v : others) v = bad[k];
        atm.weather_seed = static_cast<char>(-3 + k);
        atm.prim_layer = atm.rway_fric_code = atm.wave_dir = k % 2 ? 999 : -5;
        for (const char* when : {"limit", "screen", "border"}) {
            if (k == 2 && when[0] != 'b') continue;  // the border stands before all else
            r.column(when + std::to_string(k));
            weather_screen_struct last{0.5f, 1, 1};
            atm.download_rwx = 1;
            if (when[0] == 'l') limit_weather();
            if (when[0] == 's') weather_screen_rules(last);
            if (when[0] == 'b') limit_atm_border();
            sample(r);
            r.value("wave_dir", "deg", atm.wave_dir, 1.0);
        }
    }
}

// The defaults, on both planets, whatever stood there before.
TEST_F(recorded_weather, defaults_are_as_they_were) {
    test::recorded r("weather_defaults");
    for (const int planet : {0, 1}) {
        con.planet_mu_air = con.planet_rho_water = 0.0f;
        atm.wave_dir = atm.rway_fric_code = atm.rway_patchy = atm.meteorite_code = atm.plot_aurora = 7;
        atm.cld_type[0] = atm.cld_type[1] = 3;
        start(planet);
        r.column(planet ? "mars" : "earth");
        sample(r);
        const double more[] = {con.planet_mu_air,   con.planet_rho_water, con.planet_mu,      con.planet_rad,
                               con.planet_deg_mtrs, con.sl_r_met,         nav.baro_setting_HG};
        for (int i = 0; i < 7; ++i) r.value("constant_" + std::to_string(i), "-", more[i], 1e-9);
        const int kinds[] = {atm.wave_dir, atm.rway_fric_code, atm.rway_patchy, atm.meteorite_code,
                             atm.plot_aurora};
        for (int i = 0; i < 5; ++i) r.value("kind_" + std::to_string(i), "-", kinds[i], 1.0);
    }
}
}  // namespace
