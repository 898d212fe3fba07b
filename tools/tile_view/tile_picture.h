// The loaded region on the screen.
#pragma once
#include "tile_world.h"

void draw_tile(const eye_place& eye);
