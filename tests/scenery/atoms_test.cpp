// Atoms, their payloads, and the writer, against bytes worked out by hand and each other.
#include "scenery/chunk/atoms.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "scenery/chunk/atom_writer.h"
#include "support.h"
#include "tile_bytes.h"

namespace {
using test::atom;
using test::raw_bytes;
using test::strings;
using test::u16;
using test::u32;
using test::u8;

constexpr uint32_t id_of(const char* n) {
    return static_cast<uint32_t>(n[0]) << 24 | static_cast<uint32_t>(n[1]) << 16 |
           static_cast<uint32_t>(n[2]) << 8 | static_cast<uint32_t>(n[3]);
}

template <class view>
view view_of(const std::string& bytes) {
    view v;
    v.begin = bytes.data();
    v.end = bytes.data() + bytes.size();
    return v;
}

// What a program writes into a file.
template <class write>
std::string written(write w) {
    char* bytes = nullptr;
    size_t size = 0;
    FILE* file = open_memstream(&bytes, &size);
    w(file);
    EXPECT_FALSE(ferror(file));
    fclose(file);
    std::string result(bytes, size);
    free(bytes);
    return result;
}

TEST(atoms, a_walk_sees_what_lies_whole_in_its_container) {
    XAtom found;
    EXPECT_FALSE(XAtomContainer().GetFirst(found));
    const std::string bytes = atom("HEAD", "abc") + atom("CMDS", "") + atom("HEAD", "de");
    EXPECT_EQ(bytes.substr(0, 8), std::string("\x44\x41\x45\x48\x0b\0\0\0", 8));
    const auto all = view_of<XAtomContainer>(bytes);
    EXPECT_EQ(all.CountAtoms(), 3);
    ASSERT_TRUE(all.GetNthAtomOfID(id_of("HEAD"), 1, found));
    EXPECT_EQ(found.begin, bytes.data() + 19);
    EXPECT_EQ(found.GetContentLength(), 2u);
    EXPECT_FALSE(all.GetNthAtomOfID(id_of("HEAD"), 2, found) || all.GetNthAtomOfID(id_of("HEAD"), -1, found));

    // a short one, one that leaves the container, and a header cut off end the walk before them
    const std::string good = atom("AAAA", "12345678");
    for (const std::string& bad : {u32(1) + u32(5) + good, u32(1) + u32(0), u32(1) + u32(9),
                                   u32(1) + u32(0xFFFFFFFF), u32(1) + "abc"}) {
        const std::string row = good + bad;
        EXPECT_EQ(view_of<XAtomContainer>(row).CountAtoms(), 1);
    }
    const std::string open = atom("TERT", strings({"a"}) + "bc");
    EXPECT_EQ(view_of<XAtomStringTable>(open).GetNthString(1), nullptr) << "nothing ends the last one";
}

std::vector<short> shorts_of(const std::string& table, int planes, int size, bool interleaved, int good) {
    std::vector<short> values(static_cast<size_t>(planes * size), -7);
    const std::string bytes = atom("POOL", table);
    const std::vector<char> block(bytes.begin(), bytes.end());
    XAtomPlanerNumericTable view;
    view.begin = block.data();
    view.end = block.data() + block.size();
    EXPECT_EQ(view.DecompressShort(planes, size, interleaved, values.data()), good);
    return values;
}

TEST(atoms, planes_by_hand) {
    using list = std::vector<short>;
    const std::string head_1 = u32(3) + u8(1), head_2 = u32(3) + u8(2);
    const std::string flat = head_2 + u8(0) + u16(1) + u16(2) + u16(3) + u8(0) + u16(4) + u16(5) + u16(6);
    EXPECT_EQ(shorts_of(flat, 2, 3, true, 2), (list{1, 4, 2, 5, 3, 6}));
    EXPECT_EQ(shorts_of(flat, 2, 3, false, 2), (list{1, 2, 3, 4, 5, 6}));
    const std::string wraps =
        head_2 + u8(1) + u16(65535) + u16(2) + u16(0x7FFF) + u8(1) + u16(5) + u16(0) + u16(1);
    EXPECT_EQ(shorts_of(wraps, 2, 3, false, 2), (list{-1, 1, -32768, 5, 5, 6})) << "each plane sums from 0";
    const std::string runs = u32(5) + u8(2) + u8(2) + u8(0x83) + u16(7) + u8(2) + u16(1) + u16(2) +  //
                             u8(3) + u8(0x84) + u16(7) + u8(1) + u16(65535);
    EXPECT_EQ(shorts_of(runs, 2, 5, false, 2), (list{7, 7, 7, 1, 2, 7, 14, 21, 28, 27}));

    // an unknown mode is a plane without data
    EXPECT_EQ(shorts_of(head_2 + u8(4) + u8(0) + u16(1) + u16(2) + u16(3), 2, 3, false, 2),
              (list{-7, -7, -7, 1, 2, 3}));
    EXPECT_EQ(shorts_of(head_2 + u8(0) + u16(1) + u16(2) + u16(3), 2, 3, true, 1),
              (list{1, -7, 2, -7, 3, -7}));
    // cut off in a plane, in a run, in literals; groups of none
    for (const std::string& bad : {u8(0) + u16(1) + u16(2) + "x", u8(1) + u16(1) + u16(2),
                                   u8(2) + u8(0x83) + "x", u8(2) + u8(0x83), u8(2) + u8(3) + u16(1) + u16(2),
                                   u8(2) + u8(0x82) + u16(1), u8(2) + u8(0) + u16(1) + u8(0x83) + u16(1),
                                   u8(3) + u8(0x80) + u16(1) + u8(0x83) + u16(1), u8(2), std::string()})
        shorts_of(head_1 + bad, 1, 3, true, 0);
    EXPECT_EQ(shorts_of("abcd", 1, 1, true, 0), list{-7});
}

// Every written value comes back, in its bits, in each width, mode and layout.
template <class T, class write, class read>
void round_trip(std::mt19937& random, write w, read r) {
    for (int step = 0; step < 120; ++step) {
        const int planes = static_cast<int>(random() % 5), size = static_cast<int>(random() % 400);
        const int mode = step % 4, interleaved = static_cast<int>(random() % 2);
        std::vector<T> values(static_cast<size_t>(planes * size));
        T value = 0;
        for (T& v : values) {
            if (random() % 8 < static_cast<unsigned>(step % 9)) value = static_cast<T>(random());
            v = value;
        }
        if (std::is_floating_point_v<T> && mode != 1 && mode != 3 && values.size() > 3) {
            values[1] = static_cast<T>(-0.0);
            values[2] = 0;
            values[3] = std::numeric_limits<T>::quiet_NaN();
        }
        const std::string bytes = atom("TEST", written([&](FILE* f) {
                                           EXPECT_TRUE(w(f, planes, size, mode, interleaved, values.data()));
                                       }));
        const auto table = view_of<XAtomPlanerNumericTable>(bytes);
        EXPECT_TRUE(table.CanYield(planes, size, sizeof(T)));
        std::vector<T> back(values.size());
        EXPECT_EQ((table.*r)(planes, size, interleaved, back.data()), planes);
        EXPECT_TRUE(values.empty() || memcmp(values.data(), back.data(), values.size() * sizeof(T)) == 0)
            << "mode " << mode << " width " << sizeof(T);
    }
}

TEST(atom_writer, tables_come_back_in_their_bits) {
    std::mt19937 random(1);
    round_trip<short>(random, WritePlanarNumericAtomShort, &XAtomPlanerNumericTable::DecompressShort);
    round_trip<int>(random, WritePlanarNumericAtomInt, &XAtomPlanerNumericTable::DecompressInt);
    // whole numbers below 2^32: their differences are exact in double
    round_trip<double>(random, WritePlanarNumericAtomDouble, &XAtomPlanerNumericTable::DecompressDouble);
}

TEST(atom_writer, a_table_out_of_range_is_refused_before_a_byte_is_written) {
    const short one = 1;
    EXPECT_EQ(written([&](FILE* f) {
                  EXPECT_FALSE(WritePlanarNumericAtomShort(f, 256, 1, 0, 0, &one) ||
                               WritePlanarNumericAtomShort(f, 1, -1, 0, 0, &one) ||
                               WritePlanarNumericAtomShort(f, 1, 1, 4, 0, &one));
              }),
              "");
}

TEST(atom_writer, atoms_nest_and_a_failed_write_shows) {
    const test::temp_folder folder;
    const std::string path = folder.write("nested", "");
    bool failed = false;
    FILE* file = fopen(path.c_str(), "wb");
    {
        StAtomWriter outer(file, static_cast<int>(id_of("HEAD")), &failed);
        WriteUInt8(file, 200), WriteSInt8(file, -2), WriteUInt16(file, 65534), WriteSInt16(file, -3);
        {
            StAtomWriter inner(file, static_cast<int>(id_of("PROP")), &failed);
            WriteUInt32(file, 4000000000u), WriteSInt32(file, -4);
        }
        StAtomWriter last(file, static_cast<int>(id_of("CMDS")), &failed);
        WriteFloat32(file, 0.1f), WriteFloat64(file, 0.1);
    }
    fclose(file);
    EXPECT_FALSE(failed);
    EXPECT_EQ(test::read_file(path), atom("HEAD", u8(200) + u8(254) + u16(65534) + u16(65533) +
                                                      atom("PROP", u32(4000000000u) + u32(0xFFFFFFFC)) +
                                                      atom("CMDS", raw_bytes(0.1f) + raw_bytes(0.1))));

    file = fopen("/dev/full", "wb");
    setvbuf(file, nullptr, _IONBF, 0);
    { StAtomWriter atom(file, 1, &failed); }
    EXPECT_TRUE(failed && ferror(file));
    fclose(file);
    failed = false;
    file = popen("cat >/dev/null", "w");
    { StAtomWriter atom(file, 1, &failed); }
    EXPECT_TRUE(failed) << "a pipe cannot seek";
    pclose(file);
}

}  // namespace
