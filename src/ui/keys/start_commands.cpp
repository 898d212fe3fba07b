// Commands that begin a flight.
#include "ui/keys/start_commands.h"

#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/alert.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/region/region_lists.h"
#include "scenery/region/region_menus.h"

namespace {
constexpr int random_place = 614;

// Leaves what it placed in the air in trim.
void begin(int code, int place) {
    init_flt_0(code, place);
    begin_user_flight_steady(code);
}

// -- at airports

int place_of(int item) {
    if (!intrange(item, ram1, ifr2)) return 0;
    return item < tak1   ? place_ramp
           : item < vfr1 ? place_runway
           : item < ifr1 ? place_final_3
                         : place_final_10;
}

// The local airport of an entry, and the entry's number there.
struct airport_entry {
    int apt_lcl, number;
};
airport_entry entry_of(int item) {
    const int first = item < tak1 ? ram1 : item < vfr1 ? tak1 : item < ifr1 ? vfr1 : ifr1;
    return {(item - first) / entries_of_airport, (item - first) % entries_of_airport};
}

void begin_at_airport(int item) {
    const airport_entry entry = entry_of(item);
    const int place = place_of(item);
    if (!intrange(entry.apt_lcl, 0, apt_lcl_max)) return MACIBM_fatal("apt sel out of local range!");
    if (!intrange(entry.number, 0, entries_of_airport - 1)) return MACIBM_fatal("apt sel out of item range!");
    const int apt = apt_lcl_to_wrl[entry.apt_lcl];
    if (!intrange(apt, 0, static_cast<int>(vec_apt.size()) - 1))
        return MACIBM_fatal("loc_apt_wrl out of range!");
    const bool ramp = place == place_ramp;
    const size_t size =
        ramp ? vec_apt[static_cast<size_t>(apt)].sta.size() : vec_apt[static_cast<size_t>(apt)].rwy.size();
    const int number = ramp ? entry.number : entry.number / 2;
    if (!intrange(number, 0, static_cast<int>(size) - 1)) return MACIBM_fatal("lcl_rwy_ram out of range!");
    msc.loc_apt_wrl = apt;
    msc.lcl_rwy_ram = number;
    if (!ramp) msc.backwards = entry.number % 2;
    begin(start_airport, place);
}

// -- in the air

void begin_in_the_air(float lat, float lon, float alt, float psi) {
    stg.cus_lat = lat;
    stg.cus_lon = lon;
    stg.cus_alt = alt;
    stg.cus_psi = psi;
    stg.cus_v = 1.5f * veh[0].V_ref_ms;
    begin(start_custom, 0);
}

const vec_nav_struct* aid_of(int item) {
    const bool vor = intrange(item, vor1, vor1 + vor_lcl_max), ndb = intrange(item, ndb1, ndb1 + ndb_lcl_max);
    if (!vor && !ndb) return nullptr;
    const int aid = vor ? vor_lcl_to_wrl[item - vor1] : ndb_lcl_to_wrl[item - ndb1];
    return intrange(aid, 0, static_cast<int>(vec_nav.size()) - 1) ? &vec_nav[static_cast<size_t>(aid)]
                                                                  : nullptr;
}

void begin_at_aid(const vec_nav_struct& aid) {
    constexpr float above = 1000.0f;  // m
    begin_in_the_air(aid.lat, aid.lon, aid.ele + above, 0.0f);
}

// As given: a region of two degrees by three.
void begin_at_random_place() {
    constexpr float lat_size = 2.0f, lon_size = 3.0f, least_alt = 2000.0f, most_alt = 4000.0f;
    const float lat = flt_rand(env.lat_sou, env.lat_sou + lat_size),
                lon = flt_rand(env.lon_wes, env.lon_wes + lon_size);
    const float alt = flt_rand(least_alt, most_alt);
    begin_in_the_air(lat, lon, alt, flt_rand(0.0f, 360.0f));
}

bool is_exercise(int item) {
    return intrange(item, start_grass, start_winch) || intrange(item, start_formation, start_carried) ||
           intrange(item, start_carrier, start_fire) ||
           intrange(item, start_shuttle_first, start_shuttle_last);
}
}  // namespace

int start_command_exists(int item) {
    return is_exercise(item) || item == random_place || aid_of(item) != nullptr ||
           (place_of(item) && intrange(entry_of(item).apt_lcl, 0, apt_lcl_max));
}

void run_start_command(int item) {
    if (is_exercise(item)) return begin(item, 0);
    if (item == random_place) return begin_at_random_place();
    if (place_of(item)) return begin_at_airport(item);
    if (const vec_nav_struct* aid = aid_of(item)) begin_at_aid(*aid);
}
