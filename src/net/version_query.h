// The query for the current version, over HTTP.
// Role: the about window's, a step a pass. A server that never answers only leaves it waiting.
#pragma once
#include <memory>
#include <string>

#include "platform/http_client.h"

struct version_query {
    bool done = false, good = false;
    int response_number = 0;  // -1: no server is named, or its name is not known
    std::string version;      // the file's first line
    int number = 0;           // and its second

    void start();    // looks the server's name up, which may take its time
    void process();  // once a pass of the window's loop

private:
    void end();

    std::unique_ptr<HTTPClient> client;
    std::string file;
};
