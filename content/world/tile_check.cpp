// The writer's own check of a file.
#include "tile_check.h"

#include <math.h>

#include <algorithm>
#include <vector>

#include "core/disk/mapfile.h"
#include "scenery/decode/dsf.h"
#include "scenery/decode/dsf_format.h"
#include "tile_writer.h"

// The decoder's callbacks gather here.
class tile_check {
public:
    explicit tile_check(const tile_writer& meant) : meant_(meant), coslat_(cos(lat_radians(meant))) {}

    std::string result() const { return fault_; }
    void end() {
        end_patch();
        if (triangles_ != meant_.triangles_)
            fail("the file holds " + std::to_string(triangles_) + " triangles instead of " +
                 std::to_string(meant_.triangles_));
        if (objects_ != meant_.placed_.size()) fail("the file holds another number of objects");
        if (triangles_ == 0) fail("the tile has no terrain");
    }

    void begin_patch(unsigned terrain, unsigned char flags, int depth) {
        end_patch();
        if (terrain >= meant_.terrain_.size()) fail("a patch is of no definition");
        if (depth < 5) fail("a patch's points have less than five values");
        collidable_ = flags & tile_base;
        points_.clear();
    }
    void begin_primitive(int type) {
        type_ = type;
        first_ = points_.size();
    }
    void vertex(const double* c) {
        if (!(c[0] >= meant_.lon() && c[0] <= meant_.lon() + 1 && c[1] >= meant_.lat() &&
              c[1] <= meant_.lat() + 1))
            fail("a point lies outside of the tile");
        for (const double edge : {c[0] - meant_.lon(), c[1] - meant_.lat()})
            if ((edge != 0.0 && edge < nearly_) || (edge != 1.0 && edge > 1.0 - nearly_))
                fail("a point lies beside the tile's edge instead of on it");
        points_.push_back({c[0], c[1], c[2]});
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
    void object(unsigned type) {
        ++objects_;
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
    double coslat_;
    std::string fault_;
    std::vector<place> points_;
    size_t first_ = 0, triangles_ = 0, objects_ = 0;
    int type_ = dsf_triangles;
    bool collidable_ = false;
};

namespace {
tile_check& check_of(void* ref) { return *static_cast<tile_check*>(ref); }

DSFCallbacks_t check_callbacks() {
    DSFCallbacks_t table;
    table.AcceptTerrainDef_f = table.AcceptObjectDef_f = table.AcceptPolygonDef_f =
        table.AcceptNetworkDef_f = [](const char*, void*) {};
    table.AcceptProperty_f = [](const char*, const char*, void*) {};
    table.BeginPatch_f = [](unsigned terrain, double, double, unsigned char flags, float*, float*, int depth,
                            void* ref) { check_of(ref).begin_patch(terrain, flags, depth); };
    table.BeginPrimitive_f = [](int type, void* ref) { check_of(ref).begin_primitive(type); };
    table.AddPatchVertex_f = [](double* c, void* ref) { check_of(ref).vertex(c); };
    table.EndPrimitive_f = [](void* ref) { check_of(ref).end_primitive(); };
    table.EndPatch_f = [](void*) {};
    table.AddObject_f = [](unsigned object, double*, double, void* ref) { check_of(ref).object(object); };
    table.BeginSegment_f = [](unsigned, unsigned, unsigned, double*, bool, void*) {};
    table.AddSegmentShapePoint_f = [](double*, bool, void*) {};
    table.EndSegment_f = [](unsigned, double*, bool, void*) {};
    table.BeginPolygon_f = [](unsigned, unsigned short, void*) {};
    table.BeginPolygonWinding_f = [](void*) {};
    table.AddPolygonPoint_f = [](double*, void*) {};
    table.EndPolygonWinding_f = [](void*) {};
    table.EndPolygon_f = [](void*) {};
    return table;
}
}  // namespace

std::string check_tile(const std::string& path, const tile_writer& meant) {
    const unsigned char* first = nullptr;
    const XMappedFile file(path.c_str(), &first);
    if (!file.ok()) return "cannot read " + path + " again";
    tile_check check(meant);
    DSFCallbacks_t table = check_callbacks();
    const int error = DSFReadMem(reinterpret_cast<const char*>(file.begin()),
                                 reinterpret_cast<const char*>(file.end()), &table, &check);
    if (error != dsf_ErrOK) return std::string("the decoder refuses it: ") + dsfErrorMessages[error];
    check.end();
    return check.result();
}
