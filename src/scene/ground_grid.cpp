// Laying the grid.
#include "scene/ground_grid.h"

#include <math.h>

#include <algorithm>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/records/con.h"

static long long floor_div(long long a, long long b) { return a >= 0 ? a / b : -((-a + b - 1) / b); }

// Degrees of latitude to a row of cells or blocks.
static double row_deg(int size) { return size * grid_cell / con.planet_rad * dob_radtodeg; }

// Columns round the globe in the band of a row.
static long long band_columns(int size, long long row) {
    const long long band = floor_div(row * size, grid_block);
    const double mid = fmin(fabs((static_cast<double>(band) + 0.5) * row_deg(grid_block)), 89.9);
    const double round = 2.0 * M_PI * con.planet_rad * cos(mid * dob_degtorad);
    const long long blocks = std::max<long long>(1, llround(round / (grid_block * grid_cell)));
    return blocks * grid_block / size;
}

static long long column_at(double lon, long long columns) {
    return static_cast<long long>(floor((lon + 180.0) / 360.0 * static_cast<double>(columns)));
}

static Point3 corner(double lat, long long col, long long columns) {
    Point3 p;
    const double lon = -180.0 + 360.0 * static_cast<double>(col) / static_cast<double>(columns);
    xdob_xyz_with_latlonel(&p.x, &p.y, &p.z, fmin(fmax(lat, -90.0), 90.0), dobwrap(lon, -180.0, 180.0), 0.0);
    return p;
}

void ground_grid_struct::follow(double lat, double lon) {
    const double deg = row_deg(size);
    const long long row = static_cast<long long>(floor(lat / deg));
    const laid_struct wanted{row, column_at(lon, band_columns(size, row)), ref_lat(), ref_lon(),
                             con.planet_rad};
    if (!bands.empty() && laid == wanted) return;
    laid = wanted;

    bands.clear();
    points.clear();
    const int band_rows = grid_block / size;
    const long long north_end = row + reach + 1;
    for (long long south = row - reach; south < north_end;) {
        const long long next_band = (floor_div(south, band_rows) + 1) * band_rows;
        const int rows = static_cast<int>(std::min(next_band, north_end) - south);
        const long long columns = band_columns(size, south);
        const int cols = static_cast<int>(std::min<long long>(2LL * reach + 1, columns));
        const long long west = column_at(lon, columns) - cols / 2;
        bands.push_back({rows, cols, south, west, columns, static_cast<int>(points.size())});
        for (int r = 0; r <= rows; ++r)
            for (int c = 0; c <= cols; ++c)
                points.push_back(corner(static_cast<double>(south + r) * deg, west + c, columns));
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
