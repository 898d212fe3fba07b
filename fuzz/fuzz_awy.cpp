// Airways: the first byte tells a whole file from rows behind a good header.
#include <string.h>

#include <cmath>

#include "nav_tables_file.h"
#include "scenery/nav/nav_files.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using fuzzing::must;
    fuzzing::start();
    static const fuzzing::nav_tables_file file("awy.dat", "640");
    file.write(data, size);
    IO_awy(0);
    must(vec_loa.size() + vec_hia.size() <= size);
    for (const std::vector<vec_awy_struct>* airways : {&vec_loa, &vec_hia})
        for (const vec_awy_struct& awy : *airways)
            for (int end = 0; end < 2; ++end)
                must(std::isfinite(awy.lat[end]) && std::isfinite(awy.lon[end]));
    return 0;
}
