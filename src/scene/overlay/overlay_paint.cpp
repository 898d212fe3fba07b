// Shared strokes of the overlay.
#include "scene/overlay/overlay_paint.h"

#include <GL/gl.h>

#include "core/math/num.h"
#include "core/records/mnw.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/primitives.h"
#include "draw/type.h"

void cover_screen(int color, float alpha) {
    OGL_fillrect(color, alpha, mnw.x1_pix, mnw.y1_pix, mnw.x2_pix - mnw.x1_pix, mnw.y2_pix - mnw.y1_pix);
}

void cover_screen_with(float r, float g, float b, float alpha) {
    OGL_setstate(fog_off, 0, lit_off, al_blend, depth_no_read, depth_no_write);
    OGL_setcolorRGBA(r, g, b, alpha, 1);
    glBegin(GL_QUADS);
    glVertex2f(mnw.x1_pix, mnw.y1_pix);
    glVertex2f(mnw.x1_pix, mnw.y2_pix);
    glVertex2f(mnw.x2_pix, mnw.y2_pix);
    glVertex2f(mnw.x2_pix, mnw.y1_pix);
    glEnd();
}

void gray_strings(int color, float x, float y, float step, const std::vector<std::string>& lines) {
    constexpr float pad = 5.0f, below = 3.0f, high = 9.0f, shade = 0.5f;
    if (lines.empty()) return;
    float half = 0.0f;
    for (const std::string& line : lines) half = fltmax2(half, 0.5f * str_dx(line));
    const float lowest = y - step * static_cast<float>(lines.size() - 1);
    OGL_grayrect(x - half - pad, lowest - below, x + half + pad, y + high, shade);
    for (const std::string& line : lines) {
        OGL_string(color, x - 0.5f * str_dx(line), y, line, no_wrap, charset_text);
        y -= step;
    }
}

void gray_string(int color, float x, float y, const std::string& text) {
    gray_strings(color, x, y, 0.0f, {text});
}
