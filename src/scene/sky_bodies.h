// Stars, sun, moon and glare in the flying view.
#pragma once

// How bright the bodies stand against the sky of this frame, 0 to 1 and below.
struct body_brightness {
    float stars, aurora, sun, moon;
};
body_brightness find_body_brightness();

// Whether northern lights are there and bright enough. They move only while they show.
bool aurora_shows();

// How much the light blinds the present view (ren.glare_rat). Once a drawn frame.
void glare_step();

// All bodies, in the camera's present turn and without its place.
void draw_sky_bodies();
