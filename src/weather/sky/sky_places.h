// Where sun and moon stand, and which of them lights the scene.
// Role: a step of conditions_update; reads the clocks, the aircraft's place and the view, writes skyc and
// ren.
#pragma once

// How much of the scene's light is the sun's and the moon's, and how bright the moon's phase is; 0 to 1.
struct light_shares {
    float sun, moon, moon_brt;
};
light_shares place_bodies();
