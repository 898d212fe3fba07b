// The servers that the user has named for downloads, in "Resources:Preferences:servers.txt".
// Role: weather reports and the version query ask here; without a good line they contact nobody.
#pragma once
#include <string>

struct server_struct {
    std::string host;  // empty: none was named
    unsigned short port = 0;
    std::string path;  // of the file on the server, from "/"

    bool is_named() const { return !host.empty(); }
    // The host as a request names it: with the port, unless that is the usual one.
    std::string host_field() const;
};

// The first line of that kind, "weather" or "version". A broken one names no server.
server_struct find_server(const std::string& kind);
