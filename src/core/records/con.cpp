// Conversion constants: each derived from the ones before it, so that no copy can drift.
#include "core/records/con.h"

#include <math.h>

con_struct con;
float lookup_sin[361];
float lookup_cos[361];

// Stores a factor and its inverse.
static void pair(float& factor, float& inverse, float value) {
    factor = value;
    inverse = 1.0f / value;
}

void init_con() {
    con.pi = 3.141593f;
    con.pim2 = 6.283185f;
    con.pid2 = 1.570796f;
    con.R = 287.0f;
    con.c = 2.997924e+08f;
    con.g = static_cast<float>(3.986012e14 / (6378145.0 * 6378145.0));
    con.lb_per_gallon_gas = 6.25f;

    pair(con.lbstokgs, con.kgstolbs, 0.4535925f);
    pair(con.fttomtrs, con.mtrstoft, 0.3048f);
    pair(con.hptowatt, con.watttohp, 745.7f);
    pair(con.radtodeg, con.degtorad, 180.0f / con.pi);
    pair(con.ktstofps, con.fpstokts, 1.68781f);
    pair(con.ktstomsc, con.msctokts, con.ktstofps * con.fttomtrs);
    pair(con.rpmtorsc, con.rsctorpm, 6.0f * con.degtorad);
    pair(con.fpmtomsc, con.msctofpm, con.fttomtrs / 60.0f);
    pair(con.nmtomtrs, con.mtrstonm, con.fttomtrs * 6076.1155f);
    pair(con.sftosmtr, con.smtrtosf, con.fttomtrs * con.fttomtrs);
    pair(con.lbstontn, con.ntntolbs, con.lbstokgs * con.g);
    pair(con.ftlbtonm, con.nmtoftlb, con.lbstontn * con.fttomtrs);
    pair(con.endtomed, con.medtoend,
         con.g * con.lbstokgs / (con.fttomtrs * con.fttomtrs * con.fttomtrs * con.fttomtrs));
    pair(con.enptomep, con.meptoenp, con.lbstontn / con.sftosmtr);
    pair(con.enItomtI, con.mtltoenl, con.sftosmtr * con.lbstokgs);
    pair(con.nm_to_sm, con.sm_to_nm, 1.150779f);
    pair(con.pasto_hg, con.hg_topas, 0.0002952874f);
    pair(con.milto_hg, con.hg_tomil, 0.02952874f);
    pair(con.lbhtokgs, con.kgstolbh, con.lbstokgs / 3600.0f);

    for (int deg = 0; deg <= 360; ++deg) {
        lookup_sin[deg] = static_cast<float>(sin(deg * (M_PI / 180.0)));
        lookup_cos[deg] = static_cast<float>(cos(deg * (M_PI / 180.0)));
    }
}
