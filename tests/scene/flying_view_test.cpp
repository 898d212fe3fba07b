// The flying view as a whole: where its eye stands, land in haze before an open sky, and the report of a
// frame.
#include "scene/flying_view.h"

#include <filesystem>
#include <sstream>

#include "core/disk/paths.h"
#include "core/math/globe.h"
#include "core/program/input_gate.h"
#include "core/program/logs.h"
#include "core/program/upward.h"
#include "scene/frame_report.h"
#include "scene/world.h"
#include "scenery/ground/tile.h"
#include "scenery/tile/tile_default.h"
#include "weather/atmosphere.h"
#include "weather/weather_step.h"
#include "window.h"

namespace {
class flying_view_test : public test::window {
protected:
    void SetUp() override {
        test::window::SetUp();
        init_paths(folder.path());
        set_planet_specs(0);
        init_weather_defaults();
        stg.LOD_bias_rat = 1.0f;
        ren.FOV = 45.0f;
        atm.vis_ground = 20000.0f;
        env.lat_sou = 33.0f, env.lon_wes = -119.0f;
        find_region_extents();
        xdob_xyz_with_latlonel(&flt[0].dob_x, &flt[0].dob_y, &flt[0].dob_z, 34.5, -117.5, 500.0);
        flt[0].dob_ele = 500.0;
        flt[0].y_agl_mtr = 500.0f;
    }
    void TearDown() override {
        for (auto& column : xdeg)
            for (xdeg_struct& tile : column) clear_degree(&tile);
        reset_frame_report();
        test::window::TearDown();
    }
    const test::temp_folder folder;
};

TEST_F(flying_view_test, tiles_and_what_lies_beyond_them_meet_in_the_haze) {
    init_world_rendering();
    make_def_env(34, 1, -118, 1);  // the sea
    finish_degree(&xdeg[1][1]);
    flt[0].the = -2.0f;
    WORLD_scene_all_cases();
    EXPECT_EQ(ren.num_patches, 0) << "a quiet seam draws nothing";
    flying_view_draw();
    EXPECT_GT(ren.num_patches, 0);
    const auto column = pixels(200, 60, 1, 700);
    int steps = 0;
    for (int y = 1; y < 700; ++y)
        for (int c = 0; c < 3; ++c) steps += abs(column[3 * y + c] - column[3 * (y - 1) + c]) > 12;
    EXPECT_EQ(steps, 0) << "neither where the tiles end nor at the horizon";
}

TEST_F(flying_view_test, from_orbit_the_picture_before_stayed_below_the_horizon) {
    glClearColor(1, 0, 0, 0);
    glClear(GL_COLOR_BUFFER_BIT);
    xdob_xyz_with_latlonel(&flt[0].dob_x, &flt[0].dob_y, &flt[0].dob_z, 34.5, -117.5, 4e5);
    flt[0].y_agl_mtr = 4e5f;
    flt[0].the = -25.0f;
    scene_state_step();
    flying_view_draw();
    const auto column = pixels(200, 60, 1, 700);
    for (int y = 0; y < 700; ++y) ASSERT_LT(column[3 * y], 250 + column[3 * y + 1]) << "a clear red at " << y;
}

TEST_F(flying_view_test, the_eye_stays_out_of_the_ground) {
    const auto stand_at = [](double height) {
        xdob_xyz_with_latlonel(&flt[0].dob_x, &flt[0].dob_y, &flt[0].dob_z, 34.0, -117.5, height);
        scene_state_step();
    };
    stand_at(0.4);
    EXPECT_NEAR(ren.view_ele_agl, 1.5f, 0.01f);
    stand_at(90.4);
    EXPECT_NEAR(ren.view_ele_agl, 90.4f, 0.01f);
    ren.view_type_act = view_chase;
    stand_at(0.4);
    EXPECT_NEAR(ren.view_ele_agl, 1.7f, 0.01f);
}

TEST_F(flying_view_test, the_report_writes_a_line_a_frame_while_it_is_on) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    make_def_env(34, 1, -118, 1);
    finish_degree(&xdeg[1][1]);
    const auto frame = [] {
        scene_state_step();
        mnw.real_time += 0.1f;
        flying_view_draw();
    };
    frame();
    EXPECT_FALSE(std::filesystem::exists("Frames.csv"));
    APP_handlekey(key_use_ctrl, ';');
    for (int i = 0; i < 4; ++i) frame();
    APP_handlekey(key_use_ctrl, ';');
    frame();
    std::istringstream text(test::read_file("Frames.csv"));
    std::filesystem::current_path(before);
    std::string header, line;
    std::getline(text, header);
    EXPECT_EQ(header.rfind("frame,time_s,triangles,list_calls,", 0), 0u);
    int lines = 0, n = -1, triangles = 0, lists = 0;
    float time = 0.0f;
    for (; std::getline(text, line); ++lines) {
        ASSERT_EQ(sscanf(line.c_str(), "%d,%f,%d,%d", &n, &time, &triangles, &lists), 4);
        EXPECT_EQ(n, lines);
        EXPECT_EQ(std::count(line.begin(), line.end(), ','), std::count(header.begin(), header.end(), ','));
        EXPECT_GT(triangles, 0);
        EXPECT_EQ(lists, ren.num_patches);
    }
    EXPECT_EQ(lines, 3) << "from the first whole frame on";
}

TEST_F(flying_view_test, a_report_on_a_full_disk_was_cut_off_without_a_word) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    std::filesystem::create_symlink("/dev/full", "Frames.csv");
    xer.open("Error.out");
    mnw.track_cpu = 1;
    for (int i = 0; i < 3; ++i) flying_view_draw();
    mnw.track_cpu = 0;
    flying_view_draw();
    xer.close();
    EXPECT_NE(test::read_file("Error.out").find("Frames.csv is cut off"), std::string::npos);
    std::filesystem::current_path(before);
}
}  // namespace
