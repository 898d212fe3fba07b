// The mouse turns the view.
#include "ui/views/mouse_look.h"

#include "core/math/num.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"

namespace {
// A station turns by how far the mouse is from the picture's middle.
void steer_station() {
    const float x = mnw.mx - 0.5f * (mnw.x1_pix + mnw.x2_pix), y = mnw.my - 0.5f * (mnw.y1_pix + mnw.y2_pix);
    const float rate = 180.0f * mnw.prd_FM;
    ren.viewer_psi = fltwrap(
        ren.viewer_psi + fltlim(rate * x / static_cast<float>(intmax2(mnw.x_res_now, 1)), -180.0f, 180.0f),
        0.0f, 360.0f);
    ren.viewer_the =
        fltlim(ren.viewer_the + rate * y / static_cast<float>(intmax2(mnw.y_res_now, 1)), -90.0f, 90.0f);
}
}  // namespace

void mouse_look_step() {
    if (mnw.top_win != win_fly) return;
    if (ren.is_viewer) steer_station();
    if (ren.mouse_look) {
        ren.mouse_look_os_psi = fltlim(
            360.0f * (mnw.mx - 512.0f) / static_cast<float>(intmax2(mnw.x_res_now, 1)), -180.0f, 180.0f);
        ren.mouse_look_os_the =
            fltlim(360.0f * (mnw.my - 384.0f) / static_cast<float>(intmax2(mnw.y_res_now, 1)), -90.0f, 90.0f);
    } else if (ren.joy_look) {
        const float ease = fltlim(6.0f * mnw.prd_FM, 0.0f, 1.0f);
        ren.mouse_look_os_psi = closer_assymp(ren.mouse_look_os_psi, ren.joy_look_os_psi, ease);
        ren.mouse_look_os_the = closer_assymp(ren.mouse_look_os_the, ren.joy_look_os_the, ease);
    } else {
        ren.mouse_look_os_psi = ren.mouse_look_os_the = 0.0f;
    }
}
