// What reading scenery asks of drawing, while nobody draws.
#include "scenery/seam/scenery_draw.h"

#include "draw/images/tex_refs.h"

scenery_draw_struct scenery_draw = {
    [](const std::string&, int) -> int { return tex_blank; },
    [](int) {},
    [](int) { return 0; },
    [](const xlay_struct*, scene_patch_struct*) {},
    [](scene_patch_struct*) {},
    [](int) {},
    [](int) {},
};
