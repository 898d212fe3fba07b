// The order of the derivation, its simple values and the summary for tools.
#include "aircraft/derive/derive.h"

#include <cstring>

#include "aircraft/derive/bodies_mass.h"
#include "aircraft/derive/derive_units.h"
#include "aircraft/derive/downwash.h"
#include "aircraft/derive/finite_wing.h"
#include "aircraft/derive/starting_load.h"
#include "aircraft/design/autoset.h"
#include "aircraft/design/check.h"
#include "aircraft/design/location.h"
#include "aircraft/file/acf_fault.h"
#include "aircraft/foil/afl_file.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/program/logs.h"
#include "core/records/records.h"
#include "weather/atmosphere.h"

// True when the path below the aircraft folder begins with a folder name.
static bool lies_under(int p, const char* folder) {
    const std::string start = set_dir_chars(acf_path + folder + ":x");
    return set_dir_chars(veh[p].path).compare(0, start.size() - 1, start, 0, start.size() - 1) == 0;
}

static void mark_folder_kind(int p) {
    veh[p].is_ga = lies_under(p, "General Aviation");
    veh[p].is_hm = lies_under(p, "Heavy Metal");
}

static void open_report(int p) {
    if (!in_report(p)) return;
    cyc << "\nLOAD REPORT of " << veh[p].name << " (" << veh[p].path << ")\n"
        << "metres, kilograms, newtons, seconds, degrees; x right, y up, z aft of the centre of gravity\n";
}

// A new aircraft of the user has exceeded nothing yet.
static void forget_exceeded_limits(int p) {
    if (p == 0) stg.over_g = stg.over_vne = stg.over_vfe = stg.over_vle = 0;
}

void derive_simple_values(int p) {
    veh_struct& acf = veh[p];
    for (int i = 0; i < 3; ++i)
        acf.lanliteC_xyz[i] =
            acf.has_lanlite2 ? 0.5f * (acf.lanlite1_xyz[i] + acf.lanlite2_xyz[i]) : acf.lanlite1_xyz[i];

    acf.V_ref_ms = fltlim(1.3f * acf.Vso_kts, 50.0f, 250.0f) * con.ktstomsc;

    // degrees per second to full travels per second; a disc that does not turn goes with its nacelle
    float range = flt_abs(acf.vect_max_disc - acf.vect_min_disc);
    if (range < 0.01f && acf.vect_EQ) range = flt_abs(acf.vect_max_nace - acf.vect_min_nace);
    acf.vect_rate = range < 0.01f ? 0.0f : fltmax2(acf.vect_rate, 0.0f) / range;

    constexpr float sl_P_standard = 101325.0f;  // Pa; the engine's data do not change with the weather
    acf.EPR_max = 1.0f + acf.thrust_max / fltmax2(acf.face_jet * sl_P_standard, 1.0f);
    acf.idle_rat[0] *= 0.75f;

    // the ground touches each tyre along 4 degrees of its circle
    acf.tire_s_contact = 0.0f;
    for (int g = 0; g < gearDIM; ++g)
        if (has_this_gear(p, g))
            acf.tire_s_contact += acf.gear[g].tire_radius * sin_deg(4.0f) * acf.gear[g].tire_swidth;
}

static void report_simple_values(int p) {
    if (!in_report(p)) return;
    const veh_struct& acf = veh[p];
    cyc << "masses: empty " << acf.m_empty << ", maximum " << acf.m_max << ", fuel " << acf.m_fuel_tot
        << ", jettisonable " << acf.m_jettison << '\n'
        << "centre of gravity limits: " << acf.cgZ_fwd << " to " << acf.cgZ_aft << '\n'
        << "reference speed " << acf.V_ref_ms << ", vector rate " << acf.vect_rate << ", largest EPR "
        << acf.EPR_max << ", tyre contact area " << acf.tire_s_contact << '\n'
        << "engine speeds: idle " << acf.RSC_idlespeed_ENGN << ", redline " << acf.RSC_redline_ENGN
        << "; propeller: idle " << acf.RSC_idlespeed_PROP << ", redline " << acf.RSC_redline_PROP
        << "; greatest torque " << acf.trq_max_eng << '\n'
        << "idle ratios " << acf.idle_rat[0] << ", " << acf.idle_rat[1] << "; landing light ("
        << acf.lanliteC_xyz[0] << ", " << acf.lanliteC_xyz[1] << ", " << acf.lanliteC_xyz[2] << ")\n";
    for (int g = 0; g < gearDIM; ++g)
        if (has_this_gear(p, g)) cyc << "gear " << g << ": tyre inertia " << acf.gear[g].tire_mi << '\n';
}

void place_wings(int p) {
    for (int en = 0; en < wingDIM; ++en) {
        if (!has_this_wing(p, en)) continue;
        veh_wing_struct& wing = veh[p].wing[en];
        flt_wing_struct& now = flt[p].wing[en];
        const auto& almax = veh[p].afl[en].almax;
        wing.element_len = wing.semilen_SEG / wing.els;
        wing.alpha_max = 0.25f * (almax[0][0] + almax[0][1] + almax[1][0] + almax[1][1]);
        wing.sweepnow = wing.sweep1;
        wing.dihednow = wing.dihed1;
        now.sin_act_sweep = sin_deg(wing.sweepnow);
        now.cos_act_sweep = cos_deg(wing.sweepnow);
        now.sin_act_dihed = sin_deg(wing.dihednow);
        now.cos_act_dihed = cos_deg(wing.dihednow);
    }
}

// What a turbocharger gives at the critical altitude, where it is fully closed: the pressure that the
// thinner air there lacks.
static void derive_boost(int p) {
    veh_struct& acf = veh[p];
    const auto boost = [](float crit_alt) {
        return (1.0f - inv_rho_sl * find_standard_rho(0, crit_alt)) * 101325.0f;
    };
    acf.max_boost_pas_prop = boost(acf.crit_alt_prop);
    acf.max_boost_pas_jet = boost(acf.crit_alt_jet);
    if (in_report(p))
        cyc << "greatest boost: propeller engines " << acf.max_boost_pas_prop << ", jets "
            << acf.max_boost_pas_jet << '\n';
}

// Area-weighted places over the surfaces, and mean chords.
struct centroid_struct {
    float z, z_delta;  // quarter chord; the same moved by the shift of delta wings
    float mean_chord;  // over all elements alike
};
static centroid_struct find_centroids(int p) {
    float s = 0.0f, sz = 0.0f, sz_delta = 0.0f, chords = 0.0f;
    int elements = 0;
    for (int en = part_wing_first; en <= part_wing_last; ++en) {
        if (!has_this_wing(p, en)) continue;
        const veh_wing_struct& wing = veh[p].wing[en];
        for (int el = 0; el < wing.els; ++el) {
            const float z = get_el_base_loc(p, en, el + 0.5f, 'Z');
            s += wing.el_s[el];
            sz += wing.el_s[el] * z;
            sz_delta += wing.el_s[el] * (z + wing.mac[el] * wing.delta_fac * 0.25f);
            chords += wing.mac[el];
            ++elements;
        }
    }
    const float divisor = fltmax2(s, 1.0e-6f);
    return {sz / divisor, sz_delta / divisor, chords / intmax2(elements, 1)};
}

static void derive_mean_chords(int p) {
    for (int en = 0; en <= part_wing_last; ++en) {
        if (!has_this_wing(p, en)) continue;
        veh_wing_struct& wing = veh[p].wing[en];
        float chords = 0.0f;
        for (int el = 0; el < wing.els; ++el) chords += wing.mac[el];
        wing.average_MAC = chords / wing.els;
        if (in_report(p))
            cyc << "surface " << en << ": mean chord of its elements " << wing.average_MAC << '\n';
    }
    veh[p].average_MAC_acf = find_centroids(p).mean_chord;
}

static void report_balance(int p) {
    if (!in_report(p)) return;
    const aircraft_summary_struct sum = aircraft_summary(p);
    cyc << "centroid of all surfaces: " << sum.z_centroid << ", with the shift of delta wings "
        << sum.z_centroid_delta << "; mean chord of the elements " << veh[p].average_MAC_acf
        << "; static margin by area " << 100.0f * sum.centroid_margin << " percent\n"
        << "wing: area " << sum.S_ref << ", span " << sum.span << ", mean chord " << sum.mean_chord
        << ", aspect ratio " << sum.AR << "; other near-flat surfaces " << sum.S_stab << '\n'
        << "neutral point of wing and tail by lift slope and downwash " << sum.z_neutral << "; static margin "
        << 100.0f * sum.static_margin << " percent\n";
}

// No number that failed may fly. 0 after the fault.
static int all_numbers_good(int p) {
    const std::string field = first_nan_field(p);
    if (field.empty()) return 1;
    ACF_fault(p, "Finite wing reduction fail!", veh[p].name, field, "");
    return 0;
}

// Half width and half length from wing tips, discs and the outlines of bodies.
static void derive_size(int p) {
    float x_max = 0.0f, z_min = 0.0f, z_max = 0.0f;
    const auto reach = [&](float x, float z) {
        x_max = fltmax2(x_max, flt_abs(x));
        z_min = fltmin2(z_min, z), z_max = fltmax2(z_max, z);
    };
    for (int en = part_wing_first; en < wingDIM; ++en)
        if (has_this_wing(p, en))
            for (const int el : {0, veh[p].wing[en].els})
                reach(get_el_base_loc(p, en, static_cast<float>(el), 'X'),
                      get_el_base_loc(p, en, static_cast<float>(el), 'Z'));
    for (int en = part_thru_first; en <= part_thru_last; ++en) {
        if (!has_this_wing(p, en)) continue;
        const veh_part_struct& hub = veh[p].part[en];
        const float radius = veh[p].wing[en].semilen_SEG, flat = flt_abs(sin_deg(veh[p].engn[en].vert_init));
        for (const float end : {-radius, radius}) reach(hub.part_x + end, hub.part_z + end * flat);
    }
    for (int en = part_body_first; en <= part_nace_last; ++en) {
        const veh_part_struct& body = veh[p].part[en];
        if (!has_this_body(p, en)) continue;
        for (int s = 0; s < body.s_dim; ++s)
            for (int r = 0; r < body.r_dim; ++r)
                reach(body.part_x + body.geo_xyz[s][r][0], body.part_z + body.geo_xyz[s][r][2]);
    }
    veh[p].size_x = x_max;
    veh[p].size_z = 0.5f * (z_max - z_min);
    veh[p].size_tot = pythag(veh[p].size_x, veh[p].size_z);
}

static int derive_steps(int p) {
    const foil_load_scope foils;
    mark_folder_kind(p);
    open_report(p);
    forget_exceeded_limits(p);
    convert_block(p);
    if (!convert_wings(p)) return 0;
    convert_places(p);
    derive_simple_values(p);
    report_simple_values(p);
    place_wings(p);
    if (!derive_finite_wings(p)) return 0;
    set_rev_con(p);  // now that the shift of delta wings is known
    derive_boost(p);
    derive_prop_discs(p);
    derive_inertia(p);
    derive_slats(p);
    derive_downwash(p);
    derive_mean_chords(p);
    derive_size(p);
    report_balance(p);
    load_weapons(p);
    load_starting_masses(p);
    return all_numbers_good(p);
}

int derive_model(int p) {
    if (!derive_steps(p)) {
        clear_acf(p);
        return 0;
    }
    ACF_warn_of_zeros(p);
    return 1;
}

static bool near_flat(int p, int en) { return flt_abs(veh[p].wing[en].dihednow) < 45.0f; }

// Lift slope of the finite wing, per degree.
static float lift_slope(int p, int en) {
    const auto& clM = veh[p].afl[en].clM;
    const veh_wing_struct& wing = veh[p].wing[en];
    return 0.25f * (clM[0][0] + clM[0][1] + clM[1][0] + clM[1][1]) * wing.al_D_al0 * wing.cl_D_cl0;
}

// Where lift grows with alpha, over the near-flat surfaces: slopes by section and planform, less the
// downwash that the lift of the surfaces ahead brings.
static float find_neutral_z(int p) {
    float lift = 0.0f, moment = 0.0f;
    for (int en = part_wing_first; en <= part_wing_last; ++en) {
        if (!has_this_wing(p, en) || !near_flat(p, en)) continue;
        const veh_wing_struct& wing = veh[p].wing[en];
        const float slope = lift_slope(p, en) * sqr(flt[p].wing[en].cos_act_dihed);
        for (int el = 0; el < wing.els; ++el) {
            float wash = 0.0f;  // degrees of downwash per degree of alpha
            for (int washer = part_wing_first; washer <= part_wing_last; ++washer)
                if (veh[p].in_downwash[en][washer][el] && has_this_wing(p, washer))
                    wash += veh[p].wing[washer].spec_wash * lift_slope(p, washer);
            const float gain = wing.el_s[el] * slope * (1.0f - wash);
            const float z = get_el_base_loc(p, en, el + 0.5f, 'Z') + wing.mac[el] * wing.delta_fac * 0.25f;
            lift += gain;
            moment += gain * z;
        }
    }
    return moment / fltmax2(lift, 1.0e-6f);
}

static float wetted_area(int p) {
    float wet = 0.0f;
    for (int en = part_wing_first; en < wingDIM; ++en)
        if (has_this_wing(p, en))
            for (int el = 0; el < veh[p].wing[en].els; ++el) wet += 2.0f * veh[p].wing[en].el_s[el];
    return wet + bodies_wetted_area(p);
}

aircraft_summary_struct aircraft_summary(int p) {
    aircraft_summary_struct sum{};
    float chord_moment = 0.0f;
    for (int en = part_wing_first; en <= part_wing_last; ++en) {
        if (!has_this_wing(p, en) || !near_flat(p, en)) continue;
        const veh_wing_struct& wing = veh[p].wing[en];
        const float flat = flt[p].wing[en].cos_act_dihed;
        for (int el = 0; el < wing.els; ++el) {
            if (en > part_main_last) {
                sum.S_stab += wing.el_s[el] * flat;
                continue;
            }
            sum.S_ref += wing.el_s[el] * flat;
            chord_moment += wing.el_s[el] * flat * wing.mac[el];
        }
        if (en <= part_main_last)
            sum.span = fltmax2(sum.span, 2.0f * flt_abs(get_el_base_loc(p, en, wing.els, 'X')));
    }
    sum.mean_chord = chord_moment / fltmax2(sum.S_ref, 1.0e-6f);
    sum.AR = sqr(sum.span) / fltmax2(sum.S_ref, 1.0e-6f);
    sum.S_wet = wetted_area(p);

    const centroid_struct centroid = find_centroids(p);
    sum.z_centroid = centroid.z;
    sum.z_centroid_delta = centroid.z_delta;
    sum.centroid_margin = centroid.z_delta / fltmax2(centroid.mean_chord, 0.01f);
    sum.z_neutral = find_neutral_z(p);
    sum.static_margin = sum.z_neutral / fltmax2(sum.mean_chord, 0.01f);
    sum.cgZ_fwd = veh[p].cgZ_fwd;
    sum.cgZ_aft = veh[p].cgZ_aft;
    return sum;
}
