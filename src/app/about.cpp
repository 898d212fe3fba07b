// The about window: version, credits, and what the network says of newer ones.
#include "app/frame.h"
#include "core/disk/text_numbers.h"
#include "core/program/alert.h"
#include "core/program/logs.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "draw/gl/ogl.h"
#include "draw/images/interface_layout.h"
#include "draw/type.h"
#include "draw/widgets/frames.h"
#include "draw/widgets/widgets.h"
#include "net/version_query.h"

namespace {
// What the query has brought so far, as a line of the window.
std::string version_line(version_query& query) {
    query.process();
    if (!query.good) return stl.text[text_about_no_connection];
    return stl.text[text_about_current] + " " + query.version;
}

void draw(const std::string& version) {
    constexpr int with_bar = 1;
    constexpr float in = 30.0f, top = 250.0f, line = 14.0f;
    OGL_view_2d();
    seam.draw_background();
    BTN_fillwin(with_bar, box_panel);
    float y = top;
    const auto put = [&](const std::string& text) {
        OGL_string(37, in, y, text, mnw.win_dx - 2.0f * in, charset_text);
        y -= line * static_cast<float>(wrapped_lines(text, mnw.win_dx - 2.0f * in)) + 6.0f;
    };
    put("This is Orvelle Version 8.00");
    put(version);
    for (const int number : {text_about_credits_1, text_about_credits_2, text_about_credits_3})
        put(stl.text[number]);
}
}  // namespace

void MACIBM_about() {
    version_query query;
    MACIBM_startwind(win_about, "about");
    // the window shows while the server's name is looked up
    draw(version_line(query));
    MACIBM_event_proc();
    query.start();
    while (mnw.top_win == win_about && !g_done) {
        draw(version_line(query));
        MACIBM_event_proc();
    }
    if (!query.good) xer << "Could not connect to net, responseNum=" << query.response_number << '\n';
}
