// Engine levers and switches by key.
#include "ui/keys/engine_keys.h"

#include <string.h>

#include "aircraft/design/exists.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "flight/power/levers.h"

namespace {
constexpr float lever_step = 0.05f;
constexpr int first_lever_key = 50, shifted_by = 12;

float prop_span() { return veh[0].RSC_redline_PROP - veh[0].RSC_mingreen_PROP; }

void move_throttle(int en, float steps) { set_thro(en, flt[0].engn[en].thro_ref + steps * lever_step); }
void move_prop(int en, float steps) {
    set_prop(en, flt[0].engn[en].prop_rsc + steps * lever_step * prop_span());
}
void move_mixture(int en, float steps) { set_mixt(en, flt[0].engn[en].mixt + steps * lever_step); }

// The propeller lever of a manual propeller or rotor is its pitch.
void move_prop_or_pitch(int en, float steps) {
    switch (veh[0].engn[en].prop_type) {
        case prop_constant:
        case prop_governed_rotor:
            return move_prop(en, steps);
        case prop_manual:
        case prop_collective:
            return set_ptch(en, flt[0].engn[en].pitch_deg_ref + steps);
        default:
            return;
    }
}

// A quadrant with a pair of keys for each of four engines: the plain key lowers, the shifted one raises.
void quadrant_key(int key) {
    const bool raise = key >= first_lever_key + shifted_by;
    const int row = key - first_lever_key - (raise ? shifted_by : 0);
    const int en = row % 4;
    const float steps = raise ? 1.0f : -1.0f;
    if (row < 4)
        move_throttle(en, steps);
    else if (row < 8)
        move_prop(en, steps);
    else
        move_mixture(en, steps);
}

// All engines at once: F1 and F2 throttle, F5 and F6 propeller, F9 and F10 mixture, less and more.
void common_lever_key(int key) {
    const float steps = key % 2 ? 1.0f : -1.0f;
    for (int en = 0; en < veh[0].num_thrustpoints; ++en) {
        if (key <= 51 && has_this_engn(0, en, engn_any)) move_throttle(en, steps);
        if (key == 54 || key == 55) move_prop_or_pitch(en, steps);
        if (key == 58 || key == 59) move_mixture(en, steps);
    }
}

// Place of a key in a row that stands for engines 0 to 7, or -1.
int engine_of(int key, const char* row) {
    const char* at = key > 0 ? strchr(row, key) : nullptr;
    return at ? static_cast<int>(at - row) : -1;
}

void toggle(int& flag) { flag = !flag; }

void turn_ignition(int en, int by) {
    int& ignition = flt[0].engn[en].ignition;
    ignition = intlim(ignition + by, 0, 3);
}
}  // namespace

void lever_key(int key) {
    if (key < first_lever_key || key >= first_lever_key + 2 * shifted_by) return;
    if (mnw.eq_FLthroquad) return quadrant_key(key);
    if (key < first_lever_key + shifted_by) common_lever_key(key);
}

void switch_key(int key) {
    constexpr float starter_holds = 0.2f;  // s; the key repeats while it is held
    int en;
    if ((en = engine_of(key, "12345678")) >= 0)
        stg.start_time[en] = mnw.totl_time + starter_holds;
    else if ((en = engine_of(key, "QWERTYUI")) >= 0)
        turn_ignition(en, -1);
    else if ((en = engine_of(key, "ASDFGHJK")) >= 0)
        turn_ignition(en, 1);
    else if ((en = engine_of(key, "ZXCVBNM,")) >= 0)
        toggle(stg.fuel_pump[en]);
    else if (key == 'O')
        toggle(stg.battery);
    else if (key == 'P')
        toggle(stg.avionics);
    else if (key == 'L')
        for (int& generator : stg.generator) toggle(generator);
    else if (key == '\'')
        for (en = 0; en < veh[0].num_engines; ++en)
            if (eng_has_fadec(0, en)) toggle(stg.fadec_on[en]);
}
