// Weapon files.
#pragma once
#include <string>

// IO_type 0 reads the weapon into veh[p].wpn[en], 1 writes it; 1 on success. With use_path the file is
// path itself, else file is sought in the aircraft's folder and the common one.
int IO_wpn(int IO_type, int p, int en, std::string file, std::string path, int use_path);
