// Libraries of two packages: the first byte tells whole files from lines behind good headers; the rest is
// parted at the first zero byte. Then every name that they export is looked up.
#include "scenery/packages/library.h"
#include "support.h"

namespace {
using fuzzing::must;

size_t occurrences(const std::string& text, const std::string& word) {
    size_t count = 0;
    for (size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) ++count;
    return count;
}

// Names too long for a path stay as they were spelt.
bool is_of(const std::string& package, const std::string& file) {
    return set_dir_chars(file.substr(0, package.size())) == set_dir_chars(package);
}

void look_up(const std::string& name, const std::vector<std::string>& files) {
    must(!files.empty());
    std::string found = name;
    must(DSF_LookupLibraryResource(found) && found == files.front());
    for (int type = resource_image; type <= resource_forest; ++type) {
        std::string path;
        DSF_LocateResourcePrimary(type, name, scenery_packages[0], false, path);
        must(path == set_dir_chars(files.front()));
    }
}
}  // namespace

void fuzz_library(fuzzing::input& in) {
    static const fuzzing::scenery_folder folder;
    if (in.size() > 4000) return;
    const std::string head = in.byte() & 1 ? "A\n800\nLIBRARY\n" : "", all = in.text();
    const size_t middle = all.find('\0');
    const std::string custom = head + all.substr(0, middle),
                      shared = head + (middle == std::string::npos ? "" : all.substr(middle + 1));
    folder.write("Custom Scenery/a/library.txt", custom);
    folder.write("Resources/default scenery/b/library.txt", shared);
    DSF_ScanSceneryFolder();
    must(scenery_packages.size() == 2);
    size_t exported = 0;
    for (const auto& [name, files] : dsf_library) {
        exported += files.size();
        for (const std::string& file : files)
            must(is_of(scenery_packages[0], file) || is_of(scenery_packages[1], file));
        look_up(name, files);
    }
    must(exported <= occurrences(custom, "EXPORT ") + occurrences(shared, "EXPORT "));
    std::string path = all.substr(0, 400);
    DSF_LocateResourcePrimary(resource_object, path, scenery_packages[1], false, path);
    DSF_LocateResourceSecondary(resource_image, resource_terrain,
                                scenery_packages[0] + "deep:", all.substr(0, 400), false, path);
    must(extract_package(scenery_packages[0] + all) == scenery_packages[0]);
}
