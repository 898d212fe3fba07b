// Sections, names and copies of the aircraft record.
#include "aircraft/file/acf_layout.h"

#include <charconv>
#include <cstring>
#include <iterator>
#include <unordered_map>

#include "core/disk/text_numbers.h"
#include "core/math/num.h"
#include "core/records/stl.h"

bool acf_is_designers(const veh_field_struct& row) {
    return row.role == veh_role_file || strcmp(row.name, "spec_wash") == 0 ||
           strcmp(row.name, "is_left") == 0;
}

const std::vector<acf_section_struct>& acf_sections() {
    static const std::vector<acf_section_struct> sections = {
        {"identity", "tailnum", "ICAO"},
        {"speeds", "Vmca_kts", "Gpos"},
        {"speeds", "stall_warn_aoa", "stall_warn_aoa"},
        {"weights", "cgY", "Jzz_unitmass"},
        {"weights", "manual_rad_gyr", "m_displaced_Y"},
        {"tanks", "num_tanks", "tank_xyz"},
        {"engines", "num_engines", "battery_rat"},
        {"controls", "ail1_up", "sbrk_up"},
        {"trim", "takeoff_trim", "rudd_tab"},
        {"flaps", "flap_detents", "blow_all_controls"},
        {"landing_gear", "gear_retract", "wheel_tire_t2"},
        {"landing_gear", "h_eqlbm", "the_eqlbm"},
        {"landing_gear", "skid_EQ", "skid_EQ"},
        {"water", "water_rud_Z", "anchor_xyz"},
        {"vectoring", "vect_EQ", "vect_max_disc"},
        {"vectoring", "vectarmY", "vectarmZ"},
        {"vectoring", "vect_rate", "vect_rate"},
        {"rotor", "cyclic_def_elev", "disc_tilt_ailn"},
        {"rotor", "flap_arm", "delta3"},
        {"rotor", "tail_with_coll", "tail_with_coll"},
        {"rotor", "diff_coll_with_roll", "rotor_trim_max_aft"},
        {"linkages", "stab_delinc_to_Vne", "stab_delinc_to_Vne"},
        {"linkages", "stab_roll", "flap_ptch"},
        {"weight_shift", "mass_shift", "wing_tilt_roll"},
        {"reaction_jets", "puff_LMN", "puff_xyz"},
        {"jato", "jato_Y", "jato_sfc"},
        {"chute", "chute_area", "chute_Z"},
        {"hooks", "has_refuel", "refuel_xyz"},
        {"hooks", "tow_hook_Y", "win_hook_Z"},
        {"jettison", "jett_len", "jett_is_acf"},
        {"systems", "ff_hydraulic", "max_press_diff"},
        {"systems", "anti_ice_EQ", "warn_lorot_EQ"},
        {"automatics", "sbrk_on_td_EQ", "auto_trim_EQ"},
        {"stability", "lo_speed_is_position", "ASlo_phi_k"},
        {"autopilot", "custom_autopilot", "ott_the_deg_per_kt"},
        {"lights", "has_lanlite1", "taillite_xyz"},
        {"lights", "has_navlites", "has_navlites"},
        {"lights", "lan_lite_steers", "lan_lite_the_off"},
        {"views", "pe_xyz", "big_panel_pix_default"},
        {"views", "is_glossy", "is_glossy"},
        {"views", "plot_OBJ7_cock_exact_fwd", "plot_OBJ7_cock_exact_fwd"},
        {"panel", "old_cus_layers", "old_cus_layers"},
        {"panel", "has_HOOPS_HUD", "warn2_EQ"},
        {"gauges", "cus_rnd_use", "cus_dig_dec"},
    };
    return sections;
}

static int block_offset(const char* name) {
    const veh_field_list list = veh_block_list();
    for (int r = 0; r < list.count; ++r)
        if (strcmp(list.rows[r].name, name) == 0) return list.rows[r].offset;
    return -1;
}

static std::unordered_map<std::string_view, const char*> sections_by_field() {
    std::unordered_map<std::string_view, const char*> found;
    const veh_field_list list = veh_block_list();
    for (const acf_section_struct& s : acf_sections()) {
        const int first = block_offset(s.first), last = block_offset(s.last);
        for (int r = 0; r < list.count; ++r) {
            const veh_field_struct& row = list.rows[r];
            if (row.offset >= first && row.offset <= last && acf_is_designers(row))
                found[row.name] = s.section;
        }
    }
    return found;
}

const char* acf_section_of(std::string_view field) {
    static const auto sections = sections_by_field();
    const auto found = sections.find(field);
    return found == sections.end() ? nullptr : found->second;
}

// -- names of parts
std::string acf_part_name(int en) {
    for (const part_range_struct& row : part_ranges) {
        if (en < row.first || en > row.last) continue;
        return row.number < 0 ? row.name : row.name + std::to_string(row.number + en - row.first);
    }
    return "";
}

std::string part_title(int en) {
    const std::string& title = stl.text[text_part + en];
    return title.empty() ? acf_part_name(en) : title;
}

int acf_part_index(const std::string& name) {
    int en = -1;
    const char* end = name.data() + name.size();
    const auto [stop, fault] = std::from_chars(name.data(), end, en);
    if (fault == std::errc() && stop == end) return en >= 0 && en < partDIM ? en : -1;
    for (en = 0; en < partDIM; ++en)
        if (acf_part_name(en) == name) return en;
    return -1;
}

// -- names of kinds
namespace {
struct kind_names {
    const char* field;
    std::vector<const char*> names;  // by value
};
const std::vector<kind_names>& kinds() {
    static const std::vector<kind_names> rows = {
        {"engn_type",
         {"recip_carburettor", "recip_injected", "turbine_free", "electric", "jet_low_bypass",
          "jet_high_bypass", "rocket", "tip_rocket", "turbine_fixed"}},
        {"prop_type",
         {"fixed", "constant_speed", "manual", "collective_rotor", "tip_mach", "tail_rotor", "lift_fan",
          "governed_rotor"}},
        {"gear_type",
         {"none", "skid", "one", "two_abreast", "two_tandem", "four_2x2", "six_2x3", "four_abreast", "eight",
          "three_abreast"}},
        {"type", {"none", "early", "with_gear", "passage"}},
        {"cockpit_type",
         {"general", "airliner", "fighter", "glider", "helicopter", "autogyro", "general_ifr",
          "autogyro_twin"}},
    };
    return rows;
}
const kind_names* kinds_of(const char* field) {
    for (const kind_names& row : kinds())
        if (strcmp(row.field, field) == 0) return &row;
    return nullptr;
}
}  // namespace

const char* acf_kind_name(const char* field, int value) {
    const kind_names* row = kinds_of(field);
    return row && value >= 0 && value < static_cast<int>(row->names.size()) ? row->names[value] : nullptr;
}

int acf_kind_value(const char* field, const std::string& name) {
    const kind_names* row = kinds_of(field);
    if (!row) return -1;
    for (size_t value = 0; value < row->names.size(); ++value)
        if (name == row->names[value]) return static_cast<int>(value);
    return -1;
}

std::string acf_kind_names(const char* field) {
    std::string all;
    if (const kind_names* row = kinds_of(field))
        for (const char* name : row->names) all += (all.empty() ? "" : ", ") + std::string(name);
    return all;
}

// -- copies
namespace {
void copy_designers(const veh_field_list& fields, const void* from, void* to) {
    for (int r = 0; r < fields.count; ++r) {
        const veh_field_struct& row = fields.rows[r];
        if (row.role == veh_role_file)
            memcpy(static_cast<char*>(to) + row.offset, static_cast<const char*>(from) + row.offset,
                   static_cast<size_t>(row.size));
    }
}

void mirror(veh_part_struct& part) {
    part.part_x = 0.0f - part.part_x;
    part.part_psi = 0.0f - part.part_psi;
    part.part_phi = 0.0f - part.part_phi;
}
}  // namespace

int acf_copied_surface(int p, int en, veh_wing_struct& wing, veh_part_struct& part) {
    const veh_struct& v = veh[p];
    wing = {};
    part = {};
    int source = -1;
    bool opposite = true;
    if (en >= part_wing_first && en <= part_hstb_right && en % 2 == 0) {
        source = en + 1;
    } else if (en >= part_pylo_first && en <= part_pylo_last) {
        const int thrust_point = (en - part_pylo_first) % engnDIM;
        if (thrust_point == 0 || thrust_point >= v.num_thrustpoints) return 0;
        source = en - thrust_point;
        opposite = sign(v.part[0].part_x) != sign(v.part[thrust_point].part_x);
    }
    if (source < 0 || !(v.wing[source].semilen_SEG > 0.0f)) return 0;
    copy_designers(veh_wing_list(), &v.wing[source], &wing);
    copy_designers(veh_part_list(), &v.part[source], &part);
    if (opposite) mirror(part);
    return 1;
}
