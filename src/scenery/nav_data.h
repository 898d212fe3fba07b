// Airports, navaids, fixes and airways: reading the files and finding things in the tables.
#pragma once
#include <string>

#include "scenery/nav_tables.h"

// Reads the tables of the present planet and all that hangs on them: custom airports over the default ones,
// the region of the selected airport, the sky. Without one usable airport it is fatal.
void read_planet_nav();
// Its first part: the tables alone.
void read_nav_tables();

// Each clears its tables and reads the default file (IO_type 0). 1, or 0 when the file is missing or of
// another version.
int IO_nav(int IO_type);
int IO_fix(int IO_type);
int IO_awy(int IO_type);
// 0 reads the default file, fatal when that cannot be used; 2 appends the file of a package, silent when
// there is none.
int IO_apt(int IO_type, const std::string& custom_path);

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
