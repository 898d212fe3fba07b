// Reader of terrain definitions.
#include "scenery/tile/terrain_file.h"

#include "core/disk/paths.h"
#include "core/disk/txtscan.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "draw/images/tman.h"
#include "scenery/packages/library.h"
#include "scenery/seam/scenery_draw.h"

namespace {
int load_image(const std::string& name, const std::string& folder, int filter) {
    std::string path;
    DSF_LocateResourceSecondary(resource_image, resource_terrain, folder, name, true, path);
    if (path.empty()) {
        MACIBM_data_fault("Error, could not locate image for terrain", name, folder, "");
        return 0;
    }
    const int ref = scenery_draw.load_texture(path, filter);
    if (ref == 0) MACIBM_data_fault("Error, could not load image for terrain", path, "", "");
    return ref;
}

// Metres per repeat. A division by zero must not come of a file.
float repeat_in_metres(int metres) { return static_cast<float>(intmax2(metres, 1)); }
}  // namespace

bool io_read_terrain(const std::string& inPath, terrain_info_struct& terrain) {
    static const int versions[] = {800, 0};
    map_bytes at = nullptr;
    const XMappedFile file(set_dir_chars(inPath).c_str(), &at);
    int c = 0, c_max = 0;
    if (!MAP_check_file_text_typed(&file, at, &c, &c_max, versions, "TERRAIN", nullptr)) return false;
    const std::string folder = folder_of(inPath);
    const struct {
        const char* keyword;
        int* ref;
        int filter;
    } images[] = {
        {"BASE_TEX", &terrain.plane_tex_ref, filter_auto_mip},
        {"COMPOSITE_TEX", &terrain.compo_tex_ref, filter_auto_mip},
        {"LIT_TEX", &terrain.night_tex_ref, filter_auto_mip},
        {"BORDER_TEX", &terrain.plane_bor_ref, filter_alpha_mip},
    };
    bool has_base = false;
    while (TXT_MAP_continue(at, &c, c_max)) {
        bool taken = false;
        for (const auto& image : images) {
            if (taken || !TXT_MAP_str_match_space(at, &c, c_max, image.keyword, 0)) continue;
            std::string name;
            TXT_MAP_str_scan_eoln(at, &c, c_max, &name);
            *image.ref = load_image(name, folder, image.filter);
            has_base |= image.ref == &terrain.plane_tex_ref;
            taken = true;
        }
        if (taken) continue;
        if (TXT_MAP_str_match_space(at, &c, c_max, "PROJECTED", 0)) {
            terrain.projected = 1;
            terrain.projection.x_tex_size_m = repeat_in_metres(TXT_MAP_int_scan(at, &c, c_max));
            terrain.projection.y_tex_size_m = repeat_in_metres(TXT_MAP_int_scan(at, &c, c_max));
            TXT_MAP_finish_line(at, &c, c_max);
        } else {
            if (TXT_MAP_str_match_space(at, &c, c_max, "NO_ALPHA", 1)) terrain.zap_alpha = 1;
            TXT_MAP_str_scan_eoln(at, &c, c_max, nullptr);
        }
    }
    if (!has_base) MACIBM_data_fault("A terrain definition has no base texture.", inPath, "", "");
    return true;
}
