// The one full-screen window with its GL context: made at start, drained and swapped once a frame.
// Role: turns window-system events into calls of the input gate. Main thread only.
#pragma once
#include "platform/screen.h"

extern int have_done_first_update;  // something was shown or uncovered: the clocks may run
extern int have_created_ibm_win;
extern int linkey_shft, linkey_ctrl;  // shift and control are down

extern int window_generation;  // counts contexts: what lives in one is made anew when this moves

// Opens the display and makes the window of x_res_now by y_res_now with its context current; 0 when
// there is no display, no GL or no fitting visual, or the screen is smaller than the virtual one.
int MACIBM_getcontext();
// With set_res_now set and the window present, gives it the size x_res_now by y_res_now. Always 1.
int MACIBM_setres(int init_call);
// Lets the keyboard go and closes the display.
void window_close();

// Events, swap and the system's clock into the seams. After MACIBM_getcontext.
void platform_install_seams();

// GL state that no drawing changes.
void window_fixed_gl_state();
