// Output files of the lab.
#include "csv.h"

#include <errno.h>
#include <string.h>

file_ptr open_output(const std::string& path) {
    FILE* f = fopen(path.c_str(), "w");
    if (!f) throw flight_fault(path + ": " + strerror(errno));
    return file_ptr(f);
}

void csv_header(FILE* to, const std::vector<const char*>& names) {
    for (size_t i = 0; i < names.size(); ++i) fprintf(to, "%s%s", i ? "," : "", names[i]);
    fputc('\n', to);
}

void csv_row(FILE* to, const std::vector<double>& values) {
    for (size_t i = 0; i < values.size(); ++i) fprintf(to, "%s%.9g", i ? "," : "", values[i]);
    fputc('\n', to);
}
