// Readers of the present planet's navaids and fixes into tables of the caller. 1, or 0 when the file is
// missing or of another version; the table is then empty, but for the ships' aids.
#pragma once
#include "scenery/nav/nav_tables.h"

struct nav_tables {
    std::vector<vec_nav_struct> nav;
    std::multimap<int, int> hash;
};
int read_nav(nav_tables* to);
int read_fix(std::vector<vec_fix_struct>* to);

// Each clears its tables and reads the default file (IO_type 0). 1, or 0 when the file is missing or of
// another version.
int IO_nav(int IO_type);
int IO_fix(int IO_type);
int IO_awy(int IO_type);
