// Pictures that programs have written.
#pragma once
#include <png.h>

#include <string>
#include <vector>

namespace test {

struct picture {
    int dx = 0, dy = 0;
    std::vector<unsigned char> rgb;  // rows from above

    unsigned at(int x, int y) const {
        const unsigned char* c =
            &rgb[3 * (static_cast<size_t>(y) * static_cast<size_t>(dx) + static_cast<size_t>(x))];
        return static_cast<unsigned>(c[0] << 16 | c[1] << 8 | c[2]);
    }
};

// Without a size when it cannot be read.
inline picture read_png(const std::string& path) {
    picture p;
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str())) return p;
    image.format = PNG_FORMAT_RGB;
    p.dx = static_cast<int>(image.width), p.dy = static_cast<int>(image.height);
    p.rgb.resize(PNG_IMAGE_SIZE(image));
    png_image_finish_read(&image, nullptr, p.rgb.data(), 0, nullptr);
    return p;
}

}  // namespace test
