// Display lists of patches.
#define GL_GLEXT_PROTOTYPES
#include "scenery/draw/terrain_list.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include "core/program/alert.h"
#include "core/program/seams.h"

namespace {
// Source of a texture unit's coordinates.
enum tc_source : signed char { none, first, second };

// What a format sends: coordinates by unit, and the blend level as the alpha of white.
struct format_row {
    tc_source unit[4];
    bool level;
};
constexpr int format_bare = 16;  // wires: vertices alone
constexpr format_row formats[format_bare] = {
    {{first}, false},
    {{first, first}, false},
    {{}, false},
    {{}, false},
    {{first, second}, false},
    {{first, first, second}, false},
    {{none, second}, false},
    {{none, none, second}, false},
    {{first, first}, true},
    {{first, first, first}, true},
    {{}, true},
    {{}, true},
    {{first, first, second}, true},
    {{first, first, first, second}, true},
    {{none, none, second}, true},
    {{none, none, none, second}, true},
};

const float* coordinates(const std::vector<d2_struct>& from, size_t n) {
    static const float zero[2] = {};
    return n < from.size() ? from[n].v : zero;
}

void send_vertex(const scene_pol_struct& pol, size_t n, int format) {
    if (format != format_bare) {
        const format_row& row = formats[format];
        for (unsigned int unit = 0; unit < 4; ++unit)
            if (row.unit[unit] != none)
                glMultiTexCoord2fv(GL_TEXTURE0 + unit,
                                   coordinates(row.unit[unit] == first ? pol.color : pol.alpha, n));
        if (row.level) glColor4f(1.0f, 1.0f, 1.0f, n < pol.level.size() ? pol.level[n] : 0.0f);
        if (n < pol.nrm.size()) glNormal3fv(pol.nrm[n].xyz());
    }
    glVertex3fv(pol.geo[n].xyz());
}

bool ends_at_once(int type) { return type != pol_triangles && type != pol_quads; }

void send_primitives(const std::vector<scene_pol_struct>& pols, int format) {
    constexpr int closed = -1;
    int open = closed;
    for (const scene_pol_struct& pol : pols) {
        if (pol.pol_type != open) {
            if (open != closed) glEnd();
            glBegin(static_cast<GLenum>(pol.pol_type));
            open = pol.pol_type;
        }
        for (size_t n = 0; n < pol.geo.size(); ++n) send_vertex(pol, n, format);
        if (!ends_at_once(open)) continue;
        glEnd();
        open = closed;
    }
    if (open != closed) glEnd();
}

int triangles_of(const scene_pol_struct& pol) {
    const int n = static_cast<int>(pol.geo.size());
    switch (pol.pol_type) {
        case pol_triangles:
            return n / 3;
        case pol_quads:
            return n / 4 * 2;
        case pol_strip:
        case pol_fan:
        case pol_quad_strip:
        case pol_polygon:
            return n > 2 ? n - 2 : 0;
        default:
            return 0;
    }
}
}  // namespace

int vertex_format(const xlay_struct& layer, const scene_patch_struct_temp& geometry) {
    if (geometry.scene_pol.empty() || geometry.scene_pol[0].nrm.empty()) return format_bare;
    return (layer.has_night_lite ? 1 : 0) + (layer.project_texes ? 2 : 0) + (layer.has_border_mask ? 4 : 0) +
           (layer.composite_texes ? 8 : 0);
}

void compile_patch_list(const xlay_struct* layer, scene_patch_struct* patch) {
    if (!seam.has_display) return;
    patch->patch_DL = glGenLists(1);
    glNewList(patch->patch_DL, GL_COMPILE);
    send_primitives(patch->temp->scene_pol, vertex_format(*layer, *patch->temp));
    glEndList();
    patch->triangles = 0;
    for (const scene_pol_struct& pol : patch->temp->scene_pol) patch->triangles += triangles_of(pol);
}

void destroy_patch_list(scene_patch_struct* patch) {
    if (!seam.has_display) return;
    if (patch->patch_DL == 0) {
        MACIBM_data_fault("I am trying to destroy a patch that has no DL!", "This is annoying!", "", "");
        return;
    }
    glDeleteLists(patch->patch_DL, 1);
}
