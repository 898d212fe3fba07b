// Alerts and the exception that carries them off other threads.
#include <thread>

#include "core/program/clocks.h"
#include "core/program/logs.h"
#include "support.h"

namespace {
class alert : public test::system_test {};

TEST_F(alert, off_the_main_thread_an_alert_throws_its_lines) {
    XException caught("", "", "", "", "", 0);
    std::thread([&caught] {
        try {
            MACIBM_alert(0, "one", "two", "three", "four", alert_fatal);
        } catch (const XException& e) {
            caught = e;
        }
    }).join();
    EXPECT_EQ(caught.c1_, "one");
    EXPECT_EQ(caught.c4_, "four");
    EXPECT_TRUE(test::alerts.empty());
    EXPECT_NE(std::string(caught.file_).find("alert_test"), std::string::npos);
    EXPECT_EQ(test::expect_fatal([&] { caught.ReportAndQuit(); }).line[2], "three");
    caught.ReportAndContinue();
    EXPECT_EQ(test::alerts.back().type, alert_message);
}

TEST_F(alert, alerts_do_not_nest) {
    mnw.top_win = win_alrt;
    MACIBM_alert(0, "lost", "", "", "", alert_fatal);
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(alert, before_the_window_stands_every_alert_ends_with_sorry) {
    alert_seam.show = nullptr;
    for (const int type : {alert_message, alert_fatal}) {
        ::testing::internal::CaptureStdout();
        try {
            MACIBM_alert(0, "one", "", "", "four", type);
        } catch (const test::fatal&) {
        }
        const std::string said = ::testing::internal::GetCapturedStdout();
        EXPECT_EQ(said, "Orvelle Error:\none\n\n\n\n\n\nfour\n\nSorry.\n") << type;
    }
}

TEST_F(alert, a_fatal_one_goes_to_the_log_first_and_a_data_fault_shows_once) {
    const test::temp_folder folder;
    xer.open(folder.path() + "Error.out");
    test::expect_fatal([] { MACIBM_alert(0, "100%n %s", "b", "c", "d", alert_fatal); });
    for (int i = 0; i < 3; ++i) MACIBM_data_fault("tile", "is", "broken", "");
    xer.close();
    const std::string text = test::read_file(folder.path() + "Error.out");
    EXPECT_NE(text.find("100%n %s\nb\nc\nd\n"), std::string::npos);
    EXPECT_NE(text.find("line: "), std::string::npos);
    EXPECT_EQ(test::alerts.size(), 2u) << "the fatal one and one of the three";
    EXPECT_EQ(test::alerts.back().type, alert_message);
}
}  // namespace
