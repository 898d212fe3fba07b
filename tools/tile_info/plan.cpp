// A tile as a map: the ground, what lies over it, what stands on it, and the frame around all.
#include "plan.h"

#include <math.h>
#include <stdio.h>

#include <algorithm>
#include <stdexcept>

#include "../nav_info/sheet.h"

namespace {
constexpr double rad = M_PI / 180.0;

// -- colours

constexpr unsigned water_colour = 0x5f93cf, road_colour = 0x3b332c;
constexpr unsigned land_colours[] = {0x9bb66b, 0xdcc98f, 0x7c9858, 0xa79f95, 0x5c8a62, 0xc8b760,
                                     0xb9a3a8, 0xc98f6f, 0x8fb7a4, 0xb5915a, 0xa9a86b, 0x96798a};
constexpr unsigned thing_colours[] = {0xb3261e, 0x7a1fa0, 0xe07b1a, 0x1f3f9c, 0xd0409a, 0x4c5a12,
                                      0x0f6b66, 0x5a3a20, 0x14a044, 0x101010, 0x7a2f3a, 0x2f8fd0};

template <size_t count>
unsigned colour_of(const unsigned (&list)[count], size_t index) {
    return list[index % count];
}
// Definition 0 is water in every sound tile, so that land begins at 1.
unsigned terrain_colour(const std::vector<definition>& terrain, size_t index) {
    if (index < terrain.size() && is_water(terrain[index].name)) return water_colour;
    return colour_of(land_colours, index + std::size(land_colours) - 1);
}

unsigned shaded(unsigned rgb, double light) {
    unsigned out = 0;
    for (int shift = 16; shift >= 0; shift -= 8)
        out = out << 8 | static_cast<unsigned>(std::clamp(lround((rgb >> shift & 255) * light), 0l, 255l));
    return out;
}

// Light from the north-west, 1 on level ground, in few steps so that the picture stays small.
double light_on(double nx, double nz) {
    constexpr double from_west = 0.5, from_north = 0.5, strength = 0.9, steps = 40.0;
    const double ny = sqrt(std::max(1.0 - nx * nx - nz * nz, 0.0));
    const double slope_light = strength * (ny - from_west * nx - from_north * nz - 1.0);
    return 1.0 + round(std::clamp(slope_light, -0.55, 0.35) * steps) / steps;
}

// -- the map

struct map_vertex {
    point at;
    double nx, nz;
};

struct map {
    sheet& on;
    const tile_survey& survey;
    const area& extent;
    double middle_lon, middle_lat, metres_per_lon;
    // present patch
    triangle_feed<map_vertex> feed = {};
    bool draws_overlays = false, is_drawn = false, is_flat = false;
    unsigned colour = 0;
    // present polygon, road
    bool starts = false;

    point at(double lon, double lat) const {
        constexpr double far_away = 1e6;  // cairo counts in 24 bits
        const point p =
            on.at({(lon - middle_lon) * metres_per_lon, (lat - middle_lat) * survey.metres_per_degree});
        return {std::clamp(p.x, -far_away, far_away), std::clamp(p.y, -far_away, far_away)};
    }
    void begin_patch(unsigned terrain, double lod_near, unsigned char flags, int depth) {
        constexpr int with_normals = 5;
        const std::vector<definition>& known = survey.definitions[def_terrain];
        const bool hidden = terrain < known.size() && is_hidden(known[terrain].name);
        const bool far_form = lod_near > 0.0;
        is_drawn =
            depth >= with_normals && !hidden && !far_form && ((flags & patch_overlay) != 0) == draws_overlays;
        is_flat = terrain < known.size() && is_water(known[terrain].name);
        colour = terrain_colour(known, terrain);
    }
    void triangle(const map_vertex& a, const map_vertex& b, const map_vertex& c) {
        const double third = 1.0 / 3.0;
        const double light =
            is_flat ? 1.0 : light_on(third * (a.nx + b.nx + c.nx), third * (a.nz + b.nz + c.nz));
        on.colour(shaded(colour, light), draws_overlays ? 0.5 : 1.0);
        on.move(a.at);
        on.line(b.at);
        on.line(c.at);
        cairo_fill(on.pen());
    }
    void go_to(const double* c) {
        starts ? on.move(at(c[0], c[1])) : on.line(at(c[0], c[1]));
        starts = false;
    }
    void dot(const double* c, unsigned object) {
        constexpr double radius = 2.6;
        const point p = at(c[0], c[1]);
        cairo_arc(on.pen(), p.x, p.y, radius, 0.0, 2.0 * M_PI);
        on.colour(colour_of(thing_colours, object));
        cairo_fill(on.pen());
    }
};
map& map_of(void* ref) { return *static_cast<map*>(ref); }

void draw_ground(map& m, const tile_file& file, bool overlays) {
    m.draws_overlays = overlays;
    cairo_set_antialias(m.on.pen(), CAIRO_ANTIALIAS_NONE);  // neighbours meet without a seam
    DSFCallbacks_t t{};
    t.BeginPatch_f = [](unsigned terrain, double near, double, unsigned char flags, float*, float*, int depth,
                        void* r) { map_of(r).begin_patch(terrain, near, flags, depth); };
    t.BeginPrimitive_f = [](int type, void* r) { map_of(r).feed.begin(type); };
    t.AddPatchVertex_f = [](double* c, void* r) {
        map& m = map_of(r);
        if (!m.is_drawn) return;
        m.feed.add({m.at(c[0], c[1]), c[3], c[4]},
                   [&m](const auto& a, const auto& b, const auto& v) { m.triangle(a, b, v); });
    };
    file.tell(t, &m);
    cairo_set_antialias(m.on.pen(), CAIRO_ANTIALIAS_DEFAULT);
}

// Roads below, polygons over them, objects on top.
void draw_roads(map& m, const tile_file& file) {
    DSFCallbacks_t t{};
    t.BeginSegment_f = [](unsigned, unsigned, unsigned, double* c, bool, void* r) {
        map_of(r).starts = true;
        map_of(r).go_to(c);
    };
    t.AddSegmentShapePoint_f = [](double* c, bool, void* r) { map_of(r).go_to(c); };
    t.EndSegment_f = [](unsigned, double* c, bool, void* r) {
        map_of(r).go_to(c);
        map_of(r).on.colour(road_colour);
        cairo_set_line_width(map_of(r).on.pen(), 2.0);
        cairo_stroke(map_of(r).on.pen());
    };
    file.tell(t, &m);
}

void draw_polygons(map& m, const tile_file& file) {
    DSFCallbacks_t t{};
    t.BeginPolygon_f = [](unsigned polygon, unsigned short, void* r) {
        map_of(r).colour = colour_of(thing_colours, polygon + 1);
    };
    t.BeginPolygonWinding_f = [](void* r) { map_of(r).starts = true; };
    t.AddPolygonPoint_f = [](double* c, void* r) { map_of(r).go_to(c); };
    t.EndPolygonWinding_f = [](void* r) { cairo_close_path(map_of(r).on.pen()); };
    t.EndPolygon_f = [](void* r) {
        map_of(r).on.colour(map_of(r).colour);
        cairo_set_line_width(map_of(r).on.pen(), 1.6);
        cairo_stroke(map_of(r).on.pen());
    };
    file.tell(t, &m);
}

void draw_objects(map& m, const tile_file& file) {
    DSFCallbacks_t t{};
    t.AddObject_f = [](unsigned object, double* c, double, void* r) { map_of(r).dot(c, object); };
    file.tell(t, &m);
}

box map_box(const map& m) {
    const area& e = m.extent;
    const point nw = m.at(e.lon.min, e.lat.max), se = m.at(e.lon.max, e.lat.min);
    return {nw.x, nw.y, se.x - nw.x, se.y - nw.y};
}

void draw_map(map& m, const tile_file& file) {
    const box b = map_box(m);
    cairo_save(m.on.pen());
    cairo_rectangle(m.on.pen(), round(b.x), round(b.y), round(b.dx), round(b.dy));
    cairo_clip(m.on.pen());
    m.on.colour(0xffffff);
    cairo_paint(m.on.pen());  // what no patch covers stays white
    for (const bool overlays : {false, true}) draw_ground(m, file, overlays);
    draw_roads(m, file);
    draw_polygons(m, file);
    draw_objects(m, file);
    cairo_restore(m.on.pen());
}

// -- the frame

std::string degree_text(double degrees, int decimals, char positive, char negative) {
    char text[40];
    snprintf(text, sizeof text, "%.*f° %c", decimals, fabs(degrees), degrees < 0.0 ? negative : positive);
    return text;
}

// The smallest of 1, 2 or 5 times a power of ten that is at least so long.
double round_step(double least) {
    const double power = pow(10.0, floor(log10(least)));
    for (const double step : {1.0, 2.0, 5.0})
        if (step * power >= 0.999999 * least) return step * power;
    return 10.0 * power;
}

// Marks of one side's degrees at round values; mark(value, words).
template <class function>
void degree_marks(const range& side, double pixels, char positive, char negative, function mark) {
    constexpr double apart = 90.0;  // pixels, at least
    const double step = round_step(side.size() * apart / pixels);
    const int decimals = std::max(0, static_cast<int>(ceil(-log10(step) - 1e-9)));
    for (double n = ceil(side.min / step - 1e-6); n * step <= side.max + 1e-6 * step; n += 1.0)
        mark(n * step, degree_text(n * step, decimals, positive, negative));
}

void draw_frame(map& m) {
    constexpr double mark = 8.0, gap = 6.0, size = 13.0;
    const box b = map_box(m);
    const area& e = m.extent;
    const double right = b.x + b.dx, bottom = b.y + b.dy;
    m.on.colour(ink);
    cairo_set_line_width(m.on.pen(), 1.5);
    cairo_rectangle(m.on.pen(), b.x, b.y, b.dx, b.dy);
    cairo_stroke(m.on.pen());
    const auto tick = [&m](const point& from, const point& to) {
        m.on.colour(ink);
        m.on.move(from);
        m.on.line(to);
        cairo_stroke(m.on.pen());
    };
    degree_marks(e.lat, b.dy, 'N', 'S', [&](double lat, const std::string& words) {
        const double y = m.at(e.lon.min, lat).y;
        tick({b.x - mark, y}, {b.x, y});
        tick({right, y}, {right + mark, y});
        m.on.text({b.x - mark - gap, y}, 1.0, words, size);
    });
    degree_marks(e.lon, b.dx, 'E', 'W', [&](double lon, const std::string& words) {
        const double x = m.at(lon, e.lat.min).x;
        tick({x, b.y - mark}, {x, b.y});
        tick({x, bottom}, {x, bottom + mark});
        m.on.text({x, bottom + mark + 2.0 * gap}, 0.5, words, size);
    });
}

void draw_scale(map& m) {
    const box b = map_box(m);
    const double metres = round_step(100.0 / m.on.per_metre()), length = metres * m.on.per_metre();
    const point left = {b.x + b.dx - length, b.y - 22.0};
    char words[40];
    snprintf(words, sizeof words, "%.6g km", metres / 1000.0);
    m.on.colour(ink);
    cairo_set_line_width(m.on.pen(), 2.0);
    m.on.move({left.x, left.y - 6.0});
    m.on.line(left);
    m.on.line({left.x + length, left.y});
    m.on.line({left.x + length, left.y - 6.0});
    cairo_stroke(m.on.pen());
    m.on.text({left.x - 8.0, left.y - 3.0}, 1.0, words, 13.0);
}

void draw_title(map& m, const tile_file& file) {
    const patch_sum all = m.survey.all_patches();
    char facts[200];
    snprintf(facts, sizeof facts, "%.2f MB   %ld patches   %ld triangles   %ld objects",
             static_cast<double>(file.size()) / 1e6, all.patches, all.triangles, m.survey.objects);
    m.on.text({plan_frame.x, 55.0}, 0.0, file.name(), 40.0, ink, true);
    m.on.text({plan_frame.x, 105.0}, 0.0, facts, 18.0, faint_ink);
    if (!m.survey.elevation.holds_any()) return;
    snprintf(facts, sizeof facts, "elevation %.0f to %.0f m", m.survey.elevation.min, m.survey.elevation.max);
    m.on.text({plan_frame.x + plan_frame.dx, 105.0}, 1.0, facts, 18.0, faint_ink);
}

// -- the legend

enum class legend_sign { land, dot, outline, line };
struct legend_row {
    legend_sign sign;
    unsigned colour;
    std::string words;
};

void draw_sign(sheet& on, const point& p, legend_sign sign, unsigned colour) {
    on.colour(colour);
    cairo_set_line_width(on.pen(), 2.0);
    switch (sign) {
        case legend_sign::land:
            cairo_rectangle(on.pen(), p.x - 11.0, p.y - 6.5, 22.0, 13.0);
            cairo_fill(on.pen());
            break;
        case legend_sign::dot:
            cairo_arc(on.pen(), p.x, p.y, 3.5, 0.0, 2.0 * M_PI);
            cairo_fill(on.pen());
            break;
        case legend_sign::outline:
            cairo_rectangle(on.pen(), p.x - 10.0, p.y - 5.5, 20.0, 11.0);
            cairo_stroke(on.pen());
            break;
        case legend_sign::line:
            on.move({p.x - 11.0, p.y});
            on.line({p.x + 11.0, p.y});
            cairo_stroke(on.pen());
            break;
    }
}

// The end of a long name tells more than its folders.
std::string shortened(sheet& on, std::string words, double size, double width) {
    if (on.text_width(words, size) <= width) return words;
    while (words.size() > 1 && on.text_width("…" + words, size) > width) do
            words.erase(0, 1);
        while (words.size() > 1 && (words[0] & 0xc0) == 0x80);  // not inside a character
    return "…" + words;
}

std::vector<legend_row> legend_of(const tile_survey& survey, definition_kind kind) {
    std::vector<legend_row> rows;
    const std::vector<definition>& list = survey.definitions[kind];
    for (size_t i = 0; i < list.size(); ++i) {
        const std::string words = list[i].name + "  " + std::to_string(list[i].uses);
        if (kind == def_terrain && !is_hidden(list[i].name))
            rows.push_back({legend_sign::land, terrain_colour(list, i), words});
        if (kind == def_object) rows.push_back({legend_sign::dot, colour_of(thing_colours, i), words});
        if (kind == def_polygon)
            rows.push_back({legend_sign::outline, colour_of(thing_colours, i + 1), words});
        if (kind == def_network) rows.push_back({legend_sign::line, road_colour, words});
    }
    return rows;
}

void draw_legend_column(map& m, double x, double width, const char* title,
                        const std::vector<legend_row>& rows) {
    constexpr double size = 13.0, line_height = 20.0;
    constexpr size_t most = 14;
    if (rows.empty()) return;
    double y = table_frame.y + 10.0;
    m.on.text({x, y}, 0.0, title, size, faint_ink);
    const size_t shown = rows.size() > most ? most - 1 : rows.size();
    for (size_t i = 0; i < shown; ++i) {
        y += line_height;
        draw_sign(m.on, {x + 12.0, y}, rows[i].sign, rows[i].colour);
        m.on.text({x + 34.0, y}, 0.0, shortened(m.on, rows[i].words, size, width - 34.0), size);
    }
    if (shown < rows.size())
        m.on.text({x + 34.0, y + line_height}, 0.0, "and " + std::to_string(rows.size() - shown) + " more",
                  size, faint_ink);
}

void draw_legend(map& m) {
    constexpr double column = 390.0, width = 370.0;
    std::vector<legend_row> others = legend_of(m.survey, def_polygon);
    for (const legend_row& row : legend_of(m.survey, def_network)) others.push_back(row);
    draw_legend_column(m, table_frame.x, width, "Terrain, patches", legend_of(m.survey, def_terrain));
    draw_legend_column(m, table_frame.x + column, width, "Objects", legend_of(m.survey, def_object));
    draw_legend_column(m, table_frame.x + 2.0 * column, width, "Polygons, road segments", others);
    m.on.text({table_frame.x, table_frame.y + table_frame.dy - 18.0}, 0.0,
              "Ground is lit from the north-west. Overlays are drawn half transparent.", 12.0, faint_ink);
}
}  // namespace

void draw_plan(const tile_file& file, const tile_survey& survey, const area& extent,
               const std::string& png_path) {
    const double lon = 0.5 * (extent.lon.min + extent.lon.max), lat = 0.5 * (extent.lat.min + extent.lat.max);
    const double metres_per_lon = survey.metres_per_degree * std::max(cos(lat * rad), 0.01);
    const flat_point north_east = {0.5 * extent.lon.size() * metres_per_lon,
                                   0.5 * extent.lat.size() * survey.metres_per_degree};
    sheet on({-north_east.east, -north_east.north}, north_east);
    map m{on, survey, extent, lon, lat, metres_per_lon};
    draw_map(m, file);
    draw_frame(m);
    draw_scale(m);
    draw_title(m, file);
    draw_legend(m);
    on.save(png_path);
}
