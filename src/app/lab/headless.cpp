// Headless runs.
#include "app/lab/headless.h"

#include <string.h>

#include <filesystem>

#include "aircraft/draw/geometry.h"
#include "aircraft/file/acf_fault.h"
#include "app/app_update.h"
#include "app/frame.h"
#include "app/init_sim.h"
#include "app/slots/heartbeat.h"
#include "app/slots/warnings.h"
#include "app/start/load_plane.h"
#include "app/world_flight.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/clocks.h"
#include "core/program/input_gate.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "draw/images/screenshot.h"
#include "draw/widgets/widgets.h"
#include "flight/ground/contact.h"
#include "flight/instruments.h"
#include "flight/landing_report.h"
#include "flight/mass_motion.h"
#include "flight/pilots/pilot_input.h"
#include "platform/window.h"
#include "scene/airport_search.h"
#include "scene/airports_in_view.h"
#include "scene/aurora.h"
#include "scene/effects/balloons.h"
#include "scene/effects/rain.h"
#include "scene/effects/windshield.h"
#include "scene/frame_report.h"
#include "scene/overlay/blackouts.h"
#include "scene/planet.h"
#include "scene/world.h"
#include "scenery/draw/airports_draw.h"
#include "scenery/draw/terrain_draw.h"
#include "scenery/ground/ground_phase.h"
#include "scenery/ground/region.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/region/region_lists.h"
#include "scenery/region/survey_land.h"
#include "ui/keys/mouse_yoke.h"
#include "ui/screens/clicks.h"
#include "ui/text/language.h"
#include "ui/views/zoom.h"
#include "weather/atmosphere.h"
#include "weather/sky/lightning.h"
#include "weather/sky/skyc.h"
#include "weather/wind.h"

namespace {
// Whatever keeps something between frames, beside the records.
void (*const resets[])() = {
    reset_clocks,        reset_input_gate,   reset_frame,          reset_app_update,     reset_world_flight,
    reset_heartbeat,     reset_warnings,     reset_pilot_input,    reset_motion,         reset_instruments,
    wind_reset,          forget_faulty_acf,  reset_screenshot,     reset_mouse_yoke,     reset_clicks,
    reset_widgets,       forget_nav_tables,  reset_terrain_draw,   reset_frame_report,   reset_region,
    reset_region_lists,  reset_ground_phase, reset_landing_report, reset_airport_search, reset_contact,
    reset_airports_draw, reset_skyc,         reset_lightning,      reset_aurora,         reset_planet,
    reset_plane_geo,     reset_views,        reset_world_scene,    reset_blackouts,    reset_airports_in_view,
    reset_rain,          reset_windshield,   reset_balloons,
};

}  // namespace

void start_in_the_air() {
    constexpr float over_reference = 1.1f;
    stg.cus_lat = 34.0954f;
    stg.cus_lon = -117.2349f;
    stg.cus_alt = 3000.0f;
    stg.cus_psi = 0.0f;
    const float sigma = find_standard_rho(env.planet, stg.cus_alt) * inv_rho_sl;
    stg.cus_v = over_reference * veh[0].V_ref_ms / sqrtf(fltmax2(sigma, 0.1f));
    init_flt_0(start_custom, 0);
}

void headless_start(const std::string& install_folder, const std::string& acf_file, log_target logs) {
    seams_headless();
    rand_seed(1);
    for (void (*reset)() : resets) reset();
    init_records(install_folder, logs);
    init_gen();
    stand_on_survey_land();
    // where they have been built: what is told of an aircraft names its parts
    if (std::error_code ignored;
        std::filesystem::is_regular_file(set_dir_chars(txt_path + "english:Tarvane.txt"), ignored))
        MACIBM_read_texts();
    have_done_first_update = 1;
    const std::string path = acf_file.empty() ? install_folder + stg.def_pln_path : acf_file;
    snprintf(veh[0].path, sizeof veh[0].path, "%s", path.c_str());
    load_plane(0);
    start_in_the_air();
    MACIBM_startwind(win_fly, "headless");
}

void headless_frame() {
    step_virtual_clock(headless_pass);
    MACIBM_event_proc();
}

namespace {
// FNV-1a, 64 bits.
struct hasher {
    unsigned long long h = 14695981039346656037ull;
    template <class T>
    void add(const T& value) {
        unsigned char bytes[sizeof(T)];
        memcpy(bytes, &value, sizeof(T));
        for (const unsigned char b : bytes) h = (h ^ b) * 1099511628211ull;
    }
};
}  // namespace

unsigned long long flight_state_hash() {
    const flt_struct& f = flt[0];
    hasher hash;
    for (const double v : {f.dob_x, f.dob_y, f.dob_z, f.dob_lat, f.dob_lon, f.dob_ele}) hash.add(v);
    for (const float v : f.q) hash.add(v);
    for (const float v : {f.vx,       f.vy,          f.vz,           f.P,      f.Q, f.R, f.psi, f.the,
                          f.phi,      f.alpha,       f.beta,         f.AV_msc, f.L, f.M, f.N,   f.v_ind_kts,
                          f.h_ind_ft, f.com_ind_mag, f.slip_ind_deg, f.m_total})
        hash.add(v);
    for (const flt_wing_struct& w : f.wing)
        for (int el = 0; el < elDIM; ++el) {
            hash.add(w.v_el[el][0]);
            hash.add(w.alpha_el[el][0]);
            hash.add(w.downwash_deg[el]);
        }
    for (const flt_engn_struct& e : f.engn)
        for (const float v :
             {e.tacrad_ENGN, e.tacrad_PROP, e.N1, e.N2, e.thrust, e.drag_TRQ, e.DVinc, e.FF_kgs, e.ITT, e.EGT,
              e.CHT, e.OILT, e.pitch_deg_ref, e.cyclic_elev_disc_tilt})
            hash.add(v);
    for (const float v : {mnw.prd_FM, mnw.totl_time, mnw.real_time}) hash.add(v);
    return hash.h;
}
