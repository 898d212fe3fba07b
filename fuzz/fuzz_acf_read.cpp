// Aircraft files: a sound file with fields overwritten by name, cut short or of the other byte order, or
// bytes as they come, through read, range check, completion and design check.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>

#include "../tests/support/sample_acf.h"
#include "aircraft/acf_file.h"
#include "aircraft/acf_toml.h"
#include "memory_file.h"
#include "support.h"

namespace {
void must(bool holds) {
    if (!holds) abort();
}

class input {
public:
    input(const uint8_t* data, size_t size) : data_(data), left_(size) {}
    bool empty() const { return left_ == 0; }
    const uint8_t* rest() const { return data_; }
    size_t left() const { return left_; }
    uint32_t take(size_t bytes) {
        uint32_t value = 0;
        for (size_t i = 0; i < bytes && left_; ++i, --left_) value = value << 8 | *data_++;
        return value;
    }

private:
    const uint8_t* data_;
    size_t left_;
};

// The sound file to start from.
const std::string& sample_bytes() {
    static const std::string bytes = [] {
        const fuzzing::memory_file text("toml"), file("acf");
        text.write(sample_acf_toml, strlen(sample_acf_toml));
        std::string error;
        must(acf_from_toml(text.path(), 1, &error));
        strcpy(veh[1].path, file.path().c_str());
        must(IO_acf(1, 1, 0));
        std::ifstream in(file.path(), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }();
    return bytes;
}

uint32_t odd_value(input& in) {
    static const uint32_t odd[] = {0,          1,          10,         11,         0xffffffff,
                                   0x7fffffff, 0x80000000, 0x7fc00000, 0x7f800000, 0xff800000,
                                   0x4e6e6b28, 0x00000001, 0x2e2e2e2e, 0x3d4ccccd};
    const uint32_t pick = in.take(1);
    return pick < sizeof odd / sizeof odd[0] ? odd[pick] : in.take(4);
}

// Overwrites some elements of one field, chosen by its place in the field lists.
void overwrite_field(std::string& bytes, input& in) {
    const auto arrays = acf_arrays(0);
    const uint32_t which = in.take(1) % arrays.size();
    long start = 5;
    for (uint32_t a = 0; a < which; ++a) start += long{arrays[a].count} * arrays[a].size;
    const acf_array_struct& array = arrays[which];
    const int row_number = static_cast<int>(in.take(2)) % array.fields.count;
    const veh_field_struct& row = array.fields.rows[row_number];
    const int element = static_cast<int>(in.take(1)) % array.count;
    const int words = row.size < 4 ? 1 : row.size / 4;
    const int first = static_cast<int>(in.take(2)) % words;
    const int run = 1 + static_cast<int>(in.take(1)) % 4;
    const uint32_t value = odd_value(in);
    for (int w = first; w < first + run && w < words; ++w) {
        const long at = start + long{element} * array.size + row.offset + 4 * w;
        memcpy(&bytes[static_cast<size_t>(at)], &value, row.size < 4 ? 1 : sizeof value);
    }
}

std::string file_bytes(input& in) {
    const uint32_t kind = in.take(1);
    if (kind % 8 == 7) return std::string(reinterpret_cast<const char*>(in.rest()), in.left());
    std::string bytes = sample_bytes();
    if (kind & 8) bytes[0] = 'a', std::reverse(bytes.begin() + 1, bytes.begin() + 5);
    if (kind & 16)
        bytes.resize(5 + in.take(3) % (bytes.size() - 5));
    else
        while (!in.empty()) overwrite_field(bytes, in);
    return bytes;
}

void must_be_usable(int p) {
    const veh_struct& v = veh[p];
    must(v.num_engines >= 0 && v.num_engines <= v.num_thrustpoints && v.num_thrustpoints <= engnDIM);
    must(v.gear_steer_EN >= 0 && v.gear_steer_EN < gearDIM);
    for (int en = part_wing_first; en < wingDIM; ++en) {
        if (!v.part[en].part_eq) continue;
        must(v.wing[en].els >= 1 && v.wing[en].els <= elDIM);
        for (int el = 0; el < v.wing[en].els; ++el) must(!std::isnan(v.wing[en].el_s[el]));
    }
    for (int en = part_body_first; en < partDIM; ++en)
        must(v.part[en].s_dim >= 0 && v.part[en].s_dim <= part_sDIM && v.part[en].r_dim <= part_rDIM);
    acf_to_toml(p);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzzing::start();
    static const fuzzing::memory_file file("read.acf");
    input in(data, size);
    const int p = static_cast<int>(in.take(1) & 1);
    const std::string bytes = file_bytes(in);
    file.write(bytes.data(), bytes.size());
    strcpy(veh[p].path, file.path().c_str());
    try {
        if (IO_acf(0, p, 0))
            must_be_usable(p);
        else
            must(veh[p].num_engines == 0 && veh[p].path == file.path());
    } catch (const fuzzing::fatal& end) {
        must(p == 0 && end.text.line[3].rfind("Fix this problem in Hullwright.", 0) == 0);
    }
    return 0;
}
