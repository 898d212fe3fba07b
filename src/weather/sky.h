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
};
extern skyc_class skyc;
