// The sounds that an aircraft and its alerts use.
#pragma once

// Fills the sound slots for the user's aircraft: engines, propellers, starters and the fixed sounds.
void load_plane_sounds();
