// Signs: ramps, tower, beacon, windsocks.
#include <math.h>

#include "plan_parts.h"

namespace {
constexpr double rad = M_PI / 180.0;

// In a frame that is turned so that the heading is up.
void turned(sheet& on, const point& at, double heading, void (*draw)(cairo_t*)) {
    cairo_save(on.pen());
    cairo_new_path(on.pen());  // lettering leaves a point behind
    cairo_translate(on.pen(), at.x, at.y);
    cairo_rotate(on.pen(), heading * rad);
    draw(on.pen());
    cairo_restore(on.pen());
}

// A parked aircraft, its nose where it points.
void ramp(sheet& on, const point& at, double heading) {
    on.colour(ramp_colour);
    turned(on, at, heading, [](cairo_t* cr) {
        static constexpr double half[][2] = {{0, -9},    {1.4, -6.5}, {1.4, -2.5}, {8.5, 2},   {8.5, 3.6},
                                             {1.4, 1.4}, {1.0, 5.6},  {3.6, 7.6},  {3.6, 8.8}, {0, 7.9}};
        for (const auto& c : half) cairo_line_to(cr, c[0], c[1]);
        for (int i = static_cast<int>(std::size(half)) - 1; i >= 0; --i)
            cairo_line_to(cr, -half[i][0], half[i][1]);
        cairo_fill(cr);
    });
}

void tower(sheet& on, const point& at, double) {
    on.colour(sign_colour);
    turned(on, at, 0.0, [](cairo_t* cr) {
        cairo_rectangle(cr, -3.0, -2.0, 6.0, 11.0);
        cairo_move_to(cr, -7.0, -9.0);
        cairo_line_to(cr, 7.0, -9.0);
        cairo_line_to(cr, 4.5, -1.0);
        cairo_line_to(cr, -4.5, -1.0);
        cairo_fill(cr);
    });
}

void beacon(sheet& on, const point& at, double) {
    on.colour(sign_colour);
    turned(on, at, 0.0, [](cairo_t* cr) {
        constexpr int points = 5;
        for (int i = 0; i < 2 * points; ++i) {
            const double radius = i % 2 ? 4.0 : 10.0, angle = i * M_PI / points;
            cairo_line_to(cr, radius * sin(angle), -radius * cos(angle));
        }
        cairo_fill(cr);
    });
}

void windsock(sheet& on, const point& at, double) {
    on.colour(sign_colour);
    turned(on, at, 0.0, [](cairo_t* cr) {
        cairo_set_line_width(cr, 1.8);
        cairo_move_to(cr, -5.0, 9.0);
        cairo_line_to(cr, -5.0, -9.0);
        cairo_stroke(cr);
        cairo_move_to(cr, -5.0, -9.0);
        cairo_line_to(cr, 8.0, -6.0);
        cairo_line_to(cr, 8.0, -3.0);
        cairo_line_to(cr, -5.0, 0.0);
        cairo_fill(cr);
    });
}

constexpr double sign_radius = 10.0;

void keep_sign_free(plan& p, const point& at) {
    p.names.keep_free({at.x - sign_radius, at.y - sign_radius, 2.0 * sign_radius, 2.0 * sign_radius});
}

void put_sign(plan& p, int sign, const point& at, double heading) {
    signs[sign].draw(p.on, at, heading);
    keep_sign_free(p, at);
}
}  // namespace

const sign_row signs[sign_DIM] = {
    {ramp, "ramp"}, {tower, "tower"}, {beacon, "beacon"}, {windsock, "windsock"}};

bool has_sign(const vec_apt_struct& apt, int sign) {
    switch (sign) {
        case sign_ramp:
            return !apt.sta.empty();
        case sign_tower:
            return apt.twr_lat != 0.0f || apt.twr_lon != 0.0f;
        case sign_beacon:
            return apt.bcn_lat != 0.0f || apt.bcn_lon != 0.0f;
        default:
            return !apt.soc.empty();
    }
}

// All signs first: a name must not stand on one that comes later.
void draw_signs(plan& p) {
    constexpr double name_size = 13.0;
    for (const vec_sta_struct& r : p.apt.sta) put_sign(p, sign_ramp, p.at(r.lat, r.lon), r.psi);
    for (const vec_soc_struct& sock : p.apt.soc) put_sign(p, sign_windsock, p.at(sock.lat, sock.lon), 0.0);
    if (has_sign(p.apt, sign_tower)) put_sign(p, sign_tower, p.at(p.apt.twr_lat, p.apt.twr_lon), 0.0);
    if (has_sign(p.apt, sign_beacon)) put_sign(p, sign_beacon, p.at(p.apt.bcn_lat, p.apt.bcn_lon), 0.0);
    for (const vec_sta_struct& r : p.apt.sta)
        p.names.name(p.at(r.lat, r.lon), sign_radius, r.sta_name, name_size, ramp_colour);
}
