// The named paths, and their way into a form that the file system can open.
#include "core/disk/paths.h"

#include <dirent.h>
#include <strings.h>
#include <unistd.h>

#include <algorithm>

std::string app_path, wrk_path;
std::string gen_path, res_path, afl_path, wpn_path, acf_path, sit_path, mov_path, log_path, fms_path;
std::string gam_path, tra_path, car_path, spa_path, reg_path, wav_path, bmp_path, pla_path, cus_path;
std::string def_path, ear_path, mar_path, men_path, txt_path, key_path, obj_path;

namespace {
struct named_path {
    std::string& path;
    const char* text;  // behind app_path
};
const named_path named_paths[] = {
    {gen_path, "Resources:Preferences:Orvelle 8 Tarvane.prf"},
    {res_path, "Resources:Preferences:Orvelle 8 Resolution.prf"},
    {afl_path, "Airfoils:"},
    {wpn_path, "Weapons:"},
    {acf_path, "Aircraft:"},
    {sit_path, "Output:situations:"},
    {mov_path, "Output:movies:"},
    {log_path, "Output:logbooks:"},
    {fms_path, "Output:FMS plans:"},
    {gam_path, "Harrow Mod Resources:saved games:"},
    {tra_path, "Rallix Output:tracks:"},
    {car_path, "Rallix Output:cars:"},
    {spa_path, "Starlance Resources:spaceships:"},
    {reg_path, "Starlance Resources:regions:"},
    {wav_path, "Resources:sounds:"},
    {bmp_path, "Resources:bitmaps:"},
    {pla_path, "Harrow Mod Resources:planets:"},
    {cus_path, "Custom Scenery:"},
    {def_path, "Resources:default scenery:"},
    {ear_path, "Resources:Earth nav data:"},
    {mar_path, "Resources:Mars nav data:"},
    {men_path, "Resources:menus:"},
    {txt_path, "Resources:text:"},
    {key_path, "Instructions:keys:"},
    {obj_path, "Resources:objects:"},
};

// Gives the last component the letter case of the disk: content comes from systems that fold case.
void match_case(std::string& path) {
    if (access(path.c_str(), F_OK) == 0) return;
    const size_t start = path.rfind('/') + 1;  // 0 when there is no folder
    if (start == path.size()) return;
    const std::string folder = start == 0 ? "." : path.substr(0, start);
    DIR* dir = opendir(folder.c_str());
    if (!dir) return;
    while (const dirent* entry = readdir(dir)) {
        if (strcasecmp(entry->d_name, path.c_str() + start) == 0) {
            path.replace(start, std::string::npos, entry->d_name);
            break;
        }
    }
    closedir(dir);
}
}  // namespace

void init_paths(const std::string& app_folder) {
    app_path = app_folder;
    if (app_path.empty() || !is_a_dir_char(app_path.back())) app_path += '/';
    wrk_path = app_path;
    for (const named_path& row : named_paths) row.path = app_path + row.text;
}

std::string executable_folder() {
    char target[4096];
    const ssize_t length = readlink("/proc/self/exe", target, sizeof target);
    if (length <= 0) return "./";
    const std::string path(target, static_cast<size_t>(length));
    return path.substr(0, path.rfind('/') + 1);
}

bool is_a_dir_char(char c) { return c == '\\' || c == ':' || c == '/'; }

std::string set_dir_chars(const std::string& path) {
    if (path.size() > path_len_max) return path;
    std::string out = path;
    for (size_t i = 2; i < out.size(); ++i)
        if (is_a_dir_char(out[i])) out[i] = '/';
    match_case(out);
    return out;
}

std::string folder_of(const std::string& path) {
    size_t size = path.size();
    while (size > 0 && !is_a_dir_char(path[size - 1])) --size;
    return path.substr(0, size);
}

std::string below_install_folder(const std::string& path) {
    const auto same = [](char a, char b) { return a == b || (is_a_dir_char(a) && is_a_dir_char(b)); };
    const bool below =
        path.size() >= app_path.size() && std::equal(app_path.begin(), app_path.end(), path.begin(), same);
    return below ? path.substr(app_path.size()) : path;
}
