// Every texture of the program behind a small integer, the reference, and the gate for all binding.
// Role: fixed references (tex_refs.h) name what code knows by number, those from tex_free up are handed
// out by path. Main thread only.
//
// A load needs a texture unit switched on (OGL_setstate first) and leaves unit 0 active. Without a window
// the table is kept all the same and nothing reaches OpenGL. A new window starts with an empty table.
#pragma once
#include <string>
#include <unordered_map>
#include <vector>

#include "draw/images/image_place.h"
#include "draw/images/tex_refs.h"

// Form of the pixels, in OpenGL's numbers.
enum tex_mode : int { mode_alpha = 6406, mode_rgb = 6407, mode_rgba = 6408 };

// clang-format off
// name, number, form (0: 3 or 4 bytes as the file has it), mip maps
#define TEX_FILTERS(X)                       \
    X(filter_rgb, -107, mode_rgb, 0)         \
    X(filter_rgb_mip, -108, mode_rgb, 1)     \
    X(filter_rgba, -109, mode_rgba, 0)       \
    X(filter_rgba_mip, -110, mode_rgba, 1)   \
    X(filter_alpha, -111, mode_alpha, 0)     \
    X(filter_alpha_mip, -112, mode_alpha, 1) \
    X(filter_auto, -113, 0, 0)               \
    X(filter_auto_mip, -114, 0, 1)
// clang-format on

enum tex_filter : int {
#define X(name, number, mode, mips) name = number,
    TEX_FILTERS(X)
#undef X
};

// How a unit combines its texture with what the units before it gave; any other number is a plain
// environment mode. The previous colour of unit 0 is the primary.
enum combiner_mode : int {
    combine_default = 0,    // modulate
    combine_add = 1,        // previous + texture, alpha too where the texture is RGBA
    combine_base = 2,       // texture; alpha: texture - primary
    combine_over = 3,       // previous over texture by previous alpha; opaque
    combine_light = 4,      // previous * primary; previous alpha
    combine_border = 5,     // previous * primary; texture alpha
    combine_pass = 6,       // previous
    combine_opaque = 7,     // previous; opaque
    combine_zap_alpha = 8,  // previous * texture; opaque
    combine_env_add = 260,
    combine_modulate = 8448,
};

struct ref_dat_struct {
    int load_type = load_free;
    int ogl_num = 0;                       // equals the reference
    float tex_dx_vis = 0, tex_dy_vis = 0;  // the image inside the texture, pixels
    float tex_dx_tot = 0, tex_dy_tot = 0;  // the texture, powers of two
    int tex_vram = 0;                      // bytes; 0 marks a free slot
    int tex_mode = 0;
    std::string hard_path = "un-inited";  // as given at load
};

class tman_class {
public:
    tman_class();

    // The reference, or 1 for the load types that only fill scratch_array; 0 when there is no picture.
    // The name is below bmp_path unless it starts with the install folder.
    int load_texture(int require_tex, int load_type, int manual_ref, int filter_type,
                     const std::string& hard_path);
    void unload_texture(int ref);

    // Units that the driver does not have are ignored. Returns with unit 0 active.
    void bind_ref(int ref, int unit, int multi_tex_mode);
    // After anything that changes bindings past this class.
    void reset_bind();

    int has_alpha(int ref) const;
    const std::string& get_path(int ref) const { return slot(ref).hard_path; }
    float tex_dx_vis(int ref) const { return slot(ref).tex_dx_vis; }
    float tex_dy_vis(int ref) const { return slot(ref).tex_dy_vis; }
    float tex_dx_tot(int ref) const { return slot(ref).tex_dx_tot; }
    float tex_dy_tot(int ref) const { return slot(ref).tex_dy_tot; }
    int tex_vram(int ref) const { return slot(ref).tex_vram; }
    int tex_mode(int ref) const { return slot(ref).tex_mode; }

    long long tot_vram() const;  // bytes of the screen and of all textures
    float scale_rat() const;     // of the user's texture resolution

private:
    static constexpr int units = 6;

    const ref_dat_struct& slot(int ref) const;
    bool may_bind(int ref, int unit) const;
    void start_window();
    int take_ref(int manual_ref);
    void fill_slot(int ref, int load_type, int tex_mode, int mips, const image_place& place,
                   const std::string& path);
    void upload(int ref, int mips, bool refresh);

    std::vector<ref_dat_struct> ref_dat;
    int o_tex[units], o_mod[units];                 // last bound on each unit, -1 unknown
    std::unordered_map<std::string, int> tex_hash;  // of those that were handed out
    int generation = 0;                             // of the window that holds the textures
};
extern tman_class tman;
