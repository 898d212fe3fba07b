// text_make: faults of the tables are named with their line, and nothing is written.
#include <filesystem>

#include "support.h"

namespace {
class text_make : public ::testing::Test {
protected:
    // Compiles a table; gives the exit status.
    int make(const std::string& verb, const std::string& table) {
        const std::string in = folder.write("in.toml", table);
        const test::run_result result = test::run(TOOL_FOLDER "text_make " + verb + " " + in + " " + out);
        output = result.output;
        return result.status;
    }
    std::string made(const std::string& language) const {
        return test::read_file(out + "/" + language + "/Tarvane.txt");
    }
    // A string with one text in all languages.
    static std::string string(const std::string& name, int number, const std::string& text) {
        return "[" + name + "]\nnumber = " + std::to_string(number) + "\n" + words(text, "\n") + "\n";
    }
    static std::string words(const std::string& text, const std::string& between = ", ") {
        std::string row;
        for (const char* key : {"en", "fr", "de", "it", "es", "pt"})
            row += (row.empty() ? "" : between) + key + " = \"" + text + "\"";
        return row;
    }
    void expect_fault(const std::string& verb, const std::string& table, const std::string& text) {
        EXPECT_EQ(make(verb, table), 1) << table;
        EXPECT_NE(output.find(text), std::string::npos) << output;
        EXPECT_FALSE(std::filesystem::exists(out));
    }
    test::temp_folder folder;
    std::string output, out = folder.path() + "out";
};

TEST_F(text_make, letters_become_what_the_fonts_draw) {
    ASSERT_EQ(make("texts", string("b", 9, "Ärger, ¿qué señor? œuf ß") + string("a", 7, "x")), 0) << output;
    EXPECT_EQ(made("german"), "7 x\n9 Aerger, que senor? oeuf ss\n-1\n");
    EXPECT_EQ(made("french"), "7 x\n9 Arger, que senor? oeuf ss\n-1\n");
    EXPECT_EQ(made("korean"), made("english"));
    ASSERT_EQ(make("texts", string("n", 5, "No #") + "count = 2\nko = \"둘 #\"\n"), 0) << output;
    EXPECT_EQ(made("spanish"), "5 No 1\n6 No 2\n-1\n");
    EXPECT_EQ(made("korean"), "5 둘 1\n6 둘 2\n-1\n");
}

TEST_F(text_make, a_faulty_table_of_strings_makes_nothing) {
    expect_fault("texts", string("a", 7, "x") + string("b", 7, "y"), "number 7 is that of");
    expect_fault("texts", string("a", 1400, "x"), "numbers go from 1 to 1399");
    expect_fault("texts", "[a]\nnumber = 7\nen = \"x\"\n", "in.toml:1: no text for french");
    expect_fault("texts", string("a", 7, ""), "an empty text");
    expect_fault("texts", string("a", 7, "~"), "do not draw");
    expect_fault("texts", string("a", 7, std::string(501, 'x')), "longer than 500");
    expect_fault("texts", string("a", 7, "x") + "sv = \"y\"\n", "in.toml:9: unknown key sv");
    expect_fault("texts", "[a\n", "in.toml:1");
}

TEST_F(text_make, the_header_must_be_that_of_the_table) {
    const std::string one = string("a", 7, "x");
    ASSERT_EQ(make("header", one), 0) << output;
    EXPECT_NE(test::read_file(out).find("    text_a = 7,\n"), std::string::npos);
    EXPECT_EQ(make("check", one), 0) << output;
    EXPECT_EQ(make("check", string("a", 8, "x")), 1);
    EXPECT_NE(output.find("run\n    text_make header"), std::string::npos) << output;
}

TEST_F(text_make, menus_have_places_codes_and_parents_that_fit) {
    const auto menu = [](int parent, const std::string& entries) {
        return "[[menu]]\nparent = " + std::to_string(parent) + "\ntitle = { " + words("T") +
               " }\nentries = [" + entries + "]\n";
    };
    const auto entry = [](int code, const std::string& text, const std::string& more = "") {
        return "{ code = " + std::to_string(code) + ", " + more + words(text) + " }, ";
    };
    std::string bar = menu(0, entry(0, "é", "key = \"f1\", ") + "\"-\", " + entry(2, "b"));
    for (int m = 1; m <= 6; ++m) bar += menu(0, "");
    ASSERT_EQ(make("menus", bar + menu(2, "\"=\"")), 0) << output;
    const std::string file = made("italian");
    EXPECT_EQ(file.substr(file.find('\n')),
              "\n0 T\n0 e[f1\n1 -\n2 b\n\n0 T\n\n0 T\n\n0 T\n\n0 T\n\n0 T\n\n0 T\n\n"
              "2 T\n2100 =\n\n\n");
    std::filesystem::remove_all(out);
    expect_fault("menus", bar + menu(0, ""), "have parent 0");
    expect_fault("menus", bar + menu(1, ""), "no entry of an earlier menu");
    expect_fault("menus", menu(0, entry(1, "b")), "this place has the code 0");
    expect_fault("menus", bar + menu(2, entry(2100, std::string(27, 'x'))), "longer than 26");
    expect_fault("menus", bar + menu(2, entry(2100, "short", "ko = \"가나다라마바사아자차카\", ")),
                 "too many glyphs");
    expect_fault("menus", menu(0, entry(0, "-b")), "begins like a separator");
    expect_fault("menus", menu(0, entry(0, "a[b")), "have a meaning");
    expect_fault("menus", menu(0, "\"x\""), "neither an entry nor a separator");
}
}  // namespace
