// Interface images, background, start-up screen.
#include "ui/screens/start_screen.h"

#include "core/disk/paths.h"
#include "core/disk/text_numbers.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "core/records/stl.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/images/image_png.h"
#include "draw/images/interface_layout.h"
#include "draw/images/tman.h"
#include "draw/primitives.h"
#include "draw/type.h"
#include "draw/widgets/frames.h"
#include "ui/text/language.h"

namespace {
int lights_allowed = 1;
int steps;

bool drawing() { return seam.has_display && tman.tex_vram(tex_interface) > 0; }

void interface_is_missing() {
    MACIBM_alert(0, "I cannot open the graphics interface file!",
                 "It seems that you have moved Tarvane out of the Orvelle folder!",
                 "NO! NO! Create a shortcut if you want, but do not move the Tarvane application itself out "
                 "of the Orvelle folder "
                 "that it came in!",
                 bmp_path + "interface.png", alert_fatal);
}

// Every piece and colour has its place in a picture of one size. A bitmap of that name, which any other picture may be,
// has no alpha to cut the pieces out.
bool interface_has_its_form(const std::string& path) {
    unsigned dx, dy;
    if (!png_size(path, &dx, &dy)) return interface_is_missing(), false;
    if (dx == interface_size && dy == interface_size) return true;
    const std::string side = std::to_string(interface_size);
    MACIBM_alert(0, "The graphics interface file has the wrong size!", path,
                 "It is " + std::to_string(dx) + " by " + std::to_string(dy) + " pixels.",
                 "It must be " + side + " by " + side + ".", alert_fatal);
    return false;
}

// Rows of the colour table that stand as single pixels in the image, in scratch_array.
void read_palette() {
    const auto take = [](int row, int s, int t) {
        const unsigned char* p = scratch_array + 4 * (t * interface_size + s);
        OGL_assigncolor(row, p[0] / 255.0f, p[1] / 255.0f, p[2] / 255.0f);
    };
    for (const palette_texel& p : palette_texels) take(p.row, p.s, p.t);
    // what cannot be chosen lies between the text and the shadow of its ground
    float mean[3];
    for (int c = 0; c < 3; ++c) mean[c] = 0.5f * (col_rgb[col_menu][c] + col_rgb[29][c]);
    OGL_assigncolor(col_menu_off, mean[0], mean[1], mean[2]);
}
}  // namespace

void load_interface_images() {
    if (!seam.has_display) return;
    const std::string interface_png = bmp_path + "interface.png";
    if (!tman.load_texture(0, load_scratch, 0, filter_rgba, interface_png)) return interface_is_missing();
    if (!interface_has_its_form(interface_png)) return;
    read_palette();
    OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
    tman.load_texture(1, load_ogl, tex_blank, filter_rgba, bmp_path + "blank.png");
    tman.load_texture(1, load_ogl, tex_interface, filter_rgba, interface_png);
}

int load_korean_glyphs() {
    if (!seam.has_display) return 0;
    OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
    return tman.load_texture(0, load_ogl, tex_menu_text, filter_rgba, men_path + "Korean:menu_text.png") != 0;
}

// -- background
void fill_background(int top_win) {
    if (!drawing()) return;
    constexpr int side = 1024;
    const auto byte = [](float channel) { return static_cast<unsigned char>(intround(255.0f * channel)); };
    const unsigned char r = byte(col_rgb[col_window][0]), g = byte(col_rgb[col_window][1]),
                        b = byte(col_rgb[col_window][2]);
    for (int i = 0; i < side * side; ++i) {
        unsigned char* p = scratch_array + 4 * i;
        p[0] = r, p[1] = g, p[2] = b, p[3] = 255;
    }
    if (top_win == -1) tman.load_texture(0, load_background, 0, filter_rgba, bmp_path + "intro.png");
}

void MACIBM_update_back_texes() {
    if (!drawing() || mnw.top_win == win_fly) return;
    OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
    tman.load_texture(1, load_ogl, tex_background, filter_rgba, "scratch_array");
}

void OGL_plot_background() {
    if (!drawing() || !tman.tex_vram(tex_background)) return;
    constexpr float side = 1024.0f;
    const float x = mnw.win_x, y = mnw.win_y;
    mnw.win_x = mnw.win_y = 0.0f;
    const bool bars = mnw.x_off > 0.5f || mnw.y_off > 0.5f;
    if (bars && mnw.top_win > win_fly)
        OGL_fillrect(col_window, 1.0f, mnw.x1_pix, mnw.y1_pix, mnw.x2_pix - mnw.x1_pix,
                     mnw.y2_pix - mnw.y1_pix);
    OGL_2dquad(tex_background, col_white, 1.0f, {0.0f, 0.0f, 0.0f, 0.0f}, {0.0f, side, 0.0f, 1.0f},
               {side, side, 1.0f, 1.0f}, {side, 0.0f, 1.0f, 0.0f}, 1,
               ren.current_alpha <= 0.99f ? al_blend : al_test);
    mnw.win_x = x;
    mnw.win_y = y;
}

// -- start-up
void start_lights_allowed(int allowed) { lights_allowed = allowed; }

void MACIBM_showinit(const char* init_string) {
    constexpr float box_x = 10.0f, box_y = 31.0f, box_dx = 310.0f, box_dy = 206.0f;
    constexpr float bar_x1 = 8.0f, bar_x2 = 1016.0f, bar_y = 15.0f, text_in = 20.0f;
    if (!lights_allowed || !drawing()) return;
    const float x = mnw.win_x, y = mnw.win_y;
    mnw.win_x = mnw.win_y = 0.0f;
    OGL_view_2d();
    OGL_plot_background();
    BTN_frame2(box_glass, box_x, box_y, box_dx, box_dy, "This is Orvelle Version 8.00");
    float line_y = box_y + box_dy - 48.0f;
    for (const int number : {1155, 1156, 1157}) {
        OGL_string(col_help, box_x + text_in, line_y, stl.text[number], box_dx - 2.0f * text_in,
                   charset_text);
        line_y -=
            10.0f * static_cast<float>(wrapped_lines(stl.text[number], box_dx - 2.0f * text_in)) + 12.0f;
    }
    const float ratio = fltlim(0.01f * static_cast<float>(++steps), 0.02f, 1.0f), span = bar_x2 - bar_x1;
    BTN_frame1(strip_progress_track, 0.5f * (bar_x1 + bar_x2), bar_y, span, col_white);
    BTN_frame1(strip_progress_fill, bar_x1 + 0.5f * span * ratio, bar_y, span * ratio, col_white);
    OGL_string(col_step, bar_x1 + 4.0f, 0.0f, init_string, no_wrap, charset_text);
    OGL_sbuf();
    mnw.win_x = x;
    mnw.win_y = y;
}
