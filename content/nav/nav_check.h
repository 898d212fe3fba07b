// What the simulator would refuse or misread, found before anything is written.
#pragma once
#include <string>
#include <vector>

#include "nav_world.h"

std::vector<std::string> check_world(const nav_world& world);
