// Every object that the packages export, by day and by night, as one picture: for a look at the work of
// whoever makes objects. Lamps are points, smoke is left out.
#include <GL/gl.h>
#include <math.h>
#include <stdio.h>

#include <string>
#include <vector>

#include "app/init_sim.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/program/seams.h"
#include "core/records/mnw.h"
#include "core/records/records.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/images/screenshot.h"
#include "draw/type.h"
#include "platform/window.h"
#include "scenery/draw/object_draw.h"
#include "scenery/objects/object_build.h"
#include "scenery/objects/objects.h"
#include "scenery/packages/library.h"
#include "ui/screens/start_screen.h"

namespace {
bool night = false;

struct entry {
    std::string name;
    int M;
};

// part: of the name or of the file's path.
std::vector<entry> load_objects(const std::string& part) {
    std::vector<entry> all;
    for (const auto& [name, files] : dsf_library) {
        const bool wanted = (name + files.front()).find(part) != std::string::npos;
        if (!wanted || name.size() < 4 || name.substr(name.size() - 4) != ".obj") continue;
        const int M = build_obs_lib(name);
        if (M < 0) fprintf(stderr, "%s cannot be loaded\n", name.c_str());
        const size_t slash = name.rfind('/') + 1;
        if (M >= 0) all.push_back({name.substr(slash, name.size() - 4 - slash), M});
    }
    return all;
}

// -- lamps

void watch_lamps() {
    object_calls.lites_on = [](int) { return night ? 1 : 0; };
    object_calls.lite_init = [](int) {
        OGL_setstate(fog_off, 0, lit_off, al_blend, depth_read, depth_no_write);
        glPointSize(4.0f);
    };
    object_calls.lite_draw = [](const float* p, float r, float g, float b, float a, float, int, int, int) {
        glBegin(GL_POINTS);
        glColor4f(r, g, b, a);
        glVertex3fv(p);
        glEnd();
    };
}

// -- one field of the sheet

struct field {
    int x, y, dx, dy;  // pixels, from below
};

void backdrop(const field& at) {
    glViewport(at.x, at.y, at.dx, at.dy);
    glScissor(at.x, at.y, at.dx, at.dy);
    glEnable(GL_SCISSOR_TEST);
    glClear(GL_DEPTH_BUFFER_BIT);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    OGL_setstate(fog_off, 0, lit_off, al_none, depth_no_read, depth_no_write);
    const float day[3][3] = {{0.40f, 0.48f, 0.30f}, {0.78f, 0.84f, 0.88f}, {0.42f, 0.60f, 0.84f}};
    const float dark[3][3] = {{0.06f, 0.08f, 0.07f}, {0.13f, 0.15f, 0.22f}, {0.03f, 0.04f, 0.09f}};
    const auto& colours = night ? dark : day;
    constexpr float horizon = -0.1f;
    glBegin(GL_QUADS);  // clockwise
    const auto band = [](float y1, const float* c1, float y2, const float* c2) {
        glColor3fv(c1);
        glVertex2f(1.0f, y1);
        glVertex2f(-1.0f, y1);
        glColor3fv(c2);
        glVertex2f(-1.0f, y2);
        glVertex2f(1.0f, y2);
    };
    band(-1.0f, colours[0], horizon, colours[0]);
    band(horizon, colours[1], 1.0f, colours[2]);
    glEnd();
}

// From in front, a little to the right and above. The eye is so far away that the whole box is seen.
void look_at(const vec_mod_struct& mod, const field& at) {
    constexpr float view_deg = 30.0f, heading = -32.0f, pitch = 13.0f;
    const float half = tan_deg(0.5f * view_deg),
                aspect = static_cast<float>(at.dx) / static_cast<float>(at.dy);
    const float away = 0.54f * mod.cull_radius / half / fltmin2(aspect, 1.0f);
    const float near_clip = 0.1f * away, far_clip = 4.0f * away;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glFrustum(-near_clip * half * aspect, near_clip * half * aspect, -near_clip * half, near_clip * half,
              near_clip, far_clip);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glTranslatef(0.0f, 0.0f, -away);
    glRotatef(pitch, 1.0f, 0.0f, 0.0f);
    glRotatef(heading, 0.0f, 1.0f, 0.0f);
    const float* const c = mod.cull_center_xyz;
    glTranslatef(-c[0], -c[1], -c[2]);
}

void light_scene() {
    const float sun[4] = {0.35f, 0.65f, 0.7f, 0.0f};
    const float direct = night ? 0.10f : 0.75f, sky = night ? 0.16f : 0.40f;
    const float diffuse[4] = {direct, direct, direct, 1.0f}, ambient[4] = {sky, sky, sky * 1.1f, 1.0f};
    glLightfv(GL_LIGHT0, GL_POSITION, sun);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse);
    glLightfv(GL_LIGHT0, GL_AMBIENT, ambient);
}

void draw_field(const entry& object, const field& at) {
    backdrop(at);
    look_at(vec_mod[object.M], at);
    light_scene();
    object_state(object.M, night);
    plot_obj_inloop(object.M, 0, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, night);
    glDisable(GL_SCISSOR_TEST);
}

void label(const entry& object, const field& at) {
    OGL_setstate(fog_off, 1, lit_off, al_blend, depth_no_read, depth_no_write);
    OGL_string(night ? col_help : col_black, static_cast<float>(at.x + 6),
               static_cast<float>(at.y + at.dy - 16), object.name, 0.0f, charset_text);
}

void draw_sheet(const std::vector<entry>& objects) {
    const int count = static_cast<int>(objects.size()), columns = intmin2(6, count);
    const int rows = 2 * ((count + columns - 1) / columns);
    const int dx = mnw.x_res_now / columns, dy = mnw.y_res_now / rows;
    glDepthMask(1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    for (const bool with_labels : {false, true}) {
        if (with_labels) OGL_view_2d();
        for (size_t i = 0; i < objects.size(); ++i)
            for (const int by_night : {0, 1}) {
                night = by_night;
                const int column = static_cast<int>(i) % columns,
                          row = 2 * (static_cast<int>(i) / columns) + by_night;
                const field at = {column * dx + 1, mnw.y_res_now - (row + 1) * dy + 1, dx - 2, dy - 2};
                if (with_labels)
                    label(objects[i], at);
                else
                    draw_field(objects[i], at);
            }
    }
}
}  // namespace

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3 || argv[1][0] == '-') {
        fprintf(stderr,
                "%s FILE.png [PACKAGE]    draws every object that the packages export, or this one, by day "
                "and night\n",
                argv[0]);
        return 2;
    }
    seams_headless();
    seam.has_display = 1;
    init_sim(executable_folder() + "../Orvelle/");
    DSF_ScanSceneryFolder();
    mnw.tex_res = 5;
    glFogf(GL_FOG_START, 1e6f);
    glFogf(GL_FOG_END, 2e6f);
    mnw.totl_time = 0.0f;  // when all that flashes burns
    watch_lamps();
    const std::vector<entry> objects = load_objects(argc > 2 ? argv[2] : "");
    if (!objects.empty()) draw_sheet(objects);
    const bool saved = !objects.empty() && save_screenshot(argv[1]);
    MACIBM_finishup(0);
    return saved ? 0 : 1;
}
