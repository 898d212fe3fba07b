// The flying view: the world as the eye sees it, and the strip of flight data over it.
// Role: draws what flt[0], ren, skyc and xdeg say; changes nothing that flies.
#pragma once

void flying_view_draw();
