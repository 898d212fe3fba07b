// The camera and the walk of the buckets against brute force; tiles made ready for both.
#include "scenery/ground/cull.h"

#include <math.h>

#include <set>

#include "core/math/random.h"
#include "draw/camera/matrix4.h"
#include "scenery/ground/degree_finish.h"
#include "scenery/objects/objects.h"
#include "support.h"

namespace {
constexpr double tile_side = 100000.0;

double random(double low, double high) { return flt_rand(static_cast<float>(low), static_cast<float>(high)); }

// A place in the eye's axes, by the angles alone.
Vector3 seen_from(const Point3& eye, double psi, double the, const Point3& p) {
    const Vector3 d = p - eye;
    const double r = M_PI / 180.0, s = sin(psi * r), c = cos(psi * r), st = sin(the * r), ct = cos(the * r);
    const double right = d.dx * c + d.dz * s, ahead = d.dx * s - d.dz * c;
    return {right, d.dy * ct - ahead * st, -(d.dy * st + ahead * ct)};
}

struct view {
    Point3 eye;
    double psi, the, half_x, half_y, near_clip, far_clip;  // half angles, degrees

    void set(xcam_class* camera) const {
        const double x = near_clip * tan(half_x * M_PI / 180.0), y = near_clip * tan(half_y * M_PI / 180.0);
        camera->SetupFrustum(-x, x, -y, y, near_clip, 2.0 * far_clip);
        camera->SetFakeFarClippingPlane(far_clip);
        camera->Identity();
        camera->Rotate(the, -1.0, 0.0, 0.0);
        camera->Rotate(psi, 0.0, 1.0, 0.0);
        camera->Translate(-eye.x, -eye.y, -eye.z);
    }
    // Distances of a place from the six planes, inward.
    double depth_in(const Point3& p) const {
        const Vector3 e = seen_from(eye, psi, the, p);
        const double ax = half_x * M_PI / 180.0, ay = half_y * M_PI / 180.0;
        const double sides =
            fmin(-e.dz * sin(ax) - fabs(e.dx) * cos(ax), -e.dz * sin(ay) - fabs(e.dy) * cos(ay));
        return fmin(sides, fmin(-e.dz - near_clip, far_clip + e.dz));
    }
};

view random_view() {
    return {{random(0, tile_side), random(1, 8000), random(0, tile_side)},
            random(0, 360),
            random(-60, 60),
            random(5, 60),
            random(5, 50),
            random(0.5, 20),
            random(3e3, 6e4)};
}

TEST(camera, a_sphere_is_seen_as_far_as_its_radius_reaches_over_the_six_planes) {
    test::fresh();
    xcam_class camera;
    for (int i = 0; i < 20000; ++i) {
        const view v = random_view();
        v.set(&camera);
        const Point3 p = {v.eye.x + random(-2e4, 2e4), v.eye.y + random(-2e4, 2e4),
                          v.eye.z + random(-2e4, 2e4)};
        const double reach = -v.depth_in(p), slack = 1e-3;
        EXPECT_FALSE(reach > slack && camera.SphereInView(p.x, p.y, p.z, reach - slack)) << i;
        EXPECT_TRUE(camera.SphereInView(p.x, p.y, p.z, fmax(reach, 0.0) + slack)) << i;
    }
    EXPECT_FALSE(camera.SphereInView(NAN, 0.0, -50.0, 1.0)) << "what is no number is nowhere";
}

TEST(camera, a_perspective_has_the_vertical_angle) {
    xcam_class camera;
    camera.SetupPerspective(60.0, 2.0, 1.0, 1000.0);
    double eye[4] = {2.0 * 10.0 * tan(M_PI / 6.0), 10.0 * tan(M_PI / 6.0), -10.0, 1.0}, clip[4];
    multMatrixVec(clip, camera.Perspective(), eye);
    EXPECT_NEAR(clip[0] / clip[3], 1.0, 1e-12);
    EXPECT_NEAR(clip[1] / clip[3], 1.0, 1e-12);
}

TEST(spheres, the_smallest_around_two) {
    Sphere3 s = {{0, 0, 0}, 2.0};
    ExtendBoundingSphereToSphere(s, {{9, 0, 0}, 1.0});
    EXPECT_DOUBLE_EQ(s.radius, 6.0);  // from -2 to 10
    EXPECT_DOUBLE_EQ(s.c.x, 4.0);
    ExtendBoundingSphereToSphere(s, {{4, 1, 0}, 20.0});
    EXPECT_EQ(s.radius, 20.0);
    ExtendBoundingSphereToSphere(s, {{NAN, 0, 0}, 5.0});
    ExtendBoundingSphereToSphere(s, {{90, 0, 0}, 0.0});
    EXPECT_EQ(s.radius, 20.0);
}

// Two layers of patches and one of objects, of all sizes.
class culled_tile : public test::system_test {
protected:
    void SetUp() override {
        system_test::SetUp();
        vec_mod.assign(1, {});
        vec_mod[0].cull_radius = 40.0f, vec_mod[0].cull_center_xyz[1] = 15.0f;
        vec_mod[0].vec_lod.resize(2);
        vec_mod[0].vec_lod[1].dis_far_sqr = 4000.0f * 4000.0f;
        tile.tex_layers.resize(2);
        for (xlay_struct& layer : tile.tex_layers) {
            layer.scene_buckets.Reset(bucket_levels, {0, 0}, {tile_side, tile_side}, buckets_loose);
            layer.objct_buckets.Reset(bucket_levels, {0, 0}, {tile_side, tile_side}, buckets_loose);
        }
        for (int i = 0; i < 600; ++i) {
            auto* const p = new scene_patch_struct;
            p->radius = static_cast<float>(50.0 * pow(200.0, random(0, 1)));
            p->center_x = static_cast<float>(random(0, tile_side)), p->center_y = flt_rand(0, 3000);
            p->center_z = static_cast<float>(random(0, tile_side));
            p->dis_far_sqr = i % 2 ? 9000.0f * 9000.0f : -1.0f;
            tile.tex_layers[i % 2].scene_buckets.Insert(p);
            auto* const o = new scene_objct_struct{0, {flt_rand(0, 1e5f), 10.0f, flt_rand(0, 1e5f)}};
            tile.tex_layers[1].objct_buckets.Insert(o);
        }
        finish_degree(&tile);
    }
    void TearDown() override {
        clear_degree(&tile);
        vec_mod.clear();
    }
    xdeg_struct tile;
};

TEST_F(culled_tile, knows_its_depths_and_its_distances) {
    const xlay_struct &endless = tile.tex_layers[0], &near_by = tile.tex_layers[1];
    EXPECT_EQ(endless.scene_buckets_max_lod, -1);
    EXPECT_EQ(near_by.scene_buckets_max_lod, 9000);
    EXPECT_EQ(near_by.objct_buckets_max_lod, 4000);
    EXPECT_EQ(near_by.objct_buckets_max_layer, 7);
    EXPECT_EQ(endless.objct_buckets_max_layer, 0);
}

TEST_F(culled_tile, a_walk_finds_all_that_is_in_view_and_little_else) {
    static std::set<XBucketID> visited;
    xcam_class camera;
    size_t held = 0, in_view = 0;
    for (int i = 0; i < 200; ++i) {
        const view v = random_view();
        v.set(&camera);
        const int seen = tile.visibles.Cull(&camera, &tile);
        for (xlay_struct& layer : tile.tex_layers) {
            visited.clear();
            tile.visibles.Iterate<xlay_struct>(
                layer.scene_buckets_max_layer, layer.scene_buckets_max_lod, tile.sphere_hash.at(0).radius,
                [](XBucketID id, float, xlay_struct*) { visited.insert(id); }, &layer);
            EXPECT_LE(visited.size(), static_cast<size_t>(seen));
            for (unsigned level = 0; level < bucket_levels; ++level)
                layer.scene_buckets.IterateBucketLayer(level, [&](XBucketID id, const auto& patches) {
                    for (const scene_patch_struct* p : patches) {
                        const Point3 c = {p->center_x, p->center_y, p->center_z};
                        const double away = sqrt((c - v.eye).squared_length());
                        held += visited.count(id);
                        if (v.depth_in(c) < -p->radius) continue;
                        if (p->dis_far_sqr > 0.0f && away > 9000.0) continue;
                        ++in_view;
                        EXPECT_TRUE(visited.count(id)) << "view " << i << " level " << level;
                    }
                });
        }
    }
    EXPECT_GT(in_view, 3000u);
    EXPECT_LT(held, 6 * in_view);
}

TEST_F(culled_tile, a_bucket_without_a_radius_hides_what_lies_below_it) {
    xcam_class camera;
    const view all = {{5e4, 4e5, 5e4}, 0.0, -90.0, 20.0, 20.0, 1.0, 1e6};
    all.set(&camera);
    EXPECT_GT(tile.visibles.Cull(&camera, &tile), 100);
    tile.sphere_hash[0].radius = 0.0;
    EXPECT_EQ(tile.visibles.Cull(&camera, &tile), 0);
    int visits = 0;
    tile.visibles.Iterate<int>(
        7, -1, 1e5, [](XBucketID, float, int* n) { ++*n; }, &visits);
    EXPECT_EQ(visits, 0) << "marks of the walk before are not read";
}
}  // namespace
