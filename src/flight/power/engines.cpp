// The engine step: fuel, combustion, density, temperatures, torque or spool, fuel flow, gauges, battery load.
#include "flight/power/engines.h"

#include "aircraft/design/exists.h"
#include "aircraft/systems/electrics.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "flight/force/trace.h"
#include "flight/power/engine_control.h"
#include "flight/power/levers.h"
#include "flight/power/thrust.h"
#include "flight/weapons/weapons.h"

namespace {
// What the steps of one engine hand on to each other.
struct engine_run {
    int en;
    const veh_engn_struct& kind;
    flt_engn_struct& now;
    float rpm_rat = 0.0f;                                     // engine speed over redline
    bool starting = false;                                    // the starter's switch is on
    bool got_milk = false;                                    // fuel reaches the engine
    float flow_rat = 0.0f, powr_rat = 0.0f, temp_rat = 0.0f;  // of fuel flow, power, temperature
    float throttle = 0.0f;                                    // with idle
    float star_torque_rat = 0.0f;
};

bool is_turbine_or_jet(int en) { return en_is_turbo(0, en) || en_is_jet(0, en); }
float lcl_T_fah() { return con.lcl_T_cel * 1.8f + 32.0f; }
void chase(float& value, float target, float rate) {
    value = closer_assymp(value, target, rate * mnw.prd_FM);
}
float within_one(float percent) { return fltlim(percent, -1.0f, 1.0f); }
float signcube(float x) { return x * x * x; }

// -- fuel
// Where an engine drinks from: a drop tank, a tank, or neither.
struct fuel_source {
    wpn_struct* drop_tank = nullptr;
    float* tank = nullptr;
    explicit operator bool() const { return drop_tank || tank; }
};

// The drop tank with the most fuel, the first of equals.
wpn_struct* fullest_drop_tank() {
    constexpr int type_drop_tank = 23;
    wpn_struct* best = nullptr;
    for (int i = 0; i < wattDIM; ++i) {
        wpn_struct& w = veh[0].wpn[i];
        if (w.type != type_drop_tank || !wpn_is_on_board(0, i) || !(w.fuel_warhead_mass_now > 0.0f)) continue;
        if (!best || w.fuel_warhead_mass_now > best->fuel_warhead_mass_now) best = &w;
    }
    return best;
}

// The selector: 1 to 3 name a tank, 4 is the fullest.
float* selected_tank() {
    constexpr int sel_fullest = 4;
    float* m_fuel = flt[0].m_fuel;
    int tank = stg.fuel_tank_sel - 1;
    if (stg.fuel_tank_sel == sel_fullest) {
        tank = 0;
        for (int i = 1; i < fuelDIM; ++i)
            if (m_fuel[i] > m_fuel[tank]) tank = i;
    }
    return intrange(tank, 0, fuelDIM - 1) && m_fuel[tank] > 0.0f ? &m_fuel[tank] : nullptr;
}

fuel_source find_fuel() {
    if (wpn_struct* drop = fullest_drop_tank()) return {drop, nullptr};
    return {nullptr, selected_tank()};
}

// One second's fuel comes off the source at once.
void take_fuel(const fuel_source& source, float FF_kgs) {
    if (source.drop_tank) {
        const float taken = fltmin2(FF_kgs, source.drop_tank->fuel_warhead_mass_now);
        source.drop_tank->fuel_warhead_mass_now -= taken;
        source.drop_tank->total_weapon_mass_now -= taken;
    } else {
        *source.tank = fltmax2(*source.tank - FF_kgs, 0.0f);
    }
}

bool feed(int en, int burn_fuel) {
    constexpr float mixt_cutoff = 0.025f;
    if (en_is_elec(0, en)) return true;
    if (!(flt[0].engn[en].mixt > mixt_cutoff)) return false;
    if (part_failed(0, fail_fuel_pump + en) && !stg.fuel_pump[en]) return false;
    const fuel_source source = find_fuel();
    if (!source) return false;
    if (burn_fuel && mnw.puff1) take_fuel(source, flt[0].engn[en].FF_kgs);
    return true;
}

// -- combustion
// As given: what a piston engine needs to fire (ratios of mixture, idle speed and ice); 1 percent of spool
// holds a flame.
void burn(engine_run& r) {
    flt_engn_struct& e = r.now;
    const int en = r.en;
    if (en_is_recip(0, en)) {
        // lights again by itself whenever the conditions return: a windmilling propeller restarts it
        e.burning_fuel = r.got_milk && e.ignition != 0 && !(e.carb_ice > 0.5f) &&
                         !(e.tacrad_ENGN < 0.25f * veh[0].RSC_idlespeed_ENGN) && !(e.mixt < e.sigma - 0.5f);
    } else if (is_turbine_or_jet(en)) {
        if (stg.igniter[en]) e.burning_fuel = 1;
        if (!r.got_milk) e.burning_fuel = 0;
        if ((en_is_turbo_free(0, en) ? e.N1 : e.N2) < 1.0f) e.burning_fuel = 0;
    } else {
        e.burning_fuel = r.got_milk;
    }
    if (part_failed(0, fail_engine + en) || part_failed(0, fail_eng_sep + en)) e.burning_fuel = 0;

    const float intro_time = en_is_prop(0, en) ? veh[0].fuel_intro_time_prop : veh[0].fuel_intro_time_jet;
    e.burning_rat =
        e.burning_fuel ? fltmin2(e.burning_rat + mnw.prd_FM / fltmax2(intro_time, divisor_min), 1.0f) : 0.0f;
}

// -- density ratio that the engine sees
// Over 1.225 kg/m3. As given: the ram of low and high bypass, and the loss beyond the inlet's Mach number.
// The shock is the density jump across a normal shock in air of gamma 1.4.
float jet_sigma(int en) {
    const float mach = flt[0].Mach, air = con.lcl_sig;
    float sigma = air + turbo_now(0.0f, veh[0].max_boost_pas_jet);
    if (veh[0].engn[en].engn_type == engn_jet_hi)
        sigma -= air * air * mach / 2.0f;
    else
        sigma += mach * air * 0.2f;
    // density rise over a normal shock
    if (mach > 1.0f) sigma *= 2.4f * mach * mach / (0.4f * mach * mach + 2.0f);
    const float mach_above_inlet = mach - veh[0].max_mach_eff;
    if (mach_above_inlet > 0.0f) sigma /= 5.0f * mach_above_inlet + 1.0f;
    return sigma;
}

// Over 1.225 kg/m3. As given: a tenth is lost to carburettor heat, .15 on one magneto.
float prop_sigma(int en) {
    constexpr float ram_per_pas = 7.401925e-06f;  // three quarters of the dynamic pressure, in atmospheres
    const flt_engn_struct& e = flt[0].engn[en];
    const float ramair_boost = flt[0].Qstatic * ram_per_pas;
    float sigma = con.lcl_sig + turbo_now(ramair_boost, veh[0].max_boost_pas_prop);
    if (veh[0].engn[en].engn_type == engn_recip_carb) sigma *= (1.0f - 0.1f * e.heat) * (1.0f - e.carb_ice);
    if (en_is_recip(0, en) && (e.ignition == 1 || e.ignition == 2)) sigma *= 0.85f;
    return sigma * fltlim(1.0f - flt[0].inlet_ice, 0.0f, 1.0f);
}

float engine_sigma(int en) {
    if (en_is_jet(0, en)) return fltmax2(jet_sigma(en), 0.0f);
    if (en_is_elec(0, en) || en_is_roc(0, en)) return 1.0f;
    return fltmax2(prop_sigma(en), 0.0f);
}

// Inches of mercury. As given: the temperature at sea level stands for the temperature here.
void manifold_pressure(engine_run& r) {
    flt_engn_struct& e = r.now;
    const float temp_rat = (con.sl_T_cel + 273.15f) * inv_T_sl_kel;
    const float engine_pressure_ratio = e.sigma * temp_rat;
    const float run_rat = fltlim(e.tacrad_ENGN / fltmax2(veh[0].RSC_idlespeed_ENGN, divisor_min), 0.0f, 1.0f);
    const float mpr_running =
        (0.3f + 0.7f * e.thro_use) * veh[0].MP_max * engine_pressure_ratio * (1.05f - 0.1f * r.rpm_rat);
    const float mpr_shut_down = con.lcl_P_pas * con.pasto_hg;
    chase(e.MPR, interp(0.0f, mpr_shut_down, 1.0f, mpr_running, run_rat), 1.0f);
}

// -- fuel ratios
// Mixture over best power, ratios. As given: best power leans with density and engine speed; power falls
// slowly on the rich side, with the square on the lean one; the temperature has its peak at best power.
void recip_ratios(engine_run& r) {
    flt_engn_struct& e = r.now;
    const float mix_max_powr = e.sigma - 0.4f + 0.2f * r.rpm_rat;
    if (veh[0].drive_by_wire_EQ) set_mixt(r.en, mix_max_powr);
    const float rich = e.mixt - mix_max_powr;
    const float off_powr = rich > 0.0f ? 0.1f * rich : 2.0f * rich * rich;
    const float off_temp = 0.4f * fabsf(rich);
    r.flow_rat = fltlim(rich + 1.0f, 0.0f, 2.0f);
    r.powr_rat = fltlim(1.0f - off_powr, 0.0f, 2.0f);
    r.temp_rat = fltlim(sqrtf(0.5f + 0.5f * e.thro_use) * (0.85f - off_temp), 0.0f, 2.0f);
}

// A hot start at low spool speed (percent), then the temperature of the torque, as ratios. As given, also the
// steep rise over the last tenth of the throttle.
void turbine_ratios(engine_run& r) {
    const flt_engn_struct& e = r.now;
    r.flow_rat = r.powr_rat = 1.0f;
    const float N_hot = en_is_turbo_free(0, r.en) ? e.N1 : e.N2;
    const float min_N_hot = en_is_turbo_fixed(0, r.en) ? 8.0f : 10.0f;
    r.temp_rat = fltlim(min_N_hot / fltmax2(N_hot, divisor_min), 0.0f, 2.0f);
    const float max_temp_rat_from_TRQ = fltlim(1.0f - r.temp_rat, 0.0f, 1.0f);
    float temp_rat_from_TRQ = 0.12f + 0.36f * e.thro_use - 0.15f * sqr(N_hot / 100.0f);
    if (e.thro_use > 0.9f) temp_rat_from_TRQ += 3.4f * (e.thro_use - 0.9f);
    r.temp_rat += fltlim(temp_rat_from_TRQ, 0.0f, max_temp_rat_from_TRQ);
}

void fuel_ratios(engine_run& r) {
    if (!r.now.burning_fuel) return;
    if (en_is_recip(0, r.en))
        recip_ratios(r);
    else if (is_turbine_or_jet(r.en))
        turbine_ratios(r);
    else
        r.flow_rat = r.powr_rat = r.temp_rat = 1.0f;
}

// As given: what the airstream takes from the cylinder temperature, deg F, is a sum of knots and metres per
// second.
float cooling_by_speed(const flt_engn_struct& e) {
    return flt[0].AV_sig_kts + e.DVinc - veh[0].V_ref_ms * con.msctokts;
}

// ITT in Celsius, the others in deg F whatever the gauge shows; they settle in 1, 100 and 50 s. As given:
// shares of the gauges' limits.
void temperatures(engine_run& r) {
    flt_engn_struct& e = r.now;
    const veh_struct& v = veh[0];
    float term_CHT = e.EGT / fltmax2(v.max_EGT, divisor_min) * v.max_CHT;
    if (en_is_prop(0, r.en)) term_CHT -= cooling_by_speed(e);
    term_CHT += con.sl_T_cel - 15.0f;
    term_CHT -= 50.0f * (e.cowl - 0.5f);
    const float term_OILT =
        v.max_OILT * e.CHT / fltmax2(fltmax2(con.lcl_sig, 0.01f) * v.max_CHT, divisor_min);
    chase(e.ITT, v.max_ITT * r.temp_rat + con.lcl_T_cel - 15.0f, 1.0f);
    chase(e.EGT, v.max_EGT * r.temp_rat + lcl_T_fah() - 59.0f, 1.0f);
    chase(e.CHT, lcl_T_fah() + term_CHT - 59.0f, 0.01f);
    chase(e.OILT, lcl_T_fah() + term_OILT - 59.0f, 0.02f);
}

// -- idle, starter and throttle
struct idle_and_starter {
    float idle, starter;
};
// Idle as a share of the throttle, the starter's torque over full torque. As given, by kind of engine.
idle_and_starter idle_of(int en) {
    const float ir = veh[0].idle_rat[stg.idle_speed[en] ? 1 : 0];
    switch (veh[0].engn[en].engn_type) {
        case engn_recip_carb:
        case engn_recip_inj:
            return {0.23f * ir, veh[0].trans_loss + 0.35f};
        case engn_turb_fixed:
            return {0.19f * ir, veh[0].trans_loss + 0.1f};
        case engn_turb_free:
            return {0.22f * ir, 0.05f};
        case engn_jet_lo:
        case engn_jet_hi:
            return {0.27f * ir, 0.1f};
        default:
            return {0.0f, 0.0f};
    }
}

// As given: by wire the throttle holds idle speed and redline with a gain of 5 per redline.
void throttle_and_starter(engine_run& r) {
    const veh_struct& v = veh[0];
    const flt_engn_struct& e = r.now;
    const idle_and_starter k = idle_of(r.en);
    r.throttle = k.idle + (1.0f - k.idle) * e.thro_use;
    if (v.drive_by_wire_EQ && en_is_prop(0, r.en)) {
        constexpr float gain = 5.0f;
        const float redline = fltmax2(v.RSC_redline_ENGN, 1.0f);
        if (e.tacrad_ENGN < v.RSC_idlespeed_ENGN)
            r.throttle += gain * (v.RSC_idlespeed_ENGN - e.tacrad_ENGN) / redline;
        else if (e.tacrad_ENGN > v.RSC_redline_ENGN)
            r.throttle -= gain * (e.tacrad_ENGN - v.RSC_redline_ENGN) / redline;
    }
    r.star_torque_rat = r.starting && esys_working() ? e.bat_volt * k.starter * v.starter_rat : 0.0f;
}

// -- spools and torque
// Moves a gas generator's spool, percent: demand of its fuel control, windmilling, friction, starter. As
// given: all torques are ratios, and 75 percent a second is the spool time's measure.
void turn_spool(const engine_run& r, float& N, float N_wind, float gliding_k) {
    const flt_engn_struct& e = r.now;
    const float fadec_N = 100.0f * signpow(e.burning_rat * r.throttle, 0.33f);
    const float Q_engine_rat = signsqr(N / 100.0f) * e.sigma;
    const float gliding_TRQ = fltmax2((flt[0].AV_msc * gliding_k - N_wind) * e.sigma * 0.015f, 0.0f);
    const float bearing_TRQ = within_one(N) * extrap(1.0f, 0.005f, 0.0f, 2.0f, e.oil_lube_rat);
    const float FADEC_TRQ = fltlim(0.1f * (fadec_N - N + 10.0f * r.throttle), 0.0f, 2.0f);
    N += (Q_engine_rat * FADEC_TRQ + gliding_TRQ - Q_engine_rat - bearing_TRQ + r.star_torque_rat) /
         fltmax2(veh[0].spool_time_jet, divisor_min) * mnw.prd_FM * 75.0f;
}

// As given: the fan turns with the cube of the core.
void jet_spools(engine_run& r) {
    const bool high_bypass = veh[0].engn[r.en].engn_type == engn_jet_hi;
    turn_spool(r, r.now.N2, r.now.N1, high_bypass ? 0.15f : 0.05f);
    r.now.N1 = 100.0f * signcube(r.now.N2 / 100.0f);
}

// As given, over full torque: gas power with the cube of its spool, less half the cube of the output speed.
void free_turbine_torque(engine_run& r) {
    flt_engn_struct& e = r.now;
    turn_spool(r, e.N1, e.N1, 0.25f);
    e.N2 = 100.0f * r.rpm_rat;
    e.TRQ_nm = e.sigma *
               (1.51f * signcube(e.N1 / 100.0f) - 0.5f * signcube(r.rpm_rat) -
                0.01f * within_one(100.0f * r.rpm_rat)) *
               veh[0].trq_max_eng;
}

// Cylinders shake a slow engine, over full torque. As given: the angle is turned to radians and then by two
// pi more.
float compression_torque(const flt_engn_struct& e) {
    const float strength = interp(0.0f, 0.2f, veh[0].RSC_idlespeed_ENGN, 0.0f, e.tacrad_ENGN);
    return sinf(con.pim2 * (e.prop_ang_deg * con.degtorad)) * strength;
}

// Engines whose torque comes straight to the shaft; ratios to full torque. As given: the fifth root about
// redline, friction, pumping; a dry engine drags with ten times its speed ratio.
void shaft_torque(engine_run& r) {
    flt_engn_struct& e = r.now;
    const float rpm_driv_rat = signpow(1.0f - fabsf(r.rpm_rat - 1.0f), 0.2f);
    const float friction = within_one(100.0f * r.rpm_rat);
    const float pumping = e.sigma * signsqr(r.rpm_rat);
    float driv_torque_rat, drag_torque_rat;
    if (en_is_recip(0, r.en)) {
        driv_torque_rat = 1.3f * rpm_driv_rat * r.throttle * r.powr_rat;
        drag_torque_rat = 0.15f * friction + 0.15f * pumping + compression_torque(e);
    } else if (en_is_turbo(0, r.en)) {
        driv_torque_rat = 1.25f * rpm_driv_rat * r.throttle * r.powr_rat;
        drag_torque_rat = 0.01f * friction + 0.24f * pumping;
    } else {
        driv_torque_rat = 1.01f * r.throttle * r.powr_rat;
        drag_torque_rat = 0.01f * friction;
    }
    drag_torque_rat += (1.0f - e.oil_lube_rat) * fltlim(100.0f * r.rpm_rat, -10.0f, 10.0f);
    e.N1 = e.N2 = fltmax2(100.0f * r.rpm_rat, 0.0f);
    e.TRQ_nm = (driv_torque_rat - drag_torque_rat + r.star_torque_rat) * veh[0].trq_max_eng;
}

void spools_and_torque(engine_run& r) {
    if (en_is_roc(0, r.en))
        r.now.N1 = r.now.N2 = 100.0f * signsqrt(r.now.thro_use) * r.powr_rat;
    else if (en_is_jet(0, r.en))
        jet_spools(r);
    else if (en_is_turbo_free(0, r.en))
        free_turbine_torque(r);
    else
        shaft_torque(r);
}

// -- fuel flow, gauges, battery
void fuel_flow(engine_run& r) {
    if (net.getting_FF) return;
    flt_engn_struct& e = r.now;
    float FF = 0.0f;
    if (r.got_milk) {
        const float pow_thr = en_is_prop(0, r.en)  ? e.power
                              : en_is_tip(0, r.en) ? get_rocket_thrust(r.en)
                                                   : e.thrust;
        FF = fuelburn_kgpersec(pow_thr, r.en) * r.flow_rat;
        if (en_is_tip(0, r.en)) FF *= r.kind.num_blades;
    }
    chase(e.FF_kgs, FF, 5.0f);
}

// As given: pressures go with the root of the pump's speed.
void oil_and_fuel_pressure(engine_run& r) {
    flt_engn_struct& e = r.now;
    constexpr float oil_lasts = 240.0f;  // s after the leak
    const float pump_rat = en_is_prop(0, r.en) ? r.rpm_rat : en_is_roc(0, r.en) ? 1.0f : e.N2 / 100.0f;
    const float pump = 0.5f * signsqrt(pump_rat);
    const bool leaking = part_failed(0, fail_oil + r.en);
    chase(e.FUELP, r.got_milk ? veh[0].max_FUELP * pump : 0.0f, 1.0f);
    chase(e.OILP, leaking ? 0.0f : veh[0].max_OILP * pump, 1.0f);
    e.oil_lube_rat = leaking ? fltmax2(e.oil_lube_rat - mnw.prd_FM / oil_lasts, 0.0f) : 1.0f;
}

// Sum of the consumers, shares of a full battery in 100 s. As given.
float bus_load(bool starting) {
    const flt_struct& f = flt[0];
    const struct {
        int on;
        float draw;
    } loads[] = {
        {1, 0.001f},
        {1, 0.005f},
        {stg.avionics, 0.001f},
        {stg.ice_all, 0.02f},
        {stg.ice_pitot_heat, 0.02f},
        {stg.ice_auto_ignite, 0.05f},
        {stg.ice_inlet_heat, 0.05f},
        {stg.ice_prop_heat, 0.05f},
        {stg.ice_surf_heat, 0.05f},
        {stg.ice_window_heat, 0.05f},
        {f.nav_lite, 0.005f},
        {f.bea_lite, 0.005f},
        {f.str_lite, 0.05f},
        {f.lan_lite, 0.05f},
        {f.tax_lite, 0.05f},
        {starting, 0.75f},
    };
    float sum = 0.0f;
    for (const auto& load : loads)
        if (load.on) sum += load.draw;
    return sum / fltmax2(veh[0].battery_rat, 0.01f);
}

void trace_engine(const engine_run& r) {
    const flt_engn_struct& e = r.now;
    trace_values("ENGINE", {{"number", static_cast<float>(r.en)},
                            {"sigma", e.sigma},
                            {"burning", e.burning_rat},
                            {"throttle", r.throttle},
                            {"N1", e.N1},
                            {"N2", e.N2},
                            {"torque N m", e.TRQ_nm},
                            {"fuel kg/s", e.FF_kgs}});
}
}  // namespace

// Atmospheres. As given: it fills up to sea level's density, and fades where the air is thinner than a tenth
// of that.
float turbo_now(float ramair_boost, float max_boost_pas) {
    constexpr float pas_to_atm = 9.869233e-06f;
    const float most = max_boost_pas * pas_to_atm + ramair_boost;
    const float boost = fltlim(1.0f - con.lcl_sig, ramair_boost, most);
    return boost * interp(0.0f, 0.0f, 0.1f, 1.0f, con.lcl_sig);
}

// kg/s. As given: idle's share by kind; turbines burn with the root of the density; a burner's share burns
// twice.
float fuelburn_kgpersec(float pow_thr, int en) {
    const veh_struct& v = veh[0];
    const flt_engn_struct& e = flt[0].engn[en];
    const float SFC = v.engn[en].SFC;
    if (en_is_elec(0, en)) return 0.0f;
    if (pow_thr < 0.0f) pow_thr = e.prop_mode == mode_reverse ? -pow_thr : 0.0f;

    const float full = en_is_prop(0, en) ? v.power_max : v.thrust_max;
    const float idle_share = en_is_recip(0, en)         ? 0.1f
                             : en_is_turbo_fixed(0, en) ? 0.18f
                             : en_is_roc(0, en)         ? 0.0f
                                                        : 0.2f;
    const float ff_kgsec_idle = idle_share * full * SFC * e.sigma * e.burning_rat;
    const float sigma_eff_mod = is_turbine_or_jet(en) ? sqrtf(e.sigma) : 1.0f;
    float ff_kgsec = ff_kgsec_idle + (SFC * pow_thr - e.thro_use * ff_kgsec_idle) * sigma_eff_mod;
    // the burner's share burns at twice the rate
    if (e.burner_on) ff_kgsec *= 1.0f + v.burner_inc / fltmax2(v.thrust_max + v.burner_inc, divisor_min);
    return ff_kgsec;
}

void init_engine_specs(int en, int burn_fuel) {
    flt_engn_struct& e = flt[0].engn[en];
    engine_run r{en, veh[0].engn[en], e};
    r.rpm_rat = e.tacrad_ENGN / fltmax2(veh[0].RSC_redline_ENGN, 1.0f);
    r.starting = stg.start_time[en] > mnw.totl_time;
    if (r.starting && e.ignition == 0) e.ignition = 3;

    r.got_milk = feed(en, burn_fuel);
    burn(r);
    e.sigma = engine_sigma(en);
    if (en_is_recip(0, en)) manifold_pressure(r);
    fuel_ratios(r);
    temperatures(r);
    r.flow_rat *= e.burning_rat;
    r.powr_rat *= e.burning_rat * e.sigma;

    throttle_and_starter(r);
    spools_and_torque(r);
    fuel_flow(r);
    oil_and_fuel_pressure(r);
    e.bat_amp = esys_working() && e.bat_volt > 0.0f ? -bus_load(r.starting) : 0.0f;

    check_val(e.N1);
    check_val(e.N2);
    check_val(e.TRQ_nm);
    check_val(e.FF_kgs);
    if (mnw.cyc_out) [[unlikely]]
        trace_engine(r);
}
