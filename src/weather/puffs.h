// Smoke puffs.
#pragma once

// Colours by what makes the smoke.
enum puff_color : int {
    puff_dust = 15,
    puff_white = 16,
    puff_black = 17,
    puff_spray = 18,
    puff_exhaust = 19,
    puff_dark = 20,
    puff_contrail = 21,
    puff_wet = 22,
    puff_spray_reverse = 23
};
constexpr int puff_reverse_shift = 5;  // exhaust colours in reverse

class puff_class {
public:
    void spawn_puff(float x, float y, float z, float vx, float vy, float vz, float size1, int color1,
                    float alpha1);
    // All puffs into a new local frame: turned about the planet's centre (shift_xyz_quat).
    void shift_puffs(const double q_shift[4]);
};
extern puff_class puff;
