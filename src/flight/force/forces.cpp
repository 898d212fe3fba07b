// Force and moment sums.
#include "flight/force/forces.h"

#include "core/math/num.h"
#include "core/records/records.h"

// Turns through alpha, then beta, of the whole aircraft, as cached at the end of the last step.
void addFaero(float faxil_path, float fside_path, float fnrml_path, float X, float Y, float Z, int en,
              int el) {
    flt_struct& f = flt[0];
    if (en >= 0 && el >= 0) {
        float* force = f.wing[en].force_XYZ[el];
        force[0] = fside_path;
        force[1] = fnrml_path;
        force[2] = faxil_path;
    }
    const float faxil_alph = f.cos_alph * faxil_path - f.sin_alph * fnrml_path;
    const float fnrml_alph = f.sin_alph * faxil_path + f.cos_alph * fnrml_path;
    const float faxil_beta = f.cos_beta * faxil_alph - f.sin_beta * fside_path;
    const float fside_beta = f.sin_beta * faxil_alph + f.cos_beta * fside_path;
    check_force(faxil_beta);
    check_force(fnrml_alph);
    check_force(fside_beta);

    f.fside_aero_acf += fside_beta;
    f.fnrml_aero_acf += fnrml_alph;
    f.faxil_aero_acf += faxil_beta;
    f.L += fside_beta * Y - fnrml_alph * X;
    f.M += faxil_beta * Y - fnrml_alph * Z;
    f.N += faxil_beta * X - fside_beta * Z;
}

static void add_axial(flt_struct& f, float& sum, float faxil, float X, float Y) {
    check_force(faxil);
    sum += faxil;
    f.M += faxil * Y;
    f.N += faxil * X;
}
static void add_normal(flt_struct& f, float& sum, float fnrml, float X, float Z) {
    check_force(fnrml);
    sum += fnrml;
    f.L -= fnrml * X;
    f.M -= fnrml * Z;
}
static void add_side(flt_struct& f, float& sum, float fside, float Y, float Z) {
    check_force(fside);
    sum += fside;
    f.L += fside * Y;
    f.N -= fside * Z;
}

void addFagear(int w, float faxil, float X, float Y) {
    add_axial(flt[w], flt[w].faxil_gear_acf, faxil, X, Y);
}
void addFngear(int w, float fnrml, float X, float Z) {
    add_normal(flt[w], flt[w].fnrml_gear_acf, fnrml, X, Z);
}
void addFsgear(int w, float fside, float Y, float Z) { add_side(flt[w], flt[w].fside_gear_acf, fside, Y, Z); }
void addFaprop(int w, float faxil, float X, float Y) {
    add_axial(flt[w], flt[w].faxil_prop_acf, faxil, X, Y);
}
void addFnprop(int w, float fnrml, float X, float Z) {
    add_normal(flt[w], flt[w].fnrml_prop_acf, fnrml, X, Z);
}
void addFsprop(int w, float fside, float Y, float Z) { add_side(flt[w], flt[w].fside_prop_acf, fside, Y, Z); }

void inc_v(float* vx, float* vy, float* vz, float x, float y, float z) {
    const flt_struct& f = flt[0];
    *vx += f.Rrad * z - f.Prad * y;
    *vy += f.Prad * x + f.Qrad * z;
    *vz += -f.Qrad * y - f.Rrad * x;
}
