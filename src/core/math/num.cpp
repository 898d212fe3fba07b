// The parts of the numeric kit that are too long to inline.
#include "core/math/num.h"

#include <limits>

#include "core/program/alert.h"
#include "core/records/mnw.h"

int intcut(float in) {
    // 2147483520 is the largest float below 2^31
    if (!(in > -2147483648.0f)) return in != in ? 0 : std::numeric_limits<int>::min();
    if (in >= 2147483648.0f) return std::numeric_limits<int>::max();
    return static_cast<int>(in);
}

int intround(float in) { return intcut(in < 0.0f ? in - 0.5f : in + 0.5f); }

// Past a few spans the loop gives way to a remainder: angles come from files and packets, and 1e20
// would never come back by subtraction.
template <class T>
static T wrap(T in, T min, T max, T (*remainder)(T, T)) {
    constexpr int loop_spans = 16;
    const T span = max - min;
    if (!(span > 0) || !(in - in == 0)) return in;  // no span; NaN or infinity
    if (in > max + loop_spans * span) {
        const T rest = remainder(in - min, span);
        in = rest == 0 ? max : min + rest;  // where the loop would stop
    } else if (in < min - loop_spans * span) {
        const T rest = remainder(max - in, span);
        in = rest == 0 ? min : max - rest;
    }
    while (in > max) in -= span;
    while (in < min) in += span;
    return in;
}

float fltwrap(float in, float min, float max) { return wrap<float>(in, min, max, fmodf); }
double dobwrap(double in, double min, double max) { return wrap<double>(in, min, max, fmod); }

int intwrap(int in, int min, int max) {
    const long long span = static_cast<long long>(max) - min + 1;
    if (span <= 0) return in;
    const long long offset = (static_cast<long long>(in) - min) % span;
    return static_cast<int>(min + (offset < 0 ? offset + span : offset));
}

float pulse(float offset) { return 0.5f + 0.5f * sinf(4.0f * (mnw.totl_time + offset)); }

void check_val_failed() {
    MACIBM_alert(mnw.top_win, "duh-oh!", "nan! nan! nan!", "BIIIIIIIIIIIIIIIIIIIIIIIIG problems!",
                 "BIIIIIIIIIIIIIIIIIIIIIIIIG problems!", alert_fatal);
}
