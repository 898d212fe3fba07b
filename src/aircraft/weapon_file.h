// Weapon files, which stations of an aircraft name.
#pragma once
#include <string>

// Reads (IO_type 0) or writes (1) a weapon file; 1 on success.
int IO_wpn(int IO_type, int p, int en, const std::string& file, const std::string& path, int use_path);
