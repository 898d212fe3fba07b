// Colour by the photograph, shores and shaded relief finer than it.
#include "orbit_tile.h"

#include <math.h>
#include <png.h>
#include <stdio.h>

#include <algorithm>
#include <stdexcept>

#include "../../art/noise.h"

namespace {
constexpr double rad = M_PI / 180.0;

struct square {
    int south, west, dx, dy;
    double lat(double row) const { return south + square_degrees * (1.0 - row / dy); }
    double lon(double column) const { return west + square_degrees * column / dx; }
};

// As fine as the ground is: meridians draw together towards the poles.
square square_at(int south, int west, bool plain) {
    const double middle = fabs(south + 0.5 * square_degrees);
    square q{south, west, middle < 60.0 ? 512 : middle < 80.0 ? 256 : 128, 512};
    if (plain) q.dx /= 4, q.dy /= 4;
    return q;
}

// -- relief

// Slopes towards the light on points that lie half as close as texels, and how rough the ground is.
class relief_shade {
public:
    relief_shade(const elevation& heights, const square& q) : nx_(q.dx / 2 + 1), ny_(q.dy / 2 + 1) {
        const int wide = nx_ + 2;
        std::vector<double> h(static_cast<size_t>(wide) * (ny_ + 2));
        for (int j = -1; j <= ny_; ++j)
            for (int i = -1; i <= nx_; ++i)
                h[static_cast<size_t>(j + 1) * wide + i + 1] = heights.height(q.lat(2.0 * j), q.lon(2.0 * i));
        constexpr double degree_m = 111319.6, light_east = -0.55, light_north = 0.83;
        const double step_n = 4.0 * square_degrees * degree_m / q.dy;
        for (int j = 0; j < ny_; ++j) {
            const double step_e =
                4.0 * square_degrees * degree_m / q.dx * std::max(cos(q.lat(2.0 * j) * rad), 0.25);
            for (int i = 0; i < nx_; ++i) {
                const double* at = &h[static_cast<size_t>(j + 1) * wide + i + 1];
                const double east = (at[1] - at[-1]) / step_e, north = (at[-wide] - at[wide]) / step_n;
                points_.push_back({-(light_east * east + light_north * north), hypot(east, north)});
            }
        }
    }
    struct point {
        double towards_light, slope;
    };
    point at(int column, int row) const {
        const double x = 0.5 * (column + 0.5), y = 0.5 * (row + 0.5);
        const int i = static_cast<int>(x), j = static_cast<int>(y);
        const double fx = x - i, fy = y - j;
        const point *low = &points_[static_cast<size_t>(j) * nx_ + i], *high = low + nx_;
        const auto mid = [&](double a, double b, double c, double d) {
            return (a * (1.0 - fx) + b * fx) * (1.0 - fy) + (c * (1.0 - fx) + d * fx) * fy;
        };
        return {mid(low[0].towards_light, low[1].towards_light, high[0].towards_light, high[1].towards_light),
                mid(low[0].slope, low[1].slope, high[0].slope, high[1].slope)};
    }

private:
    int nx_, ny_;
    std::vector<point> points_;
};

// -- fine structure, which goes on from square to square

// In parts of the photograph's texels, so that it is as fine everywhere.
struct fine_noise {
    double east, north;  // about -1 to 1
};
fine_noise fraying(double lat, double lon) {
    constexpr double per_degree = 4.5;
    const double x = per_degree * lon * std::max(cos(lat * rad), 0.1), y = per_degree * lat;
    // the stretch by latitude would shear far from Greenwich: it only turns the noise, which has no grain
    return {2.0 * noise::fractal(x, y, 3, 11) - 1.0, 2.0 * noise::fractal(x + 400.0, y - 300.0, 3, 12) - 1.0};
}

double valleys(double lat, double lon) {
    constexpr double per_degree = 9.0;
    return 2.0 * noise::fractal(per_degree * lon * 0.8 + per_degree * lat * 0.6,
                                per_degree * lat * 0.8 - per_degree * lon * 0.6, 3, 21) -
           1.0;
}

double smooth(double from, double to, double x) {
    const double f = std::clamp((x - from) / (to - from), 0.0, 1.0);
    return f * f * (3.0 - 2.0 * f);
}

// The heights of the southern ice come from few soundings and show their lines.
double known_relief(double lat) { return smooth(-72.0, -64.0, lat); }

// Brightness of the ground under a light from the upper left; 1 for the level.
double shading(const relief_shade::point& p, double fine) {
    constexpr double exaggeration = 11.0, fine_part = 3.2, most = 0.48;
    const double slope = exaggeration * p.towards_light + fine_part * fine * std::min(p.slope * 5.0, 0.45);
    return 1.0 + most * slope / sqrt(1.0 + slope * slope);
}

// -- files

unsigned char byte_of(double channel) {
    return static_cast<unsigned char>(lround(255.0 * std::clamp(channel, 0.0, 1.0)));
}

struct file_closer {
    FILE* file;
    ~file_closer() {
        if (file) fclose(file);
    }
};

// libpng leaves a fault by longjmp: nothing with a destructor stands in this function.
bool write_rows(FILE* out, int dx, int dy, const unsigned char* bytes) {
    constexpr int level = 4;  // the whole set in a few seconds, a few parts of a hundred larger than at best
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!info || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return false;
    }
    png_init_io(png, out);
    png_set_compression_level(png, level);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_SUB | PNG_FILTER_UP);
    png_set_IHDR(png, info, static_cast<png_uint_32>(dx), static_cast<png_uint_32>(dy), 8, PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_gAMA(png, info, 1.0 / 2.2);
    png_write_info(png, info);
    for (int row = 0; row < dy; ++row) png_write_row(png, bytes + 3 * static_cast<size_t>(row) * dx);
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return true;
}

void save(const std::string& path, int dx, int dy, const std::vector<unsigned char>& bytes) {
    const file_closer out{fopen(path.c_str(), "wb")};
    if (!out.file || !write_rows(out.file, dx, dy, bytes.data()) || fflush(out.file) != 0)
        throw std::runtime_error(path + ": cannot be written");
}

void put(std::vector<unsigned char>* bytes, const rgb& c) {
    bytes->insert(bytes->end(), {byte_of(c.r), byte_of(c.g), byte_of(c.b)});
}
}  // namespace

bool draw_square(const orbit_sources& from, int south, int west, const std::string& folder) {
    constexpr double no_difference = 5.0 / 255.0,
                     frayed = 0.10;  // degrees that colours reach over each other
    square q = square_at(south, west, false);
    const std::vector<float> land =
        land_parts(from.coast, {south, west, square_degrees, square_degrees, q.dx, q.dy});
    const bool no_land = std::all_of(land.begin(), land.end(), [](float part) { return part == 0.0f; });
    if (no_land && from.colours.unlike_deep(south, west) <= no_difference) return false;
    if (no_land) q = square_at(south, west, true);
    const relief_shade relief(from.heights, q);
    std::vector<unsigned char> bytes;
    bytes.reserve(3 * static_cast<size_t>(q.dx) * q.dy);
    for (int row = 0; row < q.dy; ++row)
        for (int column = 0; column < q.dx; ++column) {
            const double lat = q.lat(row + 0.5), lon = q.lon(column + 0.5);
            const double part = no_land ? 0.0 : land[static_cast<size_t>(row) * q.dx + column];
            const fine_noise n = fraying(lat, lon);
            const double at_lat = lat + frayed * n.north, at_lon = lon + frayed * n.east;
            rgb c = part < 1.0 ? from.colours.water(at_lat, at_lon) : rgb{};
            if (part > 0.0) {
                const double fine = valleys(lat, lon);
                const rgb colour = from.colours.land(at_lat, at_lon);
                const double grain = 0.035 * (1.0 - smooth(0.55, 0.85, colour.g));  // none on ice
                const double light = known_relief(lat) * (shading(relief.at(column, row), fine) - 1.0);
                const rgb ground = colour * ((1.0 + light) * (1.0 + grain * fine));
                c = mix(c, ground, part);
            }
            put(&bytes, c);
        }
    char name[32];
    snprintf(name, sizeof name, "/%+03d%+04d.png", south, west);
    save(folder + name, q.dx, q.dy, bytes);
    return true;
}

void draw_ocean(const colour_layers& colours, const std::string& path) {
    constexpr int size = 64;
    std::vector<unsigned char> bytes;
    for (int n = 0; n < size * size; ++n) put(&bytes, colours.deep());
    save(path, size, size, bytes);
}
