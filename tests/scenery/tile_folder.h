// An install folder with tiles in it, written by the tile writer.
#pragma once
#include <filesystem>
#include <functional>
#include <string>

#include "core/disk/paths.h"
#include "core/records/records.h"
#include "scenery/ground/tile.h"
#include "scenery/packages/library.h"
#include "scenery/tile/tile_edge.h"
#include "scenery/tile/tile_load.h"
#include "support.h"
#include "tile_mesh.h"

namespace test {

class tile_folder {
public:
    static constexpr const char* default_nav = "Resources/Earth nav data/";
    tile_folder() {
        init_paths(folder_.path());
        scenery_packages.clear();
        dsf_library.clear();
        std::filesystem::create_directories(folder_.path() + "Resources/bitmaps");
        std::filesystem::copy(INSTALL_FOLDER "Resources/bitmaps/blank.png",
                              folder_.path() + "Resources/bitmaps/ground.png");
        write("Resources/bitmaps/", "land.ter",
              "A\n800 \nTERRAIN\nBASE_TEX ground.png\nPROJECTED 500 400\nNO_ALPHA\n");
    }
    ~tile_folder() {
        for (auto& column : xdeg)
            for (xdeg_struct& tile : column) clear_degree(&tile);
        handle_edge(0, 0, nullptr, nullptr, edge_clear);
    }
    std::string path_of(int lat, int lon, const std::string& where = default_nav) const {
        const std::string name = return_latlon_str_ENV(lat, lon, ".dsf");
        std::filesystem::create_directories(folder_.path() + where + name.substr(0, name.find('/')));
        return folder_.path() + where + name;
    }
    std::string write(const std::string& where, const std::string& name, const std::string& bytes) const {
        std::filesystem::create_directories(folder_.path() + where);
        return folder_.write(where + name, bytes);
    }
    void write_tile(const tile_writer& tile, const std::string& where = default_nav) const {
        std::string error;
        EXPECT_TRUE(tile.write(path_of(tile.lat(), tile.lon(), where), &error)) << error;
    }
    const std::string& path() const { return folder_.path(); }

private:
    temp_folder folder_;
};

// Land below a height, with water where land_class says 0.
inline tile_writer land_tile(int lat, int lon, const std::function<double(double, double)>& height,
                             const std::function<int(double, double)>& land_class, int cells = 17,
                             int patches = 8) {
    tile_writer tile(lat, lon);
    mesh_source source;
    source.cells = cells;
    source.patches = patches;
    source.height = height;
    source.land_class = land_class;
    source.terrain = {"terrain_Water", "land.ter"};
    write_mesh(&tile, source);
    return tile;
}

// The region whose south-west corner that is, without a tile.
inline void set_region(float lat, float lon) {
    env.lat_sou = lat;
    env.lon_wes = lon;
    find_region_extents();
}

}  // namespace test
