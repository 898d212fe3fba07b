// Flights and the region: where they begin, and what a long one passes over.
#include "app/lab/headless.h"
#include "core/disk/paths.h"
#include "core/math/globe.h"
#include "core/program/upward.h"
#include "flying.h"
#include "scenery/ground/region.h"
#include "scenery/ground/tile.h"
#include "scenery/region/region_tiles.h"
#include "scenery/region/survey_land.h"

namespace {
constexpr double tableland = 2500.0;  // m

// Two triangles under the centre of a tile.
void fill_tableland(int, int lat_file, int lat_os, int lon_file, int lon_os) {
    d3_struct corner[4];
    for (int i = 0; i < 4; ++i)
        xyz_with_latlonel(&corner[i].x, &corner[i].y, &corner[i].z, lat_file + (i == 1 || i == 2),
                          lon_file + (i >= 2), tableland);
    auto* const patch = new ytest_patch_struct;
    ytest_pol_struct& pol = patch->ytest_pol.emplace_back();
    for (const int i : {0, 1, 2, 0, 2, 3}) {
        pol.geo.push_back(corner[i]);
        pol.grow(corner[i]);
        patch->grow(corner[i]);
    }
    xdeg[lon_os][lat_os].ytest_buckets.Reset(bucket_levels, {patch->min_x, patch->min_z},
                                             {patch->max_x, patch->max_z}, buckets_strict);
    xdeg[lon_os][lat_os].ytest_buckets.Insert(patch);
}

class flight_region_test : public testing::Test {
protected:
    void SetUp() override { test::fly_aircraft("Wren 160"); }
    void TearDown() override {
        stand_on_survey_land();
        load_region(shift_full_reload);
        EXPECT_TRUE(test::alerts.empty());
    }
};

TEST_F(flight_region_test, is_lifted_onto_the_ground_whatever_its_height) {
    region_steps.fill_tile = fill_tableland;
    load_region(shift_full_reload);
    for (const float below : {1000.0f, 3000.0f}) {
        stg.cus_alt = static_cast<float>(tableland) - below;
        init_flt_0(start_custom, 0);
        EXPECT_NEAR(flt[0].y_agl_mtr, 0.0, 1e-3);
        EXPECT_GE(stg.parkbrake, 1.0f);
        // the chord of a degree lies some hundred metres below the globe
        EXPECT_NEAR(flt[0].dob_ele, tableland, 500.0);
    }
}

TEST_F(flight_region_test, begins_anew_where_its_place_is_however_far_the_last_one_went) {
    const double lat = flt[0].dob_lat, ele = flt[0].dob_ele;
    check_for_shift(-41.3, 174.8);
    init_flt_0(start_custom, 0);
    EXPECT_EQ(env.lat_sou, 33.0f);
    EXPECT_NEAR(flt[0].dob_lat, lat, 1e-6);
    EXPECT_NEAR(flt[0].dob_ele, ele, 0.01) << "the ground of another region had lifted it";
}

TEST_F(flight_region_test, begins_over_land_where_the_last_one_passed_in_space) {
    init_paths("/no such folder/");
    region_steps = region_of_scenery;
    static int loads;
    loads = 0;
    region_steps.place = [](int) { ++loads; };
    flt[0].y_agl_mtr = 40000.0f;
    load_region(shift_full_reload);
    for (int again = 0; again < 2; ++again) {
        init_flt_0(start_airport, place_runway);
        EXPECT_EQ(loads, 2) << "its water stood under the airport";
    }
    init_paths(INSTALL_FOLDER);
}
}  // namespace
