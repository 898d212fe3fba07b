// Quadtree of buckets over the area of a tile, by size and place of what lies in them.
// Role: holds patches and objects for culling, and collision patches for terrain queries. Filled while a tile
// loads; knows nothing of what it holds but its bounds. What cannot be placed, because its bounds or the area
// are no numbers or the area has no width, lies in the root.
#pragma once
#include <math.h>
#include <stdint.h>

#include <unordered_map>
#include <vector>

#include "core/math/geo3.h"
#include "core/program/alert.h"

// Level in the top 8 bits, index in the level in the low 24: (y << level) + x. 0 is the root.
using XBucketID = uint32_t;

constexpr XBucketID XBucket_MakeBucketID(uint32_t level, uint32_t index) { return (level << 24) | index; }
constexpr uint32_t XBucket_GetLevel(XBucketID id) { return id >> 24; }
constexpr uint32_t XBucket_GetIndex(XBucketID id) { return id & 0xFFFFFF; }
constexpr XBucketID XBucket_Compose(uint32_t level, uint32_t x, uint32_t y) {
    return XBucket_MakeBucketID(level, (y << level) + x);
}
constexpr void XBucket_Decompose(XBucketID id, uint32_t& level, uint32_t& x, uint32_t& y) {
    level = XBucket_GetLevel(id);
    y = XBucket_GetIndex(id) >> level;
    x = XBucket_GetIndex(id) & ((1u << level) - 1u);
}
// n: 0 to 3, west to east, then the next row.
constexpr XBucketID XBucket_GetChild(XBucketID id, uint32_t n) {
    uint32_t level = 0, x = 0, y = 0;
    XBucket_Decompose(id, level, x, y);
    return XBucket_Compose(level + 1, 2 * x + (n & 1), 2 * y + (n >> 1));
}

enum bucket_mode : int {
    buckets_loose = 0,   // the level whose buckets are as wide as the object; it may reach over the edges
    buckets_strict = 1,  // the smallest bucket that contains it
};

// Traits: GetObjectBounds(object, p1, p2) and DestroyObject(object).
template <class Object, class Traits>
class XBuckets {
public:
    // inLayers levels over the area from inMin to inMax; what was held is forgotten, not destroyed.
    void Reset(unsigned int inLayers, const Point2& inMin, const Point2& inMax, int mode) {
        mMode = mode;
        mItems.assign(inLayers, {});
        mMin = inMin;
        mMax = inMax;
        mSize = {inMax.x - inMin.x, inMax.y - inMin.y};
        mTotal = 0;
    }

    // Places the object and gives its bucket.
    XBucketID Insert(const Object& object) {
        const XBucketID id = FindBucket(object);
        if (XBucket_GetLevel(id) >= mItems.size())
            MACIBM_alert(0, "your level is not within the mitimes size range!", "", "", "", alert_fatal);
        mItems[XBucket_GetLevel(id)][XBucket_GetIndex(id)].push_back(object);
        ++mTotal;
        return id;
    }

    XBucketID FindBucket(const Object& object) const {
        Point2 p1, p2;
        Traits::GetObjectBounds(object, p1, p2);
        return mMode == buckets_loose ? find_loose(p1, p2) : find_strict(p1, p2);
    }

    // Empty when nothing lies in it.
    const std::vector<Object>& GetOneBucket(XBucketID id) const {
        static const std::vector<Object> none;
        if (XBucket_GetLevel(id) >= mItems.size()) return none;
        const auto found = mItems[XBucket_GetLevel(id)].find(XBucket_GetIndex(id));
        return found == mItems[XBucket_GetLevel(id)].end() ? none : found->second;
    }

    // function(id, objects) for each bucket of the level that holds something.
    template <class Function>
    void IterateBucketLayer(unsigned int level, Function function) const {
        if (level >= mItems.size()) return;
        for (const auto& [index, objects] : mItems[level])
            function(XBucket_MakeBucketID(level, index), objects);
    }

    // function(objects) for each bucket of the strict mode that can touch the point; stops when it says true.
    template <class Function>
    bool AtPoint(const Point2& p, Function function) const {
        if (p.x < mMin.x || p.x > mMax.x || p.y < mMin.y || p.y > mMax.y) return false;
        for (uint32_t level = 0; level < mItems.size(); ++level) {
            if (mItems[level].empty()) continue;
            const uint32_t x = cell((p.x - mMin.x) / mSize.x, level),
                           y = cell((p.y - mMin.y) / mSize.y, level);
            const std::vector<Object>& objects = GetOneBucket(XBucket_Compose(level, x, y));
            if (!objects.empty() && function(objects)) return true;
        }
        return false;
    }

    size_t GetLayerCount() const { return mItems.size(); }
    bool Empty() const { return mTotal == 0; }
    int Total() const { return mTotal; }

    void RemoveAllAndDestroy() {
        for (const auto& level : mItems)
            for (const auto& [index, objects] : level)
                for (const Object& object : objects) Traits::DestroyObject(object);
        for (auto& level : mItems) level.clear();
        mTotal = 0;
    }

    Point2 mMin, mMax, mSize;  // the area, in the traits' plane

private:
    // Column or row at a ratio of the area, the nearest one for a place outside.
    static uint32_t cell(double ratio, uint32_t level) {
        const double last = static_cast<double>((1u << level) - 1u);
        const double at = ratio * static_cast<double>(1u << level);
        return static_cast<uint32_t>(at < 0.0 || !(at == at) ? 0.0 : at > last ? last : at);
    }

    // The bounds as ratios of the area; false when they, or the area, are no place.
    bool find_place(const Point2& p1, const Point2& p2, double (&at)[4]) const {
        if (!(mSize.x > 0.0 && mSize.y > 0.0)) return false;
        at[0] = (p1.x - mMin.x) / mSize.x, at[1] = (p1.y - mMin.y) / mSize.y;
        at[2] = (p2.x - mMin.x) / mSize.x, at[3] = (p2.y - mMin.y) / mSize.y;
        double sum = 0.0;  // finite when all four are
        for (const double ratio : at) sum += ratio * 0.0;
        return sum == 0.0;
    }

    uint32_t checked(long level) const {
        if (level < 0) MACIBM_alert(0, "Lev el<0!", "", "", "", alert_fatal);
        if (level >= static_cast<long>(mItems.size()))
            MACIBM_alert(0, "level>=mItems.size()!", "", "", "", alert_fatal);
        return static_cast<uint32_t>(level);
    }

    XBucketID find_loose(const Point2& p1, const Point2& p2) const {
        double at[4];
        if (!find_place(p1, p2, at)) return 0;
        double frac = fmax(at[2] - at[0], at[3] - at[1]);
        uint32_t level = 0;
        while (level + 1 < mItems.size()) {
            frac *= 2.0;
            if (frac > 1.0) break;
            ++level;
        }
        const uint32_t x = cell(0.5 * (at[0] + at[2]), level), y = cell(0.5 * (at[1] + at[3]), level);
        return XBucket_Compose(checked(level), x, y);
    }

    // Left and lower edge down, right and upper edge up to the grid of the deepest level; what lies outside
    // the area counts as lying on its rim.
    XBucketID find_strict(const Point2& p1, const Point2& p2) const {
        double at[4];
        if (!find_place(p1, p2, at)) return 0;
        const long deepest = checked(static_cast<long>(mItems.size()) - 1);
        const double n = static_cast<double>(1l << deepest);
        const auto grid = [](double line, double low, double high) {
            return static_cast<long>(line < low ? low : line > high ? high : line);
        };
        const long left = grid(floor(at[0] * n), 0.0, n - 1.0), right = grid(ceil(at[2] * n), 0.0, n);
        const long bottom = grid(floor(at[1] * n), 0.0, n - 1.0), top = grid(ceil(at[3] * n), 0.0, n);
        for (long level = deepest; level > 0; --level) {
            const long size = 1l << (deepest - level), mask = ~(size - 1);
            const long x = left & mask, y = bottom & mask;
            if (x + size >= right && y + size >= top)
                return XBucket_Compose(static_cast<uint32_t>(level), static_cast<uint32_t>(x / size),
                                       static_cast<uint32_t>(y / size));
        }
        return 0;
    }

    int mMode = buckets_loose;
    std::vector<std::unordered_map<uint32_t, std::vector<Object>>> mItems;  // by level, then by index
    int mTotal = 0;
};
