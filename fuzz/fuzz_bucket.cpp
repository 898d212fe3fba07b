// Buckets of any boxes over any area, no numbers and infinities among them, against the definition of where a
// box belongs: in the strict mode the smallest bucket that holds it, in the loose one the deepest that is as
// wide, by its middle.

#include "scenery/ground/buckets.h"
#include "support.h"

namespace {
using fuzzing::input;
using fuzzing::must;

struct box {
    double x1, y1, x2, y2;
};
std::vector<box> boxes;
struct traits {
    static void GetObjectBounds(size_t n, Point2& p1, Point2& p2) {
        p1 = {boxes[n].x1, boxes[n].y1};
        p2 = {boxes[n].x2, boxes[n].y2};
    }
    static void DestroyObject(size_t) {}
};
using buckets = XBuckets<size_t, traits>;

// Whole numbers meet the lines of the grid; words lie anywhere near it; doubles anywhere at all.
double coordinate(input& in) {
    const unsigned kind = in.byte();
    if (kind < 120) return static_cast<double>(in.byte()) - 64.0;
    if (kind < 230) return in.word() / 512.0 - 32.0;
    if (kind < 236) return NAN;
    if (kind < 242) return kind % 2 ? INFINITY : -INFINITY;
    return in.value<double>();
}

// The box's sides as ratios of the area; false when it is in no place.
bool ratios(const buckets& b, const box& at, double (&r)[4]) {
    if (!(b.mSize.x > 0.0) || !(b.mSize.y > 0.0)) return false;
    r[0] = (at.x1 - b.mMin.x) / b.mSize.x, r[1] = (at.y1 - b.mMin.y) / b.mSize.y;
    r[2] = (at.x2 - b.mMin.x) / b.mSize.x, r[3] = (at.y2 - b.mMin.y) / b.mSize.y;
    return std::isfinite(r[0]) && std::isfinite(r[1]) && std::isfinite(r[2]) && std::isfinite(r[3]);
}

double onto_area(double ratio) { return std::clamp(ratio, 0.0, 1.0); }

// The cell of a level with a place in it, the last one for the far rim.
double cell_of(double ratio, uint32_t level) {
    const double n = static_cast<double>(1u << level);
    return std::min(floor(onto_area(ratio) * n), n - 1.0);
}

// Whether the cell that holds the low side holds the high side too.
bool cell_holds(double low, double high, uint32_t level) {
    return onto_area(high) * static_cast<double>(1u << level) <= cell_of(low, level) + 1.0;
}

void check_strict(const double (&r)[4], uint32_t level, uint32_t x, uint32_t y, uint32_t depth) {
    must(level == 0 || (cell_of(r[0], level) == x && cell_of(r[1], level) == y));
    must(level == 0 || (cell_holds(r[0], r[2], level) && cell_holds(r[1], r[3], level)));
    for (uint32_t deeper = level + 1; deeper < depth; ++deeper)
        must(!cell_holds(r[0], r[2], deeper) || !cell_holds(r[1], r[3], deeper));
}

void check_loose(const double (&r)[4], uint32_t level, uint32_t x, uint32_t y, uint32_t depth) {
    const double wide = std::max(r[2] - r[0], r[3] - r[1]);
    must(level == 0 || wide * static_cast<double>(1u << level) <= 1.0);
    must(level + 1 == depth || wide * static_cast<double>(2u << level) > 1.0);
    must(cell_of(0.5 * (r[0] + r[2]), level) == x && cell_of(0.5 * (r[1] + r[3]), level) == y);
}

// A point finds each box that it lies in, but for those that end there.
void check_point(const buckets& b, Point2 p) {
    if (!(p.x >= b.mMin.x && p.x <= b.mMin.x + b.mSize.x && p.y >= b.mMin.y && p.y <= b.mMin.y + b.mSize.y))
        return;
    std::set<size_t> found;
    b.AtPoint(p, [&](const std::vector<size_t>& objects) {
        found.insert(objects.begin(), objects.end());
        return false;
    });
    const double px = (p.x - b.mMin.x) / b.mSize.x, py = (p.y - b.mMin.y) / b.mSize.y;
    for (size_t n = 0; n < boxes.size(); ++n) {
        double r[4];
        if (!ratios(b, boxes[n], r)) continue;
        if (px >= r[0] && px < r[2] && py >= r[1] && py < r[3] && px < 1.0 && py < 1.0) must(found.count(n));
    }
}
}  // namespace

void fuzz_bucket(input& in) {
    constexpr size_t most_boxes = 200;
    constexpr uint32_t most_levels = 10;
    const unsigned choice = in.byte();
    const int mode = choice & 1 ? buckets_strict : buckets_loose;
    const uint32_t depth = 1 + (choice >> 1) % most_levels;
    Point2 min = {0.0, 0.0}, max = {128.0, 64.0};
    if (choice >= 128) {
        min = {coordinate(in), coordinate(in)};
        max = {coordinate(in), coordinate(in)};
    }
    buckets b;
    b.Reset(depth, min, max, mode);
    boxes.clear();
    while (!in.done() && boxes.size() < most_boxes) {
        boxes.push_back({coordinate(in), coordinate(in), coordinate(in), coordinate(in)});
        const size_t n = boxes.size() - 1;
        const XBucketID id = b.Insert(n);
        must(b.GetOneBucket(id).back() == n);
        uint32_t level, x, y;
        XBucket_Decompose(id, level, x, y);
        must(level < depth && x < 1u << level && y < 1u << level);
        double r[4];
        if (!ratios(b, boxes[n], r))
            must(id == 0);
        else if (mode == buckets_strict)
            check_strict(r, level, x, y, depth);
        else
            check_loose(r, level, x, y, depth);
    }
    size_t held = 0;
    for (uint32_t level = 0; level < depth; ++level)
        b.IterateBucketLayer(level, [&](XBucketID, const auto& objects) { held += objects.size(); });
    must(held == boxes.size());
    if (mode == buckets_strict)
        for (const box& at : boxes) check_point(b, {0.5 * (at.x1 + at.x2), 0.5 * (at.y1 + at.y2)});
}
