// The program's own cursors: tiles of 30 with the point that acts in their middle.
#include <math.h>

#include "pictures.h"
#include "theme.h"

using namespace theme;

namespace {
constexpr rgba edge = {0.02, 0.04, 0.06, 0.95};
constexpr rgba white = hex(0xf6fafd);
constexpr double middle = 15.0;

cairo_t* open_tile(canvas& c, int column, int row) {
    cairo_t* cr =
        c.open("cursor " + std::to_string(column) + " " + std::to_string(row), cursor_tile(column, row));
    cairo_translate(cr, middle, middle);
    return cr;
}

// A soft shadow below whatever `draw` paints, then the thing itself.
template <class painter>
void with_shadow(cairo_t* cr, painter&& draw) {
    cairo_push_group(cr);
    draw(cr);
    cairo_pattern_t* shape = cairo_pop_group(cr);
    for (const auto& [x, y] : {std::pair{1.0, -1.0}, {0.0, -2.0}, {1.0, -2.0}}) {
        cairo_matrix_t m;
        cairo_pattern_get_matrix(shape, &m);
        cairo_matrix_t moved = m;
        cairo_matrix_translate(&moved, -x, -y);
        cairo_pattern_set_matrix(shape, &moved);
        cairo_set_source_rgba(cr, 0.0, 0.0, 0.0, 0.16);
        cairo_mask(cr, shape);
        cairo_pattern_set_matrix(shape, &m);
    }
    cairo_set_source(cr, shape);
    cairo_paint(cr);
    cairo_pattern_destroy(shape);
}

// An arrow that turns about the knob; fast ones have a double head.
void turn(canvas& c, int column, int row, bool clockwise, bool fast) {
    cairo_t* cr = open_tile(c, column, row);
    with_shadow(cr, [&](cairo_t* p) {
        if (!clockwise) cairo_scale(p, -1.0, 1.0);
        constexpr double radius = 9.0;
        const double size = fast ? 0.78 : 1.0;
        const double from = 1.15 * M_PI, to = 0.05 * M_PI;  // over the top, clockwise
        cairo_new_path(p);
        cairo_arc_negative(p, 0.0, -1.0, radius, from, to + (fast ? 1.05 : 0.25));
        cairo_set_line_cap(p, CAIRO_LINE_CAP_BUTT);
        outlined_line(p, white, 3.0, edge);
        const auto head = [&](double at) {
            cairo_save(p);
            cairo_translate(p, radius * cos(at), radius * sin(at) - 1.0);
            cairo_rotate(p, at);
            cairo_scale(p, size, size);
            polygon(p, {{-4.6, 1.0}, {4.6, 1.0}, {0.0, -5.6}});
            cairo_restore(p);
            outlined(p, fast ? amber : white, edge, 1.0);
        };
        head(to + 0.10);
        if (fast) head(to + 0.75);
        circle(p, 0.0, -1.0, 1.6);
        outlined(p, white, edge, 1.0);
    });
    c.close();
}

void push(canvas& c, int column, int row, double turned) {
    cairo_t* cr = open_tile(c, column, row);
    with_shadow(cr, [&](cairo_t* p) {
        cairo_rotate(p, turned);  // drawn pointing up
        polygon(p,
                {{0.0, 11.5}, {8.0, 3.0}, {3.0, 3.0}, {3.0, -3.0}, {-3.0, -3.0}, {-3.0, 3.0}, {-8.0, 3.0}});
        outlined(p, white, edge, 1.2);
        polygon(p, {{-3.0, -5.5}, {3.0, -5.5}, {3.0, -7.5}, {-3.0, -7.5}});
        outlined(p, white, edge, 1.2);
    });
    c.close();
}

plate finger(double x, double y, double dx, double dy) { return {x, y, dx, dy, 0.5 * dx}; }

void limb(cairo_t* p, const plate& f, const rgba& inside) {
    path(p, f);
    outlined(p, inside, edge, 1.0);
}

// A hand whose forefinger ends in the middle of the tile.
void pointing_hand(canvas& c, int column, int row, bool down) {
    cairo_t* cr = open_tile(c, column, row);
    with_shadow(cr, [&](cairo_t* p) {
        const rgba skin = down ? hex(0xbfe4fb) : white;
        const double y = down ? -1.0 : 0.0;
        if (down) {  // a ring shows the press
            circle(p, 0.0, 0.0, 5.5);
            outlined_line(p, accent_light, 1.4, edge);
        }
        limb(p, finger(-1.9, y - 10.0, 4.0, 11.0), skin);
        limb(p, finger(1.7, y - 11.0, 3.6, 6.0), skin);
        limb(p, finger(4.7, y - 11.0, 3.6, 5.4), skin);
        limb(p, finger(7.6, y - 11.0, 3.2, 4.4), skin);
        cairo_save(p);
        cairo_translate(p, -1.4, y - 11.6);
        cairo_rotate(p, 0.75);
        limb(p, finger(-1.8, 0.0, 3.6, 6.4), skin);
        cairo_restore(p);
        limb(p, {-2.4, y - 13.0, 12.8, 5.6, 2.6}, skin);
        // the palm without a line against the fingers
        path(p, {-1.6, y - 11.8, 11.2, 4.8, 1.6});
        set_colour(p, skin);
        cairo_fill(p);
        for (double x : {1.9, 4.9, 7.8})
            fill(p, {x - 0.4, y - 8.6, 0.8, 2.2, 0.0}, {edge.r, edge.g, edge.b, 0.5});
    });
    c.close();
}

// A hand around a lever, the middle of the palm in the middle of the tile.
void grasping_hand(canvas& c, int column, int row, bool closed) {
    cairo_t* cr = open_tile(c, column, row);
    with_shadow(cr, [&](cairo_t* p) {
        const rgba skin = closed ? hex(0xbfe4fb) : white;
        const double tall = closed ? 4.5 : 10.5;
        constexpr double step = 4.1;
        const double reach[4] = {0.86, 1.0, 0.94, 0.74};
        for (int i = 0; i < 4; ++i) limb(p, finger(-8.2 + step * i, -1.0, 4.1, 2.5 + tall * reach[i]), skin);
        cairo_save(p);
        cairo_translate(p, closed ? 5.0 : 7.0, -5.0);
        cairo_rotate(p, closed ? 0.15 : -0.75);
        limb(p, finger(-1.9, -1.0, 4.0, closed ? 6.5 : 8.5), skin);
        cairo_restore(p);
        limb(p, {-8.2, -9.5, 16.4, 11.5, 4.0}, skin);
        path(p, {-7.0, -8.3, 14.0, 10.6, 3.2});
        set_colour(p, skin);
        cairo_fill(p);
        for (int i = 1; i < 4; ++i)
            fill(p, {-8.5 + step * i, closed ? -2.5 : -0.2, 0.8, closed ? 6.0 : 3.0, 0.0},
                 {edge.r, edge.g, edge.b, 0.5});
        if (closed) fill(p, {-6.6, -3.2, 12.0, 0.9, 0.4}, {edge.r, edge.g, edge.b, 0.45});
    });
    c.close();
}
}  // namespace

void draw_cursors(canvas& c) {
    turn(c, 0, 1, false, false);
    turn(c, 1, 1, true, false);
    turn(c, 0, 0, false, true);
    turn(c, 1, 0, true, true);
    push(c, 2, 1, M_PI);         // down
    push(c, 3, 1, 0.0);          // up
    push(c, 2, 0, 0.5 * M_PI);   // left
    push(c, 3, 0, -0.5 * M_PI);  // right
    pointing_hand(c, 4, 1, false);
    pointing_hand(c, 5, 1, true);
    grasping_hand(c, 4, 0, false);
    grasping_hand(c, 5, 0, true);
}
