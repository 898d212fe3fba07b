// Tiles of real land against published places and heights, and against each other.
#include <cmath>
#include <filesystem>
#include <fstream>
#include <set>

#include "data_file.h"
#include "earth_tile.h"
#include "elevation.h"
#include "land_classes.h"
#include "mars_relief.h"
#include "rivers.h"
#include "shores.h"
#include "support.h"

namespace {
const std::string earth_tables = INSTALL_FOLDER "Resources/Earth nav data/apt.dat";
constexpr int side = nodes_per_degree;

// Index in the nodes of a tile, which have one more all round.
int index_of(double at, int corner) { return static_cast<int>(lround((at - corner) * side)) + 1; }

const ground_node& node_at(const node_values<ground_node>& nodes, tile_place tile, double lat, double lon) {
    return nodes.at(index_of(lat, tile.lat), index_of(lon, tile.lon));
}

TEST(land_tiles_test, land_and_water_lie_where_they_do) {
    const shores coast;
    const struct {
        const char* name;
        double lat, lon;
        int level;
    } places[] = {
        {"Catalina", 33.39, -118.42, 1},
        {"San Pedro Channel", 33.55, -118.35, 0},
        {"San Clemente Island", 32.90, -118.50, 1},
        {"Santa Cruz Island", 34.01, -119.75, 1},
        {"Santa Barbara Channel", 34.20, -119.70, 0},
        {"Los Angeles", 34.05, -118.25, 1},
        {"Salton Sea", 33.30, -115.84, 2},
        {"San Diego Bay's mouth", 32.62, -117.20, 0},
        {"midst of Lake Superior", 47.60, -87.50, 2},
        {"Manitoulin", 45.75, -82.20, 3},
        {"midst of the Caspian", 42.00, 50.50, 2},
        {"London", 51.51, -0.12, 1},
        {"Singapore", 1.36, 103.80, 1},
        {"Viti Levu", -17.80, 178.00, 1},
        {"date line in the Pacific", 0.0, 179.99, 0},
        {"Wrangel Island, on the date line", 71.20, 180.0, 1},
        {"South Pole", -89.9, 20.0, 1},
        {"Ross Ice Shelf", -81.0, -175.0, 1},
        {"North Pole", 89.9, 20.0, 0},
        {"Bass Strait", -39.9, 145.5, 0},
    };
    for (const auto& p : places) {
        const node_window one = {static_cast<int>(lround(p.lat * side)),
                                 static_cast<int>(lround(p.lon * side)), 1, 1};
        EXPECT_EQ(coast.nodes(one).at(0, 0).level, p.level) << p.name;
    }
    // what a window tells of a place does not hang on where it begins
    const node_window wide = {33 * side + 100, -119 * side - 40, 90, 300},
                      part = {33 * side + 150, -119 * side + 60, 20, 90};
    const auto a = coast.nodes(wide), b = coast.nodes(part);
    for (int j = 0; j < part.rows; ++j)
        for (int i = 0; i < part.columns; ++i) {
            EXPECT_EQ(a.at(j + 50, i + 100).level, b.at(j, i).level);
            EXPECT_EQ(a.at(j + 50, i + 100).east, b.at(j, i).east);
        }
}

TEST(land_tiles_test, a_tile_has_the_known_heights_drains_and_is_level_at_airports) {
    const earth_land land(earth_tables);
    const tile_place tile = {34, -118};
    const node_values<ground_node> nodes = land.nodes(tile);
    const struct {
        const char* name;
        double lat, lon, height, off;  // metres
    } places[] = {
        {"San Antonio", 34.2892, -117.6464, 3069, 40}, {"Pasadena", 34.1563, -117.985, 130, 110},
        {"Cajon Summit", 34.349, -117.447, 1277, 320}, {"Victorville", 34.536, -117.292, 830, 90},
        {"Palmdale", 34.60, -117.95, 800, 120},        {"El Mirage Lake", 34.64, -117.60, 865, 25},
        {"Ontario", 34.065, -117.650, 300, 60},        {"Rogers Lake", 34.90, -117.84, 693, 12},
    };
    for (const auto& p : places)
        EXPECT_NEAR(node_at(nodes, tile, p.lat, p.lon).height, p.height, p.off) << p.name;

    const known_places& known = land.places();
    const auto airports = known.airports.near(34.5, -117.5, 0.7);
    int on_planes = 0, hollows = 0;
    for (int j = 2; j < side; ++j)
        for (int i = 2; i < side; ++i) {
            const ground_node& n = nodes.at(j, i);
            const double lat = nodes.window.lat(j), lon = nodes.window.lon(i);
            double nearest = 1.0e9, ele = 0.0;
            int close = 0;
            for (const known_airport& a : airports) {
                const double away = metres_from(a, lat, lon);
                close += away < 4000.0;
                if (away < nearest) nearest = away, ele = a.ele;
            }
            if (nearest < 650.0 && close == 1) {
                ++on_planes;
                EXPECT_NEAR(n.height, ele, 0.05) << lat << ' ' << lon;
            }
            if (nearest < 4000.0 || n.cover == cover_water) continue;
            bool lower = false;
            for (int dj = -1; dj <= 1; ++dj)
                for (int di = -1; di <= 1; ++di) lower |= nodes.at(j + dj, i + di).height < n.height;
            for (const auto* sinks : {&known.basins, &known.salt_lakes})
                for (const known_point& s : sinks->near(lat, lon, 0.005)) lower |= s.lat != 0.0;
            hollows += !lower;
        }
    EXPECT_GT(on_planes, 100);
    EXPECT_EQ(hollows, 0);

    // towns, chaparral, pines and desert are where they are
    const auto share = [&](double lat, double lon, std::set<int> classes) {
        int count = 0;
        const int j0 = index_of(lat, tile.lat), i0 = index_of(lon, tile.lon);
        for (int j = j0 - 10; j < j0 + 10; ++j)
            for (int i = i0 - 10; i < i0 + 10; ++i)
                count += static_cast<int>(classes.count(nodes.at(j, i).cover));
        return count / 400.0;
    };
    EXPECT_GT(share(34.08, -117.90, {land_city, land_industry, land_suburb_dry}), 0.7);
    EXPECT_GT(share(34.24, -117.80, {land_scrub, land_woods_open, land_forest_conifer}), 0.8);
    EXPECT_GT(share(34.70, -117.40, {land_desert, land_desert_rock, land_wash}), 0.8);
    EXPECT_GT(share(34.90, -117.84, {land_salt, land_airfield_dry}), 0.6);
}

// Each from what is known of it alone, by programs that share nothing.
TEST(land_tiles_test, neighbours_have_one_edge) {
    const earth_land west_land(earth_tables), east_land(earth_tables);
    const node_values<ground_node> west = west_land.nodes({33, -119}), east = east_land.nodes({33, -118});
    int seams = 0;  // where the cover of one does not go on in the other
    for (int j = 1; j <= side + 1; ++j) {
        for (int i = 0; i < 3; ++i) seams += west.at(j, side + i).cover != east.at(j, i).cover;
        const ground_node &a = west.at(j, side + 1), &b = east.at(j, 1);
        ASSERT_EQ(a.height, b.height) << j;
        ASSERT_EQ(a.nx, b.nx) << j;
        ASSERT_EQ(a.nz, b.nz) << j;
        ASSERT_EQ(a.cover == cover_water, b.cover == cover_water) << j;
        ASSERT_EQ(a.north, b.north) << j;
    }
    EXPECT_LE(seams, 3 * side / 100) << "of nodes that both have";
}

TEST(land_tiles_test, harbours_have_quays_and_open_shores_beaches) {
    const earth_land land(earth_tables);
    const tile_place tile = {33, -119};
    const node_values<ground_node> nodes = land.nodes(tile);
    const auto count = [&](double lat, double lon, int reach, int cover) {
        int sum = 0;
        const int j0 = index_of(lat, tile.lat), i0 = index_of(lon, tile.lon);
        for (int j = j0 - reach; j <= j0 + reach; ++j)
            for (int i = i0 - reach; i <= i0 + reach; ++i) sum += nodes.at(j, i).cover == cover;
        return sum;
    };
    EXPECT_NEAR(node_at(nodes, tile, 33.3875, -118.4014).height, 648.0, 25.0)
        << "Orizaba, worn down by the airport beside it";
    const int quays = count(33.765, -118.23, 8, land_industry);
    EXPECT_GT(quays, 40) << "Long Beach";
    EXPECT_LT(count(33.765, -118.23, 8, land_beach), quays);
    EXPECT_GT(count(33.91, -118.43, 5, land_beach), 5) << "El Segundo";
}

TEST(land_tiles_test, mars_has_its_mountains_and_its_canyon) {
    const mars_relief mars(INSTALL_FOLDER "Resources/Mars nav data/apt.dat");
    const auto highest = [&](double lat, double lon) {
        double h = -1.0e9;
        for (double dy = -1.5; dy <= 1.5; dy += 0.05)
            for (double dx = -1.5; dx <= 1.5; dx += 0.05) h = std::max(h, mars.height(lat + dy, lon + dx));
        return h;
    };
    EXPECT_NEAR(highest(18.65, -133.8), 21200.0, 1200.0) << "Olympus Mons";
    EXPECT_NEAR(highest(11.92, -104.08), 18200.0, 1200.0) << "Ascraeus Mons";
    EXPECT_NEAR(highest(25.02, 147.21), 14100.0, 1200.0) << "Elysium Mons";
    EXPECT_NEAR(mars.height(-10.1, -73.0), -13120 * 0.3048, 1.0) << "the landing ground in Melas";
    EXPECT_LT(mars.height(-12.6, -65.0), -3000.0) << "Coprates";
    EXPECT_GT(mars.height(-14.5, -73.0), 2000.0) << "the plateau beside it";
    EXPECT_LT(mars.height(-42.4, 68.0), -6500.0) << "Hellas";
    EXPECT_NEAR(mars.height(30.0, 180.0), mars.height(30.0, -180.0), 0.001);
}

TEST(land_tiles_test, what_is_missing_or_damaged_is_told) {
    const auto fault = [](auto&& action) {
        try {
            action();
        } catch (const std::runtime_error& e) {
            return std::string(e.what());
        }
        return std::string();
    };
    EXPECT_NE(fault([] { shores("/nowhere/shores.nc"); }).find("gmt-gshhg-high"), std::string::npos);
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "land_tiles_test";
    std::filesystem::create_directories(folder);
    for (const char* name : {"elevation.z", "rivers.z"}) {
        std::ifstream in(world_data_folder() + name, std::ios::binary);
        std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        std::ofstream(folder / name, std::ios::binary) << bytes.substr(0, bytes.size() / 2);
    }
    EXPECT_NE(fault([&] { elevation((folder / "elevation.z").string()); }).find("damaged"),
              std::string::npos);
    EXPECT_NE(fault([&] { rivers((folder / "rivers.z").string()); }).find("damaged"), std::string::npos);
    EXPECT_NE(fault([&] { earth_land("/nowhere/apt.dat"); }).find("apt.dat"), std::string::npos);
    // half of the shores
    std::ifstream in(shores_path, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::ofstream(folder / "half.nc", std::ios::binary) << bytes.substr(0, bytes.size() / 2);
    EXPECT_NE(fault([&] { shores((folder / "half.nc").string()); }).find("gmt-gshhg-high"),
              std::string::npos);

    EXPECT_EQ(box_of_tiles(10, 179, 11, -179).size(), 6u) << "a box across the date line";
    EXPECT_EQ(block_of_tiles(10, 179, 3).back().lon, -180);
    EXPECT_EQ(block_of_tiles(89, 0, 3).size(), 6u);

    const std::string program = TOOL_FOLDER "world_make ", out = " --out '" + folder.string() + "/out'";
    for (const char* wrong :
         {"34", "34 x", "34 -118 0", "34 -118 21", "91 0", "34 -118 1.5", "34 -118 nan", "--foo 34 -118",
          "--box 34 -118 33 -117", "--box 33 -117 34 -118", "34 -118 --out", "scene ''"})
        EXPECT_EQ(test::run(program + wrong).status, 2) << wrong;
    const test::run_result full = test::run("ulimit -f 40; " + program + "--mars -10 -73" + out);
    EXPECT_EQ(full.status, 1);
    EXPECT_NE(full.output.find("cannot write"), std::string::npos) << full.output;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder / "out"))
        EXPECT_TRUE(entry.is_directory()) << entry.path();
    const test::run_result scene =
        test::run("ulimit -f 40; " + program + "scene '" + (folder / "out").string() + "'");
    EXPECT_EQ(scene.status, 1) << "a picture that does not fit ended the program";
    std::filesystem::remove_all(folder / "out");
    // the same tile twice at once, at the pole and at the date line, where it is narrow
    const std::string pole = program + "--mars -90 180" + out;
    EXPECT_EQ(test::run(pole + " & " + pole + " && wait $!").status, 0);
    int left = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder / "out"))
        left += !entry.is_directory();
    EXPECT_EQ(left, 1);
    std::ofstream(folder / "file") << "in the way";
    EXPECT_EQ(test::run(program + "--mars -10 -73 --out '" + (folder / "file").string() + "'").status, 1);
    EXPECT_EQ(test::run(program + "--mars -10 -73" + out).status, 0);
    std::filesystem::remove_all(folder);
}
}  // namespace
