// The text form of an aircraft: nothing is lost either way, faults are told with their line, and the two
// programs do what they say.
#include <bit>
#include <cmath>
#include <cstring>
#include <fstream>
#include <random>

#include "aircraft/file/acf_file.h"
#include "aircraft/file/acf_layout.h"
#include "aircraft/file/acf_toml_read.h"
#include "aircraft/file/acf_toml_write.h"
#include "core/disk/files.h"
#include "sample_acf.h"
#include "support.h"

class acf_toml_test : public test::system_test {
protected:
    test::temp_folder folder;

    std::string errors(int p, const std::string& text) {
        std::string error;
        const int result = acf_from_toml(folder.write("t.toml", text), p, &error);
        EXPECT_EQ(result, error.empty());
        // messages without the path of the file
        std::string out;
        for (size_t at = 0, end; (end = error.find('\n', at)) != std::string::npos; at = end + 1)
            out += error.substr(at, end - at).substr(folder.path().size() + 7) + "\n";
        return out;
    }
    void expect_same_designers(int p, int q) {
        const auto a = acf_arrays(p), b = acf_arrays(q);
        for (size_t n = 0; n < a.size(); ++n)
            for (int r = 0; r < a[n].fields.count; ++r) {
                const veh_field_struct& row = a[n].fields.rows[r];
                if (row.role != veh_role_file) continue;
                for (int i = 0; i < a[n].count; ++i)
                    EXPECT_EQ(memcmp(a[n].first + i * a[n].size + row.offset,
                                     b[n].first + i * b[n].size + row.offset, static_cast<size_t>(row.size)),
                              0)
                        << a[n].name << "[" << i << "]." << row.name;
            }
    }
};

TEST_F(acf_toml_test, every_field_survives_with_any_value) {
    std::mt19937 random(7);
    for (int round = 0; round < 3; ++round) {
        clear_acf(0);
        for (const acf_array_struct& array : acf_arrays(0))
            for (int r = 0; r < array.fields.count; ++r) {
                const veh_field_struct& row = array.fields.rows[r];
                if (!acf_is_designers(row)) continue;
                for (int i = 0; i < array.count; ++i) {
                    if (round > 0 && random() % 2) continue;  // holes in the lists
                    unsigned char* first = array.first + i * array.size + row.offset;
                    for (int b = 0; b < row.size; b += 4) {
                        uint32_t word = random();
                        if (row.type == 'f') {  // any sign and mantissa, down to denormals, below 1e9
                            do word = random();
                            while (!(fabsf(std::bit_cast<float>(word)) < 1e9f));
                        }
                        memcpy(first + b, &word, sizeof word);
                    }
                    if (row.type == 'c') {  // behind the end of a text nothing is kept
                        const size_t size = static_cast<size_t>(row.size), used = random() % size;
                        for (size_t c = 0; c < used; ++c) first[c] |= !first[c];
                        memset(first + used, 0, size - used);
                    }
                }
            }
        for (int& type : veh[0].ins_type) type = static_cast<int>(random() % 632) - 1;
        for (veh_wing_struct& wing : veh[0].wing) wing.is_left = 0;
        veh[0].wing[33].is_left = 1;
        veh[0].in_downwash[17][9][4] = 1;
        const std::string text = acf_to_toml(0);
        ASSERT_EQ(errors(1, text), "");
        EXPECT_EQ(acf_to_toml(1), text);
        EXPECT_EQ(veh[1].in_downwash[17][9][4], 1);
        EXPECT_EQ(veh[1].wing[33].is_left, 1);
        EXPECT_EQ(veh[1].wing[40].spec_wash, veh[0].wing[40].spec_wash);
        expect_same_designers(0, 1);
        ASSERT_EQ(errors(1, acf_to_toml(0, true)), "");
        EXPECT_EQ(acf_to_toml(1), text);
    }
}

TEST_F(acf_toml_test, every_field_of_the_block_has_a_section) {
    const veh_field_list block = veh_block_list();
    for (int r = 0; r < block.count; ++r) {
        const std::string name = block.rows[r].name;
        const bool of_instruments = name.rfind("ins_", 0) == 0;
        EXPECT_EQ(acf_section_of(block.rows[r].name) != nullptr,
                  acf_is_designers(block.rows[r]) && !of_instruments)
            << name;
    }
    for (int en = 0; en < partDIM; ++en) {
        EXPECT_EQ(acf_part_index(acf_part_name(en)), en);
        EXPECT_EQ(acf_part_index(std::to_string(en)), en);
    }
    EXPECT_EQ(acf_part_index("95"), -1);
    EXPECT_EQ(acf_part_index(""), -1);
}

TEST_F(acf_toml_test, what_a_designer_writes_is_what_the_record_holds) {
    ASSERT_EQ(errors(0, sample_acf_toml), "");
    const veh_struct& v = veh[0];
    EXPECT_EQ(v.Vso_kts, 92.5f);
    EXPECT_STREQ(v.author, "J. M\xc3\xbcller \"tester\"");
    EXPECT_EQ(v.tank_xyz[1][0], 6.0f);
    EXPECT_EQ(v.engn[1].engn_type, engn_jet_hi);
    EXPECT_STREQ(v.wing[9].Rafl1, "thick.afl");
    EXPECT_STREQ(v.wing[9].Tafl0, "thin.afl");
    EXPECT_EQ(v.watt[3].watt_prt, 9);
    EXPECT_EQ(v.ins_size[1], 1.0f);
    EXPECT_EQ(v.ins_type[3], -1);
    // copies that need no table
    EXPECT_EQ(v.part[8].part_x, -2.5f);
    EXPECT_EQ(v.part[41].part_x, 4.0f);
    EXPECT_EQ(v.part[42].part_eq, 0);
    EXPECT_FALSE(std::signbit(v.part[16].part_x));
    const std::string text = acf_to_toml(0);
    EXPECT_EQ(text.find("wing1_left"), std::string::npos);
    EXPECT_NE(text.find("[surface.wing1_right]"), std::string::npos);
}

TEST_F(acf_toml_test, a_table_of_its_own_keeps_a_surface_from_being_copied) {
    const std::string right = "[surface.9]\nsemilen_SEG = 5\nels = 2\n";
    ASSERT_EQ(errors(0, right + "[surface.wing1_left]\n"), "");
    EXPECT_EQ(veh[0].wing[8].semilen_SEG, 0.0f);
    EXPECT_NE(acf_to_toml(0).find("[surface.wing1_left]\n"), std::string::npos);
    ASSERT_EQ(errors(0, right + "[surface.8]\nsemilen_SEG = 4\n"), "");
    EXPECT_EQ(veh[0].wing[8].els, 0);
}

TEST_F(acf_toml_test, stations_make_closed_rings_from_the_top_down_the_right_side) {
    ASSERT_EQ(errors(0, R"(
[body.body60]
r_dim = 10
stations = [{ z = 0 }, { z = 4, y = 1, w = 3, h = 2 }, { z = 9, y = 1, w = 3, h = 2, n = 4 }]
)"),
              "");
    const veh_part_struct& body = veh[0].part[60];
    EXPECT_EQ(body.part_eq, 1);
    EXPECT_EQ(body.s_dim, 3);
    for (int s = 1; s < 3; ++s) {
        const auto& ring = body.geo_xyz[s];
        EXPECT_EQ(ring[0][1], 3.0f);
        EXPECT_EQ(ring[2][0], 3.0f);  // the right side, half way down
        EXPECT_EQ(ring[4][1], -1.0f);
        for (int i = 0; i < 10; ++i) {
            EXPECT_EQ(ring[i][0], -ring[9 - i][0]);
            EXPECT_EQ(ring[i][1], ring[9 - i][1]);
            const double n = s == 1 ? 2 : 4;  // every point lies on its outline
            EXPECT_NEAR(pow(fabs(ring[i][0] / 3.0), n) + pow(fabs((ring[i][1] - 1.0) / 2.0), n), 1.0, 1e-5);
        }
    }
    EXPECT_EQ(body.geo_xyz[2][5][2], 9.0f);
}

TEST_F(acf_toml_test, faults_are_told_with_line_and_remedy) {
    EXPECT_EQ(errors(0, R"([speeds]
Vne = 100
m_empty = 3
Vs_kts = "x"
Vso_kts = inf
[wigs]
[surface.wing1_right]
els = 1.5
ail1 = [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11]
foil = "a name that is longer than the field has room for.afl"
trq_max_eng = 4
[surface.9]
[surface.wing2_rigt]
[body.body57]
geo_xyz = [[[0, 0, 0, 0]]]
stations = [{ z = 0 }, { q = 1 }]
[body.body58]
stations = [{ z = 0 }, { q = 1, n = 0 }]
[[gear]]
gear_type = "two"
[[door]]
slot = 20
[[instrument]]
type = 631
colour = 1
[engine]
[[weapon]]
slot = 1
[[weapon]]
slot = 1
[tanks]
num_tanks = 4294967296
[identity]
tailnum = 5
[[downwash]]
washee = "hstab_right"
)"),
              R"(2: unknown key "Vne"; did you mean "Vne_kts"?
3: unknown key "m_empty" here; it belongs into [weights]
4: Vs_kts has to be a number
5: Vso_kts has to be finite and below 1e9
6: there is no section "wigs"
7: part wing1_right is described twice
8: els has to be a whole number
9: ail1 has to be a list of up to 10 entries here
10: foil has room for 39 bytes
11: unknown key "trq_max_eng"
13: there is no part "wing2_rigt" here; did you mean "wing2_right"?
15: geo_xyz has to be a list of up to 3 entries here
16: stations and geo_xyz exclude each other
18: a station has z, y (centre), w and h (half width and height) and n (exponent), not "q"
18: the exponent n of a station has to be 0.1 or more
20: gear_type has to be one of none, skid, one, two_abreast, two_tandem, four_2x2, six_2x3, four_abreast, eight, three_abreast
21: door slots run from 0 to 19
24: instrument types run from 0 to 630
25: an instrument has type, x, y, size and slot, not "colour"
26: write [[engine]] once for each engine
29: weapon slot 1 is used twice
32: num_tanks does not fit into 32 bits
34: tailnum has to be a text in quotes
35: washer has to be the name of a surface
35: elements has to be a list of up to 10 numbers
)");
    EXPECT_EQ(errors(0, "[speeds\n").substr(0, 3), "1: ");
    std::string error;
    EXPECT_FALSE(acf_from_toml(folder.path() + "none.toml", 0, &error));
    EXPECT_FALSE(error.empty());
    EXPECT_FALSE(acf_from_toml(folder.path(), 0, &error)) << "a folder is no empty text";
}

TEST_F(acf_toml_test, what_a_load_would_cut_off_or_refuse_is_told_with_its_line) {
    std::string error;
    const auto lines = [&](const std::string& text) {
        acf_design_from_toml(folder.write("t.toml", text), 0, &error);
        return error.substr(error.find("t.toml:"));
    };
    EXPECT_EQ(lines("[identity]\ntailnum = \"N123456\"\n"), "t.toml:2: tailnum has room for 6 bytes\n");
    EXPECT_EQ(lines("[body.fuselage]\nstations = [{ z = 3 },\n{ z = 1 }]\n"),
              "t.toml:3: stations run from nose to tail: this z lies ahead of the one before\n");
    EXPECT_EQ(lines("[speeds]\nGneg = -2\n").substr(0, 22), "t.toml:2: Gneg is -2, ");
    EXPECT_EQ(lines("[[gear]]\ngear_type = 1\n[[gear]]\ngear_type = 2\n"),
              "t.toml:3: gear[1].tire_radius is 0, allowed is above 0\n");
    EXPECT_EQ(lines("[weights]\nm_empty = 9\n[surface.9]\nsemilen_SEG = 4\nels = 11\n"),
              "t.toml:5: wing[9].els is 11, allowed are 1 to 10\n");
    EXPECT_EQ(lines("[surface.wing1_right]\nsemilen_SEG = -4\n"),
              "t.toml:2: wing[9].semilen_SEG is below 0\n");
}

// -- the programs
class acf_programs_test : public acf_toml_test {
protected:
    std::string output;
    int run(const std::string& command) {
        const test::run_result result = test::run(TOOL_FOLDER + command);
        output = result.output;
        return result.status;
    }
};

TEST_F(acf_programs_test, make_and_dump_are_inverse_byte_for_byte) {
    const std::string f = folder.path();
    folder.write("in.toml", sample_acf_toml);
    ASSERT_EQ(run("acf_make --quiet --install " + f + " " + f + "in.toml " + f + "a.acf"), 0) << output;
    EXPECT_EQ(output, "");
    ASSERT_EQ(run("acf_dump " + f + "a.acf " + f + "canonical.toml"), 0) << output;
    folder.write("sub/x", "");
    ASSERT_EQ(run("acf_make --quiet --install " + f + " " + f + "canonical.toml " + f + "sub/b.acf"), 0)
        << output;
    ASSERT_EQ(run("acf_dump " + f + "sub/b.acf"), 0);
    EXPECT_EQ(output, test::read_file(f + "canonical.toml"));
    EXPECT_TRUE(test::read_file(f + "a.acf") == test::read_file(f + "sub/b.acf"));
}

TEST_F(acf_programs_test, faults_are_told_and_leave_no_file) {
    const std::string f = folder.path();
    folder.write("in.toml", "[speeds]\nVne = 3\n");
    EXPECT_EQ(run("acf_make " + f + "in.toml " + f + "a.acf"), 1);
    EXPECT_EQ(output, f + "in.toml:2: unknown key \"Vne\"; did you mean \"Vne_kts\"?\n");
    folder.write("in.toml",
                 "[speeds]\nVne_kts = 3\n[surface.wing1_right]\nels = 4\nsemilen_SEG = 4\nCroot = 1\nCtip = "
                 "1\nvarinc = 1\n");
    EXPECT_EQ(run("acf_make " + f + "in.toml " + f + "a.acf"), 1);
    EXPECT_NE(output.find("inc2 is half the wanted travel"), std::string::npos);
    EXPECT_NE(output.find("This plane has no tail number!"), std::string::npos);
    EXPECT_FALSE(std::ifstream(f + "a.acf").good());
    EXPECT_EQ(run("acf_make"), 2);
    EXPECT_EQ(run("acf_dump " + f + "in.toml"), 1);
    EXPECT_EQ(run("acf_dump --what"), 2);
    EXPECT_EQ(run("acf_make --fields"), 0);
    EXPECT_NE(output.find("semilen_SEG"), std::string::npos);
}
