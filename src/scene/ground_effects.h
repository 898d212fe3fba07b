// What lies on the ground besides its own light: landing light, shadow of the clouds.
// Role: once a drawn frame, after the light has been found; read by terrain and airports. Knows no OpenGL.
#pragma once

void ground_effects_step();
