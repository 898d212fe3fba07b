// Widgets under a mouse, in a real window: what they answer and what they show.
#include "draw/widgets/widgets.h"

#include <string.h>

#include <filesystem>

#include "core/disk/paths.h"
#include "core/program/input_gate.h"
#include "core/records/stl.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/primitives.h"
#include "draw/type.h"
#include "draw/widgets/frames.h"
#include "draw/widgets/menus.h"
#include "pictures.h"
#include "ui/screens/clicks.h"
#include "ui/screens/start_screen.h"
#include "window.h"

namespace {
class widgets : public test::window {
protected:
    void SetUp() override {
        test::window::SetUp();
        init_paths(INSTALL_FOLDER);
        ren.current_alpha = 1.0f;
        load_interface_images();
        MACIBM_clear_menus(1);
        mnw.menu_up = -1;
        mnw.top_win = win_snd;
        mnw.win_x = mnw.win_y = 0.0f;
        mnw.win_dx = 1024.0f, mnw.win_dy = 768.0f;
        mouse_away();
    }
    static void mouse_away() { mouse(-100.0f, -100.0f, 0); }
    static void mouse(float x, float y, int click) {
        mnw.mx = x, mnw.my = y;
        mnw.mouse_clicked = mnw.now_dragging = click;
        stl.help_message.clear();
    }
    // Draws on black and gives the picture of a box.
    template <class draw>
    static std::vector<unsigned char> picture(float x1, float y1, float x2, float y2, draw&& widget) {
        OGL_view_2d();
        glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT);
        widget();
        return pixels(static_cast<int>(x1), static_cast<int>(y1), static_cast<int>(x2 - x1),
                      static_cast<int>(y2 - y1));
    }
    static int lit(const std::vector<unsigned char>& rgb) {
        int n = 0;
        for (size_t i = 0; i < rgb.size(); i += 3) n += rgb[i] + rgb[i + 1] + rgb[i + 2] > 60;
        return n;
    }
};

TEST_F(widgets, buttons_and_boxes_answer_where_they_stand) {
    const auto button = [] { return BTN_action(300.0f, 300.0f, 0, 0, "press me{ The help."); };
    const auto at_rest = picture(240, 280, 360, 320, button);
    EXPECT_GT(lit(at_rest), 300);
    mouse(300.0f, 300.0f, 0);
    EXPECT_NE(picture(240, 280, 360, 320, button), at_rest) << "lights up under the mouse";
    EXPECT_EQ(stl.help_message, "The help.");
    for (const auto& [y, menu_up, hit] : {std::tuple{300.0f, -1, 1}, {311.0f, -1, 0}, {300.0f, 3, 0}}) {
        mnw.menu_up = menu_up;
        mouse(300.0f, y, 1);
        EXPECT_EQ(button(), hit) << "20 high, and no menu is open";
    }
    mnw.menu_up = -1;
    int flag = 0;
    for (const auto& [x, y, hit] : {std::tuple{200.0f, 200.0f, 1},
                                    {192.0f, 196.0f, 1},
                                    {208.0f, 212.0f, 1},
                                    {191.0f, 200.0f, 0},
                                    {200.0f, 213.0f, 0}}) {
        const int before = flag;
        mouse(x, y, 1);
        EXPECT_EQ(BTN_bool(200.0f, 200.0f, &flag, "a|b", 0), hit) << x << ' ' << y;
        EXPECT_EQ(flag, hit ? !before : before);
    }
    int choice = 5;
    char letter = 'a';
    unsigned char byte = 1;
    mouse(200.0f, 200.0f, 1);
    EXPECT_TRUE(BTN_is_int(200.0f, 200.0f, &choice, 2, "|two") && choice == 2);
    EXPECT_TRUE(BTN_xchr(200.0f, 200.0f, &letter, 'z', "") && letter == 'z');
    EXPECT_TRUE(BTN_xbyt(200.0f, 200.0f, &byte, 200, "") && byte == 200);
}

TEST_F(widgets, digit_boxes_step_by_their_place_and_keep_their_range) {
    float value = 29.92f;  // four boxes of 10 about x 300: 280 to 320
    const struct {
        float x, y, value;
        int hit;
    } clicks[] = {{315, 210, 29.93f, 1}, {305, 190, 29.83f, 1}, {285, 210, 31, 1},  // held, not wrapped
                  {285, 210, 31, 0},     {321, 210, 31, 0},     {300, 225, 31, 0}};
    for (const auto& c : clicks) {
        mouse(c.x, c.y, 1);
        EXPECT_EQ(BTN_flt_range(300.0f, 200.0f, &value, 4, 2, 28.0f, 31.0f, ""), c.hit) << c.x << ' ' << c.y;
        EXPECT_NEAR(value, c.value, 1e-4f);
    }
    mouse(285.0f, 190.0f, 1);
    for (const int negative_ok : {0, 1}) {
        int whole = 7;
        EXPECT_EQ(BTN_int(300.0f, 200.0f, &whole, 4, negative_ok, ""), 1);
        EXPECT_EQ(whole, negative_ok ? -993 : 0);
    }
    float feet = 100.0f;
    mouse(295.0f, 210.0f, 1);
    EXPECT_EQ(BTN_fltij(300.0f, 200.0f, &feet, 4, 0, 0, 0.3048f, 1, ""), 1);
    EXPECT_NEAR(feet, 100.0f + 100.0f / 0.3048f, 0.01f) << "a hundred metres more";
    char id[5] = "KS";
    mouse(285.0f, 190.0f, 1);
    EXPECT_EQ(BTN_chars(300.0f, 200.0f, id, 4, ""), 1);
    EXPECT_STREQ(id, "JS");
    mouse(315.0f, 190.0f, 1);
    BTN_chars(300.0f, 200.0f, id, 4, "");
    EXPECT_STREQ(id, "JS Z") << "wraps from blank";
}

TEST_F(widgets, a_list_opens_over_its_control_and_gives_the_choice) {
    int sel = 1;
    const auto list = [&] { return BTN_textlist(400.5f, 400.9f, &sel, "-zero-one-two-three", "label|"); };
    mouse(400.0f, 403.0f, 1);
    EXPECT_EQ(list(), 0);
    ASSERT_EQ(mnw.menu_up, menu_popup);
    ASSERT_EQ(menu[menu_popup].item.size(), 4u);
    const item_struct now = menu[menu_popup].item[1], last = menu[menu_popup].item[3];
    EXPECT_EQ(active_popup_code, 1024 * 400 + 400 + 922) << "1024 y + x, cut after the sum";
    EXPECT_LE(now.itemy1, 403);
    EXPECT_GE(now.itemy2, 400) << "the present item lies under the control";
    EXPECT_GT(lit(picture(last.itemx1, last.itemy1, last.itemx2, last.itemy2, [] { menus_draw(); })), 10);
    mouse(0.5f * (last.itemx1 + last.itemx2), last.itemy1 + 6.0f, 1);
    EXPECT_EQ(menus_click(1), 1);
    EXPECT_EQ(mnw.menu_up, -1);
    mouse_away();
    EXPECT_EQ(list(), 1);
    EXPECT_EQ(sel, 3);
    EXPECT_EQ(list(), 0);
    test::expect_fatal([&] { BTN_textlist(1.0f, 1.0f, &sel, "-a|b", ""); });
}

TEST_F(widgets, sliders_stay_grabbed_while_dragged) {
    float value = 0.0f;
    const auto slide = [&] {
        return BTN_horz_slider(100.0f, 300.0f, 200.0f, 10, 0.0f, 50.0f, &value, 1, "", "");
    };
    mouse(200.0f, 300.0f, 1);
    EXPECT_EQ(slide(), 1);
    EXPECT_FLOAT_EQ(value, 25.0f);
    mouse(250.0f, 700.0f, 0);
    mnw.now_dragging = 1;  // far off the track
    slide();
    EXPECT_FLOAT_EQ(value, 37.5f);
    mouse(250.0f, 300.0f, 0);
    slide();
    mouse(120.0f, 300.0f, 0);
    mnw.now_dragging = 1;  // a drag that began elsewhere
    EXPECT_EQ(slide(), 0);
    float same = 3.0f;
    mouse(200.0f, 300.0f, 1);
    BTN_horz_slider(100.0f, 300.0f, 200.0f, 10, 3.0f, 3.0f, &same, 1, "", "");
    EXPECT_NEAR(same, 3.005f, 1e-4f) << "ends that coincide are pushed apart";

    int line = 50;
    for (const auto& [y, now] : {std::pair{492.0f, 49}, {116.0f, 99}}) {
        mouse(500.0f, y, 1);
        EXPECT_EQ(BTN_vert_slider(500.0f, 100.0f, 500.0f, 0, 99, &line), 1);
        EXPECT_EQ(line, now);
    }
}

TEST_F(widgets, a_text_field_takes_the_keys_and_return) {
    std::string text = "abc";
    const auto field = [&] { return BTN_enterstring(300.0f, 300.0f, &text, 6, 4, ""); };
    mouse(300.0f, 300.0f, 1);
    field();
    EXPECT_EQ(mnw.entry_field, 4);
    mouse_away();
    for (const char c : {'d', 'e', 'f', 'g', 'h'}) input_gate_key(key_use_char, c, 1);
    EXPECT_EQ(field(), 1);
    EXPECT_EQ(text, "abcdef") << "cut to its length";
    input_gate_key(key_use_char, char_return, 1);
    EXPECT_EQ(mnw.entry_field, -1);
    EXPECT_EQ(mnw.top_win, win_snd) << "the window stays";
}

TEST_F(widgets, lists_of_places_are_searched_by_name_and_by_identifier) {
    place_ids = {nullptr,
                 [](int i) { return std::string(1, static_cast<char>('z' - i)) + (i == 7 ? "q" : "qqq"); }};
    int centre = 3, lit_line = 3;
    std::string name;
    const auto list = [&] {
        return BTN_big_name_list(win_apt_list, 100.0f, 300.0f, 0.0f, 0.0f, &centre, &lit_line, 0, 20, &name,
                                 [](int i) { return "Field " + std::string(1, static_cast<char>('a' + i)); });
    };
    const auto type_at = [&](float y, const std::string& text) {
        mouse(165.0f, y, 1);
        list();
        mouse_away();
        for (const char c : text) input_gate_key(key_use_char, c, 1);
        return list();
    };
    EXPECT_EQ(type_at(282.0f, "field f"), 1);
    EXPECT_EQ(lit_line, 5);
    EXPECT_EQ(type_at(256.0f, "SQ"), 1) << "identifiers are in no order";
    EXPECT_EQ(lit_line, 7);
    EXPECT_EQ(type_at(256.0f, "X"), 0) << "none begins so";
    EXPECT_EQ(centre, 7);
    place_ids = {};
}

TEST_F(widgets, an_interface_image_of_another_size_or_kind_is_refused) {
    const test::temp_folder folder;
    init_paths(folder.path());
    std::filesystem::create_directories(folder.path() + "Resources/bitmaps");
    std::filesystem::copy(INSTALL_FOLDER "Resources/bitmaps/blank.png",
                          folder.path() + "Resources/bitmaps/interface.png");
    EXPECT_EQ(test::expect_fatal(load_interface_images).line[2], "It is 16 by 16 pixels.");
    std::filesystem::remove(folder.path() + "Resources/bitmaps/interface.png");
    folder.write("Resources/bitmaps/interface.bmp", test::bmp_bytes(16, 16, test::bytes(3 * 16 * 16)));
    EXPECT_EQ(test::expect_fatal(load_interface_images).line[0], "I cannot open the graphics interface file!");
}

TEST_F(widgets, the_help_box_comes_at_rest_and_stays_on_the_screen) {
    mouse(1000.0f, 20.0f, 0);
    stl.help_message = std::string(300, 'x') + " help";
    mnw.real_time = 10.0f;
    mnw.m_move_time = 9.5f;
    EXPECT_EQ(lit(picture(0, 0, 1024, 700, overlay_draw)), 0) << "still moving";
    mnw.m_move_time = 8.9f;
    EXPECT_GT(lit(picture(600, 10, 1024, 300, overlay_draw)), 5000);
    EXPECT_EQ(lit(picture(0, 0, 580, 700, overlay_draw)), 0);
}

TEST_F(widgets, all_is_green_through_the_intensifier) {
    const auto label = [] { OGL_string(1, 100.0f, 100.0f, "MWMW", no_wrap, charset_text); };
    ren.night_vision_on = 1;
    const auto green = picture(90, 90, 160, 120, label);
    ren.night_vision_on = 0;
    const auto red = picture(90, 90, 160, 120, label);
    EXPECT_GT(lit(green), 30);
    for (size_t i = 0; i < green.size(); i += 3) {
        EXPECT_EQ(green[i] + green[i + 2], 0);
        EXPECT_EQ(red[i + 1] + red[i + 2], 0);
    }
}
}  // namespace
