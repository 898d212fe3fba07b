// A scripted flight in the real window: the default aircraft, released in the air, is flown by a stick
// script through the input gate. Leaves three pictures, the flight as CSV and a printed summary.
#include <math.h>
#include <stdio.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "app/frame.h"
#include "app/headless.h"
#include "core/alert.h"
#include "core/input_gate.h"
#include "core/num.h"
#include "core/paths.h"
#include "core/records.h"
#include "core/seams.h"
#include "draw/screenshot.h"
#include "platform/window.h"

namespace {
// What the script wants of the aircraft from a time on: bank right and nose up, degrees.
struct attitude_line {
    float time;  // s
    float bank, pitch;
};
const attitude_line script[] = {
    {0.0f, 0.0f, 0.0f},   {12.0f, 0.0f, 0.0f},   {14.0f, 30.0f, -1.0f}, {24.0f, 30.0f, -1.0f},
    {26.0f, 0.0f, 0.0f},  {30.0f, -20.0f, 0.0f}, {34.0f, -20.0f, 0.0f}, {36.0f, 0.0f, 0.0f},
    {52.0f, 0.0f, -1.0f}, {54.0f, 0.0f, -6.0f},  {90.0f, 0.0f, -6.0f},
};
constexpr float flight_seconds = 75.0f;
constexpr float picture_times[3] = {8.0f, 20.0f, 66.0f};
constexpr float level_again = 38.0f, brakes_out = 52.0f, brakes_in = 70.0f;

// A hand on the stick that watches the horizon: it moves the mouse towards the attitude wanted.
void feed_stick(float time) {
    constexpr float travel = 0.4f;  // share of the screen from neutral to full
    float bank = 0.0f, pitch = 0.0f;
    const int lines = static_cast<int>(sizeof script / sizeof script[0]);
    for (int i = 0; i + 1 < lines; ++i) {
        const attitude_line &a = script[i], &b = script[i + 1];
        if (time < a.time || time >= b.time) continue;
        bank = interp(a.time, a.bank, b.time, b.bank, time);
        pitch = interp(a.time, a.pitch, b.time, b.pitch, time);
    }
    const flt_struct& f = flt[0];
    const float roll = fltlim(0.03f * (bank - f.phi) - 0.02f * f.P, -1.0f, 1.0f);
    const float pull = fltlim(0.06f * (pitch - f.the) - 0.03f * f.Q, -1.0f, 1.0f);
    input_gate_mouse(XRES * (0.5f + travel * roll), YRES * (0.5f - travel * pull), 0, 0);
}

void press(char key) {
    input_gate_key(key_use_char, key, 1);
    input_gate_key(key_use_char, key, 0);
}

void feed_brakes(float time) {
    static int pressed_out, pressed_in;
    if (time > brakes_out && pressed_out < 4) {
        press('4');
        ++pressed_out;
    }
    if (time > brakes_in && pressed_in < 4) {
        press('3');
        ++pressed_in;
    }
}

// -- what is left behind

struct flight_log {
    FILE* csv;
    float max_kts = 0.0f, min_kts = 1e9f, max_g = 0.0f;
    double start_ele = 0.0;
};

void write_row(flight_log& log) {
    const flt_struct& f = flt[0];
    fprintf(log.csv, "%.3f,%.6f,%.6f,%.2f,%.2f,%.2f,%.2f,%.2f,%.2f,%.3f,%.3f,%.3f,%.2f\n", mnw.totl_time,
            f.dob_lat, f.dob_lon, f.dob_ele, f.v_ind_kts, f.Vh_fpm, f.psi, f.the, f.phi, f.alpha, f.g_nrml,
            f.sbrk_rat, f.l_o_d);
}

void note(flight_log& log) {
    const flt_struct& f = flt[0];
    log.max_kts = fltmax2(log.max_kts, f.v_ind_kts);
    log.min_kts = fltmin2(log.min_kts, f.v_ind_kts);
    log.max_g = fltmax2(log.max_g, f.g_nrml);
}

// Distance through the air over height lost, the speed's energy counted as height.
struct glide {
    double path = 0.0, energy_height = 0.0;
};
double energy_height() { return flt[0].dob_ele + 0.5 * flt[0].AV_msc * flt[0].AV_msc / con.g; }

int usage(const char* name) {
    fprintf(stderr, "%s FOLDER    fly the script in a window and leave pictures, data and a summary there\n",
            name);
    return 2;
}
}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 || argv[1][0] == '-') return usage(argv[0]);
    const std::filesystem::path out = std::filesystem::absolute(argv[1]);
    std::filesystem::create_directories(out);
    const std::string install = executable_folder() + "../Orvelle/";
    if (chdir(install.c_str()) != 0) {
        fprintf(stderr, "no install folder beside the tools\n");
        return 1;
    }
    seams_headless();
    seam.has_display = 1;  // a window, but nobody to answer an alert
    init_sim(install);
    seams_virtual_clock();  // pictures take the time they take
    have_done_first_update = 1;

    flight_log log;
    log.csv = fopen((out / "flight.csv").c_str(), "w");
    if (!log.csv) return 1;
    fprintf(
        log.csv,
        "time_s,latitude_deg,longitude_deg,elevation_m,airspeed_kt,climb_fpm,heading_deg,pitch_deg,roll_deg,"
        "alpha_deg,load_g,speedbrake_ratio,lift_over_drag\n");
    log.start_ele = flt[0].dob_ele;
    glide straight;
    double before = energy_height();
    int picture = 0;
    void (*const draw)() = seam.draw_world;
    for (int frame = 0; mnw.totl_time < flight_seconds && !g_done; ++frame) {
        const float time = mnw.totl_time;
        feed_stick(time);
        feed_brakes(time);
        const bool take = picture < 3 && time >= picture_times[picture];
        seam.draw_world = take || frame % 8 == 0 ? draw : [] {};
        headless_frame();
        note(log);
        if (take) {
            draw();
            save_screenshot((out / ("picture" + std::to_string(picture + 1) + ".png")).string());
            ++picture;
        }
        if (frame % 8 == 0) write_row(log);
        const double now = energy_height();
        if (time > level_again && time < brakes_out) {
            straight.path += flt[0].AV_msc * headless_pass;
            straight.energy_height += before - now;
        }
        before = now;
    }
    fclose(log.csv);
    printf("Scripted flight of %s, %.0f s\n", veh[0].name, mnw.totl_time);
    printf("  glide ratio (brakes in)  %6.1f\n", straight.path / straight.energy_height);
    printf("  mean sink               %7.2f m/s\n", (log.start_ele - flt[0].dob_ele) / mnw.totl_time);
    printf("  speeds                  %4.0f to %.0f kt indicated\n", log.min_kts, log.max_kts);
    printf("  largest load            %7.2f g\n", log.max_g);
    printf("  height                  %5.0f to %.0f m\n", log.start_ele, flt[0].dob_ele);
    MACIBM_finishup(0);
    return 0;
}
