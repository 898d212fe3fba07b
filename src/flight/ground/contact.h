// Gear and surface contact of the user's aircraft.
#pragma once

void steer_nosewheel();
// Contact forces of wheels and airframe; sets onground_any and onground_all.
void touch_surfaces();
