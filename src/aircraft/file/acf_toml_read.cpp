// Text to aircraft record. Every fault names file, line and what would have been right.
#include "aircraft/file/acf_toml_read.h"

#include <toml++/toml.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <limits>
#include <map>

#include "aircraft/file/acf_layout.h"
#include "aircraft/file/acf_range.h"
#include "core/craft/veh.h"
#include "core/math/num.h"

namespace {
constexpr double float_limit = 1e9;  // as the border of the aircraft file has it

// One record whose fields the keys of a table name. Of the block only one section is open at a time.
struct open_record {
    unsigned char* first;
    size_t size;
    veh_field_list fields;
    const char* section = nullptr;
};
template <class T>
open_record record_of(T& record, veh_field_list fields) {
    return {reinterpret_cast<unsigned char*>(&record), sizeof record, fields};
}

bool is_open(const open_record& record, const veh_field_struct& row) {
    if (!record.section) return acf_is_designers(row);
    const char* section = acf_section_of(row.name);
    return section && strcmp(section, record.section) == 0;
}

// Least number of changed, added or dropped letters between two names.
size_t name_distance(const std::string& a, const std::string& b) {
    std::vector<size_t> row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); ++j) row[j] = j;
    for (size_t i = 1; i <= a.size(); ++i) {
        size_t corner = row[0];
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            const size_t change = corner + (a[i - 1] != b[j - 1]);
            corner = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, change});
        }
    }
    return row[b.size()];
}

// What may have been meant, as the end of a message: a name that goes on where this one stops, or the one
// that differs least.
std::string meant(const std::string& name, const std::vector<std::string>& known) {
    constexpr size_t longest = 60;  // no field's name is as long
    if (name.size() > longest) return "";
    size_t least = 2 + name.size() / 4;
    std::string best;
    for (const std::string& other : known) {
        const size_t distance = other.starts_with(name + "_") ? 0 : name_distance(name, other);
        if (distance < least) {
            least = distance;
            best = other;
        }
    }
    return best.empty() ? "" : "; did you mean \"" + best + "\"?";
}

class reader {
public:
    reader(std::string file, int p, bool as_design)
        : file_(std::move(file)), p_(p), as_design_(as_design), v_(veh[p]) {}
    void read(const toml::table& root);
    void test_ranges();
    std::string errors();  // in the order of the text

private:
    using names = std::vector<std::string>;

    void fault(const toml::source_region& at, const std::string& text);
    const toml::table* table_at(const toml::node& node, const std::string& what);
    template <class F>
    void each_entry(const toml::node& node, const std::string& name, int count, F read_entry);

    void read_section(const std::string& section, const toml::node& node);
    void read_fields(const toml::table& table, const std::vector<open_record>& records,
                     const names& other_keys = {});
    void unknown_key(const toml::key& key, const std::vector<open_record>& records, const names& other_keys);
    void read_field(const toml::node& node, const veh_field_struct& row, unsigned char* first);
    void read_level(const toml::node& node, const veh_field_struct& row, unsigned char* first, int level,
                    int bytes);
    void read_float(const toml::node& node, const veh_field_struct& row, unsigned char* first);
    void read_int(const toml::node& node, const veh_field_struct& row, unsigned char* first);
    void read_text(const toml::node& node, const std::string& name, char* first, int size);
    bool plain_float(const toml::node& node, const std::string& name, float& value);

    void read_engine(const toml::table& table, int en);
    void read_parts(const toml::node& node, int first, int last);
    void read_surface(const toml::table& table, int en);
    void read_foils(const toml::table& table, veh_wing_struct& wing);
    void read_body(const toml::table& table, int en);
    void read_ring(const toml::table& station, veh_part_struct& body, int s);
    void read_instrument(const toml::table& table, int slot);
    void read_downwash(const toml::node& node);
    int surface_named(const toml::table& table, const char* key);
    void copy_surfaces();
    void refuse(const std::string& text, const void* field);

    std::string file_;
    int p_;
    bool as_design_;  // refuses what a load would cut off or refuse
    veh_struct& v_;
    std::vector<std::pair<int, std::string>> faults_;  // line, message
    std::map<const void*, int> lines_;                 // of the fields, by their place in the record
    struct table_place {
        const unsigned char *first, *end;
        int line;
    };
    std::vector<table_place> tables_;  // records of which a table was read: for fields that it leaves out
    bool described_[partDIM] = {};     // parts that have a table
};

void reader::fault(const toml::source_region& at, const std::string& text) {
    const int line = static_cast<int>(at.begin.line);
    faults_.push_back({line, file_ + ":" + std::to_string(line) + ": " + text + "\n"});
}

std::string reader::errors() {
    std::stable_sort(faults_.begin(), faults_.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::string all;
    for (const auto& [line, message] : faults_) all += message;
    return all;
}

const toml::table* reader::table_at(const toml::node& node, const std::string& what) {
    if (!node.as_table()) fault(node.source(), what + " has to be a table");
    return node.as_table();
}

// -- values

bool reader::plain_float(const toml::node& node, const std::string& name, float& value) {
    const auto number = node.is_number() ? node.value<double>() : std::nullopt;
    if (!number) {
        fault(node.source(), name + " has to be a number");
        return false;
    }
    if (!(fabs(*number) < float_limit)) {
        fault(node.source(), name + " has to be finite and below 1e9");
        return false;
    }
    value = static_cast<float>(*number);
    return true;
}

void reader::read_float(const toml::node& node, const veh_field_struct& row, unsigned char* first) {
    float value;
    if (plain_float(node, row.name, value)) memcpy(first, &value, sizeof value);
}

void reader::read_int(const toml::node& node, const veh_field_struct& row, unsigned char* first) {
    const std::string kinds = acf_kind_names(row.name);
    int64_t value = 0;
    if (const auto* number = node.as_integer()) {
        value = number->get();
    } else if (const auto* flag = node.as_boolean()) {
        value = flag->get();
    } else if (const auto* kind = node.as_string(); kind && !kinds.empty()) {
        value = acf_kind_value(row.name, kind->get());
        if (value < 0) return fault(node.source(), std::string(row.name) + " has to be one of " + kinds);
    } else {
        return fault(node.source(), std::string(row.name) + " has to be a whole number" +
                                        (kinds.empty() ? "" : " or one of " + kinds));
    }
    if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
        return fault(node.source(), std::string(row.name) + " does not fit into 32 bits");
    const int word = static_cast<int>(value);
    memcpy(first, &word, sizeof word);
}

void reader::read_level(const toml::node& node, const veh_field_struct& row, unsigned char* first, int level,
                        int bytes) {
    const int dim = level < 3 ? row.dims[level] : 0;
    if (dim == 0) return row.type == 'f' ? read_float(node, row, first) : read_int(node, row, first);
    const toml::array* array = node.as_array();
    if (!array || array->size() > static_cast<size_t>(dim))
        return fault(node.source(), std::string(row.name) + " has to be a list of up to " +
                                        std::to_string(dim) + " entries here");
    const int below = bytes / dim;
    for (size_t i = 0; i < array->size(); ++i)
        read_level((*array)[i], row, first + static_cast<int>(i) * below, level + 1, below);
}

// Bytes of a text that a load keeps, where they are fewer than the field has; else 0.
int kept_of(const std::string& name) {
    return name == "tailnum" ? 6 : name == "author" || name == "descrip" ? 112 : 0;
}

// A string, or the bytes of one that is not UTF-8.
void reader::read_text(const toml::node& node, const std::string& name, char* first, int size) {
    std::string text;
    if (const auto* string = node.as_string()) {
        text = string->get();
    } else if (const auto* bytes = node.as_array()) {
        for (const toml::node& byte : *bytes) {
            const auto value = byte.value<int64_t>();
            if (!value || *value < 1 || *value > 255)
                return fault(byte.source(), "the bytes of " + name + " have to be numbers from 1 to 255");
            text += static_cast<char>(*value);
        }
    } else {
        return fault(node.source(), name + " has to be a text in quotes");
    }
    const int kept = as_design_ && kept_of(name) ? kept_of(name) + 1 : size;
    if (text.size() >= static_cast<size_t>(kept))
        return fault(node.source(), name + " has room for " + std::to_string(kept - 1) + " bytes");
    if (text.find('\0') != std::string::npos)
        return fault(node.source(), name + " must not hold a zero byte");
    memset(first, 0, static_cast<size_t>(size));
    memcpy(first, text.c_str(), text.size() + 1);
}

void reader::read_field(const toml::node& node, const veh_field_struct& row, unsigned char* first) {
    if (row.type == 'c') return read_text(node, row.name, reinterpret_cast<char*>(first), row.size);
    read_level(node, row, first, 0, row.size);
}

// -- tables

void reader::unknown_key(const toml::key& key, const std::vector<open_record>& records,
                         const names& other_keys) {
    const std::string name(key.str());
    const std::string text = "unknown key \"" + name + "\"";
    if (const char* section = acf_section_of(name))
        return fault(key.source(), text + " here; it belongs into [" + section + "]");
    constexpr size_t guessed = 100;  // behind as many faults nobody reads what may have been meant
    if (faults_.size() >= guessed) return fault(key.source(), text);
    names known = other_keys;
    for (const open_record& record : records)
        for (int r = 0; r < record.fields.count; ++r)
            if (is_open(record, record.fields.rows[r])) known.push_back(record.fields.rows[r].name);
    fault(key.source(), text + meant(name, known));
}

void reader::read_fields(const toml::table& table, const std::vector<open_record>& records,
                         const names& other_keys) {
    for (const open_record& record : records)
        if (!record.section)
            tables_.push_back(
                {record.first, record.first + record.size, static_cast<int>(table.source().begin.line)});
    for (const auto& [key, node] : table) {
        if (std::find(other_keys.begin(), other_keys.end(), key.str()) != other_keys.end()) continue;
        bool found = false;
        for (const open_record& record : records)
            for (int r = 0; r < record.fields.count && !found; ++r) {
                const veh_field_struct& row = record.fields.rows[r];
                if (key.str() != row.name || !is_open(record, row)) continue;
                lines_[record.first + row.offset] = static_cast<int>(node.source().begin.line);
                read_field(node, row, record.first + row.offset);
                found = true;
            }
        if (!found) unknown_key(key, records, other_keys);
    }
}

// [[name]] tables fill slot after slot; a "slot" key sets where to go on.
template <class F>
void reader::each_entry(const toml::node& node, const std::string& name, int count, F read_entry) {
    const toml::array* array = node.as_array();
    if (!array || !array->is_array_of_tables())
        return fault(node.source(), "write [[" + name + "]] once for each " + name);
    std::vector<bool> taken(static_cast<size_t>(count));
    int64_t slot = -1;
    for (const toml::node& entry : *array) {
        const toml::table& table = *entry.as_table();
        const toml::node* told = table.get("slot");
        slot = told ? told->value<int64_t>().value_or(-1) : slot + 1;
        if (slot < 0 || slot >= count)
            return fault(table.source(), name + " slots run from 0 to " + std::to_string(count - 1));
        if (taken[static_cast<size_t>(slot)])
            return fault(table.source(), name + " slot " + std::to_string(slot) + " is used twice");
        taken[static_cast<size_t>(slot)] = true;
        read_entry(table, static_cast<int>(slot));
    }
}

// -- parts

void reader::read_foils(const toml::table& table, veh_wing_struct& wing) {
    struct shorthand {
        const char* key;
        std::vector<char*> fields;
    };
    const shorthand shorthands[] = {{"foil", {wing.Rafl0, wing.Rafl1, wing.Tafl0, wing.Tafl1}},
                                    {"foil_root", {wing.Rafl0, wing.Rafl1}},
                                    {"foil_tip", {wing.Tafl0, wing.Tafl1}}};
    for (const shorthand& row : shorthands) {
        const toml::node* node = table.get(row.key);
        if (!node) continue;
        char name[sizeof wing.Rafl0] = {};
        read_text(*node, row.key, name, sizeof name);
        for (char* field : row.fields) memcpy(field, name, sizeof name);
    }
}

void reader::read_engine(const toml::table& table, int en) {
    described_[en] = true;
    read_foils(table, v_.wing[en]);
    read_fields(table,
                {record_of(v_.engn[en], veh_engn_list()), record_of(v_.part[en], veh_part_list()),
                 record_of(v_.wing[en], veh_wing_list())},
                {"slot", "foil", "foil_root", "foil_tip"});
}

void reader::read_surface(const toml::table& table, int en) {
    read_foils(table, v_.wing[en]);
    read_fields(table, {record_of(v_.part[en], veh_part_list()), record_of(v_.wing[en], veh_wing_list())},
                {"foil", "foil_root", "foil_tip"});
}

// One closed ring: from the top down the right side to the bottom at the middle index, then mirrored back
// up. The outline is an ellipse for n 2 and nears a box as n grows.
void reader::read_ring(const toml::table& station, veh_part_struct& body, int s) {
    float z = 0.0f, y = 0.0f, w = 0.0f, h = 0.0f, n = 2.0f;
    for (const auto& [key, node] : station) {
        const std::string name(key.str());
        float* value = name == "z"   ? &z
                       : name == "y" ? &y
                       : name == "w" ? &w
                       : name == "h" ? &h
                       : name == "n" ? &n
                                     : nullptr;
        if (!value)
            fault(key.source(),
                  "a station has z, y (centre), w and h (half width and height) and n (exponent), not \"" +
                      name + "\"");
        else
            plain_float(node, name, *value);
    }
    if (n < 0.1f) return fault(station.source(), "the exponent n of a station has to be 0.1 or more");
    const int half = body.r_dim / 2;
    for (int i = 0; i < half; ++i) {
        // one quadrant serves all four, so that the ring is symmetric to the last bit
        const int from_pole = std::min(i, half - 1 - i);
        const float turn = 180.0f * static_cast<float>(from_pole) / static_cast<float>(half - 1);
        const float rise = 2 * from_pole == half - 1 ? 0.0f : powf(cos_deg(turn), 2.0f / n);
        const float x = w * powf(sin_deg(turn), 2.0f / n);
        const float up = i == from_pole ? h * rise : -h * rise;
        float(&right)[3] = body.geo_xyz[s][i];
        float(&left)[3] = body.geo_xyz[s][body.r_dim - 1 - i];
        right[0] = x;
        left[0] = 0.0f - x;
        right[1] = left[1] = y + up;
        right[2] = left[2] = z;
    }
}

void reader::read_body(const toml::table& table, int en) {
    veh_part_struct& body = v_.part[en];
    read_fields(table, {record_of(body, veh_part_list())}, {"stations"});
    const toml::node* stations = table.get("stations");
    if (!stations) return;
    for (const char* raw : {"geo_xyz", "s_dim"})
        if (table.contains(raw))
            return fault(stations->source(), "stations and " + std::string(raw) + " exclude each other");
    const toml::array* rings = stations->as_array();
    if (!rings || rings->size() < 2 || rings->size() > part_sDIM)
        return fault(stations->source(),
                     "stations has to be a list of 2 to " + std::to_string(part_sDIM) + " tables");
    if (!table.contains("part_eq")) body.part_eq = 1;
    if (!table.contains("r_dim")) body.r_dim = part_rDIM;
    if (body.r_dim < 8 || body.r_dim > part_rDIM || body.r_dim % 2)
        return fault(stations->source(), "r_dim has to be even, from 8 to " + std::to_string(part_rDIM));
    body.s_dim = static_cast<int>(rings->size());
    for (int s = 0; s < body.s_dim; ++s)
        if (const toml::table* ring = table_at((*rings)[static_cast<size_t>(s)], "a station")) {
            read_ring(*ring, body, s);
            if (s > 0 && body.geo_xyz[s][0][2] < body.geo_xyz[s - 1][0][2])
                fault(ring->source(), "stations run from nose to tail: this z lies ahead of the one before");
        }
}

void reader::read_parts(const toml::node& node, int first, int last) {
    const toml::table* parts = table_at(node, "a heading of parts");
    if (!parts) return;
    for (const auto& [key, part] : *parts) {
        const std::string name(key.str());
        const int en = acf_part_index(name);
        if (en < first || en > last) {
            names known;
            for (int other = first; other <= last; ++other) known.push_back(acf_part_name(other));
            fault(key.source(), "there is no part \"" + name + "\" here" + meant(name, known));
            continue;
        }
        if (described_[en]) fault(key.source(), "part " + acf_part_name(en) + " is described twice");
        described_[en] = true;
        if (const toml::table* table = table_at(part, name)) {
            if (en <= part_pylo_last)
                read_surface(*table, en);
            else
                read_body(*table, en);
        }
    }
}

// -- instruments and downwash

void reader::read_instrument(const toml::table& table, int slot) {
    v_.ins_size[slot] = 1.0f;
    for (const auto& [key, node] : table) {
        const std::string name(key.str());
        if (name == "type") {
            const auto type = node.value<int64_t>();
            if (!type || *type < -1 || *type > ins_type_max)
                fault(node.source(), "instrument types run from 0 to " + std::to_string(ins_type_max));
            else
                v_.ins_type[slot] = static_cast<int>(*type);
        } else if (name == "x" || name == "y" || name == "size") {
            plain_float(node, name,
                        name == "x"   ? v_.ins_x[slot]
                        : name == "y" ? v_.ins_y[slot]
                                      : v_.ins_size[slot]);
        } else if (name != "slot") {
            fault(key.source(), "an instrument has type, x, y, size and slot, not \"" + name + "\"");
        }
    }
}

int reader::surface_named(const toml::table& table, const char* key) {
    const auto name = table[key].value<std::string>();
    const int en = name ? acf_part_index(*name) : -1;
    if (en >= 0 && en < wingDIM) return en;
    fault(table.source(), std::string(key) + " has to be the name of a surface");
    return -1;
}

void reader::read_downwash(const toml::node& node) {
    const toml::array* array = node.as_array();
    if (!array || !array->is_array_of_tables())
        return fault(node.source(), "write [[downwash]] once for each pair");
    for (const toml::node& entry : *array) {
        const toml::table& table = *entry.as_table();
        for (const auto& [key, value] : table)
            if (key != "washee" && key != "washer" && key != "elements")
                fault(key.source(),
                      "a downwash has washee, washer and elements, not \"" + std::string(key.str()) + "\"");
        const int washee = surface_named(table, "washee"), washer = surface_named(table, "washer");
        const toml::array* elements = table["elements"].as_array();
        if (!elements || elements->size() > elDIM) {
            fault(table.source(), "elements has to be a list of up to " + std::to_string(elDIM) + " numbers");
            continue;
        }
        if (washee < 0 || washer < 0) continue;
        static const veh_field_struct row = {"elements", 0, 4, 'i', {0, 0, 0}, veh_role_file, ""};
        for (size_t el = 0; el < elements->size(); ++el)
            read_int((*elements)[el], row,
                     reinterpret_cast<unsigned char*>(&v_.in_downwash[washee][washer][el]));
    }
}

// -- the whole text

void reader::copy_surfaces() {
    for (int en = part_wing_first; en <= part_pylo_last; ++en)
        if (!described_[en]) {
            veh_wing_struct wing;
            veh_part_struct part;
            if (!acf_copied_surface(p_, en, wing, part)) continue;
            v_.wing[en] = wing;
            v_.part[en] = part;
        }
}

void reader::read_section(const std::string& section, const toml::node& node) {
    const auto array_entries = [&](auto& records, veh_field_list fields) {
        each_entry(node, section, static_cast<int>(std::size(records)),
                   [&](const toml::table& table, int slot) {
                       read_fields(table, {record_of(records[slot], fields)}, {"slot"});
                   });
    };
    if (section == "engine")
        each_entry(node, section, engnDIM, [&](const toml::table& table, int en) { read_engine(table, en); });
    else if (section == "surface")
        read_parts(node, part_wing_first, part_pylo_last);
    else if (section == "body")
        read_parts(node, part_body_first, part_fair_last);
    else if (section == "gear")
        array_entries(v_.gear, veh_gear_list());
    else if (section == "door")
        array_entries(v_.door, veh_door_list());
    else if (section == "speedbrake")
        array_entries(v_.sbrk, veh_door_list());
    else if (section == "weapon")
        array_entries(v_.watt, veh_watt_list());
    else if (section == "instrument")
        each_entry(node, section, insDIM,
                   [&](const toml::table& table, int slot) { read_instrument(table, slot); });
    else if (section == "downwash")
        read_downwash(node);
    else if (const toml::table* table = table_at(node, "[" + section + "]"))
        read_fields(*table,
                    {{reinterpret_cast<unsigned char*>(&v_), sizeof v_, veh_block_list(), section.c_str()}});
}

bool is_heading(const std::string& name) {
    for (const char* heading :
         {"engine", "surface", "body", "gear", "door", "speedbrake", "weapon", "instrument", "downwash"})
        if (name == heading) return true;
    for (const acf_section_struct& row : acf_sections())
        if (name == row.section) return true;
    return false;
}

void reader::read(const toml::table& root) {
    std::fill(std::begin(v_.ins_type), std::end(v_.ins_type), -1);
    for (const auto& [key, node] : root) {
        const std::string name(key.str());
        if (is_heading(name))
            read_section(name, node);
        else
            fault(key.source(), "there is no section \"" + name + "\"");
    }
    copy_surfaces();
}

// A fault of a field that has been read, with the line of its key, else of its table.
void reader::refuse(const std::string& text, const void* field) {
    int line = 0;
    for (const table_place& table : tables_)
        if (field >= table.first && field < table.end) line = table.line;
    if (const auto own = lines_.find(field); own != lines_.end()) line = own->second;
    faults_.push_back({line, file_ + (line ? ":" + std::to_string(line) : "") + ": " + text + "\n"});
}

void reader::test_ranges() {
    // a load takes one for a surface that is not there
    for (int en = 0; en < wingDIM; ++en) {
        const float& length = v_.wing[en].semilen_SEG;
        if (length < 0.0f && lines_.count(&length))
            refuse("wing[" + std::to_string(en) + "].semilen_SEG is below 0", &length);
    }
    const void* field = nullptr;
    const std::string text = acf_admit(p_, &field);
    if (!text.empty()) refuse(text, field);
}
}  // namespace

static int read_text(const std::string& toml_path, int p, bool as_design, std::string* error) {
    error->clear();
    clear_acf(p);
    toml::table root;
    if (std::error_code ignored; std::filesystem::is_directory(toml_path, ignored)) {
        *error = toml_path + ": is a folder\n";
        return 0;
    }
    try {
        root = toml::parse_file(toml_path);
    } catch (const toml::parse_error& fault) {
        *error = toml_path + ":" + std::to_string(fault.source().begin.line) + ": " +
                 std::string(fault.description()) + "\n";
        return 0;
    }
    reader text(toml_path, p, as_design);
    text.read(root);
    *error = text.errors();
    if (!error->empty() || !as_design) return error->empty();
    text.test_ranges();
    *error = text.errors();
    return error->empty();
}

int acf_from_toml(const std::string& toml_path, int p, std::string* error) {
    return read_text(toml_path, p, false, error);
}
int acf_design_from_toml(const std::string& toml_path, int p, std::string* error) {
    return read_text(toml_path, p, true, error);
}
