// Aircraft files from load to flight: a compiled aircraft with fields overwritten by name, cut short or
// of the other byte order, or bytes as they come, through read, range check, completion, design check,
// derivation and the first steps of a flight.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

#include "aircraft/acf_file.h"
#include "aircraft/acf_toml.h"
#include "aircraft/derive.h"
#include "app/headless.h"
#include "app/lab.h"
#include "core/upward.h"
#include "flight/half_step.h"
#include "flight/stepper.h"
#include "memory_file.h"
#include "support.h"
#include "weather/weather_step.h"
#include "weather/wind.h"

namespace {
using fuzzing::must;

class input {
public:
    input(const uint8_t* data, size_t size) : data_(data), left_(size) {}
    bool empty() const { return left_ == 0; }
    const uint8_t* rest() const { return data_; }
    size_t left() const { return left_; }
    uint32_t take(size_t bytes) {
        uint32_t value = 0;
        for (size_t i = 0; i < bytes && left_; ++i, --left_) value = value << 8 | *data_++;
        return value;
    }

private:
    const uint8_t* data_;
    size_t left_;
};

std::string bytes_of(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(in), {});
    must(!bytes.empty());
    return bytes;
}

// The sound files to start from.
const std::vector<std::string>& sound_files() {
    static const std::string folder = std::string(INSTALL_FOLDER) + "Aircraft/General Aviation/";
    static const std::vector<std::string> files = {bytes_of(folder + "Lark 15 Sailplane/Lark 15.acf"),
                                                   bytes_of(folder + "Wren 160 Trainer/Wren 160.acf")};
    return files;
}

float odd_float(float old, input& in) {
    static const float odd[] = {0.0f,    -0.0f,    1.0f,  -1.0f,  0.01f,  1e-6f,   1e-30f,
                                1e-42f,  10.0f,    90.0f, -90.0f, 180.0f, 9999.0f, 1e6f,
                                9.99e8f, -9.99e8f, 1e9f,  3e38f,  NAN,    INFINITY};
    const uint32_t pick = in.take(1);
    if (pick < std::size(odd)) return odd[pick];
    switch (pick % 4) {
        case 0:
            return -old;
        case 1:
            return old * static_cast<float>(in.take(1)) / 32.0f;
        case 2:
            return (static_cast<float>(in.take(2)) - 32768.0f) / 64.0f;
    }
    const uint32_t bits = in.take(4);
    float value;
    memcpy(&value, &bits, sizeof value);
    return value;
}

int odd_int(int old, input& in) {
    static const int odd[] = {0, 1, 2, 3, 9, 10, 11, -1, 0x7fffffff, -0x7fffffff - 1, 0x2e2e2e2e};
    const uint32_t pick = in.take(1);
    if (pick < std::size(odd)) return odd[pick];
    return static_cast<int>(pick % 2 ? static_cast<uint32_t>(old) + pick % 16 - 8 : in.take(4));
}

// Of an array in the file the element to spoil: mostly one that the design uses.
int choose_element(const std::string& bytes, long start, const acf_array_struct& array, input& in) {
    const uint32_t pick = in.take(1);
    if (pick % 8 == 7) return static_cast<int>(pick / 8) % array.count;
    std::vector<int> used;
    for (int i = 0; i < array.count; ++i) {
        const auto first = bytes.begin() + start + long{i} * array.size;
        if (std::any_of(first, first + array.size, [](char c) { return c != 0; })) used.push_back(i);
    }
    return used.empty() ? 0 : used[pick % used.size()];
}

// Overwrites some elements of one field, chosen by its place in the field lists.
void overwrite_field(std::string& bytes, input& in) {
    const auto arrays = acf_arrays(0);
    const uint32_t which = in.take(1) % arrays.size();
    long start = 5;
    for (uint32_t a = 0; a < which; ++a) start += long{arrays[a].count} * arrays[a].size;
    const acf_array_struct& array = arrays[which];
    const veh_field_struct& row = array.fields.rows[static_cast<int>(in.take(2)) % array.fields.count];
    const int element = choose_element(bytes, start, array, in);
    char* const field = &bytes[static_cast<size_t>(start + long{element} * array.size + row.offset)];
    if (row.type == 'c') {
        field[in.take(2) % static_cast<uint32_t>(row.size)] = static_cast<char>(in.take(1));
        return;
    }
    const int words = row.size / 4;
    const int first = static_cast<int>(in.take(2)) % words;
    const int end = std::min(words, first + 1 + static_cast<int>(in.take(1)) % 4);
    for (int w = first; w < end; ++w) {
        if (row.type == 'f') {
            float value;
            memcpy(&value, field + 4 * w, sizeof value);
            value = odd_float(value, in);
            memcpy(field + 4 * w, &value, sizeof value);
        } else {
            int value;
            memcpy(&value, field + 4 * w, sizeof value);
            value = odd_int(value, in);
            memcpy(field + 4 * w, &value, sizeof value);
        }
    }
}

// The same file as a machine of the other byte order writes it.
void turn_byte_order(std::string& bytes) {
    bytes[0] = bytes[0] == 'i' ? 'a' : 'i';
    std::reverse(bytes.begin() + 1, bytes.begin() + 5);
    size_t start = 5;
    for (const acf_array_struct& array : acf_arrays(0))
        for (int i = 0; i < array.count; ++i, start += static_cast<size_t>(array.size))
            for (int r = 0; r < array.fields.count; ++r) {
                const veh_field_struct& row = array.fields.rows[r];
                if (row.type == 'c') continue;
                for (int b = 0; b < row.size; b += 4)
                    std::reverse(bytes.begin() + static_cast<long>(start) + row.offset + b,
                                 bytes.begin() + static_cast<long>(start) + row.offset + b + 4);
            }
}

std::string file_bytes(input& in) {
    const uint32_t kind = in.take(1);
    if (kind % 16 == 15) return std::string(reinterpret_cast<const char*>(in.rest()), in.left());
    std::string bytes = sound_files()[kind & 1];
    const uint32_t cut = kind & 32 ? in.take(3) : 0;
    while (!in.empty()) overwrite_field(bytes, in);
    if (kind & 16) turn_byte_order(bytes);
    if (cut) bytes.resize(5 + cut % (bytes.size() - 5));
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

void must_be_finite() {
    const flt_struct& f = flt[0];
    for (const double v : {f.dob_x, f.dob_y, f.dob_z, f.dob_lat, f.dob_lon, f.dob_ele})
        must(std::isfinite(v));
    for (const float v :
         {f.vx,  f.vy, f.vz, f.P, f.Q,       f.R,      f.Pdot,   f.Qdot,   f.Rdot,  f.psi,  f.the,
          f.phi, f.L,  f.M,  f.N, f.m_total, f.g_nrml, f.g_side, f.g_axil, f.alpha, f.beta, f.l_o_d})
        must(std::isfinite(v));
    for (const float v : f.q) must(std::isfinite(v));
}

// A still system in which only the aircraft changes from run to run.
void start_system() {
    static bool started = false;
    if (!started) {
        fuzzing::catch_alerts();
        headless_start(INSTALL_FOLDER, "", log_to_nothing);
        fuzzing::catch_alerts();
        lab_still_air();
        started = true;
    }
    reset_motion_statics();
    mnw.prd_FM = 1.0f / 64.0f;
    mnw.totl_time = 0.0f;
    mnw.YK_ptch = mnw.YK_roll = mnw.YK_hdng = 0.0f;
    memset(flt[0].fail_stat, 0, sizeof flt[0].fail_stat);
}

void fly() {
    init_flt_0(start_airport, place_runway);
    local_air_step();
    constexpr int frames = 2;  // of two half steps each
    for (int i = 0; i < frames; ++i) {
        update_with_fullsim1(0);
        update_with_fullsim2(0);
        must_be_finite();
    }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    start_system();
    static const fuzzing::memory_file file("acf");
    input in(data, size);
    const int p = in.take(1) % 8 ? 0 : 1;
    const std::string bytes = file_bytes(in);
    file.write(bytes.data(), bytes.size());
    clear_flt(p);
    strcpy(veh[p].path, file.path().c_str());
    bool loaded = false;
    try {
        if (!IO_acf(0, p, 0)) {
            must(veh[p].num_engines == 0 && veh[p].path == file.path());
            return 0;
        }
        must_be_usable(p);
        if (!derive_model(p)) {
            must(p == 1 && veh[p].path[0] == 0 && veh[p].m_empty == 0.0f);
            return 0;
        }
        loaded = true;
        if (p == 0) fly();
    } catch (const fuzzing::fatal& end) {
        must(p == 0);
        must(loaded ? fuzzing::is_flight_text(end.text.line[0]) : fuzzing::is_design_text(end.text));
    }
    return 0;
}
