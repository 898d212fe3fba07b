// Objects in a real context: their pixels, the state that they leave, and what lamps and smoke are asked for.
#include "scenery/draw/object_draw.h"

#include <GL/gl.h>
#include <math.h>

#include <filesystem>
#include <sstream>

#include "../draw/pictures.h"
#include "core/disk/paths.h"
#include "core/program/seams.h"
#include "core/records/env.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "draw/gl/gl_facts.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "platform/window.h"
#include "scenery/objects/object_build.h"
#include "scenery/objects/objects.h"
#include "support.h"
#include "xvfb.h"

namespace {
constexpr int side = 200;  // pixels; a metre is 10 of them, the origin in the middle

std::vector<std::string> calls;

template <typename... T>
void record(const char* name, T... values) {
    std::ostringstream out;
    out << name;
    ((out << ' ' << values + 0), ...);
    calls.push_back(out.str());
}

class object_draw_test : public test::system_test {
protected:
    void SetUp() override {
        system_test::SetUp();
        init_paths(folder.path());
        clear_objects();
        mnw.x_res_now = mnw.y_res_now = side, mnw.tex_res = 5;
        ren.FOV = 45.0f;
        compute_screen_scale();
        ASSERT_EQ(MACIBM_getcontext(), 1);
        window_fixed_gl_state();
        read_gl_facts();
        OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
        write_picture("Resources/bitmaps/blank.png", 255, 255, 255);
        ASSERT_EQ(tman.load_texture(1, load_ogl, tex_blank, filter_rgb, "blank.png"), tex_blank);
        clear_screen();
        calls.clear();
        lites = 0;
        object_calls = {[](int textured) { record("init", textured); },
                        [](float x, float y, float z, float the, float psi, float phi) {
                            record("setref", x, y, z, the, psi, phi);
                        },
                        [](const float* p, float r, float g, float b, float a, float size, int i1, int i2,
                           int type) { record("lamp", p[0], p[1], p[2], r, g, b, a, size, i1, i2, type); },
                        [] { record("close"); },
                        [](int code) { return lites && code >= 0 ? 1 : 0; },
                        [](float x, float y, float z, float vx, float vy, float vz, float size, int colour,
                           float alpha) { record("puff", x, y, z, vx, vy, vz, size, colour, alpha); }};
    }
    void TearDown() override {
        object_calls = before;
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        window_close();
        clear_objects();
    }
    void write_picture(const std::string& name, int r, int g, int b) {
        test::bytes samples;
        for (int i = 0; i < 4; ++i)
            for (const int c : {r, g, b}) samples.push_back(static_cast<unsigned char>(c));
        folder.write(name, test::png_bytes({2, 2, PNG_COLOR_TYPE_RGB, samples}));
    }
    // White light along the view, so that a face towards it shows its texture's colour; the eye looks north,
    // orthographically.
    static void clear_screen() {
        const float towards[4] = {0, 0, 1, 0}, white[4] = {1, 1, 1, 1}, dim[4] = {0.2f, 0.2f, 0.2f, 1};
        OGL_view_2d();
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(-10, 10, -10, 10, -1000, 1000);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glLightfv(GL_LIGHT0, GL_POSITION, towards);
        glLightfv(GL_LIGHT0, GL_DIFFUSE, white);
        glLightfv(GL_LIGHT0, GL_AMBIENT, dim);  // shows what faces away
        glFogf(GL_FOG_START, 1e5f), glFogf(GL_FOG_END, 2e5f);
        glDepthMask(1);
        glClearColor(0, 0, 0, 0);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    }
    int build(const std::string& body, const std::string& texture = "none") {
        static int count = 0;
        const std::string name = "o" + std::to_string(++count) + ".obj";
        folder.write(name, "A\n700\nOBJ\n\n" + texture + "\n\n" + body + "\nend\n");
        return build_obs(name, 1);
    }
    // The colour at a place in metres.
    static std::string at(float x, float y) {
        unsigned char p[3];
        glReadPixels(side / 2 + static_cast<int>(x * 10), side / 2 + static_cast<int>(y * 10), 1, 1, GL_RGB,
                     GL_UNSIGNED_BYTE, p);
        std::ostringstream out;
        out << int{p[0]} << ' ' << int{p[1]} << ' ' << int{p[2]};
        return out.str();
    }
    static void plot(int M, int lit = 0, float x = 0.0f, float y = 0.0f, float psi = 0.0f, float phi = 0.0f) {
        plot_obj(M, 0, x, y, 0.0f, psi, 0.0f, phi, lit, plot_list);
    }
    static std::string recorded() {
        std::string out;
        for (const std::string& call : calls) out += call + "\n";
        calls.clear();
        return out;
    }
    static int lites;
    const object_calls_struct before = object_calls;
    test::temp_folder folder;
    test::xvfb screen_;
};
int object_draw_test::lites = 0;

// A square of 2 m around a place, facing the eye.
std::string square(const std::string& word, float x = 0.0f, float y = 0.0f, float z = 0.0f) {
    std::ostringstream out;
    const float corner[4][2] = {{1, -1}, {-1, -1}, {-1, 1}, {1, 1}};
    out << word << "\n";
    for (const auto& c : corner)
        out << x + c[0] << ' ' << y + c[1] << ' ' << z << ' ' << (c[0] + 1) / 2 << ' ' << (c[1] + 1) / 2
            << "\n";
    return out.str();
}

TEST_F(object_draw_test, shows_its_texture_where_it_stands) {
    write_picture("red.png", 255, 0, 0);
    write_picture("red_LIT.png", 0, 0, 255);
    write_picture("green.png", 0, 255, 0);
    write_picture("greenLIT.png", 0, 0, 255);
    const int red = build(square("quad", 4.0f), "red"), green = build(square("quad", 4.0f), "green");
    const int white = build(square("quad", -4.0f));
    EXPECT_NE(vec_mod[red].tex_ref_2, 0);
    EXPECT_NE(vec_mod[green].tex_ref_2, 0);
    plot(red);
    plot(green, 1, 0.0f, 5.0f);
    plot(white, 1);
    EXPECT_EQ(at(4, 0), "255 0 0");
    EXPECT_EQ(at(4, 5), "0 255 255") << "the night texture is added";
    EXPECT_EQ(at(-4, 0), "255 255 255") << "no image: the blank texture";
    EXPECT_EQ(at(0, 0), "0 0 0");
    clear_screen();
    plot(red, 0, 0.0f, 0.0f, 0.0f, 90.0f);  // right wing down
    EXPECT_EQ(at(0, -4), "255 0 0");
    plot(red, 0, 0.0f, 0.0f, 180.0f);
    EXPECT_EQ(at(-4, 0), "0 0 0") << "turned round it shows its back, which is culled";
}

TEST_F(object_draw_test, stands_upright_on_the_curved_planet) {
    const int M = build(square("quad", 0.0f, 4.0f));
    ren.deg_per_mtr_x = 0.01f;
    glTranslatef(-9000.0f, 0.0f, 0.0f);
    plot(M, 0, 9000.0f);  // 90 degrees east: its up is to the right
    EXPECT_EQ(at(4, 0), "255 255 255");
    EXPECT_EQ(at(0, 4), "0 0 0");
}

TEST_F(object_draw_test, every_shape) {
    const std::string places[] = {
        "tri\n-9 -1 0 0 0\n-9 1 0 0 0\n-7 -1 0 0 0",
        "polygon 4\n-6 -1 0 0 0\n-6 1 0 0 0\n-4 1 0 0 0\n-4 -1 0 0 0",
        "quad_strip 6\n-3 -1 0 0 0\n-3 1 0 0 0\n-2 -1 0 0 0\n-2 1 0 0 0\n-1 -1 0 0 0\n-1 1 0 0 0",
        "tri_strip 4\n2 -1 0 0 0\n2 1 0 0 0\n4 -1 0 0 0\n4 1 0 0 0",
        "tri_fan 4\n5 -1 0 0 0\n5 1 0 0 0\n7 1 0 0 0\n7 -1 0 0 0",
    };
    std::string all;
    for (const std::string& place : places) all += "shade_flat\n" + place + "\n";
    all += square("quad", 0.0f, -6.0f) + "line\n0.05 -3 0 10 0 0\n0.05 3 0 10 0 0\n" +
           square("quad_hard", 8.5f) + square("quad", 0.0f, 6.0f);
    plot(build(all));
    for (const float x : {-8.7f, -5.0f, -2.5f, -1.5f, 3.5f, 5.3f, 8.5f})
        EXPECT_EQ(at(x, -0.5f), "255 255 255") << x;
    EXPECT_EQ(at(0.0f, 0.5f), "128 0 0") << "a line covers by half";
    EXPECT_EQ(at(0.0f, 6.0f), "255 255 255") << "what follows does not take its colour";
    EXPECT_EQ(at(-7.2f, 0.8f), "0 0 0") << "beside the triangle";
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(object_draw_test, attributes_change_what_follows_and_end_with_the_object) {
    const std::string behind = "tri\n1 1 0 0 0\n-1 1 0 0 0\n1 -1 0 0 0\n";  // counterclockwise
    const int M =
        build("ATTR_no_cull\n" + behind + "ATTR_emission_rgb 0 1 0\nATTR_no_depth\nATTR_poly_os 2\n" +
              "ATTR_shade_flat\nATTR_shiny_rat 500\n" + square("quad", 4.0f, 0.0f, -50.0f));
    const int plain = build(behind + square("quad", -4.0f));
    plot(M);
    EXPECT_NE(at(0.5f, 0.5f), "0 0 0");
    EXPECT_EQ(at(4, 0), "255 255 255");
    GLint shade;
    GLfloat emission[4], offset[1];
    glGetIntegerv(GL_SHADE_MODEL, &shade);
    glGetMaterialfv(GL_FRONT, GL_EMISSION, emission);
    glGetFloatv(GL_POLYGON_OFFSET_FILL, offset);
    EXPECT_TRUE(shade == GL_SMOOTH && emission[1] == 0.0f && offset[0] == 0.0f);
    EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
    clear_screen();
    plot(plain);
    EXPECT_EQ(at(0.5f, 0.5f), "0 0 0");
    EXPECT_EQ(at(-4, 0), "255 255 255");
}

TEST_F(object_draw_test, a_batch_is_the_same_from_its_first_to_its_last) {
    write_picture("red.png", 255, 0, 0);
    const int M = build(square("quad") + square("quad_cockpit", 0.0f, 3.0f) +
                            "ATTR_poly_os 1\nline\n0 -1.95 0 0 10 0\n3 -1.95 0 0 10 0",
                        "red");
    object_state(M, 0);
    for (int i = 0; i < 5; ++i) plot_obj_inloop(M, 0, static_cast<float>(4 * i - 8), 0, 0, 0, 0, 0, 0);
    for (int i = 0; i < 5; ++i) {
        const float x = static_cast<float>(4 * i - 8);
        EXPECT_EQ(at(x, 0), "255 0 0") << i;
        EXPECT_EQ(at(x, 3), "40 40 40") << "the panel's place holder, unlit";
        EXPECT_EQ(at(x + 1.5f, -2), "0 128 0");
    }
    EXPECT_TRUE(glIsEnabled(GL_LIGHTING) && glIsEnabled(GL_TEXTURE_2D) && glIsEnabled(GL_FOG));
}

TEST_F(object_draw_test, the_last_level_that_holds_the_distance_is_drawn) {
    const int M =
        build("ATTR_LOD 0 1000\n" + square("quad", -4.0f) + "ATTR_LOD 1000 5000\n" + square("quad", 4.0f));
    const auto seen_from = [M](float z) {
        ren.view_xyz[2] = z;
        clear_screen();
        plot(M);
        return (at(-4, 0) != "0 0 0" ? 1 : 0) + (at(4, 0) != "0 0 0" ? 2 : 0);
    };
    EXPECT_EQ(seen_from(999), 1);
    EXPECT_EQ(seen_from(1000), 2);
    EXPECT_EQ(seen_from(5001), 0);
}

TEST_F(object_draw_test, lamps_by_their_codes) {
    const std::string lamp = "light\n1 2 3 ";
    const int M = build(lamp + "5 10 0\n" + lamp + "-10 -5 0\n" + lamp + "99 0 0\n" + lamp + "98 0 0\n" +
                        lamp + "97 0 0");
    lites = 1;
    mnw.totl_time = 0.5f;  // half a second: pulse(-8), blinks(-5) at z, blinks(-5) and second 4 at x
    const float pulsing = 0.5f + 0.5f * sinf(4.0f * (0.5f + 5.0f));
    plot_obj(M, 0, 5.0f, 0.0f, 25.0f, 30.0f, 1.0f, 2.0f, 0, plot_list);
    std::ostringstream red;
    red << pulsing;
    const auto lamp_call = [](const std::string& rgb, int C) {
        return "lamp 1 2 3 " + rgb + " 1 2 0 " + std::to_string(C) + " 26\n";
    };
    const std::string open = "setref 5 0 25 0 30 0\ninit 0\n";
    EXPECT_EQ(recorded(), open + lamp_call("0.5 1 0", 1) + lamp_call("1 0.5 0", 2) +
                              lamp_call(red.str() + " 0 0", 3) + lamp_call("1 1 1", 4) +
                              lamp_call("1 1 0", 5) + "close\n");
    mnw.totl_time = 0.6f;
    plot_obj(M, 0, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0, plot_list);
    const std::string later = recorded();
    EXPECT_EQ(later.find(" 2 0 2 26"), std::string::npos) << "between flashes";
    EXPECT_EQ(later.find(" 2 0 4 26"), std::string::npos) << "between strobes";
    EXPECT_NE(later.find(lamp_call("0 1 0", 5)), std::string::npos) << "green";
}

TEST_F(object_draw_test, smoke_rises_on_its_turn) {
    const int M = build("smoke_black 0 5 -10 2\nsmoke_white 0 0 0 3\nsmoke_white 0 0 0 0\n" +
                        std::string("quad_hard\n-5 7 -5 0 0\n5 7 -5 0 0\n5 7 5 0 0\n-5 7 5 0 0"));
    plot(M);
    EXPECT_EQ(recorded(), "");
    mnw.puff05 = 1;
    plot_obj(M, 0, 100.0f, 10.0f, 50.0f, 180.0f, 0.0f, 0.0f, 0, plot_list);
    EXPECT_EQ(recorded(), "puff 100 15 60 0 2 0 2 17 1\npuff 100 10 50 0 3 0 3 16 1\n");
}

TEST_F(object_draw_test, a_movie_runs_through_its_cells_by_night) {
    // each cell has its own colour: red by its column, green by its row
    constexpr int dx = 1024, columns = 204, rows = 146;
    scratch_dx = scratch_dy = dx;
    for (int t = 0; t < dx; ++t)
        for (int s = 0; s < dx; ++s) {
            unsigned char* p = scratch_array + 3 * (t * dx + s);
            p[0] = static_cast<unsigned char>(40 * (s / columns));
            p[1] = static_cast<unsigned char>(30 * (t / rows));
            p[2] = static_cast<unsigned char>(s % columns > columns / 2 ? 255 : 0);
        }
    tman.load_texture(1, load_ogl, tex_movie, filter_rgb, "scratch_array movie");
    write_picture("dark.png", 0, 0, 0);
    const int M = build(square("quad_movie"), "dark");
    lites = 1;
    mnw.totl_time = 13.0f / 3.0f;  // frame 13: row 2, column 3
    plot(M, 1);
    EXPECT_EQ(at(-0.5f, 0), "120 60 0");
    EXPECT_EQ(at(0.5f, 0), "120 60 255") << "the cell's right half";
    mnw.totl_time = 39.0f / 3.0f;  // waits on the last
    plot(M, 1);
    EXPECT_EQ(at(-0.5f, 0), "160 180 0");
    lites = 0;
    clear_screen();
    plot(M, 1);
    EXPECT_EQ(at(-0.5f, 0), "0 0 0");
}

}  // namespace
