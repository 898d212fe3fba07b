// Any weather that a file or a packet may hold, and any place of the aircraft: after the border and one
// frame every limit holds, and finite settings never end the program.

#include "support.h"
#include "weather/atmosphere.h"
#include "weather/weather_step.h"
#include "weather/wind.h"

using fuzzing::must;

static void check_limits() {
    const float top = con.fttomtrs * 99999.0f + 0.01f;  // sums of the layers round
    for (int i = 0; i < 2; ++i) {
        must(atm.cld_type[i] >= 0 && atm.cld_type[i] <= 5);
        must(fltrange(atm.base_h_MSL[i], 0.0f, top) && fltrange(atm.tops_h_MSL[i], atm.base_h_MSL[i], top));
    }
    must(atm.prim_layer == 0 || atm.prim_layer == 1);
    must(fltrange(atm.vis_rep, 100.0f, max_vis_ter_mtrs[env.planet]));
    must(fltrange(atm.tstm_set, 0.0f, 1.0f) && fltrange(atm.rain_set, atm.tstm_set, 1.0f));
    must(fltrange(atm.wind_tbl, 0.0f, 1.0f) && fltrange(atm.burst_prob, 0.0f, 1.0f));
    must(fltrange(atm.rate_change, -1.0f, 1.0f));
    for (int c = 0; c < 3; ++c) {
        must(fltrange(atm.set_wind_dir_mag[c], 0.0f, 360.0f) && fltrange(atm.set_shear_dir[c], 0.0f, 180.0f));
        must(fltrange(atm.set_wind_spd_kts[c], 0.0f, 200.0f) &&
             fltrange(atm.set_shear_spd_kts[c], 0.0f, 50.0f));
        must(fltrange(atm.set_turb_inc[c], 0.0f, 9.0f));
    }
    for (const float rat : {atm.level_rat_acf, atm.rain_rat_acf, atm.snow_rat_acf, atm.hail_rat_acf})
        must(fltrange(rat, 0.0f, 1.0f));
    must(fltrange(wind.final_spd_msc, 0.0f, 999.0f) && con.lcl_a > 0.0f);
    fuzzing::must_be_finite({wind.final_trb_rat, con.lcl_a, con.lcl_P_pas, atm.wave_speed});
}

// Where the aircraft is and what the frame says: finite, since the flight model vouches for that.
struct setting_struct {
    float x, ele, z, agl, prd, mag_var;
    unsigned char planet, puff1;
};

static float bounded(float value, float min, float max) {
    return std::isfinite(value) ? fltlim(value, min, max) : min;
}

static void place(const setting_struct& at) {
    flt[0].dob_x = bounded(at.x, -1e6f, 1e6f);
    flt[0].dob_z = bounded(at.z, -1e6f, 1e6f);
    flt[0].dob_y = flt[0].dob_ele = bounded(at.ele, -1000.0f, 1e7f);
    flt[0].y_agl_mtr = bounded(at.agl, -100.0f, 1e7f);
    mnw.prd_FM = bounded(at.prd, 0.001f, 0.08f);
    env.mag_var = bounded(at.mag_var, -180.0f, 180.0f);
    mnw.puff1 = at.puff1 & 1;
    set_planet_specs(at.planet & 1);
}

void fuzz_weather(fuzzing::input& in) {
    rand_seed(1);
    wind_reset();
    place(in.value<setting_struct>());
    atm = in.value<atm_struct>();
    atm.rwx_download_object = nullptr;  // never comes from outside

    limit_atm_border();
    for (int frame = 0; frame < 3; ++frame) {
        weather_step();
        local_air_step();
        check_limits();
    }
}
