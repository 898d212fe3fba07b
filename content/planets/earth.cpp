// The Earth from a cloudless photograph.
#include <algorithm>
#include <stdexcept>

// the JPEG header needs the one before it
// clang-format off
#include <stdio.h>
#include <jpeglib.h>
// clang-format on

#include "globe_map.h"

namespace {
// The seas of the photograph are all but black: seen from outside, air lies over all, most at dark places.
rgb through_air(const rgb& ground) {
    const rgb air = {0.16, 0.27, 0.45};
    const double dark = 1.0 - std::max({ground.r, ground.g, ground.b});
    return ground * 0.94 + air * (0.06 + 0.30 * dark * dark);
}
}  // namespace

void photograph_earth(globe_map& map, const std::string& jpeg_path) {
    FILE* in = fopen(jpeg_path.c_str(), "rb");
    if (!in) throw std::runtime_error(jpeg_path + ": cannot be read");
    jpeg_decompress_struct decoder;
    jpeg_error_mgr errors;
    decoder.err = jpeg_std_error(&errors);  // tells a fault and ends the program
    jpeg_create_decompress(&decoder);
    jpeg_stdio_src(&decoder, in);
    jpeg_read_header(&decoder, TRUE);
    decoder.out_color_space = JCS_RGB;
    jpeg_start_decompress(&decoder);
    if (decoder.output_width != globe_dx || decoder.output_height != globe_dy)
        throw std::runtime_error(jpeg_path + ": not 2048 by 1024");
    std::vector<JSAMPLE> line(3 * globe_dx);
    JSAMPROW rows[] = {line.data()};
    while (decoder.output_scanline < decoder.output_height) {
        const int row = static_cast<int>(decoder.output_scanline);
        jpeg_read_scanlines(&decoder, rows, 1);
        for (int column = 0; column < globe_dx; ++column) {
            const JSAMPLE* p = line.data() + 3 * column;
            map.at(column, row) = through_air({p[0] / 255.0, p[1] / 255.0, p[2] / 255.0});
        }
    }
    jpeg_finish_decompress(&decoder);
    jpeg_destroy_decompress(&decoder);
    fclose(in);
}
