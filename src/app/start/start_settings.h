// Every switch, lever, engine, light and radio of the user's aircraft, set to fit the place of a start.
// Role: behind the placing, which says whether the aircraft stands and what runs; knows no place.
#pragma once
#include "app/start/start_state.h"

void set_for_flight(const start_state& s);
