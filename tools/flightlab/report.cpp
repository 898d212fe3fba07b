// The aircraft on one page.
#include <cmath>
#include <cstdio>
#include <string>

#include "aircraft/derive/derive.h"
#include "aircraft/design/check.h"
#include "app/lab/lab.h"
#include "app/lab/lab_steady.h"
#include "commands.h"
#include "core/math/num.h"
#include "core/records/atm.h"
#include "core/records/con.h"
#include "core/records/records.h"
#include "start.h"

namespace {
const char* const usage =
    "flightlab report FILE [options]\n"
    "Dimensions, balance, gliding flight with the engines off and performance with them, in still standard "
    "air.\n"
    "Places are counted aft of the centre of gravity; coefficients refer to the plan area and the mean\n"
    "chord of the wings.\n";

void heading(const char* text) { printf("\n%s\n", text); }

// A quantity in SI, and in the unit in which aircraft are drawn.
void line(const char* name, double si, const char* si_unit, double other, const char* other_unit) {
    printf("  %-30s %10.3f %-6s %10.3f %s\n", name, si, si_unit, other, other_unit);
}
void line(const char* name, double value, const char* unit) {
    printf("  %-30s %10.3f %s\n", name, value, unit);
}
void length(const char* name, float m) { line(name, m, "m", m * con.mtrstoft, "ft"); }
void area(const char* name, float m2) { line(name, m2, "m2", m2 * con.smtrtosf, "sq ft"); }
void speed(const char* name, float ms) { line(name, ms, "m/s", ms * con.msctokts, "kt"); }

void print_dimensions(const aircraft_summary_struct& size) {
    heading("Dimensions");
    area("wing area", size.S_ref);
    length("span", size.span);
    length("mean chord", size.mean_chord);
    line("aspect ratio", size.AR, "");
    area("stabiliser area", size.S_stab);
    area("wetted area", size.S_wet);
}

void print_mass(const aircraft_summary_struct& size) {
    const float mass = lab_mass();
    heading("Mass");
    line("mass", mass, "kg", mass * con.kgstolbs, "lb");
    if (size.S_ref > 0.0f)
        line("wing loading", mass / size.S_ref, "kg/m2", mass * con.kgstolbs / (size.S_ref * con.smtrtosf),
             "lb/sq ft");
    length("forward limit of the cg", size.cgZ_fwd);
    length("aft limit of the cg", size.cgZ_aft);
}

void print_balance(const aircraft_summary_struct& size, const lab_stability& slopes) {
    heading("Balance");
    length("centroid of the surfaces", size.z_centroid);
    length("neutral point from geometry", size.z_neutral);
    length("neutral point as measured", slopes.z_neutral);
    line("static margin, geometry", 100.0f * size.static_margin, "% of the mean chord");
    line("static margin, measured", 100.0f * slopes.static_margin, "% of the mean chord");
    line("lift slope", slopes.CL_alpha, "per degree");
    line("pitch stiffness Cm alpha", slopes.Cm_alpha, "per degree");
    line("yaw stiffness Cn beta", slopes.Cn_beta, "per degree");
    line("dihedral effect Cl beta", slopes.Cl_beta, "per degree");
}

void print_glide(const char* title, const lab_trim& t) {
    heading(title);
    if (!t.found) {
        printf("  not found: no steady glide between the stall and three times its speed\n");
        return;
    }
    speed("true airspeed", t.speed);
    speed("equivalent airspeed", t.speed * std::sqrt(con.lcl_sig));
    line("glide ratio", t.CL / t.CD, "");
    line("sink", t.sink, "m/s", t.sink * con.msctofpm, "ft/min");
    line("angle of attack", t.alpha, "degrees");
    line("trim elevator", t.elevator, "of full travel, up is positive");
}

// A power state: shaft power of all engines, thrust of all discs and jets.
void print_state(const char* title, const lab_steady& s) {
    heading(title);
    if (!s.found) {
        printf("  not found\n");
        return;
    }
    float power = 0.0f, thrust = 0.0f, fuel = 0.0f;
    for (int en = 0; en < veh[0].num_thrustpoints; ++en) {
        const flt_engn_struct& e = flt[0].engn[en];
        thrust += e.thrust;
        if (en >= veh[0].num_engines) continue;
        power += e.power;
        fuel += e.FF_kgs * 3600.0f;
    }
    if (s.at.speed > 1.0f) speed("true airspeed", s.at.speed);
    const float climb = s.at.speed * sin_deg(s.at.gamma);
    if (fabsf(climb) > 0.01f) line("climb", climb, "m/s", climb * con.msctofpm, "ft/min");
    line("power", power / 1000.0f, "kW", power * con.watttohp, "hp");
    line("thrust", thrust / 1000.0f, "kN", thrust * con.ntntolbs, "lb");
    line("fuel flow", fuel, "kg/h", fuel * con.kgstolbs, "lb/h");
    line("power lever", s.power, "of full travel");
}

void print_rotor() {
    const veh_engn_struct& rotor = veh[0].engn[veh[0].collective_en];
    const float mass = lab_mass();
    heading("Rotor");
    area("disc area", rotor.discarea);
    line("disc loading", mass / rotor.discarea, "kg/m2",
         mass * con.kgstolbs / (rotor.discarea * con.smtrtosf), "lb/sq ft");
    line("speed", veh[0].RSC_redline_ENGN / prop_gear_of(rotor) * con.rsctorpm, "rpm");
}

// Climb at full power, or the hover and level flight of a helicopter.
bool print_power(float altitude, float level_speed) {
    lab_steady_order order;
    order.altitude = altitude;
    if (!veh[0].collective_EQ) {
        order.speed = level_speed;
        order.power = 1.0f;
        const lab_steady climb = lab_find_steady(order);
        print_state("Full power at 1.5 times the stall speed", climb);
        return climb.found;
    }
    order.speed = 0.0f;
    const lab_steady hover = lab_find_steady(order);
    print_state("Hover", hover);
    order.speed = 60.0f * con.ktstomsc;
    print_state("Level flight", lab_find_steady(order));
    return hover.found;
}

void print_wings(const aircraft_summary_struct& size, const lab_polar& polar, float altitude) {
    const lab_trim& steady = polar.best_glide.found ? polar.best_glide : polar.min_sink;
    lab_flight at;
    at.altitude = altitude;
    if (steady.found) at.speed = steady.speed, at.alpha = steady.alpha;
    print_balance(size, lab_slopes(at));
    heading("Stall");
    line("largest lift coefficient", polar.CL_max, "");
    line("at an angle of attack of", polar.alpha_max, "degrees");
    speed("true airspeed", polar.stall_speed);
    speed("equivalent airspeed", polar.stall_speed * std::sqrt(con.lcl_sig));
    print_glide("Best glide", polar.best_glide);
    print_glide("Minimum sink", polar.min_sink);
}
}  // namespace

int report_command(int argc, char** argv) {
    const options from(usage, {{"altitude", "FT", "where it flies (3000)"}, install_option}, argc, argv);
    if (from.wants_help()) return from.print_help(), 0;
    const std::string file = from.needed_file();
    const double altitude_ft = from.number("altitude", 3000.0, 500.0, 100000.0);
    start_tunnel(from, file);

    const float altitude = static_cast<float>(altitude_ft) * con.fttomtrs;
    const aircraft_summary_struct size = aircraft_summary(0);
    printf("%s\n%.0f ft, standard air, no wind\n", file.c_str(), altitude_ft);
    print_dimensions(size);
    print_mass(size);
    bool steady = true;
    lab_polar polar{};
    if (size.S_ref > 0.0f) {
        polar = lab_performance(altitude);
        print_wings(size, polar, altitude);
        steady = polar.best_glide.found || polar.min_sink.found;
    }
    if (veh[0].collective_EQ) print_rotor();
    if (veh[0].num_engines > 0) steady = print_power(altitude, 1.5f * polar.stall_speed) && steady;
    return steady ? 0 : 1;
}
