// The survey grid: on the ground, a kilometre wide, fixed to the globe.
#include "scene/ground_grid.h"

#include <cmath>

#include "core/math/globe.h"
#include "support.h"

using grid_test = test::system_test;

static double distance(const Point3& a, const Point3& b) { return std::sqrt((b - a).squared_length()); }

struct place {
    double lat, lon;
};
static place place_of(const Point3& p) {
    double lat, lon, ele;
    xdob_latlonel_with_xyz(&lat, &lon, &ele, p.x, p.y, p.z);
    EXPECT_NEAR(ele, 0.0, 1e-3);
    return {lat, lon};
}

static void move_region(int lat_sou, int lon_wes) { env.lat_sou = lat_sou, env.lon_wes = lon_wes; }

TEST_F(grid_test, cells_are_a_kilometre_at_any_latitude) {
    for (const int lat_sou : {-46, 0, 33, 66}) {
        move_region(lat_sou, -119);
        ground_grid_struct grid{1, 12};
        grid.follow(lat_sou + 0.7, -117.3);
        for (const grid_band_struct& band : grid.bands) {
            EXPECT_LE(band.rows, grid_block);
            for (int row = 0; row < band.rows; ++row) {
                const Point3& sw = grid.points[band.point(row, 3)];
                EXPECT_NEAR(distance(sw, grid.points[band.point(row + 1, 3)]), 1000.0, 0.1);
                EXPECT_NEAR(distance(sw, grid.points[band.point(row, 4)]), 1000.0, 4.0);
            }
        }
    }
}

TEST_F(grid_test, corners_stay_on_the_globe_when_the_region_moves) {
    ground_grid_struct grid{1, 8};
    grid.follow(34.9, -116.1);
    std::vector<place> before;
    for (const Point3& p : grid.points) before.push_back(place_of(p));
    move_region(34, -118);
    grid.follow(34.9, -116.1);
    ASSERT_EQ(grid.points.size(), before.size());
    for (size_t i = 0; i < before.size(); ++i) {
        const place now = place_of(grid.points[i]);
        EXPECT_NEAR(now.lat, before[i].lat, 1e-9);
        EXPECT_NEAR(now.lon, before[i].lon, 1e-9);
    }
}

TEST_F(grid_test, across_the_date_line_and_at_the_pole) {
    move_region(10, 178);
    ground_grid_struct west{1, 6}, east{1, 6};
    west.follow(11.0, 179.999);
    east.follow(11.0, -179.999);
    const grid_band_struct &w = west.bands[0], &e = east.bands[0];
    EXPECT_EQ(w.global_col(w.cols / 2), w.columns - 1);
    EXPECT_EQ(e.global_col(e.cols / 2), 0);
    // the same corner from both sides
    EXPECT_LT(distance(west.points[w.point(0, w.cols / 2 + 1)], east.points[e.point(0, e.cols / 2)]), 1e-3);
    for (const double lat : {89.97, 90.0, -90.0}) {
        move_region(lat > 0 ? 88 : -90, 0);
        ground_grid_struct pole{1, 10};
        pole.follow(lat, 1.0);
        for (const Point3& p : pole.points) EXPECT_TRUE(std::isfinite(p.x + p.y + p.z));
    }
}
