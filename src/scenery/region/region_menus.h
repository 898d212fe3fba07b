// The menus of what lies in the region: starts at its airports, its plans, its aids.
// Role: the codes that they append are taken by APP_handlemenu.
#pragma once

// Fills menus 7 to 13 and the further menus of airports from the region's lists; they have to be empty
// (MACIBM_clear_menus). A custom airport may have more than menus hold, or longer names: these are cut or
// left out, which is told once.
void build_region_menus();
