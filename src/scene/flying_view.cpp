// The flying view: backdrop of sky and far ground, the ground itself, marks.
#include "scene/flying_view.h"

#include <GL/gl.h>
#include <math.h>

#include <vector>

#include "core/math/axes.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/records/atm.h"
#include "core/records/con.h"
#include "core/records/env.h"
#include "core/records/flt.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "draw/camera/xcam.h"
#include "draw/gl/camera_load.h"
#include "draw/gl/frame_counts.h"
#include "draw/gl/gl_facts.h"
#include "draw/gl/ogl.h"
#include "scene/flight_strip.h"
#include "scene/frame_report.h"
#include "scene/world.h"
#include "scenery/draw/terrain_draw.h"
#include "weather/sky.h"

// -- colours

struct rgb {
    float r, g, b;
};

static constexpr rgb mix(rgb a, rgb b, float t) {
    return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t};
}

struct palette_struct {
    rgb zenith, sky, horizon;
    rgb haze;   // of all that is farther than the visibility
    rgb field;  // of ground where there are no tiles
};

static constexpr palette_struct palettes[2] = {
    {{0.12f, 0.30f, 0.62f},
     {0.52f, 0.72f, 0.94f},
     {0.86f, 0.92f, 0.96f},
     {0.77f, 0.85f, 0.90f},
     {0.44f, 0.51f, 0.29f}},
    {{0.45f, 0.33f, 0.26f},
     {0.78f, 0.62f, 0.48f},
     {0.90f, 0.80f, 0.68f},
     {0.84f, 0.71f, 0.57f},
     {0.58f, 0.35f, 0.24f}},
};

static const palette_struct& palette() { return palettes[env.planet == 1]; }

// Two shells of air, a thin bright one at the horizon and a thick pale one above it; in front of them the
// haze, as high as mountains that it hides: they come out of it without an edge.
static rgb sky_colour(float elevation_deg, float visibility) {
    constexpr float mountains = 2500.0f;  // m
    const palette_struct& p = palette();
    const rgb upper = mix(p.zenith, p.sky, expf(-elevation_deg / 26.0f));
    const rgb air = mix(upper, p.horizon, expf(-elevation_deg / 6.0f));
    const float hidden = atan2_deg(mountains, visibility);
    return mix(air, p.haze, interp(0.4f * hidden, 1.0f, 1.6f * hidden, 0.0f, elevation_deg));
}

// -- eye

struct eye_struct {
    // the local vertical, which leans from world y towards the region's edge, and the true east and north
    Vector3 up, east, north;
    float height;      // above the sphere, m
    float dip_deg;     // of the horizon below the level
    float visibility;  // m
};

static float visibility() {
    if (atm.vis_ground > 0.0f) return atm.vis_ground;
    return atm.vis_rep > 0.0f ? atm.vis_rep : 20000.0f;
}

static float field_of_view() { return ren.FOV > 0.0f ? ren.FOV : 45.0f; }

static eye_struct find_eye() {
    const double R = con.planet_rad;
    eye_struct eye{};
    eye.up = {ren.view_xyz[0], ren.view_xyz[1] + R, ren.view_xyz[2]};
    const double height = fmax(eye.up.normalize() - R, 1.0);
    const Vector3 pole = {0.0, sin(ref_lat() * dob_degtorad), -cos(ref_lat() * dob_degtorad)};
    eye.east = pole.cross(eye.up);
    if (eye.east.normalize() < 1e-9) eye.east = {1.0, 0.0, 0.0};  // at a pole
    eye.north = eye.up.cross(eye.east);
    eye.height = static_cast<float>(height);
    eye.dip_deg = acos_deg(static_cast<float>(R / (R + height)));
    eye.visibility = visibility();
    return eye;
}

// Fog begins at a tenth of the visibility and is full at it.
static void find_fog(const eye_struct& eye) {
    skyc.near_fog = 0.1f * eye.visibility;
    skyc.far_fog = eye.visibility;
    skyc.fog_col_r = palette().haze.r, skyc.fog_col_g = palette().haze.g, skyc.fog_col_b = palette().haze.b;
}

static void set_fog() {
    constexpr GLenum distance_mode = 0x855A, eye_radial = 0x855B;  // of NV_fog_distance
    const float colour[4] = {skyc.fog_col_r, skyc.fog_col_g, skyc.fog_col_b, 1.0f};
    glFogfv(GL_FOG_COLOR, colour);
    glFogf(GL_FOG_START, skyc.near_fog);
    glFogf(GL_FOG_END, skyc.far_fog);
    if (dis_fog_avail) glFogi(distance_mode, eye_radial);
}

// -- camera

// The distance of near things sets how far depth can be told: it is as far out as the ground below allows.
static void set_frustum(const eye_struct& eye) {
    constexpr double per_far = 0.0001, least_per_far = 0.00001, closest = 1.0, least_dome = 1852.0;
    const double far_dis = fmax(eye.visibility, least_dome) * sqrt(3.0) * 1.05;
    const double near_dis =
        fmax(fmin(far_dis * per_far, 0.5 * ren.view_ele_agl), fmax(closest, far_dis * least_per_far));
    const double x = near_dis * tan_deg(0.5f * field_of_view()), y = x * mnw.y_res_now / mnw.x_res_now;
    xcam.SetupFrustum(-x, x, -y, y, near_dis, far_dis);
    xcam.SetFakeFarClippingPlane(eye.visibility);
    camera_load_projection();
}

static void turn_to_view() {
    xcam.Identity();
    if (ren.vert1) xcam.Rotate(-90.0, 0.0, 0.0, 1.0);
    if (ren.vert2) xcam.Rotate(90.0, 0.0, 0.0, 1.0);
    xcam.Rotate(ren.final_phi, 0.0, 0.0, 1.0);
    xcam.Rotate(ren.final_the, -1.0, 0.0, 0.0);
    xcam.Rotate(ren.final_psi, 0.0, 1.0, 0.0);
    LoadModelView();
}

// Where it stands in the sky of the eye's place, so that a shift of the region does not move it.
static void set_sun(const eye_struct& eye) {
    const Vector3 at =
        (eye.east * sin_deg(skyc.lgt_psi) + eye.north * cos_deg(skyc.lgt_psi)) * cos_deg(skyc.lgt_the) +
        eye.up * sin_deg(skyc.lgt_the);
    const float sun[4] = {static_cast<float>(at.dx), static_cast<float>(at.dy), static_cast<float>(at.dz),
                          0.0f};
    const float direct[4] = {skyc.lgt_dir_r, skyc.lgt_dir_g, skyc.lgt_dir_b, 1.0f};
    const float ambient[4] = {skyc.lgt_amb_r, skyc.lgt_amb_g, skyc.lgt_amb_b, 1.0f};
    glLightfv(GL_LIGHT0, GL_POSITION, sun);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, direct);
    glLightfv(GL_LIGHT0, GL_AMBIENT, ambient);
}

// -- sky and far ground, as rings round the local vertical

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
        rings.push_back(
            {dome * cos_deg(elevation), dome * sin_deg(elevation), sky_colour(above, eye.visibility)});
    }
}

// From below the eye out to the horizon, in the fog that the tiles lie in, so that they end without an edge.
static void add_ground(const eye_struct& eye, std::vector<ring_struct>& rings) {
    constexpr int count = 24;
    const float R = con.planet_rad;
    const float horizon_rad = eye.dip_deg * con.degtorad;  // seen from the planet's centre
    const float nearest = 0.2f * eye.height / R;
    const float factor = powf(horizon_rad / nearest, 1.0f / (count - 1));
    float arc = 0.0f;
    for (int i = 0; i <= count; ++i) {
        const float out = R * sinf(arc);
        const float up = -eye.height - 2.0f * R * sqr(sinf(0.5f * arc));
        const float fog = interp(skyc.near_fog, 0.0f, skyc.far_fog, 1.0f, pythag(out, up));
        rings.push_back({out, up, mix(palette().field, palette().haze, fog)});
        arc = i == 0 ? nearest : i == count - 1 ? horizon_rad : arc * factor;
    }
}

static void draw_backdrop(const eye_struct& eye) {
    float level[16] = {};  // the local level frame: side, up, and what completes them
    const Vector3 axes[3] = {eye.east, eye.up, eye.east.cross(eye.up)};
    for (int i = 0; i < 3; ++i) {
        level[4 * i] = static_cast<float>(axes[i].dx);
        level[4 * i + 1] = static_cast<float>(axes[i].dy);
        level[4 * i + 2] = static_cast<float>(axes[i].dz);
    }
    level[15] = 1.0f;
    static std::vector<ring_struct> rings;
    OGL_setstate(fog_off, 0, lit_off, al_none, depth_no_read, depth_no_write);
    glDisable(GL_CULL_FACE);
    OGL_view_3d(field_of_view(), 1.0f, 2.0f * (eye.height + con.planet_rad));  // beyond any horizon
    LoadModelView();
    glMultMatrixf(level);
    rings.clear();
    add_sky(eye, rings);
    draw_rings(rings);
    rings.clear();
    add_ground(eye, rings);
    draw_rings(rings);
    glEnable(GL_CULL_FACE);
}

// -- ground

static void draw_land(const eye_struct& eye) {
    set_frustum(eye);
    LoadModelView();
    xcam.Translate(-ren.view_xyz[0], -ren.view_xyz[1], -ren.view_xyz[2]);
    LoadModelView();
    set_sun(eye);
    set_fog();
    OGL_depth_write(depth_write);
    glClear(GL_DEPTH_BUFFER_BIT);
    OGL_terrain_grid(0, 0);
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
    glLineWidth(1.0f);
}

void flying_view_draw() {
    end_section(section_elsewhere);
    const eye_struct eye = find_eye();
    find_fog(eye);
    turn_to_view();
    draw_backdrop(eye);
    end_section(section_sky);
    draw_land(eye);
    draw_marks();
    flight_strip_draw();
    end_section(section_marks);
    frame_report_draw();
}
