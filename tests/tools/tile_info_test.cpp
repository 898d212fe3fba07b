// tile_info as scenery authors meet it: a tile whose content is counted by hand, the plan's pixels, bad
// files.
#include <gtest/gtest.h>
#include <math.h>

#include <filesystem>

#include "read_png.h"
#include "support.h"
#include "tile_mesh.h"

namespace {
using test::find_colour;

// 51 x 51 cells of 500 m high land. A cell is water when its middle lies in the square from 0.25 to 0.5 of
// both sides: the 13th to 24th column and row, 144 cells. Two triangles each.
constexpr int cells = 51;
constexpr unsigned blue = 0x5f93cf, land_1 = 0x9bb66b, first_object = 0xb3261e, road = 0x3b332c;

tile_point at(double east, double north, double ele = 500.0) { return {-118.0 + east, 34.0 + north, ele}; }

tile_writer lake_tile() {
    tile_writer tile(34, -118, 0.0, 1000.0);
    mesh_source source;
    source.cells = cells;
    source.height = [](double, double) { return 500.0; };
    source.land_class = [](double lat, double lon) {
        const double north = lat - 34.0, east = lon + 118.0;
        return north > 0.25 && north < 0.5 && east > 0.25 && east < 0.5 ? 0 : 1;
    };
    source.terrain = {"terrain_Water", "land.ter"};
    write_mesh(&tile, source);
    const unsigned over = tile.terrain("over.ter");
    tile.begin_patch(over, tile_overlay, 100.0, 2000.0, true);
    tile.fan({at(0.8, 0.8, 750.0), at(0.79, 0.79), at(0.79, 0.81), at(0.81, 0.81), at(0.81, 0.79)});
    tile.triangles(
        {at(0.7, 0.8), at(0.7, 0.81), at(0.71, 0.8), at(0.71, 0.8), at(0.7, 0.81), at(0.71, 0.81)});
    for (const double east : {0.1, 0.2, 0.3}) tile.place(tile.object("oak.obj"), -118.0 + east, 34.9, 0.0);
    tile.place(tile.object("lib/house.obj"), -117.4, 34.6, 90.0);
    tile.add_polygon(tile.polygon("woods.for"), 255,
                     {{at(0.6, 0.1), at(0.7, 0.1), at(0.7, 0.2), at(0.6, 0.2)},
                      {at(0.63, 0.13), at(0.65, 0.17), at(0.67, 0.13)}});
    // 0.2 degrees north: 22.3 km
    std::vector<road_point> chain;
    for (int n = 0; n <= 4; ++n)
        chain.push_back({-117.1, 34.2 + 0.05 * n, 500.0, n == 0 ? 1u : n == 4 ? 2u : 0u});
    tile.add_road(tile.network("road.net"), 20, chain);
    return tile;
}

class tile_info_test : public ::testing::Test {
protected:
    std::string write(const tile_writer& tile) const {
        const std::string path = folder.path() + "tile.dsf";
        std::string error;
        EXPECT_TRUE(tile.write(path, &error)) << error;
        return path;
    }
    test::run_result run(const std::string& words) const {
        return test::run(TOOL_FOLDER "tile_info " + words);
    }
    test::temp_folder folder;
};
}  // namespace

TEST_F(tile_info_test, counts_what_the_tile_holds) {
    const std::string path = write(lake_tile());
    const test::run_result result = run(path);
    EXPECT_EQ(result.status, 0);
    constexpr int water = 2 * 12 * 12, land = 2 * cells * cells - water;
    const std::vector<std::string> expected = {
        std::to_string(std::filesystem::file_size(path)) + " bytes",
        "Extent      34 N to 35 N, 118 W to 117 W",
        "Elevation   500.0 to 750.0 m",
        "Terrain definitions: 3",
        ", " + std::to_string(water) + " triangles",
        ", " + std::to_string(land) + " triangles",
        "2  over.ter       1 patch, 5 triangles",
        "0  oak.obj        3 objects",
        "woods.for  1 polygon",
        "road.net  1 segment",
        ", " + std::to_string(water + land + 5) + " triangles, ",
        "Objects: 4",
        "Polygons: 1, 2 windings, 7 corners",
        "Roads: 1 segment, 3 shape points, 22.3 km",
        "subtype  20  1 segment",
        "ele 0 to 1024",
    };
    for (const std::string& words : expected)
        EXPECT_NE(result.output.find(words), std::string::npos) << words << "\nin\n" << result.output;
    // the overlay's box is 0.11 degrees of 91,409 m by 0.02 of 111,319 m, and 250 m high: 10.3 km
    const size_t row = result.output.find("2  overlay");
    ASSERT_NE(row, std::string::npos) << result.output;
    double near, far, depth, patches, triangles, lists, strips, fans, largest;
    ASSERT_EQ(sscanf(result.output.c_str() + row, "2 overlay %lf %lf %lf %lf %lf %lf %lf %lf %lf", &near,
                     &far, &depth, &patches, &triangles, &lists, &strips, &fans, &largest),
              9);
    EXPECT_EQ(std::vector<double>({near, far, depth, patches, triangles, lists, strips, fans}),
              std::vector<double>({100, 2000, 7, 1, 5, 1, 0, 1}));
    EXPECT_NEAR(largest, 10301.0, 5.0);
    EXPECT_NE(run("--mars " + path).output.find("3 shape points, 11.9 km"), std::string::npos);
}

TEST_F(tile_info_test, draws_the_lake_where_it_lies) {
    const std::string png = folder.path() + "plan.png";
    ASSERT_EQ(run(write(lake_tile()) + " " + png).status, 0);
    const test::picture plan = test::read_png(png);
    ASSERT_GT(plan.dx, 0);
    const test::colour_box land = find_colour(plan, land_1), lake = find_colour(plan, blue),
                           oaks = find_colour(plan, first_object), line = find_colour(plan, road);
    const double width = land.x2 + 1 - land.x1, height = land.y2 + 1 - land.y1;
    // a degree of longitude is cos 34.5 of one of latitude
    EXPECT_NEAR(width / height, 0.824, 0.004);
    const auto east = [&](double x) { return (x - land.x1) / width; };
    const auto north = [&](double y) { return (land.y2 + 1 - y) / height; };
    EXPECT_NEAR(east(lake.x1), 13 / 51.0, 0.003);
    EXPECT_NEAR(east(lake.x2 + 1), 25 / 51.0, 0.003);
    EXPECT_NEAR(north(lake.y2 + 1), 13 / 51.0, 0.003);
    EXPECT_NEAR(north(lake.y1), 25 / 51.0, 0.003);
    EXPECT_NEAR(lake.count, (lake.x2 + 1 - lake.x1) * (lake.y2 + 1 - lake.y1), 3);  // without holes
    EXPECT_NEAR(east(0.5 * (oaks.x1 + oaks.x2)), 0.2, 0.004);
    EXPECT_NEAR(east(oaks.x2) - east(oaks.x1), 0.2, 0.008);
    EXPECT_NEAR(north(0.5 * (oaks.y1 + oaks.y2)), 0.9, 0.004);
    EXPECT_NEAR(east(0.5 * (line.x1 + line.x2)), 0.9, 0.004);
    EXPECT_NEAR(north(line.y1) - north(line.y2), 0.2, 0.006);
}

TEST_F(tile_info_test, refuses_bad_files_with_the_decoders_words) {
    const std::string good = test::read_file(write(lake_tile()));
    const auto expect = [&](const std::string& bytes, const std::string& words) {
        const std::string path = folder.write("bad.dsf", bytes);
        const test::run_result result = run(path + " " + folder.path() + "bad.png");
        EXPECT_EQ(result.status, 1) << words;
        EXPECT_NE(result.output.find(words), std::string::npos) << words << "\nin\n" << result.output;
        EXPECT_FALSE(std::filesystem::exists(folder.path() + "bad.png"));
    };
    std::string cookie = good, command = good;
    cookie[0] = 'X';
    expect(cookie, "dsf_ErrBadCookie");
    expect(good.substr(0, good.size() / 2), "dsf_ErrMissingAtom");
    expect("", "dsf_ErrCouldNotReadFile");
    // the commands stand before the footer of 16 bytes; 35 is none
    command[command.size() - 17] = 35;
    expect(command, "");
    EXPECT_NE(run(folder.path() + "none.dsf").output.find("dsf_ErrCouldNotOpenFile"), std::string::npos);
    EXPECT_EQ(run("").status, 2);
}
