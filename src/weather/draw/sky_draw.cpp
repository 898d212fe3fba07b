// The dome's texture, the stars' lists and the line of lightning.
#include "weather/draw/sky_draw.h"

#include <GL/gl.h>
#include <string.h>

#include "draw/camera/xcam.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/images/image_place.h"
#include "draw/images/tman.h"
#include "platform/window.h"
#include "weather/sky/lightning.h"
#include "weather/sky/skyc.h"
#include "weather/sky/stars.h"

void upload_sky() {
    OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
    memcpy(scratch_array, skyc.sky_256, sizeof skyc.sky_256);
    scratch_dx = sky_headingDIM, scratch_dy = sky_heightDIM;
    tman.load_texture(1, load_ogl, tex_sky, filter_rgb, "scratch_array-t_tex_sky");
}

// Each pass of the same line is thinner and brighter.
void ligt_class::plot() const {
    constexpr float around = 1000.0f;  // m
    const float* const head = strike_xyz[0][0];
    if (!(strike_alpha > 0.0f) || !xcam.SphereInView(head[0], head[1], head[2], around)) return;
    OGL_setstate(fog_off, 0, lit_off, al_blend, depth_read, depth_no_write);
    const struct {
        float width, alpha;
    } passes[] = {{12.0f, 0.05f}, {6.0f, 0.15f}, {3.0f, 0.3f}, {1.0f, 0.6f}};
    for (const auto& pass : passes) {
        glLineWidth(pass.width);
        OGL_setcolorINDEX(col_lightning, pass.alpha * strike_alpha);
        for (const auto& branch : strike_xyz) {
            glBegin(GL_LINE_STRIP);
            for (const auto& joint : branch) glVertex3fv(joint);
            glEnd();
        }
    }
    glLineWidth(1.0f);
}

// Lists went with the window that held them.
void star_class::compile_lists() {
    if (generation == window_generation && !has_changed) return;
    if (generation != window_generation)
        for (int& list : DL_stars) list = 0;
    generation = window_generation;
    has_changed = false;
    for (int i = 0; i < star_listDIM; ++i) {
        if (DL_stars[i] == 0) DL_stars[i] = static_cast<int>(glGenLists(1));
        glNewList(static_cast<GLuint>(DL_stars[i]), GL_COMPILE);
        glBegin(GL_POINTS);
        for (const star_place& star : places[i]) glVertex3f(star.x, star.y, star.z);
        glEnd();
        glEndList();
    }
}

void star_class::star_plot(float brat_star, float view_sig_earth_rat) {
    compile_lists();
    float alpha[star_listDIM];
    star_alphas(brat_star, view_sig_earth_rat, alpha);
    OGL_setstate(fog_off, 0, lit_off, al_blend, depth_no_read, depth_no_write);
    for (int i = 0; i < star_listDIM; ++i) {
        if (alpha[i] <= 0.0f) continue;
        glPointSize(i == 0 ? 2.0f : 1.0f);
        OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, alpha[i], 1);
        glCallList(static_cast<GLuint>(DL_stars[i]));
    }
    glPointSize(1.0f);
}

// There is no cloud volume yet.
void cloud_plot() { ligt.plot(); }
