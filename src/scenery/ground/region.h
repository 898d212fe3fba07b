// The region round the user's aircraft: where it lies, when it moves, and the order in which it is built
// anew. Role: asked once a frame between flight and drawing, and by whoever moves the user; the local frame
// moves here and nowhere else. A call that moves it returns when all is loaded. What a region is filled with
// it does not know: that is in region_steps. Main thread only.
#pragma once

// What a move of the region is to its frame (load_region).
enum shift_code : int {
    shift_full_reload = 1,  // the new region has no relation to the old one
    shift_west = 2,         // by one degree
    shift_east = 3,
    shift_north = 4,
    shift_south = 5,
};

// Distance from the rims at which the region moves, degrees, by planet. Between them a band wider than one
// degree is left, so that a step of one degree ends inside of it.
constexpr double lon_buff[2] = {0.95, 5.225};
constexpr double lat_buff[2] = {0.475, 3.325};

// Moves the region, by one degree or wholly, when the place (degrees) lies outside the band, and keeps it as
// the user's. A diagonal flight takes two calls. A place off the globe is told of once and held on it; one
// that is not finite is told of once, and all stays as it was. Near the south pole the corner, which stays at
// 90 south, leaves the band to the north of the place. After a wholly new region nothing has moved with it:
// the caller places what it has.
void check_for_shift(double lat, double lon);
// The same for the place that the user's flight has come to: with a wholly new region, as over a pole,
// whatever flies goes along.
void follow_flight();

// Builds the region of env.planet whose corner, env.lat_sou and lon_wes, the caller has set; shift: how it
// came there. Extents, what stands in the frame, tiles, lists. Starts no flight.
void load_region(int typeshift);
// The corner of the region whose centre is nearest to a place; loads nothing.
void centre_region_on(double lat, double lon);

// What may be told of once is told of again.
void reset_region();

// What fills a region.
struct region_steps_struct {
    void (*clear)();  // lists, menus and seams of the region before; its tiles are gone
    // a tile: IO_type 0; south-west corner, whole degrees, which may lie over a pole or past the date line;
    // row and column
    void (*fill_tile)(int IO_type, int lat_file, int lat_os, int lon_file, int lon_os);
    void (*finish)();              // once all tiles are there
    void (*place)(int typeshift);  // what comes to its place by chance, on Earth
};
extern const region_steps_struct region_of_nothing;
// At first nothing does. Scenery: region_of_scenery (scenery/region/region_tiles.h); headless runs:
// region_of_survey_land.
extern region_steps_struct region_steps;
