// Numbers, labels, stretched frames and menus: all that needs no picture.
#include <math.h>

#include <string>

#include "core/records/mnw.h"
#include "core/records/stl.h"
#include "draw/type.h"
#include "draw/widgets/frames.h"
#include "draw/widgets/menus.h"
#include "draw/widgets/widgets.h"
#include "support.h"

namespace {
// What stands in the field: digits and signs at their half places, '_' where nothing stands.
std::string shown(float value, int dig, int dec) {
    const number_layout n = lay_out_number(value, dig, dec);
    std::string text(static_cast<size_t>(2 * (dig + 3)), '_');
    for (int i = 0; i < n.count; ++i) {
        const int at = static_cast<int>(lroundf(2.0f * n.glyph[i].place)) + 2;
        text[static_cast<size_t>(at)] = n.glyph[i].c;
    }
    while (!text.empty() && text.back() == '_') text.pop_back();
    return text;
}

TEST(number, fills_its_field_from_the_right) {
    EXPECT_EQ(shown(0.0f, 3, 0), "______0");
    EXPECT_EQ(shown(42.0f, 3, 0), "____4_2");
    EXPECT_EQ(shown(-42.0f, 3, 0), "-___4_2") << "the sign stands left of the field";
    EXPECT_EQ(shown(1234567.0f, 7, 0), "__1,2_3_4,5_6_7");
    EXPECT_EQ(shown(29.92f, 4, 2), "__2_9.9_2");
    EXPECT_EQ(shown(0.05f, 4, 2), "____0.0_5") << "one digit before the point";
    EXPECT_EQ(shown(9.996f, 4, 2), "__1_0.0_0") << "rounded after scaling";
    EXPECT_EQ(shown(-0.04f, 3, 0), "______0") << "no sign for what rounds to nothing";
}

TEST(number, too_large_or_none_is_told) {
    EXPECT_EQ(shown(1000.0f, 3, 0), "__1.0_0_x_3");
    EXPECT_EQ(shown(123456.0f, 4, 0), "__1.2_3_x_5");
    EXPECT_EQ(shown(NAN, 4, 0), "__-_-_-");
    EXPECT_EQ(shown(INFINITY, 4, 0), "__-_-_-");
    for (const float v : {1e30f, -1e30f, 3e38f}) EXPECT_LT(lay_out_number(v, 3, 2).count, 12);
}

TEST(label, splits_into_its_parts_and_lines) {
    const label_parts p = label0to12h("Left|Right{xHelp | and more");
    EXPECT_EQ(p.left, "Left");
    EXPECT_EQ(p.right, "Right");
    EXPECT_EQ(p.mark, 'x');
    EXPECT_EQ(p.help, "Help | and more");
    EXPECT_EQ(label0to12h("all left").left, "all left");
    EXPECT_EQ(label0to12h("").left, "");
    EXPECT_EQ(label0to12h("a{").help, "");
    EXPECT_EQ(split_label("a long label here", side_left_of).first, "a long");
    EXPECT_EQ(split_label("a long label here", side_left_of).second, "label here");
    EXPECT_EQ(split_label("a long label here", side_middle).second, "") << "in the middle it stays whole";
    EXPECT_EQ(split_label("-a long label here", side_left_of).first, "a long label here");
    EXPECT_EQ(split_label("pitch/roll-rates", side_right_of).first, "pitch/roll-");
}

// Whatever the length, the parts cover it without gap or overlap and never show more of the piece than it
// has.
TEST(frame, stretches_without_gaps) {
    static stretch_part parts[stretch_parts_max];
    for (const float piece : {52.0f, 100.0f, 16.0f})
        for (const float border : {7.0f, 5.0f})
            for (float length = 2.0f * border + 1.0f; length < 1100.0f; length += 7.3f) {
                const int n = stretch(length, border, piece, parts);
                ASSERT_GE(n, 2);
                EXPECT_FLOAT_EQ(parts[0].from, 0.0f);
                EXPECT_NEAR(parts[n - 1].to, length, 1e-2f);
                for (int i = 0; i < n; ++i) {
                    EXPECT_GE(parts[i].t_from, 0.0f);
                    EXPECT_LE(parts[i].t_to, piece + 1e-3f);
                    EXPECT_NEAR(parts[i].to - parts[i].from, parts[i].t_to - parts[i].t_from, 1e-2f)
                        << "not scaled";
                    if (i) {
                        EXPECT_NEAR(parts[i].from, parts[i - 1].to, 1e-3f);
                    }
                }
            }
    EXPECT_EQ(stretch(-5.0f, 10.0f, 52.0f, parts), 0);
}

TEST(text, wraps_at_words) {
    EXPECT_EQ(wrapped_lines("one two three", no_wrap), 1);
    EXPECT_EQ(wrapped_lines("one\ntwo", no_wrap), 2);
    EXPECT_GT(wrapped_lines("one two three four five six", 60.0f), 2);
    EXPECT_EQ(wrapped_lines(std::string("\x80\xff\x01 ") + "x", no_wrap), 1);
    for (int code = 0; code < 37; ++code) EXPECT_EQ(char_to_code(code_to_char(code)), code);
}

class menus : public test::system_test {
protected:
    void SetUp() override {
        system_test::SetUp();
        mnw.lang = 0;
        mnw.y_off = 0.0f;
        MACIBM_clear_menus(1);
    }
    // Entries of one that hangs on the bar, moved to that place.
    static const std::vector<item_struct>& submenu(int x, int y, int entries) {
        MACIBM_create_menu(0, 0, "File");
        MACIBM_append_menu(0, 0, 1, "more", 0);
        MACIBM_create_menu(20, 0, "sub");
        menu[20].menux1 = x, menu[20].menuy1 = y;
        for (int i = 0; i < entries; ++i) MACIBM_append_menu(20, i, i, "entry " + std::to_string(i), 1);
        return menu[20].item;
    }
    static bool same_box(const item_struct& a, const menu_struct& b) {
        return a.itemx1 == b.menux1 && a.itemy1 == b.menuy1 && a.itemy2 == b.menuy2;
    }
};

TEST_F(menus, lie_side_by_side_and_hang_below_each_other) {
    MACIBM_create_menu(0, 0, "File");
    MACIBM_create_menu(1, 0, "View");
    EXPECT_EQ(menu[0].menux1, 10);
    EXPECT_EQ(menu[1].menux1, menu[0].menux2);
    EXPECT_EQ(menu[0].menuy1, 750);
    MACIBM_append_menu(0, 0, 300, "Open[o]", 0);
    MACIBM_append_menu(0, 1, 0, "-", 0);
    MACIBM_append_menu(0, 2, 308, "Quit, a longer entry", 0);
    const auto& item = menu[0].item;
    EXPECT_EQ(item[0].itemy2, 750);
    EXPECT_EQ(item[0].itemy1, 738);
    EXPECT_EQ(item[1].itemy1, 736) << "a separator is 2 high";
    EXPECT_EQ(item[0].itemx2, item[2].itemx2) << "all as wide as the widest";
    MACIBM_create_menu(20, 0 * 300 + 2, "sub");
    EXPECT_EQ(menu[20].menu_prnt, 0);
    EXPECT_TRUE(same_box(item[2], menu[20]));
    MACIBM_append_menu(20, 0, 1, "first", 0);
    EXPECT_TRUE(same_box(menu[20].item[0], menu[20])) << "takes the parent's place";
    EXPECT_EQ(split_hint("Open[o]").name, "Open");
    EXPECT_EQ(split_hint("Open [ctrl-o]").hint, "ctrl-o");
}

TEST_F(menus, long_ones_go_to_a_second_column_on_the_screen) {
    const auto& item = submenu(900, 750, 130);
    EXPECT_EQ(item[60].itemy2, item[0].itemy2);
    EXPECT_EQ(item[60].itemx1, item[0].itemx1 + 180);
    EXPECT_LE(item[129].itemx2, 1024 - 5);
    for (const item_struct& i : item) EXPECT_GE(i.itemy1, 5);
}

TEST_F(menus, a_submenu_that_would_pass_the_bottom_is_shifted_up_whole_and_not_squashed) {
    const auto& item = submenu(10, 100, 60);  // 60 entries below it do not fit
    for (int i = 0; i < 60; ++i) EXPECT_EQ(item[i].itemy2 - item[i].itemy1, 12) << i;
    for (int i = 1; i < 60; ++i) EXPECT_EQ(item[i].itemy2, item[i - 1].itemy1) << i;
    EXPECT_EQ(item[59].itemy1, 5);
}

TEST_F(menus, refuse_what_does_not_fit_and_survive_odd_parents) {
    EXPECT_EQ(test::expect_fatal([] { MACIBM_append_menu(1520, 0, 0, "x", 0); }).line[0],
              "Menu index out of range in append_menu!");
    MACIBM_create_menu(5, 999999, std::string(60, 'y'));
    EXPECT_EQ(menu[5].menu_name.size(), 40u);
    MACIBM_create_menu(6, -7, "z");
    MACIBM_clear_menus(3);
    EXPECT_FALSE(menu[5].menu_name.empty());
    MACIBM_clear_menus(2);
    EXPECT_TRUE(menu[5].menu_name.empty());
}
}  // namespace
