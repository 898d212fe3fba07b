// The navigation files, row by row, and what a stranger's file may not do.
#include "scenery/nav/nav_files.h"

#include <cmath>

#include "core/disk/files.h"
#include "core/records/con.h"
#include "nav_folder.h"
#include "scenery/nav/apt_file.h"
#include "weather/atmosphere.h"

namespace {
class nav_files_test : public test::system_test {
protected:
    test::nav_folder folder;

    std::vector<std::string> first_lines() const {
        std::vector<std::string> lines;
        for (const test::shown_alert& alert : test::alerts) lines.push_back(alert.text.line[0]);
        return lines;
    }
    int read_airports(const std::string& rows) {
        folder.write("apt.dat", "715", rows);
        return IO_apt(0, "");
    }
};

TEST_F(nav_files_test, navaids_stand_behind_those_of_the_ships) {
    folder.write(
        "nav.dat", "740",
        "2 34.5 -117.25 1000 371 50 0.0 SB  Bernardino NDB\n"
        "3 33.0 -116.0 328.084 11320 130 -13.0 PDZXQ Paradise Valley With A Very Long Name Indeed VORTAC\n"
        "4 34.0 -117.0 0 10910 18 370.0 IONT Ontario 26L ILS\n"
        "6 34.0 -117.0 0 10910 10 300260.5 IONT Ontario GS\n"
        "7 34.0 -117.0 0 77 10 80 OM Outer\n"
        "9 34.0 -117.0 0 78 10 80 IM Inner\n"
        "12 33.0 -116.0 0 11320 130 0.3 PDZ Paradise DME\n");
    ASSERT_EQ(IO_nav(0), 1);
    ASSERT_EQ(vec_nav.size(), 13u);
    const int ship_types[] = {4, 6, 12, 4, 6, 12};
    for (size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(vec_nav[i].type, ship_types[i]);
        EXPECT_EQ(vec_nav[i].frq, i < 3 ? 10800 : 10810);
        EXPECT_STREQ(vec_nav[i].nav_name, i < 3 ? "USS Enterprise" : "USS Merrow");
    }
    const vec_nav_struct& vor = vec_nav[7];
    EXPECT_STREQ(vec_nav[6].nav_id, "SB");
    EXPECT_STREQ(vec_nav[6].nav_name, "Bernardino NDB");
    EXPECT_NEAR(vor.ele, 100.0f, 0.01f);
    EXPECT_FLOAT_EQ(vor.sqr_range_deg, 15.84375f);  // 1.5 times 3.25 squared
    EXPECT_FLOAT_EQ(vor.psi_true, 347.0f);
    EXPECT_STREQ(vor.nav_id, "PDZX");
    EXPECT_STREQ(vor.nav_name, "Paradise Valley With A Very Long Name I");
    EXPECT_FLOAT_EQ(vec_nav[8].psi_true, 10.0f);
    EXPECT_FLOAT_EQ(vec_nav[9].psi_true, 300260.5f) << "slope and course of a glide slope stay packed";
    EXPECT_EQ(nav_hash.count(marker_frq), 2u);

    std::vector<int> on_frequency;
    for (auto [at, end] = nav_hash.equal_range(11320); at != end; ++at) on_frequency.push_back(at->second);
    EXPECT_EQ(on_frequency, (std::vector<int>{7, 12})) << "in the order of the table";

    set_planet_specs(1);
    EXPECT_EQ(IO_nav(0), 0);
    EXPECT_TRUE(vec_nav.empty() && nav_hash.empty()) << "Mars has no ships, and here no file";
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(nav_files_test, fixes_and_airways_are_read_up_to_the_line_99) {
    folder.write_raw("fix.dat",
                     "A\r\n600 Version\r\n\r\n  33.5 -117.5 POXKUX\r\n-1 2 A\r\n99\r\n3 4 LATE\r\n");
    ASSERT_EQ(IO_fix(0), 1);
    ASSERT_EQ(vec_fix.size(), 2u);
    EXPECT_STREQ(vec_fix[0].fix_name, "POXKU");
    EXPECT_FLOAT_EQ(vec_fix[1].lat, -1.0f);

    folder.write_raw("awy.dat",
                     "I\n640 Version\nAAA 1 2 BBB 3 4 1 120 V12\nBBB 3 4 CCC -5.5 6 2 0 J7-J8\nX 0 0 Y 0 0 3 "
                     "0 NO\nCCC 0 0 "
                     "DDD 1 1 1 90 V13");
    ASSERT_EQ(IO_awy(0), 1);
    ASSERT_EQ(vec_loa.size(), 2u) << "the last line needs no end";
    ASSERT_EQ(vec_hia.size(), 1u);
    EXPECT_EQ(vec_loa[0].awy_name, "V12");
    EXPECT_FLOAT_EQ(vec_hia[0].lat[1], -5.5f);
    EXPECT_FLOAT_EQ(vec_hia[0].lon[0], 4.0f);
    EXPECT_EQ(vec_hia[0].awy_name, "J7-J8");
}

TEST_F(nav_files_test, every_row_of_an_airport_is_stored) {
    ASSERT_EQ(read_airports("1 1000 1 0 KAAAA -City Field\n"
                            "10 34.0 -117.0 14L 150.5 5000 300.0200 100.0050 150 253241 2 7 -1 1.5 9\n"
                            "10 34.1 -117.1 xxx 0 1000 0 0 50 0 99 2 3 0 0\n"
                            "10 34.1 -117.1 xxx 0 1000 0 0 50 0 13 2 3 0 0\n"
                            "14 34.01 -117.01 100 0 Tower Viewpoint\n"
                            "15 34.02 -117.02 -90 Gate 1, by the hangar of the flying club\n"
                            "18 34.03 -117.03 1 Beacon\n"
                            "19 34.04 -117.04 1 Windsock\n"
                            "19 34.05 -117.05 0 Windsock\n"
                            "50 12345 AWOS 1\n51 12280 CTAF\n52 12190 CLNC\n53 12180 GND\n54 11890 TWR\n"
                            "55 12750 APP\n56 65536 DEP\n"
                            "16 0 0 0 WS1 Bay\n10 33 -118 18x 180 6000 0 0 300 0 13 0 0 0.1 0\n"
                            "17 50 0 0 H1 Roof\n10 33 -118 H1x 0 60 0 0 60 0 6 0 0 0 0\n"
                            "20 0 0 0 CV1 Carrier\n10 33 -118 08x 80 900 0 0 100 0 1 0 0 0 0\n"),
              1);
    ASSERT_EQ(vec_apt.size(), 4u);
    const vec_apt_struct& apt = vec_apt[0];
    EXPECT_STREQ(apt.apt_id, "KAAA");
    ASSERT_EQ(apt.rwy.size(), 3u);
    const vec_rwy_struct& rwy = apt.rwy[0];
    EXPECT_STREQ(rwy.num_str, "14L");
    ASSERT_EQ(apt.sta.size(), 1u);
    ASSERT_EQ(apt.soc.size(), 2u);
    const std::tuple<const char*, double, double> numbers[] = {
        {"tower", apt.atc_twr, 1},
        {"elevation", apt.ele, 304.8},
        {"length", rwy.len, 1524},
        {"width", rwy.width, 45.72},
        {"displaced", rwy.disp, 300.02},
        {"blast", rwy.blast, 100.005},
        {"lights", rwy.i_code, 253241},
        {"surface", rwy.surf_tex, 114},
        {"markings beyond the last", rwy.markings, 0},
        {"roughness beyond 1", rwy.roughness, 1},
        {"an unknown surface is asphalt", apt.rwy[1].surf_tex, 113},
        {"height of the tower", apt.twr_hgt, 30.48},
        {"heading of the gate", apt.sta[0].psi, 270},
        {"beacon", apt.bcn_lon, -117.03},
        {"windsock", apt.soc[0].lit, 1},
        {"AWOS", apt.int_AWOS, 12345},
        {"tower", apt.int_tower, 11890},
        {"a frequency has 16 bits", apt.int_departure, 0},
    };
    for (const auto& [what, value, expected] : numbers)
        EXPECT_NEAR(value, expected, 1e-6 * fabs(expected)) << what;
    EXPECT_EQ(apt.apt_name, " City Field");
    EXPECT_EQ(apt.sta[0].sta_name, "Gate 1, by the hangar of the flying clu");
    EXPECT_EQ(apt.str_unicom, "CTAF");
    EXPECT_EQ(apt.str_ground, "GND");
    const int types[] = {1, 16, 17, 20};
    for (size_t i = 0; i < 4; ++i) EXPECT_EQ(vec_apt[i].apt_type, types[i]);
    EXPECT_EQ(vec_apt[1].rwy[0].surf_tex, 128);
    EXPECT_EQ(vec_apt[2].rwy[0].surf_tex, 119);
    ASSERT_EQ(vec_apt[3].sta.size(), 1u) << "one without a ramp gets one";
    EXPECT_EQ(vec_apt[3].sta[0].sta_name, "Default");
    EXPECT_FLOAT_EQ(vec_apt[3].sta[0].lat, 33.0f);
    EXPECT_EQ(vec_apt[3].sta[0].psi, 0.0f);
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(nav_files_test, an_airport_of_doubtful_rows_is_told_and_kept) {
    const std::string runway = "90 3000 0 0 100 0 1 0 0 0 0\n";
    EXPECT_EQ(
        read_airports("18 80 80 1 before any runway\n"  // above the first airport: nobody's
                      "1 0 0 0 AAAA Twice\n19 80 80 1 x\n10 1 1 09L " +
                      runway + "10 1 1 09L " + runway + "10 1 1 xxx " + runway + "10 1 1 xxx " + runway +
                      "18 1.3 1.1 1 near in one way\n18 1.3 1.3 1 far\n19 0.7 1.3 0 far\n"
                      "1 0 0 0 BBBB Thin\n10 1 1 01x 10 3 0 0 3 0 1 0 0 0 0\n"
                      "1 0 0 0 CCCC Empty\n" +
                      test::airport("DDDD", "Good", 1, 1) + "1 0 0 0 EEEE Empty too\n"),
        1);
    EXPECT_EQ(first_lines(), (std::vector<std::string>{
                                 "Oops!", "Found a bad-location beacon!", "Found a bad-location windsock!",
                                 "The apt data file has a runway width  of less than 1 meter!",
                                 "The apt data file has a runway length of less than 1 meter!",
                                 "Airport found with no runways!"}));
    ASSERT_EQ(vec_apt.size(), 3u) << "without a runway an airport has no place";
    EXPECT_STREQ(vec_apt[2].apt_id, "DDDD");
    EXPECT_EQ(apt_hash.at(apt_id_key("DDDD")), 2);
}

TEST_F(nav_files_test, without_one_airport_the_default_table_is_refused) {
    for (const char* bytes :
         {"I\n714 Version\n1 0 0 0 AAAA A\n", "", "I\n715 V\n1 0 0 0 AAAA No runway\n99\n"}) {
        folder.write_raw("apt.dat", bytes);
        const alert_lines text = test::expect_fatal([] { IO_apt(0, ""); });
        EXPECT_EQ(text.line[0], "I am unable to access the airport data file!");
        EXPECT_EQ(text.line[2], ear_path + "apt.dat");
        EXPECT_TRUE(vec_apt.empty() && apt_hash.empty());
    }
    EXPECT_EQ(IO_apt(2, folder.path() + "none/apt.dat"), 0) << "a package need not have one";
}

TEST_F(nav_files_test, airports_that_no_planet_has_room_for_are_left_out) {
    const std::string row = " 09x 90.0 3000 0 0 100 111111 1 0 0 0.25 0\n";
    std::string text =
        test::airport("GOOD", "g", 10, 10) + "10 91 10" + row + "10 10000 10" + row +
        "10 10 10 27x 900000 3000 0 0 100 111111 1 0 0 0.25 0\n10 10 10 18x 90 999999999999 0 0 100 1 1 0 0 "
        "0 0\n"
        "14 95 10 20 0 Tower\n14 10 10 999999999999 0 Tower\n15 10 400 90 Ramp\n15 10 10 90 Ramp two\n"
        "18 10 -99999999999 1 Beacon\n19 -100 10 1 Sock\n";
    for (const char* ele : {"100000000000", "-999999999999999", "200000"})
        text += std::string("1 ") + ele + " 0 0 HIGH h\n10 20 20" + row;
    text += "1 100 0 0 FARR f\n10 900 20" + row;
    folder.write("apt.dat", "715", text + test::airport("LAST", "l", 30, 30));
    ASSERT_EQ(IO_apt(0, ""), 1);
    ASSERT_EQ(vec_apt.size(), 2u) << "an elevation of 1e11 ended the flight that began there";
    const vec_apt_struct& good = vec_apt[0];
    EXPECT_EQ(good.rwy.size(), 1u);
    EXPECT_EQ(good.sta.size(), 1u);
    EXPECT_EQ(good.sta[0].sta_name, "Ramp two");
    EXPECT_TRUE(good.soc.empty());
    EXPECT_TRUE(good.twr_lat == 0.0f && good.twr_hgt == 0.0f && good.bcn_typ == 0);
    EXPECT_STREQ(vec_apt[1].apt_id, "LAST");
    EXPECT_EQ(test::alerts.size(), 4u) << "each kind once";
}
}  // namespace
