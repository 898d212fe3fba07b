// Object files as commands, bounds and ranges, and the ground that hard quads make: all without OpenGL.
#include <math.h>

#include <filesystem>
#include <sstream>

#include "core/disk/paths.h"
#include "core/records/env.h"
#include "core/records/flt.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "draw/images/tex_refs.h"
#include "scenery/objects/object_build.h"
#include "scenery/objects/object_file.h"
#include "scenery/objects/object_hard.h"
#include "scenery/packages/library.h"
#include "support.h"

namespace {
const std::string header = "I\n700 version\nOBJ\n\nbricks //\n\n";
const char* const scan_fault = "File-scanning error!";

class object_test : public test::system_test {
protected:
    void SetUp() override {
        system_test::SetUp();
        init_paths(folder.path());
        clear_objects();
        mnw.x_res_now = 1000;
        ren.FOV = 90.0f;
    }
    // Reads the commands behind a good header, up to the normals.
    vec_mod_struct read(const std::string& body, object_read expected = object_good) {
        return read_file(header + body, expected);
    }
    vec_mod_struct read_file(const std::string& text, object_read expected = object_good) {
        static int count = 0;  // a path of its own, for alerts are told once each
        vec_mod_struct mod;
        mod.path = "read" + std::to_string(++count) + ".obj";
        EXPECT_EQ(read_object_file(folder.write(mod.path, text), &mod, &texture), expected) << text;
        if (expected != object_good) return mod;
        find_object_bounds(&mod);
        check_object(mod);
        find_object_normals(&mod);
        return mod;
    }
    static std::string codes(const vec_lod_struct& lod) {
        std::ostringstream out;
        for (const vec_act_struct& act : lod.vec_act) out << act.act << ' ';
        return out.str();
    }
    std::string codes(const std::string& body) { return codes(read(body).vec_lod[0]); }
    // The n-th command of a kind, its first values.
    static std::string values(const vec_mod_struct& mod, int code, int n, int count = 3, int lod = 0) {
        for (const vec_act_struct& act : mod.vec_lod[lod].vec_act)
            if (act.act == code && n-- == 0) {
                std::ostringstream out;
                for (int i = 0; i < count; ++i)
                    out << (i ? " " : "") << act.dat[i] + 0.0f;  // no minus before 0
                return out.str();
            }
        return "none";
    }
    static size_t alerts_of(const std::string& line) {
        size_t n = 0;
        for (const auto& alert : test::alerts) n += alert.text.line[0] == line;
        return n;
    }

    test::temp_folder folder;
    std::string texture;
};

const char* const tri = "tri\n0 0 0 0 0\n0 1 0 0 1\n1 0 0 1 0\n";
const char* const quad = "quad\n0 0 0 0 0\n0 1 0 0 1\n1 1 0 1 1\n1 0 0 1 0\n";

TEST_F(object_test, equal_simple_primitives_run_together) {
    const std::string t = tri, q = quad;
    EXPECT_EQ(codes(t + q + q + "end"), "3 12 15 15 15 19 4 12 15 15 15 15 12 15 15 15 15 19 ");
    EXPECT_EQ(codes(t + "smoke_black 0 1 2 3\n" + t + "end"), "3 12 15 15 15 22 12 15 15 15 19 ");
    EXPECT_EQ(codes(t + "ATTR_who_knows 4\n" + t + "end"), "3 12 15 15 15 19 3 12 15 15 15 19 ");
    EXPECT_EQ(codes(t + "ATTR_cull\n" + t + "end"), "3 12 15 15 15 19 34 3 12 15 15 15 19 ");
    const vec_mod_struct levels = read(t + "ATTR_LOD 0 1\n" + t + "ATTR_LOD 1 2\n" + t + "end");
    ASSERT_EQ(levels.vec_lod.size(), 2u);
    EXPECT_EQ(codes(levels.vec_lod[0]), "3 12 15 15 15 19 3 12 15 15 15 19 ");
    EXPECT_EQ(codes(levels.vec_lod[1]), "3 12 15 15 15 19 ");
}

TEST_F(object_test, every_keyword_gives_its_commands) {
    const std::string corner = " 0 0 0 0 0\n", four = "\n" + corner + corner + corner + corner;
    const std::pair<std::string, std::string> rows[] = {
        {"quad_movie" + four, "5 12 16 16 16 16 20 "},
        {"quad_cockpit" + four, "6 12 15 15 15 15 21 "},
        {"quad_hard" + four, "7 12 15 15 15 15 19 "},
        {"polygon 4" + four, "8 12 15 15 15 15 19 "},
        {"quad_strip 4" + four, "9 12 15 15 12 15 15 19 "},
        {"tri_strip 4" + four, "10 12 15 15 12 15 15 19 "},
        {"tri_fan 4" + four, "11 12 15 12 15 12 15 12 15 19 "},
        {"smoke_black 1 2 3 4\nsmoke_white 1 2 3 4\n", "22 23 "},
        {"shade_flat\nATTR_shade_flat\nshade_smooth\nattr_SHADE_smooth\n", "24 24 25 25 "},
        {"ATTR_ambient_rgb 1 2 3\nATTR_difuse_rgb 1 2 3\n", "26 27 "},
        {"ATTR_specular_rgb 1 2 3\nATTR_emission_rgb 1 2 3\n", "28 29 "},
        {"ATTR_shiny_rat 1\nATTR_no_depth\nATTR_depth\n", "30 31 32 "},
        {"ATTR_no_cull\nATTR_cull\nATTR_poly_os 2\nATTR_reset\n", "33 34 35 37 "},
        {"ATTR_LOD 1 2\nATTRition 1 2\n", ""},
    };
    for (const auto& [text, expected] : rows) EXPECT_EQ(codes(text + "ATTR_cull\nend\n"), expected + "34 ");
    const vec_mod_struct mod = read("smoke_white 1 2 3 4 of the stack\nATTR_difuse_rgb .1 .2 .3\nend");
    EXPECT_EQ(values(mod, obj_smoke_white, 0, 4), "1 2 3 4");
    EXPECT_EQ(values(mod, obj_diffuse, 0), "0.1 0.2 0.3");
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(object_test, the_same_model_however_it_is_written) {
    const std::string plain =
        header + "tri\n0 0 0 0 0\n0 1.5 0 0 1\n-1e1 0 0 1 0.25\nline\n1 2 3 4 5 6\n1 2 3 4 5 6\nend\n";
    std::string crlf, cr;
    for (const char c : plain) {
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
        cr += c == '\n' ? '\r' : c;
    }
    const std::string wrapped = header +
                                "\n  TRI // a remark\n0,0,0 0 0 0\n\t1.50 0 0\n1 -10 +0 0. 1\n.25 of the "
                                "last\n\n\nLine\n1 2 3 4 5\n6 1 2 3 4\n5 6\nEnd";
    const std::string numbered =
        header +  // behind a keyword a remark; the file's end is its end
        "tri 17 18\n0 0 0 0 0  0 1.5 0 0 1  -10 0 0 1 0.25 7 8\nline 3 -1\n1 2 3 4 5 6 1 2 3 4 5 6 9";
    for (const std::string& text : {plain, crlf, cr, wrapped, numbered, "A" + plain.substr(1)}) {
        const vec_mod_struct mod = read_file(text);
        EXPECT_EQ(texture, "bricks");
        EXPECT_EQ(codes(mod.vec_lod[0]), "3 12 15 15 15 19 2 14 14 18 ") << text;
        EXPECT_EQ(values(mod, obj_vert_tex, 1, 5), "0 1.5 0 0 1");
        EXPECT_EQ(values(mod, obj_vert_tex, 2, 5), "-10 0 0 1 0.25");
        EXPECT_EQ(values(mod, obj_vert_line, 1, 6), "1 2 3 0.4 0.5 0.6");
    }
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(object_test, normals_face_the_side_from_which_the_corners_run_clockwise) {
    // seen from +z (south) the triangle runs clockwise: up, then right and down
    EXPECT_EQ(values(read(std::string(tri) + "end"), obj_normal, 0), "0 0 1");
    EXPECT_EQ(values(read("polygon 3\n0 0 0 0 0\n1 0 0 0 0\n0 0 1 0 0\nend"), obj_normal, 0), "0 1 0");
    EXPECT_EQ(values(read("tri\n1 1 1 0 0\n2 2 2 0 0\n3 3 3 0 0\nend"), obj_normal, 0), "0 1 0")
        << "no plane";

    // a wall of two quads along x that turns a corner to +z
    const vec_mod_struct strip =
        read("quad_strip 6\n0 0 0 0 0\n0 1 0 0 0\n1 0 0 0 0\n1 1 0 0 0\n1 0 1 0 0\n1 1 1 0 0\nend");
    EXPECT_EQ(values(strip, obj_normal, 0), "0 0 1");
    EXPECT_EQ(values(strip, obj_normal, 2), "-1 0 0");
    const vec_mod_struct triangles = read("tri_strip 4\n0 0 1 0 0\n0 1 1 0 0\n1 0 1 0 0\n1 1 1 0 0\nend");
    EXPECT_EQ(values(triangles, obj_normal, 0), "-1 0 0")
        << "the plane of the first two vertices and the origin";
    EXPECT_EQ(values(triangles, obj_normal, 1), "0 0 1");

    // a pyramid's roof: each vertex of the rim has the normal of the face that begins there, the last one
    // that of the first face, whose corner it is again
    const vec_mod_struct fan =
        read("tri_fan 6\n0 1 0 0 0\n1 0 -1 0 0\n1 0 1 0 0\n-1 0 1 0 0\n-1 0 -1 0 0\n1 0 -1 0 0\nend");
    const char* const expected[] = {"0 1 0",  // two of its three vertices are one
                                    "0.707107 0.707107 0",
                                    "0 0.707107 0.707107",
                                    "-0.707107 0.707107 0",
                                    "0 0.707107 -0.707107",
                                    "0.707107 0.707107 0"};
    for (int i = 0; i < 6; ++i) EXPECT_EQ(values(fan, obj_normal, i), expected[i]) << i;
}

TEST_F(object_test, bounds_and_ranges) {
    const vec_mod_struct box =
        read("line\n-1 0 0 1 1 1\n2 4 12 1 1 1\nATTR_LOD 0 1000\nATTR_LOD 1000 5000\n" +
             std::string("light\n900 900 900 1 1 1\nend"));
    EXPECT_EQ(box.cull_radius, 13.0f);
    EXPECT_TRUE(box.cull_center_xyz[0] == 0.5f && box.cull_center_xyz[1] == 2.0f &&
                box.cull_center_xyz[2] == 6.0f);
    ASSERT_EQ(box.vec_lod.size(), 2u);
    EXPECT_EQ(box.vec_lod[1].dis_near_sqr, 1e6f);
    EXPECT_EQ(box.vec_lod[1].dis_far_sqr, 25e6f);

    // a plane 4 m wide, so 2 m to each side: 1000 pixels * 2 * 0.5 / tan 45 * 1.5
    const std::string pole = "line\n0 0 0 1 1 1\n4 10 0 1 1 1\nend";
    EXPECT_NEAR(sqrtf(read(pole).vec_lod[0].dis_far_sqr), 1500.0f, 0.1f);
    const std::string carpet = "line\n0 0 0 1 1 1\n14 0 14 1 1 1\nend";
    EXPECT_NEAR(sqrtf(read(carpet).vec_lod[0].dis_far_sqr), 750.0f, 0.1f) << "flat: a seventh";
    mnw.x_res_now = 4000;
    ren.FOV = 2.0f * 63.434949f;  // tangent of the half 2
    EXPECT_NEAR(sqrtf(read(pole).vec_lod[0].dis_far_sqr), 3000.0f, 0.1f);
}

TEST_F(object_test, colours_out_of_range_are_shown_once_an_object) {
    const char* const point = "You have a custom object with a point color out of range!";
    const char* const line = "You have a custom object with a line color out of range!";
    read("light\n0 0 0 99 10 10\nlight\n0 0 0 -10 0 0\nline\n0 0 0 0 10 5\n0 0 0 0 0 0\nend");
    EXPECT_TRUE(test::alerts.empty()) << "the codes of lamps and both ends of the ranges";
    const vec_mod_struct bad =
        read("light\n0 0 0 100 0 0\nlight\n0 0 0 0 -11 0\nline\n0 0 0 0 0 11\n0 0 0 -1 0 0\nend");
    EXPECT_EQ(alerts_of(point), 1u);
    EXPECT_EQ(alerts_of(line), 1u);
    EXPECT_EQ(codes(bad.vec_lod[0]), "1 13 13 17 2 14 14 18 ");
}

TEST_F(object_test, unknown_words_are_told_once_and_passed_over) {
    const vec_mod_struct mod = read("pyramid 1 2 3\ncone\n" + std::string(tri) + "end");
    ASSERT_EQ(test::alerts.size(), 1u);
    const auto& told = test::alerts[0].text.line;
    EXPECT_EQ(told[0], "Bad polygon type in the following:");
    EXPECT_EQ(told[3], "pyramid");
    EXPECT_EQ(codes(mod.vec_lod[0]), "3 12 15 15 15 19 ");
}

TEST_F(object_test, a_keyword_with_a_zero_byte_behind_it_is_another_word) {
    const std::string word("quad\0and a long tail without a blank", 20);
    EXPECT_EQ(codes(word + "\n" + tri + "end"), "3 12 15 15 15 19 ");
    EXPECT_EQ(test::alerts.size(), 1u);
}

TEST_F(object_test, a_broken_file_is_told_and_nothing_ends) {
    for (const char* body :
         {"tri\n0 0 0 0 0\n", "polygon", "tri\n0 0 0 0 0\n0 nan 0 0 0\n0 0 0 0 0\nend", "polygon -1\nend",
          "tri_fan 100001\nend", "polygon x\nend", "light\n0 0 0 1 1 inf\nend", "smoke_black 1 2 3\nend",
          "line\n1e11 0 0 1 1 1\n0 0 0 1 1 1\nend", "polygon 99999999999\nend", "ATTR_shiny_rat 1.5f\nend"}) {
        test::alerts.clear();
        read(body, object_broken);
        ASSERT_EQ(test::alerts.size(), 1u) << body;
        EXPECT_EQ(test::alerts[0].text.line[0], scan_fault);
    }
    test::alerts.clear();
    for (const char* text : {"", "I", "B\n700\nOBJ\nx\nend", "I\n800\nOBJ\nx\nend", "\n"})
        read_file(text, object_absent);
    EXPECT_TRUE(test::alerts.empty());
    read("polygon 0\ntri_fan 1\n1 2 3 0 0\ntri_fan 2\n1 2 3 0 0\n4 5 6 0 0\nquad_strip 3\n" +
         std::string("1 2 3 0 0\n1 2 4 0 0\n1 2 5 0 0\nquad_strip 1\n1 2 3 0 0\nend"));
    EXPECT_TRUE(test::alerts.empty()) << "too few vertices give some normal";
}

TEST_F(object_test, is_loaded_once_and_found_by_its_library_name) {
    const std::string package = "Custom Scenery/p/";
    folder.write(package + "objects/House.obj",
                 header + tri + "light\n0 9 0 10 0 0\nquad_hard\n" + std::string(quad).substr(5) + "end\n");
    folder.write(package + "objects/broken.obj", header + "tri\n1 2 3");
    folder.write(package + "library.txt", "I\n800\nLIBRARY\n\nEXPORT lib/house.obj objects/house.obj\n");
    DSF_ScanSceneryFolder();
    const int M = build_obs_lib("lib/house.obj");
    ASSERT_EQ(M, 0);
    EXPECT_EQ(vec_mod[M].path, package + "objects/House.obj");
    EXPECT_EQ(vec_mod[M].tex_ref_1, tex_blank);
    EXPECT_EQ(vec_mod[M].tex_ref_2, 0);
    EXPECT_EQ(codes(vec_mod[M].vec_lod[0]), "1 13 17 7 12 15 15 15 15 ") << "the actions alone are left";
    std::filesystem::remove(folder.path() + package + "objects/House.obj");
    EXPECT_EQ(build_obs_lib("lib/house.obj"), M);
    EXPECT_EQ(build_obs(app_path + package + "objects/House.obj", 0), M);
    EXPECT_EQ(build_obs_lib("lib/hut.obj"), -1);
    EXPECT_EQ(build_obs("Custom Scenery:p:objects:hut.obj", 1), -1);
    EXPECT_TRUE(test::alerts.empty());
    EXPECT_EQ(build_obs("Custom Scenery:p:objects:broken.obj", 1), -1);
    EXPECT_EQ(alerts_of(scan_fault), 1u);
    folder.write(package + "objects/broken.obj", header + tri + "end");
    EXPECT_EQ(build_obs("Custom Scenery:p:objects:broken.obj", 1), -1)
        << "not read again for each that uses it";
    EXPECT_EQ(vec_mod.size(), 1u);
}

TEST_F(object_test, a_hard_quad_is_ground_under_the_aircraft) {
    // a roof 7 m up, 10 m by 20 m, clockwise from above; beside it the same the other way round
    folder.write("roof.obj", header + "quad_hard\n-5 7 -10 0 0\n5 7 -10 0 0\n5 7 10 0 0\n-5 7 10 0 0\n" +
                                 "quad_hard\n105 7 -10 0 0\n95 7 -10 0 0\n95 7 10 0 0\n105 7 10 0 0\nend");
    const int M = build_obs("roof.obj", 1);
    ASSERT_EQ(M, 0);
    const auto is_over = [M](double x, double z) {
        env.over_obs_this = 0;
        env.surf_tex = 0;
        env.obj_y_top = -9999.0f;
        flt[0].dob_x = 1000.0 + x, flt[0].dob_z = -2000.0 + z;
        object_hard_quads(M, 0, 1000.0f, 300.0f, -2000.0f);
        EXPECT_EQ(env.surf_tex, env.over_obs_this ? 107 : 0);
        EXPECT_EQ(env.obj_y_top, env.over_obs_this ? 307.0f : -9999.0f);
        return env.over_obs_this;
    };
    EXPECT_TRUE(is_over(0, 0) && is_over(4.9, 9.9) && is_over(-4.9, -9.9));
    EXPECT_FALSE(is_over(5.1, 0) || is_over(0, 10.1) || is_over(-5.1, 0) || is_over(0, -10.1) ||
                 is_over(100, 0));
    vec_mod[M].vec_lod[0].vec_act.resize(4);
    EXPECT_FALSE(is_over(0, 0));
    EXPECT_EQ(alerts_of("Too many C-indices for the hardpol!"), 1u);
}
}  // namespace
