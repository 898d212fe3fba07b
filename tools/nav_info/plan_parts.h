// The parts that a plan is made of, from the ground up.
#pragma once
#include "labels.h"
#include "sheet.h"
#include "tables.h"

struct plan {
    int apt_index;
    const vec_apt_struct& apt;
    flat_map map;
    sheet& on;
    labels& names;

    point at(double lat, double lon) const { return on.at(map.at({lat, lon})); }
};

constexpr unsigned beam_colour = 0x2f8f5b, ramp_colour = 0x1f4e9c, sign_colour = 0x9c2f2a;

unsigned surface_colour(int surf_tex);

// plan_ground.cpp: pavement, runways and water, then their names.
void draw_beams(plan& p);
void draw_pavement(plan& p);
void name_runways(plan& p);
// plan_signs.cpp: ramps, tower, beacon, windsocks.
struct sign_row {
    void (*draw)(sheet& on, const point& at, double heading);
    const char* words;
};
enum sign : int { sign_ramp, sign_tower, sign_beacon, sign_windsock, sign_DIM };
extern const sign_row signs[sign_DIM];
bool has_sign(const vec_apt_struct& apt, int sign);
void draw_signs(plan& p);
// plan_frame.cpp: arrow and bar on the map; then title, tables and legend around it.
void draw_map_aids(plan& p);
void draw_title(plan& p);
void draw_tables(plan& p);
