// Alerts and the exception that replaces them off the main thread.
#include "core/program/alert.h"

#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <set>

#include "core/program/jobs.h"
#include "core/program/logs.h"
#include "core/records/mnw.h"

alert_seam_struct alert_seam;
alert_tick_struct alert_tick;
int g_done = 0;
int check_sys_event = 0;

static void log_lines(const char* file, int line, const alert_lines& text) {
    xer << "file: " << file << ", line: " << line << '\n';
    for (const std::string& s : text.line) xer << s << '\n';
    xer.flush();
}

static void print_lines(const alert_lines& text) {
    std::cout << "Orvelle Error:\n";
    for (const std::string& s : text.line) std::cout << s << "\n\n";
    std::cout << "Sorry.\n";
    std::cout.flush();
}

// Ends abnormally without running destructors again: the records may be half-way through a frame.
[[noreturn]] static void end_process(const alert_lines& text) {
    g_done = 1;
    if (alert_seam.finish) alert_seam.finish(0);
    if (alert_seam.end) alert_seam.end(text);
    std::cout.flush();
    _exit(EXIT_FAILURE);
}

void __MACIBM_alert(int close_to, std::string C_string1, std::string C_string2, std::string C_string3,
                    std::string C_string4, int type, const char* file, int line) {
    if (THREAD_IsInited() && !THREAD_IsMainThread())
        throw XException(C_string1, C_string2, C_string3, C_string4, file, line);
    if (mnw.top_win == win_alrt) return;  // alerts do not nest

    const alert_lines text{{C_string1, C_string2, C_string3, C_string4}};
    if (type == alert_fatal) log_lines(file, line, text);
    if (alert_seam.show)
        alert_seam.show(close_to, text, type);
    else
        print_lines(text);
    if (type == alert_fatal) end_process(text);
}

static void show_once(const alert_lines& text, const char* file, int line) {
    static std::set<std::string> shown;
    const auto& [s1, s2, s3, s4] = text.line;
    if (shown.insert(s1 + '\n' + s2 + '\n' + s3 + '\n' + s4).second)
        __MACIBM_alert(mnw.top_win, s1, s2, s3, s4, alert_message, file, line);
}

static faults_of_file* open_file = nullptr;

static bool on_main_thread() { return !THREAD_IsInited() || THREAD_IsMainThread(); }

void data_fault(std::string s1, std::string s2, std::string s3, std::string s4, const char* file, int line) {
    const alert_lines text{{s1, s2, s3, s4}};
    log_lines(file, line, text);
    if (on_main_thread() && open_file)
        open_file->add(text.line, file, line);
    else
        show_once(text, file, line);
}

faults_of_file::faults_of_file(const std::string& path)
    : path(path), outer(on_main_thread() ? open_file : nullptr) {
    if (on_main_thread()) open_file = this;
}

faults_of_file::~faults_of_file() {
    if (!on_main_thread()) return;
    open_file = outer;
    try {
        show();
    } catch (...) {  // no memory for the words; "Error.out" has them
    }
}

void faults_of_file::show() const {
    for (const kind& k : kinds) {
        alert_lines text{{k.line[0], k.line[1], k.line[2], k.line[3]}};
        if (k.number > 1) {
            if (!text.line[3].empty()) text.line[2] += " " + text.line[3];
            text.line[3] = std::to_string(k.number) + " of this kind in " + path + ". The file Error.out has them all.";
        }
        show_once(text, k.file, k.at);
    }
}

void faults_of_file::add(const std::string (&text)[4], const char* file, int at) {
    for (kind& k : kinds)
        if (k.line[0] == text[0]) {
            ++k.number;
            return;
        }
    kinds.push_back({{text[0], text[1], text[2], text[3]}, file, at, 1});
}

XException::XException(std::string c1, std::string c2, std::string c3, std::string c4, const char* file,
                       int line)
    : c1_(std::move(c1)),
      c2_(std::move(c2)),
      c3_(std::move(c3)),
      c4_(std::move(c4)),
      file_(file),
      line_(line) {}

void XException::ReportAndQuit() const { __MACIBM_alert(0, c1_, c2_, c3_, c4_, alert_fatal, file_, line_); }

void XException::ReportAndContinue() const {
    if (THREAD_IsMainThread()) {
        __MACIBM_alert(0, c1_, c2_, c3_, c4_, alert_message, file_, line_);
        return;
    }
    xer << "EXCEPTION REPORTED FROM THREAD!!  File: " << file_ << ", line " << line_ << '\n'
        << c1_ << '\n'
        << c2_ << '\n'
        << c3_ << '\n'
        << c4_ << '\n';
    xer.flush();
    g_done = 1;
    if (alert_seam.finish) alert_seam.finish(1);
    _exit(EXIT_SUCCESS);
}
