// Plain strips: one colour a surface, and white marks where the rows' pictures have them. An airport has a
// display list of its ground and one of its marks.
#include "scenery/draw/airports_draw.h"

#include <GL/gl.h>

#include "core/math/num.h"
#include "core/records/ren.h"
#include "draw/camera/xcam.h"
#include "draw/gl/colours.h"
#include "draw/gl/frame_counts.h"
#include "draw/gl/ogl.h"
#include "scenery/airports/strip_marks.h"
#include "scenery/ground/runways.h"
#include "scenery/ground/surfaces.h"

namespace {
struct list_struct {
    GLuint name = 0;  // 0 while it has not been built
    int quads = 0;
};
struct airport_lists_struct {
    list_struct ground, marks;
};
struct kept_struct {
    int revision = -1;                        // of the strips that the lists show
    std::vector<airport_lists_struct> lists;  // by index in vec_apt_strips
};
kept_struct kept;
int quads_sent = 0;

// -- colours

struct paint_struct {
    float r, g, b, a;
};
constexpr paint_struct white_paint = {0.92f, 0.92f, 0.9f, 1.0f}, yellow_paint = {0.85f, 0.68f, 0.1f, 1.0f};

paint_struct surface_paint(int surf_tex) {
    switch (surf_tex) {
        case surface_concrete:
        case surface_turn_concrete:
        case surface_pad_concrete:
            return {0.58f, 0.57f, 0.53f, 1.0f};
        case surface_grass:
        case surface_pad_grass:
            return {0.36f, 0.46f, 0.22f, 0.6f};
        case surface_dirt:
        case surface_pad_dirt:
            return {0.55f, 0.45f, 0.32f, 0.7f};
        case surface_gravel:
            return {0.52f, 0.5f, 0.46f, 0.7f};
        case surface_lakebed:
            return {0.78f, 0.71f, 0.58f, 0.6f};
        default:
            return {0.3f, 0.3f, 0.31f, 1.0f};
    }
}

void set_paint(const paint_struct& p, float shade = 1.0f) {
    glColor4f(p.r * shade, p.g * shade, p.b * shade, p.a);
}

// -- one piece: between a row and the next, read from the nearer end of the runway

struct piece_struct {
    const vec_rwy_pol_struct *near, *far;
    int left, right;  // edges as seen from the nearer end
};

// across: 0 left to 1 right; along: 0 near to 1 far.
void send_point(const piece_struct& piece, float across, float along) {
    float at[3];
    for (int axis = 0; axis < 3; ++axis) {
        const float l =
            extrap(0.0f, piece.near->xyz[piece.left][axis], 1.0f, piece.far->xyz[piece.left][axis], along);
        const float r =
            extrap(0.0f, piece.near->xyz[piece.right][axis], 1.0f, piece.far->xyz[piece.right][axis], along);
        at[axis] = extrap(0.0f, l, 1.0f, r, across);
    }
    glVertex3fv(at);
}

// The rectangle, its far edge moved sideways by a slant.
void send_mark(const piece_struct& piece, float left, float near, float right, float far,
               float slant = 0.0f) {
    send_point(piece, left, near);
    send_point(piece, left + slant, far);
    send_point(piece, right + slant, far);
    send_point(piece, right, near);
    ++quads_sent;
}

void send_both_sides(const piece_struct& piece, float left, float near, float right, float far) {
    send_mark(piece, left, near, right, far);
    send_mark(piece, 1.0f - right, near, 1.0f - left, far);
}

// So many bars on each side of the middle.
void send_bars(const piece_struct& piece, int count, float outer, float inner, float near, float far) {
    const float pitch = (inner - outer) / static_cast<float>(count);
    for (int i = 0; i < count; ++i) {
        const float left = outer + static_cast<float>(i) * pitch;
        send_both_sides(piece, left, near, left + 0.6f * pitch, far);
    }
}

// The lines of the edges, and what the row's picture shows between them.
void send_white_marks(const piece_struct& piece, int asphalt_tex) {
    send_both_sides(piece, 0.015f, 0.0f, 0.03f, 1.0f);
    const auto dash = [&] { send_mark(piece, 0.49f, 0.2f, 0.51f, 0.85f); };
    const auto arrow = [&] {
        send_mark(piece, 0.49f, 0.15f, 0.51f, 0.8f);
        send_mark(piece, 0.42f, 0.6f, 0.45f, 0.85f, 0.06f);
        send_mark(piece, 0.55f, 0.6f, 0.58f, 0.85f, -0.06f);
    };
    switch (asphalt_tex) {
        case strip_dis_first:
        case strip_dis_middle:
            return arrow();
        case strip_dis_last:
            arrow();
            return send_mark(piece, 0.03f, 0.92f, 0.97f, 1.0f);
        case strip_thr0:
            return send_mark(piece, 0.03f, 0.05f, 0.97f, 0.1f);
        case strip_thr1:
            return send_bars(piece, 4, 0.08f, 0.46f, 0.1f, 0.85f);
        case strip_thr2:
            return send_bars(piece, 6, 0.08f, 0.46f, 0.1f, 0.85f);
        case strip_semi:
            return send_mark(piece, 0.49f, 0.3f, 0.51f, 1.0f);
        case strip_fdmk:
            send_both_sides(piece, 0.2f, 0.05f, 0.34f, 0.95f);
            return dash();
        case strip_tdz1:
            send_bars(piece, 1, 0.28f, 0.36f, 0.1f, 0.6f);
            return dash();
        case strip_tdz2:
            send_bars(piece, 2, 0.22f, 0.36f, 0.1f, 0.6f);
            return dash();
        case strip_tdz3:
            send_bars(piece, 3, 0.16f, 0.36f, 0.1f, 0.6f);
            return dash();
        case strip_line:
            return dash();
        default:
            return;  // letters and numbers stay blank
    }
}

void send_chevron(const piece_struct& piece) {
    send_mark(piece, 0.05f, 0.2f, 0.12f, 0.8f, 0.38f);
    send_mark(piece, 0.88f, 0.2f, 0.95f, 0.8f, -0.38f);
}

// The letter of a helipad, along its heading.
void send_pad_letter(const piece_struct& piece) {
    send_both_sides(piece, 0.3f, 0.2f, 0.38f, 0.8f);
    send_mark(piece, 0.38f, 0.46f, 0.62f, 0.54f);
}

void send_marks(const piece_struct& piece, int tex) {
    constexpr int last_marked = strip_line + 1;
    const int asphalt_tex = tex % 2 == 1 ? tex : tex - 1;
    if (tex == surface_pad_asphalt || tex == surface_pad_concrete) {
        set_paint(white_paint);
        glBegin(GL_QUADS);
        send_pad_letter(piece);
        glEnd();
        return;
    }
    if (tex > last_marked || asphalt_tex == strip_pave || asphalt_tex == surface_turn_asphalt) return;
    const bool is_blast = asphalt_tex == strip_blast;
    set_paint(is_blast ? yellow_paint : white_paint);
    glBegin(GL_QUADS);
    is_blast ? send_chevron(piece) : send_white_marks(piece, asphalt_tex);
    glEnd();
}

// -- strips

piece_struct piece_at(const std::vector<vec_rwy_pol_struct>& rows, size_t s) {
    if (2 * s + 1 < rows.size()) return {&rows[s], &rows[s + 1], 0, 1};
    return {&rows[s + 1], &rows[s], 1, 0};
}

// Neighbouring rows differ a little, as slabs do, so that speed can be seen.
float shade_of(size_t s) { return 0.98f + 0.01f * static_cast<float>(s * 7 % 5); }

void send_ground(const vec_rwy_geo_struct& strip) {
    const paint_struct ground = surface_paint(strip.surf_tex);
    const std::vector<vec_rwy_pol_struct>& rows = strip.vec_rwy_pol;
    for (size_t s = 0; s + 1 < rows.size(); ++s) {
        glNormal3fv(rows[s].nrm);
        set_paint(ground, shade_of(s));
        glBegin(GL_QUADS);
        send_mark(piece_at(rows, s), 0.0f, 0.0f, 1.0f, 1.0f);
        glEnd();
    }
}

void send_all_marks(const vec_rwy_geo_struct& strip) {
    const std::vector<vec_rwy_pol_struct>& rows = strip.vec_rwy_pol;
    for (size_t s = 0; s + 1 < rows.size(); ++s) {
        glNormal3fv(rows[s].nrm);
        send_marks(piece_at(rows, s), rows[s].tex);
    }
}

// Runways over taxiways, and the first runway over all. Marks of a runway that another covers are drawn where
// they cross.
void build_list(const airport_strips_struct& airport, void (*send)(const vec_rwy_geo_struct&),
                list_struct* list) {
    quads_sent = 0;
    list->name = glGenLists(1);
    glNewList(list->name, GL_COMPILE);
    for (const int is_taxiway : {1, 0})
        for (size_t i = airport.count; i-- > 0;) {
            const vec_rwy_geo_struct& strip = vec_rwy_geo[airport.first + i];
            if (strip.is_taxiway == is_taxiway && strip.surf_tex != surface_water) send(strip);
        }
    glEndList();
    list->quads = quads_sent;
}

void call_list(const airport_strips_struct& airport, void (*send)(const vec_rwy_geo_struct&),
               list_struct* list) {
    if (!list->name) build_list(airport, send, list);
    glCallList(list->name);
    ++frame_counts.lists;
    frame_counts.triangles += 2 * list->quads;
}

bool is_seen(const box_struct& box) {
    if (box.empty()) return false;
    const d3_struct centre = box.centre(), size = box.size();
    return xcam.SphereInView(centre.x, centre.y, centre.z, 0.5f * pythag(size.x, size.y, size.z)) != 0;
}

// Further off a mark is narrower than a pixel, and what is left of it flickers.
bool shows_marks(const box_struct& box) {
    constexpr float far = 4000.0f;  // m
    const float(&eye)[3] = ren.view_xyz;
    return pythag(eye[0] - fltlim(eye[0], box.min_x, box.max_x),
                  eye[1] - fltlim(eye[1], box.min_y, box.max_y),
                  eye[2] - fltlim(eye[2], box.min_z, box.max_z)) < far;
}

void follow_strips() {
    if (kept.revision == strips_revision()) return;
    for (const airport_lists_struct& lists : kept.lists)
        for (const GLuint name : {lists.ground.name, lists.marks.name})
            if (name) glDeleteLists(name, 1);
    kept.lists.assign(vec_apt_strips.size(), {});
    kept.revision = strips_revision();
}
}  // namespace

void plot_airports(int is_map, int is_hits) {
    if (is_hits) return;
    follow_strips();
    OGL_setstate(is_map ? fog_off : fog_on, 0, lit_on, al_blend, depth_read, depth_no_write);
    OGL_poly_offset(2);
    for (size_t i = 0; i < vec_apt_strips.size(); ++i) {
        const airport_strips_struct& airport = vec_apt_strips[i];
        if (!is_map && !is_seen(airport.box)) continue;
        call_list(airport, send_ground, &kept.lists[i].ground);
        if (!is_map && shows_marks(airport.box)) call_list(airport, send_all_marks, &kept.lists[i].marks);
    }
    OGL_poly_offset(0);
    OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, 1.0f, 1);
}

void reset_airports_draw() { kept = {}; }
