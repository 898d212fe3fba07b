// The flying view of plain colours: sky, hazy ground with its survey grid, a mark for the nose, one for
// the flight path, and the strip of flight data.
// Role: draws what flt[0] says; changes nothing that flies.
#pragma once
#include "draw/images/screenshot.h"

void plain_view_draw();
