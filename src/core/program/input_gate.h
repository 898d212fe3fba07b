// The gate that every key and mouse event passes, whatever brings it: the window, a recording, or a
// second program that flies a script.
// Role: called while events are drained; writes the input fields of mnw and ends in the command gate.
// Knows no window system.
#pragma once
#include "core/craft/dims.h"

// How a key is meant (use_code of APP_handlekey).
enum key_use : int {
    key_use_unknown = -1,  // no key of ours: only told that something was pressed
    key_use_char = 0,      // key is the character
    key_use_special = 1,   // key is a special_key
    key_use_ctrl = 3,      // key is the character, control was down
    key_use_function = 4,  // key is 50 to 61 for F1 to F12, 62 to 73 with shift
};

enum char_key : int {
    char_return = 13,
    char_none = -15,  // a key without a character: of the plain keys only the backspace
};

enum special_key : int {
    special_tab = 12288,
    special_right = 31488,
    special_left = 31744,
    special_down = 32000,
    special_up = 32256,
    special_shift_up = 50000,
    special_shift_right,
    special_shift_down,
    special_shift_left,
    // keypad
    special_kp_1 = 21248,
    special_kp_2 = 21504,
    special_kp_3 = 21760,
    special_kp_4 = 22016,
    special_kp_5 = 22272,
    special_kp_6 = 22528,
    special_kp_8 = 23296,
};

extern int return_hit;          // Return was pressed in this frame; the frame clears it
extern char C_s_input[strDIM];  // text entry

// A key goes down or up; an auto-repeat is another down.
void input_gate_key(int use_code, int key, int is_down);
// The mouse stands at (mx, my), virtual units of the open window, and its button went down or up.
void input_gate_mouse(float mx, float my, int clicked, int lifted);
void input_gate_wheel(int steps);  // up is positive

// Held now? key is a character as typed without shift, or an unshifted special_key.
bool input_key_is_held(int key);

// A character with shift on a US keyboard, and back; others stay.
int shifted_key(int key);
int unshifted_key(int key);

// No key is held, no text is in the making.
void reset_input_gate();
