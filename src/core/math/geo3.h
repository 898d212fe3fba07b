// Small geometry: points, vectors, lines, planes in double; one triple and its box in float.
#pragma once
#include <cmath>
#include <vector>

#include "core/math/num.h"

struct Vector3 {
    double dx = 0.0, dy = 0.0, dz = 0.0;
    double dot(const Vector3& v) const { return dx * v.dx + dy * v.dy + dz * v.dz; }
    Vector3 cross(const Vector3& v) const {
        return {dy * v.dz - dz * v.dy, dz * v.dx - dx * v.dz, dx * v.dy - dy * v.dx};
    }
    double squared_length() const { return dot(*this); }
    // Scales to unit length and gives the old one; a null vector stays as it is.
    double normalize() {
        const double len = std::sqrt(squared_length());
        if (len > 0.0) *this = {dx / len, dy / len, dz / len};
        return len;
    }
    Vector3 operator*(double k) const { return {dx * k, dy * k, dz * k}; }
    Vector3 operator+(const Vector3& v) const { return {dx + v.dx, dy + v.dy, dz + v.dz}; }
};

struct Point3 {
    double x = 0.0, y = 0.0, z = 0.0;
    Point3 operator+(const Vector3& v) const { return {x + v.dx, y + v.dy, z + v.dz}; }
    Vector3 operator-(const Point3& p) const { return {x - p.x, y - p.y, z - p.z}; }
};

struct Point2 {
    double x = 0.0, y = 0.0;
};

struct Sphere3 {
    Point3 c;
    double radius = 0.0;
};

using Polygon3 = std::vector<Point3>;

struct Line3 {
    Point3 p;
    Vector3 v;
};

struct Segment3 {
    Point3 p1, p2;
    double squared_length() const { return (p2 - p1).squared_length(); }
};

// Points with n . p equal to ndotp.
struct Plane3 {
    Vector3 n;
    double ndotp = 0.0;
    Plane3() = default;
    Plane3(const Point3& p, const Vector3& normal) : n(normal), ndotp(height(p)) {}
    // False when the line is parallel.
    bool intersect(const Line3& line, Point3& at) const {
        const double slope = n.dot(line.v);
        if (slope == 0.0) return false;
        at = line.p + line.v * ((ndotp - height(line.p)) / slope);
        return true;
    }
    // Strictly beyond the plane.
    bool on_normal_side(const Point3& p) const { return height(p) > ndotp; }

private:
    double height(const Point3& p) const { return n.dx * p.x + n.dy * p.y + n.dz * p.z; }
};

// On the inner side of the edge from a to b, or on it, of a shape that runs clockwise seen from above, x east
// and z south. In double, so that a point on the edge of two shapes is never outside of both by rounding.
inline bool inside_cw_edge(double ax, double az, double bx, double bz, double x, double z) {
    return (x - ax) * (bz - az) - (z - az) * (bx - ax) <= 0.0;
}

// -- in float

// A point or a vector: a vertex of a tile, a force on a disc, a wind.
struct d3_struct {
    float x = 0.0f, y = 0.0f, z = 0.0f;
    d3_struct operator+(const d3_struct& b) const { return {x + b.x, y + b.y, z + b.z}; }
    d3_struct operator*(float k) const { return {x * k, y * k, z * k}; }
    float dot(const d3_struct& b) const { return x * b.x + y * b.y + z * b.z; }
    float at(int axis) const { return axis == 0 ? x : axis == 1 ? y : z; }
    // The three in a row, for OpenGL.
    const float* xyz() const { return &x; }
};
static_assert(sizeof(d3_struct) == 3 * sizeof(float));

// Box that grows around what is put into it.
struct box_struct {
    float min_x = 9.9e+09f, min_y = 9.9e+09f, min_z = 9.9e+09f;
    float max_x = -9.9e+09f, max_y = -9.9e+09f, max_z = -9.9e+09f;
    void grow(const d3_struct& at) {
        min_x = fltmin2(min_x, at.x);
        min_y = fltmin2(min_y, at.y);
        min_z = fltmin2(min_z, at.z);
        max_x = fltmax2(max_x, at.x);
        max_y = fltmax2(max_y, at.y);
        max_z = fltmax2(max_z, at.z);
    }
    bool empty() const { return min_x > max_x; }
    d3_struct size() const { return {max_x - min_x, max_y - min_y, max_z - min_z}; }
    d3_struct centre() const {
        return {0.5f * (min_x + max_x), 0.5f * (min_y + max_y), 0.5f * (min_z + max_z)};
    }
};
