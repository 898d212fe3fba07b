// Buckets against brute force.
#include "scenery/ground/buckets.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/math/random.h"
#include "support.h"

namespace {
struct rectangle {
    double x1, y1, x2, y2;
};
int destroyed = 0;
std::vector<rectangle> rectangles;
struct traits {
    static void GetObjectBounds(int n, Point2& p1, Point2& p2) {
        const rectangle& r = rectangles[static_cast<size_t>(n)];
        p1 = {r.x1, r.y1};
        p2 = {r.x2, r.y2};
    }
    static void DestroyObject(int) { ++destroyed; }
};
constexpr unsigned levels = 6;

XBuckets<int, traits> filled(int mode) {
    test::fresh();
    rectangles.clear();
    XBuckets<int, traits> b;
    b.Reset(levels, {-1000.0, 500.0}, {3000.0, 2500.0}, mode);
    for (int n = 0; n < 2000; ++n) {
        const double x = flt_rand(-1000.0f, 3000.0f), y = flt_rand(500.0f, 2500.0f);
        const double size = 1000.0 * pow(flt_rand(0.0f, 1.0f), 6.0);
        rectangles.push_back({x, y, x + size * flt_rand(0.1f, 1.0f), y + size});
        b.Insert(n);
    }
    return b;
}

TEST(buckets, a_point_finds_all_that_contain_it) {
    auto b = filled(buckets_strict);
    size_t asked = 0, matches = 0;
    for (int i = 0; i < 3000; ++i) {
        const double x = flt_rand(-1000.0f, 3000.0f), y = flt_rand(500.0f, 2500.0f);
        const auto contains = [&](const rectangle& r) {
            return x >= r.x1 && x <= r.x2 && y >= r.y1 && y <= r.y2;
        };
        b.AtPoint({x, y}, [&](const std::vector<int>& objects) {
            asked += objects.size();
            for (const int n : objects) matches += contains(rectangles[static_cast<size_t>(n)]);
            return false;
        });
        matches -= static_cast<size_t>(std::count_if(rectangles.begin(), rectangles.end(), contains));
        ASSERT_EQ(matches, 0u) << x << ' ' << y;
    }
    EXPECT_LT(asked, 3000u * 2000u / 5u) << "and not everything";
    b.RemoveAllAndDestroy();
    EXPECT_TRUE(b.Empty() && destroyed == 2000);
}

XBucketID placed(int mode, const rectangle& box, unsigned depth = 8, Point2 far = {100.0, 100.0}) {
    XBuckets<int, traits> b;
    b.Reset(depth, {0.0, 0.0}, far, mode);
    rectangles = {box};
    return b.FindBucket(0);
}

TEST(buckets, what_is_no_place_lies_in_the_root_and_what_is_outside_on_the_rim) {
    test::fresh();
    EXPECT_EQ(placed(buckets_loose, {0, 0, 100, 100}), 0u);
    EXPECT_EQ(XBucket_GetLevel(placed(buckets_loose, {50, 50, 51, 51})), 6u) << "a hundredth of the width";
    EXPECT_EQ(placed(buckets_strict, {49.9, 10, 50.1, 10.1}), 0u) << "over the middle line";
    EXPECT_EQ(placed(buckets_strict, {300, -7, 301, -6}), XBucket_Compose(7, 127, 0));
    EXPECT_EQ(placed(buckets_loose, {-300, 500, -299.9, 500.1}), XBucket_Compose(7, 0, 127));
    const double inf = INFINITY;
    for (const int mode : {buckets_loose, buckets_strict}) {
        for (const rectangle& box :
             {rectangle{NAN, 1, 2, 2}, {1, 1, 2, NAN}, {-inf, 1, inf, 2}, {inf, 1, inf, 2}})
            EXPECT_EQ(placed(mode, box), 0u);
        EXPECT_EQ(placed(mode, {1, 1, 2, 2}, 8, {0.0, 100.0}), 0u) << "an area without width";
        EXPECT_EQ(placed(mode, {1, 1, 2, 2}, 8, {NAN, 100.0}), 0u);
        EXPECT_EQ(placed(mode, {1, 1, 2, 2}, 1), 0u);
    }
    EXPECT_EQ(test::expect_fatal([] { placed(buckets_strict, {1, 1, 2, 2}, 0); }).line[0], "Lev el<0!");
    EXPECT_EQ(test::expect_fatal([] {
                  placed(buckets_loose, {1, 1, 2, 2}, 0);
              }).line[0],
              "level>=mItems.size()!");
}
}  // namespace
