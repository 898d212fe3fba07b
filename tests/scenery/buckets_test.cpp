// Loose buckets against what lies in them.
#include "scenery/ground/buckets.h"

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
TEST(buckets, a_loose_bucket_is_as_wide_as_what_lies_in_its_middle) {
    constexpr unsigned levels = 6;
    test::fresh();
    XBuckets<int, traits> b;
    b.Reset(levels, {-1000.0, 500.0}, {3000.0, 2500.0}, buckets_loose);
    for (int n = 0; n < 2000; ++n) {
        const double x = flt_rand(-1000.0f, 3000.0f), y = flt_rand(500.0f, 2500.0f);
        const double size = 1000.0 * pow(flt_rand(0.0f, 1.0f), 6.0);
        rectangles.push_back({x, y, x + size * flt_rand(0.1f, 1.0f), y + size});
        b.Insert(n);
    }
    for (unsigned level = 0; level < levels; ++level)
        b.IterateBucketLayer(level, [&](XBucketID id, const std::vector<int>& objects) {
            unsigned l, x, y;
            XBucket_Decompose(id, l, x, y);
            const double dx = 4000.0 / (1 << l), dy = 2000.0 / (1 << l);
            for (const int n : objects) {
                const rectangle& r = rectangles[static_cast<size_t>(n)];
                EXPECT_LE(r.x2 - r.x1, dx * 1.0001);
                EXPECT_LE(r.y2 - r.y1, dy * 1.0001);
                const bool fits_deeper = r.x2 - r.x1 <= dx / 2 && r.y2 - r.y1 <= dy / 2;
                EXPECT_TRUE(l + 1 == levels || !fits_deeper);
                const double mx = (0.5 * (r.x1 + r.x2) + 1000.0) / dx,
                             my = (0.5 * (r.y1 + r.y2) - 500.0) / dy;
                const double last = (1 << l) - 1;
                EXPECT_EQ(x, static_cast<unsigned>(fmin(mx, last)));
                EXPECT_EQ(y, static_cast<unsigned>(fmin(my, last)));
            }
        });
    b.RemoveAllAndDestroy();
    EXPECT_TRUE(b.Empty());
    EXPECT_EQ(destroyed, 2000);
}
}  // namespace
