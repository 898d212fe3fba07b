// Network and jobs: an idle step of the HTTP client beside its two system calls, reading an answer beside
// copying it, and how long a job takes to reach the worker and be seen done.
#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "core/program/jobs.h"
#include "platform/http_client.h"

namespace {
// A server that has taken the connection and says nothing.
class silent_server {
public:
    silent_server() : listener_(0, true) { listener_.GetAddresses(&at_); }
    unsigned short port() const { return at_.local_port; }
    void accept() {
        while (listener_.GetStatus() != pcsbstatus_Connecting) usleep(100);
        peer_.reset(listener_.Accept());
    }

private:
    PCSBSocket listener_;
    ConnectionData at_;
    std::unique_ptr<PCSBSocket> peer_;
};

void idle_system_calls(benchmark::State& state) {
    silent_server server;
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(server.port());
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0)
        return state.SkipWithError("no connection");
    server.accept();
    char part[1024];
    for (auto _ : state) {
        fd_set readable;
        FD_ZERO(&readable);
        FD_SET(fd, &readable);
        timeval none{};
        benchmark::DoNotOptimize(select(fd + 1, &readable, nullptr, nullptr, &none));
        benchmark::DoNotOptimize(recv(fd, part, sizeof part, MSG_DONTWAIT));
    }
    close(fd);
}
void idle_step(benchmark::State& state) {
    silent_server server;
    HTTPClient client("127.0.0.1", server.port(), "/", false, {}, nullptr, 0, nullptr);
    server.accept();
    while (client.GetStatus() != httpstatus_ReceivingHeaders) client.DoProcessing();
    for (auto _ : state) client.DoProcessing();
}
BENCHMARK(idle_system_calls);
BENCHMARK(idle_step);

// 60 KB of fields and 8 MB of body.
std::string long_answer() {
    constexpr int fields = 2000;
    constexpr size_t body = 8 * 1024 * 1024;
    std::string text = "HTTP/1.1 200 OK\r\n";
    for (int i = 0; i < fields; ++i) text += "X-Field-" + std::to_string(i) + ": some value\r\n";
    return text + "Content-Length: " + std::to_string(body) + "\r\n\r\n" + std::string(body, 'b');
}
void bytes_moved(benchmark::State& state, const std::string& text) {
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
void answer_copied(benchmark::State& state) {
    const std::string text = long_answer();
    std::vector<char> to(text.size());
    for (auto _ : state) {
        memcpy(to.data(), text.data(), text.size());
        benchmark::ClobberMemory();
    }
    bytes_moved(state, text);
}
// In parts of as many bytes as one step reads.
void answer_read(benchmark::State& state) {
    const std::string text = long_answer();
    for (auto _ : state) {
        http_answer answer(nullptr);
        for (size_t at = 0; at < text.size(); at += 1024)
            answer.Take(text.data() + at, std::min<size_t>(1024, text.size() - at));
        if (!answer.complete()) state.SkipWithError("not read to its end");
    }
    bytes_moved(state, text);
}
// A header alone, byte by byte: what a slow peer costs.
void header_read_bytewise(benchmark::State& state) {
    const std::string all = long_answer();
    const std::string text = all.substr(0, all.find("\r\n\r\n") + 4);
    for (auto _ : state) {
        http_answer answer(nullptr);
        for (const char& c : text) answer.Take(&c, 1);
        if (!answer.mGotWholeHeader) state.SkipWithError("not read to its end");
    }
    bytes_moved(state, text);
}
BENCHMARK(answer_copied);
BENCHMARK(answer_read);
BENCHMARK(header_read_bytewise);

int nothing(int parameter) { return parameter; }
void job(benchmark::State& state, int disk) {
    THREAD_Init();
    for (auto _ : state) {
        const int call = THREAD_RunAsync(nothing, 1, disk);
        while (!THREAD_IsDone(call, 60.0f)) {
        }
        benchmark::DoNotOptimize(THREAD_DoneValue(call));
        THREAD_Cleanup(call);
    }
}
void job_in_place(benchmark::State& state) { job(state, 0); }
void job_on_worker(benchmark::State& state) { job(state, 1); }
BENCHMARK(job_in_place)->UseRealTime();
BENCHMARK(job_on_worker)->UseRealTime();
}  // namespace

BENCHMARK_MAIN();
