// A scene as a picture in the window of the simulator, which has been started (tools/simulator).
#pragma once
#include "scene_line.h"

// Leaves the picture in the back buffer.
void draw_scene(const scene_struct& scene);
