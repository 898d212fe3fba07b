// The ground scene in a real context, from straight above: what the layers show, what moves, what passes
// leave out; and, without one, which units a layer asks for and where projections put a place.
#include "scenery/draw/terrain_draw.h"

#include <GL/gl.h>
#include <math.h>

#include <array>

#include "app/alert_show.h"
#include "core/disk/paths.h"
#include "core/math/axes.h"
#include "draw/camera/xcam.h"
#include "draw/gl/camera_load.h"
#include "draw/gl/frame_counts.h"
#include "draw/gl/gl_facts.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "scenery/airports/strip_marks.h"
#include "scenery/draw/airports_draw.h"
#include "scenery/draw/object_draw.h"
#include "scenery/draw/proj_tex.h"
#include "scenery/ground/ground_phase.h"
#include "scenery/ground/runways.h"
#include "scenery/ground/surfaces.h"
#include "scenery/objects/objects.h"
#include "weather/atmosphere.h"
#include "weather/sky/skyc.h"
#include "window.h"

namespace {
// -- units, without a window

std::string units_of(const xlay_struct& layer, const ground_view_struct& view) {
    std::string text;
    const layer_units_struct look = find_layer_units(layer, view);
    for (int i = 0; i < look.count; ++i) {
        const unit_struct& u = look.unit[i];
        text += std::to_string(u.ref) + "/" + std::to_string(u.mode) +
                (u.projection == proj_none ? "" : "p" + std::to_string(u.projection)) + " ";
    }
    return text + (look.left_out ? "left out" : "");
}

TEST(layer_units, follow_the_table) {
    xlay_struct land, blend, water;
    land.plane_tex_ref = 2000, land.night_tex_ref = 2001, land.plane_bor_ref = 2002;
    blend = land;
    blend.compo_tex_ref = 2003, blend.composite_texes = 1;
    water.plane_tex_ref = tex_water;
    for (xlay_struct* layer : {&land, &blend, &water}) layer->project_texes = 1;
    ground_view_struct view;
    view.water_ref = 150;
    EXPECT_EQ(units_of(water, view), "150/8448p0 ");
    EXPECT_EQ(units_of(blend, view), "2000/2p7 2003/3p7 2000/4 ");
    land.zap_base_alpha = land.has_border_mask = blend.has_border_mask = 1;
    land.has_night_lite = 1;
    EXPECT_EQ(units_of(land, view), "2000/8p7 2002/8448 2001/6 ");
    land.use_night_lite = 1;
    view.shadow_ref = 331;
    view.litemap = 1;
    EXPECT_EQ(units_of(land, view), "2000/8p7 2002/8448 2001/1p7 331/8448p3 left out");
    EXPECT_EQ(units_of(water, view), "150/8448p0 331/8448p3 306/8448p2 ");
    view.units = 2;
    EXPECT_EQ(units_of(land, view), "2000/8p7 2002/8448 left out");
    view.units = 1;
    EXPECT_EQ(units_of(blend, view), "2000/8p7 left out")
        << "half a composite was unlit, and clear by its alpha";

    view = {1, 0, 2, 4, 331, 1, 150};  // maps know no shadow and no lamp
    EXPECT_EQ(units_of(water, view), "319/8448p0 ");
    EXPECT_EQ(units_of(land, view), "320/8p5 2002/8448 318/6 ");
    view.map_tab = 0;
    EXPECT_EQ(units_of(blend, view), "316/7 316/6 2002/5 ");
    view.map_tab = 4;
    EXPECT_EQ(units_of(land, view), "2000/8p7 2002/8448 2001/1p7 ");
}

class projections : public test::system_test {
protected:
    void TearDown() override {
        reset_projections();
        reset_ground_phase();
    }
    // Texture coordinates of a place.
    static std::pair<double, double> at(int pt, double x, double y, double z) {
        proj_planes_struct p;
        const ogl_proj_struct repeat = {400.0f, 250.0f};
        EXPECT_TRUE(find_proj_planes(pt, &repeat, 0, &p));
        const auto dot = [&](const float* plane) {
            return plane[0] * x + plane[1] * y + plane[2] * z + plane[3];
        };
        return {dot(p.s), dot(p.t)};
    }
};

TEST_F(projections, the_ground_keeps_its_phase_when_the_frame_moves_and_water_runs) {
    const auto before = at(proj_ground, 1000.0, 0.0, 500.0);
    EXPECT_NEAR(before.first, 2.5, 1e-6);
    EXPECT_NEAR(before.second, -2.0, 1e-6);
    const auto waves = at(proj_water, 1000.0, 0.0, 500.0);
    const double was[2] = {1000.0, 500.0}, is[2] = {1000.0, 500.0 + 111319.5};
    keep_ground_phase(was, is);
    const auto after = at(proj_ground, is[0], 0.0, is[1]), later = at(proj_water, is[0], 0.0, is[1]);
    EXPECT_NEAR(remainder(after.second - before.second, 1.0), 0.0, 1e-4);
    EXPECT_NEAR(remainder(later.first - waves.first, 1.0), 0.0, 1e-4);
    EXPECT_NEAR(remainder(later.second - waves.second, 1.0), 0.0, 1e-4);
    atm.wave_speed = 4.0f;
    move_projections(10.0f);
    EXPECT_NEAR(at(proj_water, is[0], 0.0, is[1]).first - later.first, -0.2, 1e-5);
    const ogl_proj_struct nothing = {};
    proj_planes_struct p;
    EXPECT_FALSE(find_proj_planes(proj_ground, &nothing, 0, &p));
    EXPECT_FALSE(find_proj_planes(proj_none, &nothing, 0, &p));
}

// An eye at the squares' edge sees them where they were a step before.
TEST_F(projections, the_squares_of_taxiways_stay) {
    ren.view_xyz[0] = 1012.4f;
    const auto before = at(proj_taxi_grid, 1020.0, 0.0, 30.0);
    ren.view_xyz[0] = 1012.6f;
    const auto after = at(proj_taxi_grid, 1020.0, 0.0, 30.0);
    EXPECT_NEAR(remainder(after.first - before.first, 1.0), 0.0, 1e-5);
    EXPECT_LT(fabs(after.first), 1.0);
}

TEST_F(projections, the_landing_light_lies_ahead_under_the_beam) {
    flt[0].dob_y = 100.0, flt[0].psi = 90.0f;
    cache_attitude(0);
    veh[0].lan_lite_the_ref = -45.0f, veh[0].lan_lite_width = 5.0f;
    // low beam at 50 degrees down; the oval's half length is half width / sin 45
    const double half_width = tan(5.0 * M_PI / 180.0) * 100.0 * M_SQRT2, half_length = half_width * M_SQRT2;
    const double middle = 100.0 / tan(50.0 * M_PI / 180.0) + 0.5 * half_length;
    const auto centre = at(proj_landing_light, middle, 0.0, 0.0);
    EXPECT_NEAR(centre.first, 0.5, 1e-3);
    EXPECT_NEAR(centre.second, 0.5, 1e-3);
    EXPECT_NEAR(at(proj_landing_light, middle + half_length, 0.0, 0.0).second, 1.0, 1e-3);
    EXPECT_GT(at(proj_landing_light, middle, 0.0, half_width).first, 0.7) << "south is right of east";
}

// -- pixels

constexpr int side = 200;  // pixels, metres

class terrain_draw_test : public test::window {
protected:
    void SetUp() override {
        system_test::SetUp();
        init_paths(folder.path());
        mnw.tex_res = 5;
        open(side, side);
        OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
        stg.LOD_bias_rat = 1.0f;
        reset_terrain_draw();
        object_calls.lites_on = [](int) { return 0; };
        for (int ref = tex_water; ref <= tex_water_last; ++ref) fixed_picture(ref, {"www", "www"});
        fixed_picture(tex_blank, {"www", "www"});
        red = picture(255, 0, 0), green = picture(0, 255, 0), dots = picture(0, 0, 255, true);
        xdeg[0][0].tex_layers.resize(4);
        for (xlay_struct& l : xdeg[0][0].tex_layers) {
            l.scene_buckets.Reset(bucket_levels, {0, 0}, {side, side}, buckets_loose);
            l.objct_buckets.Reset(bucket_levels, {0, 0}, {side, side}, buckets_loose);
            l.plane_tex_ref = red, l.before_airports = 1, l.zap_base_alpha = 1;
        }
    }
    void TearDown() override {
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        clear_degree(&xdeg[0][0]);
        object_calls = before;
        window::TearDown();
    }
    // At a reference: two rows of two texels, the lower row first; a third letter is left out.
    static void fixed_picture(int ref, const std::array<std::string, 2>& rows) {
        scratch_dx = scratch_dy = 2;
        for (size_t i = 0; i < 4; ++i) {
            const char c = rows[i / 2][i % 2];
            for (size_t b = 0; b < 3; ++b)
                scratch_array[3 * i + b] = c == 'w' || c == "rgb"[b] ? 255 : 0;
        }
        tman.load_texture(0, load_ogl, ref, filter_rgb, scratch_name);
    }
    // Of one colour, or black but for a quarter.
    static int picture(int r, int g, int b, bool quarter = false) {
        scratch_dx = scratch_dy = 2;
        for (int i = 0; i < 4; ++i) {
            const bool shown = !quarter || i == 0;
            const int rgb[3] = {r, g, b};
            for (int c = 0; c < 3; ++c)
                scratch_array[3 * i + c] = static_cast<unsigned char>(shown ? rgb[c] : 0);
        }
        return tman.load_texture(0, load_ogl, tex_free, filter_rgb, scratch_name);
    }
    static xlay_struct& layer(int i) { return xdeg[0][0].tex_layers[static_cast<size_t>(i)]; }
    // A level square from above, clockwise; its texture once over it.
    static scene_patch_struct* add_square(int to, float x, float z, float size, float y = 0.0f) {
        auto* const patch = new scene_patch_struct;
        patch->temp = new scene_patch_struct_temp;
        scene_pol_struct pol;
        pol.pol_type = pol_quads;
        const float corner[4][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
        for (const auto& c : corner) {
            pol.geo.push_back({x + c[0] * size, y, z + c[1] * size});
            pol.nrm.push_back({0, 1, 0});
            pol.color.push_back({{c[0], 1.0f - c[1]}});
            pol.level.push_back(0.0f);
            patch->temp->grow(pol.geo.back());
        }
        patch->temp->scene_pol.push_back(pol);
        UTIL_build_DL(&layer(to), patch);
        layer(to).scene_buckets.Insert(patch);
        return patch;
    }
    static void look_down(float height = 100.0f) {
        finish_degree(&xdeg[0][0]);
        xcam.SetupOrtho(0.0, side, -side, 0.0, 1.0, 1000.0);
        camera_load_projection();
        xcam.LookAtPtFromPt({0.0, 0.0, 0.0}, {0.0, height, 0.0}, {0.0, 0.0, -1.0});
        LoadModelView();
        const float up[4] = {0, 1, 0, 0}, white[4] = {1, 1, 1, 1}, black[4] = {0, 0, 0, 1};
        glLightfv(GL_LIGHT0, GL_POSITION, up);
        glLightfv(GL_LIGHT0, GL_DIFFUSE, white);
        glLightfv(GL_LIGHT0, GL_AMBIENT, black);
        glFogf(GL_FOG_START, 1e5f), glFogf(GL_FOG_END, 2e5f);
    }
    static void draw(int is_map = 0, int is_hits = 0) {
        OGL_depth_write(depth_write);
        glClearColor(0, 0, 0, 0);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        OGL_terrain_grid(is_map, is_hits);
    }
    // Metres east and south of the corner.
    static std::string at(int x, int z) {
        const auto p = pixels(x, side - 1 - z, 1, 1);
        return std::to_string(p[0]) + " " + std::to_string(p[1]) + " " + std::to_string(p[2]);
    }

    test::temp_folder folder;
    const object_calls_struct before = object_calls;
    int red = 0, green = 0, dots = 0;
};

TEST_F(terrain_draw_test, layers_lie_over_each_other_and_the_camera_and_opengl_agree) {
    add_square(0, 0, 0, 200);
    layer(1).plane_tex_ref = green, layer(1).poly_offset = 1;
    add_square(1, 50, 50, 50);
    layer(2).is_hidden = 1;
    add_square(2, 0, 0, 200, 5.0f);
    look_down();
    frame_counts = {};
    draw();
    EXPECT_EQ(at(20, 20), "255 0 0");
    EXPECT_EQ(at(75, 75), "0 255 0");
    EXPECT_EQ(ren.num_patches, 2);
    EXPECT_EQ(frame_counts.lists, 2);
    EXPECT_EQ(frame_counts.triangles, 4);
    EXPECT_FALSE(glIsEnabled(GL_POLYGON_OFFSET_FILL));
    double loaded[16];
    glGetDoublev(GL_MODELVIEW_MATRIX, loaded);
    for (int i = 0; i < 16; ++i) EXPECT_NEAR(loaded[i], xcam.ModelView()[i], 1e-4);
    xcam.Rotate(30.0, 1.0, 2.0, 3.0);
    glRotated(30.0, 1.0, 2.0, 3.0);
    glGetDoublev(GL_MODELVIEW_MATRIX, loaded);
    for (int i = 0; i < 16; ++i) EXPECT_NEAR(loaded[i], xcam.ModelView()[i], 1e-4);
}

// A strip of rows 40 m long and 40 m wide, its first end in the south at z 200; left is west.
static void lay_strip(float west, const std::vector<int>& textures) {
    clear_strips();
    const airport_strips_struct mine = claim_strips(0, 1);
    vec_rwy_geo_struct& strip = vec_rwy_geo[mine.first];
    strip.surf_tex = surface_asphalt;
    float z = 200.0f;
    for (const int tex : textures) {
        strip.vec_rwy_pol.push_back(
            {static_cast<unsigned short>(tex), {{west, 0, z}, {west + 40.0f, 0, z}}, {0, 1, 0}});
        strip.box.grow({west, 0, z}), strip.box.grow({west + 40.0f, 0, z});
        z -= 40.0f;
    }
    vec_apt_strips[0].box = strip.box;
}

TEST_F(terrain_draw_test, runways_read_from_both_ends_and_go_with_their_region) {
    add_square(0, 0, 0, 200);
    fixed_picture(strip_line, {"bb", "bb"});
    fixed_picture(strip_thr2, {"gw", "bw"});  // near left green, near right white, far left blue
    fixed_picture(tex_skids, {"ww", "ww"});
    // the last row only ends the strip
    lay_strip(100.0f, {strip_thr2, strip_line, strip_line, strip_line, strip_thr2});
    vec_rwy_geo[0].vec_rwy_pol[3].tex = strip_thr2;
    look_down();
    draw();
    EXPECT_EQ(at(90, 170), "255 0 0");
    // the nearest of the picture's colours: the filter mixes in a little of the neighbours'
    const auto hue = [](int x, int z) {
        const auto p = pixels(x, side - 1 - z, 1, 1);
        return std::string(p[0] > 128 ? "w" : p[1] > 128 ? "g" : "b");
    };
    // read from the south, then from the north: turned by half a circle
    EXPECT_EQ(hue(110, 190) + hue(130, 190) + hue(110, 170), "gwb");
    EXPECT_EQ(hue(120, 120), "b");
    EXPECT_EQ(hue(130, 50) + hue(110, 50) + hue(130, 70), "gwb");
    lay_strip(20.0f, {strip_line, strip_line, strip_line});
    draw();
    EXPECT_EQ(at(130, 170), "255 0 0") << "a new region has lists of its own";
    EXPECT_EQ(hue(40, 170), "b");
    clear_strips();
}

TEST_F(terrain_draw_test, skid_marks_grow_by_the_length_of_rows_and_end_with_the_paint) {
    vec_rwy_geo_struct strip;
    strip.surf_tex = surface_asphalt;
    const auto rows = [&strip](const std::vector<int>& textures) {
        strip.vec_rwy_pol.clear();
        for (const int tex : textures) strip.vec_rwy_pol.push_back({static_cast<unsigned short>(tex), {}, {}});
    };
    std::vector<int> textures = {strip_blast, strip_thr2, strip_left, strip_number, strip_semi};
    textures.resize(41, strip_line);  // 40 pieces: a full step is a tenth
    rows(textures);
    std::vector<strip_coords_struct> at(41);
    find_strip_coords(strip, at.data());
    EXPECT_EQ(at[0].skid_on, 0);
    const float expected[] = {0.0f, 0.0f, 0.1f, 0.125f, 0.15f, 0.2f, 0.3f};
    for (int r = 0; r < 7; ++r) EXPECT_NEAR(at[static_cast<size_t>(r)].skid_t, expected[r], 1e-5f) << r;
    for (const strip_coords_struct& row : at) EXPECT_TRUE(row.skid_t >= 0.0f && row.skid_t <= 1.0f);
    EXPECT_LT(at[40].skid_t, at[34].skid_t) << "they become fewer towards the far end";
    strip.surf_tex = surface_grass;
    find_strip_coords(strip, at.data());
    EXPECT_EQ(at[10].skid_on + at[2].old_skid_on, 0);
}

TEST_F(terrain_draw_test, a_projection_repeats_in_metres_and_ends_with_its_layer) {
    layer(0).plane_tex_ref = dots, layer(0).project_texes = 1, layer(0).cus_proj = {40.0f, 80.0f};
    add_square(0, 0, 0, 200);
    layer(1).plane_tex_ref = green;
    add_square(1, 150, 150, 50, 1.0f);
    look_down();
    draw();
    // the lit quarter of each repeat is its west and, since t runs north, its south
    const auto blue = [](int x, int z) { return pixels(x, side - 1 - z, 1, 1)[2]; };
    EXPECT_GT(blue(10, 60), 240);
    EXPECT_GT(blue(50, 140), 240);
    EXPECT_LT(blue(30, 60), 15);
    EXPECT_LT(blue(10, 20), 15);
    EXPECT_EQ(at(175, 175), "0 255 0") << "the next layer has coordinates of its own";
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_GEN_S));
    ren.num_tex_units = 2;
    set_proj_tex(proj_ground, 2, &layer(0).cus_proj);
    glActiveTexture(GL_TEXTURE0 + 2);
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_GEN_S)) << "a unit that is not there is left alone";
    glActiveTexture(GL_TEXTURE0);
}

TEST_F(terrain_draw_test, a_border_and_a_composite_blend_by_their_masks) {
    layer(0).plane_tex_ref = red;
    add_square(0, 0, 0, 200);
    xlay_struct& over = layer(1);
    over.plane_tex_ref = green, over.has_border_mask = 1, over.alpha_blnd = 1, over.poly_offset = 1;
    scratch_dx = scratch_dy = 1, scratch_array[0] = 128;
    over.plane_bor_ref = tman.load_texture(0, load_ogl, tex_free, filter_alpha, scratch_name);
    add_square(1, 0, 0, 100);
    xlay_struct& mixed = layer(2);  // the base's alpha less the level's weighs it over the composite
    mixed.compo_tex_ref = green, mixed.composite_texes = 1;
    scratch_dx = scratch_dy = 1;
    const unsigned char half[4] = {0, 0, 255, 64};
    std::copy(half, half + 4, scratch_array);
    mixed.plane_tex_ref = tman.load_texture(0, load_ogl, tex_free, filter_rgba, scratch_name);
    add_square(2, 100, 100, 100, 1.0f);
    look_down();
    draw();
    const auto p = pixels(50, side - 51, 1, 1), q = pixels(150, side - 151, 1, 1);
    EXPECT_NEAR(p[0], 127, 3);
    EXPECT_NEAR(p[1], 128, 3);
    EXPECT_NEAR(q[1], 191, 3) << "green where the base lets it through";
    EXPECT_NEAR(q[2], 64, 3);
}

TEST_F(terrain_draw_test, water_moves_with_the_flight_and_not_with_the_wall_clock) {
    for (int ref = tex_water; ref <= tex_water_last; ++ref) {
        scratch_dx = scratch_dy = 1;
        scratch_array[0] = static_cast<unsigned char>(2 * (ref - tex_water) + 1);
        scratch_array[1] = scratch_array[2] = 255;
        tman.load_texture(0, load_ogl, ref, filter_rgb, scratch_name);
    }
    skyc.wat_col[0] = skyc.wat_col[1] = 1.0f, skyc.wat_col[2] = 0.0f;
    layer(0).plane_tex_ref = tex_water, layer(0).project_texes = 1;
    add_square(0, 0, 0, 200);
    look_down();
    mnw.prd_FM = 0.5f;
    const auto frame = [&] {
        mnw.real_time += 1.0f;
        draw();
        return (pixels(5, 5, 1, 1)[0] - 1) / 2;
    };
    EXPECT_EQ(frame(), 4) << "a quarter of a cycle";
    mnw.prd_FM = 0.0f;
    EXPECT_EQ(frame(), 4) << "paused";
    mnw.prd_FM = 1.0f;
    EXPECT_EQ(frame(), 11);
    atm.wave_height = 2.0f;
    EXPECT_EQ(frame(), 6 * 16 + 4);
    EXPECT_EQ(at(5, 5).substr(at(5, 5).find(' ')), " 255 0") << "in the water's colour, unlit";
    mnw.real_time = 0.0f;
    EXPECT_EQ(frame(), 6 * 16 + 4) << "a clock that begins anew is no step back";
}

TEST_F(terrain_draw_test, the_sea_from_a_low_height_took_minutes_where_the_processor_draws) {
    constexpr GLenum most_anisotropy = 0x84FE;
    scratch_dx = scratch_dy = 4;
    tman.load_texture(0, load_ogl, tex_water, filter_rgb_mip, scratch_name);
    tman.bind_ref(tex_water, 0, combine_default);
    float samples = 0.0f;
    glGetTexParameterfv(GL_TEXTURE_2D, most_anisotropy, &samples);
    EXPECT_EQ(samples == 1.0f, gl_renderer.find("llvmpipe") != std::string::npos) << gl_renderer;
}

TEST_F(terrain_draw_test, fog_lies_over_the_view_and_not_over_the_map) {
    add_square(0, 0, 0, 200);
    look_down();
    const float blue[4] = {0, 0, 1, 1};
    glFogfv(GL_FOG_COLOR, blue);
    glFogf(GL_FOG_START, 10.0f), glFogf(GL_FOG_END, 50.0f);
    draw();
    EXPECT_EQ(at(100, 100), "0 0 255");
    stg.mapW_tab = 4;
    draw(1);
    EXPECT_EQ(at(100, 100), "255 0 0");
}

TEST_F(terrain_draw_test, the_pick_render_shows_what_lies_below_airports_alone) {
    add_square(0, 0, 0, 100);
    layer(1).before_airports = 0, layer(1).plane_tex_ref = green;
    add_square(1, 100, 100, 100);
    vec_mod.assign(1, {});
    vec_mod[0].vec_lod.resize(1);
    vec_mod[0].cull_radius = 5.0f;
    vec_mod[0].vec_lod[0].dl_day = static_cast<int>(glGenLists(1));
    glNewList(static_cast<GLuint>(vec_mod[0].vec_lod[0].dl_day), GL_COMPILE);
    glEndList();
    layer(2).objct_buckets.Insert(new scene_objct_struct{0, {50.0f, 0.0f, 150.0f}});
    look_down();
    draw(0, 1);
    EXPECT_EQ(at(50, 50), "255 0 0");
    EXPECT_EQ(at(150, 150), "0 0 0");
    EXPECT_EQ(ren.num_objects, 0);
    draw();
    EXPECT_EQ(at(150, 150), "0 255 0");
    EXPECT_EQ(ren.num_objects, 1);
    EXPECT_EQ(ren.num_object_buckets, 1);
    vec_mod.clear();
}

TEST_F(terrain_draw_test, a_bias_of_detail_puts_everything_farther_off) {
    add_square(0, 0, 0, 200)->dis_far_sqr = 150.0f * 150.0f;
    scene_patch_struct* const far = add_square(1, 0, 0, 200);
    layer(1).plane_tex_ref = green;
    far->dis_near_sqr = 150.0f * 150.0f;
    look_down(10.0f);  // the middle of the square is 141 m off
    draw();
    EXPECT_EQ(at(100, 100), "255 0 0");
    stg.LOD_bias_rat = 2.0f;
    draw();
    EXPECT_EQ(at(100, 100), "0 255 0");
}

TEST_F(terrain_draw_test, an_alert_in_its_midst_was_written_with_the_ground_s_coordinates) {
    const ogl_proj_struct repeat = {40.0f, 80.0f};
    set_proj_tex(proj_ground, 0, &repeat);
    const auto show = alert_seam.show;
    alerts_in_window();
    g_done = 1;  // nobody is there to answer
    alert_seam.show(0, {}, alert_message);
    g_done = 0;
    alert_seam.show = show;
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_GEN_S));
}
}  // namespace
