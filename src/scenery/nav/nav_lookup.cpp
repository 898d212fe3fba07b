// Finding things in the navigation tables, and the names of runways.
#include "scenery/nav/nav_lookup.h"

#include <string.h>

#include "core/math/num.h"
#include "core/program/logs.h"
#include "core/records/records.h"
#include "scenery/ground/region.h"

namespace {
// The nearest match so far to a place in degrees; the first of equals stays.
class nearest {
public:
    nearest(float lat, float lon) : lat_(lat), lon_(lon) {}
    void offer(size_t index, float lat, float lon) {
        const float distance = pythag(lat - lat_, lon - lon_);
        if (!(distance < best_)) return;
        best_ = distance;
        index_ = static_cast<int>(index);
    }
    int give(int* to) const {
        if (index_ < 0) return 0;
        *to = index_;
        return 1;
    }

private:
    float lat_, lon_, best_ = 999.9f;
    int index_ = -1;
};

// Identifiers from the panel's digits are filled up with blanks.
void end_at_blank(std::string* id) {
    for (const size_t at : {3u, 2u})
        if (id->size() > at && (*id)[at] == ' ') id->resize(at);
}
}  // namespace

int get_index_from_id(std::string id_req, int type_req, int* navapt_wrl_use, float lat_des, float lon_des) {
    end_at_blank(&id_req);
    nearest best(lat_des, lon_des);
    switch (type_req) {
        case targ_latlon:
            *navapt_wrl_use = 0;
            return 1;
        case targ_apt:
            for (size_t i = 0; i < vec_apt.size(); ++i)
                if (id_req == vec_apt[i].apt_id) best.offer(i, vec_apt[i].rwy[0].lat, vec_apt[i].rwy[0].lon);
            break;
        case targ_fix:
            for (size_t i = 0; i < vec_fix.size(); ++i)
                if (id_req == vec_fix[i].fix_name) best.offer(i, vec_fix[i].lat, vec_fix[i].lon);
            break;
        default:
            for (size_t i = 0; i < vec_nav.size(); ++i)
                if (vec_nav[i].type == type_req && id_req == vec_nav[i].nav_id)
                    best.offer(i, vec_nav[i].lat, vec_nav[i].lon);
    }
    return best.give(navapt_wrl_use);
}

void get_basic_specs_with_apt_ID() {
    if (vec_apt.empty()) return;
    int found = -1;
    for (size_t i = 0; i < vec_apt.size(); ++i)
        if (strncmp(vec_apt[i].apt_id, msc.apt_id_str, 4) == 0) found = static_cast<int>(i);
    if (found < 0) {
        xer << "No airport has the identifier " << msc.apt_id_str << ", taking " << vec_apt[0].apt_id << '\n';
        found = 0;
    }
    msc.loc_apt_wrl = found;
    const vec_rwy_struct& rwy = vec_apt[static_cast<size_t>(found)].rwy[0];
    flt[0].dob_lat = rwy.lat;
    flt[0].dob_lon = rwy.lon;
    centre_region_on(rwy.lat, rwy.lon);
}

namespace {
std::string other_end(const std::string& name) {
    std::string end = name;
    const int number = intwrap(atoi(name.substr(0, 2).c_str()) + 18, 1, 36);
    end.replace(0, 2, std::to_string(100 + number), 1, 2);
    if (end.size() < 3) return end;
    if (end[2] == 'L')
        end[2] = 'R';
    else if (end[2] == 'R')
        end[2] = 'L';
    return end;
}

const vec_rwy_struct* find_runway(int apt_wrl, int rwy_wrl) {
    if (apt_wrl < 0 || static_cast<size_t>(apt_wrl) >= vec_apt.size()) return nullptr;
    const std::vector<vec_rwy_struct>& rwy = vec_apt[static_cast<size_t>(apt_wrl)].rwy;
    return rwy_wrl < 0 || static_cast<size_t>(rwy_wrl) >= rwy.size() ? nullptr
                                                                     : &rwy[static_cast<size_t>(rwy_wrl)];
}
}  // namespace

void get_rway_strings(int apt_wrl, int rwy_wrl, std::string* end1, std::string* end2) {
    const vec_rwy_struct* rwy = find_runway(apt_wrl, rwy_wrl);
    const std::string name = rwy ? rwy->num_str : "xxx";
    if (name[0] == 'x') {
        *end1 = *end2 = name;
    } else if (name[0] == 'H') {
        *end1 = name + " to North";
        *end2 = name + " to South";
    } else {
        *end1 = name;
        *end2 = other_end(name);
    }
}

std::string rway_to_cs(const std::string& end) {
    constexpr size_t side = 2;  // where a runway's name has L, R, C, or x for none
    std::string shown = end;
    if (shown.size() > side && shown[side] == 'x') shown[side] = ' ';
    return (end[0] == 'H' ? "PAD " : "RWY ") + shown;
}

float runway_heading_true() {
    const vec_rwy_struct* rwy = find_runway(msc.loc_apt_wrl, msc.lcl_rwy_ram);
    return rwy ? rwy->psi_true : 0.0f;
}
