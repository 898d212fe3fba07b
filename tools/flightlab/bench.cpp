// Engines on a stand: the aircraft is held, everything else runs.
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "app/lab/lab.h"
#include "app/lab/lab_load.h"
#include "app/lab/lab_steady.h"
#include "commands.h"
#include "core/craft/engn_kinds.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "csv.h"
#include "flight/power/engine_control.h"
#include "plot.h"
#include "start.h"

namespace {
const char* const usage =
    "flightlab bench FILE [options]\n"
    "Holds the aircraft as on a stand. First a cold start, ten seconds of idle and full power, from the "
    "stand's\n"
    "height; then full power over heights and speeds, leaned for power and settled. Of all engines the first "
    "is "
    "shown,\n"
    "with the gauges that fit its kind; thrust is that of all engines and discs. The CSV has all columns.\n";

const std::vector<const char*> columns = {
    "time_s",   "altitude_ft", "speed_kt",  "power_kW", "torque_Nm",  "thrust_N", "fuel_kgph", "engine_rpm",
    "disc_rpm", "N1",          "N2",        "EPR",      "MPR_inHg",   "ITT_C",    "EGT_F",     "CHT_F",
    "OILT_F",   "OILP_psi",    "FUELP_psi", "sigma",    "efficiency", "pitch_deg"};

float total_thrust() {
    float sum = 0.0f;
    for (int en = 0; en < veh[0].num_thrustpoints; ++en) sum += flt[0].engn[en].thrust;
    return sum;
}

std::vector<double> reading(double time, double altitude_ft, double speed_kt) {
    const flt_engn_struct& e = flt[0].engn[0];
    return {time,
            altitude_ft,
            speed_kt,
            e.power / 1000.0,
            e.TRQ_nm,
            total_thrust(),
            e.FF_kgs * 3600.0,
            e.tacrad_ENGN * con.rsctorpm,
            e.tacrad_PROP * con.rsctorpm,
            e.N1,
            e.N2,
            e.EPR,
            e.MPR,
            e.ITT,
            e.EGT,
            e.CHT,
            e.OILT,
            e.OILP,
            e.FUELP,
            e.sigma,
            e.prop_eff,
            e.pitch_deg_use};
}

lab_flight stand(double altitude_ft, double speed_kt) {
    lab_flight at;
    at.altitude = static_cast<float>(altitude_ft) * con.fttomtrs;
    at.speed = static_cast<float>(speed_kt) * con.ktstomsc;
    return at;
}

struct cold_start {
    std::vector<std::vector<double>> rows;
    double lights = -1.0, idles = -1.0, full = -1.0;  // s
    std::vector<double> idle, most;                   // readings
};

cold_start start_and_run_up(double altitude_ft) {
    constexpr double patience = 180.0, idle_for = 10.0, full_for = 60.0, dt = 1.0 / 64.0;
    cold_start c;
    lab_place(stand(altitude_ft, 0.0));
    cold_engines();
    lab_set_power(0.0f);
    double time = 0.0, idle_at = -1.0;
    const auto step = [&] {
        lab_hold(static_cast<float>(dt), static_cast<float>(dt));
        time += dt;
        if (c.lights < 0.0 && flt[0].engn[0].burning_fuel) c.lights = time;
        if (static_cast<int>(time * 64.0 + 0.5) % 8 == 0) c.rows.push_back(reading(time, altitude_ft, 0.0));
    };
    while (time < patience && idle_at < 0.0) {
        if (lab_start_engines()) idle_at = time;
        step();
    }
    if (idle_at < 0.0) return c;
    c.idles = idle_at;
    while (time < idle_at + idle_for) step();
    c.idle = reading(time, altitude_ft, 0.0);
    lab_set_power(1.0f);
    while (time < idle_at + idle_for + full_for) step();
    c.most = reading(time, altitude_ft, 0.0);
    // full power: within two percent of what it comes to
    for (const auto& row : c.rows)
        if (row[0] > idle_at + idle_for && c.full < 0.0 && row[5] > 0.98 * c.most[5])
            c.full = row[0] - idle_at - idle_for;
    return c;
}

// What is shown of a reading, by the kind of the first engine: only gauges that such an engine has.
enum fits : unsigned { fits_recip = 1, fits_turbine = 2, fits_jet = 4, fits_electric = 8, fits_rocket = 16 };
constexpr unsigned fits_all = 31, fits_shaft = fits_recip | fits_turbine | fits_electric;
struct column_struct {
    const char* name;
    size_t index;  // in the reading
    int decimals;
    unsigned fits;
};
// clang-format off
constexpr column_struct shown[] = {
    {"kW",         3,  1, fits_shaft},
    {"N",          5,  0, fits_all},
    {"kg/h",       6,  1, fits_all & ~fits_electric},
    {"rpm",        7,  0, fits_shaft},
    {"disc rpm",   8,  0, fits_shaft},
    {"N1",         9,  1, fits_turbine | fits_jet},
    {"N2",         10, 1, fits_jet},
    {"EPR",        11, 3, fits_jet},
    {"manifold",   12, 2, fits_recip},
    {"ITT C",      13, 0, fits_turbine},
    {"EGT F",      14, 0, fits_recip | fits_jet},
    {"CHT F",      15, 0, fits_recip},
    {"efficiency", 20, 3, fits_shaft},
};
// clang-format on

unsigned kind_of_engine() {
    if (en_is_recip(0, 0)) return fits_recip;
    if (en_is_turbo(0, 0)) return fits_turbine;
    if (en_is_elec(0, 0)) return fits_electric;
    return en_is_jet(0, 0) ? fits_jet : fits_rocket;
}

bool is_shown(const column_struct& c) {
    constexpr size_t efficiency = 20;  // of thrust along the flight, which no rotor makes
    return (c.fits & kind_of_engine()) && !(c.index == efficiency && veh[0].collective_EQ);
}

void print_names(const char* first) {
    printf("%s", first);
    for (const column_struct& c : shown)
        if (is_shown(c)) printf(" %10s", c.name);
    printf("\n");
}
void print_values(const std::vector<double>& v) {
    for (const column_struct& c : shown)
        if (is_shown(c)) printf(" %10.*f", c.decimals, v[c.index]);
    printf("\n");
}

void print_start(const cold_start& c) {
    if (c.idles < 0.0) {
        printf("The engine does not come to idle within three minutes.\n");
        return;
    }
    printf("Cold start\n  lights after        %8.1f s\n  idles after         %8.1f s\n", c.lights, c.idles);
    printf("  full thrust after   %8.1f s from idle\n", c.full);
    print_names("        ");
    printf("  idle  ");
    print_values(c.idle);
    printf("  full  ");
    print_values(c.most);
}

// A stand has fuel without end.
void fill_tanks(const float (&m_fuel)[fuelDIM]) {
    for (int i = 0; i < fuelDIM; ++i) flt[0].m_fuel[i] = m_fuel[i];
}

// Rows by height, then speed.
std::vector<std::vector<double>> full_power_curves(const options& from, const sweep& heights,
                                                   const sweep& speeds) {
    std::vector<std::vector<double>> rows;
    float m_fuel[fuelDIM];
    for (int i = 0; i < fuelDIM; ++i) m_fuel[i] = flt[0].m_fuel[i];
    for (int h = 0; h < heights.count(); ++h)
        for (int s = 0; s < speeds.count(); ++s) {
            lab_place(stand(heights.at(h), speeds.at(s)));
            lab_set_power(1.0f);
            constexpr float dt = 1.0f / 40.0f;
            for (int part = 0; part < 30; ++part) {  // five minutes: cylinders take their time
                fill_tanks(m_fuel);
                if (!set_mixture(from)) lab_lean_engines();
                lab_hold(10.0f, dt);
            }
            rows.push_back(reading(0.0, heights.at(h), speeds.at(s)));
        }
    return rows;
}

void print_curves(const std::vector<std::vector<double>>& rows) {
    print_names("\nFull power\n      ft    kt");
    for (const auto& v : rows) {
        printf("%8.0f %5.0f", v[1], v[2]);
        print_values(v);
    }
}

// Every height a curve: gnuplot parts them at an empty line.
std::vector<std::vector<double>> parted_by_height(const std::vector<std::vector<double>>& rows) {
    std::vector<std::vector<double>> parted;
    for (const auto& row : rows) {
        if (!parted.empty() && parted.back()[1] != row[1]) parted.push_back({});
        parted.push_back(row);
    }
    return parted;
}

void draw(const std::string& path, const std::string& title, const cold_start& c,
          const std::vector<std::vector<double>>& curves) {
    const bool jet = flt[0].engn[0].tacrad_ENGN == 0.0f;
    const std::string spool = jet ? "10" : "8";
    run_gnuplot("set terminal pngcairo size 1300,900\nset output " + plot_quoted(path) + '\n' +
                plot_data("start", c.rows) + plot_data("curves", parted_by_height(curves)) +
                "set grid\nset multiplot layout 2,3 title " + plot_quoted(title) +
                "\nset xlabel 'time from cold, s'\nset ylabel '" + (jet ? "N1, percent" : "engine, rpm") +
                "'\nplot $start using 1:" + spool +
                " with lines notitle\nset ylabel 'thrust, N'\nplot $start using 1:6 with lines notitle\n"
                "set key bottom right\nset ylabel 'temperatures'\nplot $start using 1:15 with lines title "
                "'EGT F', $start using "
                "1:14 with lines "
                "title 'ITT C', $start using 1:16 with lines title 'CHT F'\n"
                "set xlabel 'true airspeed, kt'\nset palette defined (0 'navy', 1 'orange')\nset cblabel "
                "'height, ft'\n"
                "set ylabel 'thrust at full power, N'\nplot $curves using 3:6:2 with linespoints pointsize "
                "0.4 palette notitle\n"
                "set ylabel 'power of one engine, kW'\nplot $curves using 3:4:2 with linespoints pointsize "
                "0.4 palette notitle\n"
                "set ylabel 'fuel flow of one engine, kg/h'\nplot $curves using 3:7:2 with linespoints "
                "pointsize 0.4 palette "
                "notitle\nunset multiplot\n");
}

void write_csv(const std::string& path, const std::vector<std::vector<double>>& rows) {
    const file_ptr out = open_output(path);
    csv_header(out.get(), columns);
    for (const auto& row : rows) csv_row(out.get(), row);
}
}  // namespace

int bench_command(int argc, char** argv) {
    const options from(usage,
                       with_load({{"stand", "FT", "height of the cold start (300)"},
                                  {"altitude", "A:B:STEP", "heights of the curves, ft (300:20300:5000)"},
                                  {"speed", "A:B:STEP", "true airspeeds of the curves, kt (0:150:25)"},
                                  {"start-csv", "FILE", "write the cold start there"},
                                  {"csv", "FILE", "write the curves there"},
                                  {"plot", "FILE.png", "draw both, through gnuplot"},
                                  mixture_option,
                                  install_option}),
                       argc, argv);
    if (from.wants_help()) return from.print_help(), 0;
    const std::string file = from.needed_file();
    const double stand_ft = from.number("stand", 300.0, 100.0, 100000.0);
    const sweep heights = from.range("altitude", {300.0, 20300.0, 5000.0}, 100.0, 300000.0);
    const sweep speeds = from.range("speed", {0.0, 150.0, 25.0}, 0.0, 3000.0);

    start_tunnel(from, file);
    if (veh[0].num_engines == 0) throw flight_fault(file + ": no engines");
    const cold_start c = start_and_run_up(stand_ft);
    printf("%s, on a stand at %.0f ft\n", file.c_str(), stand_ft);
    print_start(c);
    if (c.idles < 0.0) return 1;
    const std::vector<std::vector<double>> curves = full_power_curves(from, heights, speeds);
    print_curves(curves);
    if (from.has("start-csv")) write_csv(from.text("start-csv", ""), c.rows);
    if (from.has("csv")) write_csv(from.text("csv", ""), curves);
    if (from.has("plot")) draw(from.text("plot", ""), file, c, curves);
    return 0;
}
