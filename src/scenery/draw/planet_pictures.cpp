// Pictures of the planet as the orbital view shows it.
#include "scenery/draw/planet_pictures.h"

#include <string>

#include "core/disk/paths.h"
#include "core/program/seams.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"

void load_planet_pictures(int planet) {
    if (!seam.has_display) return;
    const std::string name = bmp_path + (planet ? "mars" : "earth");
    OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
    tman.load_texture(1, load_ogl, tex_planet, filter_rgb_mip, name + "1.png");
    tman.load_texture(1, load_ogl, tex_planet_last, filter_rgb_mip, name + "2.png");
}
