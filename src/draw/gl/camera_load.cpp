// The camera's matrices into OpenGL.
#include "draw/gl/camera_load.h"

#include <GL/gl.h>

#include "core/math/num.h"
#include "core/records/mnw.h"
#include "draw/camera/xcam.h"
#include "draw/gl/ogl.h"

static float zoom_now = 1.0f;

float OGL_zoom() { return zoom_now; }

static void load_projection() {
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixd(xcam.Perspective());
    glMatrixMode(GL_MODELVIEW);
}

void camera_load_projection() {
    glViewport(0, 0, mnw.x_res_now, mnw.y_res_now);
    load_projection();
}

void LoadModelView() {
    glMatrixMode(GL_MODELVIEW);
    glLoadMatrixd(xcam.ModelView());
}

void OGL_viewport(int dims, float rat_x1, float rat_y1, float rat_x2, float rat_y2, float pix_x1,
                  float pix_y1, float pix_x2, float pix_y2, float near_clip, float far_clip, float zoom) {
    GL_error_check("OGL_viewport 1");
    if (dims == 2) {
        glViewport(0, 0, mnw.x_res_now, mnw.y_res_now);
        xcam.SetupOrtho(mnw.x1_pix / zoom, mnw.x2_pix / zoom, mnw.y1_pix / zoom, mnw.y2_pix / zoom, -1.0,
                        1.0);
    } else {
        zoom_now = zoom;
        const float width = pix_x2 - pix_x1, height = pix_y2 - pix_y1;
        glViewport(intround((pix_x1 + mnw.x_off) * mnw.xy_scale), intround(pix_y1 * mnw.xy_scale),
                   intround(width * mnw.xy_scale), intround(height * mnw.xy_scale));
        const double x = static_cast<double>(near_clip) / zoom, y = x * height / width;
        xcam.SetupFrustum(rat_x1 * x, rat_x2 * x, rat_y1 * y, rat_y2 * y, near_clip, far_clip);
    }
    load_projection();
    xcam.Identity();
    LoadModelView();
    GL_error_check("OGL_viewport 2");
}
