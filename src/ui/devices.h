// Joysticks and serial flight hardware.
#pragma once

void JOY_init();
void JOY_close();
void JOY_get();  // once a frame: axes and buttons into mnw
void init_hardware_out();
void close_hardware_out(int is_final);
void read_key_file();  // the key characters into mnw.key
