// Two xorshift sequences and the table of draws.
#include "core/math/random.h"

#include <string>

#include "core/program/alert.h"

float randrat[randratDIM];

constexpr unsigned first_state = 2463534242u;
static unsigned state = first_state, view_state = first_state;

void rand_seed(unsigned seed) {
    state = seed * 2654435761u + first_state;  // spread small seeds over the state
    if (state == 0) state = first_state;       // the one state that xorshift cannot leave
    view_state = state;
}

// Marsaglia, "Xorshift RNGs", Journal of Statistical Software 8 (2003), triple (13, 17, 5).
static unsigned draw31(unsigned* from) {
    *from ^= *from << 13;
    *from ^= *from >> 17;
    *from ^= *from << 5;
    return *from >> 1;
}

unsigned rand31() { return draw31(&state); }

static float spread(unsigned draw, float min, float max) {
    constexpr float two_to_minus_31 = 4.656612873077392578125e-10f;
    return min + two_to_minus_31 * static_cast<float>(draw) * (max - min);
}

float flt_rand(float min, float max) { return spread(rand31(), min, max); }
float view_rand(float min, float max) { return spread(draw31(&view_state), min, max); }

int int_rand(int min, int max) {
    if (min == max) return min;
    // in double the ratio stays below 1, so max itself is the highest answer
    const double span = static_cast<double>(max) - min + 1.0;
    const int val =
        static_cast<int>(min + static_cast<long long>(rand31() * 4.656612873077392578125e-10 * span));
    if (val < min || val > max)
        MACIBM_alert(0, "int rand val out of range! Lo and hi and returned values are:", std::to_string(min),
                     std::to_string(max), std::to_string(val), alert_fatal);
    return val;
}

void init_rand_rat() {
    for (float& r : randrat) r = flt_rand(0.0f, 0.9999f);
}

float flt_seedrand(float min, float max, int seed) {
    if (seed < 0) {
        MACIBM_fatal("Cannot pass in negative float rand seed!");
        return min;
    }
    return min + randrat[seed % randratDIM] * (max - min);
}

int int_seedrand(int min, int max, int seed) {
    if (seed < 0) {
        MACIBM_fatal("Cannot pass in negative int rand seed!");
        return min;
    }
    return min + static_cast<int>(randrat[seed % randratDIM] * (static_cast<float>(max) - min + 1.0f));
}
