// Packages, the library, and where resources are sought.
#include "scenery/packages/library.h"

#include <filesystem>

#include "core/disk/paths.h"
#include "support.h"

namespace {
class library_test : public test::system_test {
protected:
    test::temp_folder folder;

    void SetUp() override {
        test::system_test::SetUp();
        init_paths(folder.path());
    }
    void write(const std::string& path, const std::string& bytes = "x") const {
        const std::string full = folder.path() + path;
        std::filesystem::create_directories(full.substr(0, full.rfind('/')));
        folder.write(path, bytes);
    }
    void library(const std::string& package, const std::string& rows) const {
        write(package + "/library.txt", "A\n800 library\nLIBRARY\n\n" + rows);
    }
    std::string primary(int type, const std::string& name, const std::string& package = "") const {
        std::string path;
        DSF_LocateResourcePrimary(type, name, package.empty() ? package : folder.path() + package, false,
                                  path);
        return behind(path);
    }
    std::string secondary(int type, const std::string& name, const std::string& parent) const {
        std::string path;
        DSF_LocateResourceSecondary(type, resource_terrain, folder.path() + parent, name, false, path);
        return behind(path);
    }
    std::string behind(const std::string& path) const {
        return path.rfind(folder.path(), 0) == 0 ? path.substr(folder.path().size()) : path;
    }
};

TEST_F(library_test, a_folder_or_a_path_out_of_its_package_is_no_resource) {
    library("Custom Scenery/a",
            "EXPORT lib/up.obj ../b/secret.obj\nEXPORT lib/deep.obj own/../../b/secret.obj\n"
            "EXPORT lib/colon.obj own:..:..:b:secret.obj\nEXPORT lib/dots.obj own/..a.obj\n"
            "EXPORT lib/folder.obj own\n");
    write("Custom Scenery/a/own/..a.obj");
    write("Custom Scenery/b/secret.obj");
    write("Custom Scenery/b/custom objects/tree.obj/file");
    write("Resources/tree.obj");
    DSF_ScanSceneryFolder();
    EXPECT_EQ(dsf_library.size(), 1u);
    EXPECT_EQ(primary(resource_object, "lib/dots.obj"), "Custom Scenery/a/own/..a.obj");
    EXPECT_EQ(primary(resource_object, "tree.obj", "Custom Scenery/b/"), "Resources/tree.obj")
        << "the folder of the same name was taken";
}

TEST_F(library_test, the_first_package_that_exports_a_name_wins) {
    library("Custom Scenery/b", "EXPORT lib/a.obj own/a b.obj\nnothing\nEXPORT\nEXPORT half\n");
    library("Custom Scenery/a", "EXPORT lib/c.obj c.obj\n");
    library("Resources/default scenery/y", "EXPORT lib/a.obj default.obj\nEXPORT lib/d.obj d.obj\n");
    library("Resources/default scenery/x", "EXPORT lib/a.obj first default.obj");
    DSF_ScanSceneryFolder();
    ASSERT_EQ(scenery_packages.size(), 4u);
    EXPECT_EQ(behind(set_dir_chars(scenery_packages[0])), "Custom Scenery/a/");
    EXPECT_EQ(behind(set_dir_chars(scenery_packages[3])), "Resources/default scenery/y/");
    EXPECT_EQ(dsf_library.at("lib/a.obj").size(), 3u);
    EXPECT_EQ(primary(resource_object, "lib/a.obj"), "Custom Scenery/b/own/a b.obj")
        << "without asking whether it is there";
    EXPECT_EQ(dsf_library.size(), 3u);
    EXPECT_TRUE(test::alerts.empty());

    write("Custom Scenery/a/library.txt", "A\n700\nLIBRARY\nEXPORT lib/e.obj e.obj\n");
    DSF_ScanSceneryFolder();
    EXPECT_EQ(test::alerts.at(0).text.line[0], "Incorrect version for scenery library file.");
    EXPECT_EQ(dsf_library.size(), 3u) << "built anew";
}

TEST_F(library_test, a_tile_finds_its_own_things_before_the_shared_ones) {
    const std::string shared[] = {"Resources/",
                                  "Resources/bitmaps/",
                                  "Resources/bitmaps/terrain/",
                                  "Custom Scenery/p/custom object textures/",
                                  "Custom Scenery/p/custom terrain textures/",
                                  "Custom Scenery/p/"};
    EXPECT_EQ(primary(resource_image, "t.bmp", "Custom Scenery:p:"), "");
    for (const std::string& place : shared) {  // each hides the one before
        write(place + "t.bmp");
        EXPECT_EQ(primary(resource_image, "t.bmp", "Custom Scenery:p:"), place + "t.bmp");
        write(place + "t.png");
        EXPECT_EQ(primary(resource_image, "t.bmp", "Custom Scenery:p:"), place + "t.png");
    }
    write("Resources/bitmaps/terrain/o.obj");
    write("Resources/bitmaps/o.obj");
    EXPECT_EQ(primary(resource_object, "o.obj", "Custom Scenery:p:"), "Resources/bitmaps/o.obj");
    write("Custom Scenery/p/custom objects/O.obj");
    EXPECT_EQ(primary(resource_object, "o.obj", "Custom Scenery:p:"),
              "Custom Scenery/p/custom objects/O.obj");
    write("Resources/bitmaps/terrain/g.ter");
    EXPECT_EQ(primary(resource_terrain, "g.ter"), "Resources/bitmaps/terrain/g.ter");
    write("Custom Scenery/p/custom terrain textures/g.ter");
    EXPECT_EQ(primary(resource_terrain, "g.ter", "Custom Scenery:p:"),
              "Custom Scenery/p/custom terrain textures/g.ter");
}

TEST_F(library_test, a_file_finds_what_lies_beside_it_or_in_its_package) {
    library("Custom Scenery/p", "EXPORT t.png elsewhere.png\n");
    DSF_ScanSceneryFolder();
    write("Custom Scenery/p/custom object textures/t.png");
    EXPECT_EQ(secondary(resource_image, "t.png", "Custom Scenery:p:deep:er:"),
              "Custom Scenery/p/custom object textures/t.png")
        << "not the library's";
    write("Custom Scenery/p/deep/er/t.bmp");
    EXPECT_EQ(secondary(resource_image, "t.png", "Custom Scenery:p:deep:er:"),
              "Custom Scenery/p/deep/er/t.bmp");
    EXPECT_EQ(behind(extract_package(folder.path() + "Custom Scenery:p:deep:er:")), "Custom Scenery:p:");
    EXPECT_EQ(extract_package(folder.path() + "Custom Scenery:"), "");

    std::string path = "before";
    DSF_LocateResourceSecondary(resource_object, resource_terrain, folder.path() + "here:", "no.obj", true,
                                path);
    EXPECT_EQ(path, "");
}
}  // namespace
