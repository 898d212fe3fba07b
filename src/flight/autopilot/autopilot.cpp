// The sum of all controls: the pilot's yoke, tabs, trims and links. The autopilot has no modes yet.
#include "flight/autopilot/autopilot.h"

#include <math.h>

#include "core/math/num.h"
#include "core/records/records.h"
#include "flight/power/engine_control.h"

int otto_running() { return 0; }

void update_autopilot(int p) {
    flt_struct& f = flt[p];
    const veh_struct& v = veh[p];
    f.FC_ptch = mnw.YK_ptch + v.elev_tab;
    f.FC_hdng = mnw.YK_hdng + v.rudd_tab;
    f.FC_roll = mnw.YK_roll + v.ailn_tab;
    if (fabsf(v.rudd_with_ailn_rat) > 0.01f) f.FC_hdng += f.FC_roll * v.rudd_with_ailn_rat;
    if (fabsf(v.elev_with_flap_rat) > 0.01f) f.FC_ptch += f.handle_rat_act * v.elev_with_flap_rat;
    if (!v.flying_stab_EQ) f.FC_ptch += f.elev_trim;
    f.FC_hdng += f.rudd_trim;
    f.FC_roll += f.ailn_trim;
    f.FC_ptch = fltlim(f.FC_ptch, -1.0f, 1.0f);
    f.FC_hdng = fltlim(f.FC_hdng, -1.0f, 1.0f);
    f.FC_roll = fltlim(f.FC_roll, -1.0f, 1.0f);
    control_engines();
}
