// Sections along a surface.
#include "aircraft/mesh/surface_mesh.h"

#include "aircraft/design/controls.h"
#include "aircraft/design/location.h"
#include "core/math/num.h"

namespace {
// Fractions of the chord from the quarter chord, and of the thickness. As given: symmetrical, the joint at
// the place where most controls have it.
struct rib_struct {
    float crat, vrat;
};
constexpr rib_struct section[surface_ribs] = {
    {-0.25f, 0.0f}, {-0.22f, 0.2f},  {-0.15f, 0.4f},  {0.0f, 0.5f},   {0.2f, 0.5f},
    {0.5f, 0.0f},   {0.75f, 0.0f},   {0.75f, 0.0f},   {0.5f, 0.0f},   {0.2f, -0.5f},
    {0.0f, -0.5f},  {-0.15f, -0.4f}, {-0.22f, -0.2f}, {-0.25f, 0.0f},
};
constexpr float edge_crat = 0.75f;  // of the trailing edge

bool is_joint(int r) { return r == rib_hinge_top || r == rib_hinge_bottom; }

// The rib of element el at its inner (end 0) or outer end. A joint ahead of the thickest part takes the ribs
// between along, so that the skin does not fold.
rib_struct rib_at(int p, int en, int el, int end, int r) {
    rib_struct rib = section[r];
    const int control = hinged_control(p, en, el);
    if (!control) return rib;
    const float hinge = edge_crat - control_crat(p, en, static_cast<float>(el + end), control);
    if (is_joint(r)) return {fltlim(hinge, section[0].crat, edge_crat), r == rib_hinge_top ? 0.5f : -0.5f};
    const bool ahead_of_joint = r < rib_hinge_top || r > rib_hinge_bottom;
    if (ahead_of_joint && rib.vrat * rib.vrat >= 0.25f)
        rib.crat = fltmin2(rib.crat, fltmax2(hinge, section[2].crat));
    return rib;
}

// Of an element's end: the mean with its neighbour, at root and tip as much beyond the element as the other
// end is on this side. values: one for each of els elements.
float at_end(const float* values, int els, int el, int end) {
    const float here = values[el];
    const int inner = el - 1, outer = el + 1;
    const auto mean = [&](int other) { return 0.5f * (here + values[other]); };
    const bool has_inner = inner >= 0, has_outer = outer < els;
    if (end == 0) return has_inner ? mean(inner) : has_outer ? 2.0f * here - mean(outer) : here;
    return has_outer ? mean(outer) : has_inner ? 2.0f * here - mean(inner) : here;
}

// Quarter chord at rest, whatever sweep and dihedral are now.
d3_struct base_at_rest(int p, int en, float el) {
    if (en <= part_thru_last) return {blade_base_loc(p, en, el, 'X'), 0.0f, blade_base_loc(p, en, el, 'Z')};
    const veh_wing_struct& wing = veh[p].wing[en];
    const veh_part_struct& part = veh[p].part[en];
    const float arm = wing.element_len * el, across = arm * cos_deg(wing.sweep1);
    return {part.part_x + across * cos_deg(wing.dihed1) * wing.lat_sign,
            part.part_y + across * sin_deg(wing.dihed1), part.part_z + arm * sin_deg(wing.sweep1)};
}

// One end of an element: place and directions of its section.
void build_station(int p, int en, int el, int end) {
    const veh_wing_struct& wing = veh[p].wing[en];
    const bool is_blade = en <= part_thru_last;
    const float at = static_cast<float>(el + end), els = static_cast<float>(wing.els);
    const float turn = is_blade ? veh[p].engn[en].prop_dir : 1.0f;
    const float angle = at_end(wing.incidence, intmin2(wing.els, elDIM), el, end) * turn;
    const float sin_i = sin_deg(angle), cos_i = cos_deg(angle);
    const float sweep =
        is_blade ? at_end(veh[p].engn[en].bladesweep, intmin2(wing.els, elDIM), el, end) : 0.0f;
    const float dihedral = is_blade ? 0.0f : wing.dihed1 * wing.lat_sign;
    const float* t_rat = veh[p].afl[en].t_rat;
    const d3_struct base = base_at_rest(p, en, at);
    for (int r = 0; r < surface_ribs; ++r) {
        const rib_struct rib = rib_at(p, en, el, end, r);
        const float chrd = extrap(0.0f, rib.crat * wing.Croot, els, rib.crat * wing.Ctip, at);
        const float vert =
            extrap(0.0f, rib.vrat * wing.Croot * t_rat[0], els, rib.vrat * wing.Ctip * t_rat[1], at);
        const float aft = vert * sin_i + chrd * cos_i, up = vert * cos_i - chrd * sin_i;
        float* xyz = veh[p].part[en].geo_xyz[2 * el + end][r];
        xyz[0] = base.x - aft * sin_deg(sweep) - up * sin_deg(dihedral);
        xyz[1] = base.y + up * cos_deg(dihedral);
        xyz[2] = base.z + aft * cos_deg(sweep);
    }
}

// A flap that runs out on rails turns about a point below and ahead of its joint, by twice the thickness
// there.
bool runs_out(int p, int en, int el) {
    constexpr int no_flap = 0, special = 5;
    const auto runs = [](int type) { return type != no_flap && type != special; };
    const veh_wing_struct& wing = veh[p].wing[en];
    return (wing.fla1[el] && runs(veh[p].fla1_type)) || (wing.fla2[el] && runs(veh[p].fla2_type));
}

void find_hinge(int p, int en, int el) {
    veh_wing_struct& wing = veh[p].wing[en];
    for (const int s : {2 * el, 2 * el + 1}) {
        const float(*ribs)[3] = veh[p].part[en].geo_xyz[s];
        const float *top = ribs[rib_hinge_top], *bottom = ribs[rib_hinge_bottom];
        float* co = wing.co_xyz[s];
        for (int axis = 0; axis < 3; ++axis) co[axis] = 0.5f * (top[axis] + bottom[axis]);
        if (!runs_out(p, en, el)) continue;
        const float thick = pythag(bottom[0] - top[0], bottom[1] - top[1], bottom[2] - top[2]);
        for (int axis = 0; axis < 3; ++axis) co[axis] += 2.0f * (bottom[axis] - top[axis]);
        co[2] -= 2.0f * thick;
    }
    const float per_metre = static_cast<float>(wing.els) / fltmax2(wing.semilen_SEG, 0.001f);
    for (int axis = 0; axis < 3; ++axis)
        wing.ca_xyz[el][axis] = (wing.co_xyz[2 * el + 1][axis] - wing.co_xyz[2 * el][axis]) * per_metre;
}

// The next rib that is drawn at rest, round the leading edge, whose two ribs are one place.
int rib_beside(int r, int step) {
    r += step;
    if (is_joint(r)) r += step;
    if (r < 0) return surface_ribs - 2;
    return r >= surface_ribs ? 1 : r;
}

Point3 point_of(const float* xyz) { return {xyz[0], xyz[1], xyz[2]}; }
}  // namespace

void find_normal_vects(int p, int en, int is_surface, float outward) {
    veh_part_struct& part = veh[p].part[en];
    const int s_dim = intlim(part.s_dim, 0, part_sDIM), r_dim = intlim(part.r_dim, 0, part_rDIM);
    for (int s = 0; s < s_dim; ++s)
        for (int r = 0; r < r_dim; ++r) {
            const int before = is_surface ? rib_beside(r, -1) : (r + r_dim - 1) % r_dim;
            const int behind = is_surface ? rib_beside(r, 1) : (r + 1) % r_dim;
            const int inner = intmax2(s - 1, 0), outer = intmin2(s + 1, s_dim - 1);
            const Vector3 along = point_of(part.geo_xyz[outer][r]) - point_of(part.geo_xyz[inner][r]);
            const Vector3 around = point_of(part.geo_xyz[s][behind]) - point_of(part.geo_xyz[s][before]);
            constexpr double no_extent = 1e-12;  // m2
            Vector3 normal = along.cross(around) * outward;
            if (!(normal.normalize() > no_extent)) normal = {0.0, 1.0, 0.0};
            float* to = part.nrm_xyz[s][r];
            to[0] = static_cast<float>(normal.dx), to[1] = static_cast<float>(normal.dy),
            to[2] = static_cast<float>(normal.dz);
        }
}

void build_surface_mesh(int p, int en) {
    veh_part_struct& part = veh[p].part[en];
    const veh_wing_struct& wing = veh[p].wing[en];
    const int els = intlim(wing.els, 0, elDIM);
    part.s_dim = 2 * els, part.r_dim = surface_ribs;
    for (int el = 0; el < els; ++el) {
        for (const int end : {0, 1}) build_station(p, en, el, end);
        find_hinge(p, en, el);
    }
    find_normal_vects(p, en, 1, en <= part_thru_last ? -1.0f : -wing.lat_sign);
}

int hinged_control(int p, int en, int el) {
    if (en <= part_thru_last) return 0;
    const veh_wing_struct& w = veh[p].wing[en];
    if (w.ail1[el]) return con_ail1;
    if (w.ail2[el]) return con_ail2;
    if (w.elev[el]) return con_elev;
    if (w.rud1[el]) return con_rud1;
    if (w.rud2[el]) return con_rud2;
    if (w.fla1[el]) return con_fla1;
    if (w.fla2[el]) return con_fla2;
    return 0;
}

float con_def(int p, int en, int el) {
    const veh_wing_struct& w = veh[p].wing[en];
    const flt_wing_struct& now = flt[p].wing[en];
    float sum = 0.0f;
    if (w.ail1[el]) sum += now.ail1_def;
    if (w.ail2[el]) sum += now.ail2_def;
    if (w.elev[el]) sum += now.elev_def;
    if (w.rud1[el]) sum += now.rud1_def;
    if (w.rud2[el]) sum += now.rud2_def;
    if (w.fla1[el]) sum -= now.fla1_def;
    if (w.fla2[el]) sum -= now.fla2_def;
    return sum;
}

int flap_has_gone(int p, int en, int el) {
    const veh_wing_struct& w = veh[p].wing[en];
    if (!w.fla1[el] && !w.fla2[el]) return 0;
    return flt[p].fail_stat[w.is_left ? fail_L_flp_off : fail_R_flp_off] == fail_active;
}
