// Effect of a deflected control surface on the element that carries it. Slot 0.
#pragma once

// Kinds of control, in the order in which an element adds them.
enum control_kind : int {
    con_ail1 = 1, con_ail2, con_spo1, con_spo2, con_yawb, con_elev, con_rud1, con_rud2, con_fla1, con_fla2,
    con_sbrk = 12,
};

// Adds the increments of angle of attack (degrees) and coefficients of one control deflected by def
// degrees. is_end: the surface sits at a wing's end. str: its name in the trace.
void set_con_eff(int en, int el, int con_type, float def, float* al_inc_tot, float* cl_inc_tot,
                 float* cd_inc_tot, float* cm_inc_tot, const char* str, int is_end);

// Chord ratio of a control at an element: its chord runs in a straight line between its two ends.
float control_crat(int p, int en, float el, int control);

// Growth of a flap's effect with its deflection, degrees; 1 at 90 for lift and drag.
float flap_cl_rat(float def_deg);
float flap_cd_rat(float def_deg);
float flap_cm_rat(float def_deg);
