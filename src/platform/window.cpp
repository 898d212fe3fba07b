// X11 window, GLX context and events.
#include "platform/window.h"

#include <X11/XKBlib.h>
#include <X11/Xutil.h>
#include <stdlib.h>
#include <unistd.h>

#include <iostream>
#include <string_view>

#include "core/program/alert.h"
#include "core/program/input_gate.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/mnw.h"
#include "platform/window_x11.h"

Display* dpy = nullptr;
Window win = 0;
GLXContext cx = nullptr;
XVisualInfo* vi = nullptr;

int have_done_first_update = 0, have_created_ibm_win = 0;
int window_generation = 0;
int linkey_shft = 0, linkey_ctrl = 0;

static bool first_event = true;

// -- keys

struct key_name_struct {
    std::string_view name;
    int use_code, key;
};

static constexpr key_name_struct key_names[] = {
    {"Return", key_use_char, char_return},
    {"BackSpace", key_use_char, char_none},
    {"Tab", key_use_special, special_tab},
    {"Down", key_use_special, special_down},
    {"Up", key_use_special, special_up},
    {"Right", key_use_special, special_right},
    {"Left", key_use_special, special_left},
    {"KP_End", key_use_special, special_kp_1},
    {"KP_Down", key_use_special, special_kp_2},
    {"KP_Next", key_use_special, special_kp_3},
    {"KP_Left", key_use_special, special_kp_4},
    {"KP_Begin", key_use_special, special_kp_5},
    {"KP_Right", key_use_special, special_kp_6},
    {"KP_Up", key_use_special, special_kp_8},
    {"F1", key_use_function, 50},
    {"F2", key_use_function, 51},
    {"F3", key_use_function, 52},
    {"F4", key_use_function, 53},
    {"F5", key_use_function, 54},
    {"F6", key_use_function, 55},
    {"F7", key_use_function, 56},
    {"F8", key_use_function, 57},
    {"F9", key_use_function, 58},
    {"F10", key_use_function, 59},
    {"F11", key_use_function, 60},
    {"F12", key_use_function, 61},
    {"Insert", key_use_function, 59},  // the same key as F10
    {"bracketright", key_use_char, ']'},
    {"bracketleft", key_use_char, '['},
    {"backslash", key_use_char, '\\'},
    {"space", key_use_char, ' '},
    {"semicolon", key_use_char, ';'},
    {"apostrophe", key_use_char, '\''},
    {"grave", key_use_char, '`'},
    {"slash", key_use_char, '/'},
    {"period", key_use_char, '.'},
    {"comma", key_use_char, ','},
    {"minus", key_use_char, '-'},
    {"equal", key_use_char, '='},
};

// Without modifiers. A name of one letter is that letter.
static key_name_struct find_key(KeySym keysym) {
    const char* found = XKeysymToString(keysym);
    const std::string_view name = found ? found : "without a name";
    if (name.size() == 1) return {name, key_use_char, name[0]};
    for (const key_name_struct& key : key_names)
        if (key.name == name) return key;
    return {name, key_use_unknown, char_none};
}

static int shifted_arrow(int key) {
    switch (key) {
        case special_up:
            return special_shift_up;
        case special_right:
            return special_shift_right;
        case special_down:
            return special_shift_down;
        case special_left:
            return special_shift_left;
        default:
            return key;
    }
}

static void with_modifiers(key_name_struct& key) {
    constexpr int function_keys = 12;
    switch (key.use_code) {
        case key_use_function:
            if (linkey_shft) key.key += function_keys;
            break;
        case key_use_special:
            if (linkey_shft) key.key = shifted_arrow(key.key);
            break;
        case key_use_char:
            if (linkey_shft) key.key = shifted_key(key.key);
            if (linkey_ctrl) key.use_code = key_use_ctrl;
            break;
        default:
            break;
    }
}

void MACIBM_handlekey(KeySym keysym) {
    key_name_struct key = find_key(keysym);
    if (key.use_code == key_use_unknown) std::cout << "Unknown key " << key.name << '\n';
    with_modifiers(key);
    input_gate_key(key.use_code, key.key, 1);
}

// Shift and control are no keys of their own. True when the key was one of them.
static bool take_modifier(KeySym keysym, int is_down) {
    const char* found = XKeysymToString(keysym);
    const std::string_view name = found ? found : "";
    if (name == "Shift_L" || name == "Shift_R")
        linkey_shft = is_down;
    else if (name == "Control_L" || name == "Control_R")
        linkey_ctrl = is_down;
    else
        return false;
    return true;
}

static void key_event(XKeyEvent& event, bool is_down) {
    const KeySym keysym = XLookupKeysym(&event, 0);  // unshifted
    if (take_modifier(keysym, is_down)) {
        if (is_down) return;
        stop_fire();
        stop_starter();
        return;
    }
    if (is_down) {
        MACIBM_handlekey(keysym);
    } else {
        const key_name_struct key = find_key(keysym);
        input_gate_key(key.use_code, key.key, 0);
    }
}

// -- mouse

static void mouse_at(int x, int y, int clicked, int lifted) {
    const float mx = static_cast<float>(x) / mnw.xy_scale - mnw.win_x - mnw.x_off;
    const float my = static_cast<float>(mnw.y_res_now - y) / mnw.xy_scale - mnw.win_y;
    input_gate_mouse(mx, my, clicked, lifted);
}

static void button_event(const XButtonEvent& event, bool is_down) {
    if (event.button == Button4 || event.button == Button5) {  // the wheel
        if (is_down) input_gate_wheel(event.button == Button4 ? 1 : -1);
        return;
    }
    mouse_at(event.x, event.y, is_down, !is_down);
}

// Where the pointer is now, not where it was when the event was made: a queue of moves catches up.
static void motion_event(Display* d) {
    Window root, child;
    int root_x, root_y, x, y;
    unsigned buttons;
    if (XQueryPointer(d, win, &root, &child, &root_x, &root_y, &x, &y, &buttons)) mouse_at(x, y, 0, 0);
}

// -- events

static void uncovered() {
    if (mnw.paused) return;
    const bool is_typing = mnw.entry_field >= 0;
    if (!is_typing) MACIBM_startwind(mnw.top_win, "from visibility event");
    have_done_first_update = 1;
}

int LIN_handlewin(Display* d, XEvent* e, char*) {
    if (first_event) {
        first_event = false;
        have_done_first_update = have_created_ibm_win = 1;
        MACIBM_startwind(mnw.top_win, "from update event");
    }
    switch (e->type) {
        case KeyPress:
            key_event(e->xkey, true);
            break;
        case KeyRelease:
            key_event(e->xkey, false);
            break;
        case ButtonPress:
            button_event(e->xbutton, true);
            break;
        case ButtonRelease:
            button_event(e->xbutton, false);
            break;
        case MotionNotify:
            motion_event(d);
            break;
        case VisibilityNotify:
            uncovered();
            break;
        case CreateNotify:
        case ConfigureNotify:
            have_created_ibm_win = 1;
            break;
        case DestroyNotify:
            MACIBM_startwind(0, "from destroy event");
            break;
        case MappingNotify:
            XRefreshKeyboardMapping(&e->xmapping);
            break;
        default:
            std::cout << "Event of type " << e->type << '\n';
            break;
    }
    return 1;
}

static Bool any_event(Display*, XEvent*, XPointer) { return True; }

// An event is handled after it has left the queue: an alert inside a handler drains the queue again.
static void drain_events() {
    XEvent event;
    while (dpy && XCheckIfEvent(dpy, &event, any_event, nullptr)) LIN_handlewin(dpy, &event, nullptr);
}

// -- window

static bool choose_visual() {
    int wanted[] = {
        GLX_RGBA, GLX_DOUBLEBUFFER, GLX_RED_SIZE, 1, GLX_GREEN_SIZE, 1, GLX_BLUE_SIZE, 1, GLX_DEPTH_SIZE, 2,
        None};
    int error, event;
    if (!glXQueryExtension(dpy, &error, &event)) return false;
    vi = glXChooseVisual(dpy, DefaultScreen(dpy), wanted);
    if (!vi) return false;
    cx = glXCreateContext(dpy, vi, nullptr, True);
    return cx != nullptr;
}

static void create_window() {
    const Window root = RootWindow(dpy, vi->screen);
    XSetWindowAttributes look{};
    look.colormap = XCreateColormap(dpy, root, vi->visual, AllocNone);
    look.border_pixel = 0;
    look.override_redirect = True;  // no frame of a window manager, and none needed
    look.event_mask = KeyPressMask | KeyReleaseMask | ButtonPressMask | ButtonReleaseMask |
                      PointerMotionMask | ButtonMotionMask | VisibilityChangeMask | StructureNotifyMask |
                      SubstructureNotifyMask;
    win = XCreateWindow(dpy, root, 0, 0, mnw.x_res_now, mnw.y_res_now, 0, vi->depth, InputOutput, vi->visual,
                        CWBorderPixel | CWColormap | CWOverrideRedirect | CWEventMask, &look);
    XStoreName(dpy, win, "Tarvane");
    XMapRaised(dpy, win);
    XEvent mapped;
    XPeekEvent(dpy, &mapped);  // stays in the queue for the frame
}

// A window without a frame gets no keys by itself. Where another program holds the keyboard, the
// simulator goes on with what reaches it.
static void take_keyboard() {
    int supported;
    XkbSetDetectableAutoRepeat(dpy, True, &supported);
    XSync(dpy, False);
    XWindowAttributes now;
    XGetWindowAttributes(dpy, win, &now);
    if (now.map_state == IsViewable) XSetInputFocus(dpy, win, RevertToPointerRoot, CurrentTime);
    const char* no_grab = getenv("ORVL_NO_GRAB_KEYBOARD");
    if (no_grab && no_grab[0] == '1') return;
    XGrabKeyboard(dpy, win, True, GrabModeAsync, GrabModeAsync, CurrentTime);
}

// The display went away under the program: what the user has set is kept, then it ends.
static int display_lost(Display*) {
    dpy = nullptr;
    if (alert_seam.finish) alert_seam.finish(1);
    _exit(EXIT_FAILURE);
}

int MACIBM_getcontext() {
    dpy = XOpenDisplay(nullptr);
    if (!dpy) return 0;
    XSetIOErrorHandler(display_lost);
    const int screen = DefaultScreen(dpy);
    const bool is_large = DisplayWidth(dpy, screen) >= XRES && DisplayHeight(dpy, screen) >= YRES;
    if (!is_large || !choose_visual()) {
        window_close();
        return 0;
    }
    first_event = true;
    create_window();
    if (!glXMakeCurrent(dpy, win, cx)) {
        window_close();
        return 0;
    }
    ++window_generation;
    take_keyboard();
    return 1;
}

int MACIBM_setres(int) {
    if (mnw.set_res_now && dpy && win) XResizeWindow(dpy, win, mnw.x_res_now, mnw.y_res_now);
    return 1;
}

void window_close() {
    if (!dpy) return;
    XUngrabKeyboard(dpy, CurrentTime);
    glXMakeCurrent(dpy, 0, nullptr);
    if (cx) glXDestroyContext(dpy, cx);
    if (win) XDestroyWindow(dpy, win);
    if (vi) XFree(vi);
    XCloseDisplay(dpy);
    dpy = nullptr, win = 0, cx = nullptr, vi = nullptr;
}

// The system's pointer over the window, or an empty one.
static void show_pointer(int shown) {
    static int now = -1, generation = -1;
    if (!dpy || (shown == now && generation == window_generation)) return;
    now = shown;
    generation = window_generation;
    if (shown) {
        XUndefineCursor(dpy, win);
        return;
    }
    static const char nothing[1] = {0};
    const Pixmap bits = XCreateBitmapFromData(dpy, win, nothing, 1, 1);
    XColor black{};
    const Cursor empty = XCreatePixmapCursor(dpy, bits, bits, &black, &black, 0, 0);
    XDefineCursor(dpy, win, empty);
    XFreeCursor(dpy, empty);
    XFreePixmap(dpy, bits);
}

static void swap_buffers() {
    if (dpy) glXSwapBuffers(dpy, win);
}

void platform_install_seams() {
    seams_real_clock();
    seam.drain_events = drain_events;
    seam.swap_buffers = swap_buffers;
    seam.show_pointer = show_pointer;
    seam.has_display = 1;
}

void window_fixed_gl_state() {
    const float base_ambient[4] = {0.0f, 0.0f, 0.0f, 1.0f};  // light comes from the sun and the sky alone
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, base_ambient);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glAlphaFunc(GL_GREATER, 0.0f);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glDepthFunc(GL_LEQUAL);
    glFogi(GL_FOG_MODE, GL_LINEAR);
    glHint(GL_FOG_HINT, GL_FASTEST);
    glFrontFace(GL_CW);
    glCullFace(GL_BACK);
    glEnable(GL_CULL_FACE);
    glShadeModel(GL_SMOOTH);
    glEnable(GL_DITHER);
    for (const GLenum off :
         {GL_STENCIL_TEST, GL_SCISSOR_TEST, GL_TEXTURE_1D, GL_NORMALIZE, GL_INDEX_LOGIC_OP})
        glDisable(off);
    glColorMaterial(GL_FRONT, GL_AMBIENT_AND_DIFFUSE);
    glEnable(GL_COLOR_MATERIAL);
}
