// The real program in a real window, driven from outside.
#include <stdio.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "support.h"
#include "xvfb.h"

namespace {
int shell(const std::string& command) { return test::run(command).status; }
std::string output_of(const std::string& command) { return test::run(command).output; }

TEST(program, starts_flies_pauses_and_quits_by_its_keys) {
    ASSERT_EQ(shell("which xdotool >/dev/null 2>&1"), 0) << "xdotool is missing";
    const test::xvfb screen;
    setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
    setenv("ORVL_NO_GRAB_KEYBOARD", "1", 1);
    const pid_t pid = fork();
    if (pid == 0) {
        if (!freopen("/dev/null", "w", stdout)) _exit(9);
        execl((std::string(INSTALL_FOLDER) + "tarvane").c_str(), "tarvane", static_cast<char*>(nullptr));
        _exit(9);
    }
    // wait until the window stands and something is drawn
    std::string window;
    for (int i = 0; i < 100 && window.empty(); ++i) {
        usleep(100000);
        window = output_of("xdotool search --onlyvisible --maxdepth 1 '.*' 2>/dev/null | head -1");
    }
    sleep(2);
    const test::temp_folder folder;
    const auto shot = [&folder](const char* name) {
        shell("import -window root " + folder.path() + name + " >/dev/null 2>&1");
        return output_of("identify -format '%k' " + folder.path() + name);
    };
    EXPECT_GT(atoi(shot("a.png").c_str()), 200) << "sky, ground and text";
    shell("xdotool mousemove 512 384 key p");
    usleep(500000);
    shot("b.png");
    usleep(700000);
    shot("c.png");
    EXPECT_EQ(
        output_of("cd " + folder.path() + " && compare -metric AE -crop 1024x500+0+0 b.png c.png null: 2>&1"),
        "0")
        << "paused, the picture stands";
    shell("xdotool key p");
    sleep(1);
    shot("d.png");
    EXPECT_NE(
        output_of("cd " + folder.path() + " && compare -metric AE -crop 1024x500+0+0 c.png d.png null: 2>&1"),
        "0");
    shell("xdotool key q");
    int status = -1;
    for (int i = 0; i < 50; ++i) {
        if (waitpid(pid, &status, WNOHANG) == pid) break;
        usleep(100000);
        status = -1;
    }
    if (status == -1) {
        kill(pid, SIGKILL);
        waitpid(pid, nullptr, 0);
    }
    EXPECT_EQ(status, 0) << "q ends the program";
}
}  // namespace
