// A scripted flight in the real window: the trainer, released in the air with a cold engine, is started,
// climbs, cruises, stalls and spins, by keys and a mouse that come through the input gate. Leaves three
// pictures, the flight as CSV and a printed summary.
#include <math.h>
#include <stdio.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "app/init_sim.h"
#include "app/lab/headless.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/input_gate.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "draw/images/screenshot.h"
#include "platform/window.h"

namespace {
const char* const aircraft = "Aircraft/General Aviation/Wren 160 Trainer/Wren 160.acf";

// -- the hand on the stick and on the keys
void move_stick(float roll, float pull) {
    constexpr float reach = 100.0f;  // virtual units from neutral to full
    input_gate_mouse(0.5f * XRES + reach * fltlim(roll, -1.0f, 1.0f),
                     0.5f * YRES - reach * fltlim(pull, -1.0f, 1.0f), 0, 0);
}

// A click in the middle of the picture, among the events of a frame.
void take_yoke() {
    void (*const events)() = seam.drain_events;
    seam.drain_events = [] { input_gate_mouse(0.5f * XRES, 0.5f * YRES, 1, 1); };
    headless_frame();
    seam.drain_events = events;
}

float level_wings(float bank) { return 0.03f * (bank - flt[0].phi) - 0.02f * flt[0].P; }

// Watches the horizon; the stick's place in trim is found as it goes.
void hold_attitude(float bank, float pitch) {
    static float trim = 0.0f;
    const float error = pitch - flt[0].the;
    trim = fltlim(trim + 0.02f * error / 64.0f, -0.5f, 0.5f);
    move_stick(level_wings(bank), trim + 0.06f * error - 0.03f * flt[0].Q);
}

// Pitch for a speed, in knots.
void hold_speed(float bank, float kts) {
    static float pitch = 0.0f;
    const float error = flt[0].v_ind_kts - kts;
    pitch = fltlim(pitch + 0.15f * error / 64.0f, -12.0f, 14.0f);
    hold_attitude(bank, fltlim(pitch + 0.4f * error, -15.0f, 18.0f));
}

void hold_height(float bank, float metres) {
    const float climb = fltlim(0.15f * (metres - static_cast<float>(flt[0].dob_ele)), -3.0f, 3.0f);
    const float path = asin_deg(fltlim(climb / fltmax2(flt[0].AV_msc, 1.0f), -0.2f, 0.2f));
    hold_attitude(bank, fltlim(path + flt[0].alpha, -10.0f, 20.0f));
}

void press(int use, int key, int times = 1) {
    for (int i = 0; i < times; ++i) {
        input_gate_key(use, key, 1);
        input_gate_key(use, key, 0);
    }
}
constexpr int f_throttle_less = 50, f_throttle_more = 51, f_mixture_more = 59;

// -- the phases
float cruise_height;

void glide(float) { hold_speed(0.0f, 75.0f); }
// The propeller stands; mixture, magnetos, then the starter until the engine runs.
void start(float time) {
    glide(time);
    if (time == 0.0f) {
        press(key_use_function, f_mixture_more, 20);
        press(key_use_ctrl, 'A', 3);
    }
    if (time > 1.0f && flt[0].engn[0].tacrad_ENGN < veh[0].RSC_idlespeed_ENGN) press(key_use_ctrl, '1');
}
void climb(float time) {
    if (time == 0.0f) press(key_use_function, f_throttle_more, 20);
    hold_speed(time > 30.0f && time < 45.0f ? 20.0f : 0.0f, 75.0f);
    cruise_height = static_cast<float>(flt[0].dob_ele);
}
void cruise(float time) {
    if (time == 0.0f) press(key_use_function, f_throttle_less, 5);
    hold_height(0.0f, cruise_height);
}
void stall(float time) {
    if (time == 0.0f) press(key_use_function, f_throttle_less, 20);
    hold_height(0.0f, cruise_height);
}
// Full left rudder as the wing stalls, while the stick goes all the way back: snatched back, it would stop the yaw.
void spin(float time) {
    static bool kicked = false;
    if (!kicked && time > 1.0f) {
        press(key_use_char, 'z', 10);
        kicked = true;
    }
    move_stick(0.0f, interp(1.0f, 0.2f, 4.0f, 1.0f, time));
}
// Opposite rudder and the stick forward until the turn stops, then wings level and gently out of the dive.
void recover(float time) {
    static bool turning = true;
    if (time == 0.0f) press(key_use_char, 'x', 20);
    if (turning && time > 0.5f && fabsf(flt[0].R) < 15.0f) {
        press(key_use_char, 'c');
        turning = false;
    }
    if (turning) return move_stick(0.0f, -0.3f);
    const float up = interp(2.0f, 1.0f, 3.0f, 0.0f, flt[0].g_nrml);
    move_stick(level_wings(0.0f), fltmin2(0.06f * (0.0f - flt[0].the), 0.6f * up) - 0.03f * flt[0].Q);
}

struct phase {
    const char* name;
    float seconds;
    void (*fly)(float time);
    float picture;  // s into the phase, negative: none
};
const phase phases[] = {
    {"glide, engine cold", 6.0f, glide, -1.0f},
    {"start", 8.0f, start, -1.0f},
    {"climb", 75.0f, climb, 38.0f},
    {"cruise", 60.0f, cruise, 50.0f},
    {"stall", 25.0f, stall, -1.0f},
    {"spin", 15.0f, spin, 12.0f},
    {"recovery", 15.0f, recover, -1.0f},
};

// -- what is left behind
struct phase_sum {
    float rpm_first = 0.0f, rpm_last = 0.0f, kts_min = 1e9f, kts_max = 0.0f, alpha_max = -90.0f, g_max = 0.0f;
    double height_first = 0.0, height_last = 0.0, turn = 0.0, fuel = 0.0;
    float psi_last = 0.0f;

    void begin() {
        height_first = flt[0].dob_ele;
        rpm_first = flt[0].engn[0].tacrad_ENGN * con.rsctorpm;
        psi_last = flt[0].psi;
    }
    void note() {
        const flt_struct& f = flt[0];
        kts_min = fltmin2(kts_min, f.v_ind_kts);
        kts_max = fltmax2(kts_max, f.v_ind_kts);
        alpha_max = fltmax2(alpha_max, f.alpha);
        g_max = fltmax2(g_max, f.g_nrml);
        height_last = f.dob_ele;
        rpm_last = f.engn[0].tacrad_ENGN * con.rsctorpm;
        turn += fltwrap(f.psi - psi_last, -180.0f, 180.0f);
        psi_last = f.psi;
        fuel += f.engn[0].FF_kgs * headless_pass;
    }
    void print(const phase& p) const {
        printf(
            "  %-19s %5.0f s %+6.0f m %+6.0f ft/min  %3.0f to %3.0f kt  %4.0f rpm  alpha to %4.1f  %4.1f g  "
            "%+5.1f turns  %.2f kg\n",
            p.name, p.seconds, height_last - height_first,
            (height_last - height_first) / p.seconds * con.msctofpm, kts_min, kts_max, rpm_last, alpha_max,
            g_max, turn / 360.0, fuel);
    }
};

void write_header(FILE* csv) {
    fprintf(
        csv,
        "time_s,latitude_deg,longitude_deg,elevation_m,airspeed_kt,climb_fpm,heading_deg,pitch_deg,roll_deg,"
        "alpha_deg,beta_deg,load_g,rpm,power_W,thrust_N,fuel_flow_kgps,EGT_F,CHT_F,manifold_inHg\n");
}
void write_row(FILE* csv) {
    const flt_struct& f = flt[0];
    const flt_engn_struct& e = f.engn[0];
    fprintf(
        csv,
        "%.3f,%.6f,%.6f,%.2f,%.2f,%.2f,%.2f,%.2f,%.2f,%.3f,%.3f,%.3f,%.1f,%.0f,%.1f,%.5f,%.1f,%.1f,%.2f\n",
        mnw.totl_time, f.dob_lat, f.dob_lon, f.dob_ele, f.v_ind_kts, f.Vh_fpm, f.psi, f.the, f.phi, f.alpha,
        f.beta, f.g_nrml, e.tacrad_ENGN * con.rsctorpm, e.power, e.thrust, e.FF_kgs, e.EGT, e.CHT, e.MPR);
}

int usage(const char* name) {
    fprintf(stderr, "%s FOLDER    fly the script in a window and leave pictures, data and a summary there\n",
            name);
    return 2;
}

void start_program(const std::string& install) {
    seams_headless();
    seam.has_display = 1;  // a window, but nobody to answer an alert
    init_sim(install);
    seams_virtual_clock();  // pictures take the time they take
    have_done_first_update = 1;
    snprintf(veh[0].path, sizeof veh[0].path, "%s%s", install.c_str(), aircraft);
    load_plane(0);
    headless_frame();  // opens the window, which then takes keys
    press(key_use_char, 'R');
    take_yoke();
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
    start_program(install);
    FILE* csv = fopen((out / "flight.csv").c_str(), "w");
    if (!csv) return 1;
    write_header(csv);
    printf("Scripted flight of %s\n", veh[0].name);
    int pictures = 0, frame = 0;
    void (*const draw)() = seam.draw_world;
    for (const phase& p : phases) {
        phase_sum sum;
        sum.begin();
        const int frames = static_cast<int>(lroundf(p.seconds * 64.0f));
        for (int i = 0; i < frames && !g_done; ++i, ++frame) {
            const float time = i / 64.0f;
            p.fly(time);
            const bool take = p.picture >= 0.0f && i == static_cast<int>(lroundf(p.picture * 64.0f));
            seam.draw_world = take || frame % 8 == 0 ? draw : [] {};
            headless_frame();
            sum.note();
            if (frame % 8 == 0) write_row(csv);
            if (!take) continue;
            draw();
            save_screenshot((out / ("picture" + std::to_string(++pictures) + ".png")).string());
        }
        sum.print(p);
    }
    fclose(csv);
    MACIBM_finishup(0);
    return 0;
}
