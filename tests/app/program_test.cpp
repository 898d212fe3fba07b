// The real program in a real window, driven from outside by keys and mouse, watched by its pixels.
#include <fcntl.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "http_server.h"
#include "support.h"
#include "xvfb.h"

namespace {
const std::string preferences = INSTALL_FOLDER "Resources/Preferences/";
const std::string resolution_file = preferences + "Orvelle 8 Resolution.prf";
const std::string servers_file = preferences + "servers.txt", notes_file = preferences + "notes.txt";

class program : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(test::run("which xdotool import compare").status, 0) << "xdotool or ImageMagick is missing";
        // the tests share the install folder's settings, so one runs at a time
        lock_ = open(preferences.c_str(), O_RDONLY);
        ASSERT_EQ(flock(lock_, LOCK_EX), 0);
        for (const std::string& file : {resolution_file, servers_file, notes_file})
            before_.emplace_back(file, test::read_file(file));
        std::filesystem::remove(notes_file);
        setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
        setenv("ORVL_NO_GRAB_KEYBOARD", "1", 1);
    }
    void TearDown() override {
        if (pid_ > 0 && waitpid(pid_, nullptr, WNOHANG) == 0) {
            kill(pid_, SIGKILL);
            waitpid(pid_, nullptr, 0);
        }
        for (const auto& [file, text] : before_)  // a user's own choice comes back
            if (text.empty())
                std::filesystem::remove(file);
            else
                std::ofstream(file) << text;
        close(lock_);
    }
    static void write_servers(int port, const std::string& path) {
        std::ofstream(servers_file) << "I\n800 version\nversion 127.0.0.1 " << port << ' ' << path << '\n';
    }
    void start() {
        pid_ = fork();
        if (pid_ == 0) {
            if (!freopen("/dev/null", "w", stdout)) _exit(9);
            execl((std::string(INSTALL_FOLDER) + "tarvane").c_str(), "tarvane", static_cast<char*>(nullptr));
            _exit(9);
        }
        ASSERT_TRUE(comes([] {
            return !test::run("xdotool search --onlyvisible --maxdepth 1 '.*' 2>/dev/null").output.empty();
        }));
    }
    static bool comes(const std::function<bool()>& so) { return test::comes(so, 20.0); }
    static void drive(const std::string& words) { test::run("xdotool " + words); }
    std::string shoot(const std::string& name) {
        test::run("import -window root " + folder_.path() + name);
        return folder_.path() + name;
    }
    static int colours_of(const std::string& file, const std::string& box) {
        return atoi(test::run("convert " + file + " -crop " + box + " -format %k info:").output.c_str());
    }
    // Pixels in which two pictures differ inside a box "WxH+X+Y".
    static int difference(const std::string& a, const std::string& b, const std::string& box) {
        return atoi(test::run("compare -metric AE -extract " + box + " " + a + " " + b + " null: 2>&1")
                        .output.c_str());
    }
    // Colours inside a box of the screen now.
    int colours(const std::string& box) { return colours_of(shoot("now.png"), box); }
    // Opens the about window out of the first menu.
    void open_about() {
        drive("mousemove 30 6");
        usleep(300000);
        drive("click 1");
        usleep(300000);
        choose_about();
    }
    // The first entry of the menu that is open.
    void choose_about() {
        drive("mousemove 40 24 click 1");
        ASSERT_TRUE(comes([&] { return colours("500x300+262+234") > 60 && colours("200x200+0+300") < 5; }));
    }
    // In English, past the notes.
    void start_flying() {
        std::ofstream(resolution_file) << "I\n801 version\n1024\n768\n32\n1\n0\n1\n0.02\n0.02\n";
        start();
        ASSERT_TRUE(comes([&] { return colours("400x220+312+274") > 40; })) << "the notes";
        drive("key Return");
        ASSERT_TRUE(comes([&] { return flies(); }));
    }
    // The pale figures in the strip of flight data.
    bool flies() {
        const std::string figures = "convert " + shoot("now.png") +
                                    " -crop 1024x30+0+734 +repage -fuzz 8% -fill black +opaque '#dce4ed' "
                                    "-fill white -opaque '#dce4ed' -format '%[fx:int(w*h*mean)]' info:";
        return atoi(test::run(figures).output.c_str()) > 200;
    }
    void quit() {
        drive("key q");
        usleep(700000);
        drive("key Return");
        EXPECT_EQ(ends(), 0);
    }
    int ends() {
        int status = -1;
        comes([&] { return waitpid(pid_, &status, WNOHANG) == pid_; });
        pid_ = -1;
        return status;
    }

    const test::xvfb screen_;
    const test::temp_folder folder_;
    pid_t pid_ = -1;
    int lock_ = -1;
    std::vector<std::pair<std::string, std::string>> before_;
};

TEST_F(program, asks_for_the_language_once_tells_its_notes_and_flies) {
    std::filesystem::remove(resolution_file);
    start();
    ASSERT_TRUE(comes([&] { return colours("400x220+312+274") > 40; })) << "the chooser";
    EXPECT_LT(colours("300x200+0+100"), 5) << "nothing flies yet";
    const std::string asked = shoot("asked.png");
    drive("mousemove 462 340 click 1 mousemove 600 600");  // French
    ASSERT_TRUE(comes([&] { return difference(asked, shoot("chosen.png"), "16x16+454+332") > 20; }));
    drive("key Return");
    ASSERT_TRUE(comes([] { return std::filesystem::exists(resolution_file); }));
    EXPECT_EQ(test::read_file(resolution_file).substr(0, 30), "I\n801 version\n1024\n768\n32\n1\n1\n");
    ASSERT_TRUE(comes([&] { return difference(asked, shoot("notes.png"), "100x140+400+300") > 100; }));
    drive("mousemove 334 452 click 1");  // never again
    usleep(300000);
    drive("key Return");
    EXPECT_TRUE(comes([&] { return flies(); }));
    quit();
    start();
    EXPECT_TRUE(comes([&] { return flies(); })) << "without a question";
    quit();
}

TEST_F(program, pauses_takes_a_screenshot_opens_its_menus_and_windows_and_quits) {
    start_flying();

    drive("mousemove 512 384 key p");
    usleep(500000);
    const std::string a = shoot("a.png");
    usleep(700000);
    EXPECT_EQ(difference(a, shoot("b.png"), "1024x500+0+100"), 0) << "paused, the picture stands";
    // a screenshot shows what stood on the screen and is not black
    const std::string file = std::string(INSTALL_FOLDER) + "screenshot_1.bmp";
    std::filesystem::remove(file);
    drive("key ctrl+period");
    ASSERT_TRUE(comes([&] { return std::filesystem::exists(file); }));
    usleep(300000);
    EXPECT_GT(colours_of(file, "1024x600+0+60"), 200);
    EXPECT_EQ(difference(a, file, "1024x500+0+100"), 0);
    std::filesystem::remove(file);

    // the bar comes with the mouse at the top, a click opens the menu below its title
    drive("mousemove 30 6");
    usleep(300000);
    EXPECT_GT(difference(a, shoot("bar.png"), "1024x18+0+0"), 10000);
    drive("click 1");
    usleep(300000);
    EXPECT_GT(difference(a, shoot("menu.png"), "150x20+10+18"), 500);
    choose_about();
    drive("key Return");
    usleep(500000);
    EXPECT_LT(difference(a, shoot("c.png"), "1024x500+0+100"), 100) << "closed, paused where it was";

    drive("key p");
    usleep(700000);
    EXPECT_GT(difference(a, shoot("d.png"), "1024x500+0+100"), 10000);
    // the key that a menu shows for a view is no quit; q asks, and a No flies on
    drive("key ctrl+q");
    usleep(500000);
    EXPECT_EQ(waitpid(pid_, nullptr, WNOHANG), 0);
    drive("key q");
    ASSERT_TRUE(comes([&] { return colours("300x160+362+304") > 40 && colours("200x200+0+300") < 5; }))
        << "asked";
    drive("mousemove 572 449 click 1");
    ASSERT_TRUE(comes([&] { return flies(); })) << "no";
    quit();
}

TEST_F(program, about_tells_the_version_that_a_server_has_and_a_silent_one_holds_nothing_up) {
    const test::http_server server;
    write_servers(server.port(), "/never");
    start_flying();
    const std::string version_lines = "480x80+272+310";

    open_about();
    usleep(500000);
    const std::string waiting = shoot("waiting.png");
    drive("key Return");
    ASSERT_TRUE(comes([&] { return flies(); })) << "closed while nothing has come, and it flies on";

    write_servers(server.port(), "/version");
    open_about();
    EXPECT_TRUE(comes([&] { return difference(waiting, shoot("told.png"), version_lines) > 200; }));
    const std::string version_file = std::string(INSTALL_FOLDER) + "Resources/Preferences/version.txt";
    EXPECT_EQ(test::read_file(version_file), "8.01\n801\n");
    std::filesystem::remove(version_file);
    drive("key Return");
    ASSERT_TRUE(comes([&] { return flies(); }));
    quit();
}
}  // namespace
