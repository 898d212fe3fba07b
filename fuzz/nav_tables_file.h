// A navigation table of the fuzzed bytes in an install folder in memory.
#pragma once
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "core/disk/paths.h"
#include "core/records/con.h"
#include "core/records/env.h"
#include "support.h"

namespace fuzzing {

class nav_tables_file {
public:
    // header: whether the version line is given, so that the rest of the bytes are rows
    nav_tables_file(const std::string& name, const std::string& version)
        : root_("/dev/shm/tarvane-fuzz-" + std::to_string(getpid())), path_(root_ + "/" + name) {
        mkdir(root_.c_str(), 0700);
        init_paths(root_ + "/");
        ear_path = mar_path = root_ + ":";
        header_ = "I\n" + version + " Version\n";
    }
    ~nav_tables_file() {
        unlink(path_.c_str());
        rmdir(root_.c_str());
    }
    // Odd first byte: the rest is rows behind a good header; even: it is the whole file.
    void write(const uint8_t* data, size_t size) const {
        FILE* file = fopen(path_.c_str(), "wb");
        must(file != nullptr);
        if (size > 0 && (data[0] & 1))
            must(fwrite(header_.data(), 1, header_.size(), file) == header_.size());
        if (size > 1) must(fwrite(data + 1, 1, size - 1, file) == size - 1);
        fclose(file);
    }

private:
    std::string root_, path_, header_;
};

inline bool ends_within(const char* text, size_t size) { return strnlen(text, size) < size; }

}  // namespace fuzzing
