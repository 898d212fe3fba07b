// Scenery packages.
#include "scenery/packages.h"

#include "core/dirlist.h"
#include "core/files.h"
#include "core/paths.h"

std::vector<std::string> scenery_packages;

void find_scenery_packages() {
    scenery_packages.clear();
    for (const std::string& folder : {cus_path, def_path}) {
        wrk_path = folder;
        const int count = opensave_getitems(ftype_folder);
        scenery_packages.insert(scenery_packages.end(), g_path, g_path + count);
    }
}
