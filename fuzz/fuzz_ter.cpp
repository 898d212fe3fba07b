// Terrain definitions: the first byte tells a whole file from lines behind a good header.
#include <cmath>

#include "memory_file.h"
#include "scenery/tile/terrain_file.h"
#include "scenery_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using fuzzing::must;
    static const fuzzing::scenery_folder folder;
    static const fuzzing::memory_file file("ter");
    if (size < 1 || size > 4000) return 0;
    std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
    const bool lines_alone = data[0] & 1;
    if (lines_alone) text = "A\n800\nTERRAIN\n" + text;
    file.write(text.data(), text.size());
    terrain_info_struct info;
    try {
        const bool good = io_read_terrain(file.path(), info);
        must(good || !lines_alone);
    } catch (const fuzzing::fatal&) {
        must(false);
    }
    for (const int ref : {info.plane_tex_ref, info.compo_tex_ref, info.night_tex_ref, info.plane_bor_ref})
        must(ref >= 0);
    if (!info.projected) return 0;
    for (const float repeat : {info.projection.x_tex_size_m, info.projection.y_tex_size_m})
        must(std::isfinite(1.0f / repeat) && repeat >= 1.0f);
    return 0;
}
