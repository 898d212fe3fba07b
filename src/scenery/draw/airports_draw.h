// Pavement of airports: shoulders, taxiways and runways, painted by rules of their surfaces.
// Role: part of the terrain's pass, between the layers below airports and those above; main thread. An
// airport has a display list for each kind of its pavement, built on first use.
#pragma once

struct vec_rwy_geo_struct;
struct vec_rwy_pol_struct;

// is_map: the map view, without fog. is_hits: the pick render, which shows runways alone.
void plot_airports(int is_map, int is_hits);
void reset_airports_draw();
// Buoys, snow, signs, beacons, windsocks and lamps of the airports in view.
void plot_airport_lights();

// Kinds of an airport's lists, in the order in which they lie over each other.
enum pavement_list : int {
    pavement_shoulder = 0,
    pavement_taxiway = 1,
    pavement_natural = 2,  // runways that blend into the ground
    pavement_runway = 3,
    pavement_lists,
};
// Whether a strip belongs into a list of this kind.
bool has_DL(int DL_type, const vec_rwy_geo_struct& strip);
// Grass and dirt kinds blend into the terrain.
bool has_alpha(const vec_rwy_geo_struct& strip);

// Texture coordinates of a strip's rows. Pictures grow from the row nearer the end from which they are read:
// along the second half s is swapped and t runs back. Skid marks lie on a picture of their own, whose t is
// how worn the pavement is.
struct strip_coords_struct {
    float s[2];     // left and right edge
    float t;
    float skid_t;   // 0 none
    int skid_on;    // 0 or 1: of what begins here
    bool restarts;  // another picture begins here: the strip ends in the old one first
    float old_s[2]; // the same of the picture that ends
    int old_skid_on;
};
// The coordinates of all rows.
void find_strip_coords(const vec_rwy_geo_struct& strip, strip_coords_struct* out);
