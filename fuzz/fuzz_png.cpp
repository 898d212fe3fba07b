// PNG files: the bytes as they are but for check sums, or packed into the chunks of a file whose outer form
// is sound, so that the fuzzer reaches what lies behind them.
#include <zlib.h>

#include "picture.h"

namespace {
using byte_row = std::vector<unsigned char>;
const byte_row signature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};

uint32_t word_at(const unsigned char* p) {
    return static_cast<uint32_t>(p[0]) << 24 | static_cast<uint32_t>(p[1]) << 16 | p[2] << 8 | p[3];
}
void put_word(unsigned char* p, uint32_t word) {
    for (int i = 0; i < 4; ++i) p[i] = static_cast<unsigned char>(word >> (24 - 8 * i));
}

void add_chunk(byte_row& file, const char* type, const unsigned char* data, size_t count) {
    const size_t at = file.size();
    file.resize(at + 8);
    put_word(&file[at], static_cast<uint32_t>(count));
    std::memcpy(&file[at + 4], type, 4);
    file.insert(file.end(), data, data + count);
    file.resize(file.size() + 4);
    put_word(&file[file.size() - 4],
             static_cast<uint32_t>(crc32(0, &file[at + 4], static_cast<uInt>(count + 4))));
}

// Sums of the chunks as their lengths lead through the file.
void mend_sums(byte_row& file) {
    std::copy_n(signature.begin(), std::min(file.size(), signature.size()), file.begin());
    for (size_t at = signature.size(); at + 12 <= file.size();) {
        const size_t count = word_at(&file[at]);
        if (count > file.size() - at - 12) return;
        put_word(&file[at + 8 + count],
                 static_cast<uint32_t>(crc32(0, &file[at + 4], static_cast<uInt>(count + 4))));
        at += 12 + count;
    }
}

byte_row packed(const unsigned char* data, size_t count) {
    uLongf size = compressBound(count);
    byte_row out(size);
    fuzzing::must(compress2(out.data(), &size, data, count, 1) == Z_OK);
    out.resize(size);
    return out;
}

// head: 2 bytes for each side, depth, colour type, interlace; a byte that says which chunks stand between,
// and one for the length of each.
byte_row assembled(const unsigned char* data, size_t size) {
    constexpr size_t head = 8;
    static const char* const between[] = {"gAMA", "PLTE", "tRNS", "sRGB", "sBIT", "bKGD", "iCCP", "IDAT"};
    byte_row file = signature;
    if (size < head) return file;
    unsigned char ihdr[13] = {0,
                              0,
                              static_cast<unsigned char>(data[0] & 7),
                              data[1],
                              0,
                              0,
                              static_cast<unsigned char>(data[2] & 7),
                              data[3],
                              data[4],
                              data[5],
                              0,
                              0,
                              data[6]};
    add_chunk(file, "IHDR", ihdr, sizeof ihdr);
    const unsigned char wanted = data[7];
    const unsigned char *at = data + head, *const end = data + size;
    for (int i = 0; i < 8 && at < end; ++i) {
        if (!(wanted >> i & 1)) continue;
        const size_t asked = *at++, count = std::min(asked, static_cast<size_t>(end - at));
        add_chunk(file, between[i], at, count);
        at += count;
    }
    // what is left, again and again, as far as the picture may need it
    byte_row rows(at, end);
    const size_t need =
        std::min<size_t>((word_at(ihdr) & 0x7ff) * (word_at(ihdr + 4) & 0x7ff) * 4 + 4096, 1u << 17);
    for (size_t i = 0; !rows.empty() && i < need; ++i) rows.push_back(rows[i]);
    const byte_row idat = packed(rows.data(), rows.size());
    add_chunk(file, "IDAT", idat.data(), idat.size());
    add_chunk(file, "IEND", nullptr, 0);
    return file;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzzing::start();
    static const fuzzing::memory_file file("png");
    fuzzing::picture_plan plan{};
    if (size < sizeof plan + 1) return 0;
    std::memcpy(&plan, data, sizeof plan);
    const int way = data[sizeof plan] % 4;
    data += sizeof plan + 1;
    size -= sizeof plan + 1;
    byte_row bytes = way >= 2 ? assembled(data, size) : byte_row(data, data + size);
    if (way == 1) mend_sums(bytes);
    file.write(bytes.data(), bytes.size());
    fuzzing::read_picture(load_png_into_scratch, plan, file.path());
    return 0;
}
