// Background aircraft from a folder in which strangers' files are at fault.
#include "app/start/load_plane.h"

#include <filesystem>
#include <fstream>

#include "aircraft/file/acf_fault.h"
#include "aircraft/file/acf_file.h"
#include "aircraft/io_acf.h"
#include "app/lab/headless.h"
#include "app/start/traffic.h"
#include "core/disk/paths.h"
#include "flying.h"

namespace fs = std::filesystem;

namespace {
// An install folder of this test's own, with the compiled airfoils and the default aircraft.
class traffic : public ::testing::Test {
protected:
    void SetUp() override {
        test::fly_aircraft("");
        fs::create_directory_symlink(fs::path(INSTALL_FOLDER) / "Airfoils", folder.path() + "Airfoils");
        const std::string heavy = "Aircraft/Heavy Metal/B747-400 United";
        fs::create_directories(folder.path() + heavy);
        fs::copy(fs::path(INSTALL_FOLDER) / heavy, folder.path() + heavy, fs::copy_options::recursive);
        init_paths(folder.path());
        wrk_path = acf_path;
    }
    void TearDown() override { forget_faulty_acf(); }

    // A copy of the default aircraft with one fault.
    std::string strange_file(const std::string& name, const std::function<void(veh_struct&)>& spoil) {
        const std::string path = folder.write("Aircraft/General Aviation/" + name + "/" + name + ".acf", "");
        snprintf(veh[9].path, sizeof veh[9].path, "%s", (app_path + stg.def_pln_path).c_str());
        EXPECT_TRUE(acf_read_record(9));
        spoil(veh[9]);
        snprintf(veh[9].path, sizeof veh[9].path, "%s", path.c_str());
        EXPECT_TRUE(IO_acf(1, 9, 0));
        clear_acf(9);
        return path;
    }
    test::temp_folder folder;
};

TEST_F(traffic, a_faulty_aircraft_leaves_its_slot_empty_and_is_not_picked_again) {
    constexpr int slot = 2;  // looks into "General Aviation" only
    const std::string no_vne = strange_file("Nought", [](veh_struct& v) { v.Vne_kts = 0.0f; });
    const std::string no_foil =
        strange_file("Zip", [](veh_struct& v) { snprintf(v.wing[9].Rafl0, nameDIM, "missing.afl"); });
    // each fault is met at another stage of the load, told of once, and the slot is free again
    for (int tries = 0; tries < 40 && !(acf_was_faulty(no_vne) && acf_was_faulty(no_foil)); ++tries)
        if (get_random_plane(slot)) break;
    EXPECT_TRUE(acf_was_faulty(no_vne));
    EXPECT_TRUE(acf_was_faulty(no_foil));
    EXPECT_EQ(test::alerts.size(), 2u);
    for (const test::shown_alert& alert : test::alerts) EXPECT_EQ(alert.type, alert_message);
    EXPECT_EQ(veh[slot].name[0], 0);
    EXPECT_EQ(veh[slot].path[0], 0);
    EXPECT_EQ(veh[slot].m_empty, 0.0f);

    // with nothing sound in its folder the slot takes the default aircraft, in the next frame
    stg.num_acf = slot + 1;
    headless_frame();
    EXPECT_NE(std::string(veh[slot].path).find("United-Air.acf"), std::string::npos);
    EXPECT_GT(veh[slot].m_empty, 0.0f);
    headless_frame();
    EXPECT_EQ(test::alerts.size(), 2u);
}

TEST_F(traffic, an_empty_slot_does_not_end_the_frame) {
    stg.num_acf = 3;
    const std::string only = strange_file("Nought", [](veh_struct& v) { v.Vne_kts = 0.0f; });
    fs::copy_file(only, set_dir_chars(app_path + stg.def_pln_path), fs::copy_options::overwrite_existing);
    for (int i = 0; i < 5; ++i) headless_frame();
    for (int p = 1; p < 3; ++p) EXPECT_EQ(veh[p].name[0], 0) << p;
    EXPECT_EQ(test::alerts.size(), 2u);  // one a file
}

// A tilt rotor left in the hover gave the next aircraft a disc without area and a propeller without mass.
TEST_F(traffic, a_disc_that_hides_is_derived_after_an_aircraft_whose_vector_hid_it) {
    constexpr int slot = 4;
    test::fly_aircraft("Wren 160");
    const std::string trainer = veh[0].path;
    const float area = veh[0].wing[0].el_s[5], inertia = veh[0].engn[0].mi_prop_rpm;
    ASSERT_GT(area, 0.0f);
    init_paths(folder.path());
    const std::string hiding = folder.write("Aircraft/General Aviation/Hides/h.acf", "");
    snprintf(veh[9].path, sizeof veh[9].path, "%s", trainer.c_str());
    ASSERT_TRUE(acf_read_record(9));
    veh[9].hide_prop_at_90_vect = 1;
    snprintf(veh[9].path, sizeof veh[9].path, "%s", hiding.c_str());
    ASSERT_TRUE(IO_acf(1, 9, 0));
    snprintf(veh[slot].path, sizeof veh[slot].path, "%s", hiding.c_str());
    flt[slot].engn[0].vert_disc_vector = 90.0f;
    flt[slot].dob_y = 1234.0;
    ASSERT_TRUE(load_plane(slot));
    EXPECT_EQ(veh[slot].wing[0].el_s[5], area);
    EXPECT_EQ(veh[slot].engn[0].mi_prop_rpm, inertia);
    EXPECT_EQ(flt[slot].dob_y, 1234.0) << "a peer's aircraft goes on where it was";
}
}  // namespace
