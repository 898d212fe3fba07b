// The mouse as the yoke: who has it when, and where the stick goes.
#include "ui/keys/mouse_yoke.h"

#include "core/program/input_gate.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/mnw.h"
#include "platform/screen.h"
#include "support.h"

namespace {
class mouse_yoke : public test::system_test {
protected:
    void SetUp() override {
        system_test::SetUp();
        mnw.x_res_now = 1024, mnw.y_res_now = 768;
        compute_screen_scale();
        MACIBM_startwind(win_fly, "test");
        reset_mouse_yoke();
        mnw.real_time = 100.0f;
        mnw.YK_ptch = mnw.YK_roll = 0.0f;
    }
    void TearDown() override { seams_headless(); }
    // A frame of the yoke, dt seconds long, the flight step taking the axes.
    static void frame(float x, float y, bool click = false, float dt = 0.02f) {
        seam.has_display = 1;
        mnw.mx = x, mnw.my = y, mnw.mouse_clicked = click;
        mnw.real_time += dt;
        mouse_yoke_step();
        if (mnw.assigned[axis_ptch]) mnw.YK_ptch = mnw.axis[axis_ptch];
        if (mnw.assigned[axis_roll]) mnw.YK_roll = mnw.axis[axis_roll];
        mnw.mouse_clicked = 0;
        seam.has_display = 0;
    }
    // Half a second with the mouse there.
    static void rest(float x, float y) {
        for (int i = 0; i < 26; ++i) frame(x, y);
    }
    static void expect_stick(float ptch, float roll) {
        EXPECT_NEAR(mnw.YK_ptch, ptch, 1e-4f);
        EXPECT_NEAR(mnw.YK_roll, roll, 1e-4f);
    }
    void take() {
        frame(512.0f, 384.0f, true);
        ASSERT_TRUE(mnw.mouse_is_joy);
    }
};

TEST_F(mouse_yoke, flies_from_a_click_near_the_middle_to_the_next_one) {
    rest(700.0f, 100.0f);
    expect_stick(0.0f, 0.0f);
    frame(612.5f, 384.0f, true);
    EXPECT_FALSE(mnw.mouse_is_joy) << "too far from the middle";
    frame(562.0f, 384.0f, true);
    EXPECT_TRUE(mnw.mouse_is_joy);
    EXPECT_LT(mnw.YK_roll, 0.05f) << "softly";
    rest(562.0f, 364.0f);
    expect_stick(0.2f, 0.5f);
    frame(620.0f, 500.0f);
    expect_stick(-1.0f, 1.0f);
    frame(562.0f, 384.0f, true);
    EXPECT_FALSE(mnw.mouse_is_joy);
    EXPECT_GT(mnw.YK_roll, 0.9f) << "softly";
    rest(562.0f, 384.0f);
    expect_stick(0.0f, 0.0f);
    mnw.YK_roll = 0.3f;
    frame(562.0f, 384.0f);
    EXPECT_EQ(mnw.YK_roll, 0.3f) << "given back, it is others' to move";
}

TEST_F(mouse_yoke, on_its_way_to_the_menus_the_mouse_is_not_full_forward_stick) {
    take();
    rest(512.0f, 760.0f);
    EXPECT_FALSE(mnw.mouse_is_joy);
    expect_stick(0.0f, 0.0f);
    rest(512.0f, 384.0f);
    EXPECT_FALSE(mnw.mouse_is_joy) << "it does not come back by itself";

    take();
    mnw.menu_up = 3;
    frame(512.0f, 384.0f);
    EXPECT_FALSE(mnw.mouse_is_joy) << "a menu takes it";
}

TEST_F(mouse_yoke, coordinates_of_a_window_that_was_closed_by_key_are_no_stick) {
    take();
    rest(562.0f, 384.0f);
    MACIBM_startwind(win_tim, "test");
    EXPECT_FLOAT_EQ(mnw.mx + mnw.win_x, 562.0f) << "the mouse stays where it is on the screen";
    EXPECT_FLOAT_EQ(mnw.my + mnw.win_y, 384.0f);
    MACIBM_startwind(win_fly, "test");
    EXPECT_FLOAT_EQ(mnw.mx, 562.0f);
    EXPECT_FLOAT_EQ(mnw.my, 384.0f);
    rest(mnw.mx, mnw.my);
    expect_stick(0.0f, 0.0f);
}

TEST_F(mouse_yoke, a_joystick_flies_alone) {
    take();
    mnw.has_joy = 1;
    frame(562.0f, 384.0f);
    EXPECT_FALSE(mnw.mouse_is_joy);
    EXPECT_FALSE(mnw.assigned[axis_roll]);
    EXPECT_FALSE(mouse_yoke_is_free());
}
}  // namespace
