// The HTTP client against a server in another process that behaves well, badly, or not at all; the socket
// below it; and the reader of answers by its bytes.
#include "platform/http_client.h"

#include <arpa/inet.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <memory>

#include "http_server.h"
#include "support.h"

namespace {
class http_client : public test::system_test {
protected:
    std::unique_ptr<HTTPClient> ask(const std::string& path, const char* file = nullptr) const {
        return std::make_unique<HTTPClient>("127.0.0.1", server_.port(), path.c_str(), false,
                                            FieldMap{{"Host", "127.0.0.1"}}, nullptr, 0, file);
    }
    // Steps until the end.
    static bool finish(HTTPClient& client, double patience = 10.0) {
        return test::comes([&] { return client.DoProcessing(), client.IsDone(); }, patience);
    }
    static std::string body(HTTPClient& client) {
        std::vector<char> bytes;
        client.GetData(bytes, 100000000);
        return {bytes.begin(), bytes.end()};
    }
    static std::string pattern(int count) {
        std::string bytes;
        for (int i = 0; i < count; ++i) bytes += static_cast<char>((i * 7 + i / 251) % 256);
        return bytes;
    }
    const test::http_server server_;
};

TEST_F(http_client, answers_arrive_whole_however_they_come) {
    const struct {
        const char *path, *body;
        int number;
        float percent;
    } rows[] = {
        {"/plain", "hello\n", 200, 100.0f},
        {"/slow", "byte by one", 200, 100.0f},
        {"/too-much", "0123456789", 200, 100.0f},
        {"/keep-open", "done", 200, 100.0f},
        {"/empty", "", 200, 100.0f},
        {"/no-length", "until the end", 200, -1.0f},
        {"/interim", "final", 200, 100.0f},
        {"/missing", "none", 404, 100.0f},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        const auto client = ask(row.path);
        ASSERT_TRUE(finish(*client)) << "also when the server keeps the connection open";
        EXPECT_EQ(client->GetStatus(), httpstatus_Done);
        EXPECT_EQ(client->GetResponseNum(), row.number);
        EXPECT_EQ(client->GetPercentDone(), row.percent);
        EXPECT_TRUE(client->GotWhole());
        EXPECT_EQ(body(*client), row.body);
        EXPECT_EQ(body(*client), "") << "taken is taken";
    }
}

TEST_F(http_client, a_cut_connection_ends_it_and_is_not_whole) {
    for (const char* path : {"/cut-header", "/cut-body", "/reset"}) {
        SCOPED_TRACE(path);
        const auto client = ask(path);
        ASSERT_TRUE(finish(*client));
        EXPECT_EQ(client->GetStatus(), httpstatus_Done) << "disconnected";
        EXPECT_EQ(client->GetResponseNum(), 200);
        EXPECT_FALSE(client->GotWhole());
    }
}

TEST_F(http_client, answers_without_end_are_errors) {
    const auto header = ask("/endless-header");
    ASSERT_TRUE(finish(*header));
    EXPECT_EQ(header->GetStatus(), httpstatus_Error);
    const auto endless_body = ask("/endless-body");
    ASSERT_TRUE(finish(*endless_body, 60.0));
    EXPECT_EQ(endless_body->GetStatus(), httpstatus_Error);
    EXPECT_EQ(body(*endless_body).size(), 16u * 1024 * 1024);
}

TEST_F(http_client, a_refused_connection_and_an_unknown_host_end_at_once) {
    HTTPClient refused("127.0.0.1", test::closed_port, "/", false, {}, nullptr, 0, nullptr);
    ASSERT_TRUE(finish(refused));
    EXPECT_EQ(refused.GetResponseNum(), 0);
    EXPECT_FALSE(refused.GotWhole());
    for (const std::string& host : {std::string("no such host"), std::string(10000, 'h'), std::string()}) {
        HTTPClient client(host.c_str(), 80, "/", false, {}, nullptr, 0, nullptr);
        EXPECT_TRUE(client.IsDone());
        EXPECT_EQ(client.GetStatus(), httpstatus_Error);
        EXPECT_EQ(client.GetResponseNum(), -1);
        client.DoProcessing();
    }
}

TEST_F(http_client, a_request_has_its_fields_in_order_and_its_content) {
    const std::string content = pattern(3000000);  // more than the system takes in one write
    HTTPClient client("localhost", server_.port(), "/echo", true, {{"Host", "here"}, {"Accept", "x"}},
                      content.data(), static_cast<int>(content.size()), nullptr);
    ASSERT_TRUE(finish(client, 60.0));
    const std::string echo = body(client);
    const size_t end = echo.find("\r\n\r\n");
    EXPECT_EQ(echo.substr(0, end),
              "POST /echo HTTP/1.1\r\nAccept: x\r\nHost: here\r\nContent-Length: 3000000");
    EXPECT_TRUE(echo.substr(end + 4) == content);
}

TEST_F(http_client, a_file_is_whole_on_disk_when_the_end_is_seen) {
    const test::temp_folder folder;
    const std::string file = folder.path() + "body.bin";
    const auto client = ask("/big", file.c_str());
    ASSERT_TRUE(finish(*client));
    EXPECT_TRUE(test::read_file(file) == pattern(300000)) << "before the client has gone";
    EXPECT_EQ(client->GetPercentDone(), 100.0f);
}

TEST_F(http_client, an_answer_that_is_missing_broken_or_left_keeps_the_good_file) {
    const test::temp_folder folder;
    const std::string file = folder.write("body.bin", "good");
    for (const char* path : {"/missing", "/cut-header", "/cut-body", "/endless-header", "/never"}) {
        const auto client = ask(path, file.c_str());
        finish(*client, strcmp(path, "/never") ? 10.0 : 0.1);
    }
    EXPECT_EQ(test::read_file(file), "good");
    const std::filesystem::directory_iterator names(folder.path());
    EXPECT_EQ(std::distance(begin(names), end(names)), 1) << "nothing is left beside it";
    const auto plain = ask("/plain", file.c_str());
    finish(*plain);
    EXPECT_EQ(test::read_file(file), "hello\n");
    EXPECT_EQ(plain->GetFields().at("Content-Type"), "text/plain");
}

TEST_F(http_client, a_file_that_cannot_be_written_is_an_error) {
    const test::temp_folder folder;
    std::filesystem::create_directories(folder.path() + "taken/by a folder");
    for (const std::string name : {"missing folder/file", "full", "taken"}) {
        const std::string file = folder.path() + name;
        for (const char* path : {"/big", "/plain"}) {  // one fails as it is written, one as it is closed
            ASSERT_EQ(symlink("/dev/full", (folder.path() + "full.part").c_str()), 0);
            const auto client = ask(path, file.c_str());
            ASSERT_TRUE(finish(*client));
            EXPECT_EQ(client->GetStatus(), httpstatus_Error) << file << path;
            unlink((folder.path() + "full.part").c_str());
        }
    }
}

TEST(tcp_socket, a_server_stays_ready_until_somebody_calls) {
    PCSBSocket server(0, true);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(server.GetStatus(), pcsbstatus_Ready);
    ConnectionData at;
    server.GetAddresses(&at);
    PCSBSocket caller(0, false);
    caller.Connect(htonl(INADDR_LOOPBACK), at.local_port);
    ASSERT_TRUE(test::comes([&] { return server.GetStatus() == pcsbstatus_Connecting; }));
    const std::unique_ptr<PCSBSocket> accepted(server.Accept());
    ASSERT_TRUE(accepted);
    EXPECT_EQ(server.GetStatus(), pcsbstatus_Ready);
    EXPECT_EQ(caller.GetStatus(), pcsbstatus_Connected);
    EXPECT_EQ(accepted->GetStatus(), pcsbstatus_Connected);

    char bytes[8];
    EXPECT_EQ(accepted->ReadData(bytes, sizeof bytes), 0) << "nothing yet";
    EXPECT_EQ(caller.WriteData("abc", 3), 3);
    long n = 0;
    ASSERT_TRUE(test::comes([&] { return (n = accepted->ReadData(bytes, sizeof bytes)) != 0; }));
    EXPECT_EQ(std::string(bytes, static_cast<size_t>(n)), "abc");

    // one side has released: the other may still send; both: it is over
    caller.Release();
    usleep(50000);
    EXPECT_EQ(accepted->ReadData(bytes, sizeof bytes), 0);
    EXPECT_EQ(accepted->WriteData("de", 2), 2);
    accepted->Release();
    EXPECT_EQ(accepted->ReadData(bytes, sizeof bytes), -1);
    EXPECT_EQ(accepted->GetStatus(), pcsbstatus_Disconnected);
    caller.Disconnect();
    EXPECT_EQ(caller.WriteData("x", 1), -1) << "no signal";
    EXPECT_EQ(PCSBSocket(at.local_port, true).GetStatus(), pcsbstatus_Error) << "the port is taken";
}

void take(http_answer& answer, const std::string& text) { answer.Take(text.data(), text.size()); }

TEST(http_answer, lengths_and_status_lines_of_any_kind_are_safe) {
    for (const char* line : {"-1", "99999999999", "2147483648", "12x", "0x10", "", " ", "5 5"}) {
        http_answer answer(nullptr);
        take(answer, std::string("HTTP/1.0 200 OK\r\nContent-Length: ") + line + "\r\n\r\nbody");
        EXPECT_EQ(answer.mIncomingLength, -1) << line;
    }
    const std::pair<const char*, int> status[] = {
        {"HTTP/", 0}, {"HTTP/1.1 ", 0}, {"HTTP/1.1 2", 2}, {"HTTP/1.1 204", 204}, {"HTTP/1.1 x04 ", 0}};
    for (const auto& [line, number] : status) {
        http_answer answer(nullptr);
        take(answer, std::string(line) + "\r\n\r\n");
        EXPECT_EQ(answer.mResponseNum, number) << line;
    }
}

TEST(http_answer, the_longest_header_is_taken_and_one_byte_more_is_not) {
    const std::string first = "HTTP/1.1 200 OK\r\n", last = "\r\n\r\n";
    for (const size_t more : {0u, 1u}) {
        const std::string text =
            first + "A: " + std::string(http_header_max - first.size() - 3 - last.size() + more, 'a') + last;
        http_answer whole(nullptr), bytewise(nullptr);
        take(whole, text + "body");
        for (const char c : text) bytewise.Take(&c, 1);
        EXPECT_EQ(whole.mGotWholeHeader, more == 0);
        EXPECT_EQ(whole.mFailed, more == 1);
        EXPECT_EQ(bytewise.mFailed, more == 1);
    }
}
}  // namespace
