// Graded meshes with soft borders.
#include "blend_mesh.h"

#include <math.h>

#include <algorithm>

#include "noise.h"
#include "tile_mesh.h"

namespace {
constexpr int whole_degree = 65535;

// Away from the fine part by growing steps, as far as `length`; the last step absorbs what is left over.
std::vector<int> growing(int length, int finest, int coarsest) {
    constexpr double growth = 1.15;
    std::vector<int> steps;
    int sum = 0;
    for (double step = finest * growth; sum < length; step = std::min(step * growth, 1.0 * coarsest)) {
        const int left = length - sum, next = static_cast<int>(step);
        steps.push_back(left < 2 * next ? (left < 3 * next / 2 ? left : left / 2) : next);
        sum += steps.back();
    }
    return steps;
}

// Away from both ends of the mask, which meet where the texture repeats.
double mask_place(double weight) { return 0.1 + 0.8 * weight; }

class mesh {
public:
    mesh(tile_writer* writer, const blend_source& source)
        : writer_(*writer),
          source_(source),
          columns_(static_cast<int>(source.columns.size()) - 1),
          rows_(static_cast<int>(source.rows.size()) - 1) {
        make_points();
        weights_.resize(source.classes.size());
        for (size_t k = 0; k < source.classes.size(); ++k) make_weights(k);
        for (int j = 0; j < rows_; ++j)
            for (int i = 0; i < columns_; ++i) base_.push_back(base_of(i, j));
        west_of_patch_ = patch_borders(source.columns, whole_degree / 8);
        // near the poles patches are low too, or a narrow tile has no bucket for them
        const double narrow = 0.35 * cos((writer->lat() + 0.5) * 0.017453292519943295);
        south_of_patch_ =
            patch_borders(source.rows, std::min(whole_degree / 8, static_cast<int>(narrow * whole_degree)));
    }

    // All classes get their definitions first, so that their order is that of the list.
    void write() {
        std::vector<unsigned> definitions = {0};
        for (const blend_class& c : source_.classes) definitions.push_back(writer_.terrain(c.terrain));
        for (int k = 0; k < static_cast<int>(definitions.size()); ++k) {
            write_patches(definitions[static_cast<size_t>(k)], false,
                          [this, k](int i, int j) { return base_[cell(i, j)] == k; });
            if (k > 1)
                write_patches(
                    definitions[static_cast<size_t>(k)], true,
                    [this, k](int i, int j) { return has_part(k, i, j); }, k);
        }
    }

private:
    size_t vertex(int i, int j) const { return static_cast<size_t>(j * (columns_ + 1) + i); }
    size_t cell(int i, int j) const { return static_cast<size_t>(j * columns_ + i); }

    void make_points() {
        for (const int row : source_.rows)
            for (const int column : source_.columns) {
                tile_point p;
                p.lat = writer_.lat() + row / static_cast<double>(whole_degree);
                p.lon = writer_.lon() + column / static_cast<double>(whole_degree);
                p.ele = source_.height(p.lat, p.lon);
                set_normal(source_.height, writer_.degree_metres(), &p);
                points_.push_back(p);
            }
    }

    void make_weights(size_t k) {
        for (const tile_point& p : points_)
            weights_[k].push_back(k == 0 ? 1.0
                                         : std::clamp(source_.classes[k].weight(p.lat, p.lon), 0.0, 1.0));
    }

    // Class of weights is one below its number, which counts the water.
    double weight(int k, int i, int j) const { return weights_[static_cast<size_t>(k - 1)][vertex(i, j)]; }
    bool covers(int k, int i, int j) const {
        return weight(k, i, j) >= 1.0 && weight(k, i + 1, j) >= 1.0 && weight(k, i, j + 1) >= 1.0 &&
               weight(k, i + 1, j + 1) >= 1.0;
    }
    bool has_part(int k, int i, int j) const {
        return base_[cell(i, j)] < k && (weight(k, i, j) > 0.0 || weight(k, i + 1, j) > 0.0 ||
                                         weight(k, i, j + 1) > 0.0 || weight(k, i + 1, j + 1) > 0.0);
    }

    int base_of(int i, int j) const {
        const tile_point &a = points_[vertex(i, j)], &b = points_[vertex(i + 1, j + 1)];
        if (source_.water(0.5 * (a.lat + b.lat), 0.5 * (a.lon + b.lon))) return 0;
        int k = static_cast<int>(source_.classes.size());
        while (k > 1 && !covers(k, i, j)) --k;
        return k;
    }

    // No patch is wider than `widest` (in parts of 65535 of a degree) unless a single cell is, or has more
    // lines than asked for.
    std::vector<int> patch_borders(const std::vector<int>& lines, int widest) const {
        std::vector<int> borders = {0};
        const int last = static_cast<int>(lines.size()) - 1;
        for (int n = 1; n < last; ++n) {
            const size_t from = static_cast<size_t>(borders.back());
            if (n - borders.back() >= source_.patch_lines ||
                lines[static_cast<size_t>(n) + 1] - lines[from] > widest)
                borders.push_back(n);
        }
        borders.push_back(last);
        return borders;
    }

    template <class taken>
    void write_patches(unsigned definition, bool overlay, const taken& is_taken, int k = 0) {
        for (size_t pj = 0; pj + 1 < south_of_patch_.size(); ++pj)
            for (size_t pi = 0; pi + 1 < west_of_patch_.size(); ++pi) {
                bool open = false;
                for (int j = south_of_patch_[pj]; j < south_of_patch_[pj + 1]; ++j)
                    for (int i = west_of_patch_[pi]; i < west_of_patch_[pi + 1]; ++i) {
                        if (!is_taken(i, j)) continue;
                        if (!open)
                            writer_.begin_patch(definition, overlay ? tile_overlay : tile_base, -1.0, -1.0,
                                                overlay);
                        open = true;
                        const int first = i;
                        while (i < west_of_patch_[pi + 1] && is_taken(i, j)) ++i;
                        write_run(first, i, j, overlay ? k : 0);
                    }
            }
    }

    // South and north point in turn, eastward: clockwise from above.
    void write_run(int first, int end, int j, int k) {
        std::vector<tile_point> strip;
        for (int i = first; i <= end; ++i)
            for (const int row : {j, j + 1}) {
                tile_point p = points_[vertex(i, row)];
                if (k > 0) {
                    p.s = mask_place(weight(k, i, row));
                    // a stretch of its own along each edge, or an even run
                    p.t = source_.even_mask
                              ? mask_along(i + columns_ * writer_.lon(), row + rows_ * writer_.lat())
                              : noise::hash(i, row, 161);
                }
                strip.push_back(p);
            }
        writer_.strip(strip);
    }

    tile_writer& writer_;
    const blend_source& source_;
    int columns_, rows_;
    std::vector<tile_point> points_;
    std::vector<std::vector<double>> weights_;  // by class, by point
    std::vector<int> base_;                     // class by cell, 0 for water
    std::vector<int> west_of_patch_, south_of_patch_;
};
}  // namespace

std::vector<int> graded_lines(int centre, int reach, int finest, int coarsest) {
    const int low = std::max(centre - reach, 0), high = std::min(centre + reach, whole_degree);
    std::vector<int> lines;
    int at = low;
    for (const int step : growing(low, finest, coarsest)) lines.push_back(at -= step);
    std::reverse(lines.begin(), lines.end());
    // whole steps of the fine part; what is left over goes to the coarse part behind it
    for (at = low; at < high; at += finest) lines.push_back(at);
    lines.push_back(at = std::min(at, whole_degree));
    for (const int step : growing(whole_degree - at, finest, coarsest)) lines.push_back(at += step);
    return lines;
}

double mask_along(double column, double row) {
    constexpr double period = 5.3;  // cells that the mask lasts there and back
    const double turns = (0.83 * column + 0.56 * row) / period, part = turns - floor(turns);
    return part < 0.5 ? 2.0 * part : 2.0 - 2.0 * part;
}

void write_blend_mesh(tile_writer* writer, const blend_source& source) { mesh(writer, source).write(); }
