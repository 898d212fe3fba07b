// The wind tunnel: coefficients over angle of attack and sideslip, and the load along the span.
#include <cstdio>
#include <string>
#include <vector>

#include "app/lab/lab.h"
#include "commands.h"
#include "core/records/con.h"
#include "csv.h"
#include "plot.h"
#include "start.h"

namespace {
const char* const usage =
    "flightlab tunnel FILE [options]\n"
    "The aircraft is held in still air while its angles sweep; controls centred, engines off.\n"
    "Coefficients refer to the plan area and mean chord of the wings, moments to the centre of gravity:\n"
    "Cm nose up, Cn nose right, Cl right wing down. beta: the nose points right of the path.\n";

struct tunnel_row {
    double alpha, beta;
    lab_coeffs c;
};

const std::vector<const char*> columns = {"alpha_deg", "beta_deg", "CL", "CD", "CL_over_CD",
                                          "CY",        "Cm",       "Cn", "Cl"};

std::vector<double> values_of(const tunnel_row& r) {
    const double ratio = r.c.CD != 0.0f ? r.c.CL / r.c.CD : 0.0;
    return {r.alpha, r.beta, r.c.CL, r.c.CD, ratio, r.c.CY, r.c.Cm, r.c.Cn, r.c.Cl};
}

std::vector<tunnel_row> sweep_angles(lab_flight at, const sweep& alpha, const sweep& beta) {
    std::vector<tunnel_row> rows;
    for (int b = 0; b < beta.count(); ++b)
        for (int a = 0; a < alpha.count(); ++a) {
            at.alpha = static_cast<float>(alpha.at(a));
            at.beta = static_cast<float>(beta.at(b));
            rows.push_back({alpha.at(a), beta.at(b), lab_tunnel(at)});
        }
    return rows;
}

void print_rows(const std::vector<tunnel_row>& rows) {
    printf("  alpha    beta       CL        CD    CL/CD        CY        Cm        Cn        Cl\n");
    for (const tunnel_row& r : rows) {
        const std::vector<double> v = values_of(r);
        printf("%7.2f %7.2f %8.4f  %8.5f %8.2f  %8.4f  %8.4f  %8.4f  %8.4f\n", v[0], v[1], v[2], v[3], v[4],
               v[5], v[6], v[7], v[8]);
    }
}

struct span_table {
    std::vector<lab_span_point> points;
};

// The load along the span at one angle; also leaves the aircraft held there.
span_table span_load(lab_flight at, double alpha) {
    constexpr int max_points = 8 * elDIM;
    at.alpha = static_cast<float>(alpha);
    at.beta = 0.0f;
    lab_tunnel(at);
    span_table table;
    table.points.resize(max_points);
    table.points.resize(static_cast<size_t>(lab_span_load(table.points.data(), max_points)));
    return table;
}

void print_span(const span_table& table, double alpha) {
    printf("\nSpan loading at alpha %.2f: lift per metre over dynamic pressure and mean chord\n", alpha);
    printf("  y m      cl c/mean c\n");
    for (const lab_span_point& p : table.points) {
        const int stars = static_cast<int>(p.ccl * 30.0f);
        printf("%7.2f %10.4f  %s\n", p.y, p.ccl,
               std::string(stars > 0 ? static_cast<size_t>(stars) : 0, '*').c_str());
    }
}

void write_csv(const std::string& path, const std::vector<tunnel_row>& rows) {
    const file_ptr out = open_output(path);
    csv_header(out.get(), columns);
    for (const tunnel_row& r : rows) csv_row(out.get(), values_of(r));
}

void draw(const std::string& path, const std::string& title, const std::vector<tunnel_row>& rows,
          const span_table& span) {
    std::vector<std::vector<double>> sweep_data, span_data;
    for (const tunnel_row& r : rows) sweep_data.push_back(values_of(r));
    for (const lab_span_point& p : span.points) span_data.push_back({p.y, p.ccl});
    run_gnuplot("set terminal pngcairo size 1100,850\nset output " + plot_quoted(path) + '\n' +
                plot_data("sweep", sweep_data) + plot_data("span", span_data) +
                "set grid\nset multiplot layout 2,2 title " + plot_quoted(title) +
                "\nset xlabel 'angle of attack, degrees'\nset ylabel 'CL'\n"
                "plot $sweep using 1:3 with linespoints pointsize 0.4 notitle\n"
                "set xlabel 'CD'\nplot $sweep using 4:3 with linespoints pointsize 0.4 notitle\n"
                "set xlabel 'angle of attack, degrees'\nset ylabel 'Cm about the centre of gravity'\n"
                "plot $sweep using 1:7 with linespoints pointsize 0.4 notitle\n"
                "set xlabel 'span position, m'\nset ylabel 'load, cl c / mean chord'\nset yrange [0:*]\n"
                "plot $span using 1:2 with points pointtype 7 pointsize 0.6 notitle\nunset multiplot\n");
}
}  // namespace

int tunnel_command(int argc, char** argv) {
    const options from(usage,
                       with_load({{"alpha", "A:B:STEP", "angles of attack, degrees (-4:16:1)"},
                                  {"beta", "A:B:STEP", "sideslip angles, degrees (0)"},
                                  {"speed", "KT", "true airspeed (60)"},
                                  {"altitude", "FT", "height above the sphere (3000)"},
                                  {"flaps", "RATIO", "flap handle, 0 to 1 (0)"},
                                  {"sbrk", "RATIO", "speed brakes, 0 to 1 (0)"},
                                  {"span-at", "DEG", "angle of attack of the span loading (4)"},
                                  {"csv", "FILE", "write the sweep there too"},
                                  {"plot", "FILE.png", "draw it, through gnuplot"},
                                  install_option}),
                       argc, argv);
    if (from.wants_help()) return from.print_help(), 0;
    const std::string file = from.needed_file();
    const sweep alpha = from.range("alpha", {-4.0, 16.0, 1.0}, -180.0, 180.0);
    const sweep beta = from.range("beta", {0.0, 0.0, 1.0}, -90.0, 90.0);
    lab_flight at;
    const double speed_kt = from.number("speed", 60.0, 1.0, 3000.0);
    const double altitude_ft = from.number("altitude", 3000.0, 500.0, 300000.0);
    const double flaps = from.number("flaps", 0.0, 0.0, 1.0), brakes = from.number("sbrk", 0.0, 0.0, 1.0);
    const double span_at = from.number("span-at", 4.0, -90.0, 90.0);

    start_tunnel(from, file);
    at.speed = static_cast<float>(speed_kt) * con.ktstomsc;
    at.altitude = static_cast<float>(altitude_ft) * con.fttomtrs;
    set_flaps_and_brakes(static_cast<float>(flaps), static_cast<float>(brakes));

    const std::vector<tunnel_row> rows = sweep_angles(at, alpha, beta);
    const span_table span = span_load(at, span_at);
    printf("%s, %.0f kt at %.0f ft\n", file.c_str(), speed_kt, altitude_ft);
    print_rows(rows);
    print_span(span, span_at);
    if (from.has("csv")) write_csv(from.text("csv", ""), rows);
    if (from.has("plot")) draw(from.text("plot", ""), file, rows, span);
    return 0;
}
