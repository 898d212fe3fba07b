// Glasses and cross-hairs.
#include "scene/overlay/sight_marks.h"

#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/records.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/images/tex_refs.h"
#include "draw/primitives.h"
#include "draw/type.h"
#include "scene/overlay/overlay_paint.h"

namespace {
constexpr int mark_colour = col_white;
constexpr float mark_alpha = 0.7f;

float middle_x() { return 0.5f * (mnw.x1_pix + mnw.x2_pix); }
float middle_y() { return 0.5f * (mnw.y1_pix + mnw.y2_pix); }

void draw_cross(float x, float y, float half) {
    OGL_line(mark_colour, mark_alpha, x - half, y, x + half, y);
    OGL_line(mark_colour, mark_alpha, x, y - half, x, y + half);
}

// A rose with its north against the view's heading.
void draw_compass() {
    constexpr float radius = 24.0f, in = 44.0f, above = 84.0f;  // beside the left edge, above the lower one
    const float x = mnw.x1_pix + in, y = mnw.y1_pix + above;
    OGL_framecircle(mark_colour, mark_alpha, x, y, radius);
    const char* const letters[] = {"N", "E", "S", "W"};
    for (int i = 0; i < 4; ++i) {
        const float way = 90.0f * static_cast<float>(i) - ren.final_psi, out = radius + 8.0f;
        OGL_string(mark_colour, x + out * sin_deg(way) - 3.0f, y + out * cos_deg(way) - 2.0f, letters[i], no_wrap,
                   charset_text);
    }
    const float north = -ren.final_psi;
    OGL_line(mark_colour, mark_alpha, x, y, x + radius * sin_deg(north), y + radius * cos_deg(north));
}

bool others_have_the_yoke() { return mnw.has_joy || mnw.eq_pfc_yoke || net.getting_rawjoy; }

// Where the stick stands; nothing while it is let go in the middle.
void draw_yoke() {
    constexpr float reach = 100.0f, half = 6.0f, moved = 0.005f;  // virtual units; of full deflection
    if (others_have_the_yoke() || mnw.replay_mode) return;
    if (!mnw.mouse_is_joy && flt_abs(mnw.YK_roll) < moved && flt_abs(mnw.YK_ptch) < moved) return;
    // pulled back it stands low, where the mouse that pulls is
    draw_cross(middle_x() + reach * fltlim(mnw.YK_roll, -1.0f, 1.0f),
               middle_y() - reach * fltlim(mnw.YK_ptch, -1.0f, 1.0f), half);
}
}  // namespace

void draw_sunglasses() {
    constexpr float tint = 0.2f;
    if (ren.sunglasses_on) cover_screen(col_black, tint);
}

void draw_sights() {
    constexpr float half_cross = 10.0f, half_box = 12.0f;
    if (ren.is_viewer) {
        draw_cross(middle_x(), middle_y(), half_cross);
        draw_compass();
    }
    if (mnw.mouse_is_joy && !mnw.replay_mode)
        OGL_framerect(mark_colour, mark_alpha, middle_x() - half_box, middle_y() - half_box, 2.0f * half_box,
                      2.0f * half_box);
    draw_yoke();
}

// Grain of the image intensifier, another each frame.
void draw_night_vision() {
    constexpr int green = 44;
    constexpr float alpha = 0.1f;
    if (!ren.night_vision_on) return;
    const float s = view_rand(0.0f, 1.0f), t = view_rand(0.0f, 1.0f), repeats = view_rand(2.0f, 4.0f);
    const float x1 = mnw.x1_pix, x2 = mnw.x2_pix, y1 = mnw.y1_pix, y2 = mnw.y2_pix;
    OGL_2dquad(tex_static, green, alpha, {x1, y1, s, t}, {x1, y2, s, t + repeats}, {x2, y2, s + repeats, t + repeats},
               {x2, y1, s + repeats, t}, 1, al_blend);
}
