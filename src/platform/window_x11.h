// The window's handles and event functions, for those few who know X11.
#pragma once
#include <GL/glx.h>
#include <X11/Xlib.h>

extern Display* dpy;
extern Window win;
extern GLXContext cx;
extern XVisualInfo* vi;

// Handles one event that has left the queue; always 1.
int LIN_handlewin(Display* d, XEvent* e, char* arg);
// Translates a key that went down, by linkey_shft and linkey_ctrl, and passes it through the gate.
void MACIBM_handlekey(KeySym keysym);
