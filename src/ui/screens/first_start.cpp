// What a first start asks, and what every start tells.
#include "ui/screens/first_start.h"

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

void show_start_notes() {
    if (!alert_seam.show) return;
    const std::string* note = &stl.text[text_start_note];
    MACIBM_alert(mnw.top_win, "Linux things to know:", note[0], note[1], note[2], alert_message);
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
