// What the readers of the navigation tables share: a mapped file with its header behind it, and fixed text
// fields.
#pragma once
#include <string.h>

#include <algorithm>
#include <string>

#include "core/disk/paths.h"
#include "core/disk/txtscan.h"
#include "core/records/env.h"

// The rest of a table's file. Fields are read in their order; a line of 99 or the end of the file ends it.
class nav_file {
public:
    // ok() is false when the file is missing or its version another.
    nav_file(const std::string& path, int ftype, const char* version)
        : file_(set_dir_chars(path).c_str(), &at_) {
        ok_ = MAP_check_file(ftype, &file_, at_, &c_, &c_max_, version);
    }
    bool ok() const { return ok_; }
    bool more() const { return TXT_MAP_continue(at_, &c_, c_max_); }
    int number() { return TXT_MAP_int_scan(at_, &c_, c_max_); }
    float value() { return TXT_MAP_flt_scan(at_, &c_, c_max_); }
    void word(std::string* to) { TXT_MAP_str_scan_space(at_, &c_, c_max_, to); }
    void rest(std::string* to) { TXT_MAP_str_scan_eoln(at_, &c_, c_max_, to); }
    void end_line() { TXT_MAP_finish_line(at_, &c_, c_max_); }

private:
    map_bytes at_ = nullptr;
    XMappedFile file_;
    int c_ = 0, c_max_ = 0;
    bool ok_ = false;
};

// Cuts to the field, which always ends in a zero byte.
template <size_t size>
void put_text(char (&to)[size], const std::string& from) {
    const size_t length = std::min(from.size(), size - 1);
    memcpy(to, from.data(), length);
    memset(to + length, 0, size - length);
}

// Where the tables of the present planet are.
inline const std::string& planet_path() { return env.planet ? mar_path : ear_path; }
