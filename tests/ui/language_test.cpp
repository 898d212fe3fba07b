// Language files: what is shipped is complete, and what a user broke is told.
#include "ui/text/language.h"

#include <map>
#include <set>

#include "app/lab/headless.h"
#include "core/disk/paths.h"
#include "core/disk/text_numbers.h"
#include "core/program/logs.h"
#include "core/records/records.h"
#include "draw/widgets/menus.h"
#include "support.h"
#include "ui/text/korean.h"

namespace {
bool is_drawn(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= 32 && c <= 124; });
}

class language_test : public test::system_test {
protected:
    void SetUp() override {
        test::fresh();
        MACIBM_clear_menus(2);
    }
    static void load(int lang) {
        init_paths(INSTALL_FOLDER);
        mnw.lang = lang;
        MACIBM_setupforlang(0);
    }
    // A language of the user's making.
    void load_own(const std::string& texts, const std::string& menus) {
        folder.write("Resources/text/english/Tarvane.txt", texts);
        folder.write("Resources/menus/english/Tarvane.txt", menus);
        init_paths(folder.path());
        MACIBM_setupforlang(0);
    }
    void load_texts(const std::string& texts) { load_own(texts, "head\n"); }
    void load_menus(const std::string& menus) { load_own("-1\n", menus); }
    test::temp_folder folder;
};

// Codes of all entries that can be chosen, with their texts.
std::map<int, std::string> entries() {
    std::map<int, std::string> found;
    for (const menu_struct& m : menu)
        for (const item_struct& item : m.item) {
            if (item.item_name == "-") continue;
            EXPECT_TRUE(found.emplace(item.item_code, item.item_name).second) << item.item_code;
        }
    return found;
}

TEST_F(language_test, every_string_that_is_asked_for_is_there_in_every_language) {
    std::map<int, std::string> english;
    for (int lang = 0; lang < languageDIM; ++lang) {
        load(lang);
        EXPECT_TRUE(test::alerts.empty());
        int own = 0, all = 0;
        for (const text_run_struct& run : text_runs)
            for (int i = run.first; i < run.first + run.count; ++i, ++all) {
                EXPECT_TRUE(is_drawn(stl.text[i])) << lang << ": " << i;
                if (lang == lang_english) english[i] = stl.text[i];
                own += stl.text[i] != english[i];
            }
        // translated, but for words that languages share
        const bool is_english = lang == lang_english || lang == lang_korean;
        EXPECT_GE(own, is_english ? 0 : all * 9 / 10) << lang;
        EXPECT_LE(own, is_english ? 0 : all) << lang;
        std::set<std::string> parts;
        for (int n = 0; n < partDIM; ++n) parts.insert(stl.text[1200 + n]);
        EXPECT_EQ(parts.size(), static_cast<size_t>(partDIM)) << lang;
    }
}

TEST_F(language_test, every_language_has_the_seventeen_menus_with_every_command) {
    std::set<int> commands;  // of the first, English
    const int parents[17] = {-1, -1, -1, -1, -1, -1, -1, 4, 2, 2, 2, 2, 2, 2, 2, 2, 2};
    for (int lang = 0; lang < languageDIM; ++lang) {
        load(lang);
        for (int m = 0; m < 17; ++m) {
            EXPECT_TRUE(is_drawn(menu[m].menu_name)) << lang << ": " << m;
            EXPECT_EQ(menu[m].menu_prnt, parents[m]) << lang << ": " << m;
        }
        EXPECT_TRUE(menu[17].menu_name.empty());
        std::set<int> found;
        for (const auto& [code, text] : entries()) {
            found.insert(code);
            EXPECT_TRUE(is_drawn(text)) << lang << ": " << code;
        }
        if (lang == lang_english) commands = found;
        EXPECT_EQ(found, commands) << lang;
        EXPECT_EQ(found.size(), 108u) << lang;
    }
}

TEST_F(language_test, a_language_replaces_the_one_before_and_leaves_the_menus_of_plugins) {
    constexpr int plugin_menu = 1220;
    MACIBM_create_menu(plugin_menu, 0, "Plugin");
    load(lang_german);
    EXPECT_EQ(stl.text[text_yes], "Ja");
    EXPECT_EQ(menu[2].item[8].item_name, "Flughafen waehlen");
    EXPECT_EQ(menu[4].item[0].item_name, "Karte der Umgebung[ctrl-w");
    load(lang_portuguese);
    EXPECT_EQ(stl.text[text_yes], "Sim");
    EXPECT_EQ(menu[plugin_menu].menu_name, "Plugin");
    load(99);  // out of a preference file
    EXPECT_EQ(stl.text[text_yes], "Yes");
    load(lang_korean);
    EXPECT_EQ(menu[1].item[0].item_name, "Open aircraft");
    EXPECT_FALSE(menu[1].item[0].is_korean);
}

TEST_F(language_test, a_change_in_flight_starts_the_flight_anew) {
    headless_start(INSTALL_FOLDER, "", log_to_nothing);
    flt[0].phi = 77.0f;
    veh[0].num_engines = 0;
    mnw.lang = lang_french;
    MACIBM_setupforlang(1);
    EXPECT_NEAR(flt[0].phi, 0.0f, 1.0f);
    EXPECT_EQ(veh[0].num_engines, 4);  // the default airliner
    EXPECT_EQ(stl.text[text_part + 2], "Helice 3");
}

TEST_F(language_test, texts_come_by_number_whatever_ends_the_lines) {
    load_texts("\xEF\xBB\xBF\n 7  seven\r\n\r\n0 zero \r1399\tlast\n12\n8 [eight] 8\n-1\n9 behind the end\n");
    EXPECT_TRUE(test::alerts.empty());
    EXPECT_EQ(stl.text[7], "seven");
    EXPECT_EQ(stl.text[0], "zero ");
    EXPECT_EQ(stl.text[1399], "last");
    EXPECT_EQ(stl.text[8], "[eight] 8");
    EXPECT_EQ(stl.text[12] + stl.text[9], "");
    load_texts("3 three");  // without an end
    EXPECT_EQ(stl.text[3], "three");
    EXPECT_EQ(stl.text[7], "");
}

TEST_F(language_test, a_broken_text_file_is_told) {
    const std::pair<const char*, const char*> rows[] = {
        {"5 a\n5 b\n", "Trying to read a text string we already have!"},
        {"5\n5 b\n", "Trying to read a text string we already have!"},
        {"1400 a\n", "Too many text strings!"},
        {"99999999999999999999999 a\n", "Too many text strings!"},
        {"", "Could not open text file!"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(test::expect_fatal([&] { load_texts(row.first); }).line[0], row.second) << row.first;
    load_texts("-99999999999999999999999\n1 a\n");
    EXPECT_EQ(stl.text[1], "");
}

TEST_F(language_test, lines_without_a_number_or_end_are_left_out) {
    load_texts("1 one\nno number\n4four\n" + std::string("\0\xff\n", 3) + "3 " + std::string(10000000, 'x') +
               "\n2 two\n");
    ASSERT_EQ(test::alerts.size(), 2u) << "of each kind one";
    EXPECT_EQ(test::alerts[0].type, alert_message);
    EXPECT_EQ(test::alerts[0].text.line[2], "no number I go on without that line.");
    EXPECT_EQ(stl.text[1] + stl.text[2], "onetwo");
    EXPECT_EQ(stl.text[3] + stl.text[4], "");
}

TEST_F(language_test, a_broken_menu_file_is_told) {
    std::string items = "h\n0 A\n", menus = "h\n";
    for (int i = 0; i <= menu_itemDIM; ++i) items += std::to_string(i) + " x\n";
    for (int m = 0; m <= menuDIM; ++m) menus += "0 A\n\n";
    const std::pair<std::string, const char*> rows[] = {
        {"", "Cannot open file!"},
        {"h\n0 A\n1 " + std::string(40, 'x') + "\n", "Menu name too long in append_menu!"},
        {items, "Item index out of range in append_menu!"},
        {menus, "Menu index out of range in create_menu!"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(test::expect_fatal([&] { load_menus(row.first); }).line[0], row.second);
    MACIBM_clear_menus(2);
    load_menus("h\n0 " + std::string(41, 'x') + "\n5 five\nsix\n-7 seven\n2147483648 eight\n9 nine\n\n" +
               "999999 B\n1 b\n\n-1 C\n\n600 D\n\n1 E\n0 e\n\n\n0 F\n");
    ASSERT_GE(test::alerts.size(), 2u);
    ASSERT_EQ(test::alerts[test::alerts.size() - 2].text.line[0], "An entry of the menu file has no code!");
    EXPECT_EQ(menu[0].menu_name, std::string(40, 'x'));
    ASSERT_EQ(menu[0].item.size(), 2u);
    EXPECT_EQ(menu[0].item[1].item_code, 9);
    for (const int m : {1, 2, 3})
        EXPECT_EQ(menu[m].menu_name + std::to_string(menu[m].item.size()), "0") << m;
    EXPECT_EQ(menu[4].menu_name, "E");  // below the second entry of menu 0
    EXPECT_EQ(menu[4].menu_prnt, 0);
    EXPECT_EQ(menu[5].menu_name, "");  // an empty line where a menu should begin
}

TEST_F(language_test, korean_becomes_pairs_of_bytes_that_mean_nothing_else) {
    // glyph 0 is the blank, 33 the "A"; the first syllable is glyph 95, the last 2444
    EXPECT_EQ(char_string_to_int_string(" "), "\x01\x01");
    EXPECT_EQ(char_string_to_int_string("A"), "\x01\x26");
    EXPECT_EQ(char_string_to_int_string("가"), "\x01\x69");
    EXPECT_EQ(char_string_to_int_string("힝"), "\x19\x0b");
    EXPECT_EQ(char_string_to_int_string("-가[F1"), "-\x01\x69[F1");
    EXPECT_EQ(char_string_to_int_string("=").size(), 1u);
    const std::string unknown = char_string_to_int_string("?");
    for (const char* bad : {"\x80", "\xEA\xB0", "\xFF", "뷁", "日", "é"})
        EXPECT_EQ(char_string_to_int_string(bad), unknown) << bad;
    std::set<std::string> pairs;
    for (int c = 0xAC00; c <= 0xD7A3; ++c) {  // every syllable there is
        const char utf8[] = {static_cast<char>(0xE0 | c >> 12), static_cast<char>(0x80 | (c >> 6 & 63)),
                             static_cast<char>(0x80 | (c & 63))};
        pairs.insert(char_string_to_int_string({utf8, 3}));
    }
    for (char c = 32; c < 127; ++c)
        if (c != '[') pairs.insert(char_string_to_int_string({'x', c}).substr(2));
    EXPECT_EQ(pairs.size(), 2350u + 94u);  // no two alike
    for (const std::string& pair : pairs) EXPECT_EQ(pair.find_first_of("\t\n\r -/:=[{|"), std::string::npos);
}
}  // namespace
