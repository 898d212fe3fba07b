// Mutations of an aircraft file that know its layout: fields overwritten by their place in the field
// lists, cut short, or of the other byte order.
#pragma once
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "aircraft/acf_file.h"

namespace fuzzing {

inline void must(bool holds) {
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

inline uint32_t odd_value(input& in) {
    static const uint32_t odd[] = {0,          1,          10,         11,         0xffffffff,
                                   0x7fffffff, 0x80000000, 0x7fc00000, 0x7f800000, 0xff800000,
                                   0x4e6e6b28, 0x00000001, 0x2e2e2e2e, 0x3d4ccccd};
    const uint32_t pick = in.take(1);
    return pick < sizeof odd / sizeof odd[0] ? odd[pick] : in.take(4);
}

// Overwrites some elements of one field, chosen by its place in the field lists.
inline void overwrite_field(std::string& bytes, input& in) {
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

// A file for this input, from a sound one; one kind in eight is the input's own bytes.
inline std::string file_bytes(const std::string& sound, input& in) {
    const uint32_t kind = in.take(1);
    if (kind % 8 == 7) return std::string(reinterpret_cast<const char*>(in.rest()), in.left());
    std::string bytes = sound;
    if (kind & 8) bytes[0] = 'a', std::reverse(bytes.begin() + 1, bytes.begin() + 5);
    if (kind & 16)
        bytes.resize(5 + in.take(3) % (bytes.size() - 5));
    else
        while (!in.empty()) overwrite_field(bytes, in);
    return bytes;
}

}  // namespace fuzzing
