// Air data, turn, slip, compass and gyros.
#include "flight/instruments.h"

#include "aircraft/systems/electrics.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/records.h"
#include "flight/systems.h"

namespace {
struct instrument_state {
    // last good readings before a blockage; altitudes in feet, without the barometer's setting
    float pitot_ref_spd = 0.0f, pitot_ref_alt_pitot = 0.0f, pitot_ref_alt_static = 0.0f, pitot_ref_vvi = 0.0f;
    float alt_read = 0.0f;  // what the altimeter read last, feet without the barometer's setting
};
instrument_state state;
}  // namespace

void reset_instruments() { state = {}; }

static bool failed(int slot) { return flt[0].fail_stat[slot] == fail_active; }

static void airspeed() {
    if (flt[0].pitot_ice < 0.1f && !failed(fail_ss_asi))
        flt[0].v_ind_kts = flt[0].AV_sig_kts * flt[0].cos_alph;
}

// Feet without the barometer's setting; false when the needle was left where it stands.
static bool altitude() {
    if (failed(fail_ss_alt)) return false;
    flt[0].h_ind_ft = static_cast<float>(flt[0].dob_ele) * con.mtrstoft;
    return true;
}

static void turn_and_slip() {
    constexpr float max_turn_deg = 60.0f, max_slip_deg = 8.0f;
    flt_struct& f = flt[0];
    if (!failed(fail_ss_tsi)) {
        const bool powered = esys_working();
        const float term_val_roll_deg = powered ? 0.63f * f.R + 0.1f * f.P : 0.0f;
        const float term_val_hdng_deg = powered ? 0.63f * f.R : 0.0f;
        f.TR_roll_ind_deg =
            closer_assymp(f.TR_roll_ind_deg, fltlim(12.5f * term_val_roll_deg, -max_turn_deg, max_turn_deg),
                          2.0f * mnw.prd_FM);
        f.TR_hdng_ind_deg =
            closer_assymp(f.TR_hdng_ind_deg, fltlim(21.5f * term_val_hdng_deg, -max_turn_deg, max_turn_deg),
                          2.0f * mnw.prd_FM);
    }
    const float slip = fltlim(atan2_deg(f.g_side, f.g_nrml), -max_slip_deg, max_slip_deg);
    f.slip_ind_deg = closer_assymp(f.slip_ind_deg, slip, 0.5f * mnw.prd_FM);
}

static void vertical_speed() {
    flt_struct& f = flt[0];
    if (!failed(fail_ss_vvi)) f.vvi_ind_fpm = closer_assymp(f.vvi_ind_fpm, f.Vh_fpm, 2.0f * mnw.prd_FM);
}

// A blocked pitot acts as an altimeter, a blocked static line freezes altitude and climb. A failed altimeter's
// needle stays where it is; altitude_read tells that it is whole.
static void blocked_lines(bool altitude_read) {
    flt_struct& f = flt[0];
    const bool pitot_blocked = failed(fail_pitot), static_blocked = failed(fail_static);
    if (altitude_read) state.alt_read = f.h_ind_ft;
    if (!pitot_blocked) {
        state.pitot_ref_spd = f.v_ind_kts;
        state.pitot_ref_alt_pitot = state.alt_read;
    }
    if (!static_blocked) {
        state.pitot_ref_alt_static = state.alt_read;
        state.pitot_ref_vvi = f.vvi_ind_fpm;
    } else {
        f.vvi_ind_fpm = state.pitot_ref_vvi;
        state.alt_read = state.pitot_ref_alt_static;
        if (altitude_read) f.h_ind_ft = state.pitot_ref_alt_static;
    }
    if (pitot_blocked) f.v_ind_kts = state.pitot_ref_spd + 0.05f * (state.alt_read - state.pitot_ref_alt_pitot);
    if (static_blocked)
        f.v_ind_kts = state.pitot_ref_spd - 0.05f * (state.alt_read - state.pitot_ref_alt_static);
}

// Only on an altitude written in this half step: added to a stuck needle it would wind away.
static void barometer(bool altitude_read) {
    if (altitude_read) flt[0].h_ind_ft += 1000.0f * (nav.baro_setting_HG - con.sl_P_pas * con.pasto_hg);
}

// Swings ahead in turns by the dip of the field, and with acceleration on east and west headings.
static void magnetic_compass() {
    flt_struct& f = flt[0];
    const float psi = f.psi;
    const float del_ew = psi <= 180.0f ? 90.0f - fabsf(psi - 90.0f) : 90.0f - fabsf(psi - 270.0f);
    const float accel_mod = fltlim(f.V_msc, 0.0f, 1.0f) * -f.ax * del_ew * 0.2f;
    const float tan_dip_ang = tan_deg(45.0f - 0.5f * static_cast<float>(f.dob_lat));
    const float mag = f.psi_mag_act;
    float term_compass_psi =
        atan2_deg(f.cos_phi * sin_deg(mag) - f.sin_phi * tan_dip_ang, cos_deg(mag)) + accel_mod;
    term_compass_psi = fltwrap(term_compass_psi, -180.0f, 180.0f);
    const float off = fltwrap(term_compass_psi - f.com_ind_mag, -180.0f, 180.0f);
    f.com_ind_mag = fltwrap(f.com_ind_mag + off * mnw.prd_FM, 0.0f, 360.0f);
}

static void gyros() {
    flt_struct& f = flt[0];
    f.gyro_force[0] = f.vacuum;
    f.gyro_force[1] = ac_working() * tot_volt_avail();
    const float drift = (flt_rand(-0.2f, 0.2f) - 0.01f * f.R) * mnw.prd_FM;
    f.dg_drift[0] = fltwrap(f.dg_drift[0] + drift, -180.0f, 180.0f);
    manage_gyro(0);
    manage_gyro(1);
}

void instrument_step() {
    airspeed();
    const bool altitude_read = altitude();
    turn_and_slip();
    vertical_speed();
    blocked_lines(altitude_read);
    barometer(altitude_read);
    magnetic_compass();
    gyros();
}
