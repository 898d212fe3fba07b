// Terrain definitions (.ter): the textures of a kind of ground.
#pragma once
#include <string>

#include "scenery/ground/tile.h"

struct terrain_info_struct {
    int plane_tex_ref = 0, compo_tex_ref = 0, night_tex_ref = 0, plane_bor_ref = 0;
    int projected = 0, zap_alpha = 0;
    ogl_proj_struct projection;
};
// False when the header is wrong. A missing image is told and leaves its reference 0.
bool io_read_terrain(const std::string& inPath, terrain_info_struct& terrain);
