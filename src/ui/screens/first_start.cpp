// What a first start asks, and what every start tells.
#include "ui/screens/first_start.h"

#include "core/disk/files.h"
#include "core/disk/paths.h"
#include "core/disk/text_numbers.h"
#include "core/program/alert.h"
#include "core/records/mnw.h"
#include "core/records/stl.h"
#include "draw/gl/gl_facts.h"
#include "ui/settings/prefs.h"

void choose_language() {
    if (mnw.lang >= 0) return;
    mnw.lang = 0;
    if (!alert_seam.show) return;  // nobody to ask
    MACIBM_alert(mnw.top_win, "", "", "", "", alert_language);
    handle_prefs(0, 7, res_path);  // asked once
}

// The user's choice in a file of its own: "0" for no notes.
namespace {
constexpr int notes_version = 800;
std::string notes_file() { return app_path + "Resources:Preferences:notes.txt"; }

bool notes_are_off() {
    if (!inf_open(notes_file(), ftype_all, notes_version, 0)) return false;
    lin_scan();  // the rest of the header
    const bool off = str_scan() == "0";
    inf_close();
    return off;
}

void switch_notes_off() {
    if (!ouf_open_beside(notes_file(), ftype_all, notes_version)) return;
    ouf << "0\n";
    ouf_replace();
}
}  // namespace

void show_start_notes() {
    if (!alert_seam.show || notes_are_off()) return;
    const std::string* note = &stl.text[text_start_note];
    int off = 0;
    alert_tick = {stl.text[text_notes_off], &off};
    MACIBM_alert(mnw.top_win, "Linux things to know:", note[0], note[1], note[2], alert_message);
    alert_tick = {};
    if (off) switch_notes_off();
}

void warn_of_slow_graphics() {
    if (gl_renderer != "GENERIC") return;
    MACIBM_alert(
        mnw.top_win,
        "I can not find a 3-D accelerator card that can handle OpenGL that has correctly installed drivers.",
        "I will still let you run the simulator, but the frame rate will NOT allow for a good simulation.",
        "Any card of the last years will do, with the driver that its maker or your distribution offers.",
        "The file Error.out tells what was found.", alert_message);
}
