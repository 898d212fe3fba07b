// GL switches and projections.
#define GL_GLEXT_PROTOTYPES
#include "draw/gl/ogl.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/logs.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "draw/gl/colours.h"
#include "draw/gl/frame_counts.h"
#include "platform/window.h"

static void set_switch(GLenum which, bool on) {
    if (glIsEnabled(which) == on) return;
    ++frame_counts.states;
    if (on)
        glEnable(which);
    else
        glDisable(which);
}

static void set_texture_units(int wanted) {
    static int num_units = 0, generation = 0;
    if (generation != window_generation) num_units = 0;
    generation = window_generation;
    if (num_units == wanted) return;
    ++frame_counts.states;
    for (; num_units < wanted; ++num_units) {
        glActiveTexture(GL_TEXTURE0 + num_units);
        glEnable(GL_TEXTURE_2D);
    }
    for (; num_units > wanted; --num_units) {
        glActiveTexture(GL_TEXTURE0 + num_units - 1);
        glDisable(GL_TEXTURE_2D);
    }
    glActiveTexture(GL_TEXTURE0);
}

static constexpr int max_units = 6;

static bool arguments_hold(int fog, int tex, int lit, int al, int deR, int deW) {
    if (intrange(fog, fog_on, fog_off) && intrange(tex, 0, max_units) && intrange(lit, lit_on, lit_off) &&
        intrange(al, al_none, al_both) && intrange(deR, depth_read, depth_no_read) &&
        intrange(deW, depth_write, depth_no_write))
        return true;
    MACIBM_fatal("Bad OGLsetstate argument!");
    return false;
}

void OGL_setstate(int fog, int tex, int lit, int al, int deR, int deW) {
    if (!arguments_hold(fog, tex, lit, al, deR, deW)) return;
    set_switch(GL_FOG, fog == fog_on);
    set_texture_units(intmin2(tex, ren.num_tex_units));
    set_switch(GL_LIGHTING, lit == lit_on);
    set_switch(GL_LIGHT0, lit == lit_on);
    set_switch(GL_BLEND, al == al_blend || al == al_both);
    set_switch(GL_ALPHA_TEST, al == al_test || al == al_both);
    set_switch(GL_DEPTH_TEST, deR == depth_read);
    glDepthMask(deW == depth_write);
    OGL_setcolorINDEX(col_state, 1.0f);
}

static void put_switch(GLenum which, bool on) {
    ++frame_counts.states;
    if (on)
        glEnable(which);
    else
        glDisable(which);
}

// The present state cannot be asked here, nor what colours pass through: they are not those in which the list will
// run.
void OGL_setstate_in_list(int fog, int tex, int lit, int al, int deR, int deW) {
    if (!arguments_hold(fog, tex, lit, al, deR, deW)) return;
    put_switch(GL_FOG, fog == fog_on);
    for (int unit = intmin2(max_units, ren.num_tex_units) - 1; unit >= 0; --unit) {
        glActiveTexture(GL_TEXTURE0 + unit);
        put_switch(GL_TEXTURE_2D, unit < tex);
    }
    put_switch(GL_LIGHTING, lit == lit_on);
    put_switch(GL_LIGHT0, lit == lit_on);
    put_switch(GL_BLEND, al == al_blend || al == al_both);
    put_switch(GL_ALPHA_TEST, al == al_test || al == al_both);
    OGL_depth(deR, deW);
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
}

void OGL_depth(int deR, int deW) {
    put_switch(GL_DEPTH_TEST, deR == depth_read);
    OGL_depth_write(deW);
}

void OGL_depth_write(int deW) { glDepthMask(deW == depth_write); }

void OGL_cull(int on) { put_switch(GL_CULL_FACE, on); }

static void whole_window() {
    glViewport(0, 0, mnw.x_res_now, mnw.y_res_now);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
}

static void reset_model_view() {
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void OGL_view_2d() {
    whole_window();
    glOrtho(mnw.x1_pix, mnw.x2_pix, mnw.y1_pix, mnw.y2_pix, -1.0, 1.0);
    reset_model_view();
}

void OGL_view_3d(float FOV, float near_clip, float far_clip) {
    whole_window();
    const float x = near_clip * tan_deg(0.5f * FOV);
    const float y = x * static_cast<float>(mnw.y_res_now) / static_cast<float>(mnw.x_res_now);
    glFrustum(-x, x, -y, y, near_clip, far_clip);
    reset_model_view();
}

void GL_error_check(const char* label) {
    constexpr int most = 16;  // a lost context tells errors without end
    for (int i = 0; i < most; ++i) {
        const GLenum error = glGetError();
        if (error == GL_NO_ERROR) return;
        xer << "OpenGL error " << error << " at " << label << '\n';
    }
}
