// Flights without a window: from a trimmed state, with a script of the controls, many at a time.
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "aircraft/derive/derive.h"
#include "app/lab/headless.h"
#include "app/lab/lab.h"
#include "app/lab/lab_load.h"
#include "app/lab/lab_pilot.h"
#include "app/lab/lab_steady.h"
#include "commands.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/records.h"
#include "csv.h"
#include "start.h"

namespace {
const char* const usage =
    "flightlab fly [FILE] [options]\n"
    "Flies from trimmed level flight, a hover or, without engines, a glide, frame by frame of 1/64 s, as\n"
    "the simulator does. A script is a text of lines: time in s, pitch, roll and yaw from -1 to 1, speed\n"
    "brake, flaps and, if wanted, the power lever from 0 to 1; values run in straight lines between the\n"
    "times, # begins a remark. In place of a file: \"trim\" holds the trim, \"random\" walks all controls "
    "at\n"
    "random. With --pilot the lines are time in s, speed in kt, height in ft and heading, and a pilot flies\n"
    "them, changing over at each time. The flight ends on the ground.\n";

constexpr int controls = 6;      // pitch, roll, yaw, speed brake, flaps, power
constexpr int pilot_values = 3;  // speed, height, heading

struct script_line {
    float time;
    std::vector<float> value;
};

// Lines of a time and as many values, fewest or most.
std::vector<script_line> read_script(const std::string& path, size_t fewest, size_t most) {
    std::ifstream in(path);
    if (!in) throw flight_fault(path + ": cannot be read");
    std::vector<script_line> script;
    std::string text;
    for (int number = 1; std::getline(in, text); ++number) {
        text = text.substr(0, text.find('#'));
        std::istringstream words(text);
        std::vector<double> values;
        for (std::string word; words >> word;) {
            double v;
            if (!read_number(word, &v))
                throw flight_fault(path + ":" + std::to_string(number) + ": \"" + word +
                                   "\" is not a number");
            values.push_back(v);
        }
        if (values.empty()) continue;
        if (values.size() < 1 + fewest || values.size() > 1 + most)
            throw flight_fault(path + ":" + std::to_string(number) + ": " + std::to_string(1 + fewest) +
                               (fewest < most ? " or " + std::to_string(1 + most) : "") +
                               " numbers are needed");
        script_line line;
        line.time = static_cast<float>(values[0]);
        if (!script.empty() && line.time <= script.back().time)
            throw flight_fault(path + ":" + std::to_string(number) + ": the times have to rise");
        if (!script.empty() && values.size() != 1 + script.back().value.size())
            throw flight_fault(path + ":" + std::to_string(number) + ": all lines need as many numbers");
        for (size_t v = 1; v < values.size(); ++v) line.value.push_back(static_cast<float>(values[v]));
        script.push_back(line);
    }
    if (script.empty()) throw flight_fault(path + ": no lines");
    return script;
}

struct flight_order {
    std::string script;  // a file, "trim" or "random"
    std::vector<script_line> lines, pilot;
    double seconds, rate;
    float speed, altitude;  // m/s, m; speed negative: one that suits the aircraft
    bool weather, quiet, restart;
    unsigned seed;
    std::string csv;
};

// count of controls in their order; the power lever stays where it is when it is not among them.
void set_controls(const float* control, size_t count) {
    mnw.YK_ptch = fltlim(control[0], -1.0f, 1.0f);
    mnw.YK_roll = fltlim(control[1], -1.0f, 1.0f);
    mnw.YK_hdng = fltlim(control[2], -1.0f, 1.0f);
    flt[0].sbrk_rqst = fltlim(control[3], 0.0f, 1.0f);
    flt[0].handle_rat_req = fltlim(control[4], 0.0f, 1.0f);
    if (count == controls) lab_set_power(fltlim(control[5], 0.0f, 1.0f));
}

// The line that holds at a time; the last one for ever.
size_t line_at(const std::vector<script_line>& lines, float time) {
    size_t i = 0;
    while (i + 1 < lines.size() && lines[i + 1].time <= time) ++i;
    return i;
}

void follow_script(const std::vector<script_line>& lines, float time) {
    const size_t i = line_at(lines, time);
    const script_line& a = lines[i];
    const script_line& b = lines[i + 1 < lines.size() ? i + 1 : i];
    float control[controls];
    for (size_t c = 0; c < a.value.size(); ++c)
        control[c] = interp(a.time, a.value[c], b.time, b.value[c], time);
    set_controls(control, a.value.size());
}

void follow_pilot(lab_pilot& pilot, const std::vector<script_line>& lines, float time) {
    const std::vector<float>& v = lines[line_at(lines, time)].value;
    pilot.fly({v[0] * con.ktstomsc, v[1] * con.fttomtrs, v[2]}, static_cast<float>(headless_pass));
}

void walk_controls(float control[controls]) {
    for (int c = 0; c < controls; ++c) {
        const float by = c < 3 ? 0.1f : 0.01f;
        control[c] = fltlim(control[c] + flt_rand(-by, by), c < 3 ? -1.0f : 0.0f, 1.0f);
    }
    set_controls(control, controls);
}

const std::vector<const char*> columns = {"time_s",
                                          "latitude_deg",
                                          "longitude_deg",
                                          "elevation_m",
                                          "true_airspeed_mps",
                                          "indicated_airspeed_kt",
                                          "climb_mps",
                                          "heading_deg",
                                          "pitch_deg",
                                          "roll_deg",
                                          "alpha_deg",
                                          "beta_deg",
                                          "P_degps",
                                          "Q_degps",
                                          "R_degps",
                                          "load_g",
                                          "CL",
                                          "CD",
                                          "speedbrake_ratio",
                                          "flap_ratio",
                                          "throttle_ratio",
                                          "blade_pitch_deg",
                                          "engine_rpm",
                                          "disc_rpm",
                                          "N1_percent",
                                          "power_kW",
                                          "thrust_N",
                                          "fuel_kgph"};

std::vector<double> state_row(double time) {
    const flt_struct& f = flt[0];
    const flt_engn_struct& e = f.engn[0];
    return {time,
            f.dob_lat,
            f.dob_lon,
            f.dob_ele,
            f.AV_msc,
            f.v_ind_kts,
            f.Vh_fpm * con.fpmtomsc,
            f.psi,
            f.the,
            f.phi,
            f.alpha,
            f.beta,
            f.P,
            f.Q,
            f.R,
            f.g_nrml,
            f.cl_overall,
            f.cd_overall,
            f.sbrk_rat,
            f.handle_rat_act,
            e.thro_use,
            e.pitch_deg_use,
            e.tacrad_ENGN * con.rsctorpm,
            e.tacrad_PROP * con.rsctorpm,
            e.N1,
            e.power / 1000.0,
            e.thrust,
            e.FF_kgs * 3600.0};
}

struct flight_sum {
    double height_lost, distance, energy_lost, wall;
    float max_g;
    int restarts;
    double flown;    // s
    bool on_ground;  // and ended there
};

bool has_engines() { return veh[0].num_engines > 0; }

// A state to start from, and what kept one asked for from being steady.
struct start_struct {
    lab_steady controls;
    bool found;
    std::string why;
};

start_struct try_glide(float speed, float altitude) {
    const lab_trim t = lab_trim_glide(speed, altitude);
    if (t.found) lab_fly_trim(t, altitude);
    start_struct start{{}, t.found, "no steady glide"};
    start.controls.ptch = t.elevator;
    return start;
}

start_struct try_level(float speed, float altitude) {
    lab_steady_order level;
    level.altitude = altitude;
    level.speed = speed;
    const lab_steady s = lab_find_steady(level);
    if (s.found) lab_fly_steady(s);
    return {s, s.found, lab_why_unsteady(s)};
}

float wanted_speed(const flight_order& order) {
    if (order.speed >= 0.0f) return order.speed;
    if (has_engines() && veh[0].collective_EQ) return 0.0f;
    const lab_polar polar = lab_performance(order.altitude);
    return has_engines() ? 1.5f * polar.stall_speed : polar.best_glide.speed;
}

// Level flight or hover, or a glide without engines; gives the controls. With --restart the nearest speed
// that is steady takes the place of one that is not, and that is told.
lab_steady start_in_trim(const flight_order& order) {
    const auto attempt = has_engines() ? try_level : try_glide;
    const float wanted = wanted_speed(order);
    const start_struct first = attempt(wanted, order.altitude);
    if (first.found) return first.controls;
    char text[200];
    snprintf(text, sizeof text, "no steady %s at %.0f kt and %.0f ft: %s",
             has_engines() ? "level flight" : "glide", wanted * con.msctokts, order.altitude * con.mtrstoft,
             first.why.c_str());
    if (!order.restart) throw flight_fault(text);
    const bool too_fast = first.controls.power > 0.999f, too_slow = first.controls.ptch > 0.999f;
    constexpr int steps = 8, halvings = 3;
    float off = wanted, found = -1.0f;
    for (int i = 1; i <= steps && found < 0.0f; ++i)
        for (const float factor : {0.85f, 1.18f}) {
            if (too_fast && factor > 1.0f) continue;
            if (too_slow && factor < 1.0f) continue;
            const float speed = fltmax2(wanted, 5.0f) * powf(factor, static_cast<float>(i));
            if (!attempt(speed, order.altitude).found) continue;
            off = fltmax2(wanted, 5.0f) * powf(factor, static_cast<float>(i - 1));
            found = speed;
            break;
        }
    for (int i = 0; i < halvings && found >= 0.0f; ++i) {
        const float middle = 0.5f * (off + found);
        (attempt(middle, order.altitude).found ? found : off) = middle;
    }
    start_struct nearest{};
    if (found >= 0.0f) nearest = attempt(found, order.altitude);
    if (nearest.found) {
        fprintf(stderr, "flightlab: %s; %.0f kt in its place\n", text, found * con.msctokts);
        return nearest.controls;
    }
    throw flight_fault(std::string(text) + "; nor at any speed near it");
}

double energy_height() { return flt[0].dob_ele + 0.5 * flt[0].AV_msc * flt[0].AV_msc / con.g; }

bool on_ground() { return flt[0].onground_any || flt[0].y_agl_mtr <= 0.0f; }

constexpr double lowest_before_restart = 300.0;  // m above the sphere

flight_sum fly_one(const flight_order& order, bool show_progress) {
    const file_ptr csv = order.csv.empty() ? nullptr : open_output(order.csv);
    if (csv) csv_header(csv.get(), columns);
    stg.reset_on_crash = 0;  // the data end on the ground, not in another flight
    const lab_steady trim = start_in_trim(order);
    lab_pilot pilot(trim.ptch, trim.roll, trim.hdng, trim.power);
    rand_seed(order.seed);
    flight_sum sum{flt[0].dob_ele, 0.0, energy_height(), 0.0, 0.0f, 0, 0.0, false};
    float control[controls] = {mnw.YK_ptch, mnw.YK_roll, mnw.YK_hdng, 0.0f, 0.0f, trim.power};
    const int frames = static_cast<int>(std::lround(order.seconds / headless_pass));
    const double every = order.rate > 0.0 ? 1.0 / order.rate : 1e30;
    double next_row = 0.0;
    const auto began = std::chrono::steady_clock::now();
    for (int i = 0; i < frames; ++i) {
        const double time = i * headless_pass;
        if (csv && time >= next_row - 1e-9) {
            csv_row(csv.get(), state_row(time));
            next_row += every;
        }
        if (!order.lines.empty()) follow_script(order.lines, static_cast<float>(time));
        if (!order.pilot.empty()) follow_pilot(pilot, order.pilot, static_cast<float>(time));
        if (order.script == "random") walk_controls(control);
        headless_frame();
        if (order.restart && (flt[0].dob_ele < lowest_before_restart || on_ground())) {
            start_in_trim(order);
            ++sum.restarts;
        }
        sum.flown = time + headless_pass;
        if (!order.restart && on_ground()) {
            sum.on_ground = true;
            break;
        }
        sum.distance += flt[0].AV_msc * headless_pass;
        sum.max_g = fltmax2(sum.max_g, fabsf(flt[0].g_nrml));
        if (show_progress && i % 6400 == 6399) {
            fprintf(stderr, "\r%3.0f %%", 100.0 * i / frames);
            fflush(stderr);
        }
    }
    if (show_progress) fprintf(stderr, "\r     \r");
    sum.wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
    sum.height_lost -= flt[0].dob_ele;
    sum.energy_lost -= energy_height();
    return sum;
}

void print_sum(const flight_order& order, const flight_sum& s) {
    printf("flown           %10.1f s, %.0f times real time\n", s.flown, s.flown / s.wall);
    if (s.on_ground) printf("on the ground after that time\n");
    if (order.restart) {
        printf("restarts        %10d\nlargest load    %10.2f g\n", s.restarts, s.max_g);
        return;  // heights and distances belong to no single flight
    }
    printf("height lost     %10.1f m\n", s.height_lost);
    printf("distance        %10.1f m through the air\n", s.distance);
    if (!has_engines() && s.energy_lost > 0.0)
        printf("glide ratio     %10.2f by energy\n", s.distance / s.energy_lost);
    printf("largest load    %10.2f g\n", s.max_g);
}

// OUT.csv of run k is OUT.k.csv.
std::string numbered(const std::string& path, int k) {
    const size_t dot = path.rfind('.');
    const bool has_ending = dot != std::string::npos && path.find('/', dot) == std::string::npos;
    const std::string number = "." + std::to_string(k);
    return has_ending ? path.substr(0, dot) + number + path.substr(dot) : path + number;
}

void prepare(const options& from, const std::string& file, const flight_order& order) {
    start_lab(from, file);
    trap_float_faults();
    if (!order.weather) lab_still_air();
    set_load(from);
    if (from.has("mixture") && !set_mixture(from)) lab_lean_engines();
}

// Each run is a process of its own, so that a fault ends one run and not all.
int fly_many(const options& from, const std::string& file, const flight_order& order, int runs, int jobs) {
    int running = 0, started = 0, failed = 0, done = 0;
    const bool show = !order.quiet && isatty(STDERR_FILENO);
    while (done < runs) {
        if (started < runs && running < jobs) {
            const pid_t child = fork();
            if (child < 0) throw flight_fault("cannot start another process");
            if (child == 0) {
                flight_order own = order;
                own.seed += static_cast<unsigned>(started);
                if (!own.csv.empty()) own.csv = numbered(own.csv, started);
                int status = 0;
                try {
                    prepare(from, file, own);
                    fly_one(own, false);
                } catch (const flight_fault& fault) {
                    fprintf(stderr, "flightlab: run %d: %s\n", started, fault.what());
                    status = 1;
                }
                fflush(nullptr);
                _exit(status);
            }
            ++started;
            ++running;
            continue;
        }
        int status = 0;
        if (wait(&status) < 0) break;
        --running;
        ++done;
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) ++failed;
        if (show) fprintf(stderr, "\r%d of %d", done, runs);
    }
    if (show) fputc('\n', stderr);
    if (!order.quiet) printf("%d runs, %d failed\n", runs, failed);
    return failed ? 1 : 0;
}
}  // namespace

int fly_command(int argc, char** argv) {
    const options from(
        usage,
        with_load({{"seconds", "N", "how long (60)"},
                   {"speed", "KT", "true airspeed of the start (1.5 of the stall, a hover, the best glide)"},
                   {"altitude", "FT", "height of the start (6000)"},
                   {"script", "FILE", "a script, trim or random (trim)"},
                   {"pilot", "FILE", "speeds, heights and headings for a pilot to fly"},
                   {"restart", nullptr,
                    "below 300 m start over in the trim, or the nearest there is, for long runs"},
                   {"weather", nullptr, "the default weather in place of still air"},
                   {"runs", "K", "number of flights (1); each takes the next seed"},
                   {"jobs", "J", "flights at a time (2)"},
                   {"seed", "S", "of the random walk (1)"},
                   {"csv", "FILE", "the flight as a table; run k of many goes to FILE.k"},
                   {"rate", "HZ", "rows a second (8)"},
                   {"quiet", nullptr, "no summary and no progress"},
                   {"mixture", "RATIO", "mixture levers, 0 to 1, or lean (full rich)"},
                   install_option}),
        argc, argv);
    if (from.wants_help()) return from.print_help(), 0;
    flight_order order;
    order.script = from.text("script", "trim");
    if (order.script != "trim" && order.script != "random")
        order.lines = read_script(order.script, controls - 1, controls);
    if (from.has("pilot")) order.pilot = read_script(from.text("pilot", ""), pilot_values, pilot_values);
    order.seconds = from.number("seconds", 60.0, 0.0, 1e7);
    order.rate = from.number("rate", 8.0, 0.001, 64.0);
    order.weather = from.has("weather");
    order.quiet = from.has("quiet");
    order.restart = from.has("restart");
    order.seed = static_cast<unsigned>(from.whole("seed", 1, 0, 1000000000));
    order.csv = from.text("csv", "");
    const double speed_kt = from.number("speed", -1.0, 0.0, 3000.0);
    const double altitude_ft = from.number("altitude", 6000.0, 500.0, 300000.0);
    constexpr double kt = 0.514444, ft = 0.3048;  // the system's constants stand only once it has started
    order.speed = static_cast<float>(speed_kt * kt);
    order.altitude = static_cast<float>(altitude_ft * ft);
    const int runs = from.whole("runs", 1, 1, 100000), jobs = from.whole("jobs", 2, 1, 64);
    if (runs > 1) return fly_many(from, from.file(), order, runs, jobs);

    prepare(from, from.file(), order);
    const flight_sum sum = fly_one(order, !order.quiet && isatty(STDERR_FILENO));
    if (!order.quiet) print_sum(order, sum);
    return 0;
}
