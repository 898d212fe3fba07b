// Start of the lab: the aircraft of the command line loaded into the headless system.
#pragma once
#include "options.h"

extern const option_row install_option;

// The options, with those of the load in front of the last one: mass, fuel, centre of gravity, a failed
// engine. They are put into effect by start_tunnel, or by set_load behind start_lab.
std::vector<option_row> with_load(std::vector<option_row> rows);
void set_load(const options& from);

// --mixture, of commands that run engines: true when the lever is given, and set now; false for "lean", the
// default of those that measure.
const option_row mixture_option = {"mixture", "RATIO", "mixture levers, 0 to 1, or lean (lean)"};
bool set_mixture(const options& from);

// Loads file, an .acf or a .toml, or the default aircraft when it is empty. Alerts go to standard error;
// a fatal one ends the program. Nothing is left in the user's folder. Throws flight_fault.
void start_lab(const options& from, const std::string& file);

// From here an invalid operation, a division by zero or an overflow ends the program with a message.
void trap_float_faults();

// Lets the air stand still; the aircraft's controls are centred.
void start_tunnel(const options& from, const std::string& file);

// Moves flaps and speed brakes to their place at once, ratios 0 to 1.
void set_flaps_and_brakes(float flaps, float brakes);
