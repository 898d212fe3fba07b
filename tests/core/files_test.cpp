// The file layer: paths, stream files, mapped files, scanners, headers, listings.
#include "core/disk/files.h"

#include <sys/stat.h>

#include <cmath>
#include <cstring>

#include "core/disk/dirlist.h"
#include "core/disk/mapfile.h"
#include "core/disk/paths.h"
#include "core/disk/txtscan.h"
#include "support.h"

class files_test : public test::system_test {
protected:
    test::temp_folder folder;
};

// -- paths

TEST_F(files_test, a_path_gets_the_separators_and_the_letter_case_of_the_disk) {
    folder.write("bitmaps/Sky.PNG", "x");
    folder.write("bitmaps/both.txt", "1");
    folder.write("bitmaps/BOTH.TXT", "2");
    const std::string base = folder.path();
    EXPECT_EQ(set_dir_chars(base + "bitmaps:sky.png"), base + "bitmaps/Sky.PNG");
    EXPECT_EQ(set_dir_chars(base + "bitmaps\\BOTH.TXT"), base + "bitmaps/BOTH.TXT");
    // only the last component is repaired, and what is not there stays
    EXPECT_EQ(set_dir_chars(base + "BITMAPS:sky.png"), base + "BITMAPS/sky.png");
    EXPECT_EQ(set_dir_chars(base + "bitmaps:sea.png"), base + "bitmaps/sea.png");
    EXPECT_EQ(set_dir_chars(base + "bitmaps:"), base + "bitmaps/");
    // the first two characters are never changed
    EXPECT_EQ(set_dir_chars("\\:a:b"), "\\:a/b");
}

TEST_F(files_test, a_path_beyond_500_bytes_is_left_alone_and_opens_nothing) {
    std::string longest = folder.path();
    while (longest.size() < 480) longest += "./";
    longest += std::string(path_len_max - longest.size(), 'n');
    folder.write(longest.substr(longest.rfind('/') + 1), "I\n700\n");
    EXPECT_EQ(inf_open(longest, ftype_afl, 700, 0), 1);
    const std::string over =
        longest.substr(0, folder.path().size()) + "./" + longest.substr(folder.path().size());
    EXPECT_EQ(set_dir_chars(over + ":"), over + ":");
    EXPECT_EQ(inf_open(over, ftype_afl, 700, 0), 0);
    EXPECT_EQ(ouf_open(over, ftype_afl, 700), 0);
}

// -- input streams

TEST_F(files_test, text_reads_alike_with_every_line_end) {
    for (const std::string eol : {"\n", "\r\n", "\r"}) {
        const std::string path =
            folder.write("t.afl", "A" + eol + "700 version" + eol + "1.5 -2e-3 +7 1e-60 rest" + eol + eol +
                                      "word  two words " + eol + "-42");
        ASSERT_EQ(inf_open(path, ftype_afl, 700, 0), 1);
        EXPECT_EQ(extra_char_eoln, eol.size() == 2);
        lin_scan();
        for (const float number : {1.5f, -0.002f, 7.0f, 0.0f}) EXPECT_EQ(flt_scan(), number);
        lin_scan();
        EXPECT_EQ(str_scan_to_EOL(), "");
        EXPECT_EQ(str_scan(), "word");
        EXPECT_EQ(str_scan_to_EOL(), "two words ");
        EXPECT_EQ(int_scan(), -42);
        ASSERT_EQ(inf_open(folder.write("t.log", "I" + eol + "first" + eol), ftype_log, 0, 0), 1);
        EXPECT_EQ(str_scan_to_EOL(), "first") << "without a version";
    }
}

TEST_F(files_test, what_is_no_number_is_fatal_and_names_the_file) {
    for (const std::string& bad : {std::string("nan"), std::string("1e999"), std::string("--1"),
                                   std::string("1.2.3e"), std::string(), std::string(500, '1')}) {
        const std::string path = folder.write("t.afl", "I\n700 v\n" + bad);
        ASSERT_TRUE(inf_open(path, ftype_afl, 700, 0));
        lin_scan();
        const alert_lines text = test::expect_fatal([] {
            flt_scan();
            flt_scan();
        });
        EXPECT_EQ(text.line[0], "File-scanning error!") << bad;
        EXPECT_EQ(text.line[1], path);
    }
    ASSERT_TRUE(inf_open(folder.write("t.afl", "I\n700\n2147483648"), ftype_afl, 700, 0));
    EXPECT_EQ(test::expect_fatal([] { int_scan(); }).line[0], "File-scanning error!");
}

TEST_F(files_test, a_header_that_does_not_fit_opens_nothing) {
    const std::string text = folder.write("t.afl", "I\n650 version\n");
    EXPECT_EQ(inf_open(text, ftype_afl, 700, 0), 0);
    for (const char* bytes : {"X\n700\n", "I\nseven\n", ""})
        EXPECT_EQ(inf_open(folder.write("u.afl", bytes), ftype_afl, 700, 0), 0) << bytes;
    EXPECT_EQ(inf_open(folder.write("u.acf", "i\x40\x1f"), ftype_acf, 8000, 0), 0);
    EXPECT_EQ(inf_open(folder.path() + "none.afl", ftype_afl, 700, 0), 0);
    EXPECT_EQ(inf_open(folder.path(), ftype_afl, 700, 1), 0);
    EXPECT_TRUE(test::alerts.empty());
    EXPECT_EQ(inf_open(text, ftype_afl, 700, 1), 0);
    ASSERT_EQ(test::alerts.size(), 1u);
    EXPECT_EQ(test::alerts[0].type, alert_message);
    EXPECT_EQ(test::alerts[0].text.line[0],
              "The following file is the wrong version for this version of Tarvane:");
    EXPECT_EQ(test::alerts[0].text.line[1], text);
}

TEST_F(files_test, a_second_input_leaves_the_first_as_it_was) {
    inf_use = 0;
    ASSERT_TRUE(inf_open(folder.write("a.fdr", "A\r\n1\r\nline one\r\nline two\r\n"), ftype_fdr, 1, 1));
    lin_scan();
    inf_use = 1;
    const std::string big = std::string("a\0\0\x1f\x40\x12\x34\x56\x78", 9);
    ASSERT_TRUE(inf_open(folder.write("b.acf", big), ftype_acf, 8000, 0));
    EXPECT_EQ(rev_inf_bin, 1);
    EXPECT_EQ(int_scan(), 0x12345678);
    inf_close();
    inf_use = 0;
    EXPECT_EQ(str_scan_to_EOL(), "line one");
    EXPECT_EQ(str_scan_to_EOL(), "line two");
}

TEST_F(files_test, a_short_file_leaves_the_rest_of_the_record) {
    ASSERT_TRUE(
        inf_open(folder.write("a.acf", std::string("a\0\0\x1f\x40\1\2\3\4\5\6", 11)), ftype_acf, 8000, 0));
    unsigned char record[12];
    memset(record, 0xee, sizeof record);
    read_n_rev(record, sizeof record);
    EXPECT_EQ(memcmp(record, "\4\3\2\1\xee\xee\xee\xee\xee\xee\xee\xee", 12), 0);  // no torn word either
}

// -- output streams

TEST_F(files_test, the_header_is_written_by_type) {
    copyright_apt = "(c) us";
    const struct {
        const char *asked, *name;
        int ftype, version;
        std::string header;
    } rows[] = {{"A.ACF", "A.acf", ftype_acf, 8000, std::string("i\x40\x1f\0\0", 5)},
                {"a.dat", "a.dat", ftype_apt, 715, "I\n715 (c) us\n"},
                {"a.afl", "a.afl", ftype_afl, 700, "I\n700 version\n"}};
    for (const auto& row : rows) {
        ASSERT_TRUE(ouf_open(folder.path() + row.asked, row.ftype, row.version));
        ASSERT_TRUE(ouf_close());
        EXPECT_EQ(test::read_file(folder.path() + row.name), row.header);
    }
    EXPECT_FALSE(ouf_open(folder.path() + "none:a.afl", ftype_afl, 700));
    ASSERT_EQ(test::alerts.size(), 1u);
    EXPECT_EQ(test::alerts[0].text.line[1], folder.path() + "none:a.afl");
}

TEST_F(files_test, a_failed_write_keeps_the_old_file) {
    const std::string path = folder.write("Save.prf", "old");
    ASSERT_TRUE(ouf_open_beside(path, ftype_log, 1));
    ouf << "new\n";
    EXPECT_EQ(test::read_file(path), "old");
    ASSERT_TRUE(ouf_replace());
    EXPECT_EQ(test::read_file(path), "I\n1 version\nnew\n");

    ASSERT_TRUE(ouf_open_beside(path, ftype_log, 1));
    ouf.setstate(std::ios::badbit);  // as a full disk does
    EXPECT_FALSE(ouf_replace());
    EXPECT_EQ(test::read_file(path), "I\n1 version\nnew\n");
    EXPECT_EQ(test::alerts.size(), 1u);
    struct stat left;
    EXPECT_NE(stat((path + ".new").c_str(), &left), 0);
}

// -- mapped files and scanners

struct text_scan {
    std::string text;
    int c = 0;
    map_bytes bytes() const { return reinterpret_cast<map_bytes>(text.data()); }
    int max() const { return static_cast<int>(text.size()); }
    int whole() { return TXT_MAP_int_scan(bytes(), &c, max()); }
    float number() { return TXT_MAP_flt_scan(bytes(), &c, max()); }
    std::string by(decltype(TXT_MAP_str_scan_space) scan) {
        std::string out;
        scan(bytes(), &c, max(), &out);
        return out;
    }
    std::string word() { return by(TXT_MAP_str_scan_space); }
    std::string rest() { return by(TXT_MAP_str_scan_eoln); }
    int match(const char* w, int eoln_ok) { return TXT_MAP_str_match_space(bytes(), &c, max(), w, eoln_ok); }
    int goes_on() const { return TXT_MAP_continue(bytes(), &c, max()); }
};

TEST(txtscan, a_line_of_99_ends_the_data) {
    for (const char* text : {"99", "990\n", "99 \n"}) EXPECT_TRUE(text_scan{text}.goes_on()) << text;
    for (const char* text : {"99\n", "99\rmore", ""}) EXPECT_FALSE(text_scan{text}.goes_on()) << text;
}

TEST(txtscan, numbers_take_the_byte_behind_them) {
    text_scan crlf{"  12\r\n-+34 5"};
    EXPECT_EQ(crlf.whole(), 12);
    EXPECT_EQ(crlf.text[static_cast<size_t>(crlf.c)], '\n');
    TXT_MAP_finish_line(crlf.bytes(), &crlf.c, crlf.max());
    EXPECT_EQ(crlf.whole(), -34);
    EXPECT_EQ(crlf.whole(), 5);
    EXPECT_EQ(crlf.c, crlf.max());
    EXPECT_EQ(crlf.whole(), 0);
    // 2^32 + 7 wraps; a tab is a digit of value 9 - 48
    EXPECT_EQ((text_scan{"4294967303"}).whole(), 7);
    EXPECT_EQ((text_scan{"\t1"}).whole(), -389);

    text_scan floats{"-118.40625 1.5-\n+2 .001 7..25 \t"};
    for (const float number : {-118.40625f, -1.5f, 2.0f, 0.001f, 7.25f, -39.0f, 0.0f})
        EXPECT_FLOAT_EQ(floats.number(), number);
    EXPECT_TRUE(std::isfinite((text_scan{std::string(400, '9')}).number()));
    EXPECT_FLOAT_EQ((text_scan{"." + std::string(400, '9')}).number(), 1.0f);
}

TEST(txtscan, words_and_lines) {
    text_scan s{"  TERRAIN a\tb  \r\n\r\n\nOBJ\nEXPORTED x"};
    EXPECT_FALSE(s.match("TERR", 1));
    EXPECT_EQ(s.c, 0);
    EXPECT_TRUE(s.match("TERRAIN", 0));
    EXPECT_EQ(s.word(), "a\tb");
    EXPECT_EQ(s.rest(), "");
    EXPECT_FALSE(s.match("OBJ", 0));
    EXPECT_TRUE(s.match("OBJ", 1));
    EXPECT_EQ(s.rest(), "");
    EXPECT_FALSE(s.match("EXPORT", 1));
    EXPECT_EQ(s.rest(), "EXPORTED x");
    EXPECT_EQ(s.rest(), "");
    EXPECT_TRUE((text_scan{"OBJ"}).match("OBJ", 1));
    EXPECT_FALSE((text_scan{"OBJ"}).match("OBJ", 0));
    EXPECT_EQ((text_scan{std::string("ab\0cd", 5)}).rest(), "ab");
}

class header_test : public files_test {
protected:
    XMappedFile map;
    int c = -1, c_max = -1;

    int check(int ftype, const std::string& bytes, const std::string& version) {
        map.retry(folder.write("h", bytes).c_str());
        return MAP_check_file(ftype, &map, map.begin(), &c, &c_max, version);
    }
    int check_typed(const std::string& bytes, std::string* copyright = nullptr) {
        static const int versions[] = {800, 703, 0};
        map.retry(folder.write("h", bytes).c_str());
        return MAP_check_file_text_typed(&map, map.begin(), &c, &c_max, versions, "TERRAIN", copyright);
    }
};

TEST_F(header_test, older_kind) {
    EXPECT_TRUE(check(ftype_nav, "I\r\n740 Version - (c) me\r\n\r\n2 48.1\r\n", "740"));
    EXPECT_EQ(copyright_nav, "Version - (c) me");
    EXPECT_EQ(map.begin()[c], '2');
    EXPECT_EQ(c_max, static_cast<int>(map.size()));
    EXPECT_TRUE(check(ftype_all, "A\n600", "600"));
    EXPECT_FALSE(check(ftype_all, "B\n600 x\n", "600"));
    EXPECT_FALSE(check(ftype_all, "A\n60", "600"));
    EXPECT_FALSE(check(ftype_all, "", map_any_version));
    EXPECT_TRUE(check(ftype_png, "x", map_any_version));
    EXPECT_EQ(map.retry((folder.path() + "none").c_str()), nullptr);
    EXPECT_EQ(map.size(), 0u);
    EXPECT_EQ(map.retry(folder.path().c_str()), nullptr);

    const std::string little("i\x8a\2\0\0\1\0\0\0\0\0\x80\x3f", 13),
        big("a\0\0\2\x8a\0\0\0\1\x3f\x80\0\0", 13);
    for (const std::string& bytes : {little, big}) {
        EXPECT_FALSE(check(ftype_env, bytes, "651"));
        ASSERT_TRUE(check(ftype_env, bytes, "650"));
        EXPECT_EQ(BIN_MAP_int_scan(map.begin(), &c, c_max), 1);
        EXPECT_EQ(BIN_MAP_flt_scan(map.begin(), &c, c_max), 1.0f);
        EXPECT_EQ(BIN_MAP_int_scan(map.begin(), &c, c_max), 0);
    }
    ASSERT_TRUE(check(ftype_env, little + std::string("\7lake\0..", 8) + "tail", "650"));
    c = 13;
    EXPECT_EQ(BIN_MAP_chr_scan(map.begin(), &c, c_max), 7);
    EXPECT_EQ(BIN_MAP_str_scan_DIM(map.begin(), &c, c_max, 7), "lake");
    EXPECT_EQ(BIN_MAP_str_scan_DIM(map.begin(), &c, c_max, 150), "tail");
    EXPECT_FALSE(check(ftype_env, "i\x8a\2", "650"));
}

TEST_F(header_test, newer_kind_with_a_type_word) {
    std::string copyright;
    EXPECT_EQ(check_typed("I\n800 mine\nTERRAIN\n\nBASE_TEX x\n", &copyright), 800);
    EXPECT_EQ(copyright, "mine");
    EXPECT_EQ(map.begin()[c], 'B');
    EXPECT_EQ(check_typed("A\r\n703\r\nTERRAIN and more\r\n"), 703);
    EXPECT_EQ(c, c_max);
    for (const char* bytes : {"A\n801\nTERRAIN\n", "A\n800\nTERRAINS\n", "A\n0\nTERRAIN\n",
                              "A\n99999999999999999999800\nTERRAIN\n", "A"})
        EXPECT_EQ(check_typed(bytes), 0) << bytes;
    EXPECT_EQ(MAP_check_file_text_typed(nullptr, nullptr, &c, &c_max, &c, "X", nullptr), 0);
}

// -- listings

class dirlist_test : public files_test {
protected:
    std::vector<std::string> list(int file_type) {
        wrk_path = folder.path();
        std::vector<std::string> names;
        for (int i = 0, n = opensave_getitems(file_type); i < n; ++i) names.push_back(g_file[i]);
        return names;
    }
    using names = std::vector<std::string>;
};

TEST_F(dirlist_test, a_type_lists_its_files_and_all_folders_in_byte_order) {
    for (const char* name :
         {"b.acf", "B.ACF", "a.afl", ".hidden.acf", "n.acf.txt", "sub/x.acf", "Zub.acf/y", "c.smo"})
        folder.write(name, "");
    EXPECT_EQ(list(ftype_acf), (names{"B.ACF", "Zub.acf", "b.acf", "sub"}));
    EXPECT_EQ(g_file_type[1], ftype_folder);
    EXPECT_EQ(g_path[1], folder.path() + "Zub.acf/");
    EXPECT_EQ(g_path[2], folder.path() + "b.acf");
    EXPECT_EQ(list(ftype_folder), (names{"Zub.acf", "sub"}));
    EXPECT_EQ(list(ftype_mov), (names{"Zub.acf", "c.smo", "sub"}));
    EXPECT_EQ(list(ftype_all).size(), 7u);
    wrk_path = folder.path() + "none/";
    EXPECT_EQ(opensave_getitems(ftype_all), 0);
    wrk_path.pop_back();
    app_path = folder.path();
    EXPECT_EQ(opensave_getitems(ftype_all), 7) << "the program's own folder instead";
    EXPECT_EQ(test::alerts.back().type, alert_message);
    EXPECT_EQ(test::alerts.back().text.line[0], "Working path does not appear to be a directory!");
}

TEST_F(dirlist_test, pictures_of_panels_and_further_pictures_of_a_set_are_no_choice) {
    for (const char* name : {"paint.bmp", "paint-1.PNG", "paint-4.bmp", "paint-5.bmp", "sky.png"})
        folder.write(name, "");
    EXPECT_EQ(list(ftype_bmp), (names{"paint-5.bmp", "paint.bmp", "sky.png"}));
    EXPECT_EQ(list(ftype_png), (names{"paint-1.PNG", "paint-4.bmp", "paint-5.bmp", "paint.bmp", "sky.png"}));
    bmp_path = folder.path();
    folder.write("cockpit/-Panels-/p.png", "");
    wrk_path = folder.path() + "cockpit:-Panels-:";
    EXPECT_EQ(opensave_getitems(ftype_bmp), 0);
    EXPECT_EQ(opensave_getitems(ftype_png), 1);
}

TEST_F(dirlist_test, a_folder_of_thousands_gives_its_first_thousand) {
    for (int i = 0; i < 1100; ++i) folder.write("f" + std::to_string(10000 - i) + ".obj", "");
    const names found = list(ftype_obj);
    ASSERT_EQ(found.size(), static_cast<size_t>(g_fileDIM));
    EXPECT_EQ(found.front(), "f10000.obj");
    EXPECT_EQ(found[1], "f8901.obj");
}
