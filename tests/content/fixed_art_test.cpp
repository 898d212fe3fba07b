// The fixed pictures and objects: all are there, and have the form that their use asks for.
#include <set>

#include "core/disk/paths.h"
#include "draw/images/image_place.h"
#include "draw/images/tman.h"
#include "read_png.h"
#include "scene/fixed/fixed_objects.h"
#include "scene/fixed/fixed_textures.h"
#include "scenery/objects/object_build.h"
#include "scenery/objects/objects.h"
#include "scenery/packages/library.h"
#include "support.h"

namespace {
const std::string bitmaps = std::string(INSTALL_FOLDER) + "Resources/bitmaps/";

TEST(fixed_art, every_picture_loads_in_its_form_without_a_word) {
    test::fresh();
    init_paths(INSTALL_FOLDER);
    int files = 0;
    std::set<int> refs;
    for (const fixed_texture& texture : list_fixed_textures()) {
        refs.insert(texture.ref);
        const bool wants_alpha = texture.filter == filter_rgba || texture.filter == filter_rgba_mip;
        for (const std::string& path : texture.paths) {
            EXPECT_EQ(tman.load_texture(1, load_ogl, texture.ref, texture.filter, path), texture.ref) << path;
            std::string below = path;
            for (char& c : below)
                if (c == ':') c = '/';
            EXPECT_EQ(test::read_png(bitmaps + below).has_alpha, wants_alpha) << path;
            ++files;
        }
    }
    // of the clouds nine, two and two files share a reference each
    EXPECT_EQ(refs.size() + 8 + 1 + 1, static_cast<size_t>(files));
    EXPECT_EQ(files, 316);
    EXPECT_TRUE(test::alerts.empty());
}

TEST(fixed_art, every_object_loads_and_signs_share_a_texture) {
    test::fresh();
    init_paths(INSTALL_FOLDER);
    clear_objects();
    DSF_ScanSceneryFolder();
    load_fixed_objects();
    EXPECT_TRUE(test::alerts.empty());
    const std::vector<fixed_object> all = list_fixed_objects();
    EXPECT_EQ(all.size(), 298u);
    const auto model = [](int M) { return vec_mod[static_cast<size_t>(M)]; };
    const int texture = model(ren.M_taxi_sign[0][0]).tex_ref_1;
    for (const fixed_object& object : all) {
        ASSERT_GE(*object.index, 0) << object.path;
        const vec_mod_struct mod = model(*object.index);
        EXPECT_EQ(mod.tex_ref_1 == texture, object.path.find("taxi_signs") != std::string::npos) << object.path;
        EXPECT_GT(mod.tex_ref_2, 0) << object.path;
    }
    EXPECT_NE(model(ren.M_taxi_sign[0][5]).path.find("36L_18R_hold"), std::string::npos);
}

int grey(const test::picture& p, int x, int y) { return p.texel(x, y)[0] + p.texel(x, y)[1] + p.texel(x, y)[2]; }

TEST(fixed_art, rows_of_a_runway_join_and_read_upright) {
    for (const std::string surface : {"asphalt", "concrete"}) {
        const std::string folder = bitmaps + "runways/" + surface + "/";
        const test::picture line = test::read_png(folder + "rway_line.png"),
                            seven = test::read_png(folder + "numbers/rway_7.png"),
                            semi = test::read_png(folder + "numbers/rway_semi.png");
        ASSERT_EQ(line.dx, line.dy);
        ASSERT_EQ(seven.dx, 4 * seven.dy);
        ASSERT_EQ(semi.dx, 2 * semi.dy);
        // the end of each row, the picture's first line, meets the beginning of the next, its last
        for (const test::picture* end : {&line, &seven, &semi}) {
            double apart = 0.0;
            for (int x = 0; x < line.dx; ++x) apart += std::abs(grey(*end, x, 0) - grey(line, x, line.dy - 1)) / 3.0;
            EXPECT_LT(apart / line.dx, 14.0) << surface;
        }
        // the bar of the 7 lies high: at the digit's left edge, 23.5 m across, is paint above and none below
        int upper = 0, lower = 0;
        for (int x = seven.dx * 235 / 450; x < seven.dx * 246 / 450; ++x)
            for (int y = 0; y < seven.dy / 3; ++y) {
                upper += grey(seven, x, y) > 480;
                lower += grey(seven, x, seven.dy - 1 - y) > 480;
            }
        EXPECT_GT(upper, 100 + 4 * lower) << surface;
    }
}

TEST(fixed_art, what_is_clamped_ends_without_a_trace) {
    const test::picture skids = test::read_png(bitmaps + "runways/skids.png"),
                        lamp = test::read_png(bitmaps + "world/lites/landing_light.png");
    int darkest = 255;
    for (int x = 0; x < skids.dx; ++x) {
        EXPECT_EQ(grey(skids, x, skids.dy - 1), 3 * 255) << "no marks where t is 0";
        for (int y = 0; y < skids.dy; ++y) ASSERT_EQ(skids.texel(x, y)[3], 255);
        darkest = std::min<int>(darkest, skids.texel(x, 0)[0]);
    }
    EXPECT_TRUE(darkest > 60 && darkest < 130) << darkest;
    for (int i = 0; i < lamp.dx; ++i)
        EXPECT_EQ(grey(lamp, i, 0) + grey(lamp, i, lamp.dy - 1) + grey(lamp, 0, i) + grey(lamp, lamp.dx - 1, i), 0);
    EXPECT_GT(grey(lamp, lamp.dx / 2, lamp.dy / 2), 600);
    for (const char* name : {"cld_puff_1", "cld_puff_2", "smoke_puff"}) {
        const test::picture puff = test::read_png(bitmaps + "world/clouds/" + name + ".png");
        for (int i = 0; i < puff.dx; ++i)
            EXPECT_EQ(puff.texel(i, 0)[3] + puff.texel(0, i)[3] + puff.texel(i, puff.dy - 1)[3], 0) << name;
    }
}
}  // namespace
