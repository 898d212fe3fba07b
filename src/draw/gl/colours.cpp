// Colour table.
#include "draw/gl/colours.h"

#include <GL/gl.h>

#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"

float col_rgb[colour_rows][3];

namespace {
struct fixed_row {
    int index;
    float r, g, b;
};
constexpr fixed_row fixed_rows[] = {
    {0, 1, 1, 1},           {1, 0.8f, 0, 0},
    {2, 1, 1, 0.2f},        {3, 0.7f, 0.7f, 0.7f},
    {4, 0.4f, 0, 0},        {5, 1, 1, 0},
    {6, 0.3f, 0.3f, 0.3f},  {7, 0.2f, 0, 0},
    {8, 1, 0.8f, 0.2f},     {9, 0.1f, 0.1f, 0.1f},
    {10, 0, 0.8f, 0},       {11, 0, 0, 0},
    {12, 0.4f, 0.4f, 1},    {13, 0, 0, 0.6f},
    {14, 0.9f, 0.9f, 0.9f}, {15, 0.9f, 0.9f, 1},
    {16, 0.9f, 0.9f, 0.9f}, {17, 0.1f, 0.1f, 0.1f},
    {18, 0, 0, 0},          {19, 0, 0, 0},
    {20, 1, 1, 1},          {21, 1, 1, 1},
    {22, 1, 1, 1},          {23, 0, 0, 0},
    {24, 0, 0, 0},          {25, 1, 1, 1},
    {26, 1, 1, 1},          {27, 1, 1, 1},
    {43, 1, 1, 1},          {44, 0.1f, 1, 0.1f},
    {45, 1, 0.4f, 0.4f},    {46, 1, 1, 0.6f},
    {47, 0.6f, 0.6f, 1},    {48, 1, 0.5f, 0},
    {49, 0.8f, 0.8f, 0.8f}, {50, 0, 0.8f, 0},
    {51, 1, 0.2f, 0.2f},    {52, 1, 1, 0.2f},
    {53, 0.4f, 0.4f, 1},    {54, 0.5f, 0.3f, 0},
    {55, 0.5f, 0.5f, 0.5f}, {56, 0, 0.6f, 0},
    {57, 0.6f, 0.2f, 0},    {58, 1, 1, 0},
    {59, 0.2f, 0.2f, 0.8f}, {60, 0.5f, 0, 0.5f},
    {61, 0.2f, 0.2f, 0.2f}, {62, 0, 0.2f, 0},
    {63, 0.6f, 0.6f, 0},    {64, 0.15f, 0.15f, 0.6f},
    {65, 1, 0.2f, 1},       {66, 0, 0, 0},
    {67, 0, 0.1f, 0},       {68, 0.49f, 0.43f, 0.24f},
    {73, 0, 0, 0},          {74, 1, 0, 0},
    {87, 0.5f, 0.5f, 0.4f}, {88, 1, 0.3f, 0},
    {89, 0.5f, 0.5f, 0.4f}, {90, 0.8f, 0.8f, 0.7f},
    {91, 1, 1, 0.9f},
};

bool is_ratio(float x) { return x >= 0.0f && x <= 1.0f; }

// Through an image intensifier all light is green.
void set_colour(float r, float g, float b, float a) {
    a *= ren.current_alpha;
    if (ren.night_vision_on)
        glColor4f(0.0f, fltlim(r + g + b, 0.0f, 1.0f), 0.0f, a);
    else
        glColor4f(r, g, b, a);
}
}  // namespace

void colours_init() {
    for (auto& row : col_rgb)
        for (float& channel : row) channel = 0.0f;
    for (const fixed_row& row : fixed_rows) OGL_assigncolor(row.index, row.r, row.g, row.b);
    r_manual_lighting = g_manual_lighting = b_manual_lighting = 1.0f;
}

void OGL_assigncolor(int index, float r, float g, float b) {
    if (!intrange(index, 0, colour_rows - 1)) return MACIBM_fatal("too many colors!");
    col_rgb[index][0] = r;
    col_rgb[index][1] = g;
    col_rgb[index][2] = b;
}

void set_pulse_colours(float rat) {
    constexpr float low = 0.2f;
    OGL_assigncolor(col_pulse_white, rat, rat, rat);
    OGL_assigncolor(col_pulse_red, rat, low * rat, low * rat);
    OGL_assigncolor(col_pulse_yellow, rat, rat, low * rat);
    OGL_assigncolor(col_pulse_green, low * rat, rat, low * rat);
}

void OGL_setcolorINDEX(int index, float a) {
    if (!intrange(index, 0, colour_rows - 1)) return MACIBM_fatal("too many colors!");
    const float* row = col_rgb[index];
    const bool lit_by_cabin = index <= col_digits;
    const float r = row[0] * (lit_by_cabin ? r_manual_lighting : 1.0f);
    const float g = row[1] * (lit_by_cabin ? g_manual_lighting : 1.0f);
    const float b = row[2] * (lit_by_cabin ? b_manual_lighting : 1.0f);
    if (!is_ratio(r)) return MACIBM_fatal("OGL_setcolorINDEX R out of range!");
    if (!is_ratio(g)) return MACIBM_fatal("OGL_setcolorINDEX G out of range!");
    if (!is_ratio(b)) return MACIBM_fatal("OGL_setcolorINDEX B out of range!");
    if (!is_ratio(a)) return MACIBM_fatal("OGL_setcolorINDEX A out of range!");
    set_colour(r, g, b, a);
}

void OGL_setcolorRGBA(float r, float g, float b, float a, int is_light) {
    if (!is_light) {
        r *= r_manual_lighting;
        g *= g_manual_lighting;
        b *= b_manual_lighting;
    }
    if (!is_ratio(r) || !is_ratio(g) || !is_ratio(b) || !is_ratio(a))
        return MACIBM_fatal("OGL_setcolorRGBA out of range!");
    set_colour(r, g, b, a);
}

void spectrum_rgb(float rat, float* r, float* g, float* b) {
    constexpr int stops = 7;
    constexpr float col_r[stops] = {0.0f, 0.0f, 0.0f, 1.0f, 1.0f, 1.0f, 1.0f};
    constexpr float col_g[stops] = {0.0f, 1.0f, 1.0f, 1.0f, 0.5f, 0.0f, 0.0f};
    constexpr float col_b[stops] = {1.0f, 1.0f, 0.0f, 0.0f, 0.0f, 0.0f, 1.0f};
    const float place = (check_nan(rat) ? 0.0f : fltlim(rat, 0.0f, 1.0f)) * (stops - 1);
    const int low = intlim(intcut(place), 0, stops - 2);
    const float part = place - static_cast<float>(low);
    *r = col_r[low] + part * (col_r[low + 1] - col_r[low]);
    *g = col_g[low] + part * (col_g[low + 1] - col_g[low]);
    *b = col_b[low] + part * (col_b[low + 1] - col_b[low]);
}

void OGL_spectrum_rgb(float rat) {
    float r, g, b;
    spectrum_rgb(rat, &r, &g, &b);
    OGL_setcolorRGBA(r, g, b, 1.0f, 1);
}

void OGL_setspec(float spec) {
    constexpr float shininess = 128.0f;
    const float light[4] = {spec, spec, spec, 1.0f};
    glLightfv(GL_LIGHT0, GL_SPECULAR, light);
    glMaterialfv(GL_FRONT, GL_SPECULAR, light);
    glMaterialf(GL_FRONT, GL_SHININESS, shininess);
}

void OGL_poly_offset(int amount) {
    if (!amount) {
        glDisable(GL_POLYGON_OFFSET_FILL);
        return;
    }
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(static_cast<float>(amount) * -5.0f, -1.0f);
}
