// The version file: fetched into the preferences, read from there.
#include "net/version_query.h"

#include <fstream>
#include <sstream>

#include "core/disk/paths.h"
#include "platform/servers.h"

namespace {
// "resources:preferences:version.txt" with the letter case of the folders that are there.
std::string version_file() {
    std::string path = app_path;
    for (const char* part : {"resources", ":preferences", ":version.txt"}) path = set_dir_chars(path.append(part));
    return path;
}

// What a version file may hold at its start; a page of some other kind may have no line end at all.
std::string first_bytes(const std::string& path) {
    constexpr size_t most = 512;
    std::string text(most, '\0');
    std::ifstream in(path, std::ios::binary);
    in.read(text.data(), most);
    text.resize(static_cast<size_t>(in.gcount()));
    return text;
}

bool is_version_text(const std::string& text) {
    constexpr size_t longest = 80;
    if (text.empty() || text.size() > longest) return false;
    for (const unsigned char c : text)
        if (c < ' ') return false;
    return true;
}
}  // namespace

void version_query::start() {
    PCSBSocket_start_once();
    const server_struct server = find_server("version");
    if (!server.is_named()) {
        response_number = -1;
        done = true;
        return;
    }
    file = version_file();
    const FieldMap fields = {{"Host", server.host_field()}};
    client = std::make_unique<HTTPClient>(server.host.c_str(), server.port, server.path.c_str(), false,
                                          fields, nullptr, 0, file.c_str());
}

void version_query::process() {
    if (done || !client) return;
    client->DoProcessing();
    response_number = client->GetResponseNum();
    if (client->IsDone()) end();
}

void version_query::end() {
    done = true;
    const bool answered = client->GetStatus() == httpstatus_Done && response_number >= 200 &&
                          response_number <= 300 && client->GotWhole();
    client.reset();
    if (!answered) return;
    std::istringstream lines(first_bytes(file));
    std::string line;
    std::getline(lines, line);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!is_version_text(line) || !(lines >> number)) return;
    version = line;
    good = true;
}
