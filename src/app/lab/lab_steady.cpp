// Steady flights: seven unknowns against the accelerations of the whole aircraft.
#include "app/lab/lab_steady.h"

#include <math.h>
#include <stdio.h>

#include "app/lab/lab.h"
#include "app/lab/lab_load.h"
#include "core/craft/engn_kinds.h"
#include "core/math/axes.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "flight/fullsim.h"
#include "flight/power/levers.h"

void lab_command(float ptch, float roll, float hdng) {
    const veh_struct& v = veh[0];
    const flt_struct& f = flt[0];
    const auto link = [](float ratio) { return fabsf(ratio) > 0.01f ? ratio : 0.0f; };
    mnw.YK_ptch = ptch - v.elev_tab - f.handle_rat_act * link(v.elev_with_flap_rat) -
                  (v.flying_stab_EQ ? 0.0f : f.elev_trim);
    mnw.YK_roll = roll - v.ailn_tab - f.ailn_trim;
    // the link takes the roll command before its trim
    mnw.YK_hdng = hdng - v.rudd_tab - f.rudd_trim - (roll - f.ailn_trim) * link(v.rudd_with_ailn_rat);
}

static void set_controls(float ptch, float roll, float hdng, bool by_trims) {
    if (!by_trims) return lab_command(ptch, roll, hdng);
    flt_struct& f = flt[0];
    f.elev_trim = ptch;
    f.ailn_trim = roll;
    f.rudd_trim = hdng;
    mnw.YK_ptch = mnw.YK_roll = mnw.YK_hdng = 0.0f;
}

void lab_set_power(float ratio) {
    const veh_struct& v = veh[0];
    if (!v.collective_EQ) {
        for (int en = 0; en < v.num_engines; ++en) set_thro(en, ratio * v.throt_max_FWD);
        return;
    }
    for (int en = 0; en < v.num_thrustpoints; ++en)
        if (v.engn[en].prop_type == prop_collective)
            set_ptch(en, extrap(0.0f, v.engn[en].min_pitch, 1.0f, v.engn[en].max_pitch, ratio));
}

namespace {
// Place and motion of slot 0, which a held aircraft keeps.
struct held_motion {
    double dob_x, dob_y, dob_z;
    float vx, vy, vz, P, Q, R, psi, the, phi, q[4];

    held_motion() {
        const flt_struct& f = flt[0];
        dob_x = f.dob_x, dob_y = f.dob_y, dob_z = f.dob_z;
        vx = f.vx, vy = f.vy, vz = f.vz;
        P = f.P, Q = f.Q, R = f.R;
        psi = f.psi, the = f.the, phi = f.phi;
        for (int i = 0; i < 4; ++i) q[i] = f.q[i];
    }
    void put_back() const {
        flt_struct& f = flt[0];
        f.dob_x = dob_x, f.dob_y = dob_y, f.dob_z = dob_z;
        f.vx = vx, f.vy = vy, f.vz = vz;
        f.P = P, f.Q = Q, f.R = R;
        f.Prad = P * con.degtorad, f.Qrad = Q * con.degtorad, f.Rrad = R * con.degtorad;
        f.psi = psi, f.the = the, f.phi = phi;
        for (int i = 0; i < 4; ++i) f.q[i] = q[i];
        cache_attitude(0);
        cache_air(0);
        cache_speeds(0);
    }
};
}  // namespace

void lab_hold(float seconds, float dt) {
    const held_motion held;
    const int frames = static_cast<int>(lroundf(seconds / dt));
    for (int i = 0; i < frames; ++i) {
        lab_frame(dt);
        held.put_back();
    }
}

bool lab_start_engines() {
    constexpr float starter_holds = 0.1f;
    bool all_run = true;
    stg.battery = 1;
    stg.clutch_trq_engag = 1;
    for (int en = 0; en < veh[0].num_engines; ++en) {
        flt_engn_struct& e = flt[0].engn[en];
        set_mixt(en, 1.0f);
        e.ignition = 3;
        stg.igniter[en] = stg.fuel_pump[en] = stg.generator[en] = 1;
        // a gas generator runs on its own well below its idle, near half of full speed
        constexpr float spool_idle = 45.0f;
        const float spool = en_is_jet(0, en) ? e.N2 : e.N1;
        const bool shaft = en_is_recip(0, en) || en_is_turbo_fixed(0, en);
        const bool turning = shaft ? e.tacrad_ENGN > 0.9f * veh[0].RSC_idlespeed_ENGN
                             : en_is_jet(0, en) || en_is_turbo_free(0, en) ? spool > spool_idle
                                                                           : true;
        const bool runs = e.burning_fuel && turning;
        if (!runs) stg.start_time[en] = mnw.totl_time + starter_holds;
        all_run = all_run && runs;
    }
    return all_run;
}

namespace {
enum unknown : int { u_the, u_phi, u_crab, u_power, u_ptch, u_roll, u_hdng, unknowns };

struct state {
    float u[unknowns];
};

// How far an unknown is stirred for a slope, and the longest step of a correction.
constexpr float stir[unknowns] = {0.2f, 0.2f, 0.2f, 0.02f, 0.02f, 0.02f, 0.02f};
constexpr float longest[unknowns] = {3.0f, 6.0f, 4.0f, 0.2f, 0.2f, 0.2f, 0.2f};
constexpr float gamma_stir = 0.2f, gamma_longest = 4.0f;  // degrees, when the power is given

constexpr float slow = 8.0f;              // m/s
constexpr float accel_tolerance = 5e-4f;  // g
constexpr float spin_tolerance = 0.02f;   // deg/s2
constexpr float beta_tolerance = 0.05f;   // degrees
constexpr float settle_dt = 1.0f / 40.0f, settle_seconds = 10.0f, first_settle_seconds = 40.0f;

float tolerance_of(int residual) {
    return residual < 3 ? accel_tolerance : residual < 6 ? spin_tolerance : beta_tolerance;
}

class steady_search {
public:
    explicit steady_search(const lab_steady_order& order)
        : order_(order), power_given_(order.power >= 0.0f) {}

    lab_steady run() {
        state s = first_guess();
        place(s, first_settle_seconds);
        float res[unknowns];
        lab_steady best{};
        best.worst = 1e9f;
        constexpr int max_steps = 25;
        for (int i = 0; i < max_steps; ++i) {
            place(s, settle_seconds);
            residuals(s, res);
            float worst = 0.0f;
            for (const float r : res) worst = fltmax2(worst, fabsf(r));
            if (worst < best.worst) best = answer(s, res, worst);
            if (worst < 1.0f) {
                best.found = true;
                break;
            }
            if (!correct(s, res)) break;
        }
        return best;
    }

private:
    state first_guess() const {
        state s{};
        s.u[u_the] = veh[0].collective_EQ ? 0.0f : 4.0f;
        s.u[u_phi] = atan2_deg(order_.speed * order_.turn_rate * con.degtorad, con.g);
        s.u[u_power] = power_given_ ? order_.gamma : 0.6f;
        return s;
    }

    float gamma_of(const state& s) const { return power_given_ ? s.u[u_power] : order_.gamma; }
    float power_of(const state& s) const { return power_given_ ? order_.power : s.u[u_power]; }

    lab_flight flight_of(const state& s) const {
        lab_flight at;
        at.speed = order_.speed;
        at.altitude = order_.altitude;
        at.gamma = gamma_of(s);
        at.phi = s.u[u_phi];
        at.psi = s.u[u_crab];
        at.track = order_.track;
        return at;
    }

    // Puts the aircraft there, motion along the track, and lets it settle.
    void place(const state& s, float seconds) const {
        lab_place_moving(flight_of(s), s.u[u_the], order_.turn_rate);
        set_controls(s.u[u_ptch], s.u[u_roll], s.u[u_hdng], order_.by_trims);
        lab_set_power(power_of(s));
        if (order_.lean) lab_lean_engines();
        lab_hold(seconds, settle_dt);
    }

    // In tolerances. Accelerations along, above and across the track, then about the three axes, then the
    // side wind.
    void residuals(const state& s, float* res) const {
        const flt_struct& f = flt[0];
        const float level_speed = order_.speed * cos_deg(gamma_of(s));
        const float to_centre = order_.turn_rate * con.degtorad * level_speed;
        const float sin_track = sin_deg(order_.track), cos_track = cos_deg(order_.track);
        const float along = f.ax * sin_track - f.az * cos_track;
        const float across = f.ax * cos_track + f.az * sin_track;
        res[0] = along / con.g / accel_tolerance;
        res[1] = f.ay / con.g / accel_tolerance;
        res[2] = (across - to_centre) / con.g / accel_tolerance;
        res[3] = f.Qdot / spin_tolerance;
        res[4] = f.Pdot / spin_tolerance;
        res[5] = f.Rdot / spin_tolerance;
        res[6] = (level_speed > slow ? f.beta : s.u[u_crab]) / beta_tolerance;
    }

    // One Newton step, by slopes from stirring each unknown. False when the slopes are no use.
    bool correct(state& s, const float* res) const {
        float slope[unknowns][unknowns + 1];
        const flt_struct before = flt[0];
        for (int j = 0; j < unknowns; ++j) {
            const bool is_gamma = j == u_power && power_given_;
            const float by = is_gamma ? gamma_stir : stir[j];
            state t = s;
            t.u[j] += t.u[j] + by > 1.0f && j >= u_power && !is_gamma ? -by : by;
            place(t, settle_seconds);
            float stirred[unknowns];
            residuals(t, stirred);
            for (int i = 0; i < unknowns; ++i) slope[i][j] = (stirred[i] - res[i]) / (t.u[j] - s.u[j]);
            flt[0] = before;
        }
        for (int i = 0; i < unknowns; ++i) slope[i][unknowns] = -res[i];
        if (!solve(slope)) return false;
        // all unknowns keep their proportions in a step that is cut short
        float cut = 1.0f;
        for (int j = 0; j < unknowns; ++j) {
            const float most = j == u_power && power_given_ ? gamma_longest : longest[j];
            cut = fltmin2(cut, most / fltmax2(fabsf(slope[j][unknowns]), 1e-9f));
        }
        for (int j = 0; j < unknowns; ++j) s.u[j] += cut * slope[j][unknowns];
        for (int j = u_ptch; j <= u_hdng; ++j) s.u[j] = fltlim(s.u[j], -1.0f, 1.0f);
        if (!power_given_) s.u[u_power] = fltlim(s.u[u_power], 0.0f, 1.0f);
        return true;
    }

    // Gauss with pivots; the last column becomes the solution.
    static bool solve(float (&a)[unknowns][unknowns + 1]) {
        for (int k = 0; k < unknowns; ++k) {
            int pivot = k;
            for (int i = k + 1; i < unknowns; ++i)
                if (fabsf(a[i][k]) > fabsf(a[pivot][k])) pivot = i;
            if (!(fabsf(a[pivot][k]) > 1e-6f)) return false;
            for (int j = 0; j <= unknowns; ++j) {
                const float t = a[k][j];
                a[k][j] = a[pivot][j];
                a[pivot][j] = t;
            }
            for (int i = 0; i < unknowns; ++i) {
                if (i == k) continue;
                const float by = a[i][k] / a[k][k];
                for (int j = k; j <= unknowns; ++j) a[i][j] -= by * a[k][j];
            }
        }
        for (int i = 0; i < unknowns; ++i) a[i][unknowns] /= a[i][i];
        return true;
    }

    lab_steady answer(const state& s, const float* res, float worst) const {
        lab_steady r{};
        r.at = flight_of(s);
        r.at.alpha = flt[0].alpha;
        r.at.beta = flt[0].beta;
        r.the = s.u[u_the];
        r.ptch = s.u[u_ptch];
        r.roll = s.u[u_roll];
        r.hdng = s.u[u_hdng];
        r.by_trims = order_.by_trims;
        r.power = power_of(s);
        r.power_given = power_given_;
        r.turn_rate = order_.turn_rate;
        r.worst = worst;
        for (int i = 0; i < unknowns; ++i) r.left[i] = res[i] * tolerance_of(i);
        return r;
    }

    lab_steady_order order_;
    bool power_given_;
};
}  // namespace

std::string lab_why_unsteady(const lab_steady& s) {
    if (s.found) return "";
    std::string why;
    const auto at_stop = [&why](const char* control, float value, float least) {
        if (value > 0.999f || value < least + 0.001f) why += std::string(control) + " at its stop, ";
    };
    at_stop("elevator", s.ptch, -1.0f);
    at_stop("aileron", s.roll, -1.0f);
    at_stop("rudder", s.hdng, -1.0f);
    if (!s.power_given) at_stop("power lever", s.power, 0.0f);
    int most = 0;
    for (int i = 1; i < unknowns; ++i)
        if (fabsf(s.left[i]) / tolerance_of(i) > fabsf(s.left[most]) / tolerance_of(most)) most = i;
    static const char* const names[unknowns] = {"g forward",
                                                "g upward",
                                                "g to the right",
                                                "deg/s2 nose up",
                                                "deg/s2 right wing down",
                                                "deg/s2 nose right",
                                                "degrees of sideslip"};
    char left[80];
    snprintf(left, sizeof left, "%+.3g %s left", static_cast<double>(s.left[most]), names[most]);
    return why + left;
}

lab_steady lab_find_steady(const lab_steady_order& order) { return steady_search(order).run(); }

void lab_fly_steady(const lab_steady& s) {
    lab_place_moving(s.at, s.the, s.turn_rate);
    set_controls(s.ptch, s.roll, s.hdng, s.by_trims);
    lab_set_power(s.power);
    lab_hold(20.0f, settle_dt);
}
