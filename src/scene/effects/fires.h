// Forest fires of the region (scn.firexyz).
// Role: fires_step once a drawn frame sends up their smoke; drawn as pictures that face the eye.
#pragma once

void fires_step();
void plot_fires();
