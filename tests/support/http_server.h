// A server in a process of its own, which behaves as the path of a request says: see http_server.py.
#pragma once
#include <sys/types.h>

namespace test {

class http_server {
public:
    http_server();  // throws when it does not start
    ~http_server();
    unsigned short port() const { return port_; }

private:
    pid_t pid_ = -1;
    unsigned short port_ = 0;
};

// A port of this machine that nobody listens at.
unsigned short closed_port();

}  // namespace test
