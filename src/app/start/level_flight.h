// Aircraft of the other slots set into level flight, and what every start leaves for the first half step.
#pragma once

// Slot p flies level: angles in degrees, world position in m, speed in m/s. mode: flt.ai_app_mode.
void init_flt_p(int p, float the, float psi, float phi, float x, float y, float z, float v_msc, int mode);

// What a step leaves behind and the next one reads, from attitude and velocity: a trimmed start must be
// trimmed in its first half step.
void fill_caches(int p);
