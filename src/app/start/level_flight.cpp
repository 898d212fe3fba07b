// Level flight of any slot.
#include "app/start/level_flight.h"

#include "aircraft/deflect.h"
#include "core/craft/engn_kinds.h"
#include "core/math/axes.h"
#include "core/records/records.h"
#include "flight/fullsim.h"

void fill_caches(int p) {
    cache_attitude(p);
    cache_air(p);
    for (flt_wing_struct& w : flt[p].wing)
        for (int bld = 0; bld < bladDIM; ++bld) w.Q_centroid_loc[bld] = w.Q_centroid_MULT[bld] = 1.0f;
}

namespace {
// As given: the first six legs alone, and retracted whatever the aircraft is about to do.
void set_legs(int p) {
    constexpr int legs_set = 6;
    for (int g = 0; g < legs_set; ++g) {
        veh[p].gear[g].dep_rat = veh[p].gear_retract ? 0.0f : 1.0f;
        flt[p].gear[g].tire_vrt_def_veh = 0.0f;
    }
}

void run_flat_out(int p) {
    constexpr float fast = 99.9f;  // rad/s
    for (int en = 0; en < engnDIM; ++en) {
        flt_engn_struct& e = flt[p].engn[en];
        e.burning_fuel = 1;
        e.thro_ref = e.thro_use = 1.0f;
        e.tacrad_ENGN = e.tacrad_PROP = fast;
        e.DVinc = (en_is_prop(p, en) ? 0.1f : 0.75f) * con.lcl_a;
    }
}
}  // namespace

void init_flt_p(int p, float the, float psi, float phi, float x, float y, float z, float v_msc, int mode) {
    clear_flt(p);
    flt_struct& f = flt[p];
    f.update_type = pln_update_local_AI;
    f.last_time_rcvd = -9999.0f;
    f.the = the;
    f.psi = psi;
    f.phi = phi;
    f.dob_x = x;
    f.dob_y = y;
    f.dob_z = z;
    f.V_msc = v_msc;
    f.vx = sin_deg(psi) * v_msc;
    f.vy = 0.0f;
    f.vz = -cos_deg(psi) * v_msc;
    f.ai_app_mode = mode;
    set_legs(p);
    run_flat_out(p);
    init_quaternion(psi, the, phi, f.q);
    update_def_angles(p);
    fill_caches(p);
}
