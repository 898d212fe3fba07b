// What stands around the map, and the aids to read it.
#include <math.h>

#include <algorithm>
#include <set>

#include "core/records/env.h"
#include "plan_parts.h"
#include "words.h"

namespace {
constexpr double rad = M_PI / 180.0;

void panel(plan& p, const box& b) {
    p.on.colour(paper, 0.85);
    cairo_rectangle(p.on.pen(), b.x, b.y, b.dx, b.dy);
    cairo_fill(p.on.pen());
    p.names.keep_free(b);
}

void arrow(plan& p, const point& foot, double heading, double length, unsigned rgb, const std::string& head) {
    const double s = sin(heading * rad), c = cos(heading * rad);
    const auto at = [&](double ahead, double right) {
        return point{foot.x + ahead * s + right * c, foot.y - ahead * c + right * s};
    };
    p.on.colour(rgb);
    cairo_set_line_width(p.on.pen(), 2.0);
    p.on.move(foot);
    p.on.line(at(length - 8.0, 0.0));
    cairo_stroke(p.on.pen());
    p.on.move(at(length, 0.0));
    p.on.line(at(length - 14.0, 5.0));
    p.on.line(at(length - 14.0, -5.0));
    cairo_close_path(p.on.pen());
    cairo_fill(p.on.pen());
    p.on.text(at(length + 11.0, 0.0), 0.5, head, 14.0, rgb, true);
}

// True north, and where a compass points: a westerly variation turns it to the left.
void draw_north(plan& p) {
    const box b = {plan_frame.x + plan_frame.dx - 128.0, plan_frame.y + 8.0, 120.0, 138.0};
    const double variation = variation_at(airport_place(p.apt));
    const point foot = {b.x + 60.0, b.y + 106.0};
    panel(p, b);
    arrow(p, foot, 0.0, 80.0, ink, "N");
    if (env.planet) return;
    arrow(p, foot, -variation, 58.0, faint_ink, fabs(variation) > 8.0 ? "M" : "");
    p.on.text({foot.x, b.y + 124.0}, 0.5, "VAR " + variation_text(airport_place(p.apt)), 13.0, faint_ink);
}

// The longest of 1, 2 or 5 times a power of ten that is at most so long.
double round_length(double longest) {
    const double power = pow(10.0, floor(log10(longest)));
    for (const double step : {5.0, 2.0})
        if (step * power <= longest) return step * power;
    return power;
}

void bar(plan& p, const point& left, double length_px, const std::string& words) {
    cairo_set_line_width(p.on.pen(), 2.0);
    p.on.colour(ink);
    p.on.move({left.x, left.y - 6.0});
    p.on.line(left);
    p.on.line({left.x + length_px, left.y});
    p.on.line({left.x + length_px, left.y - 6.0});
    cairo_stroke(p.on.pen());
    p.on.text({left.x + length_px + 8.0, left.y - 3.0}, 0.0, words, 13.0);
}

void draw_scale(plan& p) {
    constexpr double longest = 200.0;
    const box b = {plan_frame.x + 8.0, plan_frame.y + plan_frame.dy - 68.0, 320.0, 60.0};
    panel(p, b);
    const double metres = round_length(longest / p.on.per_metre());
    const double feet = round_length(longest / p.on.per_metre() * feet_per_metre);
    bar(p, {b.x + 12.0, b.y + 24.0}, metres * p.on.per_metre(), number_text(metres, 0) + " m");
    bar(p, {b.x + 12.0, b.y + 48.0}, feet / feet_per_metre * p.on.per_metre(), number_text(feet, 0) + " ft");
}

// -- tables

struct column {
    const char* title;
    double x;
};
constexpr column runway_columns[] = {{"Runway", 0},  {"Course", 80},   {"To land", 160},
                                     {"Width", 330}, {"Surface", 410}, {"ILS", 560}};
constexpr double title_size = 13.0, largest_text = 15.0, line_height = 22.0;
constexpr double frequencies_x = 780.0;  // in the table's frame

std::vector<std::string> row_of(const plan& p, int rwy_index, int end) {
    const vec_rwy_struct& rwy = p.apt.rwy[static_cast<size_t>(rwy_index)];
    const runway_end e = ends_of(p.apt_index, rwy_index).end[end];
    const vec_nav_struct* localizer = localizer_of(p.apt_index, rwy_index, end);
    const double to_land = rwy.len - e.displaced;
    return {e.name,
            heading_text(magnetic(e.heading, place_of(rwy))) + "°",
            length_text(to_land),
            number_text(rwy.width * feet_per_metre, 0) + " ft",
            surface_words(rwy.surf_tex),
            localizer ? std::string(localizer->nav_id) + " " + frequency_text(localizer->frq) : ""};
}

void draw_runway_table(plan& p) {
    std::vector<std::vector<std::string>> rows;
    for (size_t i = 0; i < p.apt.rwy.size(); ++i) {
        const runway_kind kind = kind_of(p.apt.rwy[i]);
        const int ends = kind == runway_kind::runway ? 2 : kind == runway_kind::helipad ? 1 : 0;
        for (int end = 0; end < ends; ++end) rows.push_back(row_of(p, static_cast<int>(i), end));
    }
    const double space = table_frame.dy - 70.0;
    const double height =
        std::min(line_height, space / static_cast<double>(std::max<size_t>(rows.size(), 1)));
    const double size = largest_text * height / line_height;
    for (const column& c : runway_columns)
        p.on.text({table_frame.x + c.x, table_frame.y + 8.0}, 0.0, c.title, title_size, faint_ink);
    double y = table_frame.y + 32.0;
    for (const auto& row : rows) {
        for (size_t c = 0; c < row.size(); ++c)
            p.on.text({table_frame.x + runway_columns[c].x, y}, 0.0, row[c], size, ink, c == 0);
        y += height;
    }
}

void draw_frequency_table(plan& p) {
    const struct {
        const char* service;
        int frq;
    } rows[] = {{"Weather", p.apt.int_AWOS},        {"Unicom", p.apt.int_unicom},
                {"Clearance", p.apt.int_clearance}, {"Ground", p.apt.int_ground},
                {"Tower", p.apt.int_tower},         {"Approach", p.apt.int_approach},
                {"Departure", p.apt.int_departure}};
    const double x = table_frame.x + frequencies_x;
    double y = table_frame.y + 32.0;
    p.on.text({x, table_frame.y + 8.0}, 0.0, "Frequencies, MHz", title_size, faint_ink);
    for (const auto& row : rows) {
        if (!row.frq) continue;
        p.on.text({x, y}, 0.0, row.service, largest_text);
        p.on.text({x + 210.0, y}, 1.0, frequency_text(row.frq), largest_text, ink, true);
        y += line_height;
    }
}

void draw_legend(plan& p) {
    double x = table_frame.x;
    const double y = table_frame.y + table_frame.dy - 22.0;
    const auto words = [&](const std::string& text) {
        p.on.text({x, y}, 0.0, text, title_size, faint_ink);
        x += p.on.text_width(text, title_size) + 26.0;
    };
    std::set<int> surfaces;
    for (const vec_rwy_struct& rwy : p.apt.rwy)
        if (kind_of(rwy) == runway_kind::runway) surfaces.insert(rwy.surf_tex);
    for (const int surface : surfaces) {
        p.on.colour(surface_colour(surface));
        cairo_rectangle(p.on.pen(), x, y - 7.0, 24.0, 14.0);
        cairo_fill(p.on.pen());
        x += 32.0;
        words(surface_words(surface));
    }
    for (int sign = 0; sign < sign_DIM; ++sign) {
        if (!has_sign(p.apt, sign)) continue;
        signs[sign].draw(p.on, {x + 10.0, y}, 0.0);
        x += 26.0;
        words(signs[sign].words);
    }
}
}  // namespace

void draw_map_aids(plan& p) {
    draw_north(p);
    draw_scale(p);
}

void draw_title(plan& p) {
    const double right = plan_frame.x + plan_frame.dx;
    const place at = airport_place(p.apt);
    p.on.text({plan_frame.x, 60.0}, 0.0, p.apt.apt_id, 60.0, ink, true);
    p.on.text({plan_frame.x, 118.0}, 0.0, p.apt.apt_name, 28.0);
    const std::string facts[] = {
        airport_words(p.apt.apt_type) + (p.apt.atc_twr ? ", controlled" : ", not controlled"), place_text(at),
        "elevation " + number_text(p.apt.ele * feet_per_metre, 0) + " ft (" + number_text(p.apt.ele, 0) +
            " m)",
        env.planet ? "Mars" : "magnetic courses, epoch 2025"};
    double y = 40.0;
    for (const std::string& fact : facts) {
        p.on.text({right, y}, 1.0, fact, 16.0, faint_ink);
        y += 26.0;
    }
}

void draw_tables(plan& p) {
    draw_runway_table(p);
    draw_frequency_table(p);
    draw_legend(p);
    p.on.text({0.5 * sheet_dx, sheet_dy - 14.0}, 0.5, "For the simulator only: never for a real flight.",
              12.0, faint_ink);
}
