#include "server_process.h"

#include <poll.h>
#include <signal.h>
#include <stdio.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace test {

server_process::server_process(const std::vector<std::string>& words) {
    constexpr int patience_ms = 20000;
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    pid_ = fork();
    if (pid_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);  // also when the test dies
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        execvp(arguments[0], arguments.data());
        _exit(127);
    }
    close(ends[1]);
    FILE* const told = fdopen(ends[0], "r");
    pollfd ready{ends[0], POLLIN, 0};
    const bool known = poll(&ready, 1, patience_ms) > 0 && fscanf(told, "%d", &number_) == 1;
    fclose(told);
    if (!known) throw std::runtime_error(words[0] + " does not start");
}

server_process::~server_process() {
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
}

}  // namespace test
