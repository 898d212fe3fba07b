// Derivation: weapons and the masses that an aircraft starts with.
#pragma once

// -- load (starting_load.cpp)
void load_weapons(int p);
void load_starting_masses(int p);
