// Comma-separated text with quotes, as spreadsheets and databases write it.
#pragma once
#include <string>
#include <string_view>
#include <vector>

using csv_row = std::vector<std::string>;

// All rows. A field in quotes may hold commas, line ends and doubled quotes; a byte-order mark and carriage
// returns before line ends are dropped; lines without any text are left out.
std::vector<csv_row> csv_rows(std::string_view text);

// A table whose first row names the columns.
struct csv_table {
    std::string path;
    csv_row columns;
    std::vector<csv_row> rows;
    // A field by its column's number; a short row has empty ones.
    const std::string& field(const csv_row& row, int column) const;
    int column(std::string_view name) const;  // -1 if there is none
};

// Reads a file that must have these columns; numbers receives theirs. False and the fault otherwise.
bool csv_read(const std::string& path, const std::vector<const char*>& needed, csv_table& table,
              std::vector<int>& numbers, std::string& fault);

// A number of any sign and length that fills its field but for blanks; missing where it does not.
double csv_number(const std::string& field, double missing);
