// Instrument types of a panel (ins_type) that code asks for, by the names of their pictures. Those between two of one
// kind are variants of it.
#pragma once

enum instrument_type : int {
    ins_but_autofeather = 7, ins_but_prerotate = 11, ins_but_flitedir_modeSC = 34,
    ins_but_flitedir_modeDC = 35, ins_but_avionics = 67, ins_but_battery = 68, ins_but_clutch = 76,
    ins_but_knots_mach = 78, ins_but_fuelpump = 90, ins_but_igniter = 91, ins_but_generator = 92,
    ins_but_inverter = 93, ins_but_FADEC = 94, ins_but_idle = 95, ins_han_thro_vernier = 133,
    ins_han_thro_linear = 134, ins_han_prop_vernier = 135, ins_han_prop_linear = 136,
    ins_han_mixture_vernier = 137, ins_han_mixture_linear = 138, ins_han_cheat_vernier = 139,
    ins_han_cheat_linear = 140, ins_han_cowlflaps = 141, ins_markers_GA = 175, ins_markers_BC = 176,
    ins_FMS = 207, ins_FMS_small = 208, ins_map_s_GA = 219, ins_map_t_HM = 224, ins_radar = 226,
    ins_HITS = 227, ins_ORBITER_prim = 230, ins_el_horizon = 236, ins_el_hsi_tape = 244,
    ins_el_hsi_full_circle = 246, ins_el_machnumber = 252, ins_bleed_air = 395, ins_cabin_vvi = 400,
    ins_ott_sel_SPD = 430, ins_ott_sel_HDG = 431, ins_ott_sel_ALT = 432, ins_ott_seldisp_SPD = 438,
    ins_ott_seldisp_HDG = 439, ins_ott_seldisp_ALT = 440, ins_ott_seldisp_VVI = 441,
    ins_ott_sel_SPD_HM = 442, ins_ott_sel_HDG_HM = 443, ins_ott_sel_ALT_HM = 444, ins_HUD_hsi_round = 483,
    ins_HUD_hsi_tape = 484, ins_horizon_GA_vac_adj = 524, ins_radioalt_round = 543, ins_radioalt_dig = 545,
    ins_DG = 554, ins_DG_HDG_SYN = 556, ins_HSI_1_GA = 557, ins_HSI_glass_HM = 568,
    ins_HSI_glass_Sandel = 569, ins_stall_GA = 621,
};
