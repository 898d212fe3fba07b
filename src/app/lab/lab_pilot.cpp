// The practised hand.
#include "app/lab/lab_pilot.h"

#include "app/lab/lab_steady.h"
#include "core/math/num.h"
#include "core/records/records.h"

lab_pilot::lab_pilot(float ptch, float roll, float hdng, float power)
    : ptch_(ptch), roll_(roll), hdng_(hdng), power_(power) {}

void lab_pilot::fly(const lab_pilot_aim& aim, float dt) {
    if (veh[0].collective_EQ)
        fly_helicopter(aim, dt);
    else
        fly_aeroplane(aim, dt);
}

namespace {
// A control in trim: the trim creeps by the error, the stick answers error and rate at once.
float trimmed(float& trim, float error, float creep, float gain, float damping, float rate, float dt) {
    trim = fltlim(trim + creep * error * dt, -1.0f, 1.0f);
    return fltlim(trim + gain * error - damping * rate, -1.0f, 1.0f);
}

float heading_error(float heading) { return fltwrap(heading - flt[0].psi, -180.0f, 180.0f); }
float height_error(float height) { return height - static_cast<float>(flt[0].dob_ele); }
}  // namespace

// Power for speed, pitch for height, bank for heading.
void lab_pilot::fly_aeroplane(const lab_pilot_aim& aim, float dt) {
    const flt_struct& f = flt[0];
    // at speed the surfaces bite harder
    const float bite = fltlim(sqr(1.4f * veh[0].V_ref_ms / fltmax2(f.AV_msc, 1.0f)), 0.1f, 1.5f);
    const float climb = fltlim(0.1f * height_error(aim.height), -0.06f * f.AV_msc, 0.06f * f.AV_msc);
    const float path = asin_deg(fltlim(climb / fltmax2(f.AV_msc, 1.0f), -0.2f, 0.2f));
    const float off = fltlim(path - f.v_path, -4.0f, 4.0f);
    const float ptch = trimmed(ptch_, off, 0.02f * bite, 0.05f * bite, 0.06f * bite, f.Q, dt);
    const float bank = fltlim(1.2f * heading_error(aim.heading), -25.0f, 25.0f);
    const float roll = fltlim(bite * (0.03f * (bank - f.phi) - 0.03f * f.P), -1.0f, 1.0f);
    const float hdng = trimmed(hdng_, -f.beta, 0.01f, 0.05f, 0.0f, 0.0f, dt);
    lab_command(ptch, roll, hdng);
    const float faster = aim.speed - f.AV_msc;
    power_ = fltlim(power_ + 0.01f * faster * dt, 0.0f, 1.0f);
    lab_set_power(fltlim(power_ + 0.05f * faster, 0.0f, 1.0f));
}

// Attitude for speed, collective for height, pedals for the nose.
void lab_pilot::fly_helicopter(const lab_pilot_aim& aim, float dt) {
    const flt_struct& f = flt[0];
    const float ahead = f.vx * f.sin_psi - f.vz * f.cos_psi;
    const float aside = f.vx * f.cos_psi + f.vz * f.sin_psi;
    // the wind stands still: speed over the ground is speed through the air
    const float slow = aim.speed - ahead;
    if (fabsf(slow) < 4.0f) nose_ = fltlim(nose_ - 0.15f * slow * dt, -8.0f, 8.0f);
    const float nose = fltlim(nose_ - 1.2f * slow, -9.0f, 9.0f);
    const float ptch = trimmed(ptch_, nose - f.the, 0.01f, 0.03f, 0.03f, f.Q, dt);
    const float turning = fltlim(0.3f * heading_error(aim.heading), -6.0f, 6.0f);  // deg/s
    // the bank of that turn, and against the drift
    bank_ = fltlim(bank_ - 0.1f * fltlim(aside, -3.0f, 3.0f) * dt, -6.0f, 6.0f);
    const float bank =
        bank_ + atan2_deg(ahead * turning * con.degtorad, con.g) - fltlim(1.5f * aside, -8.0f, 8.0f);
    const float roll = trimmed(roll_, bank - f.phi, 0.01f, 0.02f, 0.02f, f.P, dt);
    const float hdng = trimmed(hdng_, turning - f.R, 0.05f, 0.05f, 0.0f, 0.0f, dt);
    lab_command(ptch, roll, hdng);
    const float climb = fltlim(0.3f * height_error(aim.height), -3.0f, 3.0f);
    const float rise = climb - f.Vh_fpm * con.fpmtomsc;
    power_ = fltlim(power_ + 0.03f * rise * dt, 0.0f, 1.0f);
    lab_set_power(fltlim(power_ + 0.06f * rise, 0.0f, 1.0f));
}
