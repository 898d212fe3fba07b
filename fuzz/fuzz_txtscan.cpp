// Text and binary scanners over bytes in a heap block of exactly their size: no read at or past c_max, and
// the position only moves forward.
#include <cmath>
#include <memory>

#include "core/disk/txtscan.h"
#include "support.h"

namespace {
using fuzzing::must;

void scan(int kind, map_bytes bytes, int* c, int c_max) {
    std::string text;
    switch (kind % 12) {
        case 0:
            must(TXT_MAP_continue(bytes, c, c_max) == 0 || *c < c_max);
            break;
        case 1:
            must(TXT_MAP_eoln(bytes, c, c_max) || *c < c_max);
            break;
        case 2:
            TXT_MAP_finish_line(bytes, c, c_max);
            break;
        case 3:
            TXT_MAP_str_scan_eoln(bytes, c, c_max, &text);
            break;
        case 4:
            TXT_MAP_str_scan_space(bytes, c, c_max, &text);
            break;
        case 5:
            TXT_MAP_str_match_space(bytes, c, c_max, "EXPORT", kind & 1);
            break;
        case 6:
            TXT_MAP_int_scan(bytes, c, c_max);
            break;
        case 7:
            must(std::isfinite(TXT_MAP_flt_scan(bytes, c, c_max)));
            break;
        case 8:
            BIN_MAP_int_scan(bytes, c, c_max);
            break;
        case 9:
            BIN_MAP_flt_scan(bytes, c, c_max);
            break;
        case 10:
            BIN_MAP_chr_scan(bytes, c, c_max);
            break;
        case 11:
            must(BIN_MAP_str_scan_DIM(bytes, c, c_max, kind).size() <= static_cast<size_t>(kind));
            break;
    }
    must(text.size() <= static_cast<size_t>(c_max));
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzzing::start();
    constexpr size_t plan = 16;  // which scanners run, over and over
    if (size < plan) return 0;
    const size_t count = size - plan;
    const std::unique_ptr<unsigned char[]> bytes(new unsigned char[count]);
    std::copy(data + plan, data + size, bytes.get());
    const int c_max = static_cast<int>(count);
    int c = 0;
    for (int step = 0; step < 4 * c_max + 16; ++step) {
        const int before = c;
        scan(data[static_cast<size_t>(step) % plan], bytes.get(), &c, c_max);
        must(c >= before && c <= c_max);
    }
    return 0;
}
