// Assembly of tiles without a window: the decoder's callbacks with any values, then what the loader makes of
// them, queries of the ground, and the tile's end.
#include <limits>

#include "scenery/ground/terrain_query.h"
#include "scenery/objects/object_build.h"
#include "scenery/tile/extrusion.h"
#include "scenery/tile/tile_defs.h"
#include "scenery/tile/tile_edge.h"
#include "scenery/tile/tile_mesh.h"
#include "scenery/tile/tile_state.h"
#include "scenery/tile/tile_things.h"
#include "support.h"

namespace {
using fuzzing::input;
using fuzzing::must;
constexpr int lat = 34, lon = -118, row = 1, column = 1;

// Places in and around the tile, on its edges, and what no place is.
double coordinate(input& from, double corner) {
    constexpr double inf = std::numeric_limits<double>::infinity();
    static const double odd[] = {std::nan(""), inf, -inf, 1e30, -1e9, 1e-300, 999999.0, -0.0};
    const unsigned kind = from.byte();
    if (kind >= 248) return odd[kind - 248];
    if (kind < 16) return corner + (kind & 1);
    if (kind < 24) return corner - 2.0 + from.word() / 16384.0;
    return corner + from.word() / 65535.0;
}

double value(input& from, double scale) { return (from.word() / 32767.5 - 1.0) * scale; }

void vertex(input& from, void* state) {
    double c[12];
    c[0] = coordinate(from, lon);
    c[1] = coordinate(from, lat);
    c[2] = from.byte() >= 250 ? coordinate(from, 0) : value(from, 9000.0);
    for (int i = 3; i < 12; ++i) c[i] = i < 5 ? value(from, 1.2) : from.byte() / 255.0;
    DSF_AddPatchVertex(c, state);
}

// The decoder ends what it has begun, or refuses the file.
void primitive(input& from, void* state) {
    DSF_BeginPrimitive(static_cast<int>(from.byte() % 3), state);
    for (unsigned count = from.byte() % 16; count > 0; --count) vertex(from, state);
    DSF_EndPrimitive(state);
}

const char* name(input& from) {
    static const char* const names[] = {"terrain_Water", "ground.ter", "image.png", "terrain_VirtualOrtho10",
                                        "missing.ter",   "object.obj", "x",         "",
                                        "missing.for",   "lib/a.fac"};
    return names[from.byte() % std::size(names)];
}

struct place_struct {
    explicit place_struct(input& from)
        : c{coordinate(from, lon), coordinate(from, lat), value(from, 1000.0)} {}
    double c[8];
};

void begin_patch(input& from, void* state) {
    float projection[6] = {};
    const unsigned terrain = from.byte() == 255 ? 0xffffffffu - from.byte() : from.byte() % 6;
    const unsigned flags = from.byte();
    const int depth = from.byte() < 8 ? static_cast<int>(from.byte()) : 5 + flags % 7;
    DSF_BeginPatch(terrain, coordinate(from, 0), -1.0, static_cast<unsigned char>(flags), projection,
                   projection, std::min(depth, 12), state);
}

using callback = void (*)(input& from, void* state);
const callback callbacks[] = {
    primitive,
    primitive,
    primitive,
    begin_patch,
    begin_patch,
    [](input&, void* s) { DSF_EndPatch(s); },
    [](input& in, void* s) { DSF_AcceptTerrainDef(name(in), s); },
    [](input& in, void* s) { DSF_AcceptObjectDef(name(in), s); },
    [](input& in, void* s) { DSF_AcceptPolygonDef(name(in), s); },
    [](input& in, void* s) { DSF_AcceptNetworkDef(name(in), s); },
    [](input& in, void* s) { DSF_AcceptProperty("sim/west", name(in), s); },
    [](input& in, void* s) { DSF_AddObject(in.byte() % 4, place_struct(in).c, coordinate(in, 0), s); },
    [](input& in, void* s) { DSF_BeginPolygon(in.byte() % 5, static_cast<unsigned short>(in.word()), s); },
    [](input&, void* s) { DSF_BeginPolygonWinding(s); },
    [](input& in, void* s) { DSF_AddPolygonPoint(place_struct(in).c, s); },
    [](input&, void* s) { DSF_EndPolygonWinding(s); },
    [](input&, void* s) { DSF_EndPolygon(s); },
    [](input& in, void* s) {
        DSF_BeginSegment(in.byte(), in.byte(), in.word(), place_struct(in).c, in.byte() & 1, s);
    },
    [](input& in, void* s) { DSF_AddSegmentShapePoint(place_struct(in).c, in.byte() & 1, s); },
    [](input& in, void* s) { DSF_EndSegment(in.word(), place_struct(in).c, in.byte() & 1, s); },
};

void ask_the_ground(input& from) {
    for (int i = 0; i < 16; ++i) {
        const float x = static_cast<float>(value(from, 150000.0)),
                    z = static_cast<float>(value(from, 120000.0));
        must(std::isfinite(return_terrain_y(x, z, 26 + i % 2)));
        terrain_is_wet(x, z, 26);
    }
}

void finish(DSF_LoadState& state, input& from) {
    if (state.has_bad_geometry || state.minxyz[0] > state.maxxyz[0]) return;
    bucket_terrain(&state);
    extrude_polygons(&state);
    bucket_roads_and_objects(&state);
    for (const xlay_struct& layer : state.degree->tex_layers)
        must(layer.scene_buckets.Total() >= 0 && layer.cus_proj.x_tex_size_m >= 0.0f);
    ask_the_ground(from);
}
}  // namespace

void fuzz_tile(input& from) {
    static const fuzzing::scenery_folder folder;
    if (from.size() > 6000) return;
    env.planet = 0;
    env.lat_sou = 33.0f;
    env.lon_wes = -119.0f;
    find_region_extents();
    g_lat_file = lat, g_lon_file = lon, g_lat_os = row, g_lon_os = column;
    stg.draw_objs_05 = 6;
    stg.draw_vecs_03 = 3;
    xdeg_struct* const degree = &xdeg[column][row];
    {
        DSF_LoadState state(degree);
        DSF_AcceptTerrainDef("terrain_Water", &state);
        DSF_AcceptTerrainDef("ground.ter", &state);
        DSF_AcceptObjectDef("object.obj", &state);
        while (!from.done()) callbacks[from.byte() % std::size(callbacks)](from, &state);
        finish(state, from);
    }
    clear_degree(degree);
    must(degree->tex_layers.empty() && degree->ytest_buckets.Empty());
    handle_edge(0, 0, nullptr, nullptr, edge_clear);
    clear_objects();
}
