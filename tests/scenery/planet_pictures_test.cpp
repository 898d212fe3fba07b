// The planets' pictures as OpenGL holds them: the right half, the right way up.
#include "scenery/draw/planet_pictures.h"

#include <GL/gl.h>

#include "core/disk/paths.h"
#include "core/program/seams.h"
#include "core/records/mnw.h"
#include "draw/gl/gl_facts.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "platform/window.h"
#include "support.h"
#include "xvfb.h"

namespace {
struct colour {
    int r, g, b;
    int light() const { return r + g + b; }
};

class planet_pictures : public test::system_test {
protected:
    void SetUp() override {
        system_test::SetUp();
        init_paths(INSTALL_FOLDER);
        mnw.x_res_now = 1024, mnw.y_res_now = 768, mnw.tex_res = 5;
        compute_screen_scale();
        ASSERT_EQ(MACIBM_getcontext(), 1);
        read_gl_facts();
        window_fixed_gl_state();
        platform_install_seams();
    }
    void TearDown() override {
        window_close();
        seams_headless();
    }
    // Mean of 5 by 5 texels; longitude east, 0 to 360.
    static colour at(double lat, double lon) {
        constexpr int side = 1024, reach = 2;
        const int ref = lon < 180.0 ? tex_planet : tex_planet_last;
        std::vector<unsigned char> pixels(3 * side * side);
        tman.bind_ref(ref, 0, combine_default);
        glGetTexImage(GL_TEXTURE_2D, 0, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
        const int s = static_cast<int>((lon < 180.0 ? lon : lon - 180.0) / 180.0 * side);
        const int t = static_cast<int>((lat + 90.0) / 180.0 * side);
        colour sum = {0, 0, 0};
        for (int y = t - reach; y <= t + reach; ++y)
            for (int x = s - reach; x <= s + reach; ++x) {
                const unsigned char* p = &pixels[3 * (y * side + x)];
                sum = {sum.r + p[0], sum.g + p[1], sum.b + p[2]};
            }
        constexpr int count = (2 * reach + 1) * (2 * reach + 1);
        return {sum.r / count, sum.g / count, sum.b / count};
    }
    const test::xvfb screen;
};

TEST_F(planet_pictures, show_the_earth_where_it_is) {
    load_planet_pictures(0);
    EXPECT_TRUE(test::alerts.empty());
    const colour sahara = at(23, 12), amazon = at(-5, 295), pacific = at(-20, 230), indian = at(-25, 80);
    EXPECT_GT(sahara.r, sahara.b + 40);
    EXPECT_GT(amazon.g, amazon.b + 20);
    EXPECT_GT(pacific.b, 2 * pacific.r);
    EXPECT_GT(indian.b, 2 * indian.r);
    EXPECT_GT(at(-85, 90).light(), 600) << "Antarctica";
    EXPECT_LT(at(-60, 320).light(), 300) << "the southern ocean";
}

TEST_F(planet_pictures, show_mars_where_it_is) {
    load_planet_pictures(1);
    EXPECT_TRUE(test::alerts.empty());
    const colour arabia = at(22, 22), syrtis = at(8, 69), acidalium = at(46, 330), tharsis = at(6, 250);
    EXPECT_GT(arabia.light(), syrtis.light() + 150);
    EXPECT_GT(tharsis.light(), acidalium.light() + 150);
    EXPECT_GT(at(89, 100).light(), 600) << "the northern ice";
}

TEST_F(planet_pictures, that_are_missing_are_told_and_leave_no_texture) {
    const test::temp_folder empty;
    init_paths(empty.path());
    load_planet_pictures(1);
    EXPECT_EQ(test::alerts.size(), 2u);
    EXPECT_EQ(tman.tex_vram(tex_planet), 0);
}
}  // namespace
