// What the aircraft carries when its flight begins: fuel, payload, weapons.
#include "aircraft/derive/starting_load.h"

#include "aircraft/derive/derive.h"
#include "aircraft/file/weapon_file.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/clocks.h"
#include "core/program/logs.h"
#include "core/records/records.h"

void load_weapons(int p) {
    for (int en = 0; en < wattDIM; ++en) {
        if (veh[p].watt[en].watt_name[0])
            IO_wpn(0, p, en, veh[p].watt[en].watt_name, "", 0);
        else
            veh[p].wpn[en].type = 0;
    }
}

static float weapons_mass(int p) {
    float m_weapons = 0.0f;
    for (int en = 0; en < wattDIM; ++en) {
        const wpn_struct& wpn = veh[p].wpn[en];
        if (wpn.type) m_weapons += wpn.added_mass + wpn.total_weapon_mass_now;
    }
    return m_weapons;
}

// Half fuel, half the jettisonable load, and half of what the maximum mass then leaves as payload; an
// airship takes as much as makes it float.
void load_starting_masses(int p) {
    const veh_struct& acf = veh[p];
    flt_struct& now = flt[p];
    for (int i = 0; i < fuelDIM; ++i)
        now.m_fuel[i] =
            i < acf.num_tanks ? acf.m_fuel_tot * fltmin2(0.5f / acf.num_tanks, acf.tank_rat[i]) : 0.0f;
    now.m_jettison = acf.jett_is_slung ? 0.0f : 0.5f * acf.m_jettison;

    const float m_known = acf.m_fuel_tot + acf.m_jettison + acf.m_empty + weapons_mass(p);
    const bool floats = 0.5f * acf.m_max < acf.m_displaced;
    now.m_fixed =
        floats ? fltmax2(acf.m_displaced - m_known, 0.0f) : fltmax2(0.5f * (acf.m_max - m_known), 0.0f);

    if (!in_report(p)) return;
    constexpr float hobs_max = 1000.0f * 3600.0f;  // s
    clocks.hobs.set(mnw.hobs_time, flt_rand(0.0f, hobs_max));
    cyc << "starting load: fuel " << now.m_fuel[0] << " + " << now.m_fuel[1] << " + " << now.m_fuel[2]
        << ", jettisonable " << now.m_jettison << ", weapons " << weapons_mass(p) << ", payload "
        << now.m_fixed << '\n';
}
