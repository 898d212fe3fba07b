// Compression by libjpeg.
#include "jpeg_file.h"

#include <GL/gl.h>
#include <stdio.h>
#include <stdlib.h>

#include <jpeglib.h>

#include <memory>
#include <vector>

#include "core/records/mnw.h"

namespace {
constexpr int rgb = 3;
using bytes = std::unique_ptr<unsigned char, void (*)(void*)>;

bytes compress(const std::vector<unsigned char>& pixels, int dx, int dy, int quality, unsigned long* size) {
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char* out = nullptr;
    *size = 0;
    jpeg_mem_dest(&jpeg, &out, size);
    jpeg.image_width = static_cast<JDIMENSION>(dx), jpeg.image_height = static_cast<JDIMENSION>(dy);
    jpeg.input_components = rgb;
    jpeg.in_color_space = JCS_RGB;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, quality, TRUE);
    jpeg_start_compress(&jpeg, TRUE);
    for (int y = dy - 1; y >= 0; --y) {  // OpenGL counts from below
        JSAMPROW row = const_cast<JSAMPROW>(&pixels[static_cast<size_t>(y) * dx * rgb]);
        jpeg_write_scanlines(&jpeg, &row, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    return {out, free};
}
}  // namespace

bool save_jpeg(const std::string& path, unsigned long most_bytes) {
    const int dx = mnw.x_res_now, dy = mnw.y_res_now;
    if (dx <= 0 || dy <= 0) return false;
    std::vector<unsigned char> pixels(static_cast<size_t>(dx) * dy * rgb);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadBuffer(GL_BACK);
    glReadPixels(0, 0, dx, dy, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
    unsigned long size = 0;
    bytes file{nullptr, free};
    for (int quality = 94; quality > 40; quality -= 4) {
        file = compress(pixels, dx, dy, quality, &size);
        if (size <= most_bytes) break;
    }
    FILE* const out = fopen(path.c_str(), "wb");
    if (!out) return false;
    const bool written = fwrite(file.get(), 1, size, out) == size;
    return fclose(out) == 0 && written;
}
