// A loaded tile is made ready for culling: how deep and how far each layer goes, and a sphere around each
// bucket.
#include "scenery/ground/degree_finish.h"

#include <math.h>

#include "core/math/num.h"
#include "scenery/objects/objects.h"

void ExtendBoundingSphereToSphere(Sphere3& s, const Sphere3& other) {
    const Vector3 way = other.c - s.c;
    const double distance = sqrt(way.squared_length());
    if (!(distance - distance + other.radius * 0.0 == 0.0) || !(other.radius > 0.0)) return;
    if (!(s.radius > 0.0) || distance + s.radius <= other.radius) {
        s = other;
        return;
    }
    if (distance + other.radius <= s.radius) return;
    const double radius = 0.5 * (s.radius + distance + other.radius);
    s.c = s.c + way * ((radius - s.radius) / distance);
    s.radius = radius;
}

namespace {
void extend(reg_hash_type& spheres, XBucketID id, const Sphere3& other) {
    ExtendBoundingSphereToSphere(spheres[id], other);
}

// Once without a limit, always without.
void grow_lod(int& max_lod, float far_sqr) {
    if (far_sqr == -1.0f)
        max_lod = -1;
    else if (max_lod != -1)
        max_lod = intmax2(max_lod, static_cast<int>(sqrtf(fltlim(far_sqr, 0.0f, 1e12f))));
}

void UTIL_compute_patch_bucketsize(xdeg_struct* deg, xlay_struct& layer, XBucketID id,
                                   const std::vector<scene_patch_struct*>& patches) {
    layer.scene_buckets_max_layer =
        intmax2(layer.scene_buckets_max_layer, static_cast<int>(XBucket_GetLevel(id)));
    for (const scene_patch_struct* patch : patches) {
        grow_lod(layer.scene_buckets_max_lod, patch->dis_far_sqr);
        extend(deg->sphere_hash, id, {{patch->center_x, patch->center_y, patch->center_z}, patch->radius});
    }
}

void UTIL_compute_instance_bucketsize(xdeg_struct* deg, xlay_struct& layer, XBucketID id,
                                      const std::vector<scene_objct_struct*>& objects) {
    layer.objct_buckets_max_layer =
        intmax2(layer.objct_buckets_max_layer, static_cast<int>(XBucket_GetLevel(id)));
    for (const scene_objct_struct* object : objects) {
        const vec_mod_struct& model = vec_mod[static_cast<size_t>(object->M_SIM)];
        if (!model.vec_lod.empty()) grow_lod(layer.objct_buckets_max_lod, model.vec_lod.back().dis_far_sqr);
        const float* const centre = model.cull_center_xyz;
        extend(deg->sphere_hash, id,
               {{object->xyz[0] + static_cast<double>(centre[0]),
                 object->xyz[1] + static_cast<double>(centre[1]),
                 object->xyz[2] + static_cast<double>(centre[2])},
                model.cull_radius});
    }
}

void measure_layer(xdeg_struct* deg, xlay_struct& layer) {
    layer.scene_buckets_max_layer = layer.scene_buckets_max_lod = 0;
    layer.objct_buckets_max_layer = layer.objct_buckets_max_lod = 0;
    for (unsigned int level = bucket_levels; level-- > 0;) {
        layer.scene_buckets.IterateBucketLayer(level, [&](XBucketID id, const auto& patches) {
            UTIL_compute_patch_bucketsize(deg, layer, id, patches);
        });
        layer.objct_buckets.IterateBucketLayer(level, [&](XBucketID id, const auto& objects) {
            UTIL_compute_instance_bucketsize(deg, layer, id, objects);
        });
    }
}

// A parent encloses what lies below it in all layers; one without anything below gets no sphere.
void merge_upwards(reg_hash_type& spheres) {
    for (uint32_t level = bucket_levels - 1; level-- > 0;) {
        for (uint32_t index = 0; index < 1u << 2 * level; ++index) {
            const XBucketID id = XBucket_MakeBucketID(level, index);
            for (uint32_t n = 0; n < 4; ++n) {
                const auto child = spheres.find(XBucket_GetChild(id, n));
                if (child == spheres.end()) continue;
                const Sphere3 below = child->second;  // the table moves as it grows
                extend(spheres, id, below);
            }
        }
    }
}
}  // namespace

void finish_degree(xdeg_struct* deg) {
    deg->sphere_hash.clear();
    for (xlay_struct& layer : deg->tex_layers) measure_layer(deg, layer);
    merge_upwards(deg->sphere_hash);
    deg->visibles.Reset(bucket_levels);
}
