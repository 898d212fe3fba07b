// Propeller discs, engine masses, bodies, and how the mass spreads.
#include "aircraft/derive/bodies_mass.h"

#include "aircraft/derive/derive.h"
#include "aircraft/design/location.h"
#include "aircraft/file/acf_fault.h"
#include "aircraft/file/acf_layout.h"
#include "core/math/num.h"
#include "core/program/logs.h"

static constexpr float area_min = 1.0e-6f;  // square metres; floor of divisors

float findarea(float x1, float y1, float z1, float x2, float y2, float z2, float x3, float y3, float z3) {
    const float ax = x2 - x1, ay = y2 - y1, az = z2 - z1;
    const float bx = x3 - x1, by = y3 - y1, bz = z3 - z1;
    return 0.5f * pythag(ay * bz - az * by, az * bx - ax * bz, ax * by - ay * bx);
}

// Squared arms about the three axes, weighed.
struct inertia_struct {
    float xx = 0.0f, yy = 0.0f, zz = 0.0f;
    void add(float weight, float x, float y, float z) {
        xx += weight * (sqr(z) + sqr(y));
        yy += weight * (sqr(z) + sqr(x));
        zz += weight * (sqr(x) + sqr(y));
    }
};

// Section, side and plan areas, by walking the right half of each ring from top to bottom.
static void measure_outline(const veh_part_struct& part, float* s_frn, float* s_sid, float* s_top) {
    const auto& g = part.geo_xyz;
    for (int s = 1; s < part.s_dim; ++s) {
        float section = 0.0f;
        for (int r = 1; r < part.r_dim / 2; ++r) {
            const float dxs1 = g[s - 1][r][0] - g[s - 1][r - 1][0];
            const float dxs2 = g[s][r][0] - g[s][r - 1][0];
            const float dys1 = g[s - 1][r - 1][1] - g[s - 1][r][1];
            const float dys2 = g[s][r - 1][1] - g[s][r][1];
            const float zs1 = 0.5f * (g[s - 1][r - 1][2] + g[s - 1][r][2]);
            const float zs2 = 0.5f * (g[s][r - 1][2] + g[s][r][2]);
            const float xave = 0.5f * (g[s][r - 1][0] + g[s][r][0]);
            section += 2.0f * xave * dys2;
            *s_sid += fltmax2(0.5f * (dys1 + dys2) * (zs2 - zs1), 0.0f);
            *s_top += flt_abs(0.5f * (dxs1 + dxs2) * (zs2 - zs1));
        }
        *s_frn = fltmax2(*s_frn, section);
    }
}

void get_MI_S_body(int p, int en, int is_wpn, float x, float y, float z, float* s_frn, float* s_sid,
                   float* s_top, float* x_aero, float* y_aero, float* z_aero, float* swet_tot,
                   float* Jxx_unitmass, float* Jyy_unitmass, float* Jzz_unitmass) {
    const veh_part_struct& part = is_wpn ? veh[p].wpn[en].part : veh[p].part[en];
    const auto& g = part.geo_xyz;
    measure_outline(part, s_frn, s_sid, s_top);

    float swet = 0.0f, moment_y = 0.0f, moment_z = 0.0f;
    inertia_struct J;
    const auto triangle = [&](const float* a, const float* b, const float* c) {
        // twice, for the mirrored half
        const float area = 2.0f * findarea(a[0], a[1], a[2], b[0], b[1], b[2], c[0], c[1], c[2]);
        const float cx = x + (a[0] + b[0] + c[0]) / 3.0f;
        const float cy = y + (a[1] + b[1] + c[1]) / 3.0f;
        const float cz = z + (a[2] + b[2] + c[2]) / 3.0f;
        swet += area;
        moment_y += area * cy;
        moment_z += area * cz;
        J.add(area, cx, cy, cz);
    };
    for (int s = 0; s < part.s_dim - 1; ++s)
        for (int r = 0; r < part.r_dim / 2 - 1; ++r) {
            triangle(g[s][r], g[s][r + 1], g[s + 1][r + 1]);
            triangle(g[s][r], g[s + 1][r], g[s + 1][r + 1]);
        }
    *swet_tot += swet;
    *Jxx_unitmass += J.xx;
    *Jyy_unitmass += J.yy;
    *Jzz_unitmass += J.zz;
    *x_aero = x;
    *y_aero = swet > area_min ? moment_y / swet : y;
    *z_aero = swet > area_min ? moment_z / swet : z;

    if (p == 0 && !(*s_frn >= 0.0001f))
        ACF_fault(p, "I have found a part with no frontal area!. This is bad news for the math engine!",
                  "This is the part with no frontal area, which you must give some area or remove from the "
                  "plane in Hullwright:",
                  veh[p].name, is_wpn ? veh[p].watt[en].watt_name : part_title(en));
}

// m2, kg, kg m2. As given: a blade is six tenths of its section's box, of aluminium, its radius of gyration
// .707.
void derive_prop_discs(int p) {
    for (int en = 0; en < veh[p].num_thrustpoints; ++en) {
        if (!has_this_thru(p, en, thru_disc)) continue;
        veh_engn_struct& engn = veh[p].engn[en];
        const veh_wing_struct& blade = veh[p].wing[en];
        for (int el = 0; el < blade.els; ++el)
            engn.ringarea[el] =
                con.pi * (sqr(get_el_base_loc(p, en, el + 1.0f, 'X')) - sqr(get_el_base_loc(p, en, el, 'X')));
        engn.discarea = con.pi * sqr(get_el_base_loc(p, en, blade.els, 'X'));

        constexpr float solidity = 0.6f;    // of the blade's section box
        constexpr float density = 2700.0f;  // aluminium, kg/m3
        const float* t_rat = veh[p].afl[en].t_rat;
        const float chord = 0.5f * (blade.Ctip + blade.Croot);
        const float thickness = 0.5f * (t_rat[0] * blade.Croot + t_rat[1] * blade.Ctip);
        const float radius = blade.semilen_SEG;
        engn.prop_mass =
            radius * chord * thickness * solidity * engn.num_blades * veh[p].rotor_mi_rat * density;
        engn.mi_prop_rpm = engn.prop_mass * sqr(0.707f * radius);
        if (engn.prop_type == prop_lift_fan) engn.mi_prop_rpm *= 2.0f;
        if (engn.prop_type == prop_collective || engn.prop_type == prop_governed_rotor)
            engn.mi_prop_rpm += veh[p].tip_weight * engn.num_blades * sqr(0.85f * radius);
        if (in_report(p))
            cyc << "disc " << en << ": area " << engn.discarea << ", mass " << engn.prop_mass << ", inertia "
                << engn.mi_prop_rpm << '\n';
    }
}

// By kind, from power or thrust; kilograms. As given.
static float ret_engn_mass(int p, int en) {
    const veh_struct& acf = veh[p];
    const float power = acf.power_max * con.watttohp;    // hp
    const float thrust = acf.thrust_max * con.ntntolbs;  // lb
    switch (acf.engn[en].engn_type) {
        case engn_recip_carb:
        case engn_recip_inj:  // a supercharged engine is lighter for its power
            return 1.75f * power * powf(29.92f / fltmax2(acf.MP_max, 1.0f), 1.5f) * con.lbstokgs;
        case engn_electric:
            return 1.75f * power * con.lbstokgs;
        case engn_turb_free:
        case engn_turb_fixed:
            return 0.5f * power * con.lbstokgs;
        case engn_jet_lo:
        case engn_jet_hi:
            return 0.18f * thrust * con.lbstokgs;
        default:  // rockets
            return 0.01f * thrust * con.lbstokgs;
    }
}

// Adds each engine at its thrust point and gives the mass of all, at most half of the empty mass.
static float add_engines(int p, inertia_struct& J) {
    float mas_engines = 0.0f;
    for (int en = 0; en < veh[p].num_engines; ++en) {
        veh_engn_struct& engn = veh[p].engn[en];
        const veh_part_struct& part = veh[p].part[en];
        engn.engn_mass = ret_engn_mass(p, en);
        engn.mi_engn_rpm = 0.4f * veh[p].trq_max_eng / fltmax2(veh[p].RSC_redline_ENGN, 1.0f);
        mas_engines = fltmin2(mas_engines + engn.engn_mass, 0.5f * veh[p].m_empty);
        J.add(engn.engn_mass, part.part_x, part.part_y, part.part_z);
        if (in_report(p))
            cyc << "engine " << en << ": mass " << engn.engn_mass << ", inertia " << engn.mi_engn_rpm << '\n';
    }
    return mas_engines;
}

// Surfaces count half: much of an airframe's mass is in its bodies.
static void add_surfaces(int p, float& wetted, inertia_struct& J) {
    for (int en = part_wing_first; en < wingDIM; ++en) {
        if (!has_this_wing(p, en)) continue;
        const veh_wing_struct& wing = veh[p].wing[en];
        for (int el = 0; el < wing.els; ++el) {
            const float at = el + 0.75f;
            wetted += 0.5f * wing.el_s[el];
            J.add(0.5f * wing.el_s[el], get_el_base_loc(p, en, at, 'X'), get_el_base_loc(p, en, at, 'Y'),
                  get_el_base_loc(p, en, at, 'Z'));
        }
    }
}

// Measures a body of the record.
static void measure_body(int p, int en, veh_part_struct& part, float& wetted, inertia_struct& J) {
    part.area_frnt = part.area_side = part.area_nrml = 0.0f;
    get_MI_S_body(p, en, 0, part.part_x, part.part_y, part.part_z, &part.area_frnt, &part.area_side,
                  &part.area_nrml, &part.aero_x_os, &part.aero_y_os, &part.aero_z_os, &wetted, &J.xx, &J.yy,
                  &J.zz);
}

static void add_bodies(int p, float& wetted, inertia_struct& J) {
    for (int en = part_body_first; en < partDIM; ++en) {
        if (!has_this_body(p, en)) continue;
        veh_part_struct& part = veh[p].part[en];
        measure_body(p, en, part, wetted, J);
        if (in_report(p))
            cyc << "body " << en << " " << part_title(en) << ": frontal area " << part.area_frnt << ", side "
                << part.area_side << ", plan " << part.area_nrml << ", centroid (" << part.aero_x_os << ", "
                << part.aero_y_os << ", " << part.aero_z_os << ")\n";
    }
}

float bodies_wetted_area(int p) {
    float wetted = 0.0f;
    inertia_struct ignored;
    for (int en = part_body_first; en < partDIM; ++en) {
        if (!has_this_body(p, en)) continue;
        veh_part_struct scratch = veh[p].part[en];
        measure_body(p, en, scratch, wetted, ignored);
    }
    return wetted;
}

void derive_inertia(int p) {
    veh_struct& acf = veh[p];
    inertia_struct engines, shell;
    float wetted = 0.0f;
    const float mas_engines = add_engines(p, engines);
    add_surfaces(p, wetted, shell);
    add_bodies(p, wetted, shell);

    // the airframe's mass spread evenly over its surface
    const float mas_shell = acf.m_empty - mas_engines;
    const float per_area = mas_shell / fltmax2(wetted, area_min);
    const float m_empty = fltmax2(acf.m_empty, 1.0f);
    if (acf.manual_rad_gyr) {
        for (float* radius : {&acf.Jxx_unitmass, &acf.Jyy_unitmass, &acf.Jzz_unitmass})
            *radius = sqr(*radius * con.fttomtrs);
    } else {
        acf.Jxx_unitmass = (engines.xx + shell.xx * per_area) / m_empty;
        acf.Jyy_unitmass = (engines.yy + shell.yy * per_area) / m_empty;
        acf.Jzz_unitmass = (engines.zz + shell.zz * per_area) / m_empty;
    }
    if (in_report(p))
        cyc << "mass of the engines " << mas_engines << ", of the shell " << mas_shell
            << ", surface of the shell " << wetted << '\n'
            << "radii of gyration: pitch " << sqrtf(acf.Jxx_unitmass) << ", yaw " << sqrtf(acf.Jyy_unitmass)
            << ", roll " << sqrtf(acf.Jzz_unitmass) << '\n';
}
