// Texture coordinates that OpenGL makes of places in the world.
#pragma once
#include "scenery/draw/proj_planes.h"

// pt: a proj_type; proj_none turns it off. A unit that the driver does not have is left alone. ref: the
// picture shown, which the shadow of the clouds asks for.
void set_proj_tex(int pt, int tex_unit, const ogl_proj_struct* coords, int ref = 0);
// On every unit that has one.
void end_projections();
