// One point of the aircraft on a surface: a spring and a damper along the normal, friction across it.
#pragma once

// Aircraft axes (x right, y up, z aft), m and m/s; friction coefficients; spring in N/m, damper in N s/m.
struct contact_point_struct {
    int en;       // leg of a tyre, else part
    int is_tire;  // 0 or 1
    float x_veh, y_veh, z_veh;
    float fco_roll, fco_stat, fco_kine;
    float spr_con, spr_dmp;
    float* tire_steer;  // degrees to the right; a castoring wheel turns it
    int castors;        // 0 or 1
};

// Adds its forces to the gear sums of slot 0; 1 if it bears, or is a tyre that a catapult holds. A tyre's
// wheel is stepped too.
int handle_contact_point(const contact_point_struct& point);

// The slipping clutch between a wheel and the road for one half step. The receiver's speed is imposed; the
// torque that passes, N m, is given back.
float drag_sys(float driv_TRQ, float driv_mi, float* omega_powerplant, float omega_receiver, float max_TRQ);
