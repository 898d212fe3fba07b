// Reads and writes airfoil files and gives a part its foils.
#include "aircraft/foil/afl_file.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <limits>
#include <map>
#include <memory>
#include <vector>

#include "aircraft/file/acf_fault.h"
#include "aircraft/file/acf_layout.h"
#include "aircraft/foil/afl_polar.h"
#include "core/craft/veh.h"
#include "core/disk/files.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/mnw.h"

static constexpr int afl_versions[] = {700, 650, 641, 613, 363};  // in the order in which they are tried
static constexpr int afl_device = 1234;                           // type code of every foil file
static constexpr float old_Llinrange = 10.0f;                     // degrees; before version 700 fixed
static constexpr float old_mach_div = 0.75f;                      // version 363 holds none
// A foil is some 25 kB of text; what stands behind this many bytes cannot belong to it.
static constexpr std::streamsize afl_bytes_max = 1 << 20;

namespace {

// The part of a foil file behind its header line, in memory: some 2,900 numbers, which the standard
// streams would take most of the load's time for.
class foil_text {
public:
    explicit foil_text(std::istream& in) {
        char part[16384];
        do {
            in.read(part, sizeof part);
            bytes_.append(part, static_cast<size_t>(in.gcount()));
        } while (in && bytes_.size() < afl_bytes_max);
        if (bytes_.size() > afl_bytes_max) bytes_.resize(afl_bytes_max);
        at_ = bytes_.data();
        end_ = at_ + bytes_.size();
    }
    bool failed() const { return failed_; }

    // A finite number; words such as "nan" fail too. 0 after a failure.
    float number() {
        skip_white();
        if (at_ != end_ && *at_ == '+') ++at_;
        double value = 0.0;
        const std::from_chars_result got = std::from_chars(at_, end_, value);
        if (got.ec != std::errc() || !(fabs(value) <= std::numeric_limits<float>::max())) {
            failed_ = true;
            return 0.0f;
        }
        at_ = got.ptr;
        return static_cast<float>(value);
    }
    int whole_number() {
        skip_white();
        int value = 0;
        const std::from_chars_result got = std::from_chars(at_, end_, value);
        if (got.ec != std::errc()) failed_ = true;
        at_ = got.ptr;
        return value;
    }
    void word() {
        skip_white();
        if (at_ == end_) failed_ = true;
        while (at_ != end_ && !is_white(*at_)) ++at_;
    }
    void rest_of_line() {
        while (at_ != end_ && !is_eoln(*at_)) ++at_;
        if (at_ == end_) return;
        const char first = *at_++;
        if (extra_char_eoln && at_ != end_ && is_eoln(*at_) && *at_ != first) ++at_;
    }

private:
    static bool is_eoln(char c) { return c == '\n' || c == '\r'; }
    static bool is_white(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
    void skip_white() {
        while (at_ != end_ && is_white(*at_)) ++at_;
    }
    std::string bytes_;
    const char* at_;
    const char* end_;
    bool failed_ = false;
};

}  // namespace

// The numbers of a foil in the order of its version. Version 613 and 363 have one word in front and
// 613 has mach_div on a line of its own behind.
static std::vector<float*> number_order(int version, afl_struct& a, int RT, int Re) {
    static float dropped;
    float *re_num = &a.re_num[RT][Re], *t_rat = &a.t_rat[RT], *mach_div = &a.mach_div[RT];
    float *clM = &a.clM[RT][Re], *clB = &a.clB[RT][Re], *almin = &a.almin[RT][Re], *almax = &a.almax[RT][Re];
    switch (version) {
        case 700:  // the doubled drag numbers are history; the second occurrence stands
            return {re_num,   t_rat,     mach_div,  clM,        clB,       almin,     almax,     &a.Llinrange,
                    &a.Lpow,  &a.Lstall, &a.Ldrop1, &a.Lpowstl, &a.Ldrop2, &a.Dmin,   &a.DminCL, &a.Dal10,
                    &a.Dpow,  &a.DminCL, &a.Dal10,  &a.Dpow,    &a.Bloc,   &a.Bwidth, &a.Bdepth, &a.Bpower,
                    &a.cmal2, &a.cmal3,  &a.cm1,    &a.cm2,     &a.cm3,    &a.cm4};
        case 650:
            return {re_num,     t_rat,     mach_div,  clM,       clB,       &a.Lpow,  &a.Lstall, &a.Ldrop1,
                    &a.Lpowstl, &a.Ldrop2, &a.Dmin,   &a.DminCL, &a.Dal10,  &a.Dpow,  &a.DminCL, &a.Dal10,
                    &a.Dpow,    &a.Bloc,   &a.Bwidth, &a.Bdepth, &a.Bpower, &a.cmal2, &a.cmal3,  &a.cm1,
                    &a.cm2,     &a.cm3,    &a.cm4,    almin,     almax};
        case 641:
            return {re_num,    t_rat,      mach_div,  &dropped,  clM,       clB,       &a.Lpow,  &a.Lstall,
                    &a.Ldrop1, &a.Lpowstl, &a.Ldrop2, &a.Dmin,   &a.DminCL, &a.Dal10,  &a.Dpow,  &a.DminCL,
                    &a.Dal10,  &a.Dpow,    &a.Bloc,   &a.Bwidth, &a.Bdepth, &a.Bpower, &a.cmal2, &a.cmal3,
                    &a.cm1,    &a.cm2,     &a.cm3,    &a.cm4,    almin,     almax};
        default:  // 613 and 363
            return {t_rat,     re_num,    almin,     almax,      clB,       clM,     &a.Lpow,
                    &a.Lstall, &a.Ldrop1, &a.Ldrop2, &a.Lpowstl, &a.DminCL, &a.Dmin, &a.Dal10,
                    &a.Dpow,   &a.cmal2,  &a.cmal3,  &a.cm1,     &a.cm2,    &a.cm3,  &a.cm4,
                    &a.Bwidth, &a.Bdepth, &a.Bpower, &a.Bloc};
    }
}

static void read_table(foil_text& text, afl_struct& a, int RT, int Re) {
    text.rest_of_line();  // of the numbers
    text.rest_of_line();  // the heading of the columns
    for (int i = 0; i < aflDIM && !text.failed(); ++i) {
        text.number();  // alpha, which the row's place already tells
        a.cl[RT][Re][i] = text.number();
        a.cd[RT][Re][i] = text.number();
        a.cm[RT][Re][i] = text.number();
    }
}

static void read_body(foil_text& text, int version, afl_struct& a, int RT, int Re) {
    if (version < 700) a.Llinrange = old_Llinrange;
    if (version <= 613) text.word();
    for (float* number : number_order(version, a, RT, Re)) *number = text.number();
    if (version > 613) {
        read_table(text, a, RT, Re);
        return;
    }
    a.mach_div[RT] = old_mach_div;
    if (version == 613) {
        text.rest_of_line();
        a.mach_div[RT] = text.number();
    }
}

// Reads a slot. Gives the version, 0 when none fits. A fault of the content comes back as the lines
// to show; without one the first line is empty.
static int read_afl(afl_struct& a, int RT, int Re, const std::string& path, alert_lines& fault) {
    int version = 0;
    for (int v : afl_versions) {
        if (!inf_open(path, ftype_afl, v, 0)) continue;
        version = v;
        break;
    }
    if (!version) return 0;
    foil_text text(inf[inf_use]);
    inf_close();

    text.rest_of_line();  // behind the version number
    const int device = text.whole_number();
    if (!text.failed() && device != afl_device) {
        fault = {{"This does not appear to be a valid Airfoil for Wingwright!", path, "", ""}};
        return version;
    }
    text.rest_of_line();
    if (!text.failed()) read_body(text, version, a, RT, Re);
    if (text.failed()) {
        fault = {{"File-scanning error!", path, "", ""}};
        return version;
    }
    a.re_num[RT][Re] = fltlim(a.re_num[RT][Re], 0.0f, 9999.0f);
    a.t_rat[RT] = fltlim(a.t_rat[RT], 0.0f, 1.0f);
    if (version <= 613 && !gen_polar_tables(&a, RT, Re))
        fault = {{"I have generated a NAN value for this aifoil:", path, afl_bad_parameter_text, ""}};
    return version;
}

// Decimal form without exponent; precision -1 is the shortest that reads back as the same float.
static std::string decimal(float value, int precision = -1) {
    char digits[64];
    constexpr auto fixed = std::chars_format::fixed;
    const std::to_chars_result end =
        precision < 0 ? std::to_chars(digits, digits + sizeof digits, value, fixed)
                      : std::to_chars(digits, digits + sizeof digits, value, fixed, precision);
    return std::string(digits, end.ptr);
}

static std::string padded(const std::string& text, size_t width) {
    return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}

static int write_afl(afl_struct& a, int RT, int Re, const std::string& path) {
    if (!ouf_open(path, ftype_afl, 700)) return 0;
    ouf << afl_device << " device type code\n";
    const char* gap = "";
    for (const float* number : number_order(700, a, RT, Re)) {
        ouf << gap << decimal(*number);
        gap = " ";
    }
    ouf << "\nalpha cl cd cm:\n";
    for (int i = 0; i < aflDIM; ++i) {
        ouf << padded(decimal(ret_alpha(i), 1), 6);
        for (float coefficient : {a.cl[RT][Re][i], a.cd[RT][Re][i], a.cm[RT][Re][i]})
            ouf << ' ' << padded(decimal(coefficient, 5), 8);
        ouf << '\n';
    }
    return ouf_close() ? 700 : 0;
}

int IO_afl(int IO_type, afl_struct* afl, int RT, int Re, const std::string& path) {
    if (IO_type == 1) return write_afl(*afl, RT, Re, path);
    alert_lines fault;
    const int version = read_afl(*afl, RT, Re, path, fault);
    if (fault.line[0].empty()) return version;
    MACIBM_alert(mnw.top_win, fault.line[0], fault.line[1], fault.line[2], fault.line[3], alert_fatal);
    return 0;
}

// What makes a loaded slot unusable in flight, or null.
static const char* slot_fault(const afl_struct& a, int RT, int Re) {
    constexpr const char* nan_text = "I have found a NAN value for this aifoil:";
    for (int i = 0; i < aflDIM; ++i)
        if (check_nan(a.cl[RT][Re][i]) || check_nan(a.cd[RT][Re][i]) || check_nan(a.cm[RT][Re][i]))
            return nan_text;
    for (int i = 0; i < aflDIM; ++i)
        if (a.cd[RT][Re][i] < 0.0f) return "I have found a NEGATIVE DRAG for this aifoil:";
    // flight divides by the slope to find the angle of zero lift
    const double slope = a.clM[RT][Re];
    if (slope == 0.0 || fabs(a.clB[RT][Re] / slope) >= 1.0e10) return nan_text;
    return nullptr;
}

static void copy_slot(afl_struct& to, int RT, int Re, afl_struct& from) {
    const std::vector<float*> source = number_order(700, from, 0, 0);
    const std::vector<float*> target = number_order(700, to, RT, Re);
    for (size_t i = 0; i < source.size(); ++i) *target[i] = *source[i];
    std::memcpy(to.cl[RT][Re], from.cl[0][0], sizeof from.cl[0][0]);
    std::memcpy(to.cd[RT][Re], from.cd[0][0], sizeof from.cd[0][0]);
    std::memcpy(to.cm[RT][Re], from.cm[0][0], sizeof from.cm[0][0]);
}

// Foils of the load in progress by their first path, each in slot [0][0].
static std::map<std::string, std::unique_ptr<afl_struct>> parsed;
static bool keep_parsed = false;

foil_load_scope::foil_load_scope() {
    parsed.clear();
    keep_parsed = true;
}
foil_load_scope::~foil_load_scope() {
    parsed.clear();
    keep_parsed = false;
}

int load_foil_for_part(const std::string& foil_name, int p, int en, int RT, int Re) {
    if (p < 0 || p >= vehDIM || en < 0 || en >= wingDIM) {
        MACIBM_fatal("Trying to load a foil we do not dim for!");
        return 0;
    }
    const std::string beside = folder_of(veh[p].path) + "airfoils:" + foil_name;
    const std::string common = afl_path + foil_name;
    const auto known = parsed.find(beside);
    if (known != parsed.end()) {
        copy_slot(veh[p].afl[en], RT, Re, *known->second);
        return 1;
    }

    auto foil = std::make_unique<afl_struct>();
    alert_lines fault;
    const std::string user = std::string(veh[p].name) + " " + part_title(en);
    if (!read_afl(*foil, 0, 0, beside, fault)) {
        // A designer's own foil that cannot be read: the program's of that name must not silently fly in its
        // place.
        std::error_code ignored;
        const bool unread = std::filesystem::is_regular_file(set_dir_chars(beside), ignored);
        if (unread || !read_afl(*foil, 0, 0, common, fault)) {
            ACF_fault(p, "An airfoil file could not be found! The airfoil paths I checked are:", beside,
                      common, user + (unread ? ": the first one has a wrong version" : ""));
            return 0;
        }
    }
    if (!fault.line[0].empty()) {
        ACF_fault(p, fault.line[0], fault.line[1], fault.line[2], fault.line[3]);
        return 0;
    }
    if (const char* text = slot_fault(*foil, 0, 0)) {
        ACF_fault(p, text, foil_name, "It is corrupt!", "Throw it away or fix it in Wingwright!");
        return 0;
    }
    copy_slot(veh[p].afl[en], RT, Re, *foil);
    if (keep_parsed) parsed[beside] = std::move(foil);
    return 1;
}
