// PNG and BMP files: the bytes as they come, or the content of a file whose outer form is sound, so that the
// fuzzer reaches what lies behind it. Whatever comes, it is refused, or it lies within its limits and every
// level can be made of it.
#include <zlib.h>

#include "core/craft/veh.h"
#include "core/records/mnw.h"
#include "draw/gl/gl_facts.h"
#include "draw/images/image_bmp.h"
#include "draw/images/image_place.h"
#include "draw/images/image_png.h"
#include "draw/images/tex_refs.h"
#include "support.h"

namespace {
using fuzzing::input;
using fuzzing::must;
using byte_row = std::vector<unsigned char>;

struct picture_plan {
    unsigned char type, bytes, tex_res, ref;
    float ins_size, ins_x, ins_y;
};

void check_place(const image_struct& image) {
    const image_place& p = image.place;
    must(p.dx_vis >= 1 && p.dx_vis <= p.dx_tot && p.dx_tot <= image_max && (p.dx_tot & (p.dx_tot - 1)) == 0);
    must(p.dy_vis >= 1 && p.dy_vis <= p.dy_tot && p.dy_tot <= image_max && (p.dy_tot & (p.dy_tot - 1)) == 0);
    must(image.bytes == 1 || image.bytes == 3 || image.bytes == 4);
}

void make_levels(const image_struct& image) {
    int dx = image.place.dx_tot, dy = image.place.dy_tot;
    for (;;) {
        if (image.bytes == 4) clean_edges(scratch_array, dx, dy);
        if (dx == 1 && dy == 1) return;
        shrink_half(scratch_array, dx, dy, image.bytes);
        dx = std::max(1, dx / 2);
        dy = std::max(1, dy / 2);
    }
}

void read_picture(int (*read)(const std::string&, image_struct*), const picture_plan& plan,
                  const byte_row& bytes) {
    static const fuzzing::folder folder;
    static constexpr int depths[] = {1, 3, 4, 4};
    static constexpr int refs[] = {tex_water, tex_paint, tex_interface, tex_instrument + 7};
    image_struct image{};
    image.load_type = load_background + plan.type % 4;
    image.index = refs[plan.ref % 4];
    image.bytes = depths[plan.bytes % 4];
    image.depth_change_ok = plan.bytes % 4 == 3;
    mnw.tex_res = plan.tex_res % 8 - 1;
    maxtexdim = plan.ref & 4 ? 64 : 0;
    veh[0].ins_size[7] = plan.ins_size, veh[0].ins_x[7] = plan.ins_x, veh[0].ins_y[7] = plan.ins_y;
    if (!read(folder.write("picture", bytes), &image)) return;
    check_place(image);
    if (image.load_type == load_ogl) make_levels(image);
}

byte_row bytes_of(const std::vector<char>& from) { return {from.begin(), from.end()}; }

// -- PNG

const byte_row signature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};

uint32_t word_at(const unsigned char* p) {
    return static_cast<uint32_t>(p[0]) << 24 | static_cast<uint32_t>(p[1]) << 16 | p[2] << 8 | p[3];
}
void put_word(unsigned char* p, size_t word) {
    for (int i = 0; i < 4; ++i) p[i] = static_cast<unsigned char>(word >> (24 - 8 * i));
}
// Of the chunk that begins there, with so many bytes of content.
void put_sum(unsigned char* chunk, size_t count) {
    put_word(chunk + 8 + count, crc32(0, chunk + 4, static_cast<uInt>(count + 4)));
}

void add_chunk(byte_row& file, const char* type, const byte_row& content) {
    const size_t at = file.size();
    file.resize(at + 8);
    put_word(&file[at], content.size());
    memcpy(&file[at + 4], type, 4);
    file.insert(file.end(), content.begin(), content.end());
    file.resize(file.size() + 4);
    put_sum(&file[at], content.size());
}

// Sums of the chunks as their lengths lead through the file.
void mend_sums(byte_row& file) {
    std::copy_n(signature.begin(), std::min(file.size(), signature.size()), file.begin());
    for (size_t at = signature.size(); at + 12 <= file.size();) {
        const size_t count = word_at(&file[at]);
        if (count > file.size() - at - 12) return;
        put_sum(&file[at], count);
        at += 12 + count;
    }
}

byte_row packed(const byte_row& bytes) {
    uLongf size = compressBound(bytes.size());
    byte_row out(size);
    must(compress2(out.data(), &size, bytes.data(), bytes.size(), 1) == Z_OK);
    out.resize(size);
    return out;
}

// 2 bytes for each side, depth, colour type, interlace; a byte that says which chunks stand between, and one
// for the length of each.
byte_row assembled(input& in) {
    static const char* const between[] = {"gAMA", "PLTE", "tRNS", "sRGB", "sBIT", "bKGD", "iCCP", "IDAT"};
    byte_row file = signature, ihdr(13);
    for (const size_t side : {3, 7}) {
        ihdr[side - 1] = in.byte() & 7;
        ihdr[side] = static_cast<unsigned char>(in.byte());
    }
    for (const size_t at : {8, 9, 12}) ihdr[at] = static_cast<unsigned char>(in.byte());
    add_chunk(file, "IHDR", ihdr);
    const unsigned wanted = in.byte();
    for (int i = 0; i < 8 && !in.done(); ++i)
        if (wanted >> i & 1) add_chunk(file, between[i], bytes_of(in.bytes(in.byte())));
    // what is left, again and again, as far as the picture may need it
    byte_row rows = bytes_of(in.bytes());
    const size_t need = std::min<size_t>(word_at(&ihdr[0]) * word_at(&ihdr[4]) * 4 + 4096, 1u << 17);
    for (size_t i = 0; !rows.empty() && i < need; ++i) rows.push_back(rows[i]);
    add_chunk(file, "IDAT", packed(rows));
    add_chunk(file, "IEND", {});
    return file;
}

// -- BMP

// The sides in two bytes each, then pixels; rows that a short input does not have repeat it.
byte_row sound_bmp(input& in) {
    byte_row file = {'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0, 40, 0, 0, 0};
    file.resize(54);
    file[26] = 1;
    file[28] = 24;
    for (const size_t side : {18, 19, 22, 23}) file[side] = static_cast<unsigned char>(in.byte());
    const size_t rows = ((file[18] + 256u * file[19]) * 3 + 3) / 4 * 4 * (file[22] + 256u * file[23]);
    byte_row pixels = bytes_of(in.bytes());
    if (!pixels.empty() && rows < 1u << 18)
        for (size_t i = 0; pixels.size() < rows; ++i) pixels.push_back(pixels[i]);
    file.insert(file.end(), pixels.begin(), pixels.end());
    return file;
}
}  // namespace

void fuzz_png(input& in) {
    const auto plan = in.value<picture_plan>();
    const unsigned way = in.byte() % 4;
    byte_row bytes = way >= 2 ? assembled(in) : bytes_of(in.bytes());
    if (way == 1) mend_sums(bytes);
    read_picture(load_png_into_scratch, plan, bytes);
}

void fuzz_bmp(input& in) {
    const auto plan = in.value<picture_plan>();
    const bool is_sound = in.byte() & 1;
    read_picture(load_bmp_into_scratch, plan, is_sound ? sound_bmp(in) : bytes_of(in.bytes()));
}
