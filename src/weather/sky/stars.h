// The stars by brightness.
// Role: read when a planet is loaded, drawn with the sky (weather/draw/sky_draw.cpp). Reading knows no
// OpenGL.
#pragma once
#include <string>
#include <vector>

constexpr int star_listDIM = 6;   // by magnitude: below 1.5, 3, 4.5, 6, 7.5, and fainter
constexpr int star_max = 200000;  // lines of a catalogue that are read
constexpr float min_dome_rad_mtrs = 1852.0f;

// m from the eye, in a frame of the sky: north pole on -z, the spring equinox on -y, six hours after it on
// -x.
struct star_place {
    float x, y, z;
};
// Where the sky's sphere holds a star of this right ascension and declination, radians.
star_place star_vertex(float ra_rad, float dec_rad);

class star_class {
public:
    // Reads the catalogue of env.planet; a missing one leaves the lists empty.
    void star_build();
    // Draws all in white with the alpha of their list. brat_star: brightness of the sky's stars; above thick
    // air they are brighter.
    void star_plot(float brat_star, float view_sig_earth_rat);

    std::vector<star_place> places[star_listDIM];
    int DL_stars[star_listDIM] = {};  // display lists, 0 none yet

private:
    void compile_lists();
    int generation = -1;       // of the window that holds the lists
    bool has_changed = false;  // places are newer than the lists
};
extern star_class star;

// Alpha of each list, 0 to 1; one of 0 is not drawn.
void star_alphas(float brat_star, float view_sig_earth_rat, float (&alpha)[star_listDIM]);
