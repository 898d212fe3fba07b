// Bodies, gear, doors and chute in the air: the sections of one half step of slot 0 that add their drag and lift.
#pragma once

void aero_bodies();
void aero_gear_drag();
void aero_speedbrake_doors();
void aero_chute();

// Lift, side force and drag of a body below the speed of sound, N: areas in m2, angles in radians.
void get_body_coeffs(float s_frn, float s_sid, float s_top, float cd_0, float v_msc, float alph_rad,
                     float* sublift, float beta_rad, float* subside, float angl_rad, float* subdrag);
