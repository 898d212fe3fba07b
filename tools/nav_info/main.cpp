// nav_info: what the navigation tables know of an identifier, and an airport's plan as a picture.
#include <stdio.h>
#include <string.h>
#include <strings.h>
#include <unistd.h>

#include <filesystem>

#include "../flightlab/options.h"
#include "core/disk/paths.h"
#include "core/program/alert.h"
#include "describe.h"
#include "plan.h"
#include "tables.h"

namespace {
const char* const usage =
    "nav_info IDENT    what is known of an airport, navaid, fix or airway\n"
    "\n"
    "Prints all that have this identifier; with --picture also draws the airport's plan.\n"
    "Exit status: 0 found, 1 not found or fault in the tables, 2 wrong use.\n";

// What an identifier may belong to; a kind of navaid, or one of the others.
struct type_row {
    const char* word;
    int type;
};
constexpr int type_airway = 100;
constexpr type_row types[] = {
    {"apt", targ_apt}, {"ndb", nav_ndb}, {"vor", nav_vor},  {"ils", nav_ils},
    {"loc", nav_loc},  {"gls", nav_gls}, {"om", nav_outer}, {"mm", nav_middle},
    {"im", nav_inner}, {"dme", nav_dme}, {"fix", targ_fix}, {"awy", type_airway},
};
constexpr int type_any = 0;

int wanted_type(const options& from) {
    const std::string word = from.text("type", "");
    if (word.empty()) return type_any;
    std::string known;
    for (const type_row& row : types) {
        if (!strcasecmp(row.word, word.c_str())) return row.type;
        known += std::string(known.empty() ? "" : ", ") + row.word;
    }
    throw wrong_use("--type: \"" + word + "\" is none of " + known);
}

std::string install_folder(const options& from) {
    const std::string beside = executable_folder() + "../Orvelle/";
    std::string folder = from.text("folder", std::filesystem::is_directory(beside) ? beside : "./");
    if (folder.empty() || folder.back() != '/') folder += '/';
    if (!std::filesystem::is_directory(folder)) throw flight_fault(folder + ": no such folder");
    return std::filesystem::absolute(folder).string();
}

void show_on_stderr(int, const alert_lines& text, int) {
    fflush(stdout);
    for (const std::string& words : text.line)
        if (!words.empty()) fprintf(stderr, "nav_info: %s\n", words.c_str());
}
void end_with_fault(const alert_lines&) { _exit(exit_fault); }

class finder {
public:
    finder(const std::string& ident, int type) : ident_(ident), type_(type) {}

    // Each gives how many it printed.
    int airports() {
        int count = 0;
        for (size_t i = 0; wants(targ_apt) && i < vec_apt.size(); ++i)
            if (is_it(vec_apt[i].apt_id)) {
                part();
                describe_airport(static_cast<int>(i));
                if (airport < 0) airport = static_cast<int>(i);
                ++count;
            }
        return count;
    }
    int aids() {
        int count = 0;
        for (const vec_nav_struct& aid : vec_nav)
            if (wants(aid.type) && is_it(aid.nav_id)) {
                part();
                describe_aid(aid);
                ++count;
            }
        return count;
    }
    int fixes() {
        int count = 0;
        for (const vec_fix_struct& fix : vec_fix)
            if (wants(targ_fix) && is_it(fix.fix_name)) {
                part();
                describe_fix(fix);
                ++count;
            }
        return count;
    }
    int airways() {
        if (!wants(type_airway) || chains_of(ident_).empty()) return 0;
        part();
        describe_airway(ident_);
        return 1;
    }
    int airport = -1;  // index of the first that was found

private:
    bool wants(int type) const { return type_ == type_any || type_ == type; }
    bool is_it(const char* name) const { return !strcasecmp(name, ident_.c_str()); }
    void part() {
        if (printed_++) puts("");
    }
    std::string ident_;
    int type_, printed_ = 0;
};

int run(int argc, char** argv) {
    const options from(usage,
                       {{"type", "KIND", "only apt, ndb, vor, ils, loc, gls, om, mm, im, dme, fix or awy"},
                        {"picture", "FILE.png", "draws the airport's plan"},
                        {"folder", "DIR", "the install folder (Orvelle/ beside the tools)"},
                        {"mars", nullptr, "the tables of Mars"}},
                       argc, argv);
    if (from.wants_help()) return from.print_help(), exit_good;
    const std::string ident = from.file();
    if (ident.empty()) throw wrong_use("which identifier?");
    const int type = wanted_type(from);
    const bool draws = from.has("picture");
    if (draws && type != type_any && type != targ_apt) throw wrong_use("only an airport has a picture");

    alert_seam.show = show_on_stderr;
    alert_seam.end = end_with_fault;
    load_tables(install_folder(from), from.has("mars") ? 1 : 0);
    finder find(ident, type);
    int found = find.airports();
    found += find.aids();
    found += find.fixes();
    found += find.airways();
    if (!found) throw flight_fault(ident + ": nothing has this identifier");
    if (!draws) return exit_good;
    if (find.airport < 0) throw flight_fault(ident + " is no airport: there is no plan to draw");
    const int left_out = draw_plan(find.airport, from.text("picture", ""));
    fflush(stdout);
    if (left_out) fprintf(stderr, "nav_info: no room on the plan for %d names\n", left_out);
    return exit_good;
}
}  // namespace

int main(int argc, char** argv) { return run_program("nav_info", run, argc, argv); }
