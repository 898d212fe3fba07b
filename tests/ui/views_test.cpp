// Views: angles against rotation matrices, where each view stands, what bounds it.
#include <array>
#include <cmath>
#include <cstring>

#include "core/math/axes.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/program/input_gate.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "scenery/ground/tile.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/region/region_lists.h"
#include "support.h"
#include "ui/views/mouse_look.h"
#include "ui/views/view_angles.h"
#include "ui/views/view_places.h"
#include "ui/views/zoom.h"

namespace {
class views_test : public test::system_test {
protected:
    void SetUp() override {
        test::system_test::SetUp();
        reset_views();
        env.lat_sou = 33.0f, env.lon_wes = -119.0f;
        find_region_extents();
        mnw.x_res_now = 1024, mnw.y_res_now = 768, mnw.xy_scale = 1.0f;
        mnw.prd_FM = 0.02f;
        ren.FOV = 45.0f;
        ren.view_type_act = view_fwd_panel;
        veh[0].size_tot = 20.0f, veh[0].size_x = 8.0f;
        flt[0].dob_x = 1000.0, flt[0].dob_y = 800.0, flt[0].dob_z = -2000.0;
        turn_aircraft(70.0f, 0.0f, 0.0f);
    }
    static void turn_aircraft(float psi, float the, float phi) {
        flt[0].psi = psi, flt[0].the = the, flt[0].phi = phi;
        cache_attitude(0);
    }
    static void frames(float seconds) {
        for (float t = 0.0f; t < seconds; t += mnw.prd_FM) zoom.update_per_frame();
    }
    // Of the eye from the aircraft, world frame, m.
    static double away(int axis) {
        const double at[3] = {flt[0].dob_x, flt[0].dob_y, flt[0].dob_z};
        return ren.view_xyz[axis] - at[axis];
    }
    static float off(float psi, float from) { return std::fabs(fltwrap(psi - from, -180.0f, 180.0f)); }
    static bool sees_aircraft() {
        const attitude_struct to = direction_to(static_cast<float>(-away(0)), static_cast<float>(-away(1)),
                                                static_cast<float>(-away(2)));
        return off(ren.final_psi, to.psi) < 0.1f && std::fabs(ren.final_the - to.the) < 0.1f;
    }
};

TEST_F(views_test, three_rotations_compose_as_their_matrices_do_through_the_poles_too) {
    const auto turn = [](const float(&v)[3], const float(&a)[3], float(&out)[3]) {
        any_to_wrl(v[0], v[1], v[2], &out[0], &out[1], &out[2], sin_deg(a[0]), cos_deg(a[0]), sin_deg(a[1]),
                   cos_deg(a[1]), sin_deg(a[2]), cos_deg(a[2]));
    };
    for (int n = 0; n < 400; ++n) {
        float a[3][3];
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j)
                a[i][j] = 170.0f * std::sin(1.7f * static_cast<float>(n * 9 + i * 3 + j));
        if (n % 10 == 0) a[0][1] = 90.0f, a[1][1] = a[1][2] = a[2][1] = a[2][2] = 0.0f;  // straight up
        float psi, the, phi;
        get_euler_from_eulers(a[0][0], a[1][0], a[2][0], &psi, a[0][1], a[1][1], a[2][1], &the, a[0][2],
                              a[1][2], a[2][2], &phi);
        for (const auto& v : {std::array{1.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f}, {0.0f, 0.0f, -1.0f}}) {
            const float from[3] = {v[0], v[1], v[2]}, whole[3] = {psi, the, phi};
            float one[3], two[3], three[3], composed[3];
            turn(from, a[0], one), turn(one, a[1], two), turn(two, a[2], three), turn(from, whole, composed);
            for (int i = 0; i < 3; ++i) ASSERT_NEAR(composed[i], three[i], 2e-3f) << n;
        }
    }
    const attitude_struct over = folded({10.0f, 95.0f, 0.0f});
    EXPECT_NEAR(over.psi, 190.0f, 1e-3f);
    EXPECT_NEAR(over.the, 85.0f, 1e-3f);
    EXPECT_NEAR(std::fabs(over.phi), 180.0f, 1e-3f);
}

TEST_F(views_test, views_from_inside_look_where_their_names_say) {
    veh[0].pe_xyz[0] = -0.5f, veh[0].pe_xyz[1] = 1.0f, veh[0].pe_xyz[2] = -3.0f;
    const struct {
        int code;
        float psi, the;
    } looks[] = {{view_fwd_panel, 70, 0}, {view_left_45, 25, 0}, {view_right_90, 160, 0},
                 {view_left_135, 295, 0}, {view_back, 250, 0},   {view_up_right, 115, 30},
                 {view_fwd_bare, 70, 0}};
    for (const auto& look : looks) {
        APP_handlemenu(look.code);
        zoom.update_per_frame();
        EXPECT_LT(off(ren.final_psi, look.psi), 0.01f) << look.code;
        EXPECT_NEAR(ren.final_the, look.the, 0.01f) << look.code;
        EXPECT_EQ(view_type(), std::lround(fltwrap(look.psi - 70.0f, 0.0f, 359.0f) / 45.0f)) << look.code;
        EXPECT_NEAR(std::hypot(std::hypot(away(0), away(1)), away(2)), std::sqrt(10.25), 1e-3);
    }
    APP_handlemenu(view_down);
    zoom.update_per_frame();
    EXPECT_NEAR(ren.final_the, -90.0f, 0.1f);
    APP_handlemenu(view_fwd_panel);
    for (const float asked : {-5.0f, -10.0f, -15.0f, 0.0f}) {
        APP_handlemenu(view_look_down);
        frames(3.0f);
        EXPECT_NEAR(ren.final_the, asked, 0.05f);
    }
}

TEST_F(views_test, chase_follows_the_nose_at_rest_and_the_way_at_speed) {
    flt[0].h_path = 100.0f;
    const struct { float speed, psi; } cases[] = {{5.0f, 70.0f}, {15.0f, 85.0f}, {30.0f, 100.0f}};
    for (const auto& c : cases) {
        flt[0].V_msc = c.speed;
        flt[0].vx = c.speed * sin_deg(100.0f), flt[0].vz = -c.speed * cos_deg(100.0f);
        APP_handlemenu(view_chase);
        frames(15.0f);
        EXPECT_LT(off(ren.final_psi, c.psi), 0.2f) << c.speed;
        EXPECT_NEAR(std::hypot(away(0), away(2)), 30.0, 0.5) << "one and a half times its size";
        EXPECT_TRUE(sees_aircraft());
    }
    APP_handlemenu(view_circle);
    for (int i = 0; i < 200; ++i) zoom.poke_zoom(special_shift_up), zoom.update_per_frame();
    EXPECT_GT(away(1), 25.0) << "the eye goes up";
    EXPECT_TRUE(sees_aircraft());
    for (int i = 0; i < 30; ++i) zoom.poke_zoom(zoom_key_out);
    EXPECT_GT(zoom.circ_dist(), 250.0f);
}

TEST_F(views_test, tower_and_runway_stand_at_the_airport_and_glide_to_another) {
    vec_apt.assign(2, {});
    for (int i = 0; i < 2; ++i) {
        vec_apt_struct& apt = vec_apt[static_cast<size_t>(i)];
        apt.twr_lat = 34.01f + 0.01f * static_cast<float>(i), apt.twr_lon = -117.49f, apt.twr_hgt = 25.0f;
        apt.rwy.assign(2, {});
        strcpy(apt.rwy[0].num_str, "xxx"), strcpy(apt.rwy[1].num_str, "09");
        double lat, lon, ele;
        xdob_latlonel_with_xyz(&lat, &lon, &ele, flt[0].dob_x, 0.0, flt[0].dob_z);
        apt.rwy[0].lat = static_cast<float>(lat), apt.rwy[0].lon = static_cast<float>(lon);
        apt.rwy[1].lat = 34.0f, apt.rwy[1].lon = -117.5f, apt.rwy[1].psi_true = 90.0f,
        apt.rwy[1].len = 1010.0f;
        apt_lcl_to_wrl[i] = i;
    }
    apt_lcl_max = 1;
    msc.loc_apt_wrl = 0;
    const auto distance_to_tower = [] {
        float x, y, z;
        const vec_apt_struct& apt = vec_apt[static_cast<size_t>(msc.loc_apt_wrl)];
        xyz_with_latlonel(&x, &y, &z, apt.twr_lat, apt.twr_lon, 0.0);
        return std::hypot(ren.view_xyz[0] - x, ren.view_xyz[2] - z);
    };
    APP_handlemenu(view_tower);
    frames(15.0f);
    EXPECT_LT(distance_to_tower(), 1.0f);
    EXPECT_TRUE(sees_aircraft());
    msc.loc_apt_wrl = 1;
    zoom.update_per_frame();
    EXPECT_GT(distance_to_tower(), 900.0f);
    frames(15.0f);
    EXPECT_LT(distance_to_tower(), 1.0f);
    APP_handlemenu(view_runway);
    frames(5.0f);
    EXPECT_NEAR(zoom.spot_x(), 500.0f, 2.0f) << "the nearer end, and not of the runway that is none";
    EXPECT_NEAR(ren.view_xyz[0], zoom.spot_x(), 1.0f);
    vec_apt.clear();
    apt_lcl_max = -1;
    msc.loc_apt_wrl = 0;
    for (const int code : {view_tower, view_runway}) {
        APP_handlemenu(code);
        frames(15.0f);
        EXPECT_NEAR(away(1), 30.0, 1.0) << "without any airport";
    }
}

TEST_F(views_test, spots_stand_and_move) {
    flt[0].V_msc = 50.0f, flt[0].vx = 50.0f;
    APP_handlemenu(view_still_spot);
    EXPECT_NEAR(away(0), 212.0, 1.0) << "four seconds ahead, and beside it";
    const float x = ren.view_xyz[0];
    flt[0].dob_x += 1000.0;
    frames(1.0f);
    EXPECT_NEAR(ren.view_xyz[0], x, 0.5f);
    APP_handlemenu(view_moving_spot);
    const float from = ren.view_xyz[0];
    frames(2.0f);
    EXPECT_NEAR(ren.view_xyz[0] - from, 100.0f, 3.0f);
    mnw.paused = 1;
    const float held = ren.view_xyz[0];
    frames(1.0f);
    EXPECT_EQ(ren.view_xyz[0], held);
}

// What a file, a plugin or the network may bring.
TEST_F(views_test, nonsense_never_reaches_the_camera) {
    zoom.update_per_frame();
    const float nan = std::nanf("");
    const float good = ren.view_xyz[0];
    veh[0].pe_xyz[0] = 1e9f;
    zoom.update_per_frame();
    EXPECT_NEAR(ren.view_xyz[0], good, 1.0f);
    net.getting_camera = 1;
    ren.view_xyz[0] = nan, ren.final_psi = 1e30f;
    zoom.update_per_frame();
    EXPECT_NEAR(ren.view_xyz[0], good, 1.0f);
    EXPECT_LE(std::fabs(ren.final_psi), 360.0f);
    net.getting_camera = 0;
    for (float* setting :
         {&ren.FOV, &ren.off_lat_rat, &ren.off_vrt_deg, &ren.mouse_look_os_psi, &ren.elum_ref_phi}) {
        const float before = *setting;
        *setting = nan;
        zoom.update_per_frame();
        EXPECT_TRUE(std::isfinite(ren.final_psi) && std::isfinite(mnw.x1_rat) && std::isfinite(mnw.y2_rat));
        *setting = before;
    }
    APP_handlemenu(view_tower);
    ren.view_xyz[1] = nan;
    zoom.update_per_frame();
    EXPECT_TRUE(std::isfinite(ren.view_xyz[1]) && std::isfinite(ren.final_the));
    zoom.poke_map_zoom(nan);
    EXPECT_EQ(zoom.map_zoom(), 1.0f);
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(views_test, zoom_eases_to_what_the_keys_ask_within_its_limits) {
    for (int i = 0; i < 40; ++i) zoom.poke_zoom(zoom_key_in_fast);
    frames(0.2f);
    EXPECT_LT(zoom.act_zoom(), 5.0f);
    frames(20.0f);
    EXPECT_FLOAT_EQ(zoom.act_zoom(), 50000.0f);
    for (int i = 0; i < 100; ++i) zoom.poke_zoom(zoom_key_out);
    frames(20.0f);
    EXPECT_FLOAT_EQ(zoom.act_zoom(), 1.0f);
    EXPECT_FLOAT_EQ(mnw.x2_rat - mnw.x1_rat, 1.0f) << "FOV / 90 to each side";
    EXPECT_FLOAT_EQ(mnw.y2_rat, 0.5f);
    mnw.top_win = win_map;
    poke_pan(100.0f, 0.0f);
    EXPECT_EQ(zoom.map_osx_mtr(), 0.5f * std::fabs(env.reg_x2_mtr - env.reg_x1_mtr) * 0.8f);
    for (int i = 0; i < 10; ++i) zoom.poke_zoom(special_right);
    EXPECT_FLOAT_EQ(zoom.map_osx_mtr(), 0.5f * std::fabs(env.reg_x2_mtr - env.reg_x1_mtr))
        << "half of the region";
    zoom.poke_zoom(zoom_key_out);
    EXPECT_EQ(zoom.map_osx_mtr(), 0.0f);
    mnw.top_win = win_fly;
    APP_handlemenu(view_circle);
    for (int i = 0; i < 3000; ++i) zoom.poke_zoom(zoom_key_out);
    for (int i = 0; i < 3000; ++i) zoom.poke_zoom(zoom_key_in);
    zoom.update_per_frame();
    EXPECT_FLOAT_EQ(zoom.circ_dist(), 1.5f * veh[0].size_tot) << "back from as far as the keys go";
    mnw.top_win = win_map;
    mnw.map_is_3d = 1, mnw.prd_UI = 0.02f;
    for (int i = 0; i < 1000; ++i) zoom.poke_zoom(special_down);
    EXPECT_NEAR(zoom.map3_the_rad(), 0.01745f, 1e-4f) << "one degree above the ground";
}

TEST_F(views_test, a_view_station_walks_by_its_keys_and_slaves_look_ahead) {
    net.use_ip[ip_master_view] = 1;
    ren.view_type_act = view_back;
    zoom.update_per_frame();
    EXPECT_EQ(ren.view_type_act, view_fwd_bare);
    net.use_ip[ip_master_view] = 0;
    ren.is_viewer = 1, mnw.miss_time = 1.0f;
    zoom.update_per_frame();  // starts where the view stood, looking 70 degrees
    const float x = ren.viewer_x, z = ren.viewer_z;
    APP_handlekey(key_use_char, 'w');
    EXPECT_NEAR(ren.viewer_x - x, 100.0f * sin_deg(ren.viewer_psi), 1.0f);
    EXPECT_NEAR(ren.viewer_z - z, -100.0f * cos_deg(ren.viewer_psi), 1.0f);
    APP_handlekey(key_use_char, 'F');
    EXPECT_NEAR(ren.viewer_y, ground_of_view(ren.viewer_x, ren.viewer_z) + 1.75f, 200.0f);
    for (int i = 0; i < 900; ++i) APP_handlekey(key_use_char, 'D');
    EXPECT_LE(ren.viewer_x, env.reg_x2_mtr);
    EXPECT_GE(ren.viewer_y, ground_of_view(ren.viewer_x, ren.viewer_z) + 1.74f);
}
}  // namespace
