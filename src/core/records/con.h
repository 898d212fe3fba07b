// Conversion constants, planet constants and the local air.
// Role: filled once at start-up (init_con) and by set_planet_specs; lcl_* once a frame.
#pragma once

// Sea level of the Earth's standard atmosphere, by which densities and temperatures are made ratios on both planets.
constexpr float inv_rho_sl = 0.8163265f;       // 1 / 1.225 kg/m3
constexpr float inv_T_sl_kel = 0.003470415f;   // 1 / 288.15 K

struct con_struct {
    // planet constants, written by set_planet_specs
    float planet_mu;         // gravitational parameter, m3/s2
    float planet_rad;        // radius of the sphere, m
    float planet_mu_air;     // viscosity of the air, kg/(m s)
    float planet_rho_water;  // kg/m3
    float planet_deg_mtrs;   // metres per degree of arc by nautical miles; for extents only, never to place things
    // sea-level air; weather writes the first two
    float sl_T_cel;  // Celsius
    float sl_P_pas;  // Pa
    float sl_r_met;  // kg/m3; not used by the air model
    // local air at the user's aircraft, once a frame; shared by all aircraft
    float lcl_T_cel;        // Celsius
    float lcl_T_cel_total;  // total temperature, Celsius
    float lcl_P_pas;        // Pa
    float lcl_r_met;        // kg/m3
    float lcl_sig;          // density over 1.225 kg/m3
    float lcl_a;            // speed of sound, m/s
    float lcl_g;            // gravity, m/s2
    // numbers
    float pi, pim2, pid2;  // pi, its double, its half
    float R;                 // gas constant of air, J/(kg K), on both planets
    float c;                 // speed of light, m/s
    float g;                 // standard gravity of the system, 9.79828 m/s2
    float lb_per_gallon_gas;  // 6.25, petrol
    // conversions; each pair is a factor and its inverse
    float lbstokgs, kgstolbs;  // 0.4535925
    float fttomtrs, mtrstoft;  // 0.3048
    float hptowatt, watttohp;  // 745.7
    float radtodeg, degtorad;  // 180 / pi
    float ktstofps, fpstokts;  // 1.68781
    float ktstomsc, msctokts;  // knots to m/s
    float rpmtorsc, rsctorpm;  // rpm to rad/s
    float fpmtomsc, msctofpm;  // ft/min to m/s
    float nmtomtrs, mtrstonm;  // 6076.1155 ft
    float sftosmtr, smtrtosf;  // ft2 to m2
    float lbstontn, ntntolbs;  // pounds of force to N
    float ftlbtonm, nmtoftlb;  // ft lb to N m
    float endtomed, medtoend;  // slug/ft3 to kg/m3
    float enptomep, meptoenp;  // lb/ft2 to Pa
    float enItomtI, mtltoenl;  // lb ft2 to kg m2
    float nm_to_sm, sm_to_nm;  // nautical to statute miles, 1.150779
    float pasto_hg, hg_topas;  // Pa to inches of mercury
    float milto_hg, hg_tomil;  // millibars to inches of mercury
    float lbhtokgs, kgstolbh;  // lb/h to kg/s
    // the user's display choice
    int metric_temp, metric_press;  // 0 or 1: Celsius, hectopascals are shown; preferences
};
extern con_struct con;

extern float lookup_sin[361];  // whole degrees 0 to 360
extern float lookup_cos[361];

// Fills the constants that do not depend on planet or weather, and the two tables.
void init_con();
