// A server in a process of its own, which behaves as the path of a request says: see http_server.py.
#pragma once
#include "server_process.h"

namespace test {

class http_server {
public:
    http_server() {}  // const ones need it
    unsigned short port() const { return static_cast<unsigned short>(server_.number()); }

private:
    server_process server_{{"python3", SOURCE_FOLDER "tests/support/http_server.py"}};
};

constexpr unsigned short closed_port = 1;  // nobody listens there

}  // namespace test
