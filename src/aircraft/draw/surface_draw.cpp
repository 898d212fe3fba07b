// Display lists of surfaces and the matrices of what moves.
#include "aircraft/draw/surface_draw.h"

#include <GL/gl.h>
#include <math.h>

#include <initializer_list>

#include "aircraft/design/exists.h"
#include "aircraft/mesh/surface_mesh.h"
#include "core/math/num.h"

namespace {
// Lists of one part: the whole at rest, then element by element what is drawn when something moves.
enum surface_list : unsigned {
    list_whole = 0,
    list_rest = 1,
    list_fixed = 1 + elDIM,
    list_control = 1 + 2 * elDIM
};
constexpr int lists_of_part = 1 + 3 * elDIM;

struct lists_struct {
    unsigned first = 0;  // 0 none
    bool is_old = true;
};
lists_struct lists[vehDIM][wingDIM];

constexpr float moves_from = 0.01f;  // degrees

// The ribs round a closed piece of a section.
struct outline_struct {
    int ribs[surface_ribs];
    int count;
};
constexpr outline_struct at_rest = {{0, 1, 2, 3, 4, rib_edge_top, rib_edge_bottom, 9, 10, 11, 12, 13}, 12};
constexpr outline_struct fixed_part = {{0, 1, 2, 3, 4, rib_hinge_top, rib_hinge_bottom, 9, 10, 11, 12, 13},
                                       12};
constexpr outline_struct control_part = {
    {rib_hinge_top, rib_edge_top, rib_edge_bottom, rib_hinge_bottom, rib_hinge_top}, 5};

void emit_skin(const veh_part_struct& part, int el, const outline_struct& outline) {
    glBegin(GL_QUAD_STRIP);
    for (int i = 0; i < outline.count; ++i)
        for (const int s : {2 * el, 2 * el + 1}) {
            glNormal3fv(part.nrm_xyz[s][outline.ribs[i]]);
            glVertex3fv(part.geo_xyz[s][outline.ribs[i]]);
        }
    glEnd();
}

// Closes a piece at a station; side: 1 towards the tip.
void emit_cap(int p, int en, int s, const outline_struct& outline, float side) {
    const veh_wing_struct& wing = veh[p].wing[en];
    glBegin(GL_POLYGON);
    glNormal3f(side * wing.lat_sign * cos_deg(wing.dihed1), side * sin_deg(wing.dihed1), 0.0f);
    for (int i = 0; i < outline.count; ++i) glVertex3fv(veh[p].part[en].geo_xyz[s][outline.ribs[i]]);
    glEnd();
}

void emit_piece(int p, int en, int el, const outline_struct& outline) {
    emit_skin(veh[p].part[en], el, outline);
    emit_cap(p, en, 2 * el, outline, -1.0f);
    emit_cap(p, en, 2 * el + 1, outline, 1.0f);
}

void compile(unsigned list, auto emit) {
    glNewList(list, GL_COMPILE);
    emit();
    glEndList();
}

void compile_surface(int p, int en) {
    lists_struct& own = lists[p][en];
    if (!own.first) own.first = glGenLists(lists_of_part);
    own.is_old = false;
    const veh_part_struct& part = veh[p].part[en];
    const int els = veh[p].wing[en].els;
    compile(own.first + list_whole, [&] {
        for (int el = 0; el < els; ++el) emit_skin(part, el, at_rest);
        emit_cap(p, en, 0, at_rest, -1.0f);
        emit_cap(p, en, 2 * els - 1, at_rest, 1.0f);
    });
    for (int el = 0; el < els; ++el) {
        const unsigned at = static_cast<unsigned>(el);
        compile(own.first + list_rest + at, [&] { emit_piece(p, en, el, at_rest); });
        if (!hinged_control(p, en, el)) continue;
        compile(own.first + list_fixed + at, [&] { emit_piece(p, en, el, fixed_part); });
        compile(own.first + list_control + at, [&] { emit_piece(p, en, el, control_part); });
    }
}

bool control_moves(int p, int en, int el) {
    return hinged_control(p, en, el) && (fabsf(con_def(p, en, el)) > moves_from || flap_has_gone(p, en, el));
}
bool element_turns(int p, int en, int el) { return fabsf(flt[p].wing[en].elem_inc_inc[el]) > moves_from; }

bool is_at_rest(int p, int en) {
    for (int el = 0; el < veh[p].wing[en].els; ++el)
        if (control_moves(p, en, el) || element_turns(p, en, el)) return false;
    return true;
}

// Sweep and dihedral beyond those of the mesh, about the root: back to a flat wing, swept there, raised
// again.
void turn_wing(int p, int en) {
    const float sweep = flt[p].wing[en].foil_swe_inc, rise = flt[p].wing[en].foil_dih_inc;
    if (sweep == 0.0f && rise == 0.0f) return;
    const veh_part_struct& root = veh[p].part[en];
    const veh_wing_struct& wing = veh[p].wing[en];
    const float side = wing.lat_sign;
    glTranslatef(root.part_x, root.part_y, root.part_z);
    glRotatef((wing.dihed1 + rise) * side, 0.0f, 0.0f, 1.0f);
    glRotatef(-sweep * side, 0.0f, 1.0f, 0.0f);
    glRotatef(-wing.dihed1 * side, 0.0f, 0.0f, 1.0f);
    glTranslatef(-root.part_x, -root.part_y, -root.part_z);
}

// Nose up about the outward axis through the root's quarter chord.
void turn_element(int p, int en, int el) {
    const veh_part_struct& root = veh[p].part[en];
    const veh_wing_struct& wing = veh[p].wing[en];
    glTranslatef(root.part_x, root.part_y, root.part_z);
    glRotatef(flt[p].wing[en].elem_inc_inc[el] * wing.lat_sign, cos_deg(wing.dihed1) * wing.lat_sign,
              sin_deg(wing.dihed1), 0.0f);
    glTranslatef(-root.part_x, -root.part_y, -root.part_z);
}

void draw_control(int p, int en, int el, unsigned list) {
    const veh_wing_struct& wing = veh[p].wing[en];
    const float *hinge = wing.co_xyz[2 * el], *axis = wing.ca_xyz[el];
    glPushMatrix();
    glTranslatef(hinge[0], hinge[1], hinge[2]);
    glRotatef(-con_def(p, en, el) * wing.lat_sign, axis[0], axis[1], axis[2]);
    glTranslatef(-hinge[0], -hinge[1], -hinge[2]);
    glCallList(list);
    glPopMatrix();
}

void draw_element(int p, int en, int el) {
    const unsigned first = lists[p][en].first, at = static_cast<unsigned>(el);
    const bool turns = element_turns(p, en, el);
    if (turns) {
        glPushMatrix();
        turn_element(p, en, el);
    }
    if (!control_moves(p, en, el)) {
        glCallList(first + list_rest + at);
    } else {
        glCallList(first + list_fixed + at);
        if (!flap_has_gone(p, en, el)) draw_control(p, en, el, first + list_control + at);
    }
    if (turns) glPopMatrix();
}

void draw_surface(int p, int en) {
    if (veh[p].wing[en].els < 1) return;
    if (lists[p][en].is_old) compile_surface(p, en);
    glPushMatrix();
    turn_wing(p, en);
    if (is_at_rest(p, en))
        glCallList(lists[p][en].first + list_whole);
    else
        for (int el = 0; el < veh[p].wing[en].els; ++el) draw_element(p, en, el);
    glPopMatrix();
}
}  // namespace

void draw_surfaces(int p) {
    for (int en = part_wing_first; en < wingDIM; ++en)
        if (has_this_wing(p, en)) draw_surface(p, en);
}

void surfaces_are_old(int p) {
    for (lists_struct& own : lists[p]) own.is_old = true;
}

void forget_surface_lists() {
    for (auto& plane : lists)
        for (lists_struct& own : plane) own = {};
}
