// The land classes: what the ground of made tiles can be, each a terrain definition with its picture.
// Role: the one table from which definitions and pictures are made (land_make) and tiles are written; names
// no place.
#pragma once
#include <string>
#include <vector>

// In the order of covering: where two classes meet, the later one lies over the earlier with a soft border.
// Classes with a night picture come first, since a definition with a border mask draws no night picture.
enum land_class : int {
    // settled
    land_city,        // dense blocks, car parks, wide streets
    land_industry,    // halls, yards, rail sidings
    land_suburb,      // houses in gardens along winding and straight streets
    land_suburb_dry,  // the same in dry country: pale roofs, bare yards, palms, pools
    land_village,     // scattered houses among fields and trees
    // farmed
    land_farm_green,   // fields of temperate country, hedges, few woods
    land_farm_square,  // square sections of great plains
    land_farm_dry,     // irrigated sections and circles in dry country
    land_orchard,      // rows of trees
    // grown
    land_airfield,      // mown grass
    land_airfield_dry,  // bare, graded earth
    land_grass_green,
    land_grass_dry,   // golden hills
    land_savanna,     // grass with single trees
    land_scrub,       // chaparral of dry hills
    land_woods_open,  // oaks or pines with grass between
    land_forest_broad,
    land_forest_conifer,
    land_jungle,
    land_marsh,
    land_tundra,
    // bare
    land_desert,       // plain with scattered bushes
    land_desert_rock,  // bare hills, gullies
    land_dunes,
    land_wash,  // pale gravel of dry river beds
    land_salt,  // dry salt lake
    land_beach,
    land_rock,  // of high mountains
    land_snow,
    land_ice,
    // of Mars
    land_mars_dust,
    land_mars_plain,  // stones on dust
    land_mars_dark,   // dark sand
    land_mars_rock,   // layered cliffs
    land_mars_ice,
    land_classes_DIM
};

struct land_class_row {
    const char* name;   // of NAME.ter and NAME.png, with NAME_LIT.png where there is a night
    int repeat_metres;  // of the picture, each way
    bool has_night;
    bool is_mars;
};
const land_class_row& land_class_of(land_class which);

// "suburb.ter"
std::string land_terrain_name(land_class which);
