// The rolling search for the nearest airport.
#include "scene/airport_search.h"

#include <math.h>
#include <string.h>

#include "core/math/num.h"
#include "core/records/records.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/region/region_lists.h"

namespace {
constexpr int share = 10;  // airports a frame
constexpr float none_yet = 9.9e+09f;

struct search_struct {
    int first = 0;                 // of the next share, region's list
    float least = none_yet;        // squared distance of the nearest of this cycle, degrees
    int apt_lcl = 0, apt_wrl = 0;  // and which it is
};
search_struct search;

bool can_be_nearest(const vec_apt_struct& apt) {
    return apt.apt_type != apt_sea && apt.apt_type != apt_helipad && apt.apt_type != apt_carrier;
}

void consider(int apt_lcl) {
    const int apt_wrl = apt_lcl_to_wrl[apt_lcl];
    const vec_apt_struct& apt = vec_apt[static_cast<size_t>(apt_wrl)];
    if (!can_be_nearest(apt)) return;
    const float dlat = apt.rwy[0].lat - static_cast<float>(flt[0].dob_lat);
    const float dlon = fltwrap(apt.rwy[0].lon - static_cast<float>(flt[0].dob_lon), -180.0f, 180.0f);
    const float distance = sqr(dlat) + sqr(dlon);
    if (distance >= search.least) return;
    search.least = distance;
    search.apt_lcl = apt_lcl;
    search.apt_wrl = apt_wrl;
}

// A region loaded in the midst of a cycle has other airports, or none, under the index.
bool has_found() {
    return search.least < none_yet && search.apt_lcl <= apt_lcl_max &&
           apt_lcl_to_wrl[search.apt_lcl] == search.apt_wrl;
}

void select_nearest() {
    const vec_apt_struct& apt = vec_apt[static_cast<size_t>(search.apt_wrl)];
    msc.loc_apt_wrl = msc.ai_apt_wrl_use = search.apt_wrl;
    msc.loc_apt_lcl = search.apt_lcl;
    msc.lcl_rwy_ram = msc.ai_rwy_wrl_use = 0;
    memcpy(msc.apt_id_str, apt.apt_id, sizeof msc.apt_id_str);
    const float off = fltwrap(atm.set_wind_dir_mag[0] - apt.rwy[0].psi_true, -180.0f, 180.0f);
    msc.ai_directn_use = fabsf(off) < 90.0f ? 1 : -1;
}
}  // namespace

void nearest_airport_step() {
    if (apt_lcl_max < 0) return reset_airport_search();
    if (mnw.first_miss_cycle) search = {};
    if (search.first >= apt_lcl_max) search.first = 0;
    const int last = mnw.first_miss_cycle ? apt_lcl_max : intmin2(search.first + share, apt_lcl_max);
    for (int apt_lcl = search.first; apt_lcl <= last; ++apt_lcl) consider(apt_lcl);
    search.first += share;
    if (last < apt_lcl_max) return;
    if (has_found()) select_nearest();
    search = {};
}

void reset_airport_search() { search = {}; }
