// A stroke of lightning: when and where it strikes, how it flickers.
// Role: build once a drawn frame; its light goes into the sky's colours, its line is drawn with the clouds
// (weather/draw/sky_draw.cpp).
#pragma once

constexpr int strike_branchDIM = 3, strike_jointDIM = 200;

class ligt_class {
public:
    // Perhaps a new strike; how bright the present one is in this frame. ground_y: world y of the ground.
    void build(float (*ground_y)(float x, float z));
    void plot() const;
    int in_prog() const;
    float brt_rat_strike() const { return strike_alpha; }  // 0 to 1
    float brt_rat_view() const;                            // the same as it lights the air at the eye

    float strike_distance_mtr = 0.0f;                             // from the eye
    float strike_stop_time = 0.0f;                                // mnw.real_time, s
    float strike_alpha = 0.0f;                                    // 0 to 1
    float strike_xyz[strike_branchDIM][strike_jointDIM][3] = {};  // world frame, m, from the top

private:
    void try_strike(float (*ground_y)(float x, float z));
    void grow(int branch, float x, float y, float z, float bottom);
    void thunder() const;
};
extern ligt_class ligt;

void reset_lightning();
