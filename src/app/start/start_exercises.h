// Where the exercises begin: at ships, a fire, another aircraft, on the way back from space.
// Role: as start_places: each puts flt[0] there, or gives false when it has told why it could not.
#pragma once
#include "app/start/start_state.h"

bool place_on_catapult(start_state& s);
// Final approach to the ship of the start's code.
bool place_behind_ship(start_state& s);
// At the aircraft of slot 1: in formation, behind a tanker, carried.
bool place_at_leader(start_state& s);
bool place_near_fire(start_state& s);
bool place_on_shuttle_return(start_state& s);
