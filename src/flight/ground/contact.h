// Gear and surface contact of the user's aircraft.
// Role: in each half step behind the forces of the air; adds to the gear sums. Not known here: what lies
// under a point.
#pragma once

void steer_nosewheel();
// 1 when the nosewheel trails as it will: no steering, or switched off.
int nw_castoring(int p);

// Contact forces of wheels and airframe on land, of the hulls on water; sets onground_any and onground_all.
void touch_surfaces();

// A flight begins: what the last one left in tyres, brakes and anchor is forgotten.
void contact_start();
void reset_contact();
