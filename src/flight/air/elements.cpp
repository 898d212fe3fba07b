// Wing elements: ground effect, the flow at each element, its force, the downwash it throws, and the
// load along each span.
#include "flight/air/elements.h"

#include "aircraft/design/exists.h"
#include "aircraft/design/location.h"
#include "core/math/axes.h"
#include "core/records/records.h"
#include "flight/air/coeffs.h"
#include "flight/air/controls.h"
#include "flight/air/wash.h"
#include "flight/force/forces.h"
#include "flight/force/trace.h"
#include "weather/wind.h"

// Downwash thrown by each part in this half step, degrees.
static float downwash_from[partDIM];

float ret_ge_hgt_mtrs(int en) {
    float x = veh[0].part[en].part_x, y = veh[0].part[en].part_y, z = veh[0].part[en].part_z;
    if (en <= part_thru_last) {
        // a rotor counts, a propeller does not
        const flt_engn_struct& e = flt[0].engn[en];
        if (!(e.vert_disc_cyclic > 45.0f && fabsf(e.side_disc_cyclic) < 45.0f)) return 0.0f;
    } else {
        if (!(fabsf(veh[0].wing[en].dihednow) < 45.0f)) return 0.0f;
        const float middle = 0.5f * veh[0].wing[en].els;
        x = get_el_base_loc(0, en, middle, 'X');
        y = get_el_base_loc(0, en, middle, 'Y');
        z = get_el_base_loc(0, en, middle, 'Z');
    }
    float x_wrl, y_wrl, z_wrl;
    veh_to_wrl(x, y, z, &x_wrl, &y_wrl, &z_wrl, 0);
    return y_wrl + static_cast<float>(flt[0].dob_y) - flt[0].terrain_y_cg;
}

// Factors, 2 and 0 at no height to 1 at a chord's and a span's. As given: the fourth root.
void aero_ground_effect() {
    for (flt_wing_struct& w : flt[0].wing) w.CL_grndeffect = w.CD_grndeffect = 1.0f;
    for (int en = 0; en <= part_wing_last; ++en) {
        if (!has_this_wing(0, en)) continue;
        const float height_meters = ret_ge_hgt_mtrs(en);
        if (!(height_meters > 0.0f)) continue;
        const veh_wing_struct& w = veh[0].wing[en];
        const float min_height = 0.1f * height_meters;
        flt[0].wing[en].CL_grndeffect =
            interp(0.0f, 2.0f, 1.0f, 1.0f, powf(height_meters / fltmax2(w.average_MAC, min_height), 0.25f));
        flt[0].wing[en].CD_grndeffect = interp(
            0.0f, 0.0f, 1.0f, 1.0f, powf(height_meters / fltmax2(2.0f * w.semilen_JND, min_height), 0.25f));
    }
}

namespace {
// Flow at one element in its own plane.
struct element_flow {
    float place[3];  // middle of the element, aircraft axes, m
    float alpha;     // angle of the free stream to the chord, degrees
    float axilv;     // along the chord, m/s
    float normv;     // across it, m/s
};

// The air at the element's own point, by simple sweep theory, with the aircraft's rotation.
element_flow flow_at_element(int en, int el) {
    const veh_wing_struct& wing = veh[0].wing[en];
    const flt_wing_struct& now = flt[0].wing[en];
    element_flow flow;
    flow.place[0] = get_el_base_loc(0, en, el + 0.5f, 'X');
    flow.place[1] = get_el_base_loc(0, en, el + 0.5f, 'Y');
    flow.place[2] = get_el_base_loc(0, en, el + 0.5f, 'Z');

    float wind_x_acf, wind_y_acf, wind_z_acf;
    wind.ret_wind_acf(flow.place[0], flow.place[1], flow.place[2], &wind_x_acf, &wind_y_acf, &wind_z_acf);
    const float A_use = atan2_deg(wind_y_acf, wind_z_acf);
    const float B_use = atan2_deg(wind_x_acf, fabsf(wind_z_acf));
    // sideslip sweeps one wing forward and the other back
    const float effsweep = wing.sweepnow + now.cos_act_dihed * (wing.is_left ? -B_use : B_use);
    const float Vinplane = interp(0.0f, cos_deg(effsweep), 1.0f, 1.0f, wing.delta_fac) *
                           pythag(wind_x_acf, wind_y_acf, wind_z_acf);
    check_val(wind_x_acf);
    check_val(wind_y_acf);
    check_val(wind_z_acf);
    check_val(Vinplane);

    flow.alpha = wing.incidence[el] + wing.incnow + now.cos_act_dihed * A_use -
                 now.sin_act_dihed * B_use * wing.lat_sign;

    float vx_inc = 0.0f, vy_inc = 0.0f, vz_inc = 0.0f;
    inc_v(&vx_inc, &vy_inc, &vz_inc, flow.place[0], flow.place[1], flow.place[2]);
    flow.axilv = cos_deg(flow.alpha) * Vinplane + vz_inc;
    flow.normv = sin_deg(flow.alpha) * Vinplane + now.cos_act_dihed * vy_inc -
                 now.sin_act_dihed * vx_inc * wing.lat_sign;
    if (mnw.cyc_out) [[unlikely]] {
        trace_values("place m", {{"x", flow.place[0]}, {"y", flow.place[1]}, {"z", flow.place[2]}});
        trace_values("air m/s",
                     {{"x", wind_x_acf}, {"y", wind_y_acf}, {"z", wind_z_acf}, {"in plane", Vinplane}});
        trace_values("angles deg", {{"sweep", effsweep}, {"to the chord", flow.alpha}});
    }
    return flow;
}

bool is_blown(const veh_wing_struct& w, int el) {
    const bool has_flap = w.fla1[el] || w.fla2[el];
    const bool has_control = w.ail1[el] || w.ail2[el] || w.elev[el] || w.rud1[el] || w.rud2[el];
    return has_flap || (veh[0].blow_all_controls && has_control);
}

void add_blown_flaps(int en, int el, float* axilv) {
    constexpr int prop_mode_reverse = 3;
    const float add_speed = veh[0].blown_flap_add_speed, engaged = flt[0].blown_flap_engage_rat;
    if (!(add_speed > 0.0f && engaged > 0.0f) || !is_blown(veh[0].wing[en], el)) return;
    if (flt[0].engn[0].prop_mode == prop_mode_reverse) return;
    *axilv += add_speed * engaged * flt[0].engn[0].thro_use;
}

struct control_mods {
    float al = 0.0f, cl = 0.0f, cd = 0.0f, cm = 0.0f;
};

// Every control that the element carries, in the fixed order.
control_mods controls_of_element(int en, int el) {
    const veh_wing_struct& w = veh[0].wing[en];
    const flt_wing_struct& d = flt[0].wing[en];
    control_mods mod;
    const auto add = [&](int carried, int con_type, float def, int is_end, const char* name) {
        if (carried) set_con_eff(en, el, con_type, def, &mod.al, &mod.cl, &mod.cd, &mod.cm, name, is_end);
    };
    add(w.ail1[el], con_ail1, d.ail1_def, 1, "AILERON #1");
    add(w.ail2[el], con_ail2, d.ail2_def, 1, "AILERON #2");
    add(w.spo1[el], con_spo1, d.spo1_def, 0, "SPOILER #1");
    add(w.spo2[el], con_spo2, d.spo2_def, 0, "SPOILER #2");
    add(w.yawb[el], con_yawb, d.yawb_def, 1, "DRAG-RUDDER");
    add(w.elev[el], con_elev, d.elev_def, 0, "ELEVATOR");
    add(w.rud1[el], con_rud1, d.rud1_def, 0, "RUDDER #1");
    add(w.rud2[el], con_rud2, d.rud2_def, 0, "RUDDER #2");
    add(w.fla1[el], con_fla1, d.fla1_def, 0, "FLAPS #1");
    add(w.fla2[el], con_fla2, d.fla2_def, 0, "FLAPS #2");
    add(w.sbrk[el], con_sbrk, flt[0].sbrk_rat * veh[0].sbrk_up, 0, "SPEEDBRAKE");
    return mod;
}

// The wake of a stalled wing comes and goes. As given: at 10 rad/s.
float stalled_flicker() { return fabsf(sinf(10.0f * mnw.totl_time)); }

void one_element(const wash_list& washes, int en, int el) {
    const veh_wing_struct& wing = veh[0].wing[en];
    flt_wing_struct& now = flt[0].wing[en];
    if (mnw.cyc_out) [[unlikely]]
        trace_values("ELEMENT", {{"part", static_cast<float>(en)}, {"element", static_cast<float>(el)}});

    element_flow flow = flow_at_element(en, el);
    add_wash_to_element(washes, en, flow.place, &flow.axilv, &flow.normv);
    add_blown_flaps(en, el, &flow.axilv);

    now.v_el[el][0] = pythag(flow.axilv, flow.normv);
    now.alpha_el[el][0] = atan2_deg(flow.normv, flow.axilv);
    check_val(flow.axilv);
    check_val(flow.normv);
    check_val(now.v_el[el][0]);
    check_val(now.alpha_el[el][0]);
    now.alpha_el[el][0] += now.downwash_deg[el];
    // the turn of the local flow: rotation, slipstream and downwash, but no incidence and no control
    now.del_dir[el][0] = now.alpha_el[el][0] - flow.alpha;
    now.alpha_el[el][0] += now.elem_inc_inc[el];
    if (mnw.cyc_out) [[unlikely]]
        trace_values("local flow", {{"speed m/s", now.v_el[el][0]},
                                    {"alpha deg", now.alpha_el[el][0]},
                                    {"downwash deg", now.downwash_deg[el]},
                                    {"turn deg", now.del_dir[el][0]},
                                    {"linkage deg", now.elem_inc_inc[el]}});

    const control_mods mod = controls_of_element(en, el);
    now.alpha_el[el][0] += mod.al;

    float lift, drag, momt;
    const float subcl = F_el_force(mod.cl, mod.cd, mod.cm, &lift, &drag, &momt, en, el, 0);
    now.nrml_force_path += lift;
    now.axil_force_path += drag;
    addFaero(drag, -lift * now.sin_act_dihed * wing.lat_sign, lift * now.cos_act_dihed, flow.place[0],
             flow.place[1], flow.place[2], en, el);
    flt[0].M += now.cos_act_dihed * momt;
    flt[0].N -= now.sin_act_dihed * momt * wing.lat_sign;

    float thrown = wing.spec_wash * subcl / wing.els;
    if (now.stalled) thrown *= stalled_flicker();
    downwash_from[en] += thrown;
}
}  // namespace

void aero_elements() {
    for (float& d : downwash_from) d = 0.0f;
    const wash_list washes = find_washes();
    for (int en = part_wing_first; en <= part_pylo_last; ++en) {
        if (!has_this_wing(0, en)) continue;
        for (int el = 0; el < veh[0].wing[en].els; ++el) one_element(washes, en, el);
    }
    aero_forcerep("wings and pylons");
}

// Degrees. As given: it falls with the cosine of the dihedrals' difference and ends at Mach 1.
void aero_downwash() {
    for (int washee = part_wing_first; washee <= part_wing_last; ++washee)
        for (float& d : flt[0].wing[washee].downwash_deg) d = 0.0f;
    if (flt[0].Mach >= 1.0f) return;  // supersonic flight has no downwash

    for (int washer = part_wing_first; washer <= part_wing_last; ++washer) {
        if (downwash_from[washer] == 0.0f) continue;
        for (int washee = part_wing_first; washee <= part_wing_last; ++washee) {
            const int* marked = veh[0].in_downwash[washee][washer];
            bool any = false;
            for (int el = 0; el < elDIM; ++el) any = any || marked[el];
            if (!any) continue;
            const float deg =
                downwash_from[washer] * cos_deg(veh[0].wing[washer].dihednow - veh[0].wing[washee].dihednow);
            for (int el = 0; el < elDIM; ++el)
                if (marked[el]) flt[0].wing[washee].downwash_deg[el] -= deg;
        }
    }
}

// Span position, as a fraction, of the centroid of dynamic pressure; 0.5 for an even load.
static float centroid_of_Q(const veh_wing_struct& wing, const flt_wing_struct& now, int bld) {
    float moment = 0.0f, total = 0.0f;
    for (int el = 0; el < wing.els; ++el) {
        const float weight = sqr(now.v_el[el][bld] + 0.001f) * wing.el_s[el];
        moment += weight * (el + 0.5f);
        total += weight;
    }
    const float scale = wing.els * total;
    return scale > 0.0f ? fltlim(moment / scale, 0.0f, 1.0f) : 0.5f;
}

// Load factor, 1 for an even load to 0 for one at the tip. As given: the root.
void aero_spanwise_load() {
    for (int en = 0; en < wingDIM; ++en) {
        if (!has_this_wing(0, en)) continue;
        flt_wing_struct& now = flt[0].wing[en];
        const int blades = en <= part_thru_last ? bladDIM : 1;
        for (int bld = 0; bld < blades; ++bld) {
            const float centroid = centroid_of_Q(veh[0].wing[en], now, bld);
            now.Q_centroid_loc[bld] = sqrtf(interp(0.5f, 1.0f, 1.0f, 0.0f, centroid));
            now.Q_centroid_MULT[bld] = now.Q_centroid_loc[bld];
        }
    }
}
