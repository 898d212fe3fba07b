// Shared by the fuzz targets: a quiet system in which a fatal alert is an exception, and the rule that
// only the system's own fixed texts may end a run.
#pragma once
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>

#include "core/math/random.h"
#include "core/program/alert.h"
#include "core/program/jobs.h"
#include "core/program/seams.h"
#include "core/records/records.h"
#include "scenery/draw/scenery_gl.h"
#include "weather/atmosphere.h"

namespace fuzzing {

struct fatal {
    alert_lines text;
};

inline void must(bool holds) {
    if (!holds) abort();
}

// Alerts are silent, a fatal one is thrown.
inline void catch_alerts() {
    alert_seam.show = [](int, const alert_lines&, int) {};
    alert_seam.finish = nullptr;
    alert_seam.end = [](const alert_lines& text) { throw fatal{text}; };
}

// Once per process: constants, seams, alerts.
inline void start() {
    static bool started = false;
    if (started) return;
    started = true;
    catch_alerts();
    THREAD_Init();
    clear_records();
    init_con();
    scenery_draw = scenery_draw_gl;
    set_planet_specs(0);
    seams_headless();
    rand_seed(1);
    init_rand_rat();
}

// First lines with which an airfoil may end the program.
inline bool is_foil_text(const std::string& line) {
    static const std::set<std::string> texts = {
        "File-scanning error!",
        "This does not appear to be a valid Airfoil for Wingwright!",
        "An airfoil file could not be found! The airfoil paths I checked are:",
        "I have found a NAN value for this aifoil:",
        "I have found a NEGATIVE DRAG for this aifoil:",
        "I have generated a NAN value for this aifoil:",
    };
    return texts.count(line) != 0;
}

// First lines with which the forces of a design may end it in flight: more drag taken away by controls
// than the section has, and the last net under everything.
inline bool is_flight_text(const std::string& line) {
    static const std::set<std::string> texts = {
        "neg cd in post con-def lookup!",
        "Neg cd at end of all calcs!",
        "duh-oh!",
    };
    return texts.count(line) != 0;
}

// Texts with which the load of a design may end it.
inline bool is_design_text(const alert_lines& text) {
    static const std::set<std::string> texts = {
        "Finite wing reduction fail!",
        "I have found a part with no frontal area!. This is bad news for the math engine!",
    };
    return texts.count(text.line[0]) != 0 || is_foil_text(text.line[0]) ||
           text.line[3].rfind("Fix this problem in Hullwright.", 0) == 0;
}

}  // namespace fuzzing
