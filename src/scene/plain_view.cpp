// Sky, ground and marks.
#include "scene/plain_view.h"

#include <GL/gl.h>
#include <math.h>

#include <algorithm>
#include <vector>

#include "core/atm.h"
#include "core/axes.h"
#include "core/con.h"
#include "core/env.h"
#include "core/flt.h"
#include "core/globe.h"
#include "core/mnw.h"
#include "core/ren.h"
#include "draw/ogl.h"
#include "scene/flight_strip.h"
#include "scene/ground_grid.h"

// -- colours

struct rgb {
    float r, g, b;
};

static constexpr rgb mix(rgb a, rgb b, float t) {
    return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t};
}

struct palette_struct {
    rgb zenith, sky, low_sky, horizon;  // at 90, 30, 8 and 0 degrees above the horizon
    rgb haze;                           // of the far ground, darker than the sky above it
    rgb field[6];
    rgb line, strong_line;
};

static constexpr palette_struct palettes[2] = {
    {{0.11f, 0.28f, 0.60f},
     {0.30f, 0.53f, 0.83f},
     {0.62f, 0.78f, 0.93f},
     {0.86f, 0.92f, 0.96f},
     {0.66f, 0.74f, 0.77f},
     {{0.40f, 0.52f, 0.26f},
      {0.47f, 0.57f, 0.31f},
      {0.62f, 0.60f, 0.36f},
      {0.53f, 0.47f, 0.33f},
      {0.27f, 0.40f, 0.22f},
      {0.35f, 0.48f, 0.23f}},
     {0.20f, 0.26f, 0.15f},
     {0.87f, 0.84f, 0.74f}},
    {{0.45f, 0.33f, 0.26f},
     {0.68f, 0.52f, 0.40f},
     {0.82f, 0.68f, 0.54f},
     {0.90f, 0.80f, 0.68f},
     {0.74f, 0.58f, 0.45f},
     {{0.58f, 0.34f, 0.22f},
      {0.63f, 0.38f, 0.25f},
      {0.52f, 0.30f, 0.20f},
      {0.66f, 0.42f, 0.28f},
      {0.47f, 0.28f, 0.20f},
      {0.60f, 0.40f, 0.30f}},
     {0.32f, 0.18f, 0.12f},
     {0.88f, 0.70f, 0.52f}},
};

static const palette_struct& palette() { return palettes[env.planet == 1]; }

static rgb mean_field() {
    rgb sum{};
    for (const rgb& f : palette().field) sum = {sum.r + f.r, sum.g + f.g, sum.b + f.b};
    constexpr float share = 1.0f / std::size(palettes[0].field);
    return {sum.r * share, sum.g * share, sum.b * share};
}

static rgb sky_colour(float elevation_deg) {
    const palette_struct& p = palette();
    if (elevation_deg < 8.0f) return mix(p.horizon, p.low_sky, elevation_deg / 8.0f);
    if (elevation_deg < 30.0f) return mix(p.low_sky, p.sky, (elevation_deg - 8.0f) / 22.0f);
    return mix(p.sky, p.zenith, (elevation_deg - 30.0f) / 60.0f);
}

// -- eye

struct eye_struct {
    Point3 at;         // world frame, m
    Vector3 up, side;  // the local vertical, which leans from world y towards the region's edge
    float height;      // above the sphere, m
    float dip_deg;     // of the horizon below the level
    float visibility;  // m
    float pixels_per_rad;
};

static float visibility() {
    if (atm.vis_ground > 0.0f) return atm.vis_ground;
    return atm.vis_rep > 0.0f ? atm.vis_rep : 20000.0f;
}

static float field_of_view() { return ren.FOV > 0.0f ? ren.FOV : 45.0f; }

static eye_struct find_eye() {
    constexpr double least_height = 1.5;  // an eye in the ground would see nothing
    const double R = con.planet_rad;
    eye_struct eye{};
    eye.up = {flt[0].dob_x, flt[0].dob_y + R, flt[0].dob_z};
    const double height = fmax(eye.up.normalize() - R, least_height);
    eye.at = Point3{0.0, -R, 0.0} + eye.up * (R + height);
    eye.side = eye.up.cross({0.0, 0.0, 1.0});
    eye.side.normalize();
    eye.height = static_cast<float>(height);
    eye.dip_deg = static_cast<float>(acos(R / (R + height)) * dob_radtodeg);
    eye.visibility = visibility();
    eye.pixels_per_rad = 0.5f * static_cast<float>(mnw.x_res_now) / tan_deg(0.5f * field_of_view());
    return eye;
}

// World axes to the eye's, without the way there: vertices are given relative to the eye.
static void turn_to_view() {
    glRotatef(flt[0].phi, 0.0f, 0.0f, 1.0f);
    glRotatef(flt[0].the, -1.0f, 0.0f, 0.0f);
    glRotatef(flt[0].psi, 0.0f, 1.0f, 0.0f);
}

// Share of haze over a way of distance m.
static float haze(const eye_struct& eye, float distance) {
    return 1.0f - expf(-1.6f * powf(distance / eye.visibility, 1.4f));
}

// -- sky and plain ground, as rings round the local vertical

static constexpr int ring_points = 48;

struct ring_struct {
    float out, up;  // of the ring from the eye, any unit
    rgb colour;
};

static void draw_rings(const std::vector<ring_struct>& rings) {
    for (size_t i = 1; i < rings.size(); ++i) {
        glBegin(GL_QUAD_STRIP);
        for (int k = 0; k <= ring_points; ++k) {
            const float turn = 360.0f * static_cast<float>(k) / ring_points;
            for (const ring_struct* ring : {&rings[i - 1], &rings[i]}) {
                glColor3f(ring->colour.r, ring->colour.g, ring->colour.b);
                glVertex3f(ring->out * cos_deg(turn), ring->up, ring->out * sin_deg(turn));
            }
        }
        glEnd();
    }
}

static void add_sky(const eye_struct& eye, std::vector<ring_struct>& rings) {
    constexpr float dome = 1000.0f;  // m; any, since nothing reads depth
    for (const float above :
         {0.0f, 1.0f, 2.5f, 5.0f, 8.0f, 12.0f, 18.0f, 26.0f, 36.0f, 50.0f, 68.0f, 90.0f}) {
        const float elevation = -eye.dip_deg + above * (90.0f + eye.dip_deg) / 90.0f;
        rings.push_back({dome * cos_deg(elevation), dome * sin_deg(elevation), sky_colour(above)});
    }
}

// From below the eye out to the horizon, denser near it.
static void add_ground(const eye_struct& eye, std::vector<ring_struct>& rings) {
    constexpr int count = 28;
    const float R = con.planet_rad;
    const float horizon_rad = eye.dip_deg * con.degtorad;  // seen from the planet's centre
    const rgb ground = mean_field();
    for (int i = 0; i <= count; ++i) {
        const float way = eye.height * tan_deg(89.0f * static_cast<float>(i) / count);  // along the ground, m
        const float arc = i == count ? horizon_rad : fltmin2(way / R, horizon_rad);
        const float out = R * sinf(arc);
        const float up = -eye.height - 2.0f * R * sqr(sinf(0.5f * arc));
        rings.push_back({out, up, mix(ground, palette().haze, haze(eye, pythag(out, up)))});
    }
}

static void draw_backdrop(const eye_struct& eye) {
    const Vector3 ahead = eye.side.cross(eye.up);
    const float level[16] = {static_cast<float>(eye.side.dx),
                             static_cast<float>(eye.side.dy),
                             static_cast<float>(eye.side.dz),
                             0.0f,
                             static_cast<float>(eye.up.dx),
                             static_cast<float>(eye.up.dy),
                             static_cast<float>(eye.up.dz),
                             0.0f,
                             static_cast<float>(ahead.dx),
                             static_cast<float>(ahead.dy),
                             static_cast<float>(ahead.dz),
                             0.0f,
                             0.0f,
                             0.0f,
                             0.0f,
                             1.0f};
    static std::vector<ring_struct> rings;
    OGL_setstate(fog_off, 0, lit_off, al_none, depth_no_read, depth_no_write);
    glPushMatrix();
    glMultMatrixf(level);
    rings.clear();
    add_sky(eye, rings);
    draw_rings(rings);
    rings.clear();
    add_ground(eye, rings);
    draw_rings(rings);
    glPopMatrix();
}

// -- grid

struct grid_vertex {
    float x, y, z;  // from the eye, world axes, m
    rgb colour;
    float alpha;
};

struct grid_point {
    float x, y, z;   // from the eye, world axes, m
    float distance;  // m
    float haze;      // 0 to 1
    float pixels;    // what a cell covers on the screen, along the line of sight
};

constexpr int grid_reach = 30;  // cells to each side

static void draw_vertices(GLenum kind, const std::vector<grid_vertex>& vertices) {
    if (vertices.empty()) return;
    glVertexPointer(3, GL_FLOAT, sizeof(grid_vertex), &vertices[0].x);
    glColorPointer(4, GL_FLOAT, sizeof(grid_vertex), &vertices[0].colour);
    glDrawArrays(kind, 0, static_cast<GLsizei>(vertices.size()));
}

// The points of the grid as this frame sees them: the difference is taken in double.
static void view_points(const eye_struct& eye, const std::vector<Point3>& points,
                        std::vector<grid_point>& seen) {
    seen.resize(points.size());
    for (size_t i = 0; i < points.size(); ++i) {
        const Vector3 d = points[i] - eye.at;
        grid_point& p = seen[i];
        p.x = static_cast<float>(d.dx), p.y = static_cast<float>(d.dy), p.z = static_cast<float>(d.dz);
        p.distance = pythag(p.x, p.y, p.z);
        p.haze = haze(eye, p.distance);
        p.pixels = static_cast<float>(grid_cell) * eye.height / sqr(p.distance) * eye.pixels_per_rad;
    }
}

// The fields end softly where the grid does, and where they would be too thin for the screen.
static float contrast(const grid_point& p, float pixels) {
    constexpr float end = grid_reach * static_cast<float>(grid_cell);
    return interp(2.0f, 0.0f, 10.0f, 1.0f, pixels) * interp(0.75f * end, 1.0f, 0.98f * end, 0.0f, p.distance);
}

struct grid_picture_struct {
    std::vector<grid_point> seen;
    std::vector<grid_vertex> fields, fine_lines, lines, strong_lines;
};

static void add_field(grid_picture_struct& picture, const grid_band_struct& band, int row, int col,
                      rgb ground) {
    const float shade = grid_cell_shade(band.row0 + row, band.global_col(col));
    const rgb field = palette().field[static_cast<int>(shade * std::size(palettes[0].field))];
    // south-west, north-west, north-east, south-east: clockwise from above
    for (const int at : {band.point(row, col), band.point(row + 1, col), band.point(row + 1, col + 1),
                         band.point(row, col + 1)}) {
        const grid_point& p = picture.seen[at];
        const rgb here = mix(ground, field, contrast(p, p.pixels));
        picture.fields.push_back({p.x, p.y, p.z, mix(here, palette().haze, p.haze), 1.0f});
    }
}

static void add_end(std::vector<grid_vertex>& to, const grid_point& p, rgb colour, float pixels,
                    float strength) {
    to.push_back({p.x, p.y, p.z, mix(colour, palette().haze, p.haze), strength * contrast(p, pixels)});
}

static void add_line(std::vector<grid_vertex>& to, const grid_point& a, const grid_point& b, rgb colour,
                     float spacing, float strength) {
    add_end(to, a, colour, a.pixels * spacing, strength);
    add_end(to, b, colour, b.pixels * spacing, strength);
}

static grid_point between(const grid_point& a, const grid_point& b, float t) {
    const auto at = [t](float u, float v) { return u + (v - u) * t; };
    return {at(a.x, b.x),       at(a.y, b.y),          at(a.z, b.z), at(a.distance, b.distance),
            at(a.haze, b.haze), at(a.pixels, b.pixels)};
}

// Hundred-metre lines inside a near cell, for flight low above the ground.
static void add_fine_lines(grid_picture_struct& picture, const grid_band_struct& band, int row, int col) {
    const grid_point &sw = picture.seen[band.point(row, col)], &se = picture.seen[band.point(row, col + 1)],
                     &nw = picture.seen[band.point(row + 1, col)],
                     &ne = picture.seen[band.point(row + 1, col + 1)];
    constexpr float farthest = 4000.0f, strength = 0.28f, spacing = 0.1f;
    if (sw.distance > farthest || sw.pixels * spacing < 2.0f) return;
    for (int i = 1; i < 10; ++i) {
        const float t = 0.1f * static_cast<float>(i);
        const rgb colour = palette().line;
        add_line(picture.fine_lines, between(sw, nw, t), between(se, ne, t), colour, spacing, strength);
        add_line(picture.fine_lines, between(sw, se, t), between(nw, ne, t), colour, spacing, strength);
    }
}

static void add_lines(grid_picture_struct& picture, const grid_band_struct& band, int row, int col) {
    const auto add = [&](int from, int to, bool strong) {
        const grid_point &a = picture.seen[from], &b = picture.seen[to];
        if (strong)
            add_line(picture.strong_lines, a, b, palette().strong_line, 10.0f, 0.75f);
        else
            add_line(picture.lines, a, b, palette().line, 1.0f, 0.45f);
    };
    const bool strong_row = (band.row0 + row) % grid_band_rows == 0;
    const bool strong_col = band.global_col(col) % grid_band_rows == 0;
    if (col < band.cols) add(band.point(row, col), band.point(row, col + 1), strong_row);
    add(band.point(row, col), band.point(row + 1, col), strong_col);
}

static void build_grid(grid_picture_struct& picture, const ground_grid_struct& grid) {
    for (auto* vertices : {&picture.fields, &picture.fine_lines, &picture.lines, &picture.strong_lines})
        vertices->clear();
    const rgb ground = mean_field();
    for (const grid_band_struct& band : grid.bands) {
        for (int row = 0; row < band.rows; ++row) {  // the upper edge is the next band's lower one
            for (int col = 0; col <= band.cols; ++col) {
                add_lines(picture, band, row, col);
                if (col == band.cols) continue;
                add_field(picture, band, row, col, ground);
                add_fine_lines(picture, band, row, col);
            }
        }
    }
}

static void draw_grid(const eye_struct& eye) {
    static ground_grid_struct grid;
    static grid_picture_struct picture;
    double lat, lon, ele;
    xdob_latlonel_with_xyz(&lat, &lon, &ele, eye.at.x, eye.at.y, eye.at.z);
    grid.follow(lat, lon, grid_reach);
    view_points(eye, grid.points, picture.seen);
    build_grid(picture, grid);

    OGL_setstate(fog_off, 0, lit_off, al_blend, depth_no_read, depth_no_write);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    draw_vertices(GL_QUADS, picture.fields);
    glEnable(GL_LINE_SMOOTH);
    draw_vertices(GL_LINES, picture.fine_lines);
    draw_vertices(GL_LINES, picture.lines);
    glLineWidth(2.0f);
    draw_vertices(GL_LINES, picture.strong_lines);
    glDisableClientState(GL_COLOR_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
}

// -- marks

static void line(float x1, float y1, float x2, float y2) {
    glVertex2f(x1, y1);
    glVertex2f(x2, y2);
}

static void nose_mark(float x, float y) {
    glBegin(GL_LINES);
    for (const float side : {-1.0f, 1.0f}) {
        line(x + side * 34.0f, y, x + side * 14.0f, y);
        line(x + side * 14.0f, y, x + side * 7.0f, y - 8.0f);
        line(x + side * 7.0f, y - 8.0f, x, y);
    }
    glEnd();
}

static void path_mark(float x, float y) {
    constexpr float radius = 6.0f;
    glBegin(GL_LINE_LOOP);
    for (int deg = 0; deg < 360; deg += 30) glVertex2f(x + radius * cos_deg(deg), y + radius * sin_deg(deg));
    glEnd();
    glBegin(GL_LINES);
    line(x - 2.5f * radius, y, x - radius, y);
    line(x + radius, y, x + 2.5f * radius, y);
    line(x, y + radius, x, y + 1.9f * radius);
    glEnd();
}

// Where the aircraft is going, from the middle of the view in virtual units; false when that lies
// outside the view or there is no motion to speak of.
static bool path_offset(float units_per_tangent, float* x, float* y) {
    const flt_struct& f = flt[0];
    float right, up, aft;
    wrl_to_any(f.vx, f.vy, f.vz, &right, &up, &aft, sin_deg(f.psi), cos_deg(f.psi), sin_deg(f.the),
               cos_deg(f.the), sin_deg(f.phi), cos_deg(f.phi));
    if (-aft < 2.0f) return false;
    *x = units_per_tangent * right / -aft;
    *y = units_per_tangent * up / -aft;
    return flt_abs(*x) < 0.5f * (mnw.x2_pix - mnw.x1_pix) && flt_abs(*y) < 0.5f * mnw.y2_pix;
}

// Twice, a dark rim first, so that a mark shows on sky and ground.
template <class draw_mark>
static void rimmed(draw_mark draw, float r, float g, float b) {
    glLineWidth(4.0f);
    glColor4f(0.0f, 0.0f, 0.0f, 0.45f);
    draw();
    glLineWidth(2.0f);
    glColor4f(r, g, b, 1.0f);
    draw();
}

static void draw_marks() {
    OGL_view_2d();
    OGL_setstate(fog_off, 0, lit_off, al_blend, depth_no_read, depth_no_write);
    const float x = 0.5f * (mnw.x1_pix + mnw.x2_pix), y = 0.5f * (mnw.y1_pix + mnw.y2_pix);
    float dx, dy;
    if (path_offset(0.5f * (mnw.x2_pix - mnw.x1_pix) / tan_deg(0.5f * field_of_view()), &dx, &dy))
        rimmed([&] { path_mark(x + dx, y + dy); }, 0.55f, 1.0f, 0.55f);
    rimmed([&] { nose_mark(x, y); }, 1.0f, 0.78f, 0.2f);
}

void plain_view_draw() {
    const eye_struct eye = find_eye();
    glPushAttrib(GL_ENABLE_BIT | GL_LINE_BIT);
    glDisable(GL_CULL_FACE);
    OGL_view_3d(field_of_view(), 1.0f, 1e6f);
    turn_to_view();
    draw_backdrop(eye);
    draw_grid(eye);
    draw_marks();
    glPopAttrib();
    flight_strip_draw();
}
