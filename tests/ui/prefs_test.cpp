// The resolution file: written, read, broken.
#include "ui/settings/prefs.h"

#include "core/records/mnw.h"
#include "support.h"

namespace {
class resolution : public test::system_test {
protected:
    test::temp_folder folder;
    std::string path = folder.path() + "res.prf";
    void set(int x, int y, int lang) {
        mnw.x_res_req = x;
        mnw.y_res_req = y;
        mnw.col_res_req = 32;
        mnw.set_res_req = 1;
        mnw.lang = lang;
        mnw.keylist_up = 0;
        mnw.prd_FM = 0.0125f;
        mnw.prd_UI = 0.02f;
    }
};

TEST_F(resolution, comes_back_as_it_was) {
    set(2560, 1440, 3);
    ASSERT_TRUE(handle_prefs(0, 7, path));
    EXPECT_EQ(test::read_file(path).substr(0, 14), "I\n801 version\n");
    set(0, 0, -1);
    ASSERT_TRUE(handle_prefs(0, 6, path));
    EXPECT_EQ(mnw.x_res_req, 2560);
    EXPECT_EQ(mnw.y_res_now, 1440);
    EXPECT_EQ(mnw.lang, 3);
    EXPECT_EQ(mnw.keylist_up, 0);
    EXPECT_FLOAT_EQ(mnw.prd_FM, 0.0125f);
}

TEST_F(resolution, out_of_range_missing_or_broken_gives_the_defaults) {
    folder.write("res.prf", "I\n801 version\n99999 12 32 1 9 1 0.02 0.02\n");
    set(1280, 1024, 0);
    EXPECT_TRUE(handle_prefs(0, 6, path));
    EXPECT_EQ(mnw.x_res_now, 1024);
    EXPECT_EQ(mnw.y_res_now, 768);
    EXPECT_EQ(mnw.lang, -1) << "asks again";
    for (const char* text :
         {"", "I\n", "I\n800 version\n1024 768", "I\n801 version\nwide high", "\x7f\x45LF", "I\n801"}) {
        folder.write("res.prf", text);
        set(1280, 1024, 2);
        EXPECT_FALSE(handle_prefs(0, 6, path)) << text;
        EXPECT_EQ(mnw.x_res_now, 1280) << text;
        EXPECT_EQ(mnw.lang, 2) << text;
    }
    EXPECT_TRUE(test::alerts.empty());
}
}  // namespace
