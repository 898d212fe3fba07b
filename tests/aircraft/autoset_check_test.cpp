// Derived fields of the aircraft record, and the tests of a design.
#include <cmath>
#include <cstring>

#include "aircraft/design/autoset.h"
#include "aircraft/design/check.h"
#include "aircraft/file/acf_toml_read.h"
#include "core/records/nav.h"
#include "sample_acf.h"
#include "support.h"

class autoset_test : public test::system_test {
protected:
    veh_struct& v = veh[0];

    void load_sample() {
        test::temp_folder folder;
        std::string error;
        ASSERT_TRUE(acf_from_toml(folder.write("s.toml", sample_acf_toml), 0, &error)) << error;
    }
};

TEST_F(autoset_test, any_record_is_survived) {
    ACF_autoset(0);
    EXPECT_EQ(v.wing[9].ail1_elR, 0.0f);  // no such surface, untouched
    for (const int fill : {0xff, 0x7f, 0x80, 0x01}) {
        memset(static_cast<void*>(&v), fill, sizeof v);
        ACF_autoset(0);
        EXPECT_EQ(v.part[0].part_eq, 0);
    }
}

TEST_F(autoset_test, the_left_side_is_the_mirror_of_the_right) {
    load_sample();
    strcpy(v.wing[8].Rafl0, "other.afl");
    v.wing[8].incidence[9] = 7.0f;  // beyond the elements of the right
    v.part[8].scon = 12.0f;
    v.part[17].part_x = 0.0f;
    ACF_autoset(0);
    EXPECT_STREQ(v.wing[8].Rafl0, "thick.afl");
    EXPECT_EQ(v.part[8].part_x, -2.5f);
    EXPECT_EQ(v.wing[8].incidence[7], -1.5f);
    EXPECT_EQ(v.wing[8].incidence[9], 7.0f);
    EXPECT_EQ(v.part[8].scon, 12.0f);
    EXPECT_TRUE(std::signbit(v.part[16].part_x));
    EXPECT_EQ(v.wing[8].lat_sign, -1.0f);
    EXPECT_EQ(v.wing[20].lat_sign, -1.0f);  // as the file has it
}

TEST_F(autoset_test, element_areas_sum_to_the_trapezoid) {
    load_sample();
    ACF_autoset(0);
    const veh_wing_struct& wing = v.wing[9];
    float area = 0.0f;
    for (int el = 0; el < wing.els; ++el) area += wing.el_s[el];
    EXPECT_NEAR(area, 0.5f * (8.0f + 4.0f) * 22.0f * cosf(20.0f * 0.01745329f), 1e-3f);
    // the mean aerodynamic chord of chords 8 and 7.5, by the integral of c squared over that of c
    EXPECT_NEAR(wing.mac[0], 2.0f / 3.0f * (8 * 8 + 8 * 7.5f + 7.5f * 7.5f) / 15.5f, 1e-5f);
}

// -- the design check

class check_test : public test::system_test {
protected:
    // The user's slot, sound: a jet in engine 0 and a carburetted single in engine 1.
    void sound() {
        clear_acf(0);
        veh_struct& v = veh[0];
        strcpy(v.tailnum, " N1");
        strcpy(v.path, "Aircraft:x.acf");
        v.Vne_kts = 100.0f;
        v.m_empty = 1000.0f;
        v.m_max = 1000.0f;
        v.num_engines = v.num_thrustpoints = 3;
        v.throt_max_FWD = 1.0f;
        v.thrust_max = v.face_jet = v.power_max = v.MP_max = 10.0f;
        v.RSC_redline_ENGN = v.RSC_mingreen_ENGN = v.RSC_maxgreen_ENGN = v.RSC_idlespeed_ENGN = 600.0f;
        v.rock_max_sl = v.rock_max_opt = v.rock_max_vac = 10.0f;
        v.engn[0].engn_type = engn_jet_hi;
        v.engn[1].engn_type = engn_recip_carb;
        v.engn[2].engn_type = engn_rocket;
        v.m_fuel_tot = 100.0f;
        v.num_tanks = 3;
        v.tank_rat[0] = 0.5f;
        v.tank_rat[2] = 0.4951f;
    }
    std::string fault() {
        std::string line;
        try {
            EXPECT_EQ(ACF_check(0, 0), 1);
        } catch (const test::fatal& end) {
            line = end.lines.line[0];
            EXPECT_EQ(end.lines.line[3],
                      "Fix this problem in Hullwright. The plane in question is: Aircraft:x.acf");
        }
        return line;
    }
};

TEST_F(check_test, each_fault_is_told_in_its_words) {
    // clang-format off
    const struct {
        void (*spoil)(veh_struct&);
        const char* start;
    } rows[] = {
        {[](veh_struct& v) { strcpy(v.tailnum, "   "); }, "This plane has no tail number!"},
        {[](veh_struct& v) { v.Vne_kts = 0.009f; }, "You entered a Vne of zero!"},
        {[](veh_struct& v) { v.m_empty = 0.0f; }, "You have entered an empty weight"},
        {[](veh_struct& v) { v.m_max = 0.0f; }, "You have entered a maximum weight"},
        {[](veh_struct& v) { v.m_max = 999.0f; }, "You have selected an empty weight"},
        {[](veh_struct& v) { v.rev_thrust_EQ = 1; }, "This aircraft has reverse-thrust"},
        {[](veh_struct& v) { v.throt_max_FWD = 0.0f; }, "Problem: The max THROTTLE"},
        {[](veh_struct& v) { v.rock_max_vac = 0.0f; }, "You requested a rocket engine"},
        {[](veh_struct& v) { v.thrust_max = 0.0f; }, "You requested a jet engine"},
        {[](veh_struct& v) { v.power_max = 0.0f; }, "You requested a reciprocating or turbine engine"},
        {[](veh_struct& v) { v.MP_max = 0.0f; }, "You have entered a maximum manifold pressure"},
        {[](veh_struct& v) { v.face_jet = 0.0f; }, "Do not enter zero as a compressor area"},
        {[](veh_struct& v) { v.RSC_maxgreen_ENGN = 0.5f; }, "You have entered zero for some of the engine RPM"},
        {[](veh_struct& v) { v.RSC_idlespeed_ENGN = 601.0f; }, "You entered an idle rpm greater"},
        {[](veh_struct& v) { v.engn[0].prop_type = prop_manual; }, "This design is either a helicopter"},
        {[](veh_struct& v) { v.engn[0].max_pitch = 1.0f; }, "This design has a fixed-pitch prop"},
        {[](veh_struct& v) { v.tank_rat[1] = -0.001f; }, "Look at the WEIGHT AND BALANCE window."},
        {[](veh_struct& v) { v.tank_rat[1] = 0.011f; }, "Look at the WEIGHT AND BALANCE window."},
    };
    // clang-format on
    sound();
    EXPECT_EQ(fault(), "");
    for (const auto& row : rows) {
        sound();
        row.spoil(veh[0]);
        EXPECT_EQ(fault().rfind(row.start, 0), 0u) << row.start;
    }
    // the first one only, in the order above
    for (const auto& row : rows) row.spoil(veh[0]);
    strcpy(veh[0].tailnum, "N1");
    EXPECT_EQ(fault(), "You entered a Vne of zero!");
}
