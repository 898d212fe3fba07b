// The sixteen warnings.
#include "scene/overlay/warnings_text.h"

#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <iterator>

#include "core/disk/text_numbers.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "draw/gl/colours.h"
#include "scene/overlay/overlay_paint.h"

namespace {
bool has_gear_failure() {
    const char* const first = flt[0].fail_stat + fail_gear;
    return std::find(first, first + gearDIM, fail_active) != first + gearDIM;
}

bool has_carburettor_ice() {
    constexpr float noticed = 0.01f;
    return std::any_of(std::begin(flt[0].engn), std::end(flt[0].engn),
                       [](const flt_engn_struct& engine) { return engine.carb_ice > noticed; });
}

std::string net_traffic() {
    char text[96];
    const auto whole = [](float v) { return static_cast<double>(fltlim(v, 0.0f, 1.0e9f)); };
    snprintf(text, sizeof text, ": %.0f, %.0f", whole(mnw.bps_snd), whole(mnw.bps_rcv));
    return stl.text[text_warn_net] + text;
}

struct warning_row {
    int text;
    bool holds;
};
}  // namespace

warnings_struct find_warnings() {
    const warning_row wrong[] = {
        {text_warn_disk, mnw.disk_out != 0},         {text_warn_gear, has_gear_failure()},
        {text_warn_carb_ice, has_carburettor_ice()}, {text_warn_over_g, stg.over_g != 0},
        {text_warn_over_vne, stg.over_vne != 0},     {text_warn_over_vfe, stg.over_vfe != 0},
        {text_warn_over_vle, stg.over_vle != 0},
    };
    const warning_row going_on[] = {
        {text_warn_cat, stg.cat_waiting != 0},  {text_warn_tow_waiting, stg.tow_waiting != 0},
        {text_warn_tow, stg.tow_inprog != 0},   {text_warn_winch_waiting, stg.win_waiting != 0},
        {text_warn_winch, stg.win_inprog != 0}, {text_warn_carried, stg.car_inprog != 0},
        {text_paused, mnw.paused != 0},
    };
    warnings_struct found;
    if (mnw.track_net) found.right.push_back(net_traffic());
    for (const warning_row& row : wrong)
        if (row.holds) found.right.push_back(stl.text[row.text]);
    for (const warning_row& row : going_on)
        if (row.holds) found.middle.push_back(stl.text[row.text]);
    if (mnw.typing_message)
        found.middle.push_back(
            stl.text[text_warn_message] +
            std::string(net.str_mess_snd, strnlen(net.str_mess_snd, sizeof net.str_mess_snd)) + "_");
    return found;
}

void draw_warnings() {
    constexpr float right_x = 898.0f, middle_x = 512.0f, below_top = 30.0f, step = 10.0f;
    constexpr int red = 51, yellow = 52;
    const bool is_filmed = mnw.replay_mode && mnw.movie_in_prog;
    if (!stg.warn_text || is_filmed) return;
    const warnings_struct found = find_warnings();
    const float y = mnw.y2_pix - below_top;
    gray_strings(red, right_x, y, step, found.right);
    gray_strings(yellow, middle_x, y, step, found.middle);
}
