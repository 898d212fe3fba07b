// Small designs for tests of derivation and deflection: a foil, and surfaces by their numbers.
#pragma once
#include <cstring>

#include "aircraft/foil/afl_file.h"
#include "aircraft/foil/afl_polar.h"
#include "core/records/records.h"
#include "support.h"

namespace design {

// A symmetric foil of slope 0.1 per degree that stalls at 15 degrees.
inline afl_struct plain_foil() {
    afl_struct a{};
    a.re_num[0][0] = 3.0f;
    a.t_rat[0] = 0.12f;
    a.mach_div[0] = 0.7f;
    a.clM[0][0] = 0.1f;
    a.almin[0][0] = -15.0f;
    a.almax[0][0] = 15.0f;
    a.Llinrange = 10.0f;
    a.Lpow = 2.0f;
    a.Lstall = 1.25f;
    a.Ldrop1 = 0.1f;
    a.Lpowstl = 1.0f;
    a.Ldrop2 = 0.3f;
    a.Dmin = 0.006f;
    a.Dal10 = 0.015f;
    a.Dpow = 2.0f;
    a.cmal2 = -10.0f;
    a.cmal3 = 10.0f;
    a.cm1 = 0.08f;
    a.cm4 = -0.08f;
    return a;
}

// A folder with an aircraft file's place and "plain.afl" in its own "airfoils".
class hangar {
public:
    hangar() {
        folder_.write("airfoils/marker.txt", "");
        afl_struct a = plain_foil();
        gen_cl_cd_cm(&a, 0, 0);
        IO_afl(1, &a, 0, 0, folder_.path() + "airfoils/plain.afl");
    }
    void place(int p) const {
        std::strcpy(veh[p].name, "test.acf");
        std::strcpy(veh[p].path, (folder_.path() + "test.acf").c_str());
    }
    const test::temp_folder& folder() const { return folder_; }

private:
    test::temp_folder folder_;
};

struct surface_struct {
    float x, y, z;           // root quarter chord, ft
    float Croot, Ctip, len;  // ft
    float dihed = 0.0f, sweep = 0.0f;
    float inc_root = 0.0f, inc_tip = 0.0f;
    int els = 5;
};

inline void set_foils(veh_wing_struct& wing, const char* name) {
    for (char* foil : {wing.Rafl0, wing.Rafl1, wing.Tafl0, wing.Tafl1}) std::strcpy(foil, name);
}

// Designs surface en, odd ones up to 17 with their left twin, which ACF_autoset mirrors.
inline void surface(int p, int en, const surface_struct& s) {
    veh_part_struct& part = veh[p].part[en];
    veh_wing_struct& wing = veh[p].wing[en];
    part.part_x = s.x;
    part.part_y = s.y;
    part.part_z = s.z;
    wing.els = s.els;
    wing.Croot = s.Croot;
    wing.Ctip = s.Ctip;
    wing.semilen_SEG = s.len;
    wing.dihed1 = s.dihed;
    wing.sweep1 = s.sweep;
    for (int el = 0; el < s.els; ++el)
        wing.incidence[el] = s.inc_root + (s.inc_tip - s.inc_root) * el / (s.els > 1 ? s.els - 1 : 1);
    set_foils(wing, "plain.afl");
    // a left surface counts as designed by its length; the rest is mirrored
    if (en % 2 == 1 && en >= part_wing_first && en <= part_hstb_right)
        veh[p].wing[en - 1].semilen_SEG = s.len;
}

}  // namespace design
