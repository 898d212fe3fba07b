// Size and place of images, and the work on their pixels.
#include "draw/images/image_place.h"

#include <string.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <set>
#include <vector>

#include "core/craft/veh.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/seams.h"
#include "core/records/mnw.h"
#include "draw/gl/gl_facts.h"
#include "draw/images/tex_refs.h"

alignas(16) unsigned char scratch_array[scratch_size];
unsigned char scratch_array_temp[scratch_size];
int scratch_dx = image_max, scratch_dy = image_max;

bool is_scratch_name(const std::string& path) { return path.rfind(scratch_name, 0) == 0; }

std::string with_ending(const std::string& path, const char* ending) {
    constexpr size_t ending_len = 4;
    if (path.size() < ending_len) return "";
    return path.substr(0, path.size() - ending_len) + ending;
}

void image_fault(const std::string& s1, const std::string& s2, const std::string& s3, const char* file,
                 int line) {
    std::vector<unsigned char> kept;
    if (seam.has_display) kept.assign(scratch_array, scratch_array + scratch_size);
    const int dx = scratch_dx, dy = scratch_dy;
    data_fault(s1, s2, s3, "", file, line);
    std::copy(kept.begin(), kept.end(), scratch_array);
    scratch_dx = dx, scratch_dy = dy;
}

// -- size and place

float texture_scale(int tex_res) {
    constexpr int full_res = 5;
    return 1.0f / static_cast<float>(1 << (full_res - intlim(tex_res, 0, full_res)));
}

// These are read pixel by pixel, or laid over each other.
static bool keeps_pixels(int ref, const std::string& path) {
    return is_scratch_name(path) || ref == tex_fence || ref == tex_interface || ref == tex_menu_text ||
           ref == tex_sectional_colours || tex_is(ref, tex_panel, tex_panel_last) ||
           tex_is(ref, tex_instrument, tex_instrument_last);
}

static float texture_scale_of(int ref, const std::string& path, int dx_file, int dy_file) {
    float scale = texture_scale(mnw.tex_res);
    if (tex_is(ref, tex_paint, tex_paint_last)) scale = fltmin2(2.0f * scale, 1.0f);
    if (keeps_pixels(ref, path)) scale = 1.0f;
    scale = fltmax2(scale, fltmax2(1.0f / static_cast<float>(dx_file), 1.0f / static_cast<float>(dy_file)));
    const float longest = static_cast<float>(intmax2(dx_file, dy_file));
    if (maxtexdim > 0)
        while (longest * scale > static_cast<float>(maxtexdim)) scale *= 0.5f;
    return scale;
}

static int is_side(int pixels) { return intrange(pixels, 1, image_max); }

static int power_of_two_for(int pixels) {
    int side = 1;
    while (side < pixels && side < image_max) side *= 2;
    return side;
}

static int size_fault(const std::string& path, int dx, int dy) {
    IMAGE_FAULT("Trying to create a texture either less than 1 or greater than 1024!",
                std::to_string(dx) + " by " + std::to_string(dy), path);
    return 0;
}

int get_scale(const std::string& path, int index, int load_type, int dx_file, int dy_file,
              image_place* place) {
    constexpr int ins_slots = 300;
    *place = {1.0f, 0, 0, 0, 0, 0, 0};
    if (!is_side(dx_file) || !is_side(dy_file)) return size_fault(path, dx_file, dy_file);
    if (load_type == load_ogl) place->scale = texture_scale_of(index, path, dx_file, dy_file);
    if (load_type == load_instrument) {
        const int i = index - tex_instrument;
        if (!intrange(i, 0, ins_slots - 1)) {
            IMAGE_FAULT("Bad instrument index!", std::to_string(i), path);
            return 0;
        }
        const float scale = place->scale = veh[0].ins_size[i];
        place->dx_off = intcut(veh[0].ins_x[i] - static_cast<float>(dx_file) * scale / 2.0f);
        place->dy_off = intcut(veh[0].ins_y[i] - static_cast<float>(dy_file) * scale / 2.0f);
    }
    place->dx_vis = intcut(static_cast<float>(dx_file) * place->scale);
    place->dy_vis = intcut(static_cast<float>(dy_file) * place->scale);
    if (load_type == load_ogl) {  // n * (1 / n) may stay below 1
        place->dx_vis = intmax2(place->dx_vis, 1);
        place->dy_vis = intmax2(place->dy_vis, 1);
    }
    if (!is_side(place->dx_vis) || !is_side(place->dy_vis))
        return size_fault(path, place->dx_vis, place->dy_vis);
    if (!intrange(place->dx_off, -image_max, image_max) || !intrange(place->dy_off, -image_max, image_max)) {
        IMAGE_FAULT("Trying to offset a texture either less than -1024 or greater than 1024!",
                    std::to_string(place->dx_off) + " and " + std::to_string(place->dy_off), path);
        return 0;
    }
    place->dx_tot = power_of_two_for(place->dx_vis);
    place->dy_tot = power_of_two_for(place->dy_vis);
    return 1;
}

int load_buf_into_scratch(const std::string& path, image_struct* image) {
    const int dx = scratch_dx, dy = scratch_dy;
    scratch_dx = scratch_dy = image_max;
    return get_scale(path, image->index, image->load_type, dx, dy, &image->place);
}

// -- from the file's size to the place

// Source pixel of each target pixel along one side.
static void nearest_table(int* source, int count, float scale, int count_file) {
    for (int i = 0; i < count; ++i)
        source[i] = intmin2(intcut(static_cast<float>(i) / scale), count_file - 1);
}

static void resample_row(unsigned char* to, const unsigned char* from, const int* source, int count,
                         int bytes) {
    for (int x = 0; x < count; ++x, to += bytes) memcpy(to, from + source[x] * bytes, bytes);
}

static void resample(const image_struct& image, int dx_file, int dy_file) {
    const image_place& p = image.place;
    int source_x[image_max] = {}, source_y[image_max] = {};
    nearest_table(source_x, p.dx_vis, p.scale, dx_file);
    nearest_table(source_y, p.dy_vis, p.scale, dy_file);
    for (int y = 0; y < p.dy_vis; ++y) {
        unsigned char* to = scratch_array + y * p.dx_tot * image.bytes;
        const unsigned char* from = scratch_array_temp + source_y[y] * dx_file * image.bytes;
        if (p.dx_vis == dx_file)
            memcpy(to, from, static_cast<size_t>(dx_file) * image.bytes);
        else
            resample_row(to, from, source_x, p.dx_vis, image.bytes);
    }
}

static void blend_pixel(unsigned char* to, const unsigned char* from, int bytes) {
    constexpr int opaque = 255;
    const int alpha = bytes == 4 ? from[3] : opaque;
    if (alpha == 0) return;
    for (int c = 0; c < intmin2(bytes, 3); ++c)
        to[c] = static_cast<unsigned char>((from[c] * alpha + to[c] * (opaque - alpha)) / opaque);
    if (bytes == 4) to[3] = static_cast<unsigned char>(intmin2(to[3] + alpha, opaque));
}

static void blend(const image_struct& image, int dx_file, int dy_file) {
    const image_place& p = image.place;
    int source_x[image_max] = {}, source_y[image_max] = {};
    nearest_table(source_x, p.dx_vis, p.scale, dx_file);
    nearest_table(source_y, p.dy_vis, p.scale, dy_file);
    const int x1 = intmax2(0, -p.dx_off), x2 = intmin2(p.dx_vis, image_max - p.dx_off);
    const int y1 = intmax2(0, -p.dy_off), y2 = intmin2(p.dy_vis, image_max - p.dy_off);
    for (int y = y1; y < y2; ++y) {
        const int to = (y + p.dy_off) * image_max + p.dx_off;  // with x inside, without it perhaps not
        const unsigned char* from = scratch_array_temp + source_y[y] * dx_file * image.bytes;
        for (int x = x1; x < x2; ++x)
            blend_pixel(scratch_array + (to + x) * image.bytes, from + source_x[x] * image.bytes,
                        image.bytes);
    }
}

void settle_temp(const image_struct& image, int dx_file, int dy_file) {
    if (image.load_type == load_instrument || image.load_type == load_background)
        blend(image, dx_file, dy_file);
    else
        resample(image, dx_file, dy_file);
}

// -- edges

// One pixel in four lanes of 16 bits: how many have alpha, r, g, b. 25 of them stay within a lane.
static uint64_t lanes(const unsigned char* p) {
    if (p[3] == 0) return 0;
    return uint64_t{1} << 48 | static_cast<uint64_t>(p[0]) << 32 | static_cast<uint64_t>(p[1]) << 16 | p[2];
}

// floor(sum / count) for sums up to 25 * 255 by a product: the error of the rounded-up factor stays below
// one part in 2^18.
static constexpr int block_shift = 18;
static constexpr auto block_factor = [] {
    std::array<uint32_t, 26> factor{};
    for (uint32_t count = 1; count < factor.size(); ++count)
        factor[count] = ((1u << block_shift) + count - 1) / count;
    return factor;
}();

static void clean_row(unsigned char* row, const uint64_t* column, int dx) {
    constexpr int reach = 2;
    uint64_t block = 0;
    for (int x = 0; x < intmin2(reach, dx); ++x) block += column[x];
    for (int x = 0; x < dx; ++x) {
        if (x + reach < dx) block += column[x + reach];
        if (x - reach - 1 >= 0) block -= column[x - reach - 1];
        unsigned char* p = row + 4 * x;
        if (p[3] != 0 || block == 0) continue;
        static constexpr uint64_t lane = 0xffff;
        const uint32_t factor = block_factor[block >> 48];
        p[0] =
            static_cast<unsigned char>((static_cast<uint32_t>(block >> 32 & lane) * factor) >> block_shift);
        p[1] =
            static_cast<unsigned char>((static_cast<uint32_t>(block >> 16 & lane) * factor) >> block_shift);
        p[2] = static_cast<unsigned char>((static_cast<uint32_t>(block & lane) * factor) >> block_shift);
    }
}

static bool has_clear_pixel(const unsigned char* row, int dx) {
    unsigned char all = 0xff;
    for (int x = 0; x < dx; ++x) all = std::min(all, row[4 * x + 3]);
    return all == 0;
}

// Sums of five rows by column move down the picture. What is filled in keeps alpha 0 and so never counts:
// in place is safe.
void clean_edges(unsigned char* pixels, int dx, int dy) {
    constexpr int reach = 2, ring_rows = 2 * reach + 1;
    static uint64_t ring[ring_rows][image_max], column[image_max];
    bool needed = false;
    for (int y = 0; y < dy && !needed; ++y) needed = has_clear_pixel(pixels + 4 * dx * y, dx);
    if (!needed) return;
    memset(ring, 0, sizeof ring);
    memset(column, 0, sizeof column);
    for (int y = -reach; y < dy; ++y) {
        uint64_t* entering = ring[(y + reach) % ring_rows];  // in place of the row that leaves
        const unsigned char* from = pixels + 4 * dx * (y + reach);
        const bool inside = y + reach < dy;
        for (int x = 0; x < dx; ++x) {
            const uint64_t sum = inside ? lanes(from + 4 * x) : 0;
            column[x] += sum - entering[x];
            entering[x] = sum;
        }
        if (y >= 0) clean_row(pixels + 4 * dx * y, column, dx);
    }
}

// -- mip maps

// Four bytes at once: the mean of each channel in a lane of 16 bits.
static uint32_t mean_of_four(uint32_t a, uint32_t b, uint32_t c, uint32_t d) {
    constexpr uint32_t even = 0x00ff00ff;
    const uint32_t low = ((a & even) + (b & even) + (c & even) + (d & even)) >> 2;
    const uint32_t high = ((a >> 8 & even) + (b >> 8 & even) + (c >> 8 & even) + (d >> 8 & even)) >> 2;
    return (low & even) | (high & even) << 8;
}

static uint32_t word_at(const unsigned char* p) {
    uint32_t word;
    memcpy(&word, p, sizeof word);
    return word;
}

void shrink_half(unsigned char* pixels, int dx, int dy, int bytes) {
    const int dx_new = intmax2(dx / 2, 1), dy_new = intmax2(dy / 2, 1);
    const int right = dx > 1 ? bytes : 0, up = dy > 1 ? dx * bytes : 0;  // to the block's other pixels
    unsigned char* to = pixels;
    for (int y = 0; y < dy_new; ++y) {
        const unsigned char* from = pixels + 2 * y * dx * bytes;
        for (int x = 0; x < dx_new; ++x, from += 2 * bytes, to += bytes) {
            if (bytes == 4) {
                const uint32_t mean = mean_of_four(word_at(from), word_at(from + right), word_at(from + up),
                                                   word_at(from + up + right));
                memcpy(to, &mean, sizeof mean);
                continue;
            }
            for (int c = 0; c < bytes; ++c)
                to[c] = static_cast<unsigned char>(
                    (from[c] + from[c + right] + from[c + up] + from[c + up + right]) / 4);
        }
    }
}
