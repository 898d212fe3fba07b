// What lies over the terrain, in its order; decks in motion against their own positions a moment later.
#include "scenery/ground/surfaces.h"

#include <math.h>

#include <algorithm>

#include "core/disk/paths.h"
#include "core/math/globe.h"
#include "core/records/ships.h"
#include "scenery/airports/strips.h"
#include "scenery/ground/degree_finish.h"
#include "scenery/ground/roofs.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/objects/object_build.h"
#include "scenery/region/region_lists.h"
#include "scenery/region/survey_land.h"
#include "support.h"
#include "weather/atmosphere.h"

namespace {
constexpr int tyre = checker_tire_first;

class surfaces_test : public test::system_test {
protected:
    void SetUp() override {
        test::system_test::SetUp();
        env.lat_sou = 33.0f, env.lon_wes = -119.0f;
        stand_on_survey_land();
    }
    void TearDown() override {
        region_steps = region_of_nothing;
        forget_nav_tables();
        reset_region_lists();
        test::fresh();
    }
    // Through the region's centre, along the headings given.
    static void add_airport(std::initializer_list<std::pair<int, float>> surfaces_and_headings) {
        vec_apt_struct& apt = vec_apt.emplace_back();
        for (const auto& [surf_tex, heading] : surfaces_and_headings) {
            vec_rwy_struct& rwy = apt.rwy.emplace_back();
            snprintf(rwy.num_str, sizeof rwy.num_str, "36x");
            rwy.lat = static_cast<float>(ref_lat()), rwy.lon = static_cast<float>(ref_lon());
            rwy.psi_true = heading, rwy.len = 400.0f, rwy.width = 40.0f, rwy.roughness = 0.25f;
            rwy.surf_tex = static_cast<unsigned char>(surf_tex);
        }
        UTIL_build_runways(static_cast<int>(vec_apt.size()) - 1);
    }
    // The kind of ground that is found, -1 off the runways.
    static int kind_at(float x, float z, int checker = tyre) {
        env.surf_tex = 0, env.roughness = 0.0f, env.over_rwy_this = 0;
        return_terrain_y(x, z, checker);
        EXPECT_EQ(env.roughness, env.over_rwy_this ? 0.25f : 0.0f);
        return env.over_rwy_this ? env.surf_tex : -1;
    }
    static void set3(float (&to)[3], float x, float y, float z) { to[0] = x, to[1] = y, to[2] = z; }
};
}  // namespace

TEST_F(surfaces_test, the_first_that_is_there_bears) {
    const float x = 30.0f, z = 40.0f, ground = return_terrain_y(x, z, 26);
    net.getting_terrain = 1;
    set3(env.terrain_ctr, x, 50.0f, z), set3(env.terrain_nrm, 0.0f, 1.0f, 0.0f);
    env.over_obs_last = 1, env.obj_y_top = 40.0f;
    env.over_carr = env.over_frig = 1;
    for (int s : {ship_carrier, ship_frigate}) env.boat_x[s] = x, env.boat_z[s] = z;
    env.boat_y[ship_frigate] = 2.0f;
    EXPECT_EQ(return_terrain_y(x, z, tyre), 50.0f) << "smooth as it came";
    EXPECT_NEAR(return_terrain_y(x, z, 26), ground, 1e-4f) << "who sees bare ground alone";
    for (const float broken : {NAN, INFINITY, 0.0f}) {
        set3(env.terrain_nrm, 0.0f, broken, 0.0f);
        EXPECT_EQ(return_terrain_y(x, z, tyre), 40.0f) << "a roof, for no plane has this normal";
    }
    net.getting_terrain = 0;
    EXPECT_EQ(return_terrain_y(x, z, checker_user), 40.0f);
    env.over_obs_last = 0;
    EXPECT_EQ(return_terrain_y(x, z, tyre), 21.0f);
    env.over_carr = 0;
    EXPECT_EQ(return_terrain_y(x, z, tyre), 9.0f);
    env.over_frig = 0;
    EXPECT_NEAR(return_terrain_y(x, z, tyre), ground + surface_detail(x, z), 1e-4f);
    EXPECT_EQ(return_terrain_y(x, z, checker_part_first), return_terrain_y(x, z, 26)) << "a wing tip";
    const float rim = env.reg_x2_mtr - 2400.0f;
    set3(env.terrain_nrm, 0.5f, 0.5f, 0.5f);
    for (const auto& [off_x, off_z] : {std::pair(rim, 0.0f), {NAN, 0.0f}, {0.0f, INFINITY}})
        EXPECT_EQ(return_terrain_y(off_x, off_z, tyre), 0.0f);
    EXPECT_EQ(env.terrain_nrm[0], 0.5f) << "nothing is known there, and nothing set";
}

TEST_F(surfaces_test, runways_of_the_nearest_airport_bear_in_their_order) {
    add_airport({{surface_water, 0.0f}, {surface_dirt, 90.0f}, {surface_asphalt, 0.0f}});
    add_airport({{surface_gravel, 0.0f}});
    EXPECT_EQ(kind_at(0, 0), surface_dirt) << "before the one that crosses it; on water nobody stands";
    EXPECT_EQ(kind_at(0, 100), surface_asphalt);
    EXPECT_EQ(kind_at(19.5f, 100), surface_asphalt);
    EXPECT_EQ(kind_at(20.5f, 100), -1);
    EXPECT_EQ(kind_at(0, 201), -1);
    EXPECT_EQ(kind_at(0, 100, 26), -1);
    EXPECT_EQ(kind_at(0, 100, checker_part_first), -1);
    msc.loc_apt_wrl = 1;
    EXPECT_EQ(kind_at(0, 100, checker_user), surface_gravel);
    kind_at(0, 100);
    msc.loc_apt_wrl = 5000;
    EXPECT_EQ(kind_at(0, 100), surface_asphalt) << "the piece found last is tried before the airport";
    EXPECT_EQ(kind_at(0, 100, tyre + 1), -1) << "an airport that is not there";
}

TEST_F(surfaces_test, a_hook_catches_the_cable_of_mars_alone) {
    flt[0].V_msc = 40.0f, flt[0].onground_any = 1;
    stg.arrest_gear = 1;
    for (const int planet : {0, 1}) {
        set_planet_specs(planet);
        stand_on_survey_land();
        vec_apt.clear();
        add_airport({{surface_concrete, 0.0f}});
        EXPECT_EQ(kind_at(0, 0), surface_concrete);
        EXPECT_EQ(stg.wired, planet);
    }
    EXPECT_EQ(stg.trap_accel, 9.8f);
    const auto catches = [](auto& field, auto value) {
        const auto before = field;
        field = value;
        stg.wired = 0;
        kind_at(0, 0);
        field = before;
        return stg.wired;
    };
    EXPECT_FALSE(catches(stg.arrest_gear, 0) || catches(flt[0].onground_any, 0) ||
                 catches(flt[0].V_msc, 9.0f) || catches(flt[0].beta, 100.0f));
    EXPECT_TRUE(catches(flt[0].beta, -80.0f));
}

// -- decks

TEST_F(surfaces_test, a_deck_moves_as_its_own_places_do) {
    constexpr int s = ship_carrier;
    constexpr float dt = 0.01f;
    const auto ask = [](float heading, float t, float along, float x, float z) {
        env.over_carr = 1;
        env.boat_vphi[s] = 3.0f, env.boat_vthe[s] = 2.0f;  // degrees a second
        env.boat_psi[s] = heading, env.boat_phi[s] = env.boat_vphi[s] * t,
        env.boat_the[s] = env.boat_vthe[s] * t;
        env.boat_x[s] = along * sinf(heading * con.degtorad);
        env.boat_z[s] = -along * cosf(heading * con.degtorad);
        return return_terrain_y(x, z, tyre);
    };
    for (const float heading : {0.0f, 40.0f, 200.0f}) {
        float centre[2][3];
        for (const int later : {0, 1}) {
            const float t = later ? dt : -dt;
            ask(heading, t, carr_v * t, 0.0f, 0.0f);
            std::copy(env.terrain_ctr, env.terrain_ctr + 3, centre[later]);
        }
        ask(heading, 0.0f, 0.0f, 0.0f, 0.0f);
        for (int axis = 0; axis < 3; ++axis)
            EXPECT_NEAR(env.terrain_vel[axis], (centre[1][axis] - centre[0][axis]) / (2 * dt), 0.01)
                << heading;
        for (const auto& [x, z] : {std::pair(60.0f, 0.0f), {0.0f, -80.0f}}) {
            const float rise = ask(heading, dt, 0.0f, x, z) - ask(heading, -dt, 0.0f, x, z);
            ask(heading, 0.0f, 0.0f, x, z);
            EXPECT_NEAR(env.terrain_vel[1], rise / (2 * dt), 0.01) << heading << ' ' << x;
        }
    }
    env.boat_vpsi[s] = 6.0f;
    const float turn = 6.0f * con.degtorad;
    ask(0.0f, 0.0f, 0.0f, 0.0f, -100.0f);
    EXPECT_NEAR(env.terrain_vel[0], turn * 100.0f + 3.0f * con.degtorad * carr_height, 1e-3f)
        << "the bow of a ship that turns and rolls to the right";
}

// -- bumps

TEST_F(surfaces_test, bumps_by_kind_of_ground) {
    const float x = 0.5f * static_cast<float>(M_PI), z = 0.0f;
    const auto bump = [=](int surf_tex, float roughness) {
        env.surf_tex = surf_tex, env.roughness = roughness;
        return surface_detail(x, z);
    };
    const float expected[] = {0, 0, 0.03f, 0.04f, 0.02f, 0.005f, 0, 0, 0.03f, 0.04f};  // from asphalt on
    for (int s = surface_asphalt; s <= surface_pad_dirt; ++s)
        EXPECT_NEAR(bump(s, 0), expected[s - surface_asphalt], 1e-6f) << s;
    EXPECT_NEAR(bump(surface_plain, 0), 0.075f, 1e-6f);
    for (const int s : {surface_turn_asphalt, surface_hard_object}) EXPECT_EQ(bump(s, 0), 0.0f) << s;
    EXPECT_NEAR(bump(surface_asphalt, 1), 0.0573873f, 1e-6f);
    EXPECT_NEAR(bump(surface_lakebed, 0.5f), 0.005f + 0.5f * 0.0573873f, 1e-6f);
}

// -- roofs

TEST_F(surfaces_test, a_roof_bears_though_nothing_is_drawn) {
    const test::temp_folder folder;
    init_paths(folder.path());
    folder.write("roof.obj",
                 "I\n700 version\nOBJ\n\nbricks //\n\nATTR_LOD 0 500\n"
                 "quad_hard\n-5 7 -10 0 0\n5 7 -10 0 0\n5 7 10 0 0\n-5 7 10 0 0\nend");
    const int M = build_obs("roof.obj", 1);
    ASSERT_GE(M, 0);
    xdeg_struct& tile = xdeg[2][1];
    xlay_struct& layer = tile.tex_layers.emplace_back();
    layer.objct_buckets.Reset(bucket_levels, {-50000, -50000}, {50000, 50000}, buckets_loose);
    for (const float x : {-3000.0f, 2000.0f, 40000.0f}) {
        auto* const placed = new scene_objct_struct;
        placed->M_SIM = M;
        placed->xyz[0] = x, placed->xyz[1] = 300.0f, placed->xyz[2] = 1000.0f;
        layer.objct_buckets.Insert(placed);
    }
    finish_degree(&tile);
    const auto is_over = [](double x, double y, double z) {
        env.over_obs_this = 0;
        flt[0].dob_x = x, flt[0].dob_y = y, flt[0].dob_z = z;
        find_roof_below();
        return env.over_obs_this;
    };
    EXPECT_TRUE(is_over(2004.0, 308.0, 1009.0) && is_over(-3004.0, 308.0, 991.0));
    EXPECT_EQ(env.obj_y_top, 307.0f);
    EXPECT_EQ(env.surf_tex, surface_hard_object);
    EXPECT_FALSE(is_over(2006.0, 308.0, 1009.0) || is_over(0.0, 308.0, 1000.0) ||
                 is_over(NAN, 308.0, 1000.0));
    EXPECT_FALSE(is_over(2004.0, 1308.0, 1009.0)) << "from where the object is not there any more";
    layer.is_hidden = 1;
    EXPECT_FALSE(is_over(2004.0, 308.0, 1009.0));
    clear_degree(&tile);
    clear_objects();
}
