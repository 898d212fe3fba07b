// The alert in the window and its loop.
#include "app/alert_show.h"

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
#include "scenery/draw/proj_tex.h"
#include "ui/screens/start_screen.h"
#include "ui/text/korean.h"
#include "ui/text/language.h"

namespace {
// By mnw.lang, each in its own language with the letters that the fonts have; Korean has glyphs of its own.
const char* const languages[] = {"English", "Francais", "Deutsch",  "Italiano",
                                 "Espanol", "한국어",   "Portugues"};

// Set by the first frame that the button is clicked in.
bool accepted;
int korean_glyphs;

void language_buttons() {
    constexpr float x = 150.0f, top = 168.0f, apart = 18.0f, glyphs_in = 14.0f;
    OGL_string(37, 40.0f, top, "Language:", no_wrap, charset_text);
    int at = 0;
    for (const std::string language : languages) {
        const float y = top - apart * static_cast<float>(at);
        if (at != lang_korean) {
            BTN_is_int(x, y, &mnw.lang, at, "|" + language);
        } else if (korean_glyphs) {
            BTN_is_int(x, y, &mnw.lang, at, "");
            OGL_string(37, x + glyphs_in, y - 1.0f, char_string_to_int_string(language), no_wrap,
                       charset_korean);
        } else {
            BTN_is_int(x, y, &mnw.lang, at, "|Korean");
        }
        ++at;
    }
}

void lines(const alert_lines& text) {
    constexpr float heights[] = {185.0f, 145.0f, 105.0f, 65.0f};
    constexpr float in = 10.0f;
    for (int i = 0; i < 4; ++i)
        OGL_string(37, in, heights[i], text.line[i], mnw.win_dx - 2.0f * in, charset_text);
}

void draw(const alert_lines& text, int type) {
    constexpr int without_bar = 0;
    constexpr float button_up = 18.0f, tick_x = 22.0f, tick_y = 38.0f;
    OGL_view_2d();
    seam.draw_background();
    BTN_fillwin(without_bar, fill_nothing);
    if (type == alert_language)
        language_buttons();
    else
        lines(text);
    if (type == alert_message && alert_tick.ticked)
        BTN_bool(tick_x, tick_y, alert_tick.ticked, "|" + alert_tick.label, 0);
    const std::string label = type == alert_language      ? "Accept"
                              : stl.text[text_ok].empty() ? "OK"
                                                          : stl.text[text_ok];
    accepted = BTN_action(0.5f * mnw.win_dx, button_up, 0, 1, label) || return_hit;
}

// The frame runs on for events and the swap, but does not simulate while the alert is up.
void wait_for_user(const alert_lines& text, int type) {
    accepted = false;
    while (mnw.top_win == win_alrt && !g_done && !accepted) {
        draw(text, type);
        if (!accepted) MACIBM_event_proc();
    }
}

void show(int close_to, const alert_lines& text, int type) {
    const float mx = mnw.mx, my = mnw.my;
    if (type == alert_sys_event) check_sys_event = 1;
    return_hit = 0;
    end_projections();  // the ground may be half drawn
    if (type == alert_language) korean_glyphs = load_korean_glyphs();
    MACIBM_startwind(win_alrt, "alert");
    wait_for_user(text, type);
    check_sys_event = return_hit = 0;
    if (type == alert_fatal) return;
    MACIBM_startwind(close_to, "alert closed");
    mnw.mx = mx;
    mnw.my = my;
}
}  // namespace

void alerts_in_window() { alert_seam.show = show; }
