// Textures of a strip's rows.
#include "scenery/airports/strip_marks.h"

#include <math.h>

#include "core/math/num.h"
#include "scenery/ground/surfaces.h"
#include "scenery/nav/nav_tables.h"

void split_feet(float packed, float (&metres)[2]) {
    const float feet = fltlim(packed, 0.0f, 1.0e6f), whole = floorf(feet);
    metres[0] = whole * con.fttomtrs;
    metres[1] = (feet - whole) * 10000.0f * con.fttomtrs;
}

namespace {
// -- measures

struct rows_struct {
    int last = 1;           // index of the last row
    int blast[2] = {};      // rows of the blast pad of each end
    int displaced[2] = {};  // and of it and the displaced area
    int concrete = 0;       // 1: textures of concrete
    int level = 0;          // markings, 0 none to 3
};

bool is_taxiway(const vec_rwy_struct& rwy) { return rwy.num_str[0] == 'x'; }

bool blends_into_ground(int surf_tex) {
    return intrange(surf_tex, surface_grass, surface_lakebed) ||
           intrange(surf_tex, surface_pad_grass, surface_pad_dirt);
}

// Rows of one width's length each, so that what is painted on them stays square.
rows_struct count_rows(const vec_rwy_struct& rwy) {
    constexpr int most = 1000;
    rows_struct rows;
    float blast_m[2], disp_m[2];
    split_feet(rwy.blast, blast_m);
    split_feet(rwy.disp, disp_m);
    const float total = rwy.len + blast_m[0] + blast_m[1];
    rows.last = intlim(intround(total / rwy.width), 1, most);
    for (int e = 0; e < 2; ++e) {
        const float per_metre = static_cast<float>(rows.last) / total;
        const auto rows_of = [&](float metres) { return intlim(intround(metres * per_metre), 0, most); };
        rows.blast[e] = rows_of(blast_m[e]);
        if (blast_m[e] > 0.0f) rows.blast[e] = intmax2(rows.blast[e], 1);
        rows.displaced[e] = rows_of(blast_m[e] + disp_m[e]);
        if (disp_m[e] > 0.0f && rows.displaced[e] == rows.blast[e]) ++rows.displaced[e];
    }
    const bool is_runway = !is_taxiway(rwy) && rwy.num_str[0] != 'H';
    if (is_runway || blends_into_ground(rwy.surf_tex)) rows.last = intmax2(rows.last, 3);
    rows.concrete = rwy.surf_tex == surface_concrete;
    rows.level = rwy.surf_tex > surface_concrete || is_taxiway(rwy) ? 0 : rwy.markings;
    return rows;
}

// -- marks, each at its row from the threshold

int threshold_tex(int level, float width) {
    constexpr float wide = 40.0f;  // m
    return level == 1 ? strip_thr0 : level == 3 && width > wide ? strip_thr2 : strip_thr1;
}

// On the far end left and right change sides.
int letter_tex(char letter, int end) {
    switch (letter) {
        case 'L':
            return end == 0 ? strip_left : strip_right;
        case 'R':
            return end == 0 ? strip_right : strip_left;
        case 'C':
            return strip_centre;
        default:
            return strip_space;
    }
}

// Runway number of an end, 1 to 36; what is no number counts as 0.
int number_of(const char* num_str, int end) {
    const auto digit = [](char c) { return c >= '0' && c <= '9' ? c - '0' : -1; };
    const int tens = digit(num_str[0]), ones = digit(num_str[1]);
    const int number = tens < 0 ? 0 : ones < 0 ? tens : 10 * tens + ones;
    return intwrap(number + 18 * end, 1, 36);
}

struct mark_struct {
    int row, tex;
    int level;  // markings from which on it is there
};
constexpr mark_struct after_number[] = {{3, strip_semi, 2}, {6, strip_fdmk, 2},  {4, strip_tdz3, 3},
                                        {8, strip_tdz2, 3}, {10, strip_tdz2, 3}, {12, strip_tdz1, 3},
                                        {14, strip_tdz1, 3}};

// at[e]: rows from the threshold of end e. On a short runway marks of both ends meet: the first of the list
// wins.
int mark_tex(const vec_rwy_struct& rwy, int level, const int (&at)[2]) {
    if (at[0] == 0 || at[1] == 0) return threshold_tex(level, rwy.width);
    for (int e = 0; e < 2; ++e)
        if (at[e] == 1) return letter_tex(rwy.num_str[2], e);
    for (int e = 0; e < 2; ++e)
        if (at[e] == 2) return strip_number + 2 * (number_of(rwy.num_str, e) - 1);
    for (const mark_struct& mark : after_number)
        if (level >= mark.level && (at[0] == mark.row || at[1] == mark.row)) return mark.tex;
    return strip_line;
}

int marked_tex(const vec_rwy_struct& rwy, const rows_struct& rows, int s) {
    const auto within = [&](const int(&part)[2]) { return s < part[0] || s >= rows.last - part[1]; };
    const int at[2] = {s - rows.displaced[0], rows.last - rows.displaced[1] - 1 - s};
    return rows.concrete + (within(rows.blast)       ? strip_blast
                            : within(rows.displaced) ? strip_dis_middle
                                                     : mark_tex(rwy, rows.level, at));
}

int bare_tex(int surf_tex, const rows_struct& rows, int s) {
    if (surf_tex == surface_asphalt || surf_tex == surface_concrete) return strip_pave + rows.concrete;
    const bool at_end = s == 0 || s == rows.last - 1;
    if (at_end && intrange(surf_tex, surface_grass, surface_lakebed))
        return strip_grass_thr + surf_tex - surface_grass;
    return surf_tex;
}

// Displaced areas begin with one texture, end with another and repeat a third between. Rows are gone through
// in their order, so that those before have their final texture.
void finish_displaced(const rows_struct& rows, std::vector<unsigned short>& tex) {
    const int last = rows.last, c = rows.concrete;
    for (int s = 0; s <= last; ++s) {
        if (tex[s] != strip_dis_middle + c) continue;
        const bool first_half = 2 * s < last;
        const int outward = first_half ? s - 1 : s + 1, inward = first_half ? s + 1 : s - 1;
        const auto is = [&](int row, int what) { return intrange(row, 0, last) && tex[row] == what + c; };
        if (s == 0 || s == last || is(outward, strip_blast))
            tex[s] = static_cast<unsigned short>(strip_dis_first + c);
        else if (!is(inward, strip_dis_middle) && !is(inward, strip_dis_last))
            tex[s] = static_cast<unsigned short>(strip_dis_last + c);
    }
}
}  // namespace

float row_length(int tex) {
    if (intrange(tex, strip_left, strip_semi - 1)) return 0.25f;
    return intrange(tex, strip_semi, strip_semi + 1) ? 0.5f : 1.0f;
}

strip_plan_struct plan_strip(const vec_rwy_struct& rwy) {
    constexpr int added_by_marks =
        4;  // made up for by the short rows; with markings 1 one is left over, as given
    strip_plan_struct plan;
    if (!(rwy.width > 0.0f && rwy.len > 0.0f) || !isfinite(rwy.width) || !isfinite(rwy.len)) return plan;
    rows_struct rows = count_rows(rwy);
    plan.whole_rows = rows.last;
    if (rows.level != 0) rows.last += added_by_marks;
    plan.tex.reserve(static_cast<size_t>(rows.last) + 1);
    for (int s = 0; s <= rows.last; ++s)
        plan.tex.push_back(static_cast<unsigned short>(rows.level ? marked_tex(rwy, rows, s)
                                                                  : bare_tex(rwy.surf_tex, rows, s)));
    finish_displaced(rows, plan.tex);
    return plan;
}
