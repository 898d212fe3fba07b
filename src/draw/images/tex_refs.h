// References of the fixed textures, by which code knows them. Knows no OpenGL.
#pragma once

// clang-format off
// name, first, last
#define TEX_REFS(X)                                                                                  \
    X(runway, 1, 108)             /* markings and numbers: asphalt odd, concrete even */             \
    X(runway_ground, 109, 127)    /* shoulders, lines, unpaved runways, helipads; skids last */      \
    X(water, 128, 239)            /* 7 states of the sea, 16 frames each */                          \
    X(taxiline, 241, 241)                                                                            \
    X(moon, 242, 264)             /* phases */                                                       \
    X(shadow, 265, 274)           /* of the aircraft */                                              \
    X(aurora, 275, 278)                                                                              \
    X(balloon, 279, 282)                                                                             \
    X(cirrus, 283, 283)                                                                              \
    X(stratus, 284, 284)                                                                             \
    X(overcast, 285, 285)                                                                            \
    X(puff, 286, 286)                                                                                \
    X(smoke, 287, 287)                                                                               \
    X(planet, 288, 289)           /* of the orbital view */                                          \
    X(flame, 290, 293)            /* fast and slow burner, liquid and solid rocket */                \
    X(building, 294, 294)                                                                            \
    X(deck, 295, 295)                                                                                \
    X(movie, 296, 296)                                                                               \
    X(cars, 297, 297)                                                                                \
    X(person, 298, 298)                                                                              \
    X(chute, 299, 299)                                                                               \
    X(fire, 300, 300)                                                                                \
    X(fence, 301, 301)                                                                               \
    X(prop_disc, 302, 302)                                                                           \
    X(snow, 303, 303)                                                                                \
    X(wake, 304, 304)                                                                                \
    X(lights, 305, 305)                                                                              \
    X(landing_light, 306, 306)                                                                       \
    X(ice, 307, 307)                                                                                 \
    X(scratches, 308, 308)                                                                           \
    X(win_damage, 309, 309)                                                                          \
    X(static, 310, 310)                                                                              \
    X(sun_glow, 311, 311)                                                                            \
    X(interface, 312, 312)                                                                           \
    X(menu_text, 313, 313)                                                                           \
    X(map, 314, 320)              /* land and water at three levels; colours of the sectional last */\
    X(cockpit_3d, 328, 328)                                                                          \
    X(cockpit_3d_alpha, 329, 329)                                                                    \
    X(cloud_shadow, 330, 332)                                                                        \
    X(radar, 333, 333)                                                                               \
    X(background, 334, 334)       /* of windows */                                                   \
    X(sky, 335, 335)                                                                                 \
    X(powerlines, 336, 336)                                                                          \
    X(panel, 337, 343)            /* layers */                                                       \
    X(paint, 344, 387)            /* aircraft * 4 + texture * 2 + lit */                             \
    X(weapon, 388, 627)           /* aircraft * 24 + weapon */                                       \
    X(instrument, 629, 1829)      /* layer * 300 + slot */                                           \
    X(blank, 1830, 1830)                                                                             \
    X(free, 1831, 1831)           /* in a load: any that is free; those handed out lie from here up */
// clang-format on

enum tex_ref : int {
    tex_none = 0,
#define X(name, first, last) tex_##name = first, tex_##name##_last = last,
    TEX_REFS(X)
#undef X
};

// Single pictures inside a group, where a rule asks for them.
constexpr int tex_skids = tex_runway_ground_last;
constexpr int tex_sectional_colours = tex_map_last;

constexpr int tex_is(int ref, int first, int last) { return first <= ref && ref <= last; }
