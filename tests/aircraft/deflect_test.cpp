// Controls to deflections.
#include "aircraft/deflect.h"

#include <cmath>

#include "aircraft/design/autoset.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "design.h"

namespace {

constexpr float never = 9999.0f;  // kt; a control that no speed locks

class deflect : public test::system_test {
protected:
    void SetUp() override {
        test::system_test::SetUp();
        veh_struct& acf = veh[0];
        acf.Vne_kts = 200.0f;
        acf.ail1_vmax = acf.ail2_vmax = acf.spo1_vmax = acf.spo2_vmax = never;
        acf.min_trim_elev = acf.max_trim_elev = 1.0f;
        acf.throt_max_FWD = 1.0f;
        design::surface(0, 9, {0, 0, 0, 1, 1, 4});
        design::surface(0, 17, {0, 0, 5, 1, 1, 2});
        design::surface(0, 18, {0, 0, 5, 1, 1, 2, 90});
        ACF_autoset(0);
        stg.battery = 1;
        flt[0].engn[0].bat_volt = 1.0f;
        mnw.prd_FM = 1.0f / 64.0f;
    }
    static void run(float seconds) {
        for (int n = intround(seconds * 64.0f); n > 0; --n) update_def_angles(0);
    }
    static void controls(float ptch, float roll, float hdng) {
        flt[0].FC_ptch = ptch;
        flt[0].FC_roll = roll;
        flt[0].FC_hdng = hdng;
        update_def_angles(0);
    }
    flt_wing_struct &left = flt[0].wing[8], &right = flt[0].wing[9];
    flt_wing_struct &left_tail = flt[0].wing[16], &right_tail = flt[0].wing[17], &fin = flt[0].wing[18];
    veh_struct& acf = veh[0];
};

TEST_F(deflect, ailerons_roll_droop_and_lock) {
    acf.ail1_up = 25.0f;
    acf.ail1_dn = 15.0f;
    controls(0, 1, 0);
    EXPECT_FLOAT_EQ(right.ail1_def, 25.0f);  // right stick: right aileron up, left down
    EXPECT_FLOAT_EQ(left.ail1_def, -15.0f);
    controls(0, -0.5f, 0);
    EXPECT_FLOAT_EQ(right.ail1_def, -7.5f);
    EXPECT_FLOAT_EQ(left.ail1_def, 12.5f);

    acf.ail1_pitch = 10.0f;  // elevons: the limits widen by the mix
    controls(1, 1, 0);
    EXPECT_FLOAT_EQ(right.ail1_def, 35.0f);
    EXPECT_FLOAT_EQ(left.ail1_def, -5.0f);

    acf.ail1_flaps = 20.0f;  // flaperons droop with the handle, held at the lower limit
    acf.flap_detents = 1;
    flt[0].handle_rat_req = flt[0].handle_rat_act = 1.0f;
    controls(0, 0, 0);
    EXPECT_FLOAT_EQ(right.ail1_def, -20.0f);
    controls(-1, 1, 0);
    EXPECT_FLOAT_EQ(left.ail1_def, -30.0f);

    flt[0].v_ind_kts = acf.ail1_vmax = 100.0f;
    controls(0, 1, 0);
    EXPECT_NE(right.ail1_def, 0.0f);  // at the limit speed it still works
    flt[0].v_ind_kts = 100.1f;
    controls(0, 1, 0);
    EXPECT_EQ(right.ail1_def, 0.0f);
}

TEST_F(deflect, spoilers_and_yaw_brakes_open_on_one_side) {
    acf.spo1_up = 40.0f;
    acf.roll_to_eng_spo1 = 0.2f;
    acf.spo2_up = 40.0f;
    acf.roll_to_eng_spo2 = 1.0f;  // never engages, instead of dividing by zero
    acf.yawb_ud = 50.0f;
    controls(0, 0.2f, -0.5f);
    EXPECT_NEAR(right.spo1_def, 0.0f, 1e-5f);
    EXPECT_FLOAT_EQ(left.yawb_def, 25.0f);
    EXPECT_EQ(right.yawb_def, 0.0f);
    controls(0, 0.6f, 0);
    EXPECT_NEAR(right.spo1_def, 20.0f, 1e-4f);
    EXPECT_EQ(left.spo1_def, 0.0f);
    controls(0, 1, 0);
    EXPECT_NEAR(right.spo1_def, 40.0f, 1e-4f);
    EXPECT_EQ(right.spo2_def, 0.0f);
    flt[0].v_ind_kts = 10.0f;
    acf.spo1_vmax = 5.0f;
    controls(0, 1, 0);
    EXPECT_EQ(right.spo1_def, 0.0f);
}

TEST_F(deflect, tail_mixes_and_reverses_ahead) {
    acf.elev_up = 20.0f;
    acf.elev_dn = 10.0f;
    acf.stab_roll = 4.0f;
    acf.stab_hdng = 2.0f;
    acf.rud1_lr = 25.0f;
    acf.rud2_lr = 5.0f;
    controls(1, 0.5f, 0.5f);
    EXPECT_FLOAT_EQ(right_tail.elev_def, 20.0f + 2.0f - 1.0f);
    EXPECT_FLOAT_EQ(left_tail.elev_def, 20.0f - 2.0f + 1.0f);
    EXPECT_FLOAT_EQ(fin.rud1_def, -12.5f);
    EXPECT_FLOAT_EQ(fin.rud2_def, -2.5f);
    acf.wing[18].dihed1 = -90.0f;  // a ventral fin
    acf.wing[17].rev_con = 1;      // a canard
    controls(-1, 0.5f, 0.5f);
    EXPECT_FLOAT_EQ(right_tail.elev_def, 10.0f + 2.0f - 1.0f);
    EXPECT_FLOAT_EQ(fin.rud1_def, 12.5f);
}

TEST_F(deflect, flaps_run_between_uneven_detents) {
    acf.flap_detents = 2;
    acf.flap_deftime = 4.0f;
    const float dn[] = {0, 10, 40};
    for (int i = 0; i < 3; ++i) acf.fla1_dn[i] = acf.fla2_dn[i] = acf.slat_dn[i] = dn[i];
    flt[0].handle_rat_req = 0.3f;  // nearest detent: the first
    run(1.0f);
    EXPECT_FLOAT_EQ(flt[0].handle_rat_req, 0.5f);
    EXPECT_NEAR(flt[0].handle_rat_act, 0.25f, 1e-4f);  // a quarter of the travel in a quarter of the time
    EXPECT_NEAR(flt[0].fla1_rat, 5.0f / 40, 1e-4f);
    EXPECT_NEAR(right.fla1_def, 5.0f, 1e-3f);
    run(2.0f);
    EXPECT_FLOAT_EQ(flt[0].handle_rat_act, 0.5f);
    EXPECT_NEAR(right.fla2_def, 10.0f, 1e-3f);

    for (int presses = 0; presses < 3; ++presses) update_flap_slat_rqst_with_hand(0, 1);
    EXPECT_FLOAT_EQ(flt[0].handle_rat_req, 1.0f);
    EXPECT_FLOAT_EQ(flt[0].handle_rat_act, 0.5f);  // a key asks, it does not move
    flt[0].fail_stat[fail_slat] = flt[0].fail_stat[fail_L_flp] = fail_active;
    const float slats = flt[0].slat_rat;
    run(3.0f);
    EXPECT_NEAR(right.fla1_def, 40.0f, 1e-3f);
    EXPECT_EQ(left.fla1_def, 0.0f);
    EXPECT_EQ(flt[0].slat_rat, slats);

    acf.flap_roll = 5.0f;  // flaps that help to roll stay within their travel
    for (int n = 0; n < 3; ++n) controls(0, 0.5f, 0);
    EXPECT_NEAR(right.fla1_def, 37.5f, 1e-3f);
    EXPECT_FLOAT_EQ(acf.flap_roll, 5.0f);
    controls(0, -1, 0);
    EXPECT_NEAR(right.fla1_def, 40.0f, 1e-3f);

    acf.flap_detents = 10;
    EXPECT_EQ(test::expect_fatal([] { update_flap_slat_rqst_with_hand(0, 1); }).line[0],
              "too many flap defs!");
}

TEST_F(deflect, slats_spring_out_near_the_stall) {
    acf.flap_detents = 1;
    acf.slat_dn[1] = 1.0f;
    acf.slat_EQ = acf.slat_with_stall_EQ = 1;
    acf.Vs_kts = 40.0f;
    acf.wing[9].alpha_max = 15.0f;
    fin.alpha_el[0][0] = 80.0f;  // a fin does not stall the aircraft
    right.alpha_el[0][0] = 10.1f;
    flt[0].v_ind_kts = 9.0f;  // hardly moving
    acf.wing[8].alpha_max = acf.wing[16].alpha_max = acf.wing[17].alpha_max = 15.0f;
    run(0.1f);
    EXPECT_EQ(flt[0].slat_rat, 0.0f);
    flt[0].v_ind_kts = 11.0f;
    run(0.1f);
    EXPECT_EQ(flt[0].slat_rat, 1.0f);
    right.alpha_el[0][0] = 9.9f;
    run(0.1f);
    EXPECT_EQ(flt[0].slat_rat, 0.0f);
}

TEST_F(deflect, without_power_mechanisms_stop_and_surfaces_go_on) {
    acf.flap_detents = 1;
    acf.flap_deftime = 1.0f;
    acf.vect_EQ = acf.varsweep_EQ = 1;
    acf.vect_rate = 0.25f;
    acf.elev_up = 20.0f;
    stg.battery = 0;
    flt[0].handle_rat_req = flt[0].sbrk_rqst = flt[0].vect_rqst = flt[0].swdi_rqst = 1.0f;
    controls(1, 0, 0);
    EXPECT_EQ(flt[0].handle_rat_act + flt[0].sbrk_rat + flt[0].vect_rat + flt[0].swdi_rat, 0.0f);
    EXPECT_FLOAT_EQ(right_tail.elev_def, 20.0f);
    stg.battery = 1;
    run(2.0f);
    EXPECT_FLOAT_EQ(flt[0].handle_rat_act, 1.0f);
    EXPECT_NEAR(flt[0].vect_rat, 0.5f, 1e-4f);
    EXPECT_NEAR(flt[0].swdi_rat, 0.2f, 1e-4f);
    EXPECT_NEAR(flt[0].sbrk_rat, 1.0f - std::exp(-6.0f), 2e-3f);
    run(9.0f);
    EXPECT_EQ(flt[0].vect_rat, 1.0f);
    EXPECT_NEAR(flt[0].swdi_rat, 1.0f, 1.01e-4f);
    flt[0].sbrk_rqst = -0.5f;  // armed
    run(2.0f);
    EXPECT_EQ(flt[0].sbrk_rat, 0.0f);
    mnw.prd_FM = 0.0f;
    flt[0].sbrk_rqst = flt[0].vect_rqst = 0.5f;
    run(1.0f);
    EXPECT_EQ(flt[0].vect_rat, 1.0f);  // no time, no movement
}

TEST_F(deflect, gear_travels_in_its_time_each_leg_at_its_own_speed) {
    for (int g : {0, 1, 2}) {
        acf.gear[g].gear_type = gear_one;
        acf.gear[g].cyc_time = 10.0f;
        acf.gear[g].leg_len = 2.0f;
        acf.gear[g].lonR = -90.0f;  // retracts forward
        acf.gear[g].gear_z = 1.0f + g;
        acf.gear[g].dep_rat = 1.0f;
    }
    run(1.0f);
    EXPECT_EQ(acf.gear[0].dep_rat, 1.0f);  // fixed, whatever the handle
    EXPECT_NEAR(acf.gear[0].y_nodef, -2.0f, 1e-6f);
    EXPECT_NEAR(flt[0].gear[0].gear_the, -90.0f, 1e-3f);
    acf.gear_retract = 1;
    flt[0].fail_stat[fail_gear + 2] = fail_active;
    float travelled = 0.0f;
    for (int second = 0; second < 5; ++second) {
        mnw.totl_time = 100.0f + second;
        travelled += flt_seedrand(0.5f, 1.5f, 100 + second) / 10.0f;
        run(1.0f);
    }
    EXPECT_NEAR(acf.gear[0].dep_rat, 1.0f - travelled, 1e-3f);
    EXPECT_NE(acf.gear[1].dep_rat, acf.gear[0].dep_rat);
    EXPECT_EQ(acf.gear[2].dep_rat, 1.0f);
    run(30.0f);
    EXPECT_EQ(acf.gear[0].dep_rat, 0.0f);
    EXPECT_NEAR(acf.gear[0].z_nodef, 1.0f - 2.0f, 1e-5f);  // leg forward
    EXPECT_NEAR(acf.gear[0].y_nodef, 0.0f, 1e-5f);
    EXPECT_NEAR(flt[0].gear[0].gear_the, 0.0f, 1e-3f);
    mnw.totl_time = -50.0f;  // replay may run the clock below zero
    flt[0].gear_handle = 1;
    run(31.0f);
    EXPECT_EQ(acf.gear[1].dep_rat, 1.0f);
}

TEST_F(deflect, doors_follow_the_nearest_leg_by_their_kind) {
    acf.gear[3].gear_type = acf.gear[7].gear_type = gear_one;
    acf.gear[3].gear_z = 2.0f;
    acf.gear[7].gear_z = -2.0f;
    acf.gear[3].gear_y = 50.0f;  // height does not count
    for (int type : {door_early, door_with_gear, door_passage}) {
        acf.door[type].type = type;
        acf.door[type].ret_ang = 10.0f;
        acf.door[type].ext_ang = 90.0f;
        acf.door[type].xyz[2] = 1.0f;
    }
    acf.sbrk[1].type = 1;
    acf.sbrk[1].ext_ang = 60.0f;
    const float at[][4] = {{0.0f, 10, 10, 10}, {0.05f, 30, 14, 50}, {0.1f, 50, 18, 90},  {0.2f, 90, 26, 90},
                           {0.5f, 90, 50, 90}, {0.9f, 90, 82, 90},  {0.95f, 90, 86, 50}, {1.0f, 90, 90, 10}};
    for (const auto& row : at) {
        acf.gear[3].dep_rat = row[0];
        acf.gear[7].dep_rat = 0.3f;
        flt[0].sbrk_rat = flt[0].sbrk_rqst = row[0];
        update_def_angles(0);
        for (int type = 1; type <= 3; ++type) EXPECT_NEAR(acf.door[type].ang_now, row[type], 1e-3f) << row[0];
        EXPECT_NEAR(acf.sbrk[1].ang_now, 60.0f * row[0], 1e-3f);
    }
}

TEST_F(deflect, throttles_spool_up_and_fall_at_once) {
    acf.num_engines = acf.num_thrustpoints = 3;
    acf.throt_time_prop = 2.0f;
    acf.throt_time_jet = 4.0f;
    acf.engn[2].engn_type = engn_jet_hi;
    acf.diff_thro_hdng = 0.5f;
    acf.part[1].part_x = 3.0f;
    acf.part[0].part_x = 0.01f;  // on the centre line
    for (int en : {0, 1, 2}) flt[0].engn[en].thro_ref = 1.0f;
    run(1.0f);
    EXPECT_NEAR(flt[0].engn[0].thro_use, 0.5f, 1e-4f);
    EXPECT_NEAR(flt[0].engn[2].thro_use, 0.25f, 1e-4f);
    run(3.0f);
    controls(0, 0, 0.4f);  // right pedal: the right engine gives way
    EXPECT_FLOAT_EQ(flt[0].engn[0].thro_use, 1.0f);
    EXPECT_FLOAT_EQ(flt[0].engn[1].thro_use, 0.8f);
    flt[0].engn[0].thro_ref = 0.0f;
    update_def_angles(0);
    EXPECT_EQ(flt[0].engn[0].thro_use, 0.0f);
    flt[0].engn[1].burner_on = 1;
    run(1.0f);
    EXPECT_NEAR(flt[0].engn[1].burner_rat, 0.5f, 1e-4f);
    run(2.0f);
    EXPECT_EQ(flt[0].engn[1].burner_rat, 1.0f);
}

TEST_F(deflect, nacelles_swing_about_their_pivot_and_controls_follow_the_vector) {
    acf.num_thrustpoints = 2;
    acf.vect_max_nace = acf.vect_max_disc = 90.0f;
    acf.vectarmZ = -2.0f;  // the hub is ahead of the pivot
    acf.vectarmY = 0.5f;
    acf.wing[0].inc_vect[0] = acf.wing[1].inc_vect[0] = 1;
    acf.part[0].part_x = -4.0f;
    acf.part[1].part_x = 4.0f;
    acf.engn[1].prop_type = prop_lift_fan;
    acf.engn[0].side_init = 2.0f;
    acf.tvec_ptch = 10.0f;
    acf.phase_ptch_tvect_in_at_00 = acf.phase_roll_tvect_in_at_90 = 1;
    acf.tvec_roll = 6.0f;
    acf.diff_coll_with_roll = 3.0f;
    acf.diff_coll_with_hdng = 5.0f;
    acf.hide_prop_at_90_vect = 1;
    const flt_engn_struct &disc = flt[0].engn[0], &fan = flt[0].engn[1];
    controls(1, 0.5f, 0.5f);
    EXPECT_NEAR(disc.XYZ[2], -2.0f, 1e-6f);
    EXPECT_NEAR(disc.XYZ[1], 0.5f, 1e-6f);
    EXPECT_NEAR(disc.vert_disc_cyclic, 10.0f, 1e-5f);  // ahead of the centre, level: pitch tilts it up
    EXPECT_NEAR(fan.vert_disc_cyclic, 0.0f, 1e-5f);
    EXPECT_NEAR(disc.side_disc_cyclic, 2.0f, 1e-5f);
    EXPECT_NEAR(disc.pitch_deg_use, 2.5f, 1e-5f);  // level, left: yaw differs the pitch
    flt[0].vect_rat = flt[0].vect_rqst = 1.0f;
    controls(1, 0.5f, 0.5f);
    EXPECT_NEAR(disc.XYZ[1], 2.0f, 1e-5f);  // the nacelle points up
    EXPECT_NEAR(disc.XYZ[2], 0.5f, 1e-5f);
    EXPECT_NEAR(disc.vert_disc_cyclic, 90.0f, 1e-4f);
    EXPECT_NEAR(disc.side_disc_cyclic, 2.0f + 3.0f, 1e-4f);
    EXPECT_NEAR(disc.pitch_deg_use, 1.5f, 1e-5f);  // upright: roll does
    flt[0].vect_rat = flt[0].vect_rqst = 0.0f;
    controls(0, 0, 0);
    EXPECT_EQ(disc.vert_disc_vector, 0.0f);  // a hidden disc swings back
}

TEST_F(deflect, pedals_run_the_tail_rotor_with_the_last_collective) {
    acf.num_thrustpoints = 3;
    acf.engn[0].prop_type = acf.engn[1].prop_type = prop_collective;
    acf.engn[2].prop_type = prop_tail_rotor;
    for (int en : {0, 1, 2}) {
        acf.engn[en].min_pitch = 2.0f;
        acf.engn[en].max_pitch = 12.0f;
    }
    acf.tail_with_coll = 4.0f;
    flt[0].engn[0].pitch_deg_ref = 12.0f;
    flt[0].engn[1].pitch_deg_ref = 7.0f;
    controls(0, 0, -1);
    EXPECT_FLOAT_EQ(flt[0].engn[2].pitch_deg_use, 12.0f + 2.0f);
    EXPECT_FLOAT_EQ(flt[0].engn[2].pitch_deg_ref, 14.0f);
    controls(0, 0, 0.5f);
    EXPECT_FLOAT_EQ(flt[0].engn[2].pitch_deg_use, 4.5f + 2.0f);
}

TEST_F(deflect, variable_geometry_turns_the_short_way) {
    acf.varsweep_EQ = 1;
    acf.wing[9].varsweep = acf.wing[9].vardihed = acf.wing[9].varinc = 1;
    acf.wing[9].sweep1 = 170.0f;
    acf.wing[9].sweep2 = -170.0f;
    acf.wing[9].dihed2 = 10.0f;
    acf.wing[9].inc2 = 6.0f;
    acf.wing_tilt_roll = 2.0f;
    flt[0].swdi_rat = flt[0].swdi_rqst = 0.5f;
    controls(0, 1, 0);
    EXPECT_FLOAT_EQ(acf.wing[9].sweepnow, 180.0f);
    EXPECT_FLOAT_EQ(right.foil_swe_inc, 10.0f);
    EXPECT_FLOAT_EQ(acf.wing[9].dihednow, 5.0f - 2.0f);
    EXPECT_FLOAT_EQ(left.foil_dih_inc, 2.0f);
    EXPECT_FLOAT_EQ(acf.wing[9].incnow, 3.0f);
    EXPECT_FLOAT_EQ(right.elem_inc_inc[4], 3.0f);
    EXPECT_NEAR(right.cos_act_sweep, -1.0f, 1e-6f);
    EXPECT_NEAR(right.sin_act_dihed, std::sin(3.0 * M_PI / 180), 1e-6f);
    EXPECT_NEAR(fin.sin_act_dihed, 1.0f, 1e-6f);
    EXPECT_EQ(acf.wing[17].dihednow, 0.0f);  // only wings tilt
}

TEST_F(deflect, elements_turn_one_pass_behind_and_trim_turns_canards_the_other_way) {
    acf.elev_up = 10.0f;
    acf.hstb_trim_up = 3.0f;
    acf.hstb_trim_dn = 5.0f;
    acf.stab_delinc_to_Vne = 2.0f;
    acf.wing[17].inc_elev[1] = acf.wing[17].inc_trim[1] = acf.wing[9].inc_trim[0] = 1;
    acf.part[9].part_z = -2.0f;  // the wing as a canard
    acf.min_trim_elev = 0.5f;
    flt[0].v_ind_kts = 100.0f;
    flt[0].elev_trim = -0.25f;
    controls(1, 0, 0);
    EXPECT_FLOAT_EQ(right_tail.elem_inc_inc[1], 2.5f + 1.0f);  // trim and speed, no elevator yet
    EXPECT_FLOAT_EQ(right_tail.elem_inc_inc[0], 1.0f);
    EXPECT_FLOAT_EQ(right.elem_inc_inc[0], -1.5f);
    controls(1, 0, 0);
    EXPECT_FLOAT_EQ(right_tail.elem_inc_inc[1], 3.5f - 10.0f);
}

TEST_F(deflect, slots_are_bounded) {
    for (int p : {-1, 10})
        EXPECT_EQ(test::expect_fatal([p] { update_def_angles(p); }).line[0], "too many planes!");
}

}  // namespace
