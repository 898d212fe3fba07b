// Real tables from the CSV files that OurAirports publishes.
#pragma once
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "nav_world.h"

struct import_counts {
    int rows = 0, runways = 0, rebuilt = 0, airports = 0, own = 0;
    int closed = 0, placeless = 0, pseudo = 0, named_twice = 0;  // rows left out
    int aid_rows = 0, aids_untunable = 0, guessed_elevations = 0, aids_own = 0;
    int faulty = 0;
};

struct import_job {
    std::string folder;
    std::map<std::string, std::string> renamed;  // identifiers of over four characters, and what they became
    std::vector<std::string> faults;             // what was left out as the simulator would refuse it
    import_counts counts;
    std::function<void(const char* step, double part)> progress;
};

// What the files tell of an airport besides its runways; of the optional table only some is known.
struct import_details {
    std::string name, kind, code;
    double ele = -1e9;  // feet
    bool has_place = false;
    nav_place at;
};
using import_table = std::map<std::string, import_details>;  // by identifier

// Adds what the folder's runways.csv, navaids.csv and airport-frequencies.csv hold, airports.csv too where it
// is there, to the world's own airports and aids, which win. False and the fault when a file cannot be used.
bool import_world(import_job& job, nav_world& world, std::string& fault);

// The steps.
bool import_details_of(import_job& job, import_table& details, std::string& fault);
bool import_runways(import_job& job, const import_table& details, nav_world& world, std::string& fault);
bool import_frequencies(import_job& job, nav_world& world, std::string& fault);
bool import_aids(import_job& job, nav_world& world, std::string& fault);

// A free identifier of four characters for one that is too long; taken receives it.
std::string short_ident(const std::string& ident, const std::string& code, std::map<std::string, int>& taken);
// Turns a runway's published values into a row: rebuilt from its middle, heading and length where the ends
// contradict the length.
struct published_end {
    std::string ident;
    nav_place at;
    double ele = -1e9, heading = -1, displaced = 0;
};
bool runway_of_ends(const nav_globe& globe, const published_end ends[2], double length, double width,
                    nav_runway& runway, bool& rebuilt);
