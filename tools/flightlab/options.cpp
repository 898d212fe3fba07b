// Options by getopt_long.
#include "options.h"

#include <getopt.h>
#include <math.h>

#include <cstdio>
#include <cstdlib>

bool read_number(const std::string& text, double* number) {
    char* end = nullptr;
    *number = strtod(text.c_str(), &end);
    return !text.empty() && *end == 0 && std::isfinite(*number);
}

int sweep::count() const { return static_cast<int>(floor((last - first) / step + 1e-6)) + 1; }

options::options(const char* usage, const std::vector<option_row>& rows, int argc, char** argv,
                 size_t most_files)
    : usage_(usage), rows_(rows) {
    rows_.push_back({"help", nullptr, "show this text"});
    std::vector<option> known;
    for (const option_row& row : rows_)
        known.push_back({row.name, row.value ? required_argument : no_argument, nullptr, 0});
    known.push_back({});

    opterr = 0;  // the messages are our own
    optind = 1;
    int row = -1, found;
    while ((found = getopt_long(argc, argv, ":", known.data(), &row)) != -1) {
        const std::string word = argv[optind - 1];
        if (found == ':') throw wrong_use(word + " needs a value");
        if (found != 0) throw wrong_use("unknown or ambiguous option " + word);
        given_[known[static_cast<size_t>(row)].name] = optarg ? optarg : "";
    }
    files_.assign(argv + optind, argv + argc);
    if (files_.size() > most_files)
        throw wrong_use(most_files == 1 ? "more than one file: " + files_[1]
                                        : "too many files: " + files_[most_files]);
}

void options::print_help() const {
    printf("%s\nOptions\n", usage_);
    for (const option_row& row : rows_) {
        const std::string left =
            std::string("--") + row.name + (row.value ? std::string(" ") + row.value : "");
        printf("  %-22s %s\n", left.c_str(), row.help);
    }
}

std::string options::text(const std::string& name, const std::string& fallback) const {
    const auto it = given_.find(name);
    return it == given_.end() ? fallback : it->second;
}

static double number_within(const std::string& name, const std::string& text, double lowest, double highest) {
    double value;
    if (!read_number(text, &value)) throw wrong_use("--" + name + ": \"" + text + "\" is not a number");
    if (value < lowest || value > highest) {
        char range[100];
        snprintf(range, sizeof range, " is not within %g and %g", lowest, highest);
        throw wrong_use("--" + name + ": " + text + range);
    }
    return value;
}

double options::number(const std::string& name, double fallback, double lowest, double highest) const {
    return has(name) ? number_within(name, text(name, ""), lowest, highest) : fallback;
}

int options::whole(const std::string& name, int fallback, int lowest, int highest) const {
    const double value = number(name, fallback, lowest, highest);
    if (value != floor(value))
        throw wrong_use("--" + name + ": " + text(name, "") + " is not a whole number");
    return static_cast<int>(value);
}

sweep options::range(const std::string& name, sweep fallback, double lowest, double highest) const {
    if (!has(name)) return fallback;
    constexpr int max_points = 10000;
    std::string rest = text(name, "");
    std::vector<double> parts;
    for (size_t colon = 0; colon != std::string::npos; rest.erase(0, colon + 1)) {
        colon = rest.find(':');
        const bool is_step = parts.size() == 2;
        parts.push_back(number_within(name, rest.substr(0, colon), is_step ? 1e-3 : lowest, highest));
    }
    if (parts.size() == 1) return {parts[0], parts[0], 1.0};
    if (parts.size() != 3 || parts[1] < parts[0])
        throw wrong_use("--" + name + ": expected FROM:TO:STEP, rising");
    const sweep s{parts[0], parts[1], parts[2]};
    if (s.count() > max_points) throw wrong_use("--" + name + ": too many points");
    return s;
}

std::string options::needed_file() const {
    if (files_.empty()) throw wrong_use("an aircraft file is missing");
    return files_.front();
}

int run_program(const char* name, int (*run)(int argc, char** argv), int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const wrong_use& mistake) {
        fprintf(stderr, "%s: %s\nTry: %s --help\n", name, mistake.what(), name);
        return exit_wrong_use;
    } catch (const std::exception& fault) {
        fflush(stdout);
        fprintf(stderr, "%s: %s\n", name, fault.what());
        return exit_fault;
    }
}
