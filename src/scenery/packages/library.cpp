// Scenery packages and resource look-up.
#include "scenery/packages/library.h"

#include <sys/stat.h>
#include <unistd.h>

#include "core/disk/dirlist.h"
#include "core/disk/files.h"
#include "core/disk/paths.h"
#include "core/disk/txtscan.h"
#include "core/program/alert.h"
#include "core/program/logs.h"

std::vector<std::string> scenery_packages;
std::map<std::string, std::vector<std::string>> dsf_library;

// -- tables

namespace {
void add_packages(const std::string& folder) {
    wrk_path = folder;
    const int count = opensave_getitems(ftype_folder);
    scenery_packages.insert(scenery_packages.end(), g_path, g_path + count);
}

bool leaves_its_package(const std::string& path) {
    for (size_t from = 0; from <= path.size();) {
        size_t to = from;
        while (to < path.size() && !is_a_dir_char(path[to])) ++to;
        if (path.compare(from, to - from, "..") == 0) return true;
        from = to + 1;
    }
    return false;
}

// What is missing stays, so that the search for it is told with its name.
bool is_folder(const std::string& path) {
    struct stat known;
    return stat(path.c_str(), &known) == 0 && !S_ISREG(known.st_mode);
}

void export_file(const std::string& package, const std::string& name, const std::string& real) {
    if (name.empty() || real.empty()) return;
    const std::string path = set_dir_chars(package + real);
    if (leaves_its_package(real) || is_folder(path))
        xer << "library.txt of " << package << " exports what is no file of its package: " << real << '\n';
    else
        dsf_library[name].push_back(path);
}

void read_library(const std::string& package) {
    static const int versions[] = {800, 0};
    map_bytes at = nullptr;
    const XMappedFile file(set_dir_chars(package + "library.txt").c_str(), &at);
    if (!file.ok()) return;
    int c = 0, c_max = 0;
    if (!MAP_check_file_text_typed(&file, at, &c, &c_max, versions, "LIBRARY", nullptr))
        MACIBM_data_fault("Incorrect version for scenery library file.", "library.txt", package, "");
    while (TXT_MAP_continue(at, &c, c_max)) {
        std::string name, real;
        if (!TXT_MAP_str_match_space(at, &c, c_max, "EXPORT", 0)) {
            TXT_MAP_str_scan_eoln(at, &c, c_max, nullptr);
            continue;
        }
        TXT_MAP_str_scan_space(at, &c, c_max, &name);
        TXT_MAP_str_scan_eoln(at, &c, c_max, &real);
        export_file(package, name, real);
    }
}
}  // namespace

void DSF_ScanSceneryFolder() {
    scenery_packages.clear();
    dsf_library.clear();
    add_packages(cus_path);
    add_packages(def_path);
    for (const std::string& package : scenery_packages) read_library(package);
}

// -- look-up

bool DSF_LookupLibraryResource(std::string& ioPath) {
    const auto found = dsf_library.find(ioPath);
    if (found == dsf_library.end() || found->second.empty()) return false;
    ioPath = found->second.front();
    return true;
}

namespace {
using path_list = std::vector<std::string>;

// How a name may be spelt in a folder. An image is sought by its stem with both endings.
path_list spellings(int type, const std::string& name, const char* first, const char* second) {
    constexpr size_t ending = 4;
    if (type != resource_image || name.size() <= ending) return {name};
    const std::string stem = name.substr(0, name.size() - ending);
    return {stem + first, stem + second};
}

// Folders of a package in which a resource of the kind may lie.
path_list custom_folders(int type) {
    switch (type) {
        case resource_image:
            return {"custom terrain textures:", "custom object textures:"};
        case resource_terrain:
            return {"custom terrain textures:"};
        default:
            return {"custom objects:"};
    }
}

path_list shared_folders(int type) {
    if (type == resource_image || type == resource_terrain)
        return {bmp_path + "terrain:", bmp_path, app_path + "Resources:"};
    return {bmp_path, app_path + "Resources:"};
}

// Where a resource is sought, in this order: the given folder, the package's own folders, the shared ones.
path_list candidates(int type, const std::string& name, const std::string& folder,
                     const std::string& package) {
    const path_list names = spellings(type, name, ".png", ".bmp");
    path_list all;
    const auto add_folder = [&](const std::string& in) {
        for (const std::string& spelt : names) all.push_back(in + spelt);
    };
    add_folder(folder);
    for (const std::string& own : custom_folders(type)) add_folder(package + own);
    for (const std::string& shared : shared_folders(type)) add_folder(shared);
    return all;
}

// The first that can be read; empty when there is none.
std::string first_readable(const path_list& paths) {
    for (const std::string& path : paths) {
        std::string real = set_dir_chars(path);
        if (access(real.c_str(), R_OK) == 0 && !is_folder(real)) return real;
    }
    return "";
}

void log_failed(const std::string& name, const path_list& paths, const std::string& remark) {
    for (const std::string& path : paths)
        xer << "Failed to find resource '" << name << "' at '" << path << remark << '\n';
}
}  // namespace

void DSF_LocateResourcePrimary(int inType, const std::string& inPartialPath, const std::string& inPackage,
                               bool inDebug, std::string& outPath) {
    outPath = inPartialPath;
    if (DSF_LookupLibraryResource(outPath)) {
        outPath = set_dir_chars(outPath);
        return;
    }
    const path_list paths = candidates(inType, inPartialPath, inPackage, inPackage);
    outPath = first_readable(paths);
    if (outPath.empty() && inDebug) log_failed(inPartialPath, paths, "");
}

void DSF_LocateResourceSecondary(int inType, int, const std::string& inParentDir,
                                 const std::string& inPartialPath, bool inDebug, std::string& outPath) {
    const path_list paths = candidates(inType, inPartialPath, inParentDir, extract_package(inParentDir));
    outPath = first_readable(paths);
    if (outPath.empty() && inDebug) log_failed(inPartialPath, paths, "' (parent = '" + inParentDir);
}

std::string extract_package(const std::string& inParentDir) {
    for (const std::string& root : {cus_path, def_path}) {
        if (inParentDir.size() < root.size()) continue;
        bool under = true;
        for (size_t i = 0; i < root.size() && under; ++i)
            under = inParentDir[i] == root[i] || (is_a_dir_char(inParentDir[i]) && is_a_dir_char(root[i]));
        if (!under) continue;
        for (size_t i = root.size(); i < inParentDir.size(); ++i)
            if (is_a_dir_char(inParentDir[i])) return inParentDir.substr(0, i + 1);
    }
    return "";
}
