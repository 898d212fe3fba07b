// Random aircraft in random states: every kind of part, control and condition, alone or together.
#include "random_aircraft.h"

#include <gtest/gtest.h>
#include <string.h>

#include <sstream>

#include "aircraft/derive/derive.h"
#include "aircraft/design/autoset.h"
#include "aircraft/file/acf_file.h"
#include "flying.h"
#include "weather/wind.h"

namespace test {

std::mt19937 dice;
float any(double lo, double hi) { return static_cast<float>(lo + (hi - lo) * (dice() / 4294967296.0)); }
int whole(int lo, int hi) { return lo + static_cast<int>(dice() % static_cast<unsigned>(hi - lo + 1)); }
bool chance(double p) { return any(0, 1) < p; }

std::unique_ptr<veh_struct> as_designed(const std::string& name) {
    fly_aircraft(name);
    const std::string path = veh[0].path;
    EXPECT_EQ(acf_read_record(0), 1);
    snprintf(veh[0].path, sizeof veh[0].path, "%s", path.c_str());
    return std::make_unique<veh_struct>(veh[0]);
}

static const char* const foils[] = {"NACA 0009 (symmetrical).afl",        "NACA 0012 Re 1 million.afl",
                                    "NACA 0012 Re 6 million.afl",         "NACA 2412 Re 2 million.afl",
                                    "NACA 2412 Re 6 million.afl",         "NACA 63-618 Re 1 million.afl",
                                    "Supercritical 12 Re 20 million.afl", "Fin flat plate 6 percent.afl"};

// -- an aircraft, in the units of its file

// Sets fields of a record, by their names, to anything between two values.
void draw(const veh_field_list& list, void* record, const std::string& names, double lo, double hi) {
    std::istringstream words(names);
    for (std::string name; words >> name;) {
        int rows = 0;
        for (int i = 0; i < list.count; ++i) {
            const veh_field_struct& row = list.rows[i];
            if (name != row.name) continue;
            ++rows;
            char* at = static_cast<char*>(record) + row.offset;
            for (char* end = at + row.size; at < end; at += 4)
                if (row.type == 'f')
                    *reinterpret_cast<float*>(at) = any(lo, hi);
                else
                    *reinterpret_cast<int*>(at) = whole(static_cast<int>(lo), static_cast<int>(hi));
        }
        ASSERT_EQ(rows, 1) << name;
    }
}

static void draw_place(int en) {
    draw(veh_part_list(), &veh[0].part[en], "part_x part_y", -6, 6);
    veh[0].part[en].part_z = veh[0].cgZ + any(-20, 15);
    veh[0].part[en].part_eq = 1;
}

static void draw_foils(veh_wing_struct& w) {
    char* const names[4] = {w.Rafl0, w.Rafl1, w.Tafl0, w.Tafl1};
    for (int i = 0; i < 4; ++i) {  // often one foil serves twice
        const char* name = i && chance(0.4) ? names[whole(0, i - 1)] : foils[whole(0, 7)];
        memmove(names[i], name, strlen(name) + 1);
    }
}

static void draw_surface(int en) {
    veh_wing_struct& w = veh[0].wing[en];
    const veh_field_list fields = veh_wing_list();
    draw_foils(w);
    draw_place(en);
    if (chance(0.3)) veh[0].part[en].part_z = veh[0].cgZ + any(-4, 0);  // on the verge of lying ahead
    draw(fields, &w, "is_left varsweep vardihed varinc", 0, 1);
    draw(fields, &w, "els", 1, elDIM);
    draw(fields, &w, "Croot", 2, 9);
    draw(fields, &w, "semilen_SEG", 3, 25);
    draw(fields, &w, "sweep1 sweep2", -25, 65);
    draw(fields, &w, "inc2 incidence", -4, 5);
    const bool fin = en == part_vstb_first || en == part_vstb_last || chance(0.25);
    draw(fields, &w, "dihed1 dihed2", fin ? 50 : -20, fin ? 140 : 20);
    w.Ctip = w.Croot * any(0.1, 1);
    for (int i = 0; i < fields.count; ++i) {
        if (fields.rows[i].type != 'i' || fields.rows[i].dims[0] != elDIM) continue;
        int* const flag = reinterpret_cast<int*>(reinterpret_cast<char*>(&w) + fields.rows[i].offset);
        const bool used = chance(0.4);
        for (int el = 0; el < elDIM; ++el) flag[el] = used && el < w.els && chance(0.6);
    }
}

static void draw_body(int en, float size) {
    veh_part_struct& part = veh[0].part[en];
    if (en != part_body_first) part = veh[0].part[part_body_first];
    draw_place(en);
    draw(veh_part_list(), &part, "part_psi part_the", -10, 10);
    draw(veh_part_list(), &part, "cd", 0.02, 0.3);
    for (auto& station : part.geo_xyz)
        for (auto& point : station)
            for (float& c : point) c *= size * any(0.99, 1.01);
}

static void draw_disc(int en) {
    veh_engn_struct& engn = veh[0].engn[en];
    draw_place(en);
    draw(veh_engn_list(), &engn, "prop_type", 0, prop_kinds - 1);
    if (chance(0.3)) draw(veh_engn_list(), &engn, "engn_type", 0, engn_kinds - 1);
    draw(veh_engn_list(), &engn, "vert_init side_init", -10, 10);
    if (engn.prop_type == prop_collective) engn.vert_init += 90.0f;
    engn.prop_dir = chance(0.5) ? 1.0f : -1.0f;
    engn.num_blades = 2;
    engn.prop_gear_rat = 1;
    veh_wing_struct& blade = veh[0].wing[en];
    draw_foils(blade);
    draw(veh_wing_list(), &blade, "els", 1, elDIM);
    draw(veh_wing_list(), &blade, "Croot Ctip", 0.3, 1);
    draw(veh_wing_list(), &blade, "semilen_SEG", 3, 15);
}

static void draw_controls() {
    veh_struct& v = veh[0];
    const veh_field_list fields = veh_block_list();
    for (const std::string kind :
         {"ail1", "ail2", "spo1", "spo2", "yawb", "elev", "rud1", "rud2", "fla1", "fla2", "sbrk"})
        draw(fields, &v, kind + "_cratR " + kind + "_cratT", 0.05, 0.5);
    draw(fields, &v,
         "ail1_up ail1_dn ail2_up ail2_dn spo1_up spo2_up yawb_ud elev_up elev_dn rud1_lr rud2_lr sbrk_up "
         "ail1_pitch ail2_pitch ail1_flaps ail2_flaps stab_roll stab_hdng hstb_trim_up hstb_trim_dn "
         "stab_delinc_to_Vne wing_tilt_ptch wing_tilt_roll flap_roll flap_ptch slat_inc",
         0, 20);
    draw(fields, &v, "ail1_vmax ail2_vmax spo1_vmax spo2_vmax", 50, 900);
    draw(fields, &v, "roll_to_eng_spo1 roll_to_eng_spo2 blown_flap_min_engag", 0, 0.7);
    draw(fields, &v, "min_trim_elev max_trim_elev fla1_cl fla2_cl fla1_cd fla2_cd", 0.1, 1);
    draw(fields, &v, "fla1_cm fla2_cm", -0.3, 0);
    draw(fields, &v, "slat_with_stall_EQ blow_all_controls gear_retract", 0, 1);
    draw(fields, &v, "con_smooth", 0, 4);
    draw(fields, &v, "flap_detents", 1, flapDIM - 1);
    draw(fields, &v, "blown_flap_add_speed chute_area", chance(0.5) ? -50 : 0, 50);
    draw(fields, &v, "vect_min_nace vect_min_disc chute_Y", -10, 0);
    draw(fields, &v, "vect_max_nace vect_max_disc", 10, 90);
    v.chute_Z = v.cgZ + any(5, 30);
    for (float* dn : {v.fla1_dn, v.fla2_dn, v.slat_dn}) {  // a table of uneven steps
        const float step = (dn == v.slat_dn ? 1 : any(10, 80)) / v.flap_detents;
        for (int i = 0; i < flapDIM; ++i) dn[i] = (i + (i ? any(-0.4, 0.4) : 0)) * step;
    }
}

// The content's aircraft as read, changed beyond recognition and derived.
void draw_aircraft(const veh_struct& base, const std::function<void()>& more) {
    veh_struct& v = veh[0];
    v = base;
    clear_flt(0);
    draw_controls();
    for (int en = part_wing_first; en <= part_wing_last; ++en) v.wing[en].semilen_SEG = 0;
    for (int en : {9, 11, 13, 15, 17, 18, 19, 20, 21, 22, 39, 40, 48}) {
        if (chance(0.5)) draw_surface(en);
        if (en <= part_hstb_right)
            v.wing[en - 1].semilen_SEG = v.wing[en].semilen_SEG;  // mirrored to the left
    }
    if (v.num_thrustpoints && chance(0.5)) v.num_thrustpoints = whole(v.num_engines, v.num_engines + 1);
    for (int en = 0; en < v.num_thrustpoints; ++en) {
        if (en >= v.num_engines) v.engn[en] = v.engn[0];
        draw_disc(en);
    }
    draw_body(part_body_first, any(0.7, 1.3));
    for (int en : {57, 70, 76, 77, 78})
        if (chance(0.4)) draw_body(en, any(0.1, 0.4));
    for (int g = 0; g < gearDIM; ++g) {
        draw(veh_gear_list(), &v.gear[g], "gear_type", 0, chance(0.4) ? gear_kinds - 1 : 0);
        draw(veh_gear_list(), &v.gear[g], "leg_len tire_radius", 0.3, 4);
        draw(veh_gear_list(), &v.gear[g], "gear_x gear_y gear_z latE", -15, 15);
        v.part[part_fair_first + g].part_eq = 0;
        if (chance(0.5)) draw_body(part_fair_first + g, any(0.05, 0.1));
    }
    for (veh_door_struct& door : v.sbrk) {
        draw(veh_door_list(), &door, "type", 0, 1);
        draw(veh_door_list(), &door, "area xyz", 1, 10);
        draw(veh_door_list(), &door, "ret_ang ext_ang", -20, 200);
    }
    more();
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

}  // namespace test
