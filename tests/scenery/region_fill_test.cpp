// What a region is filled with: tiles, lists, menus, fires and ships; and survey land.
#include <malloc.h>
#include <math.h>
#include <stdlib.h>
#include <string.h>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "draw/widgets/menus.h"
#include "scenery/ground/region.h"
#include "scenery/ground/runways.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/old/old_env.h"
#include "scenery/region/region_lists.h"
#include "scenery/region/region_places.h"
#include "scenery/region/region_tiles.h"
#include "scenery/region/survey_land.h"
#include "scenery/seam/scenery_draw.h"
#include "scenery/tile/tile_state.h"
#include "tile_folder.h"
#include "weather/atmosphere.h"

namespace {
class region_fill_test : public test::system_test {
protected:
    test::tile_folder folder;
    void SetUp() override {
        test::system_test::SetUp();
        init_paths(folder.path());
        test::set_region(33.0f, -119.0f);
        region_steps = region_of_scenery;
        stg.num_acf = 1;
    }
    void TearDown() override {
        forget_nav_tables();
        reset_region_lists();
        menu.clear();
        scenery_packages.clear();
        test::fresh();
    }
    using of_place = std::function<double(double, double)>;
    void write_land(int lat, int lon, const of_place& height, const of_place& is_land) const {
        folder.write_tile(
            test::land_tile(lat, lon, height, [&](double a, double b) { return is_land(a, b) > 0.0; }));
    }
    static void place(double lat, double lon, float* x, float* z) {
        float y;
        xyz_with_latlonel(x, &y, z, lat, lon, 0.0);
    }
    static double elevation_of_ground(double lat, double lon) {
        float x, z, at[3];
        place(lat, lon, &x, &z);
        latlonel_with_xyz(&at[0], &at[1], &at[2], x, return_terrain_y(x, z, 26), z);
        return at[2];
    }
};

int unloaded = 0;

double always(double, double) { return 1.0; }

vec_apt_struct& add_airport(const std::string& name, float lat, float lon, int runways = 1) {
    vec_apt_struct& apt = vec_apt.emplace_back();
    snprintf(apt.apt_id, sizeof apt.apt_id, "K%03zu", vec_apt.size() % 1000);
    apt.apt_name = name;
    for (int n = 0; n < runways; ++n) {
        vec_rwy_struct& rwy = apt.rwy.emplace_back();
        rwy.lat = lat, rwy.lon = lon, rwy.len = 1000.0f;
        snprintf(rwy.num_str, sizeof rwy.num_str, "%02dx", n % 36 + 1);
    }
    return apt;
}
}  // namespace

// -- tiles

TEST_F(region_fill_test, loads_its_tiles_and_leaves_nothing_of_the_old_frame) {
    for (int lat : {33, 34, 35})
        for (int lon : {-119, -118, -117})
            write_land(
                lat, lon, [](double at, double) { return 100.0 * (at - 30.0); },
                [](double, double at) { return -116.5 - at; });
    load_region(shift_full_reload);
    EXPECT_NEAR(elevation_of_ground(34.3, -118.2), 430.0, 2.0);
    EXPECT_TRUE(ren.is_set[26]);
    xdeg[7][5].vec_hwy_car.emplace_back();
    xdeg[7][5].ytest_buckets.Reset(bucket_levels, {0, 0}, {1, 1}, buckets_strict);
    xdeg[7][5].ytest_buckets.Insert(new ytest_patch_struct);  // left by the larger planet's region
    old_cus_texes = {3001, 3007};
    vec_rwy_geo.resize(3);
    scenery_draw.unload_texture = [](int ref) { unloaded += ref; };
    check_for_shift(34.6, -117.5);
    EXPECT_EQ(env.lat_sou, 34.0f);
    EXPECT_TRUE(unloaded == 6008 && old_cus_texes.empty() && vec_rwy_geo.empty());
    EXPECT_NEAR(elevation_of_ground(34.3, -118.2), 430.0, 2.0) << "the same ground in the new frame";
    EXPECT_NEAR(elevation_of_ground(35.7, -118.2), 570.0, 2.0);
    EXPECT_TRUE(xdeg[7][5].ytest_buckets.Empty() && xdeg[7][5].vec_hwy_car.empty());
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(region_fill_test, a_tile_is_refused_for_writing_and_is_water_from_a_great_height) {
    write_land(
        34, -118, [](double, double) { return 500.0; }, always);
    IO_env(0, 34, 1, -118 + 360, 1);
    EXPECT_NEAR(elevation_of_ground(34.5, -117.5), 500.0, 2.0) << "longitudes wrap";
    IO_env(1, 34, 1, -118, 1);
    ASSERT_EQ(test::alerts.size(), 1u);
    EXPECT_EQ(test::alerts[0].type, alert_message);
    EXPECT_NEAR(elevation_of_ground(34.5, -117.5), 500.0, 2.0) << "it stays";
    flt[0].y_agl_mtr = 100001.0f * con.fttomtrs;
    IO_env(0, 34, 1, -118, 1);
    EXPECT_NEAR(elevation_of_ground(34.5, -117.5), 0.0, 1.0);
    test::set_region(-90.0f, -119.0f);
    IO_env(0, -93, 0, -118, 1);
    EXPECT_EQ(g_lat_file, -90) << "rows past a pole are the pole's";
}

TEST_F(region_fill_test, ten_shifts_over_land_leave_the_memory_as_it_was) {
    for (int lat : {33, 34, 35})
        for (int lon : {-119, -118, -117, -116})
            write_land(
                lat, lon, [](double a, double b) { return 300.0 + 200.0 * sin(30 * a) * cos(25 * b); },
                [](double a, double b) { return sin(9 * a) * sin(7 * b); });
    // TARVANE_REAL_SHIFTS: how many
    const char* const wanted = getenv("TARVANE_REAL_SHIFTS");
    const int rounds = (wanted ? atoi(wanted) : 10) / 4 + 2;
    const auto once_round = [] {
        for (const auto& [lat, lon] :
             {std::pair(34.6, -117.5), {34.6, -116.9}, {34.4, -116.9}, {34.4, -117.1}})
            check_for_shift(lat, lon);
        EXPECT_EQ(env.lat_sou, 33.0f);
        EXPECT_EQ(env.lon_wes, -119.0f);
    };
    load_region(shift_full_reload);
    for (int i = 0; i < 2; ++i) once_round();
    const size_t before = mallinfo2().uordblks;
    for (int i = 0; i < rounds; ++i) once_round();
    EXPECT_LT(mallinfo2().uordblks, before + 65536);
    EXPECT_TRUE(test::alerts.empty());
}

// -- lists

TEST_F(region_fill_test, lists_what_lies_between_its_rims_over_the_date_line_too) {
    test::set_region(10.0f, 179.0f);
    add_airport("in", 11.0f, -179.5f);
    add_airport("out", 11.0f, 178.9f);
    add_airport("on the rim", 12.0f, 179.0f);
    vec_apt.emplace_back().apt_name = "without a runway";
    const auto aid = [](int type, float lon) {
        vec_nav_struct& made = vec_nav.emplace_back();
        made.type = type, made.lat = 11.0f, made.lon = lon;
    };
    aid(nav_vor, 180.0f), aid(nav_ndb, -178.1f), aid(nav_ndb, -177.9f), aid(nav_ils, -179.0f);
    vec_fix.push_back({11.5f, -180.0f, "FIXED"});
    vec_loa.push_back({{50.0f, 11.0f}, {0.0f, 179.5f}, "V1"});
    vec_hia.push_back({{50.0f, 11.0f}, {0.0f, 178.5f}, "J1"});
    vec_apt[0].bcn_lat = 11.0f, vec_apt[0].bcn_lon = -179.5f, vec_apt[0].ele = 30.0f;
    vec_apt[0].soc.push_back({1, 12.0f, 179.0f, {}});
    msc.radio_busy_fac = 7.0f;
    finish_region();
    EXPECT_EQ(apt_lcl_max, 1);
    EXPECT_EQ(apt_lcl_to_wrl[1], 2);
    EXPECT_TRUE(vec_apt[0].in_reg && !vec_apt[1].in_reg && !vec_apt[3].in_reg);
    EXPECT_EQ(vor_lcl_max, 0);
    EXPECT_EQ(ndb_lcl_to_wrl[0], 1);
    EXPECT_EQ(ndb_lcl_max, 0);
    EXPECT_TRUE(vec_nav[3].in_reg && !vec_nav[2].in_reg);
    EXPECT_EQ(fix_lcl_max, 0);
    EXPECT_EQ(loa_lcl_max, 0);
    EXPECT_EQ(hia_lcl_max, -1);
    EXPECT_FLOAT_EQ(msc.radio_busy_fac, 2000.0f * 5e-06f);
    EXPECT_EQ(vec_apt[0].bcn_xyz[1],
              return_terrain_y(vec_apt[0].bcn_xyz[0], vec_apt[0].bcn_xyz[2], checker_scenery));
    EXPECT_EQ(vec_apt[0].soc[0].soc_xyz[1], 0.0f) << "on the rim no ground is known";
    EXPECT_NEAR(vec_apt[0].soc[0].soc_xyz[0], -env.reg_x2_mtr, 2000.0f);
    EXPECT_EQ(vec_apt[2].bcn_xyz[0], 0.0f) << "a beacon at 0, 0 is none";
}

TEST_F(region_fill_test, menus_take_what_fits_and_tell_once_of_what_does_not) {
    MACIBM_clear_menus(1);
    vec_apt_struct& large = add_airport("An airport with a very long name", 34.0f, -118.0f, 200);
    large.rwy[1].num_str[0] = 'x';
    for (int n = 0; n < 310; ++n) large.sta.push_back({34, -118, 0, n ? "Ramp" : std::string(45, 'r')});
    for (int n = 0; n < 320; ++n) add_airport("other", 34.0f, -118.0f);
    vec_nav_struct aid;
    aid.type = nav_vor, aid.lat = 34.0f, aid.lon = -118.0f;
    memset(aid.nav_name, 'v', sizeof aid.nav_name - 1);
    vec_nav.assign(301, aid);
    for (int twice = 0; twice < 2; ++twice) {
        clear_region();
        finish_region();
    }
    EXPECT_EQ(test::alerts.size(), 1u);
    EXPECT_EQ(apt_lcl_max, 299);
    EXPECT_TRUE(vec_apt[310].in_reg) << "beyond the list, but in the region";
    for (int m = 7; m <= 11; ++m) {
        ASSERT_EQ(menu[m].item.size(), 300u);
        EXPECT_EQ(menu[m].item[299].item_code, 2399 + 300 * (m - 7));
        EXPECT_EQ(menu[m].item[0].item_name, "An airport with a very lo");
    }
    EXPECT_EQ(menu[12].item.size(), 300u);
    EXPECT_EQ(menu[12].item[299].item_code, 3899);
    EXPECT_EQ(menu[13].item.size(), 0u);
    EXPECT_EQ(menu[20].item.size(), 300u);
    EXPECT_EQ(menu[20].item[0].item_name, std::string(39, 'r'));
    EXPECT_EQ(menu[20].item[299].item_code, 6299);
    const int parents[] = {8, 9, 10, 11}, codes[] = {0, 96000, 186000, 276000};
    for (int k = 0; k < 4; ++k) {
        EXPECT_EQ(menu[20 + 300 * k + 7].menu_prnt, parents[k]);
        int adrift = 0;
        for (int c = 0; c < 300; ++c) {
            const item_struct& entry = menu[parents[k]].item[c];
            const menu_struct& own = menu[20 + 300 * k + c];
            adrift += own.menux1 != entry.itemx1 || own.menuy1 != entry.itemy1 || own.menuy2 != entry.itemy2;
        }
        EXPECT_EQ(adrift, 0)
            << "a menu that had grown over the screen's edge moved off those that hang on it";
    }
    for (int k = 1; k < 4; ++k) {
        const std::vector<item_struct>& item = menu[20 + 300 * k].item;
        ASSERT_EQ(item.size(), 298u) << "149 of 150 that have a code are runways";
        EXPECT_EQ(item[0].item_name, "RWY 01 ");
        EXPECT_EQ(item[1].item_name, "RWY 19 ");
        EXPECT_EQ(item[2].item_code, codes[k] + 4) << "by its place among all pieces";
        EXPECT_EQ(menu[20 + 300 * k + 1].item[1].item_code, codes[k] + 301);
    }
}

// -- fires and ships

TEST_F(region_fill_test, ships_float_near_the_centre_and_fires_stand_on_the_steepest_slope) {
    // the south is sea, with a tableland of water in the west; in the north a ridge
    for (int lon : {-119, -118, -117}) {
        write_land(
            33, lon, [lon](double lat, double) { return lon == -119 && lat < 33.7 ? 900.0 : 0.0; },
            [](double, double) { return 0.0; });
        write_land(
            34, lon, [](double lat, double) { return fmax(8000.0 * (lat - 34.5), 0.0); }, always);
    }
    load_region(shift_full_reload);
    EXPECT_EQ(scn.fire_avail, 1);
    for (int i = 0; i < 10; ++i) EXPECT_TRUE(scn.fire_on[i] && scn.firexyz[i][2] == scn.firexyz[0][2]);
    EXPECT_LT(scn.firexyz[0][2], -50000.0f) << "north";
    float nearest = 1e9f;
    for (int s = 0; s < 4; ++s) {
        EXPECT_TRUE(terrain_is_wet(env.boat_x[s], env.boat_z[s], 0));
        EXPECT_GT(env.boat_z[s], 0.0f);
        EXPECT_GT(env.boat_x[s], -50000.0f) << "no ship on the tableland";
        nearest = fltmin2(nearest, hypotf(env.boat_x[s], env.boat_z[s]));
    }
    EXPECT_LT(nearest, 30000.0f);
    const float fire = scn.firexyz[0][2], ship = env.boat_x[1];
    scn.fire_on[3] = 0;
    place_fires_and_boats(shift_east);
    EXPECT_EQ(scn.firexyz[0][2], fire) << "it is still in the region";
    EXPECT_EQ(scn.fire_on[3], 0) << "and out";
    EXPECT_EQ(env.boat_x[1], ship);
    for (auto& xyz : scn.firexyz) xyz[1] = -1.9f * con.planet_rad;
    place_fires_and_boats(shift_east);
    EXPECT_GT(scn.firexyz[0][1], -5000.0f) << "what lies on the far side of the planet is not here";
    scn.fire_avail = 1;
    for (auto& column : xdeg) clear_degree(&column[1]);  // water alone
    place_fires_and_boats(shift_full_reload);
    EXPECT_EQ(scn.fire_avail, 0);
}

// -- survey land

TEST_F(region_fill_test, survey_land_is_dry_level_and_kept) {
    for (int planet : {0, 1}) {
        set_planet_specs(planet);
        stand_on_survey_land();
        float worst = 0.0f;
        for (double lat = ref_lat() - 0.9; lat < ref_lat() + 0.9; lat += 0.0371)
            for (double lon = ref_lon() - 1.4; lon < ref_lon() + 1.4; lon += 0.0437) {
                float x, z;
                place(lat, lon, &x, &z);
                ASSERT_EQ(terrain_is_wet(x, z, 5), 0) << lat << ' ' << lon;
                worst = fmaxf(worst, fabsf(return_terrain_y(x, z, 5) - y_with_xhz(x, 0.0f, z)));
            }
        EXPECT_LT(worst, planet ? 0.3f : 0.13f);
        EXPECT_NEAR(return_terrain_y(0, 0, 5), 0.0f, 1e-5f) << "a corner of the mesh";
        xdeg[0][0].vec_ins.emplace_back();
        stand_on_survey_land();
        EXPECT_TRUE(ren.is_set[5] == 0 && !xdeg[0][0].vec_ins.empty()) << "kept";
        check_for_shift(ref_lat() + 0.9 * lat_secs_os[planet], ref_lon());
        EXPECT_EQ(terrain_is_wet(0, 0, 5), 0) << "and after a shift";
        env.lat_sou = 33.0f, env.lon_wes = -119.0f;
    }
}
