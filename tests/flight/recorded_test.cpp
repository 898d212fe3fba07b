// Short flights and what they came to, against tests/data/recorded: the user's aircraft from its controls to
// its instruments, the kinds of engines and discs, failures, weather. A change detector beside the
// references.
#include "recorded.h"

#include <math.h>
#include <string.h>

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "aircraft/deflect.h"
#include "app/lab/lab_steady.h"
#include "core/math/random.h"
#include "core/program/logs.h"
#include "core/program/seams.h"
#include "flight/fullsim.h"
#include "flight/mass_motion.h"
#include "flight/pilots/pilot_input.h"
#include "flight/power/engine_control.h"
#include "flight/slots.h"
#include "flying.h"
#include "random_aircraft.h"
#include "scenery/region/survey_land.h"
#include "weather/atmosphere.h"
#include "weather/weather_step.h"
#include "weather/wind.h"

namespace {
// Fields of one unit, and from where on they count in proportion.
template <class record>
struct group {
    const char* unit;
    double size;
    std::vector<std::pair<const char*, float record::*>> fields;
};

// clang-format off
#define F(name) {#name, &flt_struct::name}
#define E(name) {#name, &flt_engn_struct::name}
#define G(name) {#name, &flt_gear_struct::name}
#define W(name) {#name, &flt_wing_struct::name}
const std::vector<group<flt_struct>> of_aircraft = {
    {"-", 0.1, {F(FC_ptch), F(FC_roll), F(FC_hdng), F(sbrk_rqst), F(sbrk_rat),
        F(swdi_rqst), F(swdi_rat), F(vect_rqst),
        F(handle_rat_req), F(handle_rat_act), F(slat_rat), F(fla1_rat), F(fla2_rat), F(vect_rat),
        F(elev_trim), F(ailn_trim), F(rudd_trim), F(disp_rat), F(blown_flap_engage_rat), F(Mach), F(C_m),
        F(C_n), F(cl_overall), F(cd_overall), F(l_o_d)}},
    {"N", 100.0, {F(lift_path_axis), F(drag_path_axis), F(side_path_axis), F(fside_prop_acf),
        F(fnrml_prop_acf), F(faxil_prop_acf), F(fside_aero_acf), F(fnrml_aero_acf), F(faxil_aero_acf)}},
    {"N_m", 300.0, {F(L), F(M), F(N)}},
    {"deg/s2", 3.0, {F(Pdot), F(Qdot), F(Rdot)}},
    {"deg/s", 1.0, {F(P), F(Q), F(R)}},
    {"rad/s", 0.02, {F(Prad), F(Qrad), F(Rrad)}},
    {"deg", 1.0, {F(phi), F(the), F(psi), F(alpha), F(beta), F(h_path), F(v_path), F(stab_def),
        F(psi_mag_act), F(TR_roll_ind_deg), F(TR_hdng_ind_deg), F(slip_ind_deg), F(com_ind_mag)}},
    {"m/s", 1.0, {F(vx), F(vy), F(vz), F(vx_air_on_acf), F(vy_air_on_acf), F(vz_air_on_acf),
        F(vx_acf_axis), F(vy_acf_axis), F(vz_acf_axis), F(V_msc), F(AV_msc)}},
    {"g", 0.1, {F(g_nrml), F(g_axil), F(g_side), F(g_total)}},
    {"kt", 0.1, {F(AV_sig_kts), F(v_ind_kts)}},
    {"Pa", 1.0, {F(Qstatic)}},
    {"ft/min", 10.0, {F(Vh_fpm), F(vvi_ind_fpm)}},
    {"ft", 1.0, {F(h_ind_ft)}},
    {"m", 0.1, {F(y_agl_mtr), F(terrain_y_cg)}},
    {"kg", 1.0, {F(m_total), F(m_jettison)}},
    {"kg_m2", 1.0, {F(Jxx_total), F(Jyy_total), F(Jzz_total)}},
    {"W", 10.0, {F(lift_fan_total_power), F(pre_rot_total_power)}},
    {"s", 0.1, {F(jato_left)}},
};
const std::vector<group<flt_engn_struct>> of_engines = {
    {"deg", 1.0, {E(vert_nace_vector), E(vert_disc_vector), E(vert_disc_cyclic), E(side_disc_cyclic),
        E(cyclic_elev_command), E(cyclic_ailn_command), E(cyclic_elev_blad_alph), E(cyclic_ailn_blad_alph),
        E(cyclic_elev_disc_tilt), E(cyclic_ailn_disc_tilt), E(pitch_deg_ref), E(pitch_deg_use)}},
    {"-", 0.01, {E(thro_ref), E(thro_use), E(mixt), E(heat), E(burning_rat), E(burner_rat), E(EPR),
        E(sigma), E(oil_lube_rat), E(prop_eff), E(bat_amp)}},
    {"percent", 0.1, {E(N1), E(N2)}},
    {"gauge", 0.1, {E(MPR), E(ITT), E(EGT), E(CHT), E(FUELP), E(OILP), E(OILT)}},
    {"N_m", 1.0, {E(TRQ_nm), E(drag_TRQ)}},
    {"kg/s", 1e-6, {E(FF_kgs)}},
    {"W", 100.0, {E(power)}},
    {"N", 10.0, {E(thrust)}},
    {"m/s", 0.01, {E(side_wash), E(DVinc)}},
    {"rad", 0.001, {E(cone_rad)}},
    {"rad/s", 0.01, {E(prop_rsc), E(tacrad_ENGN), E(tacrad_PROP), E(Q_rotor_rad), E(R_rotor_rad)}},
    {"rad/s2", 1.0, {E(omegadot_ENGN), E(omegadot_PROP)}},
};
const std::vector<group<flt_wing_struct>> of_parts = {
    {"deg", 0.1, {W(ail1_def), W(ail2_def), W(spo1_def), W(spo2_def), W(yawb_def), W(elev_def),
        W(rud1_def), W(rud2_def), W(fla1_def), W(fla2_def)}},
    {"N", 100.0, {W(nrml_force_path), W(axil_force_path)}},
    {"-", 0.01, {W(CL_grndeffect), W(CD_grndeffect)}},
};
const std::vector<group<flt_gear_struct>> of_legs = {
    {"-", 0.01, {G(tire_TRQ), G(tire_vrt_def_veh), G(tire_vrt_frc_veh), G(tire_skid_rat), G(tire_drag_dis),
        G(tire_omega), G(tire_rot_deg), G(tire_steer), G(gear_psi), G(gear_the), G(gear_phi)}},
};
#undef F
#undef E
#undef W
#undef G
// clang-format on

// A field of some records, each with a weight of its own, so that no two can stand for each other.
template <class record>
void sum_up(test::recorded& r, const std::vector<group<record>>& groups, const record* of, int count,
            double step) {
    for (const auto& g : groups)
        for (const auto& [name, field] : g.fields) {
            double sum = 0.0;
            for (int i = 0; i < count; ++i) sum += (1.0 + step * i) * of[i].*field;
            r.value(name, g.unit, sum, g.size);
        }
}

void sample(test::recorded& r, const std::string& label, int p = 0) {
    const flt_struct& f = flt[p];
    r.column(label);
    sum_up(r, of_aircraft, &f, 1, 0.0);
    sum_up(r, of_engines, f.engn, engnDIM, 1.0);
    sum_up(r, of_parts, f.wing, wingDIM, 0.1);
    sum_up(r, of_legs, f.gear, gearDIM, 0.1);
    double modes = 0.0, rings = 0.0, places = 0.0;
    for (int en = 0; en < engnDIM; ++en) {
        const flt_engn_struct& e = f.engn[en];
        modes += (en + 1) * (e.ignition + 10 * e.prop_mode + 100 * e.burning_fuel + 1000 * e.burner_on +
                             10000 * stg.idle_speed[en]);
        for (int el = 0; el < elDIM; ++el) rings += (en + 1) * (el + 1) * e.RING_DVinc[el];
        for (int i = 0; i < 3; ++i) places += (en + 1) * (i + 1) * e.XYZ[i];
    }
    double v = 0.0, alpha = 0.0, wash = 0.0, turn = 0.0, uneven = 0.0, stalled = 0.0, inc = 0.0,
           force[3] = {};
    for (int en = 0; en < wingDIM; ++en) {
        const flt_wing_struct& w = f.wing[en];
        stalled += (en + 1) * w.stalled;
        for (int bld = 0; bld < bladDIM; ++bld)
            uneven += (bld + 1) * (1.0 + 0.1 * en) * (1.0 - w.Q_centroid_loc[bld]);
        for (int el = 0; el < elDIM; ++el) {
            const double weight = (1.0 + 0.1 * en) * (1.0 + 0.1 * el);
            wash += weight * w.downwash_deg[el];
            inc += weight * w.elem_inc_inc[el];
            for (int i = 0; i < 3; ++i) force[i] += weight * w.force_XYZ[el][i];
            for (int bld = 0; bld < bladDIM; ++bld) {
                v += (bld + 1) * weight * w.v_el[el][bld];
                alpha += (bld + 1) * weight * w.alpha_el[el][bld];
                turn += (bld + 1) * weight * w.del_dir[el][bld];
            }
        }
    }
    const double fuel = f.m_fuel[0] + 2.0 * f.m_fuel[1] + 3.0 * f.m_fuel[2];
    const int warnings = f.stall_warning + 2 * stg.BB_pullup + 4 * stg.BB_sinkrate + 8 * stg.BB_gear;
    const long failures = std::count(f.fail_stat, f.fail_stat + failDIM, fail_active);
    // clang-format off
    const struct { const char* name; const char* unit; double v, size; } others[] = {
        {"dob_x", "m", f.dob_x, 0.1}, {"dob_ele", "m", f.dob_ele, 0.1}, {"dob_z", "m", f.dob_z, 0.1},
        {"fuel", "kg", fuel, 1}, {"failures", "count", 1.0 * failures, 1}, {"warnings", "flags", 1.0 * warnings, 1},
        {"engine_modes", "flags", modes, 1}, {"RING_DVinc", "m/s", rings, 0.1}, {"engine_XYZ", "m", places, 0.1},
        {"v_el", "m/s", v, 10}, {"alpha_el", "deg", alpha, 30}, {"downwash_deg", "deg", wash, 0.1},
        {"del_dir", "deg", turn, 30}, {"Q_centroid_loc", "-", uneven, 0.01}, {"stalled", "flags", stalled, 1},
        {"elem_inc_inc", "deg", inc, 0.1}, {"force_X", "N", force[0], 100}, {"force_Y", "N", force[1], 100},
        {"force_Z", "N", force[2], 100}, {"clutches", "-", stg.clutch_rat[0] + 2.0 * stg.clutch_rat[1], 0.01},
        {"brakes", "-", stg.l_brake_add + 2.0 * stg.r_brake_add, 0.01},
        {"gyros", "-", f.gyro_force[0] + 2.0 * f.gyro_force[1] + f.dg_drift[0], 0.001},
    };
    // clang-format on
    for (const auto& other : others) r.value(other.name, other.unit, other.v, other.size);
}

// -- random aircraft, their engines, switches and failures

// clang-format off
struct draw_range { const char* names; double lo, hi; };
const draw_range power_ranges[] = {  // in the units of the file
    {"linked_prop_EQ drive_by_wire_EQ beta_prop_EQ rev_thrust_EQ auto_feather_EQ feather_with_prop_EQ vect_EQ "
     "auto_rpm_with_tvec jett_is_slung phase_ptch_tvect_in_at_90 phase_ptch_tvect_in_at_00 warn1_EQ warn2_EQ "
     "phase_roll_tvect_in_at_90 phase_roll_tvect_in_at_00 phase_hdng_tvect_in_at_90 phase_hdng_tvect_in_at_00",
     0, 1},
    {"power_max thrust_max rock_max_sl rock_max_opt rock_max_vac jato_thrust puff_LMN puff_xyz", 100, 1500},
    {"burner_inc", -200, 800}, {"MP_max", 25, 40}, {"flap_arm vectarmY vectarmZ", -1, 1},
    {"RSC_idlespeed_ENGN RSC_mingreen_ENGN", 500, 900}, {"RSC_redline_ENGN RSC_maxgreen_ENGN", 2000, 4000},
    {"max_ITT max_EGT max_CHT max_OILP max_OILT max_FUELP", 50, 900},
    {"crit_alt_prop crit_alt_jet rock_h_opt", 0, 30000}, {"m_displaced mass_shift", 0, 500},
    {"trans_loss elev_tab ailn_tab rudd_tab mass_shift_dx", -0.05, 0.1}, {"reversed_pitch", -30, -5},
    {"lift_fan_rat blown_flap_throt_red tip_mach_des_100 tip_mach_des_50 idle_rat face_jet starter_rat battery_rat "
     "rudd_with_ailn_rat elev_with_flap_rat diff_thro_ptch diff_thro_roll diff_thro_hdng", 0.1, 0.9},
    {"throt_max_FWD throt_max_REV max_mach_eff spool_time_jet fuel_intro_time_prop fuel_intro_time_jet "
     "throt_time_prop throt_time_jet inertia_rat_prop rotor_mi_rat tip_weight mass_shift_dz m_displaced_Y jato_sfc",
     0.5, 3},
    {"cyclic_def_elev cyclic_def_ailn disc_tilt_elev disc_tilt_ailn", -6, 8}, {"feathered_pitch jato_theta", 60, 90},
    {"delta3 tvec_ptch tvec_roll tvec_hdng diff_coll_with_roll diff_coll_with_hdng diff_coll_with_ptch tail_with_coll "
     "diff_cycl_with_hdng_lon diff_cycl_with_hdng_lat rotor_trim_max_fwd rotor_trim_max_aft", -5, 9},
};
const draw_range engine_ranges[] = {
    {"engn_type", 0, engn_kinds - 1}, {"SFC", 0.3, 0.9}, {"prop_clutch_EQ", 0, 1}, {"prop_gear_rat", 0.8, 6},
    {"num_blades", 2, 5}, {"min_pitch", 0, 12}, {"max_pitch", 20, 40}, {"bladesweep", 0, 25},
};
const draw_range blade_ranges[] = {{"incidence", -3, 10}, {"inc_vect", 0, 1}};
// clang-format on

void draw_power() {
    for (const draw_range& r : power_ranges) test::draw(veh_block_list(), &veh[0], r.names, r.lo, r.hi);
    for (int en = 0; en < veh[0].num_thrustpoints; ++en) {
        for (const draw_range& r : engine_ranges)
            test::draw(veh_engn_list(), &veh[0].engn[en], r.names, r.lo, r.hi);
        for (const draw_range& r : blade_ranges)
            test::draw(veh_wing_list(), &veh[0].wing[en], r.names, r.lo, r.hi);
    }
}

void spread(double lo, double hi, std::initializer_list<float*> values) {
    for (float* v : values) *v = test::any(lo, hi);
}

// Half of them off.
template <class... flags>
void toss(flags&... flag) {
    ((flag = test::chance(0.5)), ...);
}

void draw_engine_state() {
    using test::any;
    flt_struct& f = flt[0];
    veh_struct& v = veh[0];
    toss(v.has_idlespeed, v.has_clutch_switch, v.has_FADEC_switch, v.has_pre_rotate, v.collective_EQ);
    toss(stg.battery, stg.avionics, stg.inverter[0], stg.inverter[1], stg.puffers_on, stg.prop_sync_on,
         stg.jato_on, stg.pre_rotating, stg.pre_rotate_level, stg.clutch_trq_engag, stg.ice_all,
         stg.ice_pitot_heat, stg.ice_auto_ignite, stg.ice_inlet_heat, stg.ice_prop_heat, stg.ice_surf_heat,
         stg.ice_window_heat, f.nav_lite, f.bea_lite, f.str_lite, f.lan_lite, f.tax_lite, f.gear_handle,
         stg.warn_bb);
    stg.feather_mode = test::whole(0, 2);
    stg.fuel_tank_sel = test::whole(0, 4);
    f.rocket_mode = test::whole(401, 408);
    f.rocket_timeout = f.prop_ospeed_test_timeout = test::chance(0.5) ? 1e6f : -1.0f;
    for (float* rat : {&f.prop_ice, &f.inlet_ice, &f.pitot_ice, &f.jato_left})
        *rat = test::chance(0.5) ? any(0, 0.5) : 0;
    spread(0, 1, {&f.disp_rat, &f.rotr_trim, &f.ailn_trim, &f.rudd_trim, &f.handle_rat_act, &f.vacuum});
    f.handle_rat_req = f.handle_rat_act;
    for (float& m : f.m_fuel) m = test::chance(0.2) ? 0 : any(1, 90);
    spread(0, 200, {&f.m_fixed, &f.m_jettison});
    spread(-0.2, 0.2, {&f.cgz_ref_to_default});
    for (int slot : {1, 3, 4, 6, 31, 44, 48, 49, 50, 52, 53})
        if (test::chance(0.1)) f.fail_stat[slot] = fail_active;
    for (int station : {0, 5}) {
        v.wpn[station].type = test::chance(0.3) ? 23 : 0;
        v.wpn[station].fuel_warhead_mass_now = any(1, 40);
        v.wpn[station].total_weapon_mass_now = 50;
        snprintf(v.watt[station].watt_name, sizeof v.watt[station].watt_name, "%s",
                 test::chance(0.5) ? "tank" : "");
        v.watt[station].watt_x = any(-3, 3);
        v.wpn[station].added_mass = any(0, 20);
    }
    for (int en = 0; en < v.num_thrustpoints; ++en) {
        flt_engn_struct& e = f.engn[en];
        toss(stg.igniter[en], stg.fuel_pump[en], stg.fadec_on[en], stg.generator[en], e.burning_fuel,
             stg.idle_speed[en]);
        stg.start_time[en] = test::chance(0.3) ? 1e6f : -1.0f;
        stg.clutch_rat[en] = test::chance(0.5) ? 1 : any(0, 1);
        for (int slot : {54, 62, 70, 78, 102, 110, 126})
            if (test::chance(0.08)) f.fail_stat[slot + en] = fail_active;
        e.tacrad_PROP = any(0.05, 1.2) * v.RSC_redline_ENGN / v.engn[en].prop_gear_rat;
        e.tacrad_ENGN = e.tacrad_PROP * v.engn[en].prop_gear_rat * any(0.95, 1.05);
        e.prop_rsc = any(v.RSC_mingreen_PROP, v.RSC_redline_PROP);
        e.prop_mode = test::whole(0, 3);
        e.ignition = test::whole(0, 3);
        e.pitch_deg_ref = any(v.engn[en].min_pitch, v.engn[en].max_pitch);
        e.thro_ref = test::chance(0.4) ? 1 : any(0, 1);
        e.thro_use = e.thro_ref;
        e.N1 = e.N2 = test::chance(0.4) ? any(96, 105) : any(0, 105);
        e.carb_ice = test::chance(0.3) ? any(0, 0.6) : 0;
        spread(0, 1, {&e.mixt, &e.heat, &e.cowl, &e.burning_rat, &e.oil_lube_rat, &e.burner_rat});
        spread(0, 300,
               {&e.ITT, &e.EGT, &e.CHT, &e.OILT, &e.OILP, &e.FUELP, &e.MPR, &e.drag_TRQ, &e.prop_ang_deg});
        spread(0, 0.05, {&e.FF_kgs});
        spread(0, 3000, {&e.thrust});
        spread(-0.3, 0.3, {&e.Q_rotor_rad, &e.R_rotor_rad});
        for (float& ring : e.RING_DVinc) ring = any(0, 25);
    }
}

// One frame of the user's flight, as the program runs it.
void step(float dt) {
    mnw.prd_FM = dt;
    mnw.totl_time += dt;
    weather_step();
    local_air_step();
    update_with_fullsim1(0);
    update_def_angles(0);
    update_with_fullsim2(0);
}

class random_flight : public ::testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(recorded, random_flight, ::testing::Range(0, 6));

TEST_P(random_flight, comes_to_what_it_came_to) {
    test::recorded r("flight_random_" + std::to_string(GetParam()));
    const auto names = test::aircraft_names();
    for (size_t i = 0; i < names.size(); ++i) {
        const auto base = test::as_designed(names[i]);
        for (int k = 0; k < 4; ++k) {
            const unsigned seed = 100 * GetParam() + 10 * i + k;
            test::dice.seed(seed);
            const auto design = std::make_unique<veh_struct>(*base);
            design->num_engines = test::whole(1, 3);
            design->num_thrustpoints = design->num_engines + test::whole(0, 1);
            test::draw_aircraft(*design, draw_power);
            test::draw_state();
            draw_engine_state();
            for (int frame = 0; frame < 4; ++frame) {
                mnw.puff1 = mnw.puff05 = frame == 1;
                step(1.0f / 64.0f);
            }
            sample(r, names[i].substr(0, 4) + std::to_string(seed));
        }
    }
}

// -- the content's aircraft under a moving hand

void place(float speed, float alpha = 2.0f, float altitude = 1000.0f, float beta = 0.0f) {
    lab_place({.speed = speed, .altitude = altitude, .alpha = alpha, .beta = beta, .psi = 40.0f});
}

// Every control swings at a pace of its own.
void fly_sweeping(float seconds) {
    const auto wave = [](float t, float period) { return sinf(con.pim2 * t / period); };
    for (int i = 0; i < lroundf(seconds * 64.0f); ++i) {
        const float t = i / 64.0f;
        mnw.YK_ptch = 0.7f * wave(t, 1.3f);
        mnw.YK_roll = 0.8f * wave(t, 0.9f);
        mnw.YK_hdng = 0.9f * wave(t, 1.7f);
        lab_set_power(0.6f + 0.4f * wave(t, 2.1f));
        flt[0].handle_rat_req = flt[0].sbrk_rqst = 0.5f + 0.5f * wave(t, 2.9f);
        flt[0].elev_trim = 0.2f * wave(t, 1.1f);
        flt[0].gear_handle = t < 0.5f * seconds;
        lab_frame(1.0f / 64.0f);
    }
}

class content_flight : public ::testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(recorded, content_flight, ::testing::ValuesIn(test::aircraft_names()),
                         [](const auto& info) { return info.param.substr(0, 4); });

TEST_P(content_flight, comes_to_what_it_came_to) {
    // seconds under a moving hand grow what another mathematical library rounds
    test::recorded r("flight_" + GetParam().substr(0, 4), 1e-3);
    test::fly_aircraft(GetParam());
    stg.reset_on_crash = 0;
    place(60.0f);
    fly_sweeping(1.5f);
    sample(r, "sweep");
    fly_sweeping(1.0f);
    sample(r, "goes_on");
    std::fill_n(atm.set_wind_spd_kts, 3, 25.0f);
    std::fill_n(atm.set_turb_inc, 3, 6.0f);
    std::fill_n(atm.set_shear_spd_kts, 3, 12.0f);
    std::fill_n(atm.set_shear_dir, 3, 20.0f);
    place(45.0f, 4.0f, 300.0f);
    fly_sweeping(2.0f);
    sample(r, "turbulent");
    atm.burst_prob = 1.0f;
    rand_seed(5);
    place(40.0f, 14.0f, 60.0f, 8.0f);
    flt[0].vy -= 25.0f;
    stg.warn_bb = veh[0].warn1_EQ = 1;
    fly_sweeping(1.0f);
    sample(r, "sinking");
    lab_still_air();
    place(35.0f, 25.0f);
    mnw.YK_ptch = 1.0f;
    mnw.YK_roll = 0.0f;
    mnw.YK_hdng = -1.0f;
    test::run_frames(2.5f);
    sample(r, "stalled");
    place(veh[0].collective_EQ ? 90.0f : 330.0f, 1.0f, 9000.0f, 3.0f);
    fly_sweeping(0.3f);
    sample(r, "too_fast");
    place(55.0f);
    for (int slot : {fail_L_flp + 0, fail_slat + 0, fail_wing1_left + 1, fail_ss_tsi + 0, fail_ss_vvi + 0,
                     fail_throttle + 0})
        flt[0].fail_stat[slot] = fail_active;
    flt[0].frame_ice = 0.3f;
    fly_sweeping(1.0f);
    sample(r, "broken");
}

TEST(recorded_flight, engines_start_run_dry_and_stop) {
    test::recorded r("flight_engines");
    for (const std::string& name : test::aircraft_names()) {
        test::fly_aircraft(name);
        if (veh[0].num_engines == 0) continue;
        place(20.0f, 0.0f, 100.0f);
        for (flt_engn_struct& e : flt[0].engn) e.cyclic_elev_disc_tilt = e.cyclic_ailn_disc_tilt = 1.0f;
        cold_engines();
        const std::string label = name.substr(0, 4);
        sample(r, label + "_cold");
        for (int i = 0; i < 300; ++i) {
            lab_start_engines();
            lab_hold(1.0f / 64.0f);
        }
        sample(r, label + "_start");
        lab_set_power(0.8f);
        flt[0].m_fuel[0] = 0.01f;
        stg.fuel_tank_sel = 1;
        flt[0].fail_stat[fail_oil] = fail_active;
        lab_hold(4.0f);
        sample(r, label + "_dry");
    }
}

// -- what else moves the user's aircraft

TEST(recorded_flight, axes_and_levers_reach_what_they_move) {
    test::recorded r("flight_levers");
    const auto with = [&](const std::string& label, const char* name, const std::function<void()>& change) {
        test::fly_aircraft(name);
        memset(mnw.joy_AXIS_use, 0, sizeof mnw.joy_AXIS_use);
        for (int use = 0; use < joy_useDIM; ++use) {
            mnw.assigned[use] = use != axis_coll && use != axis_sbrk && use < axis_thro_1;
            mnw.axis[use] = 0.9f - 0.03f * use;
        }
        change();
        mnw.prd_FM = 0.02f;
        update_with_fullsim1(0);
        sample(r, label);
    };
    with("trainer", "Wren 160", [] {});
    with("each", "Dunlin 400", [] {
        for (int use = axis_thro_1; use < joy_useDIM; ++use) mnw.assigned[use] = 1;
        flt[0].engn[1].prop_mode = 3;
        veh[0].throt_max_REV = 0.5f;
    });
    with("none", "Dunlin 400", [] { memset(mnw.assigned, 0, sizeof mnw.assigned); });
    with("one_lever", "Dunlin 400", [] {
        veh[0].auto_rpm_EQ = 1;
        veh[0].auto_omega_idle = 0.5f * veh[0].RSC_redline_PROP;
        veh[0].auto_omega_open = 0.9f * veh[0].RSC_redline_PROP;
        veh[0].auto_omega_fire = 0.95f * veh[0].RSC_redline_PROP;
    });
    with("glider", "Lark 15", [] {});
    with("glider_stick", "Lark 15", [] { mnw.joy_AXIS_use[3] = axis_sbrk; });
    with("rocket", "Wren 160", [] {
        veh[0].engn[0].engn_type = engn_rocket;
        veh[0].m_fuel_tot = 0.0f;
        veh[0].sbrk_EQ = 1;
    });
    with("helicopter", "Plover 420", [] {});
    with("coll_axis", "Plover 420", [] {
        mnw.joy_AXIS_use[2] = axis_coll;
        mnw.assigned[axis_coll] = 1;
        mnw.axis[axis_coll] = 0.25f;  // the upper quarter: the axis comes reversed
    });
    with("network", "Wren 160", [] { net.getting_ptch = net.getting_roll = net.getting_hdng = 1; });
    with("raw", "Wren 160", [] { net.getting_rawjoy = net.getting_prop = 1; });
    with("autothrottle", "Shearwater 870", [] {
        nav.mode_thro = otto_thro_speed;
        nav.mode_fdir = 1;
        stg.battery = stg.inverter[0] = 1;
    });
}

TEST(recorded_flight, the_ai_takes_off_cruises_and_starts_anew) {
    test::recorded r("flight_ai");
    const auto ai = [&](const std::string& label, const char* name, const std::function<void()>& change) {
        test::fly_aircraft(name);
        msc.ai_flys = 1;
        nav.mode_thro = nav.mode_alt_ = nav.mode_hdng = otto_off;
        place(60.0f, 3.0f);
        change();
        test::run_frames(0.5f);
        sample(r, label);
        r.value("speed_aim", "kt", nav.asi_hold_kts_mac, 1.0);
        r.value("heading_aim", "deg", nav.hdg_hold_mag, 1.0);
        r.value("climb_aim", "ft/min", nav.vvi_hold_fpm, 1.0);
        r.value("height_aim", "ft", nav.alt_hold_ft_use + 3.0f * nav.alt_hold_ft_dial, 1.0);
        r.value("modes", "kinds",
                nav.mode_thro + 100 * nav.mode_alt_ + 10000 * nav.mode_hdng + nav.syn_hold_deg, 1.0);
        r.value("start", "s", mnw.miss_time, 0.01);
    };
    ai("runway", "Wren 160", [] { place(20.0f, 0.0f, 3.0f); });
    ai("backwards", "Wren 160", [] {
        place(20.0f, 0.0f, 3.0f);
        msc.backwards = 1;
        env.mag_var = 10.0f;
    });
    ai("cruise", "Dunlin 400", [] {});
    ai("just_off", "Wren 160", [] { place(45.0f, 3.0f, 15.0f); });
    ai("slow_climb", "Wren 160", [] {
        place(1.2f * veh[0].V_ref_ms, 5.0f, 80.0f);
        flt[0].Vh_fpm = 500.0f;
        flt[0].engn[0].thro_use = flt[0].engn[0].thro_ref = 1.0f;
    });
    ai("new_aims", "Wren 160", [] { mnw.totl_time = 1000.0f; });
    ai("low", "Dunlin 400", [] { place(60.0f, 3.0f, 450.0f); });
    ai("helicopter", "Plover 420", [] {});
    ai("broken", "Wren 160", [] { flt[0].fail_stat[fail_vacuum] = fail_active; });
    ai("dry", "Wren 160", [] {
        for (float& m : flt[0].m_fuel) m = 0.0f;
    });
    ai("on_its_back", "Wren 160", [] { lab_place({.speed = 0.0f, .altitude = 500.0f, .phi = 170.0f}); });
}

TEST(recorded_flight, odd_motions_of_the_user) {
    test::recorded r("flight_motions");
    const auto after = [&](const std::string& label, float seconds, const std::function<void()>& change) {
        test::fly_aircraft("Wren 160");
        lab_set_power(0.7f);
        place(50.0f);
        change();
        test::run_frames(seconds);
        sample(r, label);
    };
    after("kicked", 0.05f, [] { msc.stab_ptch_test = msc.stab_hdng_test = 2; });
    for (const auto& [label, alph] : {std::pair("towed", 5.5f), {"off_line", 6.5f}})
        after(label, 0.0f, [alph = alph] {
            stg.tow_inprog = 1;
            flt[0].the = 3.0f;
            flt[1].the = 1.0f;
            flt[1].psi = flt[0].psi - 2.0f;
            env.tow_line_alph = alph;
            env.tow_line_beta = 3.0f;
            flt[0].Pdot = flt[0].Qdot = flt[0].Rdot = 0.0f;
            mnw.prd_FM = 0.02f;
            for (int i = 0; i < 300; ++i) tow_turbulence();
        });
    after("carried", 0.5f, [] {
        stg.car_inprog = 1;
        flt[1] = flt[0];
        flt[1].vz = -70.0f;
        flt[1].psi = 50.0f;
        for (int i = 0; i < 3; ++i) veh[1].jett_xyz[i] = 1.0f + i, veh[0].jett_xyz[i] = 0.5f * i;
    });
    after("damped", 0.5f, [] { mnw.damp_rat[0] = 0.3f, mnw.damp_rat[1] = 0.2f, mnw.damp_rat[2] = 0.4f; });
    after("crashed", 0.5f, [] {
        msc.crash_damp_timeout = 1e6f;
        flt[0].R = 20.0f;
    });
    after("chute", 0.5f, [] {
        veh[0].chute_area = 5.0f;
        veh[0].chute_Y = 0.5f;
        stg.chute_on = 1;
        stg.chute_deploy_rat = 1.0f;
        flt[0].P = 30.0f;
    });
    after("on_mars", 0.5f, [] {
        env.planet = 1;
        set_planet_specs(1);
        stand_on_survey_land();
        place(150.0f);
    });
    for (const auto& [label, line] : {std::pair("blocked", fail_pitot), {"static", fail_static}})
        after(label, 0.5f, [line = line] {
            flt[0].fail_stat[line] = fail_active;
            flt[0].vy += 20.0f;
        });
    after("at_rest", 0.0f, [] {
        place(0.0f, 0.0f, 500.0f);
        flt[0].R = 2.5f;
        flt[0].Rdot = 70.0f;
        flt[0].fnrml_gear_acf = 1e6f;
        mnw.prd_FM = 0.02f;
        arrest_yaw_at_rest();
    });
}

TEST(recorded_flight, other_slots_follow_the_network_and_the_recording) {
    test::recorded r("flight_slots");
    test::fly_aircraft("Wren 160");
    place(50.0f);
    flt[3] = flt[0];
    flt[3].P = 10.0f, flt[3].Q = -5.0f, flt[3].R = 20.0f;
    mnw.prd_FM = 0.02f;
    mnw.prd_UI = 0.05f;
    for (const int window : {win_fly + 0, win_map + 0}) {
        mnw.top_win = window;
        for (int i = 0; i < 20; ++i) update_with_net(3);
        sample(r, window ? "net_window" : "net", 3);
    }
    wind.final_trb_rat = 0.3f;
    cache_attitude(3);
    cache_air(3);
    cache_speeds(3);
    mnw.paused = 1;
    update_with_net(3);
    sample(r, "net_paused", 3);
    static double sounds;
    seam.play_sound = [](int slot, float pitch, float volume) {
        sounds += slot + 1000.0 * pitch + 10000.0 * volume;
    };
    for (const int mode : {1, 2, 3, 4, 5, 6, 7, 8, 9, 12}) {
        for (int i = 0; i < 5; ++i) {
            pat.snap[i].byt_dat[0] = 1;
            pat.snap[i].lcl_tot_time[1] = 12.0f - 2.0f * ((i + 2) % 5);  // the ring's start is within
        }
        pat.warn = {{9.003f, 4}, {9.01f, 5}, {9.2f, 6}};
        pat.text = {{9.002f, "said"}, {9.015f, "then"}};
        stl.verbal_string.clear();
        sounds = 0.0;
        mnw.totl_time = 9.0f;
        mnw.replay_mode = mode;
        update_with_replay();
        r.column("replay_" + std::to_string(mode));
        r.value("totl_time", "s", mnw.totl_time, 0.1);
        r.value("mode", "kind", mnw.replay_mode, 1.0);
        r.value("range", "s", pat.lotime + 100.0 * pat.hitime, 0.1);
        r.value("spoken", "letter", stl.verbal_string.empty() ? 0 : stl.verbal_string[0], 1.0);
        r.value("sounds", "sum", sounds, 1.0);
    }
}

// Hovering and sinking, near the ground and high, the stick moved, under ice and with a hinge that crosses
// the axes.
TEST(recorded_flight, rotors_hover_and_sink) {
    test::recorded r("flight_rotors");
    for (const float sink : {0.0f, 3.0f, 6.0f, 8.0f, 11.0f}) {
        test::fly_aircraft("Plover 420");
        veh[0].delta3 = 20.0f;
        veh[0].flap_arm = 0.1f;
        lab_set_power(0.5f);
        mnw.YK_ptch = 0.1f * sink;
        mnw.YK_roll = 0.4f;
        for (const float height : {3.0f, 300.0f}) {
            lab_place_moving({.speed = sink, .altitude = height, .gamma = -90.0f}, 2.0f, 0.0f);
            lab_hold(1.0f);
            sample(r, "at_" + std::to_string(lroundf(height)) + "_by_" + std::to_string(lroundf(sink)));
        }
        flt[0].prop_ice = 0.1f;
        test::run_frames(0.3f);
        sample(r, "iced_" + std::to_string(lroundf(sink)));
    }
}

// The text of one half step's trace: what it names, and the sum of the numbers behind.
TEST(recorded_flight, the_trace_tells_every_step) {
    test::recorded r("flight_trace", 1e-3);
    test::temp_folder folder;
    for (const std::string& name : test::aircraft_names()) {
        test::fly_aircraft(name);
        lab_set_power(0.7f);
        place(60.0f, 5.0f);
        flt[0].FC_ptch = mnw.YK_ptch = 0.5f;
        test::run_frames(0.5f);
        cyc.close();
        cyc.open(folder.path() + name);
        flt[0].sbrk_rat = flt[0].sbrk_rqst = 1.0f;
        flt[0].handle_rat_act = flt[0].handle_rat_req = 1.0f;
        veh[0].chute_area = stg.chute_deploy_rat = stg.chute_on = 1;
        mnw.cyc_out = msc.stab_ptch_test = msc.stab_hdng_test = 1;
        lab_frame(1.0f / 64.0f);
        cyc.close();
        r.column(name.substr(0, 4));
        r.text(test::read_file(folder.path() + name));
    }
}
}  // namespace
