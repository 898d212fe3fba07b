// The real window on a screen of its own: what it shows for a known state, and what it takes from a
// keyboard and a mouse that a second program moves.

#include "window.h"

#include <unistd.h>

#include <cmath>

#include "core/math/globe.h"
#include "core/program/input_gate.h"
#include "core/program/upward.h"
#include "scene/flying_view.h"
#include "scene/world.h"
#include "weather/atmosphere.h"
#include "weather/sky/skyc.h"

// The GL driver keeps memory when it is unloaded; nobody could name the culprit by then.
extern "C" const char* __asan_default_options() { return "detect_leaks=0"; }

struct pixel {
    unsigned char r, g, b;
};

struct picture {
    int width, height;
    std::vector<unsigned char> bytes;
    pixel at(int x, int y) const {  // from below
        const unsigned char* p = &bytes[3 * (static_cast<size_t>(y) * width + x)];
        return {p[0], p[1], p[2]};
    }
};

class window_test : public test::window {
protected:
    void SetUp() override {
        test::window::SetUp();
        set_planet_specs(0);
        init_weather_defaults();
        paint_sky();
        ren.FOV = 45.0f;
        MACIBM_startwind(0, "");
        place(33.4, -117.5, 1000.0);
    }
    // Blue above the horizon, red fog below.
    static void paint_sky() {
        for (auto& set : skyc.raw_sky_256)
            for (auto& frame : set)
                for (auto& column : frame)
                    for (auto& row : column) row[0] = row[1] = 0, row[2] = 255;
        for (auto& set : skyc.raw_sky_256)
            for (auto& frame : set)
                for (auto& column : frame) column[0][0] = 255, column[0][2] = 0;
    }
    static void place(double lat, double lon, double ele) {
        flt_struct& f = flt[0];
        xdob_xyz_with_latlonel(&f.dob_x, &f.dob_y, &f.dob_z, lat, lon, ele);
        f.dob_lat = lat, f.dob_lon = lon, f.dob_ele = ele, f.y_agl_mtr = static_cast<float>(ele);
    }
    static picture look(float psi, float the, float phi) {
        flt[0].psi = psi, flt[0].the = the, flt[0].phi = phi;
        scene_state_step();
        flying_view_draw();
        return {mnw.x_res_now, mnw.y_res_now, pixels(0, 0, mnw.x_res_now, mnw.y_res_now)};
    }
    // Drains events until something holds.
    static bool comes(const std::function<bool()>& holds) {
        return test::comes([&] { return seam.drain_events(), holds(); });
    }
    static int xdotool(const std::string& words) { return test::run("xdotool " + words).status; }
};

static bool is_sky(const pixel& p) { return p.b > 200 && p.r < 50; }

// Lowest row of a column that is not all fog.
static int horizon_row(const picture& p, int x) {
    int y = 100;  // above the strip of data
    while (y < p.height - 1 && p.at(x, y).r > 250 && p.at(x, y).b < 5) ++y;
    return y;
}

// The pixels that a tangent of 1 covers from the middle of the picture: half of its width is FOV / 90.
static double pixels_per_tangent(const picture& p) { return p.width; }

TEST(window, a_screen_below_1024_by_768_gets_none) {
    const test::xvfb small("800x600x24");
    EXPECT_EQ(MACIBM_getcontext(), 0);
}

TEST_F(window_test, horizon_stands_where_pitch_and_height_put_it) {
    for (const double ele : {100.0, 1000.0, 9000.0}) {
        place(ref_lat(), ref_lon(), ele);  // where the world's y is the local vertical
        const double dip = std::acos(con.planet_rad / (con.planet_rad + ele)) * dob_radtodeg;
        for (const float the : {-5.0f, 0.0f, 8.0f}) {
            const picture p = look(30.0f, the, 0.0f);
            const double below = std::tan((the + dip) * dob_degtorad) * pixels_per_tangent(p);
            EXPECT_NEAR(horizon_row(p, 460), 384.0 - below, 1.6) << ele << ' ' << the;
            EXPECT_TRUE(is_sky(p.at(100, 767)));
            EXPECT_FALSE(is_sky(p.at(100, 100)));
        }
    }
}

// At the region's edge the local vertical leans against world y; a level attitude must still look level.
TEST_F(window_test, horizon_tilts_with_roll_and_is_level_at_the_regions_edge) {
    const auto slope = [](const picture& p) { return (horizon_row(p, 1000) - horizon_row(p, 24)) / 976.0; };
    for (const float phi : {-20.0f, 0.0f, 20.0f})  // right wing down: the right side of the horizon rises
        EXPECT_NEAR(slope(look(0.0f, 0.0f, phi)), std::tan(phi * dob_degtorad), 0.02) << phi;
    EXPECT_TRUE(is_sky(look(0.0f, 0.0f, 180.0f).at(100, 100)));
    place(34.0, -119.0, 100.0);
    float psi, the, phi;
    const float level[4] = {1.0f, 0.0f, 0.0f, 0.0f};  // level in the world frame, seen from here
    quat_to_local_euler(level, 34.0, -119.0, &psi, &the, &phi);
    ASSERT_GT(std::fabs(phi), 0.5f);
    EXPECT_NEAR(slope(look(0.0f, 0.0f, 0.0f)), std::tan(phi * dob_degtorad), 0.004);
}

TEST_F(window_test, keys_arrive) {
    ASSERT_EQ(xdotool("key a"), 0);
    EXPECT_TRUE(comes([] { return mnw.key_pressed == 'a' && !mnw.any_key_is_down; }));
    xdotool("key shift+slash");
    EXPECT_TRUE(comes([] { return mnw.key_pressed == '?'; }));
    EXPECT_TRUE(comes([] { return linkey_shft == 0; }));
    xdotool("keydown Left");
    EXPECT_TRUE(comes([] { return input_key_is_held(special_left); }));
    usleep(700000);  // into the auto-repeat, which is no release
    seam.drain_events();
    EXPECT_TRUE(input_key_is_held(special_left));
    xdotool("keyup Left");
    EXPECT_TRUE(comes([] { return !input_key_is_held(special_left); }));
    return_hit = 0;
    xdotool("key Return");
    EXPECT_TRUE(comes([] { return return_hit != 0; }));
    mnw.key_hit = 0, mnw.key_pressed = 0;
    xdotool("key Home");  // no key of ours: told and dropped
    EXPECT_TRUE(comes([] { return mnw.key_hit != 0; }));
    EXPECT_EQ(mnw.key_pressed, 0);
}

TEST_F(window_test, mouse_arrives_in_virtual_units_of_a_second_window_too) {
    window_close();
    open(1600, 1200);
    place(ref_lat(), ref_lon(), 1000.0);
    const picture p = look(0.0f, 0.0f, 0.0f);  // switches are set anew for the new context
    EXPECT_NEAR(horizon_row(p, 300), 600.0 - std::tan(1.015 * dob_degtorad) * pixels_per_tangent(p), 3.0);
    ASSERT_EQ(xdotool("mousemove 800 300 click 1"), 0);
    EXPECT_TRUE(comes([] { return mnw.mouse_clicked && mnw.mouse_lifted; }));
    EXPECT_NEAR(mnw.mx, 512.0f, 1.0f);
    EXPECT_NEAR(mnw.my, 576.0f, 1.0f);
    mnw.mouse_clicked = 0;
    xdotool("click 4 click 4 click 5");
    EXPECT_TRUE(comes([] { return mnw.mouse_wheel == 1; }));
    EXPECT_FALSE(mnw.mouse_clicked);
}

TEST_F(window_test, no_display_no_window) {
    window_close();
    setenv("DISPLAY", ":4711", 1);
    EXPECT_EQ(MACIBM_getcontext(), 0);
    EXPECT_EQ(MACIBM_setres(0), 1);
}
