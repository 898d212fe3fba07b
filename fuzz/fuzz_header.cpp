// The headers of data files, mapped and streamed, and what the stream readers make of the rest.
#include <memory>

#include "core/disk/files.h"
#include "core/disk/txtscan.h"
#include "memory_file.h"
#include "support.h"

namespace {
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

void read_stream(const std::string& path, int ftype, int version, const uint8_t* plan, size_t steps) {
    if (!inf_open(path, ftype, version, 1)) return;
    try {
        for (size_t i = 0; i < steps; ++i) {
            switch (plan[i] % 6) {
                case 0:
                    int_scan();
                    break;
                case 1:
                    flt_scan();
                    break;
                case 2:
                    str_scan();
                    break;
                case 3:
                    str_scan_to_EOL();
                    break;
                case 4:
                    lin_scan();
                    break;
                case 5: {
                    unsigned char record[64];
                    read_n_rev(record, sizeof record);
                }
            }
        }
    } catch (const fuzzing::fatal& end) {
        must(end.text.line[0] == "File-scanning error!" && end.text.line[1] == path);
    }
    inf_close();
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzzing::start();
    static const fuzzing::memory_file file("txt");
    constexpr size_t plan = 8;
    if (size < plan) return 0;
    const size_t count = size - plan;
    file.write(data + plan, count);
    const unsigned char* first;
    const XMappedFile map(file.path().c_str(), &first);
    if (map.ok()) {
        // the checks see a block of exactly the file's size
        const std::unique_ptr<unsigned char[]> bytes(new unsigned char[count]);
        std::copy(data + plan, data + size, bytes.get());
        check_mapped(map, bytes.get());
    }
    for (const int version : {0, 700, 8000})
        for (const int ftype : {ftype_afl, ftype_acf}) read_stream(file.path(), ftype, version, data, plan);
    return 0;
}
