// Quiet seams, the virtual clock and the wall clock.
#include "core/program/seams.h"

#include <chrono>
#include <thread>

seam_struct seam;

static double virtual_seconds;

static long long virtual_millisec() { return static_cast<long long>(virtual_seconds * 1000.0); }
static long long virtual_microsec() { return static_cast<long long>(virtual_seconds * 1e6); }
static void virtual_wait(float seconds) { virtual_seconds += seconds; }
static void nothing() {}
static void no_pointer(int) {}
static void no_sound(int, float, float) {}
static void no_datagram(int, const void*, int) {}

static long long system_microsec() {
    using namespace std::chrono;
    return duration_cast<microseconds>(system_clock::now().time_since_epoch()).count();
}
static long long system_millisec() { return system_microsec() / 1000; }
static void system_wait(float seconds) { std::this_thread::sleep_for(std::chrono::duration<float>(seconds)); }

void seams_headless() {
    virtual_seconds = 0.0;
    seam = {.epoch_millisec = virtual_millisec,
            .epoch_microsec = virtual_microsec,
            .wait = virtual_wait,
            .drain_events = nothing,
            .swap_buffers = nothing,
            .show_pointer = no_pointer,
            .has_display = 0,
            .has_user = 0,
            .draw_world = nothing,
            .draw_background = nothing,
            .draw_overlay = nothing,
            .play_sound = no_sound,
            .stop_sounds = nothing,
            .poll_joystick = nothing,
            .send_datagram = no_datagram};
}

void seams_real_clock() {
    seam.epoch_millisec = system_millisec;
    seam.epoch_microsec = system_microsec;
    seam.wait = system_wait;
}

void seams_virtual_clock() {
    seam.epoch_millisec = virtual_millisec;
    seam.epoch_microsec = virtual_microsec;
    seam.wait = virtual_wait;
}

void step_virtual_clock(double seconds) { virtual_seconds += seconds; }

float time_sec() {
    const long long ms = seam.epoch_millisec();
    const long long whole = (ms / 1000) % 5000;
    return static_cast<float>((static_cast<double>(whole * 1000) + static_cast<double>(ms % 1000)) * 0.001);
}
