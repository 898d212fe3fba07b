// Runways and airports from the published rows.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "csv.h"
#include "nav_geo.h"
#include "nav_import.h"
#include "nav_text.h"

namespace {
constexpr double unknown_elevation = -1e9;
constexpr double same_runway = 600;  // m between middles: the same field under another identifier
constexpr double shortest = 60;      // feet; below is no runway but a mark

struct runway_columns {
    int ident, length, width, surface, lighted, closed;
    int name[2], lat[2], lon[2], ele[2], heading[2], displaced[2];
};

struct found_airport {
    nav_airport airport;
    double ele = 0;
    int heights = 0;
};

bool read_table(const import_job& job, csv_table& table, runway_columns& c, std::string& fault) {
    std::vector<int> n;
    if (!csv_read(job.folder + "/runways.csv",
                  {"airport_ident", "length_ft", "width_ft", "surface", "lighted", "closed", "le_ident",
                   "le_latitude_deg", "le_longitude_deg", "le_elevation_ft", "le_heading_degT",
                   "le_displaced_threshold_ft", "he_ident", "he_latitude_deg", "he_longitude_deg",
                   "he_elevation_ft", "he_heading_degT", "he_displaced_threshold_ft"},
                  table, n, fault))
        return false;
    c = {n[0],          n[1],          n[2],          n[3],          n[4],           n[5],
         {n[6], n[12]}, {n[7], n[13]}, {n[8], n[14]}, {n[9], n[15]}, {n[10], n[16]}, {n[11], n[17]}};
    return true;
}

// Headings that a name tells, magnetic: "27L" 270, "NE" 45; -1 for none.
double heading_of_name(const std::string& name) {
    struct point {
        const char* name;
        double heading;
    };
    constexpr point points[] = {{"N", 0},   {"NE", 45},  {"E", 90},  {"SE", 135},
                                {"S", 180}, {"SW", 225}, {"W", 270}, {"NW", 315}};
    for (const point& p : points)
        if (name == p.name) return p.heading;
    const int number = std::atoi(name.c_str());
    return number >= 1 && number <= 36 ? 10 * number : -1;
}

// "H1", "09H": where helicopters land.
bool helicopter_name(const std::string& name) {
    return !name.empty() &&
           (name[0] == 'H' || (name.back() == 'H' && isdigit(static_cast<unsigned char>(name[0]))));
}

// Three characters; a name without a number gets that of its heading.
std::string num_of(const nav_globe& globe, const std::string& name, const nav_runway& r) {
    const bool helicopters = helicopter_name(name);
    int number = std::atoi(name.c_str() + (helicopters && name[0] == 'H'));
    if (number < 1 || number > 36) number = runway_number(globe, r.at, r.psi);
    const char last = name.empty() ? ' ' : name.back();
    const char side = last == 'L' || last == 'C' || last == 'R' ? last : 'x';
    const std::string two = (number < 10 ? "0" : "") + std::to_string(number);
    return helicopters ? "H" + two : two + side;
}

bool free_num(const nav_airport& a, std::string& num) {
    const std::string letters = num[0] == 'H' ? "0123456789" : "xLRC";
    for (const char side : num[2] + letters) {
        num[2] = side;
        if (std::none_of(a.runways.begin(), a.runways.end(),
                         [&](const nav_runway& r) { return r.num == num; }))
            return true;
    }
    return false;
}

void dress(nav_runway& r, bool lighted) {
    std::string unknown;
    const bool hard = is_hard(r.surface), main = hard && r.len >= 7000;
    const std::string words =
        !lighted ? ""
                 : std::string(r.len >= 4000 && hard ? "papi " : "") + (main ? "threshold SSALS" : "edge");
    r.lights[0] = r.lights[1] = lights_with_words(words, &unknown);
    r.markings = !hard ? 0 : main ? 3 : r.len >= 4000 ? 2 : 1;
    r.shoulder = main && r.width >= 140 ? r.surface : 0;
    r.signs = main;
    r.roughness = hard ? 0.25 : r.surface == surface_water ? 0 : 0.5;
}

bool own_field(const nav_world& world, size_t own, const nav_place& at) {
    for (size_t n = 0; n < own; ++n)
        for (const nav_runway& r : world.airports[n].runways)
            if (r.num[0] != 'x' && r.num[0] != 'H' && std::fabs(r.at.lat - at.lat) < 0.01 &&
                distance_between(world.globe, r.at, at) < same_runway)
                return true;
    return false;
}

// A runway without ends lies on its airport's reference point, where that is known.
bool place_by_reference(const nav_globe& globe, published_end ends[2], double length,
                        const import_details& known) {
    const double named = heading_of_name(ends[0].ident);
    const bool told = ends[0].heading >= 0 && ends[0].heading <= 360;
    if (!known.has_place || length < shortest || (!told && named < 0)) return false;
    const double psi = told ? ends[0].heading : named - variation_at(globe, known.at);
    ends[0].at = place_from(globe, known.at, psi + 180, length / 2 * foot);
    ends[1].at = place_from(globe, known.at, psi, length / 2 * foot);
    return true;
}

void add_row(import_job& job, const csv_table& t, const runway_columns& c, const csv_row& row,
             const nav_globe& globe, const import_table& details,
             std::map<std::string, found_airport>& found) {
    import_counts& counts = job.counts;
    published_end ends[2];
    bool placed = true;
    for (int e = 0; e < 2; ++e) {
        published_end& end = ends[e];
        end.ident = upper_case(plain_text(t.field(row, c.name[e])));
        end.at = {csv_number(t.field(row, c.lat[e]), 999), csv_number(t.field(row, c.lon[e]), 999)};
        placed &= std::fabs(end.at.lat) <= 90 && std::fabs(end.at.lon) <= 180;
        end.ele = csv_number(t.field(row, c.ele[e]), unknown_elevation);
        end.heading = csv_number(t.field(row, c.heading[e]), -1);
        end.displaced = csv_number(t.field(row, c.displaced[e]), 0);
    }
    const std::string ident = upper_case(plain_text(t.field(row, c.ident))), &first = ends[0].ident;
    const double length = csv_number(t.field(row, c.length), 0);
    if (t.field(row, c.closed) == "1") return void(++counts.closed);
    if (const auto known = details.find(ident); !placed && known != details.end())
        placed = place_by_reference(globe, ends, length, known->second);
    if (!placed) return void(++counts.placeless);
    // a spot in place of two ends
    if (ends[0].at.lat == ends[1].at.lat && ends[0].at.lon == ends[1].at.lon) return void(++counts.pseudo);
    nav_runway r;
    bool rebuilt = false;
    if (!runway_of_ends(globe, ends, length, csv_number(t.field(row, c.width), 0), r, rebuilt))
        return void(++counts.pseudo);
    counts.rebuilt += rebuilt;
    r.surface = surface_with_free_text(t.field(row, c.surface));
    r.num = num_of(globe, first, r);
    dress(r, t.field(row, c.lighted) == "1");
    found_airport& f = found[ident];
    if (!free_num(f.airport, r.num)) return void(++counts.named_twice);
    f.airport.runways.push_back(r);
    for (const published_end& end : ends)
        if (end.ele > unknown_elevation) f.ele += end.ele, ++f.heights;
    ++counts.runways;
}

void finish(const std::string& ident, found_airport& f, const import_table& details) {
    nav_airport& a = f.airport;
    const auto known = details.find(ident);
    a.name = known == details.end() || known->second.name.empty() ? ident : known->second.name;
    a.ele = f.heights ? f.ele / f.heights : unknown_elevation;
    if (known != details.end() && known->second.ele > unknown_elevation) a.ele = known->second.ele;
    std::stable_sort(a.runways.begin(), a.runways.end(),
                     [](const nav_runway& x, const nav_runway& y) { return x.len > y.len; });
    a.type = std::all_of(a.runways.begin(), a.runways.end(),
                         [](const nav_runway& r) { return r.surface == surface_water; })
                 ? 16
                 : 1;
    if (known != details.end() && known->second.kind == "seaplane_base") a.type = 16;
    if (known != details.end() && known->second.kind == "heliport") a.type = 17;
}
}  // namespace

bool runway_of_ends(const nav_globe& globe, const published_end ends[2], double length, double width,
                    nav_runway& r, bool& rebuilt) {
    constexpr double share = 0.05, metres = 50;
    const double apart = distance_between(globe, ends[0].at, ends[1].at) / foot;
    r.at = place_between(ends[0].at, ends[1].at, 0.5);
    r.len = length > 0 ? length : apart;
    r.psi = apart > 1 ? bearing_between(globe, r.at, ends[1].at) : 0;
    rebuilt = std::fabs(apart - r.len) > std::max(share * r.len, metres / foot);
    if (rebuilt) {
        const double named = heading_of_name(ends[0].ident);
        if (ends[0].heading >= 0 && ends[0].heading <= 360)
            r.psi = wrap_heading(ends[0].heading);
        else if (named >= 0)
            r.psi = wrap_heading(named - variation_at(globe, r.at));
    }
    constexpr double usual_width = 60, widest = 3000;
    r.width = width >= 10 && width <= widest ? width : usual_width;
    for (int e = 0; e < 2; ++e)
        r.disp[e] = ends[e].displaced > 0 ? static_cast<int>(std::min(ends[e].displaced, 9999.0)) : 0;
    if (r.disp[0] + r.disp[1] > 0.8 * r.len) r.disp[0] = r.disp[1] = 0;
    return r.len >= shortest && r.len < 60000;
}

std::string short_ident(const std::string& ident, const std::string& code,
                        std::map<std::string, int>& taken) {
    constexpr char digits[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    std::vector<std::string> choices = {code};
    std::string land, number;
    for (const char c : ident)
        if (isalpha(static_cast<unsigned char>(c)) && land.size() < 2 && number.empty())
            land += c;
        else if (isdigit(static_cast<unsigned char>(c)))
            number += c;
    land.resize(2, 'Z');
    const int start = std::atoi(number.substr(0, 6).c_str());
    for (int n = 0; n < 36 * 36; ++n) {
        const int k = (start + n) % (36 * 36);
        choices.push_back(land + digits[k / 36] + digits[k % 36]);
    }
    for (int n = 0; n < 36 * 36 * 36; ++n)  // when a land has used up its own
        choices.push_back(std::string(1, land[0]) + digits[n / 1296] + digits[n / 36 % 36] + digits[n % 36]);
    for (const std::string& c : choices)
        if (c.size() >= 3 && c.size() <= 4 && c != "XXXX" && taken.emplace(c, 1).second) return c;
    return "";
}

bool import_runways(import_job& job, const import_table& details, nav_world& world, std::string& fault) {
    csv_table table;
    runway_columns c;
    if (!read_table(job, table, c, fault)) return false;
    std::map<std::string, found_airport> found;
    std::map<std::string, int> taken;
    job.counts.rows = static_cast<int>(table.rows.size());
    const size_t own = world.airports.size();
    for (const nav_airport& a : world.airports) taken[a.id] = 1;
    for (size_t n = 0; n < table.rows.size(); ++n) {
        add_row(job, table, c, table.rows[n], world.globe, details, found);
        if (n % 1000 == 0)
            job.progress("runways", static_cast<double>(n) / static_cast<double>(table.rows.size()));
    }
    job.counts.airports = static_cast<int>(std::count_if(
        found.begin(), found.end(), [](const auto& f) { return !f.second.airport.runways.empty(); }));
    const auto fits = [](const std::string& id) { return !id.empty() && id.size() <= 4 && id != "XXXX"; };
    for (const auto& [ident, f] : found)
        if (fits(ident)) taken[ident] = 1;
    for (auto& [ident, f] : found) {
        if (f.airport.runways.empty()) continue;
        finish(ident, f, details);
        nav_airport& a = f.airport;
        const bool wins = std::any_of(world.airports.begin(), world.airports.begin() + static_cast<long>(own),
                                      [&id = ident](const nav_airport& mine) { return mine.id == id; });
        if (wins || own_field(world, own, a.runways[0].at)) {
            ++job.counts.own;
            continue;
        }
        a.id = ident;
        if (!fits(ident)) {
            const auto known = details.find(ident);
            a.id = short_ident(ident, known == details.end() ? "" : known->second.code, taken);
            job.renamed[ident] = a.id;
        }
        world.airports.push_back(a);
    }
    return true;
}
