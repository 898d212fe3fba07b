// The question before a flight is ended.
#include "app/frame.h"
#include "core/disk/text_numbers.h"
#include "core/program/alert.h"
#include "core/program/input_gate.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "draw/gl/ogl.h"
#include "draw/type.h"
#include "draw/widgets/frames.h"
#include "draw/widgets/widgets.h"

namespace {
enum answer { open_yet, yes, no };

answer draw() {
    constexpr int without_bar = 0;
    constexpr float button_up = 18.0f, text_up = 100.0f, in = 20.0f;
    OGL_view_2d();
    seam.draw_background();
    BTN_fillwin(without_bar, fill_nothing);
    OGL_string(37, in, text_up, stl.text[text_ask_quit], mnw.win_dx - 2.0f * in, charset_text);
    if (BTN_action(0.3f * mnw.win_dx, button_up, 0, 1, stl.text[text_yes]) || return_hit) return yes;
    if (BTN_action(0.7f * mnw.win_dx, button_up, 0, 1, stl.text[text_no])) return no;
    return open_yet;
}
}  // namespace

void MACIBM_ask_quit() {
    if (!seam.has_user) {
        g_done = 1;
        return;
    }
    return_hit = 0;
    MACIBM_startwind(win_nuke, "quit");
    answer given = open_yet;
    while (mnw.top_win == win_nuke && !g_done && given == open_yet) {
        given = draw();
        if (given == open_yet) MACIBM_event_proc();
    }
    return_hit = 0;
    if (given == yes) g_done = 1;
    MACIBM_startwind(win_fly, "quit answered");
}
