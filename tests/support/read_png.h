// Pictures that programs have written.
#pragma once
#include <png.h>

#include <algorithm>
#include <string>
#include <vector>

namespace test {

struct picture {
    int dx = 0, dy = 0;
    bool has_alpha = false;           // in the file
    std::vector<unsigned char> rgba;  // rows from above

    const unsigned char* texel(int x, int y) const {
        return &rgba[4 * (static_cast<size_t>(y) * static_cast<size_t>(dx) + static_cast<size_t>(x))];
    }
    unsigned at(int x, int y) const {
        const unsigned char* c = texel(x, y);
        return static_cast<unsigned>(c[0] << 16 | c[1] << 8 | c[2]);
    }
};

// Without a size when it cannot be read.
inline picture read_png(const std::string& path) {
    picture p;
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str())) return p;
    p.has_alpha = (image.format & PNG_FORMAT_FLAG_ALPHA) != 0;
    image.format = PNG_FORMAT_RGBA;
    p.dx = static_cast<int>(image.width), p.dy = static_cast<int>(image.height);
    p.rgba.resize(PNG_IMAGE_SIZE(image));
    png_image_finish_read(&image, nullptr, p.rgba.data(), 0, nullptr);
    return p;
}

// The box of all pixels with exactly this colour in the map of a plan; the legend lies below the map.
struct colour_box {
    int count = 0, x1 = 9999, y1 = 9999, x2 = -1, y2 = -1;
};
inline colour_box find_colour(const picture& plan, unsigned colour) {
    constexpr int map_top = 160, map_bottom = 1300;
    colour_box b;
    for (int y = map_top; y < std::min(map_bottom, plan.dy); ++y)
        for (int x = 0; x < plan.dx; ++x) {
            if (plan.at(x, y) != colour) continue;
            ++b.count;
            b.x1 = std::min(b.x1, x), b.x2 = std::max(b.x2, x);
            b.y1 = std::min(b.y1, y), b.y2 = std::max(b.y2, y);
        }
    return b;
}

}  // namespace test
