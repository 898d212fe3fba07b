// Lists of the region.
#include "scenery/region/region_lists.h"

#include <math.h>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "scenery/airports/strips.h"
#include "scenery/ground/runways.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/ground/tile.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/region/region_menus.h"

int apt_lcl_to_wrl[apt_lclDIM], vor_lcl_to_wrl[vor_lclDIM], ndb_lcl_to_wrl[ndb_lclDIM];
int fix_lcl_to_wrl[fix_lclDIM], loa_lcl_to_wrl[loa_lclDIM], hia_lcl_to_wrl[hia_lclDIM];
int apt_lcl_max = -1, vor_lcl_max = -1, ndb_lcl_max = -1, fix_lcl_max = -1, loa_lcl_max = -1,
    hia_lcl_max = -1;

namespace {
// Rims included; longitudes over the date line.
bool is_in_region(float lat, float lon) {
    const double dlat = static_cast<double>(lat) - env.lat_sou;
    if (!(dlat >= 0.0 && dlat <= lat_secs[env.planet])) return false;
    const double dlon = dobwrap(static_cast<double>(lon) - env.lon_wes, -180.0, 180.0);
    return dlon >= 0.0 && dlon <= lon_secs[env.planet];
}

template <int size>
void put(int (&list)[size], int* last, size_t index) {
    if (*last + 1 < size) list[++*last] = static_cast<int>(index);
}

void list_airports() {
    for (size_t i = 0; i < vec_apt.size(); ++i) {
        vec_apt_struct& apt = vec_apt[i];
        apt.in_reg = !apt.rwy.empty() && is_in_region(apt.rwy[0].lat, apt.rwy[0].lon);
        if (apt.in_reg) put(apt_lcl_to_wrl, &apt_lcl_max, i);
    }
}

void list_aids() {
    for (size_t i = 0; i < vec_nav.size(); ++i) {
        vec_nav_struct& aid = vec_nav[i];
        aid.in_reg = is_in_region(aid.lat, aid.lon);
        if (!aid.in_reg) continue;
        if (aid.type == nav_vor) put(vor_lcl_to_wrl, &vor_lcl_max, i);
        if (aid.type == nav_ndb) put(ndb_lcl_to_wrl, &ndb_lcl_max, i);
    }
}

void list_fixes() {
    for (size_t i = 0; i < vec_fix.size(); ++i)
        if (is_in_region(vec_fix[i].lat, vec_fix[i].lon)) put(fix_lcl_to_wrl, &fix_lcl_max, i);
}

bool has_end_here(const vec_awy_struct& awy) {
    return is_in_region(awy.lat[0], awy.lon[0]) || is_in_region(awy.lat[1], awy.lon[1]);
}

void list_airways() {
    for (size_t i = 0; i < vec_loa.size(); ++i)
        if (has_end_here(vec_loa[i])) put(loa_lcl_to_wrl, &loa_lcl_max, i);
    for (size_t i = 0; i < vec_hia.size(); ++i)
        if (has_end_here(vec_hia[i])) put(hia_lcl_to_wrl, &hia_lcl_max, i);
}

// Near the rim, which nobody sees, no ground is known and y is 0.
void stand_on_ground(float (&xyz)[3], float lat, float lon, float ele) {
    constexpr int checker_airport = 26;
    xyz_with_latlonel(&xyz[0], &xyz[1], &xyz[2], lat, lon, ele);
    xyz[1] = return_terrain_y(xyz[0], xyz[2], checker_airport);
}

// A beacon at 0, 0 is none.
void place_on_airport(vec_apt_struct& apt) {
    constexpr float least = 0.01f;  // degrees
    if (fabsf(apt.bcn_lat) > least || fabsf(apt.bcn_lon) > least)
        stand_on_ground(apt.bcn_xyz, apt.bcn_lat, apt.bcn_lon, apt.ele);
    for (vec_soc_struct& soc : apt.soc) stand_on_ground(soc.soc_xyz, soc.lat, soc.lon, apt.ele);
}

// By the metres of runway.
float busy_factor() {
    constexpr float per_metre = 5e-06f;
    float length = 0.0f;
    for (int c = 0; c <= apt_lcl_max; ++c)
        for (const vec_rwy_struct& rwy : vec_apt[static_cast<size_t>(apt_lcl_to_wrl[c])].rwy)
            if (rwy.num_str[0] != 'x') length += rwy.len;
    return fltlim(length * per_metre, 0.0f, 1.0f);
}
}  // namespace

void reset_region_lists() {
    apt_lcl_max = vor_lcl_max = ndb_lcl_max = fix_lcl_max = loa_lcl_max = hia_lcl_max = -1;
    clear_strips();
}

void finish_region() {
    reset_region_lists();
    list_airports();
    for (int c = 0; c <= apt_lcl_max; ++c) {
        UTIL_build_runways(apt_lcl_to_wrl[c]);
        place_on_airport(vec_apt[static_cast<size_t>(apt_lcl_to_wrl[c])]);
    }
    msc.radio_busy_fac = busy_factor();
    list_aids();
    list_fixes();
    list_airways();
    build_region_menus();
}
