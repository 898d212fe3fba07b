// Aircraft files between disk and record.
#include "aircraft/file/acf_file.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "core/disk/files.h"
#include "core/disk/paths.h"

namespace {
template <class T, size_t N>
acf_array_struct array_of(const char* name, T (&array)[N], veh_field_list fields) {
    return {name, reinterpret_cast<unsigned char*>(array), static_cast<int>(N), static_cast<int>(sizeof(T)),
            fields};
}

// Name and path stay empty in a file: they are the reader's own, and the bytes must not depend on where
// they were written.
void write_block(const acf_array_struct& block) {
    std::vector<char> bytes(block.first, block.first + block.size);
    std::fill_n(&bytes[offsetof(veh_struct, name)], sizeof veh_struct::name, 0);
    std::fill_n(&bytes[offsetof(veh_struct, path)], sizeof veh_struct::path, 0);
    ouf.write(bytes.data(), block.size);
}

}  // namespace

std::array<acf_array_struct, 8> acf_arrays(int p) {
    veh_struct& v = veh[p];
    return {{
        {"aircraft", reinterpret_cast<unsigned char*>(&v), 1, static_cast<int>(veh_block_size),
         veh_block_list()},
        array_of("engn", v.engn, veh_engn_list()),
        array_of("wing", v.wing, veh_wing_list()),
        array_of("part", v.part, veh_part_list()),
        array_of("gear", v.gear, veh_gear_list()),
        array_of("watt", v.watt, veh_watt_list()),
        array_of("door", v.door, veh_door_list()),
        array_of("sbrk", v.sbrk, veh_door_list()),
    }};
}

int acf_read_record(int p) {
    const std::string path(veh[p].path, strnlen(veh[p].path, strDIM));
    clear_acf(p);
    if (!inf_open(path, ftype_acf, acf_version, 0)) return 0;
    for (const acf_array_struct& array : acf_arrays(p))
        read_n_rev(array.first, long{array.count} * array.size);
    inf_close();
    if (rev_inf_bin) re_rev(p);
    memset(veh[p].name, 0, sizeof veh[p].name);
    memset(veh[p].path, 0, sizeof veh[p].path);
    return 1;
}

void re_rev(int p) {
    for (const acf_array_struct& array : acf_arrays(p))
        for (int r = 0; r < array.fields.count; ++r) {
            const veh_field_struct& row = array.fields.rows[r];
            if (row.type != 'c' || row.role != veh_role_file) continue;
            for (int i = 0; i < array.count; ++i)
                for (int b = 0; b < row.size; b += 4)
                    rev_byte_order4(array.first + i * array.size + row.offset + b);
        }
}

int acf_write_record(int p) {
    if (!ouf_open_beside(veh[p].path, ftype_acf, acf_version)) return 0;
    const auto arrays = acf_arrays(p);
    write_block(arrays[0]);
    for (size_t i = 1; i < arrays.size(); ++i)
        ouf.write(reinterpret_cast<const char*>(arrays[i].first), arrays[i].count * arrays[i].size);
    return ouf_replace();
}
