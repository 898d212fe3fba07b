// The walk for roofs.
#include "scenery/ground/roofs.h"

#include "core/math/num.h"
#include "core/records/records.h"
#include "scenery/ground/tile.h"
#include "scenery/objects/object_hard.h"
#include "scenery/objects/objects.h"

namespace {
struct place_struct {
    double x, y, z;
};

// The last level whose range holds the squared distance; -1 for none.
int level_at(const vec_mod_struct& model, double distance_sqr) {
    int level = -1;
    for (size_t L = 0; L < model.vec_lod.size(); ++L) {
        const vec_lod_struct& lod = model.vec_lod[L];
        if (lod.dis_near_sqr <= distance_sqr && (lod.dis_far_sqr == -1.0f || distance_sqr < lod.dis_far_sqr))
            level = static_cast<int>(L);
    }
    return level;
}

void try_object(const scene_objct_struct& o, const place_struct& at) {
    const double dx = at.x - o.xyz[0], dy = at.y - o.xyz[1], dz = at.z - o.xyz[2];
    const int level = level_at(vec_mod[static_cast<size_t>(o.M_SIM)], dx * dx + dy * dy + dz * dz);
    if (level >= 0) object_hard_quads(o.M_SIM, level, o.xyz[0], o.xyz[1], o.xyz[2]);
}

bool is_beside(const Sphere3& sphere, const place_struct& at) {
    const double dx = at.x - sphere.c.x, dz = at.z - sphere.c.z;
    return !(dx * dx + dz * dz <= sphere.radius * sphere.radius);
}

// What a bucket and those below it hold lies within its sphere.
void walk(const xdeg_struct& tile, const xlay_struct& layer, const place_struct& at, uint32_t level,
          uint32_t x, uint32_t y) {
    const XBucketID id = XBucket_Compose(level, x, y);
    const auto sphere = tile.sphere_hash.find(id);
    if (sphere == tile.sphere_hash.end() || is_beside(sphere->second, at)) return;
    for (const scene_objct_struct* o : layer.objct_buckets.GetOneBucket(id)) try_object(*o, at);
    if (static_cast<int>(level) >= layer.objct_buckets_max_layer) return;
    for (uint32_t n = 0; n < 4; ++n) walk(tile, layer, at, level + 1, 2 * x + (n & 1), 2 * y + (n >> 1));
}
}  // namespace

void find_roof_below() {
    const place_struct at = {flt[0].dob_x, flt[0].dob_y, flt[0].dob_z};
    for (int lat = 0; lat < lat_secs[env.planet]; ++lat)
        for (int lon = 0; lon < lon_secs[env.planet]; ++lon) {
            const xdeg_struct& tile = xdeg[lon][lat];
            for (const xlay_struct& layer : tile.tex_layers)
                if (!layer.is_hidden && !layer.objct_buckets.Empty()) walk(tile, layer, at, 0, 0, 0);
        }
}
