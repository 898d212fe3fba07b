// The camera's matrices into OpenGL.
// Role: the only way they get there while the world is drawn; a change of the camera is followed by a call of
// these, so that what is culled and what is drawn agree.
#pragma once

void camera_load_projection();  // with the whole window as the viewport
void LoadModelView();

// Sets up the camera and OpenGL's viewport, and resets both model views. dims 2: the whole screen flat, its
// extent divided by zoom; the other arguments do not count. dims 3: a frustum of these tangents at the
// picture's edges, divided by zoom, in a box of the screen in virtual units; those of y count for a picture
// as high as wide.
void OGL_viewport(int dims, float rat_x1, float rat_y1, float rat_x2, float rat_y2, float pix_x1,
                  float pix_y1, float pix_x2, float pix_y2, float near_clip, float far_clip, float zoom);
// The zoom of the last one with dims 3; 1 before any.
float OGL_zoom();
