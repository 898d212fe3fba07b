// Alerts in the window.
#pragma once

// Shows alerts in the window from now on: four lines of text, closed by Return or a click.
void alerts_in_window();
// Draws the alert that is up, if any; part of the overlay.
void draw_alert();
