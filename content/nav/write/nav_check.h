// What the simulator would refuse or misread, found before anything is written.
#pragma once
#include <string>
#include <vector>

#include "nav_world.h"

// Each adds to the faults; true when there were none.
bool check_airport(const nav_airport& airport, std::vector<std::string>& faults);
bool check_aid(const nav_aid& aid, std::vector<std::string>& faults);
std::vector<std::string> check_world(const nav_world& world);
