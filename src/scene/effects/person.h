// A person of 1.75 m.
#pragma once

// At the feet's place in the present model view, m; heading in degrees. number, 1 to 4, picks the clothes.
// Lit and textured state is the caller's.
void OGL_person(float x, float y, float z, float psi, int number);
