// afl_make: compiles the parameters of a foil (TOML) into an airfoil file.
// Refuses what would break the curves, and reads back what it wrote.
#include <toml++/toml.h>

#include <cstdio>
#include <cstring>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "afl_rows.h"
#include "aircraft/foil/afl_file.h"
#include "aircraft/foil/afl_polar.h"
#include "core/craft/veh.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/jobs.h"
#include "core/records/con.h"

namespace {

// One key of the source: where it goes, and what is allowed, ends included.
struct key_struct {
    const char* name;
    float& (*at)(afl_struct&);
    float min, max;
    bool optional;  // 0 when it is missing
    const char* meaning;
};
#define AT(member) [](afl_struct& a) -> float& { return a.member; }
// clang-format off
const key_struct keys[] = {
    {"re_num",    AT(re_num[0][0]),   0.001f, 9999.0f, false, "Reynolds number, millions"},
    {"t_rat",     AT(t_rat[0]),       0.001f, 1.0f,    false, "thickness over chord"},
    {"mach_div",  AT(mach_div[0]),    0.1f,   2.0f,    false, "drag divergence Mach number"},
    {"clM",       AT(clM[0][0]),      0.01f,  0.2f,    false, "lift slope, per degree"},
    {"clB",       AT(clB[0][0]),     -2.0f,   2.0f,    false, "lift coefficient at zero alpha"},
    {"almin",     AT(almin[0][0]),   -19.9f, -0.1f,    false, "negative stall alpha, degrees"},
    {"almax",     AT(almax[0][0]),    0.1f,   19.9f,   false, "positive stall alpha, degrees"},
    {"Llinrange", AT(Llinrange),      0.01f,  19.8f,   false, "half width of the linear lift range, degrees"},
    {"Lpow",      AT(Lpow),           0.1f,   20.0f,   false, "power of the lift curve up to the stall"},
    {"Lstall",    AT(Lstall),         0.01f,  5.0f,    false, "lift coefficient at the stall"},
    {"Ldrop1",    AT(Ldrop1),         0.0f,   3.0f,    false, "lift lost at once at the stall"},
    {"Lpowstl",   AT(Lpowstl),        0.05f,  20.0f,   false, "power of the lift curve beyond the stall"},
    {"Ldrop2",    AT(Ldrop2),        -2.0f,   3.0f,    false, "further lift lost up to 20 degrees"},
    {"Dmin",      AT(Dmin),           0.0002f, 1.0f,   false, "least drag coefficient, without the bucket"},
    {"DminCL",    AT(DminCL),        -3.0f,   3.0f,    false, "lift coefficient of least drag"},
    {"Dal10",     AT(Dal10),          0.0002f, 2.0f,   false, "drag coefficient at 10 degrees"},
    {"Dpow",      AT(Dpow),           0.1f,   20.0f,   false, "power of the drag curve"},
    {"Bloc",      AT(Bloc),          -3.0f,   3.0f,    true,  "low-drag bucket: lift coefficient of its centre"},
    {"Bwidth",    AT(Bwidth),         0.0f,   3.0f,    true,  "low-drag bucket: width in lift coefficient"},
    {"Bdepth",    AT(Bdepth),         0.0f,   1.0f,    true,  "low-drag bucket: depth in drag coefficient"},
    {"Bpower",    AT(Bpower),         0.0f,   20.0f,   true,  "low-drag bucket: power of its walls"},
    {"cmal2",     AT(cmal2),         -19.9f,  19.9f,   false, "lower inner breakpoint of the moment, degrees"},
    {"cmal3",     AT(cmal3),         -19.9f,  19.9f,   false, "upper inner breakpoint of the moment, degrees"},
    {"cm1",       AT(cm1),           -2.0f,   2.0f,    false, "moment coefficient at -20 degrees"},
    {"cm2",       AT(cm2),           -2.0f,   2.0f,    false, "moment coefficient at cmal2"},
    {"cm3",       AT(cm3),           -2.0f,   2.0f,    false, "moment coefficient at cmal3"},
    {"cm4",       AT(cm4),           -2.0f,   2.0f,    false, "moment coefficient at 20 degrees"},
};
// clang-format on
#undef AT

constexpr size_t name_max = nameDIM - 1;  // an aircraft has this much room for a foil's file name

std::vector<std::string> faults;
void fault(const std::string& text) { faults.push_back(text); }

std::string number(float value) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", static_cast<double>(value));
    return text;
}

void print_help() {
    std::cout << "afl_make IN.toml OUT.afl [--plot OUT.png]\n\n"
                 "Compiles the parameters of one foil at one Reynolds number into an airfoil file with\n"
                 "tables over all angles of attack. --plot draws lift, drag and moment through gnuplot.\n\n"
                 "Keys of the source, with what is allowed:\n";
    for (const key_struct& key : keys)
        std::printf("  %-10s %8g to %-6g %s%s\n", key.name, static_cast<double>(key.min),
                    static_cast<double>(key.max), key.meaning, key.optional ? " (optional)" : "");
    std::cout << "\n" << rows_help;
    std::cout << "\nThe stalls must lie outside the linear range: Llinrange below almax and below -almin.\n"
                 "Exit codes: 0 written, 1 the foil is refused or cannot be written, 2 bad usage.\n";
}

void read_keys(const toml::table& source, afl_struct& foil) {
    for (const auto& [name, node] : source) {
        bool known = name == "rows" || name == "beyond_stall";
        for (const key_struct& key : keys) known = known || name.str() == key.name;
        if (!known) fault("unknown key \"" + std::string(name.str()) + "\"");
    }
    for (const key_struct& key : keys) {
        const toml::node* node = source.get(key.name);
        if (!node) {
            if (!key.optional) fault(std::string(key.name) + " is missing (" + key.meaning + ")");
            continue;
        }
        const std::optional<double> value = node->value<double>();
        if (!value || !node->is_number()) {
            fault(std::string(key.name) + " is not a number");
            continue;
        }
        if (!(*value >= static_cast<double>(key.min) && *value <= static_cast<double>(key.max))) {
            fault(std::string(key.name) + " is " + number(static_cast<float>(*value)) + ", allowed are " +
                  number(key.min) + " to " + number(key.max) + " (" + key.meaning + ")");
            continue;
        }
        key.at(foil) = static_cast<float>(*value);
    }
}

// What would make the curves divide by zero, turn back or run off.
void check_curves(const afl_struct& a) {
    const float almin = a.almin[0][0], almax = a.almax[0][0], clM = a.clM[0][0], clB = a.clB[0][0];
    if (!(a.Llinrange < almax))
        fault("Llinrange " + number(a.Llinrange) + " must be below almax " + number(almax));
    if (!(a.Llinrange < -almin))
        fault("Llinrange " + number(a.Llinrange) + " must be below -almin " + number(-almin));
    const float top_of_line = clB + clM * a.Llinrange;
    if (a.Lstall < top_of_line)
        fault("Lstall " + number(a.Lstall) + " lies below the end of the linear range, " +
              number(top_of_line));
    const float alDmin = (a.DminCL - clB) / clM;
    if (flt_abs(10.0f - alDmin) < 0.1f)
        fault("DminCL puts the least drag at 10 degrees, where Dal10 stands: the drag curve has no scale");
    if (!(a.cmal2 < a.cmal3)) fault("cmal2 must be below cmal3");
    const bool some = a.Bwidth > 0.0f || a.Bdepth > 0.0f || a.Bpower > 0.0f;
    const bool all = a.Bwidth > 0.0f && a.Bdepth > 0.0f && a.Bpower > 0.0f;
    if (some && !all) fault("a low-drag bucket needs Bwidth, Bdepth and Bpower above 0");
}

void check_tables(const afl_struct& a) {
    for (int i = 0; i < aflDIM; ++i)
        if (!(a.cd[0][0][i] > 0.000005f)) {  // below, the file's five decimals would hold 0
            fault("drag is not positive at alpha " + number(ret_alpha(i)) + " (" + number(a.cd[0][0][i]) +
                  "): the bucket is too deep or Dal10 too small");
            return;
        }
}

void print_summary(const afl_struct& a, const std::string& path) {
    int top = 360, least = 360, best = 360;
    for (int i = 160; i <= 560; ++i) {
        const auto &cl = a.cl[0][0], &cd = a.cd[0][0];
        if (cl[i] > cl[top]) top = i;
        if (cd[i] < cd[least]) least = i;
        if (cl[i] / cd[i] > cl[best] / cd[best]) best = i;
    }
    std::printf("%s\n", path.c_str());
    std::printf("  zero lift at %.2f deg, slope %.4f per deg\n",
                static_cast<double>(0.0f - a.clB[0][0] / a.clM[0][0]), static_cast<double>(a.clM[0][0]));
    std::printf("  greatest lift %.3f at %.1f deg\n", static_cast<double>(a.cl[0][0][top]),
                static_cast<double>(ret_alpha(top)));
    std::printf("  least drag %.5f at lift %.3f\n", static_cast<double>(a.cd[0][0][least]),
                static_cast<double>(a.cl[0][0][least]));
    std::printf("  best lift over drag %.1f at lift %.3f\n",
                static_cast<double>(a.cl[0][0][best] / a.cd[0][0][best]),
                static_cast<double>(a.cl[0][0][best]));
}

void send_rows(std::FILE* gnuplot, const afl_struct& a, const char* name) {
    std::fprintf(gnuplot, "$%s << EOD\n", name);
    for (int i = 0; i < aflDIM; ++i)
        std::fprintf(gnuplot, "%g %g %g %g\n", static_cast<double>(ret_alpha(i)),
                     static_cast<double>(a.cl[0][0][i]), static_cast<double>(a.cd[0][0][i]),
                     static_cast<double>(a.cm[0][0][i]));
    std::fputs("EOD\n", gnuplot);
}

bool plot(const afl_struct& a, const std::string& png, const std::string& title) {
    if (png.find('\'') != std::string::npos || title.find('\'') != std::string::npos) return false;
    std::FILE* gnuplot = popen("gnuplot", "w");
    if (!gnuplot) return false;
    std::fprintf(gnuplot, "set terminal pngcairo size 1200,800 noenhanced\nset output '%s'\n", png.c_str());
    send_rows(gnuplot, a, "foil");
    std::fprintf(gnuplot,
                 "set multiplot layout 2,2 title '%s'\nset grid\nset key left top\n"
                 "set xlabel 'alpha, deg'\nset xrange [-30:30]\n"
                 "plot $foil using 1:2 with lines title 'lift', $foil using 1:4 with lines title 'moment'\n"
                 "set xlabel 'drag'\nset ylabel 'lift'\nset autoscale\nset xrange [0:0.05]\n"
                 "plot $foil every ::160::560 using 3:2 with lines title 'polar, -20 to 20 deg'\n"
                 "set autoscale\nset ylabel ''\nset xlabel 'alpha, deg'\nset xrange [-180:180]\n"
                 "set xtics 45\nplot $foil using 1:2 with lines title 'lift', "
                 "$foil using 1:3 with lines title 'drag'\n"
                 "plot $foil using 1:4 with lines title 'moment'\nunset multiplot\n",
                 title.c_str());
    return pclose(gnuplot) == 0;
}

std::string last_component(const std::string& path) {
    size_t n = path.size();
    while (n > 0 && !is_a_dir_char(path[n - 1])) --n;
    return path.substr(n);
}

int refuse(const std::string& path) {
    for (const std::string& text : faults) std::cerr << path << ": " << text << '\n';
    return 1;
}

int compile(const std::string& in, const std::string& out, const std::string& png) {
    auto foil = std::make_unique<afl_struct>();
    std::vector<row_struct> rows;
    try {
        const toml::table source = toml::parse_file(in);
        read_keys(source, *foil);
        rows = read_rows(source, in, faults);
    } catch (const toml::parse_error& error) {
        fault(std::string(error.description()) + ", line " + std::to_string(error.source().begin.line));
    }
    const std::string file = last_component(out);
    if (file.size() < 5 || file.compare(file.size() - 4, 4, ".afl") != 0)
        fault("the name of an airfoil file ends in .afl; this one is \"" + file + "\"");
    if (file.size() > name_max)
        fault("the file name \"" + file + "\" is longer than " + std::to_string(name_max) + " characters");
    if (faults.empty()) check_curves(*foil);
    if (!faults.empty()) return refuse(in);

    if (!gen_polar_tables(foil.get(), 0, 0)) fault(afl_bad_parameter_text);
    check_tables(*foil);
    if (!rows.empty()) check_rows(rows, *foil, faults);
    if (faults.empty() && !rows.empty()) apply_rows(rows, *foil);
    if (!faults.empty()) return refuse(in);

    auto written = std::make_unique<afl_struct>();
    if (IO_afl(1, foil.get(), 0, 0, out) != 700) return 1;
    if (IO_afl(0, written.get(), 0, 0, out) != 700) fault("what was written cannot be read back");
    if (!faults.empty()) return refuse(out);
    print_summary(*written, out);
    if (!png.empty() && !plot(*written, png, file)) {
        std::cerr << png << ": cannot be drawn; is gnuplot installed?\n";
        return 1;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> files;
    std::string png;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--help" || word == "-h") {
            print_help();
            return 0;
        }
        if (word == "--plot" && i + 1 < argc)
            png = argv[++i];
        else
            files.push_back(word);
    }
    if (files.size() != 2 || files[0].compare(0, 2, "--") == 0 || files[1].compare(0, 2, "--") == 0) {
        std::cerr << "usage: afl_make IN.toml OUT.afl [--plot OUT.png]   (--help tells more)\n";
        return 2;
    }
    init_con();
    THREAD_Init();
    return compile(files[0], files[1], png);
}
