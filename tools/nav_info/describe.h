// What the tables know, as text on the standard output.
#pragma once
#include <string>

#include "scenery/nav/nav_tables.h"

void describe_airport(int apt_index);
void describe_aid(const vec_nav_struct& aid);
void describe_fix(const vec_fix_struct& fix);
// All its chains; false when no airway has this name.
bool describe_airway(const std::string& ident);
