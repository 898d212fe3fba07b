// The menus of what lies in the region: starts at its airports, its plans, its aids.
// Role: the codes that they append are taken by APP_handlemenu.
#pragma once

// First codes of entries: aid n of a list has the code first + n; entry n of local airport c, a ramp or twice
// a runway and 1 for its far end, first + 300 c + n.
enum region_menu_code : int {
    vor1 = 3600,
    ndb1 = 3900,
    ram1 = 6000,
    tak1 = 96000,
    vfr1 = 186000,
    ifr1 = 276000,
    ifr2 = 365999,
};
constexpr int entries_of_airport = 300;

// Fills menus 7 to 13 and the further menus of airports from the region's lists; they have to be empty
// (MACIBM_clear_menus). A custom airport may have more than menus hold, or longer names: these are cut or
// left out, which is told once.
void build_region_menus();
