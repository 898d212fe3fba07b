// Aircraft in the ground scene.
#include "aircraft/draw/geometry.h"

#include <GL/gl.h>

#include "aircraft/draw/lamps.h"
#include "aircraft/draw/outline.h"
#include "aircraft/draw/surface_draw.h"
#include "aircraft/mesh/surface_mesh.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "draw/camera/xcam.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "platform/window.h"

namespace {
struct list_struct {
    unsigned DL = 0;  // 0 none
    unsigned long long shape = 0;
    bool is_old = true;
};
struct geometry_state {
    list_struct airframe[vehDIM];
    int generation = 0;  // of the window that holds the lists
};
geometry_state state;

void forget_lists_of_another_window() {
    if (state.generation == window_generation) return;
    state = {};
    forget_surface_lists();
    state.generation = window_generation;
}

void draw_airframe(int p) {
    list_struct& list = state.airframe[p];
    const unsigned long long shape = shape_now(p);
    if (list.is_old || list.shape != shape) {
        if (!list.DL) list.DL = glGenLists(1);
        glNewList(list.DL, GL_COMPILE);
        emit_airframe(p);
        glEndList();
        list.shape = shape, list.is_old = false;
    }
    glCallList(list.DL);
}

// Summed in double: OpenGL's float would lose a centimetre far from the region's centre.
void go_to_plane(const flt_struct& f) {
    xcam_class camera = xcam;
    camera.Translate(f.dob_x, f.dob_y, f.dob_z);
    camera.Rotate(-f.psi, 0.0, 1.0, 0.0);
    camera.Rotate(f.the, 1.0, 0.0, 0.0);
    camera.Rotate(-f.phi, 0.0, 0.0, 1.0);
    glLoadMatrixd(camera.ModelView());
}

// Grey paint, dark legs, discs that one sees through, lamps.
void draw_plane(int p) {
    glPushMatrix();
    go_to_plane(flt[p]);
    OGL_setstate(fog_on, 0, lit_on, al_none, depth_read, depth_write);
    OGL_setcolorRGBA(0.86f, 0.87f, 0.88f, 1.0f, 1);
    draw_airframe(p);
    draw_surfaces(p);
    OGL_setcolorRGBA(0.22f, 0.22f, 0.23f, 1.0f, 1);
    emit_legs(p);
    OGL_setstate(fog_on, 0, lit_on, al_blend, depth_read, depth_no_write);
    OGL_setcolorRGBA(0.15f, 0.15f, 0.16f, 0.25f, 1);
    emit_discs(p);
    draw_lamps(p);
    glPopMatrix();
}
}  // namespace

void load_plane_geo(int, int, int, int p) {
    for (int en = 0; en < wingDIM; ++en) build_surface_mesh(p, en);
    state.airframe[p].is_old = true;
    surfaces_are_old(p);
}

void plot_airplanes(int is_map) {
    if (is_map) return;
    forget_lists_of_another_window();
    OGL_cull(0);
    const int planes = TVPGetNumberPlanesToHandle(stg.num_acf, 0);
    for (int p = view_is_external() ? 0 : 1; p < planes; ++p)
        if (veh[p].name[0]) draw_plane(p);
    OGL_cull(1);
}

void reset_plane_geo() {
    for (int p = 0; p < vehDIM; ++p) {
        state.airframe[p].is_old = true;
        surfaces_are_old(p);
    }
}
