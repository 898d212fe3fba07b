// Preferences: one list of fields for both directions.
#include "ui/settings/prefs.h"

#include <stdlib.h>

#include "core/disk/files.h"
#include "core/math/num.h"
#include "core/records/mnw.h"

namespace {
constexpr int opr_write = 7;  // anything else reads
constexpr int prefs_version = 801;
constexpr int resolution_file_type = ftype_all;  // a text file of no other kind

// One field in either direction. A word that is no number leaves the field and tells so.
struct mover {
    bool reading;
    bool sound = true;
    template <class value>
    void field(value& v) {
        if (!reading) {
            ouf << v << '\n';
            return;
        }
        const std::string word = str_scan();
        char* end = nullptr;
        const double read = strtod(word.c_str(), &end);
        if (word.empty() || *end || !(read > -1e9 && read < 1e9))
            sound = false;
        else
            v = static_cast<value>(read);
    }
};

void resolution_fields(mover& m) {
    m.field(mnw.x_res_req);
    m.field(mnw.y_res_req);
    m.field(mnw.col_res_req);
    m.field(mnw.set_res_req);
    m.field(mnw.lang);
    m.field(mnw.keylist_up);
    m.field(mnw.prd_FM);
    m.field(mnw.prd_UI);
}

void hold_resolution() {
    constexpr int most = 9999, languages = 7;
    if (!intrange(mnw.x_res_req, XRES, most)) mnw.x_res_req = XRES;
    if (!intrange(mnw.y_res_req, YRES, most)) mnw.y_res_req = YRES;
    if (mnw.lang >= languages) mnw.lang = -1;  // asks again
}

void use_resolution() {
    mnw.x_res_now = mnw.x_res_req;
    mnw.y_res_now = mnw.y_res_req;
    mnw.col_res_now = mnw.col_res_req;
    mnw.set_res_now = mnw.set_res_req;
}

int resolution(int opr, const std::string& path) {
    if (opr == opr_write) {
        if (!ouf_open_beside(path, resolution_file_type, prefs_version)) return 0;
        mover m{false};
        resolution_fields(m);
        return ouf_replace();
    }
    int result = 0;
    if (inf_open(path, resolution_file_type, prefs_version, 0)) {
        lin_scan();  // the rest of the header
        mover m{true};
        resolution_fields(m);
        inf_close();
        hold_resolution();
        result = m.sound;
    }
    use_resolution();
    return result;
}
}  // namespace

int handle_prefs(int prf, int opr, const std::string& stl_path) {
    constexpr int prf_resolution = 0;
    if (prf == prf_resolution) return resolution(opr, stl_path);
    return 0;  // the user's settings, situations and replays have no list yet
}
