// The writer's own check of a file.
#include "tile_check.h"

#include <math.h>
#include <stdio.h>

#include <algorithm>
#include <initializer_list>
#include <vector>

#include "core/disk/mapfile.h"
#include "scenery/decode/dsf.h"
#include "scenery/decode/dsf_format.h"
#include "tile_writer.h"

// The decoder's callbacks gather here.
class tile_check {
public:
    tile_check(const tile_writer& meant, tile_edges* edges)
        : meant_(meant), rows_(meant.all_told()), edges_(edges), coslat_(cos(lat_radians(meant))) {
        edges_->slack = meant.elevation_slack();
    }

    std::string result() const { return fault_; }
    void end() {
        end_patch();
        if (next_ < rows_.size()) fail("the file ends before all that was asked for has come");
        if (triangles_ == 0) fail("the tile has no terrain");
    }

    // What the decoder tells must be the next row that was asked for.
    void tell(told what, std::initializer_list<double> values) { tell(what, values.begin(), values.size()); }
    void tell(told what, const double* values, size_t count) {
        if (next_ >= rows_.size()) return fail("the file holds more than was asked for");
        const told_row& row = *rows_[next_++];
        if (row.what != what || row.count != count)
            return fail("row " + std::to_string(next_ - 1) + " is of another kind than was asked for");
        for (size_t n = 0; n < count; ++n) {
            double off = fabs(values[n] - row.values[n]);
            if (what == told::object && n == 3) off = std::min(off, 360.0 - off);  // a heading
            if (off <= row.slack[n]) continue;
            char text[150];
            snprintf(text, sizeof text, "value %zu of row %zu is %.9g in the file instead of %.9g", n,
                     next_ - 1, values[n], row.values[n]);
            return fail(text);
        }
    }

    void begin_patch(unsigned terrain, double lod_near, double lod_far, unsigned char flags, int depth) {
        end_patch();
        tell(told::patch, {1.0 * terrain, 1.0 * flags, lod_near, lod_far, 1.0 * depth});
        if (terrain >= meant_.terrain_.size()) fail("a patch is of no definition");
        if (depth < 5) fail("a patch's points have less than five values");
        depth_ = depth;
        collidable_ = flags & tile_base;
        points_.clear();
    }
    void begin_primitive(int type) {
        tell(told::primitive, {1.0 * type});
        type_ = type;
        first_ = points_.size();
    }
    void vertex(const double* c) {
        tell(told::vertex, c, static_cast<size_t>(depth_));
        if (!(c[0] >= meant_.lon() && c[0] <= meant_.lon() + 1 && c[1] >= meant_.lat() &&
              c[1] <= meant_.lat() + 1))
            fail("a point lies outside of the tile");
        for (const double edge : {c[0] - meant_.lon(), c[1] - meant_.lat()})
            if ((edge != 0.0 && edge < nearly_) || (edge != 1.0 && edge > 1.0 - nearly_))
                fail("a point lies beside the tile's edge instead of on it");
        points_.push_back({c[0], c[1], c[2]});
        if (!collidable_) return;
        const tile_edges::point at = {c[2], c[3], c[4]};
        if (c[0] == meant_.lon()) edges_->west[c[1]] = at;
        if (c[0] == meant_.lon() + 1) edges_->east[c[1]] = at;
        if (c[1] == meant_.lat()) edges_->south[c[0]] = at;
        if (c[1] == meant_.lat() + 1) edges_->north[c[0]] = at;
    }
    void end_primitive() {
        const size_t count = points_.size() - first_;
        const size_t made = type_ == dsf_triangles ? count / 3 : count < 2 ? 0 : count - 2;
        triangles_ += made;
        if (!collidable_) return;
        for (size_t n = 0; n < made; ++n) {
            const size_t a = type_ == dsf_triangles ? 3 * n : type_ == dsf_fan ? 0 : n;
            const size_t b = type_ == dsf_triangles ? 3 * n + 1 : n + 1;
            check_triangle(points_[first_ + a], points_[first_ + b], points_[first_ + b + 1],
                           type_ == dsf_strip && n % 2 == 1);
        }
    }
    void object(unsigned type, const double* at, double rotation) {
        tell(told::object, {1.0 * type, at[0], at[1], rotation});
        if (type >= meant_.objects_.size()) fail("an object is of no definition");
    }

private:
    struct place {
        double lon, lat, ele;
    };
    static constexpr double nearly_ = 1.0e-6;  // degrees: what rounding would leave
    static double lat_radians(const tile_writer& meant) { return (meant.lat() + 0.5) * 0.017453292519943295; }

    void fail(const std::string& text) {
        if (fault_.empty()) fault_ = text;
    }
    double east(const place& a, const place& b) const {
        return (b.lon - a.lon) * meant_.degree_metres() * coslat_;
    }
    double north(const place& a, const place& b) const { return (b.lat - a.lat) * meant_.degree_metres(); }

    // Sides of a metre and more on the map, clockwise from above.
    void check_triangle(const place& a, const place& b, const place& c, bool turned) {
        constexpr double least = 1.0;
        if (hypot(east(a, b), north(a, b)) < least || hypot(east(b, c), north(b, c)) < least ||
            hypot(east(c, a), north(c, a)) < least)
            return fail("a triangle has a side shorter than a metre");
        const double area = east(a, b) * north(a, c) - north(a, b) * east(a, c);
        if (turned ? area <= 0.0 : area >= 0.0) fail("a triangle is not clockwise from above");
    }

    // A patch wider than half the tile would lie in no bucket but the root.
    void end_patch() {
        if (points_.empty()) return;
        const auto [west, east_end] = std::minmax_element(
            points_.begin(), points_.end(), [](const place& a, const place& b) { return a.lon < b.lon; });
        const double dx = east(*west, *east_end);
        const auto [south, north_end] = std::minmax_element(
            points_.begin(), points_.end(), [](const place& a, const place& b) { return a.lat < b.lat; });
        const double dz = north(*south, *north_end);
        const auto [low, high] = std::minmax_element(
            points_.begin(), points_.end(), [](const place& a, const place& b) { return a.ele < b.ele; });
        const double diameter = sqrt(dx * dx + dz * dz + (high->ele - low->ele) * (high->ele - low->ele));
        if (diameter > 0.5 * meant_.degree_metres() * std::min(coslat_, 1.0))
            fail("a patch is wider than half the tile");
        points_.clear();
    }

    const tile_writer& meant_;
    const std::vector<const told_row*> rows_;
    tile_edges* const edges_;
    double coslat_;
    std::string fault_;
    std::vector<place> points_;
    size_t next_ = 0, first_ = 0, triangles_ = 0;
    int type_ = dsf_triangles, depth_ = 5;
    bool collidable_ = false;
};

namespace {
tile_check& check_of(void* ref) { return *static_cast<tile_check*>(ref); }

DSFCallbacks_t check_callbacks() {
    DSFCallbacks_t table;
    table.AcceptTerrainDef_f = table.AcceptObjectDef_f = table.AcceptPolygonDef_f =
        table.AcceptNetworkDef_f = [](const char*, void*) {};
    table.AcceptProperty_f = [](const char*, const char*, void*) {};
    table.BeginPatch_f = [](unsigned terrain, double lod_near, double lod_far, unsigned char flags, float*,
                            float*, int depth, void* ref) {
        check_of(ref).begin_patch(terrain, lod_near, lod_far, flags, depth);
    };
    table.BeginPrimitive_f = [](int type, void* ref) { check_of(ref).begin_primitive(type); };
    table.AddPatchVertex_f = [](double* c, void* ref) { check_of(ref).vertex(c); };
    table.EndPrimitive_f = [](void* ref) { check_of(ref).end_primitive(); };
    table.EndPatch_f = [](void*) {};
    table.AddObject_f = [](unsigned object, double* c, double rotation, void* ref) {
        check_of(ref).object(object, c, rotation);
    };
    table.BeginSegment_f = [](unsigned network, unsigned subtype, unsigned node, double* c, bool, void* ref) {
        check_of(ref).tell(told::road, {c[0], c[1], c[2], 1.0 * node, 1.0 * network, 1.0 * subtype});
    };
    table.AddSegmentShapePoint_f = [](double* c, bool, void* ref) { check_of(ref).tell(told::shape, c, 3); };
    table.EndSegment_f = [](unsigned node, double* c, bool, void* ref) {
        check_of(ref).tell(told::road_end, {c[0], c[1], c[2], 1.0 * node});
    };
    table.BeginPolygon_f = [](unsigned polygon, unsigned short parameter, void* ref) {
        check_of(ref).tell(told::polygon, {1.0 * polygon, 1.0 * parameter});
    };
    table.BeginPolygonWinding_f = [](void* ref) { check_of(ref).tell(told::winding, {}); };
    table.AddPolygonPoint_f = [](double* c, void* ref) { check_of(ref).tell(told::corner, c, 2); };
    table.EndPolygonWinding_f = [](void*) {};
    table.EndPolygon_f = [](void*) {};
    return table;
}
}  // namespace

std::string check_tile(const std::string& path, const tile_writer& meant, tile_edges* edges) {
    const unsigned char* first = nullptr;
    const XMappedFile file(path.c_str(), &first);
    if (!file.ok()) return "cannot read " + path + " again";
    tile_edges unasked;
    tile_check check(meant, edges ? edges : &unasked);
    DSFCallbacks_t table = check_callbacks();
    const int error = DSFReadMem(reinterpret_cast<const char*>(file.begin()),
                                 reinterpret_cast<const char*>(file.end()), &table, &check);
    if (error != dsf_ErrOK) return std::string("the decoder refuses it: ") + dsfErrorMessages[error];
    check.end();
    return check.result();
}

std::string check_border(const tile_edges::border& a, const tile_edges::border& b, double slack) {
    if (a.size() != b.size()) return "the borders have not the same points";
    const double turn = 2.0 * tile_writer::half_step(2.0);
    for (auto here = a.begin(), there = b.begin(); here != a.end(); ++here, ++there) {
        if (here->first != there->first) return "a point of the border has no partner";
        const tile_edges::point &p = here->second, &q = there->second;
        if (fabs(p.ele - q.ele) > slack) return "the border has a step";
        if (fabs(p.nx - q.nx) > turn || fabs(p.nz - q.nz) > turn) return "the border has a crease";
    }
    return "";
}
