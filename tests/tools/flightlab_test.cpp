// The flight lab as its users meet it: the program itself, its tables, its exit status.
#include <math.h>
#include <stdlib.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "support.h"

namespace {
using result = test::run_result;

result lab(const std::string& words) { return test::run(std::string(TOOL_FOLDER) + "flightlab " + words); }

std::string quoted(const std::string& path) { return "'" + path + "'"; }
const std::string sailplane =
    quoted(std::string(INSTALL_FOLDER) + "Aircraft/General Aviation/Lark 15 Sailplane/Lark 15.acf");
const std::string trainer =
    quoted(std::string(INSTALL_FOLDER) + "Aircraft/General Aviation/Wren 160 Trainer/Wren 160.acf");
const std::string sailplane_source =
    quoted(std::string(SOURCE_FOLDER) + "content/aircraft/General Aviation/Lark 15 Sailplane/Lark 15.toml");

std::vector<std::vector<double>> read_csv(const std::string& path, std::string* header) {
    std::ifstream in(path);
    std::getline(in, *header);
    std::vector<std::vector<double>> rows;
    for (std::string line; std::getline(in, line);) {
        std::vector<double> row;
        std::istringstream cells(line);
        for (std::string cell; std::getline(cells, cell, ',');) row.push_back(strtod(cell.c_str(), nullptr));
        rows.push_back(row);
    }
    return rows;
}

// The number behind a name, from a place in the text on.
double value_after(const std::string& text, const std::string& heading, const std::string& name) {
    size_t at = text.find(heading);
    if (at != std::string::npos) at = text.find(name, at);
    return at == std::string::npos ? NAN : strtod(text.c_str() + at + name.size(), nullptr);
}

TEST(flightlab, the_flown_glide_is_the_reported_one) {
    const result report = lab("report --altitude 6000 " + sailplane);
    ASSERT_EQ(report.status, 0) << report.output;
    const double ratio = value_after(report.output, "Best glide", "glide ratio");
    const test::temp_folder folder;
    const result flight = lab("fly --seconds 100 --csv " + folder.path() + "f.csv " + sailplane);
    ASSERT_EQ(flight.status, 0) << flight.output;
    std::string header;
    const auto rows = read_csv(folder.path() + "f.csv", &header);
    ASSERT_EQ(rows.size(), 800u);
    EXPECT_EQ(header.substr(0, 20), "time_s,latitude_deg,");
    // over the ground by latitude: due north, 111319.6 m a degree
    const auto &a = rows.front(), &b = rows.back();
    const double distance = (b[1] - a[1]) * 111319.6;
    const double lost = a[3] - b[3] + (a[4] * a[4] - b[4] * b[4]) / (2.0 * 9.798);
    EXPECT_NEAR(distance / lost, ratio, 0.03 * ratio);
}

TEST(flightlab, equal_seeds_fly_equal_flights_alone_or_in_parallel) {
    const test::temp_folder folder;
    const std::string common =
        "fly --seconds 20 --script random --quiet --altitude 9000 --csv " + folder.path();
    ASSERT_EQ(lab(common + "many.csv --runs 3 --jobs 2 --seed 5 " + sailplane).status, 0);
    ASSERT_EQ(lab(common + "alone.csv --seed 6 " + sailplane).status, 0);
    const std::string second = test::read_file(folder.path() + "many.1.csv");
    EXPECT_GT(second.size(), 1000u);
    EXPECT_EQ(second, test::read_file(folder.path() + "alone.csv"));
    EXPECT_NE(second, test::read_file(folder.path() + "many.2.csv"));
    const result hash1 = lab("hash --passes 300 " + sailplane), hash2 = lab("hash --passes 300 " + sailplane);
    EXPECT_EQ(hash1.output, hash2.output);
    EXPECT_EQ(hash1.output.size(), 17u);
}

TEST(flightlab, a_source_text_measures_as_its_compiled_file) {
    const result from_text = lab("report " + sailplane_source), from_file = lab("report " + sailplane);
    ASSERT_EQ(from_text.status, 0) << from_text.output;
    EXPECT_EQ(from_text.output.substr(from_text.output.find("Dimensions")),
              from_file.output.substr(from_file.output.find("Dimensions")));
}

TEST(flightlab, the_tunnel_tells_a_symmetric_aircraft_and_draws_it) {
    const test::temp_folder folder;
    const result r = lab("tunnel --alpha 0:8:4 --beta -4:4:4 --csv " + folder.path() + "t.csv --plot " +
                         folder.path() + "t.png " + sailplane);
    ASSERT_EQ(r.status, 0) << r.output;
    std::string header;
    const auto rows = read_csv(folder.path() + "t.csv", &header);
    ASSERT_EQ(rows.size(), 9u);
    for (int a = 0; a < 3; ++a) {
        const auto &left = rows[a], &none = rows[3 + a], &right = rows[6 + a];
        EXPECT_NEAR(left[2], right[2], 1e-4);   // CL
        EXPECT_NEAR(left[7], -right[7], 1e-5);  // Cn
        EXPECT_NEAR(left[8], -right[8], 1e-5);  // Cl
        EXPECT_NEAR(none[7], 0.0, 1e-6);
        EXPECT_LT(right[7], 0.0);
    }
    EXPECT_EQ(test::read_file(folder.path() + "t.png").substr(1, 3), "PNG");
}

TEST(flightlab, puts_engines_on_a_stand_and_finds_steady_flights) {
    const test::temp_folder folder;
    const std::string csv = folder.path() + "curves.csv", start = folder.path() + "start.csv";
    const result b = lab("bench --altitude 300:6300:6000 --speed 0:60:60 --csv " + csv + " --start-csv " +
                         start + " " + trainer);
    ASSERT_EQ(b.status, 0) << b.output;
    std::string header;
    const auto rows = read_csv(csv, &header);
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_GT(rows[0][3], rows[2][3]) << "power falls with height";
    EXPECT_GT(rows[0][5], rows[1][5]) << "thrust falls with speed";
    const auto run_up = read_csv(start, &header);
    EXPECT_LT(run_up.front()[7], 100.0) << "rpm, cold";
    EXPECT_GT(run_up.back()[7], 2000.0);

    const result t = lab("trim --speed 70:110:40 --climb 300 --csv " + csv + " " + trainer);
    ASSERT_EQ(t.status, 0) << t.output;
    const auto states = read_csv(csv, &header);
    ASSERT_EQ(states.size(), 2u);
    EXPECT_GT(states[0][6], states[1][6] + 2.0) << "slower needs more angle of attack";
    for (const auto& row : states)
        EXPECT_NEAR(row[4] - row[6], asin(300.0 / 196.85 / (row[0] * 0.5144)) * 57.3, 0.2);
    const result fast = lab("trim --speed 300 " + trainer);
    EXPECT_EQ(fast.status, 1) << "not to be held";
    EXPECT_NE(fast.output.find("not steady: power lever at its stop"), std::string::npos) << fast.output;
    EXPECT_EQ(lab("bench " + sailplane).status, 1);
}

TEST(flightlab, a_long_run_goes_on_from_the_nearest_steady_state_and_a_flight_ends_on_the_ground) {
    const result nearest = lab("fly --seconds 5 --restart --speed 150 " + trainer);
    EXPECT_EQ(nearest.status, 0) << nearest.output;
    EXPECT_NE(nearest.output.find("in its place"), std::string::npos) << nearest.output;
    const result down = lab("fly --seconds 100000 --altitude 3000 " + sailplane);
    EXPECT_EQ(down.status, 0);
    EXPECT_NE(down.output.find("on the ground"), std::string::npos) << down.output;
    EXPECT_LT(value_after(down.output, "", "flown"), 2000.0);
}

TEST(flightlab, the_report_knows_load_stall_and_rest_on_the_gear) {
    const result light = lab("report " + trainer), heavy = lab("report --mass 2400 --cg 0.1 " + trainer);
    ASSERT_EQ(heavy.status, 0) << heavy.output;
    const auto number = [](const result& r, const char* heading, const char* name) {
        return value_after(r.output, heading, name);
    };
    EXPECT_NEAR(number(heavy, "Mass", "mass "), 2400.0 * 0.453592, 1.0);
    // the stall grows with the root of the mass, the margin shrinks by the shift over the mean chord
    EXPECT_NEAR(number(heavy, "Stall", "equivalent airspeed") / number(light, "Stall", "equivalent airspeed"),
                sqrt(2400.0 / 1950.0), 1e-3);
    EXPECT_NEAR(number(light, "Balance", "margin, measured") - number(heavy, "Balance", "margin, measured"),
                100.0 * 0.1 * 0.3048 / number(light, "Dimensions", "mean chord"), 0.4);
    EXPECT_NEAR(number(heavy, "Stall", "at the largest mass"), 53.0 * 0.514444, 1.0);
    EXPECT_NEAR(number(heavy, "At rest", "h_eqlbm)"), 4.75 * 0.3048, 1e-3);
    EXPECT_NEAR(number(heavy, "At rest", "by the legs"), 4.75 * 0.3048, 0.05);
    EXPECT_EQ(lab("report --mass 900 " + trainer).status, 2);
    const result spin = lab("spin --side right " + trainer), stall = lab("stall --flaps 1 " + trainer);
    EXPECT_NE(spin.output.find("to the right: a spin\n"), std::string::npos) << spin.output;
    EXPECT_NEAR(number(stall, "flaps 1.00", "stall"), 42.3, 1.5);
}

TEST(flightlab, speaks_plainly_about_mistakes) {
    EXPECT_EQ(lab("").status, 2);
    EXPECT_EQ(lab("fly --help").status, 0);
    EXPECT_EQ(lab("fly --seconds many " + sailplane).status, 2);
    EXPECT_EQ(lab("tunnel --alpha 5:1:1 " + sailplane).status, 2);
    const test::temp_folder folder;
    const std::string broken =
        folder.write("broken.acf", std::string("i\x40\x1f\0\0", 5) + std::string(200, '\xff'));
    const result r = lab("report " + broken);
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.output.find("broken.acf"), std::string::npos) << r.output;
    const std::string script = folder.write("script.txt", "0 0 0 0 0 0\n1 0 x 0 0 0\n");
    const result s = lab("fly --script " + script + " " + sailplane);
    EXPECT_EQ(s.status, 1);
    EXPECT_NE(s.output.find(":2:"), std::string::npos) << s.output;
}
}  // namespace
