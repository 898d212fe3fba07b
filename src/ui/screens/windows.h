// Settings windows, one routine each, called once a frame while open.
#pragma once

void manage_apt();
void manage_dat();
void manage_wxr();
void manage_tim();
void manage_wgt();
void manage_rel();
void manage_acf();
void manage_qfl();
void manage_snd();
void manage_ren();
void manage_fdr();
void manage_joy();
void manage_wrn();
void manage_map();
void manage_wrl();
void manage_log();
void manage_ins();
void manage_env();
void manage_vew();
void manage_pln();
