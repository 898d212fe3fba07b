// BMP files of 24 bits without compression.
#include "draw/images/image_bmp.h"

#include <stdio.h>
#include <string.h>

#include <cstdint>
#include <vector>

#include "core/disk/mapfile.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/mnw.h"
#include "draw/images/image_place.h"

namespace {
constexpr int file_header_bytes = 14, info_header_bytes = 40,
              header_bytes = file_header_bytes + info_header_bytes;
constexpr int bmp_pixel = 3;  // blue, green, red

// Places of the header's numbers, least significant byte first.
enum bmp_field : int {
    at_file_size = 2,
    at_pixels = 10,
    at_info_size = 14,
    at_width = 18,
    at_height = 22,
    at_planes = 26,
    at_bits = 28,
    at_compression = 30,
    at_image_size = 34,
};

int32_t number_at(const unsigned char* p, int bytes) {
    uint32_t number = 0;
    for (int i = 0; i < bytes; ++i) number |= static_cast<uint32_t>(p[i]) << 8 * i;
    return static_cast<int32_t>(number);
}

void put_number(unsigned char* p, int bytes, uint32_t number) {
    for (int i = 0; i < bytes; ++i) p[i] = static_cast<unsigned char>(number >> 8 * i);
}

size_t row_bytes(int dx) { return (static_cast<size_t>(dx) * bmp_pixel + 3) / 4 * 4; }

int refuse(const std::string& path, const char* words, const char* more = "") {
    IMAGE_FAULT(words, *more ? std::string(more) : path, *more ? path : "");
    return 0;
}

int check_header(const unsigned char* bytes, size_t size, const std::string& path) {
    if (size < header_bytes || memcmp(bytes, "BM", 2) != 0 ||
        number_at(bytes + at_info_size, 4) < info_header_bytes)
        return refuse(path, "Trying to read a texture bitmap that is not a bitmap");
    if (number_at(bytes + at_width, 4) > image_max) return refuse(path, "Bitmap too wide! (max is 1024)");
    if (number_at(bytes + at_height, 4) > image_max) return refuse(path, "Bitmap too tall! (max is 1024)");
    if (number_at(bytes + at_bits, 2) != 8 * bmp_pixel)
        return refuse(path, "Wrong bitmap color depth for texture!", "We need 24-bit color.");
    if (number_at(bytes + at_compression, 4) != 0) return refuse(path, "Bitmap is compressed!");
    return 1;
}

// One pixel in the form asked for. Magenta stands for a clear one.
void put_pixel(unsigned char* to, const unsigned char* bgr, int bytes) {
    const unsigned char b = bgr[0], g = bgr[1], r = bgr[2];
    if (bytes == 1) {
        to[0] = static_cast<unsigned char>((r + g + b) / 3);
        return;
    }
    const bool clear = bytes == 4 && r == 255 && g == 0 && b == 255;
    to[0] = clear ? 0 : r;
    to[1] = clear ? 0 : g;
    to[2] = clear ? 0 : b;
    if (bytes == 4) to[3] = clear ? 0 : 255;
}
}  // namespace

// A height below 0, rows from above, is refused with the sizes.
int load_bmp_into_scratch(const std::string& path, image_struct* image) {
    const std::string bmp_path = with_ending(path, ".bmp");
    const unsigned char* bytes = nullptr;
    const XMappedFile file(set_dir_chars(bmp_path).c_str(), &bytes);
    if (!bytes) return 0;
    if (!check_header(bytes, file.size(), bmp_path)) return 0;
    const int dx = number_at(bytes + at_width, 4), dy = number_at(bytes + at_height, 4);
    if (!get_scale(bmp_path, image->index, image->load_type, dx, dy, &image->place)) return 0;
    const uint32_t pixels_at = static_cast<uint32_t>(number_at(bytes + at_pixels, 4));
    if (pixels_at < header_bytes || pixels_at > file.size() || file.size() - pixels_at < row_bytes(dx) * dy)
        return refuse(bmp_path, "Bitmap is cut short!");
    for (int y = 0; y < dy; ++y) {
        const unsigned char* from = bytes + pixels_at + row_bytes(dx) * y;
        unsigned char* to = scratch_array_temp + y * dx * image->bytes;
        for (int x = 0; x < dx; ++x) put_pixel(to + x * image->bytes, from + x * bmp_pixel, image->bytes);
    }
    const image_place& p = image->place;
    if (image->load_type == load_ogl)
        memset(scratch_array, 0, static_cast<size_t>(p.dx_tot) * p.dy_tot * image->bytes);
    settle_temp(*image, dx, dy);
    return 1;
}

static std::vector<unsigned char> bmp_header(int dx, int dy) {
    const uint32_t pixels = static_cast<uint32_t>(row_bytes(dx) * dy);
    std::vector<unsigned char> header(header_bytes);
    header[0] = 'B', header[1] = 'M';
    put_number(&header[at_file_size], 4, header_bytes + pixels);
    put_number(&header[at_pixels], 4, header_bytes);
    put_number(&header[at_info_size], 4, info_header_bytes);
    put_number(&header[at_width], 4, static_cast<uint32_t>(dx));
    put_number(&header[at_height], 4, static_cast<uint32_t>(dy));
    put_number(&header[at_planes], 2, 1);
    put_number(&header[at_bits], 2, 8 * bmp_pixel);
    put_number(&header[at_image_size], 4, pixels);
    return header;
}

int write_bmp_to_disk(const std::string& path, int dx, int dy) {
    if (dx < 1 || dy < 1 || static_cast<int64_t>(dx) * dy * bmp_pixel > scratch_size) return 0;
    const std::vector<unsigned char> header = bmp_header(dx, dy);
    std::vector<unsigned char> row(row_bytes(dx));
    FILE* file = fopen(set_dir_chars(path).c_str(), "wb");
    bool done = file && fwrite(header.data(), header.size(), 1, file) == 1;
    for (int y = 0; done && y < dy; ++y) {
        const unsigned char* rgb = scratch_array + static_cast<size_t>(y) * dx * bmp_pixel;
        for (int x = 0; x < dx; ++x, rgb += bmp_pixel)
            for (int c = 0; c < bmp_pixel; ++c) row[x * bmp_pixel + c] = rgb[bmp_pixel - 1 - c];
        done = fwrite(row.data(), row.size(), 1, file) == 1;
    }
    if (file && fclose(file) != 0) done = false;
    if (!done) MACIBM_alert(mnw.top_win, "I could not write this picture:", path, "", "", alert_message);
    return done;
}
