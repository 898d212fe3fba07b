// Pictures of the planet as the orbital view shows it.
#pragma once

// Loads those of a planet (env.planet: 0 Earth, 1 Mars) into tex_planet, longitudes 0 to 180 east, and the
// reference after it, 180 to 360; nothing without a window. A missing one is told, and its reference is left
// without a texture or with the one that it had.
void load_planet_pictures(int planet);
