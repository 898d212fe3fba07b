// Where a flight begins on the map: an airport, a place of the user's choice, the nearest strip, water.
// Role: each moves the region to its place and puts flt[0] there; what is read of the ground comes of that
// region. A function that gives false could not be carried out and has told why; the start becomes one on the
// runway.
#pragma once
#include "app/start/start_state.h"

struct vec_apt_struct;
struct vec_rwy_struct;

// The selection names an airport, and a ramp or runway of it, that exist, as far as there are any.
void hold_selection(const start_state& s);

// The airport selected, at its ramp, on its runway or on final. Where there is none it is a runway without
// length to the north, in the middle of the region.
bool place_at_airport(start_state& s);

// stg.cus_lat, cus_lon, cus_alt, cus_psi, cus_v.
bool place_at_custom(start_state& s);

// Selects the nearest runway with a surface of the start's code.
bool select_nearest_strip(int code);

// On the water near a coast.
bool place_on_water(start_state& s);

// -- for the exercises

// The region of a place, and its land: how high the last flight was does not decide what is loaded. agl: the
// start's height above ground, m.
void bring_region_to(double lat, double lon, float agl);

// Puts the aircraft at x, z and an elevation, m.
void put_at_elevation(float x, float ele, float z);

// m above the sphere of a world position.
float elevation_of(float x, float y, float z);

// Heading of a runway in the local frame, degrees.
float runway_heading(const vec_rwy_struct& rwy, bool backwards);
