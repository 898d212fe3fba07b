// The list of servers, read anew for each download so that a change needs no restart.
#include "platform/servers.h"

#include <algorithm>
#include <charconv>

#include "core/disk/files.h"
#include "core/disk/mapfile.h"
#include "core/disk/paths.h"
#include "core/disk/txtscan.h"

namespace {
constexpr const char* servers_version = "800";
constexpr unsigned short usual_port = 80;
enum word_place : int { word_kind, word_host, word_port, word_path, word_DIM };

// 0 for what is no port.
unsigned short port_number(const std::string& text) {
    unsigned short port = 0;
    const auto [stop, fault] = std::from_chars(text.data(), text.data() + text.size(), port);
    return fault == std::errc() && stop == text.data() + text.size() ? port : 0;
}

// A tab or a zero byte must not get into a request.
bool is_printable(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](unsigned char c) { return c > ' ' && c != 0x7f; });
}

server_struct server_of(const std::string (&word)[word_DIM], const std::string& behind) {
    const unsigned short port = port_number(word[word_port]);
    const bool good = port != 0 && word[word_path][0] == '/' && behind.empty() &&
                      is_printable(word[word_host]) && is_printable(word[word_path]);
    return good ? server_struct{word[word_host], port, word[word_path]} : server_struct{};
}
}  // namespace

std::string server_struct::host_field() const {
    return port == usual_port ? host : host + ":" + std::to_string(port);
}

server_struct find_server(const std::string& kind) {
    map_bytes bytes = nullptr;
    const XMappedFile file(set_dir_chars(app_path + "Resources:Preferences:servers.txt").c_str(), &bytes);
    int c = 0, c_max = 0;
    if (!MAP_check_file(ftype_all, &file, bytes, &c, &c_max, servers_version)) return {};
    while (TXT_MAP_continue(bytes, &c, c_max)) {
        std::string word[word_DIM], behind;
        for (std::string& text : word) TXT_MAP_str_scan_space(bytes, &c, c_max, &text);
        TXT_MAP_str_scan_eoln(bytes, &c, c_max, &behind);
        if (word[word_kind] == kind) return server_of(word, behind);
    }
    return {};
}
