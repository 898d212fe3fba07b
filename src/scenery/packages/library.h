// Scenery packages and the search for what tiles and their files name.
// Role: the tables are built once while the renderer is set up; the look-ups only read them.
#pragma once
#include <map>
#include <string>
#include <vector>

// Folders with a closing separator: all custom packages in the order of their names, then all default ones. A
// search takes the first that has what it wants.
extern std::vector<std::string> scenery_packages;
// Virtual path to the files exported under it, those of earlier packages first.
extern std::map<std::string, std::vector<std::string>> dsf_library;

// Rebuilds both.
void DSF_ScanSceneryFolder();

enum resource_type : int {
    resource_image = 1,
    resource_terrain = 2,
    resource_object = 3,
    resource_network = 4,
    resource_facade = 5,
    resource_forest = 6,
};

// Replaces a virtual path by the first file exported under it; false when there is none.
bool DSF_LookupLibraryResource(std::string& ioPath);

// What a tile of a package names: a library path, or a file of the package or of the shared folders. outPath
// is empty when there is none; inDebug logs where it was sought.
void DSF_LocateResourcePrimary(int inType, const std::string& inPartialPath, const std::string& inPackage,
                               bool inDebug, std::string& outPath);
// What another resource names, in the folder of the file that names it, in its package or the shared folders;
// never in the library. The parent's type is taken for the sake of the callers' reading.
void DSF_LocateResourceSecondary(int inType, int inParentType, const std::string& inParentDir,
                                 const std::string& inPartialPath, bool inDebug, std::string& outPath);

// The package that a path lies in, up to and with its separator; empty outside all packages.
std::string extract_package(const std::string& inParentDir);
