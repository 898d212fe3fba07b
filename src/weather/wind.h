// How fast the air moves, here and now: one wind for the whole world, reduced once a frame from the
// wind layers at the user's aircraft, plus a turbulence field made of sines.
// Role: per_cycle once a frame, in every state; the ret_wind_* queries any time after it, from the
// force code for every element. Main thread only; knows no OpenGL.
#pragma once
#include <math.h>

#include "core/math/axes.h"
#include "core/math/num.h"
#include "core/records/flt.h"

class wind_class {
public:
    wind_class() : totl_os_x(0.0f), totl_os_y(0.0f), totl_os_z(0.0f), totl_os_t(0.0f) {}

    void per_cycle();

    // Layer values at h metres: held outside the layers, linear between two of them, directions too,
    // with no care for the wrap at 360.
    void ret_wind_stats(float h, float* wndspd_kts, float* wnddir_mag, float* shrspd_kts, float* shrdir_deg,
                        float* trblnc_lev) const;

    // Air velocity at a world point, world axes, m/s.
    void ret_wind_wrl(float x_wrl, float y_wrl, float z_wrl, float* wind_x_wrl, float* wind_y_wrl,
                      float* wind_z_wrl) const;
    // Velocity of the air relative to the user's aircraft at a point given in its axes, in its axes,
    // m/s. Always slot 0, whichever aircraft asks.
    void ret_wind_acf(float x_acf, float y_acf, float z_acf, float* wind_x_acf, float* wind_y_acf,
                      float* wind_z_acf) const;

    float ret_wind_x() const { return final_X_msc; }
    float ret_wind_y() const { return final_Y_msc; }
    float ret_wind_z() const { return final_Z_msc; }
    float ret_wind_dir_true() const { return final_dir_true; }
    float ret_wind_spd_msc() const { return final_spd_msc; }

    float totl_os_x, totl_os_y, totl_os_z;  // offset of the turbulence field: drift and wander, m
    float totl_os_t;                        // phase of the field, seconds of frame time
    // layer values at the user's altitude this frame
    float base_wndspd_kts = 0.0f, base_wnddir_mag = 0.0f;
    float base_shrspd_kts = 0.0f, base_shrdir_deg = 0.0f;
    float base_trblnc_lev = 0.0f;
    float final_X_msc = 0.0f, final_Y_msc = 0.0f, final_Z_msc = 0.0f;  // where the air moves, world axes
    float final_dir_true = 0.0f;  // where the wind comes from, degrees true
    float final_spd_msc = 0.0f;   // horizontal, 0 to 999
    float final_trb_rat = 0.0f;   // turbulence at the user, no unit
};
extern wind_class wind;

// Calm air, no gust, no microburst: the state of a start. For runs that must repeat in one process.
void wind_reset();

// Smooth noise of two dimensions, -1 to 1, mirrored at the axes. A negative seed is fatal.
float interp_noise(float x, float y, int seed);

// Inline: the force code asks for every element of the aircraft twice a frame.
inline void wind_class::ret_wind_wrl(float x_wrl, float y_wrl, float z_wrl, float* wind_x_wrl,
                                     float* wind_y_wrl, float* wind_z_wrl) const {
    *wind_x_wrl = final_X_msc;
    *wind_y_wrl = final_Y_msc;
    *wind_z_wrl = final_Z_msc;
    if (final_trb_rat != 0.0f) {
        constexpr float wave_len = 60.0f;  // m
        const float dx = x_wrl - totl_os_x;
        const float dy = y_wrl - totl_os_y;
        const float dz = z_wrl - totl_os_z;
        const auto w = [this](float a, float d) { return a * d / wave_len * con.pim2 + totl_os_t; };
        *wind_x_wrl += (sinf(w(1.4f, dx)) - cosf(w(0.9f, dy)) + sinf(w(0.8f, dz))) * final_trb_rat * 10.0f;
        *wind_y_wrl += (cosf(w(0.8f, dx)) + sinf(w(1.3f, dy)) - cosf(w(1.2f, dz))) * final_trb_rat * 10.0f;
        *wind_z_wrl += (sinf(w(0.7f, dx)) + cosf(w(0.6f, dy)) - sinf(w(0.7f, dz))) * final_trb_rat * 10.0f;
    }
    check_val(*wind_x_wrl);
    check_val(*wind_y_wrl);
    check_val(*wind_z_wrl);
}

inline void wind_class::ret_wind_acf(float x_acf, float y_acf, float z_acf, float* wind_x_acf,
                                     float* wind_y_acf, float* wind_z_acf) const {
    const flt_struct& f = flt[0];
    float x, y, z;
    any_to_wrl(x_acf, y_acf, z_acf, &x, &y, &z, f.sin_psi, f.cos_psi, f.sin_the, f.cos_the, f.sin_phi,
               f.cos_phi);
    float vx, vy, vz;
    ret_wind_wrl(static_cast<float>(f.dob_x + x), static_cast<float>(f.dob_y + y),
                 static_cast<float>(f.dob_z + z), &vx, &vy, &vz);
    wrl_to_any(vx - f.vx, vy - f.vy, vz - f.vz, wind_x_acf, wind_y_acf, wind_z_acf, f.sin_psi, f.cos_psi,
               f.sin_the, f.cos_the, f.sin_phi, f.cos_phi);
}
