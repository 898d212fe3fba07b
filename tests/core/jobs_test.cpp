// Background jobs: order, results, exceptions across threads, misuse, and an end that does not hang.
#include "core/program/jobs.h"

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include "core/program/logs.h"
#include "support.h"

namespace {
std::vector<int> order;  // written by the one worker
std::atomic<bool> gate_open{true};
std::thread::id ran_on;
std::atomic<int> have_run{0};

int note(int parameter) {
    while (!gate_open) usleep(200);
    order.push_back(parameter);
    ran_on = std::this_thread::get_id();
    ++have_run;
    return 10 * parameter;
}
int alerts(int) {
    MACIBM_alert(0, "no such file", "b", "c", "d", alert_fatal);
    return 1;
}
int runs_out_of_memory(int) { throw std::bad_alloc(); }
int throws_a_number(int) { throw 5; }

bool ends(int call) {
    for (int i = 0; i < 5; ++i)
        if (THREAD_IsDone(call, 60.0f)) return true;
    return false;
}
double seconds_of(const std::function<void()>& call) {
    const auto start = std::chrono::steady_clock::now();
    call();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}
XException thrown_by(const std::function<void()>& call) {
    try {
        call();
    } catch (const XException& e) {
        return e;
    }
    ADD_FAILURE() << "nothing was thrown";
    return {"", "", "", "", "", 0};
}

class jobs : public test::system_test {
protected:
    void SetUp() override {
        test::system_test::SetUp();
        order.clear();
        have_run = 0;
        gate_open = true;
    }
};

TEST_F(jobs, a_worker_takes_them_in_order_and_gives_their_results) {
    gate_open = false;
    std::vector<int> calls;
    for (int i = 0; i < 20; ++i) calls.push_back(THREAD_RunAsync(note, i, 1));
    EXPECT_EQ(THREAD_IsDone(calls[0], 0.0f), 0);
    gate_open = true;
    for (int i = 0; i < 20; ++i) {
        ASSERT_TRUE(ends(calls[i]));
        EXPECT_EQ(calls[i], calls[0] + i) << "numbers count up";
        EXPECT_EQ(THREAD_DoneValue(calls[i]), 10 * i);
        EXPECT_EQ(order[i], i);
    }
    EXPECT_NE(ran_on, std::this_thread::get_id());
    for (const int call : calls) THREAD_Cleanup(call);
    EXPECT_EQ(test::expect_fatal([&] { THREAD_DoneValue(calls[3]); }).line[0],
              "THREAD_DoneValue called with bogus call (no finished slot).");
}

TEST_F(jobs, without_disk_work_it_has_run_here_before_the_call_returns) {
    const int call = THREAD_RunAsync(note, 7, 0);
    EXPECT_EQ(order, std::vector<int>{7});
    EXPECT_EQ(ran_on, std::this_thread::get_id());
    EXPECT_EQ(THREAD_IsDone(call, 0.9f), 0) << "no whole second to wait, so it does not look";
    EXPECT_EQ(THREAD_IsDone(call, 2.0f), 1);
    EXPECT_EQ(THREAD_DoneValue(call), 70);
    THREAD_Cleanup(call);
}

TEST_F(jobs, waits_end_early_for_a_job_and_in_time_without_one) {
    gate_open = false;
    const int call = THREAD_RunAsync(note, 1, 1);
    const double waited = seconds_of([&] { EXPECT_EQ(THREAD_IsDone(call, 2.0f), 0); });
    EXPECT_NEAR(waited, 2.0, 1.1) << "whole seconds: up to one less";
    gate_open = true;
    EXPECT_LT(seconds_of([&] { ends(call); }), 1.0);
    THREAD_Cleanup(call);
}

TEST_F(jobs, an_alert_in_a_job_comes_back_as_its_exception_and_the_worker_lives_on) {
    const int call = THREAD_RunAsync(alerts, 0, 1);
    const XException waiting = thrown_by([&] { ends(call); });
    EXPECT_EQ(waiting.c1_, "no such file");
    EXPECT_EQ(waiting.c4_, "d");
    EXPECT_TRUE(test::alerts.empty()) << "nothing shows on the worker";
    EXPECT_EQ(thrown_by([&] { THREAD_Cleanup(call); }).c3_, "c");
    EXPECT_EQ(test::expect_fatal([&] { THREAD_Cleanup(call); }).line[0],
              "THREAD_Cleanup called with bogus call (no finished slot).")
        << "forgotten all the same";

    const int next = THREAD_RunAsync(note, 4, 1);
    ASSERT_TRUE(ends(next));
    EXPECT_EQ(THREAD_DoneValue(next), 40);
    THREAD_Cleanup(next);
}

TEST_F(jobs, other_exceptions_come_back_with_what_they_say) {
    for (const int disk : {0, 1})
        for (const auto& job : {runs_out_of_memory, throws_a_number}) {
            const int call = THREAD_RunAsync(job, 0, disk);
            const XException thrown = thrown_by([&] { ends(call); });
            EXPECT_TRUE(job == throws_a_number || thrown.c2_ == std::bad_alloc().what());
            EXPECT_THROW(THREAD_Cleanup(call), XException);
        }
}

TEST_F(jobs, misuse_of_a_number_is_fatal) {
    EXPECT_EQ(test::expect_fatal([] { THREAD_IsDone(1000000, 5.0f); }).line[0],
              "THREAD_IsDone called with bad call ID.");
    EXPECT_EQ(THREAD_IsDone(1000000, 0.0f), 0) << "without time it does not look";
    gate_open = false;
    const int call = THREAD_RunAsync(note, 1, 1);
    EXPECT_EQ(test::expect_fatal([&] { THREAD_DoneValue(call); }).line[0],
              "THREAD_DoneValue called with running call.");
    EXPECT_EQ(test::expect_fatal([&] { THREAD_Cleanup(call); }).line[0],
              "THREAD_Cleanup called with still running call.");
    gate_open = true;
    ends(call);
    THREAD_Cleanup(call);
}

TEST_F(jobs, the_end_finishes_what_waits_and_a_new_start_works) {
    const test::temp_folder folder;
    deverr.open(folder.path() + "DevError.out");
    for (int i = 0; i < 5; ++i) THREAD_RunAsync(note, i, 1);
    THREAD_Cleanup();
    EXPECT_EQ(order.size(), 5u);
    EXPECT_FALSE(THREAD_IsInited());
    THREAD_RunAsync(note, 9, 1);
    EXPECT_EQ(ran_on, std::this_thread::get_id()) << "without workers it runs here";
    THREAD_Cleanup();
    THREAD_Init();
    THREAD_Init();
    EXPECT_TRUE(THREAD_IsInited() && THREAD_IsMainThread());
    deverr.close();
    EXPECT_EQ(test::read_file(folder.path() + "DevError.out"), "Number of CPUs: 1\n")
        << "a second start is none";
    const int call = THREAD_RunAsync(note, 3, 1);
    ASSERT_TRUE(ends(call));
    EXPECT_NE(ran_on, std::this_thread::get_id());
    THREAD_Cleanup(call);
}

TEST_F(jobs, a_stuck_job_does_not_hang_the_end_and_may_still_come_back) {
    const test::temp_folder folder;
    deverr.open(folder.path() + "DevError.out");
    gate_open = false;
    THREAD_RunAsync(note, 1, 1);
    EXPECT_LT(seconds_of([] { THREAD_Cleanup(); }), 10.0);
    deverr.close();
    EXPECT_EQ(test::read_file(folder.path() + "DevError.out"), "Warning: didn't wait for thread 0\n");
    THREAD_Init();
    gate_open = true;
    for (int i = 0; i < 1000 && have_run == 0; ++i) usleep(1000);
    ASSERT_EQ(have_run, 1) << "it ends by itself, after the new start";
    const int call = THREAD_RunAsync(note, 2, 1);
    ASSERT_TRUE(ends(call));
    EXPECT_EQ(THREAD_DoneValue(call), 20);
    THREAD_Cleanup(call);
}
TEST_F(jobs, a_caller_that_goes_on_is_told_of_late_and_thrown_jobs_and_keeps_no_trace_of_ended_ones) {
    const char* const late = "Timed out.";
    const int good = THREAD_RunAsync(note, 1, 1);
    EXPECT_TRUE(THREAD_Finish(good, 60.0f, late));
    EXPECT_TRUE(test::alerts.empty());
    const int faulty = THREAD_RunAsync(alerts, 0, 1);
    EXPECT_FALSE(THREAD_Finish(faulty, 60.0f, late));
    ASSERT_EQ(test::alerts.size(), 1u);
    EXPECT_EQ(test::alerts[0].text.line[0], "no such file");
    EXPECT_EQ(test::alerts[0].type, alert_message);
    for (const int call : {good, faulty}) test::expect_fatal([call] { THREAD_DoneValue(call); });
    gate_open = false;
    const int slow = THREAD_RunAsync(note, 2, 1);
    EXPECT_FALSE(THREAD_Finish(slow, 1.0f, late));
    EXPECT_EQ(test::alerts.back().text.line[0], late);
    EXPECT_EQ(test::alerts.back().type, alert_message);
    gate_open = true;
    EXPECT_TRUE(ends(slow)) << "it may still come";
}
}  // namespace
