// Stand-ins until their owners are merged.
#include "aircraft/autoset.h"
#include "core/num.h"
#include "core/veh.h"
#include "flight/weapons.h"

int IO_wpn(int, int, int, std::string, std::string, int) { return 0; }

void set_rev_con(int p) {
    for (int en = part_wing_first; en <= part_wing_last; ++en) {
        veh_wing_struct& wing = veh[p].wing[en];
        wing.rev_con = veh[p].part[en].part_eq &&
                       veh[p].cgZ > veh[p].part[en].part_z + (0.25f + 0.25f * wing.delta_fac) * wing.Croot;
    }
}
