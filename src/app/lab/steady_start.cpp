// The steady flight of the start: found by the lab's search, in the place where the aircraft is.
#include "app/lab/steady_start.h"

#include <math.h>

#include <vector>

#include "app/lab/lab.h"
#include "app/lab/lab_steady.h"
#include "core/math/axes.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "flight/fullsim.h"
#include "weather/weather_step.h"

namespace {
lab_steady_order order_for(float speed) {
    lab_steady_order order;
    order.speed = speed;
    order.altitude = static_cast<float>(flt[0].dob_ele);
    order.track = flt[0].psi;
    order.by_trims = true;
    if (veh[0].num_engines > 0) return order;
    order.power = 0.0f;
    order.gamma = -3.0f;
    return order;
}

// What the search burns and moves comes back.
void put_back(const flt_struct& before) {
    flt_struct& f = flt[0];
    f.dob_x = before.dob_x, f.dob_y = before.dob_y, f.dob_z = before.dob_z;
    f.dob_lat = before.dob_lat, f.dob_lon = before.dob_lon, f.dob_ele = before.dob_ele;
    for (int tank = 0; tank < fuelDIM; ++tank) f.m_fuel[tank] = before.m_fuel[tank];
    cache_attitude(0);
    cache_air(0);
}

// While one lives the wind is the mean wind: trimmed in a gust the aircraft would rise or sink as that one
// passes.
class mean_wind {
public:
    mean_wind() : set(atm) {
        for (float* gusts : {atm.set_shear_spd_kts, atm.set_shear_dir, atm.set_turb_inc})
            for (int layer = 0; layer < 3; ++layer) gusts[layer] = 0.0f;
        atm.therm_prt = atm.burst_prob = 0.0f;
    }
    ~mean_wind() {
        for (int layer = 0; layer < 3; ++layer) {
            atm.set_shear_spd_kts[layer] = set.set_shear_spd_kts[layer];
            atm.set_shear_dir[layer] = set.set_shear_dir[layer];
            atm.set_turb_inc[layer] = set.set_turb_inc[layer];
        }
        atm.therm_prt = set.therm_prt;
        atm.burst_prob = set.burst_prob;
    }
    mean_wind(const mean_wind&) = delete;
    mean_wind& operator=(const mean_wind&) = delete;

private:
    const atm_struct set;
};

// Speeds to try, m/s: the one of the start, then, where any will do, those of the aircraft; a glider keeps to
// it. None is above its redline.
std::vector<float> speeds_to_try(bool any_speed, float now) {
    constexpr float faster[] = {1.3f, 1.15f, 1.0f, 1.5f}, glider[] = {1.0f, 1.1f, 1.2f, 1.3f};
    const float redline = veh[0].Vne_kts > 0.0f ? veh[0].Vne_kts * con.ktstomsc : INFINITY;
    std::vector<float> speeds = {now};
    if (any_speed)
        for (const float factor : veh[0].num_engines > 0 ? faster : glider)
            speeds.push_back(factor * veh[0].V_ref_ms);
    std::erase_if(speeds, [&](float speed) { return !(speed < redline); });
    return speeds;
}

// The weather goes on while nothing flies, in steps of one length and without the draws of a new second: the
// frames before the start do not show in it.
void let_wind_rise() {
    constexpr int steps = 1000;
    constexpr float period = 0.02f;  // s
    mnw.prd_FM = period;
    const int new_second = mnw.puff1;
    mnw.puff1 = 0;
    for (int i = 0; i < steps; ++i) weather_step();
    mnw.puff1 = new_second;
}
}  // namespace

bool start_steady(bool any_speed) {
    const lab_in_place in_place;
    const mean_wind no_gusts;
    let_wind_rise();
    const flt_struct before = flt[0];
    for (const float speed : speeds_to_try(any_speed, before.V_msc)) {
        const lab_steady steady = lab_find_steady(order_for(speed));
        if (!steady.found) {
            flt[0] = before;
            continue;
        }
        lab_fly_steady(steady);
        put_back(before);
        return true;
    }
    mnw.YK_ptch = mnw.YK_roll = mnw.YK_hdng = 0.0f;
    return false;
}

void begin_user_flight_steady(int type_start1) {
    const bool guided = stg.car_inprog || intrange(type_start1, start_shuttle_first, start_shuttle_last);
    const bool rests = stg.parkbrake || type_start1 == start_water;
    if (!seam.has_user || msc.ai_flys || rests || guided) return;
    start_steady(type_start1 == start_custom || type_start1 == start_airport);
}
