// Tiles that must meet.
#include "tile_borders.h"

#include <filesystem>
#include <stdexcept>

#include "scenery/tile/tile_load.h"
#include "tile_check.h"

std::string tile_borders::write(const tile_writer& tile, const std::string& planet_folder) {
    const std::string path = planet_folder + return_latlon_str_ENV(tile.lat(), tile.lon(), ".dsf");
    std::error_code fault;
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    std::filesystem::create_directories(folder, fault);
    if (fault) throw std::runtime_error(folder.string() + ": " + fault.message());
    std::string error;
    tile_edges edges;
    if (!tile.write(path, &error, &edges)) throw std::runtime_error(path + ": " + error);
    const auto meet = [&](int lat, int lon, tile_edges::border tile_edges::*own,
                          tile_edges::border tile_edges::*other) {
        const auto neighbour = edges_.find({lat, lon});
        if (neighbour == edges_.end()) return;
        error = check_border(edges.*own, neighbour->second.*other, edges.slack + neighbour->second.slack);
        if (!error.empty()) throw std::runtime_error(path + ": " + error);
    };
    meet(tile.lat(), tile.lon() - 1, &tile_edges::west, &tile_edges::east);
    meet(tile.lat(), tile.lon() + 1, &tile_edges::east, &tile_edges::west);
    meet(tile.lat() - 1, tile.lon(), &tile_edges::south, &tile_edges::north);
    meet(tile.lat() + 1, tile.lon(), &tile_edges::north, &tile_edges::south);
    edges_[{tile.lat(), tile.lon()}] = std::move(edges);
    return path;
}
