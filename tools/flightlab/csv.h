// Tables of numbers for spreadsheets and gnuplot.
#pragma once
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "options.h"

struct file_closer {
    void operator()(FILE* f) const { fclose(f); }
};
using file_ptr = std::unique_ptr<FILE, file_closer>;

// Opened for writing; throws flight_fault when that fails.
file_ptr open_output(const std::string& path);

// Comma-separated, one line; the header likewise.
void csv_header(FILE* to, const std::vector<const char*>& names);
void csv_row(FILE* to, const std::vector<double>& values);
