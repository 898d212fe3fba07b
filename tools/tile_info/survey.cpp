// Counting what the decoder tells.
#include "survey.h"

#include <math.h>
#include <stdlib.h>

#include <algorithm>

#include "scenery/chunk/atoms.h"
#include "scenery/decode/dsf_format.h"

namespace {
struct counter {
    tile_survey& to;
    patch_sum* patch = nullptr;
    definition* terrain = nullptr;
    area patch_area = {};
    range patch_elevation = {};
    int depth = 0, type = 0;
    long vertices = 0;  // of the primitive
    unsigned subtype = 0;
    double last_road[2] = {};

    double metres_between(const double* a, const double* b) const {
        const double east = (b[0] - a[0]) * cos(0.5 * (a[1] + b[1]) * M_PI / 180.0);
        return to.metres_per_degree * hypot(east, b[1] - a[1]);
    }
    // The definition, or null and a note.
    definition* use(definition_kind kind, unsigned index) {
        if (index >= to.definitions[kind].size()) {
            ++to.undefined[kind];
            return nullptr;
        }
        definition* const used = &to.definitions[kind][index];
        ++used->uses;
        return used;
    }
    void begin_patch(unsigned index, double near, double far, unsigned char flags, int coordinates) {
        depth = coordinates;
        patch = &to.patches[{index, flags, near, far, coordinates}];
        ++patch->patches;
        terrain = use(def_terrain, index);
        patch_area = {};
        patch_elevation = {};
    }
    void add_vertex(const double* c) {
        ++vertices;
        if (depth < 3) return;  // no pool of terrain
        patch_area.grow(c);
        patch_elevation.grow(c[2]);
    }
    void end_primitive() {
        const long triangles = type == dsf_triangles ? vertices / 3 : std::max(vertices - 2, 0L);
        ++patch->primitives[type];
        patch->vertices += vertices;
        patch->triangles += triangles;
        if (terrain) terrain->triangles += triangles;
    }
    // The diagonal of its box, as the loader has it.
    void end_patch() {
        if (!patch_area.lon.holds_any()) return;
        const double corners[2][2] = {{patch_area.lon.min, patch_area.lat.min},
                                      {patch_area.lon.max, patch_area.lat.max}};
        patch->largest =
            std::max(patch->largest, hypot(metres_between(corners[0], corners[1]), patch_elevation.size()));
        for (const double* corner : corners) to.mesh.grow(corner);
        to.elevation.grow(patch_elevation.min);
        to.elevation.grow(patch_elevation.max);
    }
    void road_to(const double* c) {
        to.things.grow(c);
        to.roads[subtype].metres += metres_between(last_road, c);
        std::copy(c, c + 2, last_road);
    }
};
counter& at(void* ref) { return *static_cast<counter*>(ref); }

template <int kind>
void accept(const char* name, void* ref) {
    at(ref).to.definitions[kind].push_back({name, 0, 0});
}

DSFCallbacks_t counting() {
    DSFCallbacks_t t{};
    t.AcceptProperty_f = [](const char* name, const char* value, void* r) {
        at(r).to.properties.emplace_back(name, value);
    };
    t.AcceptTerrainDef_f = accept<def_terrain>;
    t.AcceptObjectDef_f = accept<def_object>;
    t.AcceptPolygonDef_f = accept<def_polygon>;
    t.AcceptNetworkDef_f = accept<def_network>;
    t.BeginPatch_f = [](unsigned terrain, double near, double far, unsigned char flags, float*, float*,
                        int depth, void* r) { at(r).begin_patch(terrain, near, far, flags, depth); };
    t.BeginPrimitive_f = [](int type, void* r) { at(r).type = type, at(r).vertices = 0; };
    t.AddPatchVertex_f = [](double* c, void* r) { at(r).add_vertex(c); };
    t.EndPrimitive_f = [](void* r) { at(r).end_primitive(); };
    t.EndPatch_f = [](void* r) { at(r).end_patch(); };
    t.AddObject_f = [](unsigned object, double* c, double, void* r) {
        ++at(r).to.objects;
        at(r).use(def_object, object);
        at(r).to.things.grow(c);
    };
    t.BeginSegment_f = [](unsigned network, unsigned subtype, unsigned, double* c, bool, void* r) {
        at(r).use(def_network, network);
        at(r).subtype = subtype;
        ++at(r).to.roads[subtype].segments;
        std::copy(c, c + 2, at(r).last_road);
        at(r).to.things.grow(c);
    };
    t.AddSegmentShapePoint_f = [](double* c, bool, void* r) {
        ++at(r).to.roads[at(r).subtype].shape_points;
        at(r).road_to(c);
    };
    t.EndSegment_f = [](unsigned, double* c, bool, void* r) { at(r).road_to(c); };
    t.BeginPolygon_f = [](unsigned polygon, unsigned short, void* r) {
        ++at(r).to.polygons;
        at(r).use(def_polygon, polygon);
    };
    t.BeginPolygonWinding_f = [](void* r) { ++at(r).to.windings; };
    t.AddPolygonPoint_f = [](double* c, void* r) {
        ++at(r).to.corners;
        at(r).to.things.grow(c);
    };
    return t;
}

// -- pools: the decoder does not tell of them

std::vector<XAtom> atoms_of(const XAtomContainer& container, uint32_t id) {
    std::vector<XAtom> all;
    XAtom atom;
    for (bool more = container.GetFirst(atom); more; more = atom.GetNext(container, atom))
        if (atom.GetID() == id) all.push_back(atom);
    return all;
}

// In a tile that was told without a fault each pool has its scales.
void add_pools(const XAtomContainer& geodata, int bits, uint32_t pool_id, uint32_t scale_id,
               std::vector<pool_facts>* to) {
    const std::vector<XAtom> tables = atoms_of(geodata, pool_id), scales = atoms_of(geodata, scale_id);
    for (size_t i = 0; i < tables.size() && i < scales.size(); ++i) {
        const XAtomPlanerNumericTable table{tables[i]};
        XAtomPackedData numbers{scales[i]};
        pool_facts& pool = to->emplace_back();
        pool.bits = bits;
        pool.planes = table.GetPlaneCount();
        pool.points = table.GetArraySize();
        pool.bytes = table.size();
        for (int plane = 0; plane < pool.planes; ++plane) {
            const double scale = static_cast<double>(numbers.ReadFloat32());
            pool.scaling.emplace_back(scale, static_cast<double>(numbers.ReadFloat32()));
        }
    }
}

std::vector<pool_facts> pools_of(const tile_file& file) {
    std::vector<pool_facts> pools;
    XAtomContainer top, geodata;
    XAtom atom;
    top.begin = file.begin() + sizeof(DSFHeader_t);
    top.end = file.end() - sizeof(DSFFooter_t);
    if (!top.GetNthAtomOfID(dsf_GEOD, 0, atom)) return pools;
    atom.GetContents(geodata);
    add_pools(geodata, 16, dsf_POOL, dsf_SCAL, &pools);
    add_pools(geodata, 32, dsf_PO32, dsf_SC32, &pools);
    return pools;
}

area extent_of(const tile_survey& survey) {
    constexpr double widest = 10.0;  // degrees: no map is made of more
    area said;
    const auto put = [](const std::string& value, double* to) { *to = atof(value.c_str()); };
    for (const auto& [name, value] : survey.properties) {
        if (name == "sim/west") put(value, &said.lon.min);
        if (name == "sim/east") put(value, &said.lon.max);
        if (name == "sim/south") put(value, &said.lat.min);
        if (name == "sim/north") put(value, &said.lat.max);
    }
    const auto is_sound = [](const area& a) {
        return a.lon.size() > 0.0 && a.lat.size() > 0.0 && a.lon.size() <= widest && a.lat.size() <= widest &&
               fabs(a.lon.min) <= 360.0 && fabs(a.lat.min) <= 90.0;
    };
    if (is_sound(said)) return said;
    return is_sound(survey.mesh) ? survey.mesh : area{};
}
}  // namespace

patch_sum tile_survey::all_patches() const {
    patch_sum all;
    for (const auto& [kind, sum] : patches) {
        all.patches += sum.patches;
        all.vertices += sum.vertices;
        all.triangles += sum.triangles;
        for (int type = 0; type < 3; ++type) all.primitives[type] += sum.primitives[type];
        all.largest = std::max(all.largest, sum.largest);
    }
    return all;
}

tile_survey survey_tile(const tile_file& file, double metres_per_degree) {
    tile_survey survey;
    survey.metres_per_degree = metres_per_degree;
    counter count{survey};
    file.tell(counting(), &count);
    survey.pools = pools_of(file);
    survey.extent = extent_of(survey);
    return survey;
}
