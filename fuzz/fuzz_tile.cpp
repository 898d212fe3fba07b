// Assembly of tiles without a window: the decoder's callbacks with any values, then what the loader makes of
// them, queries of the ground, and the tile's end.
#include <cmath>
#include <limits>

#include "scenery/ground/terrain_query.h"
#include "scenery/objects/object_build.h"
#include "scenery/tile/extrusion.h"
#include "scenery/tile/tile_defs.h"
#include "scenery/tile/tile_edge.h"
#include "scenery/tile/tile_mesh.h"
#include "scenery/tile/tile_state.h"
#include "scenery/tile/tile_things.h"
#include "scenery_folder.h"

namespace {
using fuzzing::must;
using fuzzing::value_source;
constexpr int lat = 34, lon = -118, row = 1, column = 1;

// Places in and around the tile, on its edges, and what no place is.
double coordinate(value_source& from, double corner) {
    static const double odd[] = {std::nan(""),
                                 std::numeric_limits<double>::infinity(),
                                 -std::numeric_limits<double>::infinity(),
                                 1e30,
                                 -1e9,
                                 1e-300,
                                 999999.0,
                                 -0.0};
    const unsigned kind = from.byte();
    if (kind >= 248) return odd[kind - 248];
    if (kind < 16) return corner + (kind & 1);
    if (kind < 24) return corner - 2.0 + from.word() / 16384.0;
    return corner + from.word() / 65535.0;
}

double value(value_source& from, double scale) { return (from.word() / 32767.5 - 1.0) * scale; }

void vertex(value_source& from, void* state) {
    double c[12];
    c[0] = coordinate(from, lon);
    c[1] = coordinate(from, lat);
    c[2] = from.byte() >= 250 ? coordinate(from, 0) : value(from, 9000.0);
    for (int i = 3; i < 12; ++i) c[i] = i < 5 ? value(from, 1.2) : from.byte() / 255.0;
    DSF_AddPatchVertex(c, state);
}

// The decoder ends what it has begun, or refuses the file.
void primitive(value_source& from, void* state) {
    DSF_BeginPrimitive(static_cast<int>(from.byte() % 3), state);
    for (unsigned count = from.byte() % 16; count > 0; --count) vertex(from, state);
    DSF_EndPrimitive(state);
}

void call(value_source& from, void* state) {
    static const char* const names[] = {"terrain_Water", "ground.ter", "image.png", "terrain_VirtualOrtho10",
                                        "missing.ter",   "object.obj", "x",         "",
                                        "missing.for",   "lib/a.fac"};
    const auto name = [&] { return names[from.byte() % (sizeof names / sizeof names[0])]; };
    float projection[6] = {};
    double place[8] = {};
    const auto fill_place = [&] {
        place[0] = coordinate(from, lon);
        place[1] = coordinate(from, lat);
        place[2] = value(from, 1000.0);
    };
    switch (from.byte() % 24) {
        case 0:
            return DSF_AcceptTerrainDef(name(), state);
        case 1:
            return DSF_AcceptObjectDef(name(), state);
        case 2:
            return DSF_AcceptPolygonDef(name(), state);
        case 3:
            return DSF_AcceptNetworkDef(name(), state);
        case 4:
            return DSF_AcceptProperty("sim/west", name(), state);
        case 5:
        case 6: {
            const unsigned terrain = from.byte() == 255 ? 0xffffffffu - from.byte() : from.byte() % 6;
            const unsigned flags = from.byte();
            const int depth = from.byte() < 8 ? static_cast<int>(from.byte()) : 5 + flags % 7;
            return DSF_BeginPatch(terrain, coordinate(from, 0), -1.0, static_cast<unsigned char>(flags),
                                  projection, projection, depth < 12 ? depth : 12, state);
        }
        case 7:
        case 8:
            return primitive(from, state);
        case 9:
            return DSF_EndPatch(state);
        case 10:
            fill_place();
            return DSF_AddObject(from.byte() % 4, place, coordinate(from, 0), state);
        case 11:
            return DSF_BeginPolygon(from.byte() % 5, static_cast<unsigned short>(from.word()), state);
        case 12:
            return DSF_BeginPolygonWinding(state);
        case 13:
            fill_place();
            return DSF_AddPolygonPoint(place, state);
        case 14:
            return DSF_EndPolygonWinding(state);
        case 15:
            return DSF_EndPolygon(state);
        case 16:
            fill_place();
            return DSF_BeginSegment(from.byte(), from.byte(), from.word(), place, from.byte() & 1, state);
        case 17:
            fill_place();
            return DSF_AddSegmentShapePoint(place, from.byte() & 1, state);
        case 18:
            fill_place();
            return DSF_EndSegment(from.word(), place, from.byte() & 1, state);
        default:
            return primitive(from, state);
    }
}

void ask_the_ground(value_source& from) {
    for (int i = 0; i < 16; ++i) {
        const float x = static_cast<float>(value(from, 150000.0)),
                    z = static_cast<float>(value(from, 120000.0));
        must(std::isfinite(return_terrain_y(x, z, 26 + i % 2)));
        terrain_is_wet(x, z, 26);
    }
}

void finish(DSF_LoadState& state, value_source& from) {
    if (state.has_bad_geometry || state.minxyz[0] > state.maxxyz[0]) return;
    bucket_terrain(&state);
    extrude_polygons(&state);
    bucket_roads_and_objects(&state);
    for (const xlay_struct& layer : state.degree->tex_layers)
        must(layer.scene_buckets.Total() >= 0 && layer.cus_proj.x_tex_size_m >= 0.0f);
    ask_the_ground(from);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const fuzzing::scenery_folder folder;
    if (size > 6000) return 0;
    env.planet = 0;
    env.lat_sou = 33.0f;
    env.lon_wes = -119.0f;
    find_region_extents();
    g_lat_file = lat, g_lon_file = lon, g_lat_os = row, g_lon_os = column;
    stg.draw_objs_05 = 6;
    stg.draw_vecs_03 = 3;
    value_source from(data, size);
    xdeg_struct* const degree = &xdeg[column][row];
    try {
        DSF_LoadState state(degree);
        DSF_AcceptTerrainDef("terrain_Water", &state);
        DSF_AcceptTerrainDef("ground.ter", &state);
        DSF_AcceptObjectDef("object.obj", &state);
        while (!from.done()) call(from, &state);
        finish(state, from);
    } catch (const fuzzing::fatal&) {
        must(false);
    }
    clear_degree(degree);
    must(degree->tex_layers.empty() && degree->ytest_buckets.Empty());
    handle_edge(0, 0, nullptr, nullptr, edge_clear);
    clear_objects();
    return 0;
}
