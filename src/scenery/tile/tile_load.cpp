// A tile from its file: candidates in their order, then what the callbacks have gathered goes into the
// buckets.
#include "scenery/tile/tile_load.h"

#include <math.h>

#include <memory>

#include "core/disk/mapfile.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/logs.h"
#include "core/records/records.h"
#include "scenery/decode/dsf.h"
#include "scenery/old/old_env.h"
#include "scenery/packages/library.h"
#include "scenery/tile/tile_default.h"
#include "scenery/tile/tile_defs.h"
#include "scenery/tile/tile_edge.h"
#include "scenery/tile/tile_mesh.h"
#include "scenery/tile/tile_state.h"
#include "scenery/tile/tile_things.h"

int g_lat_os = 0, g_lon_os = 0, g_lat_file = 0, g_lon_file = 0;

DSF_LoadState::~DSF_LoadState() {
    for (const scene_DSF_PatchInfo& info : scene_patches) {
        delete info.patch->temp;
        delete info.patch;
    }
    for (const ytest_DSF_PatchInfo& info : ytest_patches) delete info.patch;
}

bool is_near_tile(double lon, double lat) {
    constexpr double room = 1.0;  // degrees around the tile
    return lon >= g_lon_file - room && lon <= g_lon_file + 1 + room && lat >= g_lat_file - room &&
           lat <= g_lat_file + 1 + room;
}

std::string return_latlon_str_ENV(int lat, int lon, const char* ending) {
    const auto ten = [](int degrees, int from) {
        return static_cast<int>(floor((degrees + from) / 10.0)) * 10 - from;
    };
    char text[40];
    snprintf(text, sizeof text, "%+03d%+04d/%+03d%+04d%s", ten(lat, 90), ten(lon, 180), lat, lon, ending);
    return text;
}

namespace {
const DSFCallbacks_t callbacks = {
    DSF_AcceptTerrainDef,     DSF_AcceptObjectDef,   DSF_AcceptPolygonDef, DSF_AcceptNetworkDef,
    DSF_AcceptProperty,       DSF_BeginPatch,        DSF_BeginPrimitive,   DSF_AddPatchVertex,
    DSF_EndPrimitive,         DSF_EndPatch,          DSF_AddObject,        DSF_BeginSegment,
    DSF_AddSegmentShapePoint, DSF_EndSegment,        DSF_BeginPolygon,     DSF_BeginPolygonWinding,
    DSF_AddPolygonPoint,      DSF_EndPolygonWinding, DSF_EndPolygon,
};

// Null when the file is good.
const char* fault_of(int error, const DSF_LoadState& state) {
    if (error != dsf_ErrOK) return dsfErrorMessages[error];
    if (state.has_bad_geometry) return "it has points outside of its degree";
    const bool has_terrain = state.minxyz[0] <= state.maxxyz[0];
    return has_terrain ? nullptr : "it has no terrain";
}

// True when the file is there and good. What a bad one has left behind is cleared.
bool read_candidate(const std::string& path, DSF_LoadState* state) {
    XMappedFile file;
    if (!file.retry(set_dir_chars(path).c_str())) return false;
    state->file_path = path;
    const faults_of_file faults(path);
    DSFCallbacks_t table = callbacks;
    const int error = DSFReadMem(reinterpret_cast<const char*>(file.begin()),
                                 reinterpret_cast<const char*>(file.end()), &table, state);
    const char* const fault = fault_of(error, *state);
    if (!fault) {
        if (state->stray_patches > 0)
            xer << "Scenery file " << path << " has " << state->stray_patches
                << " patches of no terrain or without normals, which are left out\n";
        return true;
    }
    xer << "Scenery file " << path << " cannot be used: " << fault << '\n';
    clear_degree(state->degree);
    forget_edges_of(g_lon_os, g_lat_os);
    return false;
}

// A new state for each candidate: definition t owns layers 2t and 2t + 1, so nothing of another file may
// stay.
std::unique_ptr<DSF_LoadState> read_first_good(xdeg_struct* degree, const std::string& name) {
    const char* nav_folder = env.planet ? "Mars nav data:" : "Earth nav data:";
    std::vector<std::string> packages = scenery_packages;
    packages.emplace_back();  // the default folder
    for (const std::string& package : packages) {
        auto state = std::make_unique<DSF_LoadState>(degree);
        state->custom_package = package;
        const std::string folder =
            package.empty() ? (env.planet ? mar_path : ear_path) : package + nav_folder;
        if (read_candidate(folder + name, state.get())) return state;
    }
    return nullptr;
}

void drop_unused_layers(xdeg_struct& degree) {
    std::erase_if(degree.tex_layers, [](xlay_struct& layer) {
        const bool unused =
            layer.plane_tex_ref == 0 || (layer.scene_buckets.Empty() && layer.objct_buckets.Empty());
        if (unused) {
            layer.scene_buckets.RemoveAllAndDestroy();
            layer.objct_buckets.RemoveAllAndDestroy();
        }
        return unused;
    });
}
// The box of one without a vertex is inside out, and its sphere would reach over the whole tree.
void drop_empty_patches(DSF_LoadState* state) {
    std::erase_if(state->scene_patches, [](const scene_DSF_PatchInfo& info) {
        if (info.patch->temp->min_x <= info.patch->temp->max_x) return false;
        delete info.patch->temp;
        delete info.patch;
        return true;
    });
    std::erase_if(state->ytest_patches, [](const ytest_DSF_PatchInfo& info) {
        if (info.patch->min_x <= info.patch->max_x) return false;
        delete info.patch;
        return true;
    });
}
}  // namespace

void bucket_terrain(DSF_LoadState* state) {
    const Point2 min = {state->minxyz[0], state->minxyz[2]}, max = {state->maxxyz[0], state->maxxyz[2]};
    for (xlay_struct& layer : state->degree->tex_layers)
        layer.scene_buckets.Reset(bucket_levels, min, max, buckets_loose);
    state->degree->ytest_buckets.Reset(bucket_levels, min, max, buckets_strict);
    drop_empty_patches(state);
    bool told = false;
    for (const scene_DSF_PatchInfo& info : state->scene_patches) {
        xlay_struct& layer = state->degree->tex_layers[info.layer];
        UTIL_build_DL(&layer, info.patch);
        if (layer.scene_buckets.Insert(info.patch) != 0 || told) continue;
        MACIBM_data_fault("Terrain in bucket 0!", "", "", "");
        told = true;
    }
    state->scene_patches.clear();
    for (const ytest_DSF_PatchInfo& info : state->ytest_patches)
        state->degree->ytest_buckets.Insert(info.patch);
    state->ytest_patches.clear();
}

int read_new_env(int lat_file, int lat_os, int lon_file, int lon_os) {
    g_lat_os = lat_os;
    g_lon_os = lon_os;
    g_lat_file = lat_file;
    g_lon_file = lon_file;
    xdeg_struct* const degree = &xdeg[lon_os][lat_os];
    const std::unique_ptr<DSF_LoadState> state =
        read_first_good(degree, return_latlon_str_ENV(lat_file, lon_file, ".dsf"));
    if (!state) return 0;
    bucket_terrain(state.get());
    extrude_polygons(state.get());
    degree->road_data.ProcessChains(
        false, static_cast<float>(state->minxyz[0]), static_cast<float>(state->maxxyz[0]),
        static_cast<float>(state->minxyz[2]), static_cast<float>(state->maxxyz[2]));
    bucket_roads_and_objects(state.get());
    drop_unused_layers(*degree);
    return 1;
}

void read_env(int lat_file, int lat_os, int lon_file, int lon_os) {
    if (read_new_env(lat_file, lat_os, lon_file, lon_os)) return;
    if (read_old_env(lat_file, lat_os, lon_file, lon_os)) return;
    xer << "No scenery for " << return_latlon_str_ENV(lat_file, lon_file, "") << ", water stands there\n";
    make_def_env(lat_file, lat_os, lon_file, lon_os);
}
