// Keys and mouse into mnw, text entry, commands.
#include "core/program/input_gate.h"

#include <bitset>
#include <cstring>
#include <string_view>

#include "core/program/upward.h"
#include "core/records/mnw.h"

int return_hit = 0;
char C_s_input[strDIM];

// -- shift and held keys

static constexpr std::string_view plain_signs = "1234567890`\\-=[];,./'";
static constexpr std::string_view shift_signs = "!@#$%^&*()~|_+{}:<>?\"";
static_assert(plain_signs.size() == shift_signs.size());

static int exchange(int key, std::string_view from, std::string_view to) {
    if (key <= 0 || key > 127) return key;
    const size_t at = from.find(static_cast<char>(key));
    return at == std::string_view::npos ? key : to[at];
}

int shifted_key(int key) {
    if (key >= 'a' && key <= 'z') return key - 'a' + 'A';
    return exchange(key, plain_signs, shift_signs);
}

int unshifted_key(int key) {
    if (key >= 'A' && key <= 'Z') return key - 'A' + 'a';
    switch (key) {
        case special_shift_up:
            return special_up;
        case special_shift_right:
            return special_right;
        case special_shift_down:
            return special_down;
        case special_shift_left:
            return special_left;
        default:
            return exchange(key, shift_signs, plain_signs);
    }
}

static std::bitset<65536> held;  // by unshifted key: shift may be let go before the key

static void hold(int use_code, int key, bool is_down) {
    key = unshifted_key(key);
    const bool has_place =
        use_code == key_use_char || use_code == key_use_special || use_code == key_use_ctrl;
    if (has_place && key >= 0 && key < static_cast<int>(held.size())) held[key] = is_down;
}

bool input_key_is_held(int key) { return key >= 0 && key < static_cast<int>(held.size()) && held[key]; }

void reset_input_gate() {
    held.reset();
    return_hit = 0;
    memset(C_s_input, 0, sizeof C_s_input);
}

// -- text entry

// Keys that move or step something; they end text entry and never become text.
static bool is_stepping_key(int use_code, int key) {
    if (use_code == key_use_special) return true;
    return key == '+' || key == '=' || key == '-' || key == '_';
}

static void edit_text(int key) {
    const size_t length = strnlen(C_s_input, strDIM - 2);
    C_s_input[length] = '\0';
    if (key == char_none) {
        if (length > 0) C_s_input[length - 1] = '\0';
    } else if (key != char_return && length < strDIM - 2) {
        C_s_input[length] = static_cast<char>(key);
        C_s_input[length + 1] = '\0';
    }
}

// -- gate

static void key_down(int use_code, int key) {
    mnw.key_hit = mnw.any_key_is_down = 1;
    if (use_code == key_use_unknown) return;
    if (use_code == key_use_function) {
        APP_handlekey(use_code, key);
        return;
    }
    const bool is_return = use_code != key_use_special && key == char_return;
    const bool steps = is_stepping_key(use_code, key);
    if (is_return) return_hit = 1;
    if (steps) mnw.entry_field = -1;
    mnw.key_pressed = use_code == key_use_special ? char_none : key;

    const bool is_typing = mnw.entry_field >= 0;
    if (mnw.top_win != win_save && !is_typing) APP_handlekey(use_code, key);
    if (steps) return;
    edit_text(key);
    if (!is_return) return;
    if (is_typing)
        mnw.entry_field = -1;  // a focused field takes the key, the window stays
    else
        MACIBM_handleclick(1);
}

void input_gate_key(int use_code, int key, int is_down) {
    hold(use_code, key, is_down);
    if (is_down) {
        key_down(use_code, key);
        return;
    }
    stop_fire();
    stop_starter();
    mnw.any_key_is_down = 0;
}

void input_gate_mouse(float mx, float my, int clicked, int lifted) {
    mnw.mx = mx;
    mnw.my = my;
    if (clicked) MACIBM_handleclick(0);
    if (lifted) mnw.mouse_lifted = 1;
}

void input_gate_wheel(int steps) { mnw.mouse_wheel += steps; }
