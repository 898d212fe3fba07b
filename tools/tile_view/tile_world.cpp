// Packages and tiles for a look at them.
#include "tile_world.h"

#include <math.h>
#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "core/disk/paths.h"
#include "core/records/records.h"
#include "scenery/ground/tile.h"
#include "scenery/packages/library.h"
#include "scenery/tile/tile_edge.h"
#include "scenery/tile/tile_load.h"
#include "weather/atmosphere.h"

namespace fs = std::filesystem;

// Paths of objects and textures are kept relative to the install folder, wherever the package lies.
package_seat::package_seat(const std::string& package) {
    std::string name = (fs::temp_directory_path() / "tile_view.XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error(name + ": cannot be made");
    folder_ = name;
    fs::create_directory_symlink(fs::canonical(package), fs::path(folder_) / "package");
    cus_path = app_path + fs::relative(folder_, app_path).string() + "/";
    DSF_ScanSceneryFolder();
}

package_seat::~package_seat() {
    std::error_code ignored;  // the link alone goes, not what it leads to
    fs::remove_all(folder_, ignored);
}

int planet_of_tile(const std::string& package, int lat, int lon) {
    const char* const folders[] = {"Earth nav data", "Mars nav data"};
    for (int planet = 0; planet < 2; ++planet)
        if (fs::exists(fs::path(package) / folders[planet] / return_latlon_str_ENV(lat, lon, ".dsf")))
            return planet;
    return -1;
}

namespace {
void forget_tiles() {
    for (auto& column : xdeg)
        for (xdeg_struct& tile : column) clear_degree(&tile);
    handle_edge(0, 0, nullptr, nullptr, edge_clear);
}
}  // namespace

bool load_tile(int planet, int lat, int lon, const eye_place& eye) {
    forget_tiles();
    set_planet_specs(planet);
    const double in_tile = std::clamp(eye.lat, lat + 0.001, lat + 0.999);
    const int south = static_cast<int>(round(in_tile - lat_secs_os[planet])),
              west = lon - lon_secs[planet] / 2;
    env.lat_sou = static_cast<float>(south);
    env.lon_wes = static_cast<float>(west);
    find_region_extents();
    if (!read_new_env(lat, lat - south, lon, lon - west)) return false;
    finish_degree(&xdeg[lon - west][lat - south]);
    return true;
}
