// Routines of subsystems that do not exist yet: each call stands in its place in the frame and gets its
// neutral answer here. The file shrinks as they are built.
#include <math.h>

#include "aircraft/acf_old.h"
#include "aircraft/draw/geometry.h"
#include "aircraft/weapon_file.h"
#include "app/frame.h"
#include "atc/controllers.h"
#include "cockpit/panel.h"
#include "cockpit/radios.h"
#include "core/input_gate.h"
#include "core/num.h"
#include "core/records.h"
#include "core/seams.h"
#include "core/upward.h"
#include "draw/point_lights.h"
#include "draw/widgets.h"
#include "flight/ai_pilot.h"
#include "flight/autopilot.h"
#include "flight/contact.h"
#include "flight/engines.h"
#include "flight/recording.h"
#include "flight/systems.h"
#include "flight/weapons.h"
#include "net/data_table.h"
#include "net/messages.h"
#include "platform/window.h"
#include "plugins/host.h"
#include "scenery/facades.h"
#include "scenery/library.h"
#include "scenery/old_env.h"
#include "scenery/region.h"
#include "scenery/road_data.h"
#include "scenery/surfaces.h"
#include "scenery/terrain_query.h"
#include "scene/world.h"
#include "sound/chatter.h"
#include "ui/commands.h"
#include "ui/devices.h"
#include "ui/language.h"
#include "ui/logbook.h"
#include "ui/windows.h"
#include "weather/clouds.h"
#include "weather/puffs.h"
#include "weather/real_weather.h"
#include "weather/sky.h"

// -- weather: no report, no stars, no sky colours, no lamps, no cloud volume, no precipitation, no smoke
clou_class clou;
puff_class puff;
star_class star;
skyc_class skyc;
void star_class::star_build() {}
void skyc_class::conditions_init() {}
int skyc_class::any_lites_on(int) { return 0; }
void real_weather_step() {}
void clou_class::cloud_update() {}
void clou_class::blow_region_x(float) {}
void clou_class::blow_region_z(float) {}
float clou_class::ret_wxr_local(float, float, float) { return 0.0f; }
float clou_class::ret_wxr_above(float, float, float) { return 0.0f; }
void puff_class::spawn_puff(float, float, float, float, float, float, float, int, float) {}

// -- scenery: one region, a bare sphere at elevation 0, dry
void check_for_shift(double, double) {}
void load_region(int) {}

// Bare mesh: no decks, roofs, runways or bumps.
bool surface_over_terrain(float, float, int, float*) { return false; }
float surface_detail(float, float) { return 0.0f; }
int read_old_env(int, int, int, int) { return 0; }
bool RoadDef_t::ReadFromDef(const char*) { return true; }
void RoadDef_t::Clear() {}
RoadChain_t* RoadData::AddSimpleSegment(int, unsigned int, unsigned int, const float*, const float*, bool) {
    return nullptr;
}
void RoadData::AddShapePoint(RoadChain_t*, int, const float*) {}
void RoadData::ProcessChains(bool, float, float, float, float) {}
void RoadData::ExtrudeArea(int, const RoadDef_t&, int, int, ExtrudeFunc_f, ReceiveObj_f, void*, void*, void*) {}
void RoadData::Clear() {}
bool ReadFacadeObjFile(const char*, FacadeObj_t&) { return true; }
int FindFloorsForHeight(const FacadeObj_t&, float) { return 0; }
void BuildFacadeObj(const FacadeObj_t&, const Polygon3&, int, const Vector3&, ExtrudeFunc_f, void*) {}
bool io_read_forest(const std::string&, forest_info_struct&) { return true; }
void extrude_forest(const forest_info_struct&, const std::vector<Polygon3>&, ExtrudeFunc_f, void*) {}

// -- drawing: no point lights
void util_point_lite_init(int) {}
void util_point_lite_setref(float, float, float, float, float, float) {}
void util_point_lite_draw(const float*, float, float, float, float, float, int, int, int) {}
void util_point_lite_close() {}

// -- flight: no wheels, systems; controls are the pilot's yoke, tabs, trims and links
void steer_nosewheel() {}
// No forces, but it is known when the gear is below the ground, so that the crash test lives.
void touch_surfaces() { flt[0].onground_any = flt[0].y_agl_mtr < 0.0f; }
void failure_clocks() {}
void system_ice() {}
void system_transponder() {}
void system_fuel_flow() {}
void system_hydraulics() {}
void system_vacuum() {}
void system_cabin_pressure() {}
void system_annunciators() {}
void system_tow_and_jett_lines() {}
void system_electrical_load() {}
void system_tow_or_winch_line() {}
void system_slung_load() {}
void system_water_bomber() {}
void system_arresting_wire() {}
void system_catapult() {}
void manage_gyro(int) {}
void fail_it(int slot) { flt[0].fail_stat[slot] = fail_active; }
void update_with_AI(int) {}
int otto_running() { return 0; }
void zero_path() {}
void snap_save(snap_struct*, int) {}
void snap_recall(snap_struct, snap_struct, float) {}
int IO_wpn(int, int, int, const std::string&, const std::string&, int) { return 0; }
void attach_weapon(int, int) {}
void force_weapons() {}
void integ_weapons(int) {}
void clear_flying_objects() {}

void update_autopilot(int p) {
    flt_struct& f = flt[p];
    const veh_struct& v = veh[p];
    f.FC_ptch = mnw.YK_ptch + v.elev_tab;
    f.FC_hdng = mnw.YK_hdng + v.rudd_tab;
    f.FC_roll = mnw.YK_roll + v.ailn_tab;
    if (fabsf(v.rudd_with_ailn_rat) > 0.01f) f.FC_hdng += f.FC_roll * v.rudd_with_ailn_rat;
    if (fabsf(v.elev_with_flap_rat) > 0.01f) f.FC_ptch += f.handle_rat_act * v.elev_with_flap_rat;
    if (!v.flying_stab_EQ) f.FC_ptch += f.elev_trim;
    f.FC_hdng += f.rudd_trim;
    f.FC_roll += f.ailn_trim;
    f.FC_ptch = fltlim(f.FC_ptch, -1.0f, 1.0f);
    f.FC_hdng = fltlim(f.FC_hdng, -1.0f, 1.0f);
    f.FC_roll = fltlim(f.FC_roll, -1.0f, 1.0f);
    control_engines();
}

// -- aircraft: no older files, no outer picture
int OLD_IO_acf(const std::string&, int) { return 0; }
void load_plane_geo(int, int, int, int) {}

// -- cockpit: no radios, no panel
mors_class mors;
void mors_class::manage() {}
void check_markers() {}
void handle_nav(int) {}
void handle_adf(int) {}
void update_FMS(int) {}
void update_gps_and_bearings() {}
void load_panel() {}

// -- network, data table, plugins, controllers: nobody there
void NET_re_init() {}
void NET_close() {}
void NET_listen() {}
void NET_send(const char*, const char*, int, int) {}
int NET_is_up() { return 0; }
int has_multiplayer() { return 0; }
void NET_send_stat(int) {}
void NET_send_vehn(int, int) {}
void NET_send_snap(int, int) {}
void data_rows_to_graph() {}
void data_rows_to_file() {}
void data_rows_to_net() {}
void set_dataoutput_params() {}
void TVPInitializePlugins(const char*) {}
void TVPShutdownPlugins() {}
int TVPGetNumberPlanesToHandle(int num_acf, int) { return num_acf; }
void TVPUpdatePlaneNameAndPath(int, const char*, const char*) {}
void TVPEventHook(int, float, float, long, long) {}
void handle_plan() {}
void handle_vectors() {}
void LSO_respond() {}
int atc_is_talking() { return 0; }
void clear_atc_and_plan() {}
void hand_over_plan() {}
int TVPHandleMenu(int) { return 0; }
int TVPCheckMenu(int) { return 0; }
int TVPMenuIsDisabled(int) { return 0; }
void send_airport_to_instructor(int) {}
void poke_zoom(int) {}
void poke_pan(float, float) {}
void dialog_opensave(int, int, std::string*, std::string*) {}

// -- interface: no preferences, menus, settings windows, logbook, chatter, key file, devices
void manage_apt() {}
void manage_dat() {}
void manage_wxr() {}
void manage_tim() {}
void manage_wgt() {}
void manage_rel() {}
void manage_acf() {}
void manage_qfl() {}
void manage_snd() {}
void manage_ren() {}
void manage_fdr() {}
void manage_joy() {}
void manage_wrn() {}
void manage_map() {}
void manage_wrl() {}
void manage_log() {}
void manage_ins() {}
void manage_env() {}
void manage_vew() {}
void manage_pln() {}
void stop_fire() {}
void stop_starter() {}
void logbook_read() {}
void logbook_entry() {}
void load_radio_chatter() {}
void read_key_file() {}
void JOY_init() {}
void JOY_close() {}
void JOY_get() { mouse_flies(); }
void init_hardware_out() {}
void close_hardware_out(int) {}

// -- scene: the plain view stands for the world renderer
void init_world_rendering() { DSF_ScanSceneryFolder(); }
void build_DLs() {}
void scene_state_step() {}
void WORLD_scene_all_cases() {
    scene_state_step();
    seam.draw_world();
}
