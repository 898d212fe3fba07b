// What the tables know, as text on the standard output.
#include "describe.h"

#include <math.h>
#include <stdio.h>

#include "tables.h"
#include "words.h"

namespace {
void line(const std::string& text) { printf("%s\n", text.c_str()); }

std::string elevation_text(double metres) {
    return number_text(metres * feet_per_metre, 0) + " ft (" + number_text(metres, 0) + " m)";
}

std::string direction_text(double heading_true, const place& p) {
    return heading_text(heading_true) + " true, " + heading_text(magnetic(heading_true, p)) + " magnetic";
}

std::string from_here(const place& here, const place& there) {
    return number_text(distance_m(here, there) / metres_per_mile, 1) + " nm, " +
           direction_text(bearing_true(here, there), here);
}

std::string size_text(const vec_rwy_struct& rwy) {
    return number_text(rwy.len, 0) + " x " + number_text(rwy.width, 0) + " m (" +
           number_text(rwy.len * feet_per_metre, 0) + " x " + number_text(rwy.width * feet_per_metre, 0) +
           " ft)";
}

const char* const marking_words[] = {"no markings", "visual markings", "non-precision markings",
                                     "precision markings"};

// -- airports

void describe_runway(int apt_index, int rwy_index) {
    const vec_rwy_struct& rwy = vec_apt[static_cast<size_t>(apt_index)].rwy[static_cast<size_t>(rwy_index)];
    const runway_ends ends = ends_of(apt_index, rwy_index);
    std::string text = "  " + ends.end[0].name + "/" + ends.end[1].name + "  " + size_text(rwy) + ", " +
                       surface_words(rwy.surf_tex) + ", " + marking_words[rwy.markings & 3];
    if (rwy.shoulder) text += std::string(", ") + (rwy.shoulder == 1 ? "asphalt" : "concrete") + " shoulders";
    if (rwy.dis_signs) text += ", distance signs";
    line(text);
    for (int end = 0; end < 2; ++end) {
        const runway_end& e = ends.end[end];
        text = "    " + e.name + "  " + direction_text(e.heading, place_of(rwy));
        if (e.displaced > 0.0)
            text += ", threshold " + length_text(e.displaced) + " in, " + length_text(rwy.len - e.displaced) +
                    " to land";
        if (const vec_nav_struct* localizer = localizer_of(apt_index, rwy_index, end))
            text += std::string(", ") + aid_words(localizer->type) + " " + localizer->nav_id;
        if (e.pad > 0.0) text += ", blast pad " + length_text(e.pad);
        line(text);
        line("        " + lights_words(rwy.i_code, end));
    }
}

void describe_helipad(int apt_index, int rwy_index) {
    const vec_rwy_struct& rwy = vec_apt[static_cast<size_t>(apt_index)].rwy[static_cast<size_t>(rwy_index)];
    line("  " + ends_of(apt_index, rwy_index).end[0].name + "  " + size_text(rwy) + ", " +
         surface_words(rwy.surf_tex) + ", " + direction_text(rwy.psi_true, place_of(rwy)) + ", " +
         lights_words(rwy.i_code, 0));
}

void describe_runways(int apt_index) {
    const vec_apt_struct& apt = vec_apt[static_cast<size_t>(apt_index)];
    int pieces = 0;
    for (const runway_kind kind : {runway_kind::runway, runway_kind::helipad}) {
        bool titled = false;
        for (size_t i = 0; i < apt.rwy.size(); ++i) {
            if (kind == runway_kind::runway) pieces += kind_of(apt.rwy[i]) == runway_kind::pavement;
            if (kind_of(apt.rwy[i]) != kind) continue;
            if (!titled) line(kind == runway_kind::runway ? "Runways" : "Helipads");
            titled = true;
            (kind == runway_kind::runway ? describe_runway : describe_helipad)(apt_index,
                                                                               static_cast<int>(i));
        }
    }
    if (pieces) line("Other pavement: " + std::to_string(pieces) + (pieces == 1 ? " piece" : " pieces"));
}

void describe_frequencies(const vec_apt_struct& apt) {
    const struct {
        const char* service;
        int frq;
        const std::string& name;
    } rows[] = {{"weather", apt.int_AWOS, apt.str_AWOS},
                {"unicom", apt.int_unicom, apt.str_unicom},
                {"clearance", apt.int_clearance, apt.str_clearance},
                {"ground", apt.int_ground, apt.str_ground},
                {"tower", apt.int_tower, apt.str_tower},
                {"approach", apt.int_approach, apt.str_approach},
                {"departure", apt.int_departure, apt.str_departure}};
    bool titled = false;
    for (const auto& row : rows) {
        if (!row.frq) continue;
        if (!titled) line("Frequencies, MHz");
        titled = true;
        printf("  %-10s %s  %s\n", row.service, frequency_text(row.frq).c_str(), row.name.c_str());
    }
}

std::string aid_line(const vec_nav_struct& aid) {
    std::string text = aid_words(aid.type) + "  " + aid.nav_id + "  " + aid_frequency_text(aid);
    if (aid.type == nav_ils || aid.type == nav_loc)
        text += ", course " + direction_text(aid.psi_true, place_of(aid));
    if (aid.type == nav_gls) text += ", slope " + number_text(slope_of(aid), 2) + " degrees";
    if (aid.type == nav_dme && aid.psi_true != 0.0f) text += ", bias " + number_text(aid.psi_true, 1) + " nm";
    return text + "  " + aid.nav_name;
}

void describe_aids_around(const vec_apt_struct& apt) {
    constexpr double reach = 30.0 * metres_per_mile;
    constexpr size_t most = 12;
    const auto own = aids_of(apt);
    if (!own.empty()) line("Landing aids");
    for (const vec_nav_struct* aid : own) line("  " + aid_line(*aid));
    auto beacons = beacons_near(airport_place(apt), reach);
    if (beacons.empty()) return;
    line("Beacons within 30 nm");
    if (beacons.size() > most) beacons.resize(most);
    for (const vec_nav_struct* aid : beacons)
        line("  " + aid_line(*aid) + "  " + from_here(airport_place(apt), place_of(*aid)));
}

void describe_ramps(const vec_apt_struct& apt) {
    line("Ramps");
    for (const vec_sta_struct& ramp : apt.sta)
        line("  " + ramp.sta_name + "  heading " + direction_text(ramp.psi, {ramp.lat, ramp.lon}));
}

void describe_airways_through(const place& p) {
    const auto legs = legs_through(p);
    if (!legs.empty()) line("Airways");
    for (const airway_leg& l : legs) {
        const place other = {l.leg->lat[1 - l.end], l.leg->lon[1 - l.end]};
        line("  " + l.leg->awy_name + (l.is_high ? "  high, to " : "  low, to ") + name_at(other) + "  " +
             from_here(p, other));
    }
}
}  // namespace

void describe_airport(int apt_index) {
    const vec_apt_struct& apt = vec_apt[static_cast<size_t>(apt_index)];
    const place p = airport_place(apt);
    line(std::string(apt.apt_id) + "  " + apt.apt_name);
    line(airport_words(apt.apt_type) + (apt.atc_twr ? ", with a controller" : ", without a controller"));
    line(place_text(p) + ", elevation " + elevation_text(apt.ele) + ", variation " + variation_text(p));
    describe_runways(apt_index);
    describe_frequencies(apt);
    describe_aids_around(apt);
    describe_ramps(apt);
    if (apt.bcn_lat != 0.0f || apt.bcn_lon != 0.0f) line("Beacon: " + beacon_words(apt.bcn_typ));
    if (!apt.soc.empty()) line("Windsocks: " + std::to_string(apt.soc.size()));
}

void describe_aid(const vec_nav_struct& aid) {
    const place p = place_of(aid);
    line(std::string(aid.nav_id) + "  " + aid.nav_name);
    line(aid_words(aid.type) + ", " + aid_frequency_text(aid) + ", range " +
         number_text(range_miles(aid), 0) + " nm");
    line(place_text(p) + ", elevation " + elevation_text(aid.ele) + ", variation " + variation_text(p));
    if (aid.type == nav_ils || aid.type == nav_loc) line("Course " + direction_text(aid.psi_true, p));
    if (aid.type == nav_gls)
        line("Slope " + number_text(slope_of(aid), 2) + " degrees, course " +
             direction_text(slope_course(aid), p));
    if (aid.type == nav_vor) {
        const double slaved = remainder(aid.psi_true, 360.0);
        line("Radials turned " + number_text(fabs(slaved), 1) + (slaved < 0.0 ? " W" : " E"));
    }
    if (aid.type == nav_dme) line("Bias " + number_text(aid.psi_true, 1) + " nm");
    if (aid.type == nav_ndb || aid.type == nav_vor) describe_airways_through(p);
}

void describe_fix(const vec_fix_struct& fix) {
    const place p = place_of(fix);
    line(std::string(fix.fix_name) + "  fix");
    line(place_text(p) + ", variation " + variation_text(p));
    describe_airways_through(p);
}

bool describe_airway(const std::string& ident) {
    const auto chains = chains_of(ident);
    for (const airway_chain& chain : chains) {
        line(chain.name + (chain.is_high ? "  high airway" : "  low airway"));
        for (size_t i = 0; i < chain.places.size(); ++i) {
            std::string text = "  " + name_at(chain.places[i]);
            if (i + 1 < chain.places.size()) text += "  " + from_here(chain.places[i], chain.places[i + 1]);
            line(text);
        }
    }
    return !chains.empty();
}
