// Aircraft files: bytes on disk against the record, both byte orders, and what is refused.
#include "aircraft/file/acf_file.h"

#include <cmath>
#include <cstring>

#include "aircraft/file/acf_fault.h"
#include "aircraft/file/acf_range.h"
#include "aircraft/file/acf_toml_read.h"
#include "aircraft/io_acf.h"
#include "core/program/logs.h"
#include "sample_acf.h"
#include "support.h"

// A file built by hand, in either byte order, from the offsets of the format alone.
struct image {
    bool big;
    std::string bytes = std::string(1409905, '\0');

    explicit image(bool big_endian = false) : big(big_endian) {
        bytes[0] = big ? 'a' : 'i';
        word(1, 8000);
        text(5 + 1012, "N1");
        real(5 + 2120, 163.0f);     // Vne_kts
        real(5 + 136336, 1500.0f);  // m_empty
        real(5 + 136348, 2400.0f);  // m_max
    }
    void word(size_t at, uint32_t value) {
        for (size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>(value >> 8 * (big ? 3 - i : i));
    }
    void real(size_t at, float value) {
        uint32_t bits;
        memcpy(&bits, &value, sizeof bits);
        word(at, bits);
    }
    void surface(size_t en, float Croot, float Ctip, float sweep) {
        word(wing + en * 1740 + 172, 2);
        real(wing + en * 1740 + 176, Croot);
        real(wing + en * 1740 + 180, Ctip);
        real(wing + en * 1740 + 184, 5);
        real(wing + en * 1740 + 220, sweep);
    }
    void text(size_t at, const std::string& value) { bytes.replace(at, value.size(), value); }

    static constexpr size_t engn = 157149, wing = 158429, part = 255869, gear = 1396249, watt = 1397329,
                            door = 1399057, sbrk = 1408097;
};

class acf_file_test : public test::system_test {
protected:
    test::temp_folder folder;

    void put_path(int p, const std::string& path) { strcpy(veh[p].path, path.c_str()); }
    int load(int p, const std::string& bytes, const std::string& name = "x.acf") {
        put_path(p, folder.write(name, bytes));
        strcpy(veh[p].name, "kept");
        return IO_acf(0, p, 0);
    }
};

TEST_F(acf_file_test, either_byte_order_gives_the_same_numbers_and_texts) {
    for (const bool big : {false, true}) {
        image file(big);
        file.text(5 + 12, "name in the file");
        file.text(5 + 512, "path:in:the:file");
        file.real(5 + 8860 + 4 * 299, -7.5f);          // ins_y[299]
        file.real(image::engn + 7 * 160 + 156, 3.5f);  // engn[7].bladesweep[9]
        file.text(image::wing + 9 * 1740 + 132, "a name of thirty-nine letters, no less.afl_");
        file.word(image::wing + 9 * 1740 + 172, 6);                   // els
        file.real(image::part + 94 * 12004 + 8764 + 4 * 719, 0.25f);  // st[19][17][1]
        file.real(image::gear + 9 * 108 + 36, 0.5f);                  // tire_radius
        file.text(image::watt + 23 * 72, "rack.wpn");
        file.word(image::sbrk + 3 * 452, 3);

        ASSERT_TRUE(load(0, file.bytes)) << big;
        const veh_struct& v = veh[0];
        EXPECT_STREQ(v.name, "kept");
        EXPECT_EQ(v.path, folder.path() + "x.acf");
        EXPECT_EQ(v.Vne_kts, 163.0f);
        EXPECT_EQ(v.ins_y[299], -7.5f);
        EXPECT_EQ(v.engn[7].bladesweep[9], 3.5f);
        EXPECT_STREQ(v.wing[9].Tafl1, "a name of thirty-nine letters, no less.");
        EXPECT_EQ(v.wing[9].els, 6);
        EXPECT_EQ(v.part[94].st[19][17][1], 0.25f);
        EXPECT_EQ(v.gear[9].tire_radius, 0.5f);
        EXPECT_STREQ(v.watt[23].watt_name, "rack.wpn");
        EXPECT_EQ(v.sbrk[3].type, door_passage);
        EXPECT_EQ(v.cockpit_M_inn, -1);  // no such object beside it
    }
}

TEST_F(acf_file_test, a_written_file_is_the_record_without_the_place_it_was_written_to) {
    std::string error;
    ASSERT_TRUE(acf_from_toml(folder.write("sample.toml", sample_acf_toml), 1, &error)) << error;
    const veh_struct before = veh[1];
    put_path(1, folder.path() + "OUT.ACF");
    strcpy(veh[1].name, "OUT.ACF");
    ASSERT_TRUE(IO_acf(1, 1, 0));
    EXPECT_EQ(veh[1].path, folder.path() + "OUT.ACF");

    const std::string bytes = test::read_file(folder.path() + "OUT.acf");
    ASSERT_EQ(bytes.size(), static_cast<size_t>(acf_file_size));
    EXPECT_EQ(bytes.substr(0, 5), std::string("i\x40\x1f\0\0", 5));
    EXPECT_EQ(bytes.substr(5 + 12, 1000), std::string(1000, '\0'));
    EXPECT_EQ(bytes.substr(5 + 2120, 4), std::string("\0\0\xa5\x43", 4));  // 330 kt
    EXPECT_EQ(bytes.substr(image::watt + 3 * 72, 9), std::string("tank.wpn\0", 9));
    EXPECT_EQ(bytes.substr(image::sbrk, 8), std::string("\1\0\0\0\0\0\xc0\x40", 8));  // type 1, area 6

    put_path(2, folder.path() + "OUT.acf");
    ASSERT_TRUE(acf_read_record(2));
    EXPECT_EQ(memcmp(&veh[2], &before, veh_block_size), 0);
    EXPECT_EQ(memcmp(veh[2].wing, before.wing, sizeof before.wing), 0);
    EXPECT_EQ(memcmp(veh[2].part, before.part, sizeof before.part), 0);

    put_path(1, folder.path() + "none:x.acf");
    EXPECT_FALSE(IO_acf(1, 1, 0));
    EXPECT_EQ(test::alerts.size(), 1u);
}

TEST_F(acf_file_test, a_failed_read_leaves_no_trace_of_the_aircraft_before) {
    for (const std::string& bytes : {std::string(), std::string("i\x40\x1f"), std::string("I\n8000\n"),
                                     std::string("i\x45\x1f\0\0", 5) + std::string(5000, 'x')}) {
        ASSERT_TRUE(load(0, image().bytes));
        EXPECT_FALSE(load(0, bytes));
        EXPECT_EQ(veh[0].Vne_kts, 0.0f);
        EXPECT_STREQ(veh[0].name, "kept");
        EXPECT_EQ(veh[0].ott_asi_ratio, 0.04f);  // what follows from an empty record stands
    }
    put_path(0, folder.path() + "none.acf");
    EXPECT_FALSE(IO_acf(0, 0, 0));
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(acf_file_test, a_short_file_is_zero_behind_its_end) {
    image file;
    file.word(image::part + 60 * 12004, 1);
    file.bytes.resize(image::wing);
    ASSERT_TRUE(load(0, file.bytes));
    EXPECT_EQ(veh[0].Vne_kts, 163.0f);
    EXPECT_EQ(veh[0].part[60].part_eq, 0);
    file.bytes.resize(5 + 2000);  // now even the masses are gone
    EXPECT_EQ(test::expect_fatal([&] { load(0, file.bytes); }).line[0], "You entered a Vne of zero!");
}

TEST_F(acf_file_test, fields_out_of_range_are_refused_and_named) {
    const struct {
        void (*spoil)(image&);
        const char* named;
    } breaches[] = {
        {[](image& f) { f.word(5 + 10060, 9); }, "num_engines is 9, allowed are 0 to 8"},
        {[](image& f) { f.word(5 + 10060, 2); }, "num_thrustpoints is 0, allowed are 2 to 8"},
        {[](image& f) { f.word(5 + 10568, 10); }, "flap_detents"},
        {[](image& f) { f.word(5 + 5260 + 4 * 17, 631); }, "ins_type[17]"},
        {[](image& f) { f.word(image::engn + 3 * 160, 9); }, "engn[3].engn_type"},
        {[](image& f) { f.word(image::gear + 108, static_cast<uint32_t>(-1)); }, "gear[1].gear_type is -1"},
        {[](image& f) { f.word(image::door, 4); }, "door[0].type"},
        {[](image& f) { f.word(image::part + 20, 95); }, "part[0].patt_prt"},
        {[](image& f) { f.word(image::part + 94 * 12004 + 120, 19); }, "part[94].r_dim"},
        {[](image& f) { f.real(image::wing + 18 * 1740 + 184, 5); },
         "wing[18].els is 0, allowed are 1 to 10"},
        {[](image& f) {
             f.real(image::wing + 8 * 1740 + 184, 5);  // the left wing takes its count from the right
             f.word(image::wing + 9 * 1740 + 172, 11);
         },
         "wing[9].els is 11"},
        {[](image& f) { f.text(image::wing + 30 * 1740 + 92, "a/../../x.afl"); }, "airfoil name of wing[30]"},
        {[](image& f) { f.text(image::watt + 72, ".."); }, "watt[1].watt_name"},
        {[](image& f) { f.real(5 + 136336, 2.0f); }, "m_empty"},
        {[](image& f) { f.word(5 + 136448, 1); }, "Jxx_unitmass"},
        // once flown, into divisions by zero
        {[](image& f) { f.surface(18, 0.0f, 1.0f, 0.0f); }, "wing[18].Croot is 0, allowed is above 0"},
        {[](image& f) { f.surface(9, 1.0f, 1.0f, 95.0f); }, "wing[9].sweep1 is 95, allowed is -85 to 85"},
        {[](image& f) {
             f.word(5 + 10060, 1);  // a piston engine
             f.word(5 + 10064, 1);
             f.surface(0, 1.0f, 1.0f, 0.0f);
         },
         "engn[0].num_blades is 0, allowed is 1 and more"},
        {[](image& f) { f.word(image::gear + 2 * 108, 2); }, "gear[2].tire_radius is 0, allowed is above 0"},
        {[](image& f) { f.real(5 + 2128, -1.5f); }, "Gneg is -1.5"},
        {[](image& f) {
             f.word(5 + 10060, 1);
             f.word(5 + 10064, 1);
             f.word(image::engn, 5);
             f.real(5 + 10080, 3.0f);
         },
         "idle_rat is 3, allowed is 0 to 2"},
    };
    for (const auto& b : breaches) {
        image file;
        b.spoil(file);
        deverr.open(folder.path() + "dev");
        EXPECT_FALSE(load(0, file.bytes)) << b.named;
        deverr.close();
        const std::string told = test::read_file(folder.path() + "dev");
        EXPECT_NE(told.find(b.named), std::string::npos) << b.named << " in " << told;
        EXPECT_NE(told.find(folder.path() + "x.acf"), std::string::npos);
        EXPECT_EQ(veh[0].Vne_kts, 0.0f);
    }

    for (const float bad : {NAN, INFINITY, -1e9f}) {
        for (const size_t at :
             {size_t{5 + 2092}, image::wing + 8 * 1740 + 284, image::part + 5 * 12004 + 124 + 4 * 59}) {
            image file;
            file.real(at, bad);
            EXPECT_FALSE(load(0, file.bytes));
        }
        // in what a load derives it means nothing
        image file;
        file.real(5 + 10152, bad);
        EXPECT_TRUE(load(0, file.bytes));
        EXPECT_EQ(veh[0].trq_max_eng, 0.0f);
    }
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(acf_file_test, a_part_that_is_not_there_may_hold_anything) {
    image file;
    file.word(image::wing + 30 * 1740 + 172, 0x7fffffff);
    file.word(image::part + 30 * 12004 + 116, 0x80000000);
    file.word(image::wing + 17 * 1740 + 172, 500);
    EXPECT_TRUE(load(0, file.bytes));
}

TEST_F(acf_file_test, a_strangers_faulty_design_is_a_warning_once_and_leaves_the_slot_empty) {
    image file;
    file.real(5 + 2120, 0.0f);
    EXPECT_FALSE(load(3, file.bytes, "faulty.acf"));
    EXPECT_FALSE(load(4, file.bytes, "faulty.acf"));
    ASSERT_EQ(test::alerts.size(), 1u);
    EXPECT_EQ(test::alerts[0].type, alert_message);
    EXPECT_EQ(test::alerts[0].text.line[0], "You entered a Vne of zero!");
    EXPECT_EQ(veh[3].m_empty, 0.0f);
    EXPECT_EQ(veh[3].path, folder.path() + "faulty.acf");
    EXPECT_TRUE(acf_was_faulty(folder.path() + "faulty.acf"));
    EXPECT_FALSE(acf_was_faulty(folder.path() + "x.acf"));
    EXPECT_EQ(test::expect_fatal([&] { load(0, file.bytes, "faulty.acf"); }).line[3],
              "Fix this problem in Hullwright. The plane in question is: " + folder.path() + "faulty.acf");
}
