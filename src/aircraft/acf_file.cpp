// Aircraft files between disk and record.
#include "aircraft/acf_file.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "aircraft/acf_old.h"
#include "aircraft/acf_range.h"
#include "aircraft/autoset.h"
#include "aircraft/check.h"
#include "core/files.h"
#include "core/logs.h"
#include "core/paths.h"
#include "scenery/objects.h"

namespace {
template <class T, size_t N>
acf_array_struct array_of(const char* name, T (&array)[N], veh_field_list fields) {
    return {name, reinterpret_cast<unsigned char*>(array), static_cast<int>(N), static_cast<int>(sizeof(T)),
            fields};
}

// Where the file of a slot is; the one thing of the record that no file decides.
class kept_identity {
public:
    explicit kept_identity(int p) : p_(p) {
        memcpy(name_, veh[p].name, sizeof name_);
        memcpy(path_, veh[p].path, sizeof path_);
        name_[strDIM - 1] = path_[strDIM - 1] = 0;
    }
    const char* path() const { return path_; }
    void restore() const {
        memcpy(veh[p_].name, name_, sizeof name_);
        memcpy(veh[p_].path, path_, sizeof path_);
    }

private:
    int p_;
    char name_[strDIM], path_[strDIM];
};

// The path below the install folder, without its ending.
std::string object_stem(const std::string& path) {
    size_t start = 0;
    while (start < app_path.size() && start < path.size() &&
           (path[start] == app_path[start] || (is_a_dir_char(path[start]) && is_a_dir_char(app_path[start]))))
        ++start;
    const std::string below = start == app_path.size() ? path.substr(start) : path;
    const size_t dot = below.rfind('.');
    return dot == std::string::npos ? below : below.substr(0, dot);
}

void build_cockpit_models(int p, const std::string& path) {
    veh_struct& v = veh[p];
    const std::string stem = object_stem(path);
    v.cockpit_M_inn = v.cockpit_M_out = build_obs(stem + "_cockpit.obj", 1);
    if (v.cockpit_M_inn != -1) return;
    v.cockpit_M_inn = build_obs(stem + "_cockpit_inn.obj", 1);
    v.cockpit_M_out = build_obs(stem + "_cockpit_out.obj", 1);
}

void empty_slot(int p, const kept_identity& identity) {
    clear_acf(p);
    identity.restore();
}

// Tests what a read brought before anything counts with it.
int admit(int p, const std::string& path) {
    const std::string fault = acf_admit(p);
    if (fault.empty()) return 1;
    deverr << "The aircraft file " << path << " is refused: " << fault << std::endl;
    return 0;
}

int read_acf(int p, int is_batch) {
    const kept_identity identity(p);
    const std::string path = identity.path();
    int result = acf_read_record(p);
    if (!result) result = OLD_IO_acf(path, p);
    identity.restore();
    if (result && !admit(p, path)) {
        empty_slot(p, identity);
        result = 0;
    }
    if (result) build_cockpit_models(p, path);
    ACF_autoset(p);
    if (result && !ACF_check(p, is_batch)) {
        empty_slot(p, identity);
        ACF_autoset(p);
        result = 0;
    }
    return result;
}

// Name and path stay empty in a file: they are the reader's own, and the bytes must not depend on where
// they were written.
void write_block(const acf_array_struct& block) {
    std::vector<char> bytes(block.first, block.first + block.size);
    std::fill_n(&bytes[offsetof(veh_struct, name)], sizeof veh_struct::name, 0);
    std::fill_n(&bytes[offsetof(veh_struct, path)], sizeof veh_struct::path, 0);
    ouf.write(bytes.data(), block.size);
}

int write_acf(int p) {
    if (!ouf_open_beside(veh[p].path, ftype_acf, acf_version)) return 0;
    const auto arrays = acf_arrays(p);
    write_block(arrays[0]);
    for (size_t i = 1; i < arrays.size(); ++i)
        ouf.write(reinterpret_cast<const char*>(arrays[i].first), arrays[i].count * arrays[i].size);
    return ouf_replace();
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

int IO_acf(int IO_type, int p, int is_batch) { return IO_type == 1 ? write_acf(p) : read_acf(p, is_batch); }
