// Tarvane: starts the system, runs its frames, ends it.
#include <unistd.h>

#include "app/frame.h"
#include "app/init_sim.h"
#include "core/disk/paths.h"
#include "core/program/alert.h"
#include "core/program/logs.h"
#include "core/program/seams.h"
#include "core/records/records.h"
#include "ui/screens/start_screen.h"

int main() {
    try {
        const std::string folder = executable_folder();
        if (chdir(folder.c_str()) != 0) return 1;  // logs and data stand beside the executable
        seams_headless();
        seams_real_clock();
        seam.has_display = seam.has_user = 1;
        init_sim(folder);
        ren.view_type_act = view_fwd_panel;
        MACIBM_update_back_texes();
        while (!g_done) MACIBM_event_proc();
        MACIBM_finishup(1);
    } catch (const XException& e) {
        e.ReportAndQuit();
    } catch (...) {
        xer << "catch anything else\n";
        xer.flush();
    }
    return 0;
}
