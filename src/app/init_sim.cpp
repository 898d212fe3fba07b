// Start-up in its fixed order, and shutdown.
#include "app/init_sim.h"

#include <fstream>

#include "app/alert_show.h"
#include "app/start/load_plane.h"
#include "app/start/traffic.h"
#include "atc/controllers.h"
#include "cockpit/panel.h"
#include "core/disk/paths.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/alert.h"
#include "core/program/jobs.h"
#include "core/program/logs.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "draw/gl/colours.h"
#include "draw/gl/gl_facts.h"
#include "draw/gl/ogl.h"
#include "draw/widgets/menus.h"
#include "net/messages.h"
#include "platform/window.h"
#include "plugins/host.h"
#include "scene/flying_view.h"
#include "scene/world.h"
#include "scenery/draw/scenery_gl.h"
#include "scenery/ground/region.h"
#include "scenery/nav/planet_nav.h"
#include "scenery/region/region_tiles.h"
#include "sound/chatter.h"
#include "sound/sound.h"
#include "ui/devices.h"
#include "ui/screens/clicks.h"
#include "ui/screens/first_start.h"
#include "ui/screens/menu_state.h"
#include "ui/screens/start_screen.h"
#include "ui/settings/logbook.h"
#include "ui/settings/prefs.h"
#include "ui/text/language.h"
#include "weather/atmosphere.h"
#include "weather/clouds.h"

namespace {
template <int size>
void set_text(char (&to)[size], const char* from) {
    snprintf(to, size, "%s", from);
}

// -- defaults, before preferences and the first flight

void default_aircraft_and_airport() {
    set_text(stg.def_apt_idst, "KSBD");
    set_text(stg.def_pln_path, "Aircraft:Heavy Metal:B747-400 United:United-Air.acf");
    set_text(stg.def_pln_file, "United-Air.acf");
    set_text(stg.acf_path_shuttle, "Aircraft:Space Ships:Space Shuttle:Shuttle Orbiter.acf");
    set_text(stg.acf_path_tow, "Aircraft:General Aviation:Piper_PA-46-310:Piper Malibu.acf");
    set_text(stg.acf_path_ref_airforce, "Aircraft:Heavy Metal:KC-10:KC-10.acf");
    set_text(stg.acf_path_ref_navy, "Aircraft:Heavy Metal:KC-10:KC-10.acf");
    set_text(stg.acf_path_carry, "Aircraft:Heavy Metal:B-52G NASA:B-52G NASA.acf");
    stg.ref_v_ktas = 400.0f;
    stg.car_v_ktas = 500.0f;
    stg.ref_alt_ft = 25000.0f;
    stg.car_alt_ft = 45000.0f;
    msc.log_pilot = "Tarvane Pilot.txt";
    set_text(msc.apt_id_str, "KSBD");
}

void default_time() {
    mnw.locl_date_jan1 = 90;
    mnw.locl_time = 28800.0f;
    mnw.zulu_time = fltwrap(mnw.locl_time + 28800.0f, 0.0f, 86400.0f);
}

void default_joystick() {
    mnw.joy_AXIS_use[0] = axis_roll;
    mnw.joy_AXIS_use[1] = axis_ptch;
    mnw.joy_AXIS_use[3] = axis_thro;
    mnw.joy_rev_axis[3] = 1;
    for (float& v : mnw.PFC_thro_min) v = 9999.9f;
    for (float& v : mnw.PFC_thro_max) v = -9999.9f;
}

void default_settings() {
    stg.text_out = stg.warn_bb = stg.num_acf = 1;
    stg.draw_objs_05 = stg.draw_vecs_03 = stg.draw_planet = stg.draw_boats = stg.draw_misc = 1;
    stg.draw_texlites = stg.draw_fires = stg.draw_gload = stg.auto_coord_helos = stg.start_running = 1;
    stg.reset_on_crash = stg.warn_text = stg.warn_frame = 1;
    stg.LOD_bias_rat = 1.0f;
    stg.draw_reso_04 = 2;
    stg.cus_alt = 5000.0f * con.fttomtrs;
    stg.cus_v = 200.0f * con.ktstomsc;
    stg.real_MTBF_hours = 1000.0f;
    mnw.radio_chatter_on = 1;
    mnw.prd_max = 0.08f;
}

void default_radios() {
    for (int radio = 0; radio < 2; ++radio) {
        nav.Nfreq[radio] = nav.NfreqSTDBY[radio] = 11170;
        nav.Cfreq[radio] = nav.CfreqSTDBY[radio] = 12100;
    }
    for (int radio = 2; radio < 4; ++radio) nav.Nfreq[radio] = nav.NfreqSTDBY[radio] = 210;
    nav.Nfreq[5] = 11170;
    nav.transponder = 1200;
    nav.marker_aud = 1;
    nav.audio_sel = 10;
    nav.gps_type = 1;
    nav.gps_use_index = nav.gps_apt_index = 1600;
    nav.gps_vor_index = 2100;
    nav.gps_ndb_index = 700;
    nav.gps_fix_index = 0;
    nav.baro_setting_HG = 29.92f;
}

void default_net_and_view() {
    for (int& d : net.mp_dig) d = 128;
    net.data_rate = 20.0f;
    for (auto& port : net.their_port_str) set_text(port, "49000");
    ren.apt_lite_rat = 1.0f;
    ren.hud_brt = ren.pan_brt = ren.ins_brt = 0.75f;
    ren.FOV = 45.0f;
    ren.wpn_to_track = -1;
    // the starter region; paging moves it
    env.lat_sou = 33.0f;
    env.lon_wes = -119.0f;
    atm.vis_frmult = 1.0f;
}

// Frame periods and the screen asked for, before the resolution preferences are read.
void default_screen() {
    mnw.x_res_req = 1024;
    mnw.y_res_req = 768;
    mnw.col_res_req = 32;
    mnw.set_res_req = 1;
    mnw.tex_res = 3;
    mnw.lang = -1;
    mnw.keylist_up = 1;
    mnw.prd_FM = mnw.prd_UI = 0.02f;
    mnw.rt_rat_FM = mnw.rt_rat_UI = 1.0f;
    mnw.first_miss_cycle = 1;
    mnw.menu_up = -1;
    mnw.entry_field = -1;
    mnw.mx = 0.5f * XRES;
    mnw.my = 0.5f * YRES;
}

void limit_periods_from_file() {
    if (!(mnw.prd_FM >= 0.001f && mnw.prd_FM <= 0.08f)) mnw.prd_FM = 0.02f;
    if (!(mnw.prd_UI >= 0.0001f && mnw.prd_UI <= 9999.9f)) mnw.prd_UI = 0.02f;
}

void graphics_are_missing() {
    const std::ofstream emptied(set_dir_chars(res_path), std::ios::trunc);  // the next start takes the defaults
    MACIBM_alert(
        0,
        "I could not set up the graphics for Tarvane! I hope your monitor is at 1024x768 or higher! It must "
        "be!",
        "You do not meet the system requirements or you do not have OpenGL drivers or you entered a bad "
        "resolution in Tarvane!",
        "You need at least 256 meg of RAM, 16 meg of VRAM, and OpenGl drivers for your 3-D accelerator card!",
        "If you reset the resolution, you can try launching Tarvane again, since I am resetting Tarvane to "
        "default resolution now.",
        alert_fatal);
}

void draw_background() {
    OGL_view_2d();
    OGL_plot_background();
}

// What is drawn, and where alerts go, once there is a window.
void draw_in_window() {
    window_fixed_gl_state();
    platform_install_seams();
    seam.draw_world = flying_view_draw;
    seam.draw_background = draw_background;
    seam.draw_overlay = overlay_draw;
    menus_ask_program();
}

// The window, unless nobody would see it.
void open_window() {
    handle_prefs(0, 6, res_path);
    limit_periods_from_file();
    compute_screen_scale();
    if (seam.has_display) {
        if (!MACIBM_setres(1) || !MACIBM_getcontext()) graphics_are_missing();
        read_gl_facts();
        draw_in_window();
    }
    load_interface_images();
    // before its images a window could not show what it says
    if (seam.has_display && seam.has_user) alerts_in_window();
    warn_of_slow_graphics();
    MACIBM_clear_menus(1);
    MACIBM_startwind(-1, "initial init");
    g_done = 0;
    choose_language();
    MACIBM_setupforlang(0);
    show_start_notes();
}

void init_devices() {
    mnw.vol_rat = 1.0f;
    MACIBM_showinit("Will init sound.");
    mnw.sound_on = mnw.sound_avail = soun.SOUND_init();
    MACIBM_showinit("Will init speech.");
    mnw.voice_on = mnw.voice_avail = 0;
    MACIBM_showinit("Will init joy.");
    JOY_init();
    MACIBM_showinit("Will init plugins.");
    TVPInitializePlugins(app_path.c_str());
    MACIBM_showinit("Starting application.");
}

// Up to 99 values, as many as the clock says.
void draw_dummy_values() {
    constexpr long long largest_seed = 32000;
    long long seed = seam.epoch_microsec();
    while (seed > largest_seed) seed /= 2;
    for (long long i = 0; i < seed % 100; ++i) rand31();
}

// Every start for a user has a wind, weather and traffic of its own; a run without one repeats.
void MACIBM_init(const std::string& install_folder) {
    if (seam.has_user) rand_seed(static_cast<unsigned>(seam.epoch_microsec()));
    init_records(install_folder);
    if (seam.has_user) draw_dummy_values();
    open_window();
    init_devices();
}

void load_other_aircraft() {
    const int planes = TVPGetNumberPlanesToHandle(stg.num_acf, 1);
    for (int p = 1; p < planes; ++p) {
        if (get_random_plane(p)) init_flt_p_other_ai(p);
    }
}

void start_network_if_used() {
    for (const int use : net.use_ip)
        if (use) return NET_re_init();
}

void choose_first_window() {
    if (net.use_ip[ip_master_ios]) mnw.top_win = win_map_ios;
    if (mnw.start_qfl) mnw.top_win = win_qfl;
    if (net.use_ip[ip_master_ios] || mnw.start_qfl) clou.cloud_update();
}
}  // namespace

void init_records(const std::string& install_folder, log_target logs) {
    clear_records();
    if (logs == log_to_files) open_logs();
    init_rand_rat();
    init_paths(install_folder);
    THREAD_Init();
    init_con();
    ren.current_alpha = 1.0f;
    colours_init();
    default_screen();
    alert_seam.finish = MACIBM_finishup;
    scenery_draw = scenery_draw_gl;
    region_steps = region_of_scenery;
}

void init_gen() {
    load_radio_chatter();
    read_key_file();
    default_aircraft_and_airport();
    set_planet_specs(0);
    init_weather_defaults();
    default_time();
    default_joystick();
    default_settings();
    default_radios();
    default_net_and_view();
}

void init_sim(const std::string& install_folder, void (*own_settings)()) {
    clear_atc_and_plan();
    MACIBM_init(install_folder);
    MACIBM_showinit("Will init gen.");
    init_gen();
    if (own_settings) own_settings();
    MACIBM_showinit("Will init graphics world.");
    init_world_rendering();
    MACIBM_showinit("Will build display lists.");
    build_DLs();
    MACIBM_showinit("Will init hardware out.");
    init_hardware_out();
    MACIBM_showinit("Will read logbook.");
    logbook_read();
    MACIBM_showinit("Will load your plane.");
    set_text(veh[0].path, (app_path + stg.def_pln_path).c_str());
    load_plane(0);
    MACIBM_showinit("Will read nav data.");
    read_planet_nav();
    load_other_aircraft();
    start_network_if_used();
    init_flt_0(start_airport, stg.start_ramp ? place_ramp : place_runway);
    begin_user_flight_steady(start_airport);
    choose_first_window();
}

void MACIBM_finishup(int is_normal_exit) {
    THREAD_Cleanup();
    if (is_normal_exit) {
        handle_prefs(0, 7, res_path);
        handle_prefs(1, 7, gen_path);
    }
    TVPShutdownPlugins();
    close_hardware_out(1);
    MACIBM_setres(0);
    NET_close();
    JOY_close();
    soun.SOUND_close();
    window_close();
    close_logs();
}
