// Instrument panel.
#pragma once

void panel_view_changed();  // the picture of the panel as the view and its lamps ask for it
// Middle of the picture of the present view, virtual units from the lower edge.
float VIEW_cntr_y_now();
void load_panel();      // pictures and instruments of the user's aircraft
