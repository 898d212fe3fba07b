// Readers of navaids, fixes and airways.
// Role: each fills a table that its caller owns, so that a worker can read while the program's own tables
// stay as they are.
#include "scenery/nav/nav_files.h"

#include "core/disk/files.h"
#include "core/math/num.h"
#include "scenery/nav/nav_file.h"

namespace {
// Radii beyond this reach around the globe; keeps the square finite whatever a file says.
constexpr float range_max = 10000.0f;

float sqr_range_with_file(float range) {
    constexpr float degrees = 0.025f,
                    generous = 1.5f;  // a mile is 1/60 degree; radios reach further than charted
    return generous * sqr(fltlim(range, -range_max, range_max) * degrees);
}

// The ships' own approach aids; the ships carry them along.
void add_ship_aids(nav_tables* to) {
    struct ship {
        int frq;
        const char* name;
    };
    for (const ship& s : {ship{10800, "USS Enterprise"}, ship{10810, "USS Merrow"}}) {
        for (const int type : {nav_ils, nav_gls, nav_dme}) {
            vec_nav_struct nav;
            nav.type = type;
            nav.frq = s.frq;
            nav.sqr_range_deg = 1.0f;
            put_text(nav.nav_id, "----");
            put_text(nav.nav_name, s.name);
            to->nav.push_back(nav);
        }
    }
}

bool is_marker(int type) { return type >= nav_outer && type <= nav_inner; }

vec_nav_struct read_navaid(nav_file& file) {
    vec_nav_struct nav;
    std::string text;
    nav.type = file.number();
    nav.lat = file.value();
    nav.lon = file.value();
    nav.ele = file.value() * con.fttomtrs;
    nav.frq = file.number();
    if (is_marker(nav.type)) nav.frq = marker_frq;
    nav.sqr_range_deg = sqr_range_with_file(file.value());
    nav.psi_true = file.value();
    // that of a glide slope is two numbers in one
    if (nav.type != nav_gls) nav.psi_true = fltwrap(nav.psi_true, 0.0f, 360.0f);
    file.word(&text);
    put_text(nav.nav_id, text);
    file.rest(&text);
    put_text(nav.nav_name, text);
    return nav;
}
}  // namespace

int read_nav(nav_tables* to) {
    to->nav.clear();
    to->hash.clear();
    if (!env.planet) add_ship_aids(to);
    nav_file file(planet_path() + "nav.dat", ftype_nav, "740");
    if (file.ok())
        while (file.more()) to->nav.push_back(read_navaid(file));
    for (size_t i = 0; i < to->nav.size(); ++i) to->hash.emplace(to->nav[i].frq, static_cast<int>(i));
    return file.ok();
}

int read_fix(std::vector<vec_fix_struct>* to) {
    to->clear();
    nav_file file(planet_path() + "fix.dat", 0, "600");
    if (!file.ok()) return 0;
    std::string text;
    while (file.more()) {
        vec_fix_struct& fix = to->emplace_back();
        fix.lat = file.value();
        fix.lon = file.value();
        file.rest(&text);
        put_text(fix.fix_name, text);
    }
    return 1;
}

int IO_nav(int) {
    nav_tables read;
    const int good = read_nav(&read);
    vec_nav.swap(read.nav);
    nav_hash.swap(read.hash);
    return good;
}

int IO_fix(int) { return read_fix(&vec_fix); }

int IO_awy(int) {
    constexpr int low = 1, high = 2;
    vec_loa.clear();
    vec_hia.clear();
    nav_file file(planet_path() + "awy.dat", 0, "640");
    if (!file.ok()) return 0;
    while (file.more()) {
        vec_awy_struct awy;
        for (int end = 0; end < 2; ++end) {
            file.word(nullptr);
            awy.lat[end] = file.value();
            awy.lon[end] = file.value();
        }
        const int level = file.number();
        file.number();  // the segment that follows
        file.rest(&awy.awy_name);
        if (level == low)
            vec_loa.push_back(std::move(awy));
        else if (level == high)
            vec_hia.push_back(std::move(awy));
    }
    return 1;
}
