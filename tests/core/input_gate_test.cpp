// The input gate without a window: fields of mnw, text entry, held keys.
#include "core/program/input_gate.h"

#include <cstring>

#include "core/program/upward.h"
#include "platform/screen.h"
#include "support.h"

class gate_test : public test::system_test {
protected:
    void SetUp() override {
        system_test::SetUp();
        MACIBM_startwind(0, "");
        std::memset(C_s_input, 0, sizeof C_s_input);
        return_hit = 0;
    }
    static void type(const std::string& text) {
        for (const char c : text) input_gate_key(key_use_char, c, 1);
    }
};

TEST_F(gate_test, keys_reach_mnw) {
    input_gate_key(key_use_char, 'g', 1);
    EXPECT_EQ(mnw.key_pressed, 'g');
    EXPECT_TRUE(mnw.key_hit && mnw.any_key_is_down);
    input_gate_key(key_use_char, 'g', 0);
    EXPECT_FALSE(mnw.any_key_is_down);
    mnw.key_hit = 0;
    input_gate_key(key_use_unknown, char_none, 1);  // any key at all
    EXPECT_TRUE(mnw.key_hit);
    EXPECT_EQ(mnw.key_pressed, 'g');
}

TEST_F(gate_test, held_keys_do_not_stick_when_shift_is_let_go_first) {
    input_gate_key(key_use_char, 'Q', 1);
    EXPECT_TRUE(input_key_is_held('q'));
    input_gate_key(key_use_char, 'q', 0);
    EXPECT_FALSE(input_key_is_held('q'));
    input_gate_key(key_use_special, special_shift_left, 1);
    EXPECT_TRUE(input_key_is_held(special_left));
    input_gate_key(key_use_special, special_left, 0);
    EXPECT_FALSE(input_key_is_held(special_left));
    input_gate_key(key_use_char, '?', 1);
    EXPECT_TRUE(input_key_is_held('/'));
    input_gate_key(key_use_function, 'a', 1);  // F keys share numbers with characters
    EXPECT_FALSE(input_key_is_held('a'));
    EXPECT_FALSE(input_key_is_held(-15) || input_key_is_held(1 << 30));
    for (int c = 33; c < 127; ++c) EXPECT_EQ(unshifted_key(shifted_key(unshifted_key(c))), unshifted_key(c));
}

TEST_F(gate_test, text_entry) {
    mnw.entry_field = 3;
    type("KSBx");
    input_gate_key(key_use_char, char_none, 1);  // backspace
    type("D");
    EXPECT_STREQ(C_s_input, "KSBD");
    input_gate_key(key_use_char, char_return, 1);
    EXPECT_EQ(return_hit, 1);
    EXPECT_EQ(mnw.entry_field, -1);
    EXPECT_STREQ(C_s_input, "KSBD");
    mnw.entry_field = 3;
    type("+");  // steps a value, ends the entry, is no text
    EXPECT_EQ(mnw.entry_field, -1);
    EXPECT_STREQ(C_s_input, "KSBD");

    mnw.entry_field = 0;
    type(std::string(2000, 'x'));
    EXPECT_EQ(std::strlen(C_s_input), 498u);
    for (int i = 0; i < 2000; ++i) input_gate_key(key_use_char, char_none, 1);
    EXPECT_STREQ(C_s_input, "");
    std::memset(C_s_input, 'y', sizeof C_s_input);  // whoever filled it forgot the end
    type("z");
    EXPECT_EQ(std::strlen(C_s_input), 498u);
}

TEST_F(gate_test, screen_scale) {
    struct {
        int x, y;
        float scale, x_off, y_off;
    } const cases[] = {{1280, 1024, 1.25f, 0.0f, 51.2f},
                       {2560, 1440, 1.875f, 170.6667f, 0.0f},
                       {800, 600, 1.0f, -112.0f, -168.0f}};
    for (const auto& c : cases) {
        mnw.x_res_now = c.x, mnw.y_res_now = c.y;
        compute_screen_scale();
        EXPECT_FLOAT_EQ(mnw.xy_scale, c.scale);
        EXPECT_NEAR(mnw.x_off, c.x_off, 1e-3f);
        EXPECT_NEAR(mnw.y_off, c.y_off, 1e-3f);
        EXPECT_NEAR((mnw.x2_pix - mnw.x1_pix) * mnw.xy_scale, c.x, 1e-2f);
    }
}
