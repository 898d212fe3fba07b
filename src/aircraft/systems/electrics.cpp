// Bus state.
#include "aircraft/systems/electrics.h"

#include "core/math/num.h"
#include "core/records/records.h"

float tot_volt_avail() {
    if (flt[0].fail_stat[fail_esys] == fail_active) return 0.0f;
    float volt = 0.0f;
    const int engines = intlim(veh[0].num_engines, 1, engnDIM);
    for (int en = 0; en < engines; ++en) {
        const int type = veh[0].engn[en].engn_type;
        if (stg.battery) volt += flt[0].engn[en].bat_volt;
        const bool has_spool =
            type == engn_turb_free || type == engn_turb_fixed || type == engn_jet_lo || type == engn_jet_hi;
        if (stg.generator[en] && has_spool) volt += flt[0].engn[en].N1 / 15.0f;
    }
    return fltlim(volt, 0.0f, 1.0f);
}

int esys_working() { return tot_volt_avail() > 0.1f; }

int avio_working() { return stg.avionics && esys_working(); }

int ac_working() {
    if (!esys_working()) return 0;
    for (int i = 0; i < 2; ++i)
        if (stg.inverter[i] && flt[0].fail_stat[fail_inverter + i] != fail_active) return 1;
    return 0;
}
