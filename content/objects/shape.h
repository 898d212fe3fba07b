// Object files written from simple bodies. Faces are seen from the side from which their corners run
// clockwise. Frame: metres, x right, y up, z towards the front.
#pragma once
#include <string>

struct point {
    double x, y, z;
};

// A square field of the texture; the corners of a body's face take its corners.
struct cell {
    int column, row;  // row 0 is the lowest
    int fields = 4;   // of the texture in a row
};

class object_text {
public:
    explicit object_text(const std::string& texture);

    void say(const std::string& line);  // a command as it is
    void lod(double near_m, double far_m);

    // Corners as seen from the front: lower left, lower right, upper right, upper left.
    void face(const point& ll, const point& lr, const point& ur, const point& ul, const cell& c,
              const std::string& word = "quad");
    // A flat one that is seen from above, its lower edge in front.
    void floor(double x, double y, double z, double dx, double dz, const cell& c,
               const std::string& word = "quad");
    // Foot's middle and sizes; no floor. The front has a cell of its own.
    void box(const point& foot, double dx, double dy, double dz, const cell& side, const cell& front,
             const cell& top);
    void box(const point& foot, double dx, double dy, double dz, const cell& side) {
        box(foot, dx, dy, dz, side, side, side);
    }
    // Round and upright, from a radius at the foot to another at the head.
    void tube(const point& foot, double r0, double dy, double r1, int sides, const cell& c);
    // Round roof around its middle, that lies `rise` above its rim.
    void cap(const point& rim, double r, double rise, int sides, const cell& c);
    // Upright of any thickness between two points, square.
    void bar(const point& a, const point& b, double thickness, const cell& c);
    // Open lattice with four sides, in bays about as high as wide. c2 takes every other bay.
    void lattice(const point& foot, double w0, double dy, double w1, const cell& c, const cell& c2);
    void fence(double half_x, double half_z, double height, const cell& c);

    void line(const point& a, const point& b, double grey);     // 0 to 10
    void light(const point& at, double r, double g, double b);  // as the file has them

    void save(const std::string& path);

private:
    void vertex(const point& p, const cell& c, double s, double t);
    std::string text;
};
