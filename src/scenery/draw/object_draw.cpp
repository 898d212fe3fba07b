// One object on the screen: its list by day or night, then its actions.
#define GL_GLEXT_PROTOTYPES
#include "scenery/draw/object_draw.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "draw/gl/colours.h"
#include "draw/gl/frame_counts.h"
#include "draw/gl/gl_facts.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "platform/window_x11.h"
#include "scenery/objects/objects.h"
#include "weather/puffs.h"
#include "weather/draw/point_lights.h"
#include "weather/sky/skyc.h"

object_calls_struct object_calls = {
    util_point_lite_init,
    util_point_lite_setref,
    util_point_lite_draw,
    util_point_lite_close,
    [](int code) { return skyc.any_lites_on(code); },
    [](float x, float y, float z, float vx, float vy, float vz, float size, int color, float alpha) {
        puff.spawn_puff(x, y, z, vx, vy, vz, size, color, alpha);
    },
};

// -- state

namespace {
int tex_units_now = 0;  // units that texture, as far as objects are concerned

// The form of one plot.
struct plot_struct {
    int M, L;
    int use_tex1, use_tex2;
    bool compiling;  // the commands go into a list
    int units() const { return use_tex1 + use_tex2; }
    const vec_mod_struct& mod() const { return vec_mod[M]; }
    const vec_lod_struct& lod() const { return mod().vec_lod[L]; }
};

plot_struct plot_of(int M, int L, int lit) {
    const vec_mod_struct& mod = vec_mod[M];
    return {M, L, mod.tex_ref_1 != 0, mod.tex_ref_2 != 0 && lit && add_env_avail, false};
}

void set_state(const plot_struct& plot, int fog, int tex, int lit, int al) {
    if (plot.compiling)
        OGL_setstate_in_list(fog, tex, lit, al, depth_read, depth_write);
    else
        OGL_setstate(fog, tex, lit, al, depth_read, depth_write);
    tex_units_now = intmin2(tex, ren.num_tex_units);
}

void own_state(const plot_struct& plot) {
    set_state(plot, fog_on, plot.units(), lit_on, al_both);
    if (plot.use_tex1) tman.bind_ref(plot.mod().tex_ref_1, 0, combine_default);
    if (plot.use_tex2) tman.bind_ref(plot.mod().tex_ref_2, 1, combine_add);
}

void material(GLenum which, float r, float g, float b) {
    const float rgba[4] = {r, g, b, 1.0f};
    glMaterialfv(GL_FRONT_AND_BACK, which, rgba);
}

void reset_material() {
    material(GL_AMBIENT, 0.2f, 0.2f, 0.2f);
    material(GL_DIFFUSE, 0.8f, 0.8f, 0.8f);
    material(GL_SPECULAR, 0.0f, 0.0f, 0.0f);
    material(GL_EMISSION, 0.0f, 0.0f, 0.0f);
    glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, 0.0f);
    glShadeModel(GL_SMOOTH);
    OGL_cull(1);
    OGL_depth(depth_read, depth_write);
}
}  // namespace

void object_state(int M, int lit) { own_state(plot_of(M, 0, lit)); }

void OBJ_tex_units(int new_tex) {
    new_tex = intmin2(new_tex, ren.num_tex_units);
    if (new_tex == tex_units_now) return;
    for (; tex_units_now < new_tex; ++tex_units_now) {
        glActiveTexture(GL_TEXTURE0 + tex_units_now);
        glEnable(GL_TEXTURE_2D);
    }
    for (; tex_units_now > new_tex; --tex_units_now) {
        glActiveTexture(GL_TEXTURE0 + tex_units_now - 1);
        glDisable(GL_TEXTURE_2D);
    }
    glActiveTexture(GL_TEXTURE0);
}

// -- display commands

namespace {
void begin(const plot_struct& plot, GLenum shape) {
    OBJ_tex_units(plot.units());
    glBegin(shape);
}

void begin_cockpit(const plot_struct& plot) {
    set_state(plot, fog_off, 2, lit_off, al_test);
    tman.bind_ref(tex_cockpit_3d, 0, combine_modulate);
    tman.bind_ref(tex_cockpit_3d_alpha, 1, combine_modulate);
    glBegin(GL_QUADS);
}

void line_vertex(const float* dat) {
    constexpr float alpha = 0.5f;
    glColor4f(dat[3], dat[4], dat[5], alpha);
    glVertex3fv(dat);
}

void textured_vertex(const float* dat) {
    if (tex_units_now >= 2) {
        glMultiTexCoord2f(GL_TEXTURE0, dat[3], dat[4]);
        glMultiTexCoord2f(GL_TEXTURE1, dat[3], dat[4]);
    } else {
        glTexCoord2f(dat[3], dat[4]);
    }
    glVertex3fv(dat);
}

void set_poly_offset(float steps) {
    OGL_poly_offset(intcut(steps));
    OGL_depth_write(steps > 0.0f ? depth_no_write : depth_write);
}

void display_command(const plot_struct& plot, const vec_act_struct& act) {
    const float* const dat = act.dat;
    switch (act.act) {
        case obj_line:
            OBJ_tex_units(0);
            glBegin(GL_LINES);
            break;
        case obj_tri:
            begin(plot, GL_TRIANGLES);
            break;
        case obj_quad:
        case obj_quad_hard:
            begin(plot, GL_QUADS);
            break;
        case obj_quad_cockpit:
            begin_cockpit(plot);
            break;
        case obj_polygon:
            begin(plot, GL_POLYGON);
            break;
        case obj_quad_strip:
            begin(plot, GL_QUAD_STRIP);
            break;
        case obj_tri_strip:
            begin(plot, GL_TRIANGLE_STRIP);
            break;
        case obj_tri_fan:
            begin(plot, GL_TRIANGLE_FAN);
            break;
        case obj_normal:
            glNormal3fv(dat);
            break;
        case obj_vert_line:
            line_vertex(dat);
            break;
        case obj_vert_tex:
            textured_vertex(dat);
            break;
        case obj_end_line:
            glEnd();
            glColor4f(1.0f, 1.0f, 1.0f, 1.0f);  // or what follows would take the line's colour
            break;
        case obj_end_poly:
            glEnd();
            break;
        case obj_end_cockpit:
            glEnd();
            own_state(plot);
            break;
        case obj_shade_flat:
            glShadeModel(GL_FLAT);
            break;
        case obj_shade_smooth:
            glShadeModel(GL_SMOOTH);
            break;
        case obj_ambient:
            material(GL_AMBIENT, dat[0], dat[1], dat[2]);
            break;
        case obj_diffuse:
            material(GL_DIFFUSE, dat[0], dat[1], dat[2]);
            break;
        case obj_specular:
            material(GL_SPECULAR, dat[0], dat[1], dat[2]);
            break;
        case obj_emission:
            material(GL_EMISSION, dat[0], dat[1], dat[2]);
            break;
        case obj_shiny:  // OpenGL knows no others
            glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, fltlim(dat[0], 0.0f, 128.0f));
            break;
        case obj_no_depth:
            OGL_depth(depth_no_read, depth_no_write);
            break;
        case obj_depth:
            OGL_depth(depth_read, depth_write);
            break;
        case obj_no_cull:
            OGL_cull(0);
            break;
        case obj_cull:
            OGL_cull(1);
            break;
        case obj_poly_os:
            set_poly_offset(dat[0]);
            break;
        case obj_reset:
            reset_material();
            break;
        default:
            break;  // an action
    }
}

// Leaves texture units and offset as they were before, so that instances of a batch do not meet them.
void display_commands(const plot_struct& plot) {
    bool offset = false;
    for (const vec_act_struct& act : plot.lod().vec_act) {
        display_command(plot, act);
        if (act.act == obj_poly_os) offset = intcut(act.dat[0]) != 0;
    }
    OBJ_tex_units(plot.units());
    if (offset) OGL_poly_offset(0);
}

void compile(plot_struct plot, int lit) {
    vec_lod_struct& lod = vec_mod[plot.M].vec_lod[plot.L];
    int& list = lit ? lod.dl_nit : lod.dl_day;
    if (list == 0) list = static_cast<int>(glGenLists(1));
    own_state(plot);
    tman.reset_bind();  // binds of the list itself must go into it, whatever is bound now
    plot.compiling = true;
    glNewList(static_cast<GLuint>(list), GL_COMPILE);
    display_commands(plot);
    glEndList();
}

// -- actions

void poly_puff(const vec_act_struct& act, float x, float y, float z, float psi, int color) {
    const float* const at = act.dat;
    const float size = act.dat[3];
    if (!(size > 0.0f)) return;
    constexpr float alpha = 1.0f;
    const float s = sin_deg(psi), c = cos_deg(psi);
    object_calls.spawn_puff(x + at[0] * c - at[2] * s, y + at[1], z + at[0] * s + at[2] * c, 0.0f, size, 0.0f,
                            size, color, alpha);
}

bool is_code(float r, float code) { return fabsf(r - code) < 0.01f; }

// A tenth of a second of each second; the place of the object is its phase.
bool blinks(float place) { return intround(mnw.totl_time * 10.0f + place) % 10 == 0; }

struct lamp_struct {
    float r, g, b;
    bool burns;
};

lamp_struct traffic_light(float x) {
    constexpr int green_until = 3, yellow_until = 5, cycle = 10;  // seconds
    const int phase = intcut(mnw.totl_time + x) % cycle;
    if (phase <= green_until) return {0.0f, 1.0f, 0.0f, true};
    if (phase <= yellow_until) return {1.0f, 1.0f, 0.0f, true};
    return {1.0f, 0.0f, 0.0f, true};
}

lamp_struct lamp_now(float r, float g, float b, float x, float z) {
    constexpr float pulsing_red = 9.9f, strobe = 9.8f, traffic = 9.7f;
    if (r < 0.0f || g < 0.0f || b < 0.0f) return {-r, -g, -b, blinks(z)};
    if (is_code(r, pulsing_red)) return {pulse(x), 0.0f, 0.0f, true};
    if (is_code(r, strobe)) return {1.0f, 1.0f, 1.0f, blinks(x)};
    if (is_code(r, traffic)) return traffic_light(x);
    return {r, g, b, true};
}

void point_light(const plot_struct& plot, int C, const vec_act_struct& act, float x, float z) {
    const lamp_struct lamp = lamp_now(act.dat[3], act.dat[4], act.dat[5], x, z);
    if (!lamp.burns) return;
    constexpr float alpha = 1.0f, size = 2.0f;
    const auto held = [](float part) { return fltlim(part, 0.0f, 1.0f); };
    object_calls.lite_draw(act.dat, held(lamp.r), held(lamp.g), held(lamp.b), alpha, size, plot.M, C + plot.M,
                           lite_plain);
}

// -- movies: the present frame is a cell of a grid in the movie's picture

int movie_corner = 0;

void begin_movie(const plot_struct& plot, int lites_on) {
    set_state(plot, fog_on, lites_on ? 2 : 1, lit_on, al_test);
    if (lites_on) tman.bind_ref(tex_movie, 1, combine_add);
    glBegin(GL_QUADS);
}

void movie_vertex(const float* dat, int lites_on) {
    if (!lites_on) {
        glTexCoord2f(dat[3], dat[4]);
        glVertex3fv(dat);
        return;
    }
    constexpr int columns = 5, rows = 7, cycle = 40;
    constexpr float frames_per_sec = 3.0f, cell_s = 204.0f / 1024.0f, cell_t = 146.0f / 1024.0f;
    const int frame = intlim(intround(mnw.totl_time * frames_per_sec) % cycle, 0, columns * rows - 1);
    movie_corner = (movie_corner + 1) % 4;
    const bool right = movie_corner <= 1, upper = movie_corner == 0 || movie_corner == 3;
    const float s = static_cast<float>(frame % columns) * cell_s + (right ? cell_s : 0.0f);
    const float t = static_cast<float>(frame / columns) * cell_t + (upper ? cell_t : 0.0f);
    glMultiTexCoord2f(GL_TEXTURE0, dat[3], dat[4]);
    glMultiTexCoord2f(GL_TEXTURE1, s, t);
    glVertex3fv(dat);
}

void end_movie(const plot_struct& plot) {
    glEnd();
    own_state(plot);  // the next of the batch must not meet the movie
}

void run_actions(const plot_struct& plot, float x, float y, float z, float psi, int lites_on) {
    const std::vector<vec_act_struct>& acts = plot.lod().vec_act;
    for (size_t i = 0; i < acts.size(); ++i) {
        const vec_act_struct& act = acts[i];
        const int C = static_cast<int>(i);
        switch (act.act) {
            case obj_smoke_black:
                if (mnw.puff05) poly_puff(act, x, y, z, psi, puff_black);
                break;
            case obj_smoke_white:
                if (mnw.puff05) poly_puff(act, x, y, z, psi, puff_white);
                break;
            case obj_light:
                if (lites_on) object_calls.lite_init(0);
                break;
            case obj_vert_light:
                if (lites_on) point_light(plot, C, act, x, z);
                break;
            case obj_end_light:
                if (!lites_on) break;
                object_calls.lite_close();
                own_state(plot);
                break;
            case obj_quad_movie:
                begin_movie(plot, lites_on);
                break;
            case obj_vert_movie:
                movie_vertex(act.dat, lites_on);
                break;
            case obj_end_movie:
                end_movie(plot);
                break;
            case obj_quad_hard:  // found without drawing (scenery/ground/roofs.h)
            case obj_normal:
            case obj_vert_tex:
                break;
            default:
                MACIBM_data_fault("An object has a polygon TYPE that is not an action-list!", plot.mod().path,
                                  "", "");
        }
    }
}

// -- plots

// Upright on the curved planet in the flat frame of the region.
void place_object(float x, float y, float z, float psi, float the, float phi) {
    glTranslatef(x, y, z);
    glRotatef(ren.deg_per_mtr_x * x, 0.0f, 0.0f, -1.0f);
    glRotatef(ren.deg_per_mtr_z * z, 1.0f, 0.0f, 0.0f);
    glRotatef(psi, 0.0f, -1.0f, 0.0f);
    glRotatef(the, 1.0f, 0.0f, 0.0f);
    glRotatef(phi, 0.0f, 0.0f, -1.0f);
}

// The last level whose range holds the distance; -1 for none.
int level_at(const vec_mod_struct& mod, float x, float y, float z) {
    if (mod.vec_lod.size() == 1) return 0;
    const float dis_sqr = sqr(x - ren.view_xyz[0]) + sqr(y - ren.view_xyz[1]) + sqr(z - ren.view_xyz[2]);
    int level = -1;
    for (size_t L = 0; L < mod.vec_lod.size(); ++L)
        if (fltrange(dis_sqr, mod.vec_lod[L].dis_near_sqr, mod.vec_lod[L].dis_far_sqr))
            level = static_cast<int>(L);
    return level;
}

void plot_build_obj(const plot_struct& plot, float x, float y, float z, float psi, float the, float phi,
                    int lit) {
    const vec_lod_struct& lod = plot.lod();
    glPushMatrix();
    place_object(x, y, z, psi, the, phi);
    glCallList(static_cast<GLuint>(lit ? lod.dl_nit : lod.dl_day));
    ++frame_counts.lists;
    frame_counts.triangles += lod.triangles;
    if (lod.binds_in_list) tman.reset_bind();
    if (!lod.vec_act.empty()) {
        const int lites_on = object_calls.lites_on(plot.M);
        if (lites_on) object_calls.lite_setref(x, y, z, 0.0f, psi, 0.0f);
        run_actions(plot, x, y, z, psi, lites_on);
    }
    glPopMatrix();
    reset_material();
}

bool is_level(int M, int L) {
    return intrange(M, 0, static_cast<int>(vec_mod.size()) - 1) &&
           intrange(L, 0, static_cast<int>(vec_mod[M].vec_lod.size()) - 1);
}
}  // namespace

void plot_obj(int M, int L, float x, float y, float z, float psi, float the, float phi, int lit,
              int DL_type) {
    if (!cx || !is_level(M, L)) return;
    if (DL_type == plot_list) L = level_at(vec_mod[M], x, y, z);
    if (L < 0) return;
    const plot_struct plot = plot_of(M, L, lit);
    switch (DL_type) {
        case plot_compile:
            compile(plot, lit);
            break;
        case plot_list:
            own_state(plot);
            plot_build_obj(plot, x, y, z, psi, the, phi, lit);
            break;
        default:
            own_state(plot);
            display_commands(plot);
    }
}

void plot_obj_inloop(int M, int L, float x, float y, float z, float psi, float the, float phi, int lit) {
    if (!cx || !is_level(M, L)) return;
    const plot_struct plot = plot_of(M, L, lit);
    tex_units_now = intmin2(plot.units(), ren.num_tex_units);
    plot_build_obj(plot, x, y, z, psi, the, phi, lit);
}
