// Flight data as text along the lower edge, and notes over the view.
#pragma once

void flight_strip_draw();
