// The planet from high up.
#include "scene/planet.h"

#include <GL/gl.h>
#include <stdio.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "core/math/geo3.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/program/upward.h"
#include "core/records/con.h"
#include "core/records/env.h"
#include "core/records/ren.h"
#include "core/records/stg.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "platform/window.h"

namespace {
constexpr int lonDIM = 361, latDIM = 181, square = 10, blocks = 3;

struct point_struct {
    float x, y, z;
};

struct planet_state {
    std::vector<point_struct>
        planet_xyz;  // of each whole degree: longitude from 180 west times latDIM, latitude from 90 south
    unsigned DL_planet_real = 0, DL_squares = 0;  // display lists, 0 none
    int tex_ref[blocks][blocks] = {};             // by longitude and latitude
    int ocean_ref = 0;                            // 0 when there is no picture of it
    bool ocean_tried = false;
    int lon_block = -1, lat_block = -1, lon_wes = 999, lat_sou = 999, draw_planet = -1,
        planet = -1;      // of the last frame
    int generation = -1;  // of the window that holds lists and textures
};
planet_state state;

// -- points

const point_struct& at(int lon, int lat) {
    return state.planet_xyz[static_cast<size_t>(lon) * latDIM + static_cast<size_t>(lat)];
}

void find_points() {
    state.planet_xyz.resize(lonDIM * latDIM);
    for (int lon = 0; lon < lonDIM; ++lon)
        for (int lat = 0; lat < latDIM; ++lat) {
            point_struct& p = state.planet_xyz[static_cast<size_t>(lon) * latDIM + static_cast<size_t>(lat)];
            xyz_with_latlonel(&p.x, &p.y, &p.z, lat - 90, lon - 180, 0.0);
        }
}

Vector3 between(const point_struct& from, const point_struct& to) {
    return {static_cast<double>(to.x) - from.x, static_cast<double>(to.y) - from.y,
            static_cast<double>(to.z) - from.z};
}

// Of the quad whose south-west corner is there; up and out.
void put_normal(int lon, int lat) {
    const Vector3 up_west = between(at(lon, lat), at(lon, lat + 1)),
                  up_east = between(at(lon + 1, lat), at(lon + 1, lat + 1));
    const Vector3 along_south = between(at(lon, lat), at(lon + 1, lat)),
                  along_north = between(at(lon, lat + 1), at(lon + 1, lat + 1));
    Vector3 normal = (along_south + along_north).cross(up_west + up_east);
    if (normal.normalize() > 0.0)
        glNormal3f(static_cast<float>(normal.dx), static_cast<float>(normal.dy),
                   static_cast<float>(normal.dz));
}

// A strip of one degree of latitude: s and t grow by so much a degree from where both are 0.
void put_strip(int lat, int lon1, int lon2, int lat0, int lon0, float per_degree) {
    const float t = static_cast<float>(lat - lat0) * per_degree;
    glBegin(GL_QUAD_STRIP);
    for (int lon = lon1; lon <= lon2; ++lon) {
        const float s = static_cast<float>(lon - lon0) * per_degree;
        put_normal(lon < lon2 ? lon : lon - 1, lat);
        const point_struct &low = at(lon, lat), &high = at(lon, lat + 1);
        glTexCoord2f(s, t), glVertex3f(low.x, low.y, low.z);
        glTexCoord2f(s, t + per_degree), glVertex3f(high.x, high.y, high.z);
    }
    glEnd();
}

// In fog, as the land is: else the far clip's edge would stand in the haze beyond the tiles, and the limb
// would have no air.
void set_planet_state() { OGL_setstate(fog_on, 1, lit_on, al_none, depth_no_read, depth_no_write); }

unsigned list_of(unsigned* list) {
    if (*list == 0) *list = glGenLists(1);
    return *list;
}
}  // namespace

// -- the whole

void lo_res_planet(int reset_geo, int plot_geo) {
    constexpr int half = 180;
    set_planet_state();
    if (reset_geo) {
        find_points();
        glNewList(list_of(&state.DL_planet_real), GL_COMPILE);
        for (int side = 0; side < 2; ++side) {
            // pictures begin at Greenwich, points at the date line
            const int lon1 = side == 0 ? half : 0;
            glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(side == 0 ? tex_planet : tex_planet_last));
            for (int lat = 0; lat < latDIM - 1; ++lat)
                put_strip(lat, lon1, lon1 + half, 0, lon1, 1.0f / half);
        }
        glEndList();
        tman.reset_bind();
    }
    if (!plot_geo) return;
    glCallList(state.DL_planet_real);
    tman.reset_bind();
}

// -- squares

const char* orbit_picture_name(int lat, int lon) {
    static char name[64];
    snprintf(name, sizeof name, "earth orbit textures:%+03d%+04d.png", lat, lon);
    return name;
}

namespace {
int load_picture(const char* name) { return tman.load_texture(0, load_ogl, tex_free, filter_rgb_mip, name); }

// Longitude wraps, latitude ends at the poles; from 180 west and 90 south.
struct corner_struct {
    int lon, lat;
};
corner_struct corner_of(int i, int j, int lon_REG_1, int lat_REG_1) {
    return {intwrap(lon_REG_1 + (i - 1) * square, 0, 359), intlim(lat_REG_1 + (j - 1) * square, 0, 170)};
}

void load_squares(int lon_REG_1, int lat_REG_1) {
    set_planet_state();
    for (auto& column : state.tex_ref)
        for (int& ref : column) {
            if (ref != state.ocean_ref) tman.unload_texture(ref);
            ref = state.ocean_ref;
        }
    for (int i = 0; i < blocks; ++i)
        for (int j = 0; j < blocks; ++j) {
            const corner_struct corner = corner_of(i, j, lon_REG_1, lat_REG_1);
            const int ref = load_picture(orbit_picture_name(corner.lat - 90, corner.lon - 180));
            if (ref != tex_none) state.tex_ref[i][j] = ref;
        }
}

void build_squares(int lon_REG_1, int lat_REG_1) {
    glNewList(list_of(&state.DL_squares), GL_COMPILE);
    for (int i = 0; i < blocks; ++i)
        for (int j = 0; j < blocks; ++j) {
            const corner_struct c = corner_of(i, j, lon_REG_1, lat_REG_1);
            glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(state.tex_ref[i][j]));
            for (int lat = c.lat; lat < c.lat + square; ++lat)
                put_strip(lat, c.lon, c.lon + square, c.lat, c.lon, 1.0f / square);
        }
    glEndList();
    tman.reset_bind();
}
}  // namespace

void hi_res_planet(int lon_REG_1, int lat_REG_1, int reset_tex, int reset_geo, int plot_geo) {
    if (env.planet == 1 || !stg.draw_planet) return;
    set_planet_state();
    if (!state.ocean_tried) state.ocean_ref = load_picture("earth orbit textures:ocean.png");
    state.ocean_tried = true;
    if (state.ocean_ref == tex_none) return;
    if (reset_tex) load_squares(lon_REG_1, lat_REG_1);
    if (reset_geo || reset_tex) build_squares(lon_REG_1, lat_REG_1);
    if (!plot_geo) return;
    set_planet_state();
    glCallList(state.DL_squares);
    tman.reset_bind();
}

// -- which of them

void OGL_manage_planet() {
    if (state.generation != window_generation) {
        state = {};
        state.generation = window_generation;
    }
    const int lon = intcut(floorf(env.lon_wes)), lat = intcut(floorf(env.lat_sou));
    const int lon_REG_1 = intwrap(lon + 180, 0, 359) / square * square,
              lat_REG_1 = intlim(lat + 90, 0, 179) / square * square;
    const bool other_world = stg.draw_planet != state.draw_planet || env.planet != state.planet;
    const int reset_tex = other_world || lon_REG_1 != state.lon_block || lat_REG_1 != state.lat_block;
    const int reset_geo = other_world || lon != state.lon_wes || lat != state.lat_sou;
    state.lon_block = lon_REG_1, state.lat_block = lat_REG_1, state.lon_wes = lon, state.lat_sou = lat;
    state.draw_planet = stg.draw_planet, state.planet = env.planet;
    constexpr float h_hi_res = 15000.0f, h_whole[2] = {150000.0f, 25000.0f};
    const float h_lo_res = stg.draw_planet ? h_whole[env.planet == 1] : h_hi_res;
    const int plot_lo = ren.view_ele_msl > h_lo_res, plot_hi = ren.view_ele_msl > h_hi_res;
    if (reset_geo || plot_lo) lo_res_planet(reset_geo, plot_lo);
    if (reset_tex || reset_geo || plot_hi) hi_res_planet(lon_REG_1, lat_REG_1, reset_tex, reset_geo, plot_hi);
}

// -- over the region's rim

namespace {
constexpr float h_covers = 15000.0f;  // as the squares, or the land would end in an edge

// Picture of a degree and where its south-west corner lies in it.
struct cell_picture {
    int ref;
    float s, t, per_degree;
};

// Degrees from 180 west and 90 south, as all indices here.
cell_picture picture_of(int lon, int lat) {
    constexpr int half = 180;
    if (env.planet == 1 || !stg.draw_planet || state.ocean_ref == tex_none) {
        const bool is_east = lon >= half;
        return {is_east ? tex_planet : tex_planet_last, static_cast<float>(lon % half) / half,
                static_cast<float>(lat) / half, 1.0f / half};
    }
    const int i = (intwrap(lon - state.lon_block + square, 0, 359)) / square,
              j = (lat - state.lat_block + square) / square;
    return {state.tex_ref[intlim(i, 0, blocks - 1)][intlim(j, 0, blocks - 1)],
            static_cast<float>(lon % square) / square, static_cast<float>(lat % square) / square,
            1.0f / square};
}

// How much of the land is covered so many degrees north and east of the region's corner: all at the rim,
// nothing well inside, and from very high up all of it.
float cover_at(float east, float north) {
    const int p = env.planet == 1;
    const auto wide = static_cast<float>(lon_secs[p]), deep = static_cast<float>(lat_secs[p]);
    const float inside = fltmin2(fltmin2(east, wide - east), fltmin2(north, deep - north));
    const float rim = interp(0.0f, 1.0f, 0.2f * deep, 0.0f, inside);
    const float from_high = interp(40000.0f, 0.0f, 150000.0f, 1.0f, ren.view_ele_msl);
    return interp(h_covers, 0.0f, 20000.0f, 1.0f, ren.view_ele_msl) *
           fltmax2(from_high, rim * rim * (3.0f - 2.0f * rim));
}

void put_covering(const cell_picture& picture, int i, int j, float within_s, float within_t) {
    const float east = static_cast<float>(i) + within_s, north = static_cast<float>(j) + within_t;
    float x, y, z;
    xyz_with_latlonel(&x, &y, &z, env.lat_sou + north, env.lon_wes + east, 0.0);
    Vector3 up = {x, y + static_cast<double>(con.planet_rad), z};
    up.normalize();
    OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, cover_at(east, north), 1);
    glNormal3d(up.dx, up.dy, up.dz);
    glTexCoord2f(fltlim(picture.s + within_s * picture.per_degree, 0.0f, 1.0f),
                 fltlim(picture.t + within_t * picture.per_degree, 0.0f, 1.0f));
    glVertex3f(x, y, z);
}

// Of the steps of a degree; those before its first and behind its last reach beyond the region, for land that
// lies high is seen beyond its rim.
float place_of_step(int step, int steps) {
    constexpr float beyond = 0.2f;
    return step < 0       ? -beyond
           : step > steps ? 1.0f + beyond
                          : static_cast<float>(step) / static_cast<float>(steps);
}

void cover_degree(int i, int j, int steps) {
    const int p = env.planet == 1;
    const int lon = intwrap(state.lon_wes + 180 + i, 0, 359), lat = intlim(state.lat_sou + 90 + j, 0, 179);
    const cell_picture picture = picture_of(lon, lat);
    tman.bind_ref(picture.ref, 0, combine_default);
    const int first = i == 0 ? -1 : 0, last = i == lon_secs[p] - 1 ? steps + 1 : steps;
    const int lowest = j == 0 ? -1 : 0, highest = j == lat_secs[p] - 1 ? steps + 1 : steps;
    for (int row = lowest; row < highest; ++row) {
        glBegin(GL_QUAD_STRIP);
        for (int column = first; column <= last; ++column)
            for (const int above : {0, 1})
                put_covering(picture, i, j, place_of_step(column, steps), place_of_step(row + above, steps));
        glEnd();
    }
}
}  // namespace

void cover_region_rim() {
    if (!(ren.view_ele_msl > h_covers) || state.planet != env.planet) return;
    const int p = env.planet == 1, steps = p ? 2 : 8;
    OGL_setstate(fog_on, 1, lit_on, al_blend, depth_no_read, depth_no_write);
    for (int i = 0; i < lon_secs[p]; ++i)
        for (int j = 0; j < lat_secs[p]; ++j) cover_degree(i, j, steps);
}

void reset_planet() { state = {}; }
