// Commands that begin a flight: at the airports and aids of the region, the exercises, a place by chance.
#pragma once

// Is this such a command, and is its place there?
int start_command_exists(int item);
// Begins the flight; nothing for any other command. Fatal: an airport, ramp or runway that is not there.
void run_start_command(int item);
