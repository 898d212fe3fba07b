// Alerts in the window.
#pragma once

// Shows alerts in the window from now on: the language chooser, or four lines of text, closed by the button or by
// Return.
void alerts_in_window();
