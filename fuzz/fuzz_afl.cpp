// Airfoil files of strangers. An input that begins like a file ("I" or "A") is one; else its first
// byte picks the version and the rest is the body.

#include "aircraft/foil/afl_file.h"
#include "core/math/num.h"
#include "flight/air/coeffs.h"
#include "support.h"

using fuzzing::must;

static std::string file_of(fuzzing::input& in) {
    constexpr int versions[] = {700, 650, 641, 613, 363};
    const unsigned first = in.byte();
    if (first == 'I' || first == 'A') return static_cast<char>(first) + in.text();
    return "I\n" + std::to_string(versions[first % 5]) + " version\n1234 device type code\n" + in.text();
}

// A rectangular wing of part 9 that has the foil in all its tables.
static void build_wing() {
    constexpr int els = 4;
    veh_wing_struct& wing = veh[0].wing[9];
    wing.els = els;
    // four names, so that each table is looked up
    char* const names[] = {wing.Rafl0, wing.Rafl1, wing.Tafl0, wing.Tafl1};
    for (int i = 0; i < 4; ++i) strcpy(names[i], (std::to_string(i) + ".afl").c_str());
    for (int el = 0; el < els; ++el) wing.mac[el] = wing.el_s[el] = 1.0f;
    wing.AR = 8.0f;
    wing.e = wing.al_D_al0 = wing.cl_D_cl0 = wing.cm_D_cm0 = 0.9f;
    flt_wing_struct& flow = flt[0].wing[9];
    for (int bld = 0; bld < bladDIM; ++bld) flow.Q_centroid_loc[bld] = 1.0f;
    flow.CL_grndeffect = flow.CD_grndeffect = 1.0f;
    con.lcl_a = 340.0f;
    con.lcl_r_met = 1.225f;
    con.planet_mu_air = 1.8e-5f;
}

// Any flow at all over the foil: a finite force, or the text for a drag that its numbers made negative.
static void blow_on_it() {
    flt_wing_struct& flow = flt[0].wing[9];
    for (int i = 0; i < 50; ++i) {
        const int el = i % 4;
        flow.v_el[el][0] = flt_rand(0.0f, 1200.0f);
        flow.alpha_el[el][0] = i % 2 ? flt_rand(-25.0f, 25.0f) : flt_rand(-180.0f, 180.0f);
        flow.del_dir[el][0] = flt_rand(-45.0f, 45.0f);
        flow.Q_centroid_loc[0] = flt_rand(0.0f, 1.5f);
        float lift, drag, moment;
        try {
            const float cl = F_el_force(flt_rand(-1.0f, 1.0f), 0.0f, flt_rand(-0.2f, 0.2f), &lift, &drag,
                                        &moment, 9, el, 0);
            must(std::isfinite(cl) && std::isfinite(lift) && std::isfinite(drag) && std::isfinite(moment));
        } catch (const fuzzing::fatal& end) {
            must(fuzzing::flight_texts.count(end.text.line[0]));
        }
    }
}

void fuzz_afl(fuzzing::input& in) {
    static const fuzzing::folder folder;
    strcpy(veh[0].path, (folder.path() + "x.acf").c_str());
    folder.write("airfoils/f.afl", file_of(in));
    try {
        for (int RT = 0; RT < 2; ++RT)
            for (int Re = 0; Re < 2; ++Re) load_foil_for_part("f.afl", 0, 9, RT, Re);
    } catch (const fuzzing::fatal& end) {
        must(fuzzing::foil_texts.count(end.text.line[0]));
        return;
    }
    afl_struct& foil = veh[0].afl[9];
    for (int i = 0; i < aflDIM; ++i) {
        must(!check_nan(foil.cl[1][0][i]) && !check_nan(foil.cd[1][0][i]) && !check_nan(foil.cm[1][0][i]));
        must(foil.cd[1][0][i] >= 0.0f);
    }
    must(fltrange(foil.re_num[1][0], 0.0f, 9999.0f) && fltrange(foil.t_rat[1], 0.0f, 1.0f));
    must(!check_nan(foil.clB[1][0] / foil.clM[1][0]));

    // what flies can be written and read back
    const std::string copy = folder.path() + "copy.afl";
    must(IO_afl(1, &foil, 1, 0, copy) == 700);
    static afl_struct back;
    must(IO_afl(0, &back, 0, 0, copy) == 700);
    must(back.Lpow == foil.Lpow && back.cm4 == foil.cm4 && back.almax[0][0] == foil.almax[1][0]);

    build_wing();
    blow_on_it();
}
