// The picture of real land on both sides of a shift of the region.
#include <stdlib.h>

#include "core/disk/paths.h"
#include "core/math/axes.h"
#include "core/math/globe.h"
#include "core/records/records.h"
#include "scene/flying_view.h"
#include "scene/world.h"
#include "scenery/draw/scenery_gl.h"
#include "scenery/ground/region.h"
#include "scenery/ground/tile.h"
#include "scenery/region/region_tiles.h"
#include "scenery/seam/scenery_draw.h"
#include "weather/atmosphere.h"
#include "weather/sky/skyc.h"
#include "weather/weather_step.h"
#include "window.h"

namespace {
class shift_view_test : public test::window {
protected:
    void SetUp() override {
        test::window::SetUp();
        init_paths(INSTALL_FOLDER);
        scenery_draw = scenery_draw_gl;
        set_planet_specs(0);
        init_weather_defaults();
        stg.LOD_bias_rat = 1.0f;
        ren.FOV = 45.0f;
        stg.num_acf = 1;
        atm.vis_rep = 10.0f * con.nmtomtrs;
        mnw.prd_FM = 0.0f;  // the sea stands still
        init_world_rendering();
        skyc.conditions_init();
        mnw.locl_date_jan1 = 172, mnw.locl_time = 12.0f * 3600.0f, mnw.zulu_time = 20.0f * 3600.0f;
        region_steps = region_of_scenery;
    }
    void TearDown() override {
        for (auto& column : xdeg)
            for (xdeg_struct& tile : column) clear_degree(&tile);
        clear_region();
        region_steps = region_of_nothing;
        test::window::TearDown();
    }
    static void fly_over(double lat, double lon, double ele, float heading) {
        flt[0].y_agl_mtr = 1500.0f;
        env.lat_sou = 33.0f, env.lon_wes = -119.0f;
        load_region(shift_full_reload);
        xdob_xyz_with_latlonel(&flt[0].dob_x, &flt[0].dob_y, &flt[0].dob_z, lat, lon, ele);
        flt[0].dob_lat = lat, flt[0].dob_lon = lon, flt[0].dob_ele = ele;
        init_quaternion(heading, -5.0f, 0.0f, flt[0].q);
        quat_to_euler(flt[0].q, &flt[0].psi, &flt[0].the, &flt[0].phi);
    }
    static std::vector<unsigned char> picture() {
        scene_state_step();
        flying_view_draw();
        constexpr int strip = 60;  // of flight data, along the lower edge
        return pixels(0, strip, 1024, 768 - strip);
    }
};

struct difference {
    double mean = 0.0;    // grey levels
    double beyond = 0.0;  // percent of the pixels that differ by more than 8
};
difference between(const std::vector<unsigned char>& a, const std::vector<unsigned char>& b) {
    difference d;
    for (size_t i = 0; i < a.size(); i += 3) {
        const int grey = abs(a[i] + a[i + 1] + a[i + 2] - b[i] - b[i + 1] - b[i + 2]) / 3;
        d.mean += grey;
        d.beyond += grey > 8;
    }
    const double pixel = 3.0 / static_cast<double>(a.size());
    return {d.mean * pixel, 100.0 * d.beyond * pixel};
}

TEST_F(shift_view_test, a_flight_north_sees_no_jump) {
    constexpr double last_south = 34.52499, first_north = 34.52501, lon = -117.45;
    fly_over(last_south, lon, 2400.0, 0.0f);
    const auto before = picture();
    EXPECT_GT(ren.num_patches, 20);
    check_for_shift(first_north, lon);
    ASSERT_EQ(env.lat_sou, 34.0f);
    const auto after = picture();
    const difference d = between(before, after);
    RecordProperty("mean_difference", std::to_string(d.mean));
    RecordProperty("percent_beyond_8", std::to_string(d.beyond));
    EXPECT_LT(d.mean, 1.0);
    EXPECT_LT(d.beyond, 1.0);
    // the measure tells a pattern that has moved: the same land from 50 m farther on
    flt[0].dob_z -= 50.0;
    EXPECT_GT(between(before, picture()).mean, 0.8);
}
}  // namespace
