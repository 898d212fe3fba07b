// The camera at the eye: its frustum and the way it looks.
#pragma once

// Frustum of the picture from near to far, m, and the turn of the view (ren.final_psi, final_the, final_phi;
// pictures of a screen that stands on its side too), loaded. Moves to no place.
void look_through_eye(float near_clip, float far_clip);
