// From the designer's record to the flight model.
#include "aircraft/derive/derive.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "aircraft/derive/bodies_mass.h"
#include "aircraft/derive/oswald.h"
#include "aircraft/design/autoset.h"
#include "aircraft/file/acf_fault.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "design.h"

namespace {

constexpr float ft = 0.3048f;

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
    EXPECT_FLOAT_EQ(ret_e(900, -7, 85, 4), ret_e(60, 0, 70, 1));  // off the grid: its edge
    EXPECT_NEAR(ret_e(10, 3.5f, 25, 0.6f), 0.25f * (0.993f + 0.979f + 0.992f + 1.000f), 1e-6f);
    EXPECT_EQ(test::expect_fatal([] { ret_e(NAN, 0, 0, 0); }).line[0], "Out of bounds e-search!");
}

// -- finite wings
TEST_F(derive, single_wing_has_its_textbook_numbers) {
    design::surface(0, 9, {0, 0, 0, 4, 2, 15, 0, 0, 1.5f, -0.5f});
    make();
    const veh_wing_struct& wing = veh[0].wing[9];
    EXPECT_NEAR(wing.semilen_JND, 15 * ft, 1e-5f);
    EXPECT_NEAR(wing.TR, 0.5f, 1e-6f);
    EXPECT_NEAR(wing.AR, 10.0f, 1e-5f);
    // the finite slope of lifting-line theory
    const float slope = 1.0f / (18.0f / (con.pi * con.pi * wing.e * wing.AR) + 1.0f);
    EXPECT_NEAR(wing.al_D_al0 * wing.cl_D_cl0, slope, 1e-5f);
    EXPECT_NEAR((1.0f - wing.al_D_al0) / (1.0f - wing.cl_D_cl0), 2.0f, 1e-3f);
    EXPECT_NEAR(wing.cm_D_cm0, 10.0f / 12.0f, 1e-5f);
    EXPECT_NEAR(wing.alpha_max, 15.0f / wing.al_D_al0, 1e-4f);
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
    EXPECT_NEAR(wing.delta_fac, sweep_00 / 65.0f * 1.0f * (10.0f - 4.0f) / 9.5f, 1e-4f);
    EXPECT_NEAR(wing.cm_D_cm0, 0.5f * 4.0f / (2 * 0.70710678f + 4.0f), 1e-5f);
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
            if (AR == 0.0f) AR = wing.AR, e = wing.e;
            EXPECT_FLOAT_EQ(wing.AR, AR);
            EXPECT_FLOAT_EQ(wing.e, e);
        }
    } while (std::next_permutation(slots.begin(), slots.end()));
    EXPECT_NEAR(e, ret_e(AR, 3.0f, 0.0f, 0.4f), 1e-4f);  // washout from the first root to the last tip
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
    const float alone = build(30.0f, 0.0f);  // further than two chords apart
    EXPECT_GT(alone, 0.9f);
    EXPECT_FLOAT_EQ(build(5.0f, 6.0f), alone);        // further along than above
    EXPECT_NEAR(build(0.41f, 0.0f), 0.525f, 0.025f);  // nearly in one place: the induced drag of both
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
}

TEST_F(derive, discs_add_up) {
    veh[0].num_thrustpoints = 1;
    veh[0].rotor_mi_rat = 1.5f;
    design::surface(0, 0, {0, 0, 0, 1, 0.5f, 4});
    veh[0].engn[0].num_blades = 3;
    make();
    const veh_engn_struct& disc = veh[0].engn[0];
    EXPECT_NEAR(disc.discarea, con.pi * sqr(4 * ft), 1e-4f);
    float rings = 0.0f;
    for (int el = 0; el < 5; ++el) rings += disc.ringarea[el];
    EXPECT_NEAR(rings, disc.discarea, 1e-4f);
    // radius 1.2192, mean chord 0.2286, thickness 0.12 of it, 60 percent solid aluminium
    EXPECT_NEAR(disc.prop_mass, 1.2192f * 0.2286f * 0.027432f * 0.6f * 3 * 1.5f * 2700, 1e-2f);
    EXPECT_NEAR(disc.mi_prop_rpm, disc.prop_mass * sqr(0.707f * 1.2192f), 1e-3f);
}

// Which fleet an aircraft belongs to tells the folder below the program's own, not the first of that name.
TEST_F(derive, fleet_is_told_by_the_folder_below_the_programs_own) {
    acf_path = "/x/Aircraft/y:Aircraft:";
    std::strcpy(veh[0].path, "/x/Aircraft/y/Aircraft/Heavy Metal/A/test.acf");
    std::strcpy(veh[3].path, "/x/Aircraft/y:Aircraft:General Aviation:B:test.acf");
    make(0);
    make(3);
    EXPECT_TRUE(veh[0].is_hm && !veh[0].is_ga);
    EXPECT_TRUE(veh[3].is_ga && !veh[3].is_hm);
}

// -- wash and slats
void wing_and_tail(int p) {
    design::surface(p, 9, {0, 0, 0, 4, 2, 12});
    design::surface(p, 17, {0, 1.8f, 14.4f, 3, 3, 15, 0, 0, 0, 0, 10});
}

TEST_F(derive, tail_behind_the_span_flies_in_the_wash) {
    wing_and_tail(0);
    make();
    for (int el = 0; el < 10; ++el) {
        EXPECT_EQ(veh[0].in_downwash[17][9][el], el < 8) << el;  // middles at 0.75, 2.25 ... to 12 ft
        EXPECT_EQ(veh[0].in_downwash[17][8][el], 0);             // the other side's wing
        EXPECT_EQ(veh[0].in_downwash[9][17][el], 0);             // nothing washes forward
    }
    // ls 14.4/12: 4.5; vs 1.8/12: -0.8; AR 8: 2 - 4/3; TR 0.5: 0
    const float wash = 4.5f - 0.8f + 2.0f - 4.0f / 3.0f;
    EXPECT_NEAR(veh[0].wing[9].spec_wash, wash, 1e-4f);
}

// -- summary, load, order
TEST_F(derive, summary_of_a_plain_wing_is_what_a_ruler_says) {
    design::surface(0, 9, {0, 0, 2, 4, 4, 15});
    make();
    const aircraft_summary_struct sum = aircraft_summary(0);
    EXPECT_NEAR(sum.S_ref, 120 * ft * ft, 1e-3f);
    EXPECT_NEAR(sum.span, 30 * ft, 1e-4f);
    EXPECT_NEAR(sum.mean_chord, 4 * ft, 1e-4f);
    EXPECT_NEAR(sum.z_neutral, 2 * ft, 1e-4f);  // a wing alone is neutral at its quarter chord
    EXPECT_NEAR(sum.static_margin, 0.5f, 1e-4f);
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

    const auto told = [&](void (*spoil)(veh_struct&)) {
        clear_acf(0);
        hangar.place(0);
        spoil(veh[0]);
        return test::expect_fatal([] { derive_model(0); });
    };
    const alert_lines no_front = told([](veh_struct& v) {
        tube(v.part[56], 2, 10);
        for (auto& station : v.part[56].geo_xyz)
            for (auto& point : station) point[0] = -point[0];  // wound the wrong way
    });
    EXPECT_EQ(no_front.line[0],
              "I have found a part with no frontal area!. This is bad news for the math engine!");
    const alert_lines no_number = told([](veh_struct& v) { v.gear[4].stat_def = INFINITY; });
    EXPECT_EQ(no_number.line[0], "Finite wing reduction fail!");
    EXPECT_NE(no_number.line[2].find("4 stat_def"), std::string::npos);
}

}  // namespace
