// A tile of Mars: coarse, for a degree is wide and the ground is not known finer.
#include "mars_tile.h"

#include <math.h>

#include <algorithm>
#include <chrono>
#include <filesystem>

#include "blend_mesh.h"
#include "land_classes.h"
#include "mars_relief.h"
#include "tile_borders.h"

namespace {
constexpr int cells = 85, raw_degree = 65535;  // some 700 m at the equator

blend_source source_of(const mars_relief& relief) {
    blend_source source;
    for (int n = 0; n <= cells; ++n) source.columns.push_back(n * (raw_degree / cells));
    source.rows = source.columns;
    source.patch_lines = 11;
    source.even_mask = true;
    source.height = [&](double lat, double lon) { return relief.height(lat, lon); };
    source.water = [](double, double) { return false; };
    const auto add = [&](land_class which, auto weight) {
        source.classes.push_back({land_terrain_name(which), weight});
    };
    add(land_mars_dust, [](double, double) { return 1.0; });
    add(land_mars_plain, [&](double lat, double lon) { return relief.plain(lat, lon); });
    add(land_mars_dark, [&](double lat, double lon) { return relief.dark(lat, lon); });
    add(land_mars_rock, [&](double lat, double lon) { return relief.cliff(lat, lon); });
    add(land_mars_ice, [&](double lat, double lon) { return relief.ice(lat, lon); });
    return source;
}

// Least and greatest height at the mesh's points.
std::pair<double, double> range_of(const mars_relief& relief, const tile_place& tile) {
    double low = 1.0e9, high = -1.0e9;
    for (int j = 0; j <= cells; ++j)
        for (int i = 0; i <= cells; ++i) {
            const double h = relief.height(tile.lat + static_cast<double>(j) / cells,
                                           tile.lon + static_cast<double>(i) / cells);
            low = std::min(low, h);
            high = std::max(high, h);
        }
    return {floor(low) - 1.0, ceil(high) + 1.0};
}
}  // namespace

void make_mars_tiles(const std::vector<tile_place>& tiles, const std::string& folder,
                     const std::string& apt_path, const tile_progress& progress) {
    const mars_relief relief(apt_path);
    const blend_source source = source_of(relief);
    tile_borders borders;
    for (const tile_place& tile : tiles) {
        progress.begun(tile);
        const auto begin = std::chrono::steady_clock::now();
        const auto [low, high] = range_of(relief, tile);
        tile_writer writer(tile.lat, tile.lon, low, high);
        writer.set_degree_metres(degree_metres_mars);
        write_blend_mesh(&writer, source);
        const std::string path = borders.write(writer, folder + "/Mars nav data/");
        progress.done({tile, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count(),
                       std::filesystem::file_size(path)});
    }
}
