// The compiled airfoils, and what the compiler refuses.
#include <cmath>
#include <filesystem>

#include "aircraft/foil/afl_file.h"
#include "aircraft/foil/afl_polar.h"
#include "core/disk/paths.h"
#include "support.h"

namespace {

class airfoils : public test::system_test {};

// Lift falls and drag rises as in wind tunnels, where a smooth curve would keep the section clean; up to the
// stalls the tables are those of the parameters.
void expect_separated_beyond_the_stall(const afl_struct& a) {
    const auto &cl = a.cl[0][0], &cd = a.cd[0][0];
    for (const int at_20 : {160, 560}) {
        EXPECT_GT(cd[at_20], 0.2f) << ret_alpha(at_20);
        EXPECT_LT(cd[at_20], 0.35f) << ret_alpha(at_20);
    }
    EXPECT_LT(cl[565], 1.05f);         // 25 degrees: no more than a plate
    EXPECT_NEAR(cd[630], 1.6f, 0.4f);  // 90 degrees: finite wings 1.25, plane flow to 2.0
    EXPECT_NEAR(cl[630], 0.0f, 0.1f);
    for (int i = 160; i <= 560; ++i) {
        const float alpha = ret_alpha(i);
        if (alpha < a.almin[0][0] + 0.06f || alpha > a.almax[0][0] - 0.06f) continue;
        ASSERT_NEAR(cl[i], ret_cl(alpha, &a, 0, 0), 6e-6f) << alpha;
        ASSERT_NEAR(cd[i], ret_cd(alpha, &a, 0, 0), 6e-6f) << alpha;
        ASSERT_NEAR(a.cm[0][0][i], ret_cm(alpha, &a), 6e-6f) << alpha;
    }
}

TEST_F(airfoils, all_load_without_an_alert_and_are_sound_sections) {
    afl_path = INSTALL_FOLDER "Airfoils:";
    std::snprintf(veh[0].path, sizeof veh[0].path, "/nowhere/x.acf");
    int count = 0;
    for (const auto& file : std::filesystem::directory_iterator(INSTALL_FOLDER "Airfoils")) {
        const std::string name = file.path().filename().string();
        SCOPED_TRACE(name);
        ++count;
        EXPECT_LE(name.size(), 39u);
        ASSERT_TRUE(load_foil_for_part(name, 0, 9, 0, 0));
        const afl_struct& a = veh[0].afl[9];
        const int stall = 360 + static_cast<int>(std::lround(a.almax[0][0] * 10)) - 1;
        EXPECT_NEAR(a.cl[0][0][stall], a.Lstall, 0.02f);
        // no kink at either end of the linear range: the slope goes on
        for (float end : {a.Llinrange, -a.Llinrange})
            EXPECT_NEAR(ret_cl(end + 0.2f, &a, 0, 0) - ret_cl(end - 0.2f, &a, 0, 0), 0.4f * a.clM[0][0],
                        0.1f * a.clM[0][0]);
        expect_separated_beyond_the_stall(a);
    }
    EXPECT_GE(count, 7);
    EXPECT_TRUE(test::alerts.empty());
}

TEST_F(airfoils, compiler_refuses_what_breaks_the_curves) {
    const std::string source = SOURCE_FOLDER "content/airfoils/NACA 63-618 Re 3 million.toml";
    const std::string good = test::read_file(source);
    test::temp_folder folder;
    std::filesystem::copy(SOURCE_FOLDER "content/airfoils/beyond_stall", folder.path() + "beyond_stall");
    const auto compile = [&](const std::string& from, const std::string& to,
                             const std::string& out = "a.afl") {
        std::string text = good;
        text.replace(text.find("\n" + from) + 1, from.size(), to);
        const std::string toml = folder.write("a.toml", text);
        const auto [status, message] =
            test::run(TOOL_FOLDER "afl_make '" + toml + "' '" + folder.path() + out + "'");
        EXPECT_EQ(status != 0, !std::filesystem::exists(folder.path() + out)) << message;
        std::filesystem::remove(folder.path() + out);
        return std::string(message);
    };
    EXPECT_NE(compile("re_num", "re_num").find("least drag 0.0054"), std::string::npos);
    const char* const refused[][3] = {
        {"almax = 12.5", "almax = 7.5", "Llinrange 7.5 must be below almax 7.5"},
        {"clM = 0.106", "clM = 0", "clM is 0, allowed are"},
        {"DminCL = 0.50", "DminCL = 1.505", "least drag at 10 degrees"},
        {"Bdepth = 0.0030", "Bdepth = 0.0100", "drag is not positive"},
        {"Bpower = 3.0", "Bpower = 0", "needs Bwidth, Bdepth and Bpower"},
        {"cm4 = -0.140", "cm5 = 1", "unknown key \"cm5\""},
        {"cm4 = -0.140", "", "cm4 is missing"},
        {"cm4 = -0.140", "cm4 = = 2", "line"},
        {"    [14.5, ", "    [12.4, ", "12.4 degrees does not lie beyond the stall"},
        {"    [17, ", "    [14, ", "14 degrees follows one at 14.5"},
        {"    [17, 1.230", "    [17, 12.30", "17 degrees lies out of range"},
        {"    [14.5, 1.370", "    [14.5, 0.370", "a jump between 12.5 and 14.5 degrees"},
        {"    [17, ", "    [", "row 6 is not"},
        {"beyond_stall = \"finite wing\"", "", "from -180 to 180 degrees"},
    };
    for (const auto& [from, to, message] : refused)
        EXPECT_NE(compile(from, to).find(message), std::string::npos) << to << "\n" << compile(from, to);
    EXPECT_NE(compile("re_num", "re_num", std::string(36, 'x') + ".afl").find("longer than 39"),
              std::string::npos);
}

}  // namespace
