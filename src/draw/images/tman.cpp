// Texture manager.
#define GL_GLEXT_PROTOTYPES
#include "draw/images/tman.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/upward.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "draw/gl/frame_counts.h"
#include "draw/gl/gl_facts.h"
#include "draw/gl/ogl.h"
#include "draw/images/image_bmp.h"
#include "draw/images/image_png.h"
#include "platform/window.h"
#include "platform/window_x11.h"

tman_class tman;

static_assert(mode_alpha == GL_ALPHA && mode_rgb == GL_RGB && mode_rgba == GL_RGBA);
static_assert(combine_env_add == GL_ADD && combine_modulate == GL_MODULATE);

tman_class::tman_class() : ref_dat(tex_free) { reset_bind(); }

static bool has_window() { return cx != nullptr; }

// Textures went with the window that held them.
void tman_class::start_window() {
    if (generation == window_generation) return;
    *this = tman_class();
    generation = window_generation;
}

// -- table

// What is not there reads as free.
const ref_dat_struct& tman_class::slot(int ref) const {
    return ref_dat[intrange(ref, 0, static_cast<int>(ref_dat.size()) - 1) ? ref : tex_none];
}

int tman_class::has_alpha(int ref) const {
    const int mode = slot(ref).tex_mode;
    return mode == mode_rgba || mode == mode_alpha;
}

long long tman_class::tot_vram() const {
    long long bytes = static_cast<long long>(mnw.x_res_now) * mnw.y_res_now * mnw.col_res_now / 8;
    for (const ref_dat_struct& ref : ref_dat) bytes += ref.tex_vram;
    return bytes;
}

float tman_class::scale_rat() const { return texture_scale(mnw.tex_res); }

// Of those that are free the highest; without any the table grows.
int tman_class::take_ref(int manual_ref) {
    int ref = manual_ref;
    if (manual_ref == tex_free) {
        ref = intmax2(static_cast<int>(ref_dat.size()), tex_free);
        for (int i = tex_free; i < static_cast<int>(ref_dat.size()); ++i)
            if (ref_dat[i].tex_vram == 0) ref = i;
    }
    if (ref >= static_cast<int>(ref_dat.size())) ref_dat.resize(ref + 1);
    return ref;
}

static int bytes_of(int tex_mode) { return tex_mode == mode_rgba ? 4 : tex_mode == mode_rgb ? 3 : 1; }

static int vram_of(int tex_mode, int mips, const image_place& place) {
    constexpr double mips_share = 1.4;
    const int level = place.dx_tot * place.dy_tot * bytes_of(tex_mode);
    return mips ? static_cast<int>(level * mips_share) : level;
}

void tman_class::fill_slot(int ref, int load_type, int tex_mode, int mips, const image_place& place,
                           const std::string& path) {
    ref_dat_struct& r = ref_dat[ref];
    const auto before = tex_hash.find(r.hard_path);
    if (before != tex_hash.end() && before->second == ref) tex_hash.erase(before);
    if (ref >= tex_free) tex_hash[path] = ref;
    r.load_type = load_type;
    r.ogl_num = ref;
    r.tex_dx_vis = static_cast<float>(place.dx_vis), r.tex_dy_vis = static_cast<float>(place.dy_vis);
    r.tex_dx_tot = static_cast<float>(place.dx_tot), r.tex_dy_tot = static_cast<float>(place.dy_tot);
    r.tex_vram = vram_of(tex_mode, mips, place);
    r.tex_mode = tex_mode;
    r.hard_path = path;
}

void tman_class::unload_texture(int ref) {
    start_window();
    if (ref == tex_none || &slot(ref) == &ref_dat[tex_none] || ref_dat[ref].tex_vram == 0) return;
    ref_dat_struct& r = ref_dat[ref];
    const GLuint name = static_cast<GLuint>(r.ogl_num);
    if (has_window()) glDeleteTextures(1, &name);
    const auto entry = tex_hash.find(r.hard_path);
    if (entry != tex_hash.end() && entry->second == ref) tex_hash.erase(entry);
    r = {};
    for (int unit = 0; unit < units; ++unit)
        if (o_tex[unit] == ref) o_tex[unit] = -1;
}

// -- loading

static const struct filter_row {
    int filter, tex_mode, mips;
} filter_rows[] = {
#define X(name, number, mode, mips) {name, mode, mips},
    TEX_FILTERS(X)
#undef X
};

static const filter_row* find_filter(int filter_type) {
    for (const filter_row& row : filter_rows)
        if (row.filter == filter_type) return &row;
    return nullptr;
}

static bool fault(const char* words, const std::string& path) {
    IMAGE_FAULT(words, path, "");
    return false;
}

static bool arguments_hold(int load_type, int manual_ref, int filter_type, const std::string& path) {
    if (!intrange(load_type, load_background, load_ogl))
        return fault("Trying to creata an invalid texture load_type!", path);
    if (!intrange(manual_ref, tex_none, tex_free))
        return fault("Trying to bind too low or high a manual_ref!", path);
    if (!find_filter(filter_type)) return fault("Trying to bind an invalid filter type!", path);
    return true;
}

static std::string full_path(const std::string& hard_path) {
    return hard_path.rfind(app_path, 0) == 0 ? hard_path : bmp_path + hard_path;
}

static int read_image(const std::string& hard_path, image_struct* image) {
    if (is_scratch_name(hard_path)) return load_buf_into_scratch(hard_path, image);
    const std::string path = full_path(hard_path);
    const image_struct asked = *image;
    if (load_png_into_scratch(path, image)) return 1;
    *image = asked;  // a PNG that broke off may have changed it
    return load_bmp_into_scratch(path, image);
}

static int no_image(int require_tex, const std::string& hard_path) {
    if (require_tex)
        IMAGE_FAULT("Trying to load a texture that you do not have!",
                    "This smacks of a mis-installed copy of Tarvane!", full_path(hard_path));
    return tex_none;
}

// Left out is what the start-up screen itself is drawn with. It must leave scratch_array alone.
static void show_progress(int ref, const std::string& path) {
    constexpr int every = 8;
    if (ref % every != 0 || is_scratch_name(path) || ref == tex_background || ref == tex_blank ||
        ref == tex_interface || ref == tex_menu_text)
        return;
    const bool is_inside = path.rfind(app_path, 0) == 0;
    MACIBM_showinit(("Loading bitmap " + (is_inside ? path.substr(app_path.size()) : path)).c_str());
}

int tman_class::load_texture(int require_tex, int load_type, int manual_ref, int filter_type,
                             const std::string& hard_path) {
    start_window();
    if (load_type == load_ogl && manual_ref == tex_free && !is_scratch_name(hard_path)) {
        const auto known = tex_hash.find(hard_path);
        if (known != tex_hash.end()) return known->second;
    }
    if (!arguments_hold(load_type, manual_ref, filter_type, hard_path)) return tex_none;

    const filter_row& filter = *find_filter(filter_type);
    const bool is_blend = load_type == load_instrument || load_type == load_background;
    image_struct image{};
    image.load_type = load_type;
    image.index = manual_ref;
    image.bytes = filter.tex_mode ? bytes_of(filter.tex_mode) : 4;
    image.depth_change_ok = !filter.tex_mode && !is_blend;  // what lies under a blend has its form already
    if (!read_image(hard_path, &image)) return no_image(require_tex, hard_path);
    if (load_type != load_ogl) return 1;

    const int tex_mode = image.bytes == 4 ? mode_rgba : image.bytes == 3 ? mode_rgb : mode_alpha;
    const int ref = take_ref(manual_ref);
    if (ref == tex_none) return fault("Trying to bind a null ref!", hard_path);
    const ref_dat_struct& old = ref_dat[ref];
    const bool refresh = old.load_type == load_type && old.ogl_num == ref && old.tex_mode == tex_mode &&
                         old.tex_dx_tot == static_cast<float>(image.place.dx_tot) &&
                         old.tex_dy_tot == static_cast<float>(image.place.dy_tot) &&
                         old.tex_vram == vram_of(tex_mode, filter.mips, image.place);
    fill_slot(ref, load_type, tex_mode, filter.mips, image.place, hard_path);
    if (!has_window()) return ref;
    show_progress(ref, hard_path);
    upload(ref, filter.mips, refresh);
    return ref;
}

// -- upload

static bool ends_at_edge(int ref) {
    return ref == tex_skids || ref == tex_landing_light || ref == tex_sectional_colours ||
           ref == tex_cockpit_3d || ref == tex_cockpit_3d_alpha ||
           tex_is(ref, tex_instrument, tex_instrument_last);
}

static bool is_pixel_exact(int ref) {
    constexpr float one_to_one = 1.01f;
    return ref == tex_interface || ref == tex_panel || ref == tex_panel + 1 ||
           (ref == tex_background && mnw.xy_scale < one_to_one);
}

static void set_parameters(int ref, int mips) {
    const int wrap = !ends_at_edge(ref) ? GL_REPEAT : tex_clamp_avail ? GL_CLAMP_TO_EDGE : GL_CLAMP;
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, wrap);
    const int iso = tex_is(ref, tex_runway, tex_taxiline) ? ren.max_iso : 1;
    if (ren.max_iso > 1) glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_ANISOTROPY_EXT, iso);
    const bool exact = is_pixel_exact(ref);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER,
                    exact  ? GL_NEAREST
                    : mips ? GL_LINEAR_MIPMAP_LINEAR
                           : GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, exact ? GL_NEAREST : GL_LINEAR);
}

static bool level_holds(int dx, int dy, const std::string& path) {
    if ((dx & (dx - 1)) != 0 || (dy & (dy - 1)) != 0)
        return fault("load_tex: Trying to read a texture that is not a power of 2!", path);
    if (!intrange(dx, 1, image_max) || !intrange(dy, 1, image_max))
        return fault("Trying to create a texture either less than 1 or greater than 1024!", path);
    return true;
}

// Levels are made in scratch_array in place of each other.
void tman_class::upload(int ref, int mips, bool refresh) {
    const std::string path = ref_dat[ref].hard_path;
    const int form = ref_dat[ref].tex_mode, bytes = bytes_of(form);
    if (ren.num_tex_units < 1 || !glIsEnabled(GL_TEXTURE_2D))
        fault("Trying to LOAD a texture when not in textured mode!", path);
    if (ren.num_tex_units < 1) return;  // nothing can be bound
    int dx = intround(ref_dat[ref].tex_dx_tot), dy = intround(ref_dat[ref].tex_dy_tot);
    GL_error_check("load_texture, before");
    for (int level = 0;; ++level) {
        if (level > 0) {
            shrink_half(scratch_array, dx, dy, bytes);
            dx = intmax2(dx / 2, 1), dy = intmax2(dy / 2, 1);
        }
        if (form == mode_rgba && !is_scratch_name(path)) clean_edges(scratch_array, dx, dy);
        if (!level_holds(dx, dy, path)) return;
        bind_ref(ref, 0, combine_default);
        glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
        if (refresh)
            glTexSubImage2D(GL_TEXTURE_2D, level, 0, 0, dx, dy, form, GL_UNSIGNED_BYTE, scratch_array);
        else
            glTexImage2D(GL_TEXTURE_2D, level, form, dx, dy, 0, form, GL_UNSIGNED_BYTE, scratch_array);
        if (!mips || (dx == 1 && dy == 1)) break;
    }
    set_parameters(ref, mips);
    GL_error_check("load_texture, after");
}

// -- binding

void tman_class::reset_bind() {
    for (int unit = 0; unit < units; ++unit) o_tex[unit] = o_mod[unit] = -1;
}

[[gnu::cold, gnu::noinline]] static bool cannot_bind(const char* words, int ref) {
    return fault(words, "reference " + std::to_string(ref));
}

bool tman_class::may_bind(int ref, int unit) const {
    const auto is_size = [](float pixels) {
        return pixels >= 1.0f && pixels <= static_cast<float>(image_max);
    };
    if (ref <= tex_none || ref >= static_cast<int>(ref_dat.size())) [[unlikely]]
        return cannot_bind("Trying to bind a null ref!", ref);
    const ref_dat_struct& r = ref_dat[ref];
    if (r.ogl_num == 0) [[unlikely]]
        return cannot_bind("Trying to bind a null tex!", ref);
    if (unit < 0 || unit >= units) [[unlikely]]
        return cannot_bind("Trying to bind an out of range unit!", ref);
    if (!is_size(r.tex_dx_vis)) [[unlikely]]
        return cannot_bind("Trying to bind an out of range tex_dx_vis!", ref);
    if (!is_size(r.tex_dy_vis)) [[unlikely]]
        return cannot_bind("Trying to bind an out of range tex_dy_vis!", ref);
    if (!is_size(r.tex_dx_tot)) [[unlikely]]
        return cannot_bind("Trying to bind an out of range tex_dx_tot!", ref);
    if (!is_size(r.tex_dy_tot)) [[unlikely]]
        return cannot_bind("Trying to bind an out of range tex_dy_tot!", ref);
    return true;
}

namespace {
// Functions and sources of a combiner; alpha always takes its sources' alpha, rgb their colour but for the
// third, the weight of an interpolation.
struct combiner_row {
    GLint rgb, rgb_source[3];
    GLint alpha, alpha_source[2];
};

// From combine_add on. Constant sources are white and opaque.
constexpr combiner_row combiners[] = {
    {GL_ADD, {GL_PREVIOUS, GL_TEXTURE, GL_CONSTANT}, GL_ADD, {GL_PREVIOUS, GL_TEXTURE}},
    {GL_REPLACE, {GL_TEXTURE, GL_PREVIOUS, GL_CONSTANT}, GL_SUBTRACT, {GL_TEXTURE, GL_PRIMARY_COLOR}},
    {GL_INTERPOLATE, {GL_PREVIOUS, GL_TEXTURE, GL_PREVIOUS}, GL_REPLACE, {GL_CONSTANT, GL_PREVIOUS}},
    {GL_MODULATE, {GL_PREVIOUS, GL_PRIMARY_COLOR, GL_CONSTANT}, GL_REPLACE, {GL_PREVIOUS, GL_TEXTURE}},
    {GL_MODULATE, {GL_PREVIOUS, GL_PRIMARY_COLOR, GL_CONSTANT}, GL_REPLACE, {GL_TEXTURE, GL_PREVIOUS}},
    {GL_REPLACE, {GL_PREVIOUS, GL_TEXTURE, GL_CONSTANT}, GL_REPLACE, {GL_PREVIOUS, GL_TEXTURE}},
    {GL_REPLACE, {GL_PREVIOUS, GL_TEXTURE, GL_CONSTANT}, GL_REPLACE, {GL_CONSTANT, GL_PREVIOUS}},
    {GL_MODULATE, {GL_PREVIOUS, GL_TEXTURE, GL_CONSTANT}, GL_REPLACE, {GL_CONSTANT, GL_PREVIOUS}},
};
static_assert(sizeof combiners / sizeof combiners[0] == combine_zap_alpha);

void env(GLenum name, GLint value) { glTexEnvi(GL_TEXTURE_ENV, name, value); }

void apply_combiner(const combiner_row& row) {
    const float white[4] = {1.0f, 1.0f, 1.0f, 1.0f};
    env(GL_TEXTURE_ENV_MODE, GL_COMBINE);
    glTexEnvfv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_COLOR, white);
    env(GL_COMBINE_RGB, row.rgb);
    env(GL_COMBINE_ALPHA, row.alpha);
    for (int i = 0; i < 3; ++i) {
        env(GL_SOURCE0_RGB + i, row.rgb_source[i]);
        env(GL_OPERAND0_RGB + i, i < 2 ? GL_SRC_COLOR : GL_SRC_ALPHA);
    }
    for (int i = 0; i < 2; ++i) {
        env(GL_SOURCE0_ALPHA + i, row.alpha_source[i]);
        env(GL_OPERAND0_ALPHA + i, GL_SRC_ALPHA);
    }
}

void apply_mode(int mode) {
    if (!combine_avail) {
        env(GL_TEXTURE_ENV_MODE, mode);
        return;
    }
    if (intrange(mode, combine_add, combine_zap_alpha))
        apply_combiner(combiners[mode - combine_add]);
    else
        env(GL_TEXTURE_ENV_MODE, mode);
    glTexEnvf(GL_TEXTURE_ENV, GL_ALPHA_SCALE, 1.0f);
}
}  // namespace

void tman_class::bind_ref(int ref, int unit, int multi_tex_mode) {
    int mode = multi_tex_mode == combine_default ? combine_modulate : multi_tex_mode;
    if (unit >= ren.num_tex_units || !may_bind(ref, unit)) return;
    const ref_dat_struct& r = ref_dat[ref];
    // only RGBA adds its alpha: as a mode of its own it cannot be taken for the other at a change of texture
    if (mode == combine_add && combine_avail && r.tex_mode != mode_rgba) mode = combine_env_add;
    if (o_tex[unit] == r.ogl_num && o_mod[unit] == mode) return;
    if (unit != 0) glActiveTexture(GL_TEXTURE0 + unit);
    if (o_tex[unit] != r.ogl_num) {
        glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(r.ogl_num));
        ++frame_counts.binds;
    }
    if (o_mod[unit] != mode) {
        apply_mode(mode);
        ++frame_counts.states;
    }
    o_tex[unit] = r.ogl_num;
    o_mod[unit] = mode;
    if (unit != 0) glActiveTexture(GL_TEXTURE0);
}
