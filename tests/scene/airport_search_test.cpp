// The rolling search for the nearest airport, and the ground that a frame finds for the next.
#include "scene/airport_search.h"

#include <string.h>

#include "core/math/globe.h"
#include "scene/world.h"
#include "scenery/ground/surfaces.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/region/region_lists.h"
#include "scenery/region/survey_land.h"
#include "support.h"

namespace {
class airport_search_test : public test::system_test {
protected:
    void SetUp() override {
        test::system_test::SetUp();
        env.lat_sou = 33.0f, env.lon_wes = -119.0f;
        flt[0].dob_lat = 34.0, flt[0].dob_lon = -117.5;
        reset_airport_search();
        msc.loc_apt_wrl = 7777;
    }
    void TearDown() override {
        region_steps = region_of_nothing;
        forget_nav_tables();
        reset_region_lists();
        reset_airport_search();
        test::fresh();
    }
    // Each so far north of the aircraft, degrees; the region is built anew.
    static void set_airports(const std::vector<float>& north) {
        vec_apt.clear();
        for (const float off : north) {
            vec_apt_struct& apt = vec_apt.emplace_back();
            snprintf(apt.apt_id, sizeof apt.apt_id, "A%02zu", vec_apt.size() - 1);
            apt.apt_type = apt_land;
            vec_rwy_struct& rwy = apt.rwy.emplace_back();
            rwy.lat = 34.0f + off, rwy.lon = -117.5f;
            rwy.len = 1000.0f, rwy.width = 40.0f, rwy.surf_tex = surface_concrete;
        }
        stand_on_survey_land();
        finish_region();
    }
    static int nearest_after(int frames) {
        for (int i = 0; i < frames; ++i) nearest_airport_step();
        return msc.loc_apt_wrl;
    }
};
}  // namespace

TEST_F(airport_search_test, takes_ten_a_frame_and_all_at_the_first) {
    std::vector<float> north(25, 0.5f);
    north[22] = 0.1f;
    set_airports(north);
    atm.set_wind_dir_mag[0] = 300.0f, vec_apt[22].rwy[0].psi_true = 20.0f;
    EXPECT_EQ(nearest_after(2), 7777);
    EXPECT_EQ(nearest_after(1), 22);
    EXPECT_EQ(msc.loc_apt_lcl, 22);
    EXPECT_STREQ(msc.apt_id_str, "A22");
    EXPECT_EQ(msc.ai_directn_use, 1) << "80 degrees off";
    vec_apt[3].rwy[0].lat = 34.05f, vec_apt[3].rwy[0].psi_true = 200.0f;
    EXPECT_EQ(nearest_after(2), 22);
    EXPECT_EQ(nearest_after(1), 3);
    EXPECT_EQ(msc.ai_directn_use, -1);
    vec_apt[24].rwy[0].lat = 34.01f;
    nearest_airport_step();
    mnw.first_miss_cycle = 1;
    EXPECT_EQ(nearest_after(1), 24);
    mnw.first_miss_cycle = 0;
    nearest_airport_step();
    set_airports({0.3f});
    EXPECT_EQ(nearest_after(2), 0) << "a region that changes in the midst";
}

TEST_F(airport_search_test, only_airports_that_aircraft_on_wheels_use_count) {
    set_airports({0.1f, 0.2f, 0.3f, 0.4f});
    vec_apt[0].apt_type = apt_sea, vec_apt[1].apt_type = apt_helipad, vec_apt[2].apt_type = apt_carrier;
    EXPECT_EQ(nearest_after(1), 3);
    vec_apt[3].apt_type = apt_carrier;
    msc.loc_apt_wrl = 7777;
    EXPECT_EQ(nearest_after(3), 7777);
    set_airports({});
    EXPECT_EQ(nearest_after(3), 7777) << "none there";
}

TEST_F(airport_search_test, a_frame_finds_the_ground_of_the_next) {
    set_airports({0.0f});
    mnw.first_miss_cycle = 1;
    scene_state_step();
    scene_state_step();
    EXPECT_EQ(msc.loc_apt_wrl, 0);
    EXPECT_EQ(env.surf_tex, surface_concrete);
    env.over_carr = 1, env.roughness = 0.5f;
    scene_state_step();
    EXPECT_TRUE(env.over_rwy_last == 1 && env.surf_tex == surface_concrete);
    EXPECT_TRUE(env.over_carr == 0 && env.roughness == 0.0f);
    flt[0].dob_x = 1000.0;
    scene_state_step();
    EXPECT_EQ(env.surf_tex, surface_plain);
    scene_state_step();
    EXPECT_EQ(env.over_rwy_last, 0);
}
