// Text of the trace.
#include "flight/force/trace.h"

#include "core/program/logs.h"
#include "core/records/records.h"

void trace_banner(const std::string& heading) {
    cyc << '\n'
        << std::string(heading.size(), '-') << '\n'
        << heading << '\n'
        << std::string(heading.size(), '-') << '\n';
}

void trace_values(const std::string& label, trace_list values) {
    cyc << "  " << label << ':';
    for (const auto& [name, value] : values) cyc << "  " << name << ' ' << value;
    cyc << '\n';
}

void trace_coeffs(const char* step, float cl, float cd, float cm) {
    trace_values(step, {{"cl", cl}, {"cd", cd}, {"cm", cm}});
}

static void forcerep(const char* kind, const std::string& label, float side, float nrml, float axil) {
    if (!mnw.cyc_out) return;
    trace_banner(std::string("RUNNING ") + kind + " FORCE AND TOTAL MOMENT TOTALS, AIRCRAFT AXIS SYSTEM");
    trace_values(label, {{"side N", side},
                         {"normal N", nrml},
                         {"axial N", axil},
                         {"L N m", flt[0].L},
                         {"M N m", flt[0].M},
                         {"N N m", flt[0].N}});
}

void aero_forcerep(const std::string& label) {
    forcerep("AERODYNAMIC", label, flt[0].fside_aero_acf, flt[0].fnrml_aero_acf, flt[0].faxil_aero_acf);
}
void prop_forcerep(const std::string& label) {
    forcerep("PROPULSIVE", label, flt[0].fside_prop_acf, flt[0].fnrml_prop_acf, flt[0].faxil_prop_acf);
}
void gear_forcerep(const std::string& label) {
    forcerep("GEAR", label, flt[0].fside_gear_acf, flt[0].fnrml_gear_acf, flt[0].faxil_gear_acf);
}
