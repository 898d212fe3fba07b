// Strips of the runways of the region, and their lights.
// Role: built when a region is finished, stood on by terrain queries, drawn; they go with the region. World frame.
#pragma once
#include <vector>

// A row across a strip; its texture goes on to the next row.
struct vec_rwy_pol_struct {
    unsigned short tex;  // texture reference
    float xyz[2][3];     // left and right edge, m
    float nrm[3];
};
struct vec_apt_lit_struct {
    unsigned short color;  // 1000 more: seen from the first end alone; 2000 more: from the second
    float xyz[3];          // m
};
struct vec_rwy_geo_struct {
    std::vector<vec_rwy_pol_struct> vec_rwy_pol;  // from the first end to the second
    std::vector<vec_apt_lit_struct> vec_apt_lit;
};
extern std::vector<vec_rwy_geo_struct> vec_rwy_geo;  // by a runway's geo_ind

// Builds strips and lights of all runways of an airport (index in vec_apt); the terrain has to be there.
void UTIL_build_runways(int apt_wrl);
