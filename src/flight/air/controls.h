// Effect of a deflected control surface on the element that carries it. Slot 0.
#pragma once
#include "aircraft/design/controls.h"

// Adds the increments of angle of attack (degrees) and coefficients of one control deflected by def
// degrees. is_end: the surface sits at a wing's end. str: its name in the trace.
void set_con_eff(int en, int el, int con_type, float def, float* al_inc_tot, float* cl_inc_tot,
                 float* cd_inc_tot, float* cm_inc_tot, const char* str, int is_end);

// Growth of a flap's effect with its deflection, degrees; 1 at 90 for lift and drag.
float flap_cl_rat(float def_deg);
float flap_cd_rat(float def_deg);
float flap_cm_rat(float def_deg);
