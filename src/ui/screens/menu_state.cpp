// What the menus and lists show of the program's state.
#include "ui/screens/menu_state.h"

#include "core/program/upward.h"
#include "core/records/env.h"
#include "core/records/flt.h"
#include "core/records/mnw.h"
#include "core/records/msc.h"
#include "core/records/ren.h"
#include "core/records/stl.h"
#include "draw/widgets/menus.h"
#include "draw/widgets/widgets.h"
#include "scenery/nav/nav_tables.h"
#include "ui/keys/commands.h"

namespace {
struct mark_row {
    int code;
    const int* flag;
};
const mark_row marks[] = {
    {cmd_hotspots, &msc.show_hotspots},   {cmd_show_text, &stl.show_text_disp}, {cmd_show_checklist, &stl.show_checklist},
    {cmd_ai_opens, &msc.ai_opens},        {cmd_ai_flys, &msc.ai_flys},        {cmd_ai_views, &msc.ai_views},
    {cmd_mouse_look, &ren.mouse_look},      {cmd_transparent_panel, &ren.trans_panel},    {cmd_sunglasses, &ren.sunglasses_on},
    {cmd_night_vision, &ren.night_vision_on}, {cmd_replay, &mnw.replay_mode},    {cmd_smoke, &flt[0].smoking},
    {cmd_flight_path, &ren.show_path},
};

int is_checked(int code) {
    if (TVPCheckMenu(code)) return 1;
    if (code == cmd_earth || code == cmd_mars) return env.planet == code - cmd_earth;
    if ((code >= view_fwd_panel && code <= view_marked_last) || code == view_weapon) return ren.view_type_act == code;
    for (const mark_row& mark : marks)
        if (mark.code == code) return *mark.flag > 0;
    return 0;
}

std::string airport_id(int i) { return vec_apt[static_cast<size_t>(i)].apt_id; }
std::string navaid_id(int i) { return vec_nav[static_cast<size_t>(i)].nav_id; }

int is_disabled(int code) { return TVPMenuIsDisabled(code) || !command_exists(code); }
}  // namespace

void menus_ask_program() {
    menu_answer = {is_checked, is_disabled};
    place_ids = {navaid_id, airport_id};
}
