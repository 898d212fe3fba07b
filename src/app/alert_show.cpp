// The alert in the window and its loop.
#include "app/alert_show.h"

#include "app/frame.h"
#include "core/alert.h"
#include "core/input_gate.h"
#include "core/records.h"
#include "core/seams.h"
#include "draw/text.h"
#include "platform/screen.h"

namespace {
const alert_lines* shown;  // null while none is up

// Breaks a line at blanks, so that it fits a width of virtual units, and draws it downward from y.
float draw_wrapped(const std::string& text, float x, float y, float width) {
    constexpr float line_height = 16.0f;
    const text_colour ink{0.95f, 0.95f, 0.9f};
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.size();
        while (end > start && text_width(text.substr(start, end - start)) > width) {
            const size_t blank = text.rfind(' ', end - 1);
            if (blank == std::string::npos || blank <= start) break;
            end = blank;
        }
        text_draw(x, y, text.substr(start, end - start), ink);
        y -= line_height;
        start = end == text.size() ? end : end + 1;
    }
    return y;
}

// The frame runs on for events and drawing, but does not simulate while the alert is up.
void wait_for_user() {
    while (mnw.top_win == win_alrt && !g_done) {
        MACIBM_event_proc();
        if (return_hit || mnw.mouse_clicked) break;
    }
}

void show(int close_to, const alert_lines& text, int type) {
    const float mx = mnw.mx, my = mnw.my;
    if (type == alert_sys_event) check_sys_event = 1;
    shown = &text;
    MACIBM_startwind(win_alrt, "alert");
    wait_for_user();
    check_sys_event = return_hit = 0;
    shown = nullptr;
    if (type == alert_fatal) return;
    MACIBM_startwind(close_to, "alert closed");
    mnw.mx = mx;
    mnw.my = my;
}
}  // namespace

void alerts_in_window() { alert_seam.show = show; }

void draw_alert() {
    if (!shown || mnw.top_win != win_alrt) return;
    // the window of an alert is 400 by 220 in the middle of the screen; long lines take more
    constexpr float left = 232.0f, right = 792.0f, top = 494.0f, bottom = 274.0f, margin = 20.0f, gap = 6.0f;
    seam.draw_background();
    text_backdrop(left - margin, bottom, right + margin, top + margin, {0.05f, 0.07f, 0.11f}, 0.85f);
    float y = top - margin;
    for (const std::string& line : shown->line)
        y = draw_wrapped(line, left, y, right - left) - (line.empty() ? 0.0f : gap);
    text_draw(left, bottom + margin, "Press Return to go on.", {1.0f, 0.8f, 0.3f});
}
