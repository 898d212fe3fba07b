// The hand that stalls and spins.
#include "app/lab/lab_manoeuvre.h"

#include <math.h>

#include "app/lab/lab.h"
#include "app/lab/lab_steady.h"
#include "core/math/num.h"
#include "core/records/records.h"

namespace {
constexpr float dt = 1.0f / 64.0f;

// Level at a speed, or gliding where there is no engine. False when that cannot be held.
bool start_at(float speed, float altitude) {
    if (veh[0].num_engines == 0) {
        const lab_trim glide = lab_trim_glide(speed, altitude);
        if (glide.found) lab_fly_trim(glide, altitude);
        return glide.found;
    }
    lab_steady_order level;
    level.altitude = altitude;
    level.speed = speed;
    const lab_steady s = lab_find_steady(level);
    if (s.found) lab_fly_steady(s);
    return s.found;
}

float wings_level() { return fltlim(-0.03f * flt[0].phi - 0.02f * flt[0].P, -1.0f, 1.0f); }
float rotation() { return pythag(flt[0].P, flt[0].Q, flt[0].R); }

// Slows down until the stick has been full back, or the wing beyond its stall, for three seconds. Never
// pushes to keep to the knot a second.
void slow_down(float ptch, float alpha_max, lab_stall_sum& s) {
    constexpr float slower = 0.5144f;  // m/s2: a knot a second
    float aim = flt[0].AV_msc, held = 0.0f;
    s.speed = 999.0f;
    for (float t = 0.0f; t < 120.0f && held < 3.0f; t += dt) {
        const flt_struct& f = flt[0];
        aim = fltmin2(aim, f.AV_msc) - slower * dt;
        const float fast = f.AV_msc - aim;
        ptch = fltlim(ptch + 0.03f * fltmin2(fast, 1.0f) * dt, -1.0f, 1.0f);
        const float stick = fltlim(ptch - 0.02f * f.Q, -1.0f, 1.0f);
        lab_command(stick, wings_level(), fltlim(-0.05f * f.beta, -1.0f, 1.0f));
        lab_frame(dt);
        const float at_1_g = f.g_nrml > 0.3f ? f.AV_sig_kts / sqrtf(f.g_nrml) : 999.0f;
        if (at_1_g < s.speed) {
            s.speed = at_1_g;
            s.alpha = f.alpha;
            s.ptch = stick;
        }
        if (f.stall_warning && s.warned == 0.0f) s.warned = f.AV_sig_kts;
        s.bank = fltmax2(s.bank, fabsf(f.phi));
        if (stick > 0.99f || f.alpha > alpha_max + 1.0f) held += dt;
    }
}

void enter_spin(float side) {
    lab_set_power(0.0f);
    constexpr int frames = static_cast<int>(15.0f / dt);
    for (int i = 0; i < frames; ++i) {
        const float t = dt * i;
        lab_command(interp(1.0f, 0.2f, 4.0f, 1.0f, t), 0.0f, t > 1.0f ? side : 0.0f);
        lab_frame(dt);
    }
}

void hold_spin(float side, lab_spin_sum& s) {
    constexpr int seconds = 10;
    s.least_load = 99.0f;
    for (int second = 0; second < seconds; ++second) {
        float load = 0.0f;
        for (int i = 0; i < 64; ++i) {
            const float before = flt[0].psi;
            lab_frame(dt);
            load += flt[0].g_nrml / 64.0f;
            s.speed += flt[0].AV_sig_kts / (64.0f * seconds);
            s.turns += side * fltwrap(flt[0].psi - before, -180.0f, 180.0f) / 360.0f;
        }
        s.load += load / seconds;
        s.least_load = fltmin2(s.least_load, load);
        s.largest_load = fltmax2(s.largest_load, load);
    }
}

// Opposite rudder, half a second later the stick forward of neutral; when the rotation ends, the pedals to
// the middle, the stick where it glides best, and the wings level: the dive ends by itself.
void leave_spin(float side, float gliding, lab_spin_sum& s) {
    const double from = flt[0].dob_ele;
    s.seconds_to_stop = 99.0f;
    constexpr int frames = static_cast<int>(25.0f / dt);
    for (int i = 0; i < frames; ++i) {
        const float t = dt * i;
        if (s.seconds_to_stop > 25.0f && rotation() < 40.0f && flt[0].alpha < 14.0f) s.seconds_to_stop = t;
        if (t < s.seconds_to_stop) {
            lab_command(t < 0.5f ? 1.0f : -0.3f, 0.0f, -side);
        } else {
            if (flt[0].Vh_fpm > 0.0f) break;
            lab_command(gliding, fltlim(-flt[0].phi / 40.0f, -1.0f, 1.0f), 0.0f);
            s.fastest = fltmax2(s.fastest, flt[0].AV_sig_kts);
            s.heaviest = fltmax2(s.heaviest, flt[0].g_nrml);
        }
        lab_frame(dt);
    }
    s.height_lost = static_cast<float>(from - flt[0].dob_ele);
}
}  // namespace

lab_stall_sum lab_fly_stall(const lab_polar& polar, float altitude) {
    lab_stall_sum s{};
    s.flown = start_at(1.3f * polar.stall_speed, altitude);
    if (!s.flown) return s;
    const float trim = flt[0].FC_ptch;
    lab_set_power(0.0f);
    slow_down(trim, polar.alpha_max, s);
    const double from = flt[0].dob_ele;
    lab_set_power(1.0f);
    constexpr float eased = 1.0f;  // s; one that just climbs on its swing through the stall sinks by then
    for (float t = 0.0f; t < 30.0f && (t < eased || flt[0].Vh_fpm < 0.0f); t += dt) {
        lab_command(t < eased ? trim - 0.2f : trim, wings_level(), 0.0f);
        lab_frame(dt);
    }
    s.height_lost = static_cast<float>(from - flt[0].dob_ele);
    return s;
}

lab_spin_sum lab_fly_spin(float side, float altitude) {
    lab_spin_sum s{};
    const lab_polar polar = lab_performance(altitude);
    s.flown = start_at(1.1f * polar.stall_speed, altitude);
    if (!s.flown) return s;
    enter_spin(side);
    hold_spin(side, s);
    leave_spin(side, polar.best_glide.elevator, s);
    return s;
}
