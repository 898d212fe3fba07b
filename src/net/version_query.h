// The query for the current version, over HTTP.
#pragma once
#include <string>

struct version_query {
    bool done = false, good = false;
    int response_number = 0;
    std::string version;  // the file's first line

    void start();
    void process();  // once a pass of the window's loop
};
