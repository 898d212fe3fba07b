// A file of the fuzzed bytes in memory, for readers that open a path.
#pragma once
#include <unistd.h>

#include <cstdio>
#include <string>

namespace fuzzing {

class memory_file {
public:
    explicit memory_file(const std::string& ending)
        : path_("/dev/shm/tarvane-fuzz-" + std::to_string(getpid()) + "." + ending) {}
    ~memory_file() { unlink(path_.c_str()); }
    const std::string& path() const { return path_; }
    void write(const void* bytes, size_t count) const {
        FILE* file = fopen(path_.c_str(), "wb");
        if (!file || fwrite(bytes, 1, count, file) != count) abort();
        fclose(file);
    }

private:
    std::string path_;
};

}  // namespace fuzzing
