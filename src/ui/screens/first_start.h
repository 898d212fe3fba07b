// What a first start asks, and what every start tells.
#pragma once

void choose_language();   // asks on a first start
void show_start_notes();  // what the port to this system asks to know, once a start unless the user has switched them off
void warn_of_slow_graphics();  // when the driver draws without a card
