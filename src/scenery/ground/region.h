// The region around the user's aircraft and its shift.
#pragma once

// Moves the local frame when the position lies in another region.
void check_for_shift(double lat, double lon);
// Loads the tiles of the present region.
void load_region(int reload);
// Makes the region the one of whole degrees whose centre is nearest to a place.
void centre_region_on(double lat, double lon);
