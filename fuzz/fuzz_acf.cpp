// Aircraft files from load to flight: a compiled aircraft, without engines or with engines and propellers
// of any kind, with fields overwritten by name or cut short, or bytes as they come, through read, range
// check, completion, design check, derivation and the first steps of a flight.
#include <sys/mman.h>

#include <memory>

#include "aircraft/deflect.h"
#include "aircraft/derive/derive.h"
#include "aircraft/file/acf_file.h"
#include "aircraft/file/acf_toml_write.h"
#include "aircraft/io_acf.h"
#include "app/lab/headless.h"
#include "app/lab/lab.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/upward.h"
#include "flight/fullsim.h"
#include "flight/mass_motion.h"
#include "flight/pilots/pilot_input.h"
#include "support.h"
#include "weather/weather_step.h"
#include "weather/wind.h"

namespace {
using fuzzing::input;
using fuzzing::must;

// Where array a of the file starts.
long array_start(size_t a) {
    const auto arrays = acf_arrays(0);
    long start = 5;  // behind the header
    for (size_t i = 0; i < a; ++i) start += long{arrays[i].count} * arrays[i].size;
    return start;
}

std::vector<char> bytes_of(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::vector<char> bytes(std::istreambuf_iterator<char>(in), {});
    must(static_cast<long>(bytes.size()) == acf_file_size);
    return bytes;
}

// A sound file to start from. It lies open in memory: a run changes a few bytes of it and puts them back.
class sound_file {
public:
    explicit sound_file(const std::vector<char>& bytes)
        : sound_(bytes), fd_(memfd_create("tarvane-fuzz", 0)) {
        write(0, sound_.data(), sound_.size());
        const auto arrays = acf_arrays(0);
        for (size_t a = 0; a < arrays.size(); ++a) {
            used_.emplace_back();
            for (int i = 0; i < arrays[a].count; ++i) {
                const auto first = bytes.begin() + array_start(a) + long{i} * arrays[a].size;
                if (std::any_of(first, first + arrays[a].size, [](char c) { return c != 0; }))
                    used_.back().push_back(i);
            }
        }
    }
    std::string path() const { return "/proc/self/fd/" + std::to_string(fd_); }
    // Elements of array a that the design uses.
    const std::vector<int>& used(size_t a) const { return used_[a]; }
    template <class T>
    T sound(long at) const {
        T value;
        memcpy(&value, &sound_[static_cast<size_t>(at)], sizeof value);
        return value;
    }
    template <class T>
    void set(long at, T value) {
        write(at, &value, sizeof value);
        changed_.push_back({at, sizeof value});
    }
    void cut(long size) {
        must(ftruncate(fd_, size) == 0);
        changed_.push_back({size, sound_.size() - static_cast<size_t>(size)});
    }
    void put_back() {
        for (const auto& [at, size] : changed_) write(at, &sound_[static_cast<size_t>(at)], size);
        changed_.clear();
    }

private:
    void write(long at, const void* bytes, size_t size) {
        must(pwrite(fd_, bytes, size, at) == static_cast<ssize_t>(size));
    }

    std::vector<char> sound_;
    int fd_;
    std::vector<std::vector<int>> used_;
    std::vector<std::pair<long, size_t>> changed_;
};

// The twin with a third disc that no engine turns, and what jets and rockets need, whatever kind they become.
std::vector<char> powered_file(const std::string& twin) {
    static const fuzzing::folder folder;
    constexpr int p = 1;
    veh_struct& v = veh[p];
    strcpy(v.path, twin.c_str());
    must(acf_read_record(p));
    v.num_thrustpoints = 3;
    v.engn[2] = v.engn[1];
    v.wing[2] = v.wing[1];
    v.part[2] = v.part[1];
    v.part[2].part_x = 0.0f;
    v.rev_thrust_EQ = v.beta_prop_EQ = 1;
    v.throt_max_REV = v.rotor_mi_rat = v.spool_time_jet = 1.0f;
    v.reversed_pitch = -15.0f;
    v.max_mach_eff = 0.9f;
    v.thrust_max = v.rock_max_sl = v.rock_max_opt = v.rock_max_vac = 900.0f;
    v.burner_inc = 300.0f;
    v.face_jet = v.face_rocket = 2.0f;
    v.lift_fan_rat = 0.3f;
    strcpy(v.path, folder.write("powered.acf", std::string()).c_str());
    must(IO_acf(1, p, 0));
    return bytes_of(folder.path() + "powered.acf");
}

constexpr uint32_t designs = 4;  // the last two are both the powered one

sound_file& sound(uint32_t design) {
    static std::vector<std::unique_ptr<sound_file>> files;
    if (files.empty()) {
        const std::string folder = INSTALL_FOLDER "Aircraft/General Aviation/";
        for (const auto& bytes : {bytes_of(folder + "Lark 15 Sailplane/Lark 15.acf"),
                                  bytes_of(folder + "Wren 160 Trainer/Wren 160.acf"),
                                  powered_file(folder + "Dunlin 400 Twin/Dunlin 400.acf")})
            files.push_back(std::make_unique<sound_file>(bytes));
    }
    return *files[std::min(design, 2u)];
}

float odd_float(float old, input& in) {
    static const float odd[] = {0.0f,    -0.0f,    1.0f,  -1.0f,  0.01f,  1e-6f,   1e-30f,
                                1e-42f,  10.0f,    90.0f, -90.0f, 180.0f, 9999.0f, 1e6f,
                                9.99e8f, -9.99e8f, 1e9f,  3e38f,  NAN,    INFINITY};
    const uint32_t pick = in.byte();
    if (pick < std::size(odd)) return odd[pick];
    if (pick % 4 == 0) return -old;
    if (pick % 4 == 1) return old * static_cast<float>(in.byte()) / 32.0f;
    if (pick % 4 == 2) return (static_cast<float>(in.word()) - 32768.0f) / 64.0f;
    return in.value<float>();
}

int odd_int(int old, input& in) {
    static const int odd[] = {0, 1, 2, 3, 9, 10, 11, -1, 0x7fffffff, -0x7fffffff - 1, 0x2e2e2e2e};
    const uint32_t pick = in.byte();
    if (pick < std::size(odd)) return odd[pick];
    return pick % 2 ? static_cast<int>(static_cast<uint32_t>(old) + pick % 16 - 8) : in.value<int>();
}

// Of array a the element to spoil: mostly one that the design uses.
int choose_element(const sound_file& file, size_t a, int count, input& in) {
    const uint32_t pick = in.byte();
    const std::vector<int>& used = file.used(a);
    if (pick % 8 == 7) return static_cast<int>(pick / 8) % count;
    return used.empty() ? 0 : used[pick % used.size()];
}

// Overwrites some elements of one field, chosen by its place in the field lists.
void overwrite_field(sound_file& file, input& in) {
    const auto arrays = acf_arrays(0);
    const size_t which = in.byte() % arrays.size();
    const acf_array_struct& array = arrays[which];
    const veh_field_struct& row = array.fields.rows[static_cast<int>(in.word()) % array.fields.count];
    const int element = choose_element(file, which, array.count, in);
    const long field = array_start(which) + long{element} * array.size + row.offset;
    const int place = static_cast<int>(in.word());
    if (row.type == 'c') return file.set(field + place % row.size, in.value<char>());
    const int words = row.size / 4, first = place % words;
    const int end = std::min(words, first + 1 + static_cast<int>(in.byte()) % 4);
    for (int w = first; w < end; ++w) {
        const long at = field + 4 * w;
        if (row.type == 'f')
            file.set(at, odd_float(file.sound<float>(at), in));
        else
            file.set(at, odd_int(file.sound<int>(at), in));
    }
}

// Any kind of engine with any kind of propeller; both engines and the driven disc are of one kind or not.
void choose_engines(sound_file& file, input& in) {
    for (int en = 0; en < 3; ++en) {
        const long engn = array_start(1) + en * long{sizeof(veh_engn_struct)};
        const uint32_t prop_type = in.byte() % prop_kinds;
        file.set(engn + offsetof(veh_engn_struct, engn_type), in.byte() % engn_kinds);
        file.set(engn + offsetof(veh_engn_struct, prop_type), prop_type);
        if (prop_type == prop_fixed)
            file.set(engn + offsetof(veh_engn_struct, max_pitch),
                     file.sound<float>(engn + offsetof(veh_engn_struct, min_pitch)));
    }
}

// The file that the input describes, written where it says; gives its path.
std::string write_file(input& in) {
    static const fuzzing::folder folder;
    const uint32_t kind = in.byte();
    if (kind % 16 == 15) return folder.write("part.acf", in.bytes());
    const uint32_t design = kind % designs, cut = kind & 32 ? in.value<uint32_t>() : 0;
    sound_file& file = sound(design);
    if (design >= 2) choose_engines(file, in);
    while (!in.done()) overwrite_field(file, in);
    if (cut) file.cut(5 + cut % (acf_file_size - 5));
    return file.path();
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
}

void check_flight() {
    const flt_struct& f = flt[0];
    fuzzing::must_be_finite({f.dob_x,  f.dob_y, f.dob_z, f.dob_lat, f.dob_lon, f.dob_ele, f.vx,     f.vy,
                             f.vz,     f.P,     f.Q,     f.R,       f.Pdot,    f.Qdot,    f.Rdot,   f.psi,
                             f.the,    f.phi,   f.L,     f.M,       f.N,       f.m_total, f.g_nrml, f.g_side,
                             f.g_axil, f.alpha, f.beta,  f.l_o_d,   f.q[0],    f.q[1],    f.q[2],   f.q[3]});
    for (const flt_engn_struct& e : f.engn)
        fuzzing::must_be_finite({e.thro_use, e.N1, e.N2, e.MPR, e.EPR, e.TRQ_nm, e.FF_kgs, e.power,
                                 e.tacrad_ENGN, e.tacrad_PROP, e.thrust, e.DVinc, e.side_wash,
                                 e.pitch_deg_use});
    for (const flt_wing_struct& w : f.wing)
        fuzzing::must_be_finite({w.ail1_def, w.elev_def, w.rud1_def, w.fla1_def, w.spo1_def,
                                 w.elem_inc_inc[0], w.elem_inc_inc[elDIM - 1]});
    for (const float ratio : {f.sbrk_rat, f.handle_rat_act, f.handle_rat_req, f.vect_rat, f.swdi_rat})
        must(fltrange(ratio, 0.0f, 1.0f));
    for (const veh_gear_struct& gear : veh[0].gear) must(fltrange(gear.dep_rat, 0.0f, 1.0f));
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
    reset_motion();
    mnw.prd_FM = 1.0f / 64.0f;
    mnw.totl_time = 0.0f;
    mnw.YK_ptch = mnw.YK_roll = mnw.YK_hdng = 0.0f;
    memset(flt[0].fail_stat, 0, sizeof flt[0].fail_stat);
}

// How the flight begins: what the last bytes of an input leave free comes first.
struct flight_plan {
    bool in_the_air, running, at_every_lever;
    uint32_t prop_mode, seed;
    float lever;
};

void set_levers(const flight_plan& plan) {
    for (int en = 0; en < engnDIM; ++en) {
        flt_engn_struct& e = flt[0].engn[en];
        if (plan.at_every_lever || en == 0) e.thro_ref = e.thro_use = plan.lever;
        e.prop_mode = static_cast<int>(plan.prop_mode);
        e.burner_on = plan.lever > 0.8f;
    }
}

// Anything that a pilot may ask for from one frame to the next.
void move_controls() {
    flt_struct& f = flt[0];
    for (float* control :
         {&mnw.YK_ptch, &mnw.YK_roll, &mnw.YK_hdng, &f.elev_trim, &f.ailn_trim, &f.rudd_trim, &f.sbrk_rqst})
        *control = flt_rand(-1.0f, 1.0f);
    for (float* control : {&f.handle_rat_req, &f.vect_rqst, &f.swdi_rqst}) *control = flt_rand(0.0f, 1.0f);
    f.gear_handle = int_rand(0, 1);
}

void fly(const flight_plan& plan) {
    stg.start_running = plan.running;
    init_flt_0(start_airport, plan.in_the_air ? place_final_3 : place_runway);
    set_levers(plan);
    rand_seed(plan.seed);
    local_air_step();
    constexpr int frames = 4;  // of two half steps each
    for (int i = 0; i < frames; ++i) {
        move_controls();
        update_with_fullsim1(0);
        update_def_angles(0);
        update_with_fullsim2(0);
        check_flight();
    }
}

// The design that the slot then holds flies, or ends in one of the known texts.
void run(int p, const std::string& path, const flight_plan& plan, bool to_text) {
    bool loaded = false;
    try {
        if (!IO_acf(0, p, 0)) return must(veh[p].num_engines == 0 && veh[p].path == path);
        must_be_usable(p);
        if (to_text) acf_to_toml(p);
        if (!derive_model(p)) return must(p == 1 && veh[p].path[0] == 0 && veh[p].m_empty == 0.0f);
        loaded = true;
        if (p == 0) fly(plan);
    } catch (const fuzzing::fatal& end) {
        must(p == 0);
        must(loaded ? fuzzing::flight_texts.count(end.text.line[0]) != 0 : fuzzing::is_design_text(end.text));
    }
}
}  // namespace

void fuzz_acf(input& in) {
    start_system();
    const uint32_t ways = in.byte(), modes = in.byte(), seed = in.byte();
    const int p = ways % 8 ? 0 : 1;
    const float lever = static_cast<float>(in.byte()) / 255.0f;
    const flight_plan plan = {
        (modes & 1) != 0, (modes & 2) == 0, (modes & 4) == 0, modes / 8 % 4, seed, lever};
    const std::string path = write_file(in);
    clear_flt(p);
    strcpy(veh[p].path, path.c_str());
    run(p, path, plan, ways / 8 == 31);
    for (uint32_t design = 0; design < designs; ++design) sound(design).put_back();
}
