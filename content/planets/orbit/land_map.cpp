// Rows of the shores, gathered into texels.
#include "land_map.h"

#include <math.h>

#include <algorithm>

namespace {
constexpr int bin_degrees = 2;

// Adds what of each texel a stretch covers; west and east in texels.
void cover(float* row, int dx, double west, double east) {
    const int first = std::max(0, static_cast<int>(west)), last = std::min(dx - 1, static_cast<int>(east));
    for (int i = first; i <= last; ++i)
        row[i] += static_cast<float>(
            std::max(0.0, std::min(east, i + 1.0) - std::max(west, static_cast<double>(i))));
}
}  // namespace

std::vector<float> land_parts(const shores& from, const map_window& w) {
    std::vector<float> parts(static_cast<size_t>(w.dx) * w.dy);
    std::vector<int> rows_in(static_cast<size_t>(w.dy));
    const double per_degree_x = static_cast<double>(w.dx) / w.width,
                 per_degree_y = static_cast<double>(w.dy) / w.height;
    for (int south = w.south / bin_degrees; south < (w.south + w.height) / bin_degrees; ++south)
        for (int west = w.west / bin_degrees; west < (w.west + w.width) / bin_degrees; ++west) {
            const auto rows = from.land_rows(south, west);
            const double left = (west * bin_degrees - w.west) * per_degree_x,
                         width = bin_degrees * per_degree_x;
            for (size_t j = 0; j < rows.size(); ++j) {
                const double lat = bin_degrees * (south + (j + 0.5) / static_cast<double>(rows.size()));
                const int row =
                    std::clamp(static_cast<int>((w.south + w.height - lat) * per_degree_y), 0, w.dy - 1);
                if (west == w.west / bin_degrees) ++rows_in[static_cast<size_t>(row)];
                for (const shores::stretch& s : rows[j])
                    cover(&parts[static_cast<size_t>(row) * w.dx], w.dx, left + s.west * width,
                          left + s.east * width);
            }
        }
    for (int row = 0; row < w.dy; ++row)
        for (int i = 0; i < w.dx; ++i) {
            float& part = parts[static_cast<size_t>(row) * w.dx + i];
            part = std::min(1.0f, part / static_cast<float>(std::max(1, rows_in[static_cast<size_t>(row)])));
        }
    return parts;
}
