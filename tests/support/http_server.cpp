#include "http_server.h"

#include <arpa/inet.h>
#include <signal.h>
#include <stdio.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace test {

http_server::http_server() {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    pid_ = fork();
    if (pid_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);  // also when the test dies
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        execlp("python3", "python3", SOURCE_FOLDER "tests/support/http_server.py", nullptr);
        _exit(127);
    }
    close(ends[1]);
    FILE* const told = fdopen(ends[0], "r");
    const bool known = fscanf(told, "%hu", &port_) == 1;
    fclose(told);
    if (!known) throw std::runtime_error("the server does not start");
}

http_server::~http_server() {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
}

unsigned short closed_port() {
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (bind(fd, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
        getsockname(fd, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        throw std::runtime_error("no port");
    close(fd);
    return ntohs(address.sin_port);
}

}  // namespace test
