// Airfoil files of strangers. An input that begins like a file ("I" or "A") is one; else its first
// byte picks the version and the rest is the body.
#include <unistd.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "aircraft/foil/afl_file.h"
#include "core/math/num.h"
#include "flight/air/coeffs.h"
#include "support.h"

using fuzzing::must;

static std::string folder() {
    static const std::string path = "/dev/shm/fuzz_afl_" + std::to_string(getpid()) + "/";
    static const bool made = std::filesystem::create_directories(path + "airfoils");
    (void)made;
    return path;
}

static void write_file(const std::string& name, const std::string& bytes) {
    std::ofstream(name, std::ios::binary) << bytes;
}

static std::string file_of(const uint8_t* data, size_t size) {
    if (size == 0) return "";
    const std::string body(reinterpret_cast<const char*>(data) + 1, size - 1);
    if (data[0] == 'I' || data[0] == 'A') return static_cast<char>(data[0]) + body;
    constexpr int versions[] = {700, 650, 641, 613, 363};
    return "I\n" + std::to_string(versions[data[0] % 5]) + " version\n1234 device type code\n" + body;
}

// A rectangular wing of part 9 that has the foil in all its tables.
static void build_wing() {
    constexpr int els = 4;
    veh_wing_struct& wing = veh[0].wing[9];
    wing.els = els;
    // four names, so that each table is looked up
    std::strcpy(wing.Rafl0, "a.afl");
    std::strcpy(wing.Rafl1, "b.afl");
    std::strcpy(wing.Tafl0, "c.afl");
    std::strcpy(wing.Tafl1, "d.afl");
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
            must(fuzzing::is_flight_text(end.text.line[0]));
        }
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzzing::start();
    std::strcpy(veh[0].path, (folder() + "x.acf").c_str());
    write_file(folder() + "airfoils/f.afl", file_of(data, size));
    try {
        for (int RT = 0; RT < 2; ++RT)
            for (int Re = 0; Re < 2; ++Re) load_foil_for_part("f.afl", 0, 9, RT, Re);
    } catch (const fuzzing::fatal& end) {
        must(fuzzing::is_foil_text(end.text.line[0]));
        return 0;
    }
    afl_struct& foil = veh[0].afl[9];
    for (int i = 0; i < aflDIM; ++i) {
        must(!check_nan(foil.cl[1][0][i]) && !check_nan(foil.cd[1][0][i]) && !check_nan(foil.cm[1][0][i]));
        must(foil.cd[1][0][i] >= 0.0f);
    }
    must(fltrange(foil.re_num[1][0], 0.0f, 9999.0f) && fltrange(foil.t_rat[1], 0.0f, 1.0f));
    must(!check_nan(foil.clB[1][0] / foil.clM[1][0]));

    // what flies can be written and read back
    const std::string copy = folder() + "copy.afl";
    must(IO_afl(1, &foil, 1, 0, copy) == 700);
    static afl_struct back;
    must(IO_afl(0, &back, 0, 0, copy) == 700);
    must(back.Lpow == foil.Lpow && back.cm4 == foil.cm4 && back.almax[0][0] == foil.almax[1][0]);

    build_wing();
    blow_on_it();
    return 0;
}
