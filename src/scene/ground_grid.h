// A survey grid laid over the whole globe: bands of 10 km along a parallel, cut into cells of 1 km. Each
// band has a whole number of columns, a multiple of ten, so that cells stay a kilometre wide at any
// latitude; from band to band the columns shift, as they do on land that was surveyed so.
// Role: the points around a place, fixed to the globe whatever the region; knows no OpenGL.
#pragma once
#include <vector>

#include "core/geo3.h"

constexpr int grid_band_rows = 10;    // cells of a band from south to north; every tenth line is strong
constexpr double grid_cell = 1000.0;  // m

// The part of one band near the place: (rows + 1) x (cols + 1) points, row by row from the south.
struct grid_band_struct {
    int rows, cols;
    long long row0, col0;  // of the south-west cell; rows count from the equator, columns from 180 west
    long long columns;     // round the globe
    int first_point;       // in ground_grid_struct::points

    int point(int row, int col) const { return first_point + row * (cols + 1) + col; }
    // Number of a column on the globe: across the date line it starts again.
    long long global_col(int col) const { return ((col0 + col) % columns + columns) % columns; }
};

struct ground_grid_struct {
    std::vector<grid_band_struct> bands;
    std::vector<Point3> points;  // elevation 0, world frame, m

    // Lays the cells within reach (cells to each side) of a place; does nothing while the place stays in
    // its cell and the region stays.
    void follow(double lat, double lon, int reach);

private:
    struct {
        long long row, col;
        double ref_lat, ref_lon, radius;
        int reach;
    } laid_{};
};

// 0 to 1, the same for the same cell in every run.
float grid_cell_shade(long long row, long long col);
