// Instrument panel.
#pragma once

void load_panel();      // pictures and instruments of the user's aircraft
