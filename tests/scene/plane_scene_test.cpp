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
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
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

// What differs between two pictures, as the sums of red, green and blue gained left and right of the middle.
struct gain {
    long left[3] = {}, right[3] = {};
};
gain gained(const std::vector<unsigned char>& from, const std::vector<unsigned char>& to) {
    gain sum;
    for (int i = 0; i < 1024 * 768; ++i)
        for (int c = 0; c < 3; ++c)
            (i % 1024 < 512 ? sum.left : sum.right)[c] += to[3 * i + c] - from[3 * i + c];
    return sum;
}

TEST_F(plane_scene_test, lamps_are_red_left_green_right_and_need_power_and_switch) {
    OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
    ASSERT_TRUE(tman.load_texture(1, load_ogl, tex_lights, filter_rgba, "world:lites:lights.png"));
    seen_from(0.0f, 50.0f);  // from behind the wings would hide them
    stg.battery = 1;
    for (flt_engn_struct& engine : flt[0].engn) engine.bat_volt = 1.0f;
    const auto dark = picture();
    for (const int textured : {0, 1}) {
        stg.draw_texlites = textured;
        flt[0].nav_lite = 1;
        const gain nav = gained(dark, picture());
        EXPECT_GT(nav.left[0], 0) << textured;
        EXPECT_LT(nav.left[1], nav.left[0]);
        EXPECT_GT(nav.right[1], 0);
        EXPECT_LT(nav.right[0], nav.right[1]);
        flt[0].str_inflash = 1;
        const gain flash = gained(dark, picture());
        EXPECT_GT(flash.left[2], 0);
        EXPECT_GT(flash.right[2], 0);
        flt[0].str_inflash = flt[0].nav_lite = 0;
        EXPECT_TRUE(picture() == dark);
    }
    flt[0].nav_lite = 1;
    flt[0].fail_stat[fail_esys] = fail_active;
    EXPECT_TRUE(picture() == dark);
}

// Where a picture differs from another: how many pixels, their mean, the highest row.
struct change {
    int count = 0, top = 0;
    double x = 0.0, y = 0.0;
};
change changed(const std::vector<unsigned char>& from, const std::vector<unsigned char>& to) {
    change sum;
    for (int i = 0; i < 1024 * 768; ++i)
        if (!std::equal(&from[3 * i], &from[3 * i] + 3, &to[3 * i]))
            ++sum.count, sum.top = i / 1024, sum.x += i % 1024, sum.y += i / 1024;
    return {sum.count, sum.top, sum.x / sum.count, sum.y / sum.count};
}

TEST_F(plane_scene_test, controls_turn_as_they_are_deflected_and_a_lost_flap_is_not_there) {
    seen_from(0.0f, 0.0f);
    const auto rest = picture();
    constexpr int right_wing = 9, fin = 18;
    flt[0].wing[right_wing].ail1_def = 40.0f;  // up
    const change up = changed(rest, picture());
    flt[0].wing[right_wing].ail1_def = -40.0f;
    const change down = changed(rest, picture());
    EXPECT_GT(up.count, 100);
    EXPECT_GT(up.x, 512.0 + 0.25 * span * per_metre);
    EXPECT_GT(up.top, down.top);
    flt[0].wing[right_wing].ail1_def = 0.0f;
    flt[0].wing[fin].rud1_def = -40.0f;  // right
    const change right = changed(rest, picture());
    flt[0].wing[fin].rud1_def = 40.0f;
    EXPECT_GT(right.x, changed(rest, picture()).x + 0.1 * per_metre);
    flt[0].wing[fin].rud1_def = 0.0f;
    for (const int en : {right_wing - 1, right_wing}) flt[0].wing[en].fla1_def = 30.0f;
    const change flaps = changed(rest, picture());
    EXPECT_NEAR(flaps.x, 512.0, 5.0);
    const auto both = picture();
    flt[0].fail_stat[fail_R_flp_off] = fail_active;
    EXPECT_GT(changed(both, picture()).x, 512.0) << "the right one is gone";
    flt[0].fail_stat[fail_R_flp_off] = 0;
    for (const int en : {right_wing - 1, right_wing}) flt[0].wing[en].fla1_def = 0.0f;
    EXPECT_TRUE(picture() == rest);
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
    for (flt_wing_struct& wing : flt[0].wing) wing.foil_swe_inc = 40.0f;
    const double nearer = 60.0 / (60.0 - 0.5 * span * sin(40.0 * con.degtorad));
    const double width = span * cos(40.0 * con.degtorad) * per_metre * nearer;
    EXPECT_NEAR(seen_from(0.0f, 0.0f).dx(), width, 0.05 * width);
}
}  // namespace
