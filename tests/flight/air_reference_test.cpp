// The air forces of a half step and the deflections behind them, against the independent reference, over
// random aircraft in random states: every kind of part, control and condition, alone or together.
#include "air_reference.h"

#include <math.h>

#include <cstring>
#include <memory>
#include <random>

#include "aircraft/acf_file.h"
#include "aircraft/autoset.h"
#include "aircraft/deflect.h"
#include "aircraft/derive.h"
#include "aircraft/exists.h"
#include "core/axes.h"
#include "core/electrics.h"
#include "flight/half_step.h"
#include "flying.h"
#include "weather/wind.h"

namespace {

std::mt19937 dice;
float any(double lo, double hi) { return static_cast<float>(lo + (hi - lo) * (dice() / 4294967296.0)); }
int whole(int lo, int hi) { return lo + static_cast<int>(dice() % static_cast<unsigned>(hi - lo + 1)); }
bool chance(double p) { return any(0, 1) < p; }

const char* const foils[] = {"NACA 0009 (symmetrical).afl",        "NACA 0012 Re 1 million.afl",
                             "NACA 0012 Re 6 million.afl",         "NACA 2412 Re 2 million.afl",
                             "NACA 2412 Re 6 million.afl",         "NACA 63-618 Re 1 million.afl",
                             "Supercritical 12 Re 20 million.afl", "Fin flat plate 6 percent.afl"};

// -- an aircraft, in the units of its file

void draw_foils(veh_wing_struct& w) {
    char* const names[4] = {w.Rafl0, w.Rafl1, w.Tafl0, w.Tafl1};
    for (int i = 0; i < 4; ++i)  // often one foil serves twice
        if (i && chance(0.4))
            memcpy(names[i], names[whole(0, i - 1)], nameDIM);
        else
            snprintf(names[i], nameDIM, "%s", foils[whole(0, 7)]);
}

void draw_surface(int en) {
    veh_wing_struct& w = veh[0].wing[en];
    veh_part_struct& part = veh[0].part[en];
    draw_foils(w);
    part.part_eq = 1;
    part.part_x = any(-1, 6);
    part.part_y = any(-4, 6);
    part.part_z = veh[0].cgZ + (chance(0.3) ? any(-4, 0) : any(-20, 20));  // on the verge of lying ahead
    w.is_left = chance(0.5);
    w.els = whole(1, 10);
    w.Croot = any(2, 9);
    w.Ctip = w.Croot * any(0.1, 1);
    w.semilen_SEG = any(3, 25);
    const bool fin = en == part_vstb_first || en == part_vstb_last || chance(0.25);
    w.dihed1 = fin ? any(50, 140) : any(-20, 20);
    w.sweep1 = any(-25, 65);
    w.varsweep = chance(0.2);
    w.vardihed = chance(0.2);
    w.varinc = chance(0.2);
    w.sweep2 = w.sweep1 + any(-20, 20);
    w.dihed2 = w.dihed1 + any(-20, 20);
    w.inc2 = any(-8, 8);
    int* const flags[] = {w.ail1,     w.ail2,     w.spo1,     w.spo2,     w.yawb,    w.elev,     w.rud1,
                          w.rud2,     w.fla1,     w.fla2,     w.slat,     w.sbrk,    w.inc_ail1, w.inc_ail2,
                          w.inc_elev, w.inc_rud1, w.inc_rud2, w.inc_vect, w.inc_trim};
    for (int* flag : flags) {
        const bool used = chance(0.4);
        for (int el = 0; el < elDIM; ++el) flag[el] = used && el < w.els && chance(0.6);
    }
    for (float& inc : w.incidence) inc = any(-3, 5);
}

void draw_body(int en, float size) {
    veh_part_struct& part = veh[0].part[en];
    if (en != part_body_first) part = veh[0].part[part_body_first];
    part.part_eq = 1;
    part.part_x = any(-8, 8);
    part.part_y = any(-4, 4);
    part.part_z = veh[0].cgZ + any(-20, 20);
    part.part_psi = any(-10, 10);
    part.part_the = any(-10, 10);
    part.cd = any(0.02, 0.3);
    for (auto& station : part.geo_xyz)
        for (auto& point : station)
            for (float& c : point) c *= size * any(0.99, 1.01);
}

void draw_disc(int en) {
    veh_engn_struct& engn = veh[0].engn[en];
    veh_part_struct& hub = veh[0].part[en];
    engn.prop_type = whole(0, prop_kinds - 1);
    if (chance(0.3)) engn.engn_type = whole(0, engn_kinds - 1);
    engn.prop_dir = chance(0.5) ? 1.0f : -1.0f;
    engn.vert_init = engn.prop_type == prop_collective ? 90.0f : any(-10, 10);
    engn.side_init = any(-10, 10);
    hub.part_x = any(-8, 8);
    hub.part_y = any(-3, 8);
    hub.part_z = veh[0].cgZ + any(-15, 10);
    veh_wing_struct& blade = veh[0].wing[en];
    draw_foils(blade);
    blade.els = whole(1, 10);
    blade.Croot = blade.Ctip = any(0.3, 1);
    blade.semilen_SEG = any(3, 15);
    engn.num_blades = 2;
    engn.prop_gear_rat = 1;
}

void draw_controls() {
    veh_struct& v = veh[0];
    float* const shares[] = {&v.ail1_cratR, &v.ail2_cratR, &v.spo1_cratR, &v.spo2_cratR,
                             &v.yawb_cratR, &v.elev_cratR, &v.rud1_cratR, &v.rud2_cratR,
                             &v.fla1_cratR, &v.fla2_cratR, &v.sbrk_cratR};
    for (float* root : shares) {
        *root = any(0.05, 0.5);
        float* const tip = root + 1;  // the share at the tip lies behind
        *tip = any(0.05, 0.5);
    }
    float* const travels[] = {&v.ail1_up,        &v.ail1_dn,        &v.ail2_up,
                              &v.ail2_dn,        &v.spo1_up,        &v.spo2_up,
                              &v.yawb_ud,        &v.elev_up,        &v.elev_dn,
                              &v.rud1_lr,        &v.rud2_lr,        &v.sbrk_up,
                              &v.ail1_pitch,     &v.ail2_pitch,     &v.ail1_flaps,
                              &v.ail2_flaps,     &v.stab_roll,      &v.stab_hdng,
                              &v.hstb_trim_up,   &v.hstb_trim_dn,   &v.stab_delinc_to_Vne,
                              &v.wing_tilt_ptch, &v.wing_tilt_roll, &v.flap_roll,
                              &v.flap_ptch};
    for (float* travel : travels) *travel = any(0, 20);
    for (float* most : {&v.ail1_vmax, &v.ail2_vmax, &v.spo1_vmax, &v.spo2_vmax}) *most = any(50, 900);
    v.roll_to_eng_spo1 = any(0, 0.7);
    v.roll_to_eng_spo2 = any(0, 0.7);
    v.min_trim_elev = any(0.2, 1);
    v.max_trim_elev = any(0.2, 1);
    v.con_smooth = whole(0, 4);
    v.flap_detents = whole(1, flapDIM - 1);
    for (float* dn : {v.fla1_dn, v.fla2_dn, v.slat_dn}) {
        const float step = dn == v.slat_dn ? 1.0f / v.flap_detents : any(10, 80) / v.flap_detents;
        for (int i = 0; i < flapDIM; ++i) dn[i] = (i + (i ? any(-0.4, 0.4) : 0)) * step;
    }
    for (float* c : {&v.fla1_cl, &v.fla2_cl, &v.fla1_cd, &v.fla2_cd}) *c = any(0.05, 1);
    for (float* c : {&v.fla1_cm, &v.fla2_cm}) *c = any(-0.3, 0);
    v.slat_inc = any(2, 10);
    v.slat_with_stall_EQ = chance(0.5);
    v.blown_flap_add_speed = chance(0.3) ? any(10, 60) : 0;
    v.blown_flap_min_engag = any(0, 0.5);
    v.blow_all_controls = chance(0.5);
    v.vect_min_nace = any(-20, 0);
    v.vect_max_nace = any(10, 90);
    v.vect_max_disc = v.vect_min_disc + any(10, 90);
}

// The content's aircraft as read, changed beyond recognition and derived.
void draw_aircraft(const veh_struct& base) {
    veh_struct& v = veh[0];
    v = base;
    clear_flt(0);
    draw_controls();
    for (int en = part_wing_first; en <= part_wing_last; ++en) v.wing[en].semilen_SEG = 0;
    for (int en : {9, 11, 13, 15, 17, 18, 19, 20, 21, 22, 39}) {
        if (chance(0.5)) draw_surface(en);
        if (en <= part_hstb_right)
            v.wing[en - 1].semilen_SEG = v.wing[en].semilen_SEG;  // the left side mirrors it
    }
    if (v.num_thrustpoints && chance(0.5)) v.num_thrustpoints = whole(v.num_engines, v.num_engines + 1);
    for (int en = 0; en < v.num_thrustpoints; ++en) {
        if (en >= v.num_engines) {
            v.engn[en] = v.engn[0];
            v.wing[en] = v.wing[0];
        }
        draw_disc(en);
    }
    for (int en : {40, 48})
        if (chance(0.4)) draw_surface(en);
    draw_body(part_body_first, any(0.7, 1.3));
    for (int en : {57, 70, 76, 77, 78})
        if (chance(0.4)) draw_body(en, any(0.1, 0.4));
    v.gear_retract = chance(0.5);
    for (int g = 0; g < gearDIM; ++g) {
        v.gear[g].gear_type = chance(0.4) ? whole(0, gear_kinds - 1) : 0;
        v.gear[g].leg_len = any(1, 6);
        v.gear[g].tire_radius = any(0.3, 2);
        v.gear[g].gear_x = any(-8, 8);
        v.gear[g].gear_y = any(-3, 0);
        v.gear[g].gear_z = v.cgZ + any(-15, 15);
        v.gear[g].latE = any(-20, 20);
        v.part[part_fair_first + g].part_eq = 0;
        if (chance(0.5)) draw_body(part_fair_first + g, any(0.05, 0.1));
    }
    for (veh_door_struct& door : v.sbrk) {
        door.type = whole(0, 1);
        door.area = any(1, 10);
        door.ret_ang = any(-20, 0);
        door.ext_ang = any(30, 200);
        for (float& c : door.xyz) c = any(-10, 10);
    }
    v.chute_area = chance(0.3) ? any(1, 50) : 0;
    v.chute_Y = any(-5, 5);
    v.chute_Z = v.cgZ + any(5, 30);
    ACF_autoset(0);
    ASSERT_EQ(derive_model(0), 1);
}

// -- a state of flight

void draw_state() {
    flt_struct& f = flt[0];
    const float mach = chance(0.7) ? any(0.05, 0.95) : any(0.95, 2.5);
    lab_flight at;
    at.speed = chance(0.05) ? any(0, 5) : any(20, 300);
    const bool low = chance(0.5);
    at.altitude = any(0, low ? 20 : 9000);
    at.alpha = chance(0.8) ? any(-12, 25) : any(-180, 180);
    at.beta = chance(0.7) ? any(-15, 15) : any(-90, 90);
    at.gamma = any(-30, 30);
    at.phi = any(-180, 180);
    at.psi = any(0, 360);
    lab_place(at);
    con.lcl_a = at.speed / mach;
    con.lcl_r_met *= any(0.5, 2);
    f.Mach = mach;
    for (float* rate : {&f.Prad, &f.Qrad, &f.Rrad}) *rate = any(-1, 1);
    for (float* spd : {&wind.final_X_msc, &wind.final_Y_msc, &wind.final_Z_msc}) *spd = any(-5, 5);
    wind.final_trb_rat = chance(0.5) ? any(0, 0.5) : 0;
    wind.totl_os_x = any(-50, 50);
    wind.totl_os_t = any(0, 6);
    f.terrain_y_cg = static_cast<float>(f.dob_y) - (low ? any(0, 20) : 1000.0f);
    f.frame_ice = chance(0.3) ? any(0, 1) : 0;
    // controls and mechanisms; no time passes
    mnw.prd_FM = 0;
    mnw.totl_time = any(0, 100);
    for (float* c : {&f.FC_ptch, &f.FC_roll, &f.FC_hdng, &f.elev_trim}) *c = chance(0.8) ? any(-1, 1) : 0;
    for (float* r : {&f.swdi_rat, &f.vect_rat, &f.handle_rat_act, &f.sbrk_rat})
        *r = chance(0.7) ? any(0, 1) : 0;
    f.swdi_rqst = f.swdi_rat;
    f.vect_rqst = f.vect_rat;
    f.v_ind_kts = at.speed * con.msctokts;
    stg.chute_on = chance(0.5);
    stg.chute_deploy_rat = any(0, 1);
    memset(f.fail_stat, 0, sizeof f.fail_stat);
    for (int slot : {fail_L_flp + 0, fail_R_flp + 0, fail_L_flp_off + 0, fail_R_flp_off + 0, fail_slat + 0,
                     fail_eng_sep + 0, fail_wing1_left + whole(0, 25)})
        if (chance(0.1)) f.fail_stat[slot] = fail_active;
    for (int g = 0; g < gearDIM; ++g) veh[0].gear[g].dep_rat = chance(0.8) ? any(0, 1) : 0;
    stg.battery = 1;
    for (flt_engn_struct& e : f.engn) {
        e.bat_volt = 1;
        e.DVinc = chance(0.8) ? any(-5, 40) : any(-0.02, 0.02);
        e.side_wash = any(-5, 5);
        e.prop_mode = chance(0.8) ? 1 : 3;
        e.thro_use = e.thro_ref = any(0, 1);
        e.cyclic_elev_disc_tilt = any(-5, 5);
        e.cyclic_ailn_disc_tilt = any(-5, 5);
    }
    for (int en = 0; en < wingDIM; ++en) {
        flt_wing_struct& w = f.wing[en];
        if (en >= part_wing_first && en <= part_wing_last)
            for (float& d : w.downwash_deg) d = any(-4, 0);
        for (float& q : w.Q_centroid_loc) q = any(0.6, 1);
        for (auto& el : w.v_el)
            for (float& v : el) v = any(10, 200);
        w.stalled = whole(0, 1);
    }
}

// -- comparisons

// Share of the sums by which a vector of three is off.
double off_by(const double* want, const float* got, double size) {
    double d = 0;
    for (int i = 0; i < 3; ++i) d = std::max(d, fabs(got[i] - want[i]));
    return size > 0 ? d / size : 0;
}

constexpr double close_enough = 1e-4;  // of the magnitudes: single precision on the steep side of a stall

void expect_forces(const test::air_step& want) {
    const flt_struct& f = flt[0];
    const float force[3] = {f.fside_aero_acf, f.fnrml_aero_acf, f.faxil_aero_acf},
                moment[3] = {f.L, f.M, f.N};
    EXPECT_LT(off_by(want.force, force, want.largest), close_enough);
    EXPECT_LT(off_by(want.moment, moment, want.largest_moment), close_enough);
    for (int en = 0; en < wingDIM; ++en) {
        const flt_wing_struct& w = f.wing[en];
        if (!has_this_wing(0, en)) continue;
        SCOPED_TRACE("part " + std::to_string(en));
        EXPECT_NEAR(w.CL_grndeffect, want.CL_grndeffect[en], 1e-4);
        EXPECT_NEAR(w.CD_grndeffect, want.CD_grndeffect[en], 1e-4);
        for (int b = 0; b < bladDIM && (b == 0 || en <= part_thru_last); ++b)
            EXPECT_NEAR(w.Q_centroid_loc[b], want.Q_centroid_loc[en][b], 1e-4) << "blade " << b;
        if (en <= part_thru_last) continue;
        const double part[3] = {want.nrml_force_path[en], want.axil_force_path[en], 0};
        const float path[3] = {w.nrml_force_path, w.axil_force_path, 0};
        EXPECT_LT(off_by(part, path, want.largest), close_enough);
        EXPECT_EQ(w.stalled != 0, want.stalled[en] != 0);
        for (int el = 0; el < veh[0].wing[en].els; ++el) {
            const double* one = want.force_XYZ[en][el];
            const double size =
                sqrt(one[0] * one[0] + one[1] * one[1] + one[2] * one[2]) + 0.002 * want.largest;
            EXPECT_LT(off_by(one, w.force_XYZ[el], size), 10 * close_enough)
                << "element " << el << ": " << one[0] << " " << one[1] << " " << one[2] << " N";
            EXPECT_NEAR(w.downwash_deg[el], want.downwash_deg[en][el],
                        1e-3 + 1e-4 * fabs(want.downwash_deg[en][el]));
        }
    }
}

void expect_deflections(const test::deflections& want) {
    EXPECT_NEAR(flt[0].slat_rat, want.slat_rat, 1e-5);
    for (int en = part_wing_first; en < wingDIM; ++en) {
        if (!has_this_wing(0, en)) continue;
        SCOPED_TRACE("part " + std::to_string(en));
        const flt_wing_struct& w = flt[0].wing[en];
        const float now[3] = {veh[0].wing[en].sweepnow, veh[0].wing[en].dihednow, veh[0].wing[en].incnow};
        const double then[3] = {want.sweepnow[en], want.dihednow[en], want.incnow[en]};
        EXPECT_LT(off_by(then, now, 1), 1e-4);
        EXPECT_NEAR(w.cos_act_dihed, cos(then[1] * M_PI / 180), 1e-6);
        EXPECT_NEAR(w.sin_act_sweep, sin(then[0] * M_PI / 180), 1e-6);
        if (en > part_wing_last) continue;
        const float def[10] = {w.ail1_def, w.ail2_def, w.spo1_def, w.spo2_def, w.yawb_def,
                               w.elev_def, w.rud1_def, w.rud2_def, w.fla1_def, w.fla2_def};
        for (int k = 0; k < 10; ++k) EXPECT_NEAR(def[k], want.def[en][k], 1e-4) << "control " << k;
        for (int el = 0; el < veh[0].wing[en].els; ++el)
            EXPECT_NEAR(w.elem_inc_inc[el], want.elem_inc_inc[en][el], 1e-4);
    }
}

TEST(air_reference, agrees_with_the_half_step_of_random_aircraft_in_random_states) {
    for (const std::string& name : test::aircraft_names()) {
        test::fly_aircraft(name);
        const std::string path = veh[0].path;
        ASSERT_EQ(acf_read_record(0), 1);
        snprintf(veh[0].path, sizeof veh[0].path, "%s", path.c_str());
        const auto base = std::make_unique<veh_struct>(veh[0]);
        for (unsigned seed = 0; seed < 60; ++seed) {
            dice.seed(seed);
            draw_aircraft(*base);
            for (int state = 0; state < 5; ++state) {
                SCOPED_TRACE(name + ", seed " + std::to_string(seed) + ", state " + std::to_string(state));
                draw_state();
                ASSERT_TRUE(esys_working());
                for (int pass = 0; pass < 2; ++pass) {  // linkages lag by one
                    const test::deflections want = test::deflection_reference();
                    update_def_angles(0);
                    expect_deflections(want);
                }
                for (int step = 0; step < 2; ++step) {  // downwash and spanwise load lag by one
                    const test::air_step want = test::air_reference();
                    tunnel_step();
                    expect_forces(want);
                }
                if (HasFailure()) return;
            }
        }
    }
}

}  // namespace
