// Pictures of the sea: seven states of it, sixteen frames each.
#include "scenery/draw/ground_pictures.h"

#include <string.h>

#include <string>

#include "core/program/alert.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "platform/window_x11.h"

namespace {
const char* const sea_states[] = {
    "1 Calm:", "2 Smooth:", "3 Slight:", "4 Moderate:", "5 Rough:", "6 Very Rough:", "7 High:"};
constexpr int frames = 16;

// White, so that the water's own colour is left.
void stand_in(int ref) {
    constexpr int side = 2;
    scratch_dx = scratch_dy = side;
    memset(scratch_array, 255, side * side * 3);
    tman.load_texture(0, load_ogl, ref, filter_rgb, scratch_name);
}
}  // namespace

void load_ground_pictures() {
    if (!cx) return;
    OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
    int ref = tex_water, missing = 0;
    std::string first;
    for (const char* state : sea_states) {
        for (int frame = 1; frame <= frames; ++frame, ++ref) {
            const std::string number = std::to_string(frame);
            const std::string name =
                std::string("terrain:water:") + state + "sea" + (frame < 10 ? "0" : "") + number + ".png";
            if (tman.load_texture(0, load_ogl, ref, filter_rgb_mip, name)) continue;
            if (missing++ == 0) first = name;
            stand_in(ref);
        }
    }
    if (missing > 0)
        MACIBM_data_fault("Pictures of the sea are missing.", "They are plain now.",
                          std::to_string(missing) + " of them, the first is", first);
}
