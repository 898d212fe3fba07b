// What the sky's state puts on the screen beside its bodies.
#pragma once

// The dome's colours of this frame into its texture.
void upload_sky();
// Clouds, and the lightning in them.
void cloud_plot();
