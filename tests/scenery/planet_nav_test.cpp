// The load of a planet and the look-ups in its tables.
#include "scenery/nav/planet_nav.h"

#include <atomic>

#include "core/records/records.h"
#include "nav_folder.h"
#include "scenery/nav/nav_lookup.h"

namespace {
class planet_nav_test : public test::system_test {
protected:
    test::nav_folder folder;

    void SetUp() override {
        test::system_test::SetUp();
        init_paths(folder.path());
        strcpy(msc.apt_id_str, "BBBB");
    }
    std::string names() const {
        std::string all;
        for (const vec_apt_struct& apt : vec_apt) all += std::string(apt.apt_id) + "=" + apt.apt_name + " ";
        return all;
    }
    static void name_runway(const char* num_str) {
        vec_apt.assign(1, {});
        strcpy(vec_apt[0].rwy.emplace_back().num_str, num_str);
    }
};

TEST_F(planet_nav_test, thousands_of_faulty_airports_of_a_package_ask_for_one_return) {
    std::string rows;
    for (int i = 0; i < 3000; ++i) rows += "1 100 0 0 BARE field " + std::to_string(i) + "\n";
    folder.write("apt.dat", "715", test::airport("BBBB", "b", 20, 20));
    folder.write_package("faulty", rows);
    DSF_ScanSceneryFolder();
    read_planet_nav();
    ASSERT_EQ(test::alerts.size(), 2u) << "the second: there are no pictures of the sky";
    EXPECT_EQ(test::alerts[0].text.line[2], "BARE field 0") << "the first as the example";
    EXPECT_EQ(test::alerts[0].text.line[3].rfind("3000 of this kind in ", 0), 0u);
}

TEST_F(planet_nav_test, custom_airports_take_the_place_of_default_ones) {
    folder.write("apt.dat", "715",
                 test::airport("AAAA", "a", 10, 10) + test::airport("BBBB", "b", 20, 20) +
                     test::airport("CCCC", "c", 30, 30));
    folder.write_package("1 early",
                         test::airport("BBBB", "of 1", 21, 21) + test::airport("DDDD", "of 1", 40, 40));
    folder.write_package("2 late", test::airport("BBBB", "of 2", 22, 22) +
                                       test::airport("AAAA", "of 2", 12, 12) +
                                       test::airport("EEEE", "of 2", 50, 50));
    std::filesystem::create_directories(folder.path() + "Custom Scenery/3 without airports");
    DSF_ScanSceneryFolder();
    ASSERT_EQ(scenery_packages.size(), 3u);
    read_planet_nav();
    EXPECT_EQ(names(), "AAAA=of 2 BBBB=of 1 CCCC=c EEEE=of 2 DDDD=of 1 ");
    for (size_t i = 0; i < vec_apt.size(); ++i)
        EXPECT_EQ(apt_hash.at(apt_id_key(vec_apt[i].apt_id)), static_cast<int>(i));
    EXPECT_EQ(apt_hash.size(), vec_apt.size());
    EXPECT_EQ(msc.loc_apt_wrl, 1);
    EXPECT_EQ(flt[0].dob_lat, 21.0);
    EXPECT_EQ(env.lat_sou, 20.0f);
    EXPECT_TRUE(env.lon_wes == 19.0f || env.lon_wes == 20.0f) << env.lon_wes;
    EXPECT_EQ(test::alerts.size(), 1u) << "there are no pictures of the sky";
}

TEST_F(planet_nav_test, a_custom_airport_replaces_every_earlier_one_for_all_searches) {
    folder.write("apt.dat", "715",
                 test::airport("BBBB", "b", 20, 20) + test::airport("AAAA", "a", 10, 10) +
                     test::airport("BBBB", "again", 60, 60));
    folder.write_package("1", test::airport("BBBB", "new", 21, 21) + test::airport("NNNN", "one", 1, 1) +
                                  test::airport("NNNN", "two", 2, 2));
    DSF_ScanSceneryFolder();
    read_planet_nav();
    EXPECT_EQ(names(), "BBBB=new AAAA=a NNNN=one NNNN=two ");
    int index = -1;
    EXPECT_EQ(get_index_from_id("BBBB", targ_apt, &index, 60, 60), 1);
    EXPECT_EQ(index, 0) << "the nearest was the second of the default file";
}

TEST_F(planet_nav_test, an_unknown_selection_becomes_the_first_airport_and_indexes_stay_in_their_tables) {
    folder.write("apt.dat", "715", test::airport("AAAA", "a", -89.9, 179.9));
    nav.gps_type = 1;
    nav.gps_use_index = nav.gps_apt_index = 1600;
    nav.gps_vor_index = 2100;
    nav.gps_ndb_index = -4;
    nav.gps_fix_index = 3;
    read_planet_nav();
    EXPECT_EQ(msc.loc_apt_wrl, 0);
    EXPECT_EQ(env.lat_sou, -90.0f);
    EXPECT_EQ(env.lon_wes, 178.0f);
    EXPECT_EQ(nav.gps_use_index, 0);
    EXPECT_EQ(nav.gps_apt_index, 0);
    EXPECT_EQ(nav.gps_vor_index, 5) << "the ships' aids are there without a file";
    EXPECT_EQ(nav.gps_ndb_index, 0);
    EXPECT_EQ(nav.gps_fix_index, 0);
}

TEST_F(planet_nav_test, the_nearest_of_one_identifier_is_found) {
    folder.write("apt.dat", "715",
                 test::airport("AAA", "a", 10, 10) + test::airport("AAA", "a", 50, 50) +
                     test::airport("AA", "a", 0, 0));
    folder.write("nav.dat", "740",
                 "2 10 10 0 300 40 0 XY NDB\n3 11 11 0 11000 40 0 XY VOR\n3 60 60 0 11100 40 0 XY VOR\n");
    folder.write("fix.dat", "600", "1 1 FIXES\n2 2 FIXES\n");
    read_planet_nav();
    int index = -7;
    const auto find = [&index](const char* id, int type, float lat, float lon) {
        return get_index_from_id(id, type, &index, lat, lon) ? index : -1;
    };
    EXPECT_EQ(find("AAA", 1, 40, 40), 1);
    EXPECT_EQ(find("AAA ", 1, 0, 0), 0) << "a blank ends the identifier";
    EXPECT_EQ(find("AA  ", 1, 0, 0), 2);
    EXPECT_EQ(find("FIXES", 11, 1.5f, 1.5f), 0) << "the first of equals";
    EXPECT_EQ(find("XY", 3, 10, 10), 7) << "its kind counts, not only its place";
    EXPECT_EQ(find("XY", 2, 60, 60), 6);
    EXPECT_EQ(find("anything", 13, 0, 0), 0);
    index = 55;
    EXPECT_EQ(find("XY", 12, 0, 0), -1);
    EXPECT_EQ(find("AAAA", 1, 0, 0), -1);
    EXPECT_EQ(find("AAA", 1, 999.9f, 999.9f), -1) << "too far from any";
    EXPECT_EQ(index, 55);
}

TEST_F(planet_nav_test, runways_are_named_at_both_ends) {
    const struct {
        const char* num_str;
        std::string end1, end2, menu1, menu2;
    } names[] = {
        {"14L", "14L", "32R", "RWY 14L", "RWY 32R"},
        {"18C", "18C", "36C", "RWY 18C", "RWY 36C"},
        {"01x", "01x", "19x", "RWY 01 ", "RWY 19 "},
        {"27", "27", "09", "RWY 27", "RWY 09"},
        {"H2x", "H2x to North", "H2x to South", "PAD H2  to North", "PAD H2  to South"},
        {"xxx", "xxx", "xxx", "RWY xx ", "RWY xx "},
    };
    for (const auto& n : names) {
        name_runway(n.num_str);
        std::string end1, end2;
        get_rway_strings(0, 0, &end1, &end2);
        EXPECT_EQ(end1, n.end1);
        EXPECT_EQ(end2, n.end2);
        EXPECT_EQ(rway_to_cs(end1), n.menu1);
        EXPECT_EQ(rway_to_cs(end2), n.menu2);
    }
}
}  // namespace
