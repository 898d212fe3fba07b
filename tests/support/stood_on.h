// The collision mesh of a tile.
#pragma once
#include <vector>

#include "scenery/ground/tile.h"

namespace test {

// Three corners for each triangle.
inline std::vector<d3_struct> stood_on(const xdeg_struct& tile) {
    std::vector<d3_struct> all;
    for (unsigned level = 0; level < tile.ytest_buckets.GetLayerCount(); ++level)
        tile.ytest_buckets.IterateBucketLayer(
            level, [&](XBucketID, const std::vector<ytest_patch_struct*>& patches) {
                for (const ytest_patch_struct* patch : patches)
                    for (const ytest_pol_struct& pol : patch->ytest_pol)
                        all.insert(all.end(), pol.geo.begin(), pol.geo.end());
            });
    return all;
}

}  // namespace test
