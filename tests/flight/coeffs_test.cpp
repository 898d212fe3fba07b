// Coefficients of one element, against closed forms.
#include "flight/air/coeffs.h"

#include <math.h>

#include "core/math/num.h"
#include "core/math/random.h"
#include "flight/air/bodies.h"
#include "flight/air/controls.h"
#include "flight/force/forces.h"
#include "support.h"

namespace {
constexpr int part = 9;  // a wing

// One element of a straight section: cl = 0.1 alpha + 0.2, cd = 0.01, cm = -0.05, in still sea-level air.
class element : public test::system_test {
protected:
    void SetUp() override {
        test::system_test::SetUp();
        con.lcl_a = 340.0f;
        con.lcl_r_met = 1.225f;
        veh_wing_struct& w = veh[0].wing[part];
        w.els = 1;
        w.AR = 8.0f;
        w.e = 0.9f;
        w.al_D_al0 = w.cl_D_cl0 = w.cm_D_cm0 = 1.0f;
        w.alpha_max = 15.0f;
        w.slat_effect = 1.2f;
        w.mac[0] = 1.0f;
        w.el_s[0] = 2.0f;
        w.lat_sign = 1.0f;
        for (char* name : {w.Rafl0, w.Rafl1, w.Tafl0, w.Tafl1}) snprintf(name, 40, "a.afl");
        afl_struct& a = veh[0].afl[part];
        for (int RT = 0; RT < 2; ++RT) {
            a.mach_div[RT] = 2.0f;  // no drag rise
            for (int Re = 0; Re < 2; ++Re) {
                a.re_num[RT][Re] = 99.9f * Re;
                a.clM[RT][Re] = 0.1f;
                a.clB[RT][Re] = 0.2f;
                for (int i = 0; i < aflDIM; ++i) {
                    const float al = i < 160 ? i - 180.0f : i <= 560 ? 0.1f * (i - 360) : i - 540.0f;
                    a.cl[RT][Re][i] = 0.1f * al + 0.2f;
                    a.cd[RT][Re][i] = 0.01f;
                    a.cm[RT][Re][i] = -0.05f;
                }
            }
        }
        flt_wing_struct& f = flt[0].wing[part];
        f.v_el[0][0] = 50.0f;
        f.Q_centroid_loc[0] = 1.0f;
        f.CL_grndeffect = f.CD_grndeffect = 1.0f;
        f.cos_act_dihed = f.cos_act_sweep = 1.0f;
    }
    float lift = 0, drag = 0, momt = 0;
    float cl_at(float alpha, float modcl = 0.0f) {
        flt[0].wing[part].alpha_el[0][0] = alpha;
        return F_el_force(modcl, 0.0f, 0.0f, &lift, &drag, &momt, part, 0, 0);
    }
    float q_S() const { return 0.5f * 1.225f * sqr(flt[0].wing[part].v_el[0][0]) * 2.0f; }
    float pg() const { return 1.0f / sqrtf(1.0f - sqr(flt[0].wing[part].v_el[0][0] / 340.0f)); }
};

TEST_F(element, lift_induced_drag_and_moment_are_those_of_the_lifting_line) {
    test::fp_traps traps;
    const float cl = cl_at(4.0f);
    const float expected = (0.4f + 0.2f) * pg();
    EXPECT_NEAR(cl, expected, 1e-5f);
    EXPECT_NEAR(lift, expected * q_S(), 0.01f);
    EXPECT_NEAR(drag, (0.01f + expected * expected / (con.pi * 0.9f * 8.0f)) * q_S(), 0.01f);
    EXPECT_NEAR(momt, -0.05f * pg() * q_S(), 0.01f);
    // lift tilted back by three degrees of downwash
    flt[0].wing[part].del_dir[0][0] = -3.0f;
    const float drag0 = drag, lift0 = lift;
    cl_at(4.0f);
    EXPECT_NEAR(drag, drag0 * cosf(0.05236f) + lift0 * sinf(0.05236f), 0.05f);
}

TEST_F(element, the_table_is_read_over_all_angles_without_a_step) {
    veh[0].wing[part].AR = 1e6f;  // no induced drag, so that only the table speaks
    for (const float alpha : {-180.0f, -20.0f, -19.95f, 0.0f, 19.99f, 20.0f, 20.01f, 90.0f, 179.0f, 180.0f}) {
        float cl, cd, cm;
        subsonic_co_lookup(alpha, &cl, &cd, &cm, part, 0, 0, 0, 0);
        EXPECT_NEAR(cl, 0.1f * fltmin2(alpha, 179.0f) + 0.2f, 2e-4f) << alpha;
    }
    // the finite-wing stretch turns about the zero-lift angle, -2, and is gone at 90 degrees
    veh[0].wing[part].al_D_al0 = 0.8f;
    float cl, cd, cm;
    subsonic_co_lookup(8.0f, &cl, &cd, &cm, part, 0, 0, 0, 0);
    EXPECT_NEAR(cl, 0.1f * (0.8f * 10.0f - 2.0f) + 0.2f, 1e-4f);
    subsonic_co_lookup(95.0f, &cl, &cd, &cm, part, 0, 0, 0, 0);
    EXPECT_NEAR(cl, 9.7f, 1e-3f);
    EXPECT_EQ(test::expect_fatal([&] { subsonic_co_lookup(0, &cl, &cd, &cm, wingDIM, 0, 0, 0, 0); }).line[0],
              "FOIL INDEX out of range!");
    EXPECT_EQ(test::expect_fatal([&] { subsonic_co_lookup(0, &cl, &cd, &cm, part, 0, 0, elDIM, 0); }).line[0],
              "ELEMENT INDEX out of range!");
}

TEST_F(element, foils_blend_by_reynolds_number_and_equal_names_share_one_table) {
    veh_wing_struct& w = veh[0].wing[part];
    afl_struct& a = veh[0].afl[part];
    for (float& cl : a.cl[0][1]) cl += 1.0f;  // another high-Reynolds table, but under the same name
    for (float& cl : a.cl[1][1]) cl += 1.0f;
    const float same = cl_at(0.0f);
    EXPECT_NEAR(same, 0.2f * pg(), 1e-5f);
    snprintf(w.Rafl1, 40, "b.afl");
    snprintf(w.Tafl1, 40, "b.afl");
    a.re_num[0][0] = a.re_num[1][0] = 1.0f;
    a.re_num[0][1] = a.re_num[1][1] = 3.0f;
    const float Re = 1.225f * 50.0f * 1.0f / con.planet_mu_air * 1e-6f;  // 3.42 million: held at 3
    ASSERT_GT(Re, 3.0f);
    EXPECT_NEAR(cl_at(0.0f), 1.2f * pg(), 1e-4f);
    w.mac[0] = 2.0f / Re;  // exactly two million
    EXPECT_NEAR(cl_at(0.0f), 0.7f * pg(), 1e-4f);
}

TEST_F(element, ground_ice_slat_sideslip_and_mach) {
    flt_wing_struct& f = flt[0].wing[part];
    f.CL_grndeffect = 1.5f;
    EXPECT_NEAR(cl_at(4.0f), 1.5f * 0.6f * pg(), 1e-4f);
    EXPECT_NEAR(cl_at(-4.0f), -0.2f * pg(), 1e-4f) << "negative lift gets no ground effect";
    f.CL_grndeffect = 1.0f;
    cl_at(4.0f);
    const float drag0 = drag;
    flt[0].frame_ice = 1.0f;
    EXPECT_NEAR(cl_at(4.0f), 0.6f * pg() / 1.5f, 1e-4f);
    EXPECT_NEAR(drag, 5.0f * drag0, 1e-3f * drag0);
    flt[0].frame_ice = 0.0f;
    // full slats: the same slope, the angle of the maximum moved on
    veh[0].wing[part].slat[0] = 1;
    flt[0].slat_rat = 1.0f;
    EXPECT_NEAR(cl_at(4.0f), 1.2f * (0.1f * (6.0f / 1.2f - 2.0f) + 0.2f) * pg(), 1e-4f);
    veh[0].wing[part].slat[0] = 0;
    // in a pure sideslip the aspect ratio is the inverse
    flt[0].beta = 90.0f;
    const float cl = cl_at(4.0f);
    EXPECT_NEAR(drag / q_S(), 0.01f + cl * cl / (con.pi * 0.9f / 8.0f), 1e-2f);
    flt[0].beta = 0.0f;
    // frozen at 0.85 below the speed of sound, a double wedge above it
    f.v_el[0][0] = 0.9f * 340.0f;
    EXPECT_NEAR(cl_at(4.0f), 0.6f / sqrtf(1.0f - 0.7225f), 1e-3f);
    f.v_el[0][0] = 2.0f * 340.0f;
    veh[0].afl[part].t_rat[0] = veh[0].afl[part].t_rat[1] = 0.05f;
    const float a = 4.0f * con.degtorad, beta = sqrtf(3.0f);
    EXPECT_NEAR(cl_at(4.0f), 4.0f * a / beta, 0.01f * 4.0f * a / beta) << "Ackeret";
    EXPECT_NEAR(drag / q_S(), 4.0f * (a * a + 0.05f * 0.05f) / beta + 0.0046f, 5e-4f)
        << "wave and thickness drag";
}

TEST_F(element, negative_drag_is_told) {
    for (float& cd : veh[0].afl[part].cd[0][0]) cd = -0.01f;
    EXPECT_EQ(test::expect_fatal([&] { cl_at(0.0f); }).line[0], "neg cd in post con-def lookup!");
}

TEST_F(element, controls_work_the_right_way_and_missing_flaps_hurt) {
    veh_wing_struct& w = veh[0].wing[part];
    w.els = 4;
    w.Croot = 2.0f;
    w.Ctip = 1.0f;
    veh[0].con_smooth = 2;
    veh[0].ail1_cratR = 0.2f;
    veh[0].ail1_cratT = 0.4f;
    w.ail1_elR = 2.0f;
    w.ail1_elT = 4.0f;
    // 0.2 of 1.5 m at the inner end, 0.4 of 1 m at the outer: 0.35 m of 1.25 m at element 3
    EXPECT_NEAR(control_crat(0, part, 3.0f, con_ail1), 0.35f / 1.25f, 1e-5f);
    float al = 0, cl = 0, cd = 0, cm = 0;
    set_con_eff(part, 3, con_ail1, 10.0f, &al, &cl, &cd, &cm, "", 1);
    EXPECT_LT(al, 0.0f);  // trailing edge up
    EXPECT_LT(cl, 0.0f);
    EXPECT_GT(cd, 0.0f);
    EXPECT_NEAR(cm, -0.5f * cl, 1e-6f);
    // at the last detent the shift of alpha and the direct term together are the designer's figure
    veh[0].flap_detents = 1;
    veh[0].fla1_dn[1] = 30.0f;
    veh[0].fla1_cl = 0.9f;
    veh[0].fla1_cratR = veh[0].fla1_cratT = 0.3f;
    w.fla1_elR = 0.0f;
    w.fla1_elT = 4.0f;
    al = cl = cd = cm = 0;
    set_con_eff(part, 1, con_fla1, 30.0f, &al, &cl, &cd, &cm, "", 0);
    EXPECT_NEAR(cl + 0.1f * al, 0.9f, 1e-4f);
    flt[0].fail_stat[fail_R_flp_off] = fail_active;
    flt[0].wing[part].alpha_el[1][0] = 5.0f;
    al = cl = cd = cm = 0;
    set_con_eff(part, 1, con_fla1, 30.0f, &al, &cl, &cd, &cm, "", 0);
    EXPECT_LT(cl, 0.0f);
    EXPECT_EQ(al, 0.0f);
    set_con_eff(part, 1, con_fla1, 0.0f, &al, &cl, &cd, &cm, "", 0);
    EXPECT_FLOAT_EQ(cl, -0.2f * control_crat(0, part, 1.0f, con_fla1) * 5.0f) << "a flap at 0 adds nothing";
}

TEST_F(element, forces_make_the_moments_of_their_arms) {
    flt_struct& f = flt[0];
    f.cos_alph = f.cos_beta = 1.0f;
    addFaero(0.0f, 0.0f, 100.0f, 3.0f, 0.0f, 2.0f, -1, -1);  // lift on the right wing, behind the centre
    EXPECT_FLOAT_EQ(f.L, -300.0f);                           // right wing up
    EXPECT_FLOAT_EQ(f.M, -200.0f);                           // nose down
    addFaero(50.0f, 0.0f, 0.0f, 3.0f, 1.0f, 0.0f, -1, -1);   // drag on the right wing, above the centre
    EXPECT_FLOAT_EQ(f.N, 150.0f);                            // nose right
    EXPECT_FLOAT_EQ(f.M, -150.0f);                           // nose up by the drag above
    // at 30 degrees of attack lift leans forward and drag up
    f.fnrml_aero_acf = f.faxil_aero_acf = f.fside_aero_acf = 0.0f;
    f.sin_alph = 0.5f;
    f.cos_alph = 0.8660254f;
    addFaero(10.0f, 0.0f, 100.0f, 0.0f, 0.0f, 0.0f, -1, -1);
    EXPECT_NEAR(f.faxil_aero_acf, 8.66025f - 50.0f, 1e-3f);
    EXPECT_NEAR(f.fnrml_aero_acf, 5.0f + 86.6025f, 1e-3f);
    // air from the left pushes the nose-right aircraft to the right
    f.sin_alph = 0.0f;
    f.cos_alph = 1.0f;
    f.sin_beta = 0.5f;
    f.cos_beta = 0.8660254f;
    f.fside_aero_acf = 0.0f;
    addFaero(10.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, -1, -1);
    EXPECT_NEAR(f.fside_aero_acf, 5.0f, 1e-4f);
    float vx = 0, vy = 0, vz = 0;
    f.Prad = 1.0f;  // rolling right, the right wing meets air from below
    inc_v(&vx, &vy, &vz, 2.0f, 0.0f, 0.0f);
    EXPECT_FLOAT_EQ(vy, 2.0f);
}

TEST_F(element, body_drag_and_crossflow) {
    float lift_b, side_b, drag_b;
    get_body_coeffs(1.0f, 8.0f, 6.0f, 0.1f, 34.0f, 0.0f, &lift_b, 0.0f, &side_b, 0.0f, &drag_b);
    const float q = 0.5f * 1.225f * 34.0f * 34.0f;
    EXPECT_NEAR(drag_b, 0.1f * q, 0.01f * q);
    EXPECT_EQ(lift_b, 0.0f);
    get_body_coeffs(1.0f, 8.0f, 6.0f, 0.1f, 34.0f, con.pid2, &lift_b, 0.0f, &side_b, con.pid2, &drag_b);
    EXPECT_NEAR(lift_b, 0.27f * 6.0f * q, 0.01f * 6.0f * q);
    EXPECT_NEAR(drag_b, 0.37f * 7.0f * q, 0.02f * 7.0f * q);
}
}  // namespace
