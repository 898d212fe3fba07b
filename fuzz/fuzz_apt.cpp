// Airports: the first byte tells a whole file from rows behind a good header, and whether it comes alone or
// over a default table.
#include <string.h>

#include <cmath>

#include "nav_tables_file.h"
#include "scenery/nav/apt_file.h"
#include "scenery/nav/nav_lookup.h"

namespace {
using fuzzing::must;

// Whatever was read, every airport has a place, names that end, and codes that mean something.
void check_airport(const vec_apt_struct& apt) {
    must(fuzzing::ends_within(apt.apt_id, sizeof apt.apt_id));
    must(!apt.rwy.empty() && !apt.sta.empty() && std::isfinite(apt.ele));
    for (const vec_rwy_struct& rwy : apt.rwy) {
        must(fuzzing::ends_within(rwy.num_str, sizeof rwy.num_str));
        must(code_with_tex(rwy.surf_tex) != 0 && rwy.shoulder <= 2 && rwy.markings <= 3 &&
             rwy.dis_signs <= 1);
        must(rwy.roughness >= 0.0f && rwy.roughness <= 1.0f && std::isfinite(rwy.len));
    }
    for (const vec_sta_struct& sta : apt.sta)
        must(sta.psi >= 0.0f && sta.psi <= 360.0f && sta.sta_name.size() <= 39);
}

void ask(size_t apt) {
    int index = -1;
    std::string end1, end2;
    must(get_index_from_id(vec_apt[apt].apt_id, targ_apt, &index, vec_apt[apt].rwy[0].lat, 0.0f) == 0 ||
         index >= 0);
    for (size_t rwy = 0; rwy < vec_apt[apt].rwy.size() && rwy < 3; ++rwy) {
        get_rway_strings(static_cast<int>(apt), static_cast<int>(rwy), &end1, &end2);
        must(rway_to_cs(end1).size() + rway_to_cs(end2).size() < 40);
    }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzzing::start();
    static const fuzzing::nav_tables_file file("apt.dat", "715");
    file.write(data, size);
    if (size > 0 && (data[0] & 2)) {
        vec_apt.clear();
        apt_hash.clear();
        IO_apt(2, ear_path + "apt.dat");
    } else {
        try {
            IO_apt(0, "");
            must(!vec_apt.empty());
        } catch (const fuzzing::fatal& f) {
            must(f.text.line[0] == "I am unable to access the airport data file!");
        }
    }
    for (const vec_apt_struct& apt : vec_apt) check_airport(apt);
    for (size_t apt = 0; apt < vec_apt.size() && apt < 8; ++apt) ask(apt);
    for (const auto& [key, index] : apt_hash)
        must(apt_id_key(vec_apt.at(static_cast<size_t>(index)).apt_id) == key);
    return 0;
}
