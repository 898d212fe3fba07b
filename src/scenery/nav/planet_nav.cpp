// The load of a planet: tables on two threads, custom airports over them, then all that depends on them.
#include "scenery/nav/planet_nav.h"

#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <unordered_map>

#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/jobs.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "scenery/ground/region.h"
#include "scenery/nav/apt_file.h"
#include "scenery/nav/nav_files.h"
#include "scenery/nav/nav_lookup.h"
#include "scenery/packages/library.h"
#include "scenery/seam/scenery_draw.h"
#include "weather/sky/skyc.h"
#include "weather/sky/stars.h"

namespace {
constexpr const char* replaced_id = "XXXX";

// -- jobs. What a worker reads stays its own until it has ended: one that comes too late, or never, touches
// nothing of the program's.
std::vector<vec_fix_struct> fix_of_job;
nav_tables nav_of_job;
int fix_job(int) { return read_fix(&fix_of_job); }
int nav_job(int) { return read_nav(&nav_of_job); }

constexpr float patience = 60.0f;  // seconds

void read_fixes_and_airways() {
    MACIBM_showinit("Will read fixes and airways.");
    vec_fix.clear();
    const int call = THREAD_RunAsync(fix_job, 0, 1);
    IO_awy(0);
    if (THREAD_Finish(call, patience, "Timed out IO_fix thread after 60 seconds.")) vec_fix.swap(fix_of_job);
}

void read_airports_and_navaids() {
    MACIBM_showinit("Will read airports and NAVAIDs.");
    vec_nav.clear();
    nav_hash.clear();
    const int call = THREAD_RunAsync(nav_job, 0, 1);
    IO_apt(0, "");
    if (!THREAD_Finish(call, patience, "Timed out IO_nav thread after 60 seconds.")) return;
    vec_nav.swap(nav_of_job.nav);
    nav_hash.swap(nav_of_job.hash);
}

// -- custom airports

void mark_replaced(vec_apt_struct& apt) { snprintf(apt.apt_id, sizeof apt.apt_id, "%s", replaced_id); }

// Airports from this index on take the place of the first earlier one with their identifier; further ones go,
// so that a search by name, by place or by hash finds the same.
void lay_over_earlier(size_t first_new) {
    std::unordered_map<std::uint32_t, std::vector<size_t>> earlier;
    for (size_t i = 0; i < first_new; ++i) earlier[apt_id_key(vec_apt[i].apt_id)].push_back(i);
    for (size_t i = first_new; i < vec_apt.size(); ++i) {
        const auto old = earlier.find(apt_id_key(vec_apt[i].apt_id));
        if (old == earlier.end()) continue;
        for (const size_t replaced : old->second) mark_replaced(vec_apt[replaced]);
        vec_apt[old->second.front()] = std::move(vec_apt[i]);
        mark_replaced(vec_apt[i]);
    }
}

// The first package of the list is read last and wins.
void read_custom_airports() {
    MACIBM_showinit("Will read custom airports.");
    const char* name = env.planet ? "Mars nav data:apt.dat" : "Earth nav data:apt.dat";
    for (size_t n = scenery_packages.size(); n-- > 0;) {
        const size_t before = vec_apt.size();
        if (IO_apt(2, scenery_packages[n] + name)) lay_over_earlier(before);
    }
}

void remove_replaced() {
    std::erase_if(vec_apt, [](const vec_apt_struct& apt) { return strcmp(apt.apt_id, replaced_id) == 0; });
    apt_hash.clear();
    for (size_t i = 0; i < vec_apt.size(); ++i)
        apt_hash.emplace(apt_id_key(vec_apt[i].apt_id), static_cast<int>(i));
}

// -- what depends on the tables

void load_selected_region() {
    constexpr int full_reload = 1;
    MACIBM_showinit("Will read scenery files.");
    get_basic_specs_with_apt_ID();
    load_region(full_reload);
}

void load_sky() {
    star.star_build();
    skyc.conditions_init();
    scenery_draw.load_planet_pictures(env.planet);
}

void limit_index(int* index, size_t table_size) {
    *index = intlim(*index, 0, intmax2(static_cast<int>(table_size) - 1, 0));
}

void limit_gps_indexes() {
    MACIBM_showinit("Will set nav limits.");
    limit_index(&nav.gps_apt_index, vec_apt.size());
    limit_index(&nav.gps_vor_index, vec_nav.size());
    limit_index(&nav.gps_ndb_index, vec_nav.size());
    limit_index(&nav.gps_fix_index, vec_fix.size());
    const size_t used = nav.gps_type == targ_apt      ? vec_apt.size()
                        : nav.gps_type == targ_fix    ? vec_fix.size()
                        : nav.gps_type == targ_latlon ? std::size(nav.fms_lat)
                                                      : vec_nav.size();
    limit_index(&nav.gps_use_index, used);
}
}  // namespace

void read_nav_tables() {
    read_fixes_and_airways();
    read_airports_and_navaids();
    read_custom_airports();
    remove_replaced();
}

void read_planet_nav() {
    read_nav_tables();
    load_selected_region();
    load_sky();
    limit_gps_indexes();
}
