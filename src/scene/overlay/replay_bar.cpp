// Drawing of the replay bar, and its clicks.
#include "scene/overlay/replay_bar.h"

#include <stdio.h>

#include <string>

#include "core/math/num.h"
#include "core/records/mnw.h"
#include "core/records/pat.h"
#include "draw/gl/colours.h"
#include "draw/primitives.h"
#include "draw/type.h"
#include "draw/widgets/widgets.h"
#include "scene/overlay/overlay_paint.h"

namespace {
constexpr float bar_x1 = 8.0f, bar_x2 = 1016.0f, bar_y = 96.0f, buttons_y = 72.0f, labels_y = 114.0f;
constexpr float label_step = 12.0f;

bool mouse_hits(float x1, float y1, float x2, float y2) {
    return mnw.mouse_clicked && mnw.menu_up < 0 && flt_box(mnw.mx, mnw.my, x1, y1, x2, y2);
}

void draw_time() {
    constexpr float minute = 60.0f;
    const float passed = fltlim(mnw.totl_time - pat.lotime, 0.0f, 5.9e5f);
    const int minutes = static_cast<int>(passed / minute);
    char text[32];
    snprintf(text, sizeof text, "%d:%04.1f", minutes,
             static_cast<double>(passed - minute * static_cast<float>(minutes)));
    gray_string(col_white, bar_x1 + 30.0f, buttons_y - 3.0f, text);
}

// Whatever was clicked, the flight is shown from there on.
void draw_marks() {
    std::vector<float> times;
    for (const mark_struct& mark : pat.mark) times.push_back(mark.time);
    const std::vector<mark_place_struct> places = place_marks(times, pat.lotime, pat.hitime);
    for (size_t i = 0; i < places.size(); ++i) {
        const std::string& label = pat.mark[i].mark_str;
        const float width = str_dx(label), y = labels_y + places[i].up;
        const float x = fltlim(places[i].x - 0.5f * width, bar_x1, fltmax2(bar_x2 - width, bar_x1));
        OGL_line(col_white, 0.6f, places[i].x, bar_y + 10.0f, places[i].x, y - 3.0f);
        gray_string(col_white, x + 0.5f * width, y, label);
        if (mouse_hits(x, y - 3.0f, x + width, y + 9.0f)) mnw.totl_time = fltlim(pat.mark[i].time, pat.lotime, pat.hitime);
    }
}

void draw_buttons() {
    constexpr struct {
        float x;
        const char* label;
    } buttons[] = {{428, "|<"}, {448, "<<"}, {471, "<"}, {489, "'"}, {512, "||"}, {535, "'"}, {553, ">"}, {576, ">>"}, {596, ">|"}};
    for (int i = 0; i < 9; ++i) {
        const bool is_on = mnw.replay_mode == i + 1;
        const float half = 9.0f, x = buttons[i].x;
        OGL_fillrect(is_on ? col_white : col_black, is_on ? 0.5f : 0.4f, x - half, buttons_y - 9.0f, 2.0f * half, 18.0f);
        OGL_framerect(col_white, 0.6f, x - half, buttons_y - 9.0f, 2.0f * half, 18.0f);
        OGL_string(col_white, x - 0.5f * str_dx(buttons[i].label), buttons_y - 3.0f, buttons[i].label, no_wrap,
                   charset_text);
        if (mouse_hits(x - half, buttons_y - 9.0f, x + half, buttons_y + 9.0f)) mnw.replay_mode = i + 1;
    }
}
}  // namespace

std::vector<mark_place_struct> place_marks(const std::vector<float>& times, float lotime, float hitime) {
    constexpr float too_near = 5.0f;
    std::vector<mark_place_struct> places;
    for (const float time : times) {
        mark_place_struct at = {interp(lotime, bar_x1, hitime, bar_x2, time), 0.0f};
        if (!places.empty() && flt_abs(at.x - places.back().x) < too_near) at.up = places.back().up + label_step;
        places.push_back(at);
    }
    return places;
}

void draw_replay_bar() {
    if (!mnw.replay_mode || mnw.movie_in_prog || mnw.top_win != win_fly) return;
    constexpr int fill = 12;
    BTN_horz_slider(bar_x1, bar_y, bar_x2 - bar_x1, fill, pat.lotime, pat.hitime, &mnw.totl_time, 1, "", "");
    draw_marks();
    draw_time();
    draw_buttons();
}
