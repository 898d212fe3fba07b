// Scanners over mapped bytes. Everything here reads what strangers wrote.
#include "core/disk/txtscan.h"

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "core/disk/files.h"

namespace {
bool is_eoln(unsigned char b) { return b == '\r' || b == '\n'; }
bool ends_word(unsigned char b) { return b == ' ' || is_eoln(b); }

void skip_spaces(map_bytes MAP_add, int* c, int c_max) {
    while (*c < c_max && MAP_add[*c] == ' ') ++*c;
}
void skip_one(int* c, int c_max) {
    if (*c < c_max) ++*c;
}
std::string text_between(map_bytes MAP_add, int from, int to) {
    return std::string(reinterpret_cast<const char*>(MAP_add) + from, static_cast<size_t>(to - from));
}

// 10 to the power n; exact as far as a double can be.
double power_of_10(int n) {
    static const double exact[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    return n <= 22 ? exact[n] : pow(10.0, n);
}
}  // namespace

int TXT_MAP_continue(map_bytes MAP_add, const int* c, int c_max) {
    if (*c >= c_max) return 0;
    const bool ends =
        c_max - *c > 2 && MAP_add[*c] == '9' && MAP_add[*c + 1] == '9' && is_eoln(MAP_add[*c + 2]);
    return !ends;
}

int TXT_MAP_eoln(map_bytes MAP_add, const int* c, int c_max) {
    return *c >= c_max || MAP_add[*c] == 0 || is_eoln(MAP_add[*c]);
}

void TXT_MAP_finish_line(map_bytes MAP_add, int* c, int c_max) {
    while (*c < c_max && TXT_MAP_eoln(MAP_add, c, c_max)) ++*c;
}

void TXT_MAP_str_scan_eoln(map_bytes MAP_add, int* c, int c_max, std::string* str) {
    skip_spaces(MAP_add, c, c_max);
    const int start = *c;
    while (!TXT_MAP_eoln(MAP_add, c, c_max)) ++*c;
    if (str) *str = text_between(MAP_add, start, *c);
    TXT_MAP_finish_line(MAP_add, c, c_max);
}

void TXT_MAP_str_scan_space(map_bytes MAP_add, int* c, int c_max, std::string* str) {
    skip_spaces(MAP_add, c, c_max);
    const int start = *c;
    while (*c < c_max && !ends_word(MAP_add[*c])) ++*c;
    if (str) *str = text_between(MAP_add, start, *c);
}

int TXT_MAP_str_match_space(map_bytes MAP_add, int* c, int c_max, const char* word, int eoln_ok) {
    int at = *c;
    skip_spaces(MAP_add, &at, c_max);
    const size_t length = strlen(word);
    if (static_cast<size_t>(c_max - at) < length || memcmp(MAP_add + at, word, length) != 0) return 0;
    at += static_cast<int>(length);
    const bool space = at < c_max && MAP_add[at] == ' ';
    if (!space && !(eoln_ok && TXT_MAP_eoln(MAP_add, &at, c_max))) return 0;
    *c = at;
    return 1;
}

int TXT_MAP_int_scan(map_bytes MAP_add, int* c, int c_max) {
    skip_spaces(MAP_add, c, c_max);
    const bool negative = *c < c_max && MAP_add[*c] == '-';
    if (negative) ++*c;
    if (*c < c_max && MAP_add[*c] == '+') ++*c;
    uint32_t value = 0;
    for (; *c < c_max && !ends_word(MAP_add[*c]); ++*c) value = value * 10u + MAP_add[*c] - uint32_t{'0'};
    skip_one(c, c_max);
    return static_cast<int>(negative ? 0u - value : value);
}

float TXT_MAP_flt_scan(map_bytes MAP_add, int* c, int c_max) {
    constexpr double enough = 1e200;  // further digits change nothing, and the sum must stay finite
    skip_spaces(MAP_add, c, c_max);
    double digits = 0.0;
    int decimals = 0;
    bool negative = false, behind_point = false;
    for (; *c < c_max && !ends_word(MAP_add[*c]); ++*c) {
        const int b = MAP_add[*c];
        if (b == '-')
            negative = true;
        else if (b == '+')
            negative = false;
        else if (b == '.')
            behind_point = true;
        else if (fabs(digits) < enough) {
            digits = digits * 10.0 + (b - '0');
            decimals += behind_point;
        }
    }
    skip_one(c, c_max);
    const double value = digits / power_of_10(decimals);
    const double held = value < -double{FLT_MAX}  ? -double{FLT_MAX}
                        : value > double{FLT_MAX} ? double{FLT_MAX}
                                                  : value;
    return static_cast<float>(negative ? -held : held);
}

namespace {
// The next four bytes in the machine's order, or 0 and the end of the file.
uint32_t next_word32(map_bytes MAP_add, int* c, int c_max) {
    if (c_max - *c < 4) {
        *c = c_max;
        return 0;
    }
    uint32_t word;
    memcpy(&word, MAP_add + *c, sizeof word);
    *c += 4;
    return MAP_add[0] == 'a' ? __builtin_bswap32(word) : word;
}
}  // namespace

int BIN_MAP_int_scan(map_bytes MAP_add, int* c, int c_max) {
    return static_cast<int>(next_word32(MAP_add, c, c_max));
}

float BIN_MAP_flt_scan(map_bytes MAP_add, int* c, int c_max) {
    const uint32_t word = next_word32(MAP_add, c, c_max);
    float value;
    memcpy(&value, &word, sizeof value);
    return value;
}

unsigned char BIN_MAP_chr_scan(map_bytes MAP_add, int* c, int c_max) {
    return *c < c_max ? MAP_add[(*c)++] : static_cast<unsigned char>(0);
}

std::string BIN_MAP_str_scan_DIM(map_bytes MAP_add, int* c, int c_max, int dim) {
    const int start = *c;
    *c = c_max - start < dim ? c_max : start + dim;
    int end = start;
    while (end < *c && MAP_add[end] != 0) ++end;
    return text_between(MAP_add, start, end);
}

namespace {
// Start of both header checks: a mapping that can be indexed by int.
bool start_check(const XMappedFile* MAP_file, map_bytes MAP_add, int* c_use, int* c_max) {
    *c_use = *c_max = 0;
    if (!MAP_file || !MAP_file->ok() || !MAP_add || MAP_file->size() > INT_MAX) return false;
    *c_max = static_cast<int>(MAP_file->size());
    return true;
}

// Past the marker line of a text file.
bool check_text_marker(map_bytes MAP_add, int* c_use, int c_max) {
    if (MAP_add[0] != 'A' && MAP_add[0] != 'I') return false;
    TXT_MAP_str_scan_eoln(MAP_add, c_use, c_max, nullptr);
    return true;
}
}  // namespace

int MAP_check_file(int ftype, const XMappedFile* MAP_file, map_bytes MAP_add, int* c_use, int* c_max,
                   const std::string& req_version_str) {
    if (!start_check(MAP_file, MAP_add, c_use, c_max)) return 0;
    if (req_version_str == map_any_version) return 1;
    if (ftype_is_bin(ftype)) {
        if ((MAP_add[0] != 'a' && MAP_add[0] != 'i') || *c_max < 5) return 0;
        *c_use = 1;
        return BIN_MAP_int_scan(MAP_add, c_use, *c_max) == strtol(req_version_str.c_str(), nullptr, 10);
    }
    if (!check_text_marker(MAP_add, c_use, *c_max)) return 0;
    constexpr size_t version_chars = 3;
    const int behind = *c_use + static_cast<int>(version_chars);
    if (behind > *c_max || text_between(MAP_add, *c_use, behind) != req_version_str.substr(0, version_chars))
        return 0;
    *c_use = behind;
    std::string* copyright = ftype == ftype_apt   ? &copyright_apt
                             : ftype == ftype_nav ? &copyright_nav
                                                  : nullptr;
    TXT_MAP_str_scan_eoln(MAP_add, c_use, *c_max, copyright);
    return 1;
}

int MAP_check_file_text_typed(const XMappedFile* MAP_file, map_bytes MAP_add, int* c_use, int* c_max,
                              const int* req_versions, const char* req_file_type,
                              std::string* out_copyright) {
    if (!start_check(MAP_file, MAP_add, c_use, c_max)) return 0;
    if (!check_text_marker(MAP_add, c_use, *c_max)) return 0;

    std::string word;
    TXT_MAP_str_scan_space(MAP_add, c_use, *c_max, &word);
    const long version = strtol(word.c_str(), nullptr, 10);
    const int* fit = req_versions;
    while (*fit != 0 && *fit != version) ++fit;
    if (*fit == 0) return 0;
    TXT_MAP_str_scan_eoln(MAP_add, c_use, *c_max, out_copyright);

    if (!TXT_MAP_str_match_space(MAP_add, c_use, *c_max, req_file_type, 1)) return 0;
    TXT_MAP_str_scan_eoln(MAP_add, c_use, *c_max, nullptr);
    return *fit;
}
