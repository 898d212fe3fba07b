// Strips of runways: textures by hand from the rules of markings, places against the globe, and what a region
// keeps of them.
#include "scenery/airports/strips.h"

#include <math.h>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "scenery/airports/strip_marks.h"
#include "scenery/ground/runways.h"
#include "scenery/ground/surfaces.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/region/region_lists.h"
#include "scenery/region/region_tiles.h"
#include "tile_folder.h"

namespace {
vec_rwy_struct runway(const char* name, float len, float width, int surf_tex, int markings = 0,
                      float disp = 0.0f, float blast = 0.0f) {
    vec_rwy_struct rwy;
    snprintf(rwy.num_str, sizeof rwy.num_str, "%s", name);
    rwy.len = len, rwy.width = width, rwy.disp = disp, rwy.blast = blast;
    rwy.surf_tex = static_cast<unsigned char>(surf_tex);
    rwy.markings = static_cast<unsigned char>(markings);
    return rwy;
}

std::string rows_of(const vec_rwy_struct& rwy) {
    std::string text;
    for (const int tex : plan_strip(rwy).tex) text += std::to_string(tex) + " ";
    return text;
}

// Of all pieces, in full rows.
float length_of(const strip_plan_struct& plan) {
    float sum = 0.0f;
    for (size_t s = 0; s + 1 < plan.tex.size(); ++s) sum += row_length(plan.tex[s]);
    return sum;
}

using strip_marks = test::system_test;
}  // namespace

TEST_F(strip_marks, of_runways_by_their_level) {
    const vec_rwy_struct precision = runway("06L", 1000, 50, surface_concrete, 3);
    EXPECT_EQ(rows_of(precision),
              "14 16 34 96 104 114 98 114 102 100 102 100 100 102 100 102 114 98 114 104 96 70 20 14 2 ");
    // 100 m and 200 m displaced, blast pads of 50 m and 100 m
    const vec_rwy_struct displaced = runway("18", 1000, 50, surface_asphalt, 2, 328.0656f, 164.0328f);
    EXPECT_EQ(rows_of(displaced),
              "1 3 7 11 21 57 95 113 113 97 113 113 113 113 97 113 113 95 93 21 11 7 5 5 3 1 1 1 ");
    EXPECT_EQ(rows_of(runway("01R", 30, 60, surface_asphalt, 3)), "13 19 23 95 59 15 13 1 ")
        << "marks of both ends meet";
    const vec_rwy_struct visual = runway("36C", 90, 30, surface_asphalt, 1);
    EXPECT_EQ(rows_of(visual), "9 17 93 113 57 17 9 1 ");
    EXPECT_EQ(rows_of(runway("??", 90, 30, surface_asphalt, 1)), "9 21 93 113 57 21 9 1 ") << "no number";
    for (const vec_rwy_struct& rwy : {precision, displaced}) {
        const strip_plan_struct plan = plan_strip(rwy);
        EXPECT_EQ(length_of(plan), static_cast<float>(plan.whole_rows))
            << "short rows make up for those added";
    }
    EXPECT_EQ(length_of(plan_strip(visual)), 4.0f);
    EXPECT_EQ(plan_strip(visual).whole_rows, 3) << "one row past the pavement, as given";
    EXPECT_EQ(plan_strip(runway("09", 1e7f, 30, surface_asphalt)).whole_rows, 1000);
    for (const float none : {0.0f, -5.0f, NAN, INFINITY})
        EXPECT_TRUE(plan_strip(runway("09", none, 30, surface_asphalt)).tex.empty() &&
                    plan_strip(runway("09", 900, none, surface_asphalt)).tex.empty());
}

TEST_F(strip_marks, of_bare_ground_taxiways_and_pads) {
    EXPECT_EQ(rows_of(runway("09", 60, 60, surface_grass, 3)), "123 115 123 115 ") << "grass bears no paint";
    EXPECT_EQ(rows_of(runway("09", 60, 60, surface_lakebed)), "126 118 126 118 ");
    EXPECT_EQ(rows_of(runway("xxx", 100, 20, surface_concrete, 3)), "108 108 108 108 108 108 ");
    EXPECT_EQ(rows_of(runway("xxx", 20, 20, surface_turn_concrete)), "106 106 ");
    EXPECT_EQ(rows_of(runway("H1x", 20, 20, surface_pad_asphalt)), "119 119 ");
    EXPECT_EQ(rows_of(runway("H1x", 20, 20, surface_pad_dirt)), "122 122 122 122 ");
    EXPECT_EQ(rows_of(runway("09", 120, 60, surface_water)), "128 128 128 128 ");
}

namespace {
class strips_test : public test::system_test {
protected:
    test::tile_folder folder;
    static constexpr double lat = 34.05, lon = -117.52, slope = 0.03;  // up to the north

    void SetUp() override {
        test::system_test::SetUp();
        init_paths(folder.path());
        test::set_region(33.0f, -119.0f);
        region_steps = region_of_scenery;
        folder.write_tile(test::land_tile(
            34, -118, height_at, [](double, double) { return 1; }, 51));
    }
    void TearDown() override {
        region_steps = region_of_nothing;
        forget_nav_tables();
        reset_region_lists();
        scenery_packages.clear();
        test::fresh();
    }
    static double height_at(double at, double) { return 500.0 + slope * 111319.5 * (at - 34.0); }
    static vec_rwy_struct& add(vec_rwy_struct rwy, float psi_true) {
        if (vec_apt.empty()) {
            vec_apt.emplace_back().apt_type = apt_land;
            vec_apt[0].ele = static_cast<float>(height_at(lat, lon));
        }
        rwy.lat = static_cast<float>(lat), rwy.lon = static_cast<float>(lon), rwy.psi_true = psi_true;
        return vec_apt[0].rwy.emplace_back(rwy);
    }
    static const std::vector<vec_rwy_pol_struct>& rows(int rwy) {
        return vec_rwy_geo[static_cast<size_t>(vec_apt[0].rwy[static_cast<size_t>(rwy)].geo_ind)].vec_rwy_pol;
    }
    // Metres east and north of the airport's place.
    static std::pair<double, double> from_centre(const float* xyz) {
        float at[3];
        latlonel_with_xyz(&at[0], &at[1], &at[2], xyz[0], xyz[1], xyz[2]);
        return {(at[1] - lon) * 111319.5 * cos(lat * dob_degtorad), (at[0] - lat) * 111319.5};
    }
};
}  // namespace

TEST_F(strips_test, corners_lie_on_the_globe_where_a_landing_on_the_heading_meets_them) {
    add(runway("09", 1000, 60, surface_asphalt, 0, 0.0f, 164.0328f), 90.0f);  // pads of 50 m and 100 m
    float corner[4][3];
    build_rwy_layout(0, 0, corner);
    const double expected[4][2] = {{-550, 30}, {-550, -30}, {600, 30}, {600, -30}};
    for (int c = 0; c < 4; ++c) {
        const auto [east, north] = from_centre(corner[c]);
        EXPECT_NEAR(east, expected[c][0], 1.5) << c;  // a latitude in float is good to half a metre
        EXPECT_NEAR(north, expected[c][1], 1.5) << c;
    }
}

TEST_F(strips_test, rows_are_level_on_the_higher_ground_and_bear_what_stands_on_them) {
    load_region(shift_full_reload);
    add(runway("36", 1000, 50, surface_asphalt, 2), 0.0f);
    add(runway("09", 900, 60, surface_concrete, 1), 90.0f);
    UTIL_build_runways(0);
    ASSERT_EQ(rows(0).size(), size_t{25});
    for (const int n : {0, 1})
        for (size_t s = 0; s < rows(n).size(); ++s) {
            const vec_rwy_pol_struct& row = rows(n)[s];
            float ground[2];
            for (int e = 0; e < 2; ++e) ground[e] = return_terrain_y(row.xyz[e][0], row.xyz[e][2], 30);
            EXPECT_EQ(row.xyz[0][1], row.xyz[1][1]);
            EXPECT_EQ(row.xyz[0][1], fmaxf(ground[0], ground[1]));
            EXPECT_NEAR(hypot(row.xyz[1][0] - row.xyz[0][0], row.xyz[1][2] - row.xyz[0][2]), n ? 60 : 50,
                        0.01);
        }
    EXPECT_NEAR(from_centre(rows(0)[0].xyz[0]).second, -500.0, 1.5);
    EXPECT_NEAR(from_centre(rows(0)[24].xyz[0]).second, 500.0, 1.5) << "ends with the pavement";
    EXPECT_NEAR(from_centre(rows(1).back().xyz[0]).first, 450.0 + 60.0, 1.5) << "one width past it, as given";
    EXPECT_NEAR(rows(0)[3].nrm[2], slope, 2e-3) << "uphill to the north leans to the south";
    EXPECT_NEAR(rows(0)[3].nrm[0], 0.0, 2e-3);
    EXPECT_NEAR(rows(1)[3].nrm[2], 0.0, 2e-3) << "across a slope it is level";
    EXPECT_GT(rows(0)[3].nrm[1], 0.99f);
    const vec_rwy_pol_struct &near = rows(1)[5], &far = rows(1)[6];
    const auto middle = [&](int axis) {
        return 0.25f * (near.xyz[0][axis] + near.xyz[1][axis] + far.xyz[0][axis] + far.xyz[1][axis]);
    };
    const float bare = return_terrain_y(middle(0), middle(2), 26);
    EXPECT_NEAR(return_terrain_y(middle(0), middle(2), 69), middle(1), 0.01);
    EXPECT_NEAR(middle(1) - bare, slope * 30.0, 0.1) << "half a width of slope over the ground";
    EXPECT_EQ(env.surf_tex, surface_concrete);
}

TEST_F(strips_test, go_with_their_region) {
    add(runway("36", 1000, 50, surface_asphalt, 2), 0.0f).roughness = 0.5f;
    add(runway("09", 900, 60, surface_concrete, 1), 90.0f);
    for (int i = 0; i < 3; ++i) load_region(shift_full_reload);
    EXPECT_EQ(vec_rwy_geo.size(), size_t{2}) << "a reload keeps nothing";
    for (int i = 0; i < 3; ++i) UTIL_build_runways(0);
    EXPECT_EQ(vec_rwy_geo.size(), size_t{2}) << "built again they lie where they were";
    const vec_rwy_pol_struct row = rows(0)[10];
    return_terrain_y(row.xyz[0][0] + 5.0f, row.xyz[0][2], 70);
    EXPECT_TRUE(env.over_rwy_this == 1 && env.roughness == 0.5f);
    const int revision = strips_revision();
    env.over_rwy_this = 0;
    test::set_region(40.0f, -119.0f);
    load_region(shift_full_reload);
    EXPECT_GT(strips_revision(), revision);
    EXPECT_EQ(strips_of_airport(0), nullptr);
    ren.rwy_geo[70] = 5, ren.rwy_pol[70] = 10;
    return_terrain_y(row.xyz[0][0] + 5.0f, row.xyz[0][2], 70);
    EXPECT_EQ(env.over_rwy_this, 0) << "an airport that is not here has no ground";
}
