// Where controls run along the span, and their share of the chord.
#include "aircraft/design/controls.h"

#include "core/craft/veh.h"
#include "core/math/num.h"

namespace {
// Where each control's fields are: elements between which it runs, and its share of the chord at both.
struct control_row {
    int kind;
    float veh_wing_struct::*elR;
    float veh_wing_struct::*elT;
    float veh_struct::*cratR;
    float veh_struct::*cratT;
};
#define CONTROL(name)                                                                                      \
    {                                                                                                      \
        con_##name, &veh_wing_struct::name##_elR, &veh_wing_struct::name##_elT, &veh_struct::name##_cratR, \
            &veh_struct::name##_cratT                                                                      \
    }
constexpr control_row controls[] = {CONTROL(ail1), CONTROL(ail2), CONTROL(spo1), CONTROL(spo2),
                                    CONTROL(yawb), CONTROL(elev), CONTROL(rud1), CONTROL(rud2),
                                    CONTROL(fla1), CONTROL(fla2), CONTROL(sbrk)};
#undef CONTROL
}  // namespace

float control_crat(int p, int en, float el, int control) {
    const veh_wing_struct& w = veh[p].wing[en];
    const auto chord = [&w](float at) {
        return extrap(0.0f, w.Croot, static_cast<float>(w.els), w.Ctip, at);
    };
    for (const control_row& row : controls) {
        if (row.kind != control) continue;
        const float elR = w.*row.elR, elT = w.*row.elT;
        const float control_chord =
            interp(elR, veh[p].*row.cratR * chord(elR), elT, veh[p].*row.cratT * chord(elT), el);
        return control_chord / fltmax2(chord(el), 0.001f);
    }
    return 0.0f;
}
