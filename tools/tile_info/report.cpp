// A survey as text.
#include "report.h"

#include <math.h>
#include <stdio.h>

#include <algorithm>

namespace {
// -- words

std::string side_text(double degrees, char positive, char negative) {
    char text[40];
    snprintf(text, sizeof text, "%.9g %c", fabs(degrees), degrees < 0.0 ? negative : positive);
    return text;
}
std::string area_text(const area& a) {
    return side_text(a.lat.min, 'N', 'S') + " to " + side_text(a.lat.max, 'N', 'S') + ", " +
           side_text(a.lon.min, 'E', 'W') + " to " + side_text(a.lon.max, 'E', 'W');
}

std::string count_text(long count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string flags_text(unsigned flags) {
    std::string text = flags & patch_overlay ? "overlay" : "base";
    if (flags & patch_stood_on) text += flags & patch_overlay ? ", stood on" : "";
    if (!(flags & patch_stood_on)) text += flags & patch_overlay ? "" : ", not stood on";
    constexpr unsigned known = patch_stood_on | patch_overlay;
    return flags & ~known ? text + " (" + std::to_string(flags) + ")" : text;
}

std::string distance_text(double lod) {
    if (lod == -1.0) return "-";
    char text[40];
    snprintf(text, sizeof text, "%.6g", lod);
    return text;
}

// -- parts

void print_head(const tile_file& file, const tile_survey& survey) {
    printf("%s: %zu bytes\n", file.name().c_str(), file.size());
    if (survey.has_extent()) printf("Extent      %s\n", area_text(survey.extent).c_str());
    if (survey.mesh.lon.holds_any()) printf("Mesh        %s\n", area_text(survey.mesh).c_str());
    if (survey.things.lon.holds_any()) printf("Things      %s\n", area_text(survey.things).c_str());
    if (survey.elevation.holds_any())
        printf("Elevation   %.1f to %.1f m\n", survey.elevation.min, survey.elevation.max);
    printf("Properties: %zu\n", survey.properties.size());
    for (const auto& [name, value] : survey.properties) printf("  %s = %s\n", name.c_str(), value.c_str());
}

struct kind_words {
    const char *title, *one, *many;
};
constexpr kind_words words_of[def_DIM] = {{"Terrain definitions", "patch", "patches"},
                                          {"Object definitions", "object", "objects"},
                                          {"Polygon definitions", "polygon", "polygons"},
                                          {"Network definitions", "segment", "segments"}};

void print_definitions(const tile_survey& survey) {
    for (int kind = 0; kind < def_DIM; ++kind) {
        const kind_words& words = words_of[kind];
        const std::vector<definition>& list = survey.definitions[kind];
        printf("%s: %zu\n", words.title, list.size());
        size_t widest = 0;
        for (const definition& d : list) widest = std::max(widest, d.name.size());
        for (size_t i = 0; i < list.size(); ++i) {
            printf("  %3zu  %-*s  %s", i, static_cast<int>(std::min<size_t>(widest, 60)),
                   list[i].name.c_str(), count_text(list[i].uses, words.one, words.many).c_str());
            if (kind == def_terrain)
                printf(", %s", count_text(list[i].triangles, "triangle", "triangles").c_str());
            puts("");
        }
        if (survey.undefined[kind])
            printf("  without a definition: %s\n",
                   count_text(survey.undefined[kind], words.one, words.many).c_str());
    }
}

// From, to and by what step; degrees step in metres.
std::string plane_text(const pool_facts& pool, size_t plane, double metres_per_degree) {
    static const char* const terrain[] = {"lon", "lat", "ele", "nx", "nz"};
    static const char* const network[] = {"lon", "lat", "ele", "node", "lon2", "lat2", "ele2"};
    static const char* const object[] = {"lon", "lat", "heading"};
    const bool is_object = pool.bits == 16 && pool.planes == 3;
    const size_t known = pool.bits == 32 ? 7 : is_object ? 3 : 5;
    const char* const* const names = pool.bits == 32 ? network : is_object ? object : terrain;
    const auto [scale, offset] = pool.scaling[plane];
    const std::string name = plane < known ? names[plane] : "p" + std::to_string(plane);
    if (scale == 0.0) return name + " as stored";
    const bool is_degrees = plane < 2;
    const double step = scale / (pool.bits == 16 ? 65535.0 : 4294967295.0);
    char text[120];
    snprintf(text, sizeof text, "%s %.9g to %.9g by %.3g%s", name.c_str(), offset, offset + scale,
             is_degrees ? fabs(step) * metres_per_degree : fabs(step), is_degrees ? " m" : "");
    return text;
}

void print_pools(const tile_survey& survey) {
    size_t bytes = 0;
    for (const pool_facts& pool : survey.pools) bytes += pool.bytes;
    printf("Pools: %zu, %zu bytes\n", survey.pools.size(), bytes);
    int ordinal[2] = {};
    for (const pool_facts& pool : survey.pools) {
        printf("  %3d  %d bits  %d planes  %6d points  %8zu bytes\n", ordinal[pool.bits == 32]++, pool.bits,
               pool.planes, pool.points, pool.bytes);
        std::string planes;
        for (size_t plane = 0; plane < pool.scaling.size(); ++plane)
            planes += (plane ? "; " : "") + plane_text(pool, plane, survey.metres_per_degree);
        printf("       %s\n", planes.c_str());
    }
}

// Half the tile's shorter side, m; what the loader accepts.
double widest_patch(const tile_survey& survey) {
    const area& extent = survey.extent;
    const double middle = 0.5 * (extent.lat.min + extent.lat.max);
    return 0.5 * survey.metres_per_degree *
           std::min(extent.lat.size(), extent.lon.size() * fabs(cos(middle * M_PI / 180.0)));
}

void print_patches(const tile_survey& survey) {
    const patch_sum all = survey.all_patches();
    printf("Patches: %ld, %ld triangles, %ld vertices\n", all.patches, all.triangles, all.vertices);
    if (survey.patches.empty()) return;
    printf(
        "  terrain  flags                near     far  depth  patches  triangles  lists  strips   fans  "
        "largest m\n");
    for (const auto& [kind, sum] : survey.patches) {
        const auto& [terrain, flags, near, far, depth] = kind;
        printf("  %7u  %-17s %7s %7s  %5d  %7ld  %9ld  %5ld  %6ld  %5ld  %9.0f\n", terrain,
               flags_text(flags).c_str(), distance_text(near).c_str(), distance_text(far).c_str(), depth,
               sum.patches, sum.triangles, sum.primitives[dsf_triangles], sum.primitives[dsf_strip],
               sum.primitives[dsf_fan], sum.largest);
    }
    if (survey.has_extent() && all.largest > widest_patch(survey))
        printf("  Patches wider than half the tile, %.0f m: the simulator complains of them\n",
               widest_patch(survey));
}

void print_things(const tile_survey& survey) {
    printf("Objects: %ld\n", survey.objects);
    printf("Polygons: %ld, %s, %s\n", survey.polygons,
           count_text(survey.windings, "winding", "windings").c_str(),
           count_text(survey.corners, "corner", "corners").c_str());
    road_sum all;
    for (const auto& [subtype, sum] : survey.roads) {
        all.segments += sum.segments;
        all.shape_points += sum.shape_points;
        all.metres += sum.metres;
    }
    printf("Roads: %s, %s, %.1f km\n", count_text(all.segments, "segment", "segments").c_str(),
           count_text(all.shape_points, "shape point", "shape points").c_str(), all.metres / 1000.0);
    for (const auto& [subtype, sum] : survey.roads)
        printf("  subtype %3u  %s, %.1f km\n", subtype,
               count_text(sum.segments, "segment", "segments").c_str(), sum.metres / 1000.0);
}
}  // namespace

void print_report(const tile_file& file, const tile_survey& survey) {
    print_head(file, survey);
    print_definitions(survey);
    print_pools(survey);
    print_patches(survey);
    print_things(survey);
}
