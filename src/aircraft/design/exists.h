// Does this part of aircraft p exist, and is it still attached?
// Role: asked for every part in every half step, so the common tests are inline. Knows the record and
// the failures only.
#pragma once
#include "core/craft/engn_kinds.h"
#include "core/craft/veh.h"
#include "core/records/flt.h"

// What has_this_thru and has_this_engn are asked for.
enum thru_search : int {
    thru_any = 5,   // a thrust point
    thru_disc = 6,  // a thrust point that carries a propeller, fan or rotor
};
enum engn_search : int { engn_any = 0, engn_prop = 1, engn_recip = 2, engn_jet = 3, engn_roc = 4 };

// Fatal: an index outside the part's range, or an unknown type of search.
[[gnu::cold, gnu::noinline]] void bad_search(const char* text);

inline int part_failed(int p, int slot) { return flt[p].fail_stat[slot] == fail_active; }
// Of the user's aircraft, at once.
inline void fail_it(int slot) { flt[0].fail_stat[slot] = fail_active; }

// en 0 to 7.
int has_this_thru(int p, int en, int type_search);

// en 0 to 7, engines only.
int has_this_engn(int p, int en, int type_search);

// en 0 to 55; for a thrust point: does it carry a disc.
inline int has_this_wing(int p, int en) {
    if (en < 0 || en >= wingDIM) [[unlikely]] {
        bad_search("Bad has_this_wing search range!");
        return 0;
    }
    if (en <= part_thru_last) return has_this_thru(p, en, thru_disc);
    const int base = en <= part_wing_last ? fail_wing_sep : fail_pylo_sep;
    if (part_failed(p, base + en)) return 0;
    return veh[p].part[en].part_eq != 0;
}

// en 56 to 94; a nacelle goes with its engine.
inline int has_this_body(int p, int en) {
    if (en < part_body_first || en >= partDIM) [[unlikely]] {
        bad_search("Bad has_this_body search range!");
        return 0;
    }
    const bool nacelle = en >= part_nace_first && en <= part_nace_last;
    if (nacelle && part_failed(p, fail_eng_sep + en - part_nace_first)) return 0;
    return veh[p].part[en].part_eq != 0;
}

// en 0 to 9.
inline int has_this_gear(int p, int en) {
    if (en < 0 || en >= gearDIM) [[unlikely]] {
        bad_search("Bad has_this_gear search range!");
        return 0;
    }
    return veh[p].gear[en].gear_type != gear_none;
}
