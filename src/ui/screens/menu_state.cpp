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
    {1807, &msc.show_hotspots},   {1810, &stl.show_text_disp}, {1813, &stl.show_checklist},
    {1815, &msc.ai_opens},        {1816, &msc.ai_flys},        {1817, &msc.ai_views},
    {1530, &ren.mouse_look},      {1531, &ren.trans_panel},    {1533, &ren.sunglasses_on},
    {1534, &ren.night_vision_on}, {1535, &mnw.replay_mode},    {1532, &flt[0].smoking},
    {1536, &ren.show_path},
};

int is_checked(int code) {
    constexpr int planet_earth = 616, planet_mars = 617, last_view = 1529, panel_only = 1540;
    if (TVPCheckMenu(code)) return 1;
    if (code == planet_earth || code == planet_mars) return env.planet == code - planet_earth;
    if ((code >= view_fwd_panel && code <= last_view) || code == panel_only) return ren.view_type_act == code;
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
