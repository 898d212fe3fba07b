// The texture manager in a real context: what OpenGL holds after a load, and what a bind makes of a pixel.
#define GL_GLEXT_PROTOTYPES
#include "draw/images/tman.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>

#include "core/disk/paths.h"
#include "draw/gl/ogl.h"
#include "draw/images/image_bmp.h"
#include "pictures.h"
#include "window.h"

// The GL driver keeps memory when it is unloaded; nobody could name the culprit by then.
extern "C" const char* __asan_default_options() { return "detect_leaks=0"; }

using test::bmp_bytes;
using test::bytes;
using test::png_bytes;

static bytes noise(size_t count, unsigned seed = 1) {
    std::mt19937 random(seed);
    bytes out(count);
    for (auto& b : out) b = static_cast<unsigned char>(random());
    return out;
}

class tman_test : public test::window {
protected:
    void SetUp() override {
        test::window::SetUp();
        seams_headless();
        init_paths(folder.path());
        mnw.tex_res = 5;
        OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
        GL_error_check("before the test");
    }
    void TearDown() override {
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        window_close();
    }
    std::string png(const std::string& name, const test::png_picture& p) {
        return folder.write(name + ".png", png_bytes(p));
    }
    std::string rgba(const std::string& name, int dx, int dy, const bytes& samples) {
        return png(name, {dx, dy, PNG_COLOR_TYPE_RGB_ALPHA, samples});
    }
    static int load(const std::string& path, int filter = filter_rgba, int ref = tex_free,
                    int type = load_ogl) {
        return tman.load_texture(1, type, ref, filter, path);
    }
    // What OpenGL holds, rows from below.
    static bytes held(int ref, GLenum form, int level = 0) {
        int dx, dy;
        glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(ref));
        tman.reset_bind();
        glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_WIDTH, &dx);
        glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_HEIGHT, &dy);
        bytes out(static_cast<size_t>(dx) * dy * (form == GL_RGBA ? 4 : form == GL_RGB ? 3 : 1));
        glGetTexImage(GL_TEXTURE_2D, level, form, GL_UNSIGNED_BYTE, out.data());
        return out;
    }
    static std::string last_alert() { return test::alerts.empty() ? "" : test::alerts.back().text.line[0]; }

    test::temp_folder folder;
};

// -- what a file becomes

TEST_F(tman_test, every_kind_of_png_in_every_form) {
    const struct {
        int colour, depth;
        bytes samples, palette;  // two pixels above each other
        bytes rgb, rgba, alpha;  // the lower one as the texture should have it
    } rows[] = {
        // clang-format off
        {PNG_COLOR_TYPE_GRAY, 8, {9, 50}, {}, {50, 50, 50}, {50, 50, 50, 255}, {50}},
        {PNG_COLOR_TYPE_GRAY, 1, {0x00, 0x80}, {}, {255, 255, 255}, {255, 255, 255, 255}, {255}},
        {PNG_COLOR_TYPE_GRAY_ALPHA, 8, {1, 2, 60, 70}, {}, {60, 60, 60}, {60, 60, 60, 70}, {60}},
        {PNG_COLOR_TYPE_RGB, 8, {1, 2, 3, 80, 80, 80}, {}, {80, 80, 80}, {80, 80, 80, 255}, {80}},
        {PNG_COLOR_TYPE_RGB, 16, {1, 2, 3, 4, 5, 6, 90, 255, 91, 0, 92, 128}, {}, {90, 91, 92}, {90, 91, 92, 255}, {}},
        {PNG_COLOR_TYPE_RGB_ALPHA, 8, {1, 2, 3, 4, 10, 20, 30, 40}, {}, {10, 20, 30}, {10, 20, 30, 40}, {}},
        {PNG_COLOR_TYPE_PALETTE, 4, {0x00, 0x10}, {1, 2, 3, 4, 11, 22, 33, 44}, {11, 22, 33}, {11, 22, 33, 44}, {}},
        // clang-format on
    };
    int n = 0;
    for (const auto& row : rows) {
        const std::string path =
            png("kind" + std::to_string(++n), {1, 2, row.colour, row.samples, row.depth, row.palette});
        const auto lower = [](bytes all) { return bytes(all.begin(), all.begin() + all.size() / 2); };
        EXPECT_EQ(lower(held(load(path, filter_rgb, 1), GL_RGB)), row.rgb) << n;
        EXPECT_EQ(lower(held(load(path, filter_rgba, 1), GL_RGBA)), row.rgba) << n;
        const bytes grey = lower(held(load(path, filter_alpha, 1), GL_ALPHA));
        EXPECT_TRUE(grey == row.alpha || row.alpha.empty()) << n;
        EXPECT_EQ(tman.has_alpha(load(path, filter_auto, 1)), row.rgba[3] != 255) << n;
    }
    const int unsaid = load(png("unsaid", {1, 1, PNG_COLOR_TYPE_RGB, bytes(3, 128), 8, {}, 0.0}), filter_rgb);
    EXPECT_NEAR(held(unsaid, GL_RGB)[0], 255.0 * std::pow(128.0 / 255.0, 1.0 / (2.2 * 0.5555556)), 1.0);
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(tman_test, size_follows_the_users_resolution_and_keeps_to_the_low_corner) {
    const bytes samples = noise(100 * 60 * 3);
    for (const int interlace : {PNG_INTERLACE_NONE, PNG_INTERLACE_ADAM7}) {
        const std::string path =
            png("oblong", {100, 60, PNG_COLOR_TYPE_RGB, samples, 8, {}, test::plain_gamma, interlace});
        for (const int step : {1, 2}) {
            mnw.tex_res = 6 - step;
            memset(scratch_array, 0xee, 128 * 64 * 3);  // of the load before
            const bytes got = held(load(path, filter_rgb, 7), GL_RGB);
            EXPECT_TRUE(tman.tex_dx_vis(7) == 100 / step && tman.tex_dy_vis(7) == 60 / step);
            const int dx_tot = 128 / step, dy_tot = 64 / step;
            ASSERT_EQ(got.size(), static_cast<size_t>(dx_tot * dy_tot * 3));
            int wrong = 0;
            for (int i = 0; i < dx_tot * dy_tot * 3; ++i) {
                const int x = i / 3 % dx_tot * step, y = i / 3 / dx_tot * step;
                const int there = x < 100 && y < 60 ? samples[((59 - y) * 100 + x) * 3 + i % 3] : 0;
                wrong += got[i] != there;
            }
            EXPECT_EQ(wrong, 0) << step << ' ' << interlace;
        }
    }
    const std::string square = rgba("square", 16, 16, bytes(16 * 16 * 4, 200));
    const struct {
        int res, ref, side, most;
    } sides[] = {{0, tex_free, 1, 0},       {0, tex_paint, 1, 0},  {0, tex_interface, 16, 0},
                 {3, tex_paint_last, 8, 0}, {3, tex_weapon, 4, 0}, {5, tex_weapon, 4, 6}};
    for (const auto& s : sides) {
        mnw.tex_res = s.res;
        if (s.most) maxtexdim = s.most;
        EXPECT_EQ(tman.tex_dx_tot(load(square, filter_rgba, s.ref)), s.side);
    }
    mnw.tex_res = 0;
    for (int n = 1; n <= 1024; ++n) {  // 1 / n times n may round to less than a pixel
        image_place place;
        ASSERT_EQ(get_scale("", 0, load_ogl, n, 1024, &place), 1);
        ASSERT_GE(place.dx_vis, 1) << n;
    }
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(tman_test, bmp_with_padded_rows_and_magenta) {
    // 3 by 2, lower row first: blue, magenta, grey; then red, green, white
    const bytes pixels = {255, 0, 0,   255, 0,   255, 6,   9,   30,  0, 0, 0,
                          0,   0, 255, 0,   255, 0,   255, 255, 255, 0, 0, 0};
    const std::string path = folder.write("flag.bmp", bmp_bytes(3, 2, pixels));
    const std::string name = folder.path() + "flag.png";  // any ending asks for both kinds
    bytes got = held(load(name, filter_rgb, 3), GL_RGB);
    EXPECT_EQ(bytes(got.begin(), got.begin() + 12), (bytes{0, 0, 255, 255, 0, 255, 30, 9, 6, 0, 0, 0}));
    EXPECT_EQ(bytes(got.begin() + 12, got.begin() + 21), (bytes{255, 0, 0, 0, 255, 0, 255, 255, 255}));
    got = held(load(name, filter_alpha, 3), GL_ALPHA);
    EXPECT_EQ(bytes(got.begin(), got.begin() + 3), (bytes{85, 170, 15}));
    const std::string opaque = png_bytes({40, 40, PNG_COLOR_TYPE_RGB, noise(4800)});
    folder.write("flag.png", opaque.substr(0, opaque.size() / 2));  // broken: the other still counts in full
    load(name, filter_auto, 0, load_scratch);
    EXPECT_EQ(bytes(scratch_array + 4, scratch_array + 12), (bytes{0, 0, 0, 0, 30, 9, 6, 255}));

    const bytes rgb = noise(5 * 3 * 3);
    std::copy(rgb.begin(), rgb.end(), scratch_array);
    const std::string written = folder.path() + "written.bmp";
    ASSERT_EQ(write_bmp_to_disk(written, 5, 3), 1);
    bytes padded;
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 5; ++x)
            for (int c = 2; c >= 0; --c) padded.push_back(rgb[(y * 5 + x) * 3 + c]);
        padded.push_back(0);
    }
    EXPECT_EQ(test::read_file(written), bmp_bytes(5, 3, padded));
    EXPECT_EQ(write_bmp_to_disk(folder.path() + "no/such/folder.bmp", 5, 3), 0);
}

// -- pixel work

// Each pixel asks its own neighbours.
static bytes cleaned_one_by_one(const bytes& in, int dx, int dy) {
    bytes out = in;
    for (int y = 0; y < dy; ++y)
        for (int x = 0; x < dx; ++x) {
            if (in[(y * dx + x) * 4 + 3]) continue;
            int sum[3] = {}, count = 0;
            for (int v = std::max(0, y - 2); v <= std::min(dy - 1, y + 2); ++v)
                for (int u = std::max(0, x - 2); u <= std::min(dx - 1, x + 2); ++u)
                    if (in[(v * dx + u) * 4 + 3]) {
                        ++count;
                        for (int c = 0; c < 3; ++c) sum[c] += in[(v * dx + u) * 4 + c];
                    }
            for (int c = 0; c < 3 && count; ++c)
                out[(y * dx + x) * 4 + c] = static_cast<unsigned char>(sum[c] / count);
        }
    return out;
}

TEST_F(tman_test, edges_are_clean_on_every_level) {
    const int red = load(rgba("red", 2, 1, {255, 0, 0, 255, 3, 7, 9, 0}));
    EXPECT_EQ(held(red, GL_RGBA), (bytes{255, 0, 0, 255, 255, 0, 0, 0}));
    for (const auto& [dx, dy] : {std::pair{64, 32}, {1, 16}, {16, 1}, {2, 2}, {256, 4}}) {
        bytes samples = noise(dx * dy * 4, dx);
        for (int i = 0; i < dx * dy; ++i)
            if (samples[4 * i] % 8) samples[4 * i + 3] = 0;
        bytes level = samples;  // a file's rows come from above
        for (int y = 0; y < dy; ++y)
            std::copy_n(samples.begin() + (dy - 1 - y) * dx * 4, dx * 4, level.begin() + y * dx * 4);
        const int ref = load(rgba("noise" + std::to_string(dx), dx, dy, samples), filter_rgba_mip);
        int w = dx, h = dy;
        for (int n = 0;; ++n) {
            level = cleaned_one_by_one(level, w, h);
            ASSERT_EQ(held(ref, GL_RGBA, n), level) << dx << " level " << n;
            if (w == 1 && h == 1) break;
            const int nw = std::max(1, w / 2), nh = std::max(1, h / 2);
            bytes next(nw * nh * 4);
            for (size_t i = 0; i < next.size(); ++i) {
                const int c = i % 4, x = i / 4 % nw, y = static_cast<int>(i / 4 / nw);
                int sum = 0, count = 0;
                for (int v = y * 2; v < std::min(h, y * 2 + 2); ++v)
                    for (int u = x * 2; u < std::min(w, x * 2 + 2); ++u)
                        sum += level[(v * w + u) * 4 + c], ++count;
                next[i] = static_cast<unsigned char>(sum / count);
            }
            level = next, w = nw, h = nh;
        }
        EXPECT_EQ(tman.tex_vram(ref), static_cast<int>(dx * dy * 4 * 1.4));
    }
}

TEST_F(tman_test, blends_over_what_is_there) {
    std::fill(scratch_array, scratch_array + scratch_size, 100);
    const std::string path = rgba("plate", 2, 1, {200, 0, 50, 51, 1, 2, 3, 0});
    EXPECT_EQ(load(path, filter_rgba, 0, load_background), 1);
    EXPECT_EQ(bytes(scratch_array, scratch_array + 8), (bytes{120, 80, 90, 151, 100, 100, 100, 100}));
    const auto at = [](int x, int y) { return scratch_array[(y * 1024 + x) * 4]; };
    const std::string block = rgba("block", 4, 4, bytes(64, 255));
    const auto put = [&](float x, float y) {  // 8 by 8 pixels
        veh[0].ins_size[5] = 2.0f, veh[0].ins_x[5] = x, veh[0].ins_y[5] = y;
        return load(block, filter_auto, tex_instrument + 5, load_instrument);
    };
    EXPECT_EQ(put(1022.0f, 1.0f), 1);  // hangs over two edges
    EXPECT_TRUE(at(1018, 4) == 255 && at(1023, 0) == 255);
    EXPECT_TRUE(at(1017, 4) == 100 && at(1020, 5) == 100 && at(2, 3) == 100);
    EXPECT_EQ(put(2.0f, 1023.0f), 1);  // and over the others
    EXPECT_TRUE(at(0, 1023) == 255 && at(5, 1019) == 255);
    EXPECT_TRUE(at(6, 1019) == 100 && at(1023, 1022) == 100);
    EXPECT_EQ(put(3000.0f, 0.0f), 0);
    veh[0].ins_size[5] = NAN;
    for (const int instrument : {5, 300})
        EXPECT_EQ(load(block, filter_rgba, tex_instrument + instrument, load_instrument), 0);
}

// -- table

TEST_F(tman_test, references_are_shared_freed_and_handed_out_again) {
    const std::string a = rgba("a", 1, 1, {1, 1, 1, 255}), b = rgba("b", 1, 1, {2, 2, 2, 255}),
                      c = rgba("c", 1, 1, {3, 3, 3, 255});
    const int ra = load(a), rb = load(b), rc = load(c);
    EXPECT_GE(ra, static_cast<int>(tex_free));
    EXPECT_EQ(load(rgba("a", 2, 2, bytes(16, 9))), ra);
    EXPECT_EQ(tman.tex_dx_tot(ra), 1.0f);  // not read again
    const long long before = tman.tot_vram();
    tman.unload_texture(ra), tman.unload_texture(rb), tman.unload_texture(rb), tman.unload_texture(0);
    EXPECT_EQ(before - tman.tot_vram(), 8);
    EXPECT_FALSE(glIsTexture(ra));
    EXPECT_EQ(tman.get_path(ra), "un-inited");
    EXPECT_EQ(load(b), rb);  // the highest that is free
    EXPECT_EQ(load(a), ra);
    EXPECT_EQ(load(c), rc);
    EXPECT_EQ(tman.tex_dx_tot(ra), 2.0f);
    load(c, filter_rgba, tex_paint);  // a fixed one is its owner's alone
    EXPECT_EQ(load(c), rc);
    EXPECT_EQ(tman.tex_vram(-5) + tman.tex_vram(1 << 30), 0);
}

// -- binding

TEST_F(tman_test, binds_once_and_only_units_that_exist) {
    const int a = load(rgba("a", 1, 1, {1, 1, 1, 255})), b = load(rgba("b", 1, 1, {2, 2, 2, 255}));
    const auto bound = [](int unit) {
        int name, active;
        glGetIntegerv(GL_ACTIVE_TEXTURE, &active);
        EXPECT_EQ(active, GL_TEXTURE0);
        glActiveTexture(GL_TEXTURE0 + unit);
        glGetIntegerv(GL_TEXTURE_BINDING_2D, &name);
        glActiveTexture(GL_TEXTURE0);
        return name;
    };
    tman.bind_ref(a, 0, 0);
    tman.bind_ref(b, 1, combine_add);
    EXPECT_EQ(bound(0), a);
    EXPECT_EQ(bound(1), b);
    glBindTexture(GL_TEXTURE_2D, 0);
    tman.bind_ref(a, 0, combine_modulate);
    EXPECT_EQ(bound(0), 0);  // it had it: no second call
    tman.reset_bind();
    tman.bind_ref(a, 0, 0);
    EXPECT_EQ(bound(0), a);
    ren.num_tex_units = 1;
    tman.bind_ref(a, 1, 1);
    EXPECT_EQ(bound(1), b);
    ren.num_tex_units = 8;
    for (const int ref : {0, 1 << 30}) {
        tman.bind_ref(ref, 0, 0);
        EXPECT_EQ(last_alert(), "Trying to bind a null ref!");
        EXPECT_EQ(bound(0), a);
    }
}

// One pixel of the table of modes: primary colour, what the first unit makes, and a second texture.
TEST_F(tman_test, combiner_modes_mix_as_their_table_says) {
    using colour = std::array<double, 4>;
    const colour primary{0.8, 0.6, 0.4, 0.2}, first{1.0, 0.4, 0.8, 0.6}, tex{0.2, 0.6, 0.4, 0.8};
    const auto texel = [](const colour& c) {
        bytes out;
        for (const double v : c) out.push_back(static_cast<unsigned char>(std::lround(255.0 * v)));
        return out;
    };
    const int a = load(rgba("a", 1, 1, texel(first))), b = load(rgba("b", 1, 1, texel(tex)));
    const int plain = load(folder.path() + "b.png", filter_rgb, tex_fire);
    const auto mix = [](auto f, const colour& p, const colour& q) {
        return colour{f(p[0], q[0]), f(p[1], q[1]), f(p[2], q[2]), f(p[3], q[3])};
    };
    const auto with_alpha = [](colour c, double alpha) { return c[3] = alpha, c; };
    const colour previous = mix(std::multiplies(), primary, first);
    const colour sum = mix([](double p, double q) { return std::min(1.0, p + q); }, previous, tex);
    const colour lit = mix(std::multiplies(), previous, primary),
                 product = mix(std::multiplies(), previous, tex);
    const colour over =
        mix([&](double p, double q) { return p * previous[3] + q * (1.0 - previous[3]); }, previous, tex);
    const struct {
        int mode, tex;
        colour expected;
    } rows[] = {
        // clang-format off
        {1, b, sum}, {1, plain, with_alpha(sum, previous[3])}, {1, b, sum},  // the change of texture alone counts
        {2, b, with_alpha(tex, tex[3] - primary[3])}, {3, b, with_alpha(over, 1.0)},
        {4, b, with_alpha(lit, previous[3])}, {5, b, with_alpha(lit, tex[3])}, {6, b, previous},
        {7, b, with_alpha(previous, 1.0)}, {8, b, with_alpha(product, 1.0)},
        {GL_MODULATE, b, product}, {0, b, product}, {GL_ADD, b, with_alpha(sum, product[3])},
        // clang-format on
    };
    OGL_view_2d();
    OGL_setstate(fog_off, 2, lit_off, al_blend, depth_no_read, depth_no_write);
    const auto draw = [&](GLenum source) {
        glBlendFunc(source, GL_ZERO);
        glColor4dv(primary.data());
        glRectf(490.0f, 310.0f, 510.0f, 290.0f);  // clockwise
        unsigned char p[3];
        glReadPixels(500, 300, 1, 1, GL_RGB, GL_UNSIGNED_BYTE, p);
        return std::array<double, 3>{p[0] / 255.0, p[1] / 255.0, p[2] / 255.0};
    };
    for (const auto& row : rows) {
        tman.bind_ref(a, 0, 0);
        tman.bind_ref(row.tex, 1, row.mode);
        const auto full = draw(GL_ONE), by_alpha = draw(GL_SRC_ALPHA);
        for (int c = 0; c < 3; ++c) {
            EXPECT_NEAR(full[c], row.expected[c], 0.012) << row.mode << ' ' << c;
            EXPECT_NEAR(by_alpha[c], row.expected[c] * row.expected[3], 0.012) << row.mode << ' ' << c;
        }
    }
    OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
}

// -- faults

TEST_F(tman_test, faulty_files_are_told_and_give_no_texture) {
    const std::string good = png_bytes({40, 40, PNG_COLOR_TYPE_RGB, noise(4800)});
    const bytes pixels(4 * 3 * 3);
    const auto big = [](int dx, int dy) {
        return png_bytes({dx, dy, PNG_COLOR_TYPE_GRAY, bytes((dx + 7) / 8 * dy), 1});
    };
    const char* const size = "Trying to create a texture either less than 1 or greater than 1024!";
    const struct {
        const char* name;
        std::string content;
        const char* words;
    } rows[] = {
        {"sig.png", "no picture at all", "PING-FILE ERROR!"},
        {"cut.png", good.substr(0, good.size() / 2), "PNG error!"},
        {"wide.png", big(1025, 1), size},
        {"magic.bmp", "BX" + bmp_bytes(4, 3, pixels).substr(2),
         "Trying to read a texture bitmap that is not a bitmap"},
        {"wide.bmp", bmp_bytes(1025, 3, pixels), "Bitmap too wide! (max is 1024)"},
        {"tall.bmp", bmp_bytes(4, 0x7fffffff, pixels), "Bitmap too tall! (max is 1024)"},
        {"down.bmp", bmp_bytes(4, -3, pixels), size},
        {"depth.bmp", bmp_bytes(4, 3, pixels, 32), "Wrong bitmap color depth for texture!"},
        {"rle.bmp", bmp_bytes(4, 3, pixels, 24, 1), "Bitmap is compressed!"},
        {"rows.bmp", bmp_bytes(4, 4, pixels), "Bitmap is cut short!"},
        {"far.bmp", bmp_bytes(4, 3, pixels, 24, 0, -8), "Bitmap is cut short!"},
    };
    for (const auto& row : rows) {
        const std::string path = folder.write(row.name, row.content);
        EXPECT_EQ(tman.load_texture(0, load_ogl, tex_free, filter_auto, path), 0) << row.name;
        EXPECT_EQ(last_alert(), row.words) << row.name;
        EXPECT_EQ(test::alerts.back().type, alert_message);
        test::alerts.clear();
    }
    folder.write("tiny.png", "\x89PNG\r\n\x1a");
    for (const char* name : {"tiny.png", "absent.png", "x"})
        EXPECT_EQ(tman.load_texture(0, load_ogl, tex_free, filter_auto, folder.path() + name), 0);
    EXPECT_TRUE(test::alerts.empty());
    EXPECT_EQ(load("world:absent.png"), 0);  // below the folder of bitmaps
    EXPECT_EQ(last_alert(), "Trying to load a texture that you do not have!");
    EXPECT_EQ(test::alerts.back().text.line[2], folder.path() + "Resources:bitmaps:world:absent.png");
    EXPECT_EQ(load("a", filter_rgb, 1832) + load("b", -115), 0);
    EXPECT_EQ(load("c", filter_rgb, 1, -104), 0);
    EXPECT_EQ(last_alert(), "Trying to creata an invalid texture load_type!");
}

// A window that shows a fault draws its background through the same buffer.
TEST_F(tman_test, an_alert_in_mid_load_leaves_the_pixels) {
    std::string content = png_bytes({2, 1, PNG_COLOR_TYPE_RGB, {1, 2, 3, 4, 5, 6}});
    content[content.find("gAMA") + 8] ^= 1;  // its check sum is wrong
    seam.has_display = 1;
    static int shown;
    shown = 0;
    alert_seam.show = [](int, const alert_lines&, int) { ++shown, memset(scratch_array, 77, scratch_size); };
    EXPECT_EQ(load(folder.write("crc.png", content), filter_rgb, 0, load_scratch), 1);
    EXPECT_EQ(shown, 1);
    EXPECT_GT(scratch_array[3], scratch_array[0]);
    EXPECT_NE(scratch_array[5], 77);
}

TEST_F(tman_test, works_on_the_table_alone_without_a_window) {
    const std::string path = rgba("a", 8, 4, noise(128));
    window_close();
    const int ref = load(path);
    EXPECT_EQ(tman.tex_dx_tot(ref), 8.0f);
    tman.unload_texture(ref);
    EXPECT_EQ(tman.tex_vram(ref), 0);
    EXPECT_EQ(load(path), ref);
    SetUp();  // a new context knows nothing of the old one's textures
    EXPECT_EQ(load(path), ref);
    EXPECT_EQ(held(ref, GL_RGBA).size(), 128u);
}

TEST(gl_facts, come_from_the_version_or_the_whole_list) {
    gl_facts_from("1.2", "");
    EXPECT_TRUE(tex_clamp_avail && !combine_avail);
    gl_facts_from("4.5 (Compatibility Profile)", "");
    EXPECT_TRUE(tex_clamp_avail && combine_avail && !add_env_avail);
    gl_facts_from("1.1", "GL_ARB_multitexture " + std::string(6000, 'x') + " GL_EXT_texture_env_add");
    EXPECT_TRUE(add_env_avail && !tex_clamp_avail);
}
