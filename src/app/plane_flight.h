// One aircraft slot's frame.
#pragma once

// One slot's frame.
void PLANE_math_in_flight(int p);
