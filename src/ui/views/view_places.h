// Places that outside views stand on: the airport's tower, the runway's end, the ship's island.
#pragma once

// World frame, m.
struct place_struct {
    float x, y, z;
};

// Where the tower view stands; is_on_ship: on the carrier's island, where it stays at once. Without an
// airport 30 m above the target.
struct tower_struct {
    place_struct at;
    bool is_on_ship;
};
tower_struct tower_place(const place_struct& target);
// The runway end of the region's airports nearest to a place, on the ground, leaving out runways whose number
// begins with "x"; 30 m above the place without any.
place_struct nearest_runway_end(const place_struct& from);
// Ground below, world y; 0, the tangent plane, outside of the region.
float ground_of_view(float x, float z);
