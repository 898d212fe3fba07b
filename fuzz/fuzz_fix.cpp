// Fixes: the first byte tells a whole file from rows behind a good header.
#include <string.h>

#include <cmath>

#include "nav_tables_file.h"
#include "scenery/nav/nav_files.h"
#include "scenery/nav/nav_lookup.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using fuzzing::must;
    fuzzing::start();
    static const fuzzing::nav_tables_file file("fix.dat", "600");
    file.write(data, size);
    IO_fix(0);
    must(vec_fix.size() <= size);
    for (const vec_fix_struct& fix : vec_fix) {
        must(fuzzing::ends_within(fix.fix_name, sizeof fix.fix_name));
        must(std::isfinite(fix.lat) && std::isfinite(fix.lon));
    }
    int index = -1;
    if (!vec_fix.empty() && get_index_from_id(vec_fix[0].fix_name, targ_fix, &index, 0.0f, 0.0f))
        must(index >= 0 && static_cast<size_t>(index) < vec_fix.size());
    return 0;
}
