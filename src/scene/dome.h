// One picture of the world: sky, light, planet, ground, effects, cockpit.
// Role: drawn as often a frame as there are screens; changes nothing that flies.
#pragma once

void WORLD_scene_per_dome();
// Its first part: the view, the dome, the bodies, the haze below the horizon.
void draw_sky();
