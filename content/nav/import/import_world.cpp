// Real tables from published CSV files: the order of the steps, and what completes the airports.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "csv.h"
#include "nav_airways.h"
#include "nav_check.h"
#include "nav_furnish.h"
#include "nav_geo.h"
#include "nav_import.h"
#include "nav_plant.h"
#include "nav_random.h"
#include "nav_text.h"
#include "nav_write.h"

namespace {
constexpr double unknown_elevation = -1e9;

// Elevations that nobody published: that of the nearest place which has one, within reach of a day's walk.
void guess_elevations(import_job& job, nav_world& world) {
    constexpr double reach = 40000;  // m
    struct known_height {
        nav_place at;
        double ele;
    };
    std::vector<known_height> known;
    for (const nav_airport& a : world.airports)
        if (a.ele > unknown_elevation) known.push_back({a.runways[0].at, a.ele});
    for (const nav_aid& a : world.aids)
        if (a.ele > unknown_elevation) known.push_back({a.at, a.ele});
    const auto guess = [&](nav_place at, double& ele) {
        if (ele > unknown_elevation) return;
        double nearest = reach;
        ele = 0;
        for (const known_height& k : known) {
            if (std::fabs(k.at.lat - at.lat) > 0.4) continue;
            const double away = std::round(distance_between(world.globe, k.at, at));
            if (away < nearest) nearest = away, ele = k.ele;
        }
        ++job.counts.guessed_elevations;
    };
    for (size_t n = 0; n < world.airports.size(); ++n) {
        guess(world.airports[n].runways[0].at, world.airports[n].ele);
        if (n % 500 == 0)
            job.progress("elevations", static_cast<double>(n) / static_cast<double>(world.airports.size()));
    }
    for (nav_aid& a : world.aids) guess(a.at, a.ele);
}

bool lit(const nav_runway& r) { return r.lights[0] != 111 || r.lights[1] != 111; }

bool busy(const nav_airport& a, const import_table& details) {
    constexpr double long_runway = 8000;  // feet
    if (const auto known = details.find(a.id); known != details.end())
        return known->second.kind == "large_airport";
    return a.tower && std::any_of(a.runways.begin(), a.runways.end(), [](const nav_runway& r) {
               return is_hard(r.surface) && lit(r) && r.len >= long_runway;
           });
}

// Landing aids for the long lighted hard runways of large airports; without the optional table those with a
// tower and such a runway count as large.
void wish_landing_aids(const nav_world& world, size_t own, const import_table& details,
                       std::vector<ils_wish>& wishes) {
    constexpr double shortest = 6500, both_ends = 9000;  // feet
    for (size_t n = own; n < world.airports.size(); ++n) {
        const nav_airport& a = world.airports[n];
        if (!busy(a, details)) continue;
        for (size_t r = 0; r < a.runways.size(); ++r) {
            const nav_runway& runway = a.runways[r];
            if (runway.num == "xxx" || !is_hard(runway.surface) || !lit(runway) || runway.len < shortest)
                continue;
            wishes.push_back({n, r, 0});
            if (runway.len >= both_ends) wishes.push_back({n, r, 1});
        }
    }
}

void complete_airports(import_job& job, nav_world& world, size_t own) {
    constexpr double city_runway = 8000, town_runway = 3500;  // feet
    for (size_t n = own; n < world.airports.size(); ++n) {
        nav_airport& a = world.airports[n];
        if (n % 500 == 0)
            job.progress("airports", static_cast<double>(n) / static_cast<double>(world.airports.size()));
        const nav_runway& main = a.runways[0];
        const int side = nav_random(a.id).chance(0.5) ? 1 : -1;
        const int size = a.tower && main.len >= city_runway                 ? 2
                         : main.len >= town_runway && is_hard(main.surface) ? 1
                                                                            : 0;
        furnish_airport(world.globe, a, {side, size, lit(main)});
    }
}

// Drops what the simulator would refuse, telling why.
void drop_faulty(import_job& job, nav_world& world, size_t own) {
    const auto airport_bad = [&](const nav_airport& a) { return !check_airport(a, job.faults); };
    const auto aid_bad = [&](const nav_aid& a) { return !check_aid(a, job.faults); };
    const size_t before = world.airports.size() + world.aids.size();
    const auto mine = world.airports.begin() + static_cast<long>(own);
    world.airports.erase(std::remove_if(mine, world.airports.end(), airport_bad), world.airports.end());
    world.aids.erase(std::remove_if(world.aids.begin(), world.aids.end(), aid_bad), world.aids.end());
    job.counts.faulty = static_cast<int>(before - world.airports.size() - world.aids.size());
}
}  // namespace

bool import_details_of(import_job& job, import_table& details, std::string& fault) {
    const std::string path = job.folder + "/airports.csv";
    if (!std::filesystem::exists(path)) return true;
    csv_table t;
    std::vector<int> c;
    if (!csv_read(path, {"ident", "type", "name", "latitude_deg", "longitude_deg", "elevation_ft"}, t, c,
                  fault))
        return false;
    const int code = t.column("icao_code") >= 0 ? t.column("icao_code") : t.column("gps_code");
    for (const csv_row& row : t.rows) {
        import_details& d = details[upper_case(plain_text(t.field(row, c[0])))];
        d.kind = t.field(row, c[1]);
        d.name = airport_name(t.field(row, c[2]));
        d.at = {csv_number(t.field(row, c[3]), 999), csv_number(t.field(row, c[4]), 999)};
        d.has_place = std::fabs(d.at.lat) < 89.9 && std::fabs(d.at.lon) <= 180;
        d.ele = csv_number(t.field(row, c[5]), unknown_elevation);
        d.code = upper_case(plain_text(t.field(row, code)));
    }
    return true;
}

bool import_world(import_job& job, nav_world& world, std::string& fault) {
    const size_t own = world.airports.size();
    import_table details;
    if (!import_details_of(job, details, fault) || !import_runways(job, details, world, fault) ||
        !import_frequencies(job, world, fault) || !import_aids(job, world, fault))
        return false;
    guess_elevations(job, world);
    std::vector<ils_wish> wishes;
    wish_landing_aids(world, own, details, wishes);
    plant_ils(world, wishes);
    complete_airports(job, world, own);
    drop_faulty(job, world, own);
    std::sort(world.airports.begin(), world.airports.end(),
              [](const nav_airport& a, const nav_airport& b) { return a.id < b.id; });
    sort_aids(world);
    job.progress("airways", 0);
    add_airways(world, {});
    return true;
}
