// The drawing of scenery as its readers call it.
#include "scenery/draw/scenery_gl.h"

#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "platform/window_x11.h"
#include "scenery/draw/object_lists.h"
#include "scenery/draw/planet_pictures.h"
#include "scenery/draw/terrain_list.h"

const scenery_draw_struct scenery_draw_gl = {
    [](const std::string& path, int filter) {
        // pictures go up in a textured state only
        if (cx) OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
        return tman.load_texture(0, load_ogl, tex_free, filter, path);
    },
    [](int ref) { tman.unload_texture(ref); },
    [](int ref) { return tman.has_alpha(ref); },
    compile_patch_list,
    destroy_patch_list,
    compile_object_lists,
    load_planet_pictures,
};
