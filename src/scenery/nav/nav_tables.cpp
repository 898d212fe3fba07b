// The world's navigation tables, and what their codes mean.
#include "scenery/nav/nav_tables.h"

#include <string.h>

#include <iterator>

std::vector<vec_nav_struct> vec_nav;
std::vector<vec_fix_struct> vec_fix;
std::vector<vec_awy_struct> vec_loa, vec_hia;
std::vector<vec_apt_struct> vec_apt;
std::multimap<int, int> nav_hash;
std::map<std::uint32_t, int> apt_hash;

std::uint32_t apt_id_key(const char* apt_id) {
    char bytes[4] = {};
    memcpy(bytes, apt_id, strnlen(apt_id, sizeof bytes));
    std::uint32_t key;
    memcpy(&key, bytes, sizeof key);
    return key;
}

// Texture references of the surfaces, by code from 1.
static constexpr int surfaces[] = {
    113, 114,            // asphalt, concrete
    115, 116, 117,       // grass, dirt, gravel
    119, 120, 121, 122,  // helipad of asphalt, concrete, grass, dirt
    105, 106,            // turn, asphalt and concrete
    118, 128,            // lakebed, water
};
static constexpr int surface_codes = static_cast<int>(std::size(surfaces));

int tex_with_code(int code) { return code >= 1 && code <= surface_codes ? surfaces[code - 1] : surfaces[0]; }

int code_with_tex(int surf_tex) {
    for (int code = 1; code <= surface_codes; ++code)
        if (surfaces[code - 1] == surf_tex) return code;
    return 0;
}

void forget_nav_tables() {
    vec_nav.clear();
    vec_fix.clear();
    vec_loa.clear();
    vec_hia.clear();
    vec_apt.clear();
    nav_hash.clear();
    apt_hash.clear();
}
