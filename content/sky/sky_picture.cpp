// Writing of the pictures.
#include "sky_picture.h"

#include <math.h>
#include <png.h>

#include <algorithm>
#include <stdexcept>

#include "../art/noise.h"

namespace {
constexpr double whole = 255.0;

unsigned char byte_of(double channel) {
    return static_cast<unsigned char>(lround(whole * std::clamp(channel, 0.0, 1.0)));
}

// Whether a fraction of a step is a whole one is drawn by lot, but nothing stays nothing.
unsigned char dithered(double alpha, int s, int t) {
    constexpr unsigned seed = 77;
    if (alpha <= 0.0) return 0;
    return static_cast<unsigned char>(std::clamp(floor(whole * alpha + noise::hash(s, t, seed)), 0.0, whole));
}
}  // namespace

void sky_picture::save(const std::string& path) const {
    std::vector<unsigned char> bytes;
    bytes.reserve(4 * texels_.size());
    for (int t = dy_ - 1; t >= 0; --t)
        for (int s = 0; s < dx_; ++s) {
            const sky_texel& c = texels_[static_cast<size_t>(t) * dx_ + s];
            bytes.insert(bytes.end(), {byte_of(c.r), byte_of(c.g), byte_of(c.b), dithered(c.a, s, t)});
        }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(dx_), image.height = static_cast<png_uint_32>(dy_);
    image.format = PNG_FORMAT_RGBA;
    if (!png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr))
        throw std::runtime_error(path + ": " + image.message);
}
