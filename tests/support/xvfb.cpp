#include "xvfb.h"

#include <poll.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace test {

// The server writes the number of its display when it is ready.
static std::string read_number(int fd) {
    constexpr int patience_ms = 20000;
    std::string number;
    for (char c;;) {
        pollfd ready{fd, POLLIN, 0};
        if (poll(&ready, 1, patience_ms) <= 0 || read(fd, &c, 1) != 1) return "";
        if (c == '\n') return number;
        number += c;
    }
}

xvfb::xvfb(const char* screen) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    pid_ = fork();
    if (pid_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);  // also when the test dies
        close(ends[0]);
        const std::string fd = std::to_string(ends[1]);
        execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", screen, "-nolisten", "tcp",
               "-noreset", nullptr);
        _exit(127);
    }
    close(ends[1]);
    const std::string number = read_number(ends[0]);
    close(ends[0]);
    if (number.empty()) throw std::runtime_error("Xvfb does not start");
    if (const char* before = getenv("DISPLAY")) display_before_ = before;
    setenv("DISPLAY", (":" + number).c_str(), 1);
}

xvfb::~xvfb() {
    if (display_before_.empty())
        unsetenv("DISPLAY");
    else
        setenv("DISPLAY", display_before_.c_str(), 1);
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
}

}  // namespace test
