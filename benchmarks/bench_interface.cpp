// The interface in a window: menu bar, text and widgets, beside plain immediate mode in the same process.
#include <GL/gl.h>
#include <benchmark/benchmark.h>

#include <string>

#include "core/disk/paths.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "draw/gl/colours.h"
#include "draw/gl/gl_facts.h"
#include "draw/gl/ogl.h"
#include "draw/primitives.h"
#include "draw/type.h"
#include "draw/widgets/menus.h"
#include "draw/widgets/widgets.h"
#include "platform/screen.h"
#include "platform/window.h"
#include "ui/screens/start_screen.h"

namespace {
// One window for all; false where there is no display.
bool window_is_up() {
    static const bool up = [] {
        seams_headless();
        init_paths(INSTALL_FOLDER);
        mnw.x_res_now = 1024, mnw.y_res_now = 768;
        compute_screen_scale();
        if (!MACIBM_getcontext()) return false;
        read_gl_facts();
        window_fixed_gl_state();
        platform_install_seams();
        ren.current_alpha = 1.0f;
        load_interface_images();
        MACIBM_clear_menus(1);
        for (int m = 0; m < 7; ++m) MACIBM_create_menu(m, 0, "A menu title");
        mnw.menu_up = -1;
        return true;
    }();
    return up;
}

// Draws and waits until it is drawn.
template <class draw>
void measure(benchmark::State& state, draw&& picture) {
    if (!window_is_up()) return state.SkipWithError("no display");
    OGL_view_2d();
    for (auto _ : state) {
        picture();
        glFinish();
    }
}

void menu_bar(benchmark::State& state) {
    mnw.top_win = win_fly;
    mnw.mx = 500.0f, mnw.my = 760.0f;
    measure(state, [] { menus_draw(); });
}
BENCHMARK(menu_bar)->Unit(benchmark::kMicrosecond);

void strings_200_of_20(benchmark::State& state) {
    const std::string text = "twenty glyphs in all";
    measure(state, [&] {
        for (int i = 0; i < 200; ++i)
            OGL_string(col_white, 10.0f + 200.0f * static_cast<float>(i % 5),
                       10.0f + 18.0f * static_cast<float>(i / 5), text, no_wrap, charset_text);
    });
}
BENCHMARK(strings_200_of_20)->Unit(benchmark::kMicrosecond);

// The same 4,000 quads without any of our code, as the reference.
void plain_quads_4000(benchmark::State& state) {
    measure(state, [] {
        OGL_setstate(fog_off, 1, lit_off, al_both, depth_no_read, depth_no_write);
        glBegin(GL_QUADS);
        for (int i = 0; i < 4000; ++i) {
            const float x = static_cast<float>(i % 100) * 10.0f, y = static_cast<float>(i / 100) * 18.0f;
            for (const auto& [dx, dy] : {std::pair{0.0f, 0.0f}, {0.0f, 11.0f}, {8.0f, 11.0f}, {8.0f, 0.0f}}) {
                glTexCoord2f(dx / 512.0f, dy / 512.0f);
                glVertex2f(x + dx, y + dy);
            }
        }
        glEnd();
    });
}
BENCHMARK(plain_quads_4000)->Unit(benchmark::kMicrosecond);

void widgets_100(benchmark::State& state) {
    mnw.top_win = win_snd;
    int flag = 1;
    float value = 0.5f;
    measure(state, [&] {
        for (int i = 0; i < 25; ++i) {
            const float x = 100.0f + 200.0f * static_cast<float>(i % 5),
                        y = 60.0f + 140.0f * static_cast<float>(i / 5);
            BTN_action(x, y, 0, 0, "a button");
            BTN_bool(x, y + 30.0f, &flag, "a box|", 0);
            BTN_flt(x, y + 60.0f, &value, 4, 2, 0, "");
            BTN_horz_slider(x, y + 100.0f, 80.0f, 10, 0.0f, 1.0f, &value, 1, "", "");
        }
    });
}
BENCHMARK(widgets_100)->Unit(benchmark::kMicrosecond);

// Background, frame and back to the flight, as a settings window opens and closes.
void window_opens_and_closes(benchmark::State& state) {
    measure(state, [] {
        MACIBM_startwind(win_ren, "bench");
        OGL_view_2d();
        OGL_plot_background();
        BTN_fillwin(1, 16);
        MACIBM_startwind(win_fly, "bench");
    });
}
BENCHMARK(window_opens_and_closes)->Unit(benchmark::kMillisecond);

void state_calls(benchmark::State& state) {
    if (!window_is_up()) return state.SkipWithError("no display");
    int i = 0;
    for (auto _ : state) {
        i ^= 1;
        OGL_setstate(fog_off, i, lit_off, i ? al_blend : al_none, depth_no_read, depth_no_write);
    }
}
BENCHMARK(state_calls);
}  // namespace

BENCHMARK_MAIN();
