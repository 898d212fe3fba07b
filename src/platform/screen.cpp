// Virtual screen and window switching.
#include "platform/screen.h"

#include "core/input_gate.h"
#include "core/mnw.h"
#include "core/num.h"
#include "core/seams.h"

void compute_screen_scale() {
    const float x_res = static_cast<float>(mnw.x_res_now), y_res = static_cast<float>(mnw.y_res_now);
    mnw.xy_scale = fltmax2(fltmin2(x_res / XRES, y_res / YRES), 1.0f);
    mnw.x_off = 0.5f * (x_res / mnw.xy_scale - XRES);
    mnw.y_off = y_res / mnw.xy_scale - YRES;
    mnw.x1_pix = -mnw.x_off;
    mnw.y1_pix = 0.0f;
    mnw.x2_pix = XRES + mnw.x_off;
    mnw.y2_pix = YRES + mnw.y_off;
}

struct win_size {
    int top_win;
    float dx, dy;  // virtual units
};

static constexpr win_size win_sizes[] = {
    {win_about, 500, 300}, {win_alrt, 400, 220},     {win_nuke, 300, 166},   {win_open, 341, 484},
    {win_save, 341, 484},  {win_apt, 631, 328},      {win_dat, 1024, 762},   {win_wxr, 1002, 766},
    {win_tim, 572, 268},   {win_wgt, 1024, 650},     {win_rel, 1009, 756},   {win_acf, 810, 410},
    {win_qfl, 977, 766},   {win_snd, 620, 306},      {win_ren, 840, 766},    {12, 700, 500},
    {win_fdr, 1020, 750},  {win_joy, 1024, 768},     {win_wrn, 374, 452},    {win_map, 1024, 768},
    {win_wrl, 1020, 750},  {win_map_ios, 1024, 768}, {win_log, 831, 636},    {win_ins, 835, 674},
    {win_env, 500, 425},   {win_vew, 500, 270},      {win_map_2, 1024, 768}, {win_pln, 590, 356},
};

static void size_window(int top_win) {
    mnw.win_dx = static_cast<float>(mnw.x_res_now);
    mnw.win_dy = static_cast<float>(mnw.y_res_now);
    for (const win_size& size : win_sizes) {
        if (size.top_win != top_win) continue;
        mnw.win_dx = size.dx;
        mnw.win_dy = size.dy;
    }
}

void MACIBM_startwind(int new_top_win, std::string) {
    if (new_top_win > 0) seam.stop_sounds();
    size_window(new_top_win);
    mnw.entry_field = -1;
    mnw.menu_up = -1;
    mnw.top_win = new_top_win;
    mnw.win_x = static_cast<float>(intmax2(intround(0.5f * (XRES - mnw.win_dx)), 0));
    mnw.win_y = static_cast<float>(intmax2(intround(0.5f * (YRES - mnw.win_dy)), 0));
    mnw.now_dragging = mnw.mouse_clicked = mnw.mouse_wheel = mnw.mouse_is_joy = 0;
}
