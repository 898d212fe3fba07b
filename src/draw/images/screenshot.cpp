// The back buffer as a file, PNG or BMP.
#include "draw/images/screenshot.h"

#include <GL/gl.h>
#include <png.h>
#include <stdio.h>

#include <memory>
#include <vector>

#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/records/mnw.h"
#include "draw/images/image_bmp.h"
#include "draw/images/tman.h"

// Outside any function that owns objects: libpng leaves by longjmp.
static bool write_rows(FILE* file, int width, int height, const std::vector<png_bytep>& rows) {
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!info || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return false;
    }
    png_init_io(png, file);
    png_set_IHDR(png, info, width, height, 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    png_write_image(png, const_cast<png_bytepp>(rows.data()));
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return true;
}

bool save_screenshot(const std::string& png_path) {
    const int width = mnw.x_res_now, height = mnw.y_res_now;
    if (width <= 0 || height <= 0) return false;
    constexpr int rgb = 3;
    std::vector<unsigned char> pixels(static_cast<size_t>(width) * height * rgb);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadBuffer(GL_BACK);
    glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());

    std::vector<png_bytep> rows(height);  // GL counts from below
    for (int y = 0; y < height; ++y) rows[y] = &pixels[static_cast<size_t>(height - 1 - y) * width * rgb];
    FILE* file = fopen(png_path.c_str(), "wb");
    if (!file) return false;
    const bool written = write_rows(file, width, height, rows);
    return (fclose(file) == 0) && written;
}

namespace {
struct screenshot_state {
    int number = 0;  // of the last one
    bool asked = false;
};
screenshot_state state;
}  // namespace

void reset_screenshot() { state = {}; }

void OGL_screenshot() { state.asked = true; }

// What was shown last cannot be read back everywhere, so the picture is taken a moment before it is shown.
void take_asked_screenshot() {
    if (!state.asked) return;
    state.asked = false;
    constexpr int most = 1024;
    const int dx = intmin2(mnw.x_res_now, most), dy = intmin2(mnw.y_res_now, most);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadBuffer(GL_BACK);
    glReadPixels((mnw.x_res_now - dx) / 2, (mnw.y_res_now - dy) / 2, dx, dy, GL_RGB, GL_UNSIGNED_BYTE,
                 scratch_array);
    write_bmp_to_disk(app_path + "screenshot_" + std::to_string(++state.number) + ".bmp", dx, dy);
}
