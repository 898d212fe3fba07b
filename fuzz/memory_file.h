// A file of the fuzzed bytes in memory, for readers that open a path.
#pragma once
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

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

// One without a name in any folder, that stays as long as it is and whose bytes can be changed in place.
class mapped_file {
public:
    explicit mapped_file(const std::vector<char>& content) : size_(content.size()) {
        fd_ = memfd_create("tarvane-fuzz", 0);
        if (fd_ < 0 || ftruncate(fd_, static_cast<off_t>(size_)) != 0) abort();
        void* const first = mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_SHARED, fd_, 0);
        if (first == MAP_FAILED) abort();
        bytes_ = static_cast<char*>(first);
        std::copy(content.begin(), content.end(), bytes_);
    }
    ~mapped_file() {
        munmap(bytes_, size_);
        close(fd_);
    }
    mapped_file(const mapped_file&) = delete;
    mapped_file& operator=(const mapped_file&) = delete;
    std::string path() const { return "/proc/self/fd/" + std::to_string(fd_); }
    char* bytes() { return bytes_; }
    const char* bytes() const { return bytes_; }

private:
    size_t size_;
    int fd_;
    char* bytes_;
};

}  // namespace fuzzing
