// Finding things in the tables of navigation.
#pragma once
#include <string>
#include "scenery/nav/nav_tables.h"

// Index of the target of this kind (nav_type) with this identifier, the nearest to a place in degrees; a
// blank at the fourth or third position ends the identifier. 1 when found, otherwise the index stays.
int get_index_from_id(std::string id_req, int type_req, int* navapt_wrl_use, float lat_des, float lon_des);

// Makes msc.apt_id_str the selected airport, with the user and the region at its first runway. An unknown one
// is logged and becomes airport 0.
void get_basic_specs_with_apt_ID();

// Names of both ends of a runway: "14L" gives "14L" and "32R"; a helipad "H1x to North" and "H1x to South".
void get_rway_strings(int apt_wrl, int rwy_wrl, std::string* end1, std::string* end2);

// The end's name as menus show it: "RWY 14L", "PAD H1 to North".
std::string rway_to_cs(const std::string& end);

// True heading of the selected runway, degrees.
float runway_heading_true();
