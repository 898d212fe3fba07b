// A picture of the ground from straight above whose edges meet, drawn in metres.
// Role: everything that leaves it on one side comes in on the other. x runs east, y north, from the
// south-western corner. The sun of the pictures stands in the south-west, so shadows lie to the north-east.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "canvas.h"

struct spot {
    double x, y;  // m
};

// Repeatable draws.
class lot {
public:
    explicit lot(unsigned seed) : seed_(seed) {}
    double from(double low, double high);
    bool chance(double part) { return from(0.0, 1.0) < part; }
    int below(int count);  // 0 to count - 1

private:
    unsigned seed_;
    int drawn_ = 0;
};

class ground_picture {
public:
    // metres: that the picture covers each way.
    explicit ground_picture(double metres, int pixels = 1024);

    double metres() const { return metres_; }
    // Every pixel anew, or over what is there, by its place in metres.
    void paint(const std::function<rgba(double x, double y)>& colour);
    void change(const std::function<rgba(double x, double y, const rgba& old)>& colour);

    void disc(spot at, double radius, const rgba& c);
    // Fades from the middle to nothing at the radius. `adds`: as light does.
    void glow(spot at, double radius, const rgba& c, bool adds = false);
    // A box about its middle, turned counter-clockwise by degrees.
    void box(spot middle, double dx, double dy, double turn, const rgba& c);
    void shape(const std::vector<spot>& corners, const rgba& c);
    void line(const std::vector<spot>& through, double width, const rgba& c);
    // A rounded thing with its shadow and its sunny side.
    void crown(spot at, double radius, const rgba& c);

    // Takes out what is wider than `across` metres, but for its mean: nothing in the picture may catch the
    // eye again and again from high above. share: 1 all of it.
    void even_out(double across, double share);
    void save(const std::string& path);

    // Noise whose lattice has cells of about `size` metres, repeated at the edges; 0 to 1.
    double noise(double x, double y, double size, int octaves, unsigned seed) const;
    // Creases, 1 on the crests; valleys are 0.
    double ridges(double x, double y, double size, int octaves, unsigned seed) const;

private:
    void everywhere(spot middle, double reach, const std::function<void(cairo_t*)>& draw);
    unsigned char* row(int y);

    double metres_;
    int pixels_;
    canvas canvas_;
};

// Dark, middle and light for 0, 1/2 and 1.
rgba ramp(const rgba& dark, const rgba& middle, const rgba& light, double v);
// More contrast around one half, where octaves crowd; 0 to 1.
double spread(double v, double by);
rgba shade(const rgba& c, double by);  // times by
