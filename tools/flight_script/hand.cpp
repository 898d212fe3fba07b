// The hand of a scripted pilot.
#include "hand.h"

#include "app/lab/headless.h"
#include "core/math/num.h"
#include "core/program/input_gate.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/records.h"

void move_stick(float roll, float pull) {
    constexpr float reach = 100.0f;  // virtual units from neutral to full
    input_gate_mouse(0.5f * XRES + reach * fltlim(roll, -1.0f, 1.0f),
                     0.5f * YRES - reach * fltlim(pull, -1.0f, 1.0f), 0, 0);
}

// Among the events of a frame, which the next frame would forget.
void take_yoke() {
    void (*const events)() = seam.drain_events;
    seam.drain_events = [] { input_gate_mouse(0.5f * XRES, 0.5f * YRES, 1, 1); };
    headless_frame();
    seam.drain_events = events;
}

void press(int use, int key, int times) {
    for (int i = 0; i < times; ++i) {
        input_gate_key(use, key, 1);
        input_gate_key(use, key, 0);
    }
}

void press_brake() { press(key_use_char, 'b'); }
void more_flap() { press(key_use_char, '2'); }
void change_view(int key) { press(key_use_char, key); }

void move_throttle(int steps) {
    constexpr int less = 50, more = 51;
    press(key_use_function, steps < 0 ? less : more, steps < 0 ? -steps : steps);
}
