// What each texture unit shows for a layer of the ground: a table of pictures, combiners and projections.
// Role: asked once a layer and pass by terrain_draw.cpp, which hands the answer to OpenGL. Makes no call of
// it.
#pragma once
#include "scenery/ground/tile.h"

// What the pass that draws has in common for all layers.
struct ground_view_struct {
    int is_map = 0, is_hits = 0;  // the map view; the pick render
    int map_tab = 0;              // stg.mapW_tab
    int units = 4;                // that the driver has
    int shadow_ref = 0;           // of the clouds' shadow, 0 for none
    int litemap = 0;              // 0 or 1: the landing light shows
    int water_ref = 0;            // the present picture of the sea
};

enum proj_type : int {
    proj_none = -1,
    proj_water = 0,
    proj_taxi_grid = 1,
    proj_landing_light = 2,
    proj_cloud_shadow = 3,
    proj_snow = 4,
    proj_altitude = 5,
    proj_screen = 6,
    proj_ground = 7,
};

struct unit_struct {
    int ref, mode;   // a texture, a combiner_mode
    int projection;  // proj_type
};

constexpr int most_ground_units = 4;
struct layer_units_struct {
    unit_struct unit[most_ground_units];
    int count = 0;
    bool is_water = false, is_untex_map = false;
    bool left_out = false;  // light, shadow or night did not fit
};

// The layer's use_night_lite is that of the moment.
layer_units_struct find_layer_units(const xlay_struct& layer, const ground_view_struct& view);

// A map that shows its own colours instead of the ground's pictures.
bool is_untextured_map(const ground_view_struct& view);
