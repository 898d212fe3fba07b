// A pilot for scripts and tests, of aeroplanes and helicopters: holds speed, height and heading through the
// stick, the pedals and the one power lever, as a practised hand would. Not the aircraft's autopilot.
#pragma once

struct lab_pilot_aim {
    float speed;    // m/s through the air, forward; a helicopter's may be 0
    float height;   // m above the sphere
    float heading;  // degrees, true
};

class lab_pilot {
public:
    // From the controls of a steady state, FC_* and power lever.
    lab_pilot(float ptch, float roll, float hdng, float power);
    // Once before each frame of dt seconds.
    void fly(const lab_pilot_aim& aim, float dt);

private:
    void fly_aeroplane(const lab_pilot_aim& aim, float dt);
    void fly_helicopter(const lab_pilot_aim& aim, float dt);
    float ptch_, roll_, hdng_, power_;  // controls in trim, as found so far
    float nose_ = 0.0f, bank_ = 0.0f;   // a helicopter's attitude in trim, degrees
};
