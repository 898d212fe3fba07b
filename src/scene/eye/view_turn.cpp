// What every part of the scene with a depth range of its own begins with.
#include "scene/eye/view_turn.h"

#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "draw/camera/xcam.h"
#include "draw/gl/camera_load.h"
#include "ui/views/zoom.h"

void look_through_eye(float near_clip, float far_clip) {
    OGL_viewport(3, mnw.x1_rat, mnw.y1_rat, mnw.x2_rat, mnw.y2_rat, mnw.x1_pix, mnw.y1_pix, mnw.x2_pix,
                 mnw.y2_pix, near_clip, far_clip, zoom.act_zoom());
    if (ren.vert1) xcam.Rotate(-90.0, 0.0, 0.0, 1.0);
    if (ren.vert2) xcam.Rotate(90.0, 0.0, 0.0, 1.0);
    xcam.Rotate(ren.final_phi, 0.0, 0.0, 1.0);
    xcam.Rotate(ren.final_the, -1.0, 0.0, 0.0);
    xcam.Rotate(ren.final_psi, 0.0, 1.0, 0.0);
    LoadModelView();
}
