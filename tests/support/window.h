// A real window on a screen of its own, for tests that look at pixels.
#pragma once
#include <GL/gl.h>

#include <vector>

#include "core/program/seams.h"
#include "core/records/mnw.h"
#include "draw/gl/gl_facts.h"
#include "platform/screen.h"
#include "platform/window.h"
#include "support.h"
#include "xvfb.h"

namespace test {

class window : public system_test {
protected:
    void SetUp() override {
        system_test::SetUp();
        open(1024, 768);
    }
    void TearDown() override {
        window_close();
        seams_headless();
    }
    static void open(int x_res, int y_res) {
        mnw.x_res_now = x_res, mnw.y_res_now = y_res;
        compute_screen_scale();
        ASSERT_EQ(MACIBM_getcontext(), 1);
        window_fixed_gl_state();
        read_gl_facts();
        platform_install_seams();
    }
    // Red, green and blue of what was drawn, rows from below.
    static std::vector<unsigned char> pixels(int x, int y, int dx, int dy) {
        std::vector<unsigned char> all(static_cast<size_t>(3) * dx * dy);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadBuffer(GL_BACK);
        glReadPixels(x, y, dx, dy, GL_RGB, GL_UNSIGNED_BYTE, all.data());
        return all;
    }

    const xvfb screen_;
};

}  // namespace test
