// Places of fires and ships.
#include "scenery/region/region_places.h"

#include <math.h>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/records.h"
#include "scenery/ground/region.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/ground/tile.h"

namespace {
constexpr int trials = 100;
constexpr int checker_fire = 17, checker_boat = 11;  // of boats 0 to 3 the next ones

struct place_struct {
    float x, z;  // m
};

place_struct random_place() {
    constexpr float share = 0.75f;  // of the region's extents
    const float x = flt_rand(share * env.reg_x1_mtr, share * env.reg_x2_mtr);
    const float z = flt_rand(share * env.reg_z1_mtr, share * env.reg_z2_mtr);
    return {x, z};
}

// On this side of the planet: x and z alone are small on the far side, too.
bool is_here(float x, float y, float z) { return y > -0.5f * con.planet_rad && ret_xz_inreg_tight(x, z); }

// As given: z counts with its sign reversed, which a region as deep to the north as to the south does not
// tell.
bool fires_are_here() {
    for (const float(&xyz)[3] : scn.firexyz)
        if (is_here(xyz[0], xyz[1], -xyz[2])) return true;
    return false;
}

// False where all is water.
bool find_steepest(float (&best)[3]) {
    float steepest = -1.0f;
    for (int i = 0; i < trials; ++i) {
        const place_struct at = random_place();
        if (terrain_is_wet(at.x, at.z, checker_fire)) continue;
        const float y = return_terrain_y(at.x, at.z, checker_fire);
        const float slope = pythag(env.terrain_nrm[0], env.terrain_nrm[2]);
        if (slope <= steepest) continue;
        steepest = slope;
        best[0] = at.x, best[1] = y, best[2] = at.z;
    }
    return steepest >= 0.0f;
}

void place_fires(int typeshift) {
    scn.fire_avail = typeshift != shift_full_reload && fires_are_here();
    float place[3] = {};
    if (scn.fire_avail || !find_steepest(place)) return;
    for (int i = 0; i < fireDIM; ++i) {
        for (int axis = 0; axis < 3; ++axis) scn.firexyz[i][axis] = place[axis];
        scn.fire_on[i] = 1;
    }
    scn.fire_avail = 1;
}

double elevation_of(double x, double y, double z) {
    const double R = con.planet_rad;
    return sqrt(x * x + (R + y) * (R + y) + z * z) - R;
}

void place_boat(int s) {
    constexpr float most_elevation = 100.0f;  // m, above sea or below: no lake in the mountains
    float nearest = INFINITY;
    for (int i = 0; i < trials; ++i) {
        const place_struct at = random_place();
        const float distance = pythag(at.x, at.z);
        if (distance >= nearest || !terrain_is_wet(at.x, at.z, checker_boat + s)) continue;
        const float y = return_terrain_y(at.x, at.z, checker_boat + s);
        if (fabs(elevation_of(at.x, y, at.z)) > most_elevation) continue;
        nearest = distance;
        env.boat_x[s] = at.x;
        env.boat_y[s] = y;
        env.boat_z[s] = at.z;
    }
}
}  // namespace

void place_fires_and_boats(int typeshift) {
    constexpr int placed_ships = 4;
    place_fires(typeshift);
    for (int s = 0; s < placed_ships; ++s)
        if (!is_here(env.boat_x[s], env.boat_y[s], env.boat_z[s])) place_boat(s);
}
