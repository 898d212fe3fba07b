// A loaded tile on the screen.
#pragma once
#include "tile_world.h"

void draw_tile(xdeg_struct& tile, const eye_place& eye);
