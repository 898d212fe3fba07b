// Radio aids and airports' frequencies from the published rows.
#include <algorithm>
#include <cmath>

#include "csv.h"
#include "nav_geo.h"
#include "nav_import.h"
#include "nav_text.h"

namespace {
constexpr double unknown_elevation = -1e9;
constexpr int first_channel = 10800, last_channel = 11797;  // of the NAV radios, 10 kHz

struct aid_kind {
    const char* name;
    int types[2];
};
constexpr aid_kind aid_kinds[] = {{"NDB", {aid_ndb, 0}},          {"NDB-DME", {aid_ndb, aid_dme}},
                                  {"VOR", {aid_vor, 0}},          {"VOR-DME", {aid_vor, aid_dme}},
                                  {"VORTAC", {aid_vor, aid_dme}}, {"DME", {aid_dme, 0}},
                                  {"TACAN", {aid_dme, 0}}};

double ndb_reach(const std::string& power) { return power == "HIGH" ? 50 : power == "LOW" ? 15 : 25; }
double vor_reach(const std::string& usage) { return usage == "TERMINAL" ? 25 : usage == "LO" ? 40 : 130; }

// 10 kHz from a published number of kHz, which now and then lacks its last digit; 0 if no dial has it.
int channel_of(double khz) {
    if (khz > 10800 && khz < 11800) khz *= 10;
    const int channel = static_cast<int>(khz / 10);
    return channel >= first_channel && channel <= last_channel ? channel : 0;
}

struct service_word {
    const char* type;
    nav_service service;
};
// In order of preference: the first row of a service that comes up stays.
constexpr service_word service_words[] = {
    {"TWR", nav_tower},        {"TOWER", nav_tower},    {"GND", nav_ground},    {"GROUND", nav_ground},
    {"SMC", nav_ground},       {"GRN", nav_ground},     {"ATIS", nav_awos},     {"AWOS", nav_awos},
    {"ASOS", nav_awos},        {"UNIC", nav_unicom},    {"UNICOM", nav_unicom}, {"CTAF", nav_unicom},
    {"AFIS", nav_unicom},      {"A/G", nav_unicom},     {"ATF", nav_unicom},    {"MF", nav_unicom},
    {"INFO", nav_unicom},      {"RDO", nav_unicom},     {"RADIO", nav_unicom},  {"CLD", nav_clearance},
    {"DEL", nav_clearance},    {"GCCD", nav_clearance}, {"APP", nav_approach},  {"APPROACH", nav_approach},
    {"APP/DEP", nav_approach}, {"ARR", nav_approach},   {"A/D", nav_approach},  {"RDR", nav_approach},
    {"RAD/APP", nav_approach}, {"DEP", nav_departure},  {"A/D", nav_departure}, {"APP/DEP", nav_departure}};

bool own_aid(const nav_world& world, size_t own, const nav_aid& a) {
    constexpr double same = 5 * nautical_mile;
    for (size_t n = 0; n < own; ++n)
        if (world.aids[n].type == a.type && world.aids[n].id == a.id &&
            distance_between(world.globe, world.aids[n].at, a.at) < same)
            return true;
    return false;
}
}  // namespace

bool import_frequencies(import_job& job, nav_world& world, std::string& fault) {
    csv_table t;
    std::vector<int> c;
    if (!csv_read(job.folder + "/airport-frequencies.csv",
                  {"airport_ident", "type", "description", "frequency_mhz"}, t, c, fault))
        return false;
    std::map<std::string, nav_airport*> by_id;
    for (nav_airport& a : world.airports) by_id[a.id] = &a;
    std::map<nav_airport*, std::map<int, size_t>> rank;  // place in the table above of what a service has
    for (const csv_row& row : t.rows) {
        std::string ident = upper_case(plain_text(t.field(row, c[0])));
        if (const auto renamed = job.renamed.find(ident); renamed != job.renamed.end())
            ident = renamed->second;
        const auto found = by_id.find(ident);
        const double mhz = csv_number(t.field(row, c[3]), 0);
        if (found == by_id.end() || mhz < 108 || mhz >= 137) continue;
        nav_airport& a = *found->second;
        const std::string type = upper_case(plain_text(t.field(row, c[1])));
        const std::string text = plain_name(t.field(row, c[2]));
        for (size_t n = 0; n < std::size(service_words); ++n) {
            const int service = service_words[n].service;
            if (type != service_words[n].type) continue;
            const auto [place, first] = rank[&a].emplace(service, n);
            if (!first && place->second <= n) continue;
            if (first && a.frequency[service].frq) continue;  // an own airport's
            place->second = n;
            // thousandths are cut, as the dials cut them
            a.frequency[service] = {static_cast<int>(std::floor(mhz * 100 + 1e-6)),
                                    text.empty() ? type : text};
            a.tower |= service == nav_tower;
        }
    }
    return true;
}

bool import_aids(import_job& job, nav_world& world, std::string& fault) {
    csv_table t;
    std::vector<int> c;
    if (!csv_read(job.folder + "/navaids.csv",
                  {"ident", "name", "type", "frequency_khz", "latitude_deg", "longitude_deg", "elevation_ft",
                   "slaved_variation_deg", "usageType", "power", "dme_frequency_khz"},
                  t, c, fault))
        return false;
    const size_t own = world.aids.size();
    for (const csv_row& row : t.rows) {
        const auto kind = std::find_if(std::begin(aid_kinds), std::end(aid_kinds),
                                       [&](const aid_kind& k) { return t.field(row, c[2]) == k.name; });
        nav_aid a;
        a.at = {csv_number(t.field(row, c[4]), 999), csv_number(t.field(row, c[5]), 999)};
        if (kind == std::end(aid_kinds) || std::fabs(a.at.lat) > 90 || std::fabs(a.at.lon) > 180) {
            ++job.counts.aids_untunable;
            continue;
        }
        ++job.counts.aid_rows;
        a.id = upper_case(plain_text(t.field(row, c[0]))).substr(0, 4);
        std::replace(a.id.begin(), a.id.end(), ' ', '-');
        a.name = plain_name(t.field(row, c[1]));
        if (a.name.empty()) a.name = a.id;
        a.ele = csv_number(t.field(row, c[6]), unknown_elevation);
        for (const int type : kind->types) {
            if (!type) continue;
            a.type = type;
            const double khz = csv_number(t.field(row, c[3]), 0);
            const double dme = csv_number(t.field(row, c[10]), 0);
            a.frq = type == aid_ndb ? (khz >= 150 && khz < 2000 ? static_cast<int>(std::lround(khz)) : 0)
                                    : channel_of(kind->types[0] == aid_ndb ? dme : khz);
            a.range = type == aid_ndb ? ndb_reach(t.field(row, c[9])) : vor_reach(t.field(row, c[8]));
            a.psi = type == aid_vor ? csv_number(t.field(row, c[7]), -variation_at(world.globe, a.at)) : 0;
            if (!a.frq)
                ++job.counts.aids_untunable;
            else if (own_aid(world, own, a))
                ++job.counts.aids_own;
            else
                world.aids.push_back(a);
        }
    }
    return true;
}
