// What the sky shows: stars, and the colours of the hours.
#pragma once

class star_class {
public:
    void star_build();  // reads the catalogue
};
extern star_class star;

class skyc_class {
public:
    void conditions_init();  // loads the colours of the present planet
    int any_lites_on(int code);  // whether the lamp with this number burns: each has its own moment at dusk

    // Light and colours of the present view, 0 to 1. Until they follow the hour and the weather they are those of
    // a clear day with the sun in the south-west.
    float lgt_dir_r = 0.82f, lgt_dir_g = 0.80f, lgt_dir_b = 0.74f;  // of the sun
    float lgt_amb_r = 0.36f, lgt_amb_g = 0.38f, lgt_amb_b = 0.42f;  // of the sky
    float lgt_psi = 235.0f, lgt_the = 38.0f;                        // where it comes from: true heading, elevation, degrees
    float wat_col_r = 0.36f, wat_col_g = 0.50f, wat_col_b = 0.62f;  // of water as it is lit
    float raw_wat_r = 0.36f, raw_wat_g = 0.50f, raw_wat_b = 0.62f;  // of water by day
    float fog_col_r = 0.63f, fog_col_g = 0.72f, fog_col_b = 0.79f;
    float near_fog = 0.0f, far_fog = 0.0f;  // where fog begins and is full, m from the eye
};
extern skyc_class skyc;
