// Text from a font of the X server, one display list a glyph.
#define GL_GLEXT_PROTOTYPES
#include "draw/text.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include <algorithm>

#include "core/mnw.h"
#include "core/num.h"
#include "draw/ogl.h"
#include "platform/window.h"
#include "platform/window_x11.h"

static constexpr int first_glyph = 32, last_glyph = 126;

struct font_struct {
    int generation = -1;  // of the window that holds the lists
    unsigned lists = 0;   // of glyph 0, which has none
    int pitch = 0;        // pixels; every font asked for is mono-spaced
};
static font_struct font;

// The largest that fits the scale of the screen; "fixed" is built into every X server.
static XFontStruct* open_font() {
    const char* const names[] = {mnw.xy_scale >= 1.3f ? "10x20" : "9x15", "9x15", "fixed"};
    for (const char* name : names)
        if (XFontStruct* opened = XLoadQueryFont(dpy, name)) return opened;
    return nullptr;
}

// Made anew for a new context. False when the server has no font at all.
static bool font_ready() {
    if (!dpy) return false;
    if (font.generation == window_generation) return true;
    XFontStruct* opened = open_font();
    if (!opened) return false;
    const unsigned base = glGenLists(last_glyph - first_glyph + 1);
    glXUseXFont(opened->fid, first_glyph, last_glyph - first_glyph + 1, base);
    // a glyph without ink would not even move the pen: the blank gets one clear pixel
    const GLubyte clear = 0;
    glNewList(base, GL_COMPILE);
    glBitmap(1, 1, 0.0f, 0.0f, opened->max_bounds.width, 0.0f, &clear);
    glEndList();
    font = {window_generation, base - first_glyph, opened->max_bounds.width};
    XFreeFont(dpy, opened);
    return true;
}

float text_width(const std::string& text) {
    if (!font_ready()) return 0.0f;
    return static_cast<float>(font.pitch) * static_cast<float>(text.size()) / mnw.xy_scale;
}

void text_draw(float x, float y, const std::string& text, text_colour colour) {
    if (!font_ready()) return;
    std::string printable = text;
    std::replace_if(
        printable.begin(), printable.end(), [](char c) { return c < first_glyph || c > last_glyph; }, ' ');
    OGL_setstate(fog_off, 0, lit_off, al_none, depth_no_read, depth_no_write);
    glColor3f(colour.r, colour.g, colour.b);  // taken over by the raster position
    glWindowPos2i(intround((x + mnw.x_off) * mnw.xy_scale), intround(y * mnw.xy_scale));
    glListBase(font.lists);
    glCallLists(static_cast<GLsizei>(printable.size()), GL_UNSIGNED_BYTE, printable.data());
}

void text_backdrop(float x1, float y1, float x2, float y2, text_colour colour, float alpha) {
    OGL_view_2d();
    OGL_setstate(fog_off, 0, lit_off, al_blend, depth_no_read, depth_no_write);
    glColor4f(colour.r, colour.g, colour.b, alpha);
    glBegin(GL_QUADS);  // clockwise: the front side
    glVertex2f(x1, y1);
    glVertex2f(x1, y2);
    glVertex2f(x2, y2);
    glVertex2f(x2, y1);
    glEnd();
}
