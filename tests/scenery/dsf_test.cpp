// Tiles by hand: every command, every fault with its words, and what a stranger's tile may not do.
#include "scenery/decode/dsf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "scenery/decode/dsf_format.h"
#include "support.h"
#include "tile_bytes.h"

namespace {
using test::atom;
using test::f32;
using test::floats;
using test::pool;
using test::strings;
using test::tile_parts;
using test::tile_record;
using test::u16;
using test::u32;
using test::u8;
using lines = std::vector<std::string>;

// The decoder's code of a tile, and what it says.
using verdict = std::pair<int, std::string>;
verdict verdict_of(const std::string& bytes, lines* heard = nullptr) {
    testing::internal::CaptureStdout();
    const tile_record record = tile_record::of(bytes);
    if (heard) *heard = record.lines;
    return {record.error, testing::internal::GetCapturedStdout()};
}
verdict fault(int error, const std::string& words) { return {error, "DSF ERROR: " + words + "\n"}; }
const verdict good = {dsf_ErrOK, ""};

// Point i is (i, 100 + i, 200 + i ...): a scale of 0 passes raw values through.
std::string counting_pool(unsigned points, unsigned planes, int bits) {
    std::vector<std::vector<unsigned>> list(points, std::vector<unsigned>(planes));
    for (unsigned i = 0; i < points; ++i)
        for (unsigned plane = 0; plane < planes; ++plane) list[i][plane] = 100 * plane + i;
    return pool(list, planes, bits) +
           atom(bits == 16 ? "SCAL" : "SC32", floats(std::vector<double>(planes * 2, 0.0)));
}

// A tile of points and commands alone.
std::string tile_of(const std::string& geodata, const std::string& commands) {
    tile_parts tile;
    tile.properties.clear();
    tile.geodata = geodata;
    tile.commands = commands;
    return tile.bytes();
}
lines told(const std::string& geodata, const std::string& commands) {
    const tile_record record = tile_record::of(tile_of(geodata, commands));
    EXPECT_EQ(record.error, dsf_ErrOK);
    return record.lines;
}

TEST(dsf, definitions_come_in_a_fixed_order_before_the_commands) {
    tile_parts tile;
    tile.properties = strings({"sim/west", "-118", "sim/note", ""});
    tile.terrain = strings({"terrain_Water", "lib/grass.ter"});
    tile.objects = strings({"tree.obj"});
    tile.polygons = strings({"wood.for"});
    tile.networks = strings({"roads.net"});
    tile.geodata = counting_pool(1, 3, 16);
    tile.commands = u8(1) + u16(0) + u8(3) + u8(0) + u8(7) + u16(0);
    const lines expected = {"property sim/west=-118", "property sim/note=", "terrain terrain_Water",
                            "terrain lib/grass.ter",  "object tree.obj",    "polygon wood.for",
                            "network roads.net",      "object 0 0 100 200"};
    EXPECT_EQ(tile_record::of(tile.bytes()).lines, expected);
    // in another order, with atoms that nobody knows
    const tile_record shuffled = tile_record::of(tile_parts::file(
        atom("XTRA", "?") + atom("CMDS", tile.commands) + atom("GEOD", atom("XXXX", "") + tile.geodata) +
        tile.definitions() + atom("HEAD", atom("MORE", "x") + atom("PROP", tile.properties))));
    EXPECT_EQ(shuffled.error, 0);
    EXPECT_EQ(shuffled.lines, expected);
}

TEST(dsf, faults_of_a_file_are_told_in_their_order) {
    const std::string whole = tile_parts().bytes();
    EXPECT_EQ(verdict_of(whole), good);
    const std::pair<std::string, verdict> faults[] = {
        {whole.substr(0, 27), fault(dsf_ErrNoAtoms, "this file appears to not be atomic.")},
        {std::string(28, 'x'), fault(dsf_ErrNoAtoms, "this file appears to not to have any atoms.")},
        {"TARVEDSX" + u32(2) + whole.substr(12),
         fault(dsf_ErrBadCookie, "We hit a bad cookie.  Expected: 'TARVEDSF', got: 'TARVEDSX'")},
        {"TARVEDSF" + u32(2) + whole.substr(12),
         fault(dsf_ErrBadVersion, "We hit a bad version.  Expected: 1, got: 2")},
    };
    for (const auto& [bytes, told] : faults) EXPECT_EQ(verdict_of(bytes), told);

    // each taken away from the last on, so that the first one missing is the one told
    const std::pair<const char*, const char*> required[] = {
        {"NETW", "networks"},      {"POLY", "polygon defs"}, {"OBJT", "object defs"},
        {"TERT", "terrain types"}, {"PROP", "properties"},   {"CMDS", "commands"},
        {"GEOD", "geodata"},       {"DEFN", "definitions"},  {"HEAD", "metadata"}};
    std::string bytes = whole;
    for (const auto& [name, what] : required) {
        const std::string letters = name;
        bytes.replace(bytes.find(std::string(letters.rbegin(), letters.rend())), 4, "gone");
        EXPECT_EQ(verdict_of(bytes),
                  fault(dsf_ErrMissingAtom, std::string("We are missing the ") + what + " atom."));
    }

    tile_parts odd;
    odd.properties = strings({"a", "1", "b"});
    lines heard;
    EXPECT_EQ(verdict_of(odd.bytes(), &heard),
              fault(dsf_ErrBadProperties,
                    "We have an odd number of property strings.  The overhanging property is: b"));
    EXPECT_EQ(heard, lines{"property a=1"});
}

TEST(dsf, faults_of_pools_and_scales) {
    const auto verdict_of_geodata = [](const std::string& geodata) {
        return verdict_of(tile_of(geodata, ""));
    };
    const std::string point = pool({{1, 2}}, 2, 16), point_32 = pool({{1, 2}}, 2, 32);
    const std::string pairs = floats({1, 0, 1, 0});
    EXPECT_EQ(verdict_of_geodata(atom("SCAL", pairs + pairs) + atom("SCAL", "") + point), good)
        << "more than the planes need";
    EXPECT_EQ(verdict_of_geodata(counting_pool(0, 3, 16) + counting_pool(0, 7, 32)), good)
        << "pools without points need no memory";
    const std::pair<std::string, std::string> bad_scales[] = {
        {point + atom("SCAL", floats({1, 0, 1})), "We overran our 16-bit scaling atom."},
        {point_32 + atom("SC32", floats({1, 0, 1, 0, 1})), "We overran our 32-bit scaling atom."},
        {atom("SCAL", "x"), "We overran our 16-bit scaling atom."},
        {point + atom("SCAL", floats({1, 0})), "We have 1 scales for the 2 planes of 16-bit pool 0."},
        {point + point + atom("SCAL", pairs), "We have 0 scales for the 2 planes of 16-bit pool 1."},
        {point_32 + atom("SCAL", pairs), "We have 0 scales for the 2 planes of 32-bit pool 0."},
        {point + atom("SCAL", floats({1, std::numeric_limits<double>::infinity(), 1, 0})),
         "We have a scale of 16-bit pool 0 that is not a number."},
    };
    for (const auto& [geodata, said] : bad_scales)
        EXPECT_EQ(verdict_of_geodata(geodata), fault(dsf_ErrMisformattedScalingAtom, said));
    // what its bytes cannot yield, and what they yield less than
    for (const std::string& contents :
         {u32(0x7FFFFFFF) + u8(255), u32(0x80000000) + u8(1) + u8(0), std::string("abc"),
          u32(2) + u8(2) + u8(0) + u32(0) + u8(0) + u16(0),
          u32(300) + u8(1) + u8(2) + u8(0xFF) + u16(1) + u8(0x80) + u16(1) + "123"})
        EXPECT_EQ(verdict_of_geodata(atom("POOL", contents) + atom("SCAL", pairs)),
                  fault(dsf_ErrCouldNotReadFile, "We have a 16-bit pool that is cut short."));
    EXPECT_EQ(verdict_of_geodata(atom("PO32", u32(0x7FFFFFFF) + u8(255))),
              fault(dsf_ErrCouldNotReadFile, "We have a 32-bit pool that is cut short."));
    // a hundred times more than the file, in runs
    std::string runs = u32(127 * 40000) + u8(1) + u8(2);
    for (int i = 0; i < 40000; ++i) runs += u8(0xFF) + u16(1);
    std::string pools;
    for (int i = 0; i < 53; ++i) pools += atom("POOL", runs);
    EXPECT_EQ(verdict_of_geodata(pools).first, dsf_ErrOutOfMemory);
}

TEST(dsf, coordinates_are_exact) {
    const std::string geodata = pool({{65535, 0, 21845}, {1, 2, 3}}, 3, 16) + pool({{65535, 4, 5}}, 3, 16) +
                                atom("SCAL", floats({1, 45, 1, 45, 360, 0})) +
                                atom("SCAL", floats({0, 45, 0.5, -7, 0, 9})) +
                                pool({{0xFFFFFFFFu, 0, 1, 5}, {0, 0x80000000u, 2, 0x80000001u}}, 4, 32) +
                                atom("SC32", floats({2, -118, 1, 34, 0, 0, 0, 0}));
    const std::string commands = u8(1) + u16(0) + u8(8) + u16(0) + u16(1) + u8(1) + u16(1) + u8(7) + u16(0) +
                                 u8(1) + u16(0) + u8(11) + u8(2) + u32(0) + u32(1);
    const lines got = told(geodata, commands);
    ASSERT_EQ(got.size(), 5u);
    EXPECT_EQ(got[0], "object -1 46 45 120");
    EXPECT_EQ(got[1], "object -1 65535 -6.99996948 5") << "a scale of 0 takes the raw value, without offset";
    EXPECT_EQ(got[2], "segment -1 -1");
    EXPECT_EQ(got[3], "from 5 -116 34 1");
    EXPECT_EQ(got[4], "to 2147483649 -118 34.5 2");

    // edges of tiles side by side: raw 65535 and raw 0 give one number, to the last bit
    std::string edges, places;
    for (int offset = -180; offset < 180; ++offset) {
        const double scale = 1.0 / (1 << (offset + 180) % 6);
        places += u8(1) + u16(static_cast<unsigned>(offset + 180)) + u8(7) + u16(0);
        edges += pool({{65535, 0, 0}}, 3, 16) +
                 atom("SCAL", floats({scale, offset * scale, 1, (offset + 1) * scale, 0, 0}));
    }
    DSFCallbacks_t tell = test::deaf_callbacks();
    tell.AddObject_f = [](unsigned, double* c, double, void* ref) {
        *static_cast<int*>(ref) += c[0] == c[1];
    };
    int equal = 0;
    const std::string bytes = tile_of(edges, places);
    EXPECT_EQ(DSFReadMem(bytes.data(), bytes.data() + bytes.size(), &tell, &equal), dsf_ErrOK);
    EXPECT_EQ(equal, 360);
}

TEST(dsf, objects_polygons_and_their_definitions) {
    const std::string geodata = counting_pool(6, 3, 16);
    const std::string select = u8(1) + u16(0);
    EXPECT_EQ(told(geodata, select + u8(3) + u8(200) + u8(7) + u16(2) + u8(4) + u16(60000) + u8(8) + u16(4) +
                                u16(6) + u8(5) + u32(70000) + u8(8) + u16(3) + u16(3) + u8(8) + u16(3) +
                                u16(1) + u8(7) + u16(0) + u8(21) + u8(22)),
              (lines{"object 200 2 102 202", "object 60000 4 104 204", "object 60000 5 105 205",
                     "object 70000 0 100 200"}));
    const lines square = {"polygon 1 500", "winding",     "corner 3 103", "corner 4 104",
                          "corner 5 105",  "end winding", "end polygon"};
    const std::string second = select + u8(3) + u8(1);
    EXPECT_EQ(told(geodata, second + u8(12) + u16(500) + u8(3) + u16(3) + u16(4) + u16(5)), square);
    EXPECT_EQ(told(geodata, second + u8(13) + u16(500) + u16(3) + u16(6)), square);
    const lines two = {"polygon 1 7", "winding", "corner 0 100", "corner 1 101", "end winding", "winding",
                       "end winding", "winding", "corner 2 102", "end winding",  "end polygon"};
    EXPECT_EQ(
        told(geodata, second + u8(14) + u16(7) + u8(3) + u8(2) + u16(0) + u16(1) + u8(0) + u8(1) + u16(2)),
        two);
    EXPECT_EQ(told(geodata, second + u8(15) + u16(7) + u8(3) + u16(0) + u16(2) + u16(2) + u16(3)), two);
    EXPECT_EQ(told(geodata, second + u8(14) + u16(7) + u8(0)), (lines{"polygon 1 7", "end polygon"}));
}

TEST(dsf, a_chain_ends_and_begins_a_segment_at_each_inner_node) {
    // node identifiers 5 0 7 0 9, behind 1000 other points
    std::vector<std::vector<unsigned>> points(1000, {0, 0, 0, 1, 0, 0, 0});
    for (const unsigned node : {5u, 0u, 7u, 0u, 9u}) {
        const unsigned i = static_cast<unsigned>(points.size());
        points.push_back({i, i + 1, i + 2, node, i + 4, i + 5, i + 6});
    }
    const auto pool_of = [&](size_t planes) {
        return pool(points, planes, 32) + atom("SC32", floats(std::vector<double>(planes * 2, 0.0)));
    };
    const std::string pools = pool_of(4) + pool_of(7) + pool_of(6);
    const std::string start = u8(3) + u8(2) + u8(6) + u8(30) + u8(1) + u16(0);
    const lines straight = {"segment 2 30",        "from 5 1000 1001 1002", "by 1001 1002 1003",
                            "to 7 1002 1003 1004", "segment 2 30",          "from 7 1002 1003 1004",
                            "by 1003 1004 1005",   "to 9 1004 1005 1006"};
    const std::string offset = u8(2) + u32(1000);
    EXPECT_EQ(told(pools, start + offset + u8(10) + u16(0) + u16(5)), straight);
    EXPECT_EQ(told(pools, start + offset + u8(11) + u8(5) + u32(1000) + u32(1001) + u32(1002) + u32(1003) +
                              u32(1004)),
              straight)
        << "no offset is added to 32-bit points";
    EXPECT_EQ(told(pools, u8(1) + u16(0) + u8(11) + u8(1) + u32(1000)), lines{}) << "first and last at once";
    EXPECT_EQ(told(pools, u8(1) + u16(0) + u8(11) + u8(1) + u32(1001)), (lines{"by 1001 1002 1003"}));
    EXPECT_EQ(told(pools, u8(1) + u16(1) + u8(11) + u8(3) + u32(1002) + u32(1003) + u32(1004)),
              (lines{"segment -1 -1", "from 7 1002 1003 1004 1006 1007 1008",
                     "by 1003 1004 1005 1007 1008 1009", "to 9 1004 1005 1006 1008 1009 1010"}));
    EXPECT_EQ(told(pools, u8(1) + u16(2) + u8(11) + u8(1) + u32(1001)), (lines{"by 1001 1002 1003"}))
        << "six planes are no curve";
}

TEST(dsf, patches_and_primitives) {
    const std::string pools = counting_pool(4, 3, 16) + counting_pool(2, 5, 16);
    const std::string select = u8(1) + u16(0);
    EXPECT_EQ(told(pools, select + u8(3) + u8(1) + u8(16) + u8(18) + u8(1) + f32(0) + f32(40000) + u8(19) +
                              floats({1, 2, 3, 4, 5, 6}) + u8(20) + floats({7, 8, 9, 10, 11, 12}) + u8(17) +
                              u8(2) + u8(1) + u16(1) + u8(16)),
              (lines{"patch 1 -1 -1 255 st 0 0 mask 0 0 depth 3", "end patch",
                     "patch 1 0 40000 1 st 0 0 mask 0 0 depth 3", "end patch",
                     "patch 1 0 40000 2 st 1 6 mask 7 12 depth 3", "end patch",
                     "patch 1 0 40000 2 st 1 6 mask 7 12 depth 5", "end patch"}));

    for (unsigned type = 0; type < 3; ++type) {
        const unsigned first = 23 + 3 * type;
        const std::string begin = "primitive " + std::to_string(type);
        const lines line = {"patch -1 -1 -1 255 st 0 0 mask 0 0 depth 3",
                            begin,
                            "vertex 1 101 201",
                            "vertex 2 102 202",
                            "end primitive",
                            "end patch"};
        EXPECT_EQ(told(pools, select + u8(16) + u8(first) + u8(2) + u16(1) + u16(2)), line);
        EXPECT_EQ(told(pools, select + u8(16) + u8(first + 2) + u16(1) + u16(3)), line);
        lines cross = line;
        cross[2] = "vertex 1 101 201", cross[3] = "vertex 3 103 203";
        EXPECT_EQ(told(pools, select + u8(16) + u8(first + 1) + u8(2) + u16(1) + u16(1) + u16(0) + u16(3)),
                  cross)
            << "as wide as the current pool";
        EXPECT_EQ(told(pools, select + u8(first) + u8(0)), (lines{begin, "end primitive"}));
    }
}

TEST(dsf, comments_are_passed_over) {
    EXPECT_EQ(told("", u8(32) + u8(3) + "abc" + u8(33) + u16(300) + std::string(300, '\0') + u8(34) + u32(2) +
                           "xy" + u8(32) + u8(0)),
              lines{});
}

TEST(dsf, faults_of_commands) {
    const std::string pools = counting_pool(4, 5, 16) + counting_pool(4, 2, 16) + counting_pool(4, 5, 32) +
                              counting_pool(4, 3, 32) + counting_pool(0, 0, 16);
    const std::string select = u8(1) + u16(0);
    lines heard;
    const auto verdict_of_commands = [&](const std::string& commands) {
        return verdict_of(tile_of(pools, commands), &heard);
    };
    EXPECT_EQ(verdict_of_commands(u8(0)), fault(dsf_ErrBadCommand, "We hit the reserved command."));
    EXPECT_EQ(verdict_of_commands(u8(35)), fault(dsf_ErrBadCommand, "We have an unknown command 0x23"));

    // a pool, point or plane that is not there
    const std::vector<std::string> bad = test::hex_list(
        "10; 07 0000; 11 01; 01 0200 10; 01 0200 19 0000 0000; 01 0300 07 0000; 01 0000 07 0400; "
        "01 0100 07 0000; 01 0000 08 0300 0500; 0D 0000 0000 0100; 01 0000 0C 0000 01 0400; "
        "01 0000 0D 0000 0300 0500; 01 0000 0E 0000 01 01 FFFF; 01 0000 0F 0000 01 0000 0500; "
        "01 0200 0E 0000 00; 01 0200 0F 0000 00 0000; 01 0100 0B 01 00000000; "
        "01 0000 0B 01 04000000; 01 0000 02 FFFFFFFF 09 01 0000; 01 0000 02 04000000 0A 0000 0100; "
        "17 01 0000; 01 0000 17 01 0400; 01 0000 18 01 0900 0000; 01 0000 18 01 0100 0000; "
        "01 0000 18 01 0000 0400; 18 01 0000 0000; 01 0000 19 0300 0500; "
        "01 0000 10 01 0100 19 0000 0100");
    for (const std::string& commands : bad) {
        const auto [error, said] = verdict_of_commands(commands);
        EXPECT_EQ(error, dsf_ErrMisformattedCommandAtom) << said;
        EXPECT_NE(said.find("that uses a pool or point that is not there."), std::string::npos) << said;
    }
    EXPECT_EQ(verdict_of_commands(select + u8(16) + u8(23) + u8(2) + u16(0) + u16(9)),
              fault(dsf_ErrMisformattedCommandAtom,
                    "We have a command 0x17 at byte 12 of the command atom "
                    "that uses a pool or point that is not there."));
    EXPECT_EQ(heard, (lines{"patch -1 -1 -1 255 st 0 0 mask 0 0 depth 5", "primitive 0",
                            "vertex 0 100 200 300 400"}));

    // a stream that ends inside a command: the open patch is ended, nothing is told of what is not there
    const std::vector<std::string> cut = test::hex_list(
        "01 00; 02 000000; 03; 04 00; 05 000000; 06; 07 00; 08 000000; 09; 09 01 00; 0A 000000; "
        "0B; 0B 01 000000; 0C 0000; 0D 0000000000; 0E 0000; 0F 00000000; "
        "13 0000803F0000803F0000803F0000803F0000803F000080; 14 00; 17; 1A 02 000000; 18; "
        "1E 01 000000; 1F 000000; 20; 20 01; 21 0900 00; 22 FFFFFFFF 00; 22 00000080 00");
    const verdict overrun = fault(dsf_ErrMisformattedCommandAtom, "We overran the command atom.");
    for (const std::string& commands : cut) {
        EXPECT_EQ(verdict_of_commands(select + u8(16) + commands), overrun);
        EXPECT_EQ(heard, (lines{"patch -1 -1 -1 255 st 0 0 mask 0 0 depth 5", "end patch"}));
    }
    for (const std::string& patch : {u8(17), u8(18) + std::string(8, 'x')}) {
        EXPECT_EQ(verdict_of_commands(select + u8(16) + patch), overrun);
        EXPECT_EQ(heard.size(), 2u) << "the patch before it is ended once";
    }
    // polygons that had begun are ended
    for (const auto& [commands, windings] : {std::pair{u8(12) + u16(1) + u8(2) + u16(0) + "x", 1u},
                                             {u8(14) + u16(1) + u8(2) + u8(1) + u16(0), 1u},
                                             {u8(14) + u16(1) + u8(2) + u8(0) + u8(3) + u16(0), 2u},
                                             {u8(15) + u16(1) + u8(9) + u16(0) + u16(1) + "x", 1u}}) {
        EXPECT_EQ(verdict_of_commands(select + commands), overrun);
        EXPECT_EQ(std::count(heard.begin(), heard.end(), "winding"), windings);
        EXPECT_EQ(std::count(heard.begin(), heard.end(), "end winding"), windings);
        EXPECT_EQ(heard.back(), "end polygon");
    }
}

TEST(dsf, tiny_tiles_ask_for_no_more_than_a_tile_may_make) {
    const auto repeated = [](const std::string& bytes, size_t times) {
        std::string all;
        for (size_t i = 0; i < times; ++i) all += bytes;
        return all;
    };
    const auto pool_16 = counting_pool(100, 5, 16), pool_32 = counting_pool(100, 4, 32);
    const std::string select = u8(1) + u16(0) + u8(3) + u8(0);
    const struct {
        std::string command;
        size_t times;
        const char* what;
    } cases[] = {
        {u8(16), 65537, "patches"},  // empty ones take their place too
        {u8(23) + u8(0), 250001, "primitives"},
        {u8(25) + u16(0) + u16(100), 20001, "vertices"},
        {u8(8) + u16(0) + u16(100), 5001, "objects"},
        {u8(14) + u16(0) + u8(0), 250001, "polygons"},
        {u8(13) + u16(0) + u16(0) + u16(100), 10001, "polygon corners"},
        {u8(2) + u32(0) + u8(10) + u16(1) + u16(100), 20203, "road points"},
    };
    DSFCallbacks_t tell = test::deaf_callbacks();
    const auto fault_of = [&](const tile_parts& tile) {
        const std::string bytes = tile.bytes();
        testing::internal::CaptureStdout();
        const int error = DSFReadMem(bytes.data(), bytes.data() + bytes.size(), &tell, nullptr);
        return std::to_string(error) + ' ' + testing::internal::GetCapturedStdout();
    };
    for (const auto& c : cases) {
        tile_parts tile;
        tile.geodata = pool_16 + pool_32;
        tile.commands = select + repeated(c.command, c.times);
        const std::string fault = fault_of(tile);
        EXPECT_EQ(fault.rfind("2 DSF ERROR: We have more " + std::string(c.what) + " than the ", 0), 0u)
            << c.what << ": " << fault;
        tile.commands = select + repeated(c.command, c.times - 2);
        EXPECT_EQ(fault_of(tile), "0 ") << c.what;
    }
    tile_parts tile;
    tile.terrain = repeated(std::string("t\0", 2), 8193);
    EXPECT_EQ(fault_of(tile), "2 DSF ERROR: We have more definitions than the 8192 a tile may have.\n");
}

TEST(dsf, chains_begin_before_any_offset_is_set) {
    const std::string pools = counting_pool(10, 4, 32);
    const lines set = told(pools, u8(1) + u16(0) + u8(2) + u32(0) + u8(10) + u16(0) + u16(3));
    ASSERT_FALSE(set.empty());
    EXPECT_EQ(told(pools, u8(1) + u16(0) + u8(10) + u16(1) + u16(4)), set) << "the offset wraps";
    EXPECT_EQ(told(pools, u8(1) + u16(0) + u8(9) + u8(3) + u16(1) + u16(2) + u16(3)), set);
}

TEST(dsf, a_file_is_good_or_not) {
    const test::temp_folder folder;
    tile_record record;
    DSFCallbacks_t tell = tile_record::callbacks();
    EXPECT_EQ(DSFReadFile(folder.write("good.dsf", tile_parts().bytes()).c_str(), &tell, &record), 0);
    EXPECT_EQ(record.lines, lines{"property sim/west=-118"});
    testing::internal::CaptureStdout();
    for (const std::string& path : {folder.write("empty.dsf", ""), folder.path(), folder.path() + "none.dsf"})
        EXPECT_EQ(DSFReadFile(path.c_str(), &tell, &record), 1);
    testing::internal::GetCapturedStdout();
}

}  // namespace
