// What the sky's state puts on the screen beside its bodies.
#pragma once

// Pictures of sun, moon and northern lights, once at start; nothing without a window. A missing one is told.
void load_sky_pictures();
// The dome's colours of this frame into its texture.
void upload_sky();
// Clouds, and the lightning in them.
void cloud_plot();
