// Runways, pads, pavement and water with their marks and names, and the localizers' beams over them.
#include <math.h>

#include <algorithm>

#include "plan_parts.h"
#include "words.h"

namespace {
enum surface_code : int {
    asphalt = 1,
    concrete,
    grass,
    dirt,
    gravel,
    pad_asphalt,
    pad_concrete,
    pad_grass,
    pad_dirt,
    turn_asphalt,
    turn_concrete,
    lakebed,
    water,
};
constexpr unsigned colours[] = {0x808488, 0x45494f, 0x7d8187, 0x86a86c, 0xb08e64, 0x9d9483, 0x45494f,
                                0x7d8187, 0x86a86c, 0xb08e64, 0x45494f, 0x7d8187, 0xd3c197, 0x86b4d6};
constexpr unsigned pavement_colour = 0xb3b6ba, blast_colour = 0xc2b06a, mark_colour = 0xffffff;

// A runway in metres: along from its middle towards the second end, across to the right.
struct strip {
    plan& p;
    const vec_rwy_struct& rwy;
    runway_ends ends;
    flat_point middle;
    double half_len, half_width;

    strip(plan& of, int index)
        : p(of),
          rwy(of.apt.rwy[static_cast<size_t>(index)]),
          ends(ends_of(of.apt_index, index)),
          middle(of.map.at(place_of(rwy))),
          half_len(0.5 * rwy.len) {
        constexpr double thinnest = 5.0;  // pixels
        half_width = 0.5 * std::max<double>(rwy.width, thinnest / of.on.per_metre());
    }
    point at(double along, double across) const {
        return p.on.at(beside(middle, rwy.psi_true, along, across));
    }
    // Along, of an end: -1 for the first, 1 for the second.
    static double side(int end) { return end == 0 ? -1.0 : 1.0; }
    void outline(double from, double to, double half) const {
        p.on.move(at(from, -half));
        p.on.line(at(from, half));
        p.on.line(at(to, half));
        p.on.line(at(to, -half));
        cairo_close_path(p.on.pen());
    }
    double width_pixels() const { return 2.0 * half_width * p.on.per_metre(); }
};

bool is_water(const vec_rwy_struct& rwy) { return code_with_tex(rwy.surf_tex) == water; }
bool is_hard(const vec_rwy_struct& rwy) {
    const int code = code_with_tex(rwy.surf_tex);
    return code == asphalt || code == concrete;
}

void draw_shoulders(const strip& s) {
    if (!s.rwy.shoulder) return;
    s.outline(-s.half_len, s.half_len, 1.25 * s.half_width);
    s.p.on.colour(s.rwy.shoulder == 1 ? 0x70757b : 0x9fa3a8);
    cairo_fill(s.p.on.pen());
}

void draw_blast_pads(const strip& s) {
    for (int end = 0; end < 2; ++end) {
        if (s.ends.end[end].pad <= 0.0) continue;
        const double side = strip::side(end);
        s.outline(side * s.half_len, side * (s.half_len + s.ends.end[end].pad), s.half_width);
        s.p.on.colour(blast_colour);
        cairo_fill(s.p.on.pen());
    }
}

void stroke_marks(const strip& s, double width) {
    s.p.on.colour(mark_colour);
    cairo_set_line_width(s.p.on.pen(), width);
    cairo_stroke(s.p.on.pen());
}

// The threshold as a bar, and arrows up to one that stands inside the end.
void draw_threshold(const strip& s, int end) {
    constexpr double arrow_step = 90.0, arrow_length = 25.0;
    const double side = strip::side(end), displaced = s.ends.end[end].displaced;
    const double bar = side * (s.half_len - displaced), half = 0.8 * s.half_width;
    s.p.on.move(s.at(bar, -half));
    s.p.on.line(s.at(bar, half));
    for (double back = 0.5 * arrow_step; back < displaced; back += arrow_step) {
        const double tip = bar + side * (back - 0.5 * arrow_length), tail = tip + side * arrow_length;
        s.p.on.move(s.at(tail, -0.5 * half));
        s.p.on.line(s.at(tip, 0.0));
        s.p.on.line(s.at(tail, 0.5 * half));
    }
    stroke_marks(s, displaced > 0.0 ? 2.5 : 2.0);
}

void draw_centre_line(const strip& s) {
    constexpr double narrowest = 7.0, near_end = 120.0;
    if (s.width_pixels() < narrowest || s.rwy.markings == 0) return;
    const double dashes[] = {14.0, 10.0};
    cairo_set_dash(s.p.on.pen(), dashes, 2, 0.0);
    s.p.on.move(s.at(-s.half_len + s.ends.end[0].displaced + near_end, 0.0));
    s.p.on.line(s.at(s.half_len - s.ends.end[1].displaced - near_end, 0.0));
    stroke_marks(s, 1.2);
    cairo_set_dash(s.p.on.pen(), nullptr, 0, 0.0);
}

void draw_rim(const strip& s) {
    const double dashes[] = {8.0, 5.0};
    if (is_water(s.rwy)) cairo_set_dash(s.p.on.pen(), dashes, 2, 0.0);
    s.outline(-s.half_len, s.half_len, s.half_width);
    s.p.on.colour(is_water(s.rwy) ? 0x2d6c99 : ink, 0.7);
    cairo_set_line_width(s.p.on.pen(), 1.0);
    cairo_stroke(s.p.on.pen());
    cairo_set_dash(s.p.on.pen(), nullptr, 0, 0.0);
}

void draw_runway(const strip& s) {
    draw_blast_pads(s);
    s.outline(-s.half_len, s.half_len, s.half_width);
    s.p.on.colour(surface_colour(s.rwy.surf_tex));
    cairo_fill(s.p.on.pen());
    draw_rim(s);
    if (!is_hard(s.rwy)) return;
    draw_centre_line(s);
    for (int end = 0; end < 2; ++end) draw_threshold(s, end);
}

void draw_piece(const strip& s) {
    const int code = code_with_tex(s.rwy.surf_tex);
    s.outline(-s.half_len, s.half_len, s.half_width);
    s.p.on.colour(is_hard(s.rwy) || code == turn_asphalt || code == turn_concrete
                      ? pavement_colour
                      : surface_colour(s.rwy.surf_tex));
    cairo_fill(s.p.on.pen());
}

void draw_helipad(const strip& s) {
    constexpr double smallest = 11.0;  // pixels
    const point c = s.at(0.0, 0.0);
    const double radius = std::max(smallest, std::max(s.half_len, s.half_width) * s.p.on.per_metre());
    cairo_arc(s.p.on.pen(), c.x, c.y, radius, 0.0, 2.0 * M_PI);
    s.p.on.colour(surface_colour(s.rwy.surf_tex));
    cairo_fill_preserve(s.p.on.pen());
    s.p.on.colour(mark_colour);
    cairo_set_line_width(s.p.on.pen(), 1.5);
    cairo_stroke(s.p.on.pen());
    s.p.on.text(c, 0.5, "H", 1.2 * radius, mark_colour, true);
}

// Boxes along a strip, so that names keep off it.
void avoid_strip(const strip& s) {
    const double length = 2.0 * s.half_len * s.p.on.per_metre(), half = 0.5 * s.width_pixels() + 2.0;
    const int count = std::clamp(static_cast<int>(length / std::max(half, 6.0)), 1, 400);
    for (int i = 0; i <= count; ++i) {
        const point c = s.at(s.half_len * (2.0 * i / count - 1.0), 0.0);
        s.p.names.avoid({c.x - half, c.y - half, 2.0 * half, 2.0 * half});
    }
}

// -- names

box end_box(const point& c) { return {c.x - 26.0, c.y - 20.0, 52.0, 44.0}; }

// Beyond the end, or to its side where another name stands already; pixels out and across.
point place_beyond(const strip& s, int end) {
    constexpr double tries[][2] = {{34, 0},   {30, 30}, {30, -30}, {12, 48},
                                   {12, -48}, {70, 0},  {-20, 52}, {-20, -52}};
    const double edge = s.half_len + s.ends.end[end].pad, to_metres = 1.0 / s.p.on.per_metre();
    const auto place = [&](const double(&t)[2]) {
        return s.at(strip::side(end) * (edge + t[0] * to_metres), t[1] * to_metres);
    };
    for (const auto& t : tries)
        if (s.p.names.is_free(end_box(place(t)))) return place(t);
    return place(tries[0]);
}

void name_end(const strip& s, int end) {
    constexpr double name_size = 24.0, heading_size = 13.0;
    const runway_end& e = s.ends.end[end];
    const point c = place_beyond(s, end);
    const std::string heading = heading_text(magnetic(e.heading, place_of(s.rwy))) + "°";
    s.p.on.text({c.x, c.y - 6.0}, 0.5, e.name, name_size, ink, true, true);
    s.p.on.text({c.x, c.y + 14.0}, 0.5, heading, heading_size, faint_ink, false, true);
    s.p.names.keep_free(end_box(c));
}

// Beside the runway and along it, readable from below or from the right.
void name_length(const strip& s) {
    constexpr double size = 14.0, gap = 12.0;
    const std::string words = number_text(s.rwy.len * feet_per_metre, 0) + " x " +
                              number_text(s.rwy.width * feet_per_metre, 0) + " ft";
    if (s.p.on.text_width(words, size) > 1.6 * s.half_len * s.p.on.per_metre()) return;
    double turn = remainder(s.rwy.psi_true - 90.0, 360.0);
    if (turn > 90.0 || turn <= -90.0) turn = remainder(turn + 180.0, 360.0);
    const bool turned = fabs(remainder(turn - (s.rwy.psi_true - 90.0), 360.0)) > 90.0;
    // a third of the way along, where crossing runways are rare; above the line of the text
    const double across = s.half_width + gap / s.p.on.per_metre();
    const point c = s.at(-0.36 * s.half_len, turned ? across : -across);
    cairo_t* cr = s.p.on.pen();
    cairo_save(cr);
    cairo_translate(cr, c.x, c.y);
    cairo_rotate(cr, turn * M_PI / 180.0);
    s.p.on.text({0.0, 0.0}, 0.5, words, size, ink, false, true);
    cairo_restore(cr);
    s.p.names.keep_free({c.x - 30.0, c.y - 12.0, 60.0, 24.0});
}

// -- beams

void draw_beam(plan& p, const vec_nav_struct& aid) {
    constexpr double half_angle = 2.5, long_way = 30000.0;  // degrees, metres: to the frame's edge
    const double out = aid.psi_true + 180.0;
    const flat_point antenna = p.map.at(place_of(aid));
    const point from = p.on.at(antenna);
    const auto ray = [&](double angle) { return p.on.at(beside(antenna, out + angle, long_way, 0.0)); };
    cairo_t* cr = p.on.pen();
    p.on.move(from);
    p.on.line(ray(-half_angle));
    p.on.line(ray(half_angle));
    cairo_close_path(cr);
    p.on.colour(beam_colour, 0.16);
    cairo_fill(cr);
    // one half is darker, as on charts
    p.on.move(from);
    p.on.line(ray(0.0));
    p.on.line(ray(half_angle));
    cairo_close_path(cr);
    p.on.colour(beam_colour, 0.12);
    cairo_fill(cr);
    cairo_arc(cr, from.x, from.y, 4.0, 0.0, 2.0 * M_PI);
    p.on.colour(beam_colour);
    cairo_fill(cr);
}
}  // namespace

unsigned surface_colour(int surf_tex) {
    const int code = code_with_tex(surf_tex);
    return code >= asphalt && code <= water ? colours[code] : colours[0];
}

void draw_beams(plan& p) {
    for (const vec_nav_struct* aid : aids_of(p.apt))
        if (aid->type == nav_ils || aid->type == nav_loc) draw_beam(p, *aid);
}

void draw_pavement(plan& p) {
    std::vector<strip> strips;
    for (size_t i = 0; i < p.apt.rwy.size(); ++i) strips.emplace_back(p, static_cast<int>(i));
    for (const strip& s : strips) draw_shoulders(s);
    for (const strip& s : strips)
        if (kind_of(s.rwy) == runway_kind::pavement) draw_piece(s);
    // water lies under all runways, soft ones under hard ones
    for (const int layer : {0, 1, 2})
        for (const strip& s : strips)
            if (kind_of(s.rwy) == runway_kind::runway && layer == (is_water(s.rwy)  ? 0
                                                                   : is_hard(s.rwy) ? 2
                                                                                    : 1))
                draw_runway(s);
    for (const strip& s : strips)
        if (kind_of(s.rwy) == runway_kind::helipad) draw_helipad(s);
    for (const strip& s : strips) avoid_strip(s);
}

void name_runways(plan& p) {
    for (size_t i = 0; i < p.apt.rwy.size(); ++i) {
        const strip s(p, static_cast<int>(i));
        if (kind_of(s.rwy) != runway_kind::runway) continue;
        for (int end = 0; end < 2; ++end) name_end(s, end);
        name_length(s);
    }
    for (size_t i = 0; i < p.apt.rwy.size(); ++i) {
        const strip s(p, static_cast<int>(i));
        if (kind_of(s.rwy) == runway_kind::helipad)
            p.names.name(s.at(0.0, 0.0), 12.0, s.ends.end[0].name, 15.0, ink);
    }
    for (const vec_nav_struct* aid : aids_of(p.apt))
        if (aid->type == nav_ils || aid->type == nav_loc)
            p.names.name(p.at(aid->lat, aid->lon), 5.0,
                         std::string(aid->nav_id) + " " + frequency_text(aid->frq), 14.0, beam_colour);
}
