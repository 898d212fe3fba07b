// Aircraft files between disk and record, with all that a read brings about.
#include "aircraft/io_acf.h"

#include <cstring>
#include <string>

#include "aircraft/design/autoset.h"
#include "aircraft/design/check.h"
#include "aircraft/file/acf_file.h"
#include "aircraft/file/acf_old.h"
#include "aircraft/file/acf_range.h"
#include "core/craft/veh.h"
#include "core/disk/paths.h"
#include "core/program/logs.h"
#include "scenery/objects/object_build.h"

namespace {
// Where the file of a slot is; the one thing of the record that no file decides.
class kept_identity {
public:
    explicit kept_identity(int p) : p_(p) {
        memcpy(name_, veh[p].name, sizeof name_);
        memcpy(path_, veh[p].path, sizeof path_);
        name_[strDIM - 1] = path_[strDIM - 1] = 0;
    }
    const char* path() const { return path_; }
    void restore() const {
        memcpy(veh[p_].name, name_, sizeof name_);
        memcpy(veh[p_].path, path_, sizeof path_);
    }

private:
    int p_;
    char name_[strDIM], path_[strDIM];
};

// The path below the install folder, without its ending.
std::string object_stem(const std::string& path) {
    size_t start = 0;
    while (start < app_path.size() && start < path.size() &&
           (path[start] == app_path[start] || (is_a_dir_char(path[start]) && is_a_dir_char(app_path[start]))))
        ++start;
    const std::string below = start == app_path.size() ? path.substr(start) : path;
    const size_t dot = below.rfind('.');
    return dot == std::string::npos ? below : below.substr(0, dot);
}

void build_cockpit_models(int p, const std::string& path) {
    veh_struct& v = veh[p];
    const std::string stem = object_stem(path);
    v.cockpit_M_inn = v.cockpit_M_out = build_obs(stem + "_cockpit.obj", 1);
    if (v.cockpit_M_inn != -1) return;
    v.cockpit_M_inn = build_obs(stem + "_cockpit_inn.obj", 1);
    v.cockpit_M_out = build_obs(stem + "_cockpit_out.obj", 1);
}

void empty_slot(int p, const kept_identity& identity) {
    clear_acf(p);
    identity.restore();
}

// Tests what a read brought before anything counts with it.
int admit(int p, const std::string& path) {
    const std::string fault = acf_admit(p);
    if (fault.empty()) return 1;
    deverr << "The aircraft file " << path << " is refused: " << fault << std::endl;
    return 0;
}

int read_acf(int p, int is_batch) {
    const kept_identity identity(p);
    const std::string path = identity.path();
    int result = acf_read_record(p);
    if (!result) result = OLD_IO_acf(path, p);
    identity.restore();
    if (result && !admit(p, path)) {
        empty_slot(p, identity);
        result = 0;
    }
    if (result) build_cockpit_models(p, path);
    ACF_autoset(p);
    if (result && !ACF_check(p, is_batch)) {
        empty_slot(p, identity);
        ACF_autoset(p);
        result = 0;
    }
    return result;
}
}  // namespace

int IO_acf(int IO_type, int p, int is_batch) { return IO_type == 1 ? acf_write_record(p) : read_acf(p, is_batch); }
