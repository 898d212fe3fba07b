// The ships: their slots and the fixed sizes of their decks.
// Role: told once for all who stand on them, start from them or draw them. Places and angles: env.boat_*.
#pragma once

enum ship_slot : int {
    ship_carrier = 0,
    ship_frigate = 1,
    ship_platform_1 = 2,
    ship_platform_2 = 3,
    ships_placed = 4
};

// Height of the deck above the water, m.
constexpr float carr_height = 21.0f, frig_height = 7.0f, opla_height = 60.0f, orig_height = 97.0f;

// Speed through the water, m/s; the platforms stand.
constexpr float carr_v = 15.0f, frig_v = 10.0f;

// Landing deck and catapult of the carrier against its heading, degrees.
constexpr float carr_appang = -8.0f, carr_catang = 2.0f;

// Ends of the catapult's track, ship's axes: x right, z aft, m.
constexpr float carr_cat_x1 = -12.5f, carr_cat_z1 = -60.0f, carr_cat_x2 = -9.1f, carr_cat_z2 = -152.0f;
