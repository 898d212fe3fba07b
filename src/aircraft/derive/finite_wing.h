// Derivation: wings joined from segments, their aspect, Oswald factors and the places of their elements.
#pragma once

// -- finite wings (finite_wing.cpp)
int derive_finite_wings(int p);
