// Paths in the system's own style: ":" parts the folders and ends a folder's path.
// Role: every opener turns them into the platform's form at the moment of file access.
#pragma once
#include <string>

extern std::string app_path;  // install folder, with a closing separator
extern std::string wrk_path;  // folder that a listing works on; starts equal to app_path

// Named folders and files, each app_path plus a fixed text (init_paths).
extern std::string gen_path, res_path, afl_path, wpn_path, acf_path, sit_path, mov_path, log_path, fms_path;
extern std::string gam_path, tra_path, car_path, spa_path, reg_path, wav_path, bmp_path, pla_path, cus_path;
extern std::string def_path, ear_path, mar_path, men_path, txt_path, key_path, obj_path;

// Sets app_path, wrk_path and all named paths; the folder is given in the platform's form.
void init_paths(const std::string& app_folder);

// The folder of the running executable, with a closing "/".
std::string executable_folder();

// Longest path that is opened; a longer one counts as a file that is not there.
constexpr size_t path_len_max = 500;

bool is_a_dir_char(char c);  // "\", ":" or "/"

// A path the file system can open: separators become "/" from the third character on, and the last
// component takes the letter case of the disk. Unchanged when nothing matches or beyond 500 bytes.
std::string set_dir_chars(const std::string& path);

// The path's folder with its closing separator; empty for a bare name.
std::string folder_of(const std::string& path);
// The part behind the install folder; the whole of a path that does not lie there.
std::string below_install_folder(const std::string& path);
