// An install folder with nothing in it but navigation files.
#pragma once
#include <filesystem>
#include <string>

#include "core/disk/paths.h"
#include "scenery/packages/library.h"
#include "support.h"

namespace test {

class nav_folder {
public:
    nav_folder() {
        init_paths(folder_.path());
        scenery_packages.clear();
    }
    // rows: what stands between the header and the closing 99
    void write(const std::string& name, const std::string& version, const std::string& rows,
               const std::string& where = "Resources/Earth nav data/") const {
        write_raw(name, "I\n" + version + " Version\n\n" + rows + "99\n", where);
    }
    void write_raw(const std::string& name, const std::string& bytes,
                   const std::string& where = "Resources/Earth nav data/") const {
        std::filesystem::create_directories(folder_.path() + where);
        folder_.write(where + name, bytes);
    }
    void write_package(const std::string& package, const std::string& rows) const {
        write("apt.dat", "715", rows, "Custom Scenery/" + package + "/Earth nav data/");
    }
    const std::string& path() const { return folder_.path(); }

private:
    temp_folder folder_;
};

// An airport of one runway.
inline std::string airport(const std::string& id, const std::string& name, double lat, double lon) {
    return "1 100 0 0 " + id + " " + name + "\n10 " + std::to_string(lat) + " " + std::to_string(lon) +
           " 09x 90.0 3000 0 0 100 111111 1 0 0 0.25 0\n";
}

}  // namespace test
