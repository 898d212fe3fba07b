// Weapon files.
#pragma once
#include <string>

// Reads (IO_type 0) the weapon into veh[p].wpn[en], or writes it (1); 1 on success. With use_path the file
// is path itself, else file is sought in the aircraft's folder and the common one.
int IO_wpn(int IO_type, int p, int en, const std::string& file, const std::string& path, int use_path);
