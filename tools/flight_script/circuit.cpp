// The circuit. Heights are above the runway, speeds indicated knots.
#include "circuit.h"

#include <math.h>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "hand.h"
#include "scenery/nav/nav_tables.h"

namespace {
constexpr float pass = 1.0f / 64.0f;  // s between two calls
constexpr float climb_kts = 76.0f, circuit_kts = 90.0f, base_kts = 72.0f, final_kts = 61.0f;
constexpr float circuit_height = 300.0f, offset = 1600.0f;  // m
constexpr float aim = 320.0f, slope_deg = 3.5f;             // m past the threshold where the slope ends

// -- where the aircraft is

// The runway as the flight began on it.
struct runway_line {
    float lat, lon, ele, psi_true, len;
};
runway_line line;

void choose_runway() {
    const vec_apt_struct& apt = vec_apt[static_cast<size_t>(msc.loc_apt_wrl)];
    const vec_rwy_struct& rwy = apt.rwy[static_cast<size_t>(msc.lcl_rwy_ram)];
    line = {rwy.lat, rwy.lon, apt.ele, rwy.psi_true, rwy.len};
}

struct place {
    float along, across;  // m past the threshold, m right of the centreline
    float course;         // of the runway in the world frame, degrees
    float height;         // m
};

place here() {
    float x, y, z;
    xyz_with_latlonel(&x, &y, &z, line.lat, line.lon, line.ele);
    const float course = line.psi_true + z_north_os(line.lat, line.lon);
    const float dx = static_cast<float>(flt[0].dob_x) - x, dz = static_cast<float>(flt[0].dob_z) - z;
    return {dx * sin_deg(course) - dz * cos_deg(course) + 0.5f * line.len,
            dx * cos_deg(course) + dz * sin_deg(course), course,
            static_cast<float>(flt[0].dob_ele) - line.ele - veh[0].h_eqlbm};
}

float turn_left_to(float angle) { return fltwrap(angle, -180.0f, 180.0f); }

// -- what the hand does about it

float level_wings(float bank) { return 0.03f * (bank - flt[0].phi) - 0.02f * flt[0].P; }

// Watches the horizon; the stick's place in trim is found as it goes.
void hold_attitude(float bank, float pitch) {
    static float trim = 0.0f;
    const float error = pitch - flt[0].the;
    trim = fltlim(trim + 0.02f * error * pass, -0.5f, 0.5f);
    move_stick(level_wings(bank), trim + 0.06f * error - 0.03f * flt[0].Q);
}

// Pitch for a speed.
void hold_speed(float bank, float kts) {
    static float pitch = 5.0f;
    const float error = flt[0].v_ind_kts - kts;
    pitch = fltlim(pitch + 0.15f * error * pass, -8.0f, 12.0f);
    hold_attitude(bank, fltlim(pitch + 0.4f * error, -8.0f, 14.0f));
}

// Pitch for a climb rate, m/s; what is wrong with the first guess is found as it goes.
void hold_climb(float bank, float climb) {
    static float wrong = 0.0f;
    const float error = climb - flt[0].vy;
    wrong = fltlim(wrong + 0.25f * error * pass, -6.0f, 6.0f);
    const float path = asin_deg(fltlim(climb / fltmax2(flt[0].AV_msc, 1.0f), -0.2f, 0.2f));
    hold_attitude(bank, fltlim(path + flt[0].alpha + wrong, -10.0f, 12.0f));
}

// Bank for a track in the world frame.
float bank_to(float track, float most) {
    return fltlim(1.2f * turn_left_to(track - flt[0].h_path), -most, most);
}

// Bank that brings the aircraft on the line at an offset to the right of the centreline, on its course or
// against it.
float bank_along(const place& at, float wanted, bool against) {
    const float off = against ? wanted - at.across : at.across - wanted;
    const float track = at.course + (against ? 180.0f : 0.0f) - fltlim(0.12f * off, -30.0f, 30.0f);
    return bank_to(track, 20.0f);
}

// One step of the throttle a second at most, until the speed comes of itself.
void throttle_for(float kts) {
    static float next = 0.0f, last_kts = 0.0f;
    if (mnw.totl_time < next) return;
    next = mnw.totl_time + 1.0f;
    const float coming = flt[0].v_ind_kts + 4.0f * (flt[0].v_ind_kts - last_kts);
    last_kts = flt[0].v_ind_kts;
    if (fabsf(kts - coming) > 1.5f) move_throttle(kts > coming ? 1 : -1);
}

// On the wheels: along the centreline by the nosewheel and the rudder that the stick turns. The ailerons turn
// with them: as long as they would lift a wing, the wings come first.
void steer(float pull) {
    constexpr float wings_lift = 45.0f, steering_alone = 30.0f;  // kt
    const place at = here();
    const float heading = at.course - fltlim(0.5f * at.across, -10.0f, 10.0f);
    const float error = fltwrap(heading - flt[0].psi, -180.0f, 180.0f);
    const float along = fltlim(0.10f * error - 0.06f * flt[0].R, -1.0f, 1.0f);
    const float by_wings = interp(steering_alone, 0.0f, wings_lift, 1.0f, flt[0].v_ind_kts);
    move_stick(along + by_wings * (level_wings(0.0f) - 0.8f * along), pull);
}

// -- the phases

void wait(float time) {
    if (time == 0.0f) choose_runway();
    move_stick(0.0f, 0.0f);
}

void roll(float time) {
    if (time == 0.0f) {
        press_brake();
        move_throttle(20);
    }
    steer(flt[0].v_ind_kts > 55.0f ? 0.4f : 0.0f);
}

void climb_out(float) {
    const place at = here();
    if (at.height < 15.0f) return hold_attitude(0.0f, 8.0f);
    hold_speed(bank_along(at, 0.0f, false), climb_kts);
}

void crosswind(float) { hold_speed(bank_to(here().course - 90.0f, 20.0f), climb_kts); }

void hold_circuit(float bank, const place& at) {
    if (at.height < circuit_height - 15.0f) return hold_speed(bank, climb_kts);
    hold_climb(bank, fltlim(0.15f * (circuit_height - at.height), -3.0f, 3.0f));
    throttle_for(circuit_kts);
}

void downwind(float) {
    const place at = here();
    hold_circuit(bank_along(at, -offset, true), at);
}

void base(float time) {
    if (time == 0.0f) more_flap();
    const place at = here();
    hold_climb(bank_to(at.course + 90.0f, 20.0f), at.height > 200.0f ? -2.5f : 0.0f);
    throttle_for(base_kts);
}

void final(float time) {
    static int flaps = 1;
    const place at = here();
    if (flaps < 3 && time > 4.0f * static_cast<float>(flaps)) {
        more_flap();
        ++flaps;
    }
    const float slope = tan_deg(slope_deg);
    const float wanted = fltmax2(slope * (aim - at.along), 0.0f);
    const float sink = slope * flt[0].V_msc - fltlim(0.2f * (wanted - at.height), -1.5f, 1.5f);
    hold_climb(bank_along(at, 0.0f, false), -sink);
    throttle_for(final_kts);
}

// Sinks ever more slowly; the nose comes up as the speed goes.
void flare(float time) {
    static float pitch = 0.0f;
    static bool closed = false;
    const place at = here();
    if (time == 0.0f) pitch = flt[0].the;
    if (!closed && at.height < 2.5f) {
        move_throttle(-20);
        closed = true;
    }
    const float error = -0.4f - 0.25f * fltmax2(at.height, 0.0f) - flt[0].vy;
    pitch = fltlim(pitch + 3.0f * error * pass, -2.0f, 8.0f);
    hold_attitude(fltlim(bank_along(at, 0.0f, false), -5.0f, 5.0f),
                  fltlim(pitch + 2.0f * error, -2.0f, 9.0f));
}

// The nose is let down and held there, until the elevator no longer can.
void roll_out(float time) {
    static bool braking = false;
    if (!braking && time > 2.0f && flt[0].v_ind_kts < 45.0f) {
        press_brake();
        braking = true;
    }
    const float nose_up = flt[0].the - veh[0].the_eqlbm;
    steer(fltlim(-0.06f * nose_up - 0.03f * flt[0].Q - 0.1f, -0.6f, 0.2f));
}
}  // namespace

const phase_struct circuit[circuit_phases] = {
    {"brake set", wait, [](float time) { return time > 5.0f; }, 5.5f, 3.0f, 0},
    {"take-off roll", roll, [](float) { return flt[0].y_agl_mtr > 1.0f; }, 40.0f, -1.0f, 0},
    {"climb-out", climb_out, [](float) { return here().height > 150.0f; }, 90.0f, 12.0f, 'a'},
    {"crosswind", crosswind, [](float) { return here().across < -offset + 420.0f; }, 90.0f, -1.0f, 0},
    {"downwind", downwind, [](float) { return here().along < -1100.0f; }, 240.0f, 60.0f, 'A'},
    {"base", base, [](float) { return here().across > -430.0f; }, 90.0f, 20.0f, 'w'},
    {"final", final, [](float) { return here().height < 6.0f; }, 120.0f, 20.0f, 0},
    {"flare", flare, [](float) { return flt[0].onground_any != 0; }, 30.0f, -1.0f, 0},
    {"roll-out", roll_out, [](float time) { return time > 5.0f && flt[0].V_msc < 0.05f; }, 60.0f, 10.0f, 's'},
};
