// The headers of data files, mapped and streamed, with what the stream readers make of the rest; and the
// scanners of mapped bytes: no read at or past c_max, and the position only moves forward.

#include "core/disk/files.h"
#include "core/disk/txtscan.h"
#include "support.h"

namespace {
using fuzzing::input;
using fuzzing::must;

void check_mapped(const XMappedFile& map, const unsigned char* bytes) {
    static const int versions[] = {800, 703, 0};
    const int size = static_cast<int>(map.size());
    int c, c_max;
    std::string copyright;
    for (const int ftype : {ftype_apt, ftype_nav, ftype_env, ftype_png, ftype_all})
        for (const char* version : {"715", "650", map_any_version}) {
            MAP_check_file(ftype, &map, bytes, &c, &c_max, version);
            must(c >= 0 && c <= size && c_max == size);
        }
    MAP_check_file_text_typed(&map, bytes, &c, &c_max, versions, "OBJ", &copyright);
    must(c >= 0 && c <= size);
}

void read_stream(const std::string& path, int ftype, int version, const std::vector<char>& plan) {
    static void (*const readers[])() = {
        [] { int_scan(); },
        [] { flt_scan(); },
        [] { str_scan(); },
        [] { str_scan_to_EOL(); },
        [] { lin_scan(); },
        [] {
            unsigned char record[64];
            read_n_rev(record, sizeof record);
        },
    };
    if (!inf_open(path, ftype, version, 1)) return;
    try {
        for (const char step : plan) readers[static_cast<uint8_t>(step) % std::size(readers)]();
    } catch (const fuzzing::fatal& end) {
        must(end.text.line[0] == "File-scanning error!" && end.text.line[1] == path);
    }
    inf_close();
}

using scanner = void (*)(map_bytes bytes, int* c, int c_max, int kind);
const scanner scanners[] = {
    [](map_bytes b, int* c, int c_max, int) { must(TXT_MAP_continue(b, c, c_max) == 0 || *c < c_max); },
    [](map_bytes b, int* c, int c_max, int) { must(TXT_MAP_eoln(b, c, c_max) || *c < c_max); },
    [](map_bytes b, int* c, int c_max, int) { TXT_MAP_finish_line(b, c, c_max); },
    [](map_bytes b, int* c, int c_max, int) {
        std::string text;
        TXT_MAP_str_scan_eoln(b, c, c_max, &text);
        must(text.size() <= static_cast<size_t>(c_max));
    },
    [](map_bytes b, int* c, int c_max, int) {
        std::string text;
        TXT_MAP_str_scan_space(b, c, c_max, &text);
        must(text.size() <= static_cast<size_t>(c_max));
    },
    [](map_bytes b, int* c, int c_max, int kind) {
        TXT_MAP_str_match_space(b, c, c_max, "EXPORT", kind & 1);
    },
    [](map_bytes b, int* c, int c_max, int) { TXT_MAP_int_scan(b, c, c_max); },
    [](map_bytes b, int* c, int c_max, int) { must(std::isfinite(TXT_MAP_flt_scan(b, c, c_max))); },
    [](map_bytes b, int* c, int c_max, int) { BIN_MAP_int_scan(b, c, c_max); },
    [](map_bytes b, int* c, int c_max, int) { BIN_MAP_flt_scan(b, c, c_max); },
    [](map_bytes b, int* c, int c_max, int) { BIN_MAP_chr_scan(b, c, c_max); },
    [](map_bytes b, int* c, int c_max, int kind) {
        must(BIN_MAP_str_scan_DIM(b, c, c_max, kind).size() <= static_cast<size_t>(kind));
    },
};
}  // namespace

void fuzz_header(input& in) {
    static const fuzzing::folder folder;
    const std::vector<char> plan = in.bytes(8), bytes = in.bytes();
    const std::string path = folder.write("f.txt", bytes);
    const unsigned char* first;
    const XMappedFile map(path.c_str(), &first);
    // the checks see a block of exactly the file's size
    if (map.ok()) check_mapped(map, reinterpret_cast<const unsigned char*>(bytes.data()));
    for (const int version : {0, 700, 8000})
        for (const int ftype : {ftype_afl, ftype_acf}) read_stream(path, ftype, version, plan);
}

// The first 16 bytes: which scanners run, over and over.
void fuzz_txtscan(input& in) {
    const std::vector<char> plan = in.bytes(16), bytes = in.bytes();
    const int c_max = static_cast<int>(bytes.size());
    int c = 0;
    for (size_t step = 0; !plan.empty() && step < 4 * bytes.size() + 16; ++step) {
        const int before = c, kind = static_cast<uint8_t>(plan[step % plan.size()]);
        scanners[static_cast<size_t>(kind) % std::size(scanners)](reinterpret_cast<map_bytes>(bytes.data()),
                                                                  &c, c_max, kind);
        must(c >= before && c <= c_max);
    }
}
