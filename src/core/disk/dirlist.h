// Listing of one folder by file type.
// Role: file dialogs, traffic and scenery packages. Shared scratch of the main thread: a listing is
// read before the next one is made.
#pragma once
#include <string>

constexpr int g_fileDIM = 1000;

extern std::string g_file[g_fileDIM];  // names
extern std::string g_path[g_fileDIM];  // wrk_path + name, folders with a closing "/"
extern int g_file_type[g_fileDIM];     // file_type by the name's ending, 1 for folders, 0 unknown

// Lists wrk_path, sorted by name, and gives the number of items; of a larger folder the first thousand.
// A wrk_path without a closing separator is told and becomes app_path.
int opensave_getitems(int file_type);

// Does entry n belong into a list of this type? Sets its g_file_type, unless it is a folder.
int opensave_takeit(int n, int file_type);
