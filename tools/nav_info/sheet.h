// The sheet that a plan is drawn on: its scale, its colours, its lettering. Pixels, y downwards; north is up.
#pragma once
#include <cairo.h>

#include <string>

#include "place.h"

struct point {
    double x, y;
};
struct box {
    double x, y, dx, dy;
    bool meets(const box& other) const {
        return x < other.x + other.dx && other.x < x + dx && y < other.y + other.dy && other.y < y + dy;
    }
    bool holds(const box& other) const {
        return other.x >= x && other.y >= y && other.x + other.dx <= x + dx && other.y + other.dy <= y + dy;
    }
};

constexpr int sheet_dx = 1240, sheet_dy = 1700;
constexpr box plan_frame = {40.0, 150.0, 1160.0, 1160.0};
constexpr box table_frame = {40.0, 1330.0, 1160.0, 340.0};

constexpr unsigned ink = 0x20242a, faint_ink = 0x6b7078, paper = 0xf6f3ea, ground = 0xe9ecdd;

class sheet {
public:
    // All of a rectangle on the map, metres, is to be seen.
    sheet(const flat_point& south_west, const flat_point& north_east);
    ~sheet();
    sheet(const sheet&) = delete;
    sheet& operator=(const sheet&) = delete;

    cairo_t* pen() { return cr_; }
    point at(const flat_point& p) const;
    double per_metre() const { return per_metre_; }
    // Throws std::runtime_error.
    void save(const std::string& png_path);

    void colour(unsigned rgb, double alpha = 1.0);
    void move(const point& p) { cairo_move_to(cr_, p.x, p.y); }
    void line(const point& p) { cairo_line_to(cr_, p.x, p.y); }

    // anchor: 0 the text begins at x, 0.5 stands on it, 1 ends there; y is its middle. Halo: a rim of paper.
    void text(const point& p, double anchor, const std::string& words, double size, unsigned rgb = ink,
              bool bold = false, bool halo = false);
    double text_width(const std::string& words, double size, bool bold = false);

private:
    void typeface(double size, bool bold);
    cairo_surface_t* surface_;
    cairo_t* cr_;
    flat_point middle_;
    double per_metre_;
};
