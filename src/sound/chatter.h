// Radio chatter.
#pragma once

void load_radio_chatter();     // a random file into each of its slots
