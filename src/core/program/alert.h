// The one way to tell the user something, and the exception that carries it off other threads.
// Role: callable from everywhere. How an alert is shown and how the program ends are seams that the
// application sets; without them an alert prints.
#pragma once
#include <string>
#include <vector>

enum alert_type : int {
    alert_language = 0,  // language chooser; the strings are ignored
    alert_sys_event = 1, // message that also arms the system-event check
    alert_message = 2,   // message, the program goes on
    alert_fatal = 3,     // logged, shown, then the process ends
};

// Four lines of text. close_to: window to return to afterwards. Strings are never used as formats.
void __MACIBM_alert(int close_to, std::string C_string1, std::string C_string2, std::string C_string3,
                    std::string C_string4, int type, const char* file, int line);
#define MACIBM_alert(close_to, s1, s2, s3, s4, type) \
    __MACIBM_alert(close_to, s1, s2, s3, s4, type, __FILE__, __LINE__)

// One line of text, and the end of the program.
#define MACIBM_fatal(text) MACIBM_alert(0, text, "", "", "", alert_fatal)

// Faults of data that the program lives with: writes the lines with file and line to "Error.out",
// shows each distinct message once as type 2, and lets the caller go on with its substitute.
void data_fault(std::string s1, std::string s2, std::string s3, std::string s4, const char* file, int line);
#define MACIBM_data_fault(s1, s2, s3, s4) data_fault(s1, s2, s3, s4, __FILE__, __LINE__)

// While one lives, the data faults of the main thread are those of its file: each goes to "Error.out" at once, and
// when it ends, each kind of them (their first line) is shown once, as its first fault had it and with their number.
class faults_of_file {
public:
    explicit faults_of_file(const std::string& path);
    ~faults_of_file();
    faults_of_file(const faults_of_file&) = delete;
    faults_of_file& operator=(const faults_of_file&) = delete;

private:
    friend void data_fault(std::string, std::string, std::string, std::string, const char*, int);
    struct kind {
        std::string line[4];  // of the first
        const char* file;     // not owned
        int at, number;
    };
    void add(const std::string (&text)[4], const char* file, int at);
    void show() const;

    const std::string path;
    faults_of_file* const outer;  // the one that was open before
    std::vector<kind> kinds;
};

// A tick box that alerts of type 2 have below their text while `ticked` is set.
struct alert_tick_struct {
    std::string label;
    int* ticked = nullptr;
};
extern alert_tick_struct alert_tick;

struct alert_lines {
    std::string line[4];
};

// What the application puts in place of printing.
struct alert_seam_struct {
    // Shows an alert and waits for the user; null before the graphics are up and in headless runs.
    void (*show)(int close_to, const alert_lines& text, int type) = nullptr;
    // Orderly shutdown of a fatal end, without preferences; null outside the full program.
    void (*finish)(int is_normal_exit) = nullptr;
    // Ends the process, never returns. Tests and fuzzers replace it by one that throws.
    void (*end)(const alert_lines& text) = nullptr;
};
extern alert_seam_struct alert_seam;

extern int g_done;            // ends the frame loop
extern int check_sys_event;   // armed by alerts of type 1

class XException {
public:
    XException(std::string c1, std::string c2, std::string c3, std::string c4, const char* file, int line);
    XException(const XException&) = default;
    XException& operator=(const XException&) = default;
    virtual ~XException() = default;

    void ReportAndQuit() const;      // type 3 alert
    void ReportAndContinue() const;  // type 2 alert; off the main thread it logs and ends the process

    std::string c1_, c2_, c3_, c4_;
    const char* file_;  // not owned
    int line_;
};
