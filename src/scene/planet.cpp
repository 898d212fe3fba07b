// The planet from high up.
#include "scene/planet.h"

#include <GL/gl.h>
#include <stdio.h>

#include <string>
#include <vector>

#include "core/math/geo3.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/records/env.h"
#include "core/records/ren.h"
#include "core/records/stg.h"
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

void reset_planet() { state = {}; }
