// Navaids: the first byte tells a whole file from rows behind a good header.
#include <string.h>

#include <cmath>

#include "nav_tables_file.h"
#include "scenery/nav/nav_files.h"
#include "scenery/nav/nav_lookup.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using fuzzing::must;
    fuzzing::start();
    static const fuzzing::nav_tables_file file("nav.dat", "740");
    env.planet = size > 0 && (data[0] & 2);
    file.write(data, size);
    IO_nav(0);
    must(vec_nav.size() == nav_hash.size() && vec_nav.size() >= (env.planet ? 0u : 6u));
    for (const vec_nav_struct& nav : vec_nav) {
        must(fuzzing::ends_within(nav.nav_id, sizeof nav.nav_id) &&
             fuzzing::ends_within(nav.nav_name, sizeof nav.nav_name));
        must(std::isfinite(nav.lat) && std::isfinite(nav.sqr_range_deg) && std::isfinite(nav.psi_true));
    }
    for (const auto& [frq, index] : nav_hash) must(vec_nav.at(static_cast<size_t>(index)).frq == frq);
    int index = -1;
    for (const int type : {2, 3, 4, 13})
        if (get_index_from_id(vec_nav.empty() ? "" : vec_nav.back().nav_id, type, &index, 0.0f, 0.0f) &&
            type != 13)
            must(vec_nav.at(static_cast<size_t>(index)).type == type);
    return 0;
}
