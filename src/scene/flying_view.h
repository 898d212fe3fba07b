// The flying view: sky, far haze, the ground with all that stands on it, a mark for the nose, one for the
// flight path, and the strip of flight data.
// Role: draws what flt[0], ren and xdeg say; changes nothing that flies.
#pragma once

void flying_view_draw();
