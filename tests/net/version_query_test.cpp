// The named servers, and the version query against a server in another process.
#include "net/version_query.h"

#include <filesystem>

#include "core/disk/paths.h"
#include "http_server.h"
#include "platform/servers.h"
#include "support.h"

namespace {
class version : public test::system_test {
protected:
    void SetUp() override {
        test::system_test::SetUp();
        std::filesystem::create_directories(folder_.path() + "Resources/Preferences");
        init_paths(folder_.path());
    }
    void name_servers(const std::string& text) const {
        folder_.write("Resources/Preferences/servers.txt", text);
    }
    static void finish(version_query& query) {
        query.start();
        test::comes([&] { return query.process(), query.done != 0; });
    }
    void name_file(int port, const std::string& path) const {
        name_servers("I\n800 version\nversion 127.0.0.1 " + std::to_string(port) + " " + path + "\n");
    }
    // The query of a file of the test's server.
    void ask(version_query& query, const std::string& path) const {
        name_file(server_.port(), path);
        finish(query);
    }

    const test::temp_folder folder_;
    const test::http_server server_;
};

TEST_F(version, servers_are_read_and_broken_lines_name_none) {
    EXPECT_FALSE(find_server("version").is_named()) << "no file";
    name_servers(
        "I\n800 version\nweather wx.example 80 /all.txt\r\nother line\n  version v.example  8080 /a/v.txt  ");
    EXPECT_EQ(find_server("weather").host_field(), "wx.example");
    EXPECT_EQ(find_server("weather").path, "/all.txt");
    EXPECT_EQ(find_server("version").host_field(), "v.example:8080");
    EXPECT_EQ(find_server("version").port, 8080);
    EXPECT_EQ(find_server("version").path, "/a/v.txt");
    EXPECT_FALSE(find_server("plans").is_named());

    const std::string good = "version v 80 /v";
    std::vector<std::string> files = {"", "I\n801 version\n" + good, "800\n" + good};
    for (const char* line : {"", "version", "version v", "version v 80", "version v 0 /v",
                             "version v 65536 /v", "version v -1 /v", "version v 80x /v", "version v 80 v",
                             "version v 80 /v w", "version v 80 /v\tw", "version\nv\n80\n/v\n"})
        files.push_back(std::string("I\n800 version\n") + line);
    for (const std::string& file : files) {
        name_servers(file);
        EXPECT_FALSE(find_server("version").is_named()) << file;
    }
}

TEST_F(version, the_file_comes_and_is_read) {
    version_query query;
    ask(query, "/version");
    EXPECT_TRUE(query.good);
    EXPECT_EQ(query.version, "8.01");
    EXPECT_EQ(query.number, 801);
    EXPECT_EQ(test::read_file(folder_.path() + "Resources/Preferences/version.txt"), "8.01\n801\n")
        << "in the folder that is there, whatever its case";
    EXPECT_FALSE(std::filesystem::exists(folder_.path() + "resources"));
}

TEST_F(version, what_is_no_version_is_not_good_and_an_old_file_counts_for_nothing) {
    folder_.write("Resources/Preferences/version.txt", "7.00\n700\n");
    const std::pair<const char*, int> rows[] = {{"/missing", 404},
                                                {"/old-net", 200},
                                                {"/cut-version", 200},
                                                {"/cut-header", 200},
                                                {"/endless-header", 200}};
    for (const auto& [path, number] : rows) {
        version_query query;
        ask(query, path);
        EXPECT_TRUE(query.done) << path;
        EXPECT_FALSE(query.good) << path;
        EXPECT_EQ(query.response_number, number) << path;
    }
}

TEST_F(version, without_a_server_nothing_starts_and_a_silent_one_only_waits) {
    version_query none;
    none.start();
    none.process();
    EXPECT_TRUE(none.done);
    EXPECT_FALSE(none.good);
    EXPECT_EQ(none.response_number, -1);

    name_file(test::closed_port, "/v");
    version_query refused;
    finish(refused);
    EXPECT_TRUE(refused.done);
    EXPECT_FALSE(refused.good);

    version_query silent;
    name_file(server_.port(), "/never");
    silent.start();
    for (int i = 0; i < 1000; ++i) silent.process();
    EXPECT_FALSE(silent.done) << "and it can be left at any time";
}
}  // namespace
