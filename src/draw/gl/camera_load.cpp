// The camera's matrices into OpenGL.
#include "draw/gl/camera_load.h"

#include <GL/gl.h>

#include "core/records/mnw.h"
#include "draw/camera/xcam.h"

void camera_load_projection() {
    glViewport(0, 0, mnw.x_res_now, mnw.y_res_now);
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixd(xcam.Perspective());
    glMatrixMode(GL_MODELVIEW);
}

void LoadModelView() {
    glMatrixMode(GL_MODELVIEW);
    glLoadMatrixd(xcam.ModelView());
}
