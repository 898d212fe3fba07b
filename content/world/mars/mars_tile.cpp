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
constexpr int polar_rows = 771;                // low enough for the narrow tiles at a pole

int rows_of(int lat) { return lat < -86 || lat > 85 ? polar_rows : cells; }

std::vector<int> even_lines(int count) {
    std::vector<int> lines;
    for (int n = 0; n <= count; ++n) lines.push_back(n * (raw_degree / count));
    return lines;
}

blend_source source_of(const mars_relief& relief, int lat) {
    blend_source source;
    source.columns = even_lines(cells);
    source.rows = even_lines(rows_of(lat));
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
    const int rows = rows_of(tile.lat);
    for (int j = 0; j <= rows; ++j)
        for (int i = 0; i <= cells; ++i) {
            const double h = relief.height(tile.lat + static_cast<double>(j) / rows,
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
    tile_borders borders;
    for (const tile_place& tile : tiles) {
        progress.begun(tile);
        const auto begin = std::chrono::steady_clock::now();
        const auto [low, high] = range_of(relief, tile);
        tile_writer writer(tile.lat, tile.lon, low, high);
        writer.set_degree_metres(degree_metres_mars);
        write_blend_mesh(&writer, source_of(relief, tile.lat));
        const std::string path = borders.write(writer, folder + "/Mars nav data/");
        progress.done({tile, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count(),
                       std::filesystem::file_size(path)});
    }
}
