// The load of a planet: its tables and all that hangs on them.
#pragma once

// Reads the tables of the present planet and all that hangs on them: custom airports over the default ones,
// the region of the selected airport, the sky. Without one usable airport it is fatal.
void read_planet_nav();

// Its first part: the tables alone.
void read_nav_tables();
