// Airfoil polars and files.
#include <algorithm>
#include <cmath>
#include <sstream>
#include <utility>

#include "aircraft/file/acf_fault.h"
#include "core/disk/paths.h"
#include "core/records/stl.h"
#include "design.h"

namespace {

class afl : public test::system_test {
protected:
    void SetUp() override {
        test::system_test::SetUp();
        forget_faulty_acf();
    }
};

int entry(float alpha) {
    for (int i = 0; i < aflDIM; ++i)
        if (std::fabs(ret_alpha(i) - alpha) < 0.01f) return i;
    ADD_FAILURE() << "no entry for alpha " << alpha;
    return 0;
}

// 721 rows whose coefficients tell their row: cl the number of the row, cd and cm parts of it.
std::string counting_table() {
    std::ostringstream out;
    for (int i = 0; i < aflDIM; ++i) out << "0.0 " << i << ' ' << i * 0.5 << ' ' << -i * 0.25 << '\n';
    return out.str();
}

// Every number of these bodies tells its field.
const std::string body_700 =
    "3 .12 .71 .11 .21 -12 13 9 1.5 1.6 .1 .7 .3 .9 .8 .7 .6 .2 .016 2.5 .55 .4 .002 3 -9 11 .03 -.04 -.05 "
    "-.09";
const std::string body_650 =
    "3 .12 .71 .11 .21 1.5 1.6 .1 .7 .3 .0065 .8 .7 .6 .2 .016 2.5 .55 .4 .002 3 -9 11 .03 -.04 -.05 -.09 "
    "-12 13";
const std::string body_641 =
    "3 .12 .71 777 .11 .21 1.5 1.6 .1 .7 .3 .0065 .8 .7 .6 .2 .016 2.5 .55 .4 .002 3 -9 11 .03 -.04 -.05 "
    "-.09 -12 13";
const std::string body_613 =
    "NACA\n.12 3 -12 13 .21 .11 1.5 1.6\n.1 .3 .7 .2 .0065 .016 2.5\n"
    "-9 11 .03 -.04 -.05 -.09 .4 .002 3 .55 and more text 1 2 3\n";

std::string file_of(int version) {
    const std::string head = "I\n" + std::to_string(version) + " version\n1234 device type code\n";
    if (version < 613) return head + body_613;
    if (version == 613) return head + body_613 + ".66\n";
    const std::string& body = version == 700 ? body_700 : version == 650 ? body_650 : body_641;
    return head + body + "\nalpha cl cd cm:\n" + counting_table();
}

TEST_F(afl, lift_curve_passes_its_fixed_points) {
    afl_struct a = design::plain_foil();
    a.clB[0][0] = 0.2f;
    a.Lstall = 1.5f;
    EXPECT_FLOAT_EQ(ret_cl(0.0f, &a, 0, 0), 0.2f);
    EXPECT_FLOAT_EQ(ret_cl(15.0f, &a, 0, 0), 1.5f);        // the stall, before the drop
    EXPECT_NEAR(ret_cl(15.0001f, &a, 0, 0), 1.4f, 1e-4f);  // and behind it
    EXPECT_FLOAT_EQ(ret_cl(20.0f, &a, 0, 0), 1.5f - 0.1f - 0.3f);
    EXPECT_FLOAT_EQ(ret_cl(-15.0f, &a, 0, 0), 2 * 0.2f - 1.5f + 0.1f);  // mirrored about clB, dropped
    EXPECT_FLOAT_EQ(ret_cl(-20.0f, &a, 0, 0), 2 * 0.2f - 1.5f + 0.1f + 0.3f);
    EXPECT_EQ(ret_cl(20.5f, &a, 0, 0), 0.0f);
}

TEST_F(afl, drag_curve_and_bucket_pass_their_fixed_points) {
    afl_struct a = design::plain_foil();
    a.DminCL = 0.3f;
    EXPECT_FLOAT_EQ(ret_cd(3.0f, &a, 0, 0), 0.006f);
    EXPECT_FLOAT_EQ(ret_cd(-4.0f, &a, 0, 0), 0.015f);  // as far from the least drag as 10 degrees
    afl_struct bucket = a;
    bucket.Bloc = 0.5f, bucket.Bwidth = 0.4f, bucket.Bdepth = 0.002f, bucket.Bpower = 3.0f;
    for (const auto& [cl, cut] : {std::pair(0.5f, 0.002f), {0.7f, 0.001f}, {0.3f, 0.001f}, {0.9f, 0.0f}})
        EXPECT_NEAR(ret_cd(cl / 0.1f, &a, 0, 0) - ret_cd(cl / 0.1f, &bucket, 0, 0), cut, 1e-6f);
}

TEST_F(afl, generated_tables_are_a_flat_plate_away_from_the_curves) {
    afl_struct a = design::plain_foil();
    a.clB[0][0] = 0.2f;
    gen_cl_cd_cm(&a, 0, 0);
    const auto &cl = a.cl[0][0], &cd = a.cd[0][0], &cm = a.cm[0][0];
    EXPECT_NEAR(cl[entry(90)], 0.0f, 1e-5f);
    EXPECT_NEAR(cd[entry(90)], 1.28f, 1e-5f);
    EXPECT_NEAR(cl[entry(45)], 1.17f, 1e-5f);
    EXPECT_NEAR(cl[entry(-135)], 1.17f, 1e-5f);
    EXPECT_NEAR(cm[entry(90)], -0.32f, 1e-5f);  // the plate's force at half chord
    // backwards: half the lift, four times the drag of the foil at the same angle to the flow
    EXPECT_NEAR(cl[entry(-175)], 0.5f * (0.2f + 0.5f), 1e-5f);
    EXPECT_NEAR(cd[entry(180)], 4.0f * cd[entry(0)], 1e-6f);
    for (int i = 0; i < aflDIM - 1; ++i) {
        const bool across_stall = std::fabs(ret_alpha(i)) < 15.2f && std::fabs(ret_alpha(i)) > 14.8f;
        EXPECT_LT(std::fabs(cl[i + 1] - cl[i]), across_stall ? 0.11f : 0.09f) << ret_alpha(i);
        EXPECT_GT(cd[i], 0.0f);
    }
}

TEST_F(afl, every_version_reads_each_number_to_its_field) {
    test::temp_folder folder;
    for (int version : {700, 650, 641, 613, 363}) {
        SCOPED_TRACE(version);
        std::string text = file_of(version);
        if (version != 700) std::replace(text.begin(), text.end(), '\n', '\r');
        const std::string path = folder.write("f.afl", text);
        afl_struct a{};
        ASSERT_EQ(IO_afl(0, &a, 1, 0, path), version);
        EXPECT_FLOAT_EQ(a.re_num[1][0], 3.0f);
        EXPECT_FLOAT_EQ(a.t_rat[1], 0.12f);
        EXPECT_FLOAT_EQ(a.mach_div[1], version == 363 ? 0.75f : version == 613 ? 0.66f : 0.71f);
        EXPECT_FLOAT_EQ(a.clM[1][0], 0.11f);
        EXPECT_FLOAT_EQ(a.clB[1][0], 0.21f);
        EXPECT_FLOAT_EQ(a.almin[1][0], -12.0f);
        EXPECT_FLOAT_EQ(a.almax[1][0], 13.0f);
        EXPECT_FLOAT_EQ(a.Llinrange, version == 700 ? 9.0f : 10.0f);
        EXPECT_FLOAT_EQ(a.Dmin, version == 700 ? 0.9f : 0.0065f);
        const float rest[][2] = {{a.Lpow, 1.5f},   {a.Lstall, 1.6f}, {a.Ldrop1, 0.1f},   {a.Lpowstl, 0.7f},
                                 {a.Ldrop2, 0.3f}, {a.DminCL, 0.2f}, {a.Dal10, 0.016f},  {a.Dpow, 2.5f},
                                 {a.Bloc, 0.55f},  {a.Bwidth, 0.4f}, {a.Bdepth, 0.002f}, {a.Bpower, 3.0f},
                                 {a.cmal2, -9.0f}, {a.cmal3, 11.0f}, {a.cm1, 0.03f},     {a.cm2, -0.04f},
                                 {a.cm3, -0.05f},  {a.cm4, -0.09f}};
        for (const auto& pair : rest) EXPECT_FLOAT_EQ(pair[0], pair[1]);
        if (version > 613) {
            EXPECT_FLOAT_EQ(a.cl[1][0][720], 720.0f);
            EXPECT_FLOAT_EQ(a.cd[1][0][3], 1.5f);
            EXPECT_FLOAT_EQ(a.cm[1][0][4], -1.0f);
        } else {
            EXPECT_NEAR(a.cl[1][0][entry(5)], 0.21f + 5 * 0.11f, 1e-5f);
            EXPECT_NEAR(a.cd[1][0][entry(90)], 1.28f, 1e-5f);
        }
    }
}

TEST_F(afl, written_file_is_text_of_fixed_form_and_reads_back) {
    test::temp_folder folder;
    afl_struct a = design::plain_foil(), back{};
    a.clB[0][0] = 0.1f;
    a.DminCL = 0.1234567f;
    gen_cl_cd_cm(&a, 0, 0);
    const std::string path = folder.path() + "w.afl";
    ASSERT_EQ(IO_afl(1, &a, 0, 0, path), 700);
    const std::string text = test::read_file(path);
    EXPECT_EQ(text.compare(0, 36, "I\n700 version\n1234 device type code\n"), 0);
    EXPECT_NE(text.find("\n3 0.12 0.7 0.1 0.1 -15 15 10 2 1.25 0.1 1 0.3 0.006 0.1234567 0.015 2 0.1234567 "
                        "0.015 2 0 0 0 0 -10 10 0.08 0 0 -0.08\nalpha cl cd cm:\n-180.0  "),
              std::string::npos);
    EXPECT_EQ(text.size() - text.find("-180.0"), aflDIM * (6 + 3 * 9 + 1u));

    ASSERT_EQ(IO_afl(0, &back, 1, 1, path), 700);
    EXPECT_EQ(back.DminCL, a.DminCL);
    for (int i = 0; i < aflDIM; ++i) {
        EXPECT_NEAR(back.cl[1][1][i], a.cl[0][0][i], 5.1e-6f);
        EXPECT_NEAR(back.cd[1][1][i], a.cd[0][0][i], 5.1e-6f);
        EXPECT_NEAR(back.cm[1][1][i], a.cm[0][0][i], 5.1e-6f);
    }
}

TEST_F(afl, faults_of_the_text_have_their_fixed_words) {
    test::temp_folder folder;
    afl_struct a{};
    const auto first_line = [&](const std::string& text) {
        const std::string path = folder.write("f.afl", text);
        return test::expect_fatal([&] { IO_afl(0, &a, 0, 0, path); }).line[0];
    };
    const std::string good = file_of(700);
    const auto changed = [&](const std::string& from, const std::string& to) {
        std::string text = good;
        return text.replace(text.find(from), from.size(), to);
    };
    EXPECT_EQ(first_line(changed("1234", "1235")),
              "This does not appear to be a valid Airfoil for Wingwright!");
    for (const std::string& text :
         {changed("1234", "word"), changed(".71", "nan"), changed(".71", "1e39"),
          changed("0.0 700 ", "0.0 inf "), changed("0.0 700 ", std::string("0.0 7\0", 6)),
          good.substr(0, good.size() - 6), std::string("I\n700 version\n")})  // one short by a number
        EXPECT_EQ(first_line(text), "File-scanning error!");
    // the linear range of old files ends where this stall begins
    std::string old = file_of(613);
    old.replace(old.find(" 13 "), 4, " 10 ");
    EXPECT_EQ(first_line(old), "I have generated a NAN value for this aifoil:");

    EXPECT_EQ(IO_afl(0, &a, 0, 0, folder.write("v.afl", "I\n701 version\n1234\n")), 0);
    EXPECT_EQ(IO_afl(0, &a, 0, 0, folder.path() + "none.afl"), 0);
    a.re_num[0][0] = 0;
    EXPECT_EQ(IO_afl(0, &a, 0, 0, folder.write("c.afl", changed("\n3 .12", "\n-3 9e9"))), 700);
    EXPECT_EQ(a.re_num[0][0], 0.0f);
    EXPECT_EQ(a.t_rat[0], 1.0f);
}

TEST_F(afl, part_takes_its_own_folder_first) {
    test::temp_folder folder;
    afl_path = folder.path() + "common:";
    std::strcpy(veh[2].path, (folder.path() + "fleet/x.acf").c_str());
    std::string own = file_of(700), common = file_of(700);
    own.replace(own.find("\n3 "), 3, "\n5 ");
    folder.write("common/one.afl", common);
    folder.write("common/two.afl", common);
    folder.write("fleet/airfoils/one.afl", own);
    ASSERT_TRUE(load_foil_for_part("one.afl", 2, 55, 0, 1));
    ASSERT_TRUE(load_foil_for_part("two.afl", 2, 55, 1, 0));
    EXPECT_EQ(veh[2].afl[55].re_num[0][1], 5.0f);
    EXPECT_EQ(veh[2].afl[55].re_num[1][0], 3.0f);
    EXPECT_EQ(veh[2].afl[55].cl[0][1][700], 700.0f);
    {
        // within one load a file is parsed once, whatever becomes of it meanwhile
        const foil_load_scope scope;
        ASSERT_TRUE(load_foil_for_part("one.afl", 2, 9, 0, 0));
        folder.write("fleet/airfoils/one.afl", "gone");
        ASSERT_TRUE(load_foil_for_part("one.afl", 2, 9, 1, 1));
        EXPECT_EQ(veh[2].afl[9].re_num[1][1], 5.0f);
        EXPECT_EQ(veh[2].afl[9].cm[1][1][4], -1.0f);
        EXPECT_EQ(veh[2].afl[9].Bpower, 3.0f);
    }
    // what stands beside the aircraft now is no foil: the program's of that name must not fly in its place
    EXPECT_FALSE(load_foil_for_part("one.afl", 2, 9, 0, 0));
    const alert_lines& told = test::alerts.back().text;
    EXPECT_NE(told.line[1].find("fleet"), std::string::npos) << told.line[1];
    EXPECT_NE(told.line[2].find("common"), std::string::npos) << told.line[2];
    EXPECT_NE(told.line[3].find("wing1_right"), std::string::npos) << "no texts are loaded: " << told.line[3];
}

TEST_F(afl, faulty_foil_ends_the_users_flight_and_only_warns_of_a_strangers) {
    test::temp_folder folder;
    afl_path = folder.path() + "common:";
    stl.text[1209] = "Wing 1 right";
    std::strcpy(veh[0].name, "x.acf");
    std::strcpy(veh[0].path, (folder.path() + "x.acf").c_str());
    const alert_lines missing = test::expect_fatal([] { load_foil_for_part("no.afl", 0, 9, 0, 0); });
    EXPECT_EQ(missing.line[0], "An airfoil file could not be found! The airfoil paths I checked are:");
    EXPECT_EQ(missing.line[1], folder.path() + "airfoils:no.afl");
    EXPECT_EQ(missing.line[2], folder.path() + "common:no.afl");
    EXPECT_EQ(missing.line[3], "x.acf Wing 1 right");

    const auto third_slot_text = [&](const std::string& from, const std::string& to) {
        std::string text = file_of(700);
        folder.write("airfoils/bad.afl", text.replace(text.find(from), from.size(), to));
        const alert_lines lines = test::expect_fatal([] { load_foil_for_part("bad.afl", 0, 9, 0, 0); });
        EXPECT_EQ(lines.line[1] + lines.line[2] + lines.line[3],
                  "bad.aflIt is corrupt!Throw it away or fix it in Wingwright!");
        return lines.line[0];
    };
    EXPECT_EQ(third_slot_text("0.0 720 ", "0.0 2e10 "), "I have found a NAN value for this aifoil:");
    EXPECT_EQ(third_slot_text("0.0 720 360 ", "0.0 720 -0.1 "),
              "I have found a NEGATIVE DRAG for this aifoil:");
    EXPECT_EQ(third_slot_text(" .11 ", " 0 "), "I have found a NAN value for this aifoil:");

    test::alerts.clear();
    std::strcpy(veh[4].path, veh[0].path);
    EXPECT_FALSE(load_foil_for_part("bad.afl", 4, 9, 0, 0));
    EXPECT_FALSE(load_foil_for_part("no.afl", 4, 9, 0, 0));
    ASSERT_EQ(test::alerts.size(), 1u);  // once per aircraft file
    EXPECT_EQ(test::alerts[0].type, alert_message);
    EXPECT_TRUE(acf_was_faulty(veh[4].path));
    for (int en : {-1, 56})
        EXPECT_EQ(test::expect_fatal([en] { load_foil_for_part("a", 4, en, 0, 0); }).line[0],
                  "Trying to load a foil we do not dim for!");
}

}  // namespace
