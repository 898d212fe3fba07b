// The rolling look for airports.
#include "scene/airports_in_view.h"

#include "core/math/num.h"
#include "core/records/records.h"
#include "draw/camera/xcam.h"
#include "scenery/ground/runways.h"
#include "scenery/ground/surfaces.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/region/region_lists.h"

namespace {
struct search_struct {
    int first = 0;      // of the next share, region's list
    int revision = -1;  // of the runways that were looked at
};
search_struct search;

// The walk along an airport's runways ends at one of water that is none.
bool ends_walk(const vec_rwy_geo_struct& strip, const vec_rwy_struct& rwy) {
    return strip.surf_tex == surface_water && rwy.num_str[0] == 'x';
}

bool is_in_view(const vec_rwy_geo_struct& strip, const vec_rwy_struct& rwy) {
    constexpr float around = 0.75f;  // of its length
    if (strip.vec_rwy_pol.empty()) return false;
    const float *const from = strip.vec_rwy_pol.front().xyz[0], *const to = strip.vec_rwy_pol.back().xyz[1];
    return xcam.SphereInView(0.5f * (from[0] + to[0]), 0.5f * (from[1] + to[1]), 0.5f * (from[2] + to[2]),
                             rwy.len * around);
}

int look_at_airport(int apt_wrl) {
    const airport_strips_struct* const strips = strips_of_airport(apt_wrl);
    if (!strips) return 0;
    const std::vector<vec_rwy_struct>& rwy = vec_apt[static_cast<size_t>(apt_wrl)].rwy;
    for (size_t i = 0; i < strips->count && i < rwy.size(); ++i) {
        const vec_rwy_geo_struct& strip = vec_rwy_geo[strips->first + i];
        if (is_in_view(strip, rwy[i])) return 1;
        if (ends_walk(strip, rwy[i])) return 0;
    }
    return 0;
}
}  // namespace

void airports_in_view_step() {
    constexpr int share = 10;  // airports a frame
    const bool all = mnw.first_miss_cycle || search.revision != strips_revision();
    search.revision = strips_revision();
    if (all || search.first >= apt_lcl_max) search.first = 0;
    const int last = all ? apt_lcl_max : intmin2(search.first + share, apt_lcl_max);
    for (int apt_lcl = search.first; apt_lcl <= last; ++apt_lcl)
        scn.apt_is_vis[apt_lcl] = look_at_airport(apt_lcl_to_wrl[apt_lcl]);
    search.first += share;
}

void reset_airports_in_view() { search = {}; }
