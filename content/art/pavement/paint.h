// Paint on pavement: shapes in metres, softened as worn edges are.
// Role: x runs across the runway from its left edge, y along it from the nearer end.
#pragma once
#include <cairo.h>
#include <stddef.h>

#include <utility>
#include <vector>

class paint_mask {
public:
    // Texels, and how many metres the picture is long.
    paint_mask(int dx, int dy, double metres_along);
    ~paint_mask();
    paint_mask(const paint_mask&) = delete;
    paint_mask& operator=(const paint_mask&) = delete;

    void box(double x, double y, double dx, double dy);
    // On both sides of the middle; x from it outward.
    void boxes(double x, double y, double dx, double dy);
    void shape(const std::vector<std::pair<double, double>>& corners);
    void line(const std::vector<std::pair<double, double>>& through, double width);
    void ring(double x, double y, double radius, double width);
    // Digits, and the letters L, C, R, 9 m high and 4 m wide, around x.
    void text(const char* characters, double x, double y);

    // Blurs by so many texels; once, before coverage is asked.
    void soften(int texels);
    double coverage(int s, int t) const { return cover_[static_cast<size_t>(t) * dx_ + s]; }

private:
    void glyph(char c, double x, double y);

    int dx_, dy_;
    cairo_surface_t* surface_;
    cairo_t* cr_;
    std::vector<float> cover_;
};
