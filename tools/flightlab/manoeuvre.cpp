// Stalls and spins with a summary.
#include <cmath>
#include <cstdio>
#include <string>

#include "app/lab/lab.h"
#include "app/lab/lab_manoeuvre.h"
#include "commands.h"
#include "core/records/records.h"
#include "start.h"

namespace {
const char* const stall_usage =
    "flightlab stall FILE [options]\n"
    "Slows down by a knot a second with the engines idle and the wings held level until the stick is back "
    "or\n"
    "the wing has stalled for three seconds, then eases the stick and gives full power. Airspeeds are\n"
    "equivalent; the stall is that of 1 g.\n";
const char* const spin_usage =
    "flightlab spin FILE [options]\n"
    "Engines idle, stick back past the stall, full pedal to one side, held for 25 s; then opposite pedal "
    "and\n"
    "the stick forward of neutral. The last ten seconds before are the spin. Airspeeds are equivalent.\n";

void line(const char* name, double value, const char* unit) {
    printf("  %-34s %9.2f %s\n", name, value, unit);
}

void start(const options& from, const std::string& file) {
    start_tunnel(from, file);
    stg.reset_on_crash = 0;
    if (veh[0].collective_EQ) throw flight_fault(file + ": a helicopter has no such manoeuvre");
}

// By its load: what turns fast at several g is a spiral dive, out of which the nose only has to be raised.
const char* kind_of_spin(const lab_spin_sum& s, float stall_kt) {
    if (s.turns < 1.0f) return "it does not spin";
    return s.load > 2.5f || s.speed > 2.0f * stall_kt ? "a spiral dive, no spin" : "a spin";
}
}  // namespace

int stall_command(int argc, char** argv) {
    const options from(stall_usage,
                       with_load({{"altitude", "FT", "height of the start (5000)"},
                                  {"flaps", "RATIO", "flap handle, 0 to 1 (0)"},
                                  install_option}),
                       argc, argv);
    if (from.wants_help()) return from.print_help(), 0;
    const std::string file = from.needed_file();
    const float altitude = static_cast<float>(from.number("altitude", 5000.0, 1000.0, 100000.0) * 0.3048);
    const double flaps = from.number("flaps", 0.0, 0.0, 1.0);
    start(from, file);
    set_flaps_and_brakes(static_cast<float>(flaps), 0.0f);
    const lab_stall_sum s = lab_fly_stall(lab_performance(altitude), altitude);
    if (!s.flown) throw flight_fault("no steady flight at 1.3 of the stall speed to begin with");
    printf("%s, flaps %.2f, %.0f kg\n", file.c_str(), flaps, lab_mass());
    line("stall", s.speed, "kt");
    line("at an angle of attack of", s.alpha, "degrees");
    line("elevator there", s.ptch, "of full travel, back is positive");
    if (s.warned > s.speed)
        line("warned", s.warned - s.speed, "kt before");
    else if (s.warned > 0.0f)
        line("warned late, below the stall by", s.speed - s.warned, "kt");
    else
        printf("  without a warning\n");
    line("largest bank", s.bank, "degrees");
    line("height lost in the recovery", s.height_lost, "m");
    return 0;
}

int spin_command(int argc, char** argv) {
    const options from(spin_usage,
                       with_load({{"altitude", "FT", "height of the start (8200)"},
                                  {"side", "SIDE", "left or right (left)"},
                                  install_option}),
                       argc, argv);
    if (from.wants_help()) return from.print_help(), 0;
    const std::string file = from.needed_file(), side = from.text("side", "left");
    if (side != "left" && side != "right") throw wrong_use("--side: left or right");
    const float altitude = static_cast<float>(from.number("altitude", 8200.0, 5000.0, 100000.0) * 0.3048);
    start(from, file);
    const float stall_kt = lab_performance(altitude).stall_speed * std::sqrt(con.lcl_sig) * con.msctokts;
    const lab_spin_sum s = lab_fly_spin(side == "left" ? -1.0f : 1.0f, altitude);
    if (!s.flown) throw flight_fault("no steady flight at 1.1 of the stall speed to begin with");
    printf("%s, to the %s: %s\n", file.c_str(), side.c_str(), kind_of_spin(s, stall_kt));
    line("airspeed", s.speed, "kt");
    line("load", s.load, "g");
    line("least and", s.least_load, "g over a second");
    line("largest load", s.largest_load, "g over a second");
    line("turns in ten seconds", s.turns, "");
    if (s.seconds_to_stop < 99.0f)
        line("ends after opposite pedal within", s.seconds_to_stop, "s");
    else
        printf("  goes on against the opposite pedal\n");
    line("height lost in the recovery", s.height_lost, "m");
    line("fastest on the way out", s.fastest, "kt");
    line("largest load on the way out", s.heaviest, "g");
    return 0;
}
