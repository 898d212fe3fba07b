// Shared by all tests: a fresh system without window, alerts that can be asserted, floating-point traps.
#pragma once
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/program/alert.h"
#include "core/records/records.h"

namespace test {

// Thrown where a fatal alert would end the process.
struct fatal : std::runtime_error {
    explicit fatal(const alert_lines& text) : std::runtime_error(text.line[0]), lines(text) {}
    alert_lines lines;
};

// Alerts shown since the last fresh(), fatal ones included.
struct shown_alert {
    alert_lines text;
    int type;
};
extern std::vector<shown_alert> alerts;
void record_alerts();

// Zero records, constants, Earth, quiet seams with a virtual clock, seed 1, alerts recorded.
void fresh();

// Runs the call, expects a fatal alert and gives its lines (empty when none came).
alert_lines expect_fatal(const std::function<void()>& call);

// Traps invalid operations, divisions by zero and overflows while it lives.
class fp_traps {
public:
    fp_traps();
    ~fp_traps();

private:
    int before_;
};

// A folder of this test alone, removed with its contents at the end.
class temp_folder {
public:
    temp_folder();
    ~temp_folder();
    const std::string& path() const { return path_; }                            // with a closing slash
    std::string write(const std::string& name, const std::string& bytes) const;  // gives the full path

private:
    std::string path_;
};

std::string read_file(const std::string& path);

// A program and its words run by the shell; status -1 when it did not end by itself.
struct run_result {
    int status;
    std::string output;  // both streams
};
run_result run(const std::string& command);

// Waits until it is so; false when the patience, in seconds, runs out before.
bool comes(const std::function<bool()>& so, double patience = 10.0);

// Fixture that starts from a fresh system.
class system_test : public ::testing::Test {
protected:
    void SetUp() override { fresh(); }
};

}  // namespace test
