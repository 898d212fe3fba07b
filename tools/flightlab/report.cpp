// The aircraft on one page.
#include <cmath>
#include <cstdio>
#include <string>

#include "aircraft/derive/derive.h"
#include "aircraft/design/check.h"
#include "aircraft/design/exists.h"
#include "app/lab/lab.h"
#include "app/lab/lab_load.h"
#include "app/lab/lab_manoeuvre.h"
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
    const auto sign_told = [](bool stable) {
        return stable ? "per degree: stable" : "per degree: NOT stable";
    };
    line("pitch stiffness Cm alpha", slopes.Cm_alpha, sign_told(slopes.Cm_alpha < 0.0f));
    line("yaw stiffness Cn beta", slopes.Cn_beta, sign_told(slopes.Cn_beta < 0.0f));
    line("dihedral effect Cl beta", slopes.Cl_beta, sign_told(slopes.Cl_beta > 0.0f));
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

// What is used up in a state, kg/h, and the power of the shafts, W, and the thrust, N, of all engines.
struct output_struct {
    float power, thrust, fuel;
};
output_struct output_now() {
    output_struct sum{};
    for (int en = 0; en < veh[0].num_thrustpoints; ++en) {
        const flt_engn_struct& e = flt[0].engn[en];
        sum.thrust += e.thrust;
        if (en >= veh[0].num_engines) continue;
        sum.power += e.power;
        sum.fuel += e.FF_kgs * 3600.0f;
    }
    return sum;
}

// A power state: shaft power of all engines, thrust of all discs and jets.
void print_state(const char* title, const lab_steady& s) {
    heading(title);
    if (!s.found) {
        printf("  not steady at %.0f kt: %s\n", s.at.speed * con.msctokts, lab_why_unsteady(s).c_str());
        return;
    }
    const auto [power, thrust, fuel] = output_now();
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
bool print_power(float altitude, float level_speed, bool lean) {
    lab_steady_order order;
    order.altitude = altitude;
    order.lean = lean;
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

// Level flight at three quarters of the rated power, or a jet's power lever at three quarters, and how far
// full tanks carry at it. The power of level flight grows with the cube of the speed, about.
void print_cruise(float altitude, float first_speed, bool lean) {
    heading("Cruise at 75 percent power");
    const bool jet = has_this_engn(0, 0, engn_jet);
    const float rated = veh[0].power_max * static_cast<float>(veh[0].num_engines);
    if (!jet && !(rated > 0.0f)) return;
    lab_steady_order order;
    order.altitude = altitude;
    order.speed = first_speed;
    order.lean = lean;
    lab_steady cruise{}, beyond{};
    float fuel = 0.0f, share = 0.0f;
    constexpr int tries = 8;
    for (int i = 0; i < tries && fabsf(share - 0.75f) > 0.01f; ++i) {
        const lab_steady s = lab_find_steady(order);
        if (!s.found) {
            if (!cruise.found) break;
            beyond = s;
            order.speed = 0.5f * (cruise.at.speed + s.at.speed);
            continue;
        }
        cruise = s;
        fuel = output_now().fuel;
        share = jet ? s.power : output_now().power / rated;
        order.speed *= fltlim(cbrtf(0.75f / fltmax2(share, 0.01f)), 0.8f, 1.2f);
    }
    if (!cruise.found) {
        printf("  no level flight at this height\n");
        return;
    }
    if (fabsf(share - 0.75f) > 0.02f)
        printf("  only %.0f percent: at %.0f kt %s\n", 100.0f * share, beyond.at.speed * con.msctokts,
               lab_why_unsteady(beyond).c_str());
    speed("true airspeed", cruise.at.speed);
    line("power lever", cruise.power, "of full travel");
    line("fuel flow", fuel, "kg/h", fuel * con.kgstolbs, "lb/h");
    if (!(fuel > 0.0f && veh[0].m_fuel_tot > 0.0f)) return;
    const float hours = veh[0].m_fuel_tot / fuel, km = hours * cruise.at.speed * 3.6f;
    line("endurance on full tanks", hours, "h");
    line("range on full tanks, no reserve", km, "km", km / 1.852f, "nm");
}

// The stall by the tunnel and as it is flown, against the file's speed at the largest mass.
void print_stall(const char* title, float altitude, float flaps, float told_kts) {
    heading(title);
    const flt_struct before = flt[0];
    set_flaps_and_brakes(flaps, 0.0f);
    const lab_polar polar = lab_performance(altitude);
    line("largest lift coefficient", polar.CL_max, "");
    line("at an angle of attack of", polar.alpha_max, "degrees");
    speed("true airspeed", polar.stall_speed);
    const float tunnel_kts = polar.stall_speed * std::sqrt(con.lcl_sig) * con.msctokts;
    line("equivalent airspeed", tunnel_kts / con.msctokts, "m/s", tunnel_kts, "kt");
    if (flaps > 0.0f && polar.best_glide.found)
        line("best glide ratio", polar.best_glide.CL / polar.best_glide.CD, "");
    if (veh[0].collective_EQ) return;
    const float mass = lab_mass();
    const lab_stall_sum s = lab_fly_stall(polar, altitude);
    if (!s.flown) {
        flt[0] = before;
        printf("  not flown: no steady flight at 1.3 of that speed\n");
        return;
    }
    const float loaded = s.speed * std::sqrt(veh[0].m_max / mass);
    line("flown, equivalent airspeed", s.speed / con.msctokts, "m/s", s.speed, "kt");
    line("flown, at the largest mass", loaded / con.msctokts, "m/s", loaded, "kt");
    constexpr float told_well = 0.05f;
    if (fabsf(loaded - told_kts) > told_well * told_kts)
        printf("  WARNING: the file says %.0f kt (%s), the stall at %.0f kg\n", told_kts,
               flaps > 0.0f ? "Vso_kts" : "Vs_kts", mass * sqr(told_kts / s.speed));
    flt[0] = before;
}

// Where it rests on its legs, against what the file says: a start on the ground begins with the difference.
void print_gear() {
    if (!veh[0].gear_EQ) return;
    heading("At rest on the gear");
    const lab_rest rest = lab_rest_on_gear();
    if (!rest.stands) {
        printf("  the legs do not hold it: it falls over its nose or its tail\n");
        return;
    }
    length("height of the cg, by the legs", rest.height);
    length("of the file (h_eqlbm)", veh[0].h_eqlbm);
    length("difference", rest.height - veh[0].h_eqlbm);
    line("pitch, by the legs", rest.the, "degrees");
    line("of the file (the_eqlbm)", veh[0].the_eqlbm, "degrees");
    line("difference", rest.the - veh[0].the_eqlbm, "degrees");
}

void print_wings(const aircraft_summary_struct& size, const lab_polar& polar, float altitude) {
    const lab_trim& steady = polar.best_glide.found ? polar.best_glide : polar.min_sink;
    lab_flight at;
    at.altitude = altitude;
    if (steady.found) at.speed = steady.speed, at.alpha = steady.alpha;
    print_balance(size, lab_slopes(at));
    print_glide("Best glide", polar.best_glide);
    print_glide("Minimum sink", polar.min_sink);
    const float full_flaps = 1.0f;
    print_stall("Stall", altitude, 0.0f, veh[0].Vs_kts);
    if (veh[0].flap_EQ) print_stall("Stall with full flaps", altitude, full_flaps, veh[0].Vso_kts);
    set_flaps_and_brakes(0.0f, 0.0f);
}
}  // namespace

int report_command(int argc, char** argv) {
    const options from(
        usage, with_load({{"altitude", "FT", "where it flies (3000)"}, mixture_option, install_option}), argc,
        argv);
    if (from.wants_help()) return from.print_help(), 0;
    const std::string file = from.needed_file();
    const double altitude_ft = from.number("altitude", 3000.0, 500.0, 100000.0);
    start_tunnel(from, file);
    stg.reset_on_crash = 0;

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
    if (veh[0].num_engines > 0) {
        const bool lean = !set_mixture(from);
        steady = print_power(altitude, 1.5f * polar.stall_speed, lean) && steady;
        print_cruise(altitude, polar.stall_speed > 0.0f ? 2.0f * polar.stall_speed : 40.0f, lean);
    }
    print_gear();
    return steady ? 0 : 1;
}
