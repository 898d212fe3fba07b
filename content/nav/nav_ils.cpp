// Landing aids laid out from the runway that they serve.
#include "nav_ils.h"

#include <cmath>

#include "nav_geo.h"
#include "nav_text.h"

namespace {
constexpr double localizer_past_end = 300, touchdown = 300, glide_beside = 120;  // m
// before the threshold, m: about 1,500, 200 and 100 feet of height on a slope of 3 degrees
constexpr double outer_out = 8300, middle_out = 1050, inner_out = 300;
constexpr double localizer_range = 18, glide_range = 10, marker_range = 2;  // nautical miles

nav_aid aid_of(int type, nav_place at, const nav_airport& airport, const ils_plan& ils, double course,
               double range, const std::string& name) {
    return {type,  at,     airport.ele, type >= aid_outer && type <= aid_inner ? 0 : ils.frq,
            range, course, ils.id,      name};
}
}  // namespace

void add_ils(nav_world& world, const nav_airport& airport, const nav_runway& runway, const ils_plan& ils) {
    const nav_globe& globe = world.globe;
    const double course = runway_heading(runway, ils.end);
    const nav_place far_end = runway_end(globe, runway, 1 - ils.end);
    const nav_place threshold =
        place_beside(globe, runway_end(globe, runway, ils.end), course, runway.disp[ils.end] * foot, 0);
    const nav_place localizer = place_beside(globe, far_end, course, localizer_past_end, 0);
    const std::string name = airport.id + " " + runway_end_name(runway, ils.end) + " ";
    const auto add = [&](int type, nav_place at, double psi, double range, const char* what) {
        world.aids.push_back(aid_of(type, at, airport, ils, psi, range, plain_name(name + what)));
    };
    add(ils.slope > 0 ? aid_ils : aid_loc, localizer, course, localizer_range, ils.slope > 0 ? "ILS" : "LOC");
    if (ils.slope > 0) {
        // the course shares its number with the slope and is whole
        const double packed = 1000 * std::round(ils.slope * 100) + std::lround(course) % 360;
        add(aid_glide, place_beside(globe, threshold, course, touchdown, glide_beside), packed, glide_range,
            "GS");
    }
    if (ils.dme) add(aid_dme, localizer, 0, localizer_range, "DME-ILS");
    const auto marker = [&](int type, double out, const char* what) {
        add(type, place_beside(globe, threshold, course, -out, 0), course, marker_range, what);
    };
    if (ils.outer) marker(aid_outer, outer_out, "OM");
    if (ils.middle) marker(aid_middle, middle_out, "MM");
    if (ils.inner) marker(aid_inner, inner_out, "IM");
}
