// Where the region lies and when it moves.
#include "scenery/ground/region.h"

#include <math.h>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/jobs.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "scenery/ground/ground_phase.h"
#include "scenery/ground/region_shift.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/ground/tile.h"

const region_steps_struct region_of_nothing = {
    [] {},
    [](int, int, int, int, int) {},
    [] {},
    [](int) {},
};
region_steps_struct region_steps = region_of_nothing;

namespace {
struct told_struct {
    bool not_finite = false, off_globe = false;
};
told_struct told;

struct corner_struct {
    double lat, lon;  // whole degrees
};

double lat_limited(double lat) { return fmin(fmax(lat, -90.0), 90.0); }

corner_struct corner_round(double lat, double lon) {
    return {lat_limited(round(lat - lat_secs_os[env.planet])),
            static_cast<double>(intwrap(static_cast<int>(round(lon - lon_secs_os[env.planet])), -179, 180))};
}

void set_corner(const corner_struct& corner) {
    env.lat_sou = static_cast<float>(corner.lat);
    env.lon_wes = static_cast<float>(corner.lon);
}

// -- the place asked for

[[gnu::cold, gnu::noinline]] void tell_once(bool* already) {
    if (*already) return;
    *already = true;
    MACIBM_alert(mnw.top_win, "Out of range lat/lon call to check_for_shift!", "", "", "", alert_message);
}

// False for one that cannot be used. Network and plugins may send anything.
bool take_place(double* lat, double* lon) {
    if (fabs(*lat) <= 90.0 && fabs(*lon) <= 180.0) [[likely]]
        return true;
    if (!isfinite(*lat) || !isfinite(*lon)) {
        tell_once(&told.not_finite);
        return false;
    }
    tell_once(&told.off_globe);
    *lat = lat_limited(*lat);
    *lon = dobwrap(*lon, -180.0, 180.0);
    return true;
}

// -- the band

// More than a degree outside of it.
bool is_far_out(double d, double buff, int secs) { return d < buff - 1.0 || d > secs - buff + 1.0; }

// How the region has to move for this place, and where to; 0 when it stays. What the limit at the poles would
// take back at once does not count, so that a place beyond its reach does not load regions for ever.
int needed_shift(double lat, double lon, corner_struct* to) {
    const int planet = env.planet;
    const corner_struct now = {env.lat_sou, env.lon_wes};
    // limited, for a wrap would put one pole beside the other
    const double dlat = lat_limited(lat - now.lat), dlon = dobwrap(lon - now.lon, -180.0, 180.0);
    const double north = lat_secs[planet] - lat_buff[planet], east = lon_secs[planet] - lon_buff[planet];
    if (is_far_out(dlon, lon_buff[planet], lon_secs[planet]) ||
        is_far_out(dlat, lat_buff[planet], lat_secs[planet])) [[unlikely]] {
        *to = corner_round(lat, lon);
        if (is_far_out(dlon, lon_buff[planet], lon_secs[planet]) || to->lat != now.lat)
            return shift_full_reload;
    }
    *to = now;
    const auto stepped = [&](double dlat_step, double dlon_step) {
        to->lat = lat_limited(now.lat + dlat_step);
        to->lon = dobwrap(now.lon + dlon_step, -180.0, 180.0);
        return to->lat != now.lat || dlon_step != 0.0;
    };
    if (dlat < lat_buff[planet] && stepped(-1.0, 0.0)) return shift_south;
    if (dlat > north && stepped(1.0, 0.0)) return shift_north;
    if (dlon < lon_buff[planet] && stepped(0.0, -1.0)) return shift_west;
    if (dlon > east && stepped(0.0, 1.0)) return shift_east;
    return 0;
}

// What it took, 0 when nothing moved.
int shift_if_needed(double lat, double lon) {
    if (!take_place(&lat, &lon)) return 0;
    flt[0].dob_lat = lat;
    flt[0].dob_lon = lon;
    corner_struct to;
    const int typeshift = needed_shift(lat, lon, &to);
    if (!typeshift) return 0;
    set_corner(to);
    load_region(typeshift);
    return typeshift;
}

// -- a region

// Queries while a tile loads may ask beyond it, and must not find what lies in the old frame.
void clear_all_tiles() {
    for (auto& column : xdeg)
        for (xdeg_struct& tile : column)
            if (!tile.tex_layers.empty() || !tile.ytest_buckets.Empty()) clear_degree(&tile);
    forget_found_terrain();
}

// South to north and west to east in each row: a tile takes its seams from those before it.
void fill_tiles() {
    for (int ilat = 0; ilat < lat_secs[env.planet]; ++ilat)
        for (int ilon = 0; ilon < lon_secs[env.planet]; ++ilon)
            region_steps.fill_tile(0, intround(static_cast<float>(ilat) + env.lat_sou), ilat,
                                   intround(static_cast<float>(ilon) + env.lon_wes), ilon);
}
}  // namespace

void check_for_shift(double lat, double lon) { shift_if_needed(lat, lon); }

void follow_flight() {
    const double old_lat = ref_lat(), old_lon = ref_lon();
    if (shift_if_needed(flt[0].dob_lat, flt[0].dob_lon) == shift_full_reload)
        move_flight_between(old_lat, old_lon, ref_lat(), ref_lon());
}

void load_region(int typeshift) {
    constexpr float patience = 60.0f;  // seconds
    constexpr int region_loaded = 6;
    find_region_extents();
    const int call = THREAD_RunAsync(shift_region, typeshift, 0);
    clear_all_tiles();
    region_steps.clear();
    THREAD_Finish(call, patience, "Timed out shift_1 thread after 60 seconds.");
    fill_tiles();
    region_steps.finish();
    if (env.planet == 0) region_steps.place(typeshift);
    TVPEventHook(region_loaded, mnw.real_time, 0.0f, 0, 0);
}

void centre_region_on(double lat, double lon) { set_corner(corner_round(lat, lon)); }

void reset_region() { told = {}; }
