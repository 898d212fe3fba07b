// State of layers: one stage of the list is one texture unit.
#define GL_GLEXT_PROTOTYPES
#include "layer_state.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include <vector>

#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"

namespace {
struct stage {
    int ref, mode;
    bool projects;
};

// The order of the units is that of the coordinates in the display lists.
std::vector<stage> stages_of(const xlay_struct& layer) {
    const bool projects = layer.project_texes != 0;
    std::vector<stage> list;
    if (layer.composite_texes) {
        list.push_back({layer.plane_tex_ref, combine_base, projects});
        list.push_back({layer.compo_tex_ref, combine_over, projects});
    } else {
        list.push_back(
            {layer.plane_tex_ref, layer.zap_base_alpha ? combine_zap_alpha : combine_default, projects});
    }
    if (layer.has_border_mask)
        list.push_back(
            {layer.plane_bor_ref, layer.composite_texes ? combine_border : combine_default, false});
    else if (layer.composite_texes)
        list.push_back({layer.plane_tex_ref, combine_light, false});
    if (layer.has_night_lite) list.push_back({layer.night_tex_ref, combine_pass, false});
    return list;
}

bool is_plain_water(const xlay_struct& layer) { return layer.plane_tex_ref == tex_water; }

// Repeats in so many metres of the world, east and south.
void project_on_ground(int unit, const ogl_proj_struct& repeat) {
    const float s[4] = {1.0f / repeat.x_tex_size_m, 0.0f, 0.0f, 0.0f},
                t[4] = {0.0f, 0.0f, -1.0f / repeat.y_tex_size_m, 0.0f};
    glActiveTexture(GL_TEXTURE0 + static_cast<unsigned>(unit));
    glTexGeni(GL_S, GL_TEXTURE_GEN_MODE, GL_OBJECT_LINEAR);
    glTexGeni(GL_T, GL_TEXTURE_GEN_MODE, GL_OBJECT_LINEAR);
    glTexGenfv(GL_S, GL_OBJECT_PLANE, s);
    glTexGenfv(GL_T, GL_OBJECT_PLANE, t);
    glEnable(GL_TEXTURE_GEN_S);
    glEnable(GL_TEXTURE_GEN_T);
    glActiveTexture(GL_TEXTURE0);
}

void project_no_more(int unit) {
    glActiveTexture(GL_TEXTURE0 + static_cast<unsigned>(unit));
    glDisable(GL_TEXTURE_GEN_S);
    glDisable(GL_TEXTURE_GEN_T);
    glActiveTexture(GL_TEXTURE0);
}
}  // namespace

void begin_layer(const xlay_struct& layer) {
    const int blending = layer.alpha_blnd ? al_both : al_none;
    const int writing = layer.poly_offset > 0 ? depth_no_write : depth_write;
    if (is_plain_water(layer)) {
        OGL_setstate(fog_on, 0, lit_off, blending, depth_read, writing);
        glColor3f(0.20f, 0.36f, 0.52f);
    } else {
        const std::vector<stage> stages = stages_of(layer);
        OGL_setstate(fog_on, static_cast<int>(stages.size()), lit_on, blending, depth_read, writing);
        for (size_t unit = 0; unit < stages.size(); ++unit) {
            tman.bind_ref(stages[unit].ref, static_cast<int>(unit), stages[unit].mode);
            if (stages[unit].projects) project_on_ground(static_cast<int>(unit), layer.cus_proj);
        }
    }
    OGL_poly_offset(layer.poly_offset);
    if (layer.two_sided) OGL_cull(0);
}

void end_layer(const xlay_struct& layer) {
    OGL_cull(1);
    OGL_poly_offset(0);
    if (is_plain_water(layer)) return;
    const std::vector<stage> stages = stages_of(layer);
    for (size_t unit = 0; unit < stages.size(); ++unit)
        if (stages[unit].projects) project_no_more(static_cast<int>(unit));
}
