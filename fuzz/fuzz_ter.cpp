// Terrain definitions: the first byte tells a whole file from lines behind a good header.

#include "scenery/tile/terrain_file.h"
#include "support.h"

void fuzz_ter(fuzzing::input& in) {
    using fuzzing::must;
    static const fuzzing::scenery_folder folder;
    if (in.size() > 4000) return;
    const bool lines_alone = in.byte() & 1;
    const std::string path = folder.write("a.ter", (lines_alone ? "A\n800\nTERRAIN\n" : "") + in.text());
    terrain_info_struct info;
    must(io_read_terrain(path, info) || !lines_alone);
    for (const int ref : {info.plane_tex_ref, info.compo_tex_ref, info.night_tex_ref, info.plane_bor_ref})
        must(ref >= 0);
    if (!info.projected) return;
    for (const float repeat : {info.projection.x_tex_size_m, info.projection.y_tex_size_m})
        must(std::isfinite(1.0f / repeat) && repeat >= 1.0f);
}
