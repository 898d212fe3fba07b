// Virtual screen.
#include "platform/screen.h"

#include "core/math/num.h"
#include "core/records/mnw.h"

void compute_screen_scale() {
    const float x_res = static_cast<float>(mnw.x_res_now), y_res = static_cast<float>(mnw.y_res_now);
    mnw.xy_scale = fltmax2(fltmin2(x_res / XRES, y_res / YRES), 1.0f);
    mnw.x_off = 0.5f * (x_res / mnw.xy_scale - XRES);
    mnw.y_off = y_res / mnw.xy_scale - YRES;
    mnw.x1_pix = -mnw.x_off;
    mnw.y1_pix = 0.0f;
    mnw.x2_pix = XRES + mnw.x_off;
    mnw.y2_pix = YRES + mnw.y_off;
}
