// Reading of object files: words, primitives that run together, bounds, normals, checks.
#include "scenery/objects/object_file.h"

#include <math.h>
#include <stdio.h>
#include <strings.h>

#include <algorithm>
#include <charconv>
#include <string_view>

#include "core/disk/mapfile.h"
#include "core/disk/paths.h"
#include "core/math/geo3.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/logs.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"

// -- words

namespace {
bool is_eoln(unsigned char c) { return c == '\r' || c == '\n'; }
bool is_blank(unsigned char c) { return c == ' ' || c == '\t' || c == ','; }
bool ends_word(unsigned char c) { return is_blank(c) || is_eoln(c); }

// Words of the mapped text. What is not there or is no number sets broken, and gives 0 from then on.
class word_reader {
public:
    word_reader(const unsigned char* begin, const unsigned char* end) : at(begin), end(end) {}

    // On this line or a later one; empty at the end of the file.
    std::string_view word() {
        while (at < end && ends_word(*at)) ++at;
        const unsigned char* const start = at;
        while (at < end && !ends_word(*at)) ++at;
        return {reinterpret_cast<const char*>(start), static_cast<size_t>(at - start)};
    }
    float number() {
        float value = 0.0f;
        parse(&value);
        if (check_nan(value)) broken = true;  // beyond any use, and its square would be no float
        return broken ? 0.0f : value;
    }
    int whole() {
        int value = 0;
        parse(&value);
        return broken ? 0 : value;
    }
    // Past the end of this line, of one or two characters.
    void skip_line() {
        while (at < end && !is_eoln(*at)) ++at;
        if (end - at >= 2 && at[0] == '\r' && at[1] == '\n') ++at;
        if (at < end) ++at;
    }

    bool broken = false;

private:
    template <typename T>
    void parse(T* value) {
        std::string_view text = word();
        if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
        const auto [stop, fault] = std::from_chars(text.data(), text.data() + text.size(), *value);
        if (fault != std::errc() || stop != text.data() + text.size()) broken = true;
    }

    const unsigned char *at, *end;
};

// -- keywords

// What follows a keyword.
enum operand_kind : int { no_operand, numbers_on_line, fixed_vertices, counted_vertices };

struct keyword_row {
    std::string_view word;
    int code;
    operand_kind kind;
    int count;  // of numbers or vertices
};

constexpr keyword_row keywords[] = {
    {"tri", obj_tri, fixed_vertices, 3},
    {"quad", obj_quad, fixed_vertices, 4},
    {"light", obj_light, fixed_vertices, 1},
    {"line", obj_line, fixed_vertices, 2},
    {"quad_strip", obj_quad_strip, counted_vertices, 0},
    {"tri_strip", obj_tri_strip, counted_vertices, 0},
    {"tri_fan", obj_tri_fan, counted_vertices, 0},
    {"polygon", obj_polygon, counted_vertices, 0},
    {"quad_movie", obj_quad_movie, fixed_vertices, 4},
    {"quad_cockpit", obj_quad_cockpit, fixed_vertices, 4},
    {"quad_hard", obj_quad_hard, fixed_vertices, 4},
    {"smoke_black", obj_smoke_black, numbers_on_line, 4},
    {"smoke_white", obj_smoke_white, numbers_on_line, 4},
    {"shade_flat", obj_shade_flat, no_operand, 0},
    {"ATTR_shade_flat", obj_shade_flat, no_operand, 0},
    {"shade_smooth", obj_shade_smooth, no_operand, 0},
    {"ATTR_shade_smooth", obj_shade_smooth, no_operand, 0},
    {"ATTR_ambient_rgb", obj_ambient, numbers_on_line, 3},
    {"ATTR_difuse_rgb", obj_diffuse, numbers_on_line, 3},
    {"ATTR_specular_rgb", obj_specular, numbers_on_line, 3},
    {"ATTR_emission_rgb", obj_emission, numbers_on_line, 3},
    {"ATTR_shiny_rat", obj_shiny, numbers_on_line, 1},
    {"ATTR_no_depth", obj_no_depth, no_operand, 0},
    {"ATTR_depth", obj_depth, no_operand, 0},
    {"ATTR_no_cull", obj_no_cull, no_operand, 0},
    {"ATTR_cull", obj_cull, no_operand, 0},
    {"ATTR_poly_os", obj_poly_os, numbers_on_line, 1},
    {"ATTR_LOD", obj_lod, numbers_on_line, 2},
    {"ATTR_reset", obj_reset, no_operand, 0},
    {"end", obj_file_end, no_operand, 0},
};
constexpr keyword_row other_attribute = {"ATTR", obj_other_attr, no_operand, 0};

bool same_word(std::string_view a, std::string_view b) {
    return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}

const keyword_row* find_keyword(std::string_view word) {
    for (const keyword_row& row : keywords)
        if (same_word(word, row.word)) return &row;
    const std::string_view start = word.substr(0, 4);
    return same_word(start, other_attribute.word) ? &other_attribute : nullptr;
}

int closing_code(int code) {
    switch (code) {
        case obj_light:
            return obj_end_light;
        case obj_line:
            return obj_end_line;
        case obj_quad_movie:
            return obj_end_movie;
        case obj_quad_cockpit:
            return obj_end_cockpit;
        default:
            return obj_end_poly;
    }
}

int vertex_code(int code) {
    switch (code) {
        case obj_light:
            return obj_vert_light;
        case obj_line:
            return obj_vert_line;
        case obj_quad_movie:
            return obj_vert_movie;
        default:
            return obj_vert_tex;
    }
}

// One serves a whole primitive, each pair of a strip, or each vertex of a fan.
bool has_normal(int code, int vertex) {
    if (code == obj_tri_fan) return true;
    if (code == obj_quad_strip || code == obj_tri_strip) return vertex % 2 == 0;
    return code >= obj_tri && vertex == 0;
}

// -- commands

constexpr int most_vertices = 100000;  // of one primitive

class object_reader {
public:
    object_reader(const unsigned char* begin, const unsigned char* end, vec_mod_struct* mod)
        : in(begin, end), mod(*mod) {}

    bool read_header(std::string* texture) {
        in.skip_line();
        int version = 0;
        const std::string_view text = in.word();
        std::from_chars(text.data(), text.data() + text.size(), version);
        constexpr int object_version = 700;
        if (version != object_version) return false;
        in.skip_line();
        in.skip_line();
        *texture = in.word();
        in.skip_line();
        return true;
    }

    // False when the text breaks off inside a command. A file that ends behind one may lack its "end".
    bool read_commands() {
        mod.vec_lod.resize(1);
        for (;;) {
            const std::string_view word = in.word();
            if (in.broken || word.empty()) return !in.broken;
            const keyword_row* row = find_keyword(word);
            if (!row) {
                tell_bad_word(word);
                in.skip_line();
                continue;
            }
            if (row->code == obj_file_end) return true;
            read_command(*row);
        }
    }

private:
    std::vector<vec_act_struct>& acts() { return mod.vec_lod.back().vec_act; }
    vec_act_struct& add(int code) {
        acts().emplace_back();
        acts().back().act = code;
        return acts().back();
    }

    // Runs of equal simple primitives become one: the last of them is opened again.
    void open(int code) {
        const bool runs_on = code <= obj_quad && code == last_code;
        if (runs_on)
            acts().erase(acts().begin() + static_cast<std::ptrdiff_t>(last_end));
        else
            add(code);
        if (code <= obj_tri_fan || code >= obj_shade_flat) last_code = code;
    }

    void read_command(const keyword_row& row) {
        switch (row.kind) {
            case no_operand:
                if (row.code == obj_other_attr)
                    last_code = row.code;
                else
                    open(row.code);
                in.skip_line();
                break;
            case numbers_on_line:
                read_numbers(row);
                break;
            case fixed_vertices:
                read_vertices(row.code, row.count);
                break;
            case counted_vertices:
                const int count = in.whole();
                if (!intrange(count, 0, most_vertices)) in.broken = true;
                if (!in.broken) read_vertices(row.code, count);
                break;
        }
    }

    void read_numbers(const keyword_row& row) {
        float dat[4] = {};
        for (int i = 0; i < row.count; ++i) dat[i] = in.number();
        in.skip_line();
        if (row.code == obj_lod) {
            if (lod_given) mod.vec_lod.emplace_back();
            lod_given = true;
            mod.vec_lod.back().dis_near_sqr = sqr(dat[0]);
            mod.vec_lod.back().dis_far_sqr = sqr(dat[1]);
            last_code = obj_lod;
            return;
        }
        open(row.code);
        std::copy(dat, dat + row.count, acts().back().dat);
    }

    void read_vertices(int code, int count) {
        in.skip_line();
        open(code);
        const bool coloured = code == obj_light || code == obj_line;
        for (int v = 0; v < count && !in.broken; ++v) {
            if (has_normal(code, v)) add(obj_normal);
            vec_act_struct& vertex = add(vertex_code(code));
            for (int i = 0; i < 3; ++i) vertex.dat[i] = in.number();
            // in double, or the greatest code of a lamp would come out above its limit
            if (coloured)
                for (int i = 3; i < 6; ++i) vertex.dat[i] = static_cast<float>(in.number() * 0.1);
            else
                for (int i = 3; i < 5; ++i) vertex.dat[i] = in.number();
        }
        last_end = acts().size();
        add(closing_code(code));
        if (count > 0) in.skip_line();
    }

    // Shown once an object; a file that is no object at all would fill the log.
    void tell_bad_word(std::string_view word) {
        constexpr int most_told = 10;
        constexpr size_t most_letters = 100;
        const std::string text(word.substr(0, most_letters));
        ++bad_words;
        if (bad_words == 1)
            MACIBM_data_fault("Bad polygon type in the following:", mod.path,
                              "I cannot find a poly type for:", text);
        else if (bad_words <= most_told)
            xer << "Bad polygon type in " << mod.path << ": " << text << '\n';
    }

    word_reader in;
    vec_mod_struct& mod;
    int last_code = obj_none;  // of the command that may run on
    size_t last_end = 0;       // its closing command
    bool lod_given = false;
    int bad_words = 0;
};
}  // namespace

object_read read_object_file(const std::string& full_path, vec_mod_struct* mod, std::string* texture) {
    if (full_path.size() > path_len_max) return object_absent;
    const unsigned char* at = nullptr;
    const XMappedFile file(set_dir_chars(full_path).c_str(), &at);
    if (!file.ok() || (*at != 'A' && *at != 'I')) return object_absent;
    object_reader reader(at, file.end(), mod);
    if (!reader.read_header(texture)) return object_absent;
    if (reader.read_commands()) return object_good;
    MACIBM_data_fault("File-scanning error!", mod->path, "", "");
    return object_broken;
}

// -- size

namespace {
bool is_vertex(int code) { return intrange(code, obj_vert_light, obj_vert_movie); }

// No size at the origin without a vertex.
box_struct box_of(const vec_lod_struct& lod) {
    box_struct box;
    for (const vec_act_struct& act : lod.vec_act)
        if (is_vertex(act.act)) box.grow({act.dat[0], act.dat[1], act.dat[2]});
    if (box.empty()) box.grow({});
    return box;
}

// As far as it is a pixel and a half wide on the present screen. A top that lies flat counts a seventh.
float default_far_sqr(const box_struct& box) {
    const auto [dx, dy, dz] = box.size();
    const float width = fltmax2(fltmax2(fltmin2(dy, dz), fltmin2(dx, dz) / 7.0f), fltmin2(dx, dy));
    const float radius = 0.5f * width;
    const float half_view = tan_deg(0.5f * fallout(ren.FOV, -1.0f, 1.0f));  // no view is set before the start
    return sqr(static_cast<float>(mnw.x_res_now) * radius * 0.5f / half_view * 1.5f);
}
}  // namespace

void find_object_bounds(vec_mod_struct* mod) {
    vec_lod_struct& lod = mod->vec_lod[0];
    const box_struct box = box_of(lod);
    const d3_struct centre = box.centre(), size = box.size();
    for (int i = 0; i < 3; ++i) mod->cull_center_xyz[i] = centre.at(i);
    mod->cull_radius = pythag(size.x, size.y, size.z);
    if (lod.dis_near_sqr == 0.0f && lod.dis_far_sqr == -1.0f) lod.dis_far_sqr = default_far_sqr(box);
}

// -- normals

namespace {
bool is_closing(int code) { return intrange(code, obj_end_light, obj_end_cockpit); }

// An open primitive: its first command, and its closing one. Past it there are no vertices: zeros.
struct primitive_struct {
    const std::vector<vec_act_struct>& acts;
    size_t first, last;
    const float* dat(size_t at) const {
        static const float nothing[6] = {};
        return at >= first && at <= last && at < acts.size() ? acts[at].dat : nothing;
    }
    int code() const { return acts[first].act; }
};

size_t closing_of(const std::vector<vec_act_struct>& acts, size_t first) {
    while (first < acts.size() && !is_closing(acts[first].act)) ++first;
    return first;
}

void cross_of(const float* first, const float* second, const float* third, float* normal) {
    double a[3], b[3];
    for (int i = 0; i < 3; ++i) a[i] = static_cast<double>(first[i]) - second[i];
    for (int i = 0; i < 3; ++i) b[i] = static_cast<double>(third[i]) - second[i];
    const double n[3] = {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
    const double length = sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
    const float up[3] = {0.0f, 1.0f, 0.0f};
    for (int i = 0; i < 3; ++i) normal[i] = length > 0.0 ? static_cast<float>(n[i] / length) : up[i];
}

// Which three vertices around the normal at C span it, by the shape that is open there.
void find_normal(const primitive_struct& open, size_t C, float* normal) {
    switch (open.code()) {
        case obj_tri:
        case obj_quad:
        case obj_quad_movie:
        case obj_quad_cockpit:
        case obj_quad_hard:
        case obj_polygon:
            cross_of(open.dat(C + 1), open.dat(C + 2), open.dat(C + 3), normal);
            break;
        case obj_quad_strip:
            if (C == open.first + 1)
                cross_of(open.dat(C + 1), open.dat(C + 5), open.dat(C + 4), normal);
            else
                cross_of(open.dat(C - 2), open.dat(C + 2), open.dat(C + 1), normal);
            break;
        case obj_tri_strip:
            cross_of(open.dat(C - 1), open.dat(C + 2), open.dat(C + 1), normal);
            break;
        case obj_tri_fan: {  // the last vertex of its rim meets the first but one
            const size_t centre = open.first + 2, third = open.first + 6;
            cross_of(open.dat(centre), open.dat(C + 1), open.dat(C + 2 == open.last ? third : C + 3), normal);
            break;
        }
        default:
            MACIBM_data_fault("Trying to do a normal vector for a non-planar shape!", "", "", "");
    }
}

void find_normals(std::vector<vec_act_struct>& acts) {
    primitive_struct open{acts, 0, 0};
    for (size_t C = 0; C < acts.size(); ++C) {
        if (intrange(acts[C].act, obj_light, obj_tri_fan)) open.first = C, open.last = closing_of(acts, C);
        if (acts[C].act == obj_normal) find_normal(open, C, acts[C].dat);
    }
}
}  // namespace

void find_object_normals(vec_mod_struct* mod) {
    for (vec_lod_struct& lod : mod->vec_lod) find_normals(lod.vec_act);
}

// -- checks

bool is_display_command(int code) {
    switch (code) {
        case obj_light:
        case obj_quad_movie:
        case obj_vert_light:
        case obj_vert_movie:
        case obj_end_light:
        case obj_end_movie:
        case obj_smoke_black:
        case obj_smoke_white:
        case obj_lod:
            return false;
        default:
            return intrange(code, obj_light, obj_reset);
    }
}

bool is_action_command(int code) {
    switch (code) {
        case obj_light:
        case obj_quad_movie:
        case obj_quad_hard:
        case obj_vert_light:
        case obj_vert_movie:
        case obj_end_light:
        case obj_end_movie:
        case obj_smoke_black:
        case obj_smoke_white:
            return true;
        default:
            return false;
    }
}

namespace {
bool colour_holds(const vec_act_struct& act, float low, float high) {
    return fltrange(act.dat[3], low, high) && fltrange(act.dat[4], low, high) &&
           fltrange(act.dat[5], low, high);
}

void tell_homeless(int code) {
    char line[40];
    snprintf(line, sizeof line, "crt_typ=%8.0f", static_cast<double>(code));
    MACIBM_data_fault("An object has a polygon TYPE that is not an action OR display list!", line, "", "");
}
}  // namespace

void check_object(const vec_mod_struct& mod) {
    constexpr float lamp_low = -1.0f, lamp_high = 9.9f;
    const faults_of_file faults(mod.path);
    for (const vec_lod_struct& lod : mod.vec_lod) {
        for (const vec_act_struct& act : lod.vec_act) {
            if (act.act == obj_vert_light && !colour_holds(act, lamp_low, lamp_high))
                MACIBM_data_fault("You have a custom object with a point color out of range!",
                                  "Point colors must be 0 to 10 in r, g, and b, with certain exceptions.", mod.path, "");
            if (act.act == obj_vert_line && !colour_holds(act, 0.0f, 1.0f))
                MACIBM_data_fault("You have a custom object with a line color out of range!",
                                  "Line colors must be 0 to 10 in r, g, and b.", mod.path, "");
            const bool has_home = is_display_command(act.act) || is_action_command(act.act);
            if (!has_home && act.act != obj_lod && act.act != obj_other_attr) tell_homeless(act.act);
        }
    }
}

void keep_object_actions(vec_lod_struct* lod) {
    constexpr size_t quad = 5;  // a hard quad's normal and vertices stand right behind it
    size_t hard_end = 0, kept = 0;
    for (size_t C = 0; C < lod->vec_act.size(); ++C) {
        const int code = lod->vec_act[C].act;
        if (code == obj_quad_hard) hard_end = C + quad;
        const bool of_hard = C <= hard_end && (code == obj_normal || code == obj_vert_tex);
        if (is_action_command(code) || of_hard) lod->vec_act[kept++] = lod->vec_act[C];
    }
    lod->vec_act.resize(kept);
    lod->vec_act.shrink_to_fit();
}
