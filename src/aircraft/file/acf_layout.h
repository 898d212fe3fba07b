// How the aircraft record is laid out for people: sections of fields, names of parts and of kinds, and
// which surfaces a designer need not describe because they are copies.
// Role: shared by reader and writer of the text form.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "core/craft/veh.h"

// Fields that a text describes: the designer's, and the two that a load takes over from the file:
// spec_wash, and is_left of the further surfaces.
bool acf_is_designers(const veh_field_struct& row);

// A run of block fields under one heading, both ends included. Rows of one section are neighbours.
struct acf_section_struct {
    const char* section;
    const char* first;
    const char* last;
};
const std::vector<acf_section_struct>& acf_sections();
// Heading of the block field of that name; null where no section shows it. By a hash: a text may hold
// thousands of keys that no section knows.
const char* acf_section_of(std::string_view field);

// Name of part en ("wing1_right", "fuselage"), and back; the number itself is a name too. -1 for none.
std::string acf_part_name(int en);
int acf_part_index(const std::string& name);

// The part in the user's language; where no texts are loaded its name above.
std::string part_title(int en);

// Name of a kind that the field stores as a number ("jet_high_bypass"), null when it has none.
const char* acf_kind_name(const char* field, int value);
// The number of a named kind, -1 when the field knows no such kind.
int acf_kind_value(const char* field, const std::string& name);
std::string acf_kind_names(const char* field);  // all of them, for messages; empty when there are none

// What surface en of slot p is unless it is described: the left one of a pair is the mirror of the
// right, a further pylon the copy of the first, all others empty. Gives 0 for an empty one.
int acf_copied_surface(int p, int en, veh_wing_struct& wing, veh_part_struct& part);
