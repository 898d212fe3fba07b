// The pictures that the code knows by a fixed reference, and their files.
// Role: loaded once while the renderer is set up, with a texture unit switched on.
#pragma once
#include <string>
#include <vector>

struct fixed_texture {
    int ref;
    int filter;                      // tex_filter
    std::vector<std::string> paths;  // below the bitmaps, with colons; of several one is drawn by lot
};

// All of them in the order of their references.
std::vector<fixed_texture> list_fixed_textures();

// Loads all of them. One that is missing is told, and plain: white, and clear where it would have alpha.
// Nothing without a window.
void load_fixed_textures();
