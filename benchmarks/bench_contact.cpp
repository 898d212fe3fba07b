// Surface contact: an aircraft of ten legs, four wing tips and five bodies on a runway and beside it, the
// terrain queries below it, and how many of a taxiing aircraft's queries find their ground at once.
#include <benchmark/benchmark.h>
#include <string.h>

#include "aircraft/design/exists.h"
#include "app/lab/headless.h"
#include "app/lab/lab.h"
#include "core/math/num.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "flight/ground/contact.h"
#include "scenery/airports/strips.h"
#include "scenery/ground/surfaces.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/nav/nav_tables.h"

namespace {
constexpr int stations = 20;
constexpr float frame = 1.0f / 64.0f;

// Where the aircraft stands.
void add_runway() {
    vec_apt_struct& apt = vec_apt.emplace_back();
    vec_rwy_struct& rwy = apt.rwy.emplace_back();
    snprintf(rwy.num_str, sizeof rwy.num_str, "36x");
    rwy.lat = static_cast<float>(flt[0].dob_lat), rwy.lon = static_cast<float>(flt[0].dob_lon);
    rwy.psi_true = flt[0].psi, rwy.len = 3000.0f, rwy.width = 60.0f, rwy.roughness = 0.25f;
    rwy.surf_tex = surface_concrete;
    msc.loc_apt_wrl = static_cast<int>(vec_apt.size()) - 1;
    UTIL_build_runways(msc.loc_apt_wrl);
}

// Copies of a leg and of the fuselage.
void grow_legs_and_bodies() {
    veh_struct& v = veh[0];
    const veh_gear_struct leg = v.gear[1];
    for (int en = 1; en < gearDIM; ++en) {
        v.gear[en] = leg;
        v.gear[en].x_nodef = (en % 2 ? 0.2f : -0.2f) * static_cast<float>(en + 2);
    }
    veh_part_struct hull = v.part[part_fuse_first];
    hull.s_dim = stations;
    for (int s = 1; s < stations; ++s) memcpy(hull.geo_xyz[s], hull.geo_xyz[0], sizeof hull.geo_xyz[0]);
    for (int en = part_fuse_first; en < part_fuse_first + 5; ++en) v.part[en] = hull;
}

void stand(bool on_runway) {
    headless_start(INSTALL_FOLDER, INSTALL_FOLDER "Aircraft/General Aviation/Wren 160 Trainer/Wren 160.acf",
                   log_to_nothing);
    lab_still_air();
    stg.start_running = 0;
    init_flt_0(start_airport, place_runway);
    if (on_runway) add_runway();
    for (int i = 0; i < 640; ++i) lab_frame(frame);
}

int points_of_contact() {
    int count = 0;
    for (int en = 0; en < gearDIM; ++en) count += has_this_gear(0, en);
    for (int en = part_wing_first; en <= part_wing_last; ++en) count += has_this_wing(0, en);
    for (int en = part_body_first; en <= part_nace_last; ++en)
        if (has_this_body(0, en)) count += (veh[0].part[en].s_dim + 1) / 2 * 2;
    return count;
}

// Nothing moves: every half step is the same.
void half_step_of_contact(benchmark::State& state) {
    stand(state.range(0) != 0);
    grow_legs_and_bodies();
    for (auto _ : state) touch_surfaces();
    state.counters["points"] = points_of_contact();
    state.counters["down"] = flt[0].onground_all;
    state.counters["runway"] = env.over_rwy_this;
}
BENCHMARK(half_step_of_contact)->ArgName("runway")->Arg(1)->Arg(0)->Unit(benchmark::kMicrosecond);

void terrain_query(benchmark::State& state) {
    stand(state.range(1) != 0);
    const auto x = static_cast<float>(flt[0].dob_x), z = static_cast<float>(flt[0].dob_z);
    const int checker = static_cast<int>(state.range(0));
    for (auto _ : state) benchmark::DoNotOptimize(return_terrain_y(x, z, checker));
}
BENCHMARK(terrain_query)
    ->ArgNames({"checker", "runway"})
    ->ArgsProduct({{checker_tire_first, checker_part_first}, {0, 1}});

// Three minutes off the runway, over the edges of triangles.
void taxi(benchmark::State& state) {
    stand(false);
    long fast = 0, slow = 0;
    for (auto _ : state) {
        flt[0].vx = 12.0f * sin_deg(flt[0].psi), flt[0].vz = -12.0f * cos_deg(flt[0].psi);
        lab_frame(frame);
        fast += ren.num_fas_finds, slow += ren.num_slo_finds;
        ren.num_fas_finds = ren.num_slo_finds = 0;
    }
    state.counters["fast_percent"] = 100.0 * static_cast<double>(fast) / static_cast<double>(fast + slow);
    state.counters["queries"] = static_cast<double>(fast + slow) / static_cast<double>(state.iterations());
}
BENCHMARK(taxi)->Iterations(64 * 180)->Unit(benchmark::kMicrosecond);
}  // namespace

BENCHMARK_MAIN();
