// A tile from the heights and the cover of its place.
#include "earth_tile.h"

#include <math.h>

#include <algorithm>
#include <chrono>
#include <filesystem>

#include "data_file.h"
#include "ground_mesh.h"
#include "land_cover.h"
#include "relief.h"
#include "tile_borders.h"

namespace {
constexpr double radians = 0.017453292519943295;
constexpr double node_metres = earth_degree_metres / nodes_per_degree;
constexpr int around = 24;  // nodes about the tile that its own depend on

// Slopes of the rim come from heights that the neighbour has too, those within from the drained ones.
void set_slope(const node_values<float>& height, int j, int i, ground_node* n) {
    const double width = node_metres * std::max(cos(height.window.lat(j) * radians), 0.02);
    const double east = (height.at(j, i + 1) - height.at(j, i - 1)) / (2.0 * width);
    const double north = (height.at(j + 1, i) - height.at(j - 1, i)) / (2.0 * node_metres);
    // real slopes are broken into steeper ones that lie between the nodes: light shows them
    constexpr double between_nodes = 1.4;
    const double x = between_nodes * east, z = between_nodes * north, length = sqrt(1.0 + x * x + z * z);
    n->nx = static_cast<float>(-x / length);
    n->nz = static_cast<float>(z / length);
}

}  // namespace

struct earth_sources {
    explicit earth_sources(const std::string& apt_path)
        : coarse(world_data_folder() + "elevation.z"),
          places(apt_path, world_data_folder()),
          streams(world_data_folder() + "rivers.z"),
          outlines(world_data_folder() + "regions.csv"),
          heights(coarse, coast, places, streams, outlines) {}

    elevation coarse;
    shores coast;
    known_places places;
    rivers streams;
    regions outlines;
    relief heights;
};

earth_land::earth_land(const std::string& apt_path) : sources_(std::make_unique<earth_sources>(apt_path)) {}
earth_land::~earth_land() = default;
const known_places& earth_land::places() const { return sources_->places; }

node_values<ground_node> earth_land::nodes(tile_place tile) const {
    const node_window window = {tile.lat * nodes_per_degree - around, tile.lon * nodes_per_degree - around,
                                nodes_per_degree + 1 + 2 * around, nodes_per_degree + 1 + 2 * around};
    relief::ground g = sources_->heights.of(window);
    const node_values<float> shared = g.height;
    sources_->heights.drain_within(&g, around + 1);
    const node_values<unsigned char> cover = land_cover(g, sources_->places, sources_->outlines);
    const node_window own = {window.row + around - 1, window.column + around - 1, nodes_per_degree + 3,
                             nodes_per_degree + 3};
    node_values<ground_node> nodes(own, {});
    for (int j = 0; j < own.rows; ++j)
        for (int i = 0; i < own.columns; ++i) {
            ground_node& n = nodes.at(j, i);
            const int row = j + around - 1, column = i + around - 1;
            const bool rim = j <= 1 || i <= 1 || j >= own.rows - 2 || i >= own.columns - 2;
            const node_values<float>& from = rim ? shared : g.height;
            n.height = from.at(row, column);
            n.cover = cover.at(row, column);
            n.east = g.shore.at(row, column).east;
            n.north = g.shore.at(row, column).north;
            if (n.cover != cover_water) set_slope(from, row, column, &n);
        }
    return nodes;
}

void make_earth_tiles(const std::vector<tile_place>& tiles, const std::string& folder,
                      const std::string& apt_path, const tile_progress& progress) {
    const earth_land land(apt_path);
    tile_borders borders;
    for (const tile_place& tile : tiles) {
        progress.begun(tile);
        const auto begin = std::chrono::steady_clock::now();
        const node_values<ground_node> nodes = land.nodes(tile);
        const auto [low, high] = std::minmax_element(
            nodes.values.begin(), nodes.values.end(),
            [](const ground_node& a, const ground_node& b) { return a.height < b.height; });
        tile_writer writer(tile.lat, tile.lon, floor(low->height), ceil(high->height));
        write_ground(&writer, nodes);
        const std::string path = borders.write(writer, folder + "/Earth nav data/");
        made_tile made{tile};
        made.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
        made.bytes = std::filesystem::file_size(path);
        progress.done(made);
    }
}

std::vector<tile_place> block_of_tiles(int lat, int lon, int side) {
    std::vector<tile_place> tiles;
    for (int j = 0; j < side; ++j)
        for (int i = 0; i < side; ++i) {
            const int row = lat - (side - 1) / 2 + j, column = lon - (side - 1) / 2 + i;
            if (row >= -90 && row < 90) tiles.push_back({row, ((column + 180) % 360 + 360) % 360 - 180});
        }
    return tiles;
}

std::vector<tile_place> box_of_tiles(int south, int west, int north, int east) {
    std::vector<tile_place> tiles;
    for (int lat = south; lat <= north; ++lat)
        for (int lon = west; lon <= (east < west ? east + 360 : east); ++lon)
            tiles.push_back({lat, (lon + 180) % 360 - 180});
    return tiles;
}
