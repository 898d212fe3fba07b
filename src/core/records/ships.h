// The ships that are landed on: what flight, terrain queries and drawing have to agree on.
#pragma once

enum ship : int { ship_carrier = 0, ship_frigate = 1 };

constexpr float carr_height = 21.0f, frig_height = 7.0f;  // of the deck over the ship's place, m
constexpr float carr_v = 15.0f, frig_v = 10.0f;           // speed along the heading, m/s
