// The world's frame.
#pragma once

// The world's frame, if flying and not in replay.
void WORLD_math_in_flight();
void reset_world_flight();
