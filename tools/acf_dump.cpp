// acf_dump: shows an aircraft file as the text that acf_make compiles.
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "aircraft/file/acf_file.h"
#include "aircraft/file/acf_range.h"
#include "aircraft/file/acf_toml_write.h"
#include "core/disk/paths.h"
#include "core/program/alert.h"
#include "core/program/jobs.h"
#include "core/records/con.h"

namespace {
enum exit_code : int { exit_good = 0, exit_bad_aircraft = 1, exit_bad_usage = 2 };

const char* const usage =
    "acf_dump [--explain] FILE.acf [OUT.toml]    write the aircraft as text, to standard output by default\n"
    "acf_dump --help                             show this text\n"
    "\n"
    "Reads files of version 8000 in either byte order. The text holds what the designer entered; what a\n"
    "load derives is left out. --explain puts the meaning of each field above it.\n"
    "Exit status: 0 good, 1 fault in the file, 2 wrong use.\n";

int fail(const std::string& path, const std::string& text) {
    fprintf(stderr, "%s: %s\n", path.c_str(), text.c_str());
    return exit_bad_aircraft;
}

int dump(const std::string& path, const std::string& out, bool explain) {
    std::error_code fault;
    const auto bytes = std::filesystem::file_size(set_dir_chars(path), fault);
    if (fault) return fail(path, "cannot be opened");
    if (path.size() >= strDIM) return fail(path, "has too long a path");
    memcpy(veh[0].path, path.c_str(), path.size() + 1);
    if (!acf_read_record(0))
        return fail(path, "is no aircraft file of version " + std::to_string(acf_version));
    if (bytes < static_cast<unsigned long>(acf_file_size))
        fail(path, "is cut short; what is missing counts as 0");
    const std::string breach = acf_admit(0);
    if (!breach.empty()) return fail(path, breach);

    const std::string text = acf_to_toml(0, explain);
    if (out.empty()) {
        fwrite(text.data(), 1, text.size(), stdout);
        return fflush(stdout) == 0 ? exit_good : fail("standard output", "cannot be written");
    }
    std::ofstream file(out, std::ios::binary);
    file << text;
    file.close();
    return file ? exit_good : fail(out, "cannot be written");
}
}  // namespace

int main(int argc, char** argv) {
    int next = 1;
    const auto take = [&](const char* option) {
        return next < argc && strcmp(argv[next], option) == 0 && ++next;
    };
    if (take("--help")) return fputs(usage, stdout), exit_good;
    const bool explain = take("--explain");
    const int files = argc - next;
    if (files < 1 || files > 2 || argv[next][0] == '-') {
        fputs(usage, stderr);
        return exit_bad_usage;
    }
    THREAD_Init();
    init_con();
    return dump(argv[next], files == 2 ? argv[next + 1] : "", explain);
}
