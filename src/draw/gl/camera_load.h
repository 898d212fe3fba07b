// The camera's matrices into OpenGL.
// Role: the only way they get there while the world is drawn; a change of the camera is followed by a call of
// these, so that what is culled and what is drawn agree.
#pragma once

void camera_load_projection();  // with the whole window as the viewport
void LoadModelView();
