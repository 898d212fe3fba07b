// Fuel from the tanker: its point and the user's, the line between them, the flow.
// Role: refuelling_step once a drawn frame, with a window and without: the fuel flies.
#pragma once

void refuelling_step();
void draw_refuelling();
