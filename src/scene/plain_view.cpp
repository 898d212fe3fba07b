// Sky, ground and marks.
#include "scene/plain_view.h"

#include <GL/gl.h>
#include <math.h>

#include <algorithm>
#include <vector>

#include "core/math/axes.h"
#include "core/math/globe.h"
#include "core/records/atm.h"
#include "core/records/con.h"
#include "core/records/env.h"
#include "core/records/flt.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "draw/gl/ogl.h"
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
    rgb zenith, sky, horizon;
    rgb haze;  // of the far ground, darker than the sky above it
    rgb field[6];
    rgb line, strong_line;
};

static constexpr palette_struct palettes[2] = {
    {{0.12f, 0.30f, 0.62f},
     {0.52f, 0.72f, 0.94f},
     {0.86f, 0.92f, 0.96f},
     {0.63f, 0.72f, 0.79f},
     {{0.40f, 0.52f, 0.26f},
      {0.47f, 0.57f, 0.31f},
      {0.62f, 0.60f, 0.36f},
      {0.53f, 0.47f, 0.33f},
      {0.27f, 0.40f, 0.22f},
      {0.35f, 0.48f, 0.23f}},
     {0.20f, 0.26f, 0.15f},
     {0.87f, 0.84f, 0.74f}},
    {{0.45f, 0.33f, 0.26f},
     {0.78f, 0.62f, 0.48f},
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

// Two shells of air: a thin bright one at the horizon, a thick pale one above it.
static rgb sky_colour(float elevation_deg) {
    const palette_struct& p = palette();
    const rgb upper = mix(p.zenith, p.sky, expf(-elevation_deg / 26.0f));
    return mix(upper, p.horizon, expf(-elevation_deg / 6.0f));
}

// -- eye

struct eye_struct {
    Point3 at;         // world frame, m
    Vector3 ahead;     // line of sight through the middle of the view
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
    float x, y, z;
    const flt_struct& f = flt[0];
    any_to_wrl(0.0f, 0.0f, -1.0f, &x, &y, &z, sin_deg(f.psi), cos_deg(f.psi), sin_deg(f.the), cos_deg(f.the),
               sin_deg(f.phi), cos_deg(f.phi));
    eye.ahead = {x, y, z};
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
    return 1.0f - expf(-1.3f * powf(distance / eye.visibility, 1.5f));
}

// -- sky and plain ground, as rings round the local vertical

static constexpr int ring_points = 120;

struct circle_struct {
    float cosine[ring_points + 1], sine[ring_points + 1];
    circle_struct() {
        for (int k = 0; k <= ring_points; ++k) {
            const float turn = 360.0f * static_cast<float>(k) / ring_points;
            cosine[k] = cos_deg(turn), sine[k] = sin_deg(turn);
        }
    }
};

struct ring_struct {
    float out, up;  // of the ring from the eye, any unit
    rgb colour;
};

static void draw_rings(const std::vector<ring_struct>& rings) {
    static const circle_struct circle;
    for (size_t i = 1; i < rings.size(); ++i) {
        glBegin(GL_QUAD_STRIP);
        for (int k = 0; k <= ring_points; ++k) {
            for (const ring_struct* ring : {&rings[i - 1], &rings[i]}) {
                glColor3f(ring->colour.r, ring->colour.g, ring->colour.b);
                glVertex3f(ring->out * circle.cosine[k], ring->up, ring->out * circle.sine[k]);
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

// From below the eye out to the horizon, each ring farther by the same factor, so that the haze between
// two rings is as good as linear.
static void add_ground(const eye_struct& eye, std::vector<ring_struct>& rings) {
    constexpr int count = 40;
    const float R = con.planet_rad;
    const float horizon_rad = eye.dip_deg * con.degtorad;  // seen from the planet's centre
    const float nearest = 0.2f * eye.height / R;
    const float factor = powf(horizon_rad / nearest, 1.0f / (count - 1));
    const rgb ground = mean_field();
    float arc = 0.0f;
    for (int i = 0; i <= count; ++i) {
        const float out = R * sinf(arc);
        const float up = -eye.height - 2.0f * R * sqr(sinf(0.5f * arc));
        rings.push_back({out, up, mix(ground, palette().haze, haze(eye, pythag(out, up)))});
        arc = i == 0 ? nearest : i == count - 1 ? horizon_rad : arc * factor;
    }
}

static void draw_backdrop(const eye_struct& eye) {
    float level[16] = {};  // the local level frame: side, up, and what completes them
    const Vector3 axes[3] = {eye.side, eye.up, eye.side.cross(eye.up)};
    for (int i = 0; i < 3; ++i) {
        level[4 * i] = static_cast<float>(axes[i].dx);
        level[4 * i + 1] = static_cast<float>(axes[i].dy);
        level[4 * i + 2] = static_cast<float>(axes[i].dz);
    }
    level[15] = 1.0f;
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

// A corner of the grid as this frame sees it.
struct grid_point {
    float x, y, z;   // from the eye, world axes, m
    float distance;  // m
    float haze;      // 0 to 1
    float pixels;    // what a kilometre of ground covers on the screen, along the line of sight
    float ahead;     // m along the line of sight
};

// One size of cells with what it draws in this frame.
struct grid_layer_struct {
    ground_grid_struct grid;
    float near_end;        // m; nearer than this the lines belong to the layer of smaller cells
    float far_end;         // m; here the layer has faded away
    float field_strength;  // of its fields over what lies below
    std::vector<grid_point> seen = {};
    std::vector<grid_vertex> fields = {}, fine_lines = {}, lines = {}, strong_lines = {};
};

static void draw_vertices(GLenum kind, const std::vector<grid_vertex>& vertices) {
    if (vertices.empty()) return;
    glVertexPointer(3, GL_FLOAT, sizeof(grid_vertex), &vertices[0].x);
    glColorPointer(4, GL_FLOAT, sizeof(grid_vertex), &vertices[0].colour);
    glDrawArrays(kind, 0, static_cast<GLsizei>(vertices.size()));
}

// The difference to the eye is taken in double.
static void view_points(const eye_struct& eye, grid_layer_struct& layer) {
    const std::vector<Point3>& points = layer.grid.points;
    layer.seen.resize(points.size());
    for (size_t i = 0; i < points.size(); ++i) {
        const Vector3 d = points[i] - eye.at;
        grid_point& p = layer.seen[i];
        p.x = static_cast<float>(d.dx), p.y = static_cast<float>(d.dy), p.z = static_cast<float>(d.dz);
        p.ahead = static_cast<float>(d.dot(eye.ahead));
        p.distance = pythag(p.x, p.y, p.z);
        p.haze = haze(eye, p.distance);
        p.pixels = 1000.0f * eye.height / sqr(p.distance) * eye.pixels_per_rad;
    }
}

// 1 where the layer is at its best, 0 where it ends or its pattern would be too thin for the screen.
// spacing: of the pattern, km.
static float presence(const grid_layer_struct& layer, const grid_point& p, float spacing) {
    return interp(2.0f, 0.0f, 10.0f, 1.0f, p.pixels * spacing) *
           interp(0.75f * layer.far_end, 1.0f, layer.far_end, 0.0f, p.distance);
}

static void add_field(grid_layer_struct& layer, const grid_band_struct& band, int row, int col) {
    const float shade = grid_cell_shade(band.row0 + row, band.global_col(col));
    const rgb field = palette().field[static_cast<int>(shade * std::size(palettes[0].field))];
    const float spacing = static_cast<float>(layer.grid.size);
    // south-west, north-west, north-east, south-east: clockwise from above
    for (const int at : {band.point(row, col), band.point(row + 1, col), band.point(row + 1, col + 1),
                         band.point(row, col + 1)}) {
        const grid_point& p = layer.seen[at];
        layer.fields.push_back({p.x, p.y, p.z, mix(field, palette().haze, p.haze),
                                layer.field_strength * presence(layer, p, spacing)});
    }
}

struct line_look {
    rgb colour;
    float spacing;  // between such lines, km
    float strength;
};

static void add_line(const grid_layer_struct& layer, std::vector<grid_vertex>& to, const grid_point& a,
                     const grid_point& b, const line_look& look) {
    const auto alpha = [&](const grid_point& p) {
        const float full = look.strength * presence(layer, p, look.spacing);
        if (layer.near_end == 0.0f) return full;
        return full * interp(0.75f * layer.near_end, 0.0f, layer.near_end, 1.0f, p.distance);
    };
    const float alpha_a = alpha(a), alpha_b = alpha(b);
    constexpr float faintest = 0.004f;  // one step of 255
    if (alpha_a < faintest && alpha_b < faintest) return;
    to.push_back({a.x, a.y, a.z, mix(look.colour, palette().haze, a.haze), alpha_a});
    to.push_back({b.x, b.y, b.z, mix(look.colour, palette().haze, b.haze), alpha_b});
}

static grid_point between(const grid_point& a, const grid_point& b, float t) {
    const auto at = [t](float u, float v) { return u + (v - u) * t; };
    return {at(a.x, b.x),       at(a.y, b.y),           at(a.z, b.z),        at(a.distance, b.distance),
            at(a.haze, b.haze), at(a.pixels, b.pixels), at(a.ahead, b.ahead)};
}

// Hundred-metre lines inside a near cell, for flight low above the ground.
static void add_fine_lines(grid_layer_struct& layer, const grid_band_struct& band, int row, int col) {
    const grid_point &sw = layer.seen[band.point(row, col)], &se = layer.seen[band.point(row, col + 1)],
                     &nw = layer.seen[band.point(row + 1, col)],
                     &ne = layer.seen[band.point(row + 1, col + 1)];
    constexpr float farthest = 4000.0f;
    if (layer.grid.size > 1 || sw.distance > farthest) return;
    const line_look look{palette().line, 0.1f, 0.28f};
    for (int i = 1; i < 10; ++i) {
        const float t = 0.1f * static_cast<float>(i);
        add_line(layer, layer.fine_lines, between(sw, nw, t), between(se, ne, t), look);
        add_line(layer, layer.fine_lines, between(sw, se, t), between(nw, ne, t), look);
    }
}

// The southern and the western edge of a cell; edges of blocks are strong.
static void add_edges(grid_layer_struct& layer, const grid_band_struct& band, int row, int col) {
    const line_look weak{palette().line, 1.0f, 0.45f}, strong{palette().strong_line, 10.0f, 0.75f};
    const int strong_step = grid_block / layer.grid.size;
    const auto add = [&](int from, int to, long long number) {
        const bool is_strong = number % strong_step == 0;
        add_line(layer, is_strong ? layer.strong_lines : layer.lines, layer.seen[from], layer.seen[to],
                 is_strong ? strong : weak);
    };
    if (col < band.cols) add(band.point(row, col), band.point(row, col + 1), band.row0 + row);
    add(band.point(row, col), band.point(row + 1, col), band.global_col(col));
}

static void build_layer(grid_layer_struct& layer) {
    for (auto* vertices : {&layer.fields, &layer.fine_lines, &layer.lines, &layer.strong_lines})
        vertices->clear();
    const float behind =
        -1.5f * static_cast<float>(grid_cell * layer.grid.size);  // m, no part of such a cell shows
    for (const grid_band_struct& band : layer.grid.bands) {
        for (int row = 0; row < band.rows; ++row) {  // the upper edge is the next band's lower one
            for (int col = 0; col <= band.cols; ++col) {
                if (layer.seen[band.point(row, col)].ahead < behind) continue;
                add_edges(layer, band, row, col);
                if (col == band.cols) continue;
                add_field(layer, band, row, col);
                add_fine_lines(layer, band, row, col);
            }
        }
    }
}

static void draw_layer(const grid_layer_struct& layer) {
    draw_vertices(GL_QUADS, layer.fields);
    glLineWidth(1.0f);
    draw_vertices(GL_LINES, layer.fine_lines);
    draw_vertices(GL_LINES, layer.lines);
    glLineWidth(2.0f);
    draw_vertices(GL_LINES, layer.strong_lines);
}

static void draw_grid(const eye_struct& eye) {
    static grid_layer_struct blocks{{grid_block, 20}, 29000.0f, 190000.0f, 0.35f};
    static grid_layer_struct cells{{1, 30}, 0.0f, 29000.0f, 1.0f};
    double lat, lon, ele;
    xdob_latlonel_with_xyz(&lat, &lon, &ele, eye.at.x, eye.at.y, eye.at.z);

    OGL_setstate(fog_off, 0, lit_off, al_blend, depth_no_read, depth_no_write);
    glEnable(GL_LINE_SMOOTH);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    for (grid_layer_struct* layer : {&blocks, &cells}) {
        layer->grid.follow(lat, lon);
        view_points(eye, *layer);
        build_layer(*layer);
        draw_layer(*layer);
    }
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
    glLineWidth(4.0f * mnw.xy_scale);
    glColor4f(0.0f, 0.0f, 0.0f, 0.45f);
    draw();
    glLineWidth(2.0f * mnw.xy_scale);
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
    glDisable(GL_CULL_FACE);
    OGL_view_3d(field_of_view(), 1.0f, 1e6f);
    turn_to_view();
    draw_backdrop(eye);
    draw_grid(eye);
    draw_marks();
    glDisable(GL_LINE_SMOOTH);
    glLineWidth(1.0f);
    glEnable(GL_CULL_FACE);
    flight_strip_draw();
}
