// The command gate: every command and key ends here.
#include "ui/keys/commands.h"

#include <stdio.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "aircraft/deflect.h"
#include "core/disk/mapfile.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/input_gate.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "draw/images/screenshot.h"
#include "flight/power/engine_control.h"
#include "ui/keys/engine_keys.h"
#include "ui/keys/start_commands.h"
#include "ui/settings/logbook.h"
#include "ui/views/view_command.h"
#include "ui/views/zoom.h"

namespace {
void quit() { g_done = 1; }
void scroll_view_up() { zoom.poke_zoom(special_up); }
void scroll_view_down() { zoom.poke_zoom(special_down); }
void zoom_in() { zoom.poke_zoom(zoom_key_in); }
void zoom_out() { zoom.poke_zoom(zoom_key_out); }
void look_with_mouse() { ren.mouse_look = !ren.mouse_look; }
void wear_sunglasses() { ren.sunglasses_on = !ren.sunglasses_on; }
void night_vision() { ren.night_vision_on = !ren.night_vision_on; }
void show_forces() { scn.vis_math_level = intwrap(scn.vis_math_level + 1, 0, 4); }
void show_text() { stl.show_text_disp = !stl.show_text_disp; }
void show_checklist() { stl.show_checklist = !stl.show_checklist; }
void picture() { OGL_screenshot(); }
void write_trace() { mnw.cyc_out = 1; }
void kick_pitch() { msc.stab_ptch_test = 2; }
void kick_heading() { msc.stab_hdng_test = 2; }

struct command_row {
    int code;
    void (*run)();
};
constexpr command_row commands[] = {
    {cmd_about, MACIBM_about},
    {cmd_quit, quit},
    {cmd_scroll_up, scroll_view_up},
    {cmd_scroll_down, scroll_view_down},
    {cmd_zoom_in, zoom_in},
    {cmd_zoom_out, zoom_out},
    {cmd_mouse_look, look_with_mouse},
    {cmd_sunglasses, wear_sunglasses},
    {cmd_night_vision, night_vision},
    {cmd_forces, show_forces},
    {cmd_show_text, show_text},
    {cmd_show_checklist, show_checklist},
    {cmd_trace, write_trace},
    {cmd_screenshot, picture},
    {cmd_kick_pitch, kick_pitch},
    {cmd_kick_heading, kick_heading},
};

}  // namespace

int command_exists(int item) {
    if (start_command_exists(item) || view_command_exists(item)) return 1;
    if (item == cmd_show_text) return stl.has_text_disp;
    if (item == cmd_show_checklist) return stl.has_checklist;
    for (const command_row& command : commands)
        if (command.code == item) return 1;
    return 0;
}

void APP_handlemenu(int item) {
    for (const command_row& command : commands)
        if (command.code == item) command.run();
    run_start_command(item);
    zoom.poke_view(item);
    TVPEventHook(1, mnw.real_time, 0.0f, 0, 0);
}

namespace {
void step(float& value, float by, float lo, float hi) { value = fltlim(value + by, lo, hi); }

void toggle(int& flag) { flag = !flag; }

// Plain characters that are view commands, as the menus show them.
struct view_row {
    int key, command;
};
constexpr view_row view_keys[] = {
    {'w', view_fwd_panel},  {'W', view_fwd_hud},     {'e', view_fwd_bare}, {'d', view_look_down},
    {'u', view_left_45},    {'o', view_right_45},    {'j', view_left_90},  {'l', view_right_90},
    {'m', view_left_135},   {',', view_right_135},   {'k', view_back},     {'K', view_down},
    {'y', view_tower},      {'Y', view_runway},      {'a', view_chase},    {'A', view_circle},
    {'s', view_still_spot}, {'S', view_moving_spot}, {'f', view_weapon},
};

// In and out, as the key table has them in rows 89 and 90; with shift ten times as fast.
constexpr int zoom_in_key = '=', zoom_out_key = '-';

bool is_zoom_key(int key) {
    const struct {
        int key, code;
    } rows[] = {{zoom_in_key, zoom_key_in},
                {zoom_out_key, zoom_key_out},
                {shifted_key(zoom_in_key), zoom_key_in_fast},
                {shifted_key(zoom_out_key), zoom_key_out_fast}};
    for (const auto& row : rows)
        if (row.key == key) return zoom.poke_zoom(row.code), true;
    return false;
}

bool is_view_key(int key) {
    for (const view_row& row : view_keys)
        if (row.key == key) return APP_handlemenu(row.command), true;
    return false;
}

// Every aircraft file below the aircraft folder, by path.
std::vector<std::string> all_aircraft() {
    namespace fs = std::filesystem;
    std::vector<std::string> paths;
    std::error_code unreadable;
    for (const auto& entry : fs::recursive_directory_iterator(set_dir_chars(acf_path), unreadable))
        if (entry.path().extension() == ".acf") paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end());
    return paths;
}

void start_over() {
    init_flt_0(start_airport, place_runway);
    begin_user_flight_steady(start_airport);
}

// The default aircraft stands under two paths: its own and that of the fallback.
bool is_same_aircraft(const std::string& a, const std::string& b) {
    XMappedFile one, other;
    return one.retry(a.c_str()) && other.retry(b.c_str()) && one.size() == other.size() &&
           std::equal(one.begin(), one.end(), other.begin());
}

// The one behind the present one, the first behind the last.
void next_aircraft() {
    const std::vector<std::string> paths = all_aircraft();
    if (paths.empty()) return;
    const std::string now = set_dir_chars(veh[0].path);
    size_t next = static_cast<size_t>(std::find(paths.begin(), paths.end(), now) - paths.begin());
    for (size_t tried = 0; tried < paths.size(); ++tried) {
        next = next + 1 < paths.size() ? next + 1 : 0;
        if (is_same_aircraft(now, paths[next])) continue;
        snprintf(veh[0].path, sizeof veh[0].path, "%s", paths[next].c_str());
        if (load_plane(0)) start_over();
        return;
    }
}

// 1,500 m above the ground, gliding, with engines that have never run.
void release_cold() {
    constexpr float height = 1500.0f, over_reference = 1.2f;
    stg.cus_lat = static_cast<float>(flt[0].dob_lat);
    stg.cus_lon = static_cast<float>(flt[0].dob_lon);
    stg.cus_alt = static_cast<float>(flt[0].dob_ele) - flt[0].y_agl_mtr + height;
    stg.cus_v = over_reference * veh[0].V_ref_ms;
    stg.cus_psi = 0.0f;
    init_flt_0(start_custom, 0);
    cold_engines();
}

// Set when it is off, else off.
void toggle_brake(float set) { stg.parkbrake = stg.parkbrake < 0.01f ? set : 0.0f; }

// Trim on [ and ], rudder on z and x, centred by c; brakes on b and, half, v; speed brakes on 3 and 4, flaps
// on 1 and 2, igniters on i; r starts over, R with cold engines, n in the next aircraft.
void flight_key(int key) {
    constexpr float rudder_step = 0.1f, brake_step = 0.25f, trim_step = 0.02f;
    flt_struct& f = flt[0];
    switch (key) {
        case '[':
            return step(f.elev_trim, -trim_step, -1.0f, 1.0f);
        case ']':
            return step(f.elev_trim, trim_step, -1.0f, 1.0f);
        case 'z':
            return step(mnw.YK_hdng, -rudder_step, -1.0f, 1.0f);
        case 'x':
            return step(mnw.YK_hdng, rudder_step, -1.0f, 1.0f);
        case 'c':
            mnw.YK_hdng = 0.0f;
            return;
        case 'b':
            return toggle_brake(1.0f);
        case 'v':
            return toggle_brake(0.5f);
        case '1':
            return update_flap_slat_rqst_with_hand(0, -1);
        case '2':
            return update_flap_slat_rqst_with_hand(0, 1);
        case '3':
            return step(f.sbrk_rqst, -brake_step, 0.0f, 1.0f);
        case '4':
            return step(f.sbrk_rqst, brake_step, 0.0f, 1.0f);
        case 'g':
            return toggle(f.gear_handle);
        case 'i':
            for (int& igniter : stg.igniter) toggle(igniter);
            return;
        case 't':
            return APP_handlemenu(cmd_trace);
        case 'r':
            return start_over();
        case 'R':
            return release_cold();
        case 'n':
            return next_aircraft();
        default:
            return;
    }
}

// Control keys that are commands, as the menus show them; all others are switches.
struct control_row {
    int key, command;
};
constexpr control_row control_keys[] = {
    {'/', cmd_trace},    {'n', cmd_kick_heading}, {'m', cmd_kick_pitch}, {'.', cmd_screenshot},
    {'q', view_up_left}, {'e', view_up_right},    {'o', cmd_mouse_look}, {'`', cmd_sunglasses},
};

// Counters and times of the frame, on the screen and in files.
constexpr int profile_key = ';';

void show_or_hide_boards() {
    for (const int command : {cmd_show_text, cmd_show_checklist})
        if (command_exists(command)) APP_handlemenu(command);
}

void control_key(int key) {
    if (key == profile_key) return toggle(mnw.track_cpu);
    for (const control_row& row : control_keys)
        if (row.key == key) return APP_handlemenu(row.command);
    switch_key(key);
}
}  // namespace

void APP_handlekey(int use_code, int key) {
    if (use_code == key_use_special && key == special_tab) return show_or_hide_boards();
    if (use_code == key_use_special) return zoom.poke_zoom(key);
    if (use_code == key_use_ctrl) return control_key(key);
    if (use_code == key_use_function) return lever_key(key);
    if (use_code != key_use_char || is_zoom_key(key)) return;
    if (mnw.top_win != win_fly) return;
    if (key == 'q') return MACIBM_ask_quit();
    if (key == 'p') return toggle(mnw.paused);
    if (ren.is_viewer) return zoom.poke_zoom(key);
    if (is_view_key(key)) return;
    flight_key(key);
}
