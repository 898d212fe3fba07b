// The scripted circuit in a window of its own, by the data that it leaves.
#include <gtest/gtest.h>
#include <math.h>

#include <filesystem>
#include <map>
#include <sstream>

#include "core/disk/paths.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/nav/planet_nav.h"
#include "support.h"
#include "xvfb.h"

namespace {
using row = std::map<std::string, double>;  // empty fields are missing

std::vector<row> read_csv(const std::string& text) {
    std::istringstream lines(text);
    std::string line, field;
    std::vector<std::string> names;
    getline(lines, line);
    for (std::istringstream head(line); getline(head, field, ',');) names.push_back(field);
    std::vector<row> rows;
    while (getline(lines, line)) {
        rows.emplace_back();
        std::istringstream fields(line);
        for (size_t i = 0; getline(fields, field, ','); ++i)
            if (!field.empty()) rows.back()[names.at(i)] = std::stod(field);
    }
    return rows;
}

// Metres along a runway behind its threshold, and to the right of its centreline, on a plane about its
// middle.
struct place {
    double along, across;
};
place on_runway(const vec_rwy_struct& rwy, const row& at) {
    constexpr double rad = M_PI / 180.0, metres_per_degree = 6378145.0 * rad;
    const double north = (at.at("latitude_deg") - rwy.lat) * metres_per_degree;
    const double east = (at.at("longitude_deg") - rwy.lon) * metres_per_degree * cos(rwy.lat * rad);
    const double s = sin(rwy.psi_true * rad), c = cos(rwy.psi_true * rad);
    return {east * s + north * c + 0.5 * rwy.len, east * c - north * s};
}

class flight_script : public test::system_test {};

TEST_F(flight_script, takes_off_flies_a_circuit_and_lands_on_the_same_runway) {
    const test::temp_folder out;
    const test::xvfb screen("1024x768x24");
    const test::run_result flight =
        test::run("LIBGL_ALWAYS_SOFTWARE=1 " TOOL_FOLDER "flight_script " + out.path());
    ASSERT_EQ(flight.status, 0) << flight.output;
    const std::vector<row> rows = read_csv(test::read_file(out.path() + "flight.csv"));
    ASSERT_GT(rows.size(), 1000u);

    init_paths(INSTALL_FOLDER);
    read_nav_tables();
    const vec_apt_struct& apt = vec_apt.at(static_cast<size_t>(apt_hash.at(apt_id_key("KSBD"))));
    const vec_rwy_struct& rwy = apt.rwy.at(0);
    const place first = on_runway(rwy, rows.front()), last = on_runway(rwy, rows.back());
    EXPECT_NEAR(first.along, 10.0, 1.0);
    EXPECT_NEAR(first.across, 0.0, 0.5);
    EXPECT_LT(fabs(last.across), 0.4 * rwy.width);
    EXPECT_LT(last.along, rwy.len);
    EXPECT_EQ(rows.back().at("on_ground"), 1.0);

    double highest = 0.0, northmost = -1e9, southmost = 1e9;
    size_t touch = rows.size();
    const row* landing = nullptr;
    for (size_t i = 0; i < rows.size(); ++i) {
        highest = fmax(highest, rows[i].at("ground_m"));
        northmost = fmax(northmost, on_runway(rwy, rows[i]).across);
        southmost = fmin(southmost, on_runway(rwy, rows[i]).across);
        if (rows[i].at("on_ground") == 0.0) touch = i + 1;
        if (rows[i].count("landing_fpm")) landing = &rows[i];
    }
    EXPECT_GT(highest, 250.0);
    EXPECT_LT(southmost, -1200.0) << "a circuit to the left";
    EXPECT_LT(northmost, 300.0);
    ASSERT_TRUE(landing);
    ASSERT_LT(touch, rows.size());
    // a row is an eighth of a second, some four metres; hops after the touch are short
    const place touched = on_runway(rwy, rows[touch]);
    EXPECT_NEAR(landing->at("past_threshold_m"), touched.along, 60.0);
    EXPECT_NEAR(landing->at("right_of_centreline_m"), touched.across, 2.0);
    EXPECT_NEAR(landing->at("rolled_m"), last.along - landing->at("past_threshold_m"), 15.0);
    EXPECT_LT(landing->at("landing_fpm"), 350.0);
    EXPECT_GT(landing->at("landing_fpm"), 0.0);
    EXPECT_LT(landing->at("landing_g"), 2.5);
    for (int i = 1; i <= 6; ++i)
        EXPECT_GT(std::filesystem::file_size(out.path() + "picture" + std::to_string(i) + ".png"), 20000u);
}
}  // namespace
