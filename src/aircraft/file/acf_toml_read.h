// The aircraft record as a TOML text, the form in which designers write it.
// Role: between a text and a slot's raw record, in the units of the file; nothing is derived here. A text
// names only fields that are not zero; every designer's field goes by its own name, in the section that
// acf_sections gives, or in the table of its part.
#pragma once
#include <string>

// Reads a text into slot p, emptied before. Returns 1, or 0 with every fault in error, one a line, each
// with file and line.
int acf_from_toml(const std::string& toml_path, int p, std::string* error);

// The same as a design that is to fly: what a load would cut off (texts) or refuse (acf_admit) is a fault
// too.
int acf_design_from_toml(const std::string& toml_path, int p, std::string* error);
