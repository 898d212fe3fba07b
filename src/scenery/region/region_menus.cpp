// Menus of the region.
#include "scenery/region/region_menus.h"

#include <string>

#include "core/program/alert.h"
#include "core/program/logs.h"
#include "core/records/records.h"
#include "draw/widgets/menus.h"
#include "scenery/nav/nav_lookup.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/region/region_lists.h"

namespace {
// Menus of airports, in the order of the bar; and of aids.
enum region_menu : int {
    menu_plan = 7,  // plan of an airport
    menu_ramp = 8,
    menu_takeoff = 9,
    menu_visual = 10,
    menu_instrument = 11,
    menu_vor = 12,
    menu_ndb = 13,
};
// Codes of their entries, the airport's or aid's place in the region's list more. Of those above menu_plan
// the code is the entry's place, menu * 300 + entry, too: there a further menu opens.
constexpr int code_plan = 2100;
static_assert(menu_itemDIM == entries_of_airport && apt_lclDIM <= menu_itemDIM);

// A further menu of airport c is menu first + c; its entries have codes from code + 300 c.
struct further_menu {
    int parent, first, code;
};
constexpr further_menu ramps = {menu_ramp, 20, ram1};
constexpr further_menu runways[] = {
    {menu_takeoff, 320, tak1}, {menu_visual, 620, vfr1}, {menu_instrument, 920, ifr1}};

// -- what does not fit

// Noted while the menus are made; their first holds for all of a region.
std::string too_much;

[[gnu::cold]] void note_too_much(const vec_apt_struct* apt, const char* what) {
    if (too_much.empty())
        too_much = std::string(what) + (apt ? std::string(" of airport ") + apt->apt_id : "");
}

void tell_too_much() {
    if (too_much.empty()) return;
    xer << "Menus have no room for " << too_much << '\n';
    MACIBM_data_fault("Some airports have longer names, or more runways or ramps, than menus can show.",
                      "The others are there.", "", "");
    too_much.clear();
}

std::string shown(const std::string& name, const vec_apt_struct* apt) {
    constexpr size_t longest = 39;
    if (name.size() <= longest) return name;
    note_too_much(apt, "a name");
    return name.substr(0, longest);
}

// -- airports

std::string menu_name(const vec_apt_struct& apt) { return apt.apt_name.substr(0, 25); }

void append_ramps(int c, const vec_apt_struct& apt) {
    for (int n = 0; n < static_cast<int>(apt.sta.size()); ++n) {
        if (n == menu_itemDIM) return note_too_much(&apt, "all ramps");
        MACIBM_append_menu(ramps.first + c, n, ramps.code + c * menu_itemDIM + n,
                           shown(apt.sta[static_cast<size_t>(n)].sta_name, &apt), 1);
    }
}

// Both ends of each runway; the code tells the runway by its place among all pieces of the airport.
void append_runways(int c, const vec_apt_struct& apt) {
    int item = 0;
    for (int n = 0; n < static_cast<int>(apt.rwy.size()); ++n) {
        if (apt.rwy[static_cast<size_t>(n)].num_str[0] == 'x') continue;
        if (2 * n + 1 >= menu_itemDIM) return note_too_much(&apt, "all runways");
        std::string ends[2];
        get_rway_strings(apt_lcl_to_wrl[c], n, &ends[0], &ends[1]);
        for (int end = 0; end < 2; ++end, ++item)
            for (const further_menu& m : runways)
                MACIBM_append_menu(m.first + c, item, m.code + c * menu_itemDIM + 2 * n + end,
                                   rway_to_cs(ends[end]), 1);
    }
}

const vec_apt_struct& airport(int c) { return vec_apt[static_cast<size_t>(apt_lcl_to_wrl[c])]; }

void append_airport(int c) {
    for (int m = menu_plan; m <= menu_instrument; ++m)
        MACIBM_append_menu(m, c, code_plan + (m - menu_plan) * menu_itemDIM + c, menu_name(airport(c)), 1);
}

// A further menu hangs on its entry's box, and a long menu moves as it grows: all entries have to be there.
void add_further_menus(int c) {
    const vec_apt_struct& apt = airport(c);
    const std::string name = menu_name(apt);
    MACIBM_create_menu(ramps.first + c, ramps.parent * menu_itemDIM + c, name);
    for (const further_menu& m : runways) MACIBM_create_menu(m.first + c, m.parent * menu_itemDIM + c, name);
    append_ramps(c, apt);
    append_runways(c, apt);
}

void append_aids(int m, int code, const int* list, int last) {
    for (int i = 0; i <= last; ++i)
        MACIBM_append_menu(m, i, code + i, shown(vec_nav[static_cast<size_t>(list[i])].nav_name, nullptr), 1);
}
}  // namespace

void build_region_menus() {
    for (int c = 0; c <= apt_lcl_max; ++c) append_airport(c);
    for (int c = 0; c <= apt_lcl_max; ++c) add_further_menus(c);
    append_aids(menu_vor, vor1, vor_lcl_to_wrl, vor_lcl_max);
    append_aids(menu_ndb, ndb1, ndb_lcl_to_wrl, ndb_lcl_max);
    tell_too_much();
}
