// Controls of surfaces: their kinds and places.
// Role: the flight model and the mesh ask here, so that what is seen is what is flown.
#pragma once

// Kinds of control, in the order in which an element adds them.
enum control_kind : int {
    con_ail1 = 1,
    con_ail2,
    con_spo1,
    con_spo2,
    con_yawb,
    con_elev,
    con_rud1,
    con_rud2,
    con_fla1,
    con_fla2,
    con_sbrk = 12,
};

// Chord ratio of a control at an element: its chord runs in a straight line between its two ends.
float control_crat(int p, int en, float el, int control);
