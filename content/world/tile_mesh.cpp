// Regular meshes.
#include "tile_mesh.h"

#include <math.h>

void set_normal(const std::function<double(double lat, double lon)>& height, double degree_metres,
                tile_point* p) {
    constexpr double step = 0.0005, radians = 0.017453292519943295;  // degrees
    const double across = 2.0 * step * degree_metres;
    const double east =
        (height(p->lat, p->lon + step) - height(p->lat, p->lon - step)) / (across * cos(p->lat * radians));
    const double north = (height(p->lat + step, p->lon) - height(p->lat - step, p->lon)) / across;
    const double length = sqrt(1.0 + east * east + north * north);
    p->nx = -east / length;
    p->nz = north / length;
}

namespace {
class mesh {
public:
    mesh(tile_writer* writer, const mesh_source& source) : writer_(*writer), source_(source) {
        const size_t side = static_cast<size_t>(source.cells) + 1;
        points_.resize(side * side);
        for (int j = 0; j <= source.cells; ++j)
            for (int i = 0; i <= source.cells; ++i) {
                tile_point& p = at(i, j);
                p.lon = writer_.lon() + static_cast<double>(i) / source.cells;
                p.lat = writer_.lat() + static_cast<double>(j) / source.cells;
                p.ele = source.height(p.lat, p.lon);
                set_normal(source.height, writer_.degree_metres(), &p);
            }
    }

    void write_class(int land_class) {
        const unsigned definition = writer_.terrain(source_.terrain[static_cast<size_t>(land_class)]);
        for (int pj = 0; pj < source_.patches; ++pj)
            for (int pi = 0; pi < source_.patches; ++pi) write_patch(land_class, definition, pi, pj);
    }

private:
    tile_point& at(int i, int j) { return points_[static_cast<size_t>(j * (source_.cells + 1) + i)]; }
    int border(int patch) const { return patch * source_.cells / source_.patches; }
    int class_of(int i, int j) const {
        const double half = 0.5;
        return source_.land_class(writer_.lat() + (j + half) / source_.cells,
                                  writer_.lon() + (i + half) / source_.cells);
    }

    void write_patch(int land_class, unsigned definition, int pi, int pj) {
        bool open = false;
        for (int j = border(pj); j < border(pj + 1); ++j)
            for (int i = border(pi); i < border(pi + 1);) {
                if (class_of(i, j) != land_class) {
                    ++i;
                    continue;
                }
                if (!open) writer_.begin_patch(definition, tile_base);
                open = true;
                i = write_run(land_class, i, j, border(pi + 1));
            }
    }

    // South and north point in turn, eastward: clockwise from above. Gives the column behind the run.
    int write_run(int land_class, int i, int j, int end) {
        std::vector<tile_point> strip = {at(i, j), at(i, j + 1)};
        for (; i < end && class_of(i, j) == land_class; ++i)
            strip.insert(strip.end(), {at(i + 1, j), at(i + 1, j + 1)});
        writer_.strip(strip);
        return i;
    }

    tile_writer& writer_;
    const mesh_source& source_;
    std::vector<tile_point> points_;
};
}  // namespace

void write_mesh(tile_writer* writer, const mesh_source& source) {
    mesh m(writer, source);
    for (size_t land_class = 0; land_class < source.terrain.size(); ++land_class)
        m.write_class(static_cast<int>(land_class));
}
