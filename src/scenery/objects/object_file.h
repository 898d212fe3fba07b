// From an object's file to its commands. No OpenGL; nothing here touches the models that are loaded.
#pragma once
#include <string>

#include "scenery/objects/objects.h"

enum object_read : int {
    object_absent,  // cannot be opened, or is no object of this version: silent
    object_broken,  // its text broke off, which was told
    object_good,
};

// Reads commands of all levels; mod->path names it in messages. texture: the name without an ending.
object_read read_object_file(const std::string& full_path, vec_mod_struct* mod, std::string* texture);

// Middle and radius from the vertices of level 0, and the range of an object that gives none, by its size on
// the present screen.
void find_object_bounds(vec_mod_struct* mod);
// Tells codes that belong nowhere and colours out of range; changes nothing.
void check_object(const vec_mod_struct& mod);
// Fills the normal commands of all levels.
void find_object_normals(vec_mod_struct* mod);
// Leaves only what is run at each drawing.
void keep_object_actions(vec_lod_struct* lod);

bool is_display_command(int code);
bool is_action_command(int code);
