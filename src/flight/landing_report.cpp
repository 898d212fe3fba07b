// The landing report.
#include "flight/landing_report.h"

#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "scenery/airports/strip_marks.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/region/region_lists.h"

namespace {
struct landing_state {
    landing_report_struct report{};
    float in_the_air = 0.0f;   // s without a touch
    float sink_fpm = 0.0f;     // of the last frame in the air
    float since_touch = 0.0f;  // s
};
landing_state state;

// A place as a pilot sees it who lands on the end of a runway that lies nearest to his heading.
struct runway_place {
    bool from_far_end;
    float along, across;  // m past that end, m right of the centreline
};

runway_place place_on(const vec_rwy_struct& rwy, float ele) {
    const flt_struct& f = flt[0];
    float x, y, z;
    xyz_with_latlonel(&x, &y, &z, rwy.lat, rwy.lon, ele);
    const float heading = rwy.psi_true + z_north_os(rwy.lat, rwy.lon);
    const float dx = static_cast<float>(f.dob_x) - x, dz = static_cast<float>(f.dob_z) - z;
    float along = dx * sin_deg(heading) - dz * cos_deg(heading);
    float across = dx * cos_deg(heading) + dz * sin_deg(heading);
    const bool from_far_end = fabsf(fltwrap(f.psi - heading, -180.0f, 180.0f)) > 90.0f;
    if (from_far_end) along = -along, across = -across;
    float displaced[2];
    split_feet(rwy.disp, displaced);
    return {from_far_end, along + 0.5f * rwy.len - displaced[from_far_end], across};
}

// As a pilot says it: two digits, and the side when there are neighbours. The other end has 18 more, left and
// right exchanged.
void name_end(const char* num_str, bool is_far_end, char (&name)[4]) {
    const int number = atoi(num_str);
    const int end = is_far_end ? intwrap(number + 18, 1, 36) : intlim(number, 0, 99);
    const char left = is_far_end ? 'R' : 'L', right = is_far_end ? 'L' : 'R';
    const char side = num_str[2] == 'L' ? left : num_str[2] == 'R' ? right : num_str[2];
    name[0] = static_cast<char>('0' + end / 10);
    name[1] = static_cast<char>('0' + end % 10);
    name[2] = side == 'x' ? '\0' : side;
    name[3] = '\0';
}

// The runway whose centreline is nearest, among those that the aircraft is over or just short of.
void find_runway() {
    constexpr float short_of = 300.0f, beside = 60.0f;  // m
    landing_report_struct& r = state.report;
    float nearest = beside;
    for (int lcl = 0; lcl <= apt_lcl_max; ++lcl) {
        const vec_apt_struct& apt = vec_apt[static_cast<size_t>(apt_lcl_to_wrl[lcl])];
        for (const vec_rwy_struct& rwy : apt.rwy) {
            if (rwy.num_str[0] == 'x') continue;
            const runway_place at = place_on(rwy, apt.ele);
            if (!(fabsf(at.across) < nearest) || at.along < -short_of || at.along > rwy.len) continue;
            nearest = fabsf(at.across);
            snprintf(r.airport, sizeof r.airport, "%s", apt.apt_id);
            name_end(rwy.num_str, at.from_far_end, r.runway);
            r.from_threshold = at.along;
            r.from_centreline = at.across;
        }
    }
}

void open_report() {
    landing_report_struct& r = state.report;
    const int number = r.number + 1;
    r = {};
    r.number = number;
    r.is_open = 1;
    r.sink_fpm = state.sink_fpm;
    state.since_touch = 0.0f;
    find_runway();
}

void follow_roll(bool touches) {
    constexpr float slow = 5.0f, settles = 1.0f;  // m/s, s
    landing_report_struct& r = state.report;
    state.since_touch += mnw.prd_FM;
    r.load = fltmax2(r.load, flt[0].g_nrml);
    r.roll_out += flt[0].V_msc * mnw.prd_FM;
    const bool stands = touches && flt[0].V_msc < slow && state.since_touch > settles;
    if (!stands && touches) return;
    r.is_open = 0;
    r.closed_time = mnw.totl_time;
}
}  // namespace

const landing_report_struct& landing_report() { return state.report; }

void reset_landing_report() { state = {}; }

void landing_report_step() {
    constexpr float flies_again = 2.0f, hop = 0.3f;  // s
    if (mnw.first_miss_cycle) reset_landing_report();
    if (flt[0].update_type != pln_update_primary || mnw.replay_mode) return;
    const bool touches = flt[0].onground_any, flew = state.in_the_air > flies_again;
    if (touches && flew) open_report();
    if (touches && !flew && state.in_the_air > hop && state.report.is_open) ++state.report.bounces;
    state.in_the_air = touches ? 0.0f : state.in_the_air + mnw.prd_FM;
    if (state.report.is_open) follow_roll(touches || state.in_the_air < flies_again);
    if (!touches) state.sink_fpm = -flt[0].Vh_fpm;
}

std::string landing_report_text() {
    const landing_report_struct& r = state.report;
    char text[200];
    int n = snprintf(text, sizeof text, "LANDING  %.0f ft/min  %.2f g", static_cast<double>(r.sink_fpm),
                     static_cast<double>(r.load));
    if (r.airport[0])
        n += snprintf(text + n, sizeof text - static_cast<size_t>(n),
                      "  %s %s  %.0f m past the threshold  %.1f m %s of the centreline", r.airport, r.runway,
                      static_cast<double>(r.from_threshold), static_cast<double>(fabsf(r.from_centreline)),
                      r.from_centreline < 0.0f ? "left" : "right");
    snprintf(text + n, sizeof text - static_cast<size_t>(n), "  rolled %.0f m",
             static_cast<double>(r.roll_out));
    return text;
}
