// The tests of a design and what the designer is told.
#include "aircraft/design/check.h"

#include "aircraft/design/exists.h"
#include "aircraft/file/acf_fault.h"
#include "core/math/num.h"
#include "core/program/alert.h"

namespace {
struct fault_text {
    const char* line[3];
};

// -- the design as a whole
const fault_text no_tail_number = {{"This plane has no tail number!", "You must have a tail number!",
                                    "This is needed for ATC, logbooks, etc."}};
const fault_text no_vne = {{"You entered a Vne of zero!",
                            "You need to change this or the plane will over-stress just sitting there!", ""}};
const fault_text no_empty_weight = {{"You have entered an empty weight of zero!",
                                     "This defies the immutable laws of physics!",
                                     "Please do not defy the immutable laws of physics!"}};
const fault_text no_max_weight = {{"You have entered a maximum weight of zero!",
                                   "This defies the immutable laws of physics!",
                                   "Please do not defy the immutable laws of physics!"}};
const fault_text empty_above_max = {
    {"You have selected an empty weight that is greater than the maximum weight for this airplane!",
     "I know some planes cannot carry much, but this is out of control!", ""}};

// -- engines
const fault_text no_reverse_throttle = {
    {"This aircraft has reverse-thrust capability as decided in the ENGINES screen.",
     "But there is a problem: The max THROTTLE available for reverse thrust as decided in the ENGINES screen "
     "is "
     "ZERO PERCENT! OOPS!",
     "We won't get much reverse thrust when the maximum allowable throttle while in reverse is zero "
     "percent!"}};
const fault_text no_throttle = {
    {"Problem: The max THROTTLE available as decided in Hullwright is ZERO PERCENT! OOPS!",
     "Fix this in the ENGINES screen in Hullwright.",
     "If you are trying to make a glider, enter a number of engines of zero."}};
const fault_text no_rocket_thrust = {
    {"You requested a rocket engine in the ENGINES screen, but have entered an engine thrust of zero!",
     "This is not good. To fly a glider, enter a number of engines of ZERO.", ""}};
const fault_text no_jet_thrust = {
    {"You requested a jet engine in the ENGINES screen, but have entered an engine thrust of zero!",
     "This is not good. To fly a glider, enter a number of engines of ZERO. To fly a prop plane, enter that "
     "as the "
     "engine type.",
     ""}};
const fault_text no_power = {
    {"You requested a reciprocating or turbine engine in the ENGINES screen, but have entered an engine "
     "power of "
     "zero!",
     "This is not good. To fly a glider, enter a number of engines of ZERO. To fly a jet, enter that as the "
     "engine "
     "type.",
     ""}};
const fault_text no_manifold_pressure = {
    {"You have entered a maximum manifold pressure in the ENGINES screen of 0!",
     "It is not possible for a reciprocating engine to operate at full power with zero manifold pressure!",
     "Enter a correct maximum manifold pressure in the ENGINES screen... probably 29.92 for "
     "normally-aspirated "
     "engines."}};
const fault_text no_compressor_area = {{"Do not enter zero as a compressor area for a jet engine!",
                                        "You are asking for thrust from zero area!",
                                        "I hate it when my users try to break the laws of physics!"}};
const fault_text no_engine_rpm = {
    {"You have entered zero for some of the engine RPM parameters in the ENGINES screen!",
     "Do not tell me the props turn at zero rpm in flight!", ""}};
const fault_text idle_above_redline = {
    {"You entered an idle rpm greater then the maximum engine rpm in the ENGINES screen!",
     "That is not possible.", "You must fix this."}};

// -- propellers and fuel
const fault_text no_pitch_range = {
    {"This design is either a helicopter or a plane with a variable-pitch prop.",
     "The problem is, you have entered the same coarse and fine pitch!",
     "This will make prop or rotor control impossible!"}};
const fault_text fixed_prop_range = {
    {"This design has a fixed-pitch prop, but you entered different fine and coarse pitches in the props "
     "screen!",
     "Duh-OH!", ""}};
const fault_text bad_tank_ratios = {
    {"Look at the WEIGHT AND BALANCE window. Then look at the RATIO of fuel in each fuel tank.",
     "Those numbers indicate the fraction of your total fuel in each tank. Those ratios must all add up to "
     "1.00... "
     "right now they do not!",
     "Your fuel must be 100% distributed across the fuel tanks!"}};

bool is_blank(const char* text) {
    while (*text == ' ') ++text;
    return *text == 0;
}

const fault_text* design_fault(const veh_struct& v) {
    if (is_blank(v.tailnum)) return &no_tail_number;
    if (v.Vne_kts < 0.01f) return &no_vne;
    if (v.m_empty < 0.01f) return &no_empty_weight;
    if (v.m_max < 0.01f) return &no_max_weight;
    if (v.m_empty > v.m_max) return &empty_above_max;
    return nullptr;
}

constexpr float nothing = 0.001f;  // ratio, thrust, power or area below which there is none
constexpr float least_rpm = 1.0f;

const fault_text* engine_fault(int p, int en) {
    const veh_struct& v = veh[p];
    if (v.rev_thrust_EQ && v.throt_max_REV < nothing) return &no_reverse_throttle;
    if (v.throt_max_FWD < nothing) return &no_throttle;
    if (en_is_roc(p, en) && (v.rock_max_sl < nothing || v.rock_max_opt < nothing || v.rock_max_vac < nothing))
        return &no_rocket_thrust;
    if (en_is_jet(p, en) && v.thrust_max < nothing) return &no_jet_thrust;
    if (en_is_prop(p, en) && v.power_max < nothing) return &no_power;
    if (en_is_recip(p, en) && v.MP_max < nothing) return &no_manifold_pressure;
    if (en_is_jet(p, en) && v.face_jet < nothing) return &no_compressor_area;
    if (!en_is_prop(p, en)) return nullptr;
    if (v.RSC_redline_ENGN < least_rpm || v.RSC_mingreen_ENGN < least_rpm || v.RSC_maxgreen_ENGN < least_rpm)
        return &no_engine_rpm;
    if (!en_is_elec(p, en) && v.RSC_idlespeed_ENGN < least_rpm) return &no_engine_rpm;
    if (v.RSC_idlespeed_ENGN > v.RSC_redline_ENGN) return &idle_above_redline;
    return nullptr;
}

// The first engine's propeller stands for all.
const fault_text* pitch_fault(const veh_engn_struct& first) {
    constexpr float least_range = 0.01f;  // degrees
    const float range = first.max_pitch - first.min_pitch;
    switch (first.prop_type) {
        case prop_constant:
        case prop_manual:
        case prop_collective:
        case prop_tip_mach:
        case prop_governed_rotor:
            return range < least_range ? &no_pitch_range : nullptr;
        case prop_fixed:
            return range > least_range ? &fixed_prop_range : nullptr;
        default:
            return nullptr;
    }
}

const fault_text* fuel_fault(const veh_struct& v) {
    if (v.m_fuel_tot <= 0.0f) return nullptr;
    float sum = 0.0f;
    for (int tank = 0; tank < v.num_tanks; ++tank) sum += v.tank_rat[tank];
    return fltrange(sum, 0.995f, 1.005f) ? nullptr : &bad_tank_ratios;
}

const fault_text* first_fault(int p) {
    const veh_struct& v = veh[p];
    if (const fault_text* fault = design_fault(v)) return fault;
    for (int en = 0; en < v.num_engines; ++en)
        if (const fault_text* fault = engine_fault(p, en)) return fault;
    for (int en = part_thru_first; en <= part_thru_last; ++en)
        if (has_this_thru(p, en, thru_disc))
            if (const fault_text* fault = pitch_fault(v.engn[0])) return fault;
    return fuel_fault(v);
}
}  // namespace

int ACF_check(int p, int) {
    const fault_text* fault = first_fault(p);
    if (!fault) return 1;
    ACF_fault(p, fault->line[0], fault->line[1], fault->line[2],
              std::string("Fix this problem in Hullwright. The plane in question is: ") + veh[p].path);
    return 0;
}

namespace {
struct divisor_row {
    const char* name;
    float value, least;
    bool used;
};

std::string zeros_of(int p) {
    const veh_struct& v = veh[p];
    bool any = v.num_engines > 0, shaft = false, spool = false, jet = false, recip = false;
    for (int en = 0; en < v.num_engines; ++en) {
        shaft = shaft || en_is_prop(p, en);
        recip = recip || en_is_recip(p, en);
        jet = jet || en_is_jet(p, en);
        spool = spool || en_is_jet(p, en) || en_is_turbo_free(p, en);
    }
    const divisor_row rows[] = {
        {"fuel_intro_time_prop", v.fuel_intro_time_prop, divisor_min, shaft},
        {"throt_time_prop", v.throt_time_prop, divisor_min, any && !jet},
        {"inertia_rat_prop", v.inertia_rat_prop, divisor_min, shaft},
        {"fuel_intro_time_jet", v.fuel_intro_time_jet, divisor_min, any && !shaft},
        {"throt_time_jet", v.throt_time_jet, divisor_min, jet},
        {"spool_time_jet", v.spool_time_jet, divisor_min, spool},
        {"max_EGT", v.max_EGT, divisor_min, recip},
        {"max_CHT", v.max_CHT, divisor_min, recip},
        {"battery_rat", v.battery_rat, divisor_min, any},
    };
    std::string names;
    const auto note = [&](const std::string& name) { names += (names.empty() ? "" : ", ") + name; };
    for (const divisor_row& row : rows)
        if (row.used && row.value < row.least) note(row.name);
    for (int en = 0; en < v.num_thrustpoints; ++en) {
        if (!has_this_thru(p, en, thru_disc)) continue;
        const std::string number = " of thrust point " + std::to_string(en);
        if (v.engn[en].mi_prop_rpm < disc_divisor_min) note("the propeller's inertia" + number);
        if (v.engn[en].prop_gear_rat < divisor_min) note("prop_gear_rat" + number);
    }
    return names;
}
}  // namespace

void ACF_warn_of_zeros(int p) {
    const std::string names = zeros_of(p);
    if (names.empty()) return;
    MACIBM_data_fault("This aircraft has zero where its engines need a value:", names,
                      "The least value that works stands in, so it does not fly as it was drawn.",
                      veh[p].path);
}
