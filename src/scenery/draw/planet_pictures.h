// The planet's surface from orbit.
#pragma once

// Loads the eastern and western half of Earth (0) or Mars (1).
void load_planet_pictures(int planet);
