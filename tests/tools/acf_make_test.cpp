// acf_make with an install folder at hand: the aircraft is loaded whole before it is kept.
#include <filesystem>

#include "flying.h"

namespace fs = std::filesystem;

namespace {
class acf_make : public ::testing::Test {
protected:
    void SetUp() override {
        fs::create_directory_symlink(fs::path(INSTALL_FOLDER) / "Airfoils", folder.path() + "Airfoils");
        fs::create_directories(folder.path() + "Aircraft/Lark");
        source =
            test::read_file(SOURCE_FOLDER "content/aircraft/General Aviation/Lark 15 Sailplane/Lark 15.toml");
    }
    // Compiles the sailplane with one text in place of another; gives the exit status.
    int make(const std::string& options, const std::string& from = "", const std::string& to = "") {
        std::string changed = source;
        if (!from.empty()) changed.replace(changed.find(from), from.size(), to);
        const std::string in = folder.write("in.toml", changed);
        const test::run_result result = test::run(TOOL_FOLDER "acf_make " + options + " " + in + " " + out);
        output = result.output;
        return result.status;
    }
    float number_behind(const std::string& label) const {
        const size_t at = output.find(label);
        return at == std::string::npos ? -1.0f : strtof(output.c_str() + at + label.size(), nullptr);
    }
    test::temp_folder folder;
    std::string source, output, out = folder.path() + "Aircraft/Lark/lark.acf";
};

TEST_F(acf_make, the_summary_agrees_with_the_drawing) {
    ASSERT_EQ(make(""), 0) << output;
    // trapezia of the text: twice (2.95 + 2.4) / 2 * 14 * cos 3 and (2.4 + 1.1) / 2 * 9.7 * cos 6
    EXPECT_NEAR(number_behind("wing area"), (74.80f + 33.76f) * 0.09290304f, 0.1f);
    // the level flight of 1 g at a lift coefficient of about 1.45
    EXPECT_NEAR(number_behind("stall speed"), 20.5f, 1.0f);
    EXPECT_GT(number_behind("static margin"), 5.0f);
    EXPECT_EQ(make("--quiet"), 0);
    EXPECT_EQ(output, "");
}

TEST_F(acf_make, what_only_a_whole_load_shows_keeps_the_last_good_file_and_is_told_of_the_users_own) {
    ASSERT_EQ(make("--quiet"), 0) << output;
    const std::string good = test::read_file(out);
    EXPECT_EQ(make("--quiet", "\"NACA 0009 (symmetrical).afl\"", "\"no such.afl\""), 1);
    EXPECT_NE(output.find(folder.path() + "Aircraft/Lark/airfoils:no such.afl"), std::string::npos) << output;
    EXPECT_NE(output.find("lark.acf hstab_left"), std::string::npos) << output;
    EXPECT_EQ(output.find("making"), std::string::npos) << output;
    EXPECT_EQ(make("", "Vne_kts = ", "Vne_kts = 0 #"), 1);
    EXPECT_NE(output.find("plane in question is: " + out), std::string::npos) << output;
    EXPECT_TRUE(good == test::read_file(out));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path() + "Aircraft/Lark"), {}), 1);
}

TEST_F(acf_make, without_airfoils_the_file_is_made_and_the_rest_left_out) {
    out = folder.path() + "lark.acf";
    EXPECT_EQ(make("--install " + folder.path() + "Aircraft"), 0);
    EXPECT_NE(output.find("left out"), std::string::npos) << output;
    EXPECT_TRUE(fs::exists(out));
    EXPECT_EQ(make(""), 0);  // those beside the tools
    EXPECT_GT(number_behind("wing area"), 9.0f) << output;
}

TEST_F(acf_make, the_example_of_the_guide_comes_out_as_printed_there) {
    const std::string guide = test::read_file(SOURCE_FOLDER "docs/aircraft-files.md");
    const auto text_from = [&](size_t at) {
        const size_t first = guide.find("```toml\n", at) + 8;
        return guide.substr(first, guide.find("```", first) - first);
    };
    const size_t engine = guide.find("## A piston engine");
    source = text_from(0) + text_from(engine);
    ASSERT_EQ(make("", "m_empty = 420\nm_max = 660", "m_empty = 540\nm_fuel_tot = 60\nm_max = 860"), 0)
        << output;
    source = text_from(0);
    ASSERT_EQ(make(""), 0) << output;
    for (const char* line : {"wing area", "mean chord", "neutral point", "static margin", "stall speed"}) {
        const size_t at = output.find(line);
        ASSERT_NE(at, std::string::npos) << line;
        EXPECT_NE(guide.find(output.substr(at, output.find('\n', at) - at)), std::string::npos)
            << output.substr(at, output.find('\n', at) - at);
    }
}
}  // namespace
