// Aircraft files: a sound file with fields overwritten by name, cut short or of the other byte order, or
// bytes as they come, through read, range check, completion and design check.
#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>

#include "../tests/support/sample_acf.h"
#include "acf_mutation.h"
#include "aircraft/acf_file.h"
#include "aircraft/acf_toml.h"
#include "memory_file.h"
#include "support.h"

namespace {
using fuzzing::input;
using fuzzing::must;

// The sound file to start from.
const std::string& sample_bytes() {
    static const std::string bytes = [] {
        const fuzzing::memory_file text("toml"), file("acf");
        text.write(sample_acf_toml, strlen(sample_acf_toml));
        std::string error;
        must(acf_from_toml(text.path(), 1, &error));
        strcpy(veh[1].path, file.path().c_str());
        must(IO_acf(1, 1, 0));
        std::ifstream in(file.path(), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }();
    return bytes;
}

void must_be_usable(int p) {
    const veh_struct& v = veh[p];
    must(v.num_engines >= 0 && v.num_engines <= v.num_thrustpoints && v.num_thrustpoints <= engnDIM);
    must(v.gear_steer_EN >= 0 && v.gear_steer_EN < gearDIM);
    for (int en = part_wing_first; en < wingDIM; ++en) {
        if (!v.part[en].part_eq) continue;
        must(v.wing[en].els >= 1 && v.wing[en].els <= elDIM);
        for (int el = 0; el < v.wing[en].els; ++el) must(!std::isnan(v.wing[en].el_s[el]));
    }
    for (int en = part_body_first; en < partDIM; ++en)
        must(v.part[en].s_dim >= 0 && v.part[en].s_dim <= part_sDIM && v.part[en].r_dim <= part_rDIM);
    acf_to_toml(p);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzzing::start();
    static const fuzzing::memory_file file("read.acf");
    input in(data, size);
    const int p = static_cast<int>(in.take(1) & 1);
    const std::string bytes = fuzzing::file_bytes(sample_bytes(), in);
    file.write(bytes.data(), bytes.size());
    strcpy(veh[p].path, file.path().c_str());
    try {
        if (IO_acf(0, p, 0))
            must_be_usable(p);
        else
            must(veh[p].num_engines == 0 && veh[p].path == file.path());
    } catch (const fuzzing::fatal& end) {
        must(p == 0 && end.text.line[3].rfind("Fix this problem in Hullwright.", 0) == 0);
    }
    return 0;
}
