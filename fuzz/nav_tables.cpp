// Tables of airports, navaids, fixes, airways and stars: an odd first byte is followed by rows behind a good header,
// an even one by a whole file. Then look-ups in what came of them.
#include "core/records/con.h"
#include "scenery/nav/apt_file.h"
#include "scenery/nav/nav_files.h"
#include "scenery/nav/nav_lookup.h"
#include "support.h"
#include "weather/sky/stars.h"

namespace {
using fuzzing::input;
using fuzzing::must;

// Lays the table into an install folder in memory; gives the first byte.
unsigned write_table(input& in, const std::string& name, const std::string& version) {
    static const fuzzing::folder root;
    init_paths(root.path());
    ear_path = mar_path = root.path();
    const unsigned first = in.byte();
    root.write(name, (first & 1 ? "I\n" + version + " Version\n" : "") + in.text());
    return first;
}

template <size_t size>
bool ends(const char (&text)[size]) {
    return strnlen(text, size) < size;
}

// Whatever was read, every airport has a place, names that end, and codes that mean something.
void check_airport(const vec_apt_struct& apt) {
    must(ends(apt.apt_id) && !apt.rwy.empty() && !apt.sta.empty() && std::isfinite(apt.ele));
    for (const vec_rwy_struct& rwy : apt.rwy) {
        must(ends(rwy.num_str) && code_with_tex(rwy.surf_tex) != 0);
        must(rwy.shoulder <= 2 && rwy.markings <= 3 && rwy.dis_signs <= 1);
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

// The second bit of the first byte: alone, or over a default table.
void fuzz_apt(input& in) {
    if (write_table(in, "apt.dat", "715") & 2) {
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
}

// The second bit: on Mars.
void fuzz_nav(input& in) {
    env.planet = (write_table(in, "nav.dat", "740") & 2) != 0;
    IO_nav(0);
    must(vec_nav.size() == nav_hash.size() && vec_nav.size() >= (env.planet ? 0u : 6u));
    for (const vec_nav_struct& nav : vec_nav) {
        must(ends(nav.nav_id) && ends(nav.nav_name));
        fuzzing::must_be_finite({nav.lat, nav.sqr_range_deg, nav.psi_true});
    }
    for (const auto& [frq, index] : nav_hash) must(vec_nav.at(static_cast<size_t>(index)).frq == frq);
    int index = -1;
    for (const int type : {2, 3, 4, 13})
        if (get_index_from_id(vec_nav.empty() ? "" : vec_nav.back().nav_id, type, &index, 0.0f, 0.0f) &&
            type != 13)
            must(vec_nav.at(static_cast<size_t>(index)).type == type);
}

void fuzz_fix(input& in) {
    const size_t size = in.size();
    write_table(in, "fix.dat", "600");
    IO_fix(0);
    must(vec_fix.size() <= size);
    for (const vec_fix_struct& fix : vec_fix)
        must(ends(fix.fix_name) && std::isfinite(fix.lat) && std::isfinite(fix.lon));
    int index = -1;
    if (!vec_fix.empty() && get_index_from_id(vec_fix[0].fix_name, targ_fix, &index, 0.0f, 0.0f))
        must(index >= 0 && static_cast<size_t>(index) < vec_fix.size());
}

void fuzz_awy(input& in) {
    const size_t size = in.size();
    write_table(in, "awy.dat", "640");
    IO_awy(0);
    must(vec_loa.size() + vec_hia.size() <= size);
    for (const std::vector<vec_awy_struct>* airways : {&vec_loa, &vec_hia})
        for (const vec_awy_struct& awy : *airways)
            fuzzing::must_be_finite({awy.lat[0], awy.lat[1], awy.lon[0], awy.lon[1]});
}

// Every star stands on the sky's sphere.
void fuzz_astro(input& in) {
    const size_t size = in.size();
    write_table(in, "astro.dat", "740");
    star.star_build();
    size_t count = 0;
    for (const auto& list : star.places) {
        count += list.size();
        for (const star_place& s : list)
            must(std::abs(std::hypot(s.x, s.y, s.z) - 0.95f * min_dome_rad_mtrs) < 0.5f);
    }
    must(count <= size);
}
