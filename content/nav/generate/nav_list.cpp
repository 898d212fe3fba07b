// The list of the world's large and medium airports.
#include "nav_list.h"

#include <zlib.h>

#include "csv.h"

bool read_list(const std::string& path, std::vector<listed_airport>& list, std::string& fault) {
    enum column : size_t { c_id, c_size, c_served, c_lat, c_lon, c_ele, c_country, c_name, c_DIM };
    const gzFile in = gzopen(path.c_str(), "rb");
    std::string text;
    char block[65536];
    int got = -1;
    while (in && (got = gzread(in, block, sizeof block)) > 0) text.append(block, static_cast<size_t>(got));
    if (in) gzclose(in);
    if (got < 0) {
        fault = "cannot read " + path;
        return false;
    }
    for (const csv_row& row : csv_rows(text)) {
        if (row.size() != c_DIM) {
            fault = path + ": a row of " + std::to_string(row.size()) + " fields: " + row[0];
            return false;
        }
        list.push_back({row[c_id],
                        row[c_country],
                        row[c_name],
                        row[c_size] == "2" ? 2 : 1,
                        row[c_served] == "1",
                        {csv_number(row[c_lat], 0), csv_number(row[c_lon], 0)},
                        csv_number(row[c_ele], 0)});
    }
    return true;
}
