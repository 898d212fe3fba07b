// Listing of one folder by file type.
#include "core/disk/dirlist.h"

#include <dirent.h>
#include <strings.h>

#include <algorithm>
#include <filesystem>
#include <vector>

#include "core/disk/files.h"
#include "core/disk/paths.h"
#include "core/program/alert.h"
#include "core/records/mnw.h"

std::string g_file[g_fileDIM];
std::string g_path[g_fileDIM];
int g_file_type[g_fileDIM];

namespace {
struct ending_row {
    const char* ending;
    int type;
};
const ending_row endings[] = {
    {".ACF", ftype_acf}, {".AFL", ftype_afl}, {".WPN", ftype_wpn}, {".OBJ", ftype_obj}, {".BMP", ftype_bmp},
    {".PNG", ftype_png}, {".FDR", ftype_fdr}, {".SIT", ftype_sit}, {".SMO", ftype_mov}, {".LOG", ftype_log},
    {".FMS", ftype_fms}, {".TRA", ftype_tra}, {".CAR", ftype_car}, {".SPA", ftype_spa}, {".REG", ftype_reg},
    {".WAV", ftype_wav}, {".ENV", ftype_env},
};
constexpr size_t ending_length = 4;

int type_by_ending(const std::string& name) {
    if (name.size() < ending_length) return ftype_all;
    const char* ending = name.c_str() + name.size() - ending_length;
    for (const ending_row& row : endings)
        if (strcasecmp(ending, row.ending) == 0) return row.type;
    return ftype_all;
}

// Pictures that belong to the default panels and are no choice of their own.
bool is_panel_picture(const std::string& path) {
    const std::string folder = bmp_path + "cockpit:-PANEL";
    if (path.size() < folder.size()) return false;
    return std::equal(folder.begin(), folder.end(), path.begin(), [](char a, char b) {
        if (is_a_dir_char(a) || is_a_dir_char(b)) return is_a_dir_char(a) && is_a_dir_char(b);
        return tolower(static_cast<unsigned char>(a)) == tolower(static_cast<unsigned char>(b));
    });
}

// Second to fifth picture of a set: the name ends in "-1." to "-4." and three letters.
bool is_further_picture(const std::string& name) {
    constexpr size_t tail = 6;
    if (name.size() < tail) return false;
    const char* end = name.c_str() + name.size() - tail;
    return end[0] == '-' && end[1] >= '1' && end[1] <= '4' && end[2] == '.';
}

bool type_fits(int type, int wanted) {
    if (type == ftype_folder || type == wanted || wanted == ftype_all) return true;
    // both kinds of picture serve where a picture is asked for
    return (wanted == ftype_bmp && type == ftype_png) || (wanted == ftype_png && type == ftype_bmp);
}

struct entry {
    std::string name;
    bool folder;
};
std::vector<entry> read_folder(const std::string& folder) {
    std::vector<entry> entries;
    DIR* dir = opendir(folder.c_str());
    if (!dir) return entries;
    while (const dirent* found = readdir(dir)) {
        std::error_code ignored;
        const std::string name = found->d_name;
        entries.push_back({name, std::filesystem::is_directory(folder + name, ignored)});
    }
    closedir(dir);
    std::sort(entries.begin(), entries.end(), [](const entry& a, const entry& b) { return a.name < b.name; });
    return entries;
}
}  // namespace

int opensave_takeit(int n, int file_type) {
    const std::string& name = g_file[n];
    if (g_file_type[n] != ftype_folder) g_file_type[n] = type_by_ending(name);
    if (file_type == ftype_bmp && g_file_type[n] != ftype_folder &&
        (is_panel_picture(g_path[n]) || is_further_picture(name)))
        return 0;
    if (name.empty() || name[0] == '.') return 0;
    return type_fits(g_file_type[n], file_type);
}

int opensave_getitems(int file_type) {
    if (wrk_path.empty() || !is_a_dir_char(wrk_path.back())) {
        MACIBM_alert(mnw.top_win, "Working path does not appear to be a directory!", wrk_path, "", "",
                     alert_message);
        wrk_path = app_path;
    }
    int n = 0;
    for (const entry& found : read_folder(set_dir_chars(wrk_path))) {
        if (n == g_fileDIM) break;
        g_file[n] = found.name;
        g_path[n] = wrk_path + found.name + (found.folder ? "/" : "");
        g_file_type[n] = found.folder ? ftype_folder : ftype_all;
        if (opensave_takeit(n, file_type)) ++n;
    }
    return n;
}
