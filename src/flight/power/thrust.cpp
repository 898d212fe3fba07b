// Jets and rockets.
#include "flight/power/thrust.h"

#include "aircraft/design/check.h"
#include "core/craft/engn_kinds.h"
#include "core/math/axes.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "flight/force/forces.h"
#include "flight/force/trace.h"
#include "flight/power/disc.h"
#include "flight/power/engine_control.h"
#include "weather/atmosphere.h"

// Along the nacelle, forward when positive.
static void apply_thrust(int en) {
    const flt_engn_struct& e = flt[0].engn[en];
    check_val(e.thrust);
    float* force = flt[0].wing[en].force_XYZ[0];
    disc_to_veh(0.0f, 0.0f, -e.thrust, &force[0], &force[1], &force[2], 0, en);
    addFsprop(0, force[0], e.XYZ[1], e.XYZ[2]);
    addFnprop(0, force[1], e.XYZ[0], e.XYZ[2]);
    addFaprop(0, force[2], e.XYZ[0], e.XYZ[1]);
    if (mnw.cyc_out) [[unlikely]]
        trace_values("THRUST", {{"number", static_cast<float>(en)}, {"N", e.thrust}, {"wash m/s", e.DVinc}});
}

// Shares of a jet's power that go elsewhere than into thrust.
struct tapped_shares {
    float lift_fan, blown_flap, pre_rotation;
};
static tapped_shares shares_of(int en) {
    const veh_struct& v = veh[0];
    tapped_shares s{};
    for (int fan = 0; fan < v.num_thrustpoints; ++fan)
        if (is_lift_fan(0, fan))
            s.lift_fan += v.lift_fan_rat * sqr(sin_deg(flt[0].engn[en].vert_disc_vector));
    if (flt[0].blown_flap_engage_rat > 0.0f && v.blown_flap_add_speed > 0.0f)
        s.blown_flap = v.blown_flap_throt_red * flt[0].blown_flap_engage_rat;
    if (stg.pre_rotating) s.pre_rotation = 0.75f;
    return s;
}

// As given: thrust goes with the cube of N1 from the ram drag of a dead engine; a reverser turns half of it.
// The power in the stream is thrust times the speed that momentum gives it through the face; three quarters
// can be tapped.
void do_a_jet(int en) {
    const veh_struct& v = veh[0];
    flt_struct& f = flt[0];
    flt_engn_struct& e = f.engn[en];
    const float face = fltmax2(v.face_jet, divisor_min);
    e.N1 = fltlim(e.N1, 0.0f, 100.0f * v.throt_max_FWD);

    const float full_thrust = v.thrust_max * e.sigma;
    const float ram_drag = -0.3f * face * f.Qstatic;
    const float burn_thrust = e.burner_on ? v.burner_inc * e.sigma : 0.0f;
    const float N = e.N1 / 100.0f;
    const float total_thrust = extrap(0.0f, ram_drag, 1.0f, full_thrust, N * N * N);

    const tapped_shares s = shares_of(en);
    e.thrust =
        total_thrust * (1.0f - s.lift_fan) * (1.0f - s.blown_flap) * (1.0f - s.pre_rotation) + burn_thrust;
    const float stream =
        0.75f * total_thrust * signsqrt(total_thrust / (fltmax2(con.lcl_r_met, 0.001f) * face));
    f.lift_fan_total_power += stream * s.lift_fan;
    f.pre_rot_total_power += stream * s.pre_rotation;

    e.power = e.thrust * e.DVinc;
    e.EPR = 1.0f + e.thrust / fltmax2(face * con.lcl_P_pas, divisor_min);
    if (e.prop_mode == mode_reverse) e.thrust *= -0.5f;
    e.DVinc = get_dv_total(e.DVinc, e.thrust, face, f.V_msc);
    apply_thrust(en);
}

// N. As given: straight lines over density between sea level, the nozzle's own height and vacuum.
float get_rocket_thrust(int en) {
    // at sea level of the standard the line ends here, whatever the table of the air says
    constexpr float rho_sl = 1.225f;
    const veh_struct& v = veh[0];
    const float rho = con.lcl_r_met;
    const float rho_opt = find_standard_rho(env.planet, v.rock_h_opt);
    const float thrust = rho > rho_opt ? extrap(rho_sl, v.rock_max_sl, rho_opt, v.rock_max_opt, rho)
                                       : extrap(0.0f, v.rock_max_vac, rho_opt, v.rock_max_opt, rho);
    return thrust * flt[0].engn[en].thro_use * flt[0].engn[en].burning_fuel;
}

void do_a_rocket(int en) {
    flt_engn_struct& e = flt[0].engn[en];
    e.thrust = get_rocket_thrust(en);
    e.DVinc = e.thrust / fallout(e.FF_kgs, -0.01f, 0.01f);
    e.power = e.thrust * e.DVinc;
    apply_thrust(en);
}
