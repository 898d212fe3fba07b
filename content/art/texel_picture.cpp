// Writing of the pictures.
#include "texel_picture.h"

#include <math.h>
#include <png.h>

#include <algorithm>
#include <stdexcept>

#include "noise.h"

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

texel mix(const texel& from, const texel& to, double part_of_to) {
    const auto between = [part_of_to](double a, double b) { return a + (b - a) * part_of_to; };
    return {between(from.r, to.r), between(from.g, to.g), between(from.b, to.b), between(from.a, to.a)};
}

texel shade(const texel& c, double by) { return {c.r * by, c.g * by, c.b * by, c.a}; }

void texel_picture::paint(const std::function<texel(double s, double t)>& colour) {
    for (int t = 0; t < dy_; ++t)
        for (int s = 0; s < dx_; ++s) at(s, t) = colour((s + 0.5) / dx_, (t + 0.5) / dy_);
}

void texel_picture::save(const std::string& path, bool with_alpha) const {
    std::vector<unsigned char> bytes;
    bytes.reserve(4 * texels_.size());
    for (int t = dy_ - 1; t >= 0; --t)
        for (int s = 0; s < dx_; ++s) {
            const texel& c = at(s, t);
            bytes.insert(bytes.end(), {byte_of(c.r), byte_of(c.g), byte_of(c.b)});
            if (with_alpha) bytes.push_back(dithered(c.a, s, t));
        }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(dx_), image.height = static_cast<png_uint_32>(dy_);
    image.format = with_alpha ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
    if (!png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr))
        throw std::runtime_error(path + ": " + image.message);
}
