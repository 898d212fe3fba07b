// What derivation makes of the content's aircraft and of random ones, and where random controls put the
// surfaces, against tests/data/recorded. A change detector beside the figures worked out by hand.
#include "recorded.h"

#include <math.h>

#include "aircraft/deflect.h"
#include "aircraft/derive/derive.h"
#include "aircraft/design/autoset.h"
#include "core/program/logs.h"
#include "flying.h"
#include "random_aircraft.h"

namespace {

// Adds each field of a record to its sum, every element with a weight of its own.
using field_sums = std::map<std::string, double>;

void add(field_sums& sums, const std::string& kind, const veh_field_list& list, const void* record,
         int number) {
    for (int i = 0; i < list.count; ++i) {
        const veh_field_struct& row = list.rows[i];
        if ((row.type != 'f' && row.type != 'i') || row.role == veh_role_spare) continue;
        const char* at = static_cast<const char*>(record) + row.offset;
        double& sum = sums[kind + row.name];
        for (int k = 0; k < static_cast<int>(row.size) / 4; ++k) {
            const double v =
                row.type == 'f' ? reinterpret_cast<const float*>(at)[k] : reinterpret_cast<const int*>(at)[k];
            sum += v * (1.0 + 0.1 * number) * (1.0 + 0.01 * (k % 97));
        }
    }
}

void add_aircraft(field_sums& sums) {
    const veh_struct& v = veh[0];
    add(sums, "", veh_block_list(), &v, 0);
    for (int en = 0; en < engnDIM; ++en) add(sums, "engn.", veh_engn_list(), &v.engn[en], en);
    for (int en = 0; en < wingDIM; ++en) add(sums, "wing.", veh_wing_list(), &v.wing[en], en);
    for (int en = 0; en < partDIM; ++en) add(sums, "part.", veh_part_list(), &v.part[en], en);
    for (int g = 0; g < gearDIM; ++g) add(sums, "gear.", veh_gear_list(), &v.gear[g], g);
    for (int w = 0; w < wattDIM; ++w) add(sums, "watt.", veh_watt_list(), &v.watt[w], w);
    for (int d = 0; d < doorDIM; ++d) add(sums, "door.", veh_door_list(), &v.door[d], d);
    for (int d = 0; d < sbrkDIM; ++d) add(sums, "sbrk.", veh_door_list(), &v.sbrk[d], d);
    for (int en = 0; en < wingDIM; ++en)
        for (int RT = 0; RT < 2; ++RT)
            for (int Re = 0; Re < 2; ++Re) {
                sums["afl.re_num"] += (1.0 + 0.1 * en) * (1 + RT) * (1 + 3 * Re) * v.afl[en].re_num[RT][Re];
                sums["afl.clB"] += (1.0 + 0.1 * en) * (1 + RT) * (1 + 3 * Re) * v.afl[en].clB[RT][Re];
            }
    const aircraft_summary_struct s = aircraft_summary(0);
    const double summary[] = {s.S_ref, s.span,       s.mean_chord, s.AR,
                              s.S_wet, s.z_centroid, s.z_neutral,  s.static_margin};
    for (int i = 0; i < 8; ++i) sums["summary." + std::to_string(i)] += summary[i];
}

// Whatever the design leaves at zero gets a value too, so that every unit and every place is converted.
void fill_zeros(const veh_field_list& list, void* record) {
    for (int i = 0; i < list.count; ++i) {
        const veh_field_struct& row = list.rows[i];
        if (row.type != 'f' || row.role != veh_role_file) continue;
        float* at = reinterpret_cast<float*>(static_cast<char*>(record) + row.offset);
        for (int k = 0; k < static_cast<int>(row.size) / 4; ++k)
            if (at[k] == 0.0f) at[k] = test::any(0.1, 1);
    }
}

TEST(recorded_design, is_derived_as_it_was) {
    std::map<std::string, std::map<std::string, double>> columns;
    std::vector<std::string> labels;
    for (const std::string& name : test::aircraft_names()) {
        const auto base = test::as_designed(name);
        labels.push_back(name.substr(0, 4));
        test::fly_aircraft(name);
        add_aircraft(columns[labels.back()]);
        labels.push_back(labels.back() + "_random");
        for (unsigned seed = 0; seed < 8; ++seed) {
            test::dice.seed(seed);
            test::draw_aircraft(*base, [] {
                veh_struct& v = veh[0];
                for (veh_engn_struct& e : v.engn)
                    test::draw(veh_engn_list(), &e, "engn_type", 0, engn_kinds - 1);
                v.manual_rad_gyr = test::chance(0.2);
                v.cgZ_fwd = v.cgZ + test::any(-3, 1);
                v.cgZ_aft = v.cgZ + test::any(-1, 3);
                if (test::chance(0.5)) return;
                fill_zeros(veh_block_list(), &v);
                for (veh_engn_struct& e : v.engn) fill_zeros(veh_engn_list(), &e);
                for (veh_gear_struct& g : v.gear) fill_zeros(veh_gear_list(), &g);
                for (veh_door_struct& d : v.door) fill_zeros(veh_door_list(), &d);
                for (veh_door_struct& d : v.sbrk) fill_zeros(veh_door_list(), &d);
                for (veh_watt_struct& w : v.watt) fill_zeros(veh_watt_list(), &w);
            });
            add_aircraft(columns[labels.back()]);
        }
    }
    test::recorded r("derived", 3e-6);
    for (const std::string& label : labels) {
        r.column(label);
        for (const auto& [name, sum] : columns[label]) r.value(name, "sum", sum, 1e-6);
    }
}

TEST(recorded_design, is_reported_as_it_was) {
    test::recorded r("report");
    test::temp_folder folder;
    for (const std::string& name : test::aircraft_names()) {
        const auto base = test::as_designed(name);
        cyc.close();
        cyc.open(folder.path() + name);
        stg.over_g = stg.over_vne = stg.over_vfe = stg.over_vle = 1;
        ACF_autoset(0);
        derive_model(0);
        cyc.close();
        r.column(name.substr(0, 4));
        r.text(test::read_file(folder.path() + name));
        r.value("exceeded", "count", stg.over_g + stg.over_vne + stg.over_vfe + stg.over_vle, 1.0);
        const flt_struct& f = flt[0];
        r.value("load", "kg",
                f.m_fuel[0] + 2.0 * f.m_fuel[1] + 3.0 * f.m_fuel[2] + 4.0 * f.m_fixed + 5.0 * f.m_jettison,
                1.0);
        r.value("hobs_time", "s", mnw.hobs_time, 1.0);
    }
}

const char* const switches =
    "sweep_with_flaps_EQ sweep_with_vect_EQ flaps_with_vec_EQ flaps_with_gear_EQ auto_trim_EQ varsweep_EQ "
    "vect_EQ slat_with_stall_EQ phase_ptch_tvect_in_at_90 phase_ptch_tvect_in_at_00 "
    "phase_roll_tvect_in_at_90 phase_roll_tvect_in_at_00 phase_hdng_tvect_in_at_90 "
    "phase_hdng_tvect_in_at_00 hide_prop_at_90_vect gear_retract";
const char* const amounts =
    "tvec_ptch tvec_roll tvec_hdng diff_thro_ptch diff_thro_roll diff_thro_hdng vectarmY vectarmZ "
    "diff_coll_with_roll diff_coll_with_hdng diff_coll_with_ptch tail_with_coll flap_deftime "
    "throt_time_prop throt_time_jet vect_rate";

TEST(recorded_design, moves_its_surfaces_as_it_did) {
    test::recorded r("deflected", 1e-5);
    for (const std::string& name : test::aircraft_names()) {
        const auto base = test::as_designed(name);
        for (unsigned seed = 0; seed < 4; ++seed) {
            test::dice.seed(seed);
            base->num_engines = base->num_thrustpoints = test::whole(1, 3);
            test::draw_aircraft(*base, [] {
                test::draw(veh_block_list(), &veh[0], switches, 0, 1);
                test::draw(veh_block_list(), &veh[0], amounts, 0.2, 5);
                for (veh_gear_struct& g : veh[0].gear) {
                    test::draw(veh_gear_list(), &g, "latE lonE axiE latR lonR axiR", -90, 90);
                    test::draw(veh_gear_list(), &g, "cyc_time", 1, 5);
                }
                for (int d = 0; d < doorDIM; ++d) {
                    test::draw(veh_door_list(), &veh[0].door[d], "type", 0, door_kinds - 1);
                    test::draw(veh_door_list(), &veh[0].door[d], "ret_ang ext_ang", 0, 90);
                }
            });
            test::draw_state();
            flt_struct& f = flt[0];
            mnw.prd_FM = 0.05f;
            for (int* on : {&f.gear_handle, &stg.battery, &net.getting_indcons, &f.engn[0].burner_on})
                *on = test::chance(0.6);
            for (float* asked : {&f.handle_rat_req, &f.sbrk_rqst, &f.vect_rqst, &f.swdi_rqst,
                                 &f.engn[0].thro_ref, &f.engn[1].thro_ref})
                *asked = test::any(0, 1);
            if (test::chance(0.3)) f.fail_stat[fail_gear + test::whole(0, 9)] = fail_active;
            for (int i = 0; i < 12; ++i) update_def_angles(0);
            r.column(name.substr(0, 4) + std::to_string(seed));
            field_sums sums;
            for (int g = 0; g < gearDIM; ++g) add(sums, "gear.", veh_gear_list(), &veh[0].gear[g], g);
            for (int d = 0; d < doorDIM; ++d) sums["door.ang_now"] += (d + 1) * veh[0].door[d].ang_now;
            for (int d = 0; d < sbrkDIM; ++d) sums["sbrk.ang_now"] += (d + 1) * veh[0].sbrk[d].ang_now;
            for (int g = 0; g < gearDIM; ++g)
                sums["gear.leg"] +=
                    (g + 1) * (f.gear[g].gear_psi + 2.0 * f.gear[g].gear_the + 3.0 * f.gear[g].gear_phi);
            for (int en = 0; en < engnDIM; ++en) {
                const flt_engn_struct& e = f.engn[en];
                sums["engn.XYZ"] += (en + 1) * (e.XYZ[0] + 2.0 * e.XYZ[1] + 3.0 * e.XYZ[2]);
                sums["engn.tilt"] += (en + 1) * (e.vert_nace_vector + 2.0 * e.vert_disc_vector +
                                                 3.0 * e.vert_disc_cyclic + 4.0 * e.side_disc_cyclic);
                sums["engn.pitch"] += (en + 1) * (e.pitch_deg_use + 2.0 * e.pitch_deg_ref);
                sums["engn.throttle"] += (en + 1) * (e.thro_use + 2.0 * e.burner_rat);
            }
            for (int en = part_wing_first; en < wingDIM; ++en) {
                const flt_wing_struct& w = f.wing[en];
                const float def[] = {w.ail1_def,      w.ail2_def,      w.spo1_def,      w.spo2_def,
                                     w.yawb_def,      w.elev_def,      w.rud1_def,      w.rud2_def,
                                     w.fla1_def,      w.fla2_def,      w.foil_swe_inc,  w.foil_dih_inc,
                                     w.sin_act_dihed, w.cos_act_dihed, w.sin_act_sweep, w.cos_act_sweep};
                for (int k = 0; k < 16; ++k)
                    sums["wing.def_" + std::to_string(k)] += (1.0 + 0.1 * en) * def[k];
                for (int el = 0; el < elDIM; ++el)
                    sums["wing.elem_inc_inc"] += (1.0 + 0.1 * en) * (1 + el) * w.elem_inc_inc[el];
                sums["wing.now"] +=
                    veh[0].wing[en].sweepnow + 2.0 * veh[0].wing[en].dihednow + 3.0 * veh[0].wing[en].incnow;
            }
            const float rats[] = {f.handle_rat_req, f.handle_rat_act, f.slat_rat,  f.fla1_rat,
                                  f.fla2_rat,       f.sbrk_rat,       f.vect_rat,  f.vect_rqst,
                                  f.swdi_rat,       f.swdi_rqst,      f.elev_trim, f.stab_def};
            for (int k = 0; k < 12; ++k) sums["rat_" + std::to_string(k)] = rats[k];
            for (const auto& [field, sum] : sums) r.value(field, "sum", sum, 1e-3);
        }
    }
}
}  // namespace
