// Steady flights by Newton steps on the real forces.
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "app/lab/lab_steady.h"
#include "commands.h"
#include "core/craft/engn_kinds.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "csv.h"
#include "plot.h"
#include "start.h"

namespace {
const char* const usage =
    "flightlab trim FILE [options]\n"
    "Finds attitude, controls and power that hold a steady state: level, climbing, turning or hovering.\n"
    "With --power the lever is given and the path is found. Angles in degrees; controls from -1 to 1: up,\n"
    "right, right; power is the throttle, or a helicopter's collective, from 0 to 1.\n";

const std::vector<const char*> columns = {
    "speed_kt",  "climb_fpm", "turn_degps", "found",          "pitch_deg", "roll_deg",
    "alpha_deg", "beta_deg",  "elevator",   "aileron",        "rudder",    "power",
    "shaft_kW",  "thrust_N",  "fuel_kgph",  "disc_rpm_or_N1", "engine_rpm"};

std::vector<double> values_of(const lab_steady& s) {
    double power = 0.0, thrust = 0.0, fuel = 0.0;
    for (int en = 0; en < veh[0].num_thrustpoints; ++en) {
        const flt_engn_struct& e = flt[0].engn[en];
        thrust += e.thrust;
        if (en >= veh[0].num_engines) continue;
        power += e.power / 1000.0;
        fuel += e.FF_kgs * 3600.0;
    }
    const double climb = s.at.speed * std::sin(s.at.gamma * con.degtorad) * con.msctofpm;
    const flt_engn_struct& first = flt[0].engn[0];
    return {s.at.speed * con.msctokts,
            climb,
            s.turn_rate,
            s.found ? 1.0 : 0.0,
            s.the,
            s.at.phi,
            s.at.alpha,
            s.at.beta,
            s.ptch,
            s.roll,
            s.hdng,
            s.power,
            power,
            thrust,
            fuel,
            en_is_jet(0, 0) ? first.N1 : first.tacrad_PROP * con.rsctorpm,
            first.tacrad_ENGN * con.rsctorpm};
}

void print_rows(const std::vector<std::vector<double>>& rows, const std::vector<std::string>& why) {
    printf(
        "   kt   ft/min   pitch    roll   alpha    elev    ailn    rudd   power      kW       N    kg/h    "
        "rpm\n");
    for (size_t i = 0; i < rows.size(); ++i) {
        const std::vector<double>& v = rows[i];
        printf("%5.0f %8.0f %7.2f %7.2f %7.2f %7.3f %7.3f %7.3f %7.3f %7.1f %7.0f %7.1f %6.0f%s\n", v[0],
               v[1], v[4], v[5], v[6], v[8], v[9], v[10], v[11], v[12], v[13], v[14], v[15],
               why[i].empty() ? "" : ("  not steady: " + why[i]).c_str());
    }
}

// The last picture shows what was found: the climb of a given power, else the fuel that the flight takes.
void draw(const std::string& path, const std::string& title, const std::vector<std::vector<double>>& rows,
          bool power_given) {
    std::vector<std::vector<double>> steady;
    for (const auto& row : rows)
        if (row[3] > 0.0) steady.push_back(row);
    run_gnuplot("set terminal pngcairo size 1100,850\nset output " + plot_quoted(path) + '\n' +
                plot_data("trim", steady) +
                "set grid\nset xlabel 'true airspeed, kt'\nset multiplot layout 2,2 title " +
                plot_quoted(title) +
                "\nset ylabel 'shaft power, kW, or thrust, hN'\n"
                "plot $trim using 1:13 with linespoints pointsize 0.4 title 'power', "
                "$trim using 1:($14/100) with linespoints pointsize 0.4 title 'thrust'\n"
                "set key bottom left\nset ylabel 'controls'\n"
                "plot $trim using 1:9 with linespoints pointsize 0.4 title 'elevator', "
                "$trim using 1:10 with linespoints pointsize 0.4 title 'aileron', "
                "$trim using 1:11 with linespoints pointsize 0.4 title 'rudder', "
                "$trim using 1:12 with linespoints pointsize 0.4 title 'power lever'\n"
                "set ylabel 'degrees'\n"
                "plot $trim using 1:5 with linespoints pointsize 0.4 title 'pitch', "
                "$trim using 1:6 with linespoints pointsize 0.4 title 'roll'\n"
                "set ylabel '" +
                (power_given ? "climb, ft/min" : "fuel, kg/h") + "'\nplot $trim using 1:" +
                (power_given ? "2" : "15") + " with linespoints pointsize 0.4 notitle\nunset multiplot\n");
}
}  // namespace

int trim_command(int argc, char** argv) {
    const options from(usage,
                       with_load({{"speed", "A:B:STEP", "true airspeeds, kt; 0 is the hover (100)"},
                                  {"altitude", "FT", "height above the sphere (3000)"},
                                  {"climb", "FPM", "rate of climb (0)"},
                                  {"turn", "DEG", "rate of turn to the right, degrees a second (0)"},
                                  {"power", "RATIO", "power lever, 0 to 1; the climb is found"},
                                  {"flaps", "RATIO", "flap handle, 0 to 1 (0)"},
                                  {"csv", "FILE", "write the table there too"},
                                  {"plot", "FILE.png", "draw it, through gnuplot"},
                                  mixture_option,
                                  install_option}),
                       argc, argv);
    if (from.wants_help()) return from.print_help(), 0;
    const std::string file = from.needed_file();
    const sweep speeds = from.range("speed", {100.0, 100.0, 1.0}, 0.0, 3000.0);
    const double altitude_ft = from.number("altitude", 3000.0, 0.0, 300000.0);
    const double climb_fpm = from.number("climb", 0.0, -20000.0, 20000.0);
    const double turn = from.number("turn", 0.0, -30.0, 30.0);
    const double power = from.number("power", -1.0, 0.0, 1.0);
    const double flaps = from.number("flaps", 0.0, 0.0, 1.0);

    start_tunnel(from, file);
    set_flaps_and_brakes(static_cast<float>(flaps), 0.0f);
    const bool lean = !set_mixture(from);
    std::vector<std::vector<double>> rows;
    std::vector<std::string> why;
    bool all_found = true;
    for (int i = 0; i < speeds.count(); ++i) {
        lab_steady_order order;
        const float climb = static_cast<float>(climb_fpm) * con.fpmtomsc;
        // straight up or down when there is no speed but the climb
        order.speed = fltmax2(static_cast<float>(speeds.at(i)) * con.ktstomsc, fabsf(climb));
        order.gamma = asin_deg(climb / fltmax2(order.speed, 0.01f));
        order.altitude = static_cast<float>(altitude_ft) * con.fttomtrs;
        order.turn_rate = static_cast<float>(turn);
        order.power = static_cast<float>(power);
        order.lean = lean;
        const lab_steady s = lab_find_steady(order);
        all_found = all_found && s.found;
        rows.push_back(values_of(s));
        why.push_back(lab_why_unsteady(s));
    }
    printf("%s, %.0f ft\n", file.c_str(), altitude_ft);
    print_rows(rows, why);
    if (from.has("csv")) {
        const file_ptr out = open_output(from.text("csv", ""));
        csv_header(out.get(), columns);
        for (const auto& row : rows) csv_row(out.get(), row);
    }
    if (from.has("plot")) draw(from.text("plot", ""), file, rows, power >= 0.0);
    return all_found ? 0 : 1;
}
