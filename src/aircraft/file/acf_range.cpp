// Range tests of a freshly read aircraft record.
#include "aircraft/file/acf_range.h"

#include <cmath>
#include <cstdio>
#include <cstring>

#include "aircraft/file/acf_file.h"
#include "core/craft/engn_kinds.h"
#include "core/math/num.h"

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

// The first fault found: what is wrong, and the address of the field; no text when all is well.
struct refusal {
    std::string text;
    const void* field = nullptr;
};

std::string plain(float value) {
    char text[32];
    snprintf(text, sizeof text, "%g", static_cast<double>(value));
    return text;
}

refusal out_of_range(const std::string& name, const int& value, int min, int max) {
    return {name + " is " + std::to_string(value) + ", allowed are " + std::to_string(min) + " to " +
                std::to_string(max),
            &value};
}
refusal out_of_range(const std::string& name, const float& value, const char* allowed) {
    return {name + " is " + plain(value) + ", allowed is " + allowed, &value};
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

refusal admit_floats(const acf_array_struct& array, int i, const veh_field_struct& row,
                     unsigned char* first) {
    for (int element = 0; element < row.size / 4; ++element) {
        float value;
        memcpy(&value, first + 4 * element, sizeof value);
        if (fabsf(value) < float_limit) continue;  // false for a NaN
        if (is_read(row))
            return {element_name(array, i, row, element) + " is not a finite number below 1e9", first};
        memset(first + 4 * element, 0, sizeof value);
    }
    return {};
}

refusal admit_ints(const acf_array_struct& array, int i, const veh_field_struct& row,
                   const unsigned char* first, const int_range& range) {
    for (int element = 0; element < row.size / 4; ++element) {
        int value;
        memcpy(&value, first + 4 * element, sizeof value);
        if (value < range.min || value > range.max)
            return {out_of_range(element_name(array, i, row, element), value, range.min, range.max).text,
                    first};
    }
    return {};
}

refusal admit_field(const acf_array_struct& array, const veh_field_struct& row) {
    const int_range* range = row.type == 'i' ? range_of(array.name, row.name) : nullptr;
    for (int i = 0; i < array.count; ++i) {
        unsigned char* first = array.first + i * array.size + row.offset;
        refusal fault;
        if (row.type == 'f') fault = admit_floats(array, i, row, first);
        if (range) fault = admit_ints(array, i, row, first, *range);
        if (row.type == 'c' && row.role == veh_role_file) first[row.size - 1] = 0;
        if (!fault.text.empty()) return fault;
    }
    return {};
}

// Surfaces get their shape from another one: the left from the right, further pylons from the first.
int source_of_shape(int en) {
    if (en >= part_wing_first && en <= part_hstb_right) return en | 1;
    if (en >= part_pylo_low) return part_pylo_low;
    if (en >= part_pylo_first) return part_pylo_first;
    return en;
}

bool will_exist(int p, int en) {
    const veh_struct& v = veh[p];
    if (en <= part_thru_last)
        return en < v.num_thrustpoints && (en >= v.num_engines || en_is_prop(p, en) || en_is_tip(p, en));
    if (v.wing[en].semilen_SEG <= 0.05f) return false;
    if (en < part_pylo_first) return true;
    return v.part[en].part_eq && v.num_thrustpoints > (en - part_pylo_first) % engnDIM;
}

// Bearable by the formulas of the finite wing, which divide by the cosine of the sweep.
constexpr float most_sweep = 85.0f;  // degrees

refusal admit_surface(int p, int en) {
    const veh_wing_struct& wing = veh[p].wing[en];
    const std::string name = "wing[" + std::to_string(en) + "].";
    if (wing.els < 1 || wing.els > elDIM) return out_of_range(name + "els", wing.els, 1, elDIM);
    if (!(wing.Croot > 0.0f)) return out_of_range(name + "Croot", wing.Croot, "above 0");
    if (!(wing.Ctip > 0.0f)) return out_of_range(name + "Ctip", wing.Ctip, "above 0");
    if (en <= part_thru_last) return {};
    if (fabsf(fltwrap(wing.sweep1, -180.0f, 180.0f)) > most_sweep)
        return out_of_range(name + "sweep1", wing.sweep1, "-85 to 85");
    if (wing.varsweep && fabsf(fltwrap(wing.sweep2, -180.0f, 180.0f)) > most_sweep)
        return out_of_range(name + "sweep2", wing.sweep2, "-85 to 85");
    return {};
}

refusal admit_surfaces(int p) {
    for (int en = 0; en < wingDIM; ++en) {
        if (!will_exist(p, en)) continue;
        refusal fault = admit_surface(p, source_of_shape(en));
        if (!fault.text.empty()) return fault;
        const float& blades = veh[p].engn[en % engnDIM].num_blades;
        if (en <= part_thru_last && !(blades >= 1.0f))
            return out_of_range("engn[" + std::to_string(en) + "].num_blades", blades, "1 and more");
    }
    return {};
}

refusal admit_bodies(int p) {
    for (int en = part_body_first; en < partDIM; ++en) {
        const veh_part_struct& body = veh[p].part[en];
        const std::string part = "part[" + std::to_string(en) + "].";
        if (body.s_dim < 0 || body.s_dim > part_sDIM)
            return out_of_range(part + "s_dim", body.s_dim, 0, part_sDIM);
        if (body.r_dim < 0 || body.r_dim > part_rDIM)
            return out_of_range(part + "r_dim", body.r_dim, 0, part_rDIM);
    }
    return {};
}

refusal admit_wheels(int p) {
    for (int g = 0; g < gearDIM; ++g) {
        const veh_gear_struct& gear = veh[p].gear[g];
        if (gear.gear_type != gear_none && gear.gear_type != gear_skid && !(gear.tire_radius > 0.0f))
            return out_of_range("gear[" + std::to_string(g) + "].tire_radius", gear.tire_radius, "above 0");
    }
    return {};
}

refusal admit_limits(int p) {
    const veh_struct& v = veh[p];
    if (v.num_thrustpoints < v.num_engines)
        return out_of_range("num_thrustpoints", v.num_thrustpoints, v.num_engines, engnDIM);
    if (v.Gneg < 0.0f) return out_of_range("Gneg", v.Gneg, "0 and more: the limit is entered positive");
    for (const float& rat : v.idle_rat)
        if (v.num_engines > 0 && !(rat >= 0.0f && rat <= 2.0f))
            return {out_of_range("idle_rat", rat, "0 to 2").text, v.idle_rat};
    return {};
}

refusal admit_masses(int p) {
    const veh_struct& v = veh[p];
    // none at all has a text of its own in the design check
    if (v.m_empty >= 0.01f && v.m_empty < least_mass) return {"m_empty is below 1 kg", &v.m_empty};
    if (v.m_fuel_tot < 0.0f) return {"m_fuel_tot is negative", &v.m_fuel_tot};
    if (v.m_jettison < 0.0f) return {"m_jettison is negative", &v.m_jettison};
    if (!v.manual_rad_gyr) return {};
    constexpr const char* needed = " is not above 0 with manual_rad_gyr set";
    if (v.Jxx_unitmass <= 0.0f) return {std::string("Jxx_unitmass") + needed, &v.Jxx_unitmass};
    if (v.Jyy_unitmass <= 0.0f) return {std::string("Jyy_unitmass") + needed, &v.Jyy_unitmass};
    if (v.Jzz_unitmass <= 0.0f) return {std::string("Jzz_unitmass") + needed, &v.Jzz_unitmass};
    return {};
}

// Names of other files are joined to folders of the system and must not lead out of them.
refusal admit_file_names(int p) {
    for (int en = 0; en < wingDIM; ++en) {
        const veh_wing_struct& wing = veh[p].wing[en];
        for (const char* name : {wing.Rafl0, wing.Rafl1, wing.Tafl0, wing.Tafl1})
            if (strstr(name, ".."))
                return {"an airfoil name of wing[" + std::to_string(en) + "] contains \"..\"", name};
    }
    for (int i = 0; i < wattDIM; ++i)
        if (strstr(veh[p].watt[i].watt_name, ".."))
            return {"watt[" + std::to_string(i) + "].watt_name contains \"..\"", veh[p].watt[i].watt_name};
    return {};
}
}  // namespace

std::string acf_admit(int p, const void** field) {
    const auto refuse = [field](const refusal& fault) {
        if (field) *field = fault.field;
        return fault.text;
    };
    for (const acf_array_struct& array : acf_arrays(p))
        for (int r = 0; r < array.fields.count; ++r) {
            const refusal fault = admit_field(array, array.fields.rows[r]);
            if (!fault.text.empty()) return refuse(fault);
        }
    for (const auto test :
         {admit_limits, admit_surfaces, admit_bodies, admit_wheels, admit_masses, admit_file_names}) {
        const refusal fault = test(p);
        if (!fault.text.empty()) return refuse(fault);
    }
    return "";
}
