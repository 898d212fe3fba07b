// One board at a time.
#include "scene/overlay/boards.h"

#include <iterator>

#include "atc/controllers.h"
#include "core/math/num.h"
#include "core/records/mnw.h"
#include "core/records/msc.h"
#include "core/records/stg.h"
#include "core/records/stl.h"
#include "draw/gl/colours.h"
#include "draw/images/interface_layout.h"
#include "draw/type.h"
#include "draw/widgets/frames.h"
#include "draw/widgets/widgets.h"
#include "scene/overlay/overlay_paint.h"
#include "sound/sound.h"

namespace {
constexpr float board_x = 40.0f, board_dx = 480.0f, edge = 18.0f, line = 12.0f, below_top = 60.0f;

// Under its upper edge at y; gives the height.
float draw_text_box(float x, float top, float dx, const std::string& text) {
    const float inner = dx - 2.0f * edge;
    const float high = fltmin2(line * static_cast<float>(intmax2(wrapped_lines(text, inner), 1)), top - 2.0f * edge);
    const float dy = high + 2.0f * edge;
    BTN_frame2(box_glass, x, top - dy, dx, dy, "");
    OGL_string(col_white, x + edge, top - edge - line + 2.0f, text, inner, charset_text);
    return dy;
}

void draw_text_board() { draw_text_box(board_x, mnw.y2_pix - below_top, board_dx, stl.buff_text_disp); }

void step_checklist(int by) {
    const int last = intlim(msc.checklist_max, 1, static_cast<int>(std::size(stl.buff_checklist))) - 1;
    const int now = intlim(msc.checklist_now + by, 0, last);
    if (now == msc.checklist_now) return;
    msc.checklist_now = now;
    soun.SPEECH_speakstring(stl.buff_checklist[now], 0);  // it is written here
}

void draw_checklist() {
    constexpr float button_in = 26.0f, button_step = 40.0f;
    const int now = intlim(msc.checklist_now, 0, static_cast<int>(std::size(stl.buff_checklist)) - 1);
    const float top = mnw.y2_pix - below_top;
    const float dy = draw_text_box(board_x, top, board_dx, stl.buff_checklist[now]);
    const float y = top - dy - 12.0f;
    if (BTN_action(board_x + button_in, y, 0, 0, "<")) step_checklist(-1);
    if (BTN_action(board_x + button_in + button_step, y, 0, 0, ">")) step_checklist(1);
}

void draw_spoken() {
    constexpr float from_top = 56.0f;
    if (!stg.text_out || stl.verbal_string.empty() || mnw.real_time >= stl.verbal_timeout) return;
    gray_string(col_white, 0.5f * (mnw.x1_pix + mnw.x2_pix), mnw.y2_pix - from_top, stl.verbal_string);
}
}  // namespace

int draw_boards() {
    if (stl.has_text_disp && stl.show_text_disp) return draw_text_board(), 1;
    if (stl.has_checklist && stl.show_checklist) return draw_checklist(), 1;
    if (draw_atc_menu()) return 1;
    draw_spoken();
    return 0;
}
