// Tiles from their files to what is stood on and drawn.
#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <fstream>
#include <set>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/objects/objects.h"
#include "scenery/tile/tile_default.h"
#include "scenery/tile/tile_defs.h"
#include "scenery/tile/tile_mesh.h"
#include "scenery/tile/tile_state.h"
#include "stood_on.h"
#include "tile_bytes.h"
#include "tile_folder.h"
#include "weather/atmosphere.h"

namespace {
class tile_test : public test::system_test {
protected:
    test::tile_folder folder;

    void SetUp() override {
        test::system_test::SetUp();
        init_paths(folder.path());
        test::set_region(33.0f, -119.0f);
        stg.draw_objs_05 = 6;
    }
    static int land(double, double) { return 1; }
    static double flat(double, double) { return 100.0; }

    // World y of a place at an elevation.
    static float y_of(double lat, double lon, double ele) {
        double x, y, z;
        xdob_xyz_with_latlonel(&x, &y, &z, lat, lon, ele);
        return static_cast<float>(y);
    }
    static float ground_at(double lat, double lon, int checker = 26) {
        double x, y, z;
        xdob_xyz_with_latlonel(&x, &y, &z, lat, lon, 0.0);
        return return_terrain_y(static_cast<float>(x), static_cast<float>(z), checker);
    }
    static bool wet_at(double lat, double lon) {
        double x, y, z;
        xdob_xyz_with_latlonel(&x, &y, &z, lat, lon, 0.0);
        return terrain_is_wet(static_cast<float>(x), static_cast<float>(z), 26) != 0;
    }
};

TEST_F(tile_test, the_ground_has_the_height_of_its_source_and_water_where_it_lies) {
    const auto slope = [](double lat, double lon) {
        return 200.0 + 800.0 * (lat - 34.0) + 400.0 * (lon + 118.0);
    };
    const auto lake = [](double lat, double lon) { return lat > 34.5 && lon > -117.5 ? 0 : 1; };
    folder.write_tile(test::land_tile(34, -118, slope, lake, 51));
    ASSERT_EQ(read_new_env(34, 1, -118, 1), 1);
    const test::fp_traps traps;
    for (double lat = 34.01; lat < 34.97; lat += 0.0371)
        for (double lon = -117.99; lon < -117.01; lon += 0.0433) {
            // 0.125 m of quantised height and the bulge of 2.8 km of globe
            EXPECT_NEAR(ground_at(lat, lon), y_of(lat, lon, slope(lat, lon)), 0.25) << lat << ' ' << lon;
            const bool in_lake = lat > 34.52 && lon > -117.48, on_land = lat < 34.48 || lon < -117.52;
            if (!in_lake && !on_land) continue;
            EXPECT_EQ(wet_at(lat, lon), in_lake) << lat << ' ' << lon;
        }
    // east and south slopes, in metres per metre
    ground_at(34.3, -117.3);
    EXPECT_NEAR(env.terrain_nrm[0], -400.0 / (111319.6 * cos(34.3 * dob_degtorad)), 4e-3)
        << "the globe leans by 0.4 degrees";
    EXPECT_GT(env.terrain_nrm[1], 0.99f);
    EXPECT_TRUE(wet_at(33.5, -117.5)) << "no tile lies there";
    EXPECT_NEAR(ground_at(33.5, -117.5), y_of(33.5, -117.5, 0.0), 0.01);
    EXPECT_EQ(ground_at(35.0, -117.5), 0.0f) << "the rim of the region";
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(tile_test, an_asker_finds_again_from_where_it_was) {
    folder.write_tile(test::land_tile(34, -118, flat, land));
    ASSERT_EQ(read_new_env(34, 1, -118, 1), 1);
    ren.num_fas_finds = ren.num_slo_finds = 0;
    ground_at(34.5, -117.5, 30);
    EXPECT_EQ(ren.num_slo_finds, 1);
    for (int i = 0; i < 20; ++i) ground_at(34.5 + i * 1e-4, -117.5, 30);
    EXPECT_EQ(ren.num_slo_finds, 1);
    EXPECT_EQ(ren.num_fas_finds, 20);
    clear_degree(&xdeg[1][1]);
    EXPECT_NEAR(ground_at(34.5, -117.5, 30), y_of(34.5, -117.5, 0.0), 0.01) << "what was found is forgotten";
}

TEST_F(tile_test, the_edges_of_triangles_leave_no_gap) {
    folder.write_tile(test::land_tile(34, -118, flat, land, 85));
    ASSERT_EQ(read_new_env(34, 1, -118, 1), 1);
    const std::vector<d3_struct> corners = test::stood_on(xdeg[1][1]);
    using edge = std::array<float, 4>;
    const auto edge_at = [&](size_t i) {
        const d3_struct &a = corners[i], &b = corners[i % 3 == 2 ? i - 2 : i + 1];
        return edge{a.x, a.z, b.x, b.z};
    };
    std::set<edge> all;
    for (size_t i = 0; i < corners.size(); ++i) all.insert(edge_at(i));
    size_t shared = 0, gaps = 0;
    for (const edge& e : all) {
        if (!all.count({e[2], e[3], e[0], e[1]})) continue;  // the tile's rim
        ++shared;
        for (const float part : {0.0f, 0.25f, 0.3f, 0.5f, 0.9f})
            gaps += !find_terrain_poly(e[0] + part * (e[2] - e[0]), e[1] + part * (e[3] - e[1]), 26);
    }
    EXPECT_GT(shared, size_t{40000});
    EXPECT_EQ(gaps, size_t{0});
}

TEST_F(tile_test, neighbours_share_their_edge_exactly) {
    const auto hills = [](double lat, double lon) { return 500.0 + 300.0 * sin(9.0 * lat) * cos(7.0 * lon); };
    for (const int lat : {33, 34})
        for (const int lon : {-119, -118}) {
            // heights of one row are quantised otherwise, so that only the seam can make them equal
            tile_writer tile(lat, lon, lat == 33 ? -512.0 : -333.0, lat == 33 ? 7680.0 : 4000.0);
            mesh_source source;
            source.cells = 51;
            source.height = hills;
            source.land_class = land;
            source.terrain = {"terrain_Water", "land.ter"};
            write_mesh(&tile, source);
            folder.write_tile(tile);
        }
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 2; ++column)
            ASSERT_EQ(read_new_env(33 + row, row, -119 + column, column), 1);
    const auto places = [](const xdeg_struct& tile) {
        std::set<std::array<float, 3>> all;
        for (const d3_struct& v : test::stood_on(tile)) all.insert({v.x, v.y, v.z});
        return all;
    };
    const auto common = [&](const xdeg_struct& a, const xdeg_struct& b) {
        const auto in_a = places(a);
        size_t count = 0;
        for (const auto& p : places(b)) count += in_a.count(p);
        return count;
    };
    for (const int n : {0, 1}) {
        EXPECT_EQ(common(xdeg[0][n], xdeg[1][n]), 52u);
        EXPECT_EQ(common(xdeg[n][0], xdeg[n][1]), 52u);
    }
    EXPECT_EQ(common(xdeg[0][0], xdeg[1][1]), 1u);
}

TEST_F(tile_test, a_seam_of_many_vertices_takes_the_nearest_in_no_time) {
    constexpr int count = 60000;
    std::vector<d3_struct> kept;
    const d3_struct up = {0, 1, 0};
    const auto place = [](int i) {  // all over the height of a steep seam, some twice
        return d3_struct{46000.0f + static_cast<float>(i % 97), static_cast<float>(i),
                         static_cast<float>(i % 30011)};
    };
    for (int i = 0; i < count; ++i) {
        d3_struct at = place(i), nrm = up;
        kept.push_back(at);
        handle_edge(1, 1, &at, &nrm, edge_keep_right);
    }
    const double start = clock() / static_cast<double>(CLOCKS_PER_SEC);
    for (int i = 0; i < count; ++i) {
        d3_struct at = {46000.3f - static_cast<float>(i % 2 * 92000), 0, static_cast<float>(i) * 0.7f}, nrm;
        const d3_struct asked = at;
        handle_edge(2, 1, &at, &nrm, edge_take_left);
        if (i % 1999 != 0) continue;
        const auto best = std::min_element(kept.begin(), kept.end(), [&](const auto& a, const auto& b) {
            return pythag(a.x - asked.x, a.z - asked.z) < pythag(b.x - asked.x, b.z - asked.z);
        });
        EXPECT_EQ(at.y, best->y) << i;
    }
    EXPECT_LT(clock() / static_cast<double>(CLOCKS_PER_SEC) - start, 5.0) << "a search of all takes a minute";
}

TEST_F(tile_test, the_first_good_file_of_all_candidates_wins_and_leaves_nothing_of_the_bad) {
    const auto height_is = [](double h) { return [h](double, double) { return h; }; };
    folder.write_tile(test::land_tile(34, -118, height_is(10), land));
    folder.write_tile(test::land_tile(34, -118, height_is(20), land), "Custom Scenery/b/Earth nav data/");
    scenery_packages = {folder.path() + "Custom Scenery/a/", folder.path() + "Custom Scenery/b/"};
    // a file whose terrain is of a definition that it does not have, after some that it has
    std::string bytes = test::read_file(folder.path_of(34, -118));
    const size_t name = bytes.find("land.ter");
    std::string broken = bytes;
    broken[name - 1] = '_';  // one definition less
    const std::string a = folder.path_of(34, -118, "Custom Scenery/a/Earth nav data/");
    for (const std::string& bad :
         {broken, bytes.substr(0, bytes.size() / 2), std::string("not a tile"), std::string()}) {
        std::ofstream(a, std::ios::binary) << bad;
        clear_degree(&xdeg[1][1]);
        ASSERT_EQ(read_new_env(34, 1, -118, 1), 1);
        EXPECT_NEAR(ground_at(34.5, -117.5), y_of(34.5, -117.5, 20.0), 2.0);
        ASSERT_EQ(xdeg[1][1].tex_layers.size(), 1u) << "the layers of what no patch uses are dropped";
        EXPECT_EQ(xdeg[1][1].tex_layers[0].cus_proj.x_tex_size_m, 500.0f);
        EXPECT_EQ(xdeg[1][1].tex_layers[0].cus_proj.y_tex_size_m, 400.0f);
    }
    scenery_packages.clear();
    clear_degree(&xdeg[1][1]);
    ASSERT_EQ(read_new_env(34, 1, -118, 1), 1);
    EXPECT_NEAR(ground_at(34.5, -117.5), y_of(34.5, -117.5, 10.0), 2.0) << "the default folder comes last";
    clear_degree(&xdeg[1][1]);
    EXPECT_EQ(read_new_env(33, 0, -118, 1), 0);
    EXPECT_TRUE(xdeg[1][0].tex_layers.empty());
}

TEST_F(tile_test, where_no_file_is_there_is_water) {
    read_env(33, 0, -118, 1);
    EXPECT_EQ(test::stood_on(xdeg[1][0]).size(), 32u * 40u * 6u);
    ren.num_slo_finds = 0;
    EXPECT_NEAR(ground_at(33.5, -117.5), y_of(33.5, -117.5, 0.0), 0.3);
    EXPECT_TRUE(wet_at(33.5, -117.5));
    EXPECT_GT(ren.num_slo_finds, 0) << "it was the mesh that answered";
}

TEST_F(tile_test, water_at_the_poles_of_Mars_has_no_triangle_without_a_side) {
    env.planet = 1;
    set_planet_specs(1);
    for (const int south : {82, -90}) {
        test::set_region(static_cast<float>(south), -6.0f);
        const int row = south > 0 ? 7 : 0, corner = south + row;
        for (int column = 0; column < 12; ++column) make_def_env(corner, row, column - 6, column);
        int found = 0;
        for (float lon = -5.97f; lon < 5.9f; lon += 0.0131f)
            for (float off = 0.0f; off < 0.2f; off += 0.0023f) {
                const double lat = south > 0 ? 90.0 - off : -90.0 + off;
                EXPECT_TRUE(wet_at(lat, lon)) << "any query there ended the program";
                found += ren.is_set[26];
            }
        EXPECT_GT(found, 1000) << "a little away from the pole the mesh answers";
        for (auto& column : xdeg)
            for (xdeg_struct& tile : column) clear_degree(&tile);
        handle_edge(0, 0, nullptr, nullptr, edge_clear);
    }
}

TEST_F(tile_test, layers_follow_their_definitions_and_patches_their_flags) {
    tile_writer tile(34, -118);
    const auto patch = [&](const std::string& name, unsigned char flags, double west, double near_LOD,
                           double far_LOD) {
        tile.begin_patch(name.empty() ? 0 : tile.terrain(name), flags, near_LOD, far_LOD);
        const auto at = [&](double lon, double lat) {
            return tile_point{-118 + lon, 34 + west + lat, 50, 0, 0};
        };
        tile.strip({at(west, 0.1), at(west, 0.2), at(west + 0.1, 0.1), at(west + 0.1, 0.2)});
    };
    patch("", tile_base, 0.1, -1, -1);
    patch("land.ter", tile_base, 0.2, -1, -1);
    patch("land.ter", tile_overlay, 0.2, 1000, 5000);
    patch("terrain_VirtualOrtho01", tile_base, 0.3, -1, -1);
    patch("ground.png", tile_base, 0.4, -1, -1);
    patch("missing.ter", tile_base, 0.5, -1, -1);
    folder.write_tile(tile);
    ASSERT_EQ(read_new_env(34, 1, -118, 1), 1);
    const std::vector<xlay_struct>& layers = xdeg[1][1].tex_layers;
    ASSERT_EQ(layers.size(), 5u) << "water, land, land over others, hidden, image; what failed is dropped";
    EXPECT_EQ(layers[0].plane_tex_ref, 128);
    EXPECT_TRUE(layers[0].project_texes && layers[0].on_sectional && layers[0].before_airports);
    EXPECT_TRUE(layers[1].on_sectional && layers[1].poly_offset == 0 && layers[1].zap_base_alpha);
    EXPECT_TRUE(!layers[2].on_sectional && layers[2].poly_offset == 1);
    EXPECT_TRUE(layers[3].is_hidden && layers[3].poly_offset == -1);
    EXPECT_EQ(layers[4].project_texes, 0);
    layers[2].scene_buckets.IterateBucketLayer(
        3, [](XBucketID, const std::vector<scene_patch_struct*>& patches) {
            EXPECT_EQ(patches[0]->dis_near_sqr, 1e6f);
            EXPECT_EQ(patches[0]->dis_far_sqr, 25e6f);
        });
    EXPECT_TRUE(wet_at(34.25, -117.85));
    EXPECT_FALSE(wet_at(34.35, -117.75));
    EXPECT_FALSE(wet_at(34.45, -117.65)) << "hidden, but ground";
    ASSERT_EQ(test::alerts.size(), 1u);
    EXPECT_EQ(test::alerts[0].text.line[0], "Unable to locate terrain definition");
    EXPECT_EQ(test::alerts[0].text.line[1], "missing.ter");
}

TEST_F(tile_test, a_triangle_without_area_on_the_map_is_not_stood_on) {
    ytest_pol_struct cliff;
    cliff.geo = {{0, 0, 0}, {0, 0, -100}, {90, 0, -100}, {90, 100, -99.5f}};
    decompose_polygon_to_triangles(cliff, pol_fan);
    EXPECT_EQ(cliff.geo.size(), 3u) << "half a metre wide, a hundred high";
}

// A tile of which a patch has begun.
struct begun_tile : DSF_LoadState {
    begun_tile() : DSF_LoadState(&xdeg[1][1]) {
        g_lat_file = 34;
        g_lon_file = -118;
        DSF_AcceptTerrainDef("terrain_Water", this);
        float none[6] = {};
        DSF_BeginPatch(0, -1, 1e30, tile_base, none, none, 5, this);
        DSF_BeginPrimitive(0, this);
    }
    ~begun_tile() { clear_degree(&xdeg[1][1]); }
};

TEST_F(tile_test, places_that_no_globe_has_make_a_file_bad) {
    for (const double bad : {std::nan(""), 1e30, -1e30, 1e7}) {
        for (int field = 0; field < 5; ++field) {
            begun_tile state;
            double c[5] = {-117.5, 34.5, 10, 0, 0};
            c[field] = bad;
            DSF_AddPatchVertex(c, &state);
            EXPECT_TRUE(state.has_bad_geometry) << bad << " in " << field;
        }
    }
}

TEST_F(tile_test, a_vertex_does_not_stand_off_by_the_steps_of_a_float_degree) {
    begun_tile state;
    for (double part = 0.1; part < 0.9; part += 0.0137) {
        double c[5] = {-118 + part, 34 + part, 10, 0, 0}, at[3];
        DSF_AddPatchVertex(c, &state);
        xdob_xyz_with_latlonel(&at[0], &at[1], &at[2], c[1], c[0], c[2]);
        for (int axis : {0, 2})
            EXPECT_NEAR(state.scene_cur_poly->geo.back().at(axis), at[axis], 0.005) << "it was 0.35 m";
    }
}

TEST_F(tile_test, a_stray_or_empty_patch_takes_nothing_from_the_others) {
    using namespace test;
    tile_parts tile;
    tile.properties.clear();
    tile.terrain = strings({"terrain_Water"});
    const std::string scales =
        floats({1, -118, 1, 34, 100, 0, 0, 0, 0, 0});  // of the place; normals stand as 0
    const auto corner = [](unsigned lon, unsigned lat) {
        return std::vector<unsigned>{lon, lat, 6554, 0, 0};
    };
    tile.geodata = test::pool({corner(16384, 16384), corner(16384, 20000), corner(20000, 16384),
                               corner(60000, 60000), corner(60000, 62000), corner(62000, 60000)},
                              5, 16) +
                   atom("SCAL", scales) + test::pool({{0, 0, 0}}, 3, 16) +
                   atom("SCAL", floats({1, 0, 1, 0, 1, 0}));
    const std::string triangle = u8(25) + u16(0) + u16(3), base = u8(17) + u8(1);
    const std::string good =
        u8(1) + u16(0) + u8(3) + u8(0) + base + triangle + base + u8(25) + u16(3) + u16(6);
    const std::string empty = base + u8(25) + u16(0) + u16(0) + base;
    const std::string no_terrain = u8(3) + u8(7) + base + triangle;
    const std::string no_normal = u8(3) + u8(0) + u8(1) + u16(1) + base + u8(25) + u16(0) + u16(1);
    tile.commands = good + empty + no_terrain + no_normal;
    const std::string path = folder.path_of(34, -118);
    std::ofstream(path, std::ios::binary) << tile.bytes();
    ASSERT_EQ(read_new_env(34, 1, -118, 1), 1);
    const xdeg_struct& degree = xdeg[1][1];
    ASSERT_EQ(degree.tex_layers.size(), 1u);
    EXPECT_EQ(degree.tex_layers[0].scene_buckets.Total(), 2);
    EXPECT_EQ(degree.ytest_buckets.Total(), 2);
    EXPECT_TRUE(test::alerts.empty()) << "no sphere of an empty patch lies in bucket 0";
    const d3_struct at = test::stood_on(degree)[0];
    EXPECT_TRUE(find_terrain_poly(at.x, at.z, 26));
}
}  // namespace
