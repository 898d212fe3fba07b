// Everything that lies flat over the picture of the world: sights, replay bar, warnings, boards, data rows,
// night vision, blackouts.
// Role: once a frame, behind all pictures of the world. Buttons answer the mouse while they are drawn.
#pragma once

void WORLD_scene_2d_overlay();
