// nav_import on small tables that hold every quirk of the published ones.
#include <algorithm>
#include <filesystem>

#include "core/disk/paths.h"
#include "nav_rows.h"
#include "scenery/nav/apt_file.h"
#include "scenery/nav/nav_files.h"

namespace {
namespace fs = std::filesystem;

const std::string runway_header =
    "airport_ident,length_ft,width_ft,surface,lighted,closed,le_ident,le_latitude_deg,le_longitude_deg,"
    "le_elevation_ft,le_heading_degT,le_displaced_threshold_ft,he_ident,he_latitude_deg,he_longitude_deg,"
    "he_elevation_ft,he_heading_degT,he_displaced_threshold_ft\n";
// 0.02745 degrees of a great circle of the simulator's sphere are 3055.7 m, 10,025 feet
const std::string runways =
    runway_header +
    // a city's, lighted, and a short one of turf beside it
    "\"QQAA\",10025,150,\"ASPH-G\",1,0,\"36\",10.00000,20.0,300,0,500,\"18\",10.02745,20.0,340,180,\n"
    "\"QQAA\",1000,,\"Turf, \"\"good\"\"\",0,0,\"09\",10.0,20.02,,90,,\"27\",10.0,20.02278,,270,\n"
    // twice as far apart as it is long: middle and heading hold
    "\"QQBB\",5000,100,\"GRVL\",0,0,\"09\",10.0,21.0,10,100,,\"27\",10.0,21.03,20,280,\n"
    // without the heading its name tells it
    "\"QQCC\",5000,100,\"WATER\",0,0,\"NE\",10.0,22.0,,,,\"SW\",10.0,22.03,,,\n"
    // closed, without a place, on one spot
    "\"QQDD\",5000,100,\"ASP\",1,1,\"09\",10.0,23.0,,,,\"27\",10.0,23.03,,,\n"
    "\"QQEE\",3000,100,\"ASP\",1,0,\"09\",,,,,,\"27\",,,,,\n"
    "\"QQFF\",5000,100,\"ASP\",1,0,\"09\",10.0,24.0,,,,\"27\",10.0,24.0,,,\n"
    // long identifiers whose first choices are taken
    "\"QQ-0002\",3281,100,\"CON\",0,0,\"09\",10.0,25.0,,,,\"27\",10.0,25.00912,,,\n"
    "\"QQ02\",3281,100,\"CON\",0,0,\"09\",10.0,26.0,,,,\"27\",10.0,26.00912,,,\n"
    "\"XXXX\",3281,100,\"CON\",0,0,\"09\",10.0,27.0,,,,\"27\",10.0,27.00912,,,\n"
    // an own airport, and its strip under another identifier
    "\"QQOW\",9999,100,\"CON\",0,0,\"09\",10.0,28.0,,,,\"27\",10.0,28.00912,,,\n"
    "\"KOWN\",1500,100,\"CON\",0,0,\"09\",10.0,29.0,,,,\"27\",10.0,29.00417,,,\n";
const std::string navaids =
    "\"id\",\"filename\",\"ident\",\"name\",\"type\",\"frequency_khz\",\"latitude_deg\",\"longitude_deg\","
    "\"elevation_ft\",\"iso_country\",\"dme_frequency_khz\",\"slaved_variation_deg\",\"usageType\","
    "\"power\"\r\n"
    "1,f,\"AAA\",\"Zürich, East\",\"VORTAC\",113250,10.1,20.1,500,\"CH\",113250,3.5,\"BOTH\",\"HIGH\"\r\n"
    "2,f,\"BB\",\"Ndb\",\"NDB\",412,10.2,20.2,,\"CH\",,,\"LO\",\"LOW\"\r\n"
    "3,f,\"CC\",\"No channel\",\"NDB\",-1,10.2,20.2,,\"CH\",,,\"LO\",\"LOW\"\r\n"
    "4,f,\"DDD\",\"Short of a digit\",\"VOR-DME\",11495,10.3,20.3,9,\"CH\",,-2,\"LO\",\"LOW\"\r\n"
    "5,f,\"EEE\",\"Soldiers\",\"TACAN\",133600,10.3,20.3,9,\"CH\",,,\"LO\",\"LOW\"\r\n";
const std::string frequencies =
    "\"id\",\"airport_ref\",\"airport_ident\",\"type\",\"description\",\"frequency_mhz\"\n"
    "1,1,\"QQAA\",\"CTAF\",\"TRAFFIC\",122.8\n2,1,\"QQAA\",\"UNIC\",\"UNICOM\",122.975\n"
    "3,1,\"QQAA\",\"TWR\",\"TOWER "
    "ÉTÉ\",119.1\n4,1,\"QQAA\",\"ATIS\",,124.175\n5,1,\"QQAA\",\"A/D\",\"APP\",125.35\n"
    "6,1,\"QQAA\",\"GND\",\"MILITARY\",275.8\n7,7,\"QQ-0002\",\"UNIC\",\"U\",123\n";
const std::string own_airports =
    "[[airport]]\nid = \"QQOW\"\nname = \"Mine\"\nelevation = 7\n[[airport.runway]]\nname = \"09\"\n"
    "centre = [10, 28]\nheading = 90\nlength = 1234\nwidth = 50\n"
    "[[airport]]\nid = \"OWN\"\nname = \"Mine too\"\nelevation = 7\n[[airport.runway]]\nname = \"09\"\n"
    "centre = [10, 29.002]\nheading = 90\nlength = 1500\nwidth = 50\n";

class nav_import : public test::system_test {
protected:
    void SetUp() override {
        system_test::SetUp();
        fs::create_directories(install + "Resources/Preferences");
        write("runways.csv", runways);
        write("navaids.csv", navaids);
        write("airport-frequencies.csv", frequencies);
        own = folder.write("own.toml", own_airports);
    }
    void write(const std::string& name, const std::string& text) {
        fs::create_directories(folder.path() + "csv");
        folder.write("csv/" + name, text);
    }
    int import(const std::string& more = "") {
        const test::run_result r = test::run(TOOL_FOLDER "nav_import " + folder.path() + "csv --out " +
                                             install + " --own " + own + more);
        output = r.output;
        return r.status;
    }
    bool said(const std::string& text) const { return output.find(text) != std::string::npos; }
    void load() {
        init_paths(install);
        ASSERT_EQ(IO_apt(0, ""), 1);
        ASSERT_EQ(IO_nav(0), 1);
        ASSERT_EQ(IO_fix(0), 1);
        ASSERT_EQ(IO_awy(0), 1);
        for (const test::shown_alert& alert : test::alerts) ADD_FAILURE() << alert.text.line[0];
    }
    static const vec_apt_struct& airport(const std::string& id) {
        static const vec_apt_struct none;
        for (const vec_apt_struct& a : vec_apt)
            if (id == a.apt_id) return a;
        ADD_FAILURE() << "no airport " << id;
        return none;
    }
    std::string table(const char* name) const { return install + "Resources/Earth nav data/" + name; }
    test::temp_folder folder;
    const std::string install = folder.path() + "install/";
    std::string own, output;
};
}  // namespace

TEST_F(nav_import, rows_become_runways_by_the_rules) {
    ASSERT_EQ(import(), 0) << output;
    load();
    const vec_apt_struct& city = airport("QQAA");
    ASSERT_GE(city.rwy.size(), 2u);
    EXPECT_NEAR(city.rwy[0].lat, 10.013725, 1e-5);
    EXPECT_NEAR(std::remainder(city.rwy[0].psi_true, 360), 0, 0.01);
    EXPECT_NEAR(city.rwy[0].len, 10025 * 0.3048, 0.2);
    EXPECT_NEAR(city.rwy[0].disp, 500, 0.001);
    EXPECT_STREQ(city.rwy[0].num_str, "36x");
    EXPECT_EQ(city.rwy[0].surf_tex, 113);
    EXPECT_EQ(city.rwy[1].surf_tex, 115);
    EXPECT_NEAR(city.ele, 320 * 0.3048, 0.2);
    EXPECT_NE(city.rwy[0].i_code, 111111);
    EXPECT_EQ(city.rwy[1].i_code, 111111);
    const vec_apt_struct& rebuilt = airport("QQBB");
    EXPECT_NEAR(rebuilt.rwy[0].lon, 21.015, 1e-4);
    EXPECT_NEAR(rebuilt.rwy[0].psi_true, 100, 0.01);
    EXPECT_NEAR(rebuilt.rwy[0].len, 1524, 0.2);
    EXPECT_EQ(rebuilt.rwy[0].surf_tex, 117);
    const vec_apt_struct& water = airport("QQCC");
    EXPECT_EQ(water.apt_type, 16);
    EXPECT_NEAR(water.rwy[0].psi_true, 45, 4) << "by its name, less a variation of a few degrees";
    EXPECT_EQ(airport("QQOW").apt_name, "Mine");
    EXPECT_NEAR(airport("QQOW").rwy[0].len, 1234 * 0.3048, 0.2);
    for (const vec_apt_struct& a : vec_apt)
        for (const char* gone : {"QQDD", "QQEE", "QQFF", "KOWN", "XXXX"}) EXPECT_STRNE(a.apt_id, gone);
    EXPECT_TRUE(said("12 rows; 9 used at 8 airports, 3 of them rebuilt")) << output;
    EXPECT_TRUE(said("1 closed, 1 without a place, 1 no runways")) << output;
    EXPECT_TRUE(said("2 airports are hand-made")) << output;
}

TEST_F(nav_import, long_identifiers_become_free_ones_and_are_told) {
    ASSERT_EQ(import(), 0) << output;
    load();
    EXPECT_NEAR(airport("QQ02").rwy[0].lon, 26.0046, 0.001) << "who has four letters keeps them";
    EXPECT_TRUE(said("QQ-0002    QQ03")) << output;
    EXPECT_EQ(airport("QQ03").int_unicom, 12300);
    EXPECT_TRUE(said("XXXX       XX00")) << output;
}

TEST_F(nav_import, frequencies_and_aids_are_those_that_radios_tune) {
    ASSERT_EQ(import(), 0) << output;
    load();
    const vec_apt_struct& city = airport("QQAA");
    EXPECT_EQ(city.atc_twr, 1);
    EXPECT_EQ(city.int_tower, 11910);
    EXPECT_EQ(city.str_tower, "TOWER ETE");
    EXPECT_EQ(city.int_AWOS, 12417);
    EXPECT_EQ(city.int_unicom, 12297) << "a unicom goes before a common frequency";
    EXPECT_EQ(city.int_approach, 12535);
    EXPECT_NE(city.int_ground, 27580);
    std::string aids;
    for (const test::aid_row& r : test::aid_rows(table("nav.dat")))
        if (r.type == 2 || r.type == 3)
            aids +=
                std::to_string(r.frq) + " " + std::to_string(std::lround(10 * r.psi)) + " " + r.name + "; ";
    EXPECT_EQ(aids, "412 0 Ndb; 11495 3580 Short of a digit; 11325 35 Zurich, East; ");
    EXPECT_EQ(std::count_if(vec_nav.begin(), vec_nav.end(),
                            [](const auto& a) { return a.type == 4 && a.nav_id[0] == 'I'; }),
              2)
        << "one for each end of the city's runway";
}

TEST_F(nav_import, the_list_of_airports_adds_names_kinds_and_places) {
    write("airports.csv",
          "\xEF\xBB\xBFid,ident,type,name,latitude_deg,longitude_deg,elevation_ft\n"
          "1,QQAA,large_airport,\"Ångström \"\"A\"\" International Airport, very long name that goes "
          "on\",10.01,20,333\n"
          "2,QQEE,small_airport,Field,-20,30,44\n3,QQCC,seaplane_base,Lake,10,22,\n");
    ASSERT_EQ(import(), 0) << output;
    load();
    EXPECT_EQ(airport("QQAA").apt_name, "Angstrom \"A\" Intl Airport, very long");
    EXPECT_NEAR(airport("QQAA").ele, 333 * 0.3048, 0.01);
    EXPECT_NEAR(airport("QQEE").rwy[0].lat, -20, 1e-4);
    EXPECT_NEAR(airport("QQEE").rwy[0].len, 3000 * 0.3048, 0.2);
    EXPECT_EQ(airport("QQCC").apt_type, 16);
}

TEST_F(nav_import, never_loses_a_table) {
    fs::create_directories(install + "Resources/Earth nav data");
    folder.write("install/Resources/Earth nav data/apt.dat", "I\n715 Mine\n99\n");
    ASSERT_EQ(import(), 0) << output;
    EXPECT_EQ(test::read_file(table("apt.dat.old1")), "I\n715 Mine\n99\n");
    const std::string first = test::read_file(table("apt.dat"));
    ASSERT_EQ(import(), 0) << output;
    EXPECT_EQ(test::read_file(table("apt.dat.old1")), "I\n715 Mine\n99\n");
    EXPECT_EQ(test::read_file(table("apt.dat.old2")), first);
    for (const auto& entry : fs::directory_iterator(install + "Resources/Earth nav data"))
        EXPECT_EQ(entry.path().string().find(".new"), std::string::npos);
}

TEST_F(nav_import, tells_what_is_wrong_and_leaves_the_tables) {
    const auto refused = [&](int status, const std::string& text) {
        EXPECT_EQ(import(), status) << output;
        EXPECT_TRUE(said(text)) << output;
        EXPECT_FALSE(fs::exists(table("apt.dat")));
    };
    write("navaids.csv", "id,ident\n1,A\n");
    refused(1, "navaids.csv has no column \"name\"");
    fs::remove(folder.path() + "csv/runways.csv");
    refused(1, "runways.csv: No such file");
    write("runways.csv", runways);
    own = folder.write("own.toml", "[[airport]]\nid = 5\n");
    refused(1, "own.toml:2");
    EXPECT_EQ(test::run(TOOL_FOLDER "nav_import").status, 2);
    EXPECT_EQ(test::run(TOOL_FOLDER "nav_import x --out " + folder.path() + "nowhere").status, 2);
}

TEST_F(nav_import, torn_and_absurd_rows_do_no_harm) {
    write("runways.csv",
          runway_header + "\"QQZZ\",1e999,-5,\"\",1,0,\"99\",nan,inf,,,,,,,,,\n" +
              "\"QQZY\",99999999999,1e30,,1,0,,10,20,1e40,-9,1e20,\"\",10.01,20.01,,,\n\"unclosed");
    EXPECT_EQ(import(), 0) << output;
    load();
}
