// A screen of the test's own: an X server without hardware, whatever DISPLAY says, so that no test takes
// over the screen and the keyboard of whoever runs it.
#pragma once
#include <stdlib.h>

#include "server_process.h"

namespace test {

class xvfb {
public:
    // Starts the server and points DISPLAY at it; throws when there is none.
    explicit xvfb(const char* screen = "1600x1200x24")
        : server_({"Xvfb", "-displayfd", "1", "-screen", "0", screen, "-nolisten", "tcp", "-noreset"}) {
        if (const char* before = getenv("DISPLAY")) display_before_ = before;
        setenv("DISPLAY", (":" + std::to_string(server_.number())).c_str(), 1);
    }
    // Ends it, and gives DISPLAY back.
    ~xvfb() {
        if (display_before_.empty())
            unsetenv("DISPLAY");
        else
            setenv("DISPLAY", display_before_.c_str(), 1);
    }

private:
    server_process server_;
    std::string display_before_;
};

}  // namespace test
