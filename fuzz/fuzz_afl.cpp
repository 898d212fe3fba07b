// Airfoil files of strangers. An input that begins like a file ("I" or "A") is one; else its first
// byte picks the version and the rest is the body.
#include <unistd.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>

#include "aircraft/afl_file.h"
#include "core/num.h"
#include "flight/coeffs.h"
#include "support.h"

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

// What a foil may say of itself at the end.
static bool is_fixed_text(const std::string& line) {
    static const std::set<std::string> texts = {
        "File-scanning error!",
        "This does not appear to be a valid Airfoil for Wingwright!",
        "An airfoil file could not be found! The airfoil paths I checked are:",
        "I have found a NAN value for this aifoil:",
        "I have found a NEGATIVE DRAG for this aifoil:",
        "I have generated a NAN value for this aifoil:",
    };
    return texts.count(line) != 0;
}

static void require(bool good) {
    if (!good) abort();
}

// The foil on a wing of one element in fifty random flows: finite forces, or a text of the flight model.
static void fly_element() {
    for (int slot = 0; slot < 4; ++slot) load_foil_for_part("f.afl", 0, 9, slot / 2, slot % 2);
    veh_wing_struct& wing = veh[0].wing[9];
    wing.els = 1;
    wing.AR = 8.0f;
    wing.e = 0.9f;
    wing.al_D_al0 = wing.cl_D_cl0 = wing.cm_D_cm0 = 0.9f;
    wing.mac[0] = wing.el_s[0] = 1.0f;
    con.lcl_a = 340.0f;
    con.lcl_r_met = 1.225f;
    con.planet_mu_air = 1.7894e-05f;
    flt_wing_struct& flow = flt[0].wing[9];
    flow.CL_grndeffect = flow.CD_grndeffect = 1.0f;
    try {
        for (int i = 0; i < 50; ++i) {
            flow.v_el[0][0] = flt_rand(0.0f, 600.0f);
            flow.alpha_el[0][0] = flt_rand(-180.0f, 180.0f);
            flow.del_dir[0][0] = flt_rand(-30.0f, 30.0f);
            flow.Q_centroid_loc[0] = flt_rand(0.0f, 1.0f);
            float lift, drag, momt;
            F_el_force(0.0f, 0.0f, 0.0f, &lift, &drag, &momt, 9, 0, 0);
            require(!check_nan(lift) && !check_nan(drag) && !check_nan(momt));
        }
    } catch (const fuzzing::fatal& end) {
        require(end.text.line[0] == "duh-oh!" || end.text.line[0] == "Neg cd at end of all calcs!");
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzzing::start();
    std::strcpy(veh[0].path, (folder() + "x.acf").c_str());
    write_file(folder() + "airfoils/f.afl", file_of(data, size));
    try {
        load_foil_for_part("f.afl", 0, 9, 1, 0);
    } catch (const fuzzing::fatal& end) {
        require(is_fixed_text(end.text.line[0]));
        return 0;
    }
    afl_struct& foil = veh[0].afl[9];
    for (int i = 0; i < aflDIM; ++i) {
        require(!check_nan(foil.cl[1][0][i]) && !check_nan(foil.cd[1][0][i]) && !check_nan(foil.cm[1][0][i]));
        require(foil.cd[1][0][i] >= 0.0f);
    }
    require(fltrange(foil.re_num[1][0], 0.0f, 9999.0f) && fltrange(foil.t_rat[1], 0.0f, 1.0f));
    require(!check_nan(foil.clB[1][0] / foil.clM[1][0]));

    // what flies can be written and read back
    const std::string copy = folder() + "copy.afl";
    require(IO_afl(1, &foil, 1, 0, copy) == 700);
    static afl_struct back;
    require(IO_afl(0, &back, 0, 0, copy) == 700);
    fly_element();
    require(back.Lpow == foil.Lpow && back.cm4 == foil.cm4 && back.almax[0][0] == foil.almax[1][0]);
    return 0;
}
