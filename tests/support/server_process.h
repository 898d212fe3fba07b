// A server in a process of its own, which tells its number on standard output when it is ready.
#pragma once
#include <sys/types.h>

#include <string>
#include <vector>

namespace test {

class server_process {
public:
    explicit server_process(const std::vector<std::string>& words);  // throws when it does not start
    ~server_process();
    server_process(const server_process&) = delete;
    server_process& operator=(const server_process&) = delete;
    int number() const { return number_; }

private:
    pid_t pid_ = -1;
    int number_ = -1;
};

}  // namespace test
