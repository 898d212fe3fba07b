// Bodies as commands of object files.
#include "shape.h"

#include <math.h>
#include <stdio.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>

object_text::object_text(const std::string& texture) : text("I\n700\nOBJ\n\n" + texture + "\n\n") {}

void object_text::say(const std::string& line) { text += line + "\n"; }

void object_text::lod(double near_m, double far_m) {
    say("\nATTR_LOD " + std::to_string(lround(near_m)) + " " + std::to_string(lround(far_m)));
}

// Inside the field by a little, so that filtering takes nothing of its neighbours.
void object_text::vertex(const point& p, const cell& c, double s, double t) {
    constexpr double rim = 0.012;
    const auto held = [](double v) { return rim + (1.0 - 2.0 * rim) * v; };
    char line[120];
    snprintf(line, sizeof line, "%.3f %.3f %.3f  %.4f %.4f", p.x, p.y, p.z, (c.column + held(s)) / c.fields,
             (c.row + held(t)) / c.fields);
    say(line);
}

void object_text::face(const point& ll, const point& lr, const point& ur, const point& ul, const cell& c,
                       const std::string& word) {
    say(word);
    vertex(lr, c, 1, 0);
    vertex(ll, c, 0, 0);
    vertex(ul, c, 0, 1);
    vertex(ur, c, 1, 1);
}

void object_text::floor(double x, double y, double z, double dx, double dz, const cell& c,
                        const std::string& word) {
    const double x1 = x - dx / 2, x2 = x + dx / 2, z1 = z - dz / 2, z2 = z + dz / 2;
    face({x1, y, z2}, {x2, y, z2}, {x2, y, z1}, {x1, y, z1}, c, word);
}

void object_text::box(const point& foot, double dx, double dy, double dz, const cell& side, const cell& front,
                      const cell& top) {
    const double x1 = foot.x - dx / 2, x2 = foot.x + dx / 2, z1 = foot.z - dz / 2, z2 = foot.z + dz / 2;
    const double y1 = foot.y, y2 = foot.y + dy;
    face({x1, y1, z2}, {x2, y1, z2}, {x2, y2, z2}, {x1, y2, z2}, front);
    face({x2, y1, z2}, {x2, y1, z1}, {x2, y2, z1}, {x2, y2, z2}, side);
    face({x2, y1, z1}, {x1, y1, z1}, {x1, y2, z1}, {x2, y2, z1}, side);
    face({x1, y1, z1}, {x1, y1, z2}, {x1, y2, z2}, {x1, y2, z1}, side);
    floor(foot.x, y2, foot.z, dx, dz, top);
}

void object_text::tube(const point& foot, double r0, double dy, double r1, int sides, const cell& c) {
    say("quad_strip " + std::to_string(2 * (sides + 1)));
    for (int i = 0; i <= sides; ++i) {
        const double a = 2.0 * M_PI * i / sides, s = static_cast<double>(i) / sides;
        vertex({foot.x + r0 * sin(a), foot.y, foot.z + r0 * cos(a)}, c, s, 0);
        vertex({foot.x + r1 * sin(a), foot.y + dy, foot.z + r1 * cos(a)}, c, s, 1);
    }
}

void object_text::cap(const point& rim, double r, double rise, int sides, const cell& c) {
    say("tri_fan " + std::to_string(sides + 2));
    vertex({rim.x, rim.y + rise, rim.z}, c, 0.5, 0.5);
    for (int i = 0; i <= sides; ++i) {
        const double a = 2.0 * M_PI * i / sides;
        vertex({rim.x + r * sin(a), rim.y, rim.z - r * cos(a)}, c, 0.5 + 0.5 * sin(a), 0.5 + 0.5 * cos(a));
    }
}

void object_text::bar(const point& a, const point& b, double thickness, const cell& c) {
    const double h = thickness / 2;
    const double dx = b.x - a.x, dy = b.y - a.y, dz = b.z - a.z, len = sqrt(dx * dx + dy * dy + dz * dz);
    const point d = {dx / len, dy / len, dz / len};
    // two directions across; any that are not along it
    const point ref = fabs(d.y) < 0.9 ? point{0, 1, 0} : point{0, 0, 1};
    point u = {ref.y * d.z - ref.z * d.y, ref.z * d.x - ref.x * d.z, ref.x * d.y - ref.y * d.x};
    const double ul = sqrt(u.x * u.x + u.y * u.y + u.z * u.z);
    u = {h * u.x / ul, h * u.y / ul, h * u.z / ul};
    const point v = {u.y * d.z - u.z * d.y, u.z * d.x - u.x * d.z, u.x * d.y - u.y * d.x};
    const auto at = [](const point& p, const point& u, double ku, const point& v, double kv) {
        return point{p.x + ku * u.x + kv * v.x, p.y + ku * u.y + kv * v.y, p.z + ku * u.z + kv * v.z};
    };
    const double turn[4][2] = {{1, 1}, {1, -1}, {-1, -1}, {-1, 1}};
    for (int i = 0; i < 4; ++i) {
        const auto &p = turn[i], &q = turn[(i + 1) % 4];
        face(at(a, u, p[0], v, p[1]), at(a, u, q[0], v, q[1]), at(b, u, q[0], v, q[1]),
             at(b, u, p[0], v, p[1]), c);
    }
}

void object_text::lattice(const point& foot, double w0, double dy, double w1, const cell& c, const cell& c2) {
    const int bays = std::max(1, static_cast<int>(lround(dy / (0.5 * (w0 + w1)))));
    say("ATTR_no_cull");
    for (int i = 0; i < bays; ++i) {
        const double f0 = static_cast<double>(i) / bays, f1 = static_cast<double>(i + 1) / bays;
        const double h0 = 0.5 * (w0 + (w1 - w0) * f0), h1 = 0.5 * (w0 + (w1 - w0) * f1);
        const double y0 = foot.y + dy * f0, y1 = foot.y + dy * f1, x = foot.x, z = foot.z;
        const cell& bay = i % 2 ? c2 : c;
        face({x - h0, y0, z + h0}, {x + h0, y0, z + h0}, {x + h1, y1, z + h1}, {x - h1, y1, z + h1}, bay);
        face({x + h0, y0, z + h0}, {x + h0, y0, z - h0}, {x + h1, y1, z - h1}, {x + h1, y1, z + h1}, bay);
        face({x + h0, y0, z - h0}, {x - h0, y0, z - h0}, {x - h1, y1, z - h1}, {x + h1, y1, z - h1}, bay);
        face({x - h0, y0, z - h0}, {x - h0, y0, z + h0}, {x - h1, y1, z + h1}, {x - h1, y1, z - h1}, bay);
    }
    say("ATTR_cull");
}

void object_text::fence(double half_x, double half_z, double height, const cell& c) {
    say("ATTR_no_cull");
    const auto run = [&](point a, point b) {
        const int pieces = std::max(1, static_cast<int>(lround(hypot(b.x - a.x, b.z - a.z) / height / 1.5)));
        for (int i = 0; i < pieces; ++i) {
            const auto at = [&](int n, double y) {
                const double f = static_cast<double>(n) / pieces;
                return point{a.x + (b.x - a.x) * f, y, a.z + (b.z - a.z) * f};
            };
            face(at(i, 0), at(i + 1, 0), at(i + 1, height), at(i, height), c);
        }
    };
    run({-half_x, 0, half_z}, {half_x, 0, half_z});
    run({half_x, 0, half_z}, {half_x, 0, -half_z});
    run({half_x, 0, -half_z}, {-half_x, 0, -half_z});
    run({-half_x, 0, -half_z}, {-half_x, 0, half_z});
    say("ATTR_cull");
}

void object_text::line(const point& a, const point& b, double grey) {
    char lines[200];
    snprintf(lines, sizeof lines, "line\n%.3f %.3f %.3f  %.1f %.1f %.1f\n%.3f %.3f %.3f  %.1f %.1f %.1f", a.x,
             a.y, a.z, grey, grey, grey, b.x, b.y, b.z, grey, grey, grey);
    say(lines);
}

void object_text::light(const point& at, double r, double g, double b) {
    char lines[120];
    snprintf(lines, sizeof lines, "light\n%.3f %.3f %.3f  %g %g %g", at.x, at.y, at.z, r, g, b);
    say(lines);
}

void object_text::save(const std::string& path) {
    std::ofstream out(path, std::ios::binary);
    out << text << "end\n";
    if (!out.flush()) throw std::runtime_error("cannot write " + path);
}
