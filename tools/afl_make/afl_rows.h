// Measured rows beyond the stall of a foil's source: lift, drag and moment at angles of attack.
// Role: replaces what the generator makes of the angles outside almin to almax. Knows no files of flight.
#pragma once
#include <toml++/toml.h>

#include <string>
#include <vector>

#include "core/craft/afl.h"

// Angles in degrees; coefficients of the section, moment about the quarter chord, nose up.
struct row_struct {
    float alpha, cl, cd, cm;
};

// The rows of "rows", with those of the shared table "beyond_stall" outside of them, sorted; none without
// these keys. path: of the source, the tables stand in the folder "beyond_stall" beside it.
std::vector<row_struct> read_rows(const toml::table& source, const std::string& path,
                                  std::vector<std::string>& faults);

// That they lie beyond the stalls of a generated foil, reach round the circle and join without a jump.
void check_rows(const std::vector<row_struct>& rows, const afl_struct& foil,
                std::vector<std::string>& faults);

// Straight lines from the stalls over the rows, in place of the generated entries outside almin to almax.
void apply_rows(const std::vector<row_struct>& rows, afl_struct& foil);

extern const char* const rows_help;
