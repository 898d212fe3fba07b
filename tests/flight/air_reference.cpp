// The air forces of slot 0 in double precision. Angles in degrees unless named otherwise.
#include "air_reference.h"

#include <math.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

#include "aircraft/design/exists.h"
#include "core/records/records.h"
#include "weather/wind.h"

namespace test {
namespace {

constexpr double pi = 3.14159265358979323846, deg = pi / 180.0;

double line(double x1, double y1, double x2, double y2, double x) {
    return x1 == x2 ? (y1 + y2) / 2 : y1 + (y2 - y1) * (x - x1) / (x2 - x1);
}
double held(double x1, double y1, double x2, double y2, double x) {
    return std::clamp(line(x1, y1, x2, y2, x), std::min(y1, y2), std::max(y1, y2));
}
double side_of(double x) { return x < 0 ? -1 : 1; }

struct vec {
    double x, y, z;
};
vec operator+(vec a, vec b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
vec operator-(vec a, vec b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
vec operator*(double k, vec a) { return {k * a.x, k * a.y, k * a.z}; }
vec cross(vec a, vec b) { return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x}; }
double length(vec a) { return sqrt(a.x * a.x + a.y * a.y + a.z * a.z); }

// Roll about z, pitch about x, heading about y.
vec to_world(vec a) {
    const flt_struct& f = flt[0];
    const vec r = {a.x * f.cos_phi + a.y * f.sin_phi, a.y * f.cos_phi - a.x * f.sin_phi, a.z};
    const vec t = {r.x, r.y * f.cos_the - r.z * f.sin_the, r.y * f.sin_the + r.z * f.cos_the};
    return {t.x * f.cos_psi - t.z * f.sin_psi, t.y, t.x * f.sin_psi + t.z * f.cos_psi};
}
vec to_aircraft(vec w) {  // the transpose
    const vec a = to_world({1, 0, 0}), b = to_world({0, 1, 0}), c = to_world({0, 0, 1});
    return {w.x * a.x + w.y * a.y + w.z * a.z, w.x * b.x + w.y * b.y + w.z * b.z,
            w.x * c.x + w.y * c.y + w.z * c.z};
}

// One wind and a field of nine sines of 60 m over their factor, whose phase runs with time.
vec air_at(vec place) {
    const flt_struct& f = flt[0];
    const vec w = to_world(place) + vec{f.dob_x, f.dob_y, f.dob_z};
    const vec d = w - vec{wind.totl_os_x, wind.totl_os_y, wind.totl_os_z};
    const auto phase = [](double factor, double at) { return factor * at / 60.0 * 2 * pi + wind.totl_os_t; };
    const double size = wind.final_trb_rat * 10.0;
    const vec gust = {sin(phase(1.4, d.x)) - cos(phase(0.9, d.y)) + sin(phase(0.8, d.z)),
                      cos(phase(0.8, d.x)) + sin(phase(1.3, d.y)) - cos(phase(1.2, d.z)),
                      sin(phase(0.7, d.x)) + cos(phase(0.6, d.y)) - sin(phase(0.7, d.z))};
    return to_aircraft(vec{wind.final_X_msc, wind.final_Y_msc, wind.final_Z_msc} + size * gust -
                       vec{f.vx, f.vy, f.vz});
}
vec air_on_aircraft() { return {flt[0].vx_air_on_acf, flt[0].vy_air_on_acf, flt[0].vz_air_on_acf}; }
vec by_rotation(vec at) {
    const flt_struct& f = flt[0];
    return {f.Rrad * at.z - f.Prad * at.y, f.Prad * at.x + f.Qrad * at.z, -f.Qrad * at.y - f.Rrad * at.x};
}

vec on_surface(int en, double el) {
    const veh_part_struct& part = veh[0].part[en];
    const flt_wing_struct& now = flt[0].wing[en];
    const double arm = veh[0].wing[en].element_len * el;
    return {part.part_x + arm * now.cos_act_sweep * now.cos_act_dihed * veh[0].wing[en].lat_sign,
            part.part_y + arm * now.cos_act_sweep * now.sin_act_dihed, part.part_z + arm * now.sin_act_sweep};
}

// The sums: a force against the path turns by alpha, then by beta, of the whole aircraft.
struct sums {
    air_step& s;
    void add(double drag, double side, double lift, vec at) {
        const flt_struct& f = flt[0];
        const double axil_alph = f.cos_alph * drag - f.sin_alph * lift;
        const double nrml = f.sin_alph * drag + f.cos_alph * lift;
        const double axil = f.cos_beta * axil_alph - f.sin_beta * side;
        const double fside = f.sin_beta * axil_alph + f.cos_beta * side;
        s.force[0] += fside;
        s.force[1] += nrml;
        s.force[2] += axil;
        s.moment[0] += fside * at.y - nrml * at.x;
        s.moment[1] += axil * at.y - nrml * at.z;
        s.moment[2] += axil * at.x - fside * at.z;
        const double size = sqrt(drag * drag + side * side + lift * lift);
        s.largest += size;
        s.largest_moment += size * length(at);
    }
};

// -- airfoil tables
struct coeffs {
    double cl, cd, cm;
};
coeffs mix(double x1, coeffs a, double x2, coeffs b, double x) {
    return {line(x1, a.cl, x2, b.cl, x), line(x1, a.cd, x2, b.cd, x), line(x1, a.cm, x2, b.cm, x)};
}

coeffs from_table(int en, int el, int RT, int Re, double alpha, int* stalled) {
    const veh_wing_struct& w = veh[0].wing[en];
    const afl_struct& foil = veh[0].afl[en];
    const double slat = w.slat[el] ? line(0, 1, 1, w.slat_effect, flt[0].slat_rat) : 1;
    const double zero_lift = -static_cast<double>(foil.clB[RT][Re]) / foil.clM[RT][Re];
    const double reduced =
        (alpha - zero_lift) * w.al_D_al0 * flt[0].wing[en].Q_centroid_loc[0] / slat + zero_lift;
    const double at = held(20, reduced, 90, alpha, fabs(alpha));
    const double index = at < -20  ? held(-180, 0, -20, 160, at)
                         : at < 20 ? held(-20, 160, 20, 560, at)
                                   : held(20, 560, 179, 719, at);
    const int lo = static_cast<int>(index);
    const auto read = [&](const float* table) { return line(lo, table[lo], lo + 1, table[lo + 1], index); };
    *stalled = w.alpha_max * slat < at;
    return {read(foil.cl[RT][Re]) * (w.slat[el] ? slat : 1), read(foil.cd[RT][Re]), read(foil.cm[RT][Re])};
}

coeffs subsonic(int en, int el, double v, double alpha, double mach_el, double drag_div, coeffs mod,
                double CL_ge, double CD_ge, int* stalled) {
    const veh_wing_struct& w = veh[0].wing[en];
    const afl_struct& foil = veh[0].afl[en];
    const double mach = std::clamp(mach_el, 0.0, 0.85);
    // by file name: what is one foil is looked up once
    const coeffs root_lo = from_table(en, el, 0, 0, alpha, stalled);
    const coeffs tip_lo = strcmp(w.Tafl0, w.Rafl0) ? from_table(en, el, 1, 0, alpha, stalled) : root_lo;
    const coeffs root_hi = strcmp(w.Rafl1, w.Rafl0) ? from_table(en, el, 0, 1, alpha, stalled) : root_lo;
    const coeffs tip_hi = strcmp(w.Tafl1, w.Tafl0) ? from_table(en, el, 1, 1, alpha, stalled) : tip_lo;
    const double Re = con.lcl_r_met * v * w.mac[el] / con.planet_mu_air * 1e-6;
    const auto by_Re = [&](int RT, coeffs lo, coeffs hi) {
        const double lo_Re = foil.re_num[RT][0], hi_Re = foil.re_num[RT][1];
        return mix(lo_Re, lo, hi_Re, hi, Re < lo_Re ? lo_Re : Re > hi_Re ? hi_Re : Re);
    };
    coeffs c = mix(0, by_Re(0, root_lo, root_hi), w.els, by_Re(1, tip_lo, tip_hi), el + 0.5);
    c = {c.cl + mod.cl, c.cd + mod.cd, c.cm + mod.cm};
    if (c.cl > 0) c.cl *= CL_ge;
    const double prandtl_glauert = 1 / sqrt(1 - mach * mach);
    c.cl *= prandtl_glauert;
    c.cm *= prandtl_glauert;
    const double centroid = flt[0].wing[en].Q_centroid_loc[0];
    const double beta_eff = flt[0].beta * cos(w.dihednow * deg);
    const double AR = held(1, w.AR, 0, 1.0 / w.AR, fabs(cos(beta_eff * deg)));
    c.cd += c.cl * c.cl / (std::clamp(centroid, 0.5, 2.0) * pi * w.e * AR) * CD_ge;
    c.cl *= w.cl_D_cl0 * centroid;
    c.cm *= w.cm_D_cm0 * centroid;
    const double rise = mach - (drag_div - 0.2 * fabs(c.cl));
    if (rise > 0) c.cd += 2.5 * rise * rise;
    c.cm -= 0.25 * w.delta_fac * c.cl;
    if (flt[0].frame_ice > 0) {
        c.cl /= 1 + 0.5 * flt[0].frame_ice;
        c.cd *= 1 + 4.0 * flt[0].frame_ice;
    }
    return c;
}

// A double wedge of four flat facets by linear theory.
coeffs supersonic(double alpha, double mach_el, double thickness, coeffs mod) {
    const double mach = std::clamp(mach_el, 1.1, 3.0), wedge = atan(thickness);
    coeffs c = {0, 0.0046, 0};
    for (const double turn : {-wedge, wedge, wedge, -wedge}) {
        const double a = alpha * deg + turn, cp = 2 * a / sqrt(mach * mach - 1);
        c.cl += cos(a) * cp * 0.5;
        c.cd += sin(a) * cp * 0.5;
    }
    c.cm = -0.24 * c.cl;
    return {c.cl + mod.cl, c.cd + mod.cd, c.cm + mod.cm};
}

// -- controls
// A control surface as the records describe it.
struct control {
    const int* carries;  // per element
    double el_root, el_tip, share_root, share_tip, def;
    bool at_wing_end;
};
std::vector<control> controls_of(int en) {
    const veh_struct& v = veh[0];
    const veh_wing_struct& w = v.wing[en];
    const flt_wing_struct& n = flt[0].wing[en];
    // in the order of the kinds, the last one the speed brake
    return {{w.ail1, w.ail1_elR, w.ail1_elT, v.ail1_cratR, v.ail1_cratT, n.ail1_def, true},
            {w.ail2, w.ail2_elR, w.ail2_elT, v.ail2_cratR, v.ail2_cratT, n.ail2_def, true},
            {w.spo1, w.spo1_elR, w.spo1_elT, v.spo1_cratR, v.spo1_cratT, n.spo1_def, false},
            {w.spo2, w.spo2_elR, w.spo2_elT, v.spo2_cratR, v.spo2_cratT, n.spo2_def, false},
            {w.yawb, w.yawb_elR, w.yawb_elT, v.yawb_cratR, v.yawb_cratT, n.yawb_def, true},
            {w.elev, w.elev_elR, w.elev_elT, v.elev_cratR, v.elev_cratT, n.elev_def, false},
            {w.rud1, w.rud1_elR, w.rud1_elT, v.rud1_cratR, v.rud1_cratT, n.rud1_def, false},
            {w.rud2, w.rud2_elR, w.rud2_elT, v.rud2_cratR, v.rud2_cratT, n.rud2_def, false},
            {w.fla1, w.fla1_elR, w.fla1_elT, v.fla1_cratR, v.fla1_cratT, n.fla1_def, false},
            {w.fla2, w.fla2_elR, w.fla2_elT, v.fla2_cratR, v.fla2_cratT, n.fla2_def, false},
            {w.sbrk, w.sbrk_elR, w.sbrk_elT, v.sbrk_cratR, v.sbrk_cratT,
             static_cast<double>(flt[0].sbrk_rat) * v.sbrk_up, false}};
}
enum { ail1, ail2, spo1, spo2, yawb, elev, rud1, rud2, fla1, fla2, sbrk };

double flap_growth(double def) {
    if (def < 20) return line(0, 0, 20, 0.7, def);
    return def < 45 ? held(20, 0.7, 45, 0.8, def) : held(45, 0.8, 90, 1, def);
}

// Adds a control's effect on its element; alpha: of the flow, before any control.
void deflect(int en, int el, int kind, const control& c, double alpha, double* al, coeffs* mod) {
    if (c.def == 0) return;
    const veh_struct& v = veh[0];
    const veh_wing_struct& w = v.wing[en];
    const afl_struct& foil = v.afl[en];
    const auto chord = [&](double at) { return line(0, w.Croot, w.els, w.Ctip, at); };
    const double share =
        line(c.el_root, c.share_root * chord(c.el_root), c.el_tip, c.share_tip * chord(c.el_tip), el) /
        chord(el);
    const double smooth = v.con_smooth == 0 ? 0.7 : v.con_smooth == 1 ? 0.85 : v.con_smooth == 3 ? 1.5 : 1.0;
    const double span = c.at_wing_end ? static_cast<double>(w.al_D_al0) * w.al_D_al0 : w.al_D_al0;
    const double slope =
        (static_cast<double>(foil.clM[0][0]) + foil.clM[0][1] + foil.clM[1][0] + foil.clM[1][1]) / 4 * span;
    double al_inc = 0;
    coeffs inc = {0, 0, 0};
    if (kind == yawb || (kind == sbrk && (en == part_vstb_first || en == part_vstb_last))) {
        inc.cd = 2.46 * share * sin(fabs(c.def) * deg);
    } else if (kind == fla1 || kind == fla2) {
        const bool first = kind == fla1;
        const double full = (first ? v.fla1_dn : v.fla2_dn)[v.flap_detents];
        al_inc = share * fabs(share) * c.def;
        const double growth = flap_growth(c.def) / flap_growth(full);
        inc.cl = growth * (first ? v.fla1_cl : v.fla2_cl) * span - al_inc * slope;
        inc.cd = sin(fabs(c.def) * deg) / sin(fabs(full) * deg) * (first ? v.fla1_cd : v.fla2_cd);
        inc.cm = growth * (first ? v.fla1_cm : v.fla2_cm) * span;
        if (flt[0].fail_stat[w.lat_sign < 0 ? fail_L_flp_off : fail_R_flp_off] == fail_active) {
            al_inc = 0;
            inc.cl = -0.2 * share * alpha;
            inc.cd = foil.t_rat[0];
            inc.cm = -inc.cl * (0.75 - 0.5 * share);
        }
    } else {
        al_inc = -c.def * pow(share, 0.9) * smooth;
        inc.cl = slope * al_inc * span * 0.9;
        inc.cd = 1.5e-5 * share * c.def * c.def;
        inc.cm = -0.5 * inc.cl;
        if (kind == spo1 || kind == spo2 || kind == sbrk) {  // the moment stays whole
            al_inc /= 2;
            inc.cl /= 2;
            inc.cd = 1.23 * share * sin(fabs(c.def) * deg);
        }
    }
    *al += al_inc;
    *mod = {mod->cl + inc.cl, mod->cd + inc.cd, mod->cm + inc.cm};
}

// -- slipstreams
bool washes(int disc) {
    const int type = veh[0].engn[disc].prop_type;
    return has_this_thru(0, disc, thru_disc) && type != prop_tail_rotor && type != prop_lift_fan &&
           fabs(flt[0].engn[disc].DVinc) > 0.01;
}
vec wash_of(int disc) {
    const flt_engn_struct& e = flt[0].engn[disc];
    const double aft = e.DVinc * cos(e.side_disc_cyclic * deg);
    return {-e.DVinc * sin(e.side_disc_cyclic * deg), -aft * sin(e.vert_disc_cyclic * deg),
            aft * cos(e.vert_disc_cyclic * deg)};
}
void wash_element(int en, vec place, double* axilv, double* normv) {
    const flt_wing_struct& now = flt[0].wing[en];
    for (int disc = 0; disc < veh[0].num_thrustpoints; ++disc) {
        if (!washes(disc)) continue;
        const flt_engn_struct& e = flt[0].engn[disc];
        const vec inc = wash_of(disc), along = air_on_aircraft() + inc;
        const vec geo = place - vec{e.XYZ[0], e.XYZ[1], e.XYZ[2]};
        const double rad = veh[0].wing[disc].semilen_SEG;
        const double off = length(cross(geo, along)) / length(along);
        const bool behind = fabs(geo.z) > fabs(geo.y) ? side_of(geo.z) == side_of(along.z)
                                                      : side_of(geo.y) == side_of(along.y);
        if (!behind || off >= rad) continue;
        const double down_axis = sqrt(std::max(0.0, length(geo) * length(geo) - off * off));
        const vec rel = geo - down_axis / length(along) * along;
        double swirl = off / rad * (veh[0].engn[disc].prop_dir < 0 ? -1 : 1);
        const double dihed = fabs(veh[0].wing[en].dihednow);
        const bool flat = dihed < 45 || dihed > 135;
        if (flat ? rel.x * now.cos_act_dihed > 0 : rel.y * now.sin_act_dihed > 0) swirl = -swirl;
        *axilv += inc.z * held(0.75, 1, 1.25, 0, off / rad);
        *normv += e.side_wash * swirl;
    }
}

void ground_effect(air_step& s) {
    for (int en = 0; en < wingDIM; ++en) {
        s.CL_grndeffect[en] = s.CD_grndeffect[en] = 1;
        if (en > part_wing_last || !has_this_wing(0, en)) continue;
        const veh_wing_struct& w = veh[0].wing[en];
        const veh_part_struct& part = veh[0].part[en];
        const flt_engn_struct* disc = en <= part_thru_last ? &flt[0].engn[en] : nullptr;
        if (disc ? disc->vert_disc_cyclic <= 45 || fabs(disc->side_disc_cyclic) >= 45
                 : fabs(w.dihednow) >= 45)
            continue;
        const vec at =
            to_world(disc ? vec{part.part_x, part.part_y, part.part_z} : on_surface(en, w.els / 2.0));
        const double height = at.y + flt[0].dob_y - flt[0].terrain_y_cg;
        if (height <= 0) continue;
        const double chord = std::max<double>(w.average_MAC, 0.1 * height);
        const double span = std::max<double>(2.0 * w.semilen_JND, 0.1 * height);
        s.CL_grndeffect[en] = held(0, 2, 1, 1, pow(height / chord, 0.25));
        s.CD_grndeffect[en] = held(0, 0, 1, 1, pow(height / span, 0.25));
    }
}

// -- wings, tails, pylons
struct flow {
    double v[wingDIM][elDIM];
    double wash_from[wingDIM];
};

void element(int en, int el, air_step& s, flow& out) {
    const veh_wing_struct& w = veh[0].wing[en];
    const flt_wing_struct& now = flt[0].wing[en];
    const afl_struct& foil = veh[0].afl[en];
    const double cosd = now.cos_act_dihed, sind = now.sin_act_dihed, side = w.lat_sign;
    const vec place = on_surface(en, el + 0.5), air = air_at(place), turn = by_rotation(place);
    const double A = atan2(air.y, air.z) / deg, B = atan2(air.x, fabs(air.z)) / deg;
    const double sweep = w.sweepnow + cosd * (w.is_left ? -B : B);
    const double in_plane = held(0, cos(sweep * deg), 1, 1, w.delta_fac) * length(air);
    const double to_chord = w.incidence[el] + w.incnow + cosd * A - sind * B * side;
    double axilv = cos(to_chord * deg) * in_plane + turn.z;
    double normv = sin(to_chord * deg) * in_plane + cosd * turn.y - sind * turn.x * side;
    wash_element(en, place, &axilv, &normv);
    const bool tail_or_aileron = w.ail1[el] || w.ail2[el] || w.elev[el] || w.rud1[el] || w.rud2[el];
    const double engage = held(veh[0].blown_flap_min_engag, 0, 1, 1, flt[0].handle_rat_act);
    if (veh[0].blown_flap_add_speed > 0 && engage > 0 && flt[0].engn[0].prop_mode != 3 &&
        (w.fla1[el] || w.fla2[el] || (veh[0].blow_all_controls && tail_or_aileron)))
        axilv += veh[0].blown_flap_add_speed * engage * flt[0].engn[0].thro_use;
    const double v = out.v[en][el] = sqrt(axilv * axilv + normv * normv);
    double alpha = atan2(normv, axilv) / deg + now.downwash_deg[el];
    const double del_dir = (alpha - to_chord) * deg;
    alpha += now.elem_inc_inc[el];
    double al = 0;
    coeffs mod = {0, 0, 0};
    const std::vector<control> controls = controls_of(en);
    for (int k = 0; k <= sbrk; ++k)
        if (controls[k].carries[el]) deflect(en, el, k, controls[k], alpha, &al, &mod);
    alpha += al;

    const double mach = v / con.lcl_a;
    s.on_edge |= fabs(mach - 1) < 1e-5;
    const double thickness = line(0, foil.t_rat[0], w.els, foil.t_rat[1], el + 0.5);
    const double drag_div = line(0, foil.mach_div[0], w.els, foil.mach_div[1], el + 0.5);
    const coeffs c = mach < 1 ? subsonic(en, el, v, alpha, mach, drag_div, mod, s.CL_grndeffect[en],
                                         s.CD_grndeffect[en], &s.stalled[en])
                              : supersonic(alpha, mach, thickness, mod);
    const double qS = 0.5 * v * v * w.el_s[el] * con.lcl_r_met;
    const double lift = (c.cd * sin(del_dir) + c.cl * cos(del_dir)) * qS;
    const double drag = (c.cd * cos(del_dir) - c.cl * sin(del_dir)) * qS;
    const double momt = c.cm * qS * w.mac[el];
    const double force[3] = {-lift * sind * side, lift * cosd, drag};
    std::copy(force, force + 3, s.force_XYZ[en][el]);
    s.nrml_force_path[en] += lift;
    s.axil_force_path[en] += drag;
    sums{s}.add(drag, force[0], force[1], place);
    s.moment[1] += cosd * momt;
    s.moment[2] -= sind * momt * side;
    s.largest_moment += fabs(momt);
    const double flicker = s.stalled[en] ? fabs(sin(10.0 * mnw.totl_time)) : 1;
    out.wash_from[en] += w.spec_wash * c.cl / w.els * flicker;
}

void next_flow(air_step& s, const flow& out) {
    for (int washee = part_wing_first; washee <= part_wing_last; ++washee)
        for (int el = 0; el < elDIM; ++el)
            for (int washer = part_wing_first; washer <= part_wing_last && flt[0].Mach < 1; ++washer)
                if (veh[0].in_downwash[washee][washer][el])
                    s.downwash_deg[washee][el] -=
                        out.wash_from[washer] * cos((static_cast<double>(veh[0].wing[washer].dihednow) -
                                                     veh[0].wing[washee].dihednow) *
                                                    deg);
    for (int en = 0; en < wingDIM; ++en) {
        if (!has_this_wing(0, en)) continue;
        const veh_wing_struct& w = veh[0].wing[en];
        for (int blade = 0; blade < (en <= part_thru_last ? bladDIM : 1); ++blade) {
            double sum = 0, all = 0;
            for (int el = 0; el < w.els; ++el) {
                const double v =
                    (en <= part_thru_last ? flt[0].wing[en].v_el[el][blade] : out.v[en][el]) + 0.001;
                sum += v * v * w.el_s[el] * (el + 0.5);
                all += v * v * w.el_s[el];
            }
            s.Q_centroid_loc[en][blade] = sqrt(held(0.5, 1, 1, 0, std::clamp(sum / (w.els * all), 0.0, 1.0)));
        }
    }
}

// -- bodies and what stands out of them
// A body at or above the speed of sound: panels that turn the flow from nose to tail.
void panels(const veh_part_struct& part, double mach, double alph, double beta, double q, double* lift,
            double* side, double* drag) {
    const double m = std::clamp(mach, 1.5, 3.0), rad_to_cp = 2 / sqrt(m * m - 1);
    for (int r = 0; r + 1 < part.r_dim; ++r) {
        double before = 0;
        for (int s = 0; s + 1 < part.s_dim; ++s) {
            const auto corner = [&](int ds, int dr) {
                const float* p = part.geo_xyz[s + ds][r + dr];
                return vec{p[0], p[1], p[2]};
            };
            const vec dr = 0.5 * (corner(0, 1) - corner(0, 0) + corner(1, 1) - corner(1, 0));
            const vec ds = 0.5 * (corner(1, 0) - corner(0, 0) + corner(1, 1) - corner(0, 1));
            const double wet = sqrt(dr.x * dr.x + dr.y * dr.y) * ds.z;
            if (ds.z <= 0 || wet <= 0) continue;
            const double a = 0.5 * alph - atan(ds.y / ds.z), b = 0.5 * beta - atan(ds.x / ds.z);
            const double off = sqrt(a * a + b * b);
            const double cp = std::min((off - before) * rad_to_cp, 1.0);
            before = off;
            *lift -= cp * cos(a) * dr.x * ds.z * q;
            *side += cp * cos(b) * dr.y * ds.z * q;
            *drag += (cp * sin(off) + 0.0023) * wet * q;
        }
    }
}

void body(int en, air_step& s) {
    const veh_part_struct& part = veh[0].part[en];
    vec v = air_on_aircraft();
    for (int disc = 0; disc < veh[0].num_thrustpoints; ++disc) {
        const int type = veh[0].engn[disc].prop_type;
        if (!washes(disc) || type == prop_collective || type == prop_governed_rotor) continue;
        const veh_part_struct& hub = veh[0].part[disc];
        const vec d =
            vec{part.aero_x_os, part.aero_y_os, part.aero_z_os} - vec{hub.part_x, hub.part_y, hub.part_z};
        if (d.z > 0 && sqrt(d.x * d.x + d.y * d.y) < veh[0].wing[disc].semilen_SEG) v = v + wash_of(disc);
    }
    const double speed = length(v), mach = speed / con.lcl_a, q = 0.5 * speed * speed * con.lcl_r_met;
    const double alph = atan2(v.y, v.z) + part.part_the * deg, beta = atan2(v.x, v.z) + part.part_psi * deg;
    const double angl = fabs(sin(atan2(sqrt(v.x * v.x + v.y * v.y), fabs(v.z))));
    double lift = 0, side = 0, drag = 0;
    if (mach < 1) {
        const double slow = std::min(mach, 0.8);
        const double cross_flow =
            0.27 * (1 / sqrt(1 - slow * slow) + (mach > 0.8 ? 2.5 * (mach - 0.8) * (mach - 0.8) : 0));
        lift = sin(alph) * cross_flow * part.area_nrml * q;
        side = sin(beta) * cross_flow * part.area_side * q;
        drag = (part.cd + angl * cross_flow) * q *
               held(0, part.area_frnt, 1, 0.5 * (static_cast<double>(part.area_side) + part.area_nrml), angl);
    } else {
        panels(part, mach, alph, beta, q, &lift, &side, &drag);
    }
    const int engine = en - part_nace_first;
    if (en >= part_nace_first && en <= part_nace_last &&
        (has_this_engn(0, engine, engn_jet) || has_this_engn(0, engine, engn_roc)))
        drag = 0;  // in the engine's thrust already
    sums{s}.add(drag, side, lift, {part.aero_x_os, part.aero_y_os, part.aero_z_os});
}

void gear_leg(int g, air_step& s) {
    const veh_gear_struct& leg = veh[0].gear[g];
    if (leg.dep_rat <= 0.01) return;
    const bool retracts = veh[0].gear_retract;
    const double strut = 0.5 * leg.leg_len * leg.tire_radius;
    double tyres = 0.25 * 1.4 * leg.tire_radius * leg.tire_radius;
    if (!retracts && has_this_body(0, part_fair_first + g)) tyres *= 0.1;
    const double wheels[10] = {1, 1, 1, 2, 1.2, 2.4, 2.8, 4, 1, 1};
    tyres *= wheels[leg.gear_type];
    const double area = retracts ? 0.3 * strut * 1.5 + tyres + 0.5 * 0.25 * strut : 0.05 * strut + tyres;
    sums{s}.add(area * flt[0].Qstatic * leg.dep_rat, 0, 0, {leg.x_nodef, leg.y_nodef, leg.z_nodef});
}

void doors_and_chute(air_step& s) {
    const auto speed2 = [](vec at) { return pow(length(air_on_aircraft() + by_rotation(at)), 2); };
    for (const veh_door_struct& door : veh[0].sbrk) {
        if (flt[0].sbrk_rat <= 0 || !door.type) continue;
        const vec at = {door.xyz[0], door.xyz[1], door.xyz[2]};
        const double area = door.area * sin(std::clamp<double>(door.ang_now, 0, 180) * deg);
        sums{s}.add(0.615 * speed2(at) * area * con.lcl_r_met, 0, 0, at);
    }
    if (veh[0].chute_area > 0 && stg.chute_on) {
        const vec at = {0, veh[0].chute_Y, veh[0].chute_Z};
        sums{s}.add(0.6 * veh[0].chute_area * stg.chute_deploy_rat * speed2(at) * con.lcl_r_met, 0, 0, at);
    }
}

}  // namespace

air_step air_reference() {
    const auto s = std::make_unique<air_step>();
    const auto out = std::make_unique<flow>();
    for (int en = 0; en < wingDIM; ++en) s->stalled[en] = flt[0].wing[en].stalled;
    ground_effect(*s);
    for (int en = part_wing_first; en < wingDIM; ++en)
        if (has_this_wing(0, en))
            for (int el = 0; el < veh[0].wing[en].els; ++el) element(en, el, *s, *out);
    next_flow(*s, *out);
    for (int en = part_body_first; en < partDIM; ++en)
        if (has_this_body(0, en)) body(en, *s);
    for (int g = 0; g < gearDIM; ++g)
        if (has_this_gear(0, g)) gear_leg(g, *s);
    doors_and_chute(*s);
    return *s;
}

}  // namespace test
