// Faults of aircraft files, by slot.
#include "aircraft/acf_fault.h"

#include <set>

#include "core/alert.h"
#include "core/mnw.h"
#include "core/veh.h"

static std::set<std::string> faulty;  // paths of the files given up

void acf_fault(int p, const std::string& s1, const std::string& s2, const std::string& s3,
               const std::string& s4, const char* file, int line) {
    if (p == 0) {
        __MACIBM_alert(mnw.top_win, s1, s2, s3, s4, alert_fatal, file, line);
        return;
    }
    if (faulty.insert(veh[p].path).second)
        __MACIBM_alert(mnw.top_win, s1, s2, s3, s4, alert_message, file, line);
}

bool acf_was_faulty(const std::string& path) { return faulty.count(path) != 0; }
void forget_faulty_acf() { faulty.clear(); }
