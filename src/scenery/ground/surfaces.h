// Surfaces that lie over the terrain mesh, and the small bumps of each kind.
// Role: asked by terrain queries of the user's aircraft and its tyres alone. Knows strips, ships and roofs by
// their records; not how they are drawn.
#pragma once

// env.surf_tex, and a runway's surf_tex: the texture that is drawn there.
enum surface_tex : int {
    surface_plain = 0,  // the ground as it is
    surface_turn_asphalt = 105,
    surface_turn_concrete = 106,
    surface_hard_object = 107,
    surface_asphalt = 113,
    surface_concrete = 114,
    surface_grass = 115,
    surface_dirt = 116,
    surface_gravel = 117,
    surface_lakebed = 118,
    surface_pad_asphalt = 119,
    surface_pad_concrete = 120,
    surface_pad_grass = 121,
    surface_pad_dirt = 122,
    surface_water = 128,
};

// Each sets env.terrain_ctr and terrain_nrm, with a deck terrain_vel too, when there is such a surface at (x,
// z). What has no bumps: the network's terrain, a roof, a deck.
bool smooth_surface_at(float x, float z);
// A runway. Also env.over_rwy_this, roughness, surf_tex; on Mars its cable may be caught.
bool runway_surface_at(float x, float z, int checker);

// World y at (x, z) of the plane in env.
float y_on_surface(float x, float z);
// Height of the bumps there of the surface in env, metres.
float surface_detail(float x, float z);
