// The sky as pixels: bodies stand where an almanac has them, the planet ends where geometry says.
#include <algorithm>
#include <cmath>

#include "core/disk/paths.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "scene/aurora.h"
#include "scene/dome.h"
#include "scene/world.h"
#include "ui/views/zoom.h"
#include "weather/atmosphere.h"
#include "weather/sky/skyc.h"
#include "weather/sky/stars.h"
#include "weather/weather_step.h"
#include "window.h"

namespace {
constexpr double rad = M_PI / 180.0, obliquity = 23.44;
constexpr int wide = 1024, high = 768;

struct direction {
    double heading, height;  // degrees
};

// Of what has that declination and stands so far west of the meridian, degrees.
direction seen_from(double lat, double dec, double hour_angle) {
    const double up =
        sin(lat * rad) * sin(dec * rad) + cos(lat * rad) * cos(dec * rad) * cos(hour_angle * rad);
    const double east = -cos(dec * rad) * sin(hour_angle * rad);
    const double north =
        cos(lat * rad) * sin(dec * rad) - sin(lat * rad) * cos(dec * rad) * cos(hour_angle * rad);
    return {atan2(east, north) / rad, asin(up) / rad};
}

class sky_scene_test : public test::window {
protected:
    void SetUp() override {
        test::window::SetUp();
        init_paths(INSTALL_FOLDER);
        set_planet_specs(0);
        init_weather_defaults();
        reset_skyc();
        reset_views();
        init_world_rendering();
        star.star_build();
        atm.cld_type[0] = atm.cld_type[1] = cld_none;
        atm.vis_rep = 25.0f * con.nmtomtrs;
        stg.draw_planet = 1;
        ren.FOV = 45.0f;
        env.lat_sou = 33.0f, env.lon_wes = -119.0f;
        go_to(34.0, 500.0);
    }
    // Near the middle of the region, where its frame is level.
    static void go_to(double lat, double ele) {
        env.lat_sou = static_cast<float>(lat) - 1.0f;
        flt[0].dob_lat = lat, flt[0].dob_lon = -117.5, flt[0].dob_ele = ele;
        xdob_xyz_with_latlonel(&flt[0].dob_x, &flt[0].dob_y, &flt[0].dob_z, lat, -117.5, ele);
    }
    // Hours of the sun at the place.
    static void set_time(int day, double hour) {
        mnw.locl_date_jan1 = day;
        mnw.zulu_time = static_cast<float>(dobwrap((hour + 117.5 / 15.0) * 3600.0, 0.0, 86400.0));
        mnw.locl_time = locl_from_zulu();
    }
    // The picture towards there, rows from below.
    static std::vector<unsigned char> look(const direction& at, double fov = 45.0) {
        flt[0].psi = static_cast<float>(at.heading), flt[0].the = static_cast<float>(at.height);
        ren.view_type_act = view_fwd_bare, ren.FOV = static_cast<float>(fov);
        for (int pass = 0; pass < 2; ++pass) scene_state_step();  // what depends on the view follows it
        WORLD_scene_per_dome();
        return pixels(0, 0, wide, high);
    }
    static int light(const std::vector<unsigned char>& p, int x, int y) {
        const unsigned char* at = &p[3 * (static_cast<size_t>(y) * wide + x)];
        return at[0] + at[1] + at[2];
    }
};

TEST_F(sky_scene_test, the_sun_is_drawn_where_an_almanac_has_it) {
    for (const double hour : {7.5, 10.0, 16.5}) {
        set_time(172, hour);
        const direction sun = seen_from(34.0, obliquity, (hour - 12.0) * 15.0);
        for (const double aside : {0.0, 10.0}) {
            const auto picture = look({sun.heading + aside * 0.5, sun.height - aside}, 45.0);
            double sum = 0.0, x_mean = 0.0, y_mean = 0.0;
            int most = 0;
            for (int i = 0; i < wide * high; ++i) most = std::max(most, light(picture, i % wide, i / wide));
            for (int i = 0; i < wide * high; ++i)
                if (light(picture, i % wide, i / wide) >= most - 6)
                    sum += 1.0, x_mean += i % wide, y_mean += i / wide;
            // 1024 texels from the eye to the picture at this field of view
            EXPECT_NEAR(x_mean / sum - wide / 2, -1024.0 * tan(aside * 0.5 * rad) * cos(sun.height * rad),
                        25.0)
                << hour << ' ' << aside;
            EXPECT_NEAR(y_mean / sum - high / 2, 1024.0 * tan(aside * rad), 25.0) << hour << ' ' << aside;
        }
    }
}

TEST_F(sky_scene_test, a_bright_star_is_drawn_where_an_almanac_has_it) {
    // Vega by sidereal time: 6.65 h at the first midnight of a year, 0.0657 h more each day
    constexpr double ascension = 18.6157, declination = 38.784;
    for (const double hour : {21.5, 23.5}) {
        constexpr int day = 172;
        set_time(day, hour);
        const double sidereal = 6.65 + 0.0657098 * day + 1.00274 * hour;
        const auto picture = look(seen_from(34.0, declination, (sidereal - ascension) * 15.0), 20.0);
        const auto at = std::max_element(picture.begin(), picture.end()) - picture.begin();
        const int x = static_cast<int>(at / 3 % wide), y = static_cast<int>(at / 3 / wide);
        EXPECT_GT(picture[static_cast<size_t>(at)], 150);
        EXPECT_LT(light(picture, wide / 2, 60), 120) << "the night is dark";
        EXPECT_LT(std::hypot(x - wide / 2, y - high / 2), 60.0) << "1.5 degrees";
    }
}

TEST_F(sky_scene_test, from_orbit_the_planet_ends_at_the_dip_of_its_horizon) {
    constexpr double height = 4e5;
    go_to(34.0, height);
    set_time(172, 12.0);
    const double dip = acos(con.planet_rad / (con.planet_rad + height)) / rad;
    const auto picture = look({0.0, -dip});
    const int degree = 18;  // texels
    for (const int x : {100, 512, 900}) {
        // the horizon of a sphere is a cone: aside of the middle it lies lower in a flat picture
        const double aside = atan2(x - wide / 2, 1024.0);
        const double lower = 1024.0 * (tan(dip * rad) - tan(dip * rad) / cos(aside));
        const int edge = high / 2 + static_cast<int>(lower);
        EXPECT_LT(light(picture, x, edge + 4 * degree), 90) << x;
        EXPECT_GT(light(picture, x, edge - 3 * degree), 200) << x;
    }
}

TEST_F(sky_scene_test, northern_lights_are_green_and_only_of_the_night) {
    go_to(68.0, 1000.0);
    const auto changed = [](int on) {
        reset_aurora();
        mnw.prd_FM = 0.05f;
        atm.plot_aurora = 0;
        const auto before = look({0.0, 20.0}, 60.0);
        atm.plot_aurora = on;
        const auto after = look({0.0, 20.0}, 60.0);
        std::array<long, 3> more = {};
        for (size_t i = 0; i < before.size(); ++i) more[i % 3] += after[i] - before[i];
        return more;
    };
    set_time(350, 23.0);
    const auto night = changed(1);
    EXPECT_GT(night[1], 50000);
    EXPECT_GT(night[1], night[0]);
    EXPECT_GT(night[1], night[2]);
    set_time(172, 12.0);
    EXPECT_EQ(changed(1)[1], 0);
}
}  // namespace
