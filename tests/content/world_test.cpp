// The small worlds, loaded as the simulator loads scenery, against closed forms and against their own files.
#include <array>
#include <cmath>
#include <map>
#include <set>

#include "../scenery/tile_bytes.h"
#include "../scenery/tile_folder.h"
#include "core/disk/mapfile.h"
#include "core/math/globe.h"
#include "core/program/logs.h"
#include "scenery/decode/dsf.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/objects/object_build.h"
#include "scenery/objects/objects.h"
#include "weather/atmosphere.h"
#include "world_make.h"
#include "world_package.h"

namespace {
constexpr double metres = 111319.6;  // a degree of latitude

struct decoded_point {
    double lon, lat, ele, nx, nz, s;
};
using corners = std::array<decoded_point, 3>;
struct decoded_triangle {
    unsigned terrain;
    bool overlay;
    corners at;
};

// What the decoder tells of a file.
struct decoded_tile {
    std::vector<decoded_triangle> triangles;
    std::vector<std::string> terrain;
    int polygons = 0, windings = 0, roads = 0;

    explicit decoded_tile(const std::string& path) {
        const unsigned char* first = nullptr;
        const XMappedFile file(path.c_str(), &first);
        DSFCallbacks_t table = callbacks();
        EXPECT_EQ(DSFReadMem(reinterpret_cast<const char*>(file.begin()),
                             reinterpret_cast<const char*>(file.end()), &table, this),
                  0);
    }

private:
    static decoded_tile& of(void* ref) { return *static_cast<decoded_tile*>(ref); }
    static DSFCallbacks_t callbacks() {
        DSFCallbacks_t t = test::deaf_callbacks();
        t.AcceptTerrainDef_f = [](const char* name, void* ref) { of(ref).terrain.push_back(name); };
        t.BeginPatch_f = [](unsigned terrain, double, double, unsigned char flags, float*, float*, int depth,
                            void* ref) {
            of(ref).patch_ = {terrain, (flags & tile_overlay) != 0, {}};
            of(ref).depth_ = depth;
        };
        t.BeginPrimitive_f = [](int type, void* ref) {
            EXPECT_EQ(type, 1) << "all are strips";
            of(ref).strip_.clear();
        };
        t.AddPatchVertex_f = [](double* c, void* ref) {
            of(ref).strip_.push_back({c[0], c[1], c[2], c[3], c[4], of(ref).depth_ == 7 ? c[5] : 0.0});
        };
        t.EndPrimitive_f = [](void* ref) { of(ref).take_strip(); };
        t.BeginSegment_f = [](unsigned, unsigned, unsigned, double*, bool, void* ref) { ++of(ref).roads; };
        t.BeginPolygon_f = [](unsigned, unsigned short, void* ref) { ++of(ref).polygons; };
        t.BeginPolygonWinding_f = [](void* ref) { ++of(ref).windings; };
        return t;
    }
    void take_strip() {
        for (size_t n = 2; n < strip_.size(); ++n) {
            patch_.at = {strip_[n - 2], strip_[n - 1], strip_[n]};
            triangles.push_back(patch_);
        }
    }
    decoded_triangle patch_{};
    int depth_ = 0;
    std::vector<decoded_point> strip_;
};

class world_test : public test::system_test {
protected:
    test::tile_folder folder;
    const std::string package = folder.path() + "Custom Scenery/world/";

    void SetUp() override {
        test::system_test::SetUp();
        init_paths(folder.path());
        clear_objects();
        vec_nav.clear();
        test::set_region(33.0f, -119.0f);
        stg.draw_objs_05 = 6;
        stg.draw_vecs_03 = 3;
    }
    void TearDown() override {
        EXPECT_TRUE(test::alerts.empty())
            << test::alerts[0].text.line[0] << ' ' << test::alerts[0].text.line[1];
        scenery_packages.clear();
        dsf_library.clear();
        clear_objects();
        test::fresh();  // planet and settings
    }
    void make(const std::string& name) {
        make_world(name, package);
        DSF_ScanSceneryFolder();
    }
    xdeg_struct& load(int lat, int lon) {
        const int row = lat - static_cast<int>(env.lat_sou), column = lon - static_cast<int>(env.lon_wes);
        EXPECT_EQ(read_new_env(lat, row, lon, column), 1);
        return xdeg[column][row];
    }
    std::string file_of(int lat, int lon) const {
        return package + (env.planet ? "Mars" : "Earth") + " nav data/" +
               return_latlon_str_ENV(lat, lon, ".dsf");
    }
    // Elevation of the ground that is stood on; x and z of a place widen with its elevation.
    static double ground(double lat, double lon) {
        double ele = 0.0;
        for (int pass = 0; pass < 4; ++pass) {
            double x, y, z, lat_there, lon_there;
            xdob_xyz_with_latlonel(&x, &y, &z, lat, lon, ele);
            y = return_terrain_y(static_cast<float>(x), static_cast<float>(z), 26);
            xdob_latlonel_with_xyz(&lat_there, &lon_there, &ele, x, y, z);
        }
        return ele;
    }
    static bool wet(double lat, double lon) {
        double x, y, z;
        xdob_xyz_with_latlonel(&x, &y, &z, lat, lon, 0.0);
        return terrain_is_wet(static_cast<float>(x), static_cast<float>(z), 26);
    }
};

// A cell's diagonal, m: the source is straight across it, the globe is not.
constexpr double cell = 1720.0;
constexpr double bulge = cell * cell / 8.0 / 6378145.0, narrow = 0.02;

TEST_F(world_test, the_cone_has_its_closed_form) {
    make("cone");
    load(34, -118);
    const test::fp_traps traps;
    constexpr double radius = 30000.0, steepness = 1600.0 / radius;
    int on_the_cone = 0;
    for (double lat = 34.013; lat < 34.98; lat += 0.0137)
        for (double lon = -117.987; lon < -117.02; lon += 0.0159) {
            const double away =
                hypot((lat - 34.5) * metres, (lon + 117.5) * metres * cos(34.5 * dob_degtorad));
            const double meant = 200.0 + 1600.0 * std::max(0.0, 1.0 - away / radius);
            const bool at_an_edge = away < 1.5 * cell || fabs(away - radius) < cell;
            // a cone is hollow nowhere: facets lie below it. It bends along its circles, by its
            // steepness over the distance
            const double sag = at_an_edge             ? steepness * cell
                               : away < radius - cell ? steepness / (away - cell) * cell * cell / 8.0
                                                      : 0.0;
            const double quantised = 0.5 * 2048.0 / 65535.0;
            const double slack = quantised + bulge + narrow;
            EXPECT_LE(ground(lat, lon), meant + (at_an_edge ? sag : 0.0) + slack) << lat << ' ' << lon;
            EXPECT_GE(ground(lat, lon), meant - sag - slack) << lat << ' ' << lon;
            EXPECT_FALSE(wet(lat, lon));
            on_the_cone += away < radius;
        }
    EXPECT_GT(on_the_cone, 800);
    EXPECT_NEAR(ground(34.5, -117.5), 1800.0, steepness * cell);
}

TEST_F(world_test, mars_has_craters_and_slopes_of_its_own_size) {
    make("mars");
    EXPECT_EQ(read_new_env(-11, 0, -73, 0), 0) << "not on Earth";
    env.planet = 1;
    set_planet_specs(1);
    test::set_region(-15.0f, -79.0f);
    load(-11, -73);
    std::map<std::pair<long, long>, decoded_point> grid;
    const decoded_tile file(file_of(-11, -73));
    for (const decoded_triangle& t : file.triangles)
        for (const decoded_point& p : t.at)
            grid[{lround((p.lon + 73.0) * 85.0), lround((p.lat + 11.0) * 85.0)}] = p;
    ASSERT_EQ(grid.size(), 86u * 86u);
    const double east_step = 2.0 / 85.0 * 3396200.0 * dob_degtorad * cos(-10.5 * dob_degtorad);
    double product = 0.0, square = 0.0, lowest = 0.0, highest = -9999.0;
    for (const auto& [at, p] : grid) {
        lowest = std::min(lowest, p.ele);
        highest = std::max(highest, p.ele);
        const auto west = grid.find({at.first - 1, at.second}), east = grid.find({at.first + 1, at.second});
        if (west == grid.end() || east == grid.end()) continue;
        const double slope = (east->second.ele - west->second.ele) / east_step;
        product += slope * -p.nx / sqrt(1.0 - p.nx * p.nx - p.nz * p.nz);
        square += slope * slope;
    }
    EXPECT_NEAR(product / square, 1.0, 0.2) << "normals lean as the ground does";
    EXPECT_LT(lowest, -4200.0);
    EXPECT_GT(highest, -3600.0);
    for (size_t n = 0; n < file.triangles.size(); n += 97) {
        const auto& [a, b, c] = file.triangles[n].at;
        const double lat = (a.lat + b.lat + c.lat) / 3.0, lon = (a.lon + b.lon + c.lon) / 3.0;
        EXPECT_NEAR(ground(lat, lon), (a.ele + b.ele + c.ele) / 3.0, 0.1);
        EXPECT_FALSE(wet(lat, lon));
    }
}

// -- the scene

class scene_test : public world_test {
protected:
    void SetUp() override {
        world_test::SetUp();
        std::filesystem::create_directories(folder.path() + "Resources/default scenery");
        std::filesystem::copy(INSTALL_FOLDER "Resources/default scenery/Tarvane objects",
                              folder.path() + "Resources/default scenery/Tarvane objects",
                              std::filesystem::copy_options::recursive);
        make("scene");
    }
};

TEST_F(scene_test, loads_without_a_word_and_all_objects_stand_on_the_ground) {
    xer.open(folder.path() + "Error.out");
    const xdeg_struct& tile = load(34, -118);
    xer.close();
    EXPECT_EQ(test::read_file(folder.path() + "Error.out"), "");
    int soft = 0;
    std::set<int> pictures, models;
    std::vector<const scene_objct_struct*> objects;
    for (const xlay_struct& layer : tile.tex_layers) {
        pictures.insert(layer.plane_tex_ref);
        soft += layer.has_border_mask && layer.plane_bor_ref != 0 && layer.poly_offset == 1;
        for (unsigned level = 0; level < layer.objct_buckets.GetLayerCount(); ++level)
            layer.objct_buckets.IterateBucketLayer(
                level, [&](XBucketID, const std::vector<scene_objct_struct*>& some) {
                    objects.insert(objects.end(), some.begin(), some.end());
                });
    }
    EXPECT_EQ(soft, 3) << "sand, scrub, rock";
    EXPECT_GE(pictures.size(), 1u + 4u + 3u) << "water, grounds, the objects' textures";
    EXPECT_GT(objects.size(), 400u);
    for (const scene_objct_struct* object : objects) {
        models.insert(object->M_SIM);
        EXPECT_FALSE(terrain_is_wet(object->xyz[0], object->xyz[2], 26));
        const float y = return_terrain_y(object->xyz[0], object->xyz[2], 26);
        EXPECT_NEAR(object->xyz[1], y, 0.05) << vec_mod[static_cast<size_t>(object->M_SIM)].path;
    }
    EXPECT_GE(models.size(), 9u);
}

// The middle of a triangle, so that it can be found again.
std::pair<double, double> place_of(const decoded_triangle& t) {
    return {t.at[0].lon + t.at[1].lon + t.at[2].lon, t.at[0].lat + t.at[1].lat + t.at[2].lat};
}

TEST_F(scene_test, lies_in_layers_without_a_hole) {
    const decoded_tile tile(file_of(34, -118));
    std::map<std::pair<double, double>, const decoded_triangle*> base;
    std::map<unsigned, int> bases, overlays;
    double area = 0.0, soft = 0.0;
    std::set<double> lake, sea;
    for (const decoded_triangle& t : tile.triangles) {
        if (t.overlay) continue;
        ++bases[t.terrain];
        base[place_of(t)] = &t;
        const auto& [a, b, c] = t.at;
        area += 0.5 * fabs((b.lon - a.lon) * (c.lat - a.lat) - (c.lon - a.lon) * (b.lat - a.lat));
        if (t.terrain == 0)
            for (const decoded_point& p : t.at) (p.lon > -117.4 ? lake : sea).insert(p.ele);
    }
    EXPECT_NEAR(area, 1.0, 1e-9) << "once everywhere";
    EXPECT_EQ(base.size(), tile.triangles.size() - std::count_if(tile.triangles.begin(), tile.triangles.end(),
                                                                 [](const auto& t) { return t.overlay; }));
    ASSERT_EQ(lake.size(), 1u) << "level";
    EXPECT_NEAR(*lake.begin(), 340.0, 0.04);
    EXPECT_EQ(sea, std::set<double>({0.0}));
    for (const decoded_triangle& t : tile.triangles) {
        if (!t.overlay) continue;
        ++overlays[t.terrain];
        const auto under = base.find(place_of(t));
        ASSERT_NE(under, base.end()) << "of its own form";
        EXPECT_LT(under->second->terrain, t.terrain);
        for (size_t n = 0; n < 3; ++n) {
            EXPECT_EQ(under->second->at[n].ele, t.at[n].ele);
            EXPECT_EQ(under->second->at[n].nx, t.at[n].nx);
            EXPECT_TRUE(under->second->terrain != 0 || t.terrain == 2) << "sand alone reaches into water";
            EXPECT_TRUE(t.at[n].s > 0.05 && t.at[n].s < 0.95) << "where the mask repeats its ends meet";
            soft += t.at[n].s > 0.2 && t.at[n].s < 0.8;
        }
    }
    EXPECT_EQ(tile.terrain.size(), 5u);
    EXPECT_EQ(bases.size(), 5u);
    EXPECT_EQ(overlays.size(), 3u);
    EXPECT_GT(soft, 1000.0);
    EXPECT_EQ(tile.polygons, 3);
    EXPECT_EQ(tile.windings, 4);
    EXPECT_GE(tile.roads, 2);
}

// -- files

TEST_F(world_test, no_definition_holds_what_cannot_be_drawn) {
    int definitions = 0;
    for (const world_entry& world : all_worlds()) {
        make_world(world.name, package + world.name);
        for (const auto& entry : std::filesystem::recursive_directory_iterator(package + world.name)) {
            if (entry.path().extension() != ".ter") continue;
            const std::string text = test::read_file(entry.path().string());
            const auto has = [&](const char* word) { return text.find(word) != std::string::npos; };
            EXPECT_TRUE(has("NO_ALPHA") || has("COMPOSITE_TEX")) << entry.path();
            EXPECT_FALSE(has("LIT_TEX") && has("BORDER_TEX")) << entry.path();
            ++definitions;
        }
    }
    EXPECT_GE(definitions, 12);
}

// One triangle on each border, its heights over the range of the file.
tile_writer hut_at(int lon, double height, double nx = 0.0) {
    tile_writer tile(34, lon, 0.0, 1000.0);
    const unsigned grass = tile.terrain("grass.ter");
    for (const double side : {0.0, 1.0}) {
        tile.begin_patch(grass, tile_base);
        const double in = lon + (side == 0.0 ? 0.1 : 0.9), border = lon + side;
        const tile_point south{border, 34.4, height, nx, 0}, north{border, 34.5, height, nx, 0},
            middle{in, 34.45, 50};
        tile.triangles(side == 0.0 ? std::vector<tile_point>{south, north, middle}
                                   : std::vector<tile_point>{north, south, middle});
    }
    return tile;
}

TEST_F(world_test, a_file_that_is_not_what_was_asked_for_and_borders_that_do_not_meet_are_refused) {
    world_package made(package);
    const auto refusal = [&](const tile_writer& tile) -> std::string {
        try {
            made.add_tile(tile);
        } catch (const std::runtime_error& e) {
            return std::string(e.what()).substr(std::string(e.what()).rfind(": ") + 2);
        }
        return "";
    };
    EXPECT_EQ(refusal(hut_at(-118, 1500)), "value 2 of row 2 is 1024 in the file instead of 1500");
    EXPECT_EQ(refusal(hut_at(-118, 100, 1.25)), "value 3 of row 2 is 1 in the file instead of 1.25");
    EXPECT_EQ(refusal(hut_at(-118, 100)), "");
    EXPECT_EQ(refusal(hut_at(-117, 100.1)), "the border has a step");
    EXPECT_EQ(refusal(hut_at(-119, 100, 0.01)), "the border has a crease");
    EXPECT_EQ(refusal(hut_at(-119, 100)), "");
}

TEST_F(world_test, the_program_tells_what_it_makes_and_what_went_wrong) {
    const std::string program = TOOL_FOLDER "world_make";
    const test::run_result list = test::run(program);
    EXPECT_EQ(list.status, 0);
    for (const world_entry& world : all_worlds())
        EXPECT_NE(list.output.find("\n  " + std::string(world.name)), std::string::npos) << world.name;
    const test::run_result unknown = test::run(program + " moon '" + package + "'");
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(unknown.output, "world_make: there is no world moon\n");
    EXPECT_EQ(test::run(program + " cone /proc/world").status, 1);
    EXPECT_EQ(test::run(program + " cone '" + package + "'").status, 0);
    EXPECT_TRUE(std::filesystem::exists(file_of(34, -118)));
}
}  // namespace
