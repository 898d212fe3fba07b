// Hand-made airports and radio aids, from the text that authors write.
#include "nav_own.h"

#include <toml++/toml.h>

#include <cmath>

#include "nav_furnish.h"
#include "nav_geo.h"
#include "nav_ils.h"
#include "nav_text.h"

namespace {
struct reader {
    std::string path;
    nav_world& world;
    std::vector<std::string>& faults;

    void fault(const toml::node& where, const std::string& text) const {
        faults.push_back(path + ":" + std::to_string(where.source().begin.line) + ": " + text);
    }
};

// Every key of a table must be among those known, so that a misspelt one is found.
void only_keys(const reader& in, const toml::table& t, std::initializer_list<const char*> known) {
    for (const auto& [key, value] : t) {
        bool found = false;
        for (const char* name : known) found |= key.str() == name;
        if (!found) in.fault(value, "unknown key \"" + std::string(key.str()) + "\"");
    }
}

double number(const reader& in, const toml::table& t, const char* key, double missing, bool needed = false) {
    const toml::node* node = t.get(key);
    if (!node) {
        if (needed) in.fault(t, std::string("\"") + key + "\" is missing");
        return missing;
    }
    const std::optional<double> value = node->value<double>();
    if (!value || !std::isfinite(*value)) in.fault(*node, std::string("\"") + key + "\" must be a number");
    return value.value_or(missing);
}

std::string text(const reader& in, const toml::table& t, const char* key, const char* missing = nullptr) {
    const toml::node* node = t.get(key);
    if (!node && !missing) in.fault(t, std::string("\"") + key + "\" is missing");
    if (!node) return missing ? missing : "";
    const std::optional<std::string> value = node->value<std::string>();
    if (!value) in.fault(*node, std::string("\"") + key + "\" must be a text");
    return value.value_or("");
}

bool yes(const reader& in, const toml::table& t, const char* key, bool missing) {
    const toml::node* node = t.get(key);
    if (!node) return missing;
    if (!node->is_boolean()) in.fault(*node, std::string("\"") + key + "\" must be true or false");
    return node->value<bool>().value_or(missing);
}

// A word of a list to its number.
struct choice {
    const char* word;
    int value;
};
int chosen(const reader& in, const toml::table& t, const char* key, std::initializer_list<choice> choices,
           int missing) {
    if (!t.contains(key)) return missing;
    const std::string word = lower_case(text(in, t, key));
    std::string known;
    for (const choice& c : choices) {
        if (word == c.word) return c.value;
        known += std::string(known.empty() ? "" : ", ") + c.word;
    }
    in.fault(*t.get(key), std::string("\"") + key + "\" must be one of: " + known);
    return missing;
}

template <typename each>
void each_table(const reader& in, const toml::table& t, const char* key, each&& read) {
    const toml::node* node = t.get(key);
    if (!node) return;
    const toml::array* list = node->as_array();
    if (!list) return in.fault(*node, std::string("\"") + key + "\" must be a list of tables");
    for (const toml::node& item : *list)
        if (const toml::table* table = item.as_table())
            read(*table);
        else
            in.fault(item, std::string("\"") + key + "\" must hold tables");
}

// The runway that an end's name belongs to, and which of its ends it is; -1 if none.
int runway_of(const nav_airport& airport, const std::string& name, int* end) {
    for (size_t r = 0; r < airport.runways.size(); ++r)
        for (*end = 0; *end < 2; ++*end)
            if (airport.runways[r].num != "xxx" &&
                runway_num(runway_end_name(airport.runways[r], *end)) == runway_num(name))
                return static_cast<int>(r);
    return -1;
}

// [latitude, longitude], or feet along and right or left of the line of a landing on a runway, from its end.
nav_place place(const reader& in, const toml::node& node, const nav_airport* airport) {
    if (const toml::array* pair = node.as_array(); pair && pair->size() == 2) {
        const std::optional<double> lat = (*pair)[0].value<double>(), lon = (*pair)[1].value<double>();
        if (lat && lon && std::fabs(*lat) <= 90 && std::fabs(*lon) <= 180) return {*lat, *lon};
    } else if (const toml::table* t = node.as_table(); t && airport && !airport->runways.empty()) {
        only_keys(in, *t, {"runway", "along", "right", "left"});
        int end = 0, r = 0;
        if (t->contains("runway")) r = runway_of(*airport, text(in, *t, "runway"), &end);
        if (r >= 0) {
            const nav_runway& runway = airport->runways[r];
            const double right = number(in, *t, "right", 0) - number(in, *t, "left", 0);
            return place_beside(in.world.globe, runway_end(in.world.globe, runway, end),
                                runway_heading(runway, end), number(in, *t, "along", 0) * foot, right * foot);
        }
        in.fault(node, "no such runway");
        return {};
    }
    in.fault(node, "a place is [latitude, longitude] or { runway = \"06\", along = feet, right = feet }");
    return {};
}

nav_place place_at(const reader& in, const toml::table& t, const char* key, const nav_airport* airport) {
    if (const toml::node* node = t.get(key)) return place(in, *node, airport);
    in.fault(t, std::string("\"") + key + "\" is missing");
    return {};
}

// Two of something, or one for both ends.
void pair_of(const reader& in, const toml::table& t, const char* key, int out[2]) {
    const toml::node* node = t.get(key);
    if (!node) return;
    const toml::array* list = node->as_array();
    for (int end = 0; end < 2; ++end) {
        const toml::node* one = list && list->size() == 2 ? list->get(static_cast<size_t>(end)) : node;
        const std::optional<int> feet = one->value<int>();
        if (!feet || *feet < 0 || *feet > 9999)
            return in.fault(*node, std::string("\"") + key + "\" is feet, or [feet, feet]");
        out[end] = *feet;
    }
}

void read_lights(const reader& in, const toml::table& t, int out[2]) {
    const toml::node* node = t.get("lights");
    if (!node) return;
    const toml::array* list = node->as_array();
    for (int end = 0; end < 2; ++end) {
        const toml::node* one = list && list->size() == 2 ? list->get(static_cast<size_t>(end)) : node;
        std::string unknown;
        const std::optional<std::string> words = one->value<std::string>();
        if (!words) return in.fault(*node, "\"lights\" is a text of light names, or two of them");
        const int digits = lights_with_words(*words, &unknown);
        if (!digits) return in.fault(*node, "unknown light \"" + unknown + "\"");
        out[end] = digits;
    }
}

int read_surface(const reader& in, const toml::table& t, const char* missing) {
    const std::string word = text(in, t, "surface", missing);
    const int code = surface_with_word(word);
    if (!code) in.fault(t, "unknown surface \"" + word + "\"");
    return code ? code : surface_asphalt;
}

// Where it lies: by both ends, or by centre, true heading and length.
void read_line(const reader& in, const toml::table& t, nav_runway& r) {
    const toml::node* ends = t.get("ends");
    if (!ends) {
        r.at = place_at(in, t, "centre", nullptr);
        r.psi = wrap_heading(number(in, t, "heading", 0, true));
        r.len = number(in, t, "length", 0, true);
        return;
    }
    const toml::array* list = ends->as_array();
    if (!list || list->size() != 2) return in.fault(*ends, "\"ends\" is [[lat, lon], [lat, lon]]");
    const nav_place first = place(in, (*list)[0], nullptr), second = place(in, (*list)[1], nullptr);
    r.at = place_between(first, second, 0.5);
    r.psi = bearing_between(in.world.globe, r.at, second);
    r.len = number(in, t, "length", distance_between(in.world.globe, first, second) / foot);
}

nav_runway read_runway(const reader& in, const toml::table& t) {
    only_keys(in, t,
              {"name", "ends", "centre", "heading", "length", "width", "surface", "lights", "displaced",
               "blast", "shoulder", "markings", "roughness", "signs", "ils"});
    nav_runway r;
    r.num = runway_num(text(in, t, "name"));
    if (r.num.size() != 3) in.fault(t, "a runway's name is that of its first end, such as \"06\" or \"14L\"");
    read_line(in, t, r);
    r.width = number(in, t, "width", 0, true);
    if (r.len < 10 || r.width < 10) in.fault(t, "length and width are feet, at least 10");
    r.surface = read_surface(in, t, "asphalt");
    read_lights(in, t, r.lights);
    pair_of(in, t, "displaced", r.disp);
    pair_of(in, t, "blast", r.blast);
    r.shoulder = chosen(in, t, "shoulder", {{"none", 0}, {"asphalt", 1}, {"concrete", 2}}, 0);
    const int usual = r.num[0] == 'H' || r.surface > surface_concrete ? 0 : 1;
    r.markings =
        chosen(in, t, "markings", {{"none", 0}, {"visual", 1}, {"nonprecision", 2}, {"precision", 3}}, usual);
    r.roughness = number(in, t, "roughness", r.surface <= surface_concrete ? 0.25 : 0.5);
    r.signs = yes(in, t, "signs", false);
    return r;
}

int channel_of(const reader& in, const toml::table& t, const char* key) {
    // thousandths are cut, as the radios' dials cut them
    return static_cast<int>(std::floor(number(in, t, key, 0, true) * 100 + 1e-6));
}

void read_ils(const reader& in, const toml::table& t, const nav_airport& airport, const nav_runway& runway) {
    only_keys(in, t, {"end", "frequency", "ident", "slope", "dme", "outer", "middle", "inner"});
    ils_plan ils;
    const std::string end = text(in, t, "end");
    ils.end = runway_num(end) == runway_num(runway_end_name(runway, 1));
    if (runway_num(end) != runway_num(runway_end_name(runway, ils.end)))
        in.fault(t, "no such end of this runway");
    ils.frq = channel_of(in, t, "frequency");
    ils.id = text(in, t, "ident");
    ils.slope = number(in, t, "slope", 3);
    ils.dme = yes(in, t, "dme", true);
    ils.outer = yes(in, t, "outer", ils.slope > 0);
    ils.middle = yes(in, t, "middle", ils.slope > 0);
    ils.inner = yes(in, t, "inner", false);
    add_ils(in.world, airport, runway, ils);
}

void read_taxiway(const reader& in, const toml::table& t, nav_airport& airport) {
    only_keys(in, t, {"path", "width", "surface", "lights"});
    const toml::array* path = t["path"].as_array();
    if (!path || path->size() < 2) return in.fault(t, "\"path\" is a list of two places or more");
    int lights[2] = {111, 111};
    read_lights(in, t, lights);
    const double width = number(in, t, "width", 50);
    const int surface = read_surface(in, t, "asphalt");
    nav_place last = place(in, (*path)[0], &airport);
    for (size_t n = 1; n < path->size(); ++n) {
        const nav_place next = place(in, (*path)[n], &airport);
        airport.runways.push_back(pavement_between(in.world.globe, last, next, width, surface, lights[0]));
        last = next;
    }
}

void read_services(const reader& in, const toml::table& airport_table, nav_airport& airport) {
    constexpr const char* keys[] = {"awos",  "unicom",   "clearance", "ground",
                                    "tower", "approach", "departure"};
    constexpr const char* usual[] = {"AWOS", "UNICOM", "CLNC DEL", "GND", "TWR", "APP", "DEP"};
    const toml::table* t = airport_table["frequency"].as_table();
    if (!t) return;
    only_keys(in, *t,
              {"awos", "unicom", "clearance", "ground", "tower", "approach", "departure", "awos_name"});
    for (int s = 0; s < nav_service_DIM; ++s)
        if (t->contains(keys[s])) airport.frequency[s] = {channel_of(in, *t, keys[s]), usual[s]};
    if (t->contains("awos_name")) airport.frequency[nav_awos].name = text(in, *t, "awos_name");
}

void read_tower(const reader& in, const toml::table& t, nav_airport& a) {
    const toml::node* node = t.get("tower");
    if (!node) return;
    const toml::table* tower = node->as_table();
    if (!tower) return in.fault(*node, "\"tower\" is { at = place, height = feet }");
    only_keys(in, *tower, {"at", "height"});
    a.has_viewpoint = true;
    a.viewpoint = place_at(in, *tower, "at", &a);
    a.viewpoint_height = number(in, *tower, "height", 50);
}

void read_beacon(const reader& in, const toml::table& t, nav_airport& a) {
    const toml::node* node = t.get("beacon");
    if (!node) return;
    const toml::table* beacon = node->as_table();
    if (!beacon) return in.fault(*node, "\"beacon\" is { at = place, kind = \"land\" }");
    only_keys(in, *beacon, {"at", "kind"});
    a.beacon = chosen(in, *beacon, "kind",
                      {{"land", beacon_land},
                       {"water", beacon_water},
                       {"heliport", beacon_heliport},
                       {"military", beacon_military},
                       {"strobe", beacon_strobe}},
                      beacon_land);
    a.beacon_at = place_at(in, *beacon, "at", &a);
}

void read_furnish(const reader& in, const toml::table& t, nav_airport& a) {
    const int side = chosen(in, t, "furnish", {{"left", -1}, {"right", 1}}, 0);
    if (!side) return;
    const nav_runway& main = a.runways[0];
    const bool lit = main.lights[0] != 111;
    const int size = main.len >= 8500 && a.tower ? 2 : main.len >= 3500 && is_hard(main.surface) ? 1 : 0;
    furnish_airport(in.world.globe, a, {side, size, lit});
}

void read_airport(const reader& in, const toml::table& t) {
    only_keys(in, t,
              {"id", "name", "elevation", "kind", "controlled", "runway", "taxiway", "ramp", "windsock",
               "tower", "beacon", "frequency", "furnish"});
    nav_airport a;
    a.id = text(in, t, "id");
    a.name = text(in, t, "name");
    a.ele = number(in, t, "elevation", 0, true);
    a.type = chosen(in, t, "kind", {{"land", 1}, {"water", 16}, {"helipad", 17}}, 1);
    a.tower = yes(in, t, "controlled", false);
    each_table(in, t, "runway", [&](const toml::table& r) { a.runways.push_back(read_runway(in, r)); });
    if (a.runways.empty()) return in.fault(t, "an airport needs a runway");
    size_t row = 0;
    each_table(in, t, "runway", [&](const toml::table& r) {
        each_table(in, r, "ils", [&](const toml::table& i) { read_ils(in, i, a, a.runways[row]); });
        ++row;
    });
    each_table(in, t, "taxiway", [&](const toml::table& w) { read_taxiway(in, w, a); });
    each_table(in, t, "ramp", [&](const toml::table& r) {
        only_keys(in, r, {"name", "at", "heading"});
        a.ramps.push_back({place_at(in, r, "at", &a), wrap_heading(number(in, r, "heading", 0, true)),
                           text(in, r, "name")});
    });
    each_table(in, t, "windsock", [&](const toml::table& w) {
        only_keys(in, w, {"at", "lit"});
        a.windsocks.push_back({place_at(in, w, "at", &a), yes(in, w, "lit", false)});
    });
    read_tower(in, t, a);
    read_beacon(in, t, a);
    read_services(in, t, a);
    read_furnish(in, t, a);
    in.world.airports.push_back(a);
}

// A beacon in the air: one row, or two where a distance measuring set stands with it.
void read_aid(const reader& in, const toml::table& t) {
    only_keys(in, t, {"kind", "ident", "name", "at", "elevation", "frequency", "range", "variation"});
    enum kind : int { kind_ndb, kind_vor, kind_vor_dme, kind_dme };
    const int k = chosen(in, t, "kind",
                         {{"ndb", kind_ndb},
                          {"vor", kind_vor},
                          {"vor-dme", kind_vor_dme},
                          {"vortac", kind_vor_dme},
                          {"dme", kind_dme},
                          {"tacan", kind_dme}},
                         kind_ndb);
    nav_aid a;
    a.type = k == kind_ndb ? aid_ndb : k == kind_dme ? aid_dme : aid_vor;
    a.at = place_at(in, t, "at", nullptr);
    a.ele = number(in, t, "elevation", 0);
    a.frq = k == kind_ndb ? static_cast<int>(std::lround(number(in, t, "frequency", 0, true)))
                          : channel_of(in, t, "frequency");
    a.range = number(in, t, "range", k == kind_ndb ? 25 : 40);
    if (a.type == aid_vor) a.psi = number(in, t, "variation", -variation_at(in.world.globe, a.at));
    a.id = text(in, t, "ident");
    a.name = text(in, t, "name");
    in.world.aids.push_back(a);
    if (k == kind_vor_dme) {
        a.type = aid_dme;
        a.psi = 0;
        in.world.aids.push_back(a);
    }
}
}  // namespace

void read_own(const std::string& path, nav_world& world, std::vector<std::string>& faults) {
    const reader in = {path, world, faults};
    try {
        const toml::table file = toml::parse_file(path);
        only_keys(in, file, {"airport", "navaid"});
        each_table(in, file, "airport", [&](const toml::table& t) { read_airport(in, t); });
        each_table(in, file, "navaid", [&](const toml::table& t) { read_aid(in, t); });
    } catch (const toml::parse_error& e) {
        faults.push_back(path + ":" + std::to_string(e.source().begin.line) + ": " +
                         std::string(e.description()));
    }
}
