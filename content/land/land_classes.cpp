// Names and sizes of the land classes.
#include "land_classes.h"

// Repeats differ and have no common divisor, so that classes that lie side by side repeat apart.
static const land_class_row rows[land_classes_DIM] = {
    {"city", 1430, true, false},         {"industry", 1570, true, false},
    {"suburb", 1610, true, false},       {"suburb_dry", 1690, true, false},
    {"village", 1790, true, false},      {"farm_green", 2210, false, false},
    {"farm_square", 3220, false, false}, {"farm_dry", 3220, false, false},
    {"orchard", 1130, false, false},     {"airfield", 530, false, false},
    {"airfield_dry", 510, false, false}, {"grass_green", 690, false, false},
    {"grass_dry", 750, false, false},    {"savanna", 770, false, false},
    {"scrub", 670, false, false},        {"woods_open", 650, false, false},
    {"forest_broad", 610, false, false}, {"forest_conifer", 590, false, false},
    {"jungle", 630, false, false},       {"marsh", 710, false, false},
    {"tundra", 730, false, false},       {"desert", 870, false, false},
    {"desert_rock", 1010, false, false}, {"dunes", 1130, false, false},
    {"wash", 570, false, false},         {"salt", 1070, false, false},
    {"beach", 430, false, false},        {"rock", 1090, false, false},
    {"snow", 1030, false, false},        {"ice", 1190, false, false},
    {"mars_dust", 1110, false, true},    {"mars_plain", 910, false, true},
    {"mars_dark", 970, false, true},     {"mars_rock", 1270, false, true},
    {"mars_ice", 1150, false, true},
};

const land_class_row& land_class_of(land_class which) { return rows[which]; }

std::string land_terrain_name(land_class which) { return std::string(rows[which].name) + ".ter"; }
