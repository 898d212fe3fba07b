// An install folder in memory with what tiles name: an image, a ground, an object. Without a window.
#pragma once
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "core/disk/paths.h"
#include "core/program/logs.h"
#include "support.h"

namespace fuzzing {

class scenery_folder {
public:
    scenery_folder() : path_("/dev/shm/tarvane-fuzz-" + std::to_string(getpid()) + "/") {
        start();
        init_paths(path_);
        std::filesystem::create_directories(path_ + "Resources/bitmaps/terrain");
        std::filesystem::copy_file(INSTALL_FOLDER "Resources/bitmaps/blank.png",
                                   path_ + "Resources/bitmaps/image.png",
                                   std::filesystem::copy_options::overwrite_existing);
        write("Resources/bitmaps/terrain/ground.ter",
              "A\n800\nTERRAIN\nBASE_TEX image.png\nBORDER_TEX image.png\nPROJECTED 500 400\nNO_ALPHA\n");
        write("Resources/bitmaps/object.obj",
              "A\n700\nOBJ\n\nimage\n\ntri\n0 0 0 0 0\n0 5 0 0 1\n5 0 0 1 0\n\nend\n");
    }
    ~scenery_folder() { std::filesystem::remove_all(path_); }
    const std::string& path() const { return path_; }
    void write(const std::string& name, const std::string& bytes) const {
        std::filesystem::create_directories(std::filesystem::path(path_ + name).parent_path());
        std::ofstream(path_ + name, std::ios::binary) << bytes;
    }

private:
    std::string path_;
};

// Values from the input, as long as it lasts; then zeros.
class value_source {
public:
    value_source(const uint8_t* data, size_t size) : at_(data), end_(data + size) {}
    bool done() const { return at_ == end_; }
    unsigned byte() { return done() ? 0 : *at_++; }
    unsigned word() {
        const unsigned low = byte();
        return low + 256 * byte();
    }

private:
    const uint8_t *at_, *end_;
};

}  // namespace fuzzing
