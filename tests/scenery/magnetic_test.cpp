// The magnetic model against the rows that its makers publish, the table against the model.
#include "scenery/nav/magnetic.h"

#include <cmath>
#include <fstream>
#include <limits>
#include <sstream>

#include "support.h"
#include "wmm.h"

namespace {
constexpr const char* folder = SOURCE_FOLDER "content/magnetic/";

const wmm_struct& model() {
    static const wmm_struct read = read_wmm(std::string(folder) + "wmm-2025.cof");
    return read;
}

struct official_row {
    double year, height, lat, lon, north, east, down, declination;
};

std::vector<official_row> official_rows() {
    std::vector<official_row> rows;
    std::ifstream in(std::string(folder) + "test_values.csv");
    std::string line;
    std::getline(in, line);
    while (std::getline(in, line)) {
        for (char& c : line)
            if (c == ',') c = ' ';
        official_row r;
        double horizontal, total, inclination;
        std::istringstream(line) >> r.year >> r.height >> r.lat >> r.lon >> r.north >> r.east >> r.down >>
            horizontal >> total >> inclination >> r.declination;
        if (r.year >= 2025.0) rows.push_back(r);  // those before belong to the models before
    }
    return rows;
}

double turn(double degrees) { return std::remainder(degrees, 360.0); }
}  // namespace

TEST(magnetic_model, gives_all_published_rows_of_2025_to_2030) {
    const std::vector<official_row> rows = official_rows();
    ASSERT_EQ(rows.size(), 100u);
    for (const official_row& r : rows) {
        const wmm_field f = wmm_at(model(), r.lat, r.lon, r.height, r.year);
        SCOPED_TRACE(testing::Message() << r.year << " at " << r.lat << ", " << r.lon);
        EXPECT_NEAR(f.north, r.north, 1e-3);
        EXPECT_NEAR(f.east, r.east, 1e-3);
        EXPECT_NEAR(f.down, r.down, 1e-3);
        EXPECT_NEAR(turn(f.declination - r.declination), 0.0, 0.0051);
    }
}

TEST(magnetic_table, is_the_model_at_its_nodes) {
    for (int row = 0; row < mag_lats; ++row) {
        for (int column = 0; column < mag_lons; ++column) {
            const double lat = -90.0 + 5.0 * row, lon = -180.0 + 5.0 * column;
            const double lat_model = std::fmax(-89.99, std::fmin(89.99, lat));
            const double expected = -wmm_at(model(), lat_model, lon, 0.0, 2025.0).declination;
            ASSERT_NEAR(turn(raw_mag_var[row][column] - expected), 0.0, 0.0006) << lat << ", " << lon;
            ASSERT_EQ(magnetic_variation(lat, lon), raw_mag_var[row][column]) << lat << ", " << lon;
        }
        EXPECT_EQ(raw_mag_var[row][0], raw_mag_var[row][mag_lons - 1]) << "the date line at row " << row;
    }
}

TEST(magnetic_table, follows_the_model_between_its_nodes) {
    // away from the magnetic poles, where the field turns within one cell
    for (double lat = -47.5; lat < 60.0; lat += 5.0)
        for (double lon = -177.5; lon < 180.0; lon += 5.0) {
            const double expected = -wmm_at(model(), lat, lon, 0.0, 2025.0).declination;
            ASSERT_NEAR(magnetic_variation(lat, lon), expected, 1.3) << lat << ", " << lon;
        }
    // a quarter up and three quarters along one cell, by hand
    const float* south = raw_mag_var[24] + 12;
    const float* north = raw_mag_var[25] + 12;
    EXPECT_NEAR(magnetic_variation(31.25, -116.25),
                0.75 * (0.25 * south[0] + 0.75 * south[1]) + 0.25 * (0.25 * north[0] + 0.75 * north[1]),
                1e-5);
}

TEST(magnetic_table, answers_anywhere) {
    EXPECT_EQ(magnetic_variation(90.0, 180.0), raw_mag_var[mag_lats - 1][mag_lons - 1]);
    EXPECT_EQ(magnetic_variation(-123.0, 1e30), raw_mag_var[0][mag_lons - 1]);
    EXPECT_EQ(magnetic_variation(1e30, -181.0), raw_mag_var[mag_lats - 1][0]);
    EXPECT_EQ(magnetic_variation(std::numeric_limits<double>::quiet_NaN(), 0.0), 0.0f);
    EXPECT_EQ(magnetic_variation(0.0, std::numeric_limits<double>::infinity()), 0.0f);
}
