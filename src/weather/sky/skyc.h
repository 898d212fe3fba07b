// What the eye sees of the air: how far, in which light and colours, where sun and moon stand, and who has
// lamps on. Role: conditions_update once a drawn frame, after the eye has been placed and before anything is
// drawn; drawing and lamps read the results. Colours come from pictures by the sun's height (sky_tables.h).
// Knows no OpenGL.
//
// Colours and weights 0 to 1; angles in degrees; lengths in metres.
#pragma once

constexpr int sky_setDIM = 5, light_rowDIM = 512;                          // sets; rows of a light picture
constexpr int sky_frameDIM = 16, sky_headingDIM = 64, sky_heightDIM = 16;  // of a sky picture

// Conditions of the air, each with pictures of its own.
enum sky_set : int { set_clean = 0, set_misty, set_foggy, set_hialt, set_ocast };
// Index of the bodies' places: the sun, the moon, and what lights the scene, which is a mix of them at dusk.
enum sky_body : int { body_sun = 0, body_moon, body_any };

// What the sky is told by those that it must not know.
struct sky_surroundings {
    float airport_ele;                    // elevation of the nearest airport
    int bus_works;                        // 0 or 1: the user's aircraft has electric power
    int from_outside;                     // 0 or 1: the view is not from the user's cockpit
    float weapon_distance;                // of the one that the view follows, below 0 for none
    float (*ground_y)(float x, float z);  // world y of the ground
};

using light_table = float[sky_setDIM][light_rowDIM][3];

class skyc_class {
public:
    // Loads the pictures of env.planet. One that is missing or too small is told once and becomes a grey
    // gradient.
    void conditions_init();
    // Everything below for the present view (ren, atm, mnw, flt[0]). Fatal: weights of the sets that do not
    // sum to 1.
    void conditions_update(const sky_surroundings& around);
    // Adds to light and colours, each result held to 0 to 1; fog and dome take it as the air is thick.
    // is_nite_vis adds to the bodies and clouds too.
    void colors_inc(float r, float g, float b, int is_nite_vis);
    // Whether the lamp with this number burns: each has a moment of its own at dusk. A negative code is
    // fatal.
    int any_lites_on(int code) const;
    int car_lites_on() const { return car_lites_on_priv; }
    int plane_lites_on() const { return plane_lites_on_priv; }
    int runway_lites_on() const { return runway_lites_on_priv; }
    int cockpit_lites_on() const { return cockpit_lites_on_priv; }

    float near_dis = 1.0f, far_dis = 50000.0f;  // clip distances
    float view_sig_earth_rat =
        1.0f;  // square root of the density at the eye over the Earth's at sea level, 0 to 1
    float view_sig_relat_rat = 1.0f;               // the same over this planet's
    float near_fog = 0.0f, far_fog = 0.0f;         // where fog begins and is full
    float far_land = 0.0f;                         // farther ground is not drawn: it lies in full fog
    float sig_rat_top = 1.0f, sig_rat_bot = 1.0f;  // brightness of the dome at the top and the horizon
    // by sky_body: latitude of the place; hour angle, west of the meridian; declination, positive south; true
    // heading 0 to 360 and elevation
    float lgt_lat_sun_mon_any[3] = {}, lgt_azi_sun_mon_any[3] = {}, lgt_dec_sun_mon_any[3] = {};
    float lgt_psi_sun_mon_any[3] = {}, lgt_the_sun_mon_any[3] = {0.0f, 0.0f, 45.0f};
    int moon_tex = 253;             // reference of the moon's phase, 242 to 264
    float side_time_hrs = 0.0f;     // sidereal time, h
    float del_psi_from_sun = 0.0f;  // heading of the view from the sun, -180 to 180
    // tables by set and row, and what they give now
    light_table raw_sun_amb, raw_sun_dir, raw_mon_amb, raw_mon_dir, raw_sun_col, raw_mon_col, raw_wat_col,
        raw_cld_drk, raw_cld_lgt;
    float lgt_amb[3] = {0.36f, 0.38f, 0.42f},
          lgt_dir[3] = {0.6f, 0.6f, 0.6f};  // light from all around, from one side
    float sun_col[3] = {1.0f, 1.0f, 1.0f}, mon_col[3] = {1.0f, 1.0f, 1.0f};  // discs
    float wat_col[3] = {0.36f, 0.50f, 0.62f}, cld_drk[3] = {},
          cld_lgt[3] = {};                     // water, clouds in shade and in light
    float raw_wat[3] = {0.36f, 0.50f, 0.62f};  // water by day
    // by set, frame, heading from the sun (32 is towards it), height; and the dome as it is drawn, from the
    // horizon up
    unsigned char raw_sky_256[sky_setDIM][sky_frameDIM][sky_headingDIM][sky_heightDIM][3];
    unsigned char sky_256[sky_heightDIM][sky_headingDIM][3];
    float fog_col[4] = {0.63f, 0.72f, 0.79f, 1.0f};
    float lite_rat_on_priv = 0.0f;  // how far night has come
    int car_lites_on_priv = 0, plane_lites_on_priv = 0, runway_lites_on_priv = 0,
        cockpit_lites_on_priv = 0;  // 0 or 1
};
extern skyc_class skyc;

void reset_skyc();
