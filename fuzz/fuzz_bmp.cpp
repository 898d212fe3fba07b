// BMP files: the bytes as they are, or as the header's numbers and the pixels of a sound file.
#include "picture.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzzing::start();
    static const fuzzing::memory_file file("bmp");
    fuzzing::picture_plan plan{};
    if (size < sizeof plan + 1) return 0;
    std::memcpy(&plan, data, sizeof plan);
    const bool is_sound = data[sizeof plan] & 1;
    data += sizeof plan + 1;
    size -= sizeof plan + 1;
    std::vector<unsigned char> bytes(data, data + size);
    if (is_sound) {
        constexpr unsigned char head[54] = {'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0, 40,
                                            0,   0,   0, 0, 0, 0, 0, 0, 0, 0, 0,  1, 0, 24};
        constexpr size_t at_width = 18, at_height = 22;
        bytes.resize(std::max(bytes.size(), sizeof head));
        const unsigned char dx[2] = {bytes[0], bytes[1]}, dy[2] = {bytes[2], bytes[3]};
        std::copy(head, head + sizeof head, bytes.begin());
        std::copy(dx, dx + 2, bytes.begin() + at_width);
        std::copy(dy, dy + 2, bytes.begin() + at_height);
        // rows that a short input does not have repeat it
        const size_t rows = ((dx[0] + 256u * dx[1]) * 3 + 3) / 4 * 4 * (dy[0] + 256u * dy[1]);
        const size_t given = bytes.size();
        if (rows < 1u << 18)
            while (bytes.size() < rows + sizeof head)
                bytes.push_back(bytes[bytes.size() - given + sizeof head / 2]);
    }
    file.write(bytes.data(), bytes.size());
    fuzzing::read_picture(load_bmp_into_scratch, plan, file.path());
    return 0;
}
