// A contact sheet of all widgets in the real window, as a picture.
#include <stdio.h>

#include <string>

#include "app/init_sim.h"
#include "core/disk/paths.h"
#include "core/program/input_gate.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/images/interface_layout.h"
#include "draw/images/screenshot.h"
#include "draw/primitives.h"
#include "draw/type.h"
#include "draw/widgets/frames.h"
#include "draw/widgets/menus.h"
#include "draw/widgets/widgets.h"
#include "platform/window.h"
#include "ui/screens/start_screen.h"

namespace {
// Values that the widgets show and change.
struct shown {
    int yes = 1, no = 0, choice = 1, count = 1234, list = 2, tab = 0, line = 4, lit = 1;
    float pressure = 29.92f, speed = -105.5f, volume = 0.7f, brake = 0.3f;
    char id[6] = "KSBD";
    std::string text = "text to be edited", file = "Wren 160.acf", path = "";
};

std::string line_name(int i) { return "line " + std::to_string(i) + " of a long list"; }

void left_column(shown& v) {
    BTN_bool(160.0f, 640.0f, &v.yes, "a tick box|with both labels{ Help for the box.", 0);
    BTN_bool(160.0f, 615.0f, &v.no, "another|", 0);
    BTN_is_int(160.0f, 585.0f, &v.choice, 0, "radio|first");
    BTN_is_int(160.0f, 563.0f, &v.choice, 1, "|second");
    BTN_is_int(160.0f, 541.0f, &v.choice, 2, "|third");
    BTN_int(170.0f, 495.0f, &v.count, 5, 0, "whole|number");
    BTN_flt(170.0f, 440.0f, &v.pressure, 4, 2, 0, "barometric pressure|inches Hg");
    BTN_flt(170.0f, 385.0f, &v.speed, 5, 1, 1, "signed|");
    BTN_chars(170.0f, 330.0f, v.id, 4, "identifier|");
    BTN_display_number(170.0f, 275.0f, 1234567.0f, 9, 0, "read only|");
    BTN_enterstring(170.0f, 230.0f, &v.text, 24, 1, "text|");
    BTN_select_file(170.0f, 195.0f, &v.file, &v.path, 2, 0, "");
}

void right_column(shown& v) {
    BTN_action(430.0f, 640.0f, 0, 0, "a button");
    BTN_action(530.0f, 640.0f, 1, 0, "pressed");
    BTN_textlist(460.0f, 600.0f, &v.list, "-clear-scattered-broken-overcast", "cloud|");
    BTN_horz_slider(400.0f, 560.0f, 180.0f, 10, 0.0f, 1.0f, &v.volume, 1, "volume|", "70");
    BTN_horz_slider(400.0f, 520.0f, 180.0f, 12, 0.0f, 1.0f, &v.brake, 1, "|right", "centred");
    BTN_big_name_list(win_generic_list, 370.0f, 270.0f, 240.0f, 220.0f, &v.line, &v.line, 0, 40, nullptr,
                      line_name);
    BTN_pan_zoom(420.0f, 215.0f);
    BTN_frame1(strip_progress_track, 540.0f, 220.0f, 140.0f, col_white);
    BTN_frame1(strip_progress_fill, 510.0f, 220.0f, 80.0f, col_white);
    OGL_string(col_help, 480.0f, 190.0f, "Running text wraps at the end of its words when a width is given.",
               140.0f, charset_text);
}

void boxes() {
    static const char* const names[] = {"12", "13", "14", "15", "16", "17", "18"};
    for (int kind = box_window_plain; kind <= box_last; ++kind) {
        const float x = 660.0f + 165.0f * static_cast<float>((kind - box_window_plain) % 2);
        BTN_frame2(kind, x, 560.0f - 120.0f * static_cast<float>((kind - box_window_plain) / 2), 130.0f, 90.0f,
                   names[kind - box_window_plain]);
    }
}

void figures() {
    OGL_framecircle(5, 1.0f, 700.0f, 110.0f, 30.0f);
    OGL_fillcircle(12, 0.6f, 700.0f, 110.0f, 20.0f);
    OGL_arc(10, 1.0f, 780.0f, 110.0f, 30.0f, -120.0f, 120.0f);
    OGL_line(1, 1.0f, 830.0f, 85.0f, 900.0f, 135.0f);
    OGL_framerect(8, 1.0f, 920.0f, 85.0f, 60.0f, 50.0f);
    for (int i = 0; i < 21; ++i) {
        float r, g, b;
        spectrum_rgb(0.05f * static_cast<float>(i), &r, &g, &b);
        OGL_assigncolor(42, r, g, b);
        OGL_fillrect(42, 1.0f, 660.0f + 15.0f * static_cast<float>(i), 50.0f, 14.0f, 20.0f);
    }
}

void draw_sheet(shown& v) {
    OGL_view_2d();
    seam.draw_background();
    stl.win_name = "All widgets";
    BTN_fillwin(1, fill_nothing);
    float x2, y2;
    BTN_subwin(34.0f, box_panel, 10.0f, 160.0f, 340.0f, 520.0f, "Values", &x2, &y2);
    BTN_subwin(34.0f, box_panel, 360.0f, 160.0f, 280.0f, 520.0f, "Choices", &x2, &y2);
    BTN_subwin(34.0f, box_panel, 650.0f, 20.0f, 350.0f, 660.0f, "Boxes and figures", &x2, &y2);
    for (int i = 0; i < 3; ++i)
        BTN_tab(i, 0, &v.tab, i, i == 0 ? "this tab" : i == 1 ? "another" : "a third");
    left_column(v);
    right_column(v);
    boxes();
    figures();
    for (int kind : {strip_button, strip_button_pressed, strip_field, strip_popup})
        BTN_frame1(kind,
                   80.0f + 80.0f * static_cast<float>(kind == strip_popup ? 5
                                                      : kind == strip_field ? 4
                                                                  : kind),
                   120.0f, 60.0f, col_white);
}
}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 || argv[1][0] == '-') {
        fprintf(stderr, "%s FILE.png    draws every widget and saves the picture\n", argv[0]);
        return 2;
    }
    seams_headless();
    seam.has_display = 1;
    init_sim(executable_folder() + "../Orvelle/");
    MACIBM_startwind(win_dat, "sheet");
    shown values;
    mnw.mx = 160.0f;
    mnw.my = 646.0f;
    draw_sheet(values);
    const bool saved = save_screenshot(argv[1]);
    MACIBM_finishup(0);
    return saved ? 0 : 1;
}
