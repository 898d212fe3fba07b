// Faults of aircraft files, by slot.
#include "aircraft/file/acf_fault.h"

#include <set>

#include "core/craft/veh.h"
#include "core/disk/paths.h"
#include "core/program/alert.h"
#include "core/records/mnw.h"

// The files given up, by their path in the platform's form: one file has many spellings in the system's.
static std::set<std::string> faulty;

void acf_fault(int p, const std::string& s1, const std::string& s2, const std::string& s3,
               const std::string& s4, const char* file, int line) {
    if (p == 0) {
        __MACIBM_alert(mnw.top_win, s1, s2, s3, s4, alert_fatal, file, line);
        return;
    }
    if (faulty.insert(set_dir_chars(veh[p].path)).second)
        __MACIBM_alert(mnw.top_win, s1, s2, s3, s4, alert_message, file, line);
}

bool acf_was_faulty(const std::string& path) {
    return !faulty.empty() && faulty.count(set_dir_chars(path)) != 0;
}
void forget_faulty_acf() { faulty.clear(); }
