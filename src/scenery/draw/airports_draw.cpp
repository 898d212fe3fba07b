// Display lists of pavement, and the textures' way along it.
#define GL_GLEXT_PROTOTYPES
#include "scenery/draw/airports_draw.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include "core/math/num.h"
#include "core/records/records.h"
#include "draw/gl/colours.h"
#include "draw/gl/frame_counts.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "scenery/airports/strip_marks.h"
#include "scenery/draw/proj_tex.h"
#include "scenery/draw/terrain_draw.h"
#include "scenery/ground/runways.h"
#include "scenery/ground/surfaces.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/region/region_lists.h"

namespace {
struct list_struct {
    GLuint name = 0;  // 0 while it has not been built
    int triangles = 0;
    bool is_empty = false;
};
struct airport_lists_struct {
    list_struct kind[pavement_lists];
};
struct kept_struct {
    int revision = -1;                        // of the strips that the lists show
    std::vector<airport_lists_struct> lists;  // by index in vec_apt_strips
};
kept_struct kept;
int quads_sent = 0;

using rows_list = std::vector<vec_rwy_pol_struct>;
}  // namespace

// -- what belongs where

bool has_alpha(const vec_rwy_geo_struct& strip) {
    return intrange(strip.surf_tex, surface_grass, surface_lakebed) || strip.surf_tex == surface_pad_grass ||
           strip.surf_tex == surface_pad_dirt;
}

static int shoulder_of(const vec_rwy_geo_struct& strip) {
    const size_t apt = static_cast<size_t>(strip.apt_wrl), rwy = static_cast<size_t>(strip.rwy_wrl);
    return apt < vec_apt.size() && rwy < vec_apt[apt].rwy.size() ? vec_apt[apt].rwy[rwy].shoulder : 0;
}

bool has_DL(int DL_type, const vec_rwy_geo_struct& strip) {
    if (strip.surf_tex == surface_water || strip.vec_rwy_pol.size() < 2) return false;
    const size_t apt = static_cast<size_t>(strip.apt_wrl);
    if (apt < vec_apt.size() && vec_apt[apt].apt_type == apt_carrier) return false;
    const bool plain_taxiway = strip.is_taxiway && !has_alpha(strip);
    switch (DL_type) {
        case pavement_shoulder:
            return shoulder_of(strip) != 0;
        case pavement_taxiway:
            return plain_taxiway;
        case pavement_natural:
            return has_alpha(strip);
        default:
            return !plain_taxiway && !has_alpha(strip);
    }
}

// -- the textures' way along a strip

namespace {
// Skid marks lie where aircraft roll: thresholds, numbers, touchdown zones, lines.
bool takes_skids(int tex) { return intrange(tex, strip_thr1, strip_line + 1); }
bool is_outside_threshold(int tex) { return intrange(tex, strip_blast, strip_dis_last + 1); }

// Part of a full step that a row with this texture is long, for skid marks.
float skid_share(int tex) {
    if (intrange(tex, strip_left, strip_semi - 1)) return 0.25f;
    return intrange(tex, strip_semi, strip_semi + 1) ? 0.5f : 1.0f;
}

struct skids_struct {
    float step = 0.0f, t = 0.0f;
    int fade = 0;  // row from which on they become fewer

    void begin(const rows_list& rows) {
        const int last = static_cast<int>(rows.size()) - 1;
        step = fltmax2(0.025f, 4.0f / static_cast<float>(intmax2(last, 1)));
        fade = static_cast<int>(static_cast<float>(last) - 1.0f / step - 2.0f);
        for (int r = last / 2; r <= last; ++r)
            if (is_outside_threshold(rows[static_cast<size_t>(r)].tex)) --fade;
    }
    // From a row with this texture to the next row, r.
    void go_on(int tex, int r) {
        const float by = step * skid_share(tex);
        t += r > fade ? -by : by;
        if (t > 1.0f) t -= 2.0f * by;
        t = fltlim(t, 0.0f, 1.0f);
    }
};
}  // namespace

void find_strip_coords(const vec_rwy_geo_struct& strip, strip_coords_struct* out) {
    const rows_list& rows = strip.vec_rwy_pol;
    const bool may_skid = !has_alpha(strip);
    skids_struct skids;
    skids.begin(rows);
    float s[2] = {0.0f, 1.0f}, t = 0.0f, dt = 1.0f;
    int tex = rows[0].tex, skid_on = may_skid && takes_skids(tex);
    for (size_t r = 0; r < rows.size(); ++r) {
        if (r > 0) t += dt;
        if (r > 0 && skid_on) skids.go_on(rows[r - 1].tex, static_cast<int>(r));
        strip_coords_struct& at = out[r];
        at = {{s[0], s[1]}, t, skids.t, skid_on, false, {s[0], s[1]}, skid_on};
        if (rows[r].tex == tex || r + 1 == rows.size()) continue;
        tex = rows[r].tex;
        skid_on = may_skid && takes_skids(tex);
        if (2 * r >= rows.size() && dt > 0.0f) {
            s[0] = 1.0f, s[1] = 0.0f;
            dt = -1.0f;
        }
        at.restarts = true;
        at.s[0] = s[0], at.s[1] = s[1];
        at.skid_on = skid_on;
    }
}

// -- lists

namespace {
void skid_coord(float s, float t, int skid_seg) {
    if (skid_seg)
        glMultiTexCoord2f(GL_TEXTURE1, s, t);
    else
        glMultiTexCoord2f(GL_TEXTURE1, 0.0f, 0.0f);  // where the picture is white
}

// One pair of a strip's corners, the right one first: what is seen from above runs clockwise.
void plot_vert(const vec_rwy_pol_struct& row, const float (&s)[2], float t, float skid_t, int skid_seg) {
    glNormal3fv(row.nrm);
    for (const int side : {1, 0}) {
        glMultiTexCoord2f(GL_TEXTURE0, s[side], t);
        skid_coord(static_cast<float>(side), skid_t, skid_seg);
        glVertex3fv(row.xyz[side]);
    }
}

void send_runway(const vec_rwy_geo_struct& strip) {
    const rows_list& rows = strip.vec_rwy_pol;
    std::vector<strip_coords_struct> coords(rows.size());
    find_strip_coords(strip, coords.data());
    tman.bind_ref(rows[0].tex, 0, combine_modulate);
    glBegin(GL_QUAD_STRIP);
    for (size_t r = 0; r < rows.size(); ++r) {
        const strip_coords_struct& at = coords[r];
        plot_vert(rows[r], at.old_s, at.t, at.skid_t, at.old_skid_on);
        if (!at.restarts) continue;
        glEnd();
        tman.bind_ref(rows[r].tex, 0, combine_modulate);
        glBegin(GL_QUAD_STRIP);
        plot_vert(rows[r], at.s, at.t, at.skid_t, at.skid_on);
    }
    glEnd();
    quads_sent += static_cast<int>(rows.size()) - 1;
}

// Its coordinates come from the ground.
void send_taxiway(const vec_rwy_geo_struct& strip) {
    tman.bind_ref(strip.vec_rwy_pol[0].tex, 0, combine_modulate);
    glBegin(GL_QUAD_STRIP);
    for (const vec_rwy_pol_struct& row : strip.vec_rwy_pol) {
        glNormal3fv(row.nrm);
        glVertex3fv(row.xyz[1]);
        glVertex3fv(row.xyz[0]);
    }
    glEnd();
    quads_sent += static_cast<int>(strip.vec_rwy_pol.size()) - 1;
}

// Beside both edges; s runs outward.
void send_shoulders(const vec_rwy_geo_struct& strip) {
    constexpr float width = 0.25f;  // of the runway's
    constexpr int left_tex = 109, right_tex = 111, asphalt = 1;
    const int surface = shoulder_of(strip) == asphalt ? 0 : 1;
    for (const int side : {0, 1}) {
        tman.bind_ref((side == 0 ? left_tex : right_tex) + surface, 0, combine_modulate);
        glBegin(GL_QUAD_STRIP);
        float t = 0.0f;
        for (const vec_rwy_pol_struct& row : strip.vec_rwy_pol) {
            const float *const inner = row.xyz[side], *const other = row.xyz[1 - side];
            float outer[3];
            for (int axis = 0; axis < 3; ++axis) outer[axis] = inner[axis] + width * (inner[axis] - other[axis]);
            glNormal3fv(row.nrm);
            const auto corner = [t](float s, const float* at) {
                glTexCoord2f(s, t);
                glVertex3fv(at);
            };
            // the right corner of a pair comes first
            side == 0 ? corner(0.0f, inner) : corner(1.0f, outer);
            side == 0 ? corner(1.0f, outer) : corner(0.0f, inner);
            t += 1.0f;
        }
        glEnd();
        quads_sent += static_cast<int>(strip.vec_rwy_pol.size()) - 1;
    }
}

void send(int kind, const vec_rwy_geo_struct& strip) {
    switch (kind) {
        case pavement_shoulder:
            return send_shoulders(strip);
        case pavement_taxiway:
            return send_taxiway(strip);
        default:
            return send_runway(strip);
    }
}

// From the last runway to the first, which lies over all.
void build_list(const airport_strips_struct& airport, int kind, list_struct* list) {
    quads_sent = 0;
    bool is_empty = true;
    for (size_t i = 0; i < airport.count; ++i) is_empty = is_empty && !has_DL(kind, vec_rwy_geo[airport.first + i]);
    list->is_empty = is_empty;
    if (is_empty) return;
    list->name = glGenLists(1);
    tman.reset_bind();  // what is bound here is bound when the list runs
    glNewList(list->name, GL_COMPILE);
    for (size_t i = airport.count; i-- > 0;) {
        const vec_rwy_geo_struct& strip = vec_rwy_geo[airport.first + i];
        if (has_DL(kind, strip)) send(kind, strip);
    }
    glEndList();
    list->triangles = 2 * quads_sent;
    tman.reset_bind();
}

void follow_strips() {
    if (kept.revision == strips_revision() && kept.lists.size() == vec_apt_strips.size()) return;
    for (const airport_lists_struct& lists : kept.lists)
        for (const list_struct& list : lists.kind)
            if (list.name) glDeleteLists(list.name, 1);
    kept.lists.assign(vec_apt_strips.size(), {});
    kept.revision = strips_revision();
}

// -- states

struct pavement_view {
    int fog, is_map, is_hits;
};

// Pavement, skid marks where aircraft roll, then the shadow of the clouds and the landing light.
void begin_kind(int kind, const pavement_view& view) {
    const bool is_strip = kind == pavement_natural || kind == pavement_runway;
    const bool has_shadows = ren.shadow_final_tex != 0 && !view.is_hits;
    const bool has_litemap = ren.plot_lan_litemap != 0 && !view.is_hits && !view.is_map;
    const int skid_unit = is_strip ? 1 : -1, shadow_unit = 1 + is_strip, light_unit = shadow_unit + has_shadows;
    const int units = intmin2(light_unit + has_litemap, intmin2(ren.num_tex_units, most_ground_units));
    const bool blends = kind == pavement_shoulder || kind == pavement_natural;
    OGL_setstate(view.fog, units, lit_on, blends ? al_blend : al_none, depth_read, depth_no_write);
    OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, 1.0f, 1);
    tman.bind_ref(tex_blank, 0, combine_modulate);
    set_proj_tex(kind == pavement_taxiway ? proj_taxi_grid : proj_none, 0, nullptr);
    for (int unit = 1; unit < most_ground_units; ++unit) {
        const int projection = has_shadows && unit == shadow_unit  ? proj_cloud_shadow
                               : has_litemap && unit == light_unit ? proj_landing_light
                                                                   : proj_none;
        const int ref = unit == skid_unit                   ? tex_skids
                        : projection == proj_cloud_shadow   ? ren.shadow_final_tex
                        : projection == proj_landing_light ? tex_landing_light
                                                            : 0;
        if (unit < units && ref) tman.bind_ref(ref, unit, combine_modulate);
        set_proj_tex(unit < units ? projection : proj_none, unit, nullptr, ref);
    }
}

bool is_drawn(const airport_strips_struct& airport, const pavement_view& view) {
    if (view.is_map || view.is_hits) return true;
    for (int apt_lcl = 0; apt_lcl <= apt_lcl_max; ++apt_lcl)
        if (apt_lcl_to_wrl[apt_lcl] == airport.apt_wrl) return scn.apt_is_vis[apt_lcl] != 0;
    return true;
}

void draw_kind(int kind, const pavement_view& view) {
    bool begun = false;
    for (size_t i = 0; i < vec_apt_strips.size(); ++i) {
        list_struct& list = kept.lists[i].kind[kind];
        if (list.is_empty || !is_drawn(vec_apt_strips[i], view)) continue;
        if (!list.name) build_list(vec_apt_strips[i], kind, &list);
        if (list.is_empty) continue;
        if (!begun) begin_kind(kind, view);
        begun = true;
        glCallList(list.name);
        ++frame_counts.lists;
        frame_counts.triangles += list.triangles;
    }
    if (begun) tman.reset_bind();
}
}  // namespace

void plot_airports(int is_map, int is_hits) {
    const pavement_view view = {is_map || is_hits ? fog_off : fog_on, is_map, is_hits};
    const bool lamp = ren.plot_lan_litemap && !is_map && !is_hits;
    follow_strips();
    if (lamp) turn_lite_on();
    OGL_poly_offset(2);
    for (int kind = is_hits ? pavement_natural : pavement_shoulder; kind < pavement_lists; ++kind)
        draw_kind(kind, view);
    OGL_poly_offset(0);
    end_projections();
    if (lamp) turn_lite_off(is_map, is_hits);
    if (!is_map && !is_hits) plot_airport_lights();
    OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, 1.0f, 1);
}

void reset_airports_draw() { kept = {}; }
