// The command line of a subcommand: options with their help, and files.
#pragma once
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

// The user's mistake on the command line, and a fault of the aircraft or its flight: they end the
// program with different states.
struct wrong_use : std::runtime_error {
    using std::runtime_error::runtime_error;
};
struct flight_fault : std::runtime_error {
    using std::runtime_error::runtime_error;
};

enum exit_code : int { exit_good = 0, exit_fault = 1, exit_wrong_use = 2 };

struct option_row {
    const char* name;   // without the dashes
    const char* value;  // what follows it, as the help names it; null for a switch
    const char* help;
};

struct sweep {
    double first, last, step;
    int count() const;
    double at(int i) const { return first + i * step; }
};

class options {
public:
    // usage: the lines above the list of options. Throws wrong_use for what is not in the list, and for more
    // files than that.
    options(const char* usage, const std::vector<option_row>& rows, int argc, char** argv,
            size_t most_files = 1);

    bool wants_help() const { return has("help"); }
    void print_help() const;

    bool has(const std::string& name) const { return given_.count(name) != 0; }
    std::string text(const std::string& name, const std::string& fallback) const;
    // Throws wrong_use for a value that is no number or out of range.
    double number(const std::string& name, double fallback, double lowest, double highest) const;
    int whole(const std::string& name, int fallback, int lowest, int highest) const;
    // "A:B:STEP", or one value.
    sweep range(const std::string& name, sweep fallback, double lowest, double highest) const;

    // The one file on the command line, or an empty text.
    std::string file() const { return files_.empty() ? "" : files_.front(); }
    std::string needed_file() const;
    const std::vector<std::string>& files() const { return files_; }

private:
    const char* usage_;
    std::vector<option_row> rows_;
    std::map<std::string, std::string> given_;
    std::vector<std::string> files_;
};

// Runs a program that says what went wrong by throwing, and gives its exit status.
int run_program(const char* name, int (*run)(int argc, char** argv), int argc, char** argv);

// The whole of a text as a finite number.
bool read_number(const std::string& text, double* number);
