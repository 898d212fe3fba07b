// Double clocks behind published floats.
#include "core/program/clocks.h"

clocks_struct clocks;

void clock_struct::set(float& published, double value) {
    now = value;
    published = seen = static_cast<float>(value);
}

void clock_struct::step(float& published, double dt, double span) {
    double value = (published == seen ? now : static_cast<double>(published)) + dt;
    if (span > 0.0 && value > span) value -= span;
    set(published, value);
}
