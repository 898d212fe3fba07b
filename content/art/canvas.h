// A picture to draw on with cairo, t upwards, and the few strokes that all pieces of the interface share.
// Role: for the programs of this folder; knows nothing of what is drawn.
#pragma once
#include <cairo.h>

#include <string>
#include <vector>

#include "draw/images/interface_layout.h"

struct rgba {
    double r, g, b, a = 1.0;
};
constexpr rgba hex(unsigned rgb, double alpha = 1.0) {
    return {(rgb >> 16 & 255) / 255.0, (rgb >> 8 & 255) / 255.0, (rgb & 255) / 255.0, alpha};
}
rgba mix(const rgba& a, const rgba& b, double part_of_b);

// A rectangle with round corners, in the coordinates of what is drawn.
struct plate {
    double x, y, dx, dy, radius;
    plate inset(double by) const;
};

class canvas {
public:
    canvas(int dx, int dy);
    ~canvas();
    canvas(const canvas&) = delete;
    canvas& operator=(const canvas&) = delete;

    // Draws into a rectangle with its lower left corner as origin; nothing reaches past it. Leaving the
    // picture, or meeting a rectangle that was opened before, is an error.
    cairo_t* open(const std::string& name, const piece& at);
    void close();
    // In the open piece: the soft black shadow of a plate, fading to nothing at `reach` from its edge.
    void shadow(const plate& of, double reach, double strength);
    // In the open piece: one pixel of a mask, white with this alpha. For glyphs.
    void white_pixel(int s, int t, unsigned char alpha);

    cairo_t* pen() { return cr; }
    cairo_surface_t* surface() { return picture; }
    // File rows run downwards. with_alpha false leaves the alpha out.
    void save(const std::string& path, bool with_alpha);

private:
    struct taken {
        std::string name;
        piece at;
    };
    unsigned char* pixel(int s, int t);
    int size_x, size_y;
    cairo_surface_t* picture;
    cairo_t* cr;
    piece current = {0, 0, 0, 0};
    std::vector<taken> pieces;
};

void set_colour(cairo_t* cr, const rgba& c);
void path(cairo_t* cr, const plate& p);
void circle(cairo_t* cr, double x, double y, double radius);
void polygon(cairo_t* cr, const std::vector<std::pair<double, double>>& corners);
void fill(cairo_t* cr, const plate& p, const rgba& c);
// From the foot to the head of a plate; the stops may stand closer, heights in the plate's coordinates.
void fill_gradient(cairo_t* cr, const plate& p, const rgba& foot, const rgba& head);
void fill_gradient(cairo_t* cr, const plate& p, double from, const rgba& foot, double to, const rgba& head);
// A line one pixel wide just inside the plate's edge.
void rim(cairo_t* cr, const plate& p, const rgba& c);
// The same, fading from the head downwards over `depth` (or from the foot upwards).
void rim_at_head(cairo_t* cr, const plate& p, const rgba& c, double depth);
void rim_at_foot(cairo_t* cr, const plate& p, const rgba& c, double depth);
// The present path: a dark line around, and the inside.
void outlined(cairo_t* cr, const rgba& inside, const rgba& line, double width);
// The present path as a line with a dark edge on both sides.
void outlined_line(cairo_t* cr, const rgba& c, double width, const rgba& edge);
