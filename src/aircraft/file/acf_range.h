// The border of the aircraft file: what no design may hold, however it is meant.
// Role: runs once behind every read; behind it, counts and indexes of the record can be trusted.
#pragma once
#include <string>

// Ends the texts of slot p inside their fields, clears derived numbers that are not finite, and tests
// the designer's fields. Gives the first field out of range with its value, or an empty text; where field
// is not null also the address of that field in the record.
std::string acf_admit(int p, const void** field = nullptr);
