// The aircraft file: header, scalar block, seven arrays, all as they lie in the record.
// Role: reads a file into a slot before the model is derived, and writes one for the aircraft compiler.
#pragma once
#include <array>

#include "core/craft/veh.h"

// One stretch of the file in a slot's record.
struct acf_array_struct {
    const char* name;
    unsigned char* first;  // in veh[p]
    int count, size;       // elements, bytes of one
    veh_field_list fields;
};
// Block and arrays of slot p, in the order of the file.
std::array<acf_array_struct, 8> acf_arrays(int p);

constexpr int acf_version = 8000;
constexpr long acf_file_size = 1409905;

// Only the bytes: the file named by veh[p].path into the record, texts restored. Nothing is derived,
// checked or kept; name and path become empty.
int acf_read_record(int p);

// Writes the record to the file named by veh[p].path, beside it first and then renamed. 1 when that worked.
int acf_write_record(int p);

// Restores the texts of a slot after a reversed read, which turns every four bytes round.
void re_rev(int p);
