// What a view sees of a tile's quadtree of buckets.
// Role: one walk of the tree a tile and view marks the buckets that are seen, with their distances; every
// layer then visits those that it has. Valid until the next walk of the same tile. Knows no OpenGL.
#pragma once
#include <vector>

#include "draw/camera/xcam.h"
#include "draw/gl/frame_counts.h"
#include "scenery/ground/buckets.h"

struct xdeg_struct;

struct camera_cull_traits {
    // Whether the bucket has a sphere that may be seen, and which it is. Defined with the tile.
    static bool IsVisible(const xcam_class& camera, const xdeg_struct& reference, XBucketID id,
                          const Sphere3** sphere);
};

template <class Traits>
class XCull {
public:
    // 4^n buckets at each level n below inLayers, none of them seen.
    void Reset(unsigned int inLayers) {
        mVisible.assign(inLayers, {});
        mDistances.assign(inLayers, {});
        for (unsigned int level = 0; level < inLayers; ++level) {
            mVisible[level].assign(size_t{1} << 2 * level, false);
            mDistances[level].assign(size_t{1} << 2 * level, 0.0f);
        }
        mTotalVisible = 0;
    }

    // Gives how many buckets are seen. Below one that is not, what was marked before stays, and is never
    // read.
    int Cull(xcam_class* inCamera, const xdeg_struct* reference) {
        mTotalVisible = 0;
        if (!mVisible.empty()) mark(*inCamera, inCamera->Location(), *reference, 0, 0, 0);
        return mTotalVisible;
    }

    // func(id, squared distance, inRef) for each bucket that a layer draws: down to its deepest level, and
    // not where the whole branch is farther than its largest distance. inBucketSize: the root's radius.
    template <class Reference>
    void Iterate(int inMaxLevel, int inMaxLOD, double inBucketSize,
                 void (*func)(XBucketID id, float lod_m_sqr, Reference* ref), Reference* inRef) const {
        if (!mVisible.empty() && mVisible[0][0])
            visit(inMaxLevel, inMaxLOD, inBucketSize, func, inRef, 0, 0, 0);
    }

    int mTotalVisible = 0;

private:
    void mark(const xcam_class& camera, const double* eye, const xdeg_struct& reference, uint32_t level,
              uint32_t x, uint32_t y) {
        const uint32_t index = (y << level) + x;
        const Sphere3* sphere = nullptr;
        if (!Traits::IsVisible(camera, reference, XBucket_MakeBucketID(level, index), &sphere)) {
            mVisible[level][index] = false;
            ++frame_counts.culled;
            return;
        }
        const double dx = sphere->c.x - eye[0], dy = sphere->c.y - eye[1], dz = sphere->c.z - eye[2];
        mDistances[level][index] = static_cast<float>(dx * dx + dy * dy + dz * dz);
        mVisible[level][index] = true;
        ++mTotalVisible;
        if (level + 1 == mVisible.size()) return;
        for (uint32_t n = 0; n < 4; ++n)
            mark(camera, eye, reference, level + 1, 2 * x + (n & 1), 2 * y + (n >> 1));
    }

    template <class Reference>
    void visit(int max_level, int max_lod, double bucket_size,
               void (*func)(XBucketID id, float lod_m_sqr, Reference* ref), Reference* ref, uint32_t level,
               uint32_t x, uint32_t y) const {
        const uint32_t index = (y << level) + x;
        const float distance_sqr = mDistances[level][index];
        const double farthest = max_lod + bucket_size;
        if (max_lod != -1 && distance_sqr > farthest * farthest) return;
        func(XBucket_MakeBucketID(level, index), distance_sqr, ref);
        if (static_cast<int>(level) >= max_level || level + 1 == mVisible.size()) return;
        for (uint32_t n = 0; n < 4; ++n) {
            const uint32_t cx = 2 * x + (n & 1), cy = 2 * y + (n >> 1);
            if (mVisible[level + 1][(cy << (level + 1)) + cx])
                visit(max_level, max_lod, 0.5 * bucket_size, func, ref, level + 1, cx, cy);
        }
    }

    std::vector<std::vector<bool>> mVisible;     // by level, then by index
    std::vector<std::vector<float>> mDistances;  // the same: from the eye to the sphere's centre, m2
};
