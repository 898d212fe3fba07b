// Shared by the fuzz targets: a quiet system in which a fatal alert is an exception, the input, files in
// memory, and the rule that only the system's own fixed texts may end a run.
#pragma once
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "core/disk/paths.h"
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

inline void must_be_finite(std::initializer_list<double> values) {
    for (const double v : values) must(std::isfinite(v));
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

// Values from the input, as long as it lasts; then zeros.
class input {
public:
    input(const uint8_t* data, size_t size) : at_(data), end_(data + size) {}
    bool done() const { return at_ == end_; }
    const uint8_t* data() const { return at_; }
    size_t size() const { return static_cast<size_t>(end_ - at_); }
    template <class T>
    T value() {
        T value{};
        const size_t count = std::min(size(), sizeof value);
        if (count) memcpy(static_cast<void*>(&value), at_, count);
        at_ += count;
        return value;
    }
    unsigned byte() { return value<uint8_t>(); }
    unsigned word() { return value<uint16_t>(); }
    // So many bytes, or what is left of them, in a heap block of exactly their size.
    std::vector<char> bytes(size_t most = SIZE_MAX) {
        const uint8_t* const first = at_;
        at_ += std::min(most, size());
        return {first, at_};
    }
    std::string text() {
        const std::vector<char> all = bytes();
        return {all.begin(), all.end()};
    }

private:
    const uint8_t *at_, *end_;
};

// A folder in memory, for readers that open a path.
class folder {
public:
    folder() : path_("/dev/shm/tarvane-fuzz-" + std::to_string(getpid()) + "/") {
        std::filesystem::create_directories(path_);
    }
    ~folder() { std::filesystem::remove_all(path_); }
    const std::string& path() const { return path_; }
    // Gives the file's path.
    template <class byte_row>
    std::string write(const std::string& name, const byte_row& bytes) const {
        const std::string path = path_ + name;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        std::ofstream out(path, std::ios::binary);
        out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        must(out.good());
        return path;
    }

private:
    std::string path_;
};

// An install folder in memory with what tiles name: an image, a ground, an object. Without a window.
class scenery_folder : public folder {
public:
    scenery_folder() {
        init_paths(path());
        std::ifstream blank(INSTALL_FOLDER "Resources/bitmaps/blank.png", std::ios::binary);
        write("Resources/bitmaps/image.png", std::string(std::istreambuf_iterator<char>(blank), {}));
        write(
            "Resources/bitmaps/terrain/ground.ter",
            std::string(
                "A\n800\nTERRAIN\nBASE_TEX image.png\nBORDER_TEX image.png\nPROJECTED 500 400\nNO_ALPHA\n"));
        write("Resources/bitmaps/object.obj",
              std::string("A\n700\nOBJ\n\nimage\n\ntri\n0 0 0 0 0\n0 5 0 0 1\n5 0 0 1 0\n\nend\n"));
    }
};

// First lines with which an airfoil may end the program.
inline const std::set<std::string> foil_texts = {
    "File-scanning error!",
    "This does not appear to be a valid Airfoil for Wingwright!",
    "An airfoil file could not be found! The airfoil paths I checked are:",
    "I have found a NAN value for this aifoil:",
    "I have found a NEGATIVE DRAG for this aifoil:",
    "I have generated a NAN value for this aifoil:",
};

// First lines with which the forces of a design may end it in flight: more drag taken away by controls
// than the section has, and the last net under everything.
inline const std::set<std::string> flight_texts = {
    "neg cd in post con-def lookup!",
    "Neg cd at end of all calcs!",
    "duh-oh!",
};

// Texts with which the load of a design may end it.
inline bool is_design_text(const alert_lines& text) {
    return text.line[0] == "Finite wing reduction fail!" ||
           text.line[0] ==
               "I have found a part with no frontal area!. This is bad news for the math engine!" ||
           foil_texts.count(text.line[0]) || text.line[3].rfind("Fix this problem in Hullwright.", 0) == 0;
}

}  // namespace fuzzing
