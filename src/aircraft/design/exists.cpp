// Existence of thrust points and engines, and the alert that all existence tests share.
#include "aircraft/design/exists.h"

#include "core/program/alert.h"
#include "core/records/mnw.h"

void bad_search(const char* text) { MACIBM_alert(mnw.top_win, text, "", "", "", alert_fatal); }

int has_this_thru(int p, int en, int type_search) {
    if (en < 0 || en >= engnDIM) {
        bad_search("Bad has_this_thru search range!");
        return 0;
    }
    if (part_failed(p, fail_eng_sep + en)) return 0;
    if (veh[p].hide_prop_at_90_vect && flt[p].engn[en].vert_disc_vector >= 90.0f) return 0;
    switch (type_search) {
        case thru_any:
            return en < veh[p].num_thrustpoints;
        case thru_disc:
            if (en >= veh[p].num_engines) return en < veh[p].num_thrustpoints;  // driven, without an engine
            return en_is_prop(p, en) || en_is_tip(p, en);
    }
    bad_search("Bad has_this_thru search type!");
    return 0;
}

int has_this_engn(int p, int en, int type_search) {
    if (en < 0 || en >= engnDIM) {
        bad_search("Bad has_this_engn search range!");
        return 0;
    }
    const bool present = en < veh[p].num_engines && !part_failed(p, fail_eng_sep + en);
    switch (type_search) {
        case engn_any:
            return present;
        case engn_prop:
            return present && en_is_prop(p, en);
        case engn_recip:
            return present && en_is_recip(p, en);
        case engn_jet:
            return present && en_is_jet(p, en);
        case engn_roc:
            return present && en_is_roc(p, en);
    }
    bad_search("Bad has_this_engn search type!");
    return 0;
}
