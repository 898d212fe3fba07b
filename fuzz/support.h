// Shared by the fuzz targets: a quiet system in which a fatal alert is an exception, and the rule that
// only the system's own fixed texts may end a run.
#pragma once
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "core/alert.h"
#include "core/random.h"
#include "core/records.h"
#include "core/seams.h"

namespace fuzzing {

struct fatal {
    alert_lines text;
};

// Once per process: constants, seams, alerts.
inline void start() {
    static bool started = false;
    if (started) return;
    started = true;
    alert_seam.show = [](int, const alert_lines&, int) {};
    alert_seam.end = [](const alert_lines& text) { throw fatal{text}; };
    THREAD_Init();
    clear_records();
    init_con();
    seams_headless();
    rand_seed(1);
    init_rand_rat();
}

}  // namespace fuzzing
