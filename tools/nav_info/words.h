// Codes of the tables in words.
#pragma once
#include <string>

#include "scenery/nav/nav_tables.h"

std::string surface_words(int surf_tex);
std::string lights_words(int i_code, int end);  // of one end of a runway: "PAPI, edge lights, ..."
std::string aid_words(int type);                // "VOR", "localizer"
std::string airport_words(int apt_type);        // "land airport"
std::string beacon_words(int bcn_typ);

// "110.30" MHz from 10 kHz; an NDB's kHz as they are; nothing for a marker.
std::string frequency_text(int frq);
std::string aid_frequency_text(const vec_nav_struct& aid);  // with its unit
std::string number_text(double value, int decimals);
std::string length_text(double metres);  // "3048 m (10000 ft)"

double range_miles(const vec_nav_struct& aid);  // nautical
// Of a glide slope, degrees: its slope, and the course that shares the field.
double slope_of(const vec_nav_struct& aid);
double slope_course(const vec_nav_struct& aid);
