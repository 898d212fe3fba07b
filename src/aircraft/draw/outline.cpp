// Shape of an aircraft from its parts.
#include "aircraft/draw/outline.h"

#include <GL/gl.h>
#include <math.h>

#include <initializer_list>

#include "aircraft/design/exists.h"
#include "core/math/axes.h"
#include "core/math/geo3.h"
#include "core/math/num.h"

namespace {
void normal(const Vector3& n) { glNormal3d(n.dx, n.dy, n.dz); }
void vertex(const Point3& p) { glVertex3d(p.x, p.y, p.z); }

// -- bodies

Point3 ring_point(const veh_part_struct& body, int s, int r) {
    const float* at = body.geo_xyz[s][r];
    return {at[0], at[1], at[2]};
}

Point3 ring_centre(const veh_part_struct& body, int s) {
    Vector3 sum;
    for (int r = 0; r < body.r_dim; ++r) sum = sum + (ring_point(body, s, r) - Point3{});
    return Point3{} + sum * (1.0 / body.r_dim);
}

// Across the surface; where a ring has shrunk to a point, along the body.
Vector3 tube_normal(const veh_part_struct& body, int s, int r) {
    const int last_s = body.s_dim - 1, last_r = body.r_dim - 1;
    const Vector3 along =
        ring_point(body, intmin2(s + 1, last_s), r) - ring_point(body, intmax2(s - 1, 0), r);
    const Vector3 round =
        ring_point(body, s, r < last_r ? r + 1 : 0) - ring_point(body, s, r > 0 ? r - 1 : last_r);
    Vector3 out = along.cross(round);
    constexpr double shrunk = 1e-9;
    if (out.normalize() < shrunk) return {0.0, 0.0, s == 0 ? -1.0 : 1.0};
    return out.dot(ring_point(body, s, r) - ring_centre(body, s)) < 0.0 ? out * -1.0 : out;
}

struct turn_struct {
    float sin_psi, cos_psi, sin_the, cos_the, sin_phi, cos_phi;
    Vector3 operator()(const Vector3& v) const {
        float x, y, z;
        any_to_wrl(static_cast<float>(v.dx), static_cast<float>(v.dy), static_cast<float>(v.dz), &x, &y, &z,
                   sin_psi, cos_psi, sin_the, cos_the, sin_phi, cos_phi);
        return {x, y, z};
    }
};

void emit_body(const veh_part_struct& body) {
    if (body.s_dim < 2 || body.r_dim < 3) return;
    const int last = body.s_dim - 1;
    const turn_struct turn = {sin_deg(body.part_psi), cos_deg(body.part_psi), sin_deg(body.part_the),
                              cos_deg(body.part_the), sin_deg(body.part_phi), cos_deg(body.part_phi)};
    const Point3 place = {body.part_x, body.part_y, body.part_z};
    const auto at = [&](const Point3& p) { return place + turn(p - Point3{}); };
    for (int s = 0; s < last; ++s) {
        glBegin(GL_QUAD_STRIP);
        for (int n = 0; n <= body.r_dim; ++n)
            for (const int ring : {s, s + 1}) {
                const int r = n % body.r_dim;
                normal(turn(tube_normal(body, ring, r)));
                vertex(at(ring_point(body, ring, r)));
            }
        glEnd();
    }
    for (const int end : {0, last}) {
        glBegin(GL_TRIANGLE_FAN);
        normal(turn({0.0, 0.0, end == 0 ? -1.0 : 1.0}));
        vertex(at(ring_centre(body, end)));
        for (int n = 0; n <= body.r_dim; ++n) vertex(at(ring_point(body, end, n % body.r_dim)));
        glEnd();
    }
}

// -- round things

constexpr int round_steps = 20;
constexpr double pi = 3.14159265358979;

// A closed cylinder between two points.
void emit_cylinder(const Point3& from, const Point3& to, double radius) {
    Vector3 axis = to - from;
    if (!(axis.normalize() > 0.0)) return;
    Vector3 across = axis.cross(fabs(axis.dy) < 0.9 ? Vector3{0.0, 1.0, 0.0} : Vector3{0.0, 0.0, 1.0});
    across.normalize();
    const Vector3 other = axis.cross(across);
    const auto out = [&](int i) {
        const double angle = 2.0 * pi * i / round_steps;
        return across * cos(angle) + other * sin(angle);
    };
    glBegin(GL_QUAD_STRIP);
    for (int i = 0; i <= round_steps; ++i) {
        normal(out(i));
        vertex(from + out(i) * radius);
        vertex(to + out(i) * radius);
    }
    glEnd();
    for (const double end : {-1.0, 1.0}) {
        glBegin(GL_POLYGON);
        normal(axis * end);
        for (int i = 0; i < round_steps; ++i) vertex((end < 0.0 ? from : to) + out(i) * radius);
        glEnd();
    }
}

// -- legs

struct wheels_struct {
    int beside, behind;
};
wheels_struct wheels_of(int gear_type) {
    switch (gear_type) {
        case gear_two_lat:
            return {2, 1};
        case gear_two_long:
            return {1, 2};
        case gear_four_2x2:
            return {2, 2};
        case gear_six_2x3:
            return {2, 3};
        case gear_four_lat:
            return {4, 1};
        case gear_eight:
            return {4, 2};
        case gear_three_lat:
            return {3, 1};
        default:
            return {1, 1};
    }
}

Point3 foot_of(int p, int g) {
    const veh_gear_struct& leg = veh[p].gear[g];
    return {leg.x_nodef, leg.y_nodef + flt[p].gear[g].tire_vrt_def_veh, leg.z_nodef};
}

bool is_out(int p, int g) {
    constexpr float in = 0.02f;  // deployed less than this, a leg is hidden
    return has_this_gear(p, g) && veh[p].gear[g].dep_rat >= in;
}

void emit_wheels(const veh_gear_struct& leg, const Point3& axle) {
    constexpr double apart_beside = 2.6, apart_behind = 2.2;  // half widths, radii
    const double radius = leg.tire_radius, half_width = leg.tire_swidth;
    const Vector3 half_axle = {half_width, 0.0, 0.0};
    const wheels_struct wheels = wheels_of(leg.gear_type);
    for (int i = 0; i < wheels.beside; ++i)
        for (int j = 0; j < wheels.behind; ++j) {
            const double x = (i - 0.5 * (wheels.beside - 1)) * apart_beside * half_width;
            const double z = (j - 0.5 * (wheels.behind - 1)) * apart_behind * radius;
            const Point3 hub = axle + Vector3{x, 0.0, z};
            emit_cylinder(hub + half_axle * -1.0, hub + half_axle, radius);
        }
}

// One tube through the feet of two skids on the same side, as helicopters have it; any other skid, also one
// of two below the keel, has a short one of its own.
void emit_runner(int p, int g) {
    constexpr double same_side = 0.2, beyond = 0.25;  // m; of the way between the feet
    const Point3 foot = foot_of(p, g);
    const double radius = veh[p].gear[g].tire_radius;
    for (int other = 0; other < gearDIM && fabs(foot.x) > same_side; ++other) {
        if (other == g || !is_out(p, other) || veh[p].gear[other].gear_type != gear_skid) continue;
        const Vector3 between = foot_of(p, other) - foot;
        if (fabs(between.dx) > same_side) continue;
        if (other > g) emit_cylinder(foot + between * -beyond, foot + between * (1.0 + beyond), radius);
        return;
    }
    const Vector3 half = {0.0, 0.0, 3.0 * radius};
    emit_cylinder(foot + half * -1.0, foot + half, radius);
}

void emit_leg(int p, int g) {
    const veh_gear_struct& leg = veh[p].gear[g];
    const bool is_skid = leg.gear_type == gear_skid;
    const double strut = (is_skid ? 0.7 : 0.25) * leg.tire_radius;
    emit_cylinder({leg.gear_x, leg.gear_y, leg.gear_z}, foot_of(p, g), strut);
    if (is_skid) return emit_runner(p, g);
    emit_wheels(leg, foot_of(p, g));
}

void emit_disc(int p, int en) {
    const auto towards = [p, en](double x, double y, double z) {
        float to_x, to_y, to_z;
        disc_to_veh(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z), &to_x, &to_y, &to_z,
                    p, en);
        return Vector3{to_x, to_y, to_z};
    };
    const veh_part_struct& hub = veh[p].part[en];
    const Point3 centre = {hub.part_x, hub.part_y, hub.part_z};
    const double radius = veh[p].wing[en].semilen_SEG;
    glBegin(GL_POLYGON);
    normal(towards(0.0, 0.0, -1.0));
    for (int i = 0; i < 2 * round_steps; ++i) {
        const double angle = pi * i / round_steps;
        vertex(centre + towards(radius * cos(angle), radius * sin(angle), 0.0));
    }
    glEnd();
}
}  // namespace

void emit_airframe(int p) {
    for (int en = part_body_first; en < partDIM; ++en)
        if (has_this_body(p, en)) emit_body(veh[p].part[en]);
}

void emit_legs(int p) {
    for (int g = 0; g < gearDIM; ++g)
        if (is_out(p, g)) emit_leg(p, g);
}

void emit_discs(int p) {
    for (int en = part_thru_first; en <= part_thru_last; ++en)
        if (has_this_wing(p, en)) emit_disc(p, en);
}

unsigned long long shape_now(int p) {
    unsigned long long sum = 0;
    const auto add = [&sum](unsigned bits) { sum = sum * 31 + bits; };
    for (int en = part_body_first; en < partDIM; ++en) add(static_cast<unsigned>(has_this_body(p, en)));
    return sum;
}
