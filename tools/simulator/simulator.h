// The whole simulator under a tool that takes pictures.
#pragma once

// With a window (a virtual display will do) and the install folder beside the tools; alerts are lines on the
// standard error under the tool's name, fatal ones end it with exit_fault.
// fine_textures: at their full size, whatever the user's settings are.
void start_simulator(const char* tool, bool fine_textures = false);
