// The 95 parts of an aircraft: one index space, cut into kinds.
// Role: the one place that knows which indices a kind has; readers, tables of names and loops take them from
// here.
#pragma once
#include "core/craft/dims.h"

// Kind, first and last index (both inclusive), and its name in a design text with the number of its first one
// there, -1 for a name without a number. In order and without a gap.
// clang-format off
#define PART_RANGES(X) \
    X(thru, 0, 7, "engine", 0)           /* thrust points; wing[] describes one blade */ \
    X(wng1_left, 8, 8, "wing1_left", -1)                                                \
    X(wng1_right, 9, 9, "wing1_right", -1)                                              \
    X(wng2_left, 10, 10, "wing2_left", -1)                                              \
    X(wng2_right, 11, 11, "wing2_right", -1)                                            \
    X(wng3_left, 12, 12, "wing3_left", -1)                                              \
    X(wng3_right, 13, 13, "wing3_right", -1)                                            \
    X(wng4_left, 14, 14, "wing4_left", -1)                                              \
    X(wng4_right, 15, 15, "wing4_right", -1)                                            \
    X(hstb_l, 16, 16, "hstab_left", -1)  /* horizontal stabiliser */                     \
    X(hstb_r, 17, 17, "hstab_right", -1)                                                \
    X(vstb, 18, 19, "vstab", 1)          /* fins */                                      \
    X(surf, 20, 39, "surface", 20)       /* further lifting surfaces */                  \
    X(pylu, 40, 47, "pylon_upper", 0)    /* upper pylon of thrust point n */             \
    X(pyll, 48, 55, "pylon_lower", 0)    /* lower pylon of thrust point n */             \
    X(fuse, 56, 56, "fuselage", -1)                                                     \
    X(misc, 57, 76, "body", 57)          /* further bodies */                            \
    X(nace, 77, 84, "nacelle", 0)        /* nacelle of thrust point n */                 \
    X(fair, 85, 94, "fairing", 0)        /* fairing of gear n */
// clang-format on

enum part_range : int {
#define X(kind, first, last, name, number) part_##kind##_first = first, part_##kind##_last = last,
    PART_RANGES(X)
#undef X
    // runs of kinds that are asked for together
    part_main_last = part_wng4_right_last,  // wings 1 to 4
    part_hstb_left = part_hstb_l_first,
    part_hstb_right = part_hstb_r_first,
    part_wing_first = part_wng1_left_first,
    part_wing_last = part_surf_last,  // lifting: downwash, ground effect
    part_pylo_first = part_pylu_first,
    part_pylo_last = part_pyll_last,  // pylons: forces, no downwash
    part_pylo_low = part_pyll_first,
    part_body_first = part_fuse_first,
    part_body_last = part_misc_last,
};

struct part_range_struct {
    int first, last;
    const char* name;
    int number;
};
inline constexpr part_range_struct part_ranges[] = {
#define X(kind, first, last, name, number) {first, last, name, number},
    PART_RANGES(X)
#undef X
};

constexpr bool part_ranges_are_whole() {
    int next = 0;
    for (const part_range_struct& range : part_ranges) {
        if (range.first != next || range.last < range.first) return false;
        next = range.last + 1;
    }
    return next == partDIM;
}
static_assert(part_ranges_are_whole(), "the kinds of parts leave an index out or share one");
static_assert(part_pylo_last + 1 == wingDIM && part_thru_last + 1 == engnDIM,
              "parts and their arrays differ");
