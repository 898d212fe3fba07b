// Pictures of the halves.
#include "globe_map.h"

#include <math.h>
#include <png.h>

#include <algorithm>
#include <stdexcept>

namespace {
unsigned char byte_of(double channel) {
    return static_cast<unsigned char>(lround(255.0 * std::clamp(channel, 0.0, 1.0)));
}

void save_half(globe_map& map, int first_column, const std::string& path) {
    std::vector<unsigned char> bytes;
    for (int row = 0; row < globe_dy; ++row)
        for (int column = 0; column < globe_dx / 2; ++column) {
            const rgb& c = map.at(first_column + column, row);
            bytes.insert(bytes.end(), {byte_of(c.r), byte_of(c.g), byte_of(c.b)});
        }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = globe_dx / 2, image.height = globe_dy;
    image.format = PNG_FORMAT_RGB;
    if (!png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr))
        throw std::runtime_error(path + ": " + image.message);
}
}  // namespace

void save_halves(globe_map& map, const std::string& folder, const std::string& name) {
    save_half(map, globe_dx / 2, folder + "/" + name + "1.png");
    save_half(map, 0, folder + "/" + name + "2.png");
}
