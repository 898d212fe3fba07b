// The whole frame over hours, visibilities, heights, weathers and views: nothing is told and OpenGL has no error.
#include <cmath>

#include "app/init_sim.h"
#include "core/disk/paths.h"
#include "core/program/upward.h"
#include "scene/dome.h"
#include "scene/flying_view.h"
#include "scene/world.h"
#include "scenery/draw/scenery_gl.h"
#include "scenery/ground/region.h"
#include "scenery/nav/planet_nav.h"
#include "scenery/region/region_tiles.h"
#include "scenery/seam/scenery_draw.h"
#include "ui/views/zoom.h"
#include "weather/atmosphere.h"
#include "weather/sky/stars.h"
#include "window.h"

namespace {
class sweep_test : public test::window {
protected:
    void SetUp() override {
        test::system_test::SetUp();
        open(256, 192);
        init_paths(INSTALL_FOLDER);
        scenery_draw = scenery_draw_gl;
        region_steps = region_of_scenery;
        ren.current_alpha = 1.0f;
        init_gen();
        init_world_rendering();
        star.star_build();
        const std::string path = std::string(INSTALL_FOLDER) + stg.def_pln_path;
        ASSERT_LT(path.size(), sizeof veh[0].path);
        path.copy(veh[0].path, path.size());
        ASSERT_EQ(load_plane(0), 1);
        read_planet_nav();
        init_flt_0(start_airport, place_runway);
        ren.view_type_act = view_fwd_panel;
        mnw.top_win = win_fly;
        stg.draw_gload = stg.warn_text = stg.draw_misc = stg.draw_fires = 1;
        mnw.prd_FM = 0.03f;
    }
    // A place in a cycle of so many steps, 0 to 1.
    static float at(int frame, int steps) { return static_cast<float>(frame % steps) / static_cast<float>(steps - 1); }
    static void set_frame(int frame) {
        constexpr int views[] = {view_fwd_panel, view_fwd_hud, view_right_90, view_back, view_tower,
                                 view_runway,    view_chase,   view_circle,   view_down, view_fwd_bare};
        constexpr float heights[] = {420.0f, 3000.0f, 16000.0f, 90000.0f};
        flt[0].dob_ele = heights[frame / 7 % 4];
        flt[0].dob_y = flt[0].dob_ele;
        flt[0].psi = 360.0f * at(frame, 37), flt[0].the = -40.0f + 80.0f * at(frame, 11);
        flt[0].g_nrml = -4.0f + 16.0f * at(frame, 29);
        flt[0].v_ind_kts = 200.0f, flt[0].window_ice = at(frame, 13);
        flt[0].lan_lite = frame % 2;
        mnw.zulu_time = 86400.0f * at(frame, 41);
        atm.vis_rep = powf(10.0f, 1.5f + 3.2f * at(frame, 17));
        atm.cld_type[0] = frame % 6;
        atm.rain_rat_acf = frame % 3 == 0 ? at(frame, 5) : 0.0f;
        atm.snow_rat_acf = frame % 3 == 1 ? at(frame, 5) : 0.0f;
        atm.hail_rat_acf = at(frame, 19);
        atm.plot_aurora = frame % 4 == 0;
        ren.night_vision_on = frame % 23 == 0, ren.sunglasses_on = frame % 5 == 0;
        ren.show_path = frame % 8;
        scn.vis_math_level = frame % 5;
        mnw.paused = frame % 31 == 0, mnw.replay_mode = frame % 47 == 0 ? 5 : 0;
        zoom.poke_view(views[frame % 10]);
    }
};

TEST_F(sweep_test, a_thousand_frames_have_nothing_to_tell) {
    int patches = 0, airports = 0;
    for (int frame = 0; frame < 1000; ++frame) {
        set_frame(frame);
        scene_state_step();
        flying_view_draw();
        ASSERT_TRUE(test::alerts.empty()) << frame << ": " << test::alerts[0].text.line[0];
        ASSERT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR)) << frame;
        patches += ren.num_patches;
        for (const int in_view : scn.apt_is_vis) airports += in_view;
    }
    EXPECT_GT(patches, 10000) << "the land was there";
    EXPECT_GT(airports, 300);
}
}  // namespace
