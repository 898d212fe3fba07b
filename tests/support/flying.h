// Aircraft for tests of flight: the compiled ones, and bare masses that no air touches.
#pragma once
#include "app/lab/lab.h"
#include "support.h"

namespace test {

// The full program on quiet seams with an aircraft of the content, in still air. name: "Lark 15",
// "Wren 160", or empty for the default.
void fly_aircraft(const std::string& name);
// The same with its engines, propellers and rotors taken off, their mass left.
void fly_glider(const std::string& name);
// Every aircraft of the content.
std::vector<std::string> aircraft_names();

// A body of 1000 kg without surfaces, radii of gyration 1, 2 and 3 m about x, y and z, on quiet seams;
// the real frame runs, above the air unless placed lower.
void fly_bare_mass();

// Frames of dt seconds for a time in seconds.
void run_frames(float seconds, float dt = 1.0f / 64.0f);

// Kinetic, potential and rotational energy per unit mass against the planet, J/kg.
double specific_energy();

}  // namespace test
