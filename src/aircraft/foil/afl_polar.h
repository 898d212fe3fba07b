// Section coefficients from the few parameters of a foil, and the tables made of them.
// Role: at load, for files too old to hold tables, and in the foil compiler. Flight looks tables up.
// Angles in degrees. RT and Re choose the slot of the set (core/craft/afl.h).
#pragma once
#include "core/craft/afl.h"

// Alpha of table entry i: steps of 0.1 degree within -20 to 20 (entries 160 to 560), of 1 degree
// outside; entry 0 is -180, 360 is 0, 720 is 180.
inline float ret_alpha(int i) {
    const int k = i - 360;
    if (k < -200) return k + 180.0f;
    if (k > 200) return k - 180.0f;
    return k * 0.1f;
}

// The parameter curves, for al within -20 to 20; 0 outside.
float ret_cl(float al, const afl_struct* afl, int RT, int Re);
float ret_cd(float al, const afl_struct* afl, int RT, int Re);
float ret_cm(float al, const afl_struct* afl);

// Fills the three tables of a slot from its parameters; 0 when a value fails, by a division by zero
// that the parameters cause.
int gen_polar_tables(afl_struct* afl, int RT, int Re);

// The same, where a failed value is fatal.
void gen_cl_cd_cm(afl_struct* afl, int RT, int Re);

extern const char* const afl_bad_parameter_text;  // what the user is told of a failed value
