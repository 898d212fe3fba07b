// Gear and surface contact of the user's aircraft. Wheels bear nothing yet.
#include "flight/ground/contact.h"

#include "core/records/records.h"

void steer_nosewheel() {}

// No forces, but it is known when the gear is below the ground, so that the crash test lives.
void touch_surfaces() { flt[0].onground_any = flt[0].y_agl_mtr < 0.0f; }
