// Propellers and rotors.
#pragma once

// Every disc of the user's aircraft for one half step.
void do_all_props();
