// The steps of the derivation, in the order in which derive_model takes them. Only for derive_model
// and its tests: each builds on what the ones before have left in the record.
#pragma once
#include <string>

#include "core/records.h"

// -- units and places (derive_units.cpp)
void convert_block(int p);
// Surfaces and blades, and their foils. 0 when a foil is at fault.
int convert_wings(int p);
// Parts, gear, weapon stations, doors, then single places, and the centre of gravity last.
void convert_places(int p);
// Name of the first field of the record that isn't a number, empty when all are.
std::string first_nan_field(int p);

// -- simple values (derive.cpp)
void derive_simple_values(int p);
void place_wings(int p);

// -- finite wings (finite_wing.cpp)
int derive_finite_wings(int p);

// -- masses (bodies_mass.cpp)
void derive_prop_discs(int p);
void derive_inertia(int p);

// -- slats and wash (downwash.cpp)
void derive_slats(int p);
void derive_downwash(int p);

// -- load (starting_load.cpp)
void load_weapons(int p);
void load_starting_masses(int p);

// Lines of the load report; nothing for other slots than the user's.
inline bool in_report(int p) { return p == 0; }
