// Names and sizes of the land classes.
#include "land_classes.h"

// Repeats differ and have no common divisor, so that classes that lie side by side repeat apart.
static const land_class_row rows[land_classes_DIM] = {
    {"city", 1430, true, false},          {"industry", 1570, true, false},
    {"suburb", 1610, true, false},        {"suburb_dry", 1690, true, false},
    {"village", 1790, true, false},       {"farm_green", 2210, false, false},
    {"farm_square", 3220, false, false},  {"farm_dry", 3220, false, false},
    {"orchard", 1130, false, false},      {"airfield", 970, false, false},
    {"airfield_dry", 930, false, false},  {"grass_green", 1370, false, false},
    {"grass_dry", 1510, false, false},    {"savanna", 1490, false, false},
    {"scrub", 1330, false, false},        {"woods_open", 1210, false, false},
    {"forest_broad", 1090, false, false}, {"forest_conifer", 1030, false, false},
    {"jungle", 1110, false, false},       {"marsh", 1270, false, false},
    {"tundra", 1450, false, false},       {"desert", 1730, false, false},
    {"desert_rock", 1870, false, false},  {"dunes", 2030, false, false},
    {"wash", 1150, false, false},         {"salt", 2110, false, false},
    {"beach", 730, false, false},         {"rock", 1930, false, false},
    {"snow", 1990, false, false},         {"ice", 2270, false, false},
    {"mars_dust", 2130, false, true},     {"mars_plain", 1810, false, true},
    {"mars_dark", 1950, false, true},     {"mars_rock", 2330, false, true},
    {"mars_ice", 2090, false, true},
};

const land_class_row& land_class_of(land_class which) { return rows[which]; }

std::string land_terrain_name(land_class which) { return std::string(rows[which].name) + ".ter"; }
