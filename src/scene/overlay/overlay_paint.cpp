// Shared strokes of the overlay.
#include "scene/overlay/overlay_paint.h"

#include <GL/gl.h>

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

void gray_string(int color, float x, float y, const std::string& text) {
    constexpr float pad = 5.0f, below = 3.0f, high = 9.0f, shade = 0.5f;
    const float half = 0.5f * str_dx(text);
    OGL_grayrect(x - half - pad, y - below, x + half + pad, y + high, shade);
    OGL_string(color, x - half, y, text, no_wrap, charset_text);
}
