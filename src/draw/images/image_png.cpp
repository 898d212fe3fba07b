// PNG files, through libpng's rows.
#include "draw/images/image_png.h"

#include <png.h>
#include <string.h>

#include "core/disk/mapfile.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "draw/images/image_place.h"

namespace {
constexpr int signature_bytes = 8;
constexpr double screen_gamma = 2.2, gamma_unsaid = 0.5555556;

// libpng leaves a fault by longjmp: the functions that may be left so own no objects, and the words of the
// fault wait here until its memory is free.
struct png_source {
    png_structp png;
    png_infop info;
    const unsigned char *at, *end;
    char fault[160];
    png_bytep rows[image_max];
};

void keep_words(png_structp png, png_const_charp words) {
    png_source* source = static_cast<png_source*>(png_get_error_ptr(png));
    if (source->fault[0]) return;  // the first says what went wrong
    strncpy(source->fault, words, sizeof source->fault - 1);
}

[[noreturn]] void on_error(png_structp png, png_const_charp words) {
    keep_words(png, words);
    longjmp(png_jmpbuf(png), 1);
}

void on_read(png_structp png, png_bytep to, size_t count) {
    png_source* source = static_cast<png_source*>(png_get_io_ptr(png));
    if (count > static_cast<size_t>(source->end - source->at)) png_error(png, "the file ends too early");
    memcpy(to, source->at, count);
    source->at += count;
}

// What neither changes pixels nor may cost memory is passed over.
void pass_over(png_structp png) {
    static png_byte chunks[] = "tEXt\0zTXt\0iTXt\0iCCP\0cHRM\0sPLT\0hIST\0eXIf\0pCAL\0sCAL\0tIME";
    constexpr int chunk_stride = 5;
    png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, chunks, sizeof chunks / chunk_stride);
    constexpr png_alloc_size_t chunk_bytes = 1 << 20;
    png_set_chunk_malloc_max(png, chunk_bytes);
    png_set_chunk_cache_max(png, 16);
}

bool open_png(png_source* source) {
    source->png = png_create_read_struct(PNG_LIBPNG_VER_STRING, source, on_error, keep_words);
    if (!source->png) return false;
    if (setjmp(png_jmpbuf(source->png))) return false;
    source->info = png_create_info_struct(source->png);
    if (!source->info) return false;
    png_set_read_fn(source->png, source, on_read);
    pass_over(source->png);
    png_read_info(source->png, source->info);
    return true;
}

// Every kind of file becomes 1, 3 or 4 bytes a pixel.
bool set_transforms(png_source* source, image_struct* image) {
    png_structp png = source->png;
    png_infop info = source->info;
    if (setjmp(png_jmpbuf(png))) return false;
    const int colour = png_get_color_type(png, info), depth = png_get_bit_depth(png, info);
    const bool is_grey = !(colour & PNG_COLOR_MASK_COLOR), has_key = png_get_valid(png, info, PNG_INFO_tRNS);
    const bool has_alpha = (colour & PNG_COLOR_MASK_ALPHA) || has_key;
    double gamma;
    if (!png_get_gAMA(png, info, &gamma)) gamma = gamma_unsaid;
    png_set_gamma(png, screen_gamma, gamma);
    if (colour == PNG_COLOR_TYPE_PALETTE) png_set_palette_to_rgb(png);
    if (is_grey && depth < 8) png_set_expand_gray_1_2_4_to_8(png);
    if (has_key) png_set_tRNS_to_alpha(png);
    if (depth == 16) png_set_strip_16(png);
    if (depth < 8) png_set_packing(png);

    if (image->depth_change_ok) image->bytes = has_alpha ? 4 : 3;
    if (image->bytes == 4 && !has_alpha) png_set_add_alpha(png, 0xff, PNG_FILLER_AFTER);
    if (image->bytes != 4 && has_alpha) png_set_strip_alpha(png);
    if (image->bytes != 1 && is_grey) png_set_gray_to_rgb(png);
    if (image->bytes == 1 && !is_grey) png_set_rgb_to_gray_fixed(png, PNG_ERROR_ACTION_NONE, -1, -1);
    png_set_interlace_handling(png);
    png_read_update_info(png, info);
    if (png_get_rowbytes(png, info) != static_cast<size_t>(png_get_image_width(png, info)) * image->bytes)
        png_error(png, "a form of pixels that cannot be brought to ours");
    return true;
}

bool read_rows(png_source* source) {
    if (setjmp(png_jmpbuf(source->png))) return false;
    png_read_image(source->png, source->rows);
    return true;
}

int side(png_uint_32 pixels) { return pixels > image_max ? image_max + 1 : static_cast<int>(pixels); }

// The last row of the file first. Unscaled pictures need no second buffer.
bool read_picture(png_source* source, const std::string& path, image_struct* image) {
    if (!open_png(source)) return false;
    const int dx = side(png_get_image_width(source->png, source->info));
    const int dy = side(png_get_image_height(source->png, source->info));
    if (!get_scale(path, image->index, image->load_type, dx, dy, &image->place)) return false;
    if (!set_transforms(source, image)) return false;
    const image_place& p = image->place;
    const bool is_blend = image->load_type == load_instrument || image->load_type == load_background;
    const bool is_direct = !is_blend && p.dx_vis == dx && p.dy_vis == dy;
    if (image->load_type == load_ogl && (p.dx_vis != p.dx_tot || p.dy_vis != p.dy_tot))
        memset(scratch_array, 0, static_cast<size_t>(p.dx_tot) * p.dy_tot * image->bytes);
    unsigned char* first = is_direct ? scratch_array : scratch_array_temp;
    const int row_bytes = (is_direct ? p.dx_tot : dx) * image->bytes;
    for (int y = 0; y < dy; ++y) source->rows[y] = first + (dy - 1 - y) * row_bytes;
    if (!read_rows(source)) return false;
    if (!is_direct) settle_temp(*image, dx, dy);
    return true;
}
}  // namespace

// The first chunk follows the signature: its length and name, then width and height, most significant byte first.
bool png_size(const std::string& path, unsigned* dx, unsigned* dy) {
    constexpr size_t size_at = 16, number_bytes = 4;
    const unsigned char* bytes = nullptr;
    const XMappedFile file(set_dir_chars(path).c_str(), &bytes);
    if (!bytes || file.size() < size_at + 2 * number_bytes) return false;
    if (png_sig_cmp(bytes, 0, signature_bytes) != 0) return false;
    *dx = png_get_uint_32(bytes + size_at);
    *dy = png_get_uint_32(bytes + size_at + number_bytes);
    return true;
}

int load_png_into_scratch(const std::string& path, image_struct* image) {
    const std::string png_path = with_ending(path, ".png");
    const unsigned char* bytes = nullptr;
    const XMappedFile file(set_dir_chars(png_path).c_str(), &bytes);
    if (!bytes || file.size() < signature_bytes) return 0;
    if (png_sig_cmp(bytes, 0, signature_bytes) != 0) {
        IMAGE_FAULT("PING-FILE ERROR!", "is_png=!png_sig_cmp(png_io_buf,0,8)", png_path);
        return 0;
    }
    static png_source source;
    source = {};
    source.at = bytes;
    source.end = file.end();
    const bool done = read_picture(&source, png_path, image);
    const std::string words = source.fault;
    png_destroy_read_struct(&source.png, &source.info, nullptr);
    if (!words.empty()) IMAGE_FAULT("PNG error!", words, png_path);
    return done;
}
