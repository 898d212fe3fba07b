// Routines of this folder that do not exist yet: each call stands in its place in the frame and gets its neutral
// answer here. The file shrinks as they are built.
#include "core/program/upward.h"
#include "ui/devices.h"
#include "ui/keys/mouse_yoke.h"
#include "ui/screens/windows.h"
#include "ui/settings/logbook.h"
#include "ui/views/mouse_look.h"

// No settings windows, logbook, key file, devices.
void manage_apt() {}
void manage_dat() {}
void manage_wxr() {}
void manage_tim() {}
void manage_wgt() {}
void manage_rel() {}
void manage_acf() {}
void manage_qfl() {}
void manage_snd() {}
void manage_ren() {}
void manage_fdr() {}
void manage_joy() {}
void manage_wrn() {}
void manage_map() {}
void manage_wrl() {}
void manage_log() {}
void manage_ins() {}
void manage_env() {}
void manage_vew() {}
void manage_pln() {}
void stop_fire() {}
void stop_starter() {}
void logbook_read() {}
void logbook_entry() {}
void read_key_file() {}
void JOY_init() {}
void JOY_close() {}
void JOY_get() {
    mouse_yoke_step();
    mouse_look_step();
}
void init_hardware_out() {}
void close_hardware_out(int) {}
