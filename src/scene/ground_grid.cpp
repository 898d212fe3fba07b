// Laying the grid.
#include "scene/ground_grid.h"

#include <math.h>

#include <algorithm>

#include "core/con.h"
#include "core/globe.h"
#include "core/num.h"

static long long floor_div(long long a, long long b) { return a >= 0 ? a / b : -((-a + b - 1) / b); }

// Degrees of latitude to a cell.
static double row_deg() { return grid_cell / con.planet_rad * dob_radtodeg; }

// Columns round the globe in the band of a row.
static long long band_columns(long long row) {
    const double mid = (floor_div(row, grid_band_rows) + 0.5) * grid_band_rows * row_deg();
    const double round = 2.0 * M_PI * con.planet_rad * cos(fmin(fabs(mid), 89.9) * dob_degtorad);
    return 10 * std::max<long long>(1, llround(round / (10.0 * grid_cell)));
}

static long long column_at(long long row, double lon) {
    return static_cast<long long>(floor((lon + 180.0) / 360.0 * static_cast<double>(band_columns(row))));
}

static Point3 corner(long long row, long long col, long long columns) {
    Point3 p;
    const double lat = fmin(fmax(static_cast<double>(row) * row_deg(), -90.0), 90.0);
    const double lon = -180.0 + 360.0 * static_cast<double>(col) / static_cast<double>(columns);
    xdob_xyz_with_latlonel(&p.x, &p.y, &p.z, lat, dobwrap(lon, -180.0, 180.0), 0.0);
    return p;
}

void ground_grid_struct::follow(double lat, double lon, int reach) {
    const long long row = static_cast<long long>(floor(lat / row_deg()));
    const long long col = column_at(row, lon);
    const double radius = con.planet_rad;
    if (!bands.empty() && laid_.row == row && laid_.col == col && laid_.ref_lat == ref_lat() &&
        laid_.ref_lon == ref_lon() && laid_.radius == radius && laid_.reach == reach)
        return;
    laid_ = {row, col, ref_lat(), ref_lon(), radius, reach};

    bands.clear();
    points.clear();
    const long long north_end = row + reach;
    for (long long south = row - reach; south <= north_end;) {
        const long long next_band = (floor_div(south, grid_band_rows) + 1) * grid_band_rows;
        const int rows = static_cast<int>(std::min(next_band, north_end + 1) - south);
        const long long columns = band_columns(south);
        const int cols = static_cast<int>(std::min<long long>(2LL * reach + 1, columns));
        const long long west = column_at(south, lon) - cols / 2;
        bands.push_back({rows, cols, south, west, columns, static_cast<int>(points.size())});
        for (int r = 0; r <= rows; ++r)
            for (int c = 0; c <= cols; ++c) points.push_back(corner(south + r, west + c, columns));
        south += rows;
    }
}

// Mixing step of SplitMix64 (Steele, Lea, Flood, OOPSLA 2014).
float grid_cell_shade(long long row, long long col) {
    unsigned long long z = static_cast<unsigned long long>(row) * 0x9e3779b97f4a7c15ULL +
                           static_cast<unsigned long long>(col) * 0xd1b54a32d192ed03ULL;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
    z ^= z >> 31;
    return static_cast<float>(z >> 40) * (1.0f / 16777216.0f);
}
