// An airport's plan: the extent, then the parts in the order in which they cover each other.
#include "plan.h"

#include <math.h>

#include <algorithm>
#include <stdexcept>

#include "plan_parts.h"

namespace {
struct extent {
    flat_point low = {1e9, 1e9}, high = {-1e9, -1e9};
    void take(const flat_point& p) {
        low = {std::min(low.east, p.east), std::min(low.north, p.north)};
        high = {std::max(high.east, p.east), std::max(high.north, p.north)};
    }
};

extent extent_of(int apt_index, const flat_map& map) {
    const vec_apt_struct& apt = vec_apt[static_cast<size_t>(apt_index)];
    extent all;
    for (size_t i = 0; i < apt.rwy.size(); ++i) {
        const vec_rwy_struct& rwy = apt.rwy[i];
        const runway_ends ends = ends_of(apt_index, static_cast<int>(i));
        const flat_point middle = map.at(place_of(rwy));
        for (const double side : {-0.5, 0.5}) {
            all.take(beside(middle, rwy.psi_true, 0.5 * rwy.len + ends.end[1].pad, side * rwy.width));
            all.take(beside(middle, rwy.psi_true, -0.5 * rwy.len - ends.end[0].pad, side * rwy.width));
        }
    }
    // signs that stand far off, by a slip in the tables, must not make all else small
    constexpr double near = 1500.0;
    const extent paved = all;
    const auto take_near = [&](double lat, double lon) {
        const flat_point p = map.at({lat, lon});
        if (p.east > paved.low.east - near && p.east < paved.high.east + near &&
            p.north > paved.low.north - near && p.north < paved.high.north + near)
            all.take(p);
    };
    for (const vec_sta_struct& ramp : apt.sta) take_near(ramp.lat, ramp.lon);
    for (const vec_soc_struct& sock : apt.soc) take_near(sock.lat, sock.lon);
    if (has_sign(apt, sign_tower)) take_near(apt.twr_lat, apt.twr_lon);
    if (has_sign(apt, sign_beacon)) take_near(apt.bcn_lat, apt.bcn_lon);
    return all;
}

void begin_map(sheet& on) {
    cairo_t* cr = on.pen();
    on.colour(ground);
    cairo_rectangle(cr, plan_frame.x, plan_frame.y, plan_frame.dx, plan_frame.dy);
    cairo_fill_preserve(cr);
    cairo_save(cr);
    cairo_clip(cr);
}

void end_map(sheet& on) {
    cairo_t* cr = on.pen();
    cairo_restore(cr);
    on.colour(ink);
    cairo_set_line_width(cr, 2.0);
    cairo_rectangle(cr, plan_frame.x, plan_frame.y, plan_frame.dx, plan_frame.dy);
    cairo_stroke(cr);
}
}  // namespace

int draw_plan(int apt_index, const std::string& png_path) {
    const vec_apt_struct& apt = vec_apt[static_cast<size_t>(apt_index)];
    if (apt.rwy.empty()) throw std::runtime_error(std::string(apt.apt_id) + " has no runway to draw");
    const flat_map map(airport_place(apt));
    const extent all = extent_of(apt_index, map);
    sheet on(all.low, all.high);
    labels names(on);
    plan p = {apt_index, apt, map, on, names};
    begin_map(on);
    draw_beams(p);
    draw_pavement(p);
    draw_map_aids(p);
    name_runways(p);
    draw_signs(p);
    end_map(on);
    draw_title(p);
    draw_tables(p);
    on.save(png_path);
    return names.left_out();
}
