// Picture files made by the tests themselves.
#pragma once
#include <png.h>

#include <cstdint>
#include <string>
#include <vector>

namespace test {

using bytes = std::vector<unsigned char>;

constexpr double plain_gamma = 0.45455;  // values reach the texture as they are

struct png_picture {
    int dx, dy, colour;
    bytes samples;  // rows from above
    int depth = 8;
    bytes palette = {};          // red, green, blue, alpha of each entry
    double gamma = plain_gamma;  // 0: none said
    int interlace = PNG_INTERLACE_NONE;
};

inline std::string png_bytes(const png_picture& p) {
    std::string out;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(
        png, &out,
        [](png_structp to, png_bytep data, size_t count) {
            static_cast<std::string*>(png_get_io_ptr(to))->append(reinterpret_cast<char*>(data), count);
        },
        nullptr);
    png_set_IHDR(png, info, p.dx, p.dy, p.depth, p.colour, p.interlace, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    if (p.gamma > 0.0) png_set_gAMA(png, info, p.gamma);
    std::vector<png_color> colours;
    bytes alphas;
    for (size_t i = 0; i + 3 < p.palette.size(); i += 4) {
        colours.push_back({p.palette[i], p.palette[i + 1], p.palette[i + 2]});
        alphas.push_back(p.palette[i + 3]);
    }
    if (!colours.empty()) {
        png_set_PLTE(png, info, colours.data(), static_cast<int>(colours.size()));
        png_set_tRNS(png, info, alphas.data(), static_cast<int>(alphas.size()), nullptr);
    }
    png_write_info(png, info);
    std::vector<png_bytep> rows;
    const size_t row = p.samples.size() / p.dy;
    for (int y = 0; y < p.dy; ++y) rows.push_back(const_cast<png_bytep>(p.samples.data() + y * row));
    png_write_image(png, rows.data());
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return out;
}

// header words after "BM" by hand; pixels: file rows from below, blue first, padded.
inline std::string bmp_bytes(int dx, int dy, const bytes& pixels, int bits = 24, int compression = 0,
                             int at = 54) {
    std::string out = "BM";
    const auto put = [&out](int64_t number, int count) {
        for (int i = 0; i < count; ++i) out += static_cast<char>(number >> 8 * i);
    };
    put(54 + static_cast<int64_t>(pixels.size()), 4), put(0, 4), put(at, 4);
    put(40, 4), put(dx, 4), put(dy, 4), put(1, 2), put(bits, 2), put(compression, 4);
    for (int i = 0; i < 5; ++i) put(i == 0 ? static_cast<int64_t>(pixels.size()) : 0, 4);
    return out + std::string(pixels.begin(), pixels.end());
}

}  // namespace test
