// nav_info as its users meet it: a small world of tables written by hand, its text, and the plan's pixels.
#include "read_png.h"
#include "support.h"

namespace {
using test::find_colour;

// One degree of the sphere is 111,319 m: 0.01 degrees north or south is 1113 m. Runway 09/27 lies on the
// equator, 10,000 by 200 feet of concrete; 18/36 is grass beside its western end; 09W/27W is water in the
// south.
constexpr const char* airports = R"(I
715 test

1 1000 1 0 KTST Test Field
10 0.0 30.0 09x 90.0 10000 500.0300 0.0200 200 334223 2 0 3 0.25 1
10 -0.012 29.99 18x 180.0 3000 0.0 0.0 150 111111 3 0 0 0.25 0
10 -0.02 30.01 09W 90.0 4000 0.0 0.0 300 111111 13 0 0 0.25 0
10 0.005 30.01 H1x 0.0 60 0.0 0.0 60 111111 7 0 0 0.25 0
10 0.004 30.0 xxx 90.0 5000 0.0 0.0 75 161161 1 0 0 0.25 0
14 0.006 30.0 100 0 Tower
15 0.005 29.995 180.0 North Ramp
18 0.007 30.0 1 BCN
19 0.003 29.99 1 WS
50 12675 ATIS
54 11990 TEST TWR
1 20 0 0 KTWO Second
10 1.0 31.0 01L 10.0 2000 0.0 0.0 60 111111 4 0 0 0.25 0
99
)";
constexpr const char* navaids = R"(I
740 test
2 0.1 30.0 50 350 50 0 TST TEST LOCATOR
3 0.0 30.5 1400 11220 130 -15.0 TST TEST VOR
4 0.0 30.017 1000 10930 18 90.0 ITST KTST 09 ILS
6 0.0 29.99 1000 10930 10 300090.0 ITST KTST 09 GS
7 0.0 29.92 1000 0 2 90.0 ITST KTST OM
12 0.0 30.017 1000 10930 18 0.4 ITST KTST DME
99
)";
constexpr const char* fixes = "I\n600 test\n0.5 30.5 BIRDY\n1.0 30.5 CACTI\n99\n";
constexpr const char* airways =
    "I\n640 test\nBIRDY 0.5 30.5 CACTI 1.0 30.5 1 5 V8\nTST 0.0 30.5 BIRDY 0.5 30.5 1 5 V8-V21\n"
    "TST 0.0 30.5 CACTI 1.0 30.5 2 180 J5\n99\n";

class nav_info : public ::testing::Test {
protected:
    void SetUp() override {
        put("apt.dat", airports), put("nav.dat", navaids), put("fix.dat", fixes), put("awy.dat", airways);
    }
    void put(const std::string& name, const std::string& text, const std::string& planet = "Earth") {
        folder.write("Resources/" + planet + " nav data/" + name, text);
    }
    test::run_result ask(const std::string& words) {
        return test::run(TOOL_FOLDER "nav_info --folder " + folder.path() + " " + words);
    }
    void expect_words(const std::string& words, const std::vector<std::string>& expected) {
        const test::run_result result = ask(words);
        EXPECT_EQ(result.status, 0) << result.output;
        for (const std::string& text : expected)
            EXPECT_NE(result.output.find(text), std::string::npos) << text << "\nin\n" << result.output;
    }
    const test::temp_folder folder;
};
}  // namespace

TEST_F(nav_info, tells_of_an_airport) {
    // 10,000 feet less 500 of the first end and 300 of the second; lights digit by digit, each 1 more
    expect_words(
        "ktst",
        {"KTST  Test Field", "land airport, with a controller", "elevation 1000 ft (305 m)",
         "09/27  3048 x 61 m (10000 x 200 ft), concrete, precision markings, distance signs",
         "threshold 152 m (500 ft) in, 2896 m (9500 ft) to land, ILS localizer ITST",
         "threshold 91 m (300 ft) in, 2957 m (9700 ft) to land, blast pad 61 m (200 ft)",
         "edge lights and threshold rows, four-light slope lights, long approach lights with flashes",
         "18/36  914 x 46 m (3000 x 150 ft), grass", "no lights", "H1  18 x 18 m (60 x 60 ft), concrete pad",
         "Other pavement: 1 piece\n", "weather    126.75  ATIS", "tower      119.90  TEST TWR",
         "slope 3.00 degrees", "NDB  TST  350 kHz", "North Ramp", "Windsocks: 1"});
}

TEST_F(nav_info, knows_the_airports_of_packages) {
    folder.write("Custom Scenery/mine/Earth nav data/apt.dat",
                 "I\n715 test\n\n1 77 1 0 KTST My Own Field\n"
                 "10 0.0 30.0 09x 90.0 5000 0.0 0.0 200 334223 2 0 0 0.25 0\n99\n");
    expect_words("KTST --type apt", {"KTST  My Own Field", "elevation 77 ft"});
    expect_words("KTWO --type apt", {"KTWO  Second"});
}

// The equator at 30 degrees east has an easterly variation of nearly 2 degrees: a compass shows less.
TEST_F(nav_info, turns_true_headings_to_magnetic_ones) {
    expect_words("KTST --type apt", {"09  090 true, 088 magnetic", "27  270 true, 268 magnetic"});
    put("apt.dat", airports, "Mars");
    expect_words("KTST --mars", {"09  090 true, 090 magnetic"});
}

TEST_F(nav_info, tells_of_aids_fixes_and_airways) {
    // one degree is 60.1 nautical miles of this sphere
    expect_words("TST",
                 {"NDB, 350 kHz, range 50 nm", "VOR, 112.20 MHz, range 130 nm", "Radials turned 15.0 W",
                  "V8-V21  low, to BIRDY  30.1 nm, 360 true", "J5  high, to CACTI  60.1 nm"});
    expect_words("itst --type gls", {"Slope 3.00 degrees, course 090 true"});
    expect_words("itst", {"Bias 0.4 nm", "outer marker, 75 MHz", "Course 090 true"});
    expect_words("BIRDY", {"BIRDY  fix", "V8  low, to CACTI", "V8-V21  low, to TST"});
    EXPECT_EQ(ask("TST --type vor").output.find("NDB"), std::string::npos);
}

TEST_F(nav_info, follows_an_airway_from_end_to_end) {
    const std::string text = ask("V8").output;
    const size_t first = text.find("TST"), second = text.find("BIRDY"), third = text.find("CACTI");
    const bool there = first < second && second < third && third != std::string::npos;
    const bool back = third < second && second < first && first != std::string::npos;
    EXPECT_TRUE(there || back) << text;
    EXPECT_EQ(ask("V21").output.find("CACTI"), std::string::npos);
}

TEST_F(nav_info, draws_the_plan_to_scale) {
    const std::string file = folder.path() + "plan.png";
    ASSERT_EQ(ask("KTST --picture " + file).status, 0);
    const test::picture plan = test::read_png(file);
    ASSERT_GT(plan.dx, 1000);
    const auto concrete = find_colour(plan, 0x7d8187), grass = find_colour(plan, 0x86a86c),
               water = find_colour(plan, 0x86b4d6);
    // 09/27 lies across, 18/36 upright and to the south-west of it, water further south
    const double length = concrete.x2 - concrete.x1, per_metre = length / 3048.0;
    EXPECT_GT(length, 0.7 * plan.dx);
    EXPECT_NEAR(grass.y2 - grass.y1, 914.4 * per_metre, 4.0);
    EXPECT_NEAR(grass.x2 - grass.x1, 45.7 * per_metre, 3.0);
    EXPECT_NEAR(0.5 * (grass.x1 + grass.x2 - concrete.x1 - concrete.x2), -1113.2 * per_metre, 4.0);
    EXPECT_NEAR(0.5 * (grass.y1 + grass.y2 - water.y1 - water.y2), -890.6 * per_metre, 6.0);
    EXPECT_NEAR(water.x2 - water.x1, 1219.2 * per_metre, 5.0);
    EXPECT_NEAR(water.count, 1219.2 * 91.4 * per_metre * per_metre, 0.15 * water.count);
    // the blast pad of 200 feet lies outside the eastern end
    const auto pad = find_colour(plan, 0xc2b06a);
    EXPECT_GE(pad.x1, concrete.x2);
    EXPECT_NEAR(pad.x2 - pad.x1, 61.0 * per_metre, 3.0);
    EXPECT_GT(find_colour(plan, 0x1f4e9c).count, 40) << "ramp";
    EXPECT_GT(find_colour(plan, 0x9c2f2a).count, 100) << "tower, beacon, windsock";
    EXPECT_GT(find_colour(plan, 0x2f8f5b).count, 20) << "localizer";
}

TEST_F(nav_info, says_what_is_wrong) {
    const auto fails = [&](const std::string& words, int status, const std::string& text) {
        const test::run_result result = ask(words);
        EXPECT_EQ(result.status, status) << words;
        EXPECT_NE(result.output.find(text), std::string::npos) << result.output;
    };
    fails("NONE", 1, "NONE: nothing has this identifier");
    fails("BIRDY --picture x.png", 1, "no plan to draw");
    fails("KTST --picture " + folder.path() + "none/x.png", 1, "none/x.png");
    fails("KTST --mars", 1, "airport data file");
    fails("", 2, "which identifier?");
    fails("KTST --type runway", 2, "is none of");
}
