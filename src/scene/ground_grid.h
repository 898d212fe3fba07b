// A survey grid laid over the whole globe: bands of 10 km along a parallel, cut into cells of 1 km. Each
// band has a whole number of columns, a multiple of ten, so that cells stay a kilometre wide at any
// latitude; from band to band the columns shift, as they do on land that was surveyed so. Seen from
// afar the cells of a band merge ten by ten into blocks.
// Role: the corners around a place, fixed to the globe whatever the region; knows no OpenGL.
#pragma once
#include <vector>

#include "core/math/geo3.h"

constexpr int grid_block = 10;        // cells to a block, and rows of cells to a band
constexpr double grid_cell = 1000.0;  // m

// The part of one band near the place: (rows + 1) x (cols + 1) corners, row by row from the south.
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
    int size;   // 1: cells, grid_block: blocks
    int reach;  // to each side of the place, in units of size
    std::vector<grid_band_struct> bands = {};
    std::vector<Point3> points = {};  // elevation 0, world frame, m

    // Lays the grid around a place; does nothing while the place stays in its cell and the region stays.
    void follow(double lat, double lon);

    struct laid_struct {
        long long row, col;
        double ref_lat, ref_lon, radius;
        bool operator==(const laid_struct&) const = default;
    };
    laid_struct laid = {};
};

// 0 to 1, the same for the same cell in every run.
float grid_cell_shade(long long row, long long col);
