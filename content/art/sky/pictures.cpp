// Row 0 of all images is the bottom line of their file.
#include "pictures.h"

#include <math.h>
#include <png.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace {
struct image {
    int dx, dy;
    std::vector<unsigned char> rgb =
        std::vector<unsigned char>(static_cast<size_t>(dx) * dy * 3, 0);  // rows downwards
    // t upwards
    void set(int s, int t, const shade& c) {
        unsigned char* p = &rgb[3 * (static_cast<size_t>(dy - 1 - t) * dx + s)];
        p[0] = byte(c.r), p[1] = byte(c.g), p[2] = byte(c.b);
    }
    static unsigned char byte(double v) {
        return static_cast<unsigned char>(lround(255.0 * std::clamp(v, 0.0, 1.0)));
    }
    void save(const std::string& path) const {
        png_image png{};
        png.version = PNG_IMAGE_VERSION;
        png.width = dx, png.height = dy;
        png.format = PNG_FORMAT_RGB;
        if (!png_image_write_to_file(&png, path.c_str(), 0, rgb.data(), 0, nullptr))
            throw std::runtime_error(path + ": " + png.message);
    }
};

// As the simulator mixes and stretches the image.
shade dome(const sky_set& set, double frame, double azimuth, double elevation) {
    const double row = std::clamp(0.5 + std::min(elevation / 30.0, 1.0) * 14.0, 0.0, 15.0);
    const double column = (azimuth / 360.0 + 0.5) * sky_columns;
    const int f = std::min(static_cast<int>(frame), sky_frames - 2),
              j = std::min(static_cast<int>(row), sky_heights - 2);
    const int i = static_cast<int>(column) % sky_columns, i2 = (i + 1) % sky_columns;
    const double part = column - floor(column);
    const auto in_frame = [&](int k) {
        return blend(blend(set.sky_at(k, j, i), set.sky_at(k, j, i2), part),
                     blend(set.sky_at(k, j + 1, i), set.sky_at(k, j + 1, i2), part), row - j);
    };
    return blend(in_frame(f), in_frame(f + 1), frame - f);
}
}  // namespace

void save_set(const sky_set& set, const std::string& folder) {
    const std::string below = folder + "/" + set.planet + "/";
    std::filesystem::create_directories(below);
    image sky = {sky_columns, sky_frames * sky_heights}, light = {light_columns, light_rows};
    for (int t = 0; t < sky.dy; ++t)
        for (int s = 0; s < sky.dx; ++s) sky.set(s, t, set.sky[t * sky_columns + s]);
    for (int t = 0; t < light.dy; ++t)
        for (int s = 0; s < light.dx; ++s) light.set(s, t, set.light_at(t, s));
    sky.save(below + "sky_colors_" + set.name + ".png");
    light.save(below + "light_colors_" + set.name + ".png");
}

void save_sheet(const std::vector<sky_set>& sets, const std::string& path) {
    constexpr int frame_dx = 100, sky_dy = 72, light_dy = 8, gap = 6;
    constexpr light_column columns[] = {sun_ambient, sun_direct, sun_disc,    moon_disc,
                                        water,       cloud_dark, cloud_light, moon_light};
    constexpr int set_dy = sky_dy + light_dy * std::size(columns) + gap;
    image sheet = {sky_frames * (frame_dx + 2), set_dy * static_cast<int>(sets.size())};
    for (size_t k = 0; k < sets.size(); ++k) {
        const int foot = sheet.dy - set_dy * static_cast<int>(k + 1) + gap;
        for (int s = 0; s < sheet.dx; ++s) {
            const int frame = s / (frame_dx + 2), within = s % (frame_dx + 2);
            for (int t = 0; t < sky_dy && within < frame_dx; ++t)
                sheet.set(s, foot + set_dy - gap - sky_dy + t,
                          dome(sets[k], frame, within * 360.0 / frame_dx - 180.0, t * 36.0 / sky_dy));
            const int row = s * (light_rows - 1) / (sheet.dx - 1);
            for (size_t c = 0; c < std::size(columns); ++c)
                for (int t = 0; t < light_dy - 1; ++t)
                    sheet.set(s, foot + light_dy * (std::size(columns) - 1 - c) + t,
                              sets[k].light_at(row, columns[c]));
        }
    }
    sheet.save(path);
}

void save_views(const sky_set& set, const std::string& path) {
    constexpr double suns[] = {30.0, 6.0, 4.0, 2.0, 0.0, -2.0, -4.0, -6.0, -8.0, -10.0};
    constexpr int view_dx = 720, view_dy = 180, across = 2;
    constexpr int rows = (std::size(suns) + across - 1) / across;
    image views = {across * (view_dx + 4), rows * (view_dy + 4)};
    for (size_t k = 0; k < std::size(suns); ++k) {
        const double frame = std::max(7.0 + (6.0 - std::min(suns[k], 6.0)) / 16.0 * 7.99, 7.5);
        const int left = static_cast<int>(k) % across * (view_dx + 4);
        const int foot = views.dy - (static_cast<int>(k) / across + 1) * (view_dy + 4);
        for (int s = 0; s < view_dx; ++s)
            for (int t = 0; t < view_dy; ++t)
                views.set(left + s, foot + t,
                          dome(set, frame, s * 360.0 / view_dx - 180.0, t * 90.0 / view_dy));
    }
    views.save(path);
}
