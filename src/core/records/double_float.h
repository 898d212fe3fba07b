// A value that integrates in double and is published as a float: small steps on a large float add nothing (at
// 57600 s a step of 0.001 s is lost, at 250 m/s one of 0.00001 m/s).
// Whoever writes the published float is followed: a step first takes over one that no longer matches.
#pragma once

struct double_float {
    double now = 0.0;    // the value itself, in the unit of the published one
    float seen = 0.0f;  // what was published last

    // Sets both.
    void set(float& published, double value) {
        now = value;
        published = seen = static_cast<float>(value);
    }
    // Advances by a change, wraps at span (0: never), publishes.
    void step(float& published, double change, double span = 0.0) {
        double value = (published == seen ? now : static_cast<double>(published)) + change;
        if (span > 0.0 && value > span) value -= span;
        set(published, value);
    }
};
