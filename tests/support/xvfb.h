// A screen of the test's own: an X server without hardware, whatever DISPLAY says, so that no test takes
// over the screen and the keyboard of whoever runs it.
#pragma once
#include <sys/types.h>

#include <string>

namespace test {

class xvfb {
public:
    // Starts the server and points DISPLAY at it; throws when there is none.
    explicit xvfb(const char* screen = "1600x1200x24");
    ~xvfb();  // ends it, and gives DISPLAY back

private:
    pid_t pid_ = -1;
    std::string display_before_;
};

}  // namespace test
