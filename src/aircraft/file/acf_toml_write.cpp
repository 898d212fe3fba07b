// Aircraft record to text. One form only: sections and fields in a fixed order, shortest numbers.
#include "aircraft/file/acf_toml_write.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "aircraft/file/acf_layout.h"
#include "core/craft/veh.h"

namespace {
// -- numbers and texts

// The shortest decimals that read back as the same float; plain digits where that is readable.
std::string float_text(float value) {
    if (value == 0.0f) return std::signbit(value) ? "-0.0" : "0";
    char text[80];
    const float size = fabsf(value);
    const auto format =
        size >= 1e-5f && size < 1e9f ? std::chars_format::fixed : std::chars_format::scientific;
    char* end = std::to_chars(text, text + sizeof text - 1, value, format).ptr;
    *end = 0;
    // a reader goes through double; where that rounds twice the wrong way, the double itself is written
    if (static_cast<float>(strtod(text, nullptr)) != value)
        end = std::to_chars(text, text + sizeof text - 1, static_cast<double>(value)).ptr;
    return std::string(text, end);
}

int utf8_length(unsigned char lead) {
    return lead < 0x80                   ? 1
           : lead >= 0xc2 && lead < 0xe0 ? 2
           : lead >= 0xe0 && lead < 0xf0 ? 3
           : lead >= 0xf0 && lead < 0xf5 ? 4
                                         : 0;
}

bool is_utf8(const std::string& text) {
    for (size_t i = 0; i < text.size();) {
        const auto byte = [&](size_t k) {
            return i + k < text.size() ? static_cast<unsigned char>(text[i + k]) : 0u;
        };
        const int length = utf8_length(static_cast<unsigned char>(text[i]));
        if (length == 0) return false;
        for (int k = 1; k < length; ++k)
            if ((byte(k) & 0xc0) != 0x80) return false;
        // overlong forms, surrogates, beyond the last code point
        if (byte(0) == 0xe0 && byte(1) < 0xa0) return false;
        if (byte(0) == 0xed && byte(1) >= 0xa0) return false;
        if (byte(0) == 0xf0 && byte(1) < 0x90) return false;
        if (byte(0) == 0xf4 && byte(1) >= 0x90) return false;
        i += static_cast<size_t>(length);
    }
    return true;
}

// Quoted, or the list of its bytes when they are no text in UTF-8.
std::string string_text(const std::string& text) {
    std::string out;
    if (!is_utf8(text)) {
        for (const char c : text)
            out += (out.empty() ? "[" : ", ") + std::to_string(static_cast<unsigned char>(c));
        return out + "]";
    }
    out = "\"";
    for (const char c : text) {
        const unsigned char byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (byte < 0x20 || byte == 0x7f) {
            char escape[8];
            snprintf(escape, sizeof escape, "\\u%04X", byte);
            out += escape;
        } else {
            out += c;
        }
    }
    return out + "\"";
}

// -- fields
uint32_t word_at(const unsigned char* first) {
    uint32_t word;
    memcpy(&word, first, sizeof word);
    return word;
}

std::string scalar_text(const veh_field_struct& row, const unsigned char* first) {
    if (row.type == 'f') {
        float value;
        memcpy(&value, first, sizeof value);
        return float_text(value);
    }
    const int value = static_cast<int>(word_at(first));
    const char* kind = acf_kind_name(row.name, value);
    return kind ? "\"" + std::string(kind) + "\"" : std::to_string(value);
}

bool all_zero(const unsigned char* first, int bytes) {
    for (int i = 0; i < bytes; ++i)
        if (first[i]) return false;
    return true;
}

// Elements from the first up to the last that is not zero. Vectors of up to three stay whole.
std::string array_text(const veh_field_struct& row, const unsigned char* first, int level, int bytes) {
    const int dim = level < 3 ? row.dims[level] : 0;
    if (dim == 0) return scalar_text(row, first);
    const int below = bytes / dim;
    const bool innermost = level == 2 || row.dims[level + 1] == 0;
    const bool has_rows = level == 0 && !innermost && row.dims[1] > 3;
    int used = dim;
    if (!innermost || dim > 3)
        while (used > 0 && all_zero(first + (used - 1) * below, below)) --used;
    std::string out = "[";
    for (int i = 0; i < used; ++i) {
        out += i == 0 ? "" : has_rows ? "," : ", ";
        if (has_rows) out += "\n  ";
        out += array_text(row, first + i * below, level + 1, below);
    }
    return out + (has_rows ? ",\n]" : "]");
}

std::string field_text(const veh_field_struct& row, const unsigned char* first) {
    if (row.type != 'c') return array_text(row, first, 0, row.size);
    const char* text = reinterpret_cast<const char*>(first);
    return string_text(std::string(text, strnlen(text, static_cast<size_t>(row.size))));
}

bool is_set(const veh_field_struct& row, const unsigned char* record) {
    if (row.type == 'c') return record[row.offset] != 0;
    return !all_zero(record + row.offset, row.size);
}

class writer {
public:
    writer(int p, bool explain) : p_(p), explain_(explain) {}
    std::string text();

private:
    void heading(const std::string& line) { out_ += "\n" + line + "\n"; }
    void key(const std::string& name, const std::string& value) { out_ += name + " = " + value + "\n"; }
    void field(const veh_field_struct& row, const unsigned char* record);
    void record(const veh_field_list& fields, const void* record);
    void wing_record(int en);
    void block_sections();
    void engines();
    void surfaces();
    void bodies();
    template <class T, size_t N>
    void list(const char* name, const T (&elements)[N], const veh_field_list& fields);
    void instruments();
    void downwash();

    const veh_struct& v() const { return veh[p_]; }
    veh_wing_struct described_wing(int en) const;
    // Heading of the next entry of a list; the slot is told only where one is skipped.
    void entry(const std::string& name, int slot, int& expected);

    int p_;
    bool explain_;
    std::string out_;
};

bool any_set(const veh_field_list& fields, const void* record) {
    for (int r = 0; r < fields.count; ++r)
        if (acf_is_designers(fields.rows[r]) &&
            is_set(fields.rows[r], static_cast<const unsigned char*>(record)))
            return true;
    return false;
}

bool same_record(const veh_field_list& fields, const void* a, const void* b) {
    for (int r = 0; r < fields.count; ++r) {
        const veh_field_struct& row = fields.rows[r];
        if (acf_is_designers(row) &&
            memcmp(static_cast<const char*>(a) + row.offset, static_cast<const char*>(b) + row.offset,
                   static_cast<size_t>(row.size)) != 0)
            return false;
    }
    return true;
}

void writer::field(const veh_field_struct& row, const unsigned char* record) {
    if (explain_) out_ += "# " + std::string(row.doc) + "\n";
    key(row.name, field_text(row, record + row.offset));
}

void writer::record(const veh_field_list& fields, const void* record) {
    const unsigned char* first = static_cast<const unsigned char*>(record);
    for (int r = 0; r < fields.count; ++r)
        if (acf_is_designers(fields.rows[r]) && is_set(fields.rows[r], first)) field(fields.rows[r], first);
}

// The side of all but the further surfaces follows from their number.
veh_wing_struct writer::described_wing(int en) const {
    veh_wing_struct wing = v().wing[en];
    if (en <= part_vstb_last || en >= part_pylo_first) wing.is_left = 0;
    return wing;
}

// Airfoils are mostly the same at both Reynolds numbers, if not at root and tip too.
void writer::wing_record(int en) {
    veh_wing_struct wing = described_wing(en);
    const std::string root = wing.Rafl0, tip = wing.Tafl0;
    if (root == wing.Rafl1 && tip == wing.Tafl1) {
        if (!root.empty()) key(root == tip ? "foil" : "foil_root", string_text(root));
        if (!tip.empty() && root != tip) key("foil_tip", string_text(tip));
        for (char* name : {wing.Rafl0, wing.Rafl1, wing.Tafl0, wing.Tafl1}) name[0] = 0;
    }
    record(veh_wing_list(), &wing);
}

void writer::block_sections() {
    const veh_field_list fields = veh_block_list();
    const unsigned char* block = reinterpret_cast<const unsigned char*>(&v());
    std::string open_section;
    for (const acf_section_struct& run : acf_sections()) {
        bool inside = false;
        for (int r = 0; r < fields.count; ++r) {
            const veh_field_struct& row = fields.rows[r];
            inside = inside || strcmp(row.name, run.first) == 0;
            if (inside && acf_is_designers(row) && is_set(row, block)) {
                if (open_section != run.section) heading("[" + std::string(run.section) + "]");
                open_section = run.section;
                field(row, block);
            }
            if (strcmp(row.name, run.last) == 0) break;
        }
    }
}

void writer::entry(const std::string& name, int slot, int& expected) {
    heading("[[" + name + "]]");
    if (slot != expected) key("slot", std::to_string(slot));
    expected = slot + 1;
}

// Engine, blade and hub of one thrust point are one table.
void writer::engines() {
    int expected = 0;
    for (int en = 0; en < engnDIM; ++en) {
        const veh_wing_struct blade = described_wing(en);
        if (!any_set(veh_engn_list(), &v().engn[en]) && !any_set(veh_wing_list(), &blade) &&
            !any_set(veh_part_list(), &v().part[en]))
            continue;
        entry("engine", en, expected);
        record(veh_engn_list(), &v().engn[en]);
        record(veh_part_list(), &v().part[en]);
        wing_record(en);
    }
}

// A surface that is what it would be without a table gets none.
void writer::surfaces() {
    for (int en = part_wing_first; en <= part_pylo_last; ++en) {
        const veh_wing_struct described = described_wing(en);
        veh_wing_struct wing;
        veh_part_struct part;
        acf_copied_surface(p_, en, wing, part);
        if (same_record(veh_wing_list(), &wing, &described) &&
            same_record(veh_part_list(), &part, &v().part[en]))
            continue;
        heading("[surface." + acf_part_name(en) + "]");
        record(veh_part_list(), &v().part[en]);
        wing_record(en);
    }
}

void writer::bodies() {
    for (int en = part_body_first; en < partDIM; ++en) {
        if (!any_set(veh_part_list(), &v().part[en])) continue;
        heading("[body." + acf_part_name(en) + "]");
        record(veh_part_list(), &v().part[en]);
    }
}

template <class T, size_t N>
void writer::list(const char* name, const T (&elements)[N], const veh_field_list& fields) {
    int expected = 0;
    for (int i = 0; i < static_cast<int>(N); ++i) {
        if (!any_set(fields, &elements[i])) continue;
        entry(name, i, expected);
        record(fields, &elements[i]);
    }
}

// An empty slot has type -1; an instrument has its natural size unless told otherwise.
void writer::instruments() {
    int expected = 0;
    for (int i = 0; i < insDIM; ++i) {
        const float size = v().ins_size[i], x = v().ins_x[i], y = v().ins_y[i];
        const float places[] = {size, x, y};
        if (v().ins_type[i] == -1 && all_zero(reinterpret_cast<const unsigned char*>(places), sizeof places))
            continue;
        entry("instrument", i, expected);
        key("type", std::to_string(v().ins_type[i]));
        if (float_text(x) != "0") key("x", float_text(x));
        if (float_text(y) != "0") key("y", float_text(y));
        if (size != 1.0f) key("size", float_text(size));
    }
}

void writer::downwash() {
    for (int washee = 0; washee < wingDIM; ++washee)
        for (int washer = 0; washer < wingDIM; ++washer) {
            const int(&elements)[elDIM] = v().in_downwash[washee][washer];
            int used = elDIM;
            while (used > 0 && elements[used - 1] == 0) --used;
            if (used == 0) continue;
            heading("[[downwash]]");
            key("washee", "\"" + acf_part_name(washee) + "\"");
            key("washer", "\"" + acf_part_name(washer) + "\"");
            std::string values;
            for (int el = 0; el < used; ++el) values += (el ? ", " : "[") + std::to_string(elements[el]);
            key("elements", values + "]");
        }
}

std::string writer::text() {
    out_ =
        "# Aircraft. Feet, pounds, knots, degrees; x right, y up, z aft of the datum. What is not named is "
        "0.\n";
    block_sections();
    engines();
    surfaces();
    bodies();
    list("gear", v().gear, veh_gear_list());
    list("door", v().door, veh_door_list());
    list("speedbrake", v().sbrk, veh_door_list());
    list("weapon", v().watt, veh_watt_list());
    instruments();
    downwash();
    return out_;
}
}  // namespace

std::string acf_to_toml(int p, bool explain) { return writer(p, explain).text(); }
