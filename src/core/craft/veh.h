// The aircraft record: file image and live definition at once.
// Role: one field list drives the structs, the offsets, the file reader and writer, the byte swap,
// the text forms of the tools and the tests. Knows nothing of how a field is derived.
//
// Each row: offset in its record, type, name, dimensions, role, meaning with the unit of the file.
//   file   the designer's; converted to SI by load_plane
//   load   derived at load, whatever the file brought (in_downwash and spec_wash are only added to)
//   run    changed by the simulation
//   spare  room that nothing reads
// Locations are in feet from the designer's datum, x right, y up, z aft; after load_plane in metres
// from the centre of gravity.
#pragma once
#include <cstddef>

#include "core/craft/afl.h"
#include "core/craft/part_ranges.h"

enum veh_role : int { veh_role_file, veh_role_load, veh_role_run, veh_role_spare };

// Kinds stored as integers in the file.
enum engn_kind : int {
    engn_recip_carb = 0, engn_recip_inj = 1, engn_turb_free = 2, engn_electric = 3,
    engn_jet_lo = 4, engn_jet_hi = 5, engn_rocket = 6, engn_tip_rocket = 7, engn_turb_fixed = 8,
    engn_kinds = 9,
};
enum prop_kind : int {
    prop_fixed = 0, prop_constant = 1, prop_manual = 2, prop_collective = 3, prop_tip_mach = 4,
    prop_tail_rotor = 5, prop_lift_fan = 6, prop_governed_rotor = 7, prop_kinds = 8,
};
enum gear_kind : int {
    gear_none = 0, gear_skid = 1, gear_one = 2, gear_two_lat = 3, gear_two_long = 4, gear_four_2x2 = 5,
    gear_six_2x3 = 6, gear_four_lat = 7, gear_eight = 8, gear_three_lat = 9, gear_kinds = 10,
};
enum door_kind : int { door_none = 0, door_early = 1, door_with_gear = 2, door_passage = 3, door_kinds = 4 };
constexpr int cockpit_kinds = 8;   // default panel pictures
constexpr int ins_type_max = 630;  // highest instrument type; -1 marks an empty slot

// clang-format off
#define VEH_BLOCK_FIELDS(X) \
    X(     0, int  , is_hm                     ,            , load , "flag, set at load when the file lies under the Heavy Metal folder") \
    X(     4, int  , is_ga                     ,            , load , "flag, set at load when the file lies under the General Aviation folder") \
    X(     8, int  , old_cus_layers            ,            , file , "non-zero selects the older panel drawing path") \
    X(    12, char , name                      , [500]      , run  , "file name of the aircraft; never taken from the file, restored after reading") \
    X(   512, char , path                      , [500]      , run  , "full path of the aircraft; never taken from the file, restored after reading") \
    X(  1012, char , tailnum                   , [40]       , file , "tail number, text; cut to 6 characters at load") \
    X(  1052, char , author                    , [500]      , file , "author text; cut to 112 characters at load") \
    X(  1552, char , descrip                   , [500]      , file , "description text; cut to 112 characters at load") \
    X(  2052, char , ICAO                      , [40]       , file , "type designator text, 39 characters at most") \
    X(  2092, float, Vmca_kts                  ,            , file , "minimum control speed, kt") \
    X(  2096, float, Vso_kts                   ,            , file , "stall speed in landing configuration, kt; also sets V_ref_ms") \
    X(  2100, float, Vs_kts                    ,            , file , "clean stall speed, kt") \
    X(  2104, float, Vyse_kts                  ,            , file , "best single-engine climb speed, kt") \
    X(  2108, float, Vfe_kts                   ,            , file , "flap limit speed, kt") \
    X(  2112, float, Vle_kts                   ,            , file , "gear limit speed, kt") \
    X(  2116, float, Vno_kts                   ,            , file , "normal operating limit speed, kt") \
    X(  2120, float, Vne_kts                   ,            , file , "never-exceed speed, kt") \
    X(  2124, float, Mmo                       ,            , file , "limit Mach number") \
    X(  2128, float, Gneg                      ,            , file , "negative load limit, g") \
    X(  2132, float, Gpos                      ,            , file , "positive load limit, g") \
    X(  2136, int  , has_lanlite1              ,            , file , "landing light 1 present") \
    X(  2140, float, lanlite1_xyz              , [3]        , file , "landing light 1 location, ft from the datum") \
    X(  2152, int  , has_lanlite2              ,            , file , "landing light 2 present") \
    X(  2156, float, lanlite2_xyz              , [3]        , file , "landing light 2 location, ft") \
    X(  2168, int  , has_taxilite              ,            , file , "taxi light present") \
    X(  2172, float, taxilite_xyz              , [3]        , file , "taxi light location, ft") \
    X(  2184, int  , has_fuserb1               ,            , file , "fuselage beacon 1 present") \
    X(  2188, float, fuserb1_xyz               , [3]        , file , "fuselage beacon 1 location, ft") \
    X(  2200, int  , has_fuserb2               ,            , file , "fuselage beacon 2 present") \
    X(  2204, float, fuserb2_xyz               , [3]        , file , "fuselage beacon 2 location, ft") \
    X(  2216, int  , has_taillite              ,            , file , "tail light present") \
    X(  2220, float, taillite_xyz              , [3]        , file , "tail light location, ft") \
    X(  2232, int  , has_refuel                ,            , file , "refuelling point present") \
    X(  2236, float, refuel_xyz                , [3]        , file , "refuelling point location, ft") \
    X(  2248, int  , has_navlites              ,            , file , "navigation lights present") \
    X(  2252, float, pe_xyz                    , [3]        , file , "pilot eye point, ft") \
    X(  2264, int  , cockpit_M_inn             ,            , run  , "object handle of the inner cockpit model, -1 when absent; overwritten at load") \
    X(  2268, float, cockpit_xyz               , [3]        , file , "location of the 3-D cockpit model, ft") \
    X(  2280, float, lanliteC_xyz              , [3]        , load , "mean of the landing lights") \
    X(  2292, int  , plot_OBJ7_cock            , [3]        , file , "per view class: draw the cockpit object") \
    X(  2304, int  , plot_outer_acf            , [3]        , file , "per view class: draw the outer airframe") \
    X(  2316, int  , plot_inner_acf            , [3]        , file , "per view class: draw the inner airframe") \
    X(  2328, float, yawstring_x               ,            , file , "yaw string x on the panel, pixels; zero or less means none") \
    X(  2332, float, yawstring_y               ,            , file , "yaw string y on the panel, pixels") \
    X(  2336, float, HUD_ctr_x                 ,            , file , "head-up display centre x, pixels") \
    X(  2340, float, HUD_ctr_y                 , [9]        , file , "head-up display centre y for each of the nine panel views, pixels") \
    X(  2376, float, HUD_del_x                 ,            , file , "head-up display width, pixels") \
    X(  2380, float, HUD_del_y                 ,            , file , "head-up display height, pixels") \
    X(  2384, float, big_panel_pix_default     ,            , file , "panel scroll offset in pixels that the centred view shows") \
    X(  2388, float, stall_warn_aoa            ,            , file , "angle of attack at which the stall warning sounds, deg") \
    X(  2392, int  , lan_lite_steers           ,            , file , "landing light turns with the nosewheel steering") \
    X(  2396, float, lan_lite_power            ,            , file , "landing light brightness ratio") \
    X(  2400, float, lan_lite_width            ,            , file , "landing light beam half width, deg") \
    X(  2404, float, lan_lite_psi_ref          ,            , file , "landing light beam heading reference, deg") \
    X(  2408, float, lan_lite_psi_off          ,            , file , "landing light beam heading offset, deg, user-adjustable within -90 to 90") \
    X(  2412, float, lan_lite_the_ref          ,            , file , "landing light beam pitch reference, deg") \
    X(  2416, float, lan_lite_the_off          ,            , file , "landing light beam pitch offset, deg, user-adjustable within -90 to 90") \
    X(  2420, float, tow_hook_Y                ,            , file , "tow hook height, ft") \
    X(  2424, float, tow_hook_Z                ,            , file , "tow hook longitudinal location, ft") \
    X(  2428, float, win_hook_Y                ,            , file , "winch hook height, ft") \
    X(  2432, float, win_hook_Z                ,            , file , "winch hook longitudinal location, ft") \
    X(  2436, int  , has_HOOPS_HUD             ,            , file , "selects the head-up display kind") \
    X(  2440, int  , asi_is_kts                ,            , file , "airspeed instruments read knots; zero means statute miles per hour") \
    X(  2444, int  , cockpit_type              ,            , file , "default panel selection") \
    X(  2448, int  , warn1_EQ                  ,            , file , "warning option 1 present") \
    X(  2452, int  , warn2_EQ                  ,            , file , "warning option 2 present") \
    X(  2456, int  , is_glossy                 ,            , file , "airframe is drawn with a specular shine") \
    X(  2460, int  , cus_rnd_use               , [50]       , file , "custom round gauge slot in use, 50 slots") \
    X(  2660, float, cus_rnd_lo_val            , [50]       , file , "gauge value at the low end") \
    X(  2860, float, cus_rnd_hi_val            , [50]       , file , "gauge value at the high end") \
    X(  3060, float, cus_rnd_lo_ang            , [50]       , file , "needle angle at the low end, deg") \
    X(  3260, float, cus_rnd_hi_ang            , [50]       , file , "needle angle at the high end, deg") \
    X(  3460, int  , cus_rnd_mirror            , [50]       , file , "needle is mirrored") \
    X(  3660, int  , cus_non_lin               , [50]       , file , "scale is non-linear around cus_doub_val") \
    X(  3860, float, cus_doub_val              , [50]       , file , "value that stands at the middle of a non-linear scale") \
    X(  4060, int  , cus_rnd_label             , [50]       , file , "gauge label selection") \
    X(  4260, int  , cus_dig_use               , [50]       , file , "custom digital readout slot in use") \
    X(  4460, float, cus_dig_offset            , [50]       , file , "readout offset") \
    X(  4660, float, cus_dig_scale             , [50]       , file , "readout scale") \
    X(  4860, int  , cus_dig_dig               , [50]       , file , "digits shown") \
    X(  5060, int  , cus_dig_dec               , [50]       , file , "decimals shown") \
    X(  5260, int  , ins_type                  , [300]      , file , "panel instrument type per slot, -1 marks an empty slot") \
    X(  6460, float, ins_size                  , [300]      , file , "instrument size factor") \
    X(  7660, float, ins_x                     , [300]      , file , "instrument x on the panel, pixels") \
    X(  8860, float, ins_y                     , [300]      , file , "instrument y on the panel, pixels") \
    X( 10060, int  , num_engines               ,            , file , "engines, 0 to 8; zero makes a glider") \
    X( 10064, int  , num_thrustpoints          ,            , file , "thrust points, 0 to 8, at least num_engines; a thrust point beyond the engines is a driven prop or fan") \
    X( 10068, float, throt_max_FWD             ,            , file , "highest forward throttle ratio") \
    X( 10072, float, throt_max_REV             ,            , file , "highest reverse throttle ratio") \
    X( 10076, float, idle_rat                  , [2]        , file , "idle ratio for low and high idle, indexed by the idle-speed switch") \
    X( 10084, int  , linked_prop_EQ            ,            , file , "all props are coupled on one shaft system") \
    X( 10088, int  , drive_by_wire_EQ          ,            , file , "rpm and mixture are held automatically") \
    X( 10092, int  , beta_prop_EQ              ,            , file , "prop has a beta range") \
    X( 10096, int  , rev_thrust_EQ             ,            , file , "reverse thrust present") \
    X( 10100, int  , auto_feather_EQ           ,            , file , "automatic feathering present") \
    X( 10104, int  , feather_with_prop_EQ      ,            , file , "prop lever at its low stop feathers the prop") \
    X( 10108, int  , auto_rpm_EQ               ,            , file , "rpm follows the throttle") \
    X( 10112, float, feathered_pitch           ,            , file , "blade pitch when feathered, deg") \
    X( 10116, float, reversed_pitch            ,            , file , "blade pitch at full reverse, deg") \
    X( 10120, float, rotor_mi_rat              ,            , file , "multiplier on the computed rotor mass") \
    X( 10124, float, tip_weight                ,            , file , "rotor tip weight per blade, lb") \
    X( 10128, float, tip_mach_des_100          ,            , file , "design tip Mach at 100% power, for the Mach-scheduled prop") \
    X( 10132, float, tip_mach_des_50           ,            , file , "design tip Mach at 50% power") \
    X( 10136, float, power_max                 ,            , file , "maximum shaft power, hp") \
    X( 10140, float, crit_alt_prop             ,            , file , "critical altitude of a propeller engine, ft") \
    X( 10144, float, trans_loss                ,            , file , "transmission loss, ratio of maximum torque") \
    X( 10148, float, MP_max                    ,            , file , "maximum manifold pressure, in Hg") \
    X( 10152, float, trq_max_eng               ,            , load , "power_max/RSC_redline_ENGN, N m") \
    X( 10156, float, max_boost_pas_prop        ,            , load , "greatest boost from the critical altitude, Pa") \
    X( 10160, float, RSC_idlespeed_ENGN        ,            , file , "engine idle, rpm in the file, rad/s after load") \
    X( 10164, float, RSC_redline_ENGN          ,            , file , "engine redline, rpm") \
    X( 10168, float, RSC_idlespeed_PROP        ,            , load , "prop idle speed") \
    X( 10172, float, RSC_redline_PROP          ,            , load , "prop redline") \
    X( 10176, float, RSC_mingreen_ENGN         ,            , file , "engine green arc low end, rpm") \
    X( 10180, float, RSC_maxgreen_ENGN         ,            , file , "engine green arc high end, rpm") \
    X( 10184, float, RSC_mingreen_PROP         ,            , load , "prop green arc low end") \
    X( 10188, float, RSC_maxgreen_PROP         ,            , load , "prop green arc high end") \
    X( 10192, float, auto_omega_idle           ,            , file , "rotor speed scheduled at idle with one-lever control, rpm") \
    X( 10196, float, auto_omega_open           ,            , file , "rotor speed at full throttle position, rpm") \
    X( 10200, float, auto_omega_fire           ,            , file , "rotor speed at the top of the lever, rpm") \
    X( 10204, float, thrust_max                ,            , file , "maximum jet thrust, lb") \
    X( 10208, float, burner_inc                ,            , file , "afterburner thrust increment, lb") \
    X( 10212, float, max_mach_eff              ,            , file , "Mach up to which the inlet keeps full efficiency") \
    X( 10216, float, crit_alt_jet              ,            , file , "critical altitude of a jet, ft") \
    X( 10220, float, face_jet                  ,            , file , "jet face area, sq ft") \
    X( 10224, float, lift_fan_rat              ,            , file , "share of the jet power that a lift fan takes") \
    X( 10228, float, EPR_max                   ,            , load , "1 + thrust_max/(face_jet x sea-level pressure)") \
    X( 10232, float, max_boost_pas_jet         ,            , load , "greatest boost of a jet, Pa") \
    X( 10236, float, rock_max_sl               ,            , file , "rocket thrust at sea level, lb") \
    X( 10240, float, rock_max_opt              ,            , file , "rocket thrust at the optimum height, lb") \
    X( 10244, float, rock_max_vac              ,            , file , "rocket thrust in vacuum, lb") \
    X( 10248, float, rock_h_opt                ,            , file , "rocket optimum height, ft") \
    X( 10252, float, face_rocket               ,            , file , "rocket nozzle area, sq ft") \
    X( 10256, float, fuel_intro_time_prop      ,            , file , "time for fuel to reach full effect in a propeller engine, s") \
    X( 10260, float, throt_time_prop           ,            , file , "throttle lag of a propeller engine, s") \
    X( 10264, float, inertia_rat_prop          ,            , file , "multiplier on the engine moment of inertia") \
    X( 10268, float, fuel_intro_time_jet       ,            , file , "time for fuel to reach full effect in a jet, s") \
    X( 10272, float, throt_time_jet            ,            , file , "throttle lag of a jet, s") \
    X( 10276, float, spool_time_jet            ,            , file , "jet spool time scale, s") \
    X( 10280, float, max_ITT                   ,            , file , "gauge maximum ITT, deg C") \
    X( 10284, float, max_EGT                   ,            , file , "gauge maximum EGT, deg F") \
    X( 10288, float, max_CHT                   ,            , file , "gauge maximum CHT, deg F") \
    X( 10292, float, max_OILP                  ,            , file , "gauge maximum oil pressure, psi") \
    X( 10296, float, max_OILT                  ,            , file , "gauge maximum oil temperature, deg F") \
    X( 10300, float, max_FUELP                 ,            , file , "gauge maximum fuel pressure, psi") \
    X( 10304, float, snd_kias                  ,            , file , "airspeed at which the wind sound is at reference pitch, kt") \
    X( 10308, float, snd_rpm_prp               ,            , file , "prop rpm at which the prop sound is at reference pitch") \
    X( 10312, float, snd_rpm_eng               ,            , file , "engine rpm at which the engine sound is at reference pitch") \
    X( 10316, float, snd_N1                    ,            , file , "N1 at which the jet sound is at reference pitch, percent") \
    X( 10320, float, exhaust_os_xyz            , [3]        , file , "exhaust point offset from the engine, ft") \
    X( 10332, float, exhaust_rat               ,            , file , "exhaust smoke ratio") \
    X( 10336, float, starter_rat               ,            , file , "starter strength ratio") \
    X( 10340, float, battery_rat               ,            , file , "battery capacity ratio") \
    X( 10344, int  , ff_hydraulic              ,            , file , "hydraulic system present") \
    X( 10348, int  , ff_stickshaker            ,            , file , "stick shaker present") \
    X( 10352, float, manual_reversion_rat      ,            , file , "control authority left without hydraulics, ratio") \
    X( 10356, float, max_press_diff            ,            , file , "cabin pressure limit, psi; Pa after load") \
    X( 10360, float, ail1_up                   ,            , file , "aileron 1 up travel, deg") \
    X( 10364, float, ail1_dn                   ,            , file , "aileron 1 down travel, deg") \
    X( 10368, float, ail1_cratR                ,            , file , "aileron 1 chord ratio at the root") \
    X( 10372, float, ail1_cratT                ,            , file , "aileron 1 chord ratio at the tip") \
    X( 10376, float, ail2_up                   ,            , file , "aileron 2 up travel, deg") \
    X( 10380, float, ail2_dn                   ,            , file , "aileron 2 down travel, deg") \
    X( 10384, float, ail2_cratR                ,            , file , "aileron 2 chord ratio at the root") \
    X( 10388, float, ail2_cratT                ,            , file , "aileron 2 chord ratio at the tip") \
    X( 10392, float, spo1_up                   ,            , file , "spoiler 1 up travel, deg") \
    X( 10396, float, spo1_cratR                ,            , file , "spoiler 1 chord ratio at the root") \
    X( 10400, float, spo1_cratT                ,            , file , "spoiler 1 chord ratio at the tip") \
    X( 10404, float, roll_to_eng_spo1          ,            , file , "roll command below which spoiler 1 stays down, ratio") \
    X( 10408, float, spo2_up                   ,            , file , "spoiler 2 up travel, deg") \
    X( 10412, float, spo2_cratR                ,            , file , "spoiler 2 chord ratio at the root") \
    X( 10416, float, spo2_cratT                ,            , file , "spoiler 2 chord ratio at the tip") \
    X( 10420, float, roll_to_eng_spo2          ,            , file , "roll command below which spoiler 2 stays down, ratio") \
    X( 10424, float, yawb_ud                   ,            , file , "drag rudder (yaw brake) opening, deg") \
    X( 10428, float, yawb_cratR                ,            , file , "yaw brake chord ratio at the root") \
    X( 10432, float, yawb_cratT                ,            , file , "yaw brake chord ratio at the tip") \
    X( 10436, float, elev_up                   ,            , file , "elevator up travel, deg") \
    X( 10440, float, elev_dn                   ,            , file , "elevator down travel, deg") \
    X( 10444, float, elev_cratR                ,            , file , "elevator chord ratio at the root") \
    X( 10448, float, elev_cratT                ,            , file , "elevator chord ratio at the tip") \
    X( 10452, float, rud1_lr                   ,            , file , "rudder 1 travel each way, deg") \
    X( 10456, float, rud1_cratR                ,            , file , "rudder 1 chord ratio at the root") \
    X( 10460, float, rud1_cratT                ,            , file , "rudder 1 chord ratio at the tip") \
    X( 10464, float, rud2_lr                   ,            , file , "rudder 2 travel each way, deg") \
    X( 10468, float, rud2_cratR                ,            , file , "rudder 2 chord ratio at the root") \
    X( 10472, float, rud2_cratT                ,            , file , "rudder 2 chord ratio at the tip") \
    X( 10476, float, fla1_cratR                ,            , file , "flap 1 chord ratio at the root") \
    X( 10480, float, fla1_cratT                ,            , file , "flap 1 chord ratio at the tip") \
    X( 10484, float, fla2_cratR                ,            , file , "flap 2 chord ratio at the root") \
    X( 10488, float, fla2_cratT                ,            , file , "flap 2 chord ratio at the tip") \
    X( 10492, float, sbrk_cratR                ,            , file , "wing speedbrake chord ratio at the root") \
    X( 10496, float, sbrk_cratT                ,            , file , "wing speedbrake chord ratio at the tip") \
    X( 10500, int  , con_smooth                ,            , file , "control effect smoothing class, 0 to 3") \
    X( 10504, float, sbrk_up                   ,            , file , "speedbrake deflection, deg") \
    X( 10508, float, takeoff_trim              ,            , file , "elevator trim for take-off, -1 to 1") \
    X( 10512, float, hstb_trim_up              ,            , file , "stabiliser travel at full nose-up trim, deg") \
    X( 10516, float, hstb_trim_dn              ,            , file , "stabiliser travel at full nose-down trim, deg") \
    X( 10520, float, min_trim_elev             ,            , file , "elevator trim range downwards, ratio") \
    X( 10524, float, max_trim_elev             ,            , file , "elevator trim range upwards, ratio") \
    X( 10528, float, elev_trim_speedrat        ,            , file , "elevator trim rate ratio") \
    X( 10532, float, elev_tab                  ,            , file , "fixed elevator tab, ratio") \
    X( 10536, float, min_trim_ailn             ,            , file , "aileron trim range left, ratio") \
    X( 10540, float, max_trim_ailn             ,            , file , "aileron trim range right, ratio") \
    X( 10544, float, ailn_trim_speedrat        ,            , file , "aileron trim rate ratio") \
    X( 10548, float, ailn_tab                  ,            , file , "fixed aileron tab, ratio") \
    X( 10552, float, min_trim_rudd             ,            , file , "rudder trim range left, ratio") \
    X( 10556, float, max_trim_rudd             ,            , file , "rudder trim range right, ratio") \
    X( 10560, float, rudd_trim_speedrat        ,            , file , "rudder trim rate ratio") \
    X( 10564, float, rudd_tab                  ,            , file , "fixed rudder tab, ratio") \
    X( 10568, int  , flap_detents              ,            , file , "flap detents, at most 9 beyond the retracted position") \
    X( 10572, float, flap_deftime              ,            , file , "time to run the flaps through their travel, s") \
    X( 10576, int  , slat_type                 ,            , file , "slat kind") \
    X( 10580, float, slat_inc                  ,            , file , "stall angle gain with full slats, deg") \
    X( 10584, float, slat_dn                   , [10]       , file , "slat ratio per flap detent") \
    X( 10624, int  , fla1_type                 ,            , file , "flap 1 kind; 5 is drawn and read as a special kind, 0 as none") \
    X( 10628, float, fla1_cl                   ,            , file , "flap 1 lift coefficient increment") \
    X( 10632, float, fla1_cd                   ,            , file , "flap 1 drag coefficient increment") \
    X( 10636, float, fla1_cm                   ,            , file , "flap 1 moment coefficient increment") \
    X( 10640, float, fla1_dn                   , [10]       , file , "flap 1 deflection per detent, deg") \
    X( 10680, int  , fla2_type                 ,            , file , "flap 2 kind") \
    X( 10684, float, fla2_cl                   ,            , file , "flap 2 lift coefficient increment") \
    X( 10688, float, fla2_cd                   ,            , file , "flap 2 drag coefficient increment") \
    X( 10692, float, fla2_cm                   ,            , file , "flap 2 moment coefficient increment") \
    X( 10696, float, fla2_dn                   , [10]       , file , "flap 2 deflection per detent, deg") \
    X( 10736, float, blown_flap_add_speed      ,            , file , "blown flap air speed increment, kt") \
    X( 10740, float, blown_flap_throt_red      ,            , file , "blown flap share of thrust") \
    X( 10744, float, blown_flap_min_engag      ,            , file , "lowest flap ratio at which the blowing engages") \
    X( 10748, int  , blow_all_controls         ,            , file , "blowing reaches all controls") \
    X( 10752, int  , flap_EQ                   ,            , load , "flaps present") \
    X( 10756, int  , slat_EQ                   ,            , load , "slats present") \
    X( 10760, int  , sbrk_EQ                   ,            , load , "speedbrakes present") \
    X( 10764, int  , vardihed_EQ               ,            , load , "a wing has variable dihedral") \
    X( 10768, int  , varsweep_EQ               ,            , load , "a wing has variable sweep") \
    X( 10772, int  , varinc_EQ                 ,            , load , "a wing has variable incidence") \
    X( 10776, int  , tailrotor_EQ              ,            , load , "a tail rotor exists") \
    X( 10780, int  , collective_EQ             ,            , load , "a collective-controlled rotor exists") \
    X( 10784, int  , collective_en             ,            , load , "index of that rotor") \
    X( 10788, int  , flying_stab_EQ            ,            , load , "stabiliser moves for trim") \
    X( 10792, int  , in_downwash               , [56][56][10], load , "in_downwash[washee][washer][element]") \
    X(136232, int  , gear_retract              ,            , file , "gear retracts") \
    X(136236, float, gear_door_size            ,            , file , "gear door size ratio") \
    X(136240, float, nw_steerdeg1              ,            , file , "nosewheel steering at low speed, deg") \
    X(136244, float, nw_steerdeg2              ,            , file , "nosewheel steering at high speed, deg") \
    X(136248, float, nw_cutoff_omega           ,            , file , "nosewheel speed above which the steering angle falls, kt; rad/s after load") \
    X(136252, float, nw_side_k                 ,            , file , "nosewheel side force stiffness, lb") \
    X(136256, float, roll_co                   ,            , file , "rolling friction coefficient") \
    X(136260, float, brake_co                  ,            , file , "braking friction coefficient") \
    X(136264, float, wheel_tire_s1             , [2]        , file , "tyre texture left edge for the two tyre views") \
    X(136272, float, wheel_tire_t1             , [2]        , file , "tyre texture bottom edge") \
    X(136280, float, wheel_tire_s2             , [2]        , file , "tyre texture right edge") \
    X(136288, float, wheel_tire_t2             , [2]        , file , "tyre texture top edge") \
    X(136296, float, water_rud_Z               ,            , file , "water rudder longitudinal location, ft") \
    X(136300, float, water_rud_area            ,            , file , "water rudder area, sq ft") \
    X(136304, float, water_rud_maxdef          ,            , file , "water rudder travel, deg") \
    X(136308, float, anchor_xyz                , [3]        , file , "anchor point, ft") \
    X(136320, float, cgY                       ,            , file , "centre of gravity height in designer coordinates, ft; 0 after load") \
    X(136324, float, cgZ                       ,            , file , "centre of gravity longitudinal location in designer coordinates, ft; 0 after load") \
    X(136328, float, cgZ_fwd                   ,            , file , "forward limit of the centre of gravity, ft") \
    X(136332, float, cgZ_aft                   ,            , file , "aft limit of the centre of gravity, ft") \
    X(136336, float, m_empty                   ,            , file , "empty mass, lb") \
    X(136340, float, m_fuel_tot                ,            , file , "fuel capacity, lb") \
    X(136344, float, m_jettison                ,            , file , "jettisonable load, lb") \
    X(136348, float, m_max                     ,            , file , "maximum mass, lb") \
    X(136352, float, m_displaced               ,            , file , "displaced mass in water, lb") \
    X(136356, float, Jxx_unitmass              ,            , file , "pitch radius of gyration in ft when manual_rad_gyr is set; derived, m squared, after load") \
    X(136360, float, Jyy_unitmass              ,            , file , "yaw radius of gyration, as Jxx_unitmass") \
    X(136364, float, Jzz_unitmass              ,            , file , "roll radius of gyration, as Jxx_unitmass") \
    X(136368, int  , num_tanks                 ,            , file , "fuel tanks in use, 0 to 3") \
    X(136372, float, tank_rat                  , [3]        , file , "share of the fuel in each tank, summing to 1") \
    X(136384, float, tank_xyz                  , [3][3]     , file , "tank locations, ft") \
    X(136420, float, jett_len                  ,            , file , "length of the jettison line, ft") \
    X(136424, float, jett_xyz                  , [3]        , file , "jettison point, ft") \
    X(136436, int  , jett_is_slung             ,            , file , "jettisonable load hangs on a line") \
    X(136440, int  , jett_is_water             ,            , file , "jettisonable load is water") \
    X(136444, int  , jett_is_acf               ,            , file , "jettisonable load is an aircraft") \
    X(136448, int  , manual_rad_gyr            ,            , file , "radii of gyration are entered, not computed") \
    X(136452, float, disp_rat                  ,            , file , "displacement ratio of the water drop system") \
    X(136456, float, m_displaced_Y             ,            , file , "centre of displaced volume height, ft") \
    X(136460, int  , vect_EQ                   ,            , file , "thrust vectoring present") \
    X(136464, int  , auto_rpm_with_tvec        ,            , file , "prop rpm command follows the vector position") \
    X(136468, int  , hide_prop_at_90_vect      ,            , file , "prop vanishes at 90 deg of vector") \
    X(136472, float, vect_min_nace             ,            , file , "nacelle angle at vector 0, deg") \
    X(136476, float, vect_max_nace             ,            , file , "nacelle angle at vector 1, deg") \
    X(136480, float, vect_min_disc             ,            , file , "disc angle at vector 0, deg") \
    X(136484, float, vect_max_disc             ,            , file , "disc angle at vector 1, deg") \
    X(136488, float, cyclic_def_elev           ,            , file , "longitudinal cyclic travel, deg") \
    X(136492, float, cyclic_def_ailn           ,            , file , "lateral cyclic travel, deg") \
    X(136496, float, disc_tilt_elev            ,            , file , "longitudinal disc tilt travel, deg") \
    X(136500, float, disc_tilt_ailn            ,            , file , "lateral disc tilt travel, deg") \
    X(136504, float, vectarmY                  ,            , file , "pivot arm of the nacelle, upwards, ft") \
    X(136508, float, vectarmZ                  ,            , file , "pivot arm of the nacelle, aft, ft") \
    X(136512, float, flap_arm                  ,            , file , "rotor flapping hinge offset, ft") \
    X(136516, float, delta3                    ,            , file , "rotor delta-3 angle, deg") \
    X(136520, float, vect_rate                 ,            , file , "vector travel rate, deg/s in the file; full travels per second after load") \
    X(136524, float, stab_delinc_to_Vne        ,            , file , "stabiliser incidence added at Vne_kts, deg") \
    X(136528, float, tail_with_coll            ,            , file , "tail rotor pitch added by collective, deg") \
    X(136532, float, puff_LMN                  , [3]        , file , "reaction jet moments about the three axes, ft lb") \
    X(136544, float, puff_xyz                  , [3]        , file , "reaction jet forces along the three axes, lb") \
    X(136556, float, diff_coll_with_roll       ,            , file , "differential collective with roll, deg") \
    X(136560, float, diff_coll_with_hdng       ,            , file , "differential collective with yaw, deg") \
    X(136564, float, diff_coll_with_ptch       ,            , file , "differential collective with pitch, deg") \
    X(136568, float, diff_cycl_with_hdng_lon   ,            , file , "differential longitudinal cyclic with yaw, deg") \
    X(136572, float, diff_cycl_with_hdng_lat   ,            , file , "differential lateral cyclic with yaw, deg") \
    X(136576, float, rotor_trim_max_fwd        ,            , file , "rotor trim range at full forward stick, deg") \
    X(136580, float, rotor_trim_max_aft        ,            , file , "rotor trim range at full aft stick, deg") \
    X(136584, float, mass_shift                ,            , file , "weight-shift mass, lb") \
    X(136588, float, mass_shift_dx             ,            , file , "lateral weight shift, ft") \
    X(136592, float, mass_shift_dz             ,            , file , "longitudinal weight shift, ft") \
    X(136596, float, wing_tilt_ptch            ,            , file , "wing incidence added by pitch command, deg") \
    X(136600, float, wing_tilt_roll            ,            , file , "wing dihedral moved by roll command, deg") \
    X(136604, float, jato_Y                    ,            , file , "take-off rocket height, ft") \
    X(136608, float, jato_Z                    ,            , file , "take-off rocket longitudinal location, ft") \
    X(136612, float, jato_theta                ,            , file , "take-off rocket angle, deg") \
    X(136616, float, jato_thrust               ,            , file , "take-off rocket thrust, lb") \
    X(136620, float, jato_dur                  ,            , file , "take-off rocket burn time, s") \
    X(136624, float, jato_sfc                  ,            , file , "take-off rocket fuel use") \
    X(136628, float, stab_roll                 ,            , file , "stabiliser deflection per roll command, deg") \
    X(136632, float, rudd_with_ailn_rat        ,            , file , "rudder linked to aileron, ratio") \
    X(136636, float, stab_hdng                 ,            , file , "stabiliser deflection per yaw command, deg") \
    X(136640, float, elev_with_flap_rat        ,            , file , "elevator linked to flap, ratio") \
    X(136644, float, ail1_pitch                ,            , file , "aileron 1 travel per pitch command, deg") \
    X(136648, float, ail1_vmax                 ,            , file , "speed above which aileron 1 locks, kt") \
    X(136652, float, ail2_pitch                ,            , file , "aileron 2 travel per pitch command, deg") \
    X(136656, float, ail2_vmax                 ,            , file , "speed above which aileron 2 locks, kt") \
    X(136660, float, ail1_flaps                ,            , file , "aileron 1 droop with flaps, deg") \
    X(136664, float, spo1_vmax                 ,            , file , "speed above which spoiler 1 locks, kt") \
    X(136668, float, ail2_flaps                ,            , file , "aileron 2 droop with flaps, deg") \
    X(136672, float, spo2_vmax                 ,            , file , "speed above which spoiler 2 locks, kt") \
    X(136676, float, tvec_ptch                 ,            , file , "thrust vector travel per pitch command, deg") \
    X(136680, float, diff_thro_ptch            ,            , file , "differential throttle per pitch command, ratio") \
    X(136684, float, tvec_roll                 ,            , file , "thrust vector travel per roll command, deg") \
    X(136688, float, diff_thro_roll            ,            , file , "differential throttle per roll command, ratio") \
    X(136692, float, tvec_hdng                 ,            , file , "thrust vector travel per yaw command, deg") \
    X(136696, float, diff_thro_hdng            ,            , file , "differential throttle per yaw command, ratio") \
    X(136700, int  , phase_ptch_tvect_in_at_90 ,            , file , "pitch command reaches the vector when it stands at 90 deg") \
    X(136704, int  , phase_ptch_tvect_in_at_00 ,            , file , "pitch command reaches the vector when it stands at 0 deg") \
    X(136708, int  , phase_roll_tvect_in_at_90 ,            , file , "roll command, at 90 deg") \
    X(136712, int  , phase_roll_tvect_in_at_00 ,            , file , "roll command, at 0 deg") \
    X(136716, int  , phase_hdng_tvect_in_at_90 ,            , file , "yaw command, at 90 deg") \
    X(136720, int  , phase_hdng_tvect_in_at_00 ,            , file , "yaw command, at 0 deg") \
    X(136724, float, flap_roll                 ,            , file , "flap travel per roll command, deg") \
    X(136728, float, flap_ptch                 ,            , file , "flap travel per pitch command, deg") \
    X(136732, int  , sbrk_on_td_EQ             ,            , file , "speedbrakes deploy at touchdown") \
    X(136736, int  , fbrk_on_td_EQ             ,            , file , "wheel brakes apply at touchdown") \
    X(136740, int  , revt_on_td_EQ             ,            , file , "reverse thrust at touchdown") \
    X(136744, int  , sweep_with_flaps_EQ       ,            , file , "sweep follows the flap handle") \
    X(136748, int  , sweep_with_vect_EQ        ,            , file , "sweep follows the vector") \
    X(136752, int  , flaps_with_gear_EQ        ,            , file , "flap handle follows the gear handle") \
    X(136756, int  , flaps_with_vec_EQ         ,            , file , "flap handle follows the vector") \
    X(136760, int  , slat_with_stall_EQ        ,            , file , "slats extend near the stall") \
    X(136764, int  , auto_trim_EQ              ,            , file , "elevator trim follows the stick") \
    X(136768, int  , anti_ice_EQ               ,            , file , "anti-ice present") \
    X(136772, int  , arresting_EQ              ,            , file , "arresting hook present") \
    X(136776, int  , warn_gear_EQ              ,            , file , "gear warning present") \
    X(136780, int  , warn_lorot_EQ             ,            , file , "low rotor warning present") \
    X(136784, float, chute_area                ,            , file , "drag chute area, sq ft") \
    X(136788, float, chute_Y                   ,            , file , "drag chute height, ft") \
    X(136792, float, chute_Z                   ,            , file , "drag chute longitudinal location, ft") \
    X(136796, int  , lo_speed_is_position      ,            , file , "low-speed stability holds position, not rate") \
    X(136800, float, ASlo_the_V                ,            , file , "speed where low-speed pitch stability has faded out, kt") \
    X(136804, float, ASlo_psi_V                ,            , file , "same, yaw") \
    X(136808, float, ASlo_phi_V                ,            , file , "same, roll") \
    X(136812, float, AShi_the_V                ,            , file , "speed where high-speed pitch stability is in full, kt") \
    X(136816, float, AShi_psi_V                ,            , file , "same, yaw") \
    X(136820, float, AShi_phi_V                ,            , file , "same, roll") \
    X(136824, float, ASlo_max_thedot           ,            , file , "commanded pitch rate at full stick, deg/s") \
    X(136828, float, ASlo_thedot_k             ,            , file , "pitch rate gain") \
    X(136832, float, ASlo_max_psidot           ,            , file , "commanded yaw rate, deg/s") \
    X(136836, float, ASlo_psidot_k             ,            , file , "yaw rate gain") \
    X(136840, float, ASlo_max_phidot           ,            , file , "commanded roll rate, deg/s") \
    X(136844, float, ASlo_phidot_k             ,            , file , "roll rate gain") \
    X(136848, float, AShi_max_G                ,            , file , "commanded load factor at full stick") \
    X(136852, float, AShi_G_k                  ,            , file , "load factor gain") \
    X(136856, float, AShi_Gdot_k               ,            , file , "load factor rate gain") \
    X(136860, float, AShi_max_alpha            ,            , file , "commanded angle of attack at full stick, deg") \
    X(136864, float, AShi_alpha_k              ,            , file , "angle of attack gain") \
    X(136868, float, AShi_alphadot_k           ,            , file , "angle of attack rate gain") \
    X(136872, float, AShi_max_beta             ,            , file , "commanded sideslip at full pedal, deg") \
    X(136876, float, AShi_beta_k               ,            , file , "sideslip gain") \
    X(136880, float, AShi_betadot_k            ,            , file , "sideslip rate gain") \
    X(136884, float, AShi_max_phidot           ,            , file , "commanded roll rate, deg/s") \
    X(136888, float, AShi_phidot_k             ,            , file , "roll rate gain") \
    X(136892, float, ASlo_max_the              ,            , file , "commanded pitch at full stick, deg") \
    X(136896, float, ASlo_the_k                ,            , file , "pitch gain") \
    X(136900, float, ASlo_max_phi              ,            , file , "commanded bank at full stick, deg") \
    X(136904, float, ASlo_phi_k                ,            , file , "bank gain") \
    X(136908, int  , custom_autopilot          ,            , file , "non-zero keeps the ott_ values of the file; zero replaces them with the fixed defaults") \
    X(136912, float, ott_asi_ratio             ,            , file , "speed hold: throttle rate, per second") \
    X(136916, float, ott_asi_sec_into_future   ,            , file , "speed hold: look-ahead, s") \
    X(136920, float, ott_asi_kts_off_for_full_def,            , file , "speed hold: speed error for full throttle, kt") \
    X(136924, float, ott_phi_ratio             ,            , file , "roll: output ratio") \
    X(136928, float, ott_phi_sec_into_future   ,            , file , "roll: look-ahead, s") \
    X(136932, float, ott_phi_deg_off_for_full_def,            , file , "roll: bank error for full output, deg") \
    X(136936, float, ott_phi_sec_to_tune       ,            , file , "roll: integrator time, s") \
    X(136940, float, ott_def_sec_into_future   ,            , file , "course: look-ahead, s") \
    X(136944, float, ott_def_dot_off_for_full_def,            , file , "course: degrees of intercept per dot") \
    X(136948, float, ott_def_sec_to_tune       ,            , file , "course: integrator time, s") \
    X(136952, float, ott_the_ratio             ,            , file , "pitch: output ratio") \
    X(136956, float, ott_the_sec_into_future   ,            , file , "pitch: look-ahead, s") \
    X(136960, float, ott_the_deg_off_for_full_def,            , file , "pitch: error for full output, deg") \
    X(136964, float, ott_the_sec_to_tune       ,            , file , "pitch: integrator time, s") \
    X(136968, float, ott_the_deg_per_kt        ,            , file , "pitch: degrees per knot of speed error") \
    X(136972, float, size_x                    ,            , load , "half width of the airframe, m") \
    X(136976, float, size_z                    ,            , load , "half length, m") \
    X(136980, float, size_tot                  ,            , load , "size_x and size_z combined, m") \
    X(136984, float, h_eqlbm                   ,            , file , "height of the reference point above the ground at rest, ft") \
    X(136988, float, the_eqlbm                 ,            , file , "pitch at rest on the gear, deg") \
    X(136992, float, thro_x_ctr                ,            , load , "mean panel x of the throttle levers") \
    X(136996, float, prop_x_ctr                ,            , load , "mean panel x of the prop levers") \
    X(137000, float, mixt_x_ctr                ,            , load , "mean panel x of the mixture levers") \
    X(137004, float, heat_x_ctr                ,            , load , "mean panel x of the carburettor heat levers") \
    X(137008, float, cowl_x_ctr                ,            , load , "mean panel x of the cowl flap levers") \
    X(137012, float, V_ref_ms                  ,            , load , "reference speed, m/s") \
    X(137016, float, average_MAC_acf           ,            , load , "mean chord of all wings, m") \
    X(137020, float, tire_s_contact            ,            , load , "tyre contact area sum, sq m") \
    X(137024, int  , beacon_EQ                 ,            , load , "panel has marker lamps") \
    X(137028, int  , skid_EQ                   ,            , file , "airframe has skids") \
    X(137032, int  , gear_EQ                   ,            , load , "a gear exists") \
    X(137036, int  , gear_steer_EN             ,            , load , "index of the steering gear") \
    X(137040, int  , generator_EQ              ,            , load , "panel has a generator switch") \
    X(137044, int  , inverter_EQ               ,            , load , "panel has an inverter switch") \
    X(137048, int  , fuelpump_EQ               ,            , load , "panel has a fuel pump switch") \
    X(137052, int  , battery_EQ                ,            , load , "panel has a battery switch") \
    X(137056, int  , avionics_EQ               ,            , load , "panel has an avionics switch") \
    X(137060, int  , auto_fea_EQ               ,            , load , "panel has an auto-feather switch") \
    X(137064, int  , has_hsi                   ,            , load , "panel has a horizontal situation indicator") \
    X(137068, int  , has_radalt                ,            , load , "panel has a radio altimeter") \
    X(137072, int  , has_radar                 ,            , load , "panel has a radar") \
    X(137076, int  , has_SC_fd                 ,            , load , "single-cue flight director") \
    X(137080, int  , has_DC_fd                 ,            , load , "double-cue flight director") \
    X(137084, int  , has_stallwarn             ,            , load , "stall warning light") \
    X(137088, int  , has_press_controls        ,            , load , "pressurisation controls") \
    X(137092, int  , has_igniter               ,            , load , "igniter switch") \
    X(137096, int  , has_idlespeed             ,            , load , "idle speed switch") \
    X(137100, int  , has_FADEC_switch          ,            , load , "engine computer switch") \
    X(137104, int  , has_clutch_switch         ,            , load , "clutch switch") \
    X(137108, int  , has_pre_rotate            ,            , load , "rotor pre-rotate switch") \
    X(137112, int  , has_mixture               ,            , load , "mixture levers") \
    X(137116, int  , has_kts_mac               ,            , load , "knots/Mach switch") \
    X(137120, int  , has_asi_set               ,            , load , "speed dial") \
    X(137124, int  , has_hdg_set               ,            , load , "heading dial") \
    X(137128, int  , has_vvi_set               ,            , load , "vertical speed dial") \
    X(137132, int  , has_alt_set               ,            , load , "altitude dial") \
    X(137136, int  , has_litemap_tex_1         ,            , run  , "night texture 1 loaded") \
    X(137140, int  , has_litemap_tex_2         ,            , run  , "night texture 2 loaded") \
    X(137144, int  , plot_OBJ7_cock_exact_fwd  ,            , file , "cockpit object only in the exact forward view") \
    X(137148, int  , cockpit_M_out             ,            , run  , "object handle of the outer cockpit model, -1 when absent") \
    X(137152, int  , has_fms                   ,            , load , "panel has a flight management system") \
    X(137156, float, xflt_overflow             , [4997]     , spare, "reserved; element 0 is set at load when the panel holds one of two further switch instruments")
// clang-format on

// clang-format off
#define VEH_ENGN_FIELDS(X) \
    X(     0, int  , engn_type                 ,            , file , "engine kind") \
    X(     4, int  , prop_type                 ,            , file , "propeller kind") \
    X(     8, float, SFC                       ,            , file , "specific fuel consumption: lb/(hp h) for propeller engines, lb/(lb h) for jets and rockets; kg/(W s) or kg/(N s) after load") \
    X(    12, float, prop_dir                  ,            , file , "+1 clockwise, -1 counter-clockwise seen from behind") \
    X(    16, int  , is_ducted                 ,            , file , "ducted fan: sets e 1 and multiplies AR by 10") \
    X(    20, float, num_blades                ,            , file , "blades, float") \
    X(    24, int  , prop_clutch_EQ            ,            , file , "clutch between engine and prop") \
    X(    28, float, prop_gear_rat             ,            , file , "engine speed over prop speed") \
    X(    32, float, vert_init                 ,            , file , "disc tilt in the vertical plane at vector 0, deg") \
    X(    36, float, side_init                 ,            , file , "disc tilt in the side plane, deg") \
    X(    40, float, min_pitch                 ,            , file , "fine pitch, deg") \
    X(    44, float, max_pitch                 ,            , file , "coarse pitch, deg") \
    X(    48, float, des_rpm_prp               ,            , file , "design prop rpm") \
    X(    52, float, des_kts_prp               ,            , file , "design speed through the disc, kt") \
    X(    56, float, des_kts_acf               ,            , file , "design aircraft speed, kt") \
    X(    60, float, engn_mass                 ,            , load , "kg") \
    X(    64, float, prop_mass                 ,            , load , "kg") \
    X(    68, float, mi_prop_rpm               ,            , load , "moment of inertia of the prop about its hub, kg m squared") \
    X(    72, float, mi_engn_rpm               ,            , load , "moment of inertia of the engine") \
    X(    76, float, discarea                  ,            , load , "sq m") \
    X(    80, float, ringarea                  , [10]       , load , "annulus area per element, sq m") \
    X(   120, float, bladesweep                , [10]       , file , "blade sweep per element, deg")
// clang-format on

// clang-format off
#define VEH_WING_FIELDS(X) \
    X(     0, int  , is_left                   ,            , load , "left side") \
    X(     4, float, lat_sign                  ,            , load , "-1 left, +1 right") \
    X(     8, int  , manual_mac                ,            , file , "chord entered by hand") \
    X(    12, char , Rafl0                     , [40]       , file , "airfoil file: root, low Reynolds number") \
    X(    52, char , Rafl1                     , [40]       , file , "airfoil file: root, high Reynolds number") \
    X(    92, char , Tafl0                     , [40]       , file , "airfoil file: tip, low Reynolds number") \
    X(   132, char , Tafl1                     , [40]       , file , "airfoil file: tip, high Reynolds number") \
    X(   172, int  , els                       ,            , file , "span elements, 1 to 10") \
    X(   176, float, Croot                     ,            , file , "root chord, ft") \
    X(   180, float, Ctip                      ,            , file , "tip chord, ft") \
    X(   184, float, semilen_SEG               ,            , file , "length of this segment, ft") \
    X(   188, float, semilen_JND               ,            , load , "semi-length after joining wing segments, m") \
    X(   192, float, average_MAC               ,            , load , "mean of the element chords, m") \
    X(   196, float, element_len               ,            , load , "semilen_SEG/els, m") \
    X(   200, float, chord_piv                 ,            , file , "pivot point on the chord for incidence changes, ratio") \
    X(   204, float, dihed1                    ,            , file , "dihedral, deg") \
    X(   208, float, dihed2                    ,            , file , "dihedral at the far end of the variable range, deg") \
    X(   212, float, dihednow                  ,            , run  , "dihedral") \
    X(   216, int  , vardihed                  ,            , file , "dihedral varies") \
    X(   220, float, sweep1                    ,            , file , "quarter-chord sweep, deg") \
    X(   224, float, sweep2                    ,            , file , "sweep at the far end of the variable range, deg") \
    X(   228, float, sweepnow                  ,            , run  , "sweep") \
    X(   232, int  , varsweep                  ,            , file , "sweep varies") \
    X(   236, float, inc2                      ,            , file , "incidence added at the far end of the variable range, deg") \
    X(   240, float, incnow                    ,            , run  , "added incidence") \
    X(   244, int  , varinc                    ,            , file , "incidence varies") \
    X(   248, float, e                         ,            , load , "Oswald efficiency") \
    X(   252, float, AR                        ,            , load , "aspect ratio") \
    X(   256, float, TR                        ,            , load , "taper ratio") \
    X(   260, float, al_D_al0                  ,            , load , "alpha scale, finite wing over infinite") \
    X(   264, float, cl_D_cl0                  ,            , load , "lift scale") \
    X(   268, float, cm_D_cm0                  ,            , load , "moment scale") \
    X(   272, float, delta_fac                 ,            , load , "delta-wing factor") \
    X(   276, float, alpha_max                 ,            , load , "stall alpha, deg") \
    X(   280, float, slat_effect               ,            , load , "alpha stretch at full slats") \
    X(   284, float, spec_wash                 ,            , load , "downwash, deg per unit of lift coefficient") \
    X(   288, char , rev_con                   ,            , load , "1 when the surface lies ahead of the centre of gravity (one byte in a four-byte slot: the three bytes behind it are padding)") \
    X(   292, float, el_s                      , [10]       , file , "element area, sq ft") \
    X(   332, float, mac                       , [10]       , file , "element chord, ft") \
    X(   372, float, incidence                 , [10]       , file , "element incidence, deg") \
    X(   412, int  , inc_ail1                  , [10]       , file , "per element: the whole element changes incidence with aileron 1") \
    X(   452, int  , inc_ail2                  , [10]       , file , "per element: the whole element changes incidence with aileron 2") \
    X(   492, int  , inc_elev                  , [10]       , file , "per element: the whole element changes incidence with elevator") \
    X(   532, int  , inc_rud1                  , [10]       , file , "per element: the whole element changes incidence with rudder 1") \
    X(   572, int  , inc_rud2                  , [10]       , file , "per element: the whole element changes incidence with rudder 2") \
    X(   612, int  , inc_vect                  , [10]       , file , "per element: the whole element changes incidence with thrust vector") \
    X(   652, int  , inc_trim                  , [10]       , file , "per element: the whole element changes incidence with stabiliser trim") \
    X(   692, int  , ail1                      , [10]       , file , "per element: element carries aileron 1") \
    X(   732, float, ail1_elR                  ,            , load , "first element that carries aileron 1, 10 when none") \
    X(   736, float, ail1_elT                  ,            , load , "element behind the last that carries aileron 1, 0 when none") \
    X(   740, int  , ail2                      , [10]       , file , "per element: element carries aileron 2") \
    X(   780, float, ail2_elR                  ,            , load , "first element that carries aileron 2, 10 when none") \
    X(   784, float, ail2_elT                  ,            , load , "element behind the last that carries aileron 2, 0 when none") \
    X(   788, int  , spo1                      , [10]       , file , "per element: element carries spoiler 1") \
    X(   828, float, spo1_elR                  ,            , load , "first element that carries spoiler 1, 10 when none") \
    X(   832, float, spo1_elT                  ,            , load , "element behind the last that carries spoiler 1, 0 when none") \
    X(   836, int  , spo2                      , [10]       , file , "per element: element carries spoiler 2") \
    X(   876, float, spo2_elR                  ,            , load , "first element that carries spoiler 2, 10 when none") \
    X(   880, float, spo2_elT                  ,            , load , "element behind the last that carries spoiler 2, 0 when none") \
    X(   884, int  , yawb                      , [10]       , file , "per element: element carries yaw brake") \
    X(   924, float, yawb_elR                  ,            , load , "first element that carries yaw brake, 10 when none") \
    X(   928, float, yawb_elT                  ,            , load , "element behind the last that carries yaw brake, 0 when none") \
    X(   932, int  , elev                      , [10]       , file , "per element: element carries elevator") \
    X(   972, float, elev_elR                  ,            , load , "first element that carries elevator, 10 when none") \
    X(   976, float, elev_elT                  ,            , load , "element behind the last that carries elevator, 0 when none") \
    X(   980, int  , rud1                      , [10]       , file , "per element: element carries rudder 1") \
    X(  1020, float, rud1_elR                  ,            , load , "first element that carries rudder 1, 10 when none") \
    X(  1024, float, rud1_elT                  ,            , load , "element behind the last that carries rudder 1, 0 when none") \
    X(  1028, int  , rud2                      , [10]       , file , "per element: element carries rudder 2") \
    X(  1068, float, rud2_elR                  ,            , load , "first element that carries rudder 2, 10 when none") \
    X(  1072, float, rud2_elT                  ,            , load , "element behind the last that carries rudder 2, 0 when none") \
    X(  1076, int  , fla1                      , [10]       , file , "per element: element carries flap 1") \
    X(  1116, float, fla1_elR                  ,            , load , "first element that carries flap 1, 10 when none") \
    X(  1120, float, fla1_elT                  ,            , load , "element behind the last that carries flap 1, 0 when none") \
    X(  1124, int  , fla2                      , [10]       , file , "per element: element carries flap 2") \
    X(  1164, float, fla2_elR                  ,            , load , "first element that carries flap 2, 10 when none") \
    X(  1168, float, fla2_elT                  ,            , load , "element behind the last that carries flap 2, 0 when none") \
    X(  1172, int  , slat                      , [10]       , file , "per element: element carries a slat") \
    X(  1212, int  , sbrk                      , [10]       , file , "per element: element carries wing speedbrake") \
    X(  1252, float, sbrk_elR                  ,            , load , "first element that carries wing speedbrake, 10 when none") \
    X(  1256, float, sbrk_elT                  ,            , load , "element behind the last that carries wing speedbrake, 0 when none") \
    X(  1260, float, ca_xyz                    , [20][3]    , load , "drawing geometry of the control surface, built for drawing") \
    X(  1500, float, co_xyz                    , [20][3]    , load , "drawing geometry of the control surface outline, built for drawing")
// clang-format on

// clang-format off
#define VEH_PART_FIELDS(X) \
    X(     0, int  , part_eq                   ,            , file , "part exists") \
    X(     4, float, part_x                    ,            , file , "lateral location, ft, positive right") \
    X(     8, float, part_psi                  ,            , file , "heading of the part, deg") \
    X(    12, float, aero_x_os                 ,            , load , "aerodynamic centre offset, m") \
    X(    16, float, area_frnt                 ,            , load , "frontal area, sq m") \
    X(    20, int  , patt_prt                  ,            , file , "part to which this one is attached") \
    X(    24, float, part_y                    ,            , file , "height, ft, positive up") \
    X(    28, float, part_the                  ,            , file , "pitch of the part, deg") \
    X(    32, float, aero_y_os                 ,            , load , "aerodynamic centre offset, m") \
    X(    36, float, area_side                 ,            , load , "side area, sq m") \
    X(    40, int  , patt_con                  ,            , file , "control that moves this part") \
    X(    44, float, part_z                    ,            , file , "longitudinal location, ft, positive aft") \
    X(    48, float, part_phi                  ,            , file , "roll of the part, deg") \
    X(    52, float, aero_z_os                 ,            , load , "aerodynamic centre offset, m") \
    X(    56, float, area_nrml                 ,            , load , "plan area, sq m") \
    X(    60, float, patt_rat                  ,            , file , "share of the attachment movement followed") \
    X(    64, float, cd                        ,            , file , "drag coefficient of the body") \
    X(    68, float, scon                      ,            , file , "contact spring, lb/ft") \
    X(    72, float, damp                      ,            , file , "contact damping, lb/ft") \
    X(    76, int  , part_tex                  ,            , file , "texture sheet selection") \
    X(    80, float, top_s1                    ,            , file , "upper texture rectangle, left") \
    X(    84, float, bot_s1                    ,            , file , "lower texture rectangle, left") \
    X(    88, float, top_t1                    ,            , file , "upper texture rectangle, bottom") \
    X(    92, float, bot_t1                    ,            , file , "lower texture rectangle, bottom") \
    X(    96, float, top_s2                    ,            , file , "upper texture rectangle, right") \
    X(   100, float, bot_s2                    ,            , file , "lower texture rectangle, right") \
    X(   104, float, top_t2                    ,            , file , "upper texture rectangle, top") \
    X(   108, float, bot_t2                    ,            , file , "lower texture rectangle, top") \
    X(   112, float, part_r                    ,            , file , "radius, ft") \
    X(   116, int  , s_dim                     ,            , file , "body stations in use, at most 20; for wings set at load to twice els") \
    X(   120, int  , r_dim                     ,            , file , "points round each station, at most 18; for wings set at load to 14") \
    X(   124, float, geo_xyz                   , [20][18][3], file , "body surface points, ft from the part location; [station][point][x, y, z]") \
    X(  4444, float, nrm_xyz                   , [20][18][3], load , "surface normals") \
    X(  8764, float, st                        , [20][18][2], file , "texture coordinates") \
    X( 11644, char , locked                    , [20][18]   , spare, "editor flags per point; one byte each, unused by the simulator")
// clang-format on

// clang-format off
#define VEH_GEAR_FIELDS(X) \
    X(     0, int  , gear_type                 ,            , file , "wheel arrangement") \
    X(     4, int  , steers                    ,            , file , "gear steers") \
    X(     8, float, scon                      ,            , file , "strut spring, lb/ft") \
    X(    12, float, damp                      ,            , file , "strut damping, lb/ft") \
    X(    16, float, leg_len                   ,            , file , "leg length, ft") \
    X(    20, float, cyc_time                  ,            , file , "gear cycle time, s") \
    X(    24, float, dep_rat                   ,            , run  , "deployment ratio, 0 up, 1 down") \
    X(    28, float, stat_def                  ,            , file , "static deflection, ft") \
    X(    32, float, strut_comp                ,            , file , "strut compression travel, ft") \
    X(    36, float, tire_radius               ,            , file , "tyre radius, ft") \
    X(    40, float, tire_swidth               ,            , file , "tyre width, ft") \
    X(    44, float, tire_mi                   ,            , load , "tyre inertia") \
    X(    48, float, gear_x                    ,            , file , "attachment, lateral, ft") \
    X(    52, float, latE                      ,            , file , "leg lateral angle extended, deg") \
    X(    56, float, lonE                      ,            , file , "leg longitudinal angle extended, deg") \
    X(    60, float, axiE                      ,            , file , "leg axial angle extended, deg") \
    X(    64, float, x_nodef                   ,            , run  , "undeflected wheel location") \
    X(    68, float, gear_y                    ,            , file , "attachment, height, ft") \
    X(    72, float, latR                      ,            , file , "leg lateral angle retracted, deg") \
    X(    76, float, lonR                      ,            , file , "leg longitudinal angle retracted, deg") \
    X(    80, float, axiR                      ,            , file , "leg axial angle retracted, deg") \
    X(    84, float, y_nodef                   ,            , run  , "undeflected wheel location") \
    X(    88, float, gear_z                    ,            , file , "attachment, longitudinal, ft") \
    X(    92, float, latN                      ,            , run  , "lateral angle now, deg") \
    X(    96, float, lonN                      ,            , run  , "longitudinal angle now, deg") \
    X(   100, float, axiN                      ,            , run  , "axial angle now, deg") \
    X(   104, float, z_nodef                   ,            , run  , "undeflected wheel location")
// clang-format on

// clang-format off
#define VEH_WATT_FIELDS(X) \
    X(     0, char , watt_name                 , [40]       , file , "weapon file name, empty when the slot is free") \
    X(    40, int  , watt_prt                  ,            , file , "part that carries the weapon") \
    X(    44, int  , watt_con                  ,            , file , "control that moves it") \
    X(    48, float, watt_x                    ,            , file , "location, ft") \
    X(    52, float, watt_psi                  ,            , file , "heading, deg") \
    X(    56, float, watt_y                    ,            , file , "location, ft") \
    X(    60, float, watt_the                  ,            , file , "pitch, deg") \
    X(    64, float, watt_z                    ,            , file , "location, ft") \
    X(    68, float, watt_phi                  ,            , file , "roll, deg")
// clang-format on

// clang-format off
#define VEH_DOOR_FIELDS(X) \
    X(     0, int  , type                      ,            , file , "door kind; 0 none") \
    X(     4, float, area                      ,            , file , "area, sq ft (speedbrake drag area)") \
    X(     8, float, xyz                       , [3]        , file , "hinge point, ft") \
    X(    20, float, geo                       , [4][4][3]  , file , "panel geometry, ft, [row][column][x, y, z]") \
    X(   212, float, nrm                       , [4][4][3]  , load , "normals") \
    X(   404, float, axi_rot                   ,            , file , "hinge axis direction, deg") \
    X(   408, float, inn_s1                    ,            , file , "inner texture rectangle, left") \
    X(   412, float, out_s1                    ,            , file , "outer texture rectangle, left") \
    X(   416, float, ext_ang                   ,            , file , "angle when extended, deg") \
    X(   420, float, inn_t1                    ,            , file , "inner texture rectangle, bottom") \
    X(   424, float, out_t1                    ,            , file , "outer texture rectangle, bottom") \
    X(   428, float, ret_ang                   ,            , file , "angle when retracted, deg") \
    X(   432, float, inn_s2                    ,            , file , "inner texture rectangle, right") \
    X(   436, float, out_s2                    ,            , file , "outer texture rectangle, right") \
    X(   440, float, ang_now                   ,            , run  , "angle, deg") \
    X(   444, float, inn_t2                    ,            , file , "inner texture rectangle, top") \
    X(   448, float, out_t2                    ,            , file , "outer texture rectangle, top")
// clang-format on

// One thrust point.
struct veh_engn_struct {
#define X(off, type, name, dims, role, doc) type name dims;
    VEH_ENGN_FIELDS(X)
#undef X
};

// One wing-like part; for thrust points, one blade of that propeller.
struct veh_wing_struct {
#define X(off, type, name, dims, role, doc) type name dims;
    VEH_WING_FIELDS(X)
#undef X
};

// Place, body shape and texture of one part.
struct veh_part_struct {
#define X(off, type, name, dims, role, doc) type name dims;
    VEH_PART_FIELDS(X)
#undef X
};

// One gear leg.
struct veh_gear_struct {
#define X(off, type, name, dims, role, doc) type name dims;
    VEH_GEAR_FIELDS(X)
#undef X
};

// One weapon attachment.
struct veh_watt_struct {
#define X(off, type, name, dims, role, doc) type name dims;
    VEH_WATT_FIELDS(X)
#undef X
};

// One gear door or speed-brake door.
struct veh_door_struct {
#define X(off, type, name, dims, role, doc) type name dims;
    VEH_DOOR_FIELDS(X)
#undef X
};

// One carried weapon: a memory image of its file, not of the aircraft's.
struct wpn_struct {
    int type;          // 0 is an empty station
    int free_flyer;
    int action_mode;   // 0 on board, 1 firing or in flight, 2 finished
    float impact_time, next_bull_time;              // simulated seconds
    float cgY, cgZ;                                 // reference point of the store, ft; m once loaded
    float las_range, conv_range;
    float bul_rounds_per_sec, bul_rounds, bul_muzzle_speed, bul_area;
    int warhead_type;
    float added_mass;                               // rack and mounting, lb; kg once loaded
    float total_weapon_mass_max, fuel_warhead_mass_max;
    float total_weapon_mass_now, fuel_warhead_mass_now;
    float mis_drag_chute_S;
    float mis_fin_z[4], mis_fin_cr[4], mis_fin_ct[4], mis_fin_semilen[4], mis_fin_sweep[4];
    float mis_fin_conrat[4], mis_fin_steer[4];
    float mis_fin_dihed[4][2];
    char mis_afl[4][40];
    float mis_thrust[3], mis_duration[3];
    float mis_cone_width;
    float mis_crat_per_deg_bore, mis_crat_per_degpersec_bore, mis_crat_per_degpersec;
    float gun_del_psi_deg_max, gun_del_the_deg_max;
    float psi_con, the_con, phi_con, psi_acf, the_acf, phi_acf, psi_wrl, the_wrl, phi_wrl;
    float s_frn, s_sid, s_top, Jxx_unitmass, Jyy_unitmass, Jzz_unitmass;
    int target_index;
    float targ_lat, targ_lon, targ_h;
    float del_psi, del_the, rudd_rat, elev_rat, V_msc, AV_msc, dist_targ, dist_point, time_point;
    float sin_the, cos_the, sin_psi, cos_psi, sin_phi, cos_phi;
    float fx_axis, fy_axis, fz_axis;
    float vx, vy, vz, x, y, z;
    float L, M, N, Prad, Qrad, Rrad;
    float q[4];
    float chute_vector_wrl[3];
    veh_part_struct part;                           // the body
    float xflt_overflow[100];
};
static_assert(sizeof(wpn_struct) == 13060);

// The whole aircraft. The scalar block, is_hm up to end_of_data, is the file's first part; the arrays
// behind it follow in the file in an order of their own (acf_file.cpp).
struct veh_struct {
#define X(off, type, name, dims, role, doc) type name dims;
    VEH_BLOCK_FIELDS(X)
#undef X
    char end_of_data;
    veh_engn_struct engn[engnDIM];
    veh_wing_struct wing[wingDIM];
    veh_part_struct part[partDIM];
    veh_gear_struct gear[gearDIM];
    veh_door_struct door[doorDIM];
    veh_door_struct sbrk[sbrkDIM];
    veh_watt_struct watt[wattDIM];
    afl_struct afl[wingDIM];   // not in the file
    wpn_struct wpn[wpnDIM];    // not in the file
};
constexpr size_t veh_block_size = 157144;

// A layout that differs is a build fault: the record is the file.
#define X(off, type, name, dims, role, doc) static_assert(offsetof(veh_struct, name) == off);
VEH_BLOCK_FIELDS(X)
#undef X
#define X(off, type, name, dims, role, doc) static_assert(offsetof(veh_engn_struct, name) == off);
VEH_ENGN_FIELDS(X)
#undef X
#define X(off, type, name, dims, role, doc) static_assert(offsetof(veh_wing_struct, name) == off);
VEH_WING_FIELDS(X)
#undef X
#define X(off, type, name, dims, role, doc) static_assert(offsetof(veh_part_struct, name) == off);
VEH_PART_FIELDS(X)
#undef X
#define X(off, type, name, dims, role, doc) static_assert(offsetof(veh_gear_struct, name) == off);
VEH_GEAR_FIELDS(X)
#undef X
#define X(off, type, name, dims, role, doc) static_assert(offsetof(veh_watt_struct, name) == off);
VEH_WATT_FIELDS(X)
#undef X
#define X(off, type, name, dims, role, doc) static_assert(offsetof(veh_door_struct, name) == off);
VEH_DOOR_FIELDS(X)
#undef X
static_assert(offsetof(veh_struct, end_of_data) == veh_block_size);
static_assert(sizeof(veh_engn_struct) == 160 && sizeof(veh_wing_struct) == 1740);
static_assert(sizeof(veh_part_struct) == 12004 && sizeof(veh_gear_struct) == 108);
static_assert(sizeof(veh_watt_struct) == 72 && sizeof(veh_door_struct) == 452);

extern veh_struct veh[vehDIM];

// Empties slot p: every field and element zero.
void clear_acf(int p);

// One row of a field list, for the code that walks a record by name.
struct veh_field_struct {
    const char* name;
    int offset;      // bytes from the start of its record
    int size;        // bytes of the whole field
    char type;       // 'i' int, 'f' float, 'c' char
    int dims[3];     // 0 beyond the last dimension
    veh_role role;
    const char* doc;
};
struct veh_field_list {
    const veh_field_struct* rows;
    int count;
    const char* record;  // name of the record in messages
};
veh_field_list veh_block_list();
veh_field_list veh_engn_list();
veh_field_list veh_wing_list();
veh_field_list veh_part_list();
veh_field_list veh_gear_list();
veh_field_list veh_watt_list();
veh_field_list veh_door_list();
