// Range tests of a freshly read aircraft record.
#include "aircraft/file/acf_range.h"

#include <cmath>
#include <cstring>

#include "aircraft/file/acf_file.h"
#include "core/craft/engn_kinds.h"

namespace {
constexpr float float_limit = 1e9f;    // no length, mass or power of a design comes near it
constexpr float least_mass = 2.2046f;  // lb, 1 kg: below it the equations of motion lose their footing

struct int_range {
    const char* array;
    const char* field;
    int min, max;
};
const int_range int_ranges[] = {
    {"aircraft", "num_engines", 0, engnDIM},
    {"aircraft", "num_thrustpoints", 0, engnDIM},
    {"aircraft", "flap_detents", 0, flapDIM - 1},
    {"aircraft", "num_tanks", 0, fuelDIM},
    {"aircraft", "cockpit_type", 0, cockpit_kinds - 1},
    {"aircraft", "ins_type", -1, ins_type_max},
    {"engn", "engn_type", 0, engn_kinds - 1},
    {"engn", "prop_type", 0, prop_kinds - 1},
    {"part", "patt_prt", 0, partDIM - 1},
    {"gear", "gear_type", 0, gear_kinds - 1},
    {"watt", "watt_prt", 0, partDIM - 1},
    {"door", "type", 0, door_kinds - 1},
    {"sbrk", "type", 0, door_kinds - 1},
};

const int_range* range_of(const char* array, const char* field) {
    for (const int_range& row : int_ranges)
        if (strcmp(row.array, array) == 0 && strcmp(row.field, field) == 0) return &row;
    return nullptr;
}

std::string range_text(const std::string& field, int value, int min, int max) {
    return field + " is " + std::to_string(value) + ", allowed are " + std::to_string(min) + " to " +
           std::to_string(max);
}

std::string element_name(const acf_array_struct& array, int i, const veh_field_struct& row, int element) {
    std::string name = array.count > 1 ? array.name + ("[" + std::to_string(i)) + "]." : "";
    name += row.name;
    int below = row.size / 4;  // elements under one index of this dimension
    for (const int dim : row.dims) {
        if (dim == 0) break;
        below /= dim;
        name += "[" + std::to_string(element / below % dim) + "]";
    }
    return name;
}

// spec_wash is derived, yet what the file brought is where its derivation starts.
bool is_read(const veh_field_struct& row) {
    return row.role == veh_role_file || strcmp(row.name, "spec_wash") == 0;
}

std::string admit_floats(const acf_array_struct& array, int i, const veh_field_struct& row,
                         unsigned char* first) {
    for (int element = 0; element < row.size / 4; ++element) {
        float value;
        memcpy(&value, first + 4 * element, sizeof value);
        if (fabsf(value) < float_limit) continue;  // false for a NaN
        if (is_read(row)) return element_name(array, i, row, element) + " is not a finite number below 1e9";
        memset(first + 4 * element, 0, sizeof value);
    }
    return "";
}

std::string admit_ints(const acf_array_struct& array, int i, const veh_field_struct& row,
                       const unsigned char* first, const int_range& range) {
    for (int element = 0; element < row.size / 4; ++element) {
        int value;
        memcpy(&value, first + 4 * element, sizeof value);
        if (value < range.min || value > range.max)
            return range_text(element_name(array, i, row, element), value, range.min, range.max);
    }
    return "";
}

std::string admit_field(const acf_array_struct& array, const veh_field_struct& row) {
    const int_range* range = row.type == 'i' ? range_of(array.name, row.name) : nullptr;
    for (int i = 0; i < array.count; ++i) {
        unsigned char* first = array.first + i * array.size + row.offset;
        std::string fault;
        if (row.type == 'f') fault = admit_floats(array, i, row, first);
        if (range) fault = admit_ints(array, i, row, first, *range);
        if (row.type == 'c' && row.role == veh_role_file) first[row.size - 1] = 0;
        if (!fault.empty()) return fault;
    }
    return "";
}

// Surfaces get their element count from another one: the left from the right, further pylons from the
// first.
int source_of_els(int en) {
    if (en >= part_wing_first && en <= part_hstb_right) return en | 1;
    if (en >= part_pylo_low) return part_pylo_low;
    if (en >= part_pylo_first) return part_pylo_first;
    return en;
}

bool needs_els(int p, int en) {
    const veh_struct& v = veh[p];
    if (en <= part_thru_last)
        return en < v.num_thrustpoints && (en >= v.num_engines || en_is_prop(p, en) || en_is_tip(p, en));
    if (v.wing[en].semilen_SEG <= 0.05f) return false;
    if (en < part_pylo_first) return true;
    return v.part[en].part_eq && v.num_thrustpoints > (en - part_pylo_first) % engnDIM;
}

std::string admit_els(int p) {
    for (int en = 0; en < wingDIM; ++en) {
        const int from = source_of_els(en);
        const int els = veh[p].wing[from].els;
        if (needs_els(p, en) && (els < 1 || els > elDIM))
            return range_text("wing[" + std::to_string(from) + "].els", els, 1, elDIM);
    }
    return "";
}

std::string admit_bodies(int p) {
    for (int en = part_body_first; en < partDIM; ++en) {
        const veh_part_struct& body = veh[p].part[en];
        const std::string part = "part[" + std::to_string(en) + "].";
        if (body.s_dim < 0 || body.s_dim > part_sDIM)
            return range_text(part + "s_dim", body.s_dim, 0, part_sDIM);
        if (body.r_dim < 0 || body.r_dim > part_rDIM)
            return range_text(part + "r_dim", body.r_dim, 0, part_rDIM);
    }
    return "";
}

std::string admit_masses(int p) {
    const veh_struct& v = veh[p];
    // none at all has a text of its own in the design check
    if (v.m_empty >= 0.01f && v.m_empty < least_mass) return "m_empty is below 1 kg";
    if (v.m_fuel_tot < 0.0f) return "m_fuel_tot is negative";
    if (v.m_jettison < 0.0f) return "m_jettison is negative";
    if (v.manual_rad_gyr) {
        if (v.Jxx_unitmass <= 0.0f) return "Jxx_unitmass is not above 0 with manual_rad_gyr set";
        if (v.Jyy_unitmass <= 0.0f) return "Jyy_unitmass is not above 0 with manual_rad_gyr set";
        if (v.Jzz_unitmass <= 0.0f) return "Jzz_unitmass is not above 0 with manual_rad_gyr set";
    }
    return "";
}

// Names of other files are joined to folders of the system and must not lead out of them.
std::string admit_file_names(int p) {
    for (int en = 0; en < wingDIM; ++en) {
        const veh_wing_struct& wing = veh[p].wing[en];
        for (const char* name : {wing.Rafl0, wing.Rafl1, wing.Tafl0, wing.Tafl1})
            if (strstr(name, ".."))
                return "an airfoil name of wing[" + std::to_string(en) + "] contains \"..\"";
    }
    for (int i = 0; i < wattDIM; ++i)
        if (strstr(veh[p].watt[i].watt_name, ".."))
            return "watt[" + std::to_string(i) + "].watt_name contains \"..\"";
    return "";
}
}  // namespace

std::string acf_admit(int p) {
    for (const acf_array_struct& array : acf_arrays(p))
        for (int r = 0; r < array.fields.count; ++r) {
            std::string fault = admit_field(array, array.fields.rows[r]);
            if (!fault.empty()) return fault;
        }
    const veh_struct& v = veh[p];
    if (v.num_thrustpoints < v.num_engines)
        return range_text("num_thrustpoints", v.num_thrustpoints, v.num_engines, engnDIM);
    for (const auto test : {admit_els, admit_bodies, admit_masses, admit_file_names}) {
        std::string fault = test(p);
        if (!fault.empty()) return fault;
    }
    return "";
}
