// Derivation, first step: the file's units become SI, places are taken from the centre of gravity.
#pragma once
#include <string>

// -- units and places (derive_units.cpp)
void convert_block(int p);

// Surfaces and blades, and their foils. 0 when a foil is at fault.
int convert_wings(int p);

// Parts, gear, weapon stations, doors, then single places, and the centre of gravity last.
void convert_places(int p);

// Name of the first field of the record that isn't a number, empty when all are.
std::string first_nan_field(int p);
