// Where controls run along the span, and their share of the chord.
#include "aircraft/design/controls.h"

#include "core/craft/veh.h"
#include "core/math/num.h"

namespace {
struct control_ends {
    float elR, elT, cratR, cratT;
};

control_ends ends_of(int p, int en, int control) {
    const veh_struct& v = veh[p];
    const veh_wing_struct& w = v.wing[en];
    switch (control) {
        case con_ail1:
            return {w.ail1_elR, w.ail1_elT, v.ail1_cratR, v.ail1_cratT};
        case con_ail2:
            return {w.ail2_elR, w.ail2_elT, v.ail2_cratR, v.ail2_cratT};
        case con_spo1:
            return {w.spo1_elR, w.spo1_elT, v.spo1_cratR, v.spo1_cratT};
        case con_spo2:
            return {w.spo2_elR, w.spo2_elT, v.spo2_cratR, v.spo2_cratT};
        case con_yawb:
            return {w.yawb_elR, w.yawb_elT, v.yawb_cratR, v.yawb_cratT};
        case con_elev:
            return {w.elev_elR, w.elev_elT, v.elev_cratR, v.elev_cratT};
        case con_rud1:
            return {w.rud1_elR, w.rud1_elT, v.rud1_cratR, v.rud1_cratT};
        case con_rud2:
            return {w.rud2_elR, w.rud2_elT, v.rud2_cratR, v.rud2_cratT};
        case con_fla1:
            return {w.fla1_elR, w.fla1_elT, v.fla1_cratR, v.fla1_cratT};
        case con_fla2:
            return {w.fla2_elR, w.fla2_elT, v.fla2_cratR, v.fla2_cratT};
        case con_sbrk:
            return {w.sbrk_elR, w.sbrk_elT, v.sbrk_cratR, v.sbrk_cratT};
        default:
            return {0.0f, 0.0f, 0.0f, 0.0f};
    }
}
}  // namespace

float control_crat(int p, int en, float el, int control) {
    const veh_wing_struct& w = veh[p].wing[en];
    const control_ends ends = ends_of(p, en, control);
    const auto chord = [&w](float at) {
        return extrap(0.0f, w.Croot, static_cast<float>(w.els), w.Ctip, at);
    };
    const float control_chord =
        interp(ends.elR, ends.cratR * chord(ends.elR), ends.elT, ends.cratT * chord(ends.elT), el);
    return control_chord / fltmax2(chord(el), 0.001f);
}
