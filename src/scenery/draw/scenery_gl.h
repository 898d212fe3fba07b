// The drawing of scenery as its readers call it.
#pragma once
#include "scenery/seam/scenery_draw.h"

// To be put into scenery_draw at the start.
extern const scenery_draw_struct scenery_draw_gl;
