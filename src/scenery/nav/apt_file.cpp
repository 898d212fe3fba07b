// Reader of airports. Every row begins with its code and belongs to the airport above it.
#include "scenery/nav/apt_file.h"

#include <string.h>

#include "core/disk/files.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "scenery/nav/nav_file.h"
#include "scenery/nav/nav_tables.h"

namespace {
enum row_code : int {
    row_land = apt_land,
    row_runway = 10,
    row_tower = 14,
    row_ramp = 15,
    row_sea = apt_sea,
    row_helipad = apt_helipad,
    row_beacon = 18,
    row_windsock = 19,
    row_carrier = apt_carrier,
    row_AWOS = 50,
    row_unicom = 51,
    row_clearance = 52,
    row_ground = 53,
    row_tower_frq = 54,
    row_approach = 55,
    row_departure = 56,
};

constexpr size_t name_max = 39;

std::string airport_text(const vec_apt_struct& apt) { return std::string(apt.apt_id) + " " + apt.apt_name; }

void tell_fault(const vec_apt_struct& apt, const char* s1, const char* s2) {
    MACIBM_data_fault(s1, s2, airport_text(apt), "");
}

constexpr const char* out_of_range = "The apt data file has a place that no planet has!";

bool is_runway(const vec_rwy_struct& rwy) { return rwy.num_str[0] != 'x'; }

// False for what is no number, too: ground and aircraft are set where the file says.
bool is_place(float lat, float lon) { return fabsf(lat) <= 90.0f && fabsf(lon) <= 180.0f; }
bool is_elevation(float metres) {
    constexpr float lowest = -10000.0f, highest = 30000.0f;  // below and above all ground of both planets
    return metres >= lowest && metres <= highest;
}
bool is_sound(const vec_rwy_struct& rwy) {
    constexpr float longest = 100000.0f, turn = 360.0f, most_feet = 1.0e6f;
    return is_place(rwy.lat, rwy.lon) && rwy.len <= longest && rwy.width <= longest &&
           fabsf(rwy.psi_true) <= turn && fabsf(rwy.disp) <= most_feet && fabsf(rwy.blast) <= most_feet;
}

// -- what an airport must have

void add_default_ramp(vec_apt_struct& apt) {
    if (!apt.sta.empty()) return;
    vec_sta_struct sta;
    sta.lat = apt.rwy[0].lat;
    sta.lon = apt.rwy[0].lon;
    sta.sta_name = "Default";
    apt.sta.push_back(sta);
}

// Completes the airport read last. Its place is that of its first runway, so that one without is left out.
void finish_apt() {
    vec_apt_struct& apt = vec_apt.back();
    if (!is_elevation(apt.ele)) {
        tell_fault(apt, "Airport found at an elevation that no ground has!", "It is left out.");
        return vec_apt.pop_back();
    }
    if (!apt.rwy.empty()) return add_default_ramp(apt);
    tell_fault(apt, "Airport found with no runways!", "Intolerable!");
    vec_apt.pop_back();
}

void tell_duplicate_runway(const vec_apt_struct& apt, const vec_rwy_struct& rwy) {
    constexpr size_t compared_max = 1000;  // no airport has as many; a broken file must not take for ever
    if (!is_runway(rwy) || apt.rwy.size() > compared_max) return;
    for (const vec_rwy_struct& other : apt.rwy)
        if (is_runway(other) && memcmp(other.num_str, rwy.num_str, 3) == 0) {
            MACIBM_data_fault("Oops!",
                              "I found duplicate runways at the following airport:", airport_text(apt),
                              rwy.num_str);
            return;
        }
}

void tell_tiny_runway(const vec_apt_struct& apt, const vec_rwy_struct& rwy) {
    constexpr float least = 1.0f;  // metre
    if (rwy.width < least)
        tell_fault(apt, "The apt data file has a runway width  of less than 1 meter!", rwy.num_str);
    if (rwy.len < least)
        tell_fault(apt, "The apt data file has a runway length of less than 1 meter!", rwy.num_str);
}

// Further than a field is wide from its first runway, when there is one above.
bool is_far_off(const vec_apt_struct& apt, float lat, float lon) {
    constexpr float far = 0.2f;  // degrees
    return !apt.rwy.empty() && fabsf(lat - apt.rwy[0].lat) > far && fabsf(lon - apt.rwy[0].lon) > far;
}

// -- rows

void read_airport(nav_file& file, int code, vec_apt_struct* apt) {
    std::string text;
    apt->apt_type = static_cast<unsigned char>(code);
    apt->ele = file.value() * con.fttomtrs;
    apt->atc_twr = static_cast<unsigned char>(file.number());
    file.number();  // default buildings, of an older kind
    file.word(&text);
    put_text(apt->apt_id, text);
    file.rest(&apt->apt_name);
    if (apt->apt_name[0] == '-') apt->apt_name[0] = ' ';
}

void read_runway(nav_file& file, vec_apt_struct& apt) {
    vec_rwy_struct rwy;
    std::string text;
    rwy.lat = file.value();
    rwy.lon = file.value();
    file.word(&text);
    put_text(rwy.num_str, text);
    rwy.psi_true = file.value();
    rwy.len = file.value() * con.fttomtrs;
    rwy.disp = file.value();
    rwy.blast = file.value();
    rwy.width = file.value() * con.fttomtrs;
    rwy.i_code = file.number();
    rwy.surf_tex = static_cast<unsigned char>(tex_with_code(file.number()));
    rwy.shoulder = static_cast<unsigned char>(intlim(file.number(), 0, 2));
    rwy.markings = static_cast<unsigned char>(intlim(file.number(), 0, 3));
    rwy.roughness = fltlim(file.value(), 0.0f, 1.0f);
    rwy.dis_signs = static_cast<unsigned char>(intlim(file.number(), 0, 1));
    file.end_line();
    if (!is_sound(rwy)) return tell_fault(apt, "The apt data file has a runway out of range!", rwy.num_str);
    tell_duplicate_runway(apt, rwy);
    tell_tiny_runway(apt, rwy);
    apt.rwy.push_back(rwy);
}

void read_tower(nav_file& file, vec_apt_struct& apt) {
    const float lat = file.value(), lon = file.value(), height = file.value() * con.fttomtrs;
    file.number();
    file.rest(nullptr);
    if (!is_place(lat, lon) || !is_elevation(height)) return tell_fault(apt, out_of_range, "tower");
    apt.twr_lat = lat;
    apt.twr_lon = lon;
    apt.twr_hgt = height;
}

void read_ramp(nav_file& file, vec_apt_struct& apt) {
    vec_sta_struct sta;
    sta.lat = file.value();
    sta.lon = file.value();
    sta.psi = fltwrap(file.value(), 0.0f, 360.0f);
    file.rest(&sta.sta_name);
    if (sta.sta_name.size() > name_max) sta.sta_name.resize(name_max);
    if (!is_place(sta.lat, sta.lon)) return tell_fault(apt, out_of_range, sta.sta_name.c_str());
    apt.sta.push_back(std::move(sta));
}

void read_beacon(nav_file& file, vec_apt_struct& apt) {
    const float lat = file.value(), lon = file.value();
    const int type = file.number();
    file.rest(nullptr);
    if (!is_place(lat, lon)) return tell_fault(apt, out_of_range, "beacon");
    apt.bcn_lat = lat;
    apt.bcn_lon = lon;
    apt.bcn_typ = type;
    if (is_far_off(apt, apt.bcn_lat, apt.bcn_lon)) tell_fault(apt, "Found a bad-location beacon!", "");
}

void read_windsock(nav_file& file, vec_apt_struct& apt) {
    vec_soc_struct soc;
    soc.lat = file.value();
    soc.lon = file.value();
    soc.lit = static_cast<unsigned char>(file.number());
    file.rest(nullptr);
    if (!is_place(soc.lat, soc.lon)) return tell_fault(apt, out_of_range, "windsock");
    apt.soc.push_back(soc);
    if (is_far_off(apt, soc.lat, soc.lon)) tell_fault(apt, "Found a bad-location windsock!", "");
}

void read_frequency(nav_file& file, std::uint16_t* frq, std::string* name) {
    *frq = static_cast<std::uint16_t>(file.number());
    file.rest(name);
}

// A row of an airport; a code that is none leaves the position where it stands.
void read_row(nav_file& file, int code, vec_apt_struct& apt) {
    switch (code) {
        case row_runway:
            return read_runway(file, apt);
        case row_tower:
            return read_tower(file, apt);
        case row_ramp:
            return read_ramp(file, apt);
        case row_beacon:
            return read_beacon(file, apt);
        case row_windsock:
            return read_windsock(file, apt);
        case row_AWOS:
            return read_frequency(file, &apt.int_AWOS, &apt.str_AWOS);
        case row_unicom:
            return read_frequency(file, &apt.int_unicom, &apt.str_unicom);
        case row_clearance:
            return read_frequency(file, &apt.int_clearance, &apt.str_clearance);
        case row_ground:
            return read_frequency(file, &apt.int_ground, &apt.str_ground);
        case row_tower_frq:
            return read_frequency(file, &apt.int_tower, &apt.str_tower);
        case row_approach:
            return read_frequency(file, &apt.int_approach, &apt.str_approach);
        case row_departure:
            return read_frequency(file, &apt.int_departure, &apt.str_departure);
        default:
            return;
    }
}

bool opens_airport(int code) {
    return code == row_land || code == row_sea || code == row_helipad || code == row_carrier;
}

// Appends what the file holds to the table and gives the number of airports.
size_t append_airports(nav_file& file) {
    const size_t before = vec_apt.size();
    vec_apt_struct unowned;  // takes the rows above the first airport
    bool open = false;
    while (file.more()) {
        const int code = file.number();
        if (!opens_airport(code)) {
            read_row(file, code, open ? vec_apt.back() : unowned);
            continue;
        }
        if (open) finish_apt();
        open = true;
        read_airport(file, code, &vec_apt.emplace_back());
    }
    if (open) finish_apt();
    return vec_apt.size() - before;
}

void enter_in_hash(size_t first) {
    for (size_t i = first; i < vec_apt.size(); ++i)
        apt_hash.emplace(apt_id_key(vec_apt[i].apt_id), static_cast<int>(i));
}
}  // namespace

int IO_apt(int IO_type, const std::string& custom_path) {
    constexpr int read_default = 0;
    const bool is_default = IO_type == read_default;
    const std::string path = is_default ? planet_path() + "apt.dat" : custom_path;
    if (is_default) {
        vec_apt.clear();
        apt_hash.clear();
    }
    const size_t before = vec_apt.size();
    const faults_of_file faults(path);
    nav_file file(path, ftype_apt, "715");
    const bool good = file.ok() && append_airports(file) > 0;
    enter_in_hash(before);
    if (is_default && !good)
        MACIBM_alert(0, "I am unable to access the airport data file!",
                     "The path I am looking at is as follows:", path, "", alert_fatal);
    return good;
}
