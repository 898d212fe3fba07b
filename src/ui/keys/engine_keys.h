// Keys of the engine levers and switches.
#pragma once

// F1 to F12 as 50 to 61, with shift 62 to 73: throttle, propeller and mixture.
void lever_key(int key);
// A character with control: starters, ignition, pumps and buses.
void switch_key(int key);
