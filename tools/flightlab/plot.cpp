// gnuplot as a child process.
#include "plot.h"

#include <cstdio>

#include "options.h"

void run_gnuplot(const std::string& script) {
    FILE* pipe = popen("gnuplot 2>&1 >/dev/null", "w");
    if (!pipe) throw flight_fault("gnuplot cannot be started");
    fputs(script.c_str(), pipe);
    if (pclose(pipe) != 0) throw flight_fault("gnuplot failed; is it installed?");
}

std::string plot_quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
    return quoted + "'";
}

std::string plot_data(const char* name, const std::vector<std::vector<double>>& rows) {
    std::string block = std::string("$") + name + " << EOD\n";
    char number[32];
    for (const auto& row : rows) {
        for (const double v : row) {
            snprintf(number, sizeof number, "%.7g ", v);
            block += number;
        }
        block += '\n';
    }
    return block + "EOD\n";
}
