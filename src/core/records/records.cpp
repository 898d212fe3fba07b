// The global records, each defined once, zero at start.
#include "core/records/records.h"

#include <memory>

veh_struct veh[vehDIM];
flt_struct flt[vehDIM];
stg_struct stg;
env_struct env;
msc_struct msc;
stl_struct stl;
mnw_struct mnw;
atm_struct atm;
nav_struct nav;
inet_struct net;
ren_struct ren;
float r_manual_lighting = 1.0f, g_manual_lighting = 1.0f, b_manual_lighting = 1.0f;
path_struct pat;
scn_struct scn;
std::vector<vec_bro_struct> vec_bro;

// Value-initialises in place: the records are too large for a temporary on the stack.
template <class T>
static void renew(T& record) {
    std::destroy_at(&record);
    std::construct_at(&record);
}

void clear_flt(int p) { renew(flt[p]); }

void clear_acf(int p) { renew(veh[p]); }

void clear_records() {
    con = con_struct{};
    renew(mnw);
    ren = ren_struct{};
    env = env_struct{};
    atm = atm_struct{};
    renew(nav);
    renew(msc);
    renew(stl);
    renew(stg);
    renew(net);
    renew(pat);
    renew(scn);
    vec_bro.clear();
    for (int p = 0; p < vehDIM; ++p) {
        clear_acf(p);
        clear_flt(p);
    }
}
