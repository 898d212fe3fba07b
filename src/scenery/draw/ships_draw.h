// Ships and what floats.
#pragma once

// Moves and draws them, once a view of the ground.
void manage_ships();
