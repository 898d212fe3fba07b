// The user's aircraft from outside, measured on the picture.
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "aircraft/design/location.h"
#include "app/start/load_plane.h"
#include "core/disk/paths.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "scene/dome.h"
#include "scene/world.h"
#include "ui/views/zoom.h"
#include "weather/atmosphere.h"
#include "weather/sky/skyc.h"
#include "weather/weather_step.h"
#include "window.h"

namespace {
class plane_scene_test : public test::window {
protected:
    void SetUp() override {
        test::window::SetUp();
        init_paths(INSTALL_FOLDER);
        set_planet_specs(0);
        init_weather_defaults();
        reset_skyc();
        reset_views();
        atm.cld_type[0] = atm.cld_type[1] = cld_none;
        atm.vis_rep = 25.0f * con.nmtomtrs;
        ren.FOV = 45.0f;
        mnw.locl_date_jan1 = 172;
        mnw.zulu_time = 20.0f * 3600.0f;
        mnw.locl_time = locl_from_zulu();
        stg.num_acf = 1;
        snprintf(veh[0].path, sizeof veh[0].path, "%s",
                 (acf_path + "General Aviation:Wren 160 Trainer:Wren 160.acf").c_str());
        ASSERT_EQ(load_plane(0), 1);
        env.lat_sou = 33.0f, env.lon_wes = -119.0f;
        flt[0].dob_lat = 34.0, flt[0].dob_lon = -117.5, flt[0].dob_ele = 2000.0;
        xdob_xyz_with_latlonel(&flt[0].dob_x, &flt[0].dob_y, &flt[0].dob_z, 34.0, -117.5, 2000.0);
    }
    struct box {
        int x1, y1, x2, y2;
        int left_y, right_y;  // where it reaches farthest
        int dx() const { return x2 - x1; }
        int dy() const { return y2 - y1; }
    };
    static std::vector<unsigned char> picture() {
        WORLD_scene_per_dome();
        plot_airplanes(0);
        return pixels(0, 0, 1024, 768);
    }
    // Where the aircraft is on the picture: what changes when it is there. From the orbit, so many degrees
    // right of its tail and above it.
    static box seen_from(float right, float above) {
        scene_state_step();  // a new aircraft has an orbit of its own
        ren.view_type_act = view_circle;
        zoom.Pcirc_dist = 60.0f;
        zoom.poke_psi_the_rad(right * con.degtorad, -above * con.degtorad);
        mnw.prd_FM = 0.1f;
        for (int i = 0; i < 200; ++i) scene_state_step();
        const char name = veh[0].name[0];
        veh[0].name[0] = 0;
        const auto without = picture();
        veh[0].name[0] = name;
        const auto with = picture();
        box found = {1024, 768, -1, -1, 0, 0};
        for (int i = 0; i < 1024 * 768; ++i)
            if (!std::equal(&with[3 * i], &with[3 * i] + 3, &without[3 * i])) {
                const int x = i % 1024, y = i / 1024;
                if (x < found.x1) found.x1 = x, found.left_y = y;
                if (x > found.x2) found.x2 = x, found.right_y = y;
                found.y1 = std::min(found.y1, y), found.y2 = std::max(found.y2, y);
            }
        return found;
    }
};

constexpr double per_metre = 1024.0 / 60.0;  // at a metre's distance 1024 texels
constexpr double span = 2.0 * 18.0 * 0.3048;

TEST_F(plane_scene_test, spans_what_its_designer_wrote) {
    const box behind = seen_from(0.0f, 0.0f);
    EXPECT_NEAR(behind.dx(), span * per_metre, 0.03 * span * per_metre);
    EXPECT_NEAR(0.5 * (behind.x1 + behind.x2), 512.0, 3.0);
    // banked, it is as wide as its span's projection, and its right wing is low
    flt[0].phi = 30.0f;
    const box banked = seen_from(0.0f, 0.0f);
    EXPECT_NEAR(banked.dx(), span * cos(30.0 * con.degtorad) * per_metre, 0.06 * span * per_metre);
    EXPECT_NEAR(banked.left_y - banked.right_y, span * sin(30.0 * con.degtorad) * per_metre, 10.0);
    flt[0].phi = 0.0f;
    // from the right side its length and nothing of the span; from inside nothing
    const box beside = seen_from(-90.0f, 0.0f);
    EXPECT_NEAR(beside.dx(), 2.0 * veh[0].size_z * per_metre, 0.1 * beside.dx());
    ren.view_type_act = view_fwd_bare;
    scene_state_step();
    const auto inside = picture();
    veh[0].name[0] = 0;
    EXPECT_TRUE(inside == picture());
}

TEST_F(plane_scene_test, follows_legs_and_sweep) {
    float lowest = 0.0f;
    for (int g = 0; g < gearDIM; ++g) {
        veh_gear_struct& leg = veh[0].gear[g];
        leg.x_nodef = ret_gear_x_nodef(0, g), leg.y_nodef = ret_gear_y_nodef(0, g),
        leg.z_nodef = ret_gear_z_nodef(0, g), leg.dep_rat = 1.0f;
        if (leg.gear_type != gear_none) lowest = std::min(lowest, leg.y_nodef - leg.tire_radius);
    }
    const box out = seen_from(-90.0f, 0.0f);
    EXPECT_NEAR(out.y1, 384.0 + lowest * per_metre, 3.0);
    for (veh_gear_struct& leg : veh[0].gear) leg.dep_rat = 0.0f;
    EXPECT_GT(seen_from(-90.0f, 0.0f).y1, out.y1 + 0.3 * per_metre);
    // swept back after it was seen, it is narrower; its tips are nearer to the eye
    for (flt_wing_struct& wing : flt[0].wing)
        wing.sin_act_sweep = sin_deg(40.0f), wing.cos_act_sweep = cos_deg(40.0f);
    const double nearer = 60.0 / (60.0 - 0.5 * span * sin(40.0 * con.degtorad));
    const double width = span * cos(40.0 * con.degtorad) * per_metre * nearer;
    EXPECT_NEAR(seen_from(0.0f, 0.0f).dx(), width, 0.05 * width);
}
}  // namespace
