// Small rules of the window that a user would miss at once.
#include <string.h>
#include <unistd.h>

#include "app/init_sim.h"
#include "app/lab/headless.h"
#include "core/disk/text_numbers.h"
#include "core/math/random.h"
#include "core/program/input_gate.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "draw/widgets/menus.h"
#include "flying.h"
#include "scenery/nav/nav_tables.h"
#include "sound/sound.h"
#include "support.h"
#include "ui/text/language.h"

namespace {
// What the generator gives after a start of the whole system without a window.
unsigned drawn_after_start(int has_user) {
    test::fresh();
    alert_seam.show = nullptr;  // nobody to ask for a language
    seams_real_clock();
    seam.has_user = has_user;
    init_sim(INSTALL_FOLDER);
    const unsigned drawn = static_cast<unsigned>(rand31());
    MACIBM_finishup(0);
    return drawn;
}

TEST(start, draws_anew_for_a_user_and_repeats_without_one) {
    const test::temp_folder logs;
    ASSERT_EQ(chdir(logs.path().c_str()), 0);
    EXPECT_EQ(drawn_after_start(0), drawn_after_start(0));
    EXPECT_NE(drawn_after_start(1), drawn_after_start(1));
    ASSERT_EQ(chdir("/"), 0);
    seams_headless();
}

TEST(window, the_airport_map_is_titled_with_its_airport_and_about_compares_no_versions) {
    test::fly_aircraft("Lark 15");
    vec_apt.assign(1, {});
    msc.loc_apt_wrl = 0;
    vec_apt[0].apt_name = "Field";
    strcpy(vec_apt[0].apt_id, "KXYZ");
    vec_apt[0].ele = 100.0f;
    MACIBM_startwind(win_map_2, "test");
    EXPECT_EQ(stl.win_name, "Field KXYZ elev 328");
    MACIBM_setupforlang(0);
    EXPECT_EQ(stl.text[text_about_current], "The current version is:");
}

TEST(window, a_click_is_heard_also_where_a_menu_takes_it) {
    test::fly_aircraft("Lark 15");
    static int heard;
    heard = 0;
    seam.play_sound = [](int slot, float, float) { heard += slot == sound_click; };
    mnw.menu_up = 0;
    seam.drain_events = [] { input_gate_mouse(700.0f, 400.0f, 1, 0); };
    headless_frame();
    EXPECT_EQ(mnw.menu_up, -1);
    seam.drain_events = [] {};
    headless_frame();
    EXPECT_EQ(heard, 1);
    seams_headless();
}

TEST(window, the_key_for_the_next_aircraft_passes_over_the_copy_of_the_present_one) {
    headless_start(INSTALL_FOLDER, "", log_to_nothing);
    ASSERT_EQ(veh[0].num_engines, 4);
    APP_handlekey(key_use_char, 'n');
    EXPECT_STREQ(veh[0].name, "Plover 420.acf");
}

TEST(menus, a_submenu_without_entries_does_not_open) {
    test::fresh();
    MACIBM_clear_menus(1);
    MACIBM_create_menu(0, 0, "Maps");
    MACIBM_append_menu(0, 0, 7, "Airports", 0);
    MACIBM_append_menu(0, 1, 8, "Another", 0);
    MACIBM_create_menu(7, 1, "Airports");
    const item_struct& entry = menu[0].item[1];
    mnw.top_win = win_fly, mnw.menu_up = 0;
    mnw.mx = entry.itemx1 + 5.0f, mnw.my = entry.itemy1 + 5.0f;
    menus_click(0);
    EXPECT_EQ(mnw.menu_up, 0);
    MACIBM_append_menu(7, 0, 2100, "KSBD", 1);
    menus_click(0);
    EXPECT_EQ(mnw.menu_up, 7);
}
}  // namespace
