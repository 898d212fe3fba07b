// Strings and numbers.
#include "draw/type.h"

#include <GL/gl.h>

#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/mnw.h"
#include "core/records/stl.h"
#include "draw/font_table.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/images/interface_layout.h"
#include "draw/images/tman.h"

namespace {
struct font_face {
    int tex;
    float s, t;  // of cell 0, pixels
    float cell_x, cell_y;
    int columns;
    float pitch;  // 0: proportional
};

bool find_face(int charset, font_face* face) {
    constexpr int first_panel_set = 109, last_panel_set = 117;
    if (intrange(charset, first_panel_set, last_panel_set)) charset = charset_small;
    switch (charset) {
        case charset_text:
            *face = {tex_interface, 0.0f, 0.0f, 8.0f, 11.0f, 21, 0.0f};
            return true;
        case charset_small:
            *face = {tex_interface, 168.0f, 0.0f, 8.0f, 11.0f, 21, 6.0f};
            return true;
        case charset_digits:
            *face = {tex_interface, 168.0f, 0.0f, 8.0f, 11.0f, 21, 10.0f};
            return true;
        case charset_korean:
            *face = {tex_menu_text, 0.0f, 0.0f, 13.0f, 13.0f, 40, 15.0f};
            return true;
        default:
            MACIBM_fatal("String proc with bad charset!");
            return false;
    }
}

// Before the interface image is there nothing can be written.
bool is_loaded(const font_face& face) { return tman.tex_vram(face.tex) > 0; }

bool is_latin(char c) { return c >= first_glyph_code && c <= last_glyph_code; }
// Characters at which a line may break and words end.
bool is_break(char c) { return c == ' ' || c == '-' || c == '/' || c == ':'; }
bool draws_nothing(char c) { return c == 13 || c == 10 || c == 9; }

// One quad, inside glBegin.
void put_glyph(const font_face& f, int cell, float x, float y) {
    const float dx = tman.tex_dx_tot(f.tex), dy = tman.tex_dy_tot(f.tex);
    const float s = f.s + f.cell_x * static_cast<float>(cell % f.columns);
    const float t = f.t + f.cell_y * static_cast<float>(cell / f.columns);
    const struct {
        float x, y;
    } corner[4] = {{0.0f, 0.0f}, {0.0f, f.cell_y}, {f.cell_x, f.cell_y}, {f.cell_x, 0.0f}};
    for (const auto& c : corner) {
        glTexCoord2f((s + c.x) / dx, (t + c.y) / dy);
        glVertex2f(x + c.x, y + c.y);
    }
}

void begin_text(const font_face& f, int color) {
    OGL_setstate(fog_off, 1, lit_off, al_both, depth_no_read, depth_no_write);
    tman.bind_ref(f.tex, 0, 0);
    OGL_setcolorINDEX(color, 1.0f);
    glBegin(GL_QUADS);
}

// Width of the text up to the end of the word behind place i, at 6 a character.
float next_word(const std::string& text, size_t i) {
    constexpr float guess = 6.0f;
    size_t end = i + 1;
    while (end < text.size() && !is_break(text[end]) && text[end] != '\n') ++end;
    return guess * static_cast<float>(end - i);
}

// Walks the text with its line breaks and tells each glyph's place from the first; gives the lines.
template <class take>
int walk(const std::string& text, float dx, float pitch, take&& glyph) {
    constexpr float line_down = 10.0f;
    float x = 0.0f, y = 0.0f;
    int lines = 1;
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const auto break_line = [&] {
            x = 0.0f;
            y -= line_down;
            ++lines;
        };
        if (c == '\n') {
            break_line();
            continue;
        }
        if (draws_nothing(c) || !is_latin(c)) continue;
        glyph(c, x, y);
        x += pitch > 0.0f ? pitch : chr_dx(c);
        if (dx < no_wrap && is_break(c) && x + next_word(text, i) > dx) break_line();
    }
    return lines;
}

// Two bytes a glyph; a single byte of the Latin range stands for itself where a marker is meant.
void korean_string(const font_face& f, float x, float y, const std::string& text) {
    for (size_t i = 0; i + 1 < text.size(); i += 2) {
        const int cell =
            127 * static_cast<unsigned char>(text[i]) + static_cast<unsigned char>(text[i + 1]) - 128;
        constexpr int rows = 78;
        if (intrange(cell, 0, f.columns * rows - 1)) put_glyph(f, cell, x, y);
        x += f.pitch;
    }
}
}  // namespace

float chr_dx(char c) {
    return is_latin(c) ? static_cast<float>(chr_width[static_cast<unsigned char>(c)]) : 0.0f;
}

float str_dx(const std::string& text) {
    float width = 0.0f;
    for (const char c : text) width += chr_dx(c);
    return width;
}

int wrapped_lines(const std::string& text, float dx) {
    return walk(text, dx, 0.0f, [](char, float, float) {});
}

void OGL_string(int color, float x, float y, const std::string& input, float dx, int charset) {
    font_face face;
    if (!find_face(charset, &face) || !is_loaded(face)) return;
    const float left = static_cast<float>(intround(x + mnw.win_x));
    const float base = static_cast<float>(intround(y + mnw.win_y)) - 2.0f;
    begin_text(face, color);
    if (charset == charset_korean)
        korean_string(face, left, base, input);
    else
        walk(input, dx, face.pitch, [&](char c, float at_x, float at_y) {
            put_glyph(face, glyph_cell(c), left + at_x, base + at_y);
        });
    glEnd();
}

namespace {
void add(number_layout& n, char c, float place, bool low = false) {
    if (n.count < static_cast<int>(sizeof n.glyph / sizeof n.glyph[0])) n.glyph[n.count++] = {c, place, low};
}

number_layout dashes(int dig) {
    number_layout n{};
    for (int i = 0; i < intlim(dig, 1, 3); ++i) add(n, '-', static_cast<float>(i));
    return n;
}

// d.dd x e: three digits, then the exponent.
void exponent_form(number_layout& n, double value) {
    constexpr int most = 60;  // an infinity stays one however often it is divided
    int exponent = 2;
    for (int i = 0; i < most && value >= 999.0; ++i, ++exponent) value /= 10.0;
    const int digits = intlim(intcut(static_cast<float>(value) + 0.5f), 0, 999);
    add(n, static_cast<char>('0' + digits / 100), 0.0f);
    add(n, '.', 0.5f, true);
    add(n, static_cast<char>('0' + digits / 10 % 10), 1.0f);
    add(n, static_cast<char>('0' + digits % 10), 2.0f);
    add(n, 'x', 3.0f);
    if (exponent > 9) add(n, static_cast<char>('0' + exponent / 10), 4.0f);
    add(n, static_cast<char>('0' + exponent % 10), exponent > 9 ? 5.0f : 4.0f);
}
}  // namespace

number_layout lay_out_number(float input, int dig, int dec) {
    constexpr int most_digits = 10;
    if (check_nan(input) && !(fabsf(input) < INFINITY)) return dashes(dig);
    dig = intlim(dig, 1, most_digits);
    dec = intlim(dec, 0, dig - 1);
    number_layout n{};
    double scale = 1.0;
    for (int i = 0; i < dec; ++i) scale *= 10.0;
    const double size = fabs(static_cast<double>(input));
    if (input < 0.0f && size * scale > 0.1) add(n, '-', -1.0f);

    // how many digits the value has
    const double whole = floor(size * scale + 0.5);
    int needed = 1;
    for (double limit = 9.0; needed <= most_digits && whole > limit; limit = limit * 10.0 + 9.0) ++needed;
    if (needed > dig) {
        exponent_form(n, size);
        return n;
    }
    const int shown = intmax2(needed, dec + 1);
    double rest = whole;
    char digits[most_digits];
    for (int i = dig - 1; i >= 0; --i) {
        const double tenth = floor(rest / 10.0);
        digits[i] = static_cast<char>('0' + static_cast<int>(rest - tenth * 10.0));
        rest = tenth;
    }
    for (int i = dig - shown; i < dig; ++i) {
        add(n, digits[i], static_cast<float>(i));
        const int behind = dig - dec - 1 - i;  // whole digits that follow
        if (behind > 0 && behind % 3 == 0) add(n, ',', static_cast<float>(i) + 0.5f);
    }
    if (dec > 0) add(n, '.', static_cast<float>(dig - dec) - 0.5f);
    return n;
}

void OGL_number(int color, float x, float y, float input, int dig, int dec, int charset) {
    if (charset != charset_small && charset != charset_digits) {
        MACIBM_alert(mnw.top_win, "Numbers must be mono-spaced!",
                     "This is because we increment by a constant step size for each digit.", "", "",
                     alert_fatal);
        return;
    }
    font_face face;
    find_face(charset, &face);
    if (!is_loaded(face)) return;
    const number_layout n = lay_out_number(input, dig, dec);
    const float left = static_cast<float>(intround(x + mnw.win_x));
    const float base = static_cast<float>(intround(y + mnw.win_y)) - 2.0f;
    begin_text(face, color);
    for (int i = 0; i < n.count; ++i) {
        const number_glyph& g = n.glyph[i];
        put_glyph(face, glyph_cell(g.c), left + g.place * face.pitch + (g.low ? 2.0f : 0.0f),
                  base - (g.low ? 1.0f : 0.0f));
    }
    glEnd();
}

void OLD_OGL_string(int color, float x, float y, const char* input, float dx, int charset) {
    OGL_string(color, x, y, input, dx, charset);
}
void OLD_OGL_number(int color, float x, float y, float input, int dig, int dec, int charset) {
    OGL_number(color, x, y, input, dig, dec, charset);
}
void OLD_OGL_char(int color, float x, float y, char input, int charset) {
    OGL_string(color, x, y, std::string(1, input), no_wrap, charset);
}

void OLD_OGL_strtex(int tex, int color, float x, float y, const char* input, float scale, int s, int t) {
    const font_face face{tex, static_cast<float>(s), static_cast<float>(t), 8.0f, 11.0f, 21, 0.0f};
    if (!is_loaded(face)) return;
    begin_text(face, color);
    glEnd();
    glPushMatrix();
    glTranslatef(x + mnw.win_x, y + mnw.win_y, 0.0f);
    glScalef(scale, scale, 1.0f);
    glBegin(GL_QUADS);
    walk(input, no_wrap, 0.0f,
         [&](char c, float at_x, float at_y) { put_glyph(face, glyph_cell(c), at_x, at_y); });
    glEnd();
    glPopMatrix();
}
