// Writes a world as the four tables that the simulator reads.
#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "nav_world.h"

struct table_texts {
    std::string apt, nav, fix, awy;
};

// Puts the aids in the order of the file: by type, then name.
void sort_aids(nav_world& world);
// The texts of the tables. The origin follows the version number in each second line.
table_texts nav_tables_text(const nav_world& world, const std::string& origin);

// Tables whose origin begins with this are the build's own and are replaced without a backup.
constexpr const char* built_origin = "Tarvane's own world.";
// Puts all four into a folder, which is made. Every text is complete on disk before the first old table is
// touched. An old table that is not the build's own is kept beside the new one as NAME.old1, .old2 and so on,
// never over another; backups receives their paths. False and the fault otherwise.
bool write_nav_tables(const table_texts& tables, const std::filesystem::path& folder,
                      std::vector<std::string>* backups, std::string* fault);
