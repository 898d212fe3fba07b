// Coefficients and force of one element, wing or blade, from its airfoil tables.
// Role: the innermost routine of the flight model; called once per element and half step.
// Knows nothing of where the flow at the element came from. Slot 0 only.
#pragma once

// Force of element el, blade bld of part en: lift across and drag along the free stream, N, and the
// pitching moment, N m. mod*: increments from the control surfaces. Reads v_el, alpha_el, del_dir of the
// part. Gives the lift coefficient before the turn to the free stream, for the downwash.
float F_el_force(float modcl, float modcd, float modcm, float* lift, float* drag, float* momt, int en, int el,
                 int bld);

// Coefficients below and above the speed of sound; trat: thickness ratio, drag_div: drag-rise Mach.
void Fco_subsonic(float trat, float drag_div, float Mach, float modcl, float modcd, float modcm, float* cl,
                  float* cd, float* cm, int en, int el, int bld);
void Fco_supersonic(float trat, float Mach, float modcl, float modcd, float modcm, float* cl, float* cd,
                    float* cm, int en, int el, int bld);

// Table values at an angle of attack in degrees, with the finite-wing and slat stretch.
void subsonic_co_lookup(float alpha, float* cl, float* cd, float* cm, int en, int RT, int Re, int el, int bld);
// Adds one facet of a double wedge by linear supersonic theory (Ackeret).
void supersonic_flatplate(float alpha, float* cl, float* cd, float Mach, float foilrat);
