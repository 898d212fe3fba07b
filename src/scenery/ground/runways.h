// Strips of the runways of the region, and their lights.
// Role: built when a region is finished (scenery/airports), stood on by terrain queries, drawn; they go with
// the region. World frame. A strip knows its surface, so that whoever stands on it need not know the
// airports.
#pragma once
#include <vector>

#include "core/math/geo3.h"

// A row across a strip; its texture goes on to the next row.
struct vec_rwy_pol_struct {
    unsigned short tex;  // texture reference
    float xyz[2][3];     // left and right edge, m; at one height
    float nrm[3];
};
struct vec_apt_lit_struct {
    unsigned short color;  // 1000 more: seen from the first end alone; 2000 more: from the second
    float xyz[3];          // m
};
struct vec_rwy_geo_struct {
    std::vector<vec_rwy_pol_struct>
        vec_rwy_pol;  // from the first end to the second; empty when it has no place
    std::vector<vec_apt_lit_struct> vec_apt_lit;
    int apt_wrl = 0, rwy_wrl = 0;  // whose it is: airport in the planet's list, runway of it
    unsigned char surf_tex = 0;    // surface_tex
    unsigned char is_taxiway = 0;  // or another piece without a number
    float roughness = 0;           // 0 to 1
    box_struct box;                // around its rows
};
extern std::vector<vec_rwy_geo_struct> vec_rwy_geo;  // by a runway's geo_ind

// The strips of an airport lie behind each other.
struct airport_strips_struct {
    int apt_wrl = 0;
    size_t first = 0, count = 0;  // in vec_rwy_geo
    box_struct box;               // around all of them
};
// By airport of the region, in the order in which they were built.
extern std::vector<airport_strips_struct> vec_apt_strips;

// Grows with each change of the tables: what was made from strips is out of date.
int strips_revision();

// Null when the airport has none in this region.
airport_strips_struct* strips_of_airport(int apt_wrl);
// Room for the strips of an airport, emptied; the same as before when it had as many.
airport_strips_struct& claim_strips(int apt_wrl, size_t count);
void clear_strips();

// Whether a point lies between a row and the next, edges included.
bool is_on_piece(const vec_rwy_pol_struct& row, const vec_rwy_pol_struct& next, double x, double z);
