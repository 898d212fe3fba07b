// The world's navigation tables as the build leaves them: read by the simulator's own readers, and measured.
#include <algorithm>
#include <map>
#include <regex>
#include <set>

#include "core/disk/paths.h"
#include "core/records/env.h"
#include "nav_rows.h"
#include "scenery/nav/apt_file.h"
#include "scenery/nav/magnetic.h"
#include "scenery/nav/nav_files.h"

namespace {
const std::string earth = INSTALL_FOLDER "Resources/Earth nav data/";
const std::string mars = INSTALL_FOLDER "Resources/Mars nav data/";

class nav_world_tables : public test::system_test {
protected:
    static const vec_apt_struct* airport(const char* id) {
        for (const vec_apt_struct& a : vec_apt)
            if (std::string(a.apt_id) == id) return &a;
        return nullptr;
    }
    void load(int planet) {
        init_paths(INSTALL_FOLDER);
        env.planet = planet;
        ASSERT_EQ(IO_apt(0, ""), 1);
        ASSERT_EQ(IO_nav(0), 1);
        ASSERT_EQ(IO_fix(0), 1);
        ASSERT_EQ(IO_awy(0), 1);
        for (const test::shown_alert& alert : test::alerts) ADD_FAILURE() << alert.text.line[0];
    }
    static void expect_ends(const char* id, const char* num, double lat1, double lon1, double lat2,
                            double lon2) {
        const vec_apt_struct* a = airport(id);
        ASSERT_NE(a, nullptr) << id;
        const auto r = std::find_if(a->rwy.begin(), a->rwy.end(),
                                    [&](const auto& r) { return num == std::string(r.num_str); });
        ASSERT_NE(r, a->rwy.end()) << id << " " << num;
        const double psi = r->psi_true;
        // the published length may differ from that between the published ends
        constexpr double along = 25, across = 3;  // m
        const auto first = test::along_right(test::offset_from(r->lat, r->lon, lat1, lon1), psi);
        const auto second = test::along_right(test::offset_from(r->lat, r->lon, lat2, lon2), psi);
        EXPECT_NEAR(first.north, -r->len / 2, along) << id;
        EXPECT_NEAR(second.north, r->len / 2, along) << id;
        EXPECT_NEAR(first.east, 0, across) << id;
        EXPECT_NEAR(second.east, 0, across) << id;
    }
};

std::vector<test::aid_row> of_type(const std::vector<test::aid_row>& rows, int type) {
    std::vector<test::aid_row> some;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(some),
                 [&](const auto& r) { return r.type == type; });
    return some;
}

bool in_starter_region(double lat, double lon) {
    return lat > 31.9 && lat < 36.1 && lon > -120.1 && lon < -114.9;
}

}  // namespace

TEST_F(nav_world_tables, earth_loads_without_an_alert_and_holds_what_flights_start_from) {
    load(0);
    EXPECT_GT(vec_apt.size(), 5200u);
    std::set<std::string> ids;
    for (const vec_apt_struct& a : vec_apt) {
        EXPECT_TRUE(ids.insert(a.apt_id).second) << a.apt_id;
        EXPECT_GE(a.sta.size(), 1u) << a.apt_id;
        EXPECT_NE(a.rwy[0].num_str[0], 'x') << a.apt_id;
    }
    const vec_apt_struct* sbd = airport("KSBD");
    ASSERT_NE(sbd, nullptr);
    EXPECT_NEAR(sbd->ele, 1159 * 0.3048, 0.01);
    EXPECT_NEAR(sbd->rwy[0].len, 3048, 0.1);
    EXPECT_NEAR(sbd->rwy[0].width, 60.96, 0.01);
    EXPECT_EQ(sbd->int_tower, 11945);
    EXPECT_EQ(sbd->int_AWOS, 12417);
    expect_ends("KSBD", "06x", 34.0908, -117.25, 34.1, -117.219);
    expect_ends("KLAX", "07L", 33.935556, -118.422089, 33.939881, -118.379794);
}

TEST_F(nav_world_tables, nobody_parks_on_a_runway) {
    load(0);
    for (const vec_apt_struct& a : vec_apt)
        for (const vec_sta_struct& s : a.sta)
            for (const vec_rwy_struct& r : a.rwy) {
                if (r.num_str[0] == 'x' || r.num_str[0] == 'H') continue;
                const auto o = test::along_right(test::offset_from(r.lat, r.lon, s.lat, s.lon), r.psi_true);
                EXPECT_FALSE(std::fabs(o.north) < r.len / 2 && std::fabs(o.east) < r.width / 2 + 15)
                    << a.apt_id << " " << r.num_str << " " << s.sta_name;
            }
}

TEST_F(nav_world_tables, mars_loads_and_hangs_together) {
    load(1);
    ASSERT_GE(vec_apt.size(), 6u);
    EXPECT_STREQ(vec_apt[0].apt_id, "MAR1");
    EXPECT_GT(vec_apt[0].rwy[0].len, 5000);
    EXPECT_GT(vec_fix.size(), 20u);
    EXPECT_GT(vec_hia.size(), 20u);
}

TEST_F(nav_world_tables, every_ils_fits_its_runway) {
    load(0);
    const std::vector<test::aid_row> rows = test::aid_rows(earth + "nav.dat");
    std::map<std::string, std::map<int, test::aid_row>> sets;
    for (const test::aid_row& r : rows)
        if (r.id[0] == 'I' && r.id.size() == 4) sets[r.id][r.type] = r;
    EXPECT_GT(of_type(rows, 4).size(), 1000u);
    for (const test::aid_row& loc : of_type(rows, 4)) {
        SCOPED_TRACE(loc.name);
        ASSERT_EQ(sets[loc.id].count(6), 1u);
        const test::aid_row& glide = sets[loc.id][6];
        EXPECT_EQ(glide.frq, loc.frq);
        EXPECT_EQ(std::floor(glide.psi / 1000), 300);
        EXPECT_LE(std::fabs(std::remainder(glide.psi - 300000 - loc.psi, 360)), 0.51);
        EXPECT_EQ(sets[loc.id][12].frq, loc.frq);
        const vec_apt_struct* a = airport(loc.name.substr(0, loc.name.find(' ')).c_str());
        ASSERT_NE(a, nullptr);
        // the runway that is landed on: nearest to the line and with its heading
        const vec_rwy_struct* used = nullptr;
        for (const vec_rwy_struct& r : a->rwy) {
            const auto o = test::along_right(test::offset_from(r.lat, r.lon, loc.lat, loc.lon), loc.psi);
            if (r.num_str[0] != 'x' && std::fabs(std::remainder(r.psi_true - loc.psi, 180)) < 0.02 &&
                std::fabs(o.east) < 5)
                used = &r;
        }
        ASSERT_NE(used, nullptr);
        const bool back = std::fabs(std::remainder(used->psi_true - loc.psi, 360)) > 90;
        double second;
        const double disp = back ? std::modf(used->disp, &second) * 10000 : std::floor(used->disp);
        const double threshold = -used->len / 2 + disp * 0.3048;
        const auto at = [&](const test::aid_row& r) {
            return test::along_right(test::offset_from(used->lat, used->lon, r.lat, r.lon), loc.psi);
        };
        // half a metre of float, a promille of flatness, feet in ten-thousandths of a float; far north the
        // meridians lean together over the miles to the outer marker
        EXPECT_NEAR(at(loc).north, used->len / 2 + 300, 8);
        EXPECT_NEAR(at(glide).north, threshold + 300, 8);
        EXPECT_NEAR(at(glide).east, 120, 3);
        for (const int marker : {7, 8}) {
            ASSERT_EQ(sets[loc.id].count(marker), 1u);
            EXPECT_NEAR(at(sets[loc.id][marker]).east, 0,
                        6 + 5 * std::tan(std::fabs(loc.lat) * 3.14159265 / 180));
        }
        // a slope of 3 degrees from the touchdown point is 1,350 to 1,650 feet up at the outer marker, 180 to
        // 240 at the middle one
        const double slope = std::tan(3 * 3.14159265 / 180) / 0.3048;
        EXPECT_NEAR((threshold + 300 - at(sets[loc.id][7]).north) * slope, 1500, 150);
        EXPECT_NEAR((threshold + 300 - at(sets[loc.id][8]).north) * slope, 210, 30);
    }
}

TEST_F(nav_world_tables, runway_numbers_are_magnetic) {
    load(0);
    int checked = 0;
    for (const vec_apt_struct& a : vec_apt) {
        if (in_starter_region(a.rwy[0].lat, a.rwy[0].lon)) continue;  // published names, a few years old
        for (const vec_rwy_struct& r : a.rwy) {
            if (r.num_str[0] == 'x') continue;
            const double magnetic = r.psi_true + magnetic_variation(r.lat, r.lon);
            EXPECT_LE(std::fabs(std::remainder(10 * std::atoi(r.num_str) - magnetic, 360)), 5.3) << a.apt_id;
            ++checked;
        }
    }
    EXPECT_GT(checked, 5000);
}

TEST_F(nav_world_tables, airways_join_aids_and_fixes_and_span_the_oceans) {
    std::map<std::string, std::string> known;  // name and place, as written
    for (const char* file : {"nav.dat", "fix.dat"})
        for (const std::string& line : test::lines_of(earth + file)) {
            const std::vector<std::string> w = test::words_of(line);
            if (w.size() == 3) known[w[2] + " " + w[0] + " " + w[1]] = line;
            if (w.size() >= 9 && w[0] == "3") known[w[7] + " " + w[1] + " " + w[2]] = line;
        }
    std::map<std::string, std::string> last;  // of each airway
    int high = 0;
    const std::vector<std::string> lines = test::lines_of(earth + "awy.dat");
    for (size_t n = 2; n + 1 < lines.size(); ++n) {
        const std::vector<std::string> w = test::words_of(lines[n]);
        ASSERT_EQ(w.size(), 9u) << lines[n];
        const std::string a = w[0] + " " + w[1] + " " + w[2], b = w[3] + " " + w[4] + " " + w[5];
        EXPECT_EQ(known.count(a), 1u) << a;
        EXPECT_EQ(known.count(b), 1u) << b;
        EXPECT_TRUE(!last.count(w[8]) || last[w[8]] == a) << lines[n];
        last[w[8]] = b;
        EXPECT_EQ(w[8][0], w[6] == "1" ? 'V' : 'J');
        const double miles =
            test::miles_between(std::stod(w[1]), std::stod(w[2]), std::stod(w[4]), std::stod(w[5]));
        EXPECT_LE(miles, w[6] == "1" ? 51 : 301) << lines[n];
        high += w[6] == "2";
    }
    EXPECT_GT(high, 3000);
}

namespace {
class nav_make : public ::testing::Test {
protected:
    int make(const std::string& toml) {
        const test::run_result r =
            test::run(TOOL_FOLDER "../content/nav_make earth " + out + " " + folder.write("a.toml", toml));
        output = r.output;
        return r.status;
    }
    test::temp_folder folder;
    const std::string out = folder.path() + "out";
    std::string output;
};
const std::string strip =
    "[[airport]]\nid = \"TST1\"\nname = \"Test\"\nelevation = 100\n"
    "[[airport.runway]]\nname = \"9\"\ncentre = [10, 20]\nheading = 90\nlength = 1000\nwidth = 50\n";
}  // namespace

TEST_F(nav_make, writes_rows_worked_out_by_hand) {
    ASSERT_EQ(
        make(strip +
             "surface = \"gravel\"\nlights = [\"papi centre ALSF-2\", \"edge\"]\ndisplaced = [120, 35]\n"
             "blast = 60\n[[airport.windsock]]\nat = { along = 0, left = 100 }\nlit = true\n"
             "[[airport.ramp]]\nname = \"Shed\"\nat = { runway = \"27\", along = 1000, right = 200 "
             "}\nheading = 359.96\n"),
        0)
        << output;
    // 100 feet are 0.000274 degrees of the sphere's latitude; along the equator side 1.015 times that
    const std::string apt = test::read_file(out + "/apt.dat");
    EXPECT_NE(apt.find("\n1 100 0 0 TST1 Test\n10 10.000000 20.000000 09x 90.00 1000 120.0035 60.0060 50 "
                       "345121 5 0 0 0.50 0\n"
                       "15 10.000548 19.998610 0.0 Shed\n19 10.000274 19.998610 1 Windsock\n\n99\n"),
              std::string::npos)
        << apt;
}

TEST_F(nav_make, names_the_line_of_a_fault_and_writes_nothing) {
    const std::pair<std::string, std::string> faults[] = {
        {strip + "surfaze = \"dirt\"\n", "a.toml:11: unknown key \"surfaze\""},
        {strip + "surface = \"jelly\"\n", "unknown surface \"jelly\""},
        {strip + "lights = \"papi lantern\"\n", "a.toml:11: unknown light \"lantern\""},
        {"[[airport]]\nid = \"A\"\nname = \"B\"\nelevation = 1\n", "an airport needs a runway"},
        {strip + "[[airport.ramp]]\nname = \"R\"\nat = { runway = \"18\" }\nheading = 0\n",
         "a.toml:13: no such runway"},
        {strip + strip, "airport TST1: there twice"},
        {std::regex_replace(strip, std::regex("TST1"), "TOOLONG"), "identifiers"},
        {strip + "[[airport.runway]]\nname = \"09\"\ncentre = [10, 20]\nheading = 90\nlength = 1000\nwidth = "
                 "50\n",
         "named twice"},
        {"[[airport]\n", "a.toml:1"}};
    for (const auto& [toml, text] : faults) {
        EXPECT_EQ(make(toml), 1) << toml;
        EXPECT_NE(output.find(text), std::string::npos) << output;
        EXPECT_EQ(test::read_file(out + "/apt.dat"), "");
    }
}

TEST_F(nav_make, gives_the_same_bytes_again) {
    const std::string sources = SOURCE_FOLDER "content/nav/earth/";
    const test::run_result r =
        test::run(TOOL_FOLDER "../content/nav_make earth " + out + " " + sources + "*");
    ASSERT_EQ(r.status, 0) << r.output;
    for (const char* name : {"/apt.dat", "/nav.dat", "/fix.dat", "/awy.dat"})
        EXPECT_TRUE(test::read_file(out + name) == test::read_file(earth + (name + 1))) << name;
}
