// From the designer's record to the flight model.
#include "aircraft/derive/derive.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "aircraft/derive/bodies_mass.h"
#include "aircraft/derive/oswald.h"
#include "aircraft/design/autoset.h"
#include "aircraft/design/location.h"
#include "aircraft/file/acf_fault.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "design.h"

namespace {

constexpr float ft = 0.3048f;
constexpr float lb = 0.4535925f;

class derive : public test::system_test {
protected:
    void SetUp() override {
        test::system_test::SetUp();
        forget_faulty_acf();
        for (int p : {0, 3}) {
            hangar.place(p);
            veh[p].m_empty = 1000.0f;
            veh[p].m_max = 2000.0f;
            veh[p].Vso_kts = 50.0f;
        }
    }
    // Completes and derives what the test has designed.
    static void make(int p = 0) {
        ACF_autoset(p);
        ASSERT_TRUE(derive_model(p)) << test::alerts.back().text.line[0];
    }
    design::hangar hangar;
};

// -- efficiency
TEST_F(derive, oswald_table_is_whole) {
    double sum = 0.0, weighted = 0.0, weight = 0.0;
    for (float aspec : {1, 5, 10, 25, 60})
        for (float washo : {0, 2, 5})
            for (float sweep : {-40, -25, 0, 25, 40, 70})
                for (float taper : {0.0f, 0.1f, 0.2f, 0.3f, 0.4f, 0.5f, 0.7f, 1.0f}) {
                    const double e = ret_e(aspec, washo, sweep, taper);
                    sum += e;
                    weighted += (weight += 0.001) * e;  // tells the order of a row too
                }
    EXPECT_NEAR(sum, 655.482, 1e-4);
    EXPECT_NEAR(weighted, 228.72034, 1e-4);
    EXPECT_FLOAT_EQ(ret_e(1, 0, -40, 0), 0.941f);
    EXPECT_FLOAT_EQ(ret_e(60, 5, 70, 1), 0.801f);
    EXPECT_FLOAT_EQ(ret_e(10, 2, 25, 0.4f), 0.997f);
    EXPECT_FLOAT_EQ(ret_e(900, -7, 85, 4), ret_e(60, 0, 70, 1));            // off the grid: its edge
    EXPECT_NEAR(ret_e(7.5f, 0, 0, 0.5f), 0.5f * (0.994f + 0.995f), 1e-6f);  // between two aspect ratios
    EXPECT_NEAR(ret_e(10, 3.5f, 25, 0.6f), 0.25f * (0.993f + 0.979f + 0.992f + 1.000f), 1e-6f);
    EXPECT_EQ(test::expect_fatal([] { ret_e(NAN, 0, 0, 0); }).line[0], "Out of bounds e-search!");
}

// Four quadrants of a surface that is linear along each axis, and beyond their ends.
TEST_F(derive, nine_points_give_back_a_bilinear_surface) {
    const float x[3] = {1, 2, 4}, y[3] = {-1, 3, 5};
    const auto z = [](float at_x, float at_y) { return 1 + 2 * at_x + 3 * at_y + 4 * at_x * at_y; };
    for (const float at_x : {0.0f, 1.5f, 2.0f, 3.0f, 6.0f})
        for (const float at_y : {-2.0f, 0.0f, 3.0f, 4.0f, 9.0f})
            EXPECT_NEAR(interp9(x[0], x[1], x[2], y[0], y[1], y[2], z(1, -1), z(2, -1), z(4, -1), z(1, 3),
                                z(2, 3), z(4, 3), z(1, 5), z(2, 5), z(4, 5), at_x, at_y),
                        z(at_x, at_y), 1e-3f);
}

// -- finite wings
TEST_F(derive, single_wing_has_its_textbook_numbers) {
    design::surface(0, 9, {0, 0, 0, 4, 2, 15, 0, 0, 1.5f, -0.5f});
    make();
    const veh_wing_struct& wing = veh[0].wing[9];
    EXPECT_NEAR(wing.semilen_JND, 15 * ft, 1e-5f);
    EXPECT_NEAR(wing.TR, 0.5f, 1e-6f);
    EXPECT_NEAR(wing.AR, 10.0f, 1e-5f);
    EXPECT_NEAR(wing.e, ret_e(10, 2, 0, 0.5f), 1e-6f);
    // the finite slope of lifting-line theory
    const float slope = 1.0f / (18.0f / (con.pi * con.pi * wing.e * wing.AR) + 1.0f);
    EXPECT_NEAR(wing.al_D_al0 * wing.cl_D_cl0, slope, 1e-5f);
    EXPECT_NEAR((1.0f - wing.al_D_al0) / (1.0f - wing.cl_D_cl0), 2.0f, 1e-3f);
    EXPECT_NEAR(wing.cm_D_cm0, 10.0f / 12.0f, 1e-5f);
    EXPECT_NEAR(wing.alpha_max, 15.0f / wing.al_D_al0, 1e-4f);
    EXPECT_EQ(wing.delta_fac, 0.0f);  // its aspect ratio is that of no delta
    EXPECT_NEAR(veh[0].wing[8].semilen_JND, wing.semilen_JND, 1e-6f);
    EXPECT_EQ(veh[0].afl[8].re_num[1][0], 0.0f);  // a Reynolds range without width is opened
    EXPECT_FLOAT_EQ(veh[0].afl[8].re_num[1][1], 99.9f);

    design::surface(3, 9, {0, 0, 0, 0.001f, 0.001f, 300});  // the chord is floored, the ratios are near 1
    make(3);
    EXPECT_GT(veh[3].wing[9].AR, 50000.0f);
    EXPECT_NEAR(veh[3].wing[9].cl_D_cl0, 1.0f, 1e-4f);
}

// A pylon has no stall angle of its own to be stretched.
TEST_F(derive, a_slat_on_a_pylon_stretches_nothing) {
    veh[0].slat_inc = 5.0f;
    design::surface(0, 40, {0, 0, 0, 2, 2, 2});
    veh[0].wing[40].slat[0] = 1;
    make();
    EXPECT_EQ(veh[0].wing[40].slat_effect, 1.0f);
}

TEST_F(derive, delta_wing_and_its_sweeps) {
    // leading edge: the root's 2.5 ft ahead of its quarter chord, the tip at the quarter chord line
    const float sweep = 45.0f, len = 10.0f;
    design::surface(0, 9, {0, 0, 0, 10, 0, len, 0, sweep});
    make();
    const veh_wing_struct& wing = veh[0].wing[9];
    const float out = len * 0.70710678f, aft = out + 2.5f;
    const float sweep_00 = std::atan2(aft, out) * 57.29578f;
    EXPECT_NEAR(wing.AR, 2 * len / 5, 1e-5f);
    EXPECT_NEAR(wing.delta_fac, sweep_00 / 65.0f * 1.0f * (10.0f - 4.0f) / 9.5f, 1e-4f);
    EXPECT_NEAR(wing.cm_D_cm0, 0.5f * 4.0f / (2 * 0.70710678f + 4.0f), 1e-5f);
    // a surface wholly ahead works the other way; the shift to half chord decides
    veh[0].part[9].part_z = -0.30f * wing.Croot;
    set_rev_con(0);
    EXPECT_EQ(wing.rev_con, wing.delta_fac < 0.2f);
}

TEST_F(derive, chain_of_segments_is_one_wing_in_any_order) {
    std::array<int, 3> slots = {9, 11, 13};
    float AR = 0.0f, e = 0.0f;
    do {
        clear_acf(0);
        hangar.place(0);
        veh[0].m_empty = 1000.0f;
        const float dihed[3] = {0, 3, 6}, len[3] = {10, 6, 4}, chord[4] = {5, 4.5f, 4, 2};
        float x = 1.0f, y = 0.0f;
        for (int i = 0; i < 3; ++i) {
            design::surface(0, slots[i],
                            {x, y, 0, chord[i], chord[i + 1], len[i], dihed[i], 0, 3.0f - i, 2.0f - i});
            x += len[i] * cos_deg(dihed[i]);
            y += len[i] * sin_deg(dihed[i]);
        }
        make();
        for (int i = 0; i < 3; ++i) {
            const veh_wing_struct& wing = veh[0].wing[slots[i]];
            EXPECT_NEAR(wing.semilen_JND, pythag(x, y) * ft, 1e-4f);  // from the centreline to the last tip
            EXPECT_NEAR(wing.AR, 2 * pythag(x, y) / 3.5f, 1e-4f);
            EXPECT_NEAR(wing.TR, 0.4f, 1e-5f);
            EXPECT_NEAR(wing.element_len, len[i] * ft / 5, 1e-5f);  // the elements stay apart
            if (AR == 0.0f) AR = wing.AR, e = wing.e;
            EXPECT_FLOAT_EQ(wing.AR, AR);
            EXPECT_FLOAT_EQ(wing.e, e);
        }
    } while (std::next_permutation(slots.begin(), slots.end()));
    EXPECT_NEAR(e, ret_e(AR, 3.0f, 0.0f, 0.4f), 1e-4f);  // washout from the first root to the last tip

    design::surface(3, 9, {0, 0, 0, 4, 4, 10});
    design::surface(3, 11, {10.5f, 0, 0, 4, 4, 10});  // a gap of more than a tenth of the chord
    make(3);
    EXPECT_NEAR(veh[3].wing[9].semilen_JND, 10 * ft, 1e-5f);
    EXPECT_NEAR(veh[3].wing[11].semilen_JND, 20.5f * ft, 1e-5f);  // reaches the centreline by itself
}

TEST_F(derive, equal_biplane_wings_share_their_induced_drag) {
    const auto build = [&](float gap, float stagger) {
        clear_acf(0);
        hangar.place(0);
        veh[0].m_empty = 1000.0f;
        design::surface(0, 9, {0.5f, 0, 0, 4, 4, 10});
        design::surface(0, 11, {0.5f, gap, stagger, 4, 4, 10});
        make();
        return veh[0].wing[9].e;
    };
    // a quarter of the span: sigma 0.42642, worked out by hand
    EXPECT_NEAR(build(5.0f, 0.0f), 1.0f / (1.0f + 0.42642f), 1e-4f);
    EXPECT_FLOAT_EQ(veh[0].wing[11].e, veh[0].wing[9].e);
    EXPECT_FLOAT_EQ(veh[0].wing[8].e, veh[0].wing[9].e);
    const float alone = build(30.0f, 0.0f);  // further than two chords apart
    EXPECT_GT(alone, 0.9f);
    EXPECT_FLOAT_EQ(build(5.0f, 6.0f), alone);   // further along than above
    EXPECT_FLOAT_EQ(build(0.39f, 0.0f), alone);  // closer than a tenth of the chord: one wing
    const float touching = build(0.41f, 0.0f);
    EXPECT_LT(touching, 0.55f);  // nearly in one place: each has the induced drag of both
    EXPECT_GT(touching, 0.5f);
}

// -- masses
// A closed tube of 16 sides along z, its middle at the part's place.
void tube(veh_part_struct& part, float radius, float len) {
    part.part_eq = 1;
    part.s_dim = part_sDIM;
    part.r_dim = part_rDIM;
    for (int s = 0; s < part_sDIM; ++s)
        for (int r = 0; r < part_rDIM; ++r) {
            // from the top down the right side in 8 steps, then back up the left
            const float turn = 22.5f * (r <= 8 ? r : r - 1);
            part.geo_xyz[s][r][0] = radius * sin_deg(turn);
            part.geo_xyz[s][r][1] = radius * cos_deg(turn);
            part.geo_xyz[s][r][2] = len * (s / 19.0f - 0.5f);
        }
}

TEST_F(derive, tube_has_the_areas_and_inertia_of_a_thin_shell) {
    constexpr float R = 3.0f, L = 20.0f;
    veh[0].part[56].part_y = 2.0f;
    veh[0].part[56].part_z = 7.0f;
    veh[0].cgY = 2.0f;
    veh[0].cgZ = 5.0f;
    tube(veh[0].part[56], R, L);
    make();
    const veh_part_struct& body = veh[0].part[56];
    const float polygon = 8.0f * R * R * 0.38268343f;  // 16 triangles of 22.5 degrees
    EXPECT_NEAR(body.area_frnt, polygon * ft * ft, 1e-3f);
    EXPECT_NEAR(body.area_side, 2 * R * L * ft * ft, 1e-3f);
    EXPECT_NEAR(body.area_nrml, 2 * R * L * ft * ft, 1e-3f);
    EXPECT_NEAR(bodies_wetted_area(0), 32 * R * 0.19509032f * L * ft * ft, 1e-2f);
    EXPECT_NEAR(body.aero_y_os, 0.0f, 1e-4f);
    EXPECT_NEAR(body.aero_z_os, 2.0f * ft, 1e-4f);
    // without engines the shell has all the mass; squared radii of gyration per mass
    const float pitch = (R * R / 2 + L * L / 12 + 4.0f) * ft * ft;
    EXPECT_NEAR(veh[0].Jzz_unitmass, R * R * ft * ft, 0.04f * R * R * ft * ft);
    EXPECT_NEAR(veh[0].Jxx_unitmass, pitch, 0.02f * pitch);
    EXPECT_NEAR(veh[0].Jyy_unitmass, pitch, 0.02f * pitch);

    veh[3].manual_rad_gyr = 1;  // entered radii, in feet
    veh[3].Jxx_unitmass = 5.0f;
    veh[3].Jzz_unitmass = 4.0f;
    make(3);
    EXPECT_NEAR(veh[3].Jxx_unitmass, 2.3226f, 1e-4f);
    EXPECT_NEAR(veh[3].Jzz_unitmass, 1.4864f, 1e-4f);
}

TEST_F(derive, engines_weigh_by_kind_and_at_most_half_the_aircraft) {
    veh[0].m_empty = 4000.0f;
    veh[0].m_max = 6000.0f;
    veh[0].num_engines = veh[0].num_thrustpoints = 2;
    veh[0].power_max = 200.0f;
    veh[0].thrust_max = 1000.0f;
    veh[0].MP_max = 59.84f;
    veh[0].RSC_redline_ENGN = 3000.0f;
    const struct {
        engn_kind kind;
        float pounds;
    } kinds[] = {
        // clang-format off
        {engn_recip_carb, 350 * 0.35355339f}, {engn_electric, 350}, {engn_turb_free, 100}, {engn_turb_fixed, 100},
        {engn_jet_lo, 180}, {engn_jet_hi, 180}, {engn_rocket, 10}, {engn_tip_rocket, 10},
        // clang-format on
    };
    for (const auto& k : kinds) {
        veh[3] = veh[0];
        for (int en : {0, 1}) {
            veh[3].engn[en].engn_type = k.kind;
            design::surface(3, en, {en ? 10.0f : -10.0f, 0, 0, 1, 1, 3});
        }
        make(3);
        EXPECT_NEAR(veh[3].engn[1].engn_mass, k.pounds * lb, 1e-2f) << k.kind;
        // on the wing, 10 feet out, with nothing else to spread the mass over
        EXPECT_NEAR(veh[3].Jzz_unitmass, 2 * k.pounds * lb * sqr(10 * ft) / (4000 * lb), 1e-3f);
        EXPECT_NEAR(veh[3].Jxx_unitmass, 0.0f, 1e-6f);
    }
    EXPECT_NEAR(veh[3].engn[0].mi_engn_rpm, 0.4f * 200 * 745.7f / sqr(3000 * 0.10471976f), 1e-3f);

    veh[0].power_max = 20000.0f;  // heavier than the aircraft: the shell keeps half
    design::surface(0, 9, {0, 0, 0, 4, 4, 12, 0, 0, 0, 0, 1});
    design::surface(0, 0, {0, 0, 0, 1, 1, 3});
    design::surface(0, 1, {0, 0, 0, 1, 1, 3});
    make();
    EXPECT_NEAR(veh[0].Jzz_unitmass, 0.5f * sqr(9 * ft), 1e-3f);  // at three quarters of the only element
}

TEST_F(derive, discs_add_up) {
    veh[0].num_thrustpoints = 3;
    veh[0].rotor_mi_rat = 1.5f;
    veh[0].tip_weight = 10.0f;
    for (int en = 0; en < 3; ++en) {
        design::surface(0, en, {0, 0, 0, 1, 0.5f, 4});
        veh[0].engn[en].num_blades = 3;
    }
    veh[0].engn[1].prop_type = prop_lift_fan;
    veh[0].engn[2].prop_type = prop_collective;
    veh[0].engn[1].is_ducted = 1;
    make();
    EXPECT_NEAR(veh[0].wing[0].AR, 2 * 4 / 0.75f, 1e-4f);
    EXPECT_NEAR(veh[0].wing[1].AR, 20 * 4 / 0.75f, 1e-3f);  // the duct saves the blade tips
    EXPECT_EQ(veh[0].wing[1].e, 1.0f);
    const veh_engn_struct& disc = veh[0].engn[0];
    EXPECT_NEAR(disc.discarea, con.pi * sqr(4 * ft), 1e-4f);
    float rings = 0.0f;
    for (int el = 0; el < 5; ++el) rings += disc.ringarea[el];
    EXPECT_NEAR(rings, disc.discarea, 1e-4f);
    EXPECT_NEAR(disc.ringarea[0], disc.discarea / 25, 1e-5f);
    // radius 1.2192, mean chord 0.2286, thickness 0.12 of it, 60 percent solid aluminium
    EXPECT_NEAR(disc.prop_mass, 1.2192f * 0.2286f * 0.027432f * 0.6f * 3 * 1.5f * 2700, 1e-2f);
    EXPECT_NEAR(disc.mi_prop_rpm, disc.prop_mass * sqr(0.707f * 1.2192f), 1e-3f);
    EXPECT_NEAR(veh[0].engn[1].mi_prop_rpm, 2 * disc.mi_prop_rpm, 1e-3f);
    EXPECT_NEAR(veh[0].engn[2].mi_prop_rpm - disc.mi_prop_rpm, 30 * lb * sqr(0.85f * 1.2192f), 1e-3f);
}

// Which fleet an aircraft belongs to tells the folder below the program's own, not the first of that name.
TEST_F(derive, fleet_is_told_by_the_folder_below_the_programs_own) {
    acf_path = "/x/Aircraft/y:Aircraft:";
    std::strcpy(veh[0].path, "/x/Aircraft/y/Aircraft/Heavy Metal/A/test.acf");
    std::strcpy(veh[3].path, "/x/Aircraft/y:Aircraft:General Aviation:B:test.acf");
    veh[0].crit_alt_prop = 20000.0f;
    make(0);
    make(3);
    EXPECT_TRUE(veh[0].is_hm && !veh[0].is_ga);
    EXPECT_TRUE(veh[3].is_ga && !veh[3].is_hm);
    // 20,000 ft: 0.653 kg/m3 in the standard atmosphere
    EXPECT_NEAR(veh[0].max_boost_pas_prop, (1 - 0.653f / 1.225f) * 101325, 900.0f);
}

// -- wash and slats
void wing_and_tail(int p) {
    design::surface(p, 9, {0, 0, 0, 4, 2, 12});
    design::surface(p, 17, {0, 1.8f, 14.4f, 3, 3, 15, 0, 0, 0, 0, 10});
}

TEST_F(derive, tail_behind_the_span_flies_in_the_wash) {
    wing_and_tail(0);
    design::surface(0, 18, {2, 1, 15, 3, 2, 5, 90});
    make();
    EXPECT_NEAR(veh[0].wing[18].semilen_JND, 5 * ft, 1e-5f);  // a fin's root is not drawn to x = 0
    for (int el = 0; el < 10; ++el) {
        EXPECT_EQ(veh[0].in_downwash[17][9][el], el < 8) << el;  // middles at 0.75, 2.25 ... to 12 ft
        EXPECT_EQ(veh[0].in_downwash[17][8][el], 0);             // the other side's wing
        EXPECT_EQ(veh[0].in_downwash[9][17][el], 0);             // nothing washes forward
        EXPECT_EQ(veh[0].in_downwash[16][8][el], el < 8);
        EXPECT_EQ(veh[0].in_downwash[18][9][el] + veh[0].in_downwash[17][18][el], 0);  // nor is a fin in it
    }
    // ls 14.4/12: 4.5; vs 1.8/12: -0.8; AR 8: 2 - 4/3; TR 0.5: 0
    const float wash = 4.5f - 0.8f + 2.0f - 4.0f / 3.0f;
    EXPECT_NEAR(veh[0].wing[9].spec_wash, wash, 1e-4f);
    EXPECT_NEAR(veh[0].wing[8].spec_wash, wash, 1e-4f);
    EXPECT_EQ(veh[0].wing[17].spec_wash, 0.0f);
}

// -- summary, load, order
TEST_F(derive, summary_of_a_plain_wing_is_what_a_ruler_says) {
    design::surface(0, 9, {0, 0, 2, 4, 4, 15});
    make();
    const aircraft_summary_struct sum = aircraft_summary(0);
    EXPECT_NEAR(sum.S_ref, 120 * ft * ft, 1e-3f);
    EXPECT_NEAR(sum.span, 30 * ft, 1e-4f);
    EXPECT_NEAR(sum.mean_chord, 4 * ft, 1e-4f);
    EXPECT_NEAR(sum.AR, 7.5f, 1e-4f);
    EXPECT_NEAR(sum.S_wet, 240 * ft * ft, 1e-2f);
    EXPECT_NEAR(sum.z_centroid, 2 * ft, 1e-4f);
    EXPECT_NEAR(sum.z_neutral, 2 * ft, 1e-4f);  // a wing alone is neutral at its quarter chord
    EXPECT_NEAR(sum.static_margin, 0.5f, 1e-4f);
    EXPECT_NEAR(veh[0].average_MAC_acf, 4 * ft, 1e-4f);

    clear_acf(0);
    hangar.place(0);
    veh[0].m_empty = 1000.0f;
    wing_and_tail(0);
    make();
    const aircraft_summary_struct both = aircraft_summary(0);
    EXPECT_GT(both.z_neutral, 1.0f * ft);
    EXPECT_LT(both.z_neutral, both.z_centroid);  // the wash takes from the tail
    EXPECT_NEAR(both.S_stab, 90 * ft * ft, 1e-3f);
}

TEST_F(derive, fault_ends_the_users_load_and_empties_a_strangers_slot) {
    wing_and_tail(3);
    std::strcpy(veh[3].wing[17].Tafl1, "none.afl");
    ACF_autoset(3);
    veh[0] = veh[3];
    EXPECT_FALSE(derive_model(3));
    ASSERT_EQ(test::alerts.size(), 1u);
    EXPECT_EQ(test::alerts[0].type, alert_message);
    EXPECT_EQ(veh[3].m_empty, 0.0f);
    EXPECT_EQ(veh[3].part[9].part_eq, 0);
    const std::string warning = test::alerts[0].text.line[0];
    EXPECT_EQ(test::expect_fatal([] { derive_model(0); }).line[0], warning);

    clear_acf(0);
    hangar.place(0);
    tube(veh[0].part[56], 2, 10);
    for (auto& station : veh[0].part[56].geo_xyz)
        for (auto& point : station) point[0] = -point[0];  // wound the wrong way: no frontal area
    veh[3] = veh[0];
    EXPECT_TRUE(derive_model(3));
    EXPECT_EQ(test::expect_fatal([] { derive_model(0); }).line[0],
              "I have found a part with no frontal area!. This is bad news for the math engine!");

    clear_acf(0);
    hangar.place(0);
    design::surface(0, 9, {0, 0, 0, 4, 4, 10, NAN});
    ACF_autoset(0);
    EXPECT_EQ(test::expect_fatal([] { derive_model(0); }).line[0], "Finite wing reduction fail!");
    clear_acf(0);
    hangar.place(0);
    veh[0].gear[4].stat_def = INFINITY;
    const alert_lines lines = test::expect_fatal([] { derive_model(0); });
    EXPECT_EQ(lines.line[0], "Finite wing reduction fail!");
    EXPECT_NE(lines.line[2].find("4 stat_def"), std::string::npos);
    clear_acf(0);
    hangar.place(0);
    for (float& place : veh[0].door[3].xyz) place = NAN;
    EXPECT_EQ(test::expect_fatal([] { derive_model(0); }).line[2], "veh_door_struct 3 xyz");
}

}  // namespace
