// Small geometry in double: points, vectors, lines, planes.
#pragma once
#include <cmath>
#include <vector>

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
