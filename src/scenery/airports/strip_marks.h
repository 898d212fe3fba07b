// Which texture each row of a runway's strip has: its markings, laid out by rule from the runway's record.
// Role: the strips' first half; knows no place on the ground and no drawing.
#pragma once
#include <vector>

struct vec_rwy_struct;

// Textures of strips. Of the markings this is the asphalt one, concrete is the next.
enum strip_tex : int {
    strip_blast = 1,
    strip_dis_first = 3,  // displaced area: its beginning, its end, and in between
    strip_dis_middle = 5,
    strip_dis_last = 7,
    strip_thr0 = 9,  // thresholds: plain, narrow and wide with bars
    strip_thr1 = 11,
    strip_thr2 = 13,
    strip_left = 15,  // letters
    strip_centre = 17,
    strip_right = 19,
    strip_space = 21,   // the place of a letter where there is none
    strip_number = 23,  // of 1, to 93 of 36
    strip_semi = 95,    // half a row between number and line
    strip_fdmk = 97,    // aiming point
    strip_tdz1 = 99,    // touchdown zone: one, two, three bars
    strip_tdz2 = 101,
    strip_tdz3 = 103,
    strip_pave = 107,       // bare pavement
    strip_line = 113,       // and with its line
    strip_grass_thr = 123,  // threshold of grass; dirt, gravel, lakebed follow
};

// Of one runway, from the first end to the second.
struct strip_plan_struct {
    std::vector<unsigned short> tex;  // by row, strip_tex or surface_tex
    int whole_rows = 1;               // how many of full length make up the pavement with its blast pads
};

// A runway without width or length has no rows.
strip_plan_struct plan_strip(const vec_rwy_struct& rwy);

// Length of a row with this texture, in full rows: letters and numbers are short.
float row_length(int tex);

// One number of the airport file holds the feet of both ends: whole ones of the first, ten-thousandths of the
// second. In metres.
void split_feet(float packed, float (&metres)[2]);
