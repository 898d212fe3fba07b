// Readers of the present planet's navaids and fixes into tables of the caller. 1, or 0 when the file is
// missing or of another version; the table is then empty, but for the ships' aids.
#pragma once
#include "scenery/nav_tables.h"

struct nav_tables {
    std::vector<vec_nav_struct> nav;
    std::multimap<int, int> hash;
};
int read_nav(nav_tables* to);
int read_fix(std::vector<vec_fix_struct>* to);
