// What a first start asks, and what every start tells.
#include "core/alert.h"
#include "core/mnw.h"
#include "core/paths.h"
#include "ui/prefs.h"
#include "ui/windows.h"

void choose_language() {
    if (mnw.lang >= 0) return;
    mnw.lang = 0;
    if (!alert_seam.show) return;  // nobody to ask
    MACIBM_alert(mnw.top_win, "", "", "", "", alert_language);
    handle_prefs(0, 7, res_path);  // asked once
}

void show_start_notes() {
    if (!alert_seam.show) return;
    MACIBM_alert(mnw.top_win, "Linux things to know:",
                 "The window covers the screen and takes the keyboard. Control-q leaves the program; with "
                 "the variable "
                 "ORVL_NO_GRAB_KEYBOARD set to 1 the keyboard stays shared.",
                 "The mouse is the stick until a joystick is used: m parks it, and the menus are at the top "
                 "of the screen.",
                 "What goes wrong is written to Error.out beside the program.", alert_message);
}
