// Slats, and which surface flies in whose wake.
#include "aircraft/derive/downwash.h"

#include "aircraft/derive/derive.h"
#include "aircraft/design/location.h"
#include "core/math/num.h"
#include "core/program/logs.h"

void derive_slats(int p) {
    for (int en = 0; en < wingDIM; ++en) {
        veh_wing_struct& wing = veh[p].wing[en];
        wing.slat_effect = 1.0f;  // blades and pylons have no slats, whatever their elements say
        if (en < part_wing_first || en > part_wing_last || !has_this_wing(p, en)) continue;
        for (int el = 0; el < wing.els; ++el) {
            const float alpha_max = fallout(wing.alpha_max, -0.01f, 0.01f);
            if (wing.slat[el]) wing.slat_effect = (veh[p].slat_inc + alpha_max) / alpha_max;
        }
        if (in_report(p) && wing.slat_effect != 1.0f)
            cyc << "surface " << en << ": slats stretch alpha by " << wing.slat_effect << '\n';
    }
}

// Only near-flat surfaces throw and meet wash.
static bool washes(int p, int en) { return has_this_wing(p, en) && flt_abs(veh[p].wing[en].dihed1) < 45.0f; }

// Sets the flags of the elements of washee that lie behind the span of washer.
static void flag_washed_elements(int p, int washee, int washer) {
    const veh_wing_struct &wing = veh[p].wing[washee], &ahead = veh[p].wing[washer];
    if (!(veh[p].part[washer].part_z < veh[p].part[washee].part_z)) return;
    if (!(flt_abs(wing.dihednow - ahead.dihednow) < 45.0f) || wing.lat_sign != ahead.lat_sign) return;
    const float x_root = flt_abs(get_el_base_loc(p, washer, 0.0f, 'X'));
    const float x_tip = flt_abs(get_el_base_loc(p, washer, ahead.els, 'X'));
    for (int el = 0; el < wing.els; ++el) {
        const float x = flt_abs(get_el_base_loc(p, washee, el + 0.5f, 'X'));
        if (fltrange(x, fltmin2(x_root, x_tip), fltmax2(x_root, x_tip)))
            veh[p].in_downwash[washee][washer][el] = 1;
    }
}

// Degrees of downwash that washer throws per unit of its lift coefficient. As given: a sum of four lines,
// over the distance behind and above in semi-spans, aspect ratio and taper; half where the root chords
// overlap.
static float ret_spec_wash(int p, int washee, int washer) {
    const veh_wing_struct& ahead = veh[p].wing[washer];
    const float semilen = fltmax2(ahead.semilen_JND, 0.01f);
    const float dz = flt_abs(veh[p].part[washee].part_z - veh[p].part[washer].part_z);
    const float dy = flt_abs(veh[p].part[washee].part_y - veh[p].part[washer].part_y);
    const float wash = interp(0.6f, 5.1f, 1.6f, 4.1f, dz / semilen) +
                       interp(0.0f, 0.0f, 0.6f, -3.2f, dy / semilen) +
                       interp(6.0f, 2.0f, 12.0f, -2.0f, ahead.AR) + interp(1.0f, -1.1f, 0.0f, 1.1f, ahead.TR);
    const bool root_chords_overlap = dz < veh[p].wing[washee].Croot + ahead.Croot;
    return root_chords_overlap ? 0.5f * wash : wash;
}

static bool any_in_wash(int p, int washee, int washer) {
    for (int el = 0; el < veh[p].wing[washee].els; ++el)
        if (veh[p].in_downwash[washee][washer][el]) return true;
    return false;
}

void derive_downwash(int p) {
    for (int washee = part_wing_first; washee <= part_wing_last; ++washee) {
        if (!washes(p, washee)) continue;
        for (int washer = part_wing_first; washer <= part_wing_last; ++washer)
            if (washer != washee && washes(p, washer)) flag_washed_elements(p, washee, washer);
    }
    if (p != 0) return;  // other aircraft keep what their file says

    for (int washee = part_wing_first; washee <= part_wing_last; ++washee) {
        if (!has_this_wing(p, washee)) continue;
        for (int washer = part_wing_first; washer <= part_wing_last; ++washer) {
            if (!has_this_wing(p, washer) || !any_in_wash(p, washee, washer)) continue;
            veh[p].wing[washer].spec_wash = ret_spec_wash(p, washee, washer);
            cyc << "surface " << washer << " washes surface " << washee << ": "
                << veh[p].wing[washer].spec_wash << " degrees per unit of lift coefficient\n";
        }
    }
}
