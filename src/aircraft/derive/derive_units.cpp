// Feet, pounds and rpm to SI; places from the designer's datum to the centre of gravity.
#include "aircraft/derive/derive_units.h"

#include <cmath>
#include <cstring>
#include <span>
#include <type_traits>

#include "aircraft/design/check.h"
#include "aircraft/design/exists.h"
#include "aircraft/foil/afl_file.h"
#include "core/math/num.h"

namespace {

// The floats of one field, an array as a whole, and the factor that takes them to SI.
struct unit_row {
    size_t offset;
    int count;
    float con_struct::*factor;
};

template <class T>
constexpr int floats_in() {
    using element = std::remove_all_extents_t<T>;
    static_assert(std::is_same_v<element, float>);
    constexpr size_t each = sizeof(element);
    return sizeof(T) / each;
}
#define UNIT(record, field, factor) \
    { offsetof(record, field), floats_in<decltype(record::field)>(), &con_struct::factor }

// clang-format off
constexpr unit_row block_units[] = {
    UNIT(veh_struct, power_max, hptowatt),
    UNIT(veh_struct, crit_alt_prop, fttomtrs),       UNIT(veh_struct, crit_alt_jet, fttomtrs),
    UNIT(veh_struct, rock_h_opt, fttomtrs),          UNIT(veh_struct, exhaust_os_xyz, fttomtrs),
    UNIT(veh_struct, vectarmY, fttomtrs),            UNIT(veh_struct, vectarmZ, fttomtrs),
    UNIT(veh_struct, mass_shift_dx, fttomtrs),       UNIT(veh_struct, mass_shift_dz, fttomtrs),
    UNIT(veh_struct, h_eqlbm, fttomtrs),             UNIT(veh_struct, flap_arm, fttomtrs),
    UNIT(veh_struct, jett_len, fttomtrs),
    UNIT(veh_struct, RSC_idlespeed_ENGN, rpmtorsc),  UNIT(veh_struct, RSC_redline_ENGN, rpmtorsc),
    UNIT(veh_struct, RSC_mingreen_ENGN, rpmtorsc),   UNIT(veh_struct, RSC_maxgreen_ENGN, rpmtorsc),
    UNIT(veh_struct, auto_omega_idle, rpmtorsc),     UNIT(veh_struct, auto_omega_open, rpmtorsc),
    UNIT(veh_struct, auto_omega_fire, rpmtorsc),
    UNIT(veh_struct, thrust_max, lbstontn),          UNIT(veh_struct, burner_inc, lbstontn),
    UNIT(veh_struct, rock_max_sl, lbstontn),         UNIT(veh_struct, rock_max_opt, lbstontn),
    UNIT(veh_struct, rock_max_vac, lbstontn),        UNIT(veh_struct, puff_xyz, lbstontn),
    UNIT(veh_struct, jato_thrust, lbstontn),         UNIT(veh_struct, nw_side_k, lbstontn),
    UNIT(veh_struct, face_jet, sftosmtr),            UNIT(veh_struct, face_rocket, sftosmtr),
    UNIT(veh_struct, water_rud_area, sftosmtr),      UNIT(veh_struct, chute_area, sftosmtr),
    UNIT(veh_struct, puff_LMN, ftlbtonm),
    UNIT(veh_struct, m_empty, lbstokgs),             UNIT(veh_struct, m_displaced, lbstokgs),
    UNIT(veh_struct, m_max, lbstokgs),               UNIT(veh_struct, m_fuel_tot, lbstokgs),
    UNIT(veh_struct, m_jettison, lbstokgs),          UNIT(veh_struct, mass_shift, lbstokgs),
    UNIT(veh_struct, tip_weight, lbstokgs),
    UNIT(veh_struct, blown_flap_add_speed, ktstomsc),
};
constexpr unit_row wing_units[] = {
    UNIT(veh_wing_struct, Croot, fttomtrs),          UNIT(veh_wing_struct, Ctip, fttomtrs),
    UNIT(veh_wing_struct, semilen_SEG, fttomtrs),    UNIT(veh_wing_struct, semilen_JND, fttomtrs),
    UNIT(veh_wing_struct, mac, fttomtrs),            UNIT(veh_wing_struct, el_s, sftosmtr),
};
constexpr unit_row part_units[] = {
    UNIT(veh_part_struct, part_r, fttomtrs),         UNIT(veh_part_struct, geo_xyz, fttomtrs),
};
constexpr unit_row gear_units[] = {
    UNIT(veh_gear_struct, leg_len, fttomtrs),        UNIT(veh_gear_struct, strut_comp, fttomtrs),
    UNIT(veh_gear_struct, tire_radius, fttomtrs),    UNIT(veh_gear_struct, tire_swidth, fttomtrs),
    UNIT(veh_gear_struct, stat_def, fttomtrs),
};
constexpr unit_row door_units[] = {UNIT(veh_door_struct, geo, fttomtrs)};

// Places in feet from the datum: vectors, and single heights and stations.
constexpr float (veh_struct::*places_xyz[])[3] = {
    &veh_struct::pe_xyz,       &veh_struct::lanlite1_xyz, &veh_struct::lanlite2_xyz, &veh_struct::taxilite_xyz,
    &veh_struct::fuserb1_xyz,  &veh_struct::fuserb2_xyz,  &veh_struct::taillite_xyz, &veh_struct::refuel_xyz,
    &veh_struct::jett_xyz,     &veh_struct::anchor_xyz,   &veh_struct::cockpit_xyz,
};
constexpr float veh_struct::*places_y[] = {
    &veh_struct::jato_Y, &veh_struct::chute_Y, &veh_struct::tow_hook_Y, &veh_struct::win_hook_Y,
    &veh_struct::m_displaced_Y,
};
constexpr float veh_struct::*places_z[] = {
    &veh_struct::jato_Z, &veh_struct::chute_Z, &veh_struct::tow_hook_Z, &veh_struct::win_hook_Z,
    &veh_struct::water_rud_Z, &veh_struct::cgZ_fwd, &veh_struct::cgZ_aft,
};
// clang-format on
#undef UNIT

void convert(void* record, std::span<const unit_row> rows) {
    for (const unit_row& row : rows) {
        float* value = reinterpret_cast<float*>(static_cast<char*>(record) + row.offset);
        for (int i = 0; i < row.count; ++i) value[i] *= con.*row.factor;
    }
}

// Metres from the centre of gravity. cgY and cgZ must still be the designer's.
void cg_ref_x(int, float& x) { x *= con.fttomtrs; }
void cg_ref_y(int p, float& y) { y = (y - veh[p].cgY) * con.fttomtrs; }
void cg_ref_z(int p, float& z) { z = (z - veh[p].cgZ) * con.fttomtrs; }
void cg_ref_xyz(int p, float* xyz) {
    cg_ref_x(p, xyz[0]);
    cg_ref_y(p, xyz[1]);
    cg_ref_z(p, xyz[2]);
}

// One record of slot p with its field list.
struct record_view {
    const char* base;
    veh_field_list list;
    int index;  // -1 for the scalar block
};

template <class F>
void for_each_record(int p, F&& visit) {
    char* base = reinterpret_cast<char*>(&veh[p]);
    visit(record_view{base, veh_block_list(), -1});
    const auto array = [&](auto& records, const veh_field_list& list) {
        int i = 0;
        for (auto& record : records) visit(record_view{reinterpret_cast<const char*>(&record), list, i++});
    };
    array(veh[p].engn, veh_engn_list());
    array(veh[p].wing, veh_wing_list());
    array(veh[p].part, veh_part_list());
    array(veh[p].gear, veh_gear_list());
    array(veh[p].watt, veh_watt_list());
    array(veh[p].door, veh_door_list());
    array(veh[p].sbrk, veh_door_list());
}

}  // namespace

std::string first_nan_field(int p) {
    std::string found;
    for_each_record(p, [&](const record_view& record) {
        for (int r = 0; r < record.list.count && found.empty(); ++r) {
            const veh_field_struct& row = record.list.rows[r];
            if (row.type != 'f' || row.role == veh_role_spare) continue;
            const float* value = reinterpret_cast<const float*>(record.base + row.offset);
            for (int i = 0; i < row.size / 4; ++i)
                if (!std::isfinite(value[i])) {
                    if (record.index >= 0)
                        found.append(record.list.record).append(" " + std::to_string(record.index) + " ");
                    found += row.name;
                    break;
                }
        }
    });
    return found;
}

// Per lb/(hp h) or lb/(lb h) to kg/(W s) or kg/(N s).
static void convert_fuel_use(int p, int en) {
    float& SFC = veh[p].engn[en].SFC;
    if (en_is_prop(p, en))
        SFC *= con.lbstokgs * con.watttohp;
    else
        SFC /= con.g;
    SFC *= 0.0002777778f;
}

void convert_block(int p) {
    veh_struct& acf = veh[p];
    convert(&acf, block_units);
    for (int en = 0; en < engnDIM; ++en) {
        acf.engn[en].des_rpm_prp *= con.rpmtorsc;
        convert_fuel_use(p, en);
    }
    acf.max_press_diff *= con.enptomep * 144.0f;  // psi: 144 square inches to the square foot

    const float gear_rat = prop_gear_of(acf.engn[0]);
    acf.RSC_idlespeed_PROP = acf.RSC_idlespeed_ENGN / gear_rat;
    acf.RSC_redline_PROP = acf.RSC_redline_ENGN / gear_rat;
    acf.RSC_mingreen_PROP = acf.RSC_mingreen_ENGN / gear_rat;
    acf.RSC_maxgreen_PROP = acf.RSC_maxgreen_ENGN / gear_rat;
    acf.trq_max_eng = acf.power_max / fltmax2(acf.RSC_redline_ENGN, 1.0f);
}

int convert_wings(int p) {
    for (int en = 0; en < wingDIM; ++en) {
        veh_wing_struct& wing = veh[p].wing[en];
        convert(&wing, wing_units);
        for (float* angle : {&wing.sweep1, &wing.sweep2, &wing.dihed1, &wing.dihed2})
            *angle = fltwrap(*angle, -180.0f, 180.0f);
        if (!has_this_wing(p, en)) continue;

        wing.Croot = fltmax2(wing.Croot, 0.01f * con.fttomtrs);  // taper divides by it
        const char* foils[2][2] = {{wing.Rafl0, wing.Rafl1}, {wing.Tafl0, wing.Tafl1}};
        for (int RT = 0; RT < 2; ++RT) {
            for (int Re = 0; Re < 2; ++Re)
                if (!load_foil_for_part(foils[RT][Re], p, en, RT, Re)) return 0;
            // a range without width would divide by zero where flight interpolates over it
            float* re_num = veh[p].afl[en].re_num[RT];
            if (flt_abs(re_num[1] - re_num[0]) < 0.01f) {
                re_num[0] = 0.0f;
                re_num[1] = 99.9f;
            }
        }
    }
    return 1;
}

void convert_places(int p) {
    veh_struct& acf = veh[p];
    const float spring = con.lbstokgs * con.g / con.fttomtrs;  // lb per foot to N per metre
    for (veh_part_struct& part : acf.part) {
        convert(&part, part_units);
        part.scon *= spring;
        part.damp *= spring;
        cg_ref_x(p, part.part_x);
        cg_ref_y(p, part.part_y);
        cg_ref_z(p, part.part_z);
    }
    for (veh_gear_struct& gear : acf.gear) {
        convert(&gear, gear_units);
        gear.scon *= spring;
        gear.damp *= spring;
        gear.tire_mi = 5000.0f * sqr(gear.tire_radius) * sqr(gear.tire_radius) * gear.tire_swidth;
        cg_ref_x(p, gear.gear_x);
        cg_ref_y(p, gear.gear_y);
        cg_ref_z(p, gear.gear_z);
    }
    acf.nw_cutoff_omega *= con.ktstomsc / fltmax2(acf.gear[acf.gear_steer_EN].tire_radius, 0.01f);
    for (veh_watt_struct& watt : acf.watt) {
        cg_ref_x(p, watt.watt_x);
        cg_ref_y(p, watt.watt_y);
        cg_ref_z(p, watt.watt_z);
    }
    for (veh_door_struct& door : acf.door) {
        convert(&door, door_units);
        cg_ref_xyz(p, door.xyz);
    }
    for (veh_door_struct& sbrk : acf.sbrk) {
        convert(&sbrk, door_units);
        sbrk.area *= con.sftosmtr;
        cg_ref_xyz(p, sbrk.xyz);
    }
    for (float(veh_struct::*place)[3] : places_xyz) cg_ref_xyz(p, acf.*place);
    for (float* tank : acf.tank_xyz) cg_ref_xyz(p, tank);
    for (float veh_struct::*y : places_y) cg_ref_y(p, acf.*y);
    for (float veh_struct::*z : places_z) cg_ref_z(p, acf.*z);

    // last, since all the others subtract the designer's values
    cg_ref_y(p, acf.cgY);
    cg_ref_z(p, acf.cgZ);
    acf.cgZ_fwd = fltmin2(acf.cgZ_fwd, acf.cgZ - 0.01f);
    acf.cgZ_aft = fltmax2(acf.cgZ_aft, acf.cgZ + 0.01f);
}
