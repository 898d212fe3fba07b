// Meshes of surfaces, without a window: closed, outward, mirrored, at the place of the flight model's
// elements.
#include <cmath>

#include "aircraft/design/location.h"
#include "aircraft/draw/geometry.h"
#include "aircraft/mesh/surface_mesh.h"
#include "app/start/load_plane.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "support.h"

namespace {
class mesh_test : public test::system_test {};

void load(const char* path) {
    init_paths(INSTALL_FOLDER);
    snprintf(veh[0].path, sizeof veh[0].path, "%s", (acf_path + path).c_str());
    ASSERT_EQ(load_plane(0), 1);
}

Point3 at(int en, int s, int r) {
    const float* xyz = veh[0].part[en].geo_xyz[s][r];
    return {xyz[0], xyz[1], xyz[2]};
}
Vector3 normal(int en, int s, int r) {
    const float* xyz = veh[0].part[en].nrm_xyz[s][r];
    return {xyz[0], xyz[1], xyz[2]};
}

// Signed volume of a surface between its caps, by the divergence theorem: its size is right only when ribs
// run round it the same way everywhere. Negative on the right, whose span runs against the ribs.
double volume(int en) {
    const int last = veh[0].part[en].s_dim - 1;
    const Point3 from = at(en, 0, 6);
    double sum = 0.0;
    const auto triangle = [&](const Point3& a, const Point3& b, const Point3& c) {
        sum += (a - from).dot((b - from).cross(c - from)) / 6.0;
    };
    for (int s = 0; s < last; ++s)
        for (int r = 0; r < surface_ribs; ++r) {
            const int next = (r + 1) % surface_ribs;
            triangle(at(en, s, r), at(en, s + 1, r), at(en, s + 1, next));
            triangle(at(en, s, r), at(en, s + 1, next), at(en, s, next));
        }
    for (int r = 1; r + 1 < surface_ribs; ++r) {
        triangle(at(en, 0, 0), at(en, 0, r), at(en, 0, r + 1));
        triangle(at(en, last, 0), at(en, last, r + 1), at(en, last, r));
    }
    return sum;
}

TEST_F(mesh_test, surfaces_are_closed_point_outward_and_mirror_each_other) {
    load("General Aviation:Wren 160 Trainer:Wren 160.acf");
    for (int en = 0; en < wingDIM; ++en) {
        if (!veh[0].part[en].part_eq) continue;
        for (int s = 0; s < veh[0].part[en].s_dim; ++s) {
            EXPECT_LT((at(en, s, 0) - at(en, s, 13)).squared_length(), 1e-12) << en;
            EXPECT_LT((at(en, s, 6) - at(en, s, 7)).squared_length(), 1e-12) << en;
            Vector3 middle;
            for (int r = 0; r < surface_ribs; ++r)
                middle = middle + (at(en, s, r) - Point3{}) * (1.0 / surface_ribs);
            for (const int r : {1, 2, 3, 4, 9, 10, 11, 12}) {
                EXPECT_NEAR(normal(en, s, r).squared_length(), 1.0, 1e-5);
                EXPECT_GT(normal(en, s, r).dot(at(en, s, r) - (Point3{} + middle)), 0.0)
                    << en << ' ' << s << ' ' << r;
            }
        }
    }
    for (const int right : {9, 17})
        for (int s = 0; s < veh[0].part[right].s_dim; ++s)
            for (int r = 0; r < surface_ribs; ++r) {
                const Vector3 apart = at(right, s, r) - at(right - 1, s, r);
                EXPECT_NEAR(at(right, s, r).x, -at(right - 1, s, r).x, 1e-5);
                EXPECT_NEAR(pythag(static_cast<float>(apart.dy), static_cast<float>(apart.dz)), 0.0, 1e-5);
                EXPECT_NEAR(normal(right, s, r).dx, -normal(right - 1, s, r).dx, 1e-5);
            }
}

TEST_F(mesh_test, sections_have_the_chord_thickness_and_volume_of_the_design) {
    load("General Aviation:Wren 160 Trainer:Wren 160.acf");
    const veh_wing_struct& wing = veh[0].wing[9];
    const float* t_rat = veh[0].afl[9].t_rat;
    const int last = veh[0].part[9].s_dim - 1;
    EXPECT_NEAR(std::sqrt((at(9, 0, 6) - at(9, 0, 0)).squared_length()), 5.3 * 0.3048, 1e-3);
    EXPECT_NEAR(std::sqrt((at(9, last, 6) - at(9, last, 0)).squared_length()), 3.9 * 0.3048, 1e-3);
    EXPECT_NEAR(std::sqrt((at(9, 0, 3) - at(9, 0, 10)).squared_length()), 5.3 * 0.3048 * t_rat[0], 1e-3);
    // twist: nose up by 1.5 degrees and more at the root, down at the tip
    EXPECT_LT(at(9, 0, 6).y, at(9, 0, 0).y);
    EXPECT_GT(at(9, last, 6).y, at(9, last, 0).y);
    // area of the section by trapezoids over both halves, as shares of t c squared: without joint, and with
    // one at 0.75 - 0.25 of the chord at half thickness
    const double front = 2 * (0.03 * 0.1 + 0.07 * 0.3 + 0.15 * 0.45 + 0.2 * 0.5);
    const double hinged = front + 2 * (0.3 * 0.5 + 0.25 * 0.25);
    double expected = 0.0;
    for (int s = 0; s < last; s += 2) {
        const double at_mid = (s / 2 + 0.5) / wing.els;
        const double chord = wing.Croot + (wing.Ctip - wing.Croot) * at_mid;
        expected += hinged * chord * chord * (t_rat[0] + (t_rat[1] - t_rat[0]) * at_mid) * wing.element_len;
    }
    EXPECT_NEAR(volume(9), -expected, 0.03 * expected);
    EXPECT_NEAR(volume(8), expected, 0.03 * expected) << "the left wing runs the other way";
}

TEST_F(mesh_test, any_design_gives_finite_points_and_unit_normals) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        load("General Aviation:Wren 160 Trainer:Wren 160.acf");
        for (int en = 0; en < wingDIM; ++en) {
            veh_wing_struct& wing = veh[0].wing[en];
            wing.els = static_cast<int>(seed % 12);  // beyond what a file may have
            wing.Croot = static_cast<float>(seed % 3), wing.Ctip = static_cast<float>(seed % 2);
            wing.semilen_SEG = static_cast<float>(seed % 5), wing.dihed1 = 37.0f * static_cast<float>(seed);
            for (int el = 0; el < elDIM; ++el)
                wing.ail1[el] = (seed + el) % 2, wing.incidence[el] = 33.0f * el;
        }
        veh[0].ail1_cratR = static_cast<float>(seed % 4), veh[0].ail1_cratT = -1.0f;
        load_plane_geo(0, 0, 0, 0);
        for (int en = 0; en < wingDIM; ++en)
            for (int s = 0; s < veh[0].part[en].s_dim; ++s)
                for (int r = 0; r < surface_ribs; ++r) {
                    ASSERT_TRUE(std::isfinite(at(en, s, r).x + at(en, s, r).y + at(en, s, r).z));
                    ASSERT_NEAR(normal(en, s, r).squared_length(), 1.0, 1e-4);
                }
    }
}
}  // namespace
