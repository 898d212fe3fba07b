// tile_info: what a scenery tile holds, and its map as a picture.
#include <math.h>
#include <stdio.h>

#include <algorithm>
#include <stdexcept>

#include "../flightlab/options.h"
#include "plan.h"
#include "report.h"

namespace {
const char* const usage =
    "tile_info FILE.dsf [PLAN.png]    what a tile holds; its map as a picture\n"
    "\n"
    "Exit status: 0 good, 1 the tile is not sound or a file cannot be written, 2 wrong use.\n";

// "34.05,34.16,-117.4,-117.2"
area area_from(const std::string& text) {
    double side[4];
    int count = 0;
    for (size_t from = 0; from <= text.size() && count < 4;) {
        const size_t comma = std::min(text.find(',', from), text.size());
        if (!read_number(text.substr(from, comma - from), &side[count++])) count = 5;
        from = comma + 1;
        if (count == 4 && from <= text.size()) count = 5;
    }
    constexpr double widest = 10.0, least = 0.001;  // degrees
    const area a = count == 4 ? area{{side[2], side[3]}, {side[0], side[1]}} : area{};
    const auto is_sound = [](const range& r) { return r.size() >= least && r.size() <= widest; };
    if (!is_sound(a.lat) || !is_sound(a.lon) || fabs(a.lat.min) > 90.0 || fabs(a.lon.min) > 360.0)
        throw wrong_use("--area: \"" + text + "\" is not SOUTH,NORTH,WEST,EAST in degrees");
    return a;
}

int run(int argc, char** argv) {
    constexpr size_t most_files = 2;
    const options from(usage,
                       {{"area", "S,N,W,E", "draws only these degrees"},
                        {"mars", nullptr, "the tile is of Mars: its metres are shorter"}},
                       argc, argv, most_files);
    if (from.wants_help()) return from.print_help(), exit_good;
    if (from.files().empty()) throw wrong_use("which tile?");
    const area given = from.has("area") ? area_from(from.text("area", "")) : area{};
    const tile_file file(from.files()[0]);
    const tile_survey survey = survey_tile(file, from.has("mars") ? mars_degree : earth_degree);
    print_report(file, survey);
    if (from.files().size() < most_files) return exit_good;
    if (!from.has("area") && !survey.has_extent()) throw std::runtime_error("no extent, nothing to draw");
    draw_plan(file, survey, from.has("area") ? given : survey.extent, from.files()[1]);
    return exit_good;
}
}  // namespace

int main(int argc, char** argv) { return run_program("tile_info", run, argc, argv); }
