// What this machine's OpenGL can do: found once when the window is made, read by whoever draws. Naming
// them needs no OpenGL.
#pragma once
#include <string>

inline int tex_clamp_avail = 0;  // textures may end at their edge texels
inline int add_env_avail = 0;    // a unit can add
inline int dis_fog_avail = 0;    // fog by distance instead of depth
inline int tex_comp_avail = 0;   // compressed textures; none are used
inline int combine_avail = 0;    // the combiner modes of bind_ref
inline std::string gl_renderer;   // the driver's name of itself
inline int maxtexdim = 0;        // pixels; 0 before the facts are read

// From the current context, also ren.num_tex_units and ren.max_iso; logs all of it.
void read_gl_facts();

// The part that the version and the whole list of extensions decide.
void gl_facts_from(const std::string& version, const std::string& extensions);
