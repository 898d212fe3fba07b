// The edges of the frame that can be exchanged: clock, events, drawing, sound, devices, socket.
// Role: the frame calls these as they stand. The full program sets the real ones at start; headless
// runs keep the quiet ones, with a virtual clock, so that a run repeats bit for bit.
#pragma once

struct seam_struct {
    // clock
    long long (*epoch_millisec)();        // milliseconds since the epoch
    long long (*epoch_microsec)();        // the same clock, finer
    void (*wait)(float seconds);          // sleeps; a virtual clock jumps
    // window system
    void (*drain_events)();               // all pending events into mnw
    void (*swap_buffers)();
    void (*show_pointer)(int shown);      // the window system's own mouse pointer
    int has_display;                      // a window is wanted
    int has_user;                         // somebody can answer an alert
    // drawing
    void (*draw_world)();                 // the flying view
    void (*draw_background)();            // behind a settings window
    void (*draw_overlay)();               // menus, help box and cursor over the frame
    // sound
    void (*play_sound)(int slot, float pitch, float gain);
    void (*stop_sounds)();
    // devices and socket
    void (*poll_joystick)();
    void (*send_datagram)(int slot, const void* bytes, int count);
};
extern seam_struct seam;

// Puts every quiet seam in place: no display, no sound, a clock that only step_virtual_clock moves.
void seams_headless();
// Puts the system's clock in place; the other seams stay.
void seams_real_clock();

// Puts the virtual clock in place, the other seams stay.
void seams_virtual_clock();

// Advances the virtual clock.
void step_virtual_clock(double seconds);

// Wall clock in seconds inside a window of 5000 seconds, which keeps a float precise to a millisecond.
float time_sec();
