// The tables of strips.
#include "scenery/ground/runways.h"

std::vector<vec_rwy_geo_struct> vec_rwy_geo;
std::vector<airport_strips_struct> vec_apt_strips;

// Where the last one asked for was found: it is nearly always the same airport's.
static size_t last_found = 0;
static int revision = 0;

int strips_revision() { return revision; }

airport_strips_struct* strips_of_airport(int apt_wrl) {
    if (last_found < vec_apt_strips.size() && vec_apt_strips[last_found].apt_wrl == apt_wrl)
        return &vec_apt_strips[last_found];
    for (size_t i = 0; i < vec_apt_strips.size(); ++i) {
        if (vec_apt_strips[i].apt_wrl != apt_wrl) continue;
        last_found = i;
        return &vec_apt_strips[i];
    }
    return nullptr;
}

airport_strips_struct& claim_strips(int apt_wrl, size_t count) {
    ++revision;
    airport_strips_struct* mine = strips_of_airport(apt_wrl);
    if (!mine) mine = &vec_apt_strips.emplace_back();
    const bool fits = mine->count == count;
    *mine = {apt_wrl, fits ? mine->first : vec_rwy_geo.size(), count, {}};
    if (!fits) vec_rwy_geo.resize(vec_rwy_geo.size() + count);
    for (size_t i = 0; i < count; ++i) vec_rwy_geo[mine->first + i] = {};
    return *mine;
}

void clear_strips() {
    vec_rwy_geo.clear();
    vec_apt_strips.clear();
    ++revision;
    last_found = 0;
}

bool is_on_piece(const vec_rwy_pol_struct& row, const vec_rwy_pol_struct& next, double x, double z) {
    const float* const corner[] = {row.xyz[0], next.xyz[0], next.xyz[1], row.xyz[1]};
    for (int i = 0; i < 4; ++i) {
        const float *const a = corner[i], *const b = corner[(i + 1) % 4];
        if (!inside_cw_edge(a[0], a[2], b[0], b[2], x, z)) return false;
    }
    return true;
}
