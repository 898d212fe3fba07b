// What other subsystems draw among the effects of the scene.
#pragma once

void plot_explosions();
// Cars of the roads, by the light and place of this frame.
void car_reset();
void plot_cars();
// The way flown.
void plot_flight_path_3d();
