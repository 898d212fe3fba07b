// A scripted flight in the real window: the trainer takes off from the default airport, flies a circuit and
// lands on the same runway, by keys and a mouse that come through the input gate. Leaves pictures, the flight
// as CSV and a printed summary.
#include <math.h>
#include <stdio.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "app/init_sim.h"
#include "app/lab/headless.h"
#include "circuit.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "draw/images/screenshot.h"
#include "flight/landing_report.h"
#include "hand.h"
#include "platform/window.h"

namespace {
const char* const aircraft = "Aircraft/General Aviation/Wren 160 Trainer/Wren 160.acf";

// -- what is left behind
struct phase_sum {
    float kts_min = 1e9f, kts_max = 0.0f, g_max = 0.0f;
    double height_first = flt[0].dob_ele, fuel = 0.0;

    void note() {
        const flt_struct& f = flt[0];
        kts_min = fltmin2(kts_min, f.v_ind_kts);
        kts_max = fltmax2(kts_max, f.v_ind_kts);
        g_max = fltmax2(g_max, f.g_nrml);
        fuel += f.engn[0].FF_kgs * headless_pass;
    }
    void print(const char* name, float seconds) const {
        const flt_struct& f = flt[0];
        printf("  %-14s %5.1f s %+6.0f m  %3.0f to %3.0f kt  %4.0f rpm  %4.2f g  heading %03.0f  %.2f kg\n",
               name, seconds, f.dob_ele - height_first, kts_min, kts_max,
               f.engn[0].tacrad_ENGN * con.rsctorpm, g_max, f.psi, fuel);
    }
};

void write_header(FILE* csv) {
    fprintf(
        csv,
        "time_s,latitude_deg,longitude_deg,elevation_m,airspeed_kt,climb_fpm,heading_deg,pitch_deg,roll_deg,"
        "alpha_deg,beta_deg,load_g,rpm,power_W,thrust_N,fuel_flow_kgps,EGT_F,CHT_F,manifold_inHg,"
        "ground_m,on_ground,landing_fpm,landing_g,past_threshold_m,right_of_centreline_m,rolled_m\n");
}

// The landing stands in the first row behind its end, and is empty in all others.
void write_landing(FILE* csv) {
    static int written = 0;
    const landing_report_struct& landing = landing_report();
    if (landing.number == written || landing.is_open) {
        fputs(",,,,,\n", csv);
        return;
    }
    written = landing.number;
    fprintf(csv, ",%.0f,%.2f,", landing.sink_fpm, landing.load);
    if (landing.airport[0])
        fprintf(csv, "%.1f,%.2f", landing.from_threshold, landing.from_centreline);
    else
        fputc(',', csv);
    fprintf(csv, ",%.0f\n", landing.roll_out);
}

void write_row(FILE* csv) {
    const flt_struct& f = flt[0];
    const flt_engn_struct& e = f.engn[0];
    fprintf(csv,
            "%.3f,%.6f,%.6f,%.2f,%.2f,%.2f,%.2f,%.2f,%.2f,%.3f,%.3f,%.3f,%.1f,%.0f,%.1f,%.5f,%.1f,%.1f,%.2f,",
            mnw.totl_time, f.dob_lat, f.dob_lon, f.dob_ele, f.v_ind_kts, f.Vh_fpm, f.psi, f.the, f.phi,
            f.alpha, f.beta, f.g_nrml, e.tacrad_ENGN * con.rsctorpm, e.power, e.thrust, e.FF_kgs, e.EGT,
            e.CHT, e.MPR);
    fprintf(csv, "%.2f,%d", f.y_agl_mtr, f.onground_any);
    write_landing(csv);
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
    init_flt_0(start_airport, place_runway);
    headless_frame();  // opens the window, which then takes keys
    take_yoke();
}

// -- the flight

struct flight_record {
    std::filesystem::path folder;
    FILE* csv;
    int frames = 0, pictures = 0;
    void (*draw)() = seam.draw_world;
};

// Pictures cost time without a graphics card: one frame in eight is drawn, and those that are kept.
void fly_frame(flight_record& record, bool take_picture) {
    const bool kept = record.frames++ % 8 == 0;
    seam.draw_world = take_picture || kept ? record.draw : [] {};
    headless_frame();
    if (kept) write_row(record.csv);
    if (!take_picture) return;
    record.draw();
    save_screenshot((record.folder / ("picture" + std::to_string(++record.pictures) + ".png")).string());
}

// False when its end does not come.
bool fly_phase(const phase_struct& phase, flight_record& record) {
    phase_sum sum;
    float time = 0.0f;
    const auto end = [&](bool good) {
        sum.print(phase.name, time);
        return good;
    };
    if (phase.view) change_view(phase.view);
    for (int i = 0; !g_done; ++i) {
        time = static_cast<float>(i) / 64.0f;
        if (i > 0 && phase.is_over(time)) return end(true);
        if (time > phase.most) return end(false);
        phase.fly(time);
        fly_frame(record, phase.picture >= 0.0f && i == static_cast<int>(lroundf(phase.picture * 64.0f)));
        sum.note();
    }
    return false;
}

bool fly_circuit(flight_record& record) {
    for (const phase_struct& phase : circuit)
        if (!fly_phase(phase, record)) {
            printf("The flight has gone wrong: %s did not end.\n", phase.name);
            return false;
        }
    return true;
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
    flight_record record{.folder = out, .csv = csv};
    const bool good = fly_circuit(record);
    write_row(csv);
    printf("%s\n", landing_report_text().c_str());
    fclose(csv);
    MACIBM_finishup(0);
    return good ? 0 : 1;
}
